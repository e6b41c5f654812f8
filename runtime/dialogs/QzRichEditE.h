#pragma once
// TFrRichEditE: the runtime's rich text window, which a rich edit's tool bar
// opens to edit its text in a larger window with the usual formatting:
// bold, italic, underline, font and size, colour, alignment and bullets.
// A rich edit kept as plain text is edited without formatting. Nothing
// reaches the lines before OK.

#include "runtime/dialogs/QzRichTextDialog.h"

#include "ui_TFrRichEditE.h"

#include "rtl/System.h"

#include <functional>

class QTextDocument;
class TComponent;
class TStrings;

// Installs codec (one with an empty Read or Write: the default again);
// returns the codec it replaces.
TQzRichTextCodec SetQzRichTextCodec(TQzRichTextCodec codec);
const TQzRichTextCodec& QzRichTextCodec();

class TFrRichEditE : public TQzRichTextDialog, public Ui::TFrRichEditE {
    Q_OBJECT

public:
    explicit TFrRichEditE(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Runs the window titled caption on the text of lines; on OK the edited
    // text replaces lines and the result is true. With no lines the window
    // is a sample whose text goes nowhere.
    bool Execute(const AnsiString& caption, TStrings* lines, bool plainText = false);
    // The same on a rich edit control's lines, plain when its PlainText is
    // set; nullptr: the sample.
    bool Execute(const AnsiString& caption, TComponent* control);

    // The text in the lines' format.
    AnsiString Text() const;
    void SetText(const AnsiString& text);

private:
    void BtOpenClick();
    void BtSaveClick();
    void ShowMoreFormat() override;
    void BuildColorMenu();
};
