// Every real form of the corpus converted by qzpkg to the other format and
// back, with no option but the code page of the Chinese and Cyrillic forms,
// comes back byte for byte; the forms that cannot are named with the reason
// and checked for what still holds.

#include "QzpkgRun.h"
#include "rtl/CodePageGuess.h"
#include "rtl/FormText.h"
#include "rtl/Streams.h"
#include "support/Corpus.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// Where the corpus's forms were written: GBK systems for the Chinese ones,
// Cyrillic ones for the Globus units, Western ones for the rest.
int CodePageOf(const TCorpusFile& file)
{
    if (file.Path.rfind("cnpack__", 0) == 0 || file.Path.find("/JvDocking/") != std::string::npos)
        return 936;
    if (file.Path.find("/Globus/") != std::string::npos)
        return 1251;
    return 1252;
}

// What makes a form come back other than byte for byte, and the options that
// bring it back where there are any.
enum class TLoss {
    // 80-bit floats with more significant digits than text keeps.
    FloatDigits,
    // UTF-16 and UTF-8 strings in one binary form: text does not say which a
    // string was.
    MixedWideStrings,
    // An identifier of length 0, which no text can express: converting to
    // text is refused.
    Inexpressible,
    // Text the IDE would not have written (tab indentation, a string cut
    // elsewhere): our text of it converts back to itself.
    NotIdeText,
    // 18-decimal floats, none of them whole, and no string beyond ASCII: the
    // binary keeps nothing of the style. Back with --floats fixed.
    FloatStyleLost,
};

const std::map<std::string, TLoss>& Losses()
{
    static const std::map<std::string, TLoss> losses = {
        {"project-jedi__jvcl@7c45c6c/tests/archive/jvcl132/examples/MonthCalendar/Unit1.dfm", TLoss::FloatDigits},
        {"project-jedi__jvcl@7c45c6c/tests/archive/jvcl132/examples/Timeline/Unit1.dfm", TLoss::FloatDigits},
        {"HeidiSQL__HeidiSQL/components/thememgr/Demos/Theme Explorer/Main.dfm", TLoss::FloatDigits},
        {"project-jedi__jvcl/tests/archive/jvcl/Globus/Demos/Globus Lib - Visual Components Demo/glDemo.dfm",
         TLoss::FloatDigits},
        {"project-jedi__jvcl@7c45c6c/tests/archive/jvcl132/examples/TMTimeLine/Main.dfm", TLoss::FloatDigits},
        {"adem0x__imadering/branches/to_delphi_2009/HistoryPacker/MainUnit.dfm", TLoss::MixedWideStrings},
        {"project-jedi__jvcl/tests/restructured/examples/JvDialogs/fDialogs.dfm", TLoss::Inexpressible},
        {"Embarcadero__Dev-Cpp@629720d/source/CVSFm.dfm", TLoss::NotIdeText},
        {"project-jedi__jvcl/jvcl/examples/JvDocking/AdvanceDemo/BCB_Source/Main.dfm", TLoss::NotIdeText},
        {"project-jedi__jvcl/jvcl/examples/JvAppStorage/Base Example/JvAppStorageBaseMainFrmU.dfm",
         TLoss::FloatStyleLost},
    };
    return losses;
}

class ConvertCorpus : public ::testing::Test {
protected:
    void SetUp() override
    {
        Dir = fs::temp_directory_path() / ("qzpkg-corpus-" + std::to_string(::getpid()));
        fs::create_directories(Dir);
    }
    void TearDown() override { fs::remove_all(Dir); }

    // Converts IN to FORMAT at OUT; returns qzpkg's complaint, empty when none.
    std::string Convert(const std::string& format, const std::string& in, const std::string& out,
                        const std::vector<std::string>& options)
    {
        std::vector<std::string> args = {"convert", "--to", format};
        args.insert(args.end(), options.begin(), options.end());
        args.push_back(in);
        args.push_back(out);
        const TQzpkgRun r = Qzpkg(args);
        return r.Code == 0 ? std::string() : r.Err.empty() ? "failed" : r.Err;
    }

    // The form to the other format and back; returns what went wrong.
    std::string RoundTrip(const std::string& original, const std::string& format, std::vector<std::string> options,
                          std::vector<std::string> backOptions)
    {
        const std::string in = (Dir / "in.dfm").string(), mid = (Dir / "mid.dfm").string(),
                          back = (Dir / "back.dfm").string();
        WriteFileAtomic(in, original);
        const std::string other = format == "text" ? "binary" : "text";
        std::string problem = Convert(other, in, mid, options);
        backOptions.insert(backOptions.end(), options.begin(), options.end());
        if (problem.empty())
            problem = Convert(format, mid, back, backOptions);
        if (problem.empty() && ReadFileBytes(back) != original)
            problem = "differs from the original";
        return problem;
    }

    std::string CheckLoss(TLoss loss, const std::string& original, const std::string& format,
                          const std::vector<std::string>& options)
    {
        const std::string text = (Dir / "text.dfm").string(), again = (Dir / "again.dfm").string(),
                          in = (Dir / "in.dfm").string();
        WriteFileAtomic(in, original);
        switch (loss) {
        case TLoss::FloatStyleLost:
            return RoundTrip(original, format, options, {"--line-break", "lf", "--floats", "fixed"});
        case TLoss::Inexpressible: {
            const std::string problem = Convert("text", in, text, options);
            return problem.find(" at offset ") != std::string::npos ? "" : "not refused with its offset: " + problem;
        }
        case TLoss::FloatDigits:
        case TLoss::MixedWideStrings:
        case TLoss::NotIdeText: {
            // Our text of the form is stable: it converts back to itself.
            std::string problem = format == "text" ? Convert("binary", in, text, options) : Convert("text", in, text, options);
            if (problem.empty() && format == "text")
                problem = Convert("text", text, text, options);
            if (!problem.empty())
                return problem;
            return RoundTrip(ReadFileBytes(text), "text", options, {});
        }
        }
        return "unknown loss";
    }

    fs::path Dir;
};

bool HasLfBreaks(const std::string& text)
{
    const size_t lf = text.find('\n');
    return lf != std::string::npos && (lf == 0 || text[lf - 1] != '\r');
}

} // namespace

TEST_F(ConvertCorpus, EveryFormComesBackThroughTheOtherFormat)
{
    int text = 0, binary = 0, lf = 0;
    for (const TCorpusFile& file : CorpusFiles()) {
        if (file.Format == "project")
            continue;
        SCOPED_TRACE(file.Path);
        const std::string original = ReadCorpusFile(file);
        const bool isText = DetectFormFormat(original) == TFormFormat::Text;
        (isText ? text : binary)++;
        const std::string format = isText ? "text" : file.Format;
        std::vector<std::string> options;
        if (CodePageOf(file) != 1252)
            options = {"--code-page", std::to_string(CodePageOf(file))};
        const auto loss = Losses().find(file.Path);
        if (loss != Losses().end()) {
            EXPECT_EQ(CheckLoss(loss->second, original, format, options), "");
            continue;
        }
        // A binary form holds no line breaks, and text from it gets the
        // IDE's CRLF: text with LF breaks comes back with --line-break lf.
        std::vector<std::string> backOptions;
        if (isText && HasLfBreaks(original)) {
            backOptions = {"--line-break", "lf"};
            ++lf;
        }
        EXPECT_EQ(RoundTrip(original, format, options, backOptions), "");
    }
    EXPECT_EQ(text, 219);
    EXPECT_EQ(binary, 69);
    EXPECT_EQ(lf, 69);
}

// The guess names the code page each corpus form was written in.
TEST(ConvertCorpusGuess, GuessesEveryFormsCodePage)
{
    int guessed = 0;
    for (const TCorpusFile& file : CorpusFiles()) {
        if (file.Format == "project" || Losses().count(file.Path))
            continue;
        const std::string form = ReadCorpusFile(file);
        const TCodePageGuess guess = GuessCodePage(FormHighStrings(form));
        if (guess.Bytes == 0)
            continue;
        ++guessed;
        EXPECT_EQ(guess.CodePage, CodePageOf(file)) << file.Path;
    }
    EXPECT_EQ(guessed, 22);
}
