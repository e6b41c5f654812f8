// Field lists: the line a text export writes must read back as the same
// fields, whatever they hold, and hand-written lines read as they look.

#include "runtime/util/QzFields.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

using TFields = std::vector<AnsiString>;

TFields Split(const AnsiString& text, char separator)
{
    TStringList list;
    QzTextToStrings(text, &list, separator);
    TFields fields;
    for (int i = 0; i < list.Count(); ++i)
        fields.push_back(list[i]);
    return fields;
}

AnsiString Join(const TFields& fields, char separator)
{
    TStringList list;
    for (const AnsiString& f : fields)
        list.Add(f);
    return QzTextFromStrings(&list, separator);
}

TEST(Fields, AnyFieldsReadBackAsOneLine)
{
    // Fields drawn from the characters that matter to the rule, so that
    // every mix of quote, hash, blank, separator, break, control byte and
    // UTF-8 occurs, in lists of none, one empty field and more.
    const AnsiString alphabet = std::string("ab ,;\"#1\r\n\t\0\x7f\xc3\xa9", 15);
    std::mt19937 rng(20240611);
    for (int round = 0; round < 5000; ++round) {
        TFields fields(rng() % 6);
        for (AnsiString& f : fields) {
            const size_t length = rng() % 7;
            for (size_t i = 0; i < length; ++i)
                f += alphabet[rng() % alphabet.size()];
        }
        const char separator = round % 2 ? ',' : ';';
        const AnsiString line = Join(fields, separator);
        ASSERT_EQ(line.find_first_of("\r\n"), AnsiString::npos) << "a joined line must stay one line: " << line;
        ASSERT_EQ(Split(line, separator), fields) << "line: " << line;
    }
}

TEST(Fields, HandWrittenLinesReadAsTheyLook)
{
    const struct {
        const char* Text;
        TFields Expected;
    } cases[] = {
        {"1, Hello , World", {"1", "Hello", "World"}},
        {"1,\"Hello, world\"", {"1", "Hello, world"}},
        {"  \"a\"  ,  b  ", {"a", "b"}},
        {"a,", {"a", ""}},
        {",", {"", ""}},
        {"   ", {""}},
        {"#abc,x", {"#abc", "x"}},
        {"\"line\"#13#10\"next\"", {"line\r\nnext"}},
        {"#65#66", {"AB"}},
        {"#233", {"\xc3\xa9"}},
        {"\"\"\"\"", {"\""}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Split(c.Text, ','), c.Expected) << "text: " << c.Text;
}

TEST(Fields, MalformedLinesNameTheColumn)
{
    const struct {
        const char* Text;
        const char* Message;
    } cases[] = {
        {"1,\"open", "Unterminated quoted field at column 3"},
        {"\"a\"b,c", "Text after a quoted field at column 4"},
        {"#1x", "Text after a quoted field at column 3"},
        {"#99999999", "Character code out of range at column 1"},
        {"\"a\"#", "Missing character code after '#' at column 4"},
    };
    TStringList list;
    for (const auto& c : cases) {
        list.Clear();
        list.Add("kept");
        try {
            QzTextToStrings(c.Text, &list, ',');
            ADD_FAILURE() << "no error for " << c.Text;
        } catch (const EConvertError& e) {
            EXPECT_EQ(e.Message(), c.Message) << "text: " << c.Text;
        }
        ASSERT_EQ(list.Count(), 1) << "a bad line must leave the list as it was";
        EXPECT_EQ(list[0], "kept");
    }
    // Separators that would make a line ambiguous are refused both ways.
    for (char separator : {'"', '#', ' ', '\t', '7'}) {
        EXPECT_THROW(QzTextToStrings("a", &list, separator), EConvertError) << int(separator);
        EXPECT_THROW(QzTextFromStrings(&list, separator), EConvertError) << int(separator);
    }
}

} // namespace
