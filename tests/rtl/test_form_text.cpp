// The form conversions on hand-made streams: each value type, the text
// layout rules, the character policies and the errors on bad input.

#include "rtl/Filer.h"
#include "rtl/FormText.h"
#include "rtl/Parser.h"
#include "fuzz/FormOracle.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

namespace {

// A binary form with one root object of the given properties.
std::string MakeForm(const std::function<void(TWriter&)>& properties)
{
    TWriter w;
    w.WriteSignature();
    w.WriteComponentHeader({0, -1, "TForm1", "Form1"});
    properties(w);
    w.WriteListEnd();
    w.WriteListEnd();
    return std::move(w.Buffer());
}

std::string Body(const std::string& text)
{
    // The lines between the header and "end", without the indentation.
    size_t from = text.find('\n') + 1;
    size_t to = text.rfind("end");
    return text.substr(from, to - from);
}

TFormTextOptions Lf()
{
    TFormTextOptions o;
    o.LineBreak = "\n";
    return o;
}

} // namespace

TEST(FormText, EveryValueTypeIsWrittenAsTheIdeWritesItAndReadBack)
{
    struct Case {
        const char* name;
        std::function<void(TWriter&)> write;
        const char* text;
    };
    const Case cases[] = {
        {"small integer", [](TWriter& w) { w.WriteInteger(-5); }, "P = -5"},
        {"16-bit integer", [](TWriter& w) { w.WriteInteger(1000); }, "P = 1000"},
        {"32-bit integer", [](TWriter& w) { w.WriteInteger(-100000); }, "P = -100000"},
        {"64-bit integer", [](TWriter& w) { w.WriteInteger(5000000000LL); }, "P = 5000000000"},
        {"extended", [](TWriter& w) { w.WriteFloat(0.125L); }, "P = 0.125"},
        {"extended exponent", [](TWriter& w) { w.WriteFloat(1.5e-7L); }, "P = 1.5E-7"},
        {"single", [](TWriter& w) { w.WriteSingle(2.5f); }, "P = 2.5s"},
        {"currency", [](TWriter& w) { w.WriteCurrency(15000); }, "P = 15000c"},
        {"date", [](TWriter& w) { w.WriteDate(36526.5); }, "P = 36526.5d"},
        {"identifier", [](TWriter& w) { w.WriteIdent("alClient"); }, "P = alClient"},
        {"reference", [](TWriter& w) { w.WriteIdent("Form2.Button1"); }, "P = Form2.Button1"},
        {"true", [](TWriter& w) { w.WriteBoolean(true); }, "P = True"},
        {"false", [](TWriter& w) { w.WriteBoolean(false); }, "P = False"},
        {"nil", [](TWriter& w) { w.WriteValue(vaNil); }, "P = nil"},
        {"null", [](TWriter& w) { w.WriteValue(vaNull); }, "P = Null"},
        {"empty string", [](TWriter& w) { w.WriteString(""); }, "P = ''"},
        {"quotes and controls", [](TWriter& w) { w.WriteString("it's\r\nok"); }, "P = 'it'#39's'#13#10'ok'"},
        {"wide string", [](TWriter& w) { w.WriteWideString(u"\u0416a"); }, "P = #1046'a'"},
        {"set", [](TWriter& w) { w.WriteValue(vaSet); w.WriteStr("akLeft"); w.WriteStr("akTop"); w.WriteStr(""); }, "P = [akLeft, akTop]"},
        {"empty set", [](TWriter& w) { w.WriteValue(vaSet); w.WriteStr(""); }, "P = []"},
        {"short binary", [](TWriter& w) { w.WriteBinary(std::string("\x01\xAB", 2)); }, "P = {01AB}"},
        {"empty list", [](TWriter& w) { w.WriteListBegin(); w.WriteListEnd(); }, "P = ()"},
        {"list", [](TWriter& w) { w.WriteListBegin(); w.WriteString("a"); w.WriteInteger(1); w.WriteListEnd(); }, "P = (\n    'a'\n    1)"},
        {"empty collection", [](TWriter& w) { w.WriteValue(vaCollection); w.WriteListEnd(); }, "P = <>"},
        {"collection", [](TWriter& w) {
             w.WriteValue(vaCollection);
             w.WriteListBegin(); w.WriteStr("Width"); w.WriteInteger(40); w.WriteListEnd();
             w.WriteInteger(3);
             w.WriteListBegin(); w.WriteListEnd();
             w.WriteListEnd(); },
         "P = <\n    item\n      Width = 40\n    end\n    item [3]\n    end>"},
    };
    for (const Case& c : cases) {
        std::string binary = MakeForm([&](TWriter& w) { w.WriteStr("P"); c.write(w); });
        std::string text = FormBinaryToText(binary, Lf());
        EXPECT_EQ(Body(text), std::string("  ") + c.text + "\n") << c.name;
        EXPECT_EQ(FormTextToBinary(text, Lf()), binary) << c.name;
    }
}

TEST(FormText, HeadersCarryInheritanceInlineAndChildPosition)
{
    const char* text =
        "inherited Form2: TForm2\n"
        "  inline Frame1: TFrame1 [2]\n"
        "  end\n"
        "  object TTimer\n"
        "  end\n"
        "end\n";
    std::string binary = FormTextToBinary(text, Lf());
    EXPECT_EQ(FormBinaryToText(binary, Lf()), text);
    TReader r(binary);
    r.ReadSignature();
    EXPECT_EQ(r.ReadComponentHeader().Flags, ffInherited);
    r.ReadListEnd();
    TComponentHeader frame = r.ReadComponentHeader();
    EXPECT_EQ(frame.Flags, ffInline | ffChildPos);
    EXPECT_EQ(frame.Position, 2);
}

TEST(FormText, LongStringsAndBinaryDataAreCutIntoLines)
{
    std::string long70(70, 'x');
    std::string binary = MakeForm([&](TWriter& w) {
        w.WriteStr("S");
        w.WriteString(long70);
        w.WriteStr("B");
        w.WriteBinary(std::string(40, '\x5A'));
    });
    std::string text = FormBinaryToText(binary, Lf());
    EXPECT_EQ(Body(text), "  S = \n    '" + std::string(64, 'x') + "' +\n    'xxxxxx'\n"
                          "  B = {\n    " + std::string(64, '5').replace(1, 63, "A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A5A") +
                          "\n    5A5A5A5A5A5A5A5A}\n");
    EXPECT_EQ(FormTextToBinary(text, Lf()), binary);
}

TEST(FormText, DoubleByteCharactersAreNeverCutInTwo)
{
    // 63 ASCII characters then a GBK character: the cut falls inside it, so
    // the whole character moves to the next piece.
    std::string s = std::string(63, 'a') + "\xBB\xB6" + "b";
    TFormTextOptions gbk = Lf();
    gbk.CodePage = 936;
    std::string binary = MakeForm([&](TWriter& w) { w.WriteStr("S"); w.WriteString(s); });
    std::string text = FormBinaryToText(binary, gbk);
    EXPECT_NE(text.find("'" + std::string(63, 'a') + "' +\n    '\xBB\xB6" "b'"), std::string::npos) << text;
    EXPECT_EQ(FormTextToBinary(text, gbk), binary);
    // A single-byte code page cuts at 64 bytes exactly.
    EXPECT_NE(FormBinaryToText(binary, Lf()).find("'" + std::string(63, 'a') + "\xBB' +"), std::string::npos);
}

TEST(FormText, HighCharacterPoliciesWriteAndReadTheirOwnText)
{
    std::string binary = MakeForm([](TWriter& w) { w.WriteStr("S"); w.WriteString("caf\xE9"); });
    struct Case {
        THighChars policy;
        const char* text;
    };
    for (const Case& c : {Case{THighChars::Raw, "  S = 'caf\xE9'\n"}, Case{THighChars::Escape, "  S = 'caf'#233\n"},
                          Case{THighChars::Utf8, "  S = 'caf\xC3\xA9'\n"}}) {
        TFormTextOptions o = Lf();
        o.HighChars = c.policy;
        std::string text = FormBinaryToText(binary, o);
        EXPECT_EQ(Body(text), c.text);
        // Raw and UTF-8 text give back the 8-bit string; an escape above 127
        // can only have come from a wide string.
        std::string back = FormTextToBinary(text, o);
        TReader r(back);
        r.ReadSignature();
        r.ReadComponentHeader();
        r.ReadStr();
        EXPECT_EQ(r.NextValue(), c.policy == THighChars::Escape ? vaWString : vaString);
        EXPECT_EQ(r.ReadUnicodeString(), "caf\xC3\xA9");
    }
}

TEST(FormText, WideStringsKeepCharactersOutsideTheCodePage)
{
    // U+4E2D and a character outside the 16-bit plane (a surrogate pair).
    std::u16string wide = u"\u4E2D\U0001F600";
    std::string binary = MakeForm([&](TWriter& w) { w.WriteStr("S"); w.WriteWideString(wide); });
    std::string text = FormBinaryToText(binary, Lf());
    EXPECT_EQ(Body(text), "  S = #20013#55357#56832\n");
    EXPECT_EQ(FormTextToBinary(text, Lf()), binary);

    TFormTextOptions utf8 = Lf();
    utf8.HighChars = THighChars::Utf8;
    std::string utf8Text = FormBinaryToText(binary, utf8);
    EXPECT_EQ(Body(utf8Text), "  S = '\xE4\xB8\xAD\xF0\x9F\x98\x80'\n");
    EXPECT_EQ(FormTextToBinary(utf8Text, utf8), binary);

    utf8.Utf8Strings = true;
    std::string back = FormTextToBinary(utf8Text, utf8);
    TReader r(back);
    r.ReadSignature();
    r.ReadComponentHeader();
    r.ReadStr();
    EXPECT_EQ(r.NextValue(), vaUTF8String);
}

TEST(FormText, BadTextIsReportedWithItsLine)
{
    struct Case {
        std::string text;
        const char* message;
    };
    const Case cases[] = {
        {"object Form1: TForm1\n  Left = 1\n  Top = [a, b\nend\n", "line 4: ',' expected"},
        {"object Form1: TForm1\n  Caption = 'abc\nend\n", "line 2: Unterminated string"},
        {"object Form1: TForm1\n  Left 1\nend\n", "line 2: '=' expected"},
        {"object Form1: TForm1\n  Left = 1\n", "line 3: 'end' expected"},
        {"thing Form1: TForm1\nend\n", "line 1: 'object' expected"},
        {"object Form1: TForm1\n  Data = {0A0}\nend\n", "line 2: Invalid binary value"},
        {"object Form1: TForm1\n  Data = {0A0G}\nend\n", "line 2: Invalid binary value"},
        {"object Form1: TForm1\n  Items = <\n    itm\n    end>\nend\n", "line 3: 'item' expected"},
        {"object Form1: TForm1\n  Left = =\nend\n", "line 2: Invalid property value"},
        {"object Form1: TForm1\n  Caption = 'a' +\nend\n", "line 3: String expected"},
        {"object Form1: TForm1 [x]\nend\n", "line 1: Number expected"},
        {"object Form1: TForm1\n  S = #99999999\nend\n", "line 2: Invalid character code in string"},
        {"", "line 1: 'object' expected"},
        // Control characters share their codes with token kinds and must not pass for them.
        {"object Form1: TForm1\n  S = (#179\x02\nend\n", "line 2: Invalid character"},
        {"object Form1: TForm1\n  S = \x01\nend\n", "line 2: Invalid character"},
        // What the binary form cannot hold: names over 255 bytes, a class name
        // whose length reads as the flags' prefix, values beyond their type.
        {("object Form1: T" + std::string(239, 'x') + "\nend\n"), "line 1: Class name too long"},
        {("object Form1: TForm1\n  A = " + std::string(256, 'x') + "\nend\n"), "line 2: Identifier too long"},
        {("object Form1: TForm1\n  A = Form1." + std::string(250, 'x') + "\nend\n"), "line 2: Identifier too long"},
        {"object Form1: TForm1\n  A = 836E49584D\nend\n", "line 2: Invalid floating point value 836E49584D"},
        {"object Form1: TForm1\n  A = 1e39s\nend\n", "line 2: Floating point value out of range 1e39s"},
        // Null is stored as the byte that ends a list.
        {"object Form1: TForm1\n  L = (\n    'a'\n    null\n    b)\nend\n", "line 4: Null cannot be an item of a list"},
    };
    for (const Case& c : cases) {
        try {
            FormTextToBinary(c.text);
            ADD_FAILURE() << "accepted: " << c.text;
        } catch (const ETextParseError& e) {
            EXPECT_EQ(e.Message(), c.message) << c.text;
        }
    }
}

TEST(FormText, EveryTruncationOfABinaryFormFailsCleanlyWithItsOffset)
{
    std::string text =
        "object Form1: TForm1\r\n  Caption = 'Hello'\r\n  Items.Strings = (\r\n    'a'\r\n    'b')\r\n"
        "  Columns = <\r\n    item\r\n      Width = 300\r\n    end>\r\n  Data = {0102030405}\r\n"
        "  object Button1: TButton\r\n    Anchors = [akLeft]\r\n    Value = 1.5\r\n  end\r\nend\r\n";
    std::string binary = FormTextToBinary(text);
    ASSERT_EQ(FormBinaryToText(binary), text);
    for (size_t n = 0; n < binary.size(); ++n) {
        try {
            FormBinaryToText(binary.substr(0, n));
            ADD_FAILURE() << "a stream cut at " << n << " was accepted";
        } catch (const EReadError& e) {
            EXPECT_NE(e.Message().find("at offset"), std::string::npos) << e.Message();
        }
    }
}

// Names are written bare, so a binary form holding one that text would read
// differently, or not at all, cannot be written as text.
TEST(FormText, NamesTextCannotHoldAreRefusedWithTheirOffset)
{
    auto ident = [](std::string_view name) {
        return [name](TWriter& w) {
            w.WriteValue(vaIdent);
            w.WriteStr(name);
        };
    };
    auto property = [](std::string_view name, std::function<void(TWriter&)> value) {
        return [name, value](TWriter& w) {
            w.WriteStr(name);
            value(w);
        };
    };
    auto set = [](std::string_view element) {
        return [element](TWriter& w) {
            w.WriteValue(vaSet);
            w.WriteStr(element);
            w.WriteStr("");
        };
    };
    auto collectionItem = [](std::function<void(TWriter&)> property) {
        return [property](TWriter& w) {
            w.WriteValue(vaCollection);
            w.WriteListBegin();
            property(w);
            w.WriteListEnd();
            w.WriteListEnd();
        };
    };
    auto list = [](std::function<void(TWriter&)> item) {
        return [item](TWriter& w) {
            w.WriteListBegin();
            item(w);
            w.WriteListEnd();
        };
    };
    struct Case {
        const char* what;
        std::function<void(TWriter&)> write;
        const char* refusal;  // nullptr: written, and its text reads back the same
    };
    const Case cases[] = {
        {"control characters in a property name", property("\x02n\x09", ident("a")), "Property name cannot be written as text"},
        {"a property named as a keyword", property("End", ident("a")), "Property name cannot be written as text"},
        {"a component's property named object", property("Object", ident("a")), "Property name cannot be written as text"},
        {"an item's property named end", property("P", collectionItem(property("end", ident("a")))),
         "Property name cannot be written as text"},
        {"a dotted name with an empty part", property("Font.", ident("a")), "Property name cannot be written as text"},
        {"an empty identifier", property("P", ident("")), "Identifier cannot be written as text"},
        {"an identifier with a blank", property("P", ident("a b")), "Identifier cannot be written as text"},
        {"an identifier Null in a list", property("P", list(ident("null"))), "Null cannot be an item of a list"},
        {"a set element with a blank", property("P", set("fs Bold")), "Set element cannot be written as text"},
        {"a dotted property name", property("Font.Name", ident("a")), nullptr},
        {"a component reference", property("P", ident("Form1.Button1")), nullptr},
        {"letters above 127", property("Ünïcode", ident("ñ")), nullptr},
        {"a set element by number", property("P", set("7")), nullptr},
        {"a set element by character code", property("P", set("#65")), nullptr},
        {"a set element as a quoted string", property("P", set("'a'")), "Set element cannot be written as text"},
        {"a set element with a code beyond a byte", property("P", set("#256")), "Set element cannot be written as text"},
        {"an identifier Null outside a list", property("P", ident("Null")), nullptr},
        {"an item's property named object", property("P", collectionItem(property("Object", ident("a")))), nullptr},
    };
    for (const Case& c : cases) {
        const std::string binary = MakeForm(c.write);
        if (!c.refusal) {
            EXPECT_EQ(QzFormOracle::BinaryFormFault(binary), "") << c.what;
            continue;
        }
        try {
            FormBinaryToText(binary);
            ADD_FAILURE() << "written: " << c.what;
        } catch (const EReadError& e) {
            EXPECT_EQ(e.Message().rfind(std::string(c.refusal) + " at offset ", 0), 0u) << c.what << ": " << e.Message();
        }
    }
}

TEST(FormText, DamagedBinaryFormsAreReadWholeOrRefusedWithTheirOffset)
{
    const std::string binary = FormTextToBinary(
        "object Form1: TForm1\n  Caption = 'Hello'\n  Tag = 5\n  Font.Style = [fsBold]\n  Items = (\n    1\n    alTop)\n"
        "  object A: TPanel\n    Data = {00FF}\n    Columns = <\n      item\n        W = 1.5\n      end>\n  end\nend\n");
    for (size_t i = 4; i < binary.size(); ++i)
        for (char value : {'\x00', '\x01', '\x02', '\x07', '\x0C', '\x12', '\x7F', '\xFF'}) {
            std::string damaged = binary;
            damaged[i] = value;
            EXPECT_EQ(QzFormOracle::BinaryFormFault(damaged), "") << "damaged at " << i;
        }
}

// What the fuzzers found once, and the forms they start from, keep to the
// rules they check.
TEST(FormText, FuzzSeedsAndFindingsKeepTheRoundTripRules)
{
    namespace fs = std::filesystem;
    size_t files = 0;
    for (const char* kind : {"text", "binary"})
        for (const auto& entry : fs::directory_iterator(fs::path(QZ_SOURCE_DIR) / "fuzz" / "seeds" / kind)) {
            std::ifstream in(entry.path(), std::ios::binary);
            const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
            const std::string fault = std::string(kind) == "text" ? QzFormOracle::TextFormFault(bytes)
                                                                  : QzFormOracle::BinaryFormFault(bytes);
            EXPECT_EQ(fault, "") << entry.path();
            ++files;
        }
    EXPECT_GE(files, 4u);
}

TEST(FormText, FormatsAreRecognisedFromTheirFirstBytes)
{
    std::string binary = FormTextToBinary("object Form1: TForm1\nend\n");
    std::string resource = FormBinaryToResource(binary);
    EXPECT_EQ(DetectFormFormat(binary), TFormFormat::Binary);
    EXPECT_EQ(DetectFormFormat(resource), TFormFormat::Resource);
    EXPECT_EQ(DetectFormFormat("  inherited F: TF\r\nend"), TFormFormat::Text);
    EXPECT_EQ(DetectFormFormat("\xEF\xBB\xBFobject F: TF\nend"), TFormFormat::Text);
    EXPECT_EQ(DetectFormFormat("objection"), TFormFormat::Unknown);
    EXPECT_EQ(DetectFormFormat(""), TFormFormat::Unknown);
    // The resource is named after the root class in capitals.
    EXPECT_EQ(resource.substr(0, 11), std::string("\xFF\x0A\x00TFORM1\x00\x30\x10", 12).substr(0, 11));
    EXPECT_EQ(FormResourceBody(resource), binary);
    EXPECT_THROW(FormResourceBody(resource.substr(0, resource.size() - 1)), EInvalidImage);
    EXPECT_THROW(FormToText("garbage"), ETextParseError);
}

TEST(FormText, StreamVersionsConvertFromTheCurrentPosition)
{
    TMemoryStream text(std::string("xxobject Form1: TForm1\r\n  Tag = 7\r\nend\r\n"));
    text.SetPosition(2);
    EXPECT_EQ(TestStreamFormat(text), sofText);
    EXPECT_EQ(text.GetPosition(), 2);
    TMemoryStream resource;
    ObjectTextToResource(text, resource);
    resource.SetPosition(0);
    EXPECT_EQ(TestStreamFormat(resource), sofBinary);
    TMemoryStream back;
    ObjectResourceToText(resource, back);
    EXPECT_EQ(back.Bytes(), "object Form1: TForm1\r\n  Tag = 7\r\nend\r\n");
}

TEST(FormText, DetectedOptionsFollowTheStoredForm)
{
    TFormTextOptions lf = DetectFormTextOptions("object F: TF\n  V = 1.000000000000000000\nend\n");
    EXPECT_EQ(lf.LineBreak, "\n");
    EXPECT_EQ(lf.Floats, TFloatText::Fixed18);
    TFormTextOptions crlf = DetectFormTextOptions("object F: TF\r\n  V = 1.5\r\nend\r\n");
    EXPECT_EQ(crlf.LineBreak, "\r\n");
    EXPECT_EQ(crlf.Floats, TFloatText::General);
    TFormTextOptions o;
    o.Utf8Strings = true;
    EXPECT_TRUE(DetectFormTextOptions(FormTextToBinary("object F: TF\n  S = #1046\nend\n", o)).Utf8Strings);
    EXPECT_FALSE(DetectFormTextOptions(FormTextToBinary("object F: TF\n  S = #1046\nend\n")).Utf8Strings);
}
