#include "designide/QzStreamTree.h"

#include "rtl/Filer.h"
#include "rtl/StreamNesting.h"

namespace {

TQzStreamNode ReadNode(TReader& r, int depth)
{
    if (depth > MaxStreamNesting)
        r.Error("Components nested too deeply");
    TQzStreamNode node;
    node.Header = r.ReadComponentHeader();
    while (!r.EndOfList()) {
        AnsiString name = r.ReadStr();
        const size_t start = r.Position();
        r.SkipValue();
        node.Properties.push_back({std::move(name), std::string(r.Data().substr(start, r.Position() - start))});
    }
    r.ReadListEnd();
    while (!r.EndOfList())
        node.Children.push_back(ReadNode(r, depth + 1));
    r.ReadListEnd();
    return node;
}

void WriteNode(TWriter& w, const TQzStreamNode& node)
{
    w.WriteComponentHeader(node.Header);
    for (const TStreamedProperty& p : node.Properties) {
        w.WriteStr(p.Name);
        w.WriteRaw(p.Raw.data(), p.Raw.size());
    }
    w.WriteListEnd();
    for (const TQzStreamNode& child : node.Children)
        WriteNode(w, child);
    w.WriteListEnd();
}

void CopyRaw(TReader& r, TWriter& w, size_t from)
{
    w.WriteRaw(r.Data().data() + from, r.Position() - from);
}

void CopyValue(TReader& r, TWriter& w, const TQzIdentMap& rename)
{
    const size_t at = r.Position();
    switch (r.NextValue()) {
    case vaIdent: {
        const AnsiString ident = r.ReadIdent();
        if (const auto renamed = rename(ident))
            w.WriteIdent(*renamed);
        else
            CopyRaw(r, w, at);
        return;
    }
    case vaList:
        r.ReadListBegin();
        w.WriteListBegin();
        while (!r.EndOfList())
            CopyValue(r, w, rename);
        r.ReadListEnd();
        w.WriteListEnd();
        return;
    case vaCollection:
        r.ReadValue();
        w.WriteValue(vaCollection);
        while (!r.EndOfList()) {
            const TValueType next = r.NextValue();
            if (next == vaInt8 || next == vaInt16 || next == vaInt32) {
                const size_t index = r.Position();
                r.ReadInteger();
                CopyRaw(r, w, index);
            }
            r.ReadListBegin();
            w.WriteListBegin();
            while (!r.EndOfList()) {
                w.WriteStr(r.ReadStr());
                CopyValue(r, w, rename);
            }
            r.ReadListEnd();
            w.WriteListEnd();
        }
        r.ReadListEnd();
        w.WriteListEnd();
        return;
    default:
        r.SkipValue();
        CopyRaw(r, w, at);
    }
}

}  // namespace

const TStreamedProperty* TQzStreamNode::Property(const AnsiString& name) const
{
    for (const TStreamedProperty& p : Properties)
        if (SameText(p.Name, name))
            return &p;
    return nullptr;
}

std::optional<Int64> TQzStreamNode::IntegerValue(const AnsiString& name) const
{
    const TStreamedProperty* p = Property(name);
    if (!p)
        return std::nullopt;
    TReader r(p->Raw);
    switch (r.NextValue()) {
    case vaInt8:
    case vaInt16:
    case vaInt32:
    case vaInt64:
        return r.ReadInt64();
    default:
        return std::nullopt;
    }
}

void TQzStreamNode::SetIntegerValue(const AnsiString& name, Int64 value)
{
    TWriter w;
    w.WriteInteger(value);
    for (TStreamedProperty& p : Properties)
        if (SameText(p.Name, name)) {
            p.Raw = w.Buffer();
            return;
        }
    Properties.insert(Properties.begin(), {name, w.Buffer()});
}

TQzStreamNode QzReadStreamTree(std::string_view binary)
{
    TReader r(binary);
    r.ReadSignature();
    return ReadNode(r, 0);
}

std::string QzWriteStreamTree(const TQzStreamNode& node)
{
    TWriter w;
    w.WriteSignature();
    WriteNode(w, node);
    return std::move(w.Buffer());
}

std::string QzRenameIdents(std::string_view raw, const TQzIdentMap& rename)
{
    TReader r(raw);
    TWriter w;
    CopyValue(r, w, rename);
    return std::move(w.Buffer());
}

std::optional<AnsiString> QzIdentValue(std::string_view raw)
{
    TReader r(raw);
    if (raw.empty() || r.NextValue() != vaIdent)
        return std::nullopt;
    return r.ReadIdent();
}
