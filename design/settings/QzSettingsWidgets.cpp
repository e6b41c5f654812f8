#include "design/settings/QzSettingsWidgets.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

char QzSeparatorOf(const QLineEdit* edit)
{
    const QString text = edit->text();
    if (text.isEmpty() || text[0].unicode() >= 0x80)
        return '\0';
    return static_cast<char>(text[0].unicode());
}

void QzShowSeparator(QLineEdit* edit, char value)
{
    const QSignalBlocker block(edit);
    edit->setText(value >= ' ' ? QString(QChar(value)) : QString());
}

void QzFillCombo(QComboBox* combo, std::initializer_list<const char*> captions)
{
    const QSignalBlocker block(combo);
    combo->clear();
    for (const char* caption : captions)
        combo->addItem(QString::fromUtf8(caption));
}
