// Every real form of the corpus survives conversion to the other format and
// back, byte for byte.

#include "rtl/FormText.h"
#include "rtl/Parser.h"
#include "support/Corpus.h"

#include <gtest/gtest.h>

#include <map>

namespace {

// The options a form was written with: what can be told from its bytes,
// and its code page, which decides where a long string of a double-byte
// code page is cut. The corpus's Chinese forms were written on GBK systems,
// the Globus units on Cyrillic ones.
TFormTextOptions OptionsFor(const TCorpusFile& file, const std::string& bytes)
{
    TFormTextOptions options = DetectFormTextOptions(bytes);
    if (file.Path.rfind("cnpack__", 0) == 0 || file.Path.find("/JvDocking/") != std::string::npos)
        options.CodePage = 936;
    else if (file.Path.find("/Globus/") != std::string::npos)
        options.CodePage = 1251;
    return options;
}

std::string FirstDifference(const std::string& expected, const std::string& actual)
{
    size_t i = 0;
    while (i < expected.size() && i < actual.size() && expected[i] == actual[i])
        ++i;
    size_t line = 1 + size_t(std::count(expected.begin(), expected.begin() + long(i), '\n'));
    size_t from = expected.rfind('\n', i == 0 ? 0 : i - 1);
    from = from == std::string::npos ? 0 : from + 1;
    auto lineAt = [&](const std::string& s) {
        size_t end = s.find('\n', from);
        return s.substr(from, std::min<size_t>(end == std::string::npos ? s.size() - from : end - from, 160));
    };
    return "line " + std::to_string(line) + "\n    expected: " + lineAt(expected) + "\n    actual:   " + lineAt(actual);
}

// Forms that cannot come back byte for byte, and why. For each, a weaker
// property still holds and is checked.
enum class TException {
    // 80-bit floats with more significant digits than text keeps (15); the
    // text converts back to itself.
    FloatDigits,
    // Strings of the two wide kinds (UTF-16 and UTF-8) in one form; text
    // does not say which a string was. The text converts back to itself.
    MixedWideStrings,
    // Holds a value no text can express (an identifier of length 0):
    // converting it to text fails with the offset.
    Inexpressible,
    // Text the IDE would not have written (indentation by tabs, a string cut
    // at a different place). Our rewrite of it converts back to itself.
    NotIdeText,
};

const std::map<std::string, TException>& KnownExceptions()
{
    static const std::map<std::string, TException> known = {
        {"project-jedi__jvcl@7c45c6c/tests/archive/jvcl132/examples/MonthCalendar/Unit1.dfm", TException::FloatDigits},
        {"project-jedi__jvcl@7c45c6c/tests/archive/jvcl132/examples/Timeline/Unit1.dfm", TException::FloatDigits},
        {"HeidiSQL__HeidiSQL/components/thememgr/Demos/Theme Explorer/Main.dfm", TException::FloatDigits},
        {"project-jedi__jvcl/tests/archive/jvcl/Globus/Demos/Globus Lib - Visual Components Demo/glDemo.dfm", TException::FloatDigits},
        {"project-jedi__jvcl@7c45c6c/tests/archive/jvcl132/examples/TMTimeLine/Main.dfm", TException::FloatDigits},
        {"adem0x__imadering/branches/to_delphi_2009/HistoryPacker/MainUnit.dfm", TException::MixedWideStrings},
        {"project-jedi__jvcl/tests/restructured/examples/JvDialogs/fDialogs.dfm", TException::Inexpressible},
        {"Embarcadero__Dev-Cpp@629720d/source/CVSFm.dfm", TException::NotIdeText},
        {"project-jedi__jvcl/jvcl/examples/JvDocking/AdvanceDemo/BCB_Source/Main.dfm", TException::NotIdeText},
    };
    return known;
}

// Checks the weaker property of a known exception; returns what is wrong.
std::string CheckException(TException kind, const std::string& original, TFormTextOptions options)
{
    auto stable = [&](const std::string& text) {
        std::string again = FormBinaryToText(FormTextToBinary(text, options), options);
        return again == text ? std::string() : "its text does not convert back to itself: " + FirstDifference(text, again);
    };
    switch (kind) {
    case TException::FloatDigits:
    case TException::MixedWideStrings:
        return stable(FormToText(original, options));
    case TException::Inexpressible:
        try {
            FormToText(original, options);
            return "its text was written although no text can hold it";
        } catch (const EReadError& e) {
            return e.Message().find(" at offset ") != AnsiString::npos ? "" : "the error names no offset";
        }
    case TException::NotIdeText:
        return stable(FormBinaryToText(FormTextToBinary(original, options), options));
    }
    return "unknown exception kind";
}

// Converts a form to the other format and back; returns what is wrong.
std::string CheckRoundTrip(const TCorpusFile& file, const std::string& original)
{
    TFormTextOptions options = OptionsFor(file, original);
    auto known = KnownExceptions().find(file.Path);
    try {
        if (known != KnownExceptions().end())
            return CheckException(known->second, original, options);
        switch (DetectFormFormat(original)) {
        case TFormFormat::Text: {
            std::string back = FormBinaryToText(FormTextToBinary(original, options), options);
            return back == original ? "" : FirstDifference(original, back);
        }
        case TFormFormat::Resource: {
            std::string back = FormTextToResource(FormToText(original, options), options);
            return back == original ? "" : "differs from the original";
        }
        case TFormFormat::Binary: {
            std::string back = FormTextToBinary(FormToText(original, options), options);
            return back == original ? "" : "differs from the original";
        }
        default:
            return "not recognised as a form";
        }
    } catch (const std::exception& e) {
        return e.what();
    }
}

} // namespace

TEST(FormCorpus, EveryFormComesBackThroughTheOtherFormat)
{
    std::vector<std::string> failures;
    int text = 0, binary = 0;
    for (const TCorpusFile& file : CorpusFiles()) {
        if (file.Format == "project")
            continue;
        std::string original = ReadCorpusFile(file);
        (DetectFormFormat(original) == TFormFormat::Text ? text : binary)++;
        std::string problem = CheckRoundTrip(file, original);
        if (!problem.empty())
            failures.push_back(file.Path + ": " + problem);
    }
    EXPECT_EQ(text, 219);
    EXPECT_EQ(binary, 69);
    for (const std::string& f : failures)
        ADD_FAILURE() << f;
}

TEST(FormCorpus, KnownExceptionsStillExist)
{
    // An entry for a file that left the corpus would hide nothing; keep the
    // list honest.
    for (const auto& [path, kind] : KnownExceptions())
        EXPECT_NO_THROW(ReadCorpusFile({path, ""})) << path;
}
