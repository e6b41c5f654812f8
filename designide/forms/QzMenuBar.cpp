#include "designide/forms/QzMenuBar.h"

#include "designide/forms/QzControlInfo.h"

#include "runtime/components/Forms.h"
#include "runtime/components/QzMenus.h"

namespace {

bool IsHidden(TComponent* item)
{
    return QzTextValue(item, "Visible") == "False";
}

}  // namespace

TComponent* QzFormMenu(TComponent* root)
{
    if (auto* form = dynamic_cast<TCustomForm*>(root))
        return form->Menu();
    const AnsiString name = QzTextValue(root, "Menu");
    return name.empty() ? nullptr : root->FindComponent(name);
}

int QzMenuBarHeight(TComponent* root)
{
    if (auto* form = dynamic_cast<TCustomForm*>(root))
        return form->MenuBarHeight();
    return QzFormMenu(root) ? QzClassicMenuBarHeight : 0;
}

std::vector<AnsiString> QzMenuBarCaptions(TComponent* menu)
{
    std::vector<AnsiString> captions;
    if (!menu)
        return captions;
    if (auto* main = dynamic_cast<TQzMainMenu*>(menu)) {
        TQzMenuItem* items = main->Items();
        for (int i = 0; i < items->Count(); ++i)
            if (items->Items(i)->Visible())
                captions.push_back(QzShownCaption(items->Items(i)));
        return captions;
    }
    // A menu of a class we do not know: its items are what the file nests
    // inside it.
    for (int i = 0; i < menu->ChildCount(); ++i)
        if (!IsHidden(menu->Child(i)))
            captions.push_back(QzShownCaption(menu->Child(i)));
    return captions;
}

AnsiString QzStripMnemonic(const AnsiString& caption)
{
    AnsiString out;
    for (size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size())
            ++i;
        else if (caption[i] == '&')
            continue;
        out += caption[i];
    }
    return out;
}
