#include "ide/QzFormClipboard.h"

#include "ide/QzControlLook.h"
#include "ide/QzIdeDesigner.h"

#include "designide/QzComponentPaste.h"
#include "designide/QzComponentText.h"

#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include "runtime/components/Controls.h"
#include "runtime/components/QzPages.h"

#include "rtl/SysUtils.h"
#include "rtl/TypInfo.h"

#include "rtl/Parser.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <optional>

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

const AnsiString CannotPaste = "The components on the clipboard cannot be pasted: ";

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

// Pasted pages go onto the selected control of their holder's kind (a tab
// sheet onto a page control), or the one the selection sits in. Says why
// not when there is none.
std::optional<AnsiString> PlacePages(TIdeDesigner& designer, const std::vector<TQzStreamNode>& pasted,
                                     TComponent*& container)
{
    for (const TQzStreamNode& node : pasted) {
        const TMetaClass* cls = GetClass(node.Header.ClassName);
        TMetaClass* holder = cls ? QzPageHolderClass(cls) : nullptr;
        if (!holder)
            continue;
        TComponent* found = nullptr;
        for (TComponent* c = designer.SelectedComponents().front(); c && c != designer.GetRoot() && !found;
             c = c->GetParentComponent())
            if (c->InheritsFrom(holder))
                found = c;
        if (!found)
            return Format("A %s can be pasted only onto a %s: select one, or one of its pages, first.",
                          node.Header.ClassName, holder->ClassName());
        container = found;
    }
    return std::nullopt;
}

// A pasted sheet gets its tab on the page control it went to.
void GiveSheetsTabs(TComponent* root, const std::vector<AnsiString>& names)
{
    for (const AnsiString& name : names)
        if (auto* sheet = dynamic_cast<TQzTabSheet*>(root->FindComponent(name)))
            if (TQzCustomPageControl* pages = sheet->PageControl())
                pages->AddPageFor(sheet);
}

QString PasteLabel(const std::vector<AnsiString>& names)
{
    if (names.size() == 1)
        return QStringLiteral("Paste %1").arg(QzQString(names.front()));
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
    if (!QzRunReportingErrors(parent, [&] { text = QzCopyText(designer, copied); },
                              "The components cannot be copied: "))
        return false;
    auto* data = new QMimeData;
    data->setText(QzQString(text));
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
        Report(CannotPaste + e.Message(), parent);
        return {};
    }
    if (pasted.empty()) {
        Report("The clipboard holds no components to paste.", parent);
        return {};
    }
    TComponent* root = designer.GetRoot();
    TComponent* container = QzPasteContainer(designer);
    if (const std::optional<AnsiString> refusal = PlacePages(designer, pasted, container)) {
        Report(*refusal, parent);
        return {};
    }
    TQzPasteResult result;
    const bool pastedWell = QzRunReportingErrors(
        parent,
        [&] {
            result = QzPasteIntoForm(root, designer.Snapshot(), container, std::move(pasted));
            // Reading the form again replaces every component, root included.
            designer.Change(PasteLabel(result.Names), [&] {
                designer.Restore(result.Form);
                GiveSheetsTabs(designer.GetRoot(), result.Names);
                AlignPasted(designer.GetRoot(), result.Names);
            });
        },
        CannotPaste);
    if (!pastedWell)
        return {};
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
