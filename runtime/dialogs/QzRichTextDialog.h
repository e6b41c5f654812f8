#pragma once
// The base of the rich text windows (the runtime's and the designer's):
// whatever their form, the format buttons act on the edit and follow its
// cursor, a format reaches the selection, and a plain text edit leaves
// every formatting control disabled. Each window binds its own form's
// controls and adds what it shows or chooses beyond the buttons.

#include "runtime/dialogs/QzRichTextTools.h"
#include "vcl/QzDialog.h"

#include <initializer_list>
#include <vector>

class QTextCharFormat;
class QTextEdit;

class TQzRichTextDialog : public TQzDialog {
    Q_OBJECT

public:
    bool PlainText() const { return FPlainText; }
    virtual void SetPlainText(bool value);

protected:
    explicit TQzRichTextDialog(QWidget* parent);

    // Once the form is set up: the edit, its format buttons and the
    // window's other formatting controls. Shows the format at the cursor.
    void BindRichText(QTextEdit* edit, const TQzRichTextButtons& buttons, std::initializer_list<QWidget*> formatting);
    void MergeFormat(const QTextCharFormat& format);
    void ShowFormat();
    // What the window shows of the format at the cursor beyond the buttons.
    virtual void ShowMoreFormat() {}

private:
    QTextEdit* FEdit = nullptr;
    TQzRichTextButtons FButtons{};
    std::vector<QWidget*> FFormatting;
    bool FPlainText = false;
    // Not re-entered when a control set while showing signals a change.
    bool FShowing = false;
};
