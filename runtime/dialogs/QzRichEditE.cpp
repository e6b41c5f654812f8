#include "runtime/dialogs/QzRichEditE.h"

#include "runtime/components/QzStdCtrls.h"
#include "runtime/dialogs/QzMemoE.h"
#include "runtime/dialogs/QzRichTextTools.h"

#include "rtl/StringList.h"
#include "rtl/TypInfo.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QActionGroup>
#include <QMenu>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

namespace {

TQzRichTextCodec DefaultCodec()
{
    TQzRichTextCodec codec;
    codec.Read = [](const AnsiString& text, QTextDocument& document) {
        const QString s = QzQString(text);
        if (Qt::mightBeRichText(s))
            document.setHtml(s);
        else
            document.setPlainText(s);
    };
    codec.Write = [](const QTextDocument& document) { return QzAnsiString(document.toHtml()); };
    codec.FileFilter = "Rich text files (*.html;*.htm)|*.html;*.htm";
    return codec;
}

TQzRichTextCodec& Codec()
{
    static TQzRichTextCodec codec = DefaultCodec();
    return codec;
}

bool IsPlainFile(const AnsiString& fileName)
{
    return SameText(ExtractFileExt(fileName), ".txt");
}

// Plain text is opened and saved as text files only; rich text also in the
// codec's format, offered first.
AnsiString FileFilter(bool plainText)
{
    return plainText ? AnsiString(QzTextFileFilter) : Codec().FileFilter + "|" + QzTextFileFilter;
}

// The colours the colour button offers, as in a rich edit's tool bar.
constexpr QRgb Colors[] = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0x808080,
    0xC0C0C0, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

QIcon Swatch(QColor color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    QPainter(&pixmap).drawRect(0, 0, 15, 15);
    return QIcon(pixmap);
}

}  // namespace

TQzRichTextCodec SetQzRichTextCodec(TQzRichTextCodec codec)
{
    TQzRichTextCodec previous = Codec();
    Codec() = codec.Read && codec.Write ? std::move(codec) : DefaultCodec();
    return previous;
}

const TQzRichTextCodec& QzRichTextCodec()
{
    return Codec();
}

TFrRichEditE::TFrRichEditE(QWidget* parent) : TQzRichTextDialog(parent)
{
    setupUi(this);
    for (int size : {8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36, 48, 72})
        CBSize->addItem(QString::number(size));
    BuildColorMenu();
    BindRichText(RichEdit, {BtBold, BtItalic, BtUnderline, BtLeft, BtCenter, BtRight, BtBullets},
                 {BtColor, CBFont, CBSize});

    connect(BtOpen, &QToolButton::clicked, this, &TFrRichEditE::BtOpenClick);
    connect(BtSave, &QToolButton::clicked, this, &TFrRichEditE::BtSaveClick);
    connect(CBFont, &QFontComboBox::textActivated, this, [this](const QString& family) {
        QTextCharFormat f;
        f.setFontFamilies({family});
        MergeFormat(f);
    });
    connect(CBSize, &QComboBox::textActivated, this, [this](const QString& text) {
        bool ok = false;
        const double size = text.toDouble(&ok);
        if (!ok || size <= 0 || size > 1638) {
            QzMessage("'" + QzAnsiString(text) + "' is not a font size: give a number of points from 1 to 1638.",
                      mtError, {mbOK}, mbOK, this);
            ShowFormat();
            return;
        }
        QTextCharFormat f;
        f.setFontPointSize(size);
        MergeFormat(f);
    });
    connect(BtOk, &QPushButton::clicked, this, &TFrRichEditE::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrRichEditE::reject);
}

bool TFrRichEditE::Execute(const AnsiString& caption, TStrings* lines, bool plainText)
{
    SetPlainText(plainText);
    return QzExecuteOnLines(*this, RichEdit, caption, lines);
}

bool TFrRichEditE::Execute(const AnsiString& caption, TComponent* control)
{
    auto* rich = dynamic_cast<TQzRichEdit*>(control);
    if (!rich)
        return Execute(caption, static_cast<TStrings*>(nullptr));
    return Execute(caption, rich->Lines(), GetOrdProp(rich, "PlainText") != 0);
}

AnsiString TFrRichEditE::Text() const
{
    return QzRichEditText(RichEdit, PlainText(), Codec());
}

void TFrRichEditE::SetText(const AnsiString& text)
{
    QzSetRichEditText(RichEdit, text, PlainText(), Codec());
    ShowFormat();
}

void TFrRichEditE::BtOpenClick()
{
    QzOpenTextFile(this, FileFilter(PlainText()), [this](const AnsiString& fileName, const TStrings& lines) {
        if (IsPlainFile(fileName))
            RichEdit->setPlainText(QzQString(QzEditorText(lines)));
        else
            SetText(QzEditorText(lines));
    });
}

void TFrRichEditE::BtSaveClick()
{
    QzSaveTextFile(this, FileFilter(PlainText()), "", [this](const AnsiString& fileName) {
        return IsPlainFile(fileName) ? QzAnsiString(RichEdit->toPlainText()) : Text();
    });
}

void TFrRichEditE::ShowMoreFormat()
{
    const QFont font = RichEdit->currentCharFormat().font();
    CBFont->setCurrentFont(font);
    CBSize->setEditText(QString::number(font.pointSizeF() > 0 ? font.pointSizeF() : RichEdit->font().pointSizeF()));
}

void TFrRichEditE::BuildColorMenu()
{
    auto* menu = new QMenu(BtColor);
    for (QRgb rgb : Colors) {
        const QColor color(rgb);
        QAction* action = menu->addAction(Swatch(color), color.name());
        connect(action, &QAction::triggered, this, [this, color] {
            QTextCharFormat f;
            f.setForeground(color);
            MergeFormat(f);
        });
    }
    BtColor->setMenu(menu);
    BtColor->setPopupMode(QToolButton::InstantPopup);
}
