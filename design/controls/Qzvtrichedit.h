#pragma once
// TFrRichEdit: the rich text editor of a rich edit's lines at design time:
// bold, italic, underline, font and colour of the selection, alignment
// and bullets of its paragraphs, and the text loaded from and saved to RTF
// or plain text files. A rich edit kept as plain text is edited without
// formatting. Nothing reaches the lines before Ok.

#include "runtime/dialogs/QzRichTextDialog.h"

#include "ui_TFrRichEdit.h"

#include "rtl/System.h"

class TStrings;

class TFrRichEdit : public TQzRichTextDialog, public Ui::TFrRichEdit {
    Q_OBJECT

public:
    explicit TFrRichEdit(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Edits lines (RTF, or plain text when plainText); on Ok after a change
    // the edited text replaces them and the result is 1.
    int Execute(TStrings* lines, bool plainText);

    void SetPlainText(bool value) override;
    // The text as the lines will keep it, and the text shown from it.
    AnsiString Text() const;
    void SetText(const AnsiString& text);

    // The commands, as the tool bar runs them.
    void BtOpenClick();
    void BtSaveClick();
    void BtFontClick();
    void BtColorClick();
};

// Installs the editor as the window a rich edit's Lines property opens,
// and RTF as the way rich edits keep their lines.
void RegisterQzvtrichedit();
