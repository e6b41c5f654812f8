#pragma once
// TFrMsgHlp: the runtime's help window. It shows a message, when there is
// one, over the help page that explains it; the page is a text of a
// strings package, its first line the topic's title. The suite's own pages
// are texts of the "System" package, built in when the application has no
// "System" strings of its own.

#include "vcl/QzDialog.h"

#include "ui_TFrMsgHlp.h"

#include "rtl/System.h"

struct TQzHelpTopic {
    bool Found = false;
    AnsiString Title;
    AnsiString Body;
};

// Text topicId of the strings package pkgName, split into its title (the
// first line) and its body (the rest, blank lines after the title dropped).
// Not found: Found false and a title that says so.
TQzHelpTopic QzHelpTopic(const AnsiString& pkgName, Integer topicId);

class TFrMsgHlp : public TQzDialog, public Ui::TFrMsgHlp {
    Q_OBJECT

public:
    explicit TFrMsgHlp(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Shows text (none: the page alone) with the help page topicId of
    // pkgName; caption empty: "Help". Closed with OK, returns 1.
    int Execute(const AnsiString& pkgName, Integer topicId, const AnsiString& text, const AnsiString& caption = {});

private:
    void BtCopyClick();
};

// Opens the help window over the active window.
void QzHelp(const AnsiString& pkgName, Integer topicId, const AnsiString& text = {});
