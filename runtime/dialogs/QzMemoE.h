#pragma once
// TFrMemoE: the runtime's memo window, which a memo's tool bar opens to edit
// the memo's lines in a larger window. The text can be replaced by a text
// file's or written to one; nothing reaches the lines before OK.

#include "vcl/QzDialog.h"

#include "ui_TFrMemoE.h"

#include "rtl/StringList.h"
#include "rtl/System.h"
#include "vcl/QzQtString.h"

#include <functional>

class TFrMemoE : public TQzDialog, public Ui::TFrMemoE {
    Q_OBJECT

public:
    explicit TFrMemoE(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Runs the window titled caption on a copy of lines; on OK the edited
    // text replaces lines and the result is true. With no lines the window
    // is a sample: the text goes nowhere.
    bool Execute(const AnsiString& caption, TStrings* lines);

    AnsiString Text() const;
    void SetText(const AnsiString& text);

private:
    void BtOpenClick();
    void BtSaveClick();
    void UpdatePosition();
};

// The text of lines as an editor shows it: lines joined by "\n", with no
// break after the last, which would show as an empty last line.
AnsiString QzEditorText(const TStrings& lines);

// The filter of the text files the memo and rich text windows open and save.
extern const char* const QzTextFileFilter;

// The two windows' Open and Save As: the file asked for among filter, its
// lines read and handed to show, or written from what text gives for the
// name chosen. A file that cannot be read or written is reported.
void QzOpenTextFile(QWidget* parent, const AnsiString& filter,
                    const std::function<void(const AnsiString& fileName, const TStrings& lines)>& show);
void QzSaveTextFile(QWidget* parent, const AnsiString& filter, const AnsiString& defaultExt,
                    const std::function<AnsiString(const AnsiString& fileName)>& text);

// How the memo and rich text windows edit lines: titled caption (unless
// empty), the window shows their text with the focus in editor; on OK its
// Text() replaces them and the result is true. With no lines the window is
// a sample: the text goes nowhere.
template <class TWindow>
bool QzExecuteOnLines(TWindow& window, QWidget* editor, const AnsiString& caption, TStrings* lines)
{
    if (!caption.empty())
        window.setWindowTitle(QzQString(caption));
    window.SetText(lines ? QzEditorText(*lines) : AnsiString());
    editor->setFocus();
    if (window.Execute() != mrOk)
        return false;
    if (lines)
        lines->SetText(window.Text());
    return true;
}
