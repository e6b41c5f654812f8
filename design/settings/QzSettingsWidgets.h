#pragma once
// Small conversions the settings pages share between their fields and the
// packages' values.

#include "rtl/SysUtils.h"

class QComboBox;
class QLineEdit;

// A one-character field: its character, or '\0' when it is empty or not
// plain ASCII, which the packages refuse with their own message.
char QzSeparatorOf(const QLineEdit* edit);
void QzShowSeparator(QLineEdit* edit, char value);

// Fills a combo box with captions whose index is the enumeration's value.
void QzFillCombo(QComboBox* combo, std::initializer_list<const char*> captions);
