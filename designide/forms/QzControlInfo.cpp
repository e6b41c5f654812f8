#include "designide/forms/QzControlInfo.h"

#include "designide/forms/QzMenuBar.h"

#include "runtime/components/Controls.h"
#include "runtime/components/Forms.h"
#include "runtime/model/QzMemory.h"

#include "rtl/ComponentStream.h"
#include "rtl/Filer.h"
#include "rtl/StringList.h"
#include "rtl/SysUtils.h"
#include "rtl/TypInfo.h"
#include "rtl/Variant.h"

#include <algorithm>

namespace {

const TStreamedProperty* FindStreamed(TComponent* component, const AnsiString& name)
{
    auto* info = dynamic_cast<TComponentStreamInfo*>(component->StreamInfo());
    if (!info)
        return nullptr;
    for (const TStreamedProperty& p : info->Properties)
        if (SameText(p.Name, name))
            return &p;
    return nullptr;
}

// A raw value from the form file as text; nullopt when it is no string,
// identifier or number.
std::optional<AnsiString> DecodeText(const std::string& raw)
{
    try {
        TReader reader(raw);
        switch (reader.NextValue()) {
        case vaIdent:
        case vaFalse:
        case vaTrue:
        case vaNil:
            return reader.ReadIdent();
        case vaInt8:
        case vaInt16:
        case vaInt32:
            return IntToStr(reader.ReadInteger());
        case vaList: {
            // A string list: its first line stands for the rest.
            reader.ReadListBegin();
            return reader.EndOfList() ? AnsiString() : reader.ReadUnicodeString();
        }
        default:
            return reader.ReadUnicodeString();
        }
    } catch (const Exception&) {
        return std::nullopt;
    }
}

std::optional<Integer> DecodeInteger(const std::string& raw)
{
    try {
        TReader reader(raw);
        return reader.ReadInteger();
    } catch (const Exception&) {
        return std::nullopt;
    }
}

AnsiString ReferenceText(TObject* object)
{
    if (auto* ref = dynamic_cast<TQzMemoryRef*>(object); ref && !ref->Defined())
        return {};   // the control shows its own text instead
    if (auto* label = dynamic_cast<TQzMemoryLabel*>(object)) {
        const AnsiString text = label->Text();
        return text.empty() ? label->Info() : text;
    }
    if (auto* ref = dynamic_cast<TQzMemoryRef*>(object))
        return ref->Info();
    if (auto* component = dynamic_cast<TComponent*>(object))
        return component->Name();
    if (auto* lines = dynamic_cast<TStrings*>(object))
        return lines->Count() > 0 ? lines->Strings(0) : AnsiString();
    return {};
}

bool Contains(const AnsiString& text, const char* part) { return text.find(part) != AnsiString::npos; }

}  // namespace

TQzLook QzLookOf(const AnsiString& className)
{
    // Most specific names first: "TQzDBCheckBox" is a check box, not a box.
    static const std::pair<const char*, TQzLook> table[] = {
        {"TabSheet", TQzLook::TabSheet}, {"PageControl", TQzLook::PageControl},
        {"CheckBox", TQzLook::CheckBox},  {"RadioButton", TQzLook::RadioButton},
        {"RadioGroup", TQzLook::GroupBox}, {"GroupBox", TQzLook::GroupBox},
        {"ComboBox", TQzLook::ComboBox},  {"ListBox", TQzLook::ListBox},
        {"ListView", TQzLook::ListBox},   {"Memo", TQzLook::Memo},
        {"RichEdit", TQzLook::Memo},      {"Edit", TQzLook::Edit},
        {"Button", TQzLook::Button},      {"Btn", TQzLook::Button},
        {"Label", TQzLook::Label},        {"Panel", TQzLook::Panel},
        {"Image", TQzLook::Image},
    };
    for (const auto& [part, look] : table)
        if (Contains(className, part))
            return look;
    return TQzLook::Box;
}

std::optional<Integer> QzIntegerValue(TComponent* component, const AnsiString& name)
{
    if (const TPropInfo* prop = GetPropInfo(component, name)) {
        const TTypeKind kind = prop->PropType->Kind;
        if (kind == tkInteger || kind == tkEnumeration || kind == tkChar)
            return static_cast<Integer>(GetOrdProp(component, prop));
        return std::nullopt;
    }
    if (const TStreamedProperty* raw = FindStreamed(component, name))
        return DecodeInteger(raw->Raw);
    return std::nullopt;
}

AnsiString QzTextValue(TComponent* component, const AnsiString& name)
{
    if (const TPropInfo* prop = GetPropInfo(component, name)) {
        switch (prop->PropType->Kind) {
        case tkString:
            return GetStrProp(component, prop);
        case tkClass:
            return ReferenceText(GetObjectProp(component, prop));
        case tkEnumeration:
            return GetEnumProp(component, prop);
        case tkVariant:
            return VarToStr(GetVariantProp(component, prop));
        default:
            return {};
        }
    }
    if (const TStreamedProperty* raw = FindStreamed(component, name))
        return DecodeText(raw->Raw).value_or(AnsiString());
    // A memory reference read without its class: "(Id, Package)".
    const TStreamedProperty* id = FindStreamed(component, name + ".Id");
    if (!id)
        return {};
    const TStreamedProperty* pkg = FindStreamed(component, name + ".PkgName");
    return "(" + DecodeText(id->Raw).value_or("?") + ", " + (pkg ? DecodeText(pkg->Raw).value_or("") : "") + ")";
}

bool QzIsControl(TComponent* component)
{
    if (dynamic_cast<TControl*>(component))
        return true;
    if (dynamic_cast<TNonVisualComponent*>(component))
        return false;
    // Unregistered: a control is what the file gives a size, or what sits
    // on a control (only controls do; a page control's sheets store no size).
    // An image list's size is that of its pictures.
    if (UpperCase(StreamedClassName(component)).find("IMAGELIST") != AnsiString::npos)
        return false;
    if (FindStreamed(component, "Width") || FindStreamed(component, "Height"))
        return true;
    TComponent* parent = component->GetParentComponent();
    return parent && parent->GetParentComponent() && QzIsControl(parent);
}

bool QzIsContainer(TComponent* component)
{
    if (TComponent* parent = component->GetParentComponent(); parent && QzIsPageControl(parent))
        return true;
    switch (QzLookOf(StreamedClassName(component))) {
    case TQzLook::Panel:
    case TQzLook::GroupBox:
    case TQzLook::TabSheet:
        return true;
    case TQzLook::Box:
        // A registered windowed control of a kind not drawn on its own.
        return dynamic_cast<TWinControl*>(component) != nullptr;
    default:
        return false;
    }
}

bool QzIsPageControl(TComponent* component)
{
    if (QzLookOf(StreamedClassName(component)) == TQzLook::PageControl)
        return true;
    // The registered classes say what they are by their look.
    if (dynamic_cast<TControl*>(component) || !QzIsControl(component))
        return false;
    return QzChildNamed(component, QzTextValue(component, "ActivePage")) != nullptr;
}

TComponent* QzChildNamed(TComponent* parent, const AnsiString& name)
{
    for (int i = 0; !name.empty() && i < parent->ChildCount(); ++i)
        if (SameText(parent->Child(i)->Name(), name))
            return parent->Child(i);
    return nullptr;
}

AnsiString QzShownCaption(TComponent* component)
{
    AnsiString caption = QzTextValue(component, "Caption");
    if (caption.empty())
        caption = QzTextValue(component, "Label");
    return caption.empty() ? component->Name() : caption;
}

QRect QzControlBounds(TComponent* component)
{
    if (auto* control = dynamic_cast<TControl*>(component))
        return QRect(control->Left(), control->Top(), control->Width(), control->Height());
    return QRect(QzIntegerValue(component, "Left").value_or(0), QzIntegerValue(component, "Top").value_or(0),
                 QzIntegerValue(component, "Width").value_or(0), QzIntegerValue(component, "Height").value_or(0));
}

bool QzCanMove(TComponent* component) { return dynamic_cast<TControl*>(component) != nullptr; }

void QzSetControlBounds(TComponent* component, const QRect& bounds)
{
    if (auto* control = dynamic_cast<TControl*>(component))
        control->SetBounds(bounds.x(), bounds.y(), std::max(0, bounds.width()), std::max(0, bounds.height()));
}

QPoint QzIconPosition(TComponent* component)
{
    if (dynamic_cast<TNonVisualComponent*>(component) || !component->StreamInfo() || component->DesignInfo() != 0)
        return QPoint(component->DesignInfo() & 0xFFFF, (component->DesignInfo() >> 16) & 0xFFFF);
    return QPoint(QzIntegerValue(component, "Left").value_or(0), QzIntegerValue(component, "Top").value_or(0));
}

bool QzCanMoveIcon(TComponent* component) { return dynamic_cast<TNonVisualComponent*>(component) != nullptr; }

void QzSetIconPosition(TComponent* component, const QPoint& position)
{
    if (auto* nonVisual = dynamic_cast<TNonVisualComponent*>(component))
        nonVisual->SetDesignPosition(std::clamp(position.x(), 0, 0xFFFF), std::clamp(position.y(), 0, 0xFFFF));
}

QRect QzDesignRect(TComponent* component)
{
    if (QzIsControl(component))
        return QzControlBounds(component);
    return QRect(QzIconPosition(component), QSize(QzIconSize, QzIconSize));
}

QSize QzClientSize(TComponent* root)
{
    if (auto* form = dynamic_cast<TCustomForm*>(root))
        return QSize(form->ClientWidth(), form->ClientHeight());
    if (auto* control = dynamic_cast<TControl*>(root))
        return QSize(control->Width(), control->Height());
    if (QzIsDataModule(root))
        return QSize(QzIntegerValue(root, "Width").value_or(215), QzIntegerValue(root, "Height").value_or(150));
    const auto cw = QzIntegerValue(root, "ClientWidth"), ch = QzIntegerValue(root, "ClientHeight");
    if (cw && ch)
        return QSize(*cw, *ch);
    // A window's frame (classic metrics) and menu bar around its client area.
    return QSize(QzIntegerValue(root, "Width").value_or(400) - 8,
                 QzIntegerValue(root, "Height").value_or(300) - 27 - QzMenuBarHeight(root));
}

// A data module writes its designer's bounds after everything else, the
// height before the width; a form publishes Width before Height.
bool QzIsDataModule(TComponent* root)
{
    auto* info = dynamic_cast<TComponentStreamInfo*>(root->StreamInfo());
    if (dynamic_cast<TControl*>(root) || !info || FindStreamed(root, "Caption"))
        return false;
    const auto& props = info->Properties;
    const auto at = [&](const char* name) {
        return std::find_if(props.begin(), props.end(), [&](const TStreamedProperty& p) { return SameText(p.Name, name); });
    };
    const auto height = at("Height"), width = at("Width");
    return height != props.end() && width != props.end() && height < width;
}

AnsiString QzFormCaption(TComponent* root)
{
    const AnsiString caption = QzTextValue(root, "Caption");
    return caption.empty() ? root->Name() : caption;
}
