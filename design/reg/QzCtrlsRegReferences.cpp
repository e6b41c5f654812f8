#include "design/reg/QzCtrlsRegReferences.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgPrivileges.h"

namespace {

// "(Default)", "(None)", or "(Id, PkgName)" followed by what the kind adds.
AnsiString ReferenceText(const TQzMemoryRef* ref, const AnsiString& tail = {})
{
    if (ref->Id() == TQzMemoryRef::IdDefault)
        return "(Default)";
    if (ref->Id() < 0)
        return "(None)";
    return "(" + IntToStr(ref->Id()) + ", " + ref->PkgName() + ")" + tail;
}

// The dialog works on the first selection's object; the others follow it.
void EditFirstAndCopy(TPropertyEditor& editor, TQzEditorDialog kind, TQzEditorDialogRequest request)
{
    QzRequireApplication();
    auto* first = dynamic_cast<TPersistent*>(editor.GetObjectValue());
    if (!first)
        return;
    request.Target = first;
    request.Component = dynamic_cast<TComponent*>(editor.GetComponent(0));
    request.Designer = editor.Designer();
    if (QzRunEditorDialog(kind, request) != 1)
        return;
    for (int i = 0; i < editor.PropCount(); ++i)
        if (auto* other = dynamic_cast<TPersistent*>(editor.GetObjectValueAt(i)); other && other != first)
            other->Assign(first);
    editor.Modified();
}

}  // namespace

TQzCApplication* QzRequireApplication()
{
    TQzCApplication* app = QzCApp();
    if (!app)
        throw EQzPkgError("Component TQzCApplication not found");
    return app;
}

// ---------------------------------------------------------------------------
// Memory references

TPropertyAttributes TQzMemoryRefPropertyEditor::GetAttributes()
{
    return TClassProperty::GetAttributes() + TPropertyAttributes{paDialog, paReadOnly};
}

void TQzMemoryRefPropertyEditor::Edit()
{
    EditFirstAndCopy(*this, DialogKind(), {});
}

AnsiString TQzMemoryLabelPropertyEditor::GetValue()
{
    const auto* ref = dynamic_cast<const TQzMemoryLabel*>(GetObjectValue());
    if (!ref)
        return {};
    if (ref->Id() < 0)
        return ReferenceText(ref);
    const AnsiString hint = ref->Hint();
    return ReferenceText(ref, " " + ref->Text() + (hint.empty() ? AnsiString() : " - " + hint));
}

AnsiString TQzMemoryMessagePropertyEditor::GetValue()
{
    const auto* ref = dynamic_cast<const TQzMemoryMessage*>(GetObjectValue());
    return ref ? ReferenceText(ref, " " + ref->Text()) : AnsiString();
}

AnsiString TQzMemoryTextPropertyEditor::GetValue()
{
    const auto* ref = dynamic_cast<const TQzMemoryText*>(GetObjectValue());
    return ref ? ReferenceText(ref, " " + ref->Text()) : AnsiString();
}

AnsiString TQzMemoryImagePropertyEditor::GetValue()
{
    const auto* ref = dynamic_cast<const TQzMemoryImage*>(GetObjectValue());
    return ref ? ReferenceText(ref) : AnsiString();
}

// ---------------------------------------------------------------------------
// Display sets

AnsiString QzSetNameOfText(const AnsiString& text)
{
    const auto dash = text.find('-');
    if (dash == AnsiString::npos)
        return text;
    AnsiString name = text.substr(0, dash);
    if (!name.empty() && name.back() == ' ')
        name.pop_back();
    return name;
}

TPropertyAttributes TQzSetPropertyEditor::GetAttributes()
{
    return TPropertyEditor::GetAttributes() + TPropertyAttributes{paDialog, paMultiSelect};
}

AnsiString TQzSetPropertyEditor::GetValue()
{
    auto* set = dynamic_cast<TQzSetRef*>(GetObjectValue());
    if (!set || !set->ClassType()->InheritsFrom(SetClass()))
        return {};
    return set->Name();
}

void TQzSetPropertyEditor::SetValue(const AnsiString& value)
{
    const AnsiString name = QzSetNameOfText(value);
    for (int i = 0; i < PropCount(); ++i)
        if (auto* set = dynamic_cast<TQzSetRef*>(GetObjectValueAt(i)))
            set->SetName(name);
    Modified();
}

bool TQzSetPropertyEditor::AllEqual()
{
    const auto* first = dynamic_cast<TQzSetRef*>(GetObjectValue());
    for (int i = 1; i < PropCount(); ++i) {
        const auto* other = dynamic_cast<TQzSetRef*>(GetObjectValueAt(i));
        if (!first || !other || !SameText(first->Name(), other->Name()))
            return false;
    }
    return true;
}

void TQzSetPropertyEditor::Edit()
{
    EditFirstAndCopy(*this, DialogKind(), {});
}

TMetaClass* TQzSetFontProperty::SetClass() const
{
    return ClassOf<TQzSetFont>();
}

TMetaClass* TQzSetBackGroundProperty::SetClass() const
{
    return ClassOf<TQzSetBackGround>();
}

TMetaClass* TQzSetColorProperty::SetClass() const
{
    return ClassOf<TQzSetColor>();
}

// ---------------------------------------------------------------------------
// Privileges

TPropertyAttributes TQzPrivilegeProperty::GetAttributes()
{
    return TPropertyEditor::GetAttributes() + TPropertyAttributes{paDialog, paMultiSelect, paReadOnly};
}

AnsiString TQzPrivilegeProperty::GetValue()
{
    const auto* privilege = dynamic_cast<const TQzPrivilege*>(GetObjectValue());
    if (!privilege)
        return {};
    if (privilege->Id() < 0)
        return "(None)";
    const AnsiString info = privilege->Info();
    return "(" + IntToStr(privilege->Id()) + ", " + QzAccessText(privilege->Access()) + ")" +
           (info.empty() ? AnsiString() : " - " + info);
}

bool TQzPrivilegeProperty::AllEqual()
{
    const auto* first = dynamic_cast<const TQzPrivilege*>(GetObjectValue());
    for (int i = 1; i < PropCount(); ++i) {
        const auto* other = dynamic_cast<const TQzPrivilege*>(GetObjectValueAt(i));
        if (!first || !other || first->Id() != other->Id())
            return false;
    }
    return true;
}

void TQzPrivilegeProperty::Edit()
{
    TQzCApplication* app = QzRequireApplication();
    auto* first = dynamic_cast<TQzPrivilege*>(GetObjectValue());
    if (!first)
        return;
    TQzEditorDialogRequest request;
    request.Target = first;
    request.Component = dynamic_cast<TComponent*>(GetComponent(0));
    request.Package = app->Privileges();
    request.Designer = Designer();
    if (QzRunEditorDialog(TQzEditorDialog::Privilege, request) != 1)
        return;
    // The picker chooses an Id; the Id is all a privilege holds.
    for (int i = 0; i < PropCount(); ++i)
        if (auto* other = dynamic_cast<TQzPrivilege*>(GetObjectValueAt(i)))
            other->SetId(first->Id());
    Modified();
}
