#include "design/controls/QzRichTextDocument.h"

#include "vcl/QzQtString.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

namespace {

Qt::Alignment ToQt(TQzRtfAlign align)
{
    switch (align) {
    case TQzRtfAlign::Left: break;
    case TQzRtfAlign::Center: return Qt::AlignHCenter;
    case TQzRtfAlign::Right: return Qt::AlignRight | Qt::AlignAbsolute;
    case TQzRtfAlign::Justify: return Qt::AlignJustify;
    }
    return Qt::AlignLeft | Qt::AlignAbsolute;
}

TQzRtfAlign FromQt(Qt::Alignment align)
{
    if (align & Qt::AlignHCenter)
        return TQzRtfAlign::Center;
    if (align & Qt::AlignRight)
        return TQzRtfAlign::Right;
    if (align & Qt::AlignJustify)
        return TQzRtfAlign::Justify;
    return TQzRtfAlign::Left;
}

QTextCharFormat ToQt(const TQzRtfCharFormat& f)
{
    QTextCharFormat format;
    if (!f.FontName.empty())
        format.setFontFamilies(QStringList{QzQString(f.FontName)});
    if (f.PointSize > 0)
        format.setFontPointSize(f.PointSize);
    format.setFontWeight(f.Bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(f.Italic);
    format.setFontUnderline(f.Underline);
    if (f.Color)
        format.setForeground(QColor(QRgb(*f.Color)));
    return format;
}

TQzRtfCharFormat FromQt(const QTextCharFormat& format)
{
    TQzRtfCharFormat f;
    if (format.hasProperty(QTextFormat::FontFamilies)) {
        const QStringList families = format.fontFamilies().toStringList();
        if (!families.isEmpty())
            f.FontName = QzAnsiString(families.front());
    }
    if (format.hasProperty(QTextFormat::FontPointSize))
        f.PointSize = format.fontPointSize();
    f.Bold = format.fontWeight() >= QFont::Bold;
    f.Italic = format.fontItalic();
    f.Underline = format.fontUnderline();
    if (format.hasProperty(QTextFormat::ForegroundBrush) && format.foreground().style() != Qt::NoBrush)
        f.Color = format.foreground().color().rgb() & 0xFFFFFF;
    return f;
}

}  // namespace

void QzRtfToDocument(const TQzRtfDocument& rtf, QTextDocument& document)
{
    document.clear();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    QTextList* list = nullptr;
    bool first = true;
    for (const TQzRtfParagraph& paragraph : rtf.Paragraphs) {
        QTextBlockFormat block;
        block.setAlignment(ToQt(paragraph.Align));
        if (first)
            cursor.setBlockFormat(block);
        else
            cursor.insertBlock(block, QTextCharFormat());
        first = false;
        // Bullets next to each other make one list, as a word processor shows them.
        if (!paragraph.Bullet)
            list = nullptr;
        else if (list)
            list->add(cursor.block());
        else
            list = cursor.createList(QTextListFormat::ListDisc);
        for (const TQzRtfRun& run : paragraph.Runs)
            cursor.insertText(QzQString(run.Text), ToQt(run.Format));
    }
    cursor.endEditBlock();
}

TQzRtfDocument QzRtfFromDocument(const QTextDocument& document)
{
    TQzRtfDocument rtf;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        TQzRtfParagraph paragraph;
        paragraph.Align = FromQt(block.blockFormat().alignment());
        paragraph.Bullet = block.textList() != nullptr;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (fragment.isValid())
                QzRtfAddText(paragraph, QzAnsiString(fragment.text()), FromQt(fragment.charFormat()));
        }
        rtf.Paragraphs.push_back(std::move(paragraph));
    }
    if (rtf.Paragraphs.empty())
        rtf.Paragraphs.emplace_back();
    return rtf;
}

TQzRichTextCodec QzRtfCodec()
{
    TQzRichTextCodec codec;
    codec.Read = [](const AnsiString& text, QTextDocument& document) {
        const QString s = QzQString(text);
        if (QzIsRtf(text)) {
            try {
                QzRtfToDocument(QzReadRtf(text), document);
                return;
            } catch (const EQzRtfError&) {
                // Shown as it is, so that nothing of it is lost.
            }
        } else if (Qt::mightBeRichText(s)) {
            document.setHtml(s);
            return;
        }
        document.setPlainText(s);
    };
    codec.Write = [](const QTextDocument& document) { return QzWriteRtf(QzRtfFromDocument(document)); };
    codec.FileFilter = "Rich text files (*.rtf)|*.rtf";
    return codec;
}
