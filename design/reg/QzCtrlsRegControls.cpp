#include "design/reg/QzCtrlsRegControls.h"

#include "runtime/components/QzCollection.h"
#include "runtime/components/QzExtCtrls.h"
#include "runtime/components/QzMenus.h"
#include "runtime/model/QzMask.h"

namespace {

// The component a property editor's first entry belongs to: the component
// itself, or the owner of the collection item or sub-object selected.
TComponent* OwningComponent(TPersistent* instance)
{
    for (TPersistent* p = instance; p; p = p->GetOwner())
        if (auto* component = dynamic_cast<TComponent*>(p))
            return component;
    return nullptr;
}

}  // namespace

// ---------------------------------------------------------------------------

TPropertyAttributes TQzMultiLinePropertyEditor::GetAttributes()
{
    return TStringProperty::GetAttributes() + TPropertyAttributes{paDialog, paAutoUpdate};
}

void TQzMultiLinePropertyEditor::Edit()
{
    TQzEditorDialogRequest request;
    request.Component = OwningComponent(GetComponent(0));
    request.Designer = Designer();
    request.Caption = "Property: " + GetName();
    request.Text = GetValue();
    if (QzRunEditorDialog(TQzEditorDialog::MultiLine, request) == 1)
        SetValue(request.Text);
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzMaskPropertyEditor::GetAttributes()
{
    return {paSubProperties, paDialog, paMultiSelect};
}

AnsiString TQzMaskPropertyEditor::GetValue()
{
    const auto* mask = dynamic_cast<const TQzMask*>(GetObjectValue());
    return mask ? mask->Text() : AnsiString();
}

void TQzMaskPropertyEditor::SetValue(const AnsiString& value)
{
    for (int i = 0; i < PropCount(); ++i)
        if (auto* mask = dynamic_cast<TQzMask*>(GetObjectValueAt(i)))
            mask->SetText(value);
    Modified();
}

bool TQzMaskPropertyEditor::AllEqual()
{
    const auto* first = dynamic_cast<const TQzMask*>(GetObjectValue());
    for (int i = 1; i < PropCount(); ++i) {
        const auto* other = dynamic_cast<const TQzMask*>(GetObjectValueAt(i));
        if (!first || !other || first->Text() != other->Text())
            return false;
    }
    return true;
}

void TQzMaskPropertyEditor::Edit()
{
    auto* first = dynamic_cast<TQzMask*>(GetObjectValue());
    if (!first)
        return;
    TQzEditorDialogRequest request;
    request.Target = first;
    request.Component = OwningComponent(GetComponent(0));
    request.Designer = Designer();
    if (QzRunEditorDialog(TQzEditorDialog::Mask, request) != 1)
        return;
    for (int i = 0; i < PropCount(); ++i)
        if (auto* other = dynamic_cast<TQzMask*>(GetObjectValueAt(i)); other && other != first)
            other->Assign(first);
    Modified();
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzRichEditPropertyEditor::GetAttributes()
{
    return {paDialog, paReadOnly};
}

void TQzRichEditPropertyEditor::Edit()
{
    TQzEditorDialogRequest request;
    request.Target = dynamic_cast<TPersistent*>(GetObjectValue());
    request.Component = OwningComponent(GetComponent(0));
    request.Designer = Designer();
    if (QzRunEditorDialog(TQzEditorDialog::RichEdit, request) == 1)
        Modified();
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzCollectionPropertyEditor::GetAttributes()
{
    return TClassProperty::GetAttributes() + TPropertyAttributes{paDialog, paReadOnly};
}

AnsiString TQzCollectionPropertyEditor::GetValue()
{
    TObject* object = GetObjectValue();
    if (!object)
        return TClassProperty::GetValue();
    if (const auto* collection = dynamic_cast<const TQzCollection*>(object))
        return "(" + collection->Info() + ")";
    return "(" + object->ClassType()->ClassName() + ")";
}

void TQzCollectionPropertyEditor::Edit()
{
    auto* collection = dynamic_cast<TPersistent*>(GetObjectValue());
    if (!collection)
        return;
    TQzEditorDialogRequest request;
    request.Target = collection;
    request.Component = OwningComponent(GetComponent(0));
    request.Designer = Designer();
    // The collection's name as the designer shows it: "QzComboBox1.Items".
    const AnsiString owner = request.Component ? request.Component->Name() : AnsiString();
    request.Caption = "Editing " + (owner.empty() ? GetName() : owner + "." + GetName());
    QzRunEditorDialog(DialogKind(), request);
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzMenuPropertyEditor::GetAttributes()
{
    return TClassProperty::GetAttributes() + TPropertyAttributes{paDialog, paReadOnly};
}

AnsiString TQzMenuPropertyEditor::GetValue()
{
    return "(Menu)";
}

void TQzMenuPropertyEditor::Edit()
{
    TQzEditorDialogRequest request;
    request.Component = OwningComponent(GetComponent(0));
    request.Target = dynamic_cast<TPersistent*>(GetObjectValue());
    request.Designer = Designer();
    QzRunEditorDialog(TQzEditorDialog::Menus, request);
}

// ---------------------------------------------------------------------------

void TQzFilteredComponentProperty::GetValues(const TGetStrProc& proc)
{
    if (!Designer())
        return;
    Designer()->GetComponentNames(GetPropType(), [&](const AnsiString& name) {
        if (TComponent* candidate = Designer()->GetComponent(name); candidate && Accepts(candidate))
            proc(name);
    });
}

void TQzFilteredComponentProperty::SetValue(const AnsiString& value)
{
    const AnsiString name = Trim(value);
    if (!name.empty()) {
        TComponent* candidate = Designer() ? Designer()->GetComponent(name) : nullptr;
        if (!candidate || !Accepts(candidate))
            RaiseInvalidPropertyValue();
    }
    TComponentProperty::SetValue(value);
}

TPropertyAttributes TQzWindowsListEditor::GetAttributes()
{
    return {paValueList, paSortList, paRevertable};
}

bool TQzWindowsListEditor::Accepts(TComponent* candidate) const
{
    auto* item = dynamic_cast<TQzMenuItem*>(candidate);
    if (!item)
        return false;
    if (auto* menu = dynamic_cast<TQzMainMenu*>(GetComponent(0)))
        return menu->MenuParts().ValidAssignWindowsList(item);
    if (auto* menu = dynamic_cast<TQzPanelMenu*>(GetComponent(0)))
        return menu->MenuParts().ValidAssignWindowsList(item);
    return false;
}

bool TQzMainBtnPropertyEditor::Accepts(TComponent* candidate) const
{
    const TPropInfo* modalResult = ::GetPropInfo(candidate, "ModalResult");
    return modalResult && modalResult->PropType->Kind == tkInteger;
}

bool TQzImageBarImagePropertyEditor::Accepts(TComponent* candidate) const
{
    // The bar shows its picture in one of the form's image controls.
    return candidate->InheritsFrom(ClassOf<TQzCustomImage>()) ||
           candidate->InheritsFrom(ClassOf<TQzCustomFocusImage>()) ||
           candidate->InheritsFrom(ClassOf<TQzCustomPkgImage>());
}

bool TQzUpDownAssociatePropertyEditor::Accepts(TComponent* candidate) const
{
    const auto* self = dynamic_cast<const TComponent*>(GetComponent(0));
    return candidate != self && candidate->InheritsFrom(ClassOf<TWinControl>()) &&
           !candidate->InheritsFrom(ClassOf<TQzUpDown>());
}
