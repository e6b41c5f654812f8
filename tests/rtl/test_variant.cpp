#include "rtl/Variant.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct TIntegerCase {
    Variant Value;
    Int64 Expected;
};

TEST(Variant, ConvertsToInteger)
{
    const TIntegerCase cases[] = {
        {Variant(), 0},       {Variant(42), 42},        {Variant("12"), 12},        {Variant(" -7 "), -7},
        {Variant("$1F"), 31}, {Variant("0x10"), 16},    {Variant("2.5"), 2},        {Variant(3.5), 4},
        {Variant(-2.5), -2},  {Variant(true), -1},      {Variant(false), 0},        {VarFromDateTime(1.75), 2},
        {Variant("9223372036854775807"), INT64_MAX},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.Value.AsInteger(), c.Expected) << VarToStr(c.Value);
}

TEST(Variant, ConvertsToFloatAndBoolean)
{
    EXPECT_DOUBLE_EQ(Variant("1.25").AsFloat(), 1.25);
    EXPECT_DOUBLE_EQ(Variant("+3E2").AsFloat(), 300);
    EXPECT_DOUBLE_EQ(Variant(7).AsFloat(), 7);
    EXPECT_DOUBLE_EQ(Variant().AsFloat(), 0);
    EXPECT_DOUBLE_EQ(VarFromDateTime(2.5).AsDateTime(), 2.5);
    EXPECT_DOUBLE_EQ(Variant("2023-03-15 12:00:00").AsDateTime(), 45000.5);
    EXPECT_THROW(Variant("soon").AsDateTime(), EVariantError);

    const std::pair<Variant, bool> booleans[] = {
        {Variant("True"), true}, {Variant("false"), false}, {Variant(" TRUE "), true}, {Variant("0"), false},
        {Variant("2"), true},    {Variant(0.0), false},     {Variant(-1), true},       {Variant(), false},
    };
    for (const auto& [value, expected] : booleans)
        EXPECT_EQ(value.AsBoolean(), expected) << VarToStr(value);
}

TEST(Variant, ConvertsToString)
{
    const std::pair<Variant, const char*> cases[] = {
        {Variant(), ""},
        {Variant(-12), "-12"},
        {Variant(1.5), "1.5"},
        {Variant(0.1), "0.1"},
        {Variant(1e20), "1E20"},
        {Variant(1.5e-7), "1.5E-7"},
        {Variant(true), "True"},
        {Variant(false), "False"},
        {Variant("text"), "text"},
        {VarFromDateTime(0), "1899-12-30"},
        {VarFromDateTime(45000.5), "2023-03-15 12:00:00"},
    };
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(value.AsString(), expected);
}

TEST(Variant, FailedConversionsNameBothTypes)
{
    const auto message = [](auto&& convert) {
        try {
            convert();
        } catch (const EVariantError& e) {
            return e.Message();
        }
        return AnsiString("no error");
    };
    EXPECT_EQ(message([] { (void)Variant("abc").AsInteger(); }),
              "Could not convert variant of type (String) into type (Integer)");
    EXPECT_EQ(message([] { (void)Null().AsFloat(); }), "Could not convert variant of type (Null) into type (Double)");
    EXPECT_EQ(message([] { (void)Null().AsString(); }), "Could not convert variant of type (Null) into type (String)");
    EXPECT_EQ(message([] { (void)Variant("yes").AsBoolean(); }),
              "Could not convert variant of type (String) into type (Boolean)");
    EXPECT_EQ(message([] { (void)Variant(1e300).AsInteger(); }),
              "Could not convert variant of type (Double) into type (Integer)");
    EXPECT_EQ(message([] { (void)Variant("99999999999999999999").AsInteger(); }),
              "Could not convert variant of type (String) into type (Integer)");
    EXPECT_EQ(message([] { (void)Variant("").AsFloat(); }), "Could not convert variant of type (String) into type (Double)");
}

TEST(Variant, KnowsItsTypeAndNullReadsAsEmptyText)
{
    EXPECT_TRUE(Variant().IsEmpty());
    EXPECT_TRUE(Null().IsNull() && !Null().IsEmpty());
    EXPECT_EQ(Variant(2.0f).VarType(), varDouble);
    EXPECT_EQ(Variant("s").VarType(), varString);   // not a bool
    EXPECT_EQ(VarFromDateTime(1).VarType(), varDate);
    EXPECT_EQ(VarToStr(Null()), "");
}

TEST(Variant, ComparesAcrossNumericKinds)
{
    EXPECT_EQ(Variant("12"), Variant(12));
    EXPECT_EQ(Variant(12), Variant(12.0));
    EXPECT_EQ(Variant("True"), Variant(true));
    EXPECT_EQ(Null(), Null());
    EXPECT_NE(Variant("abc"), Variant(0));
    EXPECT_NE(Variant(), Variant(0));
    EXPECT_NE(Null(), Variant());
    EXPECT_NE(Variant("a"), Variant("A"));
}

}  // namespace
