#include "ide/QzFormClipboard.h"

#include "ide/QzComponentPaste.h"
#include "ide/QzComponentText.h"
#include "ide/QzControlLook.h"
#include "ide/QzIdeDesigner.h"

#include "vcl/QzDialogs.h"

#include "runtime/components/Controls.h"

#include "rtl/Parser.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {

// The form's own text options, but characters beyond ASCII as themselves:
// the clipboard's text is Unicode, not the form's code page.
TFormTextOptions ClipboardOptions(const TIdeDesigner& designer)
{
    TFormTextOptions options = designer.Form().TextOptions();
    options.HighChars = THighChars::Utf8;
#ifndef Q_OS_WIN
    options.LineBreak = AnsiString(1, '\n');
#endif
    return options;
}

std::vector<TComponent*> CopiedComponents(TIdeDesigner& designer)
{
    std::vector<TComponent*> copied;
    for (TComponent* c : designer.SelectedComponents())
        if (c != designer.GetRoot())
            copied.push_back(c);
    return copied;
}

// Whether text starts as form text does, to tell text of another kind from
// form text that is broken.
bool StartsAsFormText(std::string_view text)
{
    if (text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);
    try {
        TParser parser(text);
        return parser.TokenSymbolIs("object") || parser.TokenSymbolIs("inherited") || parser.TokenSymbolIs("inline");
    } catch (const Exception&) {
        return false;
    }
}

void Report(const AnsiString& text, QWidget* parent)
{
    QzMessage(text, mtError, {mbOK}, mbOK, parent);
}

// A form as read is never moved, so aligned controls that were pasted are
// put in line with their new siblings here.
void AlignPasted(TComponent* root, const std::vector<AnsiString>& names)
{
    for (const AnsiString& name : names) {
        auto* control = dynamic_cast<TControl*>(root->FindComponent(name));
        if (!control || control->Align() == alNone || control->Align() == alCustom)
            continue;
        if (TWinControl* parent = control->Parent())
            parent->Realign();
    }
}

QString PasteLabel(const std::vector<AnsiString>& names)
{
    if (names.size() == 1)
        return QStringLiteral("Paste %1").arg(QString::fromStdString(names.front()));
    return QStringLiteral("Paste %1 components").arg(names.size());
}

}  // namespace

std::string QzCopyText(TIdeDesigner& designer, const std::vector<TComponent*>& components)
{
    return QzComponentsToText(designer.GetRoot(), designer.Snapshot(), components, ClipboardOptions(designer));
}

bool QzCopySelection(TIdeDesigner& designer, QWidget* parent)
{
    const std::vector<TComponent*> copied = CopiedComponents(designer);
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (copied.empty() || !clipboard)
        return false;
    std::string text;
    try {
        text = QzCopyText(designer, copied);
    } catch (const Exception& e) {
        Report("The components cannot be copied: " + e.Message(), parent);
        return false;
    }
    auto* data = new QMimeData;
    data->setText(QString::fromStdString(text));
    data->setData(QzComponentsMimeType, QByteArray::fromStdString(text));
    clipboard->setMimeData(data);
    return true;
}

bool QzCutSelection(TIdeDesigner& designer, QWidget* parent)
{
    if (!QzCopySelection(designer, parent))
        return false;
    designer.DeleteComponents(CopiedComponents(designer), QStringLiteral("Cut"));
    return true;
}

TComponent* QzPasteContainer(TIdeDesigner& designer)
{
    TComponent* root = designer.GetRoot();
    TComponent* selected = designer.SelectedComponents().front();
    if (selected == root || !QzIsControl(selected))
        return root;
    if (QzIsContainer(selected))
        return selected;
    TComponent* parent = selected->GetParentComponent();
    return parent ? parent : root;
}

std::vector<TComponent*> QzPasteText(TIdeDesigner& designer, const std::string& text, QWidget* parent)
{
    std::vector<TQzStreamNode> pasted;
    try {
        pasted = QzComponentsFromText(text, ClipboardOptions(designer));
    } catch (const Exception& e) {
        if (!StartsAsFormText(text)) {
            Report("The clipboard holds no components to paste.", parent);
            return {};
        }
        Report("The components on the clipboard cannot be pasted: " + e.Message(), parent);
        return {};
    }
    if (pasted.empty()) {
        Report("The clipboard holds no components to paste.", parent);
        return {};
    }
    TComponent* root = designer.GetRoot();
    TQzPasteResult result;
    try {
        result = QzPasteIntoForm(root, designer.Snapshot(), QzPasteContainer(designer), std::move(pasted));
        // Reading the form again replaces every component, root included.
        designer.Change(PasteLabel(result.Names), [&] {
            designer.Restore(result.Form);
            AlignPasted(designer.GetRoot(), result.Names);
        });
    } catch (const Exception& e) {
        Report("The components on the clipboard cannot be pasted: " + e.Message(), parent);
        return {};
    }
    std::vector<TComponent*> components;
    TDesignerSelections selections;
    for (const AnsiString& name : result.Names)
        if (TComponent* c = designer.GetRoot()->FindComponent(name)) {
            components.push_back(c);
            selections.push_back(c);
        }
    designer.SetSelections(selections);
    return components;
}

std::vector<TComponent*> QzPasteClipboard(TIdeDesigner& designer, QWidget* parent)
{
    std::string text;
    const QClipboard* clipboard = QGuiApplication::clipboard();
    if (const QMimeData* data = clipboard ? clipboard->mimeData() : nullptr) {
        if (data->hasFormat(QzComponentsMimeType))
            text = data->data(QzComponentsMimeType).toStdString();
        else if (data->hasText())
            text = data->text().toStdString();
    }
    return QzPasteText(designer, text, parent);
}
