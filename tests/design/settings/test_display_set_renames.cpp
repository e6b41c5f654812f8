// Display sets renamed in a set window: which old names end up at which new
// ones, and the controls of a project's forms following them all at once.

#include "design/settings/QzDisplaySetRenames.h"
#include "designide/ProjectServices.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/model/QzMemory.h"

#include "rtl/TypInfo.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

TEST(DisplaySetRenames, EachSetGoesFromItsFirstNameToItsLast)
{
    // A step "A>B" renames A to B, "-B" deletes B; the result lists the
    // renames left as "From>To".
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"Blue>Navy", "navy>Ink"}, "Blue>Ink "},
        {{"Blue>Navy", "NAVY>Blue"}, ""},
        {{"Blue>Tmp", "Red>Blue", "Tmp>Red"}, "Blue>Red Red>Blue "},
        {{"Blue>Navy", "-navy"}, ""},
        {{"-Blue", "Red>Blue"}, "Red>Blue "},
        {{"Blue>BLUE"}, "Blue>BLUE "},
    };
    for (const auto& [steps, expected] : cases) {
        TQzDisplaySetRenames renames;
        for (const std::string& step : steps) {
            const std::size_t arrow = step.find('>');
            if (arrow == std::string::npos)
                renames.Deleted(step.substr(1));
            else
                renames.Renamed(step.substr(0, arrow), step.substr(arrow + 1));
        }
        std::string got;
        for (const TQzSetRename& rename : renames.Renames())
            got += rename.From + ">" + rename.To + " ";
        EXPECT_EQ(got, expected) << steps.front() << "...";
    }
}

TEST(DisplaySetRenames, TheControlsOfEveryFormFollowOnlyTheirKind)
{
    RegisterQzComponentClasses();
    QTemporaryDir dir;
    const auto write = [&](const char* name, const char* labels) {
        QFile file(dir.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("object F: TQzCForm\n") + labels + "end\n");
    };
    write("Form1.dfm", "  object L1: TQzLabel\n    SetColor.Name = 'blue'\n    SetFont.Name = 'Blue'\n  end\n"
                       "  object L2: TQzLabel\n    SetColor.Name = 'Red'\n  end\n");
    write("Form2.dfm", "  object L3: TQzLabel\n    SetColor.Name = 'RED'\n  end\n");
    write("Form3.dfm", "  object L4: TQzLabel\n    SetColor.Name = 'Green'\n  end\n");
    TFolderProject project(dir.path().toStdString());
    const auto path = [&](const char* form) { return dir.filePath(QString::fromLatin1(form)).toStdString(); };

    // The two colour sets swapped names.
    const TQzSetRenamesFollowed followed =
        QzFollowDisplaySetRenames(project, TQzDisplaySetKind::Color, {{"Blue", "Red"}, {"Red", "Blue"}});
    EXPECT_EQ(followed.Changed, 3);
    EXPECT_EQ(project.HeadlessDesigners().Find(path("Form3.dfm")), nullptr) << "nothing to follow: not opened";
    EXPECT_EQ(project.HeadlessDesigners().Find(path("Form1.dfm"))->ModifiedCount(), 1) << "one step for both";
    std::string names;
    for (auto [form, label, prop] : {std::tuple{"Form1.dfm", "L1", "SetColor"}, {"Form1.dfm", "L2", "SetColor"},
                                     {"Form2.dfm", "L3", "SetColor"}, {"Form1.dfm", "L1", "SetFont"}})
        names += dynamic_cast<TQzSetRef*>(GetObjectProp(project.DesignForm(path(form))->FindComponent(label), prop))
                     ->Name() + " ";
    EXPECT_EQ(names, "Red Blue Blue Blue ") << "the font set of the same name is another set";
}

}  // namespace
