#pragma once
// What the rich text windows (the runtime's and the designer's) share: the
// character and paragraph buttons, how a format reaches the text, and how
// the buttons follow the cursor.

#include "rtl/System.h"

#include <QTextCharFormat>

#include <functional>

class QObject;
class QTextDocument;
class QTextEdit;
class QToolButton;

// How a rich edit's lines hold formatted text. By default they hold Qt's
// rich text (HTML); a unit that reads and writes another format installs
// it here, and the window and its files follow.
struct TQzRichTextCodec {
    // Fills document from text.
    std::function<void(const AnsiString& text, QTextDocument& document)> Read;
    std::function<AnsiString(const QTextDocument& document)> Write;
    // The files of the format, in the suite's filter form; the window adds
    // plain text files after them.
    AnsiString FileFilter;
};

struct TQzRichTextButtons {
    QToolButton* Bold;
    QToolButton* Italic;
    QToolButton* Underline;
    QToolButton* Left;
    QToolButton* Center;
    QToolButton* Right;
    QToolButton* Bullets;
};

// The style buttons get their shortcuts and show what they do (B bold...).
void QzStyleRichTextButtons(const TQzRichTextButtons& buttons);
// Bold, italic, underline, the alignments and bullets act on edit; changed
// runs after each (the window shows the format again).
void QzConnectRichTextButtons(QObject* context, QTextEdit* edit, const TQzRichTextButtons& buttons,
                              const std::function<void()>& changed);
// The selection, or the word under the cursor, and what is typed next take
// format.
void QzMergeCharFormat(QTextEdit* edit, const QTextCharFormat& format);
// Every paragraph of the selection joins a bulleted list, or leaves its list.
void QzSetBullets(QTextEdit* edit, bool on);
// The buttons show the format at the cursor.
void QzShowRichTextFormat(const QTextEdit* edit, const TQzRichTextButtons& buttons);
// The edit's text: its plain text, or its document written by codec.
AnsiString QzRichEditText(const QTextEdit* edit, bool plain, const TQzRichTextCodec& codec);
// Puts text into edit, read by codec unless plain (or empty).
void QzSetRichEditText(QTextEdit* edit, const AnsiString& text, bool plain, const TQzRichTextCodec& codec);
