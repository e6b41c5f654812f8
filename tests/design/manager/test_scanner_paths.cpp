// The scanner reads a whole text by jumping to the lines that may matter;
// line by line (with a progress to tell) it reads every line. Both must
// find the same hits on any form: checked on generated forms that mix
// every construct the rules know with the noise real forms hold.

#include "design/manager/QzFormScanner.h"
#include "design/manager/QzManagerProgress.h"
#include "runtime/components/QzComponentsReg.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

const char* const Objects[] = {
    "object Label{n}: TQzLabel",   "object Panel{n}: TQzPanel",   "object ListBox{n}: TQzListBox",
    "object Radio{n}: TQzRadioGroup", "object Edit{n}: TQzEdit",  "inherited Frame{n}: TQzPanel",
    "inline Frame{n}: TFrame1",    "object TQzLabel",             "object Grid{n}: TStringGrid",
    "object Menu{n}: TQzMenuItem", ". object Dot{n}: TQzLabel",   "OBJECT Upper{n}: TQzPanel",
    "object\tTab{n}: TQzLabel",
};

const char* const References[] = {
    "Caption.PkgName = 'DEMO'", "Caption.PkgName = DEMO",        "Caption.pkgname = 'demo'",
    "HintLabel.PkgName = 'OTHER'", "Image.PkgName = 'DEMO'",     "Label.PkgName = 'DEMO'",
    "Buttons.Custom1Image.PkgName = 'DEMO'", "Text.PkgName = 'DEMO'", "ErrorMessage.PkgName = #68'EMO'",
    "Items[0].Caption.PkgName = 'DEMO'",
};

const char* const Lines[] = {
    "end", "Items = <", "item", "end>", "Index = {k}", "Items = <>", "Caption.Id = {k}", "Caption.ID = {k}",
    "HintLabel.Id = {k}", "Image.Id = {k}", "SetBackGround.Name = 'Blue'", "SetColor.Name = Red",
    "SetFont.Name = 'Big'", "Font.Name = 'Arial'", "Privilege.Id = {k}", "Privilege.Id=3", "Privilege.Id = 33", "Privilege.Id = #51#51", "Left = 8",
    "OnClick = Button1Click", "Hint = 'object of item <x>'", "Lines.Strings = (", "'a = b'", "'end>')",
    "Data = {", "0A1B2C3D4E", "}", "", "   ", "Caption = 'It''s'#13'x'", "Tag = 5", "\tCaption.Id = 5",
    "Caption .Id = 5", "Caption\t.Id = 5", "ItemIndex = 2", "Images = <", "x'abc' = 5", "Name = 'Blue'",
    "SetBackGround.Name = blue", "Id = 3", "item Index = 2", "Text = end>", "  end  >",
};

// Ids as forms may write them: 42 also as a string, in escapes, in pieces.
const char* const IdValues[] = {"4", "5", "42", "142", "'42'", "#52#50", "'4' + '2'", "42 ", "4 2"};

std::string Fill(std::string line, int n, int k)
{
    for (std::size_t at; (at = line.find("{n}")) != std::string::npos;)
        line.replace(at, 3, std::to_string(n));
    for (std::size_t at; (at = line.find("{k}")) != std::string::npos;)
        line.replace(at, 3, std::to_string(k));
    return line;
}

std::string GeneratedForm(std::mt19937& random)
{
    const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    std::string text = "object Form1: TQzCForm\r\n";
    for (int i = 0; i < 400; ++i) {
        const std::string indent(static_cast<std::size_t>(pick(7)), pick(9) == 0 ? '\t' : ' ');
        const int choice = pick(10);
        if (choice == 0) {
            text += indent + Fill(Objects[pick(std::size(Objects))], i, 0) + "\r\n";
        } else if (choice < 4) {
            const std::string ref = References[pick(std::size(References))];
            text += indent + ref + "\r\n";
            // Mostly the Id of the same property follows.
            if (pick(4) != 0)
                text += indent + ref.substr(0, ref.find("PkgName")) + "Id = " + IdValues[pick(std::size(IdValues))] + "\r\n";
        } else {
            text += indent + Fill(Lines[pick(std::size(Lines))], i, pick(3) + 3) + "\r\n";
        }
    }
    return text + "end\r\n";
}

std::vector<std::string> Describe(const std::vector<TQzTokenRec1>& hits)
{
    std::vector<std::string> out;
    for (const TQzTokenRec1& h : hits) {
        std::ostringstream s;
        s << h.Line << '|' << h.PkgLine << '|' << h.ObjectName << '|' << h.ObjectClass << '|' << h.PropPath << '|'
          << h.PkgName << '|' << h.Value << '|' << h.Id << '|' << h.Text;
        out.push_back(s.str());
    }
    return out;
}

// What a scan gives: its hits, or the message it failed with.
std::vector<std::string> Outcome(TQzFormScanner& scanner, const std::string& text, bool lineByLine)
{
    std::vector<TQzTokenRec1> hits;
    TQzNoProgress progress;
    scanner.SetProgress(lineByLine ? &progress : nullptr);
    try {
        scanner.Scanner(text, "Gen.dfm", hits);
    } catch (const EQzScanError& e) {
        return {"error: " + e.Message()};
    }
    return Describe(hits);
}

TEST(ScannerPaths, JumpingAndReadingEveryLineFindTheSame)
{
    RegisterQzComponentClasses();
    std::mt19937 random(20240611);
    int compared = 0, withHits = 0, failed = 0;
    for (int form = 0; form < 40; ++form) {
        const std::string text = GeneratedForm(random);
        for (const auto& info : QzDlgManagerInfos()) {
            TQzFormScanner scanner(info.Kind);
            for (int mode = 0; mode < 4; ++mode) {
                if (mode == 0)
                    scanner.SetCountMode();
                else if (QzDlgManagerUsesPackage(info.Kind))
                    scanner.SetSearch(mode == 2 ? "OTHER" : "demo", mode == 1 ? "4" : mode == 2 ? "5" : "42");
                else
                    scanner.SetSearch("", QzDlgManagerIsSet(info.Kind) ? (mode == 1 ? "blue" : mode == 2 ? "Red" : "Big")
                                                                      : mode == 3 ? "33" : "3");
                const std::vector<std::string> jumping = Outcome(scanner, text, false);
                const std::vector<std::string> everyLine = Outcome(scanner, text, true);
                ASSERT_EQ(jumping, everyLine) << info.Name << " mode " << mode << " form " << form << "\n" << text;
                ++compared;
                withHits += jumping.empty() ? 0 : 1;
                failed += !jumping.empty() && jumping[0].rfind("error: ", 0) == 0 ? 1 : 0;
            }
        }
    }
    // The generator must reach the rules, not only the noise.
    EXPECT_GT(withHits, compared / 4);
    EXPECT_EQ(failed, 0);
}

}  // namespace
