// The scanner's line tokenizer, rule by rule, and the value rule that
// compares what a form holds with what is searched.

#include "design/manager/QzFormTokens.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> Tokens(std::string_view line)
{
    TQzTokens tokens;
    GetListTokens(tokens, line);
    return {tokens.begin(), tokens.end()};
}

struct TTokenCase {
    const char* Rule;
    std::string Line;
    std::vector<std::string> Expected;
};

const TTokenCase TokenCases[] = {
    // Codes 1 to 32 are skipped at the start and after separators.
    {"skip", "    Left = 8", {"Left", "=", "8"}},
    {"skip", "\t\x01\x1f Width=3", {"Width", "=", "3"}},
    {"skip", "", {}},
    {"skip", "   \t  ", {}},
    // ':' is a token of its own.
    {"colon", "object Label1: TQzLabel", {"object", "Label1", ":", "TQzLabel"}},
    {"colon", "object Label1:TQzLabel", {"object", "Label1", ":", "TQzLabel"}},
    {"colon", "inherited Frame1: TFrame1 [0]", {"inherited", "Frame1", ":", "TFrame1", "[0]"}},
    {"colon", "Hint = a:b", {"Hint", "=", "a", ":", "b"}},
    // '=' is a token, and after it '.' and ' ' no longer split.
    {"equal", "A.B.C = 1.5", {"A", "B", "C", "=", "1.5"}},
    {"equal", "Caption = 'a.b c'", {"Caption", "=", "'a.b c'"}},
    {"equal", "Text = two words", {"Text", "=", "two words"}},
    {"equal", "Font.Name = 'Arial'", {"Font", "Name", "=", "'Arial'"}},
    {"equal", "X = 1 = 2", {"X", "=", "1", "=", "2"}},
    // Before '=', '.' and ' ' end a token and are dropped.
    {"dot", "SetBackGround.Name = 'Blue'", {"SetBackGround", "Name", "=", "'Blue'"}},
    {"dot", "a..b  c = 1", {"a", "b", "c", "=", "1"}},
    // A quote drops the pending text; the quoted token keeps its quotes.
    {"quote", "x'abc'", {"'abc'"}},
    {"quote", "Caption = pre'abc'", {"Caption", "=", "'abc'"}},
    {"quote", "Caption = 'a' + 'b'", {"Caption", "=", "'b'"}},
    {"quote", "Caption = 'It''s'", {"Caption", "=", "'s'"}},
    {"quote", "Caption = 'ab'cd", {"Caption", "=", "'ab'cd"}},
    {"quote", "'one = two'", {"'one = two'"}},
    // An unclosed quote runs to the end of the line.
    {"unclosed", "Caption = 'open. to: end", {"Caption", "=", "'open. to: end"}},
    {"unclosed", "Caption = 'open   ", {"Caption", "=", "'open"}},
    // Tokens are trimmed; characters that are not blanks stay.
    {"trim", "Name\t = v \t", {"Name", "=", "v"}},
    {"trim", "Items = <", {"Items", "=", "<"}},
    {"trim", "  end>", {"end>"}},
    {"trim", "DataSources = <>", {"DataSources", "=", "<>"}},
};

TEST(FormTokens, SplitLinesByTheTokenizerRules)
{
    for (const TTokenCase& c : TokenCases)
        EXPECT_EQ(Tokens(c.Line), c.Expected) << c.Rule << ": " << c.Line;
}

TEST(FormTokens, TheTokenListIsClearedAndAskedByIndex)
{
    TQzTokens tokens;
    GetListTokens(tokens, "object Label1: TQzLabel");
    GetListTokens(tokens, "Left = 8");
    ASSERT_EQ(tokens.size(), 3u);
    EXPECT_EQ(GetToken(tokens, 0), "Left");
    EXPECT_EQ(GetToken(tokens, 2), "8");
    EXPECT_EQ(GetToken(tokens, 3), "");
    EXPECT_EQ(GetToken(tokens, -1), "");
}

TEST(FormTokens, TheFirstEqualOrColonIsFound)
{
    const std::pair<const char*, int> cases[] = {
        {"Caption.Id = 5", 2}, {"object A: TB", 2}, {"end", -1}, {"'a = b'", -1}, {"= 1", 0}};
    for (const auto& [line, index] : cases) {
        TQzTokens tokens;
        GetListTokens(tokens, line);
        EXPECT_EQ(ScannerTokensEqual(tokens), index) << line;
    }
}

struct TValueCase {
    std::string Line;
    std::string Decoded;
};

const TValueCase ValueCases[] = {
    {"Caption.PkgName = 'DEMO'", "DEMO"},
    {"Caption.PkgName = DEMO", "DEMO"},
    {"Id = 25", "25"},
    {"Name = 'It''s'", "It's"},
    {"Name = 'a'#39'b'", "a'b"},
    {"Name = #68#69'MO'", "DEMO"},
    {"Name = #$44'EMO'", "DEMO"},
    {"Name = 'Gr'#252'n'", "Gr\xC3\xBCn"},
    {"Name = #1055#1088", "\xD0\x9F\xD1\x80"},
    {"Name = 'one' + 'two'", "onetwo"},
    {"Name = 'a = b'", "a = b"},
    {"Name = ''", ""},
    {"Name = 'open", "'open"},
    {"Name = #", "#"},
    {"Name = 'a' x", "'a' x"},
    {"'no equal'", ""},
};

TEST(FormTokens, ValuesAreComparedByTheirContent)
{
    for (const TValueCase& c : ValueCases)
        EXPECT_EQ(QzDecodeValue(QzValueText(c.Line)), c.Decoded) << c.Line;
}

TEST(FormTokens, ValuesMatchWithoutRegardToCase)
{
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"'DEMO'", "demo", true},      {"demo", "DEMO", true},       {"'DEMO'", "'DEMO'", false},
        {"'It''s'", "IT'S", true},     {"'a'#39'b'", "A'B", true},   {"'DEMO2'", "DEMO", false},
        {"25", "25", true},            {"025", "25", false},         {"'Blue'", "Blue ", false},
        {"", "", true},                {"'x", "x", false},
    };
    for (const auto& [value, searched, same] : cases)
        EXPECT_EQ(QzSameValue(value, searched), same) << value << " vs " << searched;
}

}  // namespace
