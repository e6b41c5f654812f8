// Pages in the designer: a click on a page control's tab or an outlook
// bar's button shows its page, through ActivePage as one undo step where
// the class is known, on the surface alone where it is not; selecting a
// component on a hidden sheet brings the sheet forward on the surface.

#include "IdeFixture.h"

#include "ide/QzControlLook.h"
#include "ide/QzDesignSurface.h"
#include "ide/QzPageButtons.h"

#include "runtime/components/QzPages.h"

#include <QTest>
#include <QUndoStack>

namespace {

// Where the tab or button of page lies on the surface.
QPoint ButtonOf(TQzDesignSurface* s, TComponent* paged, const char* page)
{
    for (const TQzPageButton& b : QzPageButtons(paged, s->SurfaceRect(paged), nullptr, s->fontMetrics()))
        if (b.Page->Name() == page)
            return b.Rect.center();
    ADD_FAILURE() << "no button for " << page;
    return {};
}

void Click(TQzDesignSurface* s, const QPoint& at) { QTest::mouseClick(s, Qt::LeftButton, {}, at); }

// A page of an outlook bar with a button on it, as the designer writes it.
std::string OutlookPage(const std::string& page, const std::string& button)
{
    return "    object " + page + ": TQzOutLookBarPage\r\n"
           "      Left = 0\r\n      Top = 24\r\n      Width = 121\r\n      Height = 193\r\n"
           "      object " + button + ": TQzBitBtn\r\n"
           "        Left = 8\r\n        Top = 8\r\n        Width = 75\r\n        Height = 25\r\n"
           "      end\r\n"
           "    end\r\n";
}

}  // namespace

class TIdePagesTest : public TIdeTest {
protected:
    // Opens a project of one form, given as text.
    TIdeDesigner* OpenForm(const std::string& text)
    {
        WriteBytes(FOther.filePath("Paged.cpp"), "// unit\n");
        WriteBytes(FOther.filePath("Paged.dfm"), text);
        EXPECT_TRUE(FWindow->OpenProject(FOther.path()));
        return FWindow->CurrentDesigner();
    }
    QTemporaryDir FOther;
};

TEST_F(TIdePagesTest, ATabShowsItsSheetAsOneUndoableStep)
{
    TIdeDesigner* d = Main();
    TQzDesignSurface* s = Surface(d);
    auto* pages = static_cast<TQzPageControl*>(Find("Pages"));
    EXPECT_EQ(QzPageTitle(pages, Find("SheetNotes")), "Notes");   // the item's caption label
    const std::string before = d->Snapshot();

    Click(s, ButtonOf(s, pages, "SheetNotes"));
    EXPECT_EQ(static_cast<TQzPageControl*>(Find("Pages"))->ActivePage(), Find("SheetNotes"));
    ASSERT_EQ(d->SelectedComponents().size(), 1u);
    EXPECT_EQ(d->SelectedComponents().front(), Find("SheetNotes"));
    EXPECT_EQ(s->ComponentAt(s->SurfaceRect(Find("MemoNotes")).center()), Find("MemoNotes"));
    EXPECT_EQ(d->UndoStack()->count(), 1);
    EXPECT_EQ(d->UndoStack()->text(0), "Show SheetNotes");
    EXPECT_TRUE(d->IsModified());

    // The tab of the page shown only selects it.
    Click(s, ButtonOf(s, Find("Pages"), "SheetNotes"));
    EXPECT_EQ(d->UndoStack()->count(), 1);

    d->UndoStack()->undo();
    EXPECT_EQ(d->Snapshot(), before);
    d->SelectComponent(Find("EditName"));
    EXPECT_EQ(s->ComponentAt(s->SurfaceRect(Find("EditName")).center()), Find("EditName"));

    // Choosing a control on a hidden sheet shows the sheet on the surface
    // alone, and changing it keeps it shown; once the selection is
    // elsewhere, a change shows what the form says again.
    const QPoint memo = s->SurfaceRect(Find("MemoNotes")).center();
    d->SelectComponent(Find("MemoNotes"));
    EXPECT_EQ(s->ComponentAt(memo), Find("MemoNotes"));
    EXPECT_EQ(d->Snapshot(), before);
    EXPECT_EQ(d->UndoStack()->count(), 1);   // the undone step, nothing new
    QTest::keyClick(s, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(s->ComponentAt(memo), Find("MemoNotes"));
    d->SelectComponent(Find("ButtonSave"));
    d->Change("Rename", [&] {
        Find("ButtonSave")->SetName("ButtonStore");
        d->Modified();
    });
    EXPECT_EQ(s->ComponentAt(s->SurfaceRect(Find("EditName")).center()), Find("EditName"));
}

TEST_F(TIdePagesTest, PagesOfUnknownControlsAreShownWithoutChangingTheForm)
{
    TIdeDesigner* d = OpenForm(
        "object Paged: TForeignForm\r\n  ClientWidth = 300\r\n  ClientHeight = 200\r\n"
        "  object Book1: TMyBook\r\n    Left = 10\r\n    Top = 10\r\n    Width = 200\r\n    Height = 120\r\n"
        "    ActivePage = Sheet1\r\n"
        // A page control by its ActivePage; its sheets store no size.
        "    object Sheet1: TMyTabSheet\r\n      Caption = '&One'\r\n"
        "      object Label1: TMyLabel\r\n        Left = 8\r\n        Top = 8\r\n        Width = 40\r\n        Height = 13\r\n"
        "      end\r\n"
        "    end\r\n"
        "    object Sheet2: TMyTabSheet\r\n      Caption = 'Two'\r\n"
        "      object Edit2: TMyEdit\r\n        Left = 8\r\n        Top = 40\r\n        Width = 100\r\n        Height = 21\r\n"
        "      end\r\n"
        "    end\r\n"
        "  end\r\n"
        "end\r\n");
    ASSERT_NE(d, nullptr);
    TQzDesignSurface* s = FWindow->SurfaceOf(d);
    TComponent* book = d->GetComponent("Book1");
    const std::string before = d->Snapshot();
    const auto at = [&](const char* name) { return s->ComponentAt(s->SurfaceRect(d->GetComponent(name)).center()); };
    TComponent* sheet2 = d->GetComponent("Sheet2");
    EXPECT_TRUE(QzIsPageControl(book));
    EXPECT_TRUE(QzIsControl(sheet2));   // it sits on a control
    EXPECT_EQ(QzPageTitle(book, sheet2), "Two");
    // A tab is as wide as its caption drawn, the mnemonic marker taking no room.
    const auto tabs = QzPageButtons(book, s->SurfaceRect(book), nullptr, s->fontMetrics());
    ASSERT_EQ(tabs.size(), 2u);
    EXPECT_EQ(tabs[0].Rect.width(), s->fontMetrics().horizontalAdvance("One") + 14);
    const QRect bookRect = s->SurfaceRect(book);
    EXPECT_EQ(bookRect, QRect(s->ClientOrigin() + QPoint(10, 10), QSize(200, 120)));
    EXPECT_TRUE(bookRect.contains(s->SurfaceRect(sheet2)));
    EXPECT_EQ(s->SurfaceRect(d->GetComponent("Edit2")).topLeft(), s->SurfaceRect(sheet2).topLeft() + QPoint(8, 40));
    // Only the shown sheet's controls are there to be clicked.
    EXPECT_EQ(at("Label1"), d->GetComponent("Label1"));
    EXPECT_EQ(at("Edit2"), d->GetComponent("Sheet1"));

    Click(s, ButtonOf(s, book, "Sheet2"));
    EXPECT_EQ(at("Edit2"), d->GetComponent("Edit2"));
    EXPECT_EQ(d->SelectedComponents().front(), d->GetComponent("Sheet2"));
    EXPECT_EQ(d->Snapshot(), before);
    EXPECT_EQ(d->UndoStack()->count(), 0);

    // Choosing a component on the hidden page brings it forward.
    d->SelectComponent(d->GetComponent("Label1"));
    EXPECT_EQ(at("Label1"), d->GetComponent("Label1"));
    EXPECT_EQ(d->Snapshot(), before);
}

TEST_F(TIdePagesTest, AnOutlookBarsButtonShowsItsPageBetweenTheButtons)
{
    TIdeDesigner* d = OpenForm(
        "object Paged: TQzCForm\r\n  ClientWidth = 300\r\n  ClientHeight = 260\r\n"
        "  object Bar1: TQzOutLookBar\r\n    Left = 0\r\n    Top = 0\r\n    Width = 121\r\n    Height = 241\r\n"
        "    ActivePage = Page1\r\n" +
        OutlookPage("Page1", "Button1") + OutlookPage("Page2", "Button2") +
        "  end\r\n"
        "end\r\n");
    ASSERT_NE(d, nullptr);
    TQzDesignSurface* s = FWindow->SurfaceOf(d);
    const QRect bar = s->SurfaceRect(d->GetComponent("Bar1"));
    // The first page's button on top, the second's at the bottom.
    EXPECT_EQ(ButtonOf(s, d->GetComponent("Bar1"), "Page2").y(), bar.top() + 241 - 24 + 11);

    Click(s, ButtonOf(s, d->GetComponent("Bar1"), "Page2"));
    auto* outlook = static_cast<TQzOutLookBar*>(d->GetComponent("Bar1"));
    EXPECT_EQ(outlook->ActivePage(), d->GetComponent("Page2"));
    EXPECT_EQ(d->UndoStack()->text(0), "Show Page2");
    // Below both buttons now, with its button.
    EXPECT_EQ(s->SurfaceRect(d->GetComponent("Page2")), QRect(bar.left(), bar.top() + 48, 121, 193));
    EXPECT_EQ(s->ComponentAt(s->SurfaceRect(d->GetComponent("Button2")).center()), d->GetComponent("Button2"));
    EXPECT_EQ(ButtonOf(s, outlook, "Page2").y(), bar.top() + 24 + 11);
}
