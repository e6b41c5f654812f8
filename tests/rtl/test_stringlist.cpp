#include "rtl/StringList.h"
#include "rtl/Streams.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace {

std::vector<AnsiString> Lines(const TStrings& list)
{
    std::vector<AnsiString> out;
    for (int i = 0; i < list.Count(); ++i)
        out.push_back(list[i]);
    return out;
}

TStringList ListOf(std::initializer_list<const char*> lines)
{
    TStringList list;
    for (const char* s : lines)
        list.Add(s);
    return list;
}

template <class TFn>
AnsiString ListErrorOf(TFn fn)
{
    try {
        fn();
    } catch (const EStringListError& e) {
        return e.Message();
    }
    return "<no EStringListError>";
}

using TLines = std::vector<AnsiString>;

} // namespace

// ---- Text -----------------------------------------------------------------

TEST(StringListText, SetTextSplitsOnAnyLineBreak)
{
    const std::pair<const char*, TLines> cases[] = {
        {"", {}},
        {"a", {"a"}},
        {"a\r\n", {"a"}},
        {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
        {"a\r\n\r\n", {"a", ""}},
        {"\r\n", {""}},
        {"a\n\rb", {"a", "", "b"}},
        {"a\r\r\nb\n", {"a", "", "b"}},
    };
    TStringList list;
    for (const auto& [text, expected] : cases) {
        list.SetText(text);
        EXPECT_EQ(Lines(list), expected) << text;
    }
}

TEST(StringListText, TextEndsEveryLine)
{
    TStringList list = ListOf({"a", "", "b"});
    EXPECT_EQ(list.Text(), "a\r\n\r\nb\r\n");
    list.SetTrailingLineBreak(false);
    EXPECT_EQ(list.Text(), "a\r\n\r\nb");
    list.SetTrailingLineBreak(true);
    list.SetLineBreak("|");
    EXPECT_EQ(list.Text(), "a||b|");
    // A custom break is the only separator when reading back.
    list.SetText("x|y\nz|");
    EXPECT_EQ(Lines(list), (TLines{"x", "y\nz"}));
    EXPECT_EQ(TStringList().Text(), "");
}

// ---- Delimited text -------------------------------------------------------

TEST(StringListDelimited, CommaTextRoundTripsAwkwardItems)
{
    const TLines sets[] = {
        {"plain", "two words", "", "x,y", "say \"hi\"", " lead", "tab\there", "ünï", "\x01"},
        {""},
        {"", ""},
        {"a", ""},
        {"\"", ","},
    };
    for (const TLines& items : sets) {
        TStringList list;
        for (const AnsiString& s : items)
            list.Add(s);
        TStringList back;
        back.SetCommaText(list.CommaText());
        EXPECT_EQ(Lines(back), items) << list.CommaText();
    }
    TStringList list = ListOf({"a b", "c", "d\"e"});
    EXPECT_EQ(list.CommaText(), "\"a b\",c,\"d\"\"e\"");
    EXPECT_EQ(ListOf({""}).CommaText(), "\"\"");
}

TEST(StringListDelimited, ParsesLikeDelphi)
{
    const std::pair<const char*, TLines> cases[] = {
        {"", {}},
        {"a b", {"a", "b"}},
        {" a , b ", {"a", "b"}},
        {"a,,b", {"a", "", "b"}},
        {"a,", {"a", ""}},
        {",a", {"", "a"}},
        {"\"a \"\"q\"\"\",c", {"a \"q\"", "c"}},
        {"\"a b\"c", {"a b", "c"}},
        {"\"open", {"open"}},
        {"\"\"", {""}},
    };
    TStringList list;
    for (const auto& [text, expected] : cases) {
        list.SetCommaText(text);
        EXPECT_EQ(Lines(list), expected) << text;
    }
}

TEST(StringListDelimited, CustomDelimiterQuoteAndStrict)
{
    TStringList list = ListOf({"a b", "c;d", "it's"});
    list.SetDelimiter(';');
    list.SetQuoteChar('\'');
    EXPECT_EQ(list.DelimitedText(), "'a b';'c;d';'it''s'");
    list.SetStrictDelimiter(true);
    EXPECT_EQ(list.DelimitedText(), "a b;'c;d';'it''s'");
    list.SetDelimitedText(" x y ;z");
    EXPECT_EQ(Lines(list), (TLines{" x y ", "z"}));
    // CommaText ignores the list's own delimiter settings.
    EXPECT_EQ(list.CommaText(), "\" x y \",z");
    list.SetCommaText("p q");
    EXPECT_EQ(Lines(list), (TLines{"p", "q"}));
    EXPECT_EQ(list.Delimiter(), ';');
}

// ---- Editing --------------------------------------------------------------

TEST(StringListEdit, ObjectsFollowTheirLines)
{
    int a = 1, b = 2, c = 3;
    TStringList list;
    list.AddObject("a", &a);
    list.AddObject("b", &b);
    list.InsertObject(0, "c", &c);
    list.Move(0, 2);
    EXPECT_EQ(Lines(list), (TLines{"a", "b", "c"}));
    EXPECT_EQ(list.Objects(2), &c);
    list.Move(2, 0);
    list.Exchange(0, 2);
    EXPECT_EQ(Lines(list), (TLines{"b", "a", "c"}));
    EXPECT_EQ(list.Objects(0), &b);
    EXPECT_EQ(list.Objects(2), &c);
    list.Put(1, "A");
    EXPECT_EQ(list.Objects(1), &a);
    EXPECT_EQ(list.IndexOfObject(&c), 2);
    list.Delete(0);
    EXPECT_EQ(list.IndexOf("a"), 0);  // case-insensitive by default
    list.SetCaseSensitive(true);
    EXPECT_EQ(list.IndexOf("a"), -1);
}

TEST(StringListEdit, IndexErrors)
{
    TStringList list = ListOf({"a", "b"});
    EXPECT_EQ(ListErrorOf([&] { list.Get(2); }), "List index out of bounds (2)");
    EXPECT_EQ(ListErrorOf([&] { list.Delete(-1); }), "List index out of bounds (-1)");
    EXPECT_EQ(ListErrorOf([&] { list.Insert(3, "x"); }), "List index out of bounds (3)");
    EXPECT_EQ(ListErrorOf([&] { list.Move(0, 2); }), "List index out of bounds (2)");
    EXPECT_EQ(ListErrorOf([&] { list.Exchange(5, 0); }), "List index out of bounds (5)");
    list.Insert(2, "c");
    EXPECT_EQ(Lines(list), (TLines{"a", "b", "c"}));
}

TEST(StringListEdit, NameValuePairs)
{
    TStringList list = ListOf({"Left=10", "Caption=a=b", "NoValue", "Top="});
    EXPECT_EQ(list.Values("caption"), "a=b");
    EXPECT_EQ(list.Names(1), "Caption");
    EXPECT_EQ(list.Names(2), "");
    EXPECT_EQ(list.ValueFromIndex(0), "10");
    EXPECT_EQ(list.IndexOfName("TOP"), 3);
    EXPECT_EQ(list.Values("Missing"), "");
    list.SetValue("left", "20");
    list.SetValue("Width", "5");
    list.SetValue("Top", "");
    EXPECT_EQ(Lines(list), (TLines{"left=20", "Caption=a=b", "NoValue", "Width=5"}));
    list.SetNameValueSeparator(':');
    list.Add("Key:v");
    EXPECT_EQ(list.Values("key"), "v");
}

// ---- Sorting --------------------------------------------------------------

TEST(StringListSorted, DuplicatesModes)
{
    struct TCase {
        TDuplicates Mode;
        TLines Expected;
    };
    const TCase cases[] = {
        {dupIgnore, {"a", "B", "c"}},
        {dupAccept, {"a", "b", "B", "c"}},
    };
    for (const TCase& c : cases) {
        TStringList list;
        list.SetSorted(true);
        list.SetDuplicates(c.Mode);
        for (const char* s : {"c", "B", "a", "b"})
            list.Add(s);
        EXPECT_EQ(Lines(list), c.Expected) << c.Mode;
    }
    TStringList list;
    list.SetSorted(true);
    EXPECT_EQ(list.Add("b"), 0);
    EXPECT_EQ(list.Add("a"), 0);
    EXPECT_EQ(list.Add("B"), 1);  // dupIgnore answers with the line already there
    EXPECT_EQ(list.Count(), 2);
    list.SetDuplicates(dupError);
    EXPECT_EQ(ListErrorOf([&] { list.Add("A"); }), "String list does not allow duplicates");
    EXPECT_EQ(list.Count(), 2);
}

TEST(StringListSorted, FindInsertAndCaseSensitivity)
{
    TStringList list = ListOf({"b", "B", "a", "A", "c"});
    list.SetSorted(true);
    EXPECT_EQ(Lines(list), (TLines{"a", "A", "b", "B", "c"}));  // stable: equal lines keep their order
    int index = -1;
    EXPECT_TRUE(list.Find("B", index));
    EXPECT_EQ(index, 2);
    EXPECT_FALSE(list.Find("bb", index));
    EXPECT_EQ(index, 4);
    EXPECT_FALSE(list.Find("zz", index));
    EXPECT_EQ(index, 5);
    EXPECT_EQ(list.IndexOf("C"), 4);

    list.SetCaseSensitive(true);
    EXPECT_EQ(Lines(list), (TLines{"a", "A", "b", "B", "c"}));
    EXPECT_TRUE(list.Find("B", index));
    EXPECT_EQ(index, 3);
    EXPECT_EQ(list.IndexOf("C"), -1);

    EXPECT_EQ(ListErrorOf([&] { list.Insert(0, "x"); }), "Operation not allowed on sorted list");
    EXPECT_EQ(ListErrorOf([&] { list.Put(0, "x"); }), "Operation not allowed on sorted list");
    EXPECT_EQ(ListErrorOf([&] { list.Move(0, 1); }), "Operation not allowed on sorted list");
    EXPECT_EQ(list.Count(), 5);
}

TEST(StringListSorted, CustomSortSeesIndexesOfTheUnchangedList)
{
    int one = 1;
    TStringList list = ListOf({"ccc", "a", "bb", "dd"});
    list.PutObject(2, &one);
    list.CustomSort([](const TStringList& l, int i, int j) {
        return int(l.StringRef(i).size()) - int(l.StringRef(j).size());
    });
    EXPECT_EQ(Lines(list), (TLines{"a", "bb", "dd", "ccc"}));
    EXPECT_EQ(list.Objects(1), &one);
    list.Sort();
    EXPECT_EQ(Lines(list), (TLines{"a", "bb", "ccc", "dd"}));
}

// ---- Copying and change events --------------------------------------------

TEST(StringListCopy, AssignKeepsOrderAndSettings)
{
    TStringList source;
    source.SetSorted(true);
    source.SetDuplicates(dupAccept);
    source.Add("x");
    source.Add("X");
    source.SetDelimiter(';');
    TStringList copy;
    copy.Add("old");
    copy.Assign(source);
    EXPECT_EQ(Lines(copy), Lines(source));
    EXPECT_TRUE(copy.Sorted());
    EXPECT_EQ(copy.Duplicates(), dupAccept);
    EXPECT_EQ(copy.Delimiter(), ';');
    EXPECT_TRUE(copy.Equals(source));
    copy.SetSorted(false);
    copy.Exchange(0, 1);
    EXPECT_FALSE(copy.Equals(source));  // Equals is exact and ordered

    TStringList unsorted = ListOf({"b", "a", "b"});
    TStringList target;
    target.SetSorted(true);
    target.AddStrings(unsorted);  // adding goes through the target's sorting
    EXPECT_EQ(Lines(target), (TLines{"a", "b"}));
    TStringList self = ListOf({"q"});
    self.AddStrings(self);
    EXPECT_EQ(Lines(self), (TLines{"q", "q"}));
}

TEST(StringListCopy, ChangeEventsFireOncePerOutermostUpdate)
{
    TStringList list;
    std::vector<char> events;
    list.OnChanging = [&](TStrings&) { events.push_back('<'); };
    list.OnChange = [&](TStrings&) { events.push_back('>'); };
    list.Add("a");
    list.Add("b");
    EXPECT_EQ(AnsiString(events.begin(), events.end()), "<><>");
    events.clear();
    list.BeginUpdate();
    list.BeginUpdate();
    list.SetText("x\ny\nz");
    list.Delete(0);
    list.EndUpdate();
    EXPECT_EQ(AnsiString(events.begin(), events.end()), "<");
    list.EndUpdate();
    EXPECT_EQ(AnsiString(events.begin(), events.end()), "<>");
    events.clear();
    EXPECT_THROW(list.Put(5, "x"), EStringListError);
    EXPECT_TRUE(events.empty());
    TStringList copy(list);  // handlers stay with their list
    copy.Add("c");
    EXPECT_TRUE(events.empty());
}

// ---- Files and streams ----------------------------------------------------

class StringListFiles : public ::testing::Test {
protected:
    void SetUp() override
    {
        FDir = std::filesystem::temp_directory_path() /
               ("qz_stringlist_" + std::to_string(getpid()) + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(FDir);
    }
    void TearDown() override { std::filesystem::remove_all(FDir); }
    AnsiString PathOf(const char* name) const { return (FDir / name).string(); }

    std::filesystem::path FDir;
};

TEST_F(StringListFiles, SaveLoadRoundTrip)
{
    TStringList list = ListOf({"first", "", "ünïcode \xFF raw", "last"});
    const AnsiString name = PathOf("lines.txt");
    list.SaveToFile(name);
    EXPECT_EQ(ReadFileBytes(name), "first\r\n\r\nünïcode \xFF raw\r\nlast\r\n");
    TStringList back;
    back.LoadFromFile(name);
    EXPECT_TRUE(back.Equals(list));
    // Saving over an existing file replaces it whole.
    ListOf({"short"}).SaveToFile(name);
    EXPECT_EQ(ReadFileBytes(name), "short\r\n");
}

TEST_F(StringListFiles, LoadsWhatOtherToolsWrite)
{
    const std::pair<std::string, TLines> files[] = {
        {"no final break\nsecond", {"no final break", "second"}},
        {"\xEF\xBB\xBFwith bom\r\n", {"with bom"}},
        {"mac\rlines\r", {"mac", "lines"}},
        {"", {}},
        {"\xEF\xBB\xBF", {}},
    };
    const AnsiString name = PathOf("in.txt");
    for (const auto& [bytes, expected] : files) {
        WriteFileAtomic(name, bytes);
        TStringList list;
        list.LoadFromFile(name);
        EXPECT_EQ(Lines(list), expected) << bytes;
    }
    TStringList list;
    EXPECT_THROW(list.LoadFromFile(PathOf("missing.txt")), EStreamError);
}

TEST(StringListStream, LoadsFromCurrentPosition)
{
    TMemoryStream stream;
    stream.WriteString("skip|a\nb");
    stream.SetPosition(5);
    TStringList list;
    list.LoadFromStream(stream);
    EXPECT_EQ(Lines(list), (TLines{"a", "b"}));
    TMemoryStream out;
    list.SaveToStream(out);
    EXPECT_EQ(out.Bytes(), "a\r\nb\r\n");
}
