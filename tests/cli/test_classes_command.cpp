// qzpkg classes: the class list, a class's properties, the catalogue in the
// documentation kept in step with the classes.

#include "QzpkgRun.h"
#include "support/TextLines.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

TEST(ClassesCommand, ListsClassesWithPageAndParentAndPropertiesInStreamOrder)
{
    const TQzpkgRun all = Qzpkg({"classes"});
    ASSERT_EQ(all.Code, 0) << all.Err;
    const std::vector<std::string> lines = TextLines(all.Out);
    EXPECT_NE(std::find(lines.begin(), lines.end(), "\tTControl\tTComponent"), lines.end());
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Qz Standard\tTQzLabel\tTQzCustomLabel"), lines.end());
    // Bases come before the classes derived from them.
    const auto at = [&](const std::string& cls) {
        return std::find_if(lines.begin(), lines.end(), [&](const std::string& l) {
            return l.find("\t" + cls + "\t") != std::string::npos;
        });
    };
    EXPECT_LT(at("TWinControl"), at("TQzEdit"));

    const TQzpkgRun label = Qzpkg({"classes", "tqzlabel"});
    ASSERT_EQ(label.Code, 0) << label.Err;
    const std::vector<std::string> props = TextLines(label.Out);
    ASSERT_GE(props.size(), 3u);
    EXPECT_EQ(props[0], "TQzLabel\tName\tTComponentName\tTComponent");
    EXPECT_NE(std::find(props.begin(), props.end(), "TQzLabel\tCaption\tTQzMemoryLabel\tTQzCustomLabel"), props.end());
}

TEST(ClassesCommand, RefusesUnknownClassesAndOptionsPrintingNothing)
{
    for (const std::vector<std::string>& args : {std::vector<std::string>{"classes", "TQzLabel", "TNoSuchThing"},
                                                 std::vector<std::string>{"classes", "--wide"},
                                                 std::vector<std::string>{"classes", "--markdown", "TQzLabel"}}) {
        const TQzpkgRun run = Qzpkg(args);
        EXPECT_EQ(run.Code, 1) << args.back();
        EXPECT_EQ(run.Out, "") << args.back();
        EXPECT_NE(run.Err.find("qzpkg classes:"), std::string::npos) << run.Err;
    }
    EXPECT_NE(Qzpkg({"classes", "TNoSuchThing"}).Err.find("'TNoSuchThing'"), std::string::npos);
}

TEST(ClassesCommand, TheDocumentedCatalogueMatchesTheClasses)
{
    std::ifstream file(std::string(QZ_SOURCE_DIR) + "/docs/components.md", std::ios::binary);
    ASSERT_TRUE(file) << "docs/components.md is missing";
    std::stringstream doc;
    doc << file.rdbuf();
    const std::string text = doc.str();
    const std::string begin = "<!-- catalogue: begin -->\n", end = "<!-- catalogue: end -->";
    const size_t from = text.find(begin), to = text.find(end);
    ASSERT_NE(from, std::string::npos);
    ASSERT_NE(to, std::string::npos);
    const TQzpkgRun run = Qzpkg({"classes", "--markdown"});
    ASSERT_EQ(run.Code, 0) << run.Err;
    EXPECT_EQ(text.substr(from + begin.size(), to - from - begin.size()), run.Out)
        << "regenerate the tables with: qzpkg classes --markdown";
}

} // namespace
