// The project functions over a project folder made for each test: modules
// and forms from the project file, forms read as text from files of every
// format or from the open designer, and written back in their format.

#include "TestComponents.h"
#include "designide/ProjectFile.h"
#include "designide/QzPortDsgn.h"
#include "rtl/ComponentStream.h"
#include "rtl/Parser.h"
#include "support/Corpus.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace fs = std::filesystem;

namespace {

const std::string Form1Text =
    "object Form1: TDtForm\r\n  Caption = 'One'\r\n  object Button1: TDtButton\r\n    Width = 20\r\n  end\r\nend\r\n";
const std::string Form2Text = "object Form2: TDtForm\r\n  Caption = 'Two'\r\nend\r\n";
const std::string Form3Text = "object Form3: TDtForm\r\n  Caption = 'Three'\r\nend\r\n";

const char* const ProjectText = R"(<?xml version='1.0' encoding='utf-8' ?>
<!-- C++Builder XML Project -->
<PROJECT>
  <FILELIST>
      <FILE FILENAME="Project1.res" FORMNAME="" UNITNAME="Project1" CONTAINERID="ResTool" DESIGNCLASS="" LOCALCOMMAND=""/>
      <FILE FILENAME="Project1.cpp" FORMNAME="" UNITNAME="Project1" CONTAINERID="CCompiler" DESIGNCLASS="" LOCALCOMMAND=""/>
      <FILE FILENAME="Unit1.cpp" FORMNAME="Form1" UNITNAME="Unit1" CONTAINERID="CCompiler" DESIGNCLASS="" LOCALCOMMAND=""/>
      <FILE FILENAME="Forms\Unit2.cpp" FORMNAME="Form2" UNITNAME="Unit2" CONTAINERID="CCompiler"/>
      <FILE FILENAME="Unit3.cpp" FORMNAME="Form3" UNITNAME="Unit3" CONTAINERID="CCompiler"/>
      <FILE FILENAME="Util.cpp" FORMNAME="" UNITNAME="Util" CONTAINERID="CCompiler"/>
      <FILE FILENAME="Gone.cpp" FORMNAME="Form9" UNITNAME="Gone" CONTAINERID="CCompiler"/>
  </FILELIST>
</PROJECT>
)";

// Project1.bpr with a text form in upper case (UNIT1.DFM), a resource form
// in a subfolder, a bare binary form, a unit without a form and a module
// whose form file is missing.
class ProjectFunctions : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterDtClasses();
        Folder.Write("Project1.bpr", ProjectText);
        Folder.Write("UNIT1.DFM", Form1Text);
        Folder.Write("forms/Unit2.dfm", FormTextToResource(Form2Text));
        Folder.Write("Unit3.dfm", FormTextToBinary(Form3Text));
        Folder.Write("Util.cpp", "// no form\n");
        Project = std::make_unique<TFolderProject>(Folder.Path());
        Scope = std::make_unique<TProjectServicesScope>(Project.get());
    }

    bool ReadForm(const std::string& name, TStringList& lines, TStreamOriginalFormat& format)
    {
        return QzDelphiFormToFormText(Folder / name, &lines, format);
    }

    TTempFolder Folder;
    std::unique_ptr<TFolderProject> Project;
    std::unique_ptr<TProjectServicesScope> Scope;
};

TEST_F(ProjectFunctions, TheProjectFileGivesTheModulesAndTheirForms)
{
    EXPECT_EQ(QzGetProjectName(), "Project1");
    EXPECT_EQ(QzGetModuleCount(), 7);
    EXPECT_EQ(QzGetFormCount(), 4);
    TStringList names;
    names.Add("stale");
    QzGetFormNames(&names);
    EXPECT_EQ(names.Text(), Folder / "Unit1.dfm\r\n" + Folder / "forms/Unit2.dfm\r\n" + Folder / "Unit3.dfm\r\n" +
                                Folder / "Gone.dfm\r\n");
    // The unit's form file is found whatever its case.
    EXPECT_EQ(Project->Module(2).FormFile, Folder / "UNIT1.DFM");
    EXPECT_EQ(Project->Module(2).FormName, "Form1");
}

TEST_F(ProjectFunctions, FormsAreReadAsTextFromEveryFormat)
{
    struct TCase {
        const char* File;
        const std::string* Text;
        TStreamOriginalFormat Format;
    };
    for (const TCase& c : {TCase{"Unit1.dfm", &Form1Text, sofText}, TCase{"unit1.DFM", &Form1Text, sofText},
                           TCase{"Forms/Unit2.dfm", &Form2Text, sofBinary}, TCase{"Unit3.dfm", &Form3Text, sofBinary}}) {
        TStringList lines;
        TStreamOriginalFormat format = sofUnknown;
        ASSERT_TRUE(ReadForm(c.File, lines, format)) << c.File;
        EXPECT_EQ(format, c.Format) << c.File;
        EXPECT_EQ(lines.Text(), *c.Text) << c.File;
    }
    TStringList lines;
    TStreamOriginalFormat format = sofUnknown;
    EXPECT_FALSE(ReadForm("Gone.dfm", lines, format));
    EXPECT_FALSE(ReadForm("Nowhere.dfm", lines, format));

    // Line feeds and no final line break stay so through a read and a write.
    const std::string text = "object Form1: TDtForm\n  Caption = 'LF'\nend";
    Folder.Write("UNIT1.DFM", text);
    ASSERT_TRUE(ReadForm("Unit1.dfm", lines, format));
    EXPECT_EQ(lines.Count(), 3);
    QzDelphiFormTextToForm(&lines, Folder / "Unit1.dfm", format);
    EXPECT_EQ(ReadFileBytes(Folder / "UNIT1.DFM"), text);
}

// A form written back keeps the framing it was read in even when its text
// changed, one the project never read takes the framing of the file, and
// the file written before is the backup.
TEST_F(ProjectFunctions, WritingBackKeepsTheStoredFormatAndABackup)
{
    struct TCase {
        const char* File;
        TFormFormat Framing;
        bool ReadFirst;
    };
    for (const TCase& c : {TCase{"Unit3.dfm", TFormFormat::Binary, true}, TCase{"Unit3.dfm", TFormFormat::Binary, false},
                           TCase{"forms/Unit2.dfm", TFormFormat::Resource, true}}) {
        const std::string before = ReadFileBytes(Folder / c.File);
        TStringList lines;
        TStreamOriginalFormat format = sofUnknown;
        if (c.ReadFirst) {
            ASSERT_TRUE(ReadForm(c.File, lines, format));
        }
        lines.SetText("object Form3: TDtForm\r\n  Caption = 'Changed'\r\nend\r\n");
        QzDelphiFormTextToForm(&lines, Folder / c.File, sofBinary);
        const std::string written = ReadFileBytes(Folder / c.File);
        EXPECT_EQ(DetectFormFormat(written), c.Framing) << c.File;
        EXPECT_EQ(FormToText(written), lines.Text()) << c.File;
        EXPECT_EQ(ReadFileBytes(FormBackupName(Folder / c.File)), before) << c.File;
    }

    // A text form is written to the file as it is named on disk.
    TStringList lines;
    TStreamOriginalFormat format = sofUnknown;
    ASSERT_TRUE(ReadForm("Unit1.dfm", lines, format));
    lines.Put(1, "  Caption = 'Changed'");
    QzDelphiFormTextToForm(&lines, Folder / "Unit1.dfm", format);
    EXPECT_FALSE(fs::exists(Folder / "Unit1.dfm"));
    EXPECT_NE(ReadFileBytes(Folder / "UNIT1.DFM").find("'Changed'"), std::string::npos);
    EXPECT_EQ(ReadFileBytes(Folder / "UNIT1.~dfm"), Form1Text);
}

TEST_F(ProjectFunctions, BadTextForABinaryFormNamesTheFileAndLineAndWritesNothing)
{
    const std::string before = ReadFileBytes(Folder / "Unit3.dfm");
    TStringList lines;
    lines.SetText("object Form3: TDtForm\r\n  Caption = 'unterminated\r\nend\r\n");
    try {
        QzDelphiFormTextToForm(&lines, Folder / "Unit3.dfm", sofBinary);
        FAIL() << "bad text was written";
    } catch (const ETextParseError& e) {
        EXPECT_NE(e.Message().find(Folder / "Unit3.dfm"), AnsiString::npos) << e.Message();
        EXPECT_EQ(e.Line(), 2);
    }
    EXPECT_EQ(ReadFileBytes(Folder / "Unit3.dfm"), before);
    EXPECT_FALSE(fs::exists(Folder / "Unit3.~dfm"));
}

TEST_F(ProjectFunctions, DesignedFormsAreOpenedOnceAndReadFromTheDesigner)
{
    TComponent* root = QzDelphiDesignForm(Folder / "Unit1.dfm");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->ClassType(), ClassOf<TDtForm>());
    EXPECT_NE(root->FindComponent("Button1"), nullptr);
    EXPECT_EQ(QzDelphiDesignForm(Folder / "unit1.dfm"), root);

    SetStrProp(root, "Caption", "Live");
    TStringList lines;
    TStreamOriginalFormat format = sofUnknown;
    ASSERT_TRUE(ReadForm("Unit1.dfm", lines, format));
    EXPECT_EQ(format, sofText);
    EXPECT_NE(lines.Text().find("Caption = 'Live'"), std::string::npos);

    // A binary form in the designer reports its stored format.
    ASSERT_NE(QzDelphiDesignForm(Folder / "Unit3.dfm"), nullptr);
    ASSERT_TRUE(ReadForm("Unit3.dfm", lines, format));
    EXPECT_EQ(format, sofBinary);

    // Writing the text of an open form: reads and designs come from the
    // new file, and the root handed out before is still there.
    ASSERT_TRUE(ReadForm("Unit3.dfm", lines, format));
    TComponent* before = QzDelphiDesignForm(Folder / "Unit3.dfm");
    lines.Put(1, "  Caption = 'Rewritten'");
    QzDelphiFormTextToForm(&lines, Folder / "Unit3.dfm", format);
    EXPECT_EQ(GetStrProp(before, "Caption"), "Three");
    EXPECT_EQ(GetStrProp(QzDelphiDesignForm(Folder / "Unit3.dfm"), "Caption"), "Rewritten");

    EXPECT_EQ(QzDelphiDesignForm(Folder / "Util.dfm"), nullptr);
    EXPECT_EQ(QzDelphiDesignForm(Folder / "Gone.dfm"), nullptr);

    // Saving the modified designers writes them in their own formats.
    Project->HeadlessDesigners().Find(Folder / "UNIT1.DFM")->Modified();
    EXPECT_EQ(Project->HeadlessDesigners().SaveModified(), 1);
    EXPECT_NE(ReadFileBytes(Folder / "UNIT1.DFM").find("'Live'"), std::string::npos);
    EXPECT_EQ(ReadFileBytes(Folder / "UNIT1.~dfm"), Form1Text);
}

TEST(ProjectServices, EveryFunctionAssertsThatServicesAreInstalled)
{
    TProjectServicesScope none(nullptr);
    TStringList lines;
    TStreamOriginalFormat format = sofText;
    const std::vector<std::function<void()>> calls = {
        [] { QzGetProjectName(); },
        [] { QzGetModuleCount(); },
        [] { QzGetFormCount(); },
        [&] { QzGetFormNames(&lines); },
        [&] { QzDelphiFormToFormText("a.dfm", &lines, format); },
        [&] { QzDelphiFormTextToForm(&lines, "a.dfm", format); },
        [] { QzDelphiDesignForm("a.dfm"); },
    };
    for (const auto& call : calls) {
        try {
            call();
            ADD_FAILURE() << "no assertion";
        } catch (const EAssertionFailed& e) {
            EXPECT_NE(e.Message().find("QzPortDsgn"), AnsiString::npos) << e.Message();
        }
    }
}

TEST(ProjectServices, AFolderWithoutProjectFileHasItsUnitsAndLooseForms)
{
    TTempFolder folder;
    folder.Write("Main.cpp", "");
    folder.Write("MAIN.DFM", Form1Text);
    folder.Write("Loose.dfm", Form2Text);
    folder.Write("Plain.cpp", "");
    folder.Write("sub/Page.pas", "");
    folder.Write("sub/Page.dfm", Form3Text);
    folder.Write(".git/Hidden.dfm", Form3Text);
    TFolderProject project(folder.Path());
    EXPECT_EQ(project.ProjectName(), fs::path(folder.Path()).filename().string());
    TProjectServicesScope scope(&project);
    TStringList names;
    QzGetFormNames(&names);
    EXPECT_EQ(QzGetModuleCount(), 4);
    EXPECT_EQ(names.Text(), folder / "Loose.dfm\r\n" + folder / "Main.dfm\r\n" + folder / "sub/Page.dfm\r\n");
    EXPECT_NE(QzDelphiDesignForm(folder / "Loose.dfm"), nullptr);

    // A form file alone is a project of that form, in its folder.
    TFolderProject single(folder / "sub/Page.dfm");
    EXPECT_EQ(single.ProjectName(), "Page");
    EXPECT_EQ(single.Folder(), folder / "sub");
    ASSERT_EQ(single.FormCount(), 1);
    EXPECT_EQ(single.Module(0).FormFileName(), folder / "sub/Page.dfm");
    EXPECT_THROW(TFolderProject(folder / "Main.cpp"), EFOpenError);
}

TEST(ProjectServices, ProjectFilesOfBothGenerationsListTheirUnits)
{
    const auto bpr = ParseProjectFile(ProjectText, "Project1.bpr");
    ASSERT_EQ(bpr.size(), 7u);
    EXPECT_EQ(bpr[3].FileName, "Forms/Unit2.cpp");
    EXPECT_EQ(bpr[3].FormName, "Form2");
    EXPECT_EQ(bpr[3].UnitName, "Unit2");

    const auto cbproj = ParseProjectFile(R"(<Project xmlns="http://schemas.microsoft.com/developer/msbuild/2003">
    <ItemGroup>
        <CppCompile Include="App.cpp"><BuildOrder>0</BuildOrder></CppCompile>
        <CppCompile Include="..\src\Main.cpp">
            <Form>MainF</Form>
            <DependentOn>..\src\Main.h</DependentOn>
        </CppCompile>
        <LibFiles Include="z.lib" Condition="'$(Platform)'=='Win32'"/>
        <FormResources Include="..\src\Main.dfm"/>
    </ItemGroup>
</Project>)",
                                         "App.cbproj");
    ASSERT_EQ(cbproj.size(), 3u);
    EXPECT_EQ(cbproj[0].FormName, "");
    EXPECT_EQ(cbproj[1].FileName, "../src/Main.cpp");
    EXPECT_EQ(cbproj[1].FormName, "MainF");
    EXPECT_EQ(cbproj[2].FileName, "z.lib");

    for (const char* bad : {"<PROJECT>\n<FILE FILENAME=\"a.cpp\n", "<PROJECT>\n\n<!-- open", "<A>\n<FILE X=1/>"}) {
        try {
            ParseProjectFile(bad, "Bad.bpr");
            ADD_FAILURE() << bad;
        } catch (const ETextParseError& e) {
            EXPECT_EQ(e.Message().rfind("Bad.bpr: line ", 0), 0u) << e.Message();
            EXPECT_GE(e.Line(), 2) << e.Message();
        }
    }
}

// Every binary form of the corpus that converts to text and back exactly
// reads through the project as text and, written back unchanged, is the
// file it was, strings and floats as they were: as its resource, and as the
// bare binary stream inside it.
TEST(ProjectServices, BinaryFormsWrittenBackUnchangedAreTheFilesTheyWere)
{
    TTempFolder folder;
    const std::string name = folder / "Form.dfm";
    folder.Write("Form.dfm", "object Form: TForm\r\nend\r\n");
    TFolderProject project(folder.Path());
    const auto writtenBackUnchanged = [&](const std::string& original) {
        folder.Write("Form.dfm", original);
        TStringList lines;
        TStreamOriginalFormat stored = sofUnknown;
        if (!project.ReadFormText(name, lines, stored) || stored != sofBinary)
            return false;
        project.WriteFormText(lines, name, stored);
        return ReadFileBytes(name) == original;
    };
    int checked = 0;
    for (const TCorpusFile& file : CorpusFiles()) {
        const std::string resource = ReadCorpusFile(file);
        if (DetectFormFormat(resource) != TFormFormat::Resource)
            continue;
        const TFormTextOptions options = DetectFormTextOptions(resource);
        const std::string binary(FormResourceBody(resource));
        try {
            if (FormTextToBinary(FormToText(binary, options), options) != binary)
                continue;
        } catch (const Exception&) {
            continue;   // the conversion itself does not carry it
        }
        EXPECT_TRUE(writtenBackUnchanged(resource)) << file.Path;
        EXPECT_TRUE(writtenBackUnchanged(binary)) << file.Path << " as a bare binary form";
        ++checked;
    }
    if (checked == 0)
        GTEST_SKIP() << "corpus not present";
    EXPECT_GE(checked, 60);
}

TEST(ProjectServices, RealProjectsFindTheirFormsWhateverTheirCase)
{
    const std::string project = CorpusDir() + "/MSK61__connect4/Connect4.bpr";
    if (!fs::exists(project))
        GTEST_SKIP() << "corpus not present";
    RegisterComponentStreamClasses();
    TFolderProject connect4(project);
    TProjectServicesScope scope(&connect4);
    EXPECT_EQ(QzGetProjectName(), "Connect4");
    EXPECT_EQ(QzGetModuleCount(), 8);
    EXPECT_EQ(QzGetFormCount(), 3);
    TStringList names;
    QzGetFormNames(&names);
    for (int i = 0; i < names.Count(); ++i) {
        TStringList lines;
        TStreamOriginalFormat format = sofUnknown;
        EXPECT_TRUE(QzDelphiFormToFormText(names[i], &lines, format)) << names[i];
        EXPECT_EQ(lines[0].rfind("object ", 0), 0u) << names[i];
    }
}

}  // namespace
