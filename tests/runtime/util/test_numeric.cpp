// The suite's fixed number notation and decimal rounding.

#include "runtime/util/QzNumeric.h"

#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

TEST(Numeric, WritesTheShortestFixedFormAndReadsEveryDoubleBack)
{
    const struct {
        double Value;
        AnsiString Text;
    } cases[] = {
        {0, "0"}, {-0.0, "0"}, {-1.5, "-1.5"}, {0.1, "0.1"}, {2.675, "2.675"},
        {1e20, "100000000000000000000"}, {1e-7, "0.0000001"}, {1.0 / 3, "0.3333333333333333"},
        {5e-324, "0." + AnsiString(323, '0') + "5"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(QzCNumericToStr(c.Value), c.Text);
    std::mt19937_64 rng(7);
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
    EXPECT_THROW(QzCNumericToStr(std::numeric_limits<double>::quiet_NaN()), EConvertError);
    EXPECT_THROW(QzCNumericToStr(-std::numeric_limits<double>::infinity()), EConvertError);
}

TEST(Numeric, AcceptsOnlyTheFixedNotation)
{
    EXPECT_EQ(QzCStrToNumeric(" 12 "), 12);
    EXPECT_EQ(QzCStrToNumeric(".5"), 0.5);
    EXPECT_EQ(QzCStrToNumeric("-5."), -5);
    for (const AnsiString& bad : std::initializer_list<AnsiString>{"", "-", ".", "1,5", "1e5", "+1", "1 000", "0x10", "nan", "inf", "1.2.3",
                           "1" + AnsiString(400, '0')}) {
        try {
            QzCStrToNumeric(bad);
            ADD_FAILURE() << "accepted: '" << bad << "'";
        } catch (const EConvertError& e) {
            EXPECT_EQ(e.Message(), Format("'%s' is not a valid number", bad));
        }
    }
}

TEST(Numeric, RoundsHalvesAwayFromZeroOnTheWrittenDigits)
{
    const struct {
        double Value;
        int Decimals;
        double Expected;
    } cases[] = {
        {2.675, 2, 2.68}, {-2.675, 2, -2.68}, {1.005, 2, 1.01}, {2.5, 0, 3},  {-2.5, 0, -3},  {0.49, 0, 0},
        {9.995, 2, 10},   {1234.5, -1, 1230}, {1250, -2, 1300}, {0.05, 1, 0.1}, {1.5, 5, 1.5}, {123, -5, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(QzRoundDec(c.Value, c.Decimals), c.Expected) << c.Value << " to " << c.Decimals;
    EXPECT_FALSE(std::signbit(QzRoundDec(-0.004, 2))) << "a value rounded to nothing is plain zero";
    EXPECT_EQ(QzRoundDec(std::numeric_limits<double>::max(), -308), std::numeric_limits<double>::infinity());
}

} // namespace
