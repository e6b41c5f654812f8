#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <unistd.h>

namespace {

template <class TFn>
AnsiString MessageOf(TFn fn)
{
    try {
        fn();
    } catch (const EConvertError& e) {
        return e.Message();
    }
    return "<no EConvertError>";
}

class SysUtilsFiles : public ::testing::Test {
protected:
    void SetUp() override
    {
        FDir = std::filesystem::temp_directory_path() /
               ("qz_sysutils_" + std::to_string(getpid()) + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(FDir);
        std::filesystem::create_directories(FDir);
    }
    void TearDown() override { std::filesystem::remove_all(FDir); }

    AnsiString PathOf(const AnsiString& name) const { return (FDir / name).string(); }
    void Touch(const AnsiString& name) const { std::ofstream(PathOf(name)) << "x"; }

    std::filesystem::path FDir;
};

} // namespace

// ---- Integers -------------------------------------------------------------

TEST(SysUtilsInt, StrToIntAcceptsDelphiForms)
{
    const std::pair<const char*, Integer> cases[] = {
        {"0", 0}, {" 12", 12}, {"+7", 7}, {"-2147483648", INT32_MIN}, {"2147483647", INT32_MAX},
        {"$FF", 255}, {"0x1f", 31}, {"0X10", 16}, {"-$10", -16}, {"$FFFFFFFF", -1},
        {"$80000000", INT32_MIN}, {"007", 7},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(StrToInt(text), expected) << text;
}

TEST(SysUtilsInt, StrToIntRejectsWithMessage)
{
    for (const char* text : {"", " ", "12 ", "1 2", "2147483648", "-2147483649", "$100000000", "1e3", "$",
                             "-", "0x", "--1", "\t1", "12a", "-$FFFFFFFF"}) {
        EXPECT_EQ(MessageOf([&] { StrToInt(text); }), "'" + AnsiString(text) + "' is not a valid integer value");
        Integer v = 99;
        EXPECT_FALSE(TryStrToInt(text, v)) << text;
        EXPECT_EQ(StrToIntDef(text, -5), -5) << text;
    }
}

TEST(SysUtilsInt, Int64RangeAndHexWrap)
{
    EXPECT_EQ(StrToInt64("-9223372036854775808"), INT64_MIN);
    EXPECT_EQ(StrToInt64("9223372036854775807"), INT64_MAX);
    EXPECT_EQ(StrToInt64("$FFFFFFFFFFFFFFFF"), -1);
    EXPECT_EQ(StrToInt64("4294967296"), 4294967296LL);
    Int64 v = 0;
    EXPECT_FALSE(TryStrToInt64("9223372036854775808", v));
    EXPECT_FALSE(TryStrToInt64("$10000000000000000", v));
    EXPECT_FALSE(TryStrToInt64("99999999999999999999", v));
}

TEST(SysUtilsInt, IntToStrAndHex)
{
    EXPECT_EQ(IntToStr(INT64_MIN), "-9223372036854775808");
    EXPECT_EQ(IntToHex(255, 4), "00FF");
    EXPECT_EQ(IntToHex(0x1ABCD, 2), "1ABCD");
    EXPECT_EQ(IntToHex(-1, 2), "FFFFFFFFFFFFFFFF");
}

// ---- Format ---------------------------------------------------------------

TEST(SysUtilsFormat, Directives)
{
    int x = 0;
    const std::pair<AnsiString, AnsiString> cases[] = {
        {Format("%d|%5d|%-5d|%.3d|%.3d", 42, 42, 42, 7, -7), "42|   42|42   |007|-007"},
        {Format("%u %u", -1, Int64(-1)), "4294967295 18446744073709551615"},
        {Format("%x %X %.4x %x", 255, 255, 10, -1), "FF FF 000A FFFFFFFF"},
        {Format("%x", Int64(-1)), "FFFFFFFFFFFFFFFF"},
        {Format("%s|%6s|%-6s|%.2s", "abc", "abc", "abc", "abc"), "abc|   abc|abc   |ab"},
        {Format("%s%s", 'c', AnsiString("str")), "cstr"},
        {Format("%4s|%.1s", "äö", "äö"), "  äö|ä"},
        {Format("%f|%.0f|%.3f|%f", 1.5, 2.5, -0.0005, -0.001), "1.50|3|-0.001|0.00"},
        {Format("%.2f|%.2f|%.1f", 0.125, 2.675, 0.05), "0.13|2.67|0.1"},
        {Format("%n|%.0n|%n", 1234567.891, 999.5, -1234.5), "1,234,567.89|1,000|-1,234.50"},
        {Format("%m", 1234.5), "1,234.50"},
        {Format("%e|%.3e|%.1e", 1234.5, -0.000123456, 9.96), "1.23450000000000E+003|-1.23E-004|1E+001"},
        {Format("%g|%g|%g|%.2g", 2.0, 0.1, 1e20, 123456789.0), "2|0.1|1E020|1.2E008"},
        {Format("%g|%g|%g", 0.00001, 0.000001234, -1234.5678), "0.00001|1.234E-006|-1234.5678"},
        {Format("%g|%e|%f", 0.0, 0.0, 0.0), "0|0.00000000000000E+000|0.00"},
        {Format("%2:s %1:s %0:s %s", "a", "b", "c"), "c b a b"},
        {Format("%*d|%-*d|%.*f", 4, 1, 3, 2, 1, 3.14159), "   1|2  |3.1"},
        {Format("100%% %D %S", 5, "x"), "100% 5 x"},
        {Format("%p", &x).size() == sizeof(void*) * 2 ? "ok" : "bad size", "ok"},
        {Format("%p", nullptr), AnsiString(sizeof(void*) * 2, '0')},
        {Format("%d %d", 'x' - 'x', 4000000000u), "0 4000000000"},
        {Format("%f %f", std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::infinity()),
         "NAN -INF"},
        {Format("no args"), "no args"},
        {Format("%d-%s", {TVarRec(3), TVarRec("x")}), "3-x"},
    };
    for (const auto& [actual, expected] : cases)
        EXPECT_EQ(actual, expected);
}

TEST(SysUtilsFormat, InvalidOrIncompatibleArgumentsRaise)
{
    const std::pair<const char*, std::function<AnsiString()>> cases[] = {
        {"%d", [] { return Format("%d", "text"); }},
        {"%d", [] { return Format("%d", 1.5); }},
        {"%s", [] { return Format("%s", 42); }},
        {"%f", [] { return Format("%f", 42); }},
        {"%d %d", [] { return Format("%d %d", 1); }},
        {"%k", [] { return Format("%k", 1); }},
        {"abc%", [] { return Format("abc%", 1); }},
        {"%d", [] { return Format("%d", true); }},
        {"%p", [] { return Format("%p", 1); }},
        {"%*d", [] { return Format("%*d", "w", 1); }},
        {"%5:d", [] { return Format("%5:d", 1); }},
    };
    for (const auto& [fmt, call] : cases)
        EXPECT_EQ(MessageOf(call), "Format '" + AnsiString(fmt) + "' invalid or incompatible with argument");
}

// ---- Case and comparison --------------------------------------------------

TEST(SysUtilsCase, AnsiCaseCoversEuropeanScripts)
{
    const std::pair<const char*, const char*> pairs[] = {
        {"ÉLAN ÀÞ", "élan àþ"}, {"Ÿ", "ÿ"}, {"ŐŁŽĹŊ", "őłžĺŋ"}, {"ΑΒΓΣΆΏΪ", "αβγσάώϊ"},
        {"ПРИВЕТ ЁЇ", "привет ёї"}, {"ѢҐӁӐԮ", "ѣґӂӑԯ"}, {"ÆØ×", "æø×"},
    };
    for (const auto& [upper, lower] : pairs) {
        EXPECT_EQ(AnsiUpperCase(lower), upper);
        EXPECT_EQ(AnsiLowerCase(upper), lower);
    }
    EXPECT_EQ(AnsiUpperCase("ıς ſ ß"), "IΣ S ß");
    EXPECT_EQ(AnsiLowerCase("İ"), "i");
    // ASCII-only variants leave other letters alone; broken UTF-8 survives.
    EXPECT_EQ(UpperCase("abc é"), "ABC é");
    EXPECT_EQ(LowerCase("ABC É"), "abc É");
    EXPECT_EQ(AnsiUpperCase("a\xC3(b\xFF"), "A\xC3(B\xFF");
}

TEST(SysUtilsCase, Comparisons)
{
    EXPECT_LT(CompareStr("B", "a"), 0);
    EXPECT_EQ(CompareText("Hello", "hELLO"), 0);
    EXPECT_LT(CompareText("a", "_"), 0);  // letters fold to upper case
    EXPECT_LT(CompareText("ab", "ABC"), 0);
    EXPECT_FALSE(SameText("é", "É"));
    EXPECT_TRUE(AnsiSameText("Ärger", "äRGER"));
    EXPECT_TRUE(AnsiSameText("ΣΊΣΥΦΟΣ", "σίσυφος"));
    EXPECT_GT(AnsiCompareText("b", "A"), 0);
    // Dictionary order: case only breaks ties, lower case first.
    const char* ordered[] = {"a", "A", "ab", "Ab", "b", "B", "é", "É"};
    for (std::size_t i = 0; i + 1 < std::size(ordered); ++i) {
        EXPECT_LT(AnsiCompareStr(ordered[i], ordered[i + 1]), 0) << ordered[i];
        EXPECT_GT(AnsiCompareStr(ordered[i + 1], ordered[i]), 0) << ordered[i];
    }
    EXPECT_EQ(AnsiCompareStr("Same", "Same"), 0);
}

// ---- Trimming, quoting, replacing -----------------------------------------

TEST(SysUtilsText, TrimQuoteReplace)
{
    EXPECT_EQ(Trim("\t\r\n x y \x01\0"), "x y");
    EXPECT_EQ(Trim(AnsiString("\0a\0", 3)), "a");
    EXPECT_EQ(TrimLeft("  a "), "a ");
    EXPECT_EQ(TrimRight("  a \x1f"), "  a");
    EXPECT_EQ(Trim("\xC2\xA0x"), "\xC2\xA0x");

    EXPECT_EQ(QuotedStr("it's"), "'it''s'");
    EXPECT_EQ(AnsiQuotedStr("a\"b", '"'), "\"a\"\"b\"");
    const std::pair<const char*, const char*> dequote[] = {
        {"'it''s'", "it's"}, {"''", ""}, {"plain", "plain"}, {"'open", "'open"}, {"'a'rest", "a"}, {"", ""},
    };
    for (const auto& [in, out] : dequote)
        EXPECT_EQ(AnsiDequotedStr(in, '\''), out) << in;

    EXPECT_EQ(StringReplace("a.b.c", ".", "::"), "a::b.c");
    EXPECT_EQ(StringReplace("a.b.c", ".", "::", rfReplaceAll), "a::b::c");
    EXPECT_EQ(StringReplace("aaa", "aa", "b", rfReplaceAll), "ba");
    EXPECT_EQ(StringReplace("Ab ab AB", "ab", "x", rfReplaceAll), "Ab x AB");
    EXPECT_EQ(StringReplace("Ab ab AB", "ab", "x", rfReplaceAll | rfIgnoreCase), "x x x");
    // Folding changes byte lengths; the untouched text must keep its bytes.
    EXPECT_EQ(StringReplace("ſun·SUN·Ωmega", "SUN", "x", rfReplaceAll | rfIgnoreCase), "x·x·Ωmega");
    EXPECT_EQ(StringReplace("ΣΑΣ σας", "σας", "-", rfReplaceAll | rfIgnoreCase), "- -");
    EXPECT_EQ(StringReplace("abc", "", "x", rfReplaceAll), "abc");
}

// ---- File names -----------------------------------------------------------

TEST(SysUtilsFileName, Components)
{
    struct TCase {
        const char* Name;
        const char* Path;
        const char* Dir;
        const char* File;
        const char* Ext;
    };
    const TCase cases[] = {
        {"/home/u/Unit1.pas", "/home/u/", "/home/u", "Unit1.pas", ".pas"},
        {"Unit1.pas", "", "", "Unit1.pas", ".pas"},
        {"/Unit1", "/", "/", "Unit1", ""},
        {"..\\forms\\Main.dfm", "..\\forms\\", "..\\forms", "Main.dfm", ".dfm"},
        {"C:\\src\\a.b.c", "C:\\src\\", "C:\\src", "a.b.c", ".c"},
        {"C:\\x.txt", "C:\\", "C:\\", "x.txt", ".txt"},
        {"C:x.txt", "C:", "C:", "x.txt", ".txt"},
        {"dir.d/noext", "dir.d/", "dir.d", "noext", ""},
        {"a//b", "a//", "a//", "b", ""},
        {".bashrc", "", "", ".bashrc", ".bashrc"},
    };
    for (const TCase& c : cases) {
        EXPECT_EQ(ExtractFilePath(c.Name), c.Path) << c.Name;
        EXPECT_EQ(ExtractFileDir(c.Name), c.Dir) << c.Name;
        EXPECT_EQ(ExtractFileName(c.Name), c.File) << c.Name;
        EXPECT_EQ(ExtractFileExt(c.Name), c.Ext) << c.Name;
    }
    EXPECT_EQ(ChangeFileExt("/p.q/Unit1.pas", ".dfm"), "/p.q/Unit1.dfm");
    EXPECT_EQ(ChangeFileExt("/p.q/Unit1", ".dfm"), "/p.q/Unit1.dfm");
    EXPECT_EQ(ChangeFileExt("a.tar.gz", ""), "a.tar");
    EXPECT_EQ(ExtractFileDrive("/usr/lib"), "");
    EXPECT_EQ(ExtractFileDrive("d:\\x"), "d:");
    EXPECT_EQ(ExtractFileDrive("\\\\server\\share\\dir\\f"), "\\\\server\\share");
    EXPECT_EQ(IncludeTrailingPathDelimiter("/a"), "/a/");
    EXPECT_EQ(IncludeTrailingPathDelimiter("a\\"), "a\\");
    EXPECT_EQ(ExcludeTrailingPathDelimiter("/a/"), "/a");
    EXPECT_EQ(ExcludeTrailingPathDelimiter("/a"), "/a");
    EXPECT_EQ(ExpandFileName("/a/b/../c/./d"), "/a/c/d");
    EXPECT_EQ(ExpandFileName("/a/../../x/"), "/x/");
    EXPECT_EQ(ExpandFileName("sub\\f.txt"), GetCurrentDir() + "/sub/f.txt");
    EXPECT_TRUE(SameFileName("/a/B", "/a/B"));
    EXPECT_FALSE(SameFileName("/a/B", "/a/b"));
}

TEST_F(SysUtilsFiles, ExistenceCreationRenameDelete)
{
    AnsiString nested = PathOf("x/y/z");
    EXPECT_TRUE(ForceDirectories(nested + "/"));
    EXPECT_TRUE(DirectoryExists(nested));
    EXPECT_FALSE(FileExists(nested));
    EXPECT_THROW(ForceDirectories(""), EInOutError);

    Touch("a.txt");
    EXPECT_TRUE(FileExists(PathOf("a.txt")));
    EXPECT_TRUE(RenameFile(PathOf("a.txt"), PathOf("b.txt")));
    EXPECT_FALSE(FileExists(PathOf("a.txt")));
    EXPECT_FALSE(RenameFile(PathOf("missing"), PathOf("c.txt")));

    TDateTime age = 0;
    ASSERT_TRUE(FileAge(PathOf("b.txt"), age));
    EXPECT_NEAR(age, Now(), 1.0 / 24);  // within the hour, to survive slow machines
    EXPECT_FALSE(FileAge(PathOf("missing"), age));
    EXPECT_EQ(FileAge(PathOf("missing")), -1);

    EXPECT_FALSE(DeleteFile(nested));
    EXPECT_TRUE(DeleteFile(PathOf("b.txt")));
    EXPECT_FALSE(DeleteFile(PathOf("b.txt")));
}

TEST_F(SysUtilsFiles, FindFileCaseInsensitive)
{
    Touch("Unit1.dfm");
    Touch("UNIT2.DFM");
    Touch("unit2.dfm");
    const AnsiString dir = FDir.string();
    EXPECT_EQ(FindFileCaseInsensitive(dir, "UNIT1.DFM"), "Unit1.dfm");
    EXPECT_EQ(FindFileCaseInsensitive(dir, "unit1.dfm"), "Unit1.dfm");
    EXPECT_EQ(FindFileCaseInsensitive(dir, "unit2.dfm"), "unit2.dfm");  // exact match wins
    EXPECT_EQ(FindFileCaseInsensitive(dir, "Unit2.Dfm"), "UNIT2.DFM");  // then the first byte-wise
    EXPECT_EQ(FindFileCaseInsensitive(dir, "Unit3.dfm"), "");
    EXPECT_EQ(FindFileCaseInsensitive(PathOf("nodir"), "Unit1.dfm"), "");
}

// ---- Dates and times ------------------------------------------------------

TEST(SysUtilsDate, EncodeDecodeRoundTrip)
{
    EXPECT_EQ(EncodeDate(1899, 12, 30), 0.0);
    EXPECT_EQ(EncodeDate(2000, 1, 1), 36526.0);
    EXPECT_EQ(EncodeDate(1, 1, 1), -693593.0);
    for (Int64 day = -693593; day <= 2958465; day += 997) {
        Word y, m, d;
        DecodeDate(TDateTime(day), y, m, d);
        EXPECT_EQ(EncodeDate(y, m, d), TDateTime(day)) << day;
    }
    EXPECT_NO_THROW(EncodeDate(2000, 2, 29));
    EXPECT_EQ(MessageOf([] { EncodeDate(1900, 2, 29); }), "Invalid argument to date encode");
    EXPECT_EQ(MessageOf([] { EncodeTime(24, 0, 0, 0); }), "Invalid argument to time encode");

    Word h, n, s, ms, y, m, d;
    DecodeTime(EncodeTime(23, 59, 58, 999), h, n, s, ms);
    EXPECT_EQ((std::array<Word, 4>{h, n, s, ms}), (std::array<Word, 4>{23, 59, 58, 999}));
    // Negative values: the day counts back, the time forward from it.
    DecodeDate(-1.25, y, m, d);
    DecodeTime(-1.25, h, n, s, ms);
    EXPECT_EQ((std::array<Word, 4>{m, d, h, n}), (std::array<Word, 4>{12, 29, 6, 0}));
    // A time that rounds up to midnight moves to the next day.
    DecodeDate(36526.9999999999, y, m, d);
    DecodeTime(36526.9999999999, h, n, s, ms);
    EXPECT_EQ((std::array<Word, 4>{d, h, n, ms}), (std::array<Word, 4>{2, 0, 0, 0}));
}

TEST(SysUtilsDate, FormatAndParse)
{
    const TDateTime dt = EncodeDate(2024, 3, 5) + EncodeTime(7, 8, 9, 45);
    EXPECT_EQ(DateToStr(dt), "2024-03-05");
    EXPECT_EQ(TimeToStr(dt), "07:08:09");
    EXPECT_EQ(DateTimeToStr(dt), "2024-03-05 07:08:09");
    EXPECT_EQ(DateTimeToStr(EncodeDate(2024, 3, 5)), "2024-03-05");
    const std::pair<const char*, const char*> formats[] = {
        {"yyyy-mm-dd hh:nn:ss.zzz", "2024-03-05 07:08:09.045"},
        {"d/m/yy h:n:s z", "5/3/24 7:8:9 45"},
        {"hh:mm", "07:08"},
        {"mm 'mm' \"yy\"", "03 mm yy"},
        {"ddd dddd mmm mmmm", "Tue Tuesday Mar March"},
        {"YYYY-MM-DD", "2024-03-05"},
        {"c", "2024-03-05 07:08:09"},
        {"t|tt", "07:08|07:08:09"},
    };
    for (const auto& [fmt, expected] : formats)
        EXPECT_EQ(FormatDateTime(fmt, dt), expected) << fmt;

    EXPECT_EQ(StrToDate(DateToStr(dt)), EncodeDate(2024, 3, 5));
    EXPECT_EQ(StrToDateTime(" 2024-3-5 7:08 "), EncodeDate(2024, 3, 5) + EncodeTime(7, 8, 0, 0));
    EXPECT_DOUBLE_EQ(StrToDateTime("2024-03-05 07:08:09.045"), dt);
    EXPECT_DOUBLE_EQ(StrToDateTime("12:30"), EncodeTime(12, 30, 0, 0));
    EXPECT_DOUBLE_EQ(StrToTime("12:30:15"), EncodeTime(12, 30, 15, 0));
    TDateTime back = StrToDateTime(DateTimeToStr(EncodeDate(1899, 12, 29) + 0.0));
    EXPECT_EQ(back, -1.0);
    EXPECT_EQ(MessageOf([] { StrToDate("2024-02-30"); }), "'2024-02-30' is not a valid date");
    EXPECT_EQ(MessageOf([] { StrToDate("2024-01-01 10:00"); }), "'2024-01-01 10:00' is not a valid date");
    EXPECT_EQ(MessageOf([] { StrToDateTime("2024-01-01T10:00"); }),
              "'2024-01-01T10:00' is not a valid date and time");
    EXPECT_EQ(MessageOf([] { StrToTime("25:00"); }), "'25:00' is not a valid time");
}

// ---- Assertions -----------------------------------------------------------

TEST(SysUtilsAssert, MessageAndLazyText)
{
    int built = 0;
    auto text = [&] {
        ++built;
        return AnsiString("never");
    };
    QZ_ASSERT(1 + 1 == 2, text());
    EXPECT_EQ(built, 0);
    try {
        QzAssert(false, "bad state", "unit.cpp", 12);
        FAIL() << "no exception";
    } catch (const EAssertionFailed& e) {
        EXPECT_EQ(e.Message(), "bad state (unit.cpp, line 12)");
    }
    try {
        QZ_ASSERT(false, "");
        FAIL() << "no exception";
    } catch (const EAssertionFailed& e) {
        EXPECT_EQ(e.Message().rfind("Assertion failed (", 0), 0u) << e.Message();
    }
}
