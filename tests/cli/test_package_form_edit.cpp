// Putting a package's lines into a form written by another tool: the
// properties around them may run over several lines (collections, lists,
// strings broken with '+', binary blocks), and the object may have children.

#ifdef QZ_CLI_DESIGN

#include "cli/PackageFormEdit.h"

#include <gtest/gtest.h>

namespace {

TStringList Lines(const char* text)
{
    TStringList lines;
    lines.SetText(text);
    return lines;
}

TEST(PackageFormEdit, OnlyTheNamedPropertiesChangeWhateverSurroundsThem)
{
    const struct {
        const char* Case;
        const char* Form;
        const char* Rewritten;   // the object as our writer writes it
        const char* Expected;
    } cases[] = {
        {"a block replaced between a collection and a list",
         "object F: TForm\n  object App: TApp\n    Items = <\n      item\n        Sub = <>\n        Data = {\n          00}\n"
         "      end>\n    Data = {\n      0102\n      03}\n    Lines.Strings = (\n      'a)'\n      'b')\n  end\nend\n",
         "object App: TApp\n  Items = <>\n  Data = {\n    09}\n  Lines.Strings = (\n    'a)'\n    'b')\nend\n",
         "object F: TForm\n  object App: TApp\n    Items = <\n      item\n        Sub = <>\n        Data = {\n          00}\n"
         "      end>\n  Data = {\n    09}\n    Lines.Strings = (\n      'a)'\n      'b')\n  end\nend\n"},
        {"a broken string removed, a block added after the property before it",
         "object P: TPkg\n  FileName = 'a' +\n    'b.pst'\n  InitMode = imFile\n  PkgName = 'X'\n  Tag = 1\nend\n",
         "object P: TPkg\n  PkgName = 'X'\n  Data = {\n    07}\n  Tag = 1\nend\n",
         "object P: TPkg\n  PkgName = 'X'\n  Data = {\n    07}\n  Tag = 1\nend\n"},
        {"an object with children takes the block before them",
         "object P: TPkg\n  PkgName = 'X'\n  object Child: TC\n    Data = {\n      00}\n  end\nend\n",
         "object P: TPkg\n  PkgName = 'X'\n  Data = {\n    07}\n  object Child: TC\n  end\nend\n",
         "object P: TPkg\n  PkgName = 'X'\n  Data = {\n    07}\n  object Child: TC\n    Data = {\n      00}\n  end\nend\n"},
    };
    for (const auto& c : cases) {
        TStringList lines = Lines(c.Form);
        const TStringList rewritten = Lines(c.Rewritten);
        const AnsiString name = c.Rewritten[7] == 'A' ? "App" : "P";
        QzSpliceProperties(lines, rewritten, name, {"Data", "InitMode", "FileName"}, "F.dfm");
        EXPECT_EQ(lines.Text(), Lines(c.Expected).Text()) << c.Case;
    }
    TStringList lines = Lines("object F: TForm\nend\n");
    EXPECT_THROW(QzSpliceProperties(lines, Lines("object P: TPkg\nend\n"), "P", {"Data"}, "F.dfm"), EParserError);
}

}  // namespace

#endif
