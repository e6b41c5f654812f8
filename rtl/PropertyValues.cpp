#include "rtl/PropertyValues.h"

#include "rtl/CodePage.h"
#include "rtl/Collection.h"
#include "rtl/Variant.h"

#include <cmath>

namespace {

[[noreturn]] void DoesNotFit(const TPropInfo* prop)
{
    throw EValueDoesNotFit("Invalid property value for " + prop->Name);
}

bool IsDateType(const TTypeInfo* type)
{
    return SameText(type->Name, "TDateTime") || SameText(type->Name, "TDate") || SameText(type->Name, "TTime");
}

bool IsCollection(const TTypeInfo* type)
{
    return type->ClassType && type->ClassType->InheritsFrom(TCollection::ClassInfo());
}

bool IsComponentType(const TTypeInfo* type)
{
    return type->ClassType && type->ClassType->InheritsFrom(TComponent::ClassInfo());
}

Int64 ReadOrdinal(TReader& r, const TPropInfo* prop)
{
    const TTypeInfo* type = prop->PropType;
    switch (type->Kind) {
    case tkEnumeration: {
        AnsiString ident = r.ReadIdent();
        int value = GetEnumValue(type, ident);
        if (value < 0)
            DoesNotFit(prop);
        return value;
    }
    case tkChar: {
        std::string s = r.ReadString();
        if (s.size() != 1)
            DoesNotFit(prop);
        return Byte(s[0]);
    }
    case tkSet: {
        r.CheckValue(vaSet);
        Int64 bits = 0;
        for (AnsiString name = r.ReadStr(); !name.empty(); name = r.ReadStr()) {
            int element = GetEnumValue(type->CompType, name);
            if (element < 0 || element > 63)
                DoesNotFit(prop);
            bits |= Int64(1) << element;
        }
        return bits;
    }
    default: {
        TValueType t = r.NextValue();
        if (t == vaIdent) {
            // clBtnFace and the like, when the type has an identifier table.
            Int64 v = 0;
            if (!IdentToInt(type, r.ReadIdent(), v))
                DoesNotFit(prop);
            return v;
        }
        if (t != vaInt8 && t != vaInt16 && t != vaInt32 && t != vaInt64)
            DoesNotFit(prop);
        Int64 v = r.ReadInt64();
        if (type->Kind == tkInteger && type->MaxValue > type->MinValue && (v < type->MinValue || v > type->MaxValue))
            DoesNotFit(prop);
        return v;
    }
    }
}

Variant ReadVariantValue(TReader& r, const TPropInfo* prop, int codePage)
{
    switch (r.NextValue()) {
    case vaNil:
        r.ReadValue();
        return Variant();
    case vaNull:
        r.ReadValue();
        return Variant::MakeNull();
    case vaInt8:
    case vaInt16:
    case vaInt32:
    case vaInt64:
        return Variant(r.ReadInt64());
    case vaExtended:
    case vaDouble:
    case vaSingle:
    case vaCurrency:
        return Variant(double(r.ReadFloat()));
    case vaDate:
        return Variant::FromDateTime(r.ReadDate());
    case vaString:
    case vaLString:
    case vaWString:
    case vaUTF8String:
        return Variant(r.ReadUnicodeString(codePage));
    case vaTrue:
    case vaFalse:
        return Variant(r.ReadBoolean());
    default:
        DoesNotFit(prop);
    }
}

void ReadCollection(TReader& r, TCollection* collection, TPropertyContext& ctx)
{
    r.CheckValue(vaCollection);
    collection->BeginUpdate();
    try {
        collection->Clear();
        while (!r.EndOfList()) {
            TValueType t = r.NextValue();
            if (t == vaInt8 || t == vaInt16 || t == vaInt32)
                r.ReadInteger();  // the item's order in an inherited form; items are read in order
            TCollectionItem* item = collection->Add();
            r.ReadListBegin();
            while (!r.EndOfList()) {
                AnsiString name = r.ReadStr();
                AnsiString last;
                TObject* holder = ResolvePropertyPath(item, name, last);
                const TPropInfo* prop = holder ? GetPropInfo(holder, last) : nullptr;
                if (!prop)
                    throw EValueDoesNotFit("Unknown collection item property " + name);
                ReadPropertyValue(r, holder, prop, ctx);
            }
            r.ReadListEnd();
        }
        r.ReadListEnd();
    } catch (...) {
        // A collection is used whole or not at all.
        collection->Clear();
        collection->EndUpdate();
        throw;
    }
    collection->EndUpdate();
}

void ReadClassValue(TReader& r, TObject* instance, const TPropInfo* prop, TPropertyContext& ctx)
{
    const TTypeInfo* type = prop->PropType;
    if (IsCollection(type)) {
        auto* collection = dynamic_cast<TCollection*>(GetObjectProp(instance, prop));
        if (!collection)
            DoesNotFit(prop);
        ReadCollection(r, collection, ctx);
        return;
    }
    if (IsComponentType(type) && prop->SetProc) {
        if (r.NextValue() == vaNil) {
            r.ReadValue();
            SetObjectProp(instance, prop, nullptr);
            return;
        }
        if (r.NextValue() != vaIdent || !ctx.Fixups)
            DoesNotFit(prop);
        ctx.Fixups->push_back({instance, prop, r.ReadIdent()});
        return;
    }
    DoesNotFit(prop);
}

} // namespace

TObject* ResolvePropertyPath(TObject* instance, const AnsiString& path, AnsiString& lastName)
{
    size_t start = 0;
    for (size_t dot = path.find('.'); dot != std::string::npos; dot = path.find('.', start)) {
        const TPropInfo* prop = GetPropInfo(instance, path.substr(start, dot - start));
        if (!prop || prop->PropType->Kind != tkClass)
            return nullptr;
        instance = GetObjectProp(instance, prop);
        if (!instance)
            return nullptr;
        start = dot + 1;
    }
    lastName = path.substr(start);
    return instance;
}

void ReadPropertyValue(TReader& r, TObject* instance, const TPropInfo* prop, TPropertyContext& ctx)
{
    const TTypeInfo* type = prop->PropType;
    if (!prop->SetProc && type->Kind != tkClass)
        DoesNotFit(prop);
    try {
        switch (type->Kind) {
        case tkInteger:
        case tkChar:
        case tkEnumeration:
        case tkSet:
            SetOrdProp(instance, prop, ReadOrdinal(r, prop));
            break;
        case tkInt64:
            SetInt64Prop(instance, prop, r.ReadInt64());
            break;
        case tkFloat:
            if (type->FloatType == ftCurr && r.NextValue() == vaCurrency)
                SetFloatProp(instance, prop, Extended(r.ReadCurrency()) / 10000);
            else
                SetFloatProp(instance, prop, r.ReadFloat());
            break;
        case tkString:
            SetStrProp(instance, prop, r.ReadUnicodeString(ctx.CodePage));
            break;
        case tkMethod:
            if (r.NextValue() == vaNil) {
                r.ReadValue();
                SetMethodProp(instance, prop, "");
            } else {
                if (r.NextValue() != vaIdent)
                    DoesNotFit(prop);
                SetMethodProp(instance, prop, r.ReadIdent());
            }
            break;
        case tkVariant:
            SetVariantProp(instance, prop, ReadVariantValue(r, prop, ctx.CodePage));
            break;
        case tkClass:
            ReadClassValue(r, instance, prop, ctx);
            break;
        default:
            DoesNotFit(prop);
        }
    } catch (const EValueDoesNotFit&) {
        throw;
    } catch (const EReadError&) {
        throw;  // the stream itself is damaged
    } catch (const Exception& e) {
        // The value is well formed but the property refused it.
        throw EValueDoesNotFit(e.Message());
    }
}

// ---- writing ----------------------------------------------------------------

namespace {

AnsiString ReferenceName(TComponent* target, TComponent* root)
{
    if (target == root || target->Owner() == root || !target->Owner())
        return target->Name();
    return target->Owner()->Name() + "." + target->Name();
}

void WriteVariantValue(TWriter& w, const Variant& v, int codePage)
{
    switch (v.VarType()) {
    case varEmpty:
        w.WriteValue(vaNil);
        break;
    case varNull:
        w.WriteValue(vaNull);
        break;
    case varInteger:
        w.WriteInteger(v.AsInteger());
        break;
    case varDouble:
        w.WriteFloat(v.AsFloat());
        break;
    case varDate:
        w.WriteDate(v.AsDateTime());
        break;
    case varBoolean:
        w.WriteBoolean(v.AsBoolean());
        break;
    default:
        w.WriteUnicodeString(v.AsString(), codePage);
    }
}

void WriteCollection(TWriter& w, TCollection* collection, TPropertyContext& ctx)
{
    w.WriteValue(vaCollection);
    for (int i = 0; i < collection->Count(); ++i) {
        w.WriteListBegin();
        std::vector<TStreamedProperty> props;
        CollectProperties(collection->Items(i), "", ctx, props);
        for (const TStreamedProperty& p : props) {
            w.WriteStr(p.Name);
            w.WriteRaw(p.Raw.data(), p.Raw.size());
        }
        w.WriteListEnd();
    }
    w.WriteListEnd();
}

// Encodes one property's value; false when there is nothing to write.
bool EncodeProperty(TWriter& w, TObject* instance, const TPropInfo* prop, TPropertyContext& ctx)
{
    const TTypeInfo* type = prop->PropType;
    switch (type->Kind) {
    case tkInteger: {
        Int64 v = GetOrdProp(instance, prop);
        AnsiString ident = IntToIdent(type, v);
        if (ident.empty())
            w.WriteInteger(v);
        else
            w.WriteIdent(ident);
        return true;
    }
    case tkChar: {
        char c = char(GetOrdProp(instance, prop));
        w.WriteString(std::string_view(&c, 1));
        return true;
    }
    case tkEnumeration: {
        Int64 v = GetOrdProp(instance, prop);
        if (type == TypeInfo_Boolean())
            w.WriteBoolean(v != 0);
        else
            w.WriteIdent(GetEnumName(type, int(v)));
        return true;
    }
    case tkSet: {
        Int64 bits = GetOrdProp(instance, prop);
        w.WriteValue(vaSet);
        for (int i = 0; i < 64; ++i)
            if (bits & (Int64(1) << i))
                w.WriteStr(GetEnumName(type->CompType, i));
        w.WriteStr("");
        return true;
    }
    case tkInt64:
        w.WriteInteger(GetInt64Prop(instance, prop));
        return true;
    case tkFloat: {
        Extended v = GetFloatProp(instance, prop);
        if (type->FloatType == ftCurr)
            w.WriteCurrency(Currency(std::llround(v * 10000)));
        else if (type->FloatType == ftSingle)
            w.WriteSingle(float(v));
        else if (IsDateType(type))
            w.WriteDate(double(v));
        else
            w.WriteFloat(v);
        return true;
    }
    case tkString:
        w.WriteUnicodeString(GetStrProp(instance, prop), ctx.CodePage);
        return true;
    case tkMethod: {
        AnsiString handler = GetMethodProp(instance, prop);
        if (handler.empty())
            return false;
        w.WriteIdent(handler);
        return true;
    }
    case tkVariant:
        WriteVariantValue(w, GetVariantProp(instance, prop), ctx.CodePage);
        return true;
    case tkClass: {
        TObject* value = GetObjectProp(instance, prop);
        if (auto* collection = dynamic_cast<TCollection*>(value)) {
            WriteCollection(w, collection, ctx);
            return true;
        }
        if (auto* component = dynamic_cast<TComponent*>(value)) {
            if (component->Name().empty())
                return false;
            w.WriteIdent(ReferenceName(component, ctx.Root));
            return true;
        }
        return false;
    }
    default:
        return false;
    }
}

// A nested object that is written as "Prop.Sub = ..." lines: a persistent
// that is neither a collection nor a reference to another component.
TPersistent* NestedObject(TObject* instance, const TPropInfo* prop)
{
    if (prop->PropType->Kind != tkClass)
        return nullptr;
    TObject* value = GetObjectProp(instance, prop);
    if (!value || dynamic_cast<TCollection*>(value))
        return nullptr;
    if (auto* component = dynamic_cast<TComponent*>(value))
        return component->ComponentStyle().Contains(csSubComponent) ? component : nullptr;
    return dynamic_cast<TPersistent*>(value);
}

// Captures what DefineProperties writes, property by property.
class TDefinedCollector : public TWriter {
public:
    TDefinedCollector(const AnsiString& prefix, std::vector<TStreamedProperty>& out) : FPrefix(prefix), FOut(out) {}

    void DefineProperty(const AnsiString& name, const TReaderProc&, const TWriterProc& writeData, bool hasData) override
    {
        if (!hasData || !writeData)
            return;
        Buffer().clear();
        writeData(*this);
        FOut.push_back({FPrefix + name, Buffer()});
    }
    void DefineBinaryProperty(const AnsiString& name, const TStreamProc&, const TStreamProc& writeData, bool hasData) override
    {
        if (!hasData || !writeData)
            return;
        TMemoryStream data;
        writeData(data);
        Buffer().clear();
        WriteBinary(data.Bytes());
        FOut.push_back({FPrefix + name, Buffer()});
    }

private:
    AnsiString FPrefix;
    std::vector<TStreamedProperty>& FOut;
};

} // namespace

void CollectProperties(TObject* instance, const AnsiString& prefix, TPropertyContext& ctx,
                       std::vector<TStreamedProperty>& out)
{
    for (const TPropInfo* prop : GetPropList(instance)) {
        if (!IsStoredProp(instance, prop))
            continue;
        if (TPersistent* nested = NestedObject(instance, prop)) {
            CollectProperties(nested, prefix + prop->Name + ".", ctx, out);
            continue;
        }
        bool isCollection = prop->PropType->Kind == tkClass && IsCollection(prop->PropType);
        if (!isCollection && IsDefaultPropValue(instance, prop))
            continue;
        TWriter w;
        if (EncodeProperty(w, instance, prop, ctx))
            out.push_back({prefix + prop->Name, std::move(w.Buffer())});
    }
    if (auto* persistent = dynamic_cast<TPersistent*>(instance)) {
        TDefinedCollector collector(prefix, out);
        persistent->DefineProperties(collector);
    }
}
