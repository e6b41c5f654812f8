#include "vcl/QzIdEdit.h"

#include <algorithm>

namespace {

QString DigitsOf(const QString& text)
{
    QString digits;
    for (QChar c : text)
        if (c >= '0' && c <= '9')
            digits.append(c);
    return digits;
}

}  // namespace

TQzIdValidator::TQzIdValidator(QLineEdit* edit, int maxLength)
    : QValidator(edit), FMaxLength(maxLength), FAccepted(DigitsOf(edit->text()).left(maxLength))
{
}

QValidator::State TQzIdValidator::validate(QString& input, int& pos) const
{
    // What the change inserted lies between the part of the old text kept
    // before it and the part kept after the cursor. Keep its digits, as many
    // as fit.
    const QString before = FAccepted;
    const qsizetype cursor = std::clamp<qsizetype>(pos, 0, input.size());
    qsizetype suffix = std::min(input.size() - cursor, before.size());
    if (input.right(suffix) != before.right(suffix))
        suffix = 0;
    qsizetype prefix = 0;
    while (prefix < before.size() - suffix && prefix < cursor && before[prefix] == input[prefix])
        ++prefix;
    QString inserted = DigitsOf(input.mid(prefix, input.size() - prefix - suffix));
    inserted.truncate(std::max<qsizetype>(0, FMaxLength - prefix - suffix));
    input = before.left(prefix) + inserted + before.right(suffix);
    pos = static_cast<int>(prefix + inserted.size());
    FAccepted = input;
    return Acceptable;
}

void QzMakeIdEdit(QLineEdit* edit, int maxLength)
{
    // The validator enforces the length itself: QLineEdit's own limit would
    // cut a paste before its letters are dropped.
    edit->setMaxLength(32767);
    edit->setValidator(new TQzIdValidator(edit, maxLength));
    edit->setInputMethodHints(Qt::ImhDigitsOnly);
}

int QzIdEditValue(const QLineEdit* edit)
{
    bool ok = false;
    const int id = edit->text().toInt(&ok);
    return ok ? id : -1;
}

void QzSetIdEditValue(QLineEdit* edit, int id)
{
    edit->setText(id < 0 ? QString() : QString::number(id));
}

TQzIdEdit::TQzIdEdit(QWidget* parent) : QLineEdit(parent)
{
    QzMakeIdEdit(this);
}
