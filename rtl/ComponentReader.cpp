// Reading a binary component stream into live components.

#include "rtl/ComponentStream.h"
#include "rtl/PropertyValues.h"
#include "rtl/StreamNesting.h"

namespace {

class TComponentReader {
public:
    TComponentReader(TReader& reader, TComponent* root, const TFormTextOptions& options)
        : R(reader), Root(root)
    {
        Ctx.Root = root;
        Ctx.CodePage = options.CodePage;
        Ctx.Fixups = &Fixups;
    }

    void ReadRoot();

private:
    TComponent* ReadChild(TComponent* owner, TComponent* parent);
    void ReadInto(TComponent* component, TComponent* owner, int depth);
    void ReadProperty(TComponent* component, TComponentStreamInfo& info);
    bool ApplyProperty(TComponent* component, const AnsiString& name);
    void ResolveFixups();
    static std::unique_ptr<TComponentStreamInfo> NewInfo(const TComponentHeader& header);

    TReader& R;
    TComponent* Root;
    TPropertyContext Ctx;
    std::vector<TReferenceFixup> Fixups;
    std::vector<TComponent*> ReadOrder;
    int Depth = 0;
};

std::unique_ptr<TComponentStreamInfo> TComponentReader::NewInfo(const TComponentHeader& header)
{
    auto info = std::make_unique<TComponentStreamInfo>();
    info->Header = header;
    return info;
}

void TComponentReader::ReadRoot()
{
    R.ReadSignature();
    TComponentHeader header = R.ReadComponentHeader();
    auto info = NewInfo(header);
    TComponentStreamInfo& ref = *info;
    Root->SetStreamInfo(std::move(info));
    Root->Loading();
    ReadOrder.push_back(Root);
    try {
        if (!header.ObjectName.empty() && Root->Name() != header.ObjectName)
            Root->SetName(header.ObjectName);
    } catch (const Exception& e) {
        R.Error("Component " + header.ObjectName + ": " + e.Message(), sizeof FilerSignature);
    }
    while (!R.EndOfList())
        ReadProperty(Root, ref);
    R.ReadListEnd();
    while (!R.EndOfList())
        ReadChild(Root, Root);
    R.ReadListEnd();
    ResolveFixups();
    for (TComponent* c : ReadOrder)
        c->Loaded();
    // What every modelled property looks like now, to recognise it unchanged
    // when the form is written.
    for (TComponent* c : ReadOrder) {
        auto* streamed = static_cast<TComponentStreamInfo*>(c->StreamInfo());
        streamed->Loaded.clear();
        CollectProperties(c, "", Ctx, streamed->Loaded);
    }
}

TComponent* TComponentReader::ReadChild(TComponent* owner, TComponent* parent)
{
    if (++Depth > MaxStreamNesting)
        R.Error("Components nested too deeply");
    size_t at = R.Position();
    TComponentHeader header = R.ReadComponentHeader();
    TMetaClass* meta = GetClass(header.ClassName);
    if (meta && !(meta->CanCreate() && meta->InheritsFrom(TComponent::ClassInfo())))
        meta = nullptr;
    TComponent* component = nullptr;
    // An inherited or inline component of the same name already exists
    // when the root's class made it.
    if ((header.Flags & (ffInherited | ffInline)) && !header.ObjectName.empty())
        component = owner->FindComponent(header.ObjectName);
    if (!component)
        component = meta ? meta->Create(owner) : new TUnknownComponent(owner);
    component->SetStreamInfo(NewInfo(header));
    component->Loading();
    try {
        if (!header.ObjectName.empty() && component->Name() != header.ObjectName)
            component->SetName(header.ObjectName);
    } catch (const Exception& e) {
        R.Error("Component " + header.ObjectName + ": " + e.Message(), at);
    }
    if (header.Flags & ffInline)
        component->SetInline(true);
    if (header.Flags & ffInherited)
        component->SetAncestor(true);
    component->SetParentComponent(parent);
    ReadOrder.push_back(component);
    auto& info = *static_cast<TComponentStreamInfo*>(component->StreamInfo());
    while (!R.EndOfList())
        ReadProperty(component, info);
    R.ReadListEnd();
    // An inline frame owns what is read inside it.
    TComponent* childOwner = (header.Flags & ffInline) ? component : owner;
    while (!R.EndOfList())
        ReadChild(childOwner, component);
    R.ReadListEnd();
    --Depth;
    return component;
}

void TComponentReader::ReadProperty(TComponent* component, TComponentStreamInfo& info)
{
    AnsiString name = R.ReadStr();
    size_t start = R.Position();
    try {
        ApplyProperty(component, name);
    } catch (const EValueDoesNotFit&) {
        // Kept raw below.
    }
    // Whether or not a property took it, the raw bytes are the value as it
    // stands, and reading goes on right after it.
    R.SetPosition(start);
    R.SkipValue();
    info.Properties.push_back({name, std::string(std::string_view(R.Data()).substr(start, R.Position() - start))});
}

// Sets the property from the value at the reader; false when nothing
// takes it (the value is then kept only raw).
bool TComponentReader::ApplyProperty(TComponent* component, const AnsiString& name)
{
    AnsiString last;
    TObject* holder = ResolvePropertyPath(component, name, last);
    if (!holder)
        return false;
    if (const TPropInfo* prop = GetPropInfo(holder, last)) {
        ReadPropertyValue(R, holder, prop, Ctx);
        return true;
    }
    auto* persistent = dynamic_cast<TPersistent*>(holder);
    if (!persistent)
        return false;
    R.SetPendingProperty(&last);
    try {
        persistent->DefineProperties(R);
    } catch (const EReadError&) {
        R.SetPendingProperty(nullptr);
        throw;
    } catch (const Exception& e) {
        R.SetPendingProperty(nullptr);
        throw EValueDoesNotFit(e.Message());
    }
    bool handled = R.PendingHandled();
    R.SetPendingProperty(nullptr);
    return handled;
}

void TComponentReader::ResolveFixups()
{
    for (const TReferenceFixup& f : Fixups) {
        TComponent* target = nullptr;
        if (f.Name.find('.') == std::string::npos)
            target = SameText(f.Name, Root->Name()) ? Root : Root->FindComponent(f.Name);
        else if (SameText(f.Name.substr(0, f.Name.find('.')), Root->Name()))
            target = Root->FindComponent(f.Name.substr(f.Name.find('.') + 1));
        if (!target || !target->ClassType()->InheritsFrom(f.Prop->PropType->ClassType))
            continue;  // stays unset; the raw reference is written back
        try {
            SetObjectProp(f.Instance, f.Prop, target);
        } catch (const Exception&) {
        }
    }
}

void ReadIntoRoot(std::string_view binary, TComponent* root, const TFormTextOptions& options)
{
    TReader reader(binary);
    TComponentReader(reader, root, options).ReadRoot();
}

} // namespace

AnsiString StreamedClassName(const TComponent* component)
{
    if (auto* info = dynamic_cast<const TComponentStreamInfo*>(component->StreamInfo()))
        return info->Header.ClassName;
    return component->ClassName();
}

void RegisterComponentStreamClasses()
{
    RegisterRtlClasses();
    RegisterClass(TUnknownComponent::ClassInfo());
}

void ReadComponentData(std::string_view binary, TComponent* root, const TFormTextOptions& options)
{
    // The stream is read into a new root of the same class first, so one
    // that is refused never reaches this root half read.
    if (root->ClassType()->CanCreate()) {
        std::unique_ptr<TComponent> trial(root->ClassType()->Create(nullptr));
        ReadIntoRoot(binary, trial.get(), options);
    }
    ReadIntoRoot(binary, root, options);
}

std::unique_ptr<TComponent> ReadForm(std::string_view form, const TFormTextOptions& options)
{
    std::string converted;
    std::string_view binary = form;
    switch (DetectFormFormat(form)) {
    case TFormFormat::Binary:
        break;
    case TFormFormat::Resource:
        binary = FormResourceBody(form);
        break;
    default:
        converted = FormTextToBinary(form, options);
        binary = converted;
    }
    TReader peek(binary);
    peek.ReadSignature();
    TComponentHeader header = peek.ReadComponentHeader();
    TMetaClass* meta = GetClass(header.ClassName);
    std::unique_ptr<TComponent> root;
    if (meta && meta->CanCreate() && meta->InheritsFrom(TComponent::ClassInfo()))
        root.reset(meta->Create(nullptr));
    else
        root = std::make_unique<TUnknownComponent>(nullptr);
    ReadIntoRoot(binary, root.get(), options);
    return root;
}

void ReadComponent(TStream& stream, TComponent* instance)
{
    TReader reader(stream);
    TComponentReader(reader, instance, {}).ReadRoot();
    reader.Finish();
}
