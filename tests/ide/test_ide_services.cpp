// The host as the design package sees it (the project services read and
// design the forms open in the window) and forms whose classes are not
// registered.

#include "IdeFixture.h"

#include "ide/QzComponentTree.h"
#include "ide/QzControlLook.h"
#include "ide/QzDesignSurface.h"
#include "designide/forms/QzIdeProject.h"

#include "designide/forms/QzMenuBar.h"
#include "designide/QzPortDsgn.h"

#include "rtl/StringList.h"
#include "rtl/SysUtils.h"

#include <QTabWidget>
#include <QTest>
#include <QUndoStack>

namespace {

int LineOf(const TStringList& lines, const AnsiString& text)
{
    for (int i = 0; i < lines.Count(); ++i)
        if (Trim(lines.Strings(i)) == text)
            return i;
    return -1;
}

}  // namespace

TEST_F(TIdeTest, ProjectServicesReadAndWriteTheFormsOpenInTheWindow)
{
    EXPECT_EQ(QzGetFormCount(), 3);
    SetOrdProp(Find("LabelCity"), GetPropInfo(Find("LabelCity"), "Top"), 77);
    Main()->Modified();

    // The open form, changed and unsaved, is what the package reads.
    TStringList lines;
    TStreamOriginalFormat format = sofUnknown;
    ASSERT_TRUE(QzDelphiFormToFormText(Path("Main.dfm").toStdString(), &lines, format));
    EXPECT_EQ(format, sofText);
    EXPECT_GE(LineOf(lines, "Top = 77"), 0);

    // A form not open yet is opened in a designer of the window.
    ASSERT_TRUE(QzDelphiFormToFormText(Path("About.dfm").toStdString(), &lines, format));
    EXPECT_EQ(format, sofBinary);
    TComponent* about = QzDelphiDesignForm(Path("About.dfm").toStdString());
    ASSERT_NE(FWindow->Project()->Designer(1), nullptr);
    EXPECT_EQ(about, FWindow->Project()->Designer(1)->GetRoot());

    // A form the package writes is read again into its tab.
    ASSERT_NE(FWindow->ShowForm(2), nullptr);
    const int tabs = FWindow->FormTabs()->count();
    ASSERT_TRUE(QzDelphiFormToFormText(Path("Options.dfm").toStdString(), &lines, format));
    const int caption = LineOf(lines, "Caption = 'Options'");
    ASSERT_GE(caption, 0);
    lines.Put(caption, "  Caption = 'Settings'");
    QzDelphiFormTextToForm(&lines, Path("Options.dfm").toStdString(), format);

    TIdeDesigner* reread = FWindow->Project()->Designer(2);
    ASSERT_NE(reread, nullptr);
    EXPECT_EQ(QzFormCaption(reread->GetRoot()), "Settings");
    EXPECT_EQ(FWindow->CurrentDesigner(), reread);
    EXPECT_NE(FWindow->SurfaceOf(reread), nullptr);
    EXPECT_EQ(FWindow->FormTabs()->count(), tabs);
    EXPECT_TRUE(QFile::exists(Path("Options.~dfm")));
}

// A form of classes nobody registered still opens: drawn from its values,
// kept as it was, deletable with undo, but not moved.
TEST_F(TIdeTest, UnregisteredClassesAreDrawnKeptAndNotMoved)
{
    QTemporaryDir dir;
    const std::string form =
        "object Foreign: TForeignForm\r\n  ClientWidth = 300\r\n  ClientHeight = 200\r\n  Caption = 'Foreign'\r\n"
        "  Menu = Menu1\r\n"
        "  object Grid1: TMyGrid\r\n    Left = 10\r\n    Top = 20\r\n    Width = 150\r\n    Height = 60\r\n"
        "    Caption.PkgName = 'DEMO'\r\n    Caption.Id = 7\r\n  end\r\n"
        "  object Timer1: TMyTimer\r\n    Left = 200\r\n    Top = 120\r\n  end\r\n"
        "  object Menu1: TMyMainMenu\r\n    Left = 200\r\n    Top = 160\r\n"
        "    object File1: TMyMenuItem\r\n      Caption = '&File'\r\n    end\r\n"
        "    object Debug1: TMyMenuItem\r\n      Caption = 'Debug'\r\n      Visible = False\r\n    end\r\n"
        "    object Help1: TMyMenuItem\r\n    end\r\n"
        "  end\r\n"
        "  object Images1: TMyImageList\r\n    Left = 240\r\n    Top = 160\r\n    Width = 24\r\n    Height = 24\r\n"
        "  end\r\n"
        "  object Actions1: TMyActionList\r\n    Left = 240\r\n    Top = 120\r\n"
        "    object Action1: TMyAction\r\n    end\r\n"
        "  end\r\n"
        "end\r\n";
    WriteBytes(dir.filePath("Foreign.cpp"), "// unit\n");
    WriteBytes(dir.filePath("Foreign.dfm"), form);
    ASSERT_TRUE(FWindow->OpenProject(dir.path()));
    TIdeDesigner* d = FWindow->CurrentDesigner();
    ASSERT_NE(d, nullptr);
    TQzDesignSurface* s = FWindow->SurfaceOf(d);
    TComponent* grid = d->GetComponent("Grid1");
    TComponent* timer = d->GetComponent("Timer1");
    ASSERT_TRUE(grid && timer);

    EXPECT_EQ(QzClientSize(d->GetRoot()), QSize(300, 200));
    EXPECT_EQ(QzFormCaption(d->GetRoot()), "Foreign");
    EXPECT_TRUE(QzIsControl(grid));
    EXPECT_FALSE(QzIsControl(timer));
    EXPECT_FALSE(QzIsControl(d->GetComponent("Images1")));
    // The menu's bar lies between caption and client, which keeps its size.
    EXPECT_EQ(QzMenuBarHeight(d->GetRoot()), 19);
    EXPECT_EQ(s->ClientOrigin() - s->SurfaceRect(d->GetRoot()).topLeft(), QPoint(4, 4 + 19 + 19));   // border, caption, bar
    EXPECT_EQ(s->SurfaceRect(d->GetRoot()).size(), QSize(4 + 300 + 4, 4 + 19 + 19 + 200 + 4));
    EXPECT_EQ(QzMenuBarCaptions(QzFormMenu(d->GetRoot())), (std::vector<AnsiString>{"&File", "Help1"}));
    EXPECT_EQ(s->SurfaceRect(grid), QRect(s->ClientOrigin() + QPoint(10, 20), QSize(150, 60)));
    EXPECT_EQ(s->SurfaceRect(timer).topLeft(), s->ClientOrigin() + QPoint(200, 120));
    EXPECT_EQ(QzTextValue(grid, "Caption"), "(7, DEMO)");
    EXPECT_EQ(FWindow->Tree()->ItemOf(grid)->text(0), "Grid1: TMyGrid");

    // Components inside non-visual ones are not controls.
    EXPECT_FALSE(QzIsControl(d->GetComponent("Action1")));
    EXPECT_FALSE(QzIsPageControl(grid));

    // Nothing to set: a nudge changes nothing and records nothing.
    d->SelectComponent(grid);
    QTest::keyClick(s, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(d->UndoStack()->count(), 0);
    EXPECT_EQ(d->Form().FormText(), form);

    // Deleting and undoing brings it back as it was.
    QTest::keyClick(s, Qt::Key_Delete);
    EXPECT_EQ(d->GetComponent("Grid1"), nullptr);
    d->UndoStack()->undo();
    EXPECT_EQ(d->Form().FormText(), form);
    d->Form().ClearModified();
}

// A data module is told from a form by the order of its bounds: it writes
// them last, height first. It is drawn as a plain area of that size.
TEST_F(TIdeTest, DataModulesAreAPlainAreaOfTheirSize)
{
    EXPECT_FALSE(QzIsDataModule(Main()->GetRoot()));
    QTemporaryDir dir;
    WriteBytes(dir.filePath("Data.dfm"), "object Data: TData\r\n  OldCreateOrder = False\r\n  Left = 200\r\n  Top = 100\r\n"
                                         "  Height = 150\r\n  Width = 215\r\n"
                                         "  object Hint1: TMyProposal\r\n    Width = 262\r\n    Left = 40\r\n    Top = 16\r\n"
                                         "  end\r\n"
                                         "end\r\n");
    ASSERT_TRUE(FWindow->OpenProject(dir.path()));
    TIdeDesigner* d = FWindow->CurrentDesigner();
    ASSERT_NE(d, nullptr);
    TQzDesignSurface* s = FWindow->SurfaceOf(d);
    EXPECT_TRUE(QzIsDataModule(d->GetRoot()));
    EXPECT_EQ(QzClientSize(d->GetRoot()), QSize(215, 150));
    EXPECT_EQ(s->ClientOrigin() - s->SurfaceRect(d->GetRoot()).topLeft(), QPoint(1, 1));
}
