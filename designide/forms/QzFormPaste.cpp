#include "designide/forms/QzFormPaste.h"

#include "designide/forms/QzControlInfo.h"

#include "runtime/components/Controls.h"
#include "runtime/components/QzPages.h"

#include "rtl/SysUtils.h"
#include "rtl/TypInfo.h"

TComponent* QzPasteContainer(TComponent* root, TComponent* selected)
{
    if (selected == root || !QzIsControl(selected))
        return root;
    if (QzIsContainer(selected))
        return selected;
    TComponent* parent = selected->GetParentComponent();
    return parent ? parent : root;
}

std::optional<AnsiString> QzPlacePastedPages(TComponent* root, TComponent* selected,
                                             const std::vector<TQzStreamNode>& pasted, TComponent*& container)
{
    for (const TQzStreamNode& node : pasted) {
        const TMetaClass* cls = GetClass(node.Header.ClassName);
        TMetaClass* holder = cls ? QzPageHolderClass(cls) : nullptr;
        if (!holder)
            continue;
        TComponent* found = nullptr;
        for (TComponent* c = selected; c && c != root && !found; c = c->GetParentComponent())
            if (c->InheritsFrom(holder))
                found = c;
        if (!found)
            return Format("A %s can be pasted only onto a %s: select one, or one of its pages, first.",
                          node.Header.ClassName, holder->ClassName());
        container = found;
    }
    return std::nullopt;
}

void QzSettlePasted(TComponent* root, const std::vector<AnsiString>& names)
{
    for (const AnsiString& name : names)
        if (auto* sheet = dynamic_cast<TQzTabSheet*>(root->FindComponent(name)))
            if (TQzCustomPageControl* pages = sheet->PageControl())
                pages->AddPageFor(sheet);
    for (const AnsiString& name : names) {
        auto* control = dynamic_cast<TControl*>(root->FindComponent(name));
        if (!control || control->Align() == alNone || control->Align() == alCustom)
            continue;
        if (TWinControl* parent = control->Parent())
            parent->Realign();
    }
}
