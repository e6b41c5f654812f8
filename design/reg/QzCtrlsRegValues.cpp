#include "design/reg/QzCtrlsRegValues.h"

#include "runtime/model/QzRegistry.h"
#include "runtime/model/QzTypes.h"
#include "runtime/pictures/QzGraphicFormats.h"

#include "rtl/ComponentStream.h"
#include "rtl/Filer.h"
#include "rtl/ModalResult.h"
#include "rtl/StringList.h"
#include "vcl/QzDialogs.h"

#include <set>

namespace {

void EachLine(const TStrings& list, const TGetStrProc& proc)
{
    for (int i = 0; i < list.Count(); ++i)
        proc(list.Strings(i));
}

// ---- data fields -----------------------------------------------------------

// A property of a component as text: a published string or component
// reference, else the value it was streamed with when the model does not
// know the property (a data source or data set of the IDE's own classes).
AnsiString PropertyText(TComponent* component, const AnsiString& name)
{
    if (const TPropInfo* prop = GetPropInfo(component, name)) {
        switch (prop->PropType->Kind) {
        case tkString:
            return GetStrProp(component, prop);
        case tkClass:
            if (auto* target = dynamic_cast<TComponent*>(GetObjectProp(component, prop)))
                return target->Name();
            return {};
        default:
            return {};
        }
    }
    const auto* info = dynamic_cast<const TComponentStreamInfo*>(component->StreamInfo());
    if (!info)
        return {};
    for (const TStreamedProperty& streamed : info->Properties) {
        if (!SameText(streamed.Name, name))
            continue;
        try {
            TReader reader(streamed.Raw);
            const TValueType type = reader.NextValue();
            if (type == vaIdent || type == vaFalse || type == vaTrue || type == vaNil || type == vaNull)
                return reader.ReadIdent();
            return reader.ReadUnicodeString();
        } catch (const Exception&) {
            return {};   // a number or a list: not a name
        }
    }
    return {};
}

// A component of the form by name; a "Form.Component" name (a data module's
// component) is looked up by its last part.
TComponent* FindFormComponent(IDesigner* designer, TComponent* near, const AnsiString& name)
{
    if (name.empty())
        return nullptr;
    const auto dot = name.rfind('.');
    const AnsiString own = dot == AnsiString::npos ? name : name.substr(dot + 1);
    if (designer)
        if (TComponent* found = designer->GetComponent(own))
            return found;
    for (TComponent* owner = near ? near->Owner() : nullptr; owner; owner = owner->Owner())
        if (TComponent* found = owner->FindComponent(own))
            return found;
    return nullptr;
}

void CollectFieldNames(TComponent* dataSet, std::vector<AnsiString>& names)
{
    std::set<AnsiString> seen;
    const auto add = [&](TComponent* field) {
        AnsiString name = PropertyText(field, "FieldName");
        if (!name.empty() && seen.insert(UpperCase(name)).second)
            names.push_back(name);
    };
    // Persistent fields are streamed inside their data set.
    for (int i = 0; i < dataSet->ChildCount(); ++i)
        add(dataSet->Child(i));
}

}  // namespace

// ---------------------------------------------------------------------------

TPropertyAttributes TQzModalResultProperty::GetAttributes()
{
    return {paValueList, paMultiSelect, paSortList, paRevertable};
}

AnsiString TQzModalResultProperty::GetValue()
{
    const Int64 value = GetOrdValue();
    if (value >= 0 && value < QzModalResultNameCount)
        return QzModalResultName(static_cast<TModalResult>(value));
    return IntToStr(value);
}

void TQzModalResultProperty::GetValues(const TGetStrProc& proc)
{
    for (int i = 0; i < QzModalResultNameCount; ++i)
        proc(QzModalResultName(i));
}

void TQzModalResultProperty::SetValue(const AnsiString& value)
{
    if (value.empty()) {
        SetOrdValue(mrNone);
        return;
    }
    for (int i = 0; i < QzModalResultNameCount; ++i) {
        if (SameText(value, QzModalResultName(i))) {
            SetOrdValue(i);
            return;
        }
    }
    TIntegerProperty::SetValue(value);
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzWideProperty::GetAttributes()
{
    return {paValueList, paMultiSelect, paRevertable};
}

void TQzWideProperty::GetValues(const TGetStrProc& proc)
{
    for (int width = 1; width <= MaxListedWidth; ++width)
        proc(IntToStr(width));
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzImageGraphicClassProperty::GetAttributes()
{
    return {paValueList, paMultiSelect, paSortList, paRevertable};
}

void TQzImageGraphicClassProperty::GetValues(const TGetStrProc& proc)
{
    TStringList formats;
    QzFormatGraphics(&formats);
    EachLine(formats, proc);
}

TPropertyAttributes TQzImagePkgNameProperty::GetAttributes()
{
    return {paValueList, paMultiSelect, paRevertable};
}

void TQzImagePkgNameProperty::GetValues(const TGetStrProc& proc)
{
    TStringList names;
    QzPkgImagesActives(&names);
    EachLine(names, proc);
}

TPropertyAttributes TQzPkgVarsPkgVarsProperty::GetAttributes()
{
    return {paValueList, paMultiSelect, paSortList};
}

void TQzPkgVarsPkgVarsProperty::GetValues(const TGetStrProc& proc)
{
    TStringList names;
    QzPkgVarsActives(&names);
    EachLine(names, proc);
}

// ---------------------------------------------------------------------------

AnsiString QzInitModeText(Int64 mode)
{
    if (mode == imDFM)
        return "DFM";
    if (mode == imFile)
        return "FILE";
    return IntToStr(mode);
}

TPropertyAttributes TQzPkgInitModeProperty::GetAttributes()
{
    return {paValueList, paReadOnly};
}

AnsiString TQzPkgInitModeProperty::GetValue()
{
    return QzInitModeText(GetOrdValue());
}

void TQzPkgInitModeProperty::GetValues(const TGetStrProc& proc)
{
    proc(QzInitModeText(imDFM));
    proc(QzInitModeText(imFile));
}

void TQzPkgInitModeProperty::SetValue(const AnsiString&)
{
    // Switching the mode moves the package's contents between the form and
    // its file; only the load and save dialog does that safely.
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzDirectoryPropertyEditor::GetAttributes()
{
    return {paDialog, paRevertable};
}

void TQzDirectoryPropertyEditor::Edit()
{
    const AnsiString folder = QzDialogs().SelectFolder(DialogTitle, GetValue(), nullptr);
    if (!folder.empty())
        SetValue(folder);
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzDBStringProperty::GetAttributes()
{
    return {paValueList, paMultiSelect, paSortList};
}

void TQzDBStringProperty::GetValues(const TGetStrProc& proc)
{
    auto* component = dynamic_cast<TComponent*>(GetComponent(0));
    if (!component)
        return;
    TComponent* dataSource = FindFormComponent(Designer(), component, PropertyText(component, "DataSource"));
    if (!dataSource)
        return;
    TComponent* dataSet = FindFormComponent(Designer(), dataSource, PropertyText(dataSource, "DataSet"));
    if (!dataSet)
        return;
    std::vector<AnsiString> names;
    CollectFieldNames(dataSet, names);
    for (const AnsiString& name : names)
        proc(name);
}
