#include "ide/QzFormClipboard.h"

#include "designide/forms/QzIdeDesigner.h"

#include "designide/QzComponentPaste.h"
#include "designide/QzComponentText.h"
#include "designide/forms/QzFormPaste.h"

#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include "rtl/SysUtils.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <optional>

namespace {

TFormTextOptions ClipboardOptions(const TIdeDesigner& designer)
{
    return QzClipboardTextOptions(designer.Form().TextOptions());
}

std::vector<TComponent*> CopiedComponents(TIdeDesigner& designer)
{
    std::vector<TComponent*> copied;
    for (TComponent* c : designer.SelectedComponents())
        if (c != designer.GetRoot())
            copied.push_back(c);
    return copied;
}

const AnsiString CannotPaste = "The components on the clipboard cannot be pasted: ";

void Report(const AnsiString& text, QWidget* parent)
{
    QzMessage(text, mtError, {mbOK}, mbOK, parent);
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

std::vector<TComponent*> QzPasteText(TIdeDesigner& designer, const std::string& text, QWidget* parent)
{
    std::vector<TQzStreamNode> pasted;
    try {
        pasted = QzComponentsFromText(text, ClipboardOptions(designer));
    } catch (const Exception& e) {
        if (!QzStartsAsComponentText(text)) {
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
    TComponent* selected = designer.SelectedComponents().front();
    TComponent* container = QzPasteContainer(root, selected);
    if (const std::optional<AnsiString> refusal = QzPlacePastedPages(root, selected, pasted, container)) {
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
                QzSettlePasted(designer.GetRoot(), result.Names);
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
