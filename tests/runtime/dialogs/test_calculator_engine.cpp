// The calculator without its window: key sequences and what the display
// shows after them, the numbers' text, and what a caller gets back.

#include "runtime/dialogs/QzCalculatorEngine.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace {

// Keys as typed on the keyboard (digits . , + - * / = %), plus letters for
// the keys that have none: r √, i 1/x, n ±, b Backspace, e CE, c C, and the
// memory: Z MC, R MR, S MS, A M+. Blanks are for the reader.
void Keys(TQzCalculatorEngine& engine, const std::string& keys)
{
    using enum TQzCalcKey;
    static const std::map<char, TQzCalcKey> letters = {{'r', Sqrt}, {'i', Reciprocal}, {'n', Negate},
        {'b', Backspace}, {'e', ClearEntry}, {'c', Clear}, {'Z', MemoryClear}, {'R', MemoryRecall},
        {'S', MemoryStore}, {'A', MemoryAdd}};
    for (char c : keys) {
        if (const auto key = QzCalcKeyOfChar(c))
            engine.Press(*key);
        else if (letters.contains(c))
            engine.Press(letters.at(c));
        else
            ASSERT_EQ(c, ' ') << "no key for it";
    }
}

struct TKeysCase {
    const char* Keys;
    const char* Display;
    const char* Pending = "";
};

void ExpectDisplays(const std::vector<TKeysCase>& cases)
{
    for (const TKeysCase& c : cases) {
        SCOPED_TRACE(c.Keys);
        TQzCalculatorEngine engine;
        Keys(engine, c.Keys);
        EXPECT_EQ(engine.Display(), c.Display);
        EXPECT_EQ(engine.PendingText(), c.Pending);
    }
}

TEST(CalculatorEngine, TypingANumber)
{
    ExpectDisplays({
        {"", "0"}, {"0012", "12"}, {"1..5", "1.5"}, {",5", "0.5"}, {"1.50=", "1.5"},
        {"1234567890 123456789 0", "123456789012345678"},
        {"0.00000000 000000000 19", "0.000000000000000001"},
        {"12b", "1"}, {"1.b", "1"}, {"1bb", "0"}, {"12n", "-12"}, {"12n bb", "0"}, {"0n", "0"}, {"0.n5", "-0.5"},
        // A result is not edited; typing starts a new number.
        {"2+3=7", "7"}, {"2+3=.", "0."}, {"2+3=b", "5"}, {"5S3", "3"},
    });
}

TEST(CalculatorEngine, OperationsChainLeftToRightAndEqualsRepeats)
{
    ExpectDisplays({
        {"2+3*", "5", "5 \u00d7"}, {"2+3*4=", "20"}, {"2+*3=", "6"}, {"7/2=", "3.5"}, {"5-8=", "-3"},
        {"3-3=", "0"}, {"5n+5=", "0"}, {"1/3*3=", "1"}, {"0.1+0.2=", "0.3"}, {"2/3=", "0.666666666666666667"},
        {"2+=", "4"}, {"2+3==", "8"}, {"2+3===", "11"}, {"10-2=7=", "5"}, {"2+3=*4=", "20"},
        {"200+10%", "20", "200 +"}, {"200+10%=", "220"}, {"200-10%=", "180"}, {"200*10%=", "20"}, {"50%", "0.5"},
        {"9r", "3"}, {"2r", "1.41421356237309505"}, {"5+4r=", "7"}, {"4i", "0.25"}, {"3n+5=", "2"}, {"5+n=", "0"},
    });
}

TEST(CalculatorEngine, ClearingAndMemory)
{
    ExpectDisplays({
        {"2+3e4=", "6"}, {"2+e=", "2"}, {"2+3c", "0"}, {"2+3c4=", "4"},
        {"5S c R", "5"}, {"5S 2A c R", "7"}, {"5S Z R", "0"}, {"5S 2+R=", "7"}, {"5S 1+2= R", "5"},
    });
    TQzCalculatorEngine engine;
    Keys(engine, "5S");
    EXPECT_TRUE(engine.HasMemory());
    Keys(engine, "Z");
    EXPECT_FALSE(engine.HasMemory());
}

TEST(CalculatorEngine, ErrorsHoldUntilClearOrClearEntry)
{
    ExpectDisplays({
        {"5/0", "0", "5 \u00f7"}, {"5/0=", "Error"}, {"0/0=", "Error"}, {"0i", "Error"}, {"9nr", "Error"},
        {"5/0=3+1=S", "Error"}, {"5/0=c", "0"}, {"5/0=e7", "7"}, {"5+1/0=e=", "0"},
        // 2 squared 13 times is 2^8192, exactly; once more leaves Extended's range.
        {"2 *=*=*=*=*=*=*=*=*=*=*=*=*=", "1.09074813561941593e+2466"},
        {"2 *=*=*=*=*=*=*=*=*=*=*=*=*=*=", "Error"},
    });
    TQzCalculatorEngine engine;
    Keys(engine, "7S 5/0= R A Z");
    EXPECT_TRUE(engine.IsError());
    Keys(engine, "c R");
    EXPECT_EQ(engine.Display(), "7") << "the memory outlives an error";
}

TEST(CalculatorEngine, TheDisplayHoldsEighteenDigitsAndSwitchesToExponents)
{
    ExpectDisplays({
        {"123456789*1000000000=", "123456789000000000"}, {"123456789*1000000000*10=", "1.23456789e+18"},
        {"1/1000000=", "0.000001"}, {"1/10000000=", "1e-7"}, {"10n/4=", "-2.5"},
    });
    EXPECT_EQ(QzCalcFormat(-0.0L), "0");
    EXPECT_EQ(QzCalcFormat(999999999999999999.4L), "999999999999999999");
    EXPECT_EQ(QzCalcFormat(999999999999999999.6L), "1e+18");
}

TEST(CalculatorEngine, StartsFromAValueAndRefusesWhatIsNoNumber)
{
    TQzCalculatorEngine engine;
    Keys(engine, "3S 2+");
    ASSERT_TRUE(engine.SetValue(-12.5L));
    EXPECT_EQ(engine.Display(), "-12.5");
    EXPECT_FALSE(engine.HasPendingOperation());
    Keys(engine, "4");
    EXPECT_EQ(engine.Display(), "4") << "typing replaces the value given";
    Keys(engine, "R");
    EXPECT_EQ(engine.Display(), "3") << "the memory stays";
    EXPECT_FALSE(engine.SetValue(std::numeric_limits<Extended>::quiet_NaN()));
    EXPECT_FALSE(engine.SetValue(std::numeric_limits<Extended>::infinity()));
    EXPECT_EQ(engine.Display(), "3");
}

TEST(CalculatorEngine, TheResultIsRoundedOnTheDisplayedDigits)
{
    struct TCase {
        const char* Keys;
        int Decimals;
        Extended Expected;
    };
    const TCase cases[] = {
        {"2.675", 2, 2.68L}, {"2.675", 0, 3}, {"2.5n", 0, -3}, {"2.4n", 0, -2}, {"0.004", 2, 0}, {"0.005", 2, 0.01L},
        {"9.999", 2, 10}, {"99.95", 1, 100}, {"1/3=", 4, 0.3333L}, {"5/0=", 2, 0},
        {"1234.5678", -1, 1234.5678L}, {"1234.5678", 19, 1234.5678L},
        // Beyond a double's digits, where rounding a double would change them.
        {"123456789012345678", 2, 123456789012345678.0L}, {"12345678901234567.8", 0, 12345678901234568.0L},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.Keys << " to " << c.Decimals);
        TQzCalculatorEngine engine;
        Keys(engine, c.Keys);
        EXPECT_EQ(engine.Result(c.Decimals), c.Expected);
    }
}

TEST(CalculatorEngine, NumbersAreReadOnlyInTheDisplaysNotation)
{
    for (const char* text : {"", "-", ".5", "1.2.3", "1e", "1e+", "1x", "+1", " 1", "1e999999999", "1,5"}) {
        Extended value = 7;
        EXPECT_FALSE(QzCalcParse(text, value)) << text;
        EXPECT_FALSE(QzCalcRound(text, 2, value)) << text;
        EXPECT_EQ(value, 7) << text;
    }
    const std::pair<const char*, Extended> good[] = {
        {"12.", 12}, {"-0.5", -0.5L}, {"1e+20", 1e20L}, {"2.5e-9", 2.5e-9L}, {"0.000001", 1e-6L}};
    for (const auto& [text, expected] : good) {
        Extended value = 0;
        EXPECT_TRUE(QzCalcParse(text, value)) << text;
        EXPECT_EQ(value, expected) << text;
    }
}

}  // namespace
