// The windowless designer of one form.

#include "designide/FormDesigner.h"

#include "rtl/ComponentStream.h"

#include <algorithm>

namespace {

bool SameMethodType(const TTypeInfo* a, const TTypeInfo* b)
{
    return a == b || (a && b && SameText(a->Name, b->Name));
}

// Event properties published by component (not those of nested objects,
// which forms do not give handlers).
void ForEachEvent(TComponent* component, const std::function<void(const TPropInfo*, const AnsiString&)>& proc)
{
    for (const TPropInfo* prop : GetPropList(component))
        if (prop->PropType->Kind == tkMethod)
            proc(prop, GetMethodProp(component, prop));
}

}  // namespace

AnsiString FormBackupName(const AnsiString& formFileName)
{
    return ChangeFileExt(formFileName, ".~dfm");
}

TFormDesigner::TFormDesigner(std::unique_ptr<TComponent> root, const AnsiString& fileName, TFormFormat format,
                             const TFormTextOptions& options)
    : FRoot(std::move(root)), FFileName(fileName), FFormat(format), FOptions(options)
{
    QZ_ASSERT(FRoot != nullptr, "TFormDesigner: no root component");
    FRoot->SetDesigning(true);
    CollectMethods(FRoot.get());
    for (int i = 0; i < FRoot->ComponentCount(); ++i)
        CollectMethods(FRoot->Components(i));
}

TFormDesigner::~TFormDesigner() = default;

std::unique_ptr<TFormDesigner> TFormDesigner::LoadFromFile(const AnsiString& fileName)
{
    std::string bytes;
    try {
        bytes = ReadFileBytes(fileName);
    } catch (Exception& e) {
        if (e.Message().find(fileName) == AnsiString::npos)
            e.SetMessage(fileName + ": " + e.Message());
        throw;
    }
    return LoadFromBytes(bytes, fileName);
}

std::unique_ptr<TFormDesigner> TFormDesigner::LoadFromBytes(std::string_view bytes, const AnsiString& source)
{
    const TFormFormat format = DetectFormFormat(bytes);
    if (format == TFormFormat::Unknown)
        throw EFilerError(source + ": not a form file");
    try {
        const TFormTextOptions options = DetectFormTextOptions(bytes);
        std::unique_ptr<TComponent> root = ReadForm(bytes, options);
        return std::make_unique<TFormDesigner>(std::move(root), source, format, options);
    } catch (Exception& e) {
        // Keeps the error's class (and a parse error's line) for callers.
        e.SetMessage(source + ": " + e.Message());
        throw;
    }
}

TStreamOriginalFormat TFormDesigner::OriginalFormat() const
{
    return FFormat == TFormFormat::Binary || FFormat == TFormFormat::Resource ? sofBinary : sofText;
}

void TFormDesigner::Modified()
{
    ++FModifiedCount;
    if (OnModified)
        OnModified();
}

TComponent* TFormDesigner::GetComponent(const AnsiString& name) const
{
    if (name.empty())
        return nullptr;
    if (SameText(FRoot->Name(), name))
        return FRoot.get();
    return FRoot->FindComponent(name);
}

void TFormDesigner::GetComponentNames(const TTypeInfo* typeData, const TGetStrProc& proc) const
{
    const TMetaClass* required = typeData && typeData->Kind == tkClass ? typeData->ClassType : nullptr;
    if (!required)
        return;
    for (int i = 0; i < FRoot->ComponentCount(); ++i) {
        TComponent* component = FRoot->Components(i);
        if (!component->Name().empty() && component->InheritsFrom(required))
            proc(component->Name());
    }
}

AnsiString TFormDesigner::GetObjectName(TPersistent* obj) const
{
    if (!obj)
        return {};
    if (auto* component = dynamic_cast<TComponent*>(obj);
        component && (component == FRoot.get() || component->Owner() == FRoot.get()))
        return component->Name();
    return obj->GetNamePath();
}

void TFormDesigner::SetSelections(const TDesignerSelections& selections)
{
    FSelections.clear();
    for (TPersistent* p : selections)
        if (p && std::find(FSelections.begin(), FSelections.end(), p) == FSelections.end())
            FSelections.push_back(p);
}

void TFormDesigner::CollectMethods(TComponent* component)
{
    ForEachEvent(component, [this](const TPropInfo* prop, const AnsiString& handler) {
        if (!handler.empty() && !MethodExists(handler))
            FMethods.emplace_back(handler, prop->PropType);
    });
}

bool TFormDesigner::MethodExists(const AnsiString& name) const
{
    return std::any_of(FMethods.begin(), FMethods.end(), [&](const auto& m) { return SameText(m.first, name); });
}

AnsiString TFormDesigner::CreateMethod(const AnsiString& name, const TTypeInfo* typeData)
{
    if (!MethodExists(name))
        FMethods.emplace_back(name, typeData);
    return name;
}

void TFormDesigner::GetMethods(const TTypeInfo* typeData, const TGetStrProc& proc) const
{
    for (const auto& [name, type] : FMethods)
        if (SameMethodType(type, typeData))
            proc(name);
}

AnsiString TFormDesigner::UniqueName(const AnsiString& baseName) const
{
    AnsiString base = baseName;
    if (base.size() > 1 && (base[0] == 'T' || base[0] == 't'))
        base.erase(0, 1);
    for (int i = 1;; ++i) {
        const AnsiString name = base + IntToStr(i);
        if (!GetComponent(name))
            return name;
    }
}

TComponent* TFormDesigner::CreateComponent(TMetaClass* cls, TComponent* parent)
{
    QZ_ASSERT(cls && cls->CanCreate(), "CreateComponent: the class cannot be created");
    TComponent* component = cls->Create(FRoot.get());
    component->SetName(UniqueName(cls->ClassName()));
    component->SetDesigning(true);
    if (parent)
        component->SetParentComponent(parent);
    Modified();
    return component;
}

std::string TFormDesigner::FormText() const
{
    return WriteFormText(FRoot.get(), FOptions);
}

std::string TFormDesigner::FormBytes() const
{
    switch (FFormat) {
    case TFormFormat::Binary:
        return WriteComponentData(FRoot.get(), FOptions);
    case TFormFormat::Resource:
        return FormBinaryToResource(WriteComponentData(FRoot.get(), FOptions));
    case TFormFormat::Text:
    case TFormFormat::Unknown:
        break;
    }
    return FormText();
}

void TFormDesigner::Save(const AnsiString& fileName)
{
    const AnsiString target = fileName.empty() ? FFileName : fileName;
    QZ_ASSERT(!target.empty(), "TFormDesigner::Save: no file name");
    const std::string bytes = FormBytes();
    WriteFileAtomic(target, bytes, FileExists(target) ? FormBackupName(target) : AnsiString());
    FFileName = target;
    FModifiedCount = 0;
}
