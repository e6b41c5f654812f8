#pragma once
// The one bridge between the class library's strings and Qt's. AnsiString
// holds UTF-8, which is what QString's std::string conversions read and
// write; should that ever change, only these two change with it.

#include "rtl/System.h"

#include <QString>

inline QString QzQString(const AnsiString& s) { return QString::fromStdString(s); }
inline AnsiString QzAnsiString(const QString& s) { return s.toStdString(); }
