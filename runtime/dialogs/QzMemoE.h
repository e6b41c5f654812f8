#pragma once
// TFrMemoE: the runtime's memo window, which a memo's tool bar opens to edit
// the memo's lines in a larger window. The text can be replaced by a text
// file's or written to one; nothing reaches the lines before OK.

#include "vcl/QzDialog.h"

#include "ui_TFrMemoE.h"

#include "rtl/System.h"

class TStrings;

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
