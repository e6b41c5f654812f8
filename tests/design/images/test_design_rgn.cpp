// The mask editor: brush, fill and undo on the masks, what reaches the image
// on Ok and Cancel, and the window driven with the mouse.

#include "design/images/QzDesignRgnLogic.h"
#include "design/images/QzRgnView.h"
#include "design/images/Qzvtdesignrgn.h"
#include "design/images/Qzvtmemoryimageadd.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPng.h"

#include "support/gui/QzModalDriver.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QMenu>
#include <QTest>

#include <memory>

namespace {

// White with a red diagonal, which splits the white into two triangles
// that do not touch side by side.
QImage Diagonal(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int i = 0; i < side; ++i)
        image.setPixel(i, i, qRgb(255, 0, 0));
    return image;
}

Int64 Cut(const TQzRgnDocument& d, TQzMaskKind kind = TQzMaskKind::Internal)
{
    return QzMaskClearCount(d.Mask(kind));
}

class DesignRgn : public TQzGuiTest {
protected:
    void SetUp() override
    {
        TQzDetachedPkgs detached;
        Pkg = std::make_unique<TQzPkgImages>(nullptr);
        Image = Pkg->Images()->Add(1);
        TQzPicture(Image).LoadFromBytes(QzPicturePng(Diagonal(16)).toStdString(), "diagonal.png");
    }
    std::unique_ptr<TQzPkgImages> Pkg;
    TQzPkgImagesImage* Image = nullptr;
};

}  // namespace

TEST(DesignRgnDocument, BrushesAreRoundClippedAndStrokesLeaveNoGaps)
{
    const struct {
        int Size;
        QPoint At;
        Int64 Cut;
    } dabs[] = {{1, {5, 5}, 1}, {3, {5, 5}, 9}, {4, {5, 5}, 12}, {3, {0, 0}, 4}, {1, {-1, 3}, 0}};
    for (const auto& c : dabs) {
        SCOPED_TRACE(c.Size);
        TQzRgnDocument d(Diagonal(10), {}, {});
        d.BeginStroke(true, c.Size);
        d.StrokeTo(c.At);
        d.EndStroke();
        EXPECT_EQ(Cut(d), c.Cut);
        EXPECT_EQ(d.CanUndo(), c.Cut > 0) << "an edit that changes nothing is no step";
    }
    // A jump from one corner to the other is drawn as a line, not two dots.
    TQzRgnDocument d(Diagonal(10), {}, {});
    d.BeginStroke(true, 1);
    d.StrokeTo({0, 0});
    d.StrokeTo({9, 9});
    d.EndStroke();
    EXPECT_EQ(Cut(d), 10);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(d.Mask(TQzMaskKind::Internal).pixelIndex(i, i), 0);
}

TEST(DesignRgnDocument, FillsStopAtColourOrMaskEdges)
{
    TQzRgnDocument d(Diagonal(4), {}, {});
    // By colour: the white below the red diagonal, which the diagonal
    // bounds even though the mask is the same everywhere.
    d.Fill({0, 3}, true, true);
    EXPECT_EQ(Cut(d), 6);
    // By mask value: the cut area given back in one click.
    d.Fill({1, 3}, false, false);
    EXPECT_EQ(Cut(d), 0);
    // By mask value over an untouched mask: everything.
    d.Fill({2, 0}, true, false);
    EXPECT_EQ(Cut(d), 16);
}

TEST(DesignRgnDocument, UndoAndRedoWalkBothMasksInOrder)
{
    TQzRgnDocument d(Diagonal(4), {}, {});
    d.Fill({0, 3}, true, true);
    d.SetKind(TQzMaskKind::External);
    d.Invert();
    d.SetAll(false);
    EXPECT_EQ(Cut(d, TQzMaskKind::External), 0);

    d.Undo();
    EXPECT_EQ(Cut(d, TQzMaskKind::External), 16);
    d.Undo();
    EXPECT_EQ(Cut(d, TQzMaskKind::External), 0);
    d.Undo();
    EXPECT_EQ(d.Kind(), TQzMaskKind::Internal) << "undo shows the mask it changed";
    EXPECT_EQ(Cut(d), 0);
    EXPECT_FALSE(d.CanUndo());
    EXPECT_FALSE(d.Modified(TQzMaskKind::Internal));

    d.Redo();
    d.Redo();
    EXPECT_EQ(Cut(d), 6);
    EXPECT_EQ(Cut(d, TQzMaskKind::External), 16);
    d.Invert();
    EXPECT_FALSE(d.CanRedo()) << "a new edit forgets what was undone";

    for (int i = 0; i < TQzRgnDocument::MaxUndo + 5; ++i)
        d.Invert();
    int steps = 0;
    while (d.CanUndo()) {
        d.Undo();
        ++steps;
    }
    EXPECT_EQ(steps, TQzRgnDocument::MaxUndo);
}

TEST_F(DesignRgn, OnlyChangedMasksAreStoredAndAFullMaskIsNone)
{
    TQzPicture picture(Image);
    picture.CreateExternalMask(QzMaskColorAuto);
    const auto before = Image->Extensions();
    const Int64 externalCut = QzMaskClearCount(picture.GetExternalMask());

    TQzRgnDocument unchanged = TQzRgnDocument::FromPicture(picture);
    EXPECT_EQ(Cut(unchanged, TQzMaskKind::External), externalCut) << "the stored mask is where editing starts";
    unchanged.Fill({0, 0}, true, true);
    unchanged.Undo();
    EXPECT_FALSE(unchanged.Store(picture));
    EXPECT_EQ(Image->Extensions(), before);

    TQzRgnDocument edited = TQzRgnDocument::FromPicture(picture);
    edited.Fill({15, 0}, true, true);
    edited.SetKind(TQzMaskKind::External);
    edited.SetAll(false);
    ASSERT_TRUE(edited.Store(picture));
    EXPECT_EQ(QzMaskClearCount(picture.GetInternalMask()), 15 * 16 / 2);
    EXPECT_TRUE(picture.GetExternalMask().isNull()) << "a mask that keeps everything is removed";

    TQzPkgImagesImage* empty = Pkg->Images()->Add(2);
    EXPECT_THROW(TQzRgnDocument::FromPicture(TQzPicture(empty)), EInvalidGraphic);
}

TEST_F(DesignRgn, TheWindowEditsWithTheMouseAndWritesOnlyOnOk)
{
    const auto drag = [](QWidget* w, Qt::MouseButton button) {
        auto* window = static_cast<TFrDesignRgn*>(w);
        TQzRgnView* view = window->View();
        const Integer zoom = view->Zoom();
        const auto at = [zoom](int x, int y) { return QPoint(x * zoom / 100 + 1, y * zoom / 100 + 1); };
        QTest::mousePress(view, button, {}, at(0, 15));
        QTest::mouseMove(view, at(0, 10));
        QTest::mouseRelease(view, button, {}, at(0, 10));
    };
    const struct {
        const char* Name;
        Qt::MouseButton Button;
        const char* Close;
        int Result;
        Int64 Cut;
    } cases[] = {
        {"draw, Ok", Qt::LeftButton, "BtOk", 1, 2 * 7},
        {"right button gives them back: no mask left", Qt::RightButton, "BtOk", 1, -1},
        {"draw, Cancel", Qt::LeftButton, "BtCancel", 0, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        TQzModalDriver driver;
        driver.Then("drag", [&](QWidget* w) { drag(w, c.Button); }).Click(c.Close);
        TQzPicture picture(Image);
        EXPECT_EQ(QzExecuteDesignRgn(picture, nullptr), c.Result);
        const QImage mask = picture.GetInternalMask();
        EXPECT_EQ(mask.isNull() ? Int64(-1) : QzMaskClearCount(mask), c.Cut);
    }

    // Undo in the window takes the stroke back; the picture keeps no mask.
    TQzModalDriver driver;
    driver.Then("drag", [&](QWidget* w) { drag(w, Qt::LeftButton); })
        .Then("undo",
              [](QWidget* w) {
                  auto* window = static_cast<TFrDesignRgn*>(w);
                  EXPECT_TRUE(window->BtUndo->isEnabled());
                  window->BtUndo->click();
                  EXPECT_FALSE(window->BtUndo->isEnabled());
                  EXPECT_EQ(Cut(*window->Document()), 0);
              })
        .Click("BtOk");
    TQzPicture picture(Image);
    EXPECT_EQ(QzExecuteDesignRgn(picture, nullptr), 0);
}

TEST_F(DesignRgn, TheImageDialogOpensTheEditorOnItsChosenMask)
{
    TFrMemoryImageAdd dialog;
    TQzPicture(dialog.WorkingImage()).LoadFromBytes(QzPicturePng(Diagonal(16)).toStdString(), "diagonal.png");
    dialog.SetMaskKind(TQzMaskKind::External);
    TQzModalDriver driver;
    driver
        .Then("fill",
              [](QWidget* w) {
                  auto* window = static_cast<TFrDesignRgn*>(w);
                  EXPECT_EQ(window->windowTitle(), "Mask Editor");
                  EXPECT_EQ(window->CBMask->currentIndex(), 1);
                  window->BtFill->click();
                  const Integer zoom = window->View()->Zoom();
                  QTest::mouseClick(window->View(), Qt::LeftButton, {}, QPoint(15 * zoom / 100, 2));
              })
        .Click("BtOk");
    dialog.findChild<QAction*>("MnMaskEditor")->trigger();
    EXPECT_EQ(QzMaskClearCount(TQzPicture(dialog.WorkingImage()).GetExternalMask()), 15 * 16 / 2);
    EXPECT_TRUE(dialog.LaMask->isChecked());
}
