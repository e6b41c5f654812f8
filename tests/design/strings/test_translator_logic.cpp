// The translators without a window: which file holds the other language,
// the rows, the menus, the status bar and the filters.

#include "design/strings/QzTranslatorLogic.h"

#include "designide/QzPortDsgn.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzPkgLanguage.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

std::vector<Integer> LabelIds(const TQzPkgStrings& edited, const TQzPkgStrings& other)
{
    return QzTranslatorIds(edited.Labels(), other.Labels());
}

TEST(TranslatorLogic, RowsAreEveryIdOfEitherSideOnceInOrder)
{
    TQzPkgStrings edited(nullptr), other(nullptr);
    for (Integer id : {5, 1, 3})
        edited.Labels()->Add(id, "e" + IntToStr(id));
    for (Integer id : {4, 3, 0})
        other.Labels()->Add(id, "o" + IntToStr(id));
    EXPECT_EQ(LabelIds(edited, other), (std::vector<Integer>{0, 1, 3, 4, 5}));
    EXPECT_EQ(QzTranslatorIds(edited.Labels(), nullptr), (std::vector<Integer>{1, 3, 5}))
        << "without a translation only the edited Ids";
    EXPECT_EQ(QzTranslatorFreeId(edited.Labels(), other.Labels()), 2);

    const TQzTranslatorSide mine = QzTranslatorSide(&edited, TQzTranslatorKind::Labels, 4);
    const TQzTranslatorSide theirs = QzTranslatorSide(&other, TQzTranslatorKind::Labels, 4);
    EXPECT_FALSE(mine.Present);
    EXPECT_TRUE(theirs.Present);
    EXPECT_EQ(theirs.Text, "o4");
    // Each kind reads its own collection.
    edited.Messages()->Add(4, "message");
    EXPECT_EQ(QzTranslatorSide(&edited, TQzTranslatorKind::Messages, 4).Text, "message");
    EXPECT_FALSE(QzTranslatorSide(&edited, TQzTranslatorKind::Texts, 4).Present);
}

TEST(TranslatorLogic, TheTranslationFileFollowsWhereTheEditedPackageLives)
{
    TComponent form(nullptr);
    form.SetName("Form1");
    TQzPkgStrings onForm(&form);
    const auto formFile = [](const TComponent* root) -> AnsiString {
        return root->Name() == "Form1" ? AnsiString("/p/Unit1.dfm") : AnsiString();
    };
    TQzPkgLanguage language(nullptr);
    language.SetFileName("/p/English.lan");
    TQzPkgLanguage unnamed(nullptr);
    TQzPkgStrings loose(nullptr);

    struct Case {
        const char* What;
        const TQzPkgStrings* Edited;
        const char* File;
        const char* Mask;
        const char* StringsName;  // the strings translated
    };
    const Case cases[] = {
        {"a form's package", &onForm, "/p/Unit1.pst", "*.pst", ""},
        {"the System strings", language.PkgSystem(), "/p/English.lan", "*.lan", "System"},
        {"the User strings", language.PkgUser(), "/p/English.lan", "*.lan", "User"},
        {"a language package without a file", unnamed.PkgUser(), "", "*.lan", "User"},
        {"a package on no form", &loose, "", "*.pst", ""},
    };
    for (const Case& c : cases) {
        TQzTranslation t(*c.Edited, formFile);
        EXPECT_EQ(t.FileName(), c.File) << c.What;
        EXPECT_EQ(t.FileMask(), c.Mask) << c.What;
        EXPECT_EQ(t.Strings()->PkgName(), c.StringsName) << c.What;
    }
}

TEST(TranslatorLogic, TheOpenProjectTellsTheFormFileOfARoot)
{
    RegisterQzComponentClasses();
    QTemporaryDir dir;
    const AnsiString form = dir.path().toStdString() + "/Unit1.dfm";
    QFile file(QString::fromStdString(form));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("object Form1: TForm\nend\n");
    file.close();
    TFolderProject project(dir.path().toStdString());
    TProjectServicesScope scope(&project);
    IDesigner* designer = project.Designers().OpenDesigner(form);
    ASSERT_NE(designer, nullptr);
    EXPECT_EQ(QzProjectFormFileOf(designer->GetRoot()), form);
    TComponent other(nullptr);
    other.SetName("Form1");
    EXPECT_EQ(QzProjectFormFileOf(&other), "") << "a root of that name that no designer shows";
}

TEST(TranslatorLogic, TheTranslationTakesNoNameOverInTheRegistry)
{
    TQzPkgLanguage application(nullptr);
    ASSERT_TRUE(application.PkgSystem()->Active());
    TQzTranslation t(*application.PkgSystem());
    EXPECT_TRUE(application.PkgSystem()->Active()) << "the application's System strings stay the ones found";
}

TEST(TranslatorLogic, OpeningReadsAnExistingFileAndSaveWritesIt)
{
    RegisterQzPkgFileFormats();
    QTemporaryDir dir;
    const AnsiString file = dir.path().toStdString() + "/Unit1.pst";
    TQzPkgStrings edited(nullptr);

    TQzTranslation first(edited);
    first.Open(file);
    EXPECT_EQ(first.LoadedFile(), "") << "a missing file is a translation still to write";
    EXPECT_EQ(QzTranslatorLoadFileText(first), "Load File : (Unknown)");
    EXPECT_EQ(QzTranslatorCurrentFileText(first), "Current File : " + file);
    ASSERT_TRUE(first.SavesOwnFile());
    first.Strings()->Labels()->Add(1, "One");
    first.Save();

    TQzTranslation second(edited);
    second.Open(file);
    EXPECT_EQ(QzTranslatorLoadFileText(second), "Load File : " + file);
    ASSERT_NE(second.Strings()->Labels()->FindId(1), nullptr);
    EXPECT_EQ(second.Strings()->Labels()->FindId(1)->Text(), "One");

    TQzTranslation none(edited);
    none.Open("");
    EXPECT_FALSE(none.SavesOwnFile()) << "nothing to save without a file";
}

TEST(TranslatorLogic, MenusFollowTheSelectedRow)
{
    struct Case {
        bool Selected, InEdited, OwnFile;
        TQzTranslatorMenu Expected;  // Add, Modify, Delete, Save
    };
    const Case cases[] = {
        {false, false, false, {true, false, false, false}},
        {true, false, true, {true, false, false, true}},
        {true, true, false, {false, true, true, false}},
        {true, true, true, {false, true, true, true}},
    };
    for (const Case& c : cases) {
        const TQzTranslatorMenu m = QzTranslatorMenuState(c.Selected, c.InEdited, c.OwnFile);
        EXPECT_EQ((std::vector<bool>{m.Add, m.Modify, m.Delete, m.Save}),
                  (std::vector<bool>{c.Expected.Add, c.Expected.Modify, c.Expected.Delete, c.Expected.Save}))
            << c.Selected << c.InEdited << c.OwnFile;
    }
}

TEST(TranslatorLogic, StatusBarCountsBothSidesAndNamesWhatIsMissingUnknown)
{
    TQzPkgStrings edited(nullptr);
    edited.SetPkgName("Main");
    edited.Messages()->Add(1, "a");
    edited.Messages()->Add(2, "b");
    TQzTranslation t(edited);
    EXPECT_EQ(QzTranslatorStatusText(TQzTranslatorKind::Messages, edited, t),
              "( Main : 2 Messages )  ( Unknown - Unknown : 0 Messages )");

    TQzPkgLanguage language(nullptr);
    language.SetFileName("/p/English.lan");
    language.PkgUser()->Texts()->Add(1, "x");
    TQzTranslation lt(*language.PkgUser());
    EXPECT_EQ(QzTranslatorStatusText(TQzTranslatorKind::Texts, *language.PkgUser(), lt),
              "( User : 1 Texts )  ( User - /p/English.lan : 0 Texts )");
}

TEST(TranslatorLogic, FiltersKeepTheRowsThatNeedWork)
{
    TQzPkgStrings edited(nullptr), other(nullptr);
    edited.Labels()->Add(1, "Open %s");      // both, same placeholders
    other.Labels()->Add(1, "Abrir %s");
    edited.Labels()->Add(2, "Only here");    // missing in the translation
    other.Labels()->Add(3, "Solo aqui");     // missing in the edited package
    edited.Labels()->Add(4, "%d of %d");     // placeholders differ
    other.Labels()->Add(4, "%d");
    const std::vector<Integer> ids = LabelIds(edited, other);
    struct Case {
        TQzTranslatorFilter Filter;
        std::vector<Integer> Kept;
    };
    const Case cases[] = {
        {TQzTranslatorFilter::All, {1, 2, 3, 4}},
        {TQzTranslatorFilter::MissingInEdited, {3}},
        {TQzTranslatorFilter::MissingInTranslation, {2}},
        {TQzTranslatorFilter::DiffersInPlaceholders, {4}},
        {TQzTranslatorFilter::FailsChecks, {4}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(QzTranslatorFilterIds(ids, c.Filter, TQzTranslatorKind::Labels, &edited, &other), c.Kept)
            << QzTranslatorFilterNames()[static_cast<size_t>(c.Filter)];
}

}  // namespace
