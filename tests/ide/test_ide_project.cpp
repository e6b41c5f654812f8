// Opening the demo project: forms listed at once and read when shown, the
// component tree, the palette, selection in the designer, tree and
// inspector, and forms that cannot be read.

#include "IdeFixture.h"

#include "ide/QzComponentTree.h"
#include "ide/QzControlLook.h"
#include "ide/QzDesignSurface.h"
#include "designide/forms/QzIdeProject.h"
#include "ide/QzInspector.h"
#include "ide/QzPalette.h"

#include "designide/DesignIntf.h"

#include "rtl/ComponentStream.h"

#include <QListWidget>
#include <QTest>
#include <QTreeView>

namespace {

QStringList TopRows(const TQzInspectorModel* model)
{
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row)
        names << model->index(row, 0).data().toString();
    return names;
}

}  // namespace

TEST_F(TIdeTest, FormsAreListedAtOnceAndReadIntoTheirClassesWhenShown)
{
    TIdeProject* project = FWindow->Project();
    ASSERT_EQ(project->FormCount(), 3);
    const QStringList expected{"Main.dfm", "About.dfm", "Options.dfm"};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(FWindow->FormsList()->item(i)->text(), expected[i]);
    // Only the first form is read on opening.
    EXPECT_NE(project->Designer(0), nullptr);
    EXPECT_EQ(project->Designer(1), nullptr);
    EXPECT_EQ(project->Designer(2), nullptr);

    // Clicking a form in the list opens it in a new tab and makes it current.
    QListWidget* list = FWindow->FormsList();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    ASSERT_NE(project->Designer(1), nullptr);
    EXPECT_EQ(FWindow->CurrentDesigner(), project->Designer(1));
    EXPECT_EQ(FWindow->FormTabs()->count(), 2);
    EXPECT_EQ(FWindow->Tree()->topLevelItem(0)->text(0), "AboutBox: TQzCForm");

    // Every form reads into the runtime's classes and its tree.
    for (int i = 0; i < FWindow->Project()->FormCount(); ++i) {
        TIdeDesigner* d = FWindow->ShowForm(i);
        ASSERT_NE(d, nullptr) << i;
        EXPECT_TRUE(FDialogs->Script().Calls().empty()) << "form " << i << " reported a problem";
        TComponent* root = d->GetRoot();
        // The demo uses only the runtime's classes: nothing is unknown.
        for (int c = 0; c < root->ComponentCount(); ++c)
            EXPECT_EQ(dynamic_cast<TUnknownComponent*>(root->Components(c)), nullptr) << root->Components(c)->Name();
        // The tree shows the root and every component once.
        int items = 0;
        for (QTreeWidgetItemIterator it(FWindow->Tree()); *it; ++it)
            ++items;
        EXPECT_EQ(items, root->ComponentCount() + 1);
    }
}

TEST_F(TIdeTest, TreeNestsControlsUnderTheirParents)
{
    TQzComponentTree* tree = FWindow->Tree();
    QTreeWidgetItem* edit = tree->ItemOf(Find("EditName"));
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(0), "EditName: TQzEdit");
    ASSERT_NE(edit->parent(), nullptr);
    EXPECT_EQ(tree->ComponentOf(edit->parent()), Find("SheetCustomer"));
    EXPECT_EQ(tree->ComponentOf(edit->parent()->parent()), Find("Pages"));
    // Packages sit directly under the form.
    EXPECT_EQ(tree->ComponentOf(tree->ItemOf(Find("PkgStrings"))->parent()), Main()->GetRoot());
}

TEST_F(TIdeTest, PaletteShowsTheRegisteredPagesInOrder)
{
    QStringList registered;
    for (const TPalettePage& page : DesignRegistry().Pages())
        registered << QString::fromStdString(page.Name);
    ASSERT_FALSE(registered.isEmpty());
    EXPECT_EQ(FWindow->Palette()->PageNames(), registered);
    // Every class of a page has its button, in the page's order.
    const TPalettePage& first = DesignRegistry().Pages().front();
    for (TMetaClass* cls : first.Classes)
        EXPECT_NE(FWindow->Palette()->ButtonOf(cls), nullptr) << cls->ClassName();
}

TEST_F(TIdeTest, SelectionFollowsTreeSurfaceInspectorAndRubberBand)
{
    TQzDesignSurface* surface = Surface(Main());
    // A click on the surface selects the control under it...
    const QRect edit = surface->SurfaceRect(Find("EditName"));
    QTest::mouseClick(surface, Qt::LeftButton, {}, edit.center());
    ASSERT_EQ(Main()->SelectedComponents(), std::vector<TComponent*>{Find("EditName")});
    EXPECT_TRUE(FWindow->Tree()->ItemOf(Find("EditName"))->isSelected());
    EXPECT_TRUE(FWindow->Inspector()->Properties()->Find("Value").isValid());

    // ...Shift+click adds another: the inspector keeps what both publish.
    QTest::mouseClick(surface, Qt::LeftButton, Qt::ShiftModifier, surface->SurfaceRect(Find("LabelName")).center());
    ASSERT_EQ(Main()->SelectedComponents().size(), 2u);
    const QStringList shared = TopRows(FWindow->Inspector()->Properties());
    EXPECT_TRUE(shared.contains("Left"));
    EXPECT_TRUE(shared.contains("Width"));
    EXPECT_FALSE(shared.contains("WordWrap"));   // a label's own
    EXPECT_FALSE(shared.contains("Name"));       // never for several

    // Selecting in the tree selects in the designer.
    FWindow->Tree()->clearSelection();
    FWindow->Tree()->ItemOf(Find("ButtonSave"))->setSelected(true);
    EXPECT_EQ(Main()->SelectedComponents(), std::vector<TComponent*>{Find("ButtonSave")});

    // A rubber band from empty client area left of the buttons to the middle
    // of Cancel selects the controls it touches.
    const QRect save = surface->SurfaceRect(Find("ButtonSave"));
    const QPoint cancel = surface->SurfaceRect(Find("ButtonCancel")).center();
    QTest::mousePress(surface, Qt::LeftButton, {}, save.topLeft() - QPoint(6, 4));
    QTest::mouseMove(surface, cancel);
    QTest::mouseRelease(surface, Qt::LeftButton, {}, cancel);
    std::vector<TComponent*> selected = Main()->SelectedComponents();
    std::sort(selected.begin(), selected.end());
    std::vector<TComponent*> expected{Find("ButtonSave"), Find("ButtonCancel")};
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(selected, expected);
}

TEST_F(TIdeTest, SurfaceDrawsControlsWithinTheirParentsAndIconsAtTheirPlace)
{
    TQzDesignSurface* surface = Surface(Main());
    const QPoint client = surface->ClientOrigin();
    // A control on a sheet on a page control: offsets add up.
    const QRect sheet = surface->SurfaceRect(Find("SheetCustomer"));
    EXPECT_EQ(surface->SurfaceRect(Find("EditName")).topLeft(), sheet.topLeft() + QPoint(96, 16));
    EXPECT_TRUE(surface->SurfaceRect(Find("Pages")).contains(sheet));
    EXPECT_EQ(surface->SurfaceRect(Find("ButtonSave")), QRect(client + QPoint(336, 324), QSize(75, 25)));
    // Non-visual components sit where the form file put them.
    EXPECT_EQ(surface->SurfaceRect(Find("PkgStrings")).topLeft(), client + QPoint(140, 318));
    EXPECT_EQ(surface->ComponentAt(surface->SurfaceRect(Find("PkgStrings")).center()), Find("PkgStrings"));
    // Only the active sheet's controls can be hit.
    EXPECT_NE(surface->ComponentAt(surface->SurfaceRect(Find("MemoNotes")).center()), Find("MemoNotes"));
    // The surface paints without trouble (and is big enough for the form).
    EXPECT_GE(surface->sizeHint().width(), surface->SurfaceRect(Main()->GetRoot()).right());
    EXPECT_FALSE(surface->grab().isNull());
}

// Forms that cannot be read: the message names the file and where, the
// form does not open, and the file is left as it was.
TEST_F(TIdeTest, UnreadableFormsAreReportedAndNotOpened)
{
    struct TCase {
        const char* Name;
        std::string Bytes;
        const char* Where;   // what the message must say besides the file
    };
    const std::vector<TCase> cases = {
        {"Broken", "object Broken: TQzCForm\r\n  Left = 1\r\n  Top = \r\n  Caption = 'x'\r\nend\r\n", "line 4"},
        {"Unclosed", "object Unclosed: TQzCForm\r\n  Left = 1\r\n  object A: TQzLabel\r\n", "line"},
        {"Damaged", std::string("TPF0\x08TQzCForm\x06" "Dam", 17), "Damaged.dfm"},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Name);
        QTemporaryDir dir;
        const QString form = dir.filePath(QString(c.Name) + ".dfm");
        WriteBytes(dir.filePath(QString(c.Name) + ".cpp"), "// unit\n");
        WriteBytes(form, c.Bytes);
        FDialogs->Script().AnswerMessage(mbOK);
        ASSERT_TRUE(FWindow->OpenProject(dir.path()));
        EXPECT_EQ(FWindow->Project()->Designer(0), nullptr);
        EXPECT_EQ(FWindow->FormTabs()->count(), 0);
        ASSERT_FALSE(FDialogs->Script().Calls().empty());
        const AnsiString text = FDialogs->Script().Calls().back().Message.Text;
        EXPECT_NE(text.find(std::string(c.Name) + ".dfm"), AnsiString::npos) << text;
        EXPECT_NE(text.find(c.Where), AnsiString::npos) << text;
        EXPECT_EQ(ReadBytes(form), c.Bytes);
        EXPECT_FALSE(QFile::exists(dir.filePath(QString(c.Name) + ".~dfm")));
    }
}
