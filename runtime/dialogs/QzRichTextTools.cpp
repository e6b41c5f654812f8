#include "runtime/dialogs/QzRichTextTools.h"

#include "vcl/QzQtString.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextList>
#include <QToolButton>

void QzStyleRichTextButtons(const TQzRichTextButtons& buttons)
{
    buttons.Bold->setShortcut(QKeySequence::Bold);
    buttons.Italic->setShortcut(QKeySequence::Italic);
    buttons.Underline->setShortcut(QKeySequence::Underline);
    for (auto [button, apply] :
         {std::pair<QToolButton*, void (*)(QFont&)>{buttons.Bold, [](QFont& f) { f.setBold(true); }},
          {buttons.Italic, [](QFont& f) { f.setItalic(true); }},
          {buttons.Underline, [](QFont& f) { f.setUnderline(true); }}}) {
        QFont font = button->font();
        apply(font);
        button->setFont(font);
    }
}

void QzConnectRichTextButtons(QObject* context, QTextEdit* edit, const TQzRichTextButtons& buttons,
                              const std::function<void()>& changed)
{
    const auto merge = [edit, changed](const QTextCharFormat& format) {
        QzMergeCharFormat(edit, format);
        changed();
    };
    QObject::connect(buttons.Bold, &QToolButton::clicked, context, [merge](bool on) {
        QTextCharFormat f;
        f.setFontWeight(on ? QFont::Bold : QFont::Normal);
        merge(f);
    });
    QObject::connect(buttons.Italic, &QToolButton::clicked, context, [merge](bool on) {
        QTextCharFormat f;
        f.setFontItalic(on);
        merge(f);
    });
    QObject::connect(buttons.Underline, &QToolButton::clicked, context, [merge](bool on) {
        QTextCharFormat f;
        f.setFontUnderline(on);
        merge(f);
    });
    const auto align = [edit, changed](Qt::Alignment alignment) {
        edit->setAlignment(alignment);
        changed();
    };
    QObject::connect(buttons.Left, &QToolButton::clicked, context, [align] { align(Qt::AlignLeft | Qt::AlignAbsolute); });
    QObject::connect(buttons.Center, &QToolButton::clicked, context, [align] { align(Qt::AlignHCenter); });
    QObject::connect(buttons.Right, &QToolButton::clicked, context, [align] { align(Qt::AlignRight | Qt::AlignAbsolute); });
    QObject::connect(buttons.Bullets, &QToolButton::clicked, context, [edit, changed](bool on) {
        QzSetBullets(edit, on);
        changed();
    });
}

void QzMergeCharFormat(QTextEdit* edit, const QTextCharFormat& format)
{
    QTextCursor cursor = edit->textCursor();
    if (!cursor.hasSelection())
        cursor.select(QTextCursor::WordUnderCursor);
    cursor.mergeCharFormat(format);
    edit->mergeCurrentCharFormat(format);
    edit->setFocus();
}

void QzSetBullets(QTextEdit* edit, bool on)
{
    QTextCursor cursor = edit->textCursor();
    cursor.beginEditBlock();
    if (on && !cursor.currentList()) {
        cursor.createList(QTextListFormat::ListDisc);
    } else if (!on) {
        // Each paragraph goes back to its own indent.
        const int end = cursor.selectionEnd();
        QTextBlock block = edit->document()->findBlock(cursor.selectionStart());
        while (block.isValid() && block.position() <= end) {
            if (QTextList* list = block.textList()) {
                list->remove(block);
                QTextCursor c(block);
                QTextBlockFormat format = block.blockFormat();
                format.setIndent(0);
                c.setBlockFormat(format);
            }
            block = block.next();
        }
    }
    cursor.endEditBlock();
}

void QzShowRichTextFormat(const QTextEdit* edit, const TQzRichTextButtons& buttons)
{
    const QTextCharFormat f = edit->currentCharFormat();
    buttons.Bold->setChecked(f.fontWeight() >= QFont::Bold);
    buttons.Italic->setChecked(f.fontItalic());
    buttons.Underline->setChecked(f.fontUnderline());
    const Qt::Alignment a = edit->alignment();
    buttons.Left->setChecked(!(a & (Qt::AlignHCenter | Qt::AlignRight | Qt::AlignJustify)));
    buttons.Center->setChecked(a & Qt::AlignHCenter);
    buttons.Right->setChecked(a & Qt::AlignRight);
    buttons.Bullets->setChecked(edit->textCursor().currentList() != nullptr);
}

AnsiString QzRichEditText(const QTextEdit* edit, bool plain, const TQzRichTextCodec& codec)
{
    if (plain)
        return QzAnsiString(edit->toPlainText());
    return codec.Write(*edit->document());
}

void QzSetRichEditText(QTextEdit* edit, const AnsiString& text, bool plain, const TQzRichTextCodec& codec)
{
    if (plain || text.empty())
        edit->setPlainText(QzQString(text));
    else
        codec.Read(text, *edit->document());
}
