// The suite's fixed number notation and decimal rounding.

#include "runtime/util/QzNumeric.h"

#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

TEST(Numeric, WritesTheShortestFixedForm)
{
    const struct {
        double Value;
        const char* Text;
    } cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-1.5, "-1.5"},
        {0.1, "0.1"},
        {2.675, "2.675"},
        {1e20, "100000000000000000000"},
        {1e-7, "0.0000001"},
        {123456789.125, "123456789.125"},
        {1.0 / 3, "0.3333333333333333"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(QzCNumericToStr(c.Value), c.Text);
    EXPECT_EQ(QzCNumericToStr(5e-324), "0." + AnsiString(323, '0') + "5");
}

TEST(Numeric, ReadsBackEveryDoubleExactly)
{
    std::mt19937_64 rng(7);
    const double specials[] = {std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
                               std::numeric_limits<double>::denorm_min(), -123.456, 9007199254740993.0};
    for (double v : specials)
        EXPECT_EQ(QzCStrToNumeric(QzCNumericToStr(v)), v) << QzCNumericToStr(v);
    for (int i = 0; i < 20000; ++i) {
        // Random bit patterns cover every exponent, not only "nice" values.
        const std::uint64_t bits = rng();
        double v;
        std::memcpy(&v, &bits, sizeof v);
        if (!std::isfinite(v))
            continue;
        const AnsiString text = QzCNumericToStr(v);
        ASSERT_EQ(text.find_first_of("eE,+"), AnsiString::npos) << text;
        ASSERT_EQ(QzCStrToNumeric(text), v) << text;
    }
}

TEST(Numeric, AcceptsOnlyTheFixedNotation)
{
    const struct {
        const char* Text;
        double Value;
    } good[] = {{" 12 ", 12}, {"-0.5", -0.5}, {".5", 0.5}, {"5.", 5}, {"007", 7}};
    for (const auto& c : good)
        EXPECT_EQ(QzCStrToNumeric(c.Text), c.Value) << c.Text;

    for (const char* bad : {"", " ", "-", ".", "1,5", "1e5", "+1", "1 000", "0x10", "nan", "inf", "1.2.3", "--1",
                            "1e400"}) {
        try {
            QzCStrToNumeric(bad);
            ADD_FAILURE() << "accepted: '" << bad << "'";
        } catch (const EConvertError& e) {
            EXPECT_EQ(e.Message(), Format("'%s' is not a valid number", bad));
        }
    }
    // Digits beyond the range of a double are refused, not turned into infinity.
    EXPECT_THROW(QzCStrToNumeric("1" + AnsiString(400, '0')), EConvertError);
}

TEST(Numeric, NonFiniteValuesHaveNoText)
{
    EXPECT_THROW(QzCNumericToStr(std::numeric_limits<double>::quiet_NaN()), EConvertError);
    EXPECT_THROW(QzCNumericToStr(-std::numeric_limits<double>::infinity()), EConvertError);
}

TEST(Numeric, RoundsHalvesAwayFromZeroOnTheWrittenDigits)
{
    const struct {
        double Value;
        int Decimals;
        double Expected;
    } cases[] = {
        {2.675, 2, 2.68},   {-2.675, 2, -2.68},  {1.005, 2, 1.01},  {2.5, 0, 3},       {-2.5, 0, -3},
        {0.5, 0, 1},        {0.49, 0, 0},        {1.2345, 3, 1.235}, {1.2344, 3, 1.234}, {9.995, 2, 10},
        {999.5, 0, 1000},   {1234.5, -1, 1230},  {1250, -2, 1300},  {0.004, 1, 0},     {0.05, 1, 0.1},
        {1.5, 5, 1.5},      {0, 2, 0},           {-0.004, 2, 0},    {123, -5, 0},      {0.125, 2, 0.13},
    };
    for (const auto& c : cases)
        EXPECT_EQ(QzRoundDec(c.Value, c.Decimals), c.Expected) << c.Value << " to " << c.Decimals;
    EXPECT_FALSE(std::signbit(QzRoundDec(-0.004, 2))) << "a value rounded to nothing is plain zero";
    EXPECT_TRUE(std::isnan(QzRoundDec(std::nan(""), 2)));
    EXPECT_EQ(QzRoundDec(std::numeric_limits<double>::max(), -308), std::numeric_limits<double>::infinity());
}

} // namespace
