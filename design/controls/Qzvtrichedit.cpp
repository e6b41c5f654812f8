#include "design/controls/Qzvtrichedit.h"

#include "design/controls/QzRichTextDocument.h"
#include "design/reg/QzEditorDialogs.h"

#include "rtl/StringList.h"
#include "rtl/TypInfo.h"
#include "runtime/components/QzStdCtrls.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"
#include "vcl/QzWindowBounds.h"

#include <QApplication>
#include <QTextBlock>
#include <QTextList>

namespace {

TQzResizeInfoDesigner Bounds;

constexpr const char* RtfFilter = "Rich text files (*.rtf)|*.rtf";
constexpr const char* PlainFilter = "Text files (*.txt)|*.txt";

bool IsPlainFile(const AnsiString& fileName)
{
    return !SameText(ExtractFileExt(fileName), ".rtf");
}

// The lines' text without the break after the last line, which an editor
// would show as an empty paragraph.
AnsiString LinesText(const TStrings& lines)
{
    AnsiString text = lines.Text();
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    return text;
}

TQzFileRequest FileRequest(QWidget* parent, const AnsiString& title, bool plainText)
{
    TQzFileRequest request;
    request.Title = title;
    request.Filter = plainText ? AnsiString(PlainFilter) : AnsiString(RtfFilter) + "|" + PlainFilter;
    request.DefaultExt = plainText ? "txt" : "rtf";
    request.Parent = parent;
    return request;
}

}  // namespace

TFrRichEdit::TFrRichEdit(QWidget* parent) : TQzRichTextDialog(parent)
{
    setupUi(this);
    RememberBounds(&Bounds);
    BindRichText(RichEdit, {BtBold, BtItalic, BtUnderline, BtLeft, BtCenter, BtRight, BtBullets}, {BtFont, BtColor});

    connect(BtOpen, &QToolButton::clicked, this, &TFrRichEdit::BtOpenClick);
    connect(BtSave, &QToolButton::clicked, this, &TFrRichEdit::BtSaveClick);
    connect(BtFont, &QToolButton::clicked, this, &TFrRichEdit::BtFontClick);
    connect(BtColor, &QToolButton::clicked, this, &TFrRichEdit::BtColorClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrRichEdit::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrRichEdit::reject);
}

int TFrRichEdit::Execute(TStrings* lines, bool plainText)
{
    SetPlainText(plainText);
    SetText(lines ? LinesText(*lines) : AnsiString());
    RichEdit->setFocus();
    // An Ok that changed nothing leaves the lines, and the designer's undo,
    // alone: rewriting them would only normalise another program's RTF.
    if (Execute() != mrOk || !RichEdit->document()->isModified())
        return 0;
    if (lines)
        lines->SetText(Text());
    return 1;
}

void TFrRichEdit::SetPlainText(bool value)
{
    TQzRichTextDialog::SetPlainText(value);
    LabInfo->setText(value ? QStringLiteral("Plain text: the rich edit keeps no formatting.") : QString());
}

AnsiString TFrRichEdit::Text() const
{
    return QzRichEditText(RichEdit, PlainText(), QzRtfCodec());
}

void TFrRichEdit::SetText(const AnsiString& text)
{
    QzSetRichEditText(RichEdit, text, PlainText(), QzRtfCodec());
    RichEdit->document()->setModified(false);
    ShowFormat();
}

void TFrRichEdit::BtOpenClick()
{
    const AnsiString fileName = QzOpenFile(FileRequest(this, "Open", PlainText()));
    if (fileName.empty())
        return;
    QzRunReportingErrors(this, [&] {
        TStringList lines;
        lines.LoadFromFile(fileName);
        const AnsiString text = LinesText(lines);
        if (IsPlainFile(fileName) || PlainText()) {
            RichEdit->setPlainText(QzQString(text));
            return;
        }
        TQzRtfDocument document;
        try {
            document = QzReadRtf(text);
        } catch (const EQzRtfError& e) {
            throw EQzRtfError(fileName + ": " + e.Message());
        }
        QzRtfToDocument(document, *RichEdit->document());
        ShowFormat();
    });
}

void TFrRichEdit::BtSaveClick()
{
    const AnsiString fileName = QzSaveFile(FileRequest(this, "Save As", PlainText()));
    if (fileName.empty())
        return;
    QzRunReportingErrors(this, [&] {
        TStringList lines;
        lines.SetText(IsPlainFile(fileName) ? QzAnsiString(RichEdit->toPlainText()) : Text());
        lines.SaveToFile(fileName);
    });
}

void TFrRichEdit::BtFontClick()
{
    QFont font = RichEdit->currentCharFormat().font();
    if (!QzChooseFont(font, this))
        return;
    QTextCharFormat f;
    f.setFont(font, QTextCharFormat::FontPropertiesSpecifiedOnly);
    // The dialog's font is a whole choice: its styles replace the selection's.
    f.setFontFamilies(QStringList{font.family()});
    f.setFontPointSize(font.pointSizeF());
    f.setFontWeight(font.bold() ? QFont::Bold : QFont::Normal);
    f.setFontItalic(font.italic());
    f.setFontUnderline(font.underline());
    MergeFormat(f);
}

void TFrRichEdit::BtColorClick()
{
    const QTextCharFormat current = RichEdit->currentCharFormat();
    QColor color = current.hasProperty(QTextFormat::ForegroundBrush) ? current.foreground().color() : QColor(Qt::black);
    if (!QzChooseColor(color, this))
        return;
    QTextCharFormat f;
    f.setForeground(color);
    MergeFormat(f);
}

void RegisterQzvtrichedit()
{
    SetQzRichTextCodec(QzRtfCodec());
    QzSetEditorDialog(TQzEditorDialog::RichEdit, [](TQzEditorDialogRequest& request) {
        auto* lines = dynamic_cast<TStrings*>(request.Target);
        if (!lines)
            if (auto* rich = dynamic_cast<TQzRichEdit*>(request.Component))
                lines = rich->Lines();
        const bool plain = request.Component && GetPropInfo(request.Component, "PlainText") &&
                           GetOrdProp(request.Component, "PlainText") != 0;
        TFrRichEdit form(QApplication::activeWindow());
        return form.Execute(lines, plain);
    });
}
