#include "runtime/dialogs/QzMsgHlp.h"

#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/system/QzSystemStrings.h"

#include "vcl/QzQtString.h"

#include <QApplication>
#include <QClipboard>
#include <QStyle>

namespace {

// The page's text: the package's, else for "System" the built-in one.
bool FindTopicText(const AnsiString& pkgName, Integer topicId, AnsiString& text)
{
    if (TQzPkgStrings* package = QzFindPkgStrings(pkgName))
        if (const TQzPkgStringsText* item = package->Texts()->FindId(topicId)) {
            text = item->Text();
            return true;
        }
    if (SameText(pkgName, "System"))
        if (const char* builtIn = QzSystemTextText(topicId)) {
            text = builtIn;
            return true;
        }
    return false;
}

AnsiString WithLf(const AnsiString& text)
{
    AnsiString out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r')
            out += text[i];
        else if (i + 1 >= text.size() || text[i + 1] != '\n')
            out += '\n';
    return out;
}

}  // namespace

TQzHelpTopic QzHelpTopic(const AnsiString& pkgName, Integer topicId)
{
    TQzHelpTopic topic;
    AnsiString text;
    if (!FindTopicText(pkgName, topicId, text)) {
        topic.Title = "There is no help page " + IntToStr(topicId) + " in the strings package \"" + pkgName + "\".";
        return topic;
    }
    topic.Found = true;
    text = WithLf(text);
    const std::size_t end = text.find('\n');
    topic.Title = text.substr(0, end);
    if (end != AnsiString::npos) {
        const std::size_t body = text.find_first_not_of('\n', end);
        if (body != AnsiString::npos)
            topic.Body = text.substr(body);
    }
    return topic;
}

TFrMsgHlp::TFrMsgHlp(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    ImgIcon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this).pixmap(size, size));
    QFont font = LabTopic->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    LabTopic->setFont(font);
    connect(BtCopy, &QPushButton::clicked, this, &TFrMsgHlp::BtCopyClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrMsgHlp::accept);
}

int TFrMsgHlp::Execute(const AnsiString& pkgName, Integer topicId, const AnsiString& text, const AnsiString& caption)
{
    setWindowTitle(QzQString(caption.empty() ? AnsiString("Help") : caption));
    PnMessage->setVisible(!text.empty());
    LabMessage->setText(QzQString(WithLf(text)));
    const TQzHelpTopic topic = QzHelpTopic(pkgName, topicId);
    LabTopic->setText(QzQString(topic.Title));
    MemHelp->setPlainText(QzQString(topic.Body));
    MemHelp->setVisible(topic.Found);
    BtOk->setFocus();
    return Execute() == mrOk ? 1 : 0;
}

void TFrMsgHlp::BtCopyClick()
{
    QStringList parts;
    for (const QString& part : {LabMessage->text(), LabTopic->text(), MemHelp->toPlainText()})
        if (!part.isEmpty())
            parts << part;
    QGuiApplication::clipboard()->setText(parts.join(QStringLiteral("\n\n")));
}

void QzHelp(const AnsiString& pkgName, Integer topicId, const AnsiString& text)
{
    TFrMsgHlp window(QApplication::activeWindow());
    window.Execute(pkgName, topicId, text);
}
