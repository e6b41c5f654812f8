// Writing live components as a binary component stream, keeping what the
// reader could not use in its place.

#include "rtl/ComponentStream.h"
#include "rtl/PropertyValues.h"

#include <algorithm>

namespace {

const TStreamedProperty* Find(const std::vector<TStreamedProperty>& list, const AnsiString& name)
{
    for (const TStreamedProperty& p : list)
        if (SameText(p.Name, name))
            return &p;
    return nullptr;
}

// The properties to write, in order. Properties that were read come in
// their stream order: unchanged ones with their raw bytes, changed ones
// with their new encoding, those now at their default left out. Properties
// that were not read and now have a value go after the nearest property
// that precedes them in the class's own order, but only once they change:
// a value the stream left to the class's default stays unwritten.
std::vector<TStreamedProperty> MergeProperties(const std::vector<TStreamedProperty>& current,
                                               const TComponentStreamInfo* info)
{
    if (!info)
        return current;
    std::vector<TStreamedProperty> out;
    out.reserve(info->Properties.size() + 4);
    for (const TStreamedProperty& read : info->Properties) {
        const TStreamedProperty* now = Find(current, read.Name);
        const TStreamedProperty* then = Find(info->Loaded, read.Name);
        if (!now && !then)
            out.push_back(read);  // nothing models it: written as it was read
        else if ((now && then && now->Raw == then->Raw) || (!now && !then))
            out.push_back(read);
        else if (now)
            out.push_back(*now);
        // else: now at its default; left out
    }
    for (size_t i = 0; i < current.size(); ++i) {
        const TStreamedProperty& p = current[i];
        if (Find(info->Properties, p.Name))
            continue;
        const TStreamedProperty* then = Find(info->Loaded, p.Name);
        if (then && then->Raw == p.Raw)
            continue;
        // After the last written property that comes before p in the class's order.
        size_t insertAt = 0;
        for (size_t j = 0; j < i; ++j) {
            const AnsiString& earlier = current[j].Name;
            auto it = std::find_if(out.begin(), out.end(), [&](const TStreamedProperty& o) { return SameText(o.Name, earlier); });
            if (it != out.end())
                insertAt = std::max(insertAt, size_t(it - out.begin()) + 1);
        }
        out.insert(out.begin() + long(insertAt), p);
    }
    return out;
}

class TComponentWriter {
public:
    TComponentWriter(TWriter& writer, TComponent* root, const TFormTextOptions& options) : W(writer)
    {
        Ctx.Root = root;
        Ctx.CodePage = options.CodePage;
    }

    void WriteComponent(TComponent* component)
    {
        auto* info = dynamic_cast<const TComponentStreamInfo*>(component->StreamInfo());
        TComponentHeader header;
        if (info) {
            header = info->Header;
        } else {
            header.ClassName = component->ClassName();
            if (component->ComponentState().Contains(csInline))
                header.Flags |= ffInline;
        }
        header.ObjectName = component->Name();
        W.WriteComponentHeader(header);
        std::vector<TStreamedProperty> current;
        CollectProperties(component, "", Ctx, current);
        for (const TStreamedProperty& p : MergeProperties(current, info)) {
            W.WriteStr(p.Name);
            W.WriteRaw(p.Raw.data(), p.Raw.size());
        }
        W.WriteListEnd();
        component->GetChildren([this](TComponent* child) { WriteComponent(child); }, Ctx.Root);
        W.WriteListEnd();
    }

private:
    TWriter& W;
    TPropertyContext Ctx;
};

} // namespace

std::string WriteComponentData(TComponent* root, const TFormTextOptions& options)
{
    TWriter writer;
    writer.WriteSignature();
    TComponentWriter(writer, root, options).WriteComponent(root);
    return std::move(writer.Buffer());
}

std::string WriteFormText(TComponent* root, const TFormTextOptions& options)
{
    return FormBinaryToText(WriteComponentData(root, options), options);
}

void WriteComponent(TStream& stream, TComponent* instance)
{
    stream.WriteString(WriteComponentData(instance));
}
