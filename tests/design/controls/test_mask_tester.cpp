// The mask editor's tester: which inputs an edit with the mask would take.

#include "design/controls/QzMaskTester.h"

#include <gtest/gtest.h>

namespace {

TEST(MaskTester, InputsAreTakenOrRefusedAsTheOptionsSay)
{
    struct Case {
        TQzDataType Type;
        Integer Size;
        Integer Decimals;
        const char* Mask;
        const char* Input;
        bool Accepted;
        const char* Value;  // when accepted
    };
    const Case cases[] = {
        // strings: classes, case, trimming, size
        {qdtString, 0, 0, "", "Hello world!", true, "Hello world!"},
        {qdtString, 0, 0, "<ad", "abc12", true, "abc12"},
        {qdtString, 0, 0, "<ad", "abc 12", false, ""},
        {qdtString, 0, 0, "<d", "12a", false, ""},
        {qdtString, 0, 0, "<sadwu", "mixed Case", true, "MIXED CASE"},
        {qdtString, 0, 0, "<sadwl", "MIXED", true, "mixed"},
        {qdtString, 0, 0, "<sadwf", "name", true, "Name"},
        {qdtString, 0, 0, "<sadw", "  pad  ", true, "pad"},
        {qdtString, 0, 0, "<sadwt", "  pad  ", true, "  pad  "},
        {qdtString, 3, 0, "<sadw", "abcd", false, ""},
        {qdtString, 3, 0, "<sadw$", "ab", false, ""},
        {qdtString, 3, 0, "<sadw$", "abc", true, "abc"},
        // strings with a mask text, typed with or without its literals
        {qdtString, 0, 0, "<d;(###)###-####", "5551234567", true, "5551234567"},
        {qdtString, 0, 0, "<d;(###)###-####", "(555)123-4567", true, "5551234567"},
        {qdtString, 0, 0, "<d;(###)###-####", "(555)123 4567", false, ""},
        {qdtString, 0, 0, "<d;(###)###-####", "555123456789", false, ""},
        {qdtString, 0, 0, "<d;(###)###-####", "555abc4567", false, ""},
        {qdtString, 0, 0, "<d$;(###)###-####", "555", false, ""},
        {qdtString, 0, 0, "<dm;(###)###-####;*", "555123", true, "(555)123-****"},
        // numbers
        {qdtInteger, 0, 0, ">", "123", true, "123"},
        {qdtInteger, 0, 0, ">", "-5", false, ""},
        {qdtInteger, 0, 0, ">-", "-5", true, "-5"},
        {qdtInteger, 0, 0, ">-*", "5-", true, "-5"},
        {qdtInteger, 0, 0, ">-", "+5", false, ""},
        {qdtInteger, 0, 0, ">+", "+5", true, "5"},
        {qdtInteger, 0, 0, ">", "12.5", false, ""},
        {qdtInteger, 0, 0, ">", "1,234", false, ""},
        {qdtInteger, 0, 0, ">.", "1,234", true, "1234"},
        {qdtInteger, 0, 0, ">.", "12,34", false, ""},
        {qdtInteger, 4, 0, ">", "12345", false, ""},
        {qdtInteger, 4, 0, ">0", "42", true, "0042"},
        {qdtInteger, 4, 0, ">$", "42", false, ""},
        {qdtInteger, 0, 0, ">", "abc", false, ""},
        {qdtInteger, 0, 0, ">", "", true, ""},
        {qdtInteger, 0, 0, ">", "1e5", false, ""},
        {qdtInteger, 0, 0, ">4", "1e5", true, "1e5"},
        {qdtFloat, 6, 2, ">-", "-3.75", true, "-3.75"},
        {qdtFloat, 6, 2, ">-", "3.755", false, ""},
        {qdtFloat, 6, 2, ">-", "1.5.1", false, ""},
        {qdtFloat, 6, 2, ">-k", "12345.5", false, ""},
        {qdtFloat, 6, 2, ">-", "12345.5", true, "12345.5"},
        {qdtCurrency, 0, 0, "", "1,234.56", true, "1234.56"},     // the default has thousands
        // dates and times
        {qdtDateTime, 0, 0, "", "25/12/2024", true, "25/12/2024"},
        {qdtDateTime, 0, 0, "", "31/02/2024", false, ""},
        {qdtDateTime, 0, 0, "", "29-2-24", true, "29-2-24"},
        {qdtDateTime, 0, 0, "", "29-2-23", false, ""},
        {qdtDateTime, 0, 0, "", "25/13/2024", false, ""},
        {qdtDateTime, 0, 0, "", "25/12", false, ""},
        {qdtDateTime, 0, 0, "<hns", "12:30:45", true, "12:30:45"},
        {qdtDateTime, 0, 0, "<hns", "24:00:00", false, ""},
        {qdtDateTime, 0, 0, "<hna", "9:05 PM", true, "9:05 PM"},
        {qdtDateTime, 0, 0, "<hna", "13:05 PM", false, ""},
        {qdtDateTime, 0, 0, "<hn", "9:05 PM", false, ""},
        {qdtDateTime, 0, 0, "<1d2y", "Monday 3 March 2025", true, "Monday 3 March 2025"},
        {qdtDateTime, 0, 0, "<DdMy", "Mon 3 Mar 2025", true, "Mon 3 Mar 2025"},
        {qdtDateTime, 0, 0, "<DdMy", "Mon 3 March 2025", false, ""},
        {qdtDateTime, 0, 0, "<dm", "29/2", true, "29/2"},
        {qdtDateTime, 0, 0, "<c", "1:2:3", true, "1:2:3"},
        {qdtDateTime, 0, 0, "<x", "1:2:3", false, ""},
    };
    for (const Case& c : cases) {
        const TQzMaskVerdict v = QzMaskCheck({c.Type, c.Size, c.Decimals, c.Mask}, c.Input);
        EXPECT_EQ(v.Accepted, c.Accepted) << "type " << c.Type << " mask \"" << c.Mask << "\" input \"" << c.Input
                                          << "\": " << v.Reason;
        if (c.Accepted)
            EXPECT_EQ(v.Value, c.Value) << c.Mask << " " << c.Input;
        else
            EXPECT_FALSE(v.Reason.empty()) << "a refusal says why: " << c.Mask << " " << c.Input;
    }
}

TEST(MaskTester, TheMaskTextBecomesAQtInputMask)
{
    struct Case {
        TQzDataType Type;
        const char* Mask;
        const char* Qt;
    };
    const Case cases[] = {
        {qdtString, "<d;(###)###-####", "\\(000\\)000\\-0000;_"},
        {qdtString, "<d$;##", "99;_"},
        {qdtString, "<au;##;*", ">aa;*"},
        {qdtString, "<ad;#-#", "n\\-n;_"},
        {qdtString, "<sadw", ""},
        {qdtInteger, ">;###", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(QzMaskQtInputMask({c.Type, 0, 0, c.Mask}), c.Qt) << c.Mask;
}

}  // namespace
