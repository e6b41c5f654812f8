#pragma once
// Run-time type information: type descriptions, metaclasses with their
// published properties, the class registry and the property access functions
// that the filer, the object inspector and the property editors go through.
//
// A class takes part by naming itself and its parent once, and (optionally)
// by listing its published properties in a static DeclareProperties:
//
//     class TFoo : public TComponent {
//         QZ_CLASS(TFoo, TComponent)
//     public:
//         explicit TFoo(TComponent* owner) : TComponent(owner) {}
//         ...
//     private:
//         static void DeclareProperties(TClassBuilder<TFoo>& b)
//         {
//             b.Property("Caption", &TFoo::GetCaption, &TFoo::SetCaption);
//             b.Property("Width", &TFoo::FWidth).Default(100);
//             b.Enum("Align", TypeInfo_TAlign(), &TFoo::GetAlign, &TFoo::SetAlign, alNone);
//             b.Event("OnClick", &TFoo::FOnClick);
//         }
//     };
//
// The property list is built the first time somebody asks for it, so a class
// may name another class (or itself) as a property type freely.

#include "rtl/Variant.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <mutex>
#include <type_traits>
#include <unordered_map>
#include <variant>
#include <vector>

class TObject;
class TComponent;
class TCollection;
class TCollectionItem;
class TMetaClass;

enum TTypeKind {
    tkUnknown,
    tkInteger,
    tkInt64,
    tkChar,
    tkEnumeration,
    tkSet,
    tkFloat,
    tkString,
    tkClass,
    tkMethod,
    tkVariant,
};

enum TFloatType { ftSingle, ftDouble, ftExtended, ftComp, ftCurr };

// One type as the streaming and design-time code sees it. Type infos live as
// long as the program and a type is known by its address, so an editor can
// be bound to exactly one type.
struct TTypeInfo {
    TTypeKind Kind = tkUnknown;
    AnsiString Name;
    Int64 MinValue = 0;                  // integers, chars, enumerations
    Int64 MaxValue = 0;
    std::vector<AnsiString> EnumNames;   // enumerations: one name per value
    const TTypeInfo* CompType = nullptr; // sets: the element enumeration
    TFloatType FloatType = ftDouble;     // floats
    TMetaClass* ClassType = nullptr;     // classes
    AnsiString MethodParams;             // methods: the handler's parameters as source text
    // Integers: names that stand for values in forms and the inspector
    // (clBtnFace for a colour, crHandPoint for a cursor), as the class
    // library's identifier-to-integer tables give them.
    std::vector<std::pair<AnsiString, Int64>> IntegerIdents;
};

const TTypeInfo* TypeInfo_Integer();
const TTypeInfo* TypeInfo_Int64();
const TTypeInfo* TypeInfo_Cardinal();
const TTypeInfo* TypeInfo_SmallInt();
const TTypeInfo* TypeInfo_ShortInt();
const TTypeInfo* TypeInfo_Word();
const TTypeInfo* TypeInfo_Byte();
const TTypeInfo* TypeInfo_Char();
const TTypeInfo* TypeInfo_Boolean();     // enumeration False, True
const TTypeInfo* TypeInfo_String();
const TTypeInfo* TypeInfo_Single();
const TTypeInfo* TypeInfo_Double();
const TTypeInfo* TypeInfo_Extended();
const TTypeInfo* TypeInfo_Currency();    // property values are held as Currency (value * 10000)
const TTypeInfo* TypeInfo_TDateTime();
const TTypeInfo* TypeInfo_Variant();
const TTypeInfo* TypeInfo_TNotifyEvent();

// Each call makes a new type; keep the result (a function-local static is
// the usual place) so every user sees the same one.
const TTypeInfo* DefineEnumType(const AnsiString& name, std::vector<AnsiString> names);
// Sets hold at most 64 elements: bit i of the value is element i.
const TTypeInfo* DefineSetType(const AnsiString& name, const TTypeInfo* enumType);
const TTypeInfo* DefineIntegerType(const AnsiString& name, Int64 minValue, Int64 maxValue,
                                   std::vector<std::pair<AnsiString, Int64>> idents = {});
// The identifier of an integer value (empty when it has none) and the value
// of an identifier (case-insensitive; false when unknown).
AnsiString IntToIdent(const TTypeInfo* type, Int64 value);
bool IdentToInt(const TTypeInfo* type, const AnsiString& ident, Int64& value);
const TTypeInfo* DefineFloatType(const AnsiString& name, TFloatType floatType);
const TTypeInfo* DefineStringType(const AnsiString& name);
const TTypeInfo* DefineMethodType(const AnsiString& name, const AnsiString& params = "TObject *Sender");
const TTypeInfo* DefineClassType(const TMetaClass* meta);

// The name of an enumeration value; a value out of range comes back as its number.
AnsiString GetEnumName(const TTypeInfo* type, int value);
// Case-insensitive; -1 when the type has no such name.
int GetEnumValue(const TTypeInfo* type, const AnsiString& name);
// "akLeft,akTop", or "[akLeft,akTop]" with brackets.
AnsiString SetToString(const TTypeInfo* setType, Int64 value, bool brackets = false);
// Accepts the text with or without brackets and with spaces; an unknown
// element raises EPropertyError.
Int64 StringToSet(const TTypeInfo* setType, const AnsiString& text);

// A set of enumeration values, stored the way set properties travel.
template <class E>
class TEnumSet {
public:
    constexpr TEnumSet() = default;
    constexpr TEnumSet(std::initializer_list<E> items)
    {
        for (E item : items)
            Include(item);
    }
    static constexpr TEnumSet FromInt(Int64 bits)
    {
        TEnumSet s;
        s.FBits = static_cast<std::uint64_t>(bits);
        return s;
    }
    constexpr Int64 ToInt() const { return static_cast<Int64>(FBits); }

    constexpr bool Contains(E item) const { return (FBits & Bit(item)) != 0; }
    constexpr bool Empty() const { return FBits == 0; }
    constexpr TEnumSet& Include(E item)
    {
        FBits |= Bit(item);
        return *this;
    }
    constexpr TEnumSet& Exclude(E item)
    {
        FBits &= ~Bit(item);
        return *this;
    }
    constexpr TEnumSet& operator<<(E item) { return Include(item); }
    constexpr TEnumSet& operator>>(E item) { return Exclude(item); }
    constexpr TEnumSet operator+(TEnumSet other) const { return FromInt(Int64(FBits | other.FBits)); }
    constexpr TEnumSet operator-(TEnumSet other) const { return FromInt(Int64(FBits & ~other.FBits)); }
    constexpr TEnumSet operator*(TEnumSet other) const { return FromInt(Int64(FBits & other.FBits)); }
    constexpr bool operator==(const TEnumSet&) const = default;

private:
    static constexpr std::uint64_t Bit(E item) { return std::uint64_t(1) << static_cast<unsigned>(item); }
    std::uint64_t FBits = 0;
};

// How a C++ value maps to an ordinal property value. Integers, enums, bool
// and TEnumSet come ready; specialise it for other set-like types.
template <class V>
struct TOrdinalTraits {
    static constexpr bool IsOrdinal = false;
};

template <class V>
    requires(std::is_integral_v<V> || std::is_enum_v<V>)
struct TOrdinalTraits<V> {
    static constexpr bool IsOrdinal = true;
    static Int64 ToOrd(V value) { return static_cast<Int64>(value); }
    static V FromOrd(Int64 value) { return static_cast<V>(value); }
};

template <class E>
struct TOrdinalTraits<TEnumSet<E>> {
    static constexpr bool IsOrdinal = true;
    static Int64 ToOrd(TEnumSet<E> value) { return value.ToInt(); }
    static TEnumSet<E> FromOrd(Int64 value) { return TEnumSet<E>::FromInt(value); }
};

// A property's value on its way through the accessors: ordinals (and sets)
// as Int64, floats as Extended, strings and method names as AnsiString.
using TPropValue = std::variant<Int64, Extended, AnsiString, TObject*, Variant>;
using TPropGetProc = std::function<TPropValue(TObject*)>;
using TPropSetProc = std::function<void(TObject*, const TPropValue&)>;
using TPropStoredProc = std::function<bool(TObject*)>;

// Default of an ordinal property that has none, so it is always written.
inline constexpr Int64 NoDefaultValue = 0x80000000;

struct TPropInfo {
    AnsiString Name;
    const TTypeInfo* PropType = nullptr;
    TPropGetProc GetProc;
    TPropSetProc SetProc;                // empty: the property is read-only
    Int64 Default = NoDefaultValue;      // ordinals and sets only
    bool Stored = true;                  // used when StoredProc is empty
    TPropStoredProc StoredProc;
    int NameIndex = 0;                   // position in the declaring class's property list
    const TMetaClass* DeclaringClass = nullptr;
};

template <class T>
class TClassBuilder;

class TMetaClass {
public:
    using TComponentFactory = TComponent* (*)(TComponent* owner);
    using TItemFactory = TCollectionItem* (*)(TCollection* collection);
    using TDeclareProc = void (*)(TMetaClass& meta);

    TMetaClass(const AnsiString& name, TMetaClass* parent, TComponentFactory create = nullptr,
               TItemFactory createItem = nullptr, TDeclareProc declare = nullptr);
    TMetaClass(const TMetaClass&) = delete;
    TMetaClass& operator=(const TMetaClass&) = delete;

    const AnsiString& ClassName() const { return FTypeInfo.Name; }
    bool ClassNameIs(const AnsiString& name) const;
    TMetaClass* ClassParent() const { return FParent; }
    bool InheritsFrom(const TMetaClass* ancestor) const;
    const TTypeInfo* TypeInfo() const { return &FTypeInfo; }

    // Components are made with their owner, collection items with their
    // collection; a class without such a public constructor cannot be made
    // and raises EInvalidOperation.
    bool CanCreate() const { return FCreate != nullptr; }
    TComponent* Create(TComponent* owner) const;
    bool CanCreateItem() const { return FCreateItem != nullptr; }
    TCollectionItem* CreateItem(TCollection* collection) const;

    // The properties this class declares, in declaration order.
    const std::vector<const TPropInfo*>& DeclaredProperties() const;
    // Every published property: the ancestors' first, each class's in
    // declaration order, a redeclared one at its ancestor's place.
    const std::vector<const TPropInfo*>& Properties() const;
    // Case-insensitive; nullptr when the class has no such property.
    const TPropInfo* FindProperty(const AnsiString& name) const;

private:
    template <class T>
    friend class TClassBuilder;

    TPropInfo& AddProperty(TPropInfo info);
    void BuildProperties();
    void EnsureProperties() const;

    TTypeInfo FTypeInfo;
    TMetaClass* FParent;
    TComponentFactory FCreate;
    TItemFactory FCreateItem;
    TDeclareProc FDeclare;

    mutable std::once_flag FBuilt;
    std::vector<std::unique_ptr<TPropInfo>> FOwn;
    std::vector<const TPropInfo*> FDeclared;
    std::vector<const TPropInfo*> FAll;
    std::unordered_map<AnsiString, const TPropInfo*> FByName;   // lower-case names
};

// The registry the filer finds classes in by name (case-insensitive).
// Registering a class registers its ancestors up to TPersistent as well;
// another class under a registered name raises EFilerError.
void RegisterClass(TMetaClass* cls);
void RegisterClasses(std::initializer_list<TMetaClass*> classes);
void UnRegisterClass(TMetaClass* cls);
TMetaClass* GetClass(const AnsiString& name);     // nullptr when absent
TMetaClass* FindClass(const AnsiString& name);    // raises EClassNotFound when absent

// Property access. Asking for a kind the property does not have, or setting
// a read-only property, raises EPropertyError.
const TPropInfo* GetPropInfo(const TObject* obj, const AnsiString& name);
const TPropInfo* GetPropInfo(const TMetaClass* cls, const AnsiString& name);
std::vector<const TPropInfo*> GetPropList(const TMetaClass* cls);
std::vector<const TPropInfo*> GetPropList(const TObject* obj);
bool IsPublishedProp(const TObject* obj, const AnsiString& name);
bool IsPublishedProp(const TMetaClass* cls, const AnsiString& name);

// Integers, chars, enumerations (Boolean too) and sets as bit masks.
Int64 GetOrdProp(TObject* obj, const TPropInfo* prop);
void SetOrdProp(TObject* obj, const TPropInfo* prop, Int64 value);
Int64 GetInt64Prop(TObject* obj, const TPropInfo* prop);
void SetInt64Prop(TObject* obj, const TPropInfo* prop, Int64 value);
// Currency properties read and write their value: 1.5, not 15000.
Extended GetFloatProp(TObject* obj, const TPropInfo* prop);
void SetFloatProp(TObject* obj, const TPropInfo* prop, Extended value);
AnsiString GetStrProp(TObject* obj, const TPropInfo* prop);
void SetStrProp(TObject* obj, const TPropInfo* prop, const AnsiString& value);
TObject* GetObjectProp(TObject* obj, const TPropInfo* prop);
// An object that is not of the property's class raises EPropertyError.
void SetObjectProp(TObject* obj, const TPropInfo* prop, TObject* value);
Variant GetVariantProp(TObject* obj, const TPropInfo* prop);
void SetVariantProp(TObject* obj, const TPropInfo* prop, const Variant& value);
AnsiString GetEnumProp(TObject* obj, const TPropInfo* prop);
void SetEnumProp(TObject* obj, const TPropInfo* prop, const AnsiString& value);
AnsiString GetSetProp(TObject* obj, const TPropInfo* prop, bool brackets = false);
void SetSetProp(TObject* obj, const TPropInfo* prop, const AnsiString& value);
// At design time an event holds the name of its handler ("Button1Click").
AnsiString GetMethodProp(TObject* obj, const TPropInfo* prop);
void SetMethodProp(TObject* obj, const TPropInfo* prop, const AnsiString& value);

bool IsStoredProp(TObject* obj, const TPropInfo* prop);
// Ordinals equal to their default; empty strings, method names and
// variants; zero numbers; no object.
bool IsDefaultPropValue(TObject* obj, const TPropInfo* prop);

// By name and by kind. With preferStrings, enumerations and sets come back
// as their names. Class properties cannot travel in a Variant and raise.
Variant GetPropValue(TObject* obj, const AnsiString& name, bool preferStrings = true);
void SetPropValue(TObject* obj, const AnsiString& name, const Variant& value);

// The same by property name; an unknown name raises EPropertyError.
const TPropInfo* RequirePropInfo(const TObject* obj, const AnsiString& name);
inline Int64 GetOrdProp(TObject* obj, const AnsiString& name) { return GetOrdProp(obj, RequirePropInfo(obj, name)); }
inline void SetOrdProp(TObject* obj, const AnsiString& name, Int64 value) { SetOrdProp(obj, RequirePropInfo(obj, name), value); }
inline Extended GetFloatProp(TObject* obj, const AnsiString& name) { return GetFloatProp(obj, RequirePropInfo(obj, name)); }
inline void SetFloatProp(TObject* obj, const AnsiString& name, Extended value) { SetFloatProp(obj, RequirePropInfo(obj, name), value); }
inline AnsiString GetStrProp(TObject* obj, const AnsiString& name) { return GetStrProp(obj, RequirePropInfo(obj, name)); }
inline void SetStrProp(TObject* obj, const AnsiString& name, const AnsiString& value) { SetStrProp(obj, RequirePropInfo(obj, name), value); }
inline TObject* GetObjectProp(TObject* obj, const AnsiString& name) { return GetObjectProp(obj, RequirePropInfo(obj, name)); }
inline void SetObjectProp(TObject* obj, const AnsiString& name, TObject* value) { SetObjectProp(obj, RequirePropInfo(obj, name), value); }
inline AnsiString GetEnumProp(TObject* obj, const AnsiString& name) { return GetEnumProp(obj, RequirePropInfo(obj, name)); }
inline void SetEnumProp(TObject* obj, const AnsiString& name, const AnsiString& value) { SetEnumProp(obj, RequirePropInfo(obj, name), value); }
inline AnsiString GetSetProp(TObject* obj, const AnsiString& name, bool brackets = false) { return GetSetProp(obj, RequirePropInfo(obj, name), brackets); }
inline void SetSetProp(TObject* obj, const AnsiString& name, const AnsiString& value) { SetSetProp(obj, RequirePropInfo(obj, name), value); }
inline AnsiString GetMethodProp(TObject* obj, const AnsiString& name) { return GetMethodProp(obj, RequirePropInfo(obj, name)); }
inline void SetMethodProp(TObject* obj, const AnsiString& name, const AnsiString& value) { SetMethodProp(obj, RequirePropInfo(obj, name), value); }

// ---------------------------------------------------------------------------
// Declaring classes and their published properties.

namespace TypInfoImpl {

// Where a property's value lives in TPropValue.
enum class TStorage { Ordinal, Float, String, Object, Variant };
TStorage StorageOf(const TTypeInfo* type);
bool IsCurrency(const TTypeInfo* type);
[[noreturn]] void RaiseBadInstance();
[[noreturn]] void RaiseBadObject(const TTypeInfo* expected);
[[noreturn]] void RaiseTypeMismatch(const AnsiString& prop, const TTypeInfo* type);
[[noreturn]] void RaiseNoSuchProperty(const AnsiString& prop, const TMetaClass* cls);

template <class V>
inline constexpr bool IsObjectPointer = std::is_pointer_v<V> && std::is_class_v<std::remove_pointer_t<V>>;

template <class V>
constexpr bool Fits(TStorage storage)
{
    if constexpr (TOrdinalTraits<V>::IsOrdinal)
        return storage == TStorage::Ordinal || storage == TStorage::Float;
    else if constexpr (std::is_floating_point_v<V>)
        return storage == TStorage::Float;
    else if constexpr (std::is_same_v<V, Variant>)
        return storage == TStorage::Variant;
    else if constexpr (IsObjectPointer<V>)
        return storage == TStorage::Object;
    else if constexpr (std::is_convertible_v<V, AnsiString>)
        return storage == TStorage::String;
    else
        return false;
}

template <class V>
inline constexpr bool IsPropertyValue = TOrdinalTraits<V>::IsOrdinal || std::is_floating_point_v<V> ||
                                        std::is_same_v<V, Variant> || IsObjectPointer<V> ||
                                        std::is_convertible_v<V, AnsiString>;

template <class V>
TPropValue ToValue(const V& value, TStorage storage, bool currency)
{
    if constexpr (TOrdinalTraits<V>::IsOrdinal) {
        const Int64 ord = TOrdinalTraits<V>::ToOrd(value);
        if (storage == TStorage::Float)
            return currency ? Extended(ord) / 10000 : Extended(ord);
        return ord;
    } else if constexpr (std::is_floating_point_v<V>) {
        return Extended(value);
    } else if constexpr (std::is_same_v<V, Variant>) {
        return value;
    } else if constexpr (IsObjectPointer<V>) {
        return static_cast<TObject*>(value);
    } else {
        return AnsiString(value);
    }
}

template <class V>
V FromValue(const TPropValue& value, TStorage storage, bool currency)
{
    if constexpr (TOrdinalTraits<V>::IsOrdinal) {
        if (storage == TStorage::Float) {
            const Extended e = std::get<Extended>(value);
            return TOrdinalTraits<V>::FromOrd(static_cast<Int64>(std::llround(currency ? e * 10000 : e)));
        }
        return TOrdinalTraits<V>::FromOrd(std::get<Int64>(value));
    } else if constexpr (std::is_floating_point_v<V>) {
        return static_cast<V>(std::get<Extended>(value));
    } else if constexpr (std::is_same_v<V, Variant>) {
        return std::get<Variant>(value);
    } else if constexpr (IsObjectPointer<V>) {
        TObject* obj = std::get<TObject*>(value);
        if (!obj)
            return nullptr;
        auto* typed = dynamic_cast<V>(obj);
        if (!typed)
            RaiseBadObject(std::remove_pointer_t<V>::ClassInfo()->TypeInfo());
        return typed;
    } else {
        return std::get<AnsiString>(value);
    }
}

template <class T>
T& Instance(TObject* obj)
{
    auto* typed = dynamic_cast<T*>(obj);
    if (!typed)
        RaiseBadInstance();
    return *typed;
}

template <class T, class G>
using TAccessorValue = std::decay_t<std::invoke_result_t<G, T&>>;

template <class V>
inline constexpr bool AlwaysFalse = false;

// The type a property gets when its declaration names none.
template <class V>
const TTypeInfo* DefaultTypeInfo()
{
    if constexpr (std::is_same_v<V, bool>)
        return TypeInfo_Boolean();
    else if constexpr (std::is_same_v<V, char>)
        return TypeInfo_Char();
    else if constexpr (std::is_integral_v<V>) {
        if constexpr (sizeof(V) == 1)
            return std::is_signed_v<V> ? TypeInfo_ShortInt() : TypeInfo_Byte();
        else if constexpr (sizeof(V) == 2)
            return std::is_signed_v<V> ? TypeInfo_SmallInt() : TypeInfo_Word();
        else if constexpr (sizeof(V) == 4)
            return std::is_signed_v<V> ? TypeInfo_Integer() : TypeInfo_Cardinal();
        else
            return TypeInfo_Int64();
    } else if constexpr (std::is_same_v<V, float>)
        return TypeInfo_Single();
    else if constexpr (std::is_same_v<V, double>)
        return TypeInfo_Double();
    else if constexpr (std::is_same_v<V, long double>)
        return TypeInfo_Extended();
    else if constexpr (std::is_same_v<V, AnsiString>)
        return TypeInfo_String();
    else if constexpr (std::is_same_v<V, Variant>)
        return TypeInfo_Variant();
    else if constexpr (IsObjectPointer<V>)
        return std::remove_pointer_t<V>::ClassInfo()->TypeInfo();
    else
        static_assert(AlwaysFalse<V>, "this property needs its type info: pass it, or use Enum/Set/Event");
}

}  // namespace TypInfoImpl

// Returned by the declaration calls to add the optional parts.
template <class T>
class TPropBuilder {
public:
    explicit TPropBuilder(TPropInfo& info) : FInfo(&info) {}

    template <class D>
        requires TOrdinalTraits<D>::IsOrdinal
    TPropBuilder& Default(D value)
    {
        FInfo->Default = TOrdinalTraits<D>::ToOrd(value);
        return *this;
    }
    TPropBuilder& NoDefault()
    {
        FInfo->Default = NoDefaultValue;
        return *this;
    }
    TPropBuilder& Stored(bool stored)
    {
        FInfo->Stored = stored;
        FInfo->StoredProc = nullptr;
        return *this;
    }
    // A member function (bool IsFooStored() const) or a callable taking T&.
    template <class P>
        requires std::is_invocable_r_v<bool, P, T&>
    TPropBuilder& Stored(P predicate)
    {
        FInfo->StoredProc = [predicate](TObject* obj) {
            return static_cast<bool>(std::invoke(predicate, TypInfoImpl::Instance<T>(obj)));
        };
        return *this;
    }
    TPropBuilder& ReadOnly()
    {
        FInfo->SetProc = nullptr;
        return *this;
    }
    TPropInfo& Info() { return *FInfo; }

private:
    TPropInfo* FInfo;
};

// Handed to a class's DeclareProperties. A getter or setter is a member
// function, a data member or a callable taking T&; a data member given alone
// is read and written directly, a getter function given alone is read-only.
template <class T>
class TClassBuilder {
public:
    explicit TClassBuilder(TMetaClass& meta) : FMeta(meta) {}

    // The type follows from the getter: Integer, Boolean, String, a class...
    template <class G, class S = std::nullptr_t>
        requires(!std::is_convertible_v<G, const TTypeInfo*>)
    TPropBuilder<T> Property(const AnsiString& name, G getter, S setter = nullptr)
    {
        return Property(name, TypInfoImpl::DefaultTypeInfo<TypInfoImpl::TAccessorValue<T, G>>(), getter, setter);
    }

    template <class G, class S = std::nullptr_t>
    TPropBuilder<T> Property(const AnsiString& name, const TTypeInfo* type, G getter, S setter = nullptr)
    {
        using namespace TypInfoImpl;
        using V = TAccessorValue<T, G>;
        static_assert(IsPropertyValue<V>, "a property holds an ordinal, float, string, object pointer or Variant");
        const TStorage storage = StorageOf(type);
        const bool currency = IsCurrency(type);
        if (!Fits<V>(storage))
            RaiseTypeMismatch(name, type);

        TPropInfo info;
        info.Name = name;
        info.PropType = type;
        info.GetProc = [getter, storage, currency](TObject* obj) {
            return ToValue<V>(std::invoke(getter, Instance<T>(obj)), storage, currency);
        };
        if constexpr (std::is_null_pointer_v<S> && std::is_member_object_pointer_v<G>)
            info.SetProc = MakeSetProc<V>(getter, storage, currency);
        else if constexpr (!std::is_null_pointer_v<S>)
            info.SetProc = MakeSetProc<V>(setter, storage, currency);
        return TPropBuilder<T>(FMeta.AddProperty(std::move(info)));
    }

    template <class G, class S, class D>
    TPropBuilder<T> Enum(const AnsiString& name, const TTypeInfo* type, G getter, S setter, D defaultValue)
    {
        return Property(name, type, getter, setter).Default(defaultValue);
    }

    template <class G, class S, class D>
    TPropBuilder<T> Set(const AnsiString& name, const TTypeInfo* type, G getter, S setter, D defaultValue)
    {
        return Property(name, type, getter, setter).Default(defaultValue);
    }

    // An event of type TNotifyEvent held in a string member, or of any
    // method type with explicit accessors.
    template <class F>
        requires(!std::is_convertible_v<F, const TTypeInfo*>)
    TPropBuilder<T> Event(const AnsiString& name, F field)
    {
        return Property(name, TypeInfo_TNotifyEvent(), field);
    }
    template <class G, class S = std::nullptr_t>
    TPropBuilder<T> Event(const AnsiString& name, const TTypeInfo* type, G getter, S setter = nullptr)
    {
        return Property(name, type, getter, setter);
    }

    // Publishes an ancestor's property again, to change its default or
    // stored flag: b.Redeclare("Color").Default(clWindow).
    TPropBuilder<T> Redeclare(const AnsiString& name)
    {
        const TPropInfo* inherited = FMeta.ClassParent() ? FMeta.ClassParent()->FindProperty(name) : nullptr;
        if (!inherited)
            TypInfoImpl::RaiseNoSuchProperty(name, &FMeta);
        return TPropBuilder<T>(FMeta.AddProperty(*inherited));
    }

private:
    // A data member is written as its own type; a setter function gets the
    // getter's type and converts from it as C++ would.
    template <class V, class S>
    static TPropSetProc MakeSetProc(S setter, TypInfoImpl::TStorage storage, bool currency)
    {
        using namespace TypInfoImpl;
        if constexpr (std::is_member_object_pointer_v<S>) {
            using F = TAccessorValue<T, S>;
            return [setter, storage, currency](TObject* obj, const TPropValue& value) {
                std::invoke(setter, Instance<T>(obj)) = FromValue<F>(value, storage, currency);
            };
        } else {
            static_assert(std::is_invocable_v<S, T&, V>, "the setter must accept the getter's type");
            return [setter, storage, currency](TObject* obj, const TPropValue& value) {
                std::invoke(setter, Instance<T>(obj), FromValue<V>(value, storage, currency));
            };
        }
    }

    TMetaClass& FMeta;
};

// Builds a class's metaclass from what the class offers: a factory when it
// has a public (owner) or (collection) constructor, its own
// DeclareProperties when it declares one.
template <class Self, class Parent>
struct TClassTraits {
    // Through decltype: an overloaded or missing DeclareProperties counts as none.
    template <class C>
    static constexpr bool HasDeclaration = requires { typename std::type_identity<decltype(&C::DeclareProperties)>::type; };

    static constexpr bool HasOwnDeclaration()
    {
        if constexpr (HasDeclaration<Self>)
            return std::is_same_v<decltype(&Self::DeclareProperties), void (*)(TClassBuilder<Self>&)>;
        else
            return false;
    }

    static constexpr bool DeclarationIsInherited()
    {
        if constexpr (!HasDeclaration<Self>)
            return true;
        else if constexpr (HasDeclaration<Parent>)
            return std::is_same_v<decltype(&Self::DeclareProperties), decltype(&Parent::DeclareProperties)>;
        else
            return false;
    }

    static TMetaClass::TComponentFactory Factory()
    {
        if constexpr (std::is_base_of_v<TComponent, Self> && std::is_constructible_v<Self, TComponent*> &&
                      !std::is_abstract_v<Self>)
            return [](TComponent* owner) -> TComponent* { return new Self(owner); };
        else
            return nullptr;
    }

    static TMetaClass::TItemFactory ItemFactory()
    {
        if constexpr (std::is_base_of_v<TCollectionItem, Self> && std::is_constructible_v<Self, TCollection*> &&
                      !std::is_abstract_v<Self>)
            return [](TCollection* collection) -> TCollectionItem* { return new Self(collection); };
        else
            return nullptr;
    }

    static TMetaClass::TDeclareProc Declarer()
    {
        if constexpr (HasOwnDeclaration()) {
            return [](TMetaClass& meta) {
                TClassBuilder<Self> builder(meta);
                Self::DeclareProperties(builder);
            };
        } else {
            static_assert(DeclarationIsInherited(),
                          "DeclareProperties must be declared as static void DeclareProperties(TClassBuilder<Self>&)");
            return nullptr;
        }
    }
};

// Put first in the body of every class below TObject. It makes the class's
// metaclass (Self::ClassInfo()), ClassType() and `inherited`, and leaves the
// section private. The friend is named with :: so that a class inside an
// unnamed namespace befriends the real TClassTraits, not a new one.
#define QZ_CLASS(Self, Parent)                                                                     \
    template <class, class>                                                                        \
    friend struct ::TClassTraits;                                                                  \
                                                                                                   \
public:                                                                                            \
    using inherited = Parent;                                                                      \
    static TMetaClass* ClassInfo()                                                                 \
    {                                                                                              \
        using Traits = TClassTraits<Self, Parent>;                                                 \
        static TMetaClass meta(#Self, Parent::ClassInfo(), Traits::Factory(), Traits::ItemFactory(), \
                               Traits::Declarer());                                                \
        return &meta;                                                                              \
    }                                                                                              \
    TMetaClass* ClassType() const override { return ClassInfo(); }                                 \
                                                                                                   \
private:

// C++Builder's __classid(T).
template <class T>
TMetaClass* ClassOf()
{
    return T::ClassInfo();
}
