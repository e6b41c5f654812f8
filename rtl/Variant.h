#pragma once
// A small Variant: the handful of value types that published properties and
// form streams carry, with the class library's conversion rules between them.

#include "rtl/SysUtils.h"

#include <concepts>
#include <type_traits>
#include <variant>

// The numbers are the class library's own, so code that prints or compares
// them sees familiar values.
enum TVarType {
    varEmpty = 0x0000,
    varNull = 0x0001,
    varInteger = 0x0003,
    varDouble = 0x0005,
    varDate = 0x0007,
    varBoolean = 0x000B,
    varString = 0x0100,
};

class Variant {
public:
    Variant() = default;
    Variant(bool value) : FValue(value) {}
    template <std::integral I>
        requires(!std::same_as<I, bool>)
    Variant(I value) : FValue(static_cast<Int64>(value)) {}
    template <std::floating_point F>
    Variant(F value) : FValue(static_cast<double>(value)) {}
    Variant(AnsiString value) : FValue(std::move(value)) {}
    Variant(const char* value) : FValue(AnsiString(value)) {}
    // Any other pointer would quietly become a Boolean.
    template <class T>
        requires(!std::same_as<std::remove_cv_t<T>, char>)
    Variant(T*) = delete;

    // TDateTime is a double, so a date needs its own way in.
    static Variant FromDateTime(TDateTime value);
    static Variant MakeNull();

    TVarType VarType() const;
    bool IsEmpty() const { return FValue.index() == 0; }
    bool IsNull() const { return std::holds_alternative<NullTag>(FValue); }

    // Empty converts to 0, "" and false; Null and text that is not a number
    // raise EVariantError. True converts to -1 as a number.
    Int64 AsInteger() const;
    double AsFloat() const;
    AnsiString AsString() const;
    bool AsBoolean() const;
    TDateTime AsDateTime() const;

    // Equal when both hold the same kind and value, or when both can be read
    // as numbers (or as booleans) that are equal: Variant("12") == 12.
    bool operator==(const Variant& other) const;

private:
    struct NullTag {
        bool operator==(const NullTag&) const = default;
    };
    struct DateTag {
        TDateTime Value;
        bool operator==(const DateTag&) const = default;
    };
    using Storage = std::variant<std::monostate, NullTag, Int64, double, AnsiString, bool, DateTag>;
    Storage FValue;

    [[noreturn]] void ConversionError(TVarType target) const;
};

// Delphi's helpers under their usual names.
inline Variant Null() { return Variant::MakeNull(); }
inline Variant Unassigned() { return Variant(); }
inline Variant VarFromDateTime(TDateTime value) { return Variant::FromDateTime(value); }
// Like AsString, but Null gives "" instead of raising.
AnsiString VarToStr(const Variant& value);
// "String", "Integer", ... as conversion messages name them.
AnsiString VarTypeAsText(TVarType type);
