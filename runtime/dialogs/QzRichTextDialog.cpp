#include "runtime/dialogs/QzRichTextDialog.h"

#include <QTextEdit>
#include <QToolButton>

TQzRichTextDialog::TQzRichTextDialog(QWidget* parent) : TQzDialog(parent) {}

void TQzRichTextDialog::BindRichText(QTextEdit* edit, const TQzRichTextButtons& buttons,
                                     std::initializer_list<QWidget*> formatting)
{
    FEdit = edit;
    FButtons = buttons;
    FFormatting = {buttons.Bold, buttons.Italic, buttons.Underline, buttons.Left,
                   buttons.Center, buttons.Right, buttons.Bullets};
    FFormatting.insert(FFormatting.end(), formatting);
    QzStyleRichTextButtons(buttons);
    QzConnectRichTextButtons(this, edit, buttons, [this] { ShowFormat(); });
    connect(edit, &QTextEdit::currentCharFormatChanged, this, &TQzRichTextDialog::ShowFormat);
    connect(edit, &QTextEdit::cursorPositionChanged, this, &TQzRichTextDialog::ShowFormat);
    ShowFormat();
}

void TQzRichTextDialog::SetPlainText(bool value)
{
    FPlainText = value;
    FEdit->setAcceptRichText(!value);
    for (QWidget* w : FFormatting)
        w->setEnabled(!value);
}

void TQzRichTextDialog::MergeFormat(const QTextCharFormat& format)
{
    QzMergeCharFormat(FEdit, format);
    ShowFormat();
}

void TQzRichTextDialog::ShowFormat()
{
    if (FShowing)
        return;
    FShowing = true;
    QzShowRichTextFormat(FEdit, FButtons);
    ShowMoreFormat();
    FShowing = false;
}
