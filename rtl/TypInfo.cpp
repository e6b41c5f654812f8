#include "rtl/TypInfo.h"

#include "rtl/Persistent.h"

#include <algorithm>
#include <deque>
#include <map>
#include <mutex>

namespace {

// Type infos made at run time stay at one address until the program ends.
const TTypeInfo* Keep(TTypeInfo info)
{
    static std::mutex lock;
    static std::deque<TTypeInfo> store;
    std::lock_guard guard(lock);
    return &store.emplace_back(std::move(info));
}

const TTypeInfo* MakeInteger(const char* name, Int64 minValue, Int64 maxValue, TTypeKind kind = tkInteger)
{
    TTypeInfo info;
    info.Kind = kind;
    info.Name = name;
    info.MinValue = minValue;
    info.MaxValue = maxValue;
    return Keep(std::move(info));
}

const TTypeInfo* MakeFloat(const char* name, TFloatType floatType)
{
    TTypeInfo info;
    info.Kind = tkFloat;
    info.Name = name;
    info.FloatType = floatType;
    return Keep(std::move(info));
}

const TTypeInfo* MakeSimple(const char* name, TTypeKind kind)
{
    TTypeInfo info;
    info.Kind = kind;
    info.Name = name;
    return Keep(std::move(info));
}

[[noreturn]] void RaiseInvalidValue()
{
    throw EPropertyError("Invalid property value");
}

[[noreturn]] void RaiseWrongKind(const TPropInfo* prop)
{
    throw EPropertyError("Invalid property type: " + prop->PropType->Name);
}

void RequireKind(const TPropInfo* prop, std::initializer_list<TTypeKind> kinds)
{
    if (!prop || !prop->PropType)
        throw EPropertyError("Invalid property");
    if (std::find(kinds.begin(), kinds.end(), prop->PropType->Kind) == kinds.end())
        RaiseWrongKind(prop);
}

TPropValue Read(TObject* obj, const TPropInfo* prop)
{
    if (!prop->GetProc)
        throw EPropertyError("Property " + prop->Name + " is write-only");
    return prop->GetProc(obj);
}

void Write(TObject* obj, const TPropInfo* prop, TPropValue value)
{
    if (!prop->SetProc)
        throw EPropertyError("Property " + prop->Name + " is read-only");
    prop->SetProc(obj, value);
}

int EnumCount(const TTypeInfo* type)
{
    return static_cast<int>(type->EnumNames.size());
}

// Bits above the last element cannot be set in a set of that many elements.
Int64 SetMask(const TTypeInfo* setType)
{
    const int count = EnumCount(setType->CompType);
    return count >= 64 ? ~Int64(0) : static_cast<Int64>((std::uint64_t(1) << count) - 1);
}

// The registry keeps lower-case names.
struct TRegistry {
    std::mutex Lock;
    std::map<AnsiString, TMetaClass*> Classes;
};

TRegistry& Registry()
{
    static TRegistry registry;
    return registry;
}

}  // namespace

// ---------------------------------------------------------------------------
// Type infos

const TTypeInfo* TypeInfo_Integer()
{
    static const TTypeInfo* t = MakeInteger("Integer", INT32_MIN, INT32_MAX);
    return t;
}
const TTypeInfo* TypeInfo_Int64()
{
    static const TTypeInfo* t = MakeInteger("Int64", INT64_MIN, INT64_MAX, tkInt64);
    return t;
}
const TTypeInfo* TypeInfo_Cardinal()
{
    static const TTypeInfo* t = MakeInteger("Cardinal", 0, UINT32_MAX);
    return t;
}
const TTypeInfo* TypeInfo_SmallInt()
{
    static const TTypeInfo* t = MakeInteger("SmallInt", INT16_MIN, INT16_MAX);
    return t;
}
const TTypeInfo* TypeInfo_ShortInt()
{
    static const TTypeInfo* t = MakeInteger("ShortInt", INT8_MIN, INT8_MAX);
    return t;
}
const TTypeInfo* TypeInfo_Word()
{
    static const TTypeInfo* t = MakeInteger("Word", 0, UINT16_MAX);
    return t;
}
const TTypeInfo* TypeInfo_Byte()
{
    static const TTypeInfo* t = MakeInteger("Byte", 0, UINT8_MAX);
    return t;
}
const TTypeInfo* TypeInfo_Char()
{
    static const TTypeInfo* t = MakeInteger("Char", 0, 255, tkChar);
    return t;
}
const TTypeInfo* TypeInfo_Boolean()
{
    static const TTypeInfo* t = DefineEnumType("Boolean", {"False", "True"});
    return t;
}
const TTypeInfo* TypeInfo_String()
{
    static const TTypeInfo* t = MakeSimple("AnsiString", tkString);
    return t;
}
const TTypeInfo* TypeInfo_Single()
{
    static const TTypeInfo* t = MakeFloat("Single", ftSingle);
    return t;
}
const TTypeInfo* TypeInfo_Double()
{
    static const TTypeInfo* t = MakeFloat("Double", ftDouble);
    return t;
}
const TTypeInfo* TypeInfo_Extended()
{
    static const TTypeInfo* t = MakeFloat("Extended", ftExtended);
    return t;
}
const TTypeInfo* TypeInfo_Currency()
{
    static const TTypeInfo* t = MakeFloat("Currency", ftCurr);
    return t;
}
const TTypeInfo* TypeInfo_TDateTime()
{
    static const TTypeInfo* t = MakeFloat("TDateTime", ftDouble);
    return t;
}
const TTypeInfo* TypeInfo_Variant()
{
    static const TTypeInfo* t = MakeSimple("Variant", tkVariant);
    return t;
}
const TTypeInfo* TypeInfo_TNotifyEvent()
{
    static const TTypeInfo* t = DefineMethodType("TNotifyEvent");
    return t;
}

const TTypeInfo* DefineEnumType(const AnsiString& name, std::vector<AnsiString> names)
{
    TTypeInfo info;
    info.Kind = tkEnumeration;
    info.Name = name;
    info.MinValue = 0;
    info.MaxValue = static_cast<Int64>(names.size()) - 1;
    info.EnumNames = std::move(names);
    return Keep(std::move(info));
}

const TTypeInfo* DefineSetType(const AnsiString& name, const TTypeInfo* enumType)
{
    if (!enumType || enumType->Kind != tkEnumeration || EnumCount(enumType) > 64)
        throw EInvalidOperation("Set type " + name + " needs an enumeration of at most 64 values");
    TTypeInfo info;
    info.Kind = tkSet;
    info.Name = name;
    info.CompType = enumType;
    return Keep(std::move(info));
}

const TTypeInfo* DefineIntegerType(const AnsiString& name, Int64 minValue, Int64 maxValue,
                                   std::vector<std::pair<AnsiString, Int64>> idents)
{
    TTypeInfo info;
    info.Kind = tkInteger;
    info.Name = name;
    info.MinValue = minValue;
    info.MaxValue = maxValue;
    info.IntegerIdents = std::move(idents);
    return Keep(std::move(info));
}

AnsiString IntToIdent(const TTypeInfo* type, Int64 value)
{
    for (const auto& [ident, v] : type->IntegerIdents)
        if (v == value)
            return ident;
    return {};
}

bool IdentToInt(const TTypeInfo* type, const AnsiString& ident, Int64& value)
{
    for (const auto& [name, v] : type->IntegerIdents)
        if (SameText(name, ident)) {
            value = v;
            return true;
        }
    return false;
}

const TTypeInfo* DefineFloatType(const AnsiString& name, TFloatType floatType)
{
    TTypeInfo info;
    info.Kind = tkFloat;
    info.Name = name;
    info.FloatType = floatType;
    return Keep(std::move(info));
}

const TTypeInfo* DefineStringType(const AnsiString& name)
{
    TTypeInfo info;
    info.Kind = tkString;
    info.Name = name;
    return Keep(std::move(info));
}

const TTypeInfo* DefineMethodType(const AnsiString& name, const AnsiString& params)
{
    TTypeInfo info;
    info.Kind = tkMethod;
    info.Name = name;
    info.MethodParams = params;
    return Keep(std::move(info));
}

const TTypeInfo* DefineClassType(const TMetaClass* meta)
{
    return meta->TypeInfo();
}

AnsiString GetEnumName(const TTypeInfo* type, int value)
{
    if (value < 0 || value >= EnumCount(type))
        return std::to_string(value);
    return type->EnumNames[static_cast<std::size_t>(value)];
}

int GetEnumValue(const TTypeInfo* type, const AnsiString& name)
{
    const auto& names = type->EnumNames;
    const auto it = std::find_if(names.begin(), names.end(), [&](const AnsiString& n) { return SameText(n, name); });
    return it == names.end() ? -1 : static_cast<int>(it - names.begin());
}

AnsiString SetToString(const TTypeInfo* setType, Int64 value, bool brackets)
{
    AnsiString text;
    const int count = EnumCount(setType->CompType);
    for (int i = 0; i < count; ++i) {
        if ((static_cast<std::uint64_t>(value) >> i) & 1) {
            if (!text.empty())
                text += ",";
            text += setType->CompType->EnumNames[static_cast<std::size_t>(i)];
        }
    }
    return brackets ? "[" + text + "]" : text;
}

Int64 StringToSet(const TTypeInfo* setType, const AnsiString& text)
{
    AnsiString s = Trim(text);
    if (!s.empty() && s.front() == '[') {
        if (s.back() != ']')
            throw EPropertyError("Invalid property element: " + s);
        s = Trim(s.substr(1, s.size() - 2));
    }
    std::uint64_t bits = 0;
    std::size_t start = 0;
    while (start < s.size()) {
        std::size_t comma = s.find(',', start);
        if (comma == AnsiString::npos)
            comma = s.size();
        const AnsiString element = Trim(s.substr(start, comma - start));
        const int ord = GetEnumValue(setType->CompType, element);
        if (ord < 0)
            throw EPropertyError("Invalid property element: " + element);
        bits |= std::uint64_t(1) << ord;
        start = comma + 1;
    }
    return static_cast<Int64>(bits);
}

// ---------------------------------------------------------------------------
// Metaclasses

TMetaClass::TMetaClass(const AnsiString& name, TMetaClass* parent, TComponentFactory create,
                       TItemFactory createItem, TDeclareProc declare)
    : FParent(parent), FCreate(create), FCreateItem(createItem), FDeclare(declare)
{
    FTypeInfo.Kind = tkClass;
    FTypeInfo.Name = name;
    FTypeInfo.ClassType = this;
}

bool TMetaClass::ClassNameIs(const AnsiString& name) const
{
    return SameText(ClassName(), name);
}

bool TMetaClass::InheritsFrom(const TMetaClass* ancestor) const
{
    for (const TMetaClass* c = this; c; c = c->FParent)
        if (c == ancestor)
            return true;
    return false;
}

TComponent* TMetaClass::Create(TComponent* owner) const
{
    if (!FCreate)
        throw EInvalidOperation("Cannot create an instance of " + ClassName());
    return FCreate(owner);
}

TCollectionItem* TMetaClass::CreateItem(TCollection* collection) const
{
    if (!FCreateItem)
        throw EInvalidOperation("Cannot create an item of class " + ClassName());
    return FCreateItem(collection);
}

const std::vector<const TPropInfo*>& TMetaClass::DeclaredProperties() const
{
    EnsureProperties();
    return FDeclared;
}

const std::vector<const TPropInfo*>& TMetaClass::Properties() const
{
    EnsureProperties();
    return FAll;
}

const TPropInfo* TMetaClass::FindProperty(const AnsiString& name) const
{
    EnsureProperties();
    const auto it = FByName.find(LowerCase(name));
    return it == FByName.end() ? nullptr : it->second;
}

TPropInfo& TMetaClass::AddProperty(TPropInfo info)
{
    info.DeclaringClass = this;
    for (auto& own : FOwn) {
        if (SameText(own->Name, info.Name)) {
            *own = std::move(info);
            return *own;
        }
    }
    FOwn.push_back(std::make_unique<TPropInfo>(std::move(info)));
    return *FOwn.back();
}

// The list is built once, on first use, so that declaring a property of a
// class type never needs that class's properties (classes may refer to each
// other). A class whose declaration fails is retried on the next request.
void TMetaClass::EnsureProperties() const
{
    std::call_once(FBuilt, [this] { const_cast<TMetaClass*>(this)->BuildProperties(); });
}

void TMetaClass::BuildProperties()
{
    FOwn.clear();
    FAll = FParent ? FParent->Properties() : std::vector<const TPropInfo*>{};
    if (FDeclare)
        FDeclare(*this);

    FDeclared.clear();
    for (auto& own : FOwn) {
        const auto same = std::find_if(FAll.begin(), FAll.end(),
                                       [&](const TPropInfo* p) { return SameText(p->Name, own->Name); });
        if (same != FAll.end()) {
            own->NameIndex = static_cast<int>(same - FAll.begin());
            *same = own.get();
        } else {
            own->NameIndex = static_cast<int>(FAll.size());
            FAll.push_back(own.get());
        }
        FDeclared.push_back(own.get());
    }
    FByName.clear();
    for (const TPropInfo* p : FAll)
        FByName.emplace(LowerCase(p->Name), p);
}

// ---------------------------------------------------------------------------
// Class registry

void RegisterClass(TMetaClass* cls)
{
    TRegistry& registry = Registry();
    std::lock_guard guard(registry.Lock);
    for (TMetaClass* c = cls; c; c = c->ClassParent()) {
        auto [it, added] = registry.Classes.emplace(LowerCase(c->ClassName()), c);
        if (!added && it->second != c)
            throw EFilerError("A class named " + c->ClassName() + " already exists");
        if (c->ClassNameIs("TPersistent"))
            break;
    }
}

void RegisterClasses(std::initializer_list<TMetaClass*> classes)
{
    for (TMetaClass* cls : classes)
        RegisterClass(cls);
}

void UnRegisterClass(TMetaClass* cls)
{
    TRegistry& registry = Registry();
    std::lock_guard guard(registry.Lock);
    const auto it = registry.Classes.find(LowerCase(cls->ClassName()));
    if (it != registry.Classes.end() && it->second == cls)
        registry.Classes.erase(it);
}

TMetaClass* GetClass(const AnsiString& name)
{
    TRegistry& registry = Registry();
    std::lock_guard guard(registry.Lock);
    const auto it = registry.Classes.find(LowerCase(name));
    return it == registry.Classes.end() ? nullptr : it->second;
}

TMetaClass* FindClass(const AnsiString& name)
{
    TMetaClass* cls = GetClass(name);
    if (!cls)
        throw EClassNotFound("Class " + name + " not found");
    return cls;
}

// ---------------------------------------------------------------------------
// Property access

namespace TypInfoImpl {

TStorage StorageOf(const TTypeInfo* type)
{
    switch (type->Kind) {
    case tkFloat: return TStorage::Float;
    case tkString:
    case tkMethod: return TStorage::String;
    case tkClass: return TStorage::Object;
    case tkVariant: return TStorage::Variant;
    default: return TStorage::Ordinal;
    }
}

bool IsCurrency(const TTypeInfo* type)
{
    return type->Kind == tkFloat && type->FloatType == ftCurr;
}

void RaiseBadInstance()
{
    throw EPropertyError("Property does not belong to the object's class");
}

void RaiseBadObject(const TTypeInfo* expected)
{
    throw EPropertyError("Invalid property value: a " + expected->Name + " is expected");
}

void RaiseTypeMismatch(const AnsiString& prop, const TTypeInfo* type)
{
    throw EPropertyError("Property " + prop + " cannot hold a " + (type ? type->Name : AnsiString("nil type")));
}

void RaiseNoSuchProperty(const AnsiString& prop, const TMetaClass* cls)
{
    throw EPropertyError("Property " + prop + " does not exist in " + cls->ClassName());
}

}  // namespace TypInfoImpl

const TPropInfo* GetPropInfo(const TObject* obj, const AnsiString& name)
{
    return obj ? GetPropInfo(obj->ClassType(), name) : nullptr;
}

const TPropInfo* GetPropInfo(const TMetaClass* cls, const AnsiString& name)
{
    return cls ? cls->FindProperty(name) : nullptr;
}

const TPropInfo* RequirePropInfo(const TObject* obj, const AnsiString& name)
{
    const TPropInfo* prop = GetPropInfo(obj, name);
    if (!prop)
        throw EPropertyError("Property " + name + " does not exist");
    return prop;
}

std::vector<const TPropInfo*> GetPropList(const TMetaClass* cls)
{
    return cls ? cls->Properties() : std::vector<const TPropInfo*>{};
}

std::vector<const TPropInfo*> GetPropList(const TObject* obj)
{
    return obj ? GetPropList(obj->ClassType()) : std::vector<const TPropInfo*>{};
}

bool IsPublishedProp(const TObject* obj, const AnsiString& name)
{
    return GetPropInfo(obj, name) != nullptr;
}

bool IsPublishedProp(const TMetaClass* cls, const AnsiString& name)
{
    return GetPropInfo(cls, name) != nullptr;
}

Int64 GetOrdProp(TObject* obj, const TPropInfo* prop)
{
    RequireKind(prop, {tkInteger, tkChar, tkEnumeration, tkSet, tkInt64});
    return std::get<Int64>(Read(obj, prop));
}

void SetOrdProp(TObject* obj, const TPropInfo* prop, Int64 value)
{
    RequireKind(prop, {tkInteger, tkChar, tkEnumeration, tkSet, tkInt64});
    const TTypeInfo* type = prop->PropType;
    if (type->Kind == tkEnumeration && (value < 0 || value >= EnumCount(type)))
        RaiseInvalidValue();
    if (type->Kind == tkSet && (value & ~SetMask(type)) != 0)
        RaiseInvalidValue();
    Write(obj, prop, value);
}

Int64 GetInt64Prop(TObject* obj, const TPropInfo* prop)
{
    return GetOrdProp(obj, prop);
}

void SetInt64Prop(TObject* obj, const TPropInfo* prop, Int64 value)
{
    SetOrdProp(obj, prop, value);
}

Extended GetFloatProp(TObject* obj, const TPropInfo* prop)
{
    RequireKind(prop, {tkFloat});
    return std::get<Extended>(Read(obj, prop));
}

void SetFloatProp(TObject* obj, const TPropInfo* prop, Extended value)
{
    RequireKind(prop, {tkFloat});
    Write(obj, prop, value);
}

AnsiString GetStrProp(TObject* obj, const TPropInfo* prop)
{
    RequireKind(prop, {tkString});
    return std::get<AnsiString>(Read(obj, prop));
}

void SetStrProp(TObject* obj, const TPropInfo* prop, const AnsiString& value)
{
    RequireKind(prop, {tkString});
    Write(obj, prop, value);
}

TObject* GetObjectProp(TObject* obj, const TPropInfo* prop)
{
    RequireKind(prop, {tkClass});
    return std::get<TObject*>(Read(obj, prop));
}

void SetObjectProp(TObject* obj, const TPropInfo* prop, TObject* value)
{
    RequireKind(prop, {tkClass});
    const TMetaClass* expected = prop->PropType->ClassType;
    if (value && expected && !value->InheritsFrom(expected))
        TypInfoImpl::RaiseBadObject(prop->PropType);
    Write(obj, prop, value);
}

Variant GetVariantProp(TObject* obj, const TPropInfo* prop)
{
    RequireKind(prop, {tkVariant});
    return std::get<Variant>(Read(obj, prop));
}

void SetVariantProp(TObject* obj, const TPropInfo* prop, const Variant& value)
{
    RequireKind(prop, {tkVariant});
    Write(obj, prop, value);
}

AnsiString GetEnumProp(TObject* obj, const TPropInfo* prop)
{
    RequireKind(prop, {tkEnumeration});
    return GetEnumName(prop->PropType, static_cast<int>(GetOrdProp(obj, prop)));
}

void SetEnumProp(TObject* obj, const TPropInfo* prop, const AnsiString& value)
{
    RequireKind(prop, {tkEnumeration});
    const int ord = GetEnumValue(prop->PropType, Trim(value));
    if (ord < 0)
        RaiseInvalidValue();
    SetOrdProp(obj, prop, ord);
}

AnsiString GetSetProp(TObject* obj, const TPropInfo* prop, bool brackets)
{
    RequireKind(prop, {tkSet});
    return SetToString(prop->PropType, GetOrdProp(obj, prop), brackets);
}

void SetSetProp(TObject* obj, const TPropInfo* prop, const AnsiString& value)
{
    RequireKind(prop, {tkSet});
    SetOrdProp(obj, prop, StringToSet(prop->PropType, value));
}

AnsiString GetMethodProp(TObject* obj, const TPropInfo* prop)
{
    RequireKind(prop, {tkMethod});
    return std::get<AnsiString>(Read(obj, prop));
}

void SetMethodProp(TObject* obj, const TPropInfo* prop, const AnsiString& value)
{
    RequireKind(prop, {tkMethod});
    Write(obj, prop, value);
}

bool IsStoredProp(TObject* obj, const TPropInfo* prop)
{
    return prop->StoredProc ? prop->StoredProc(obj) : prop->Stored;
}

bool IsDefaultPropValue(TObject* obj, const TPropInfo* prop)
{
    switch (prop->PropType->Kind) {
    case tkInteger:
    case tkChar:
    case tkEnumeration:
    case tkSet: return prop->Default != NoDefaultValue && GetOrdProp(obj, prop) == prop->Default;
    case tkInt64: return GetInt64Prop(obj, prop) == 0;
    case tkFloat: return GetFloatProp(obj, prop) == 0;
    case tkString: return GetStrProp(obj, prop).empty();
    case tkMethod: return GetMethodProp(obj, prop).empty();
    case tkClass: return GetObjectProp(obj, prop) == nullptr;
    case tkVariant: return GetVariantProp(obj, prop).IsEmpty();
    case tkUnknown: break;
    }
    return false;
}

Variant GetPropValue(TObject* obj, const AnsiString& name, bool preferStrings)
{
    const TPropInfo* prop = RequirePropInfo(obj, name);
    switch (prop->PropType->Kind) {
    case tkEnumeration:
        if (prop->PropType == TypeInfo_Boolean())
            return GetOrdProp(obj, prop) != 0;
        if (preferStrings)
            return GetEnumProp(obj, prop);
        return GetOrdProp(obj, prop);
    case tkSet:
        if (preferStrings)
            return GetSetProp(obj, prop);
        return GetOrdProp(obj, prop);
    case tkInteger:
    case tkChar:
    case tkInt64: return GetOrdProp(obj, prop);
    case tkFloat: {
        const double value = static_cast<double>(GetFloatProp(obj, prop));
        return prop->PropType == TypeInfo_TDateTime() ? Variant::FromDateTime(value) : Variant(value);
    }
    case tkString: return GetStrProp(obj, prop);
    case tkMethod: return GetMethodProp(obj, prop);
    case tkVariant: return GetVariantProp(obj, prop);
    case tkClass:
    case tkUnknown: break;
    }
    RaiseWrongKind(prop);
}

void SetPropValue(TObject* obj, const AnsiString& name, const Variant& value)
{
    const TPropInfo* prop = RequirePropInfo(obj, name);
    switch (prop->PropType->Kind) {
    case tkEnumeration:
        // A Boolean accepts whatever converts to one, True being -1 as a number.
        if (prop->PropType == TypeInfo_Boolean())
            SetOrdProp(obj, prop, value.AsBoolean() ? 1 : 0);
        else if (value.VarType() == varString)
            SetEnumProp(obj, prop, value.AsString());
        else
            SetOrdProp(obj, prop, value.AsInteger());
        return;
    case tkSet:
        if (value.VarType() == varString)
            SetSetProp(obj, prop, value.AsString());
        else
            SetOrdProp(obj, prop, value.AsInteger());
        return;
    case tkInteger:
    case tkChar:
    case tkInt64: SetOrdProp(obj, prop, value.AsInteger()); return;
    case tkFloat: SetFloatProp(obj, prop, value.AsFloat()); return;
    case tkString: SetStrProp(obj, prop, value.AsString()); return;
    case tkMethod: SetMethodProp(obj, prop, value.AsString()); return;
    case tkVariant: SetVariantProp(obj, prop, value); return;
    case tkClass:
    case tkUnknown: break;
    }
    RaiseWrongKind(prop);
}
