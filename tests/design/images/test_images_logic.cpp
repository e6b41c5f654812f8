// What the images editor and the import decide without a window: the size
// and status texts, the cells' text, the printed layout, and the Ids that
// imported images take.

#include "design/images/QzImportImagesLogic.h"
#include "design/images/QzPkgImagesLogic.h"
#include "runtime/model/QzApplication.h"
#include "runtime/pictures/QzGraphicFormats.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPng.h"

#include <QImage>

#include <gtest/gtest.h>

#include <memory>

namespace {

TQzPkgImagesImage* AddPicture(TQzPkgImages& package, Integer id, int width = 16, int height = 8)
{
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    TQzPkgImagesImage* image = package.Images()->Add(id);
    TQzPicture(image).LoadFromBytes(QzPicturePng(picture).toStdString(), "test.png");
    return image;
}

TEST(ImagesLogic, SizesAreWrittenInBytesKilobytesOrMegabytesWithOneDecimalAtMost)
{
    const struct {
        Int64 Bytes;
        const char* Text;
    } cases[] = {
        {0, "(0 Bytes)"},        {512, "(512 Bytes)"},  {1023, "(1023 Bytes)"}, {1024, "(1 KB)"},
        {1536, "(1.5 KB)"},      {2048, "(2 KB)"},      {1048575, "(1024 KB)"}, {1048576, "(1 MB)"},
        {1572864, "(1.5 MB)"},   {1100, "(1.1 KB)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(QzImagesSizeText(c.Bytes), c.Text) << c.Bytes;
}

TEST(ImagesLogic, StatusCountsImagesAndTheirBytes)
{
    EXPECT_EQ(QzImagesStatusText(nullptr, false), "Package Unknown");
    TQzPkgImages package(nullptr);
    EXPECT_EQ(QzImagesStatusText(&package, false), "0 Images (0 Bytes) ");
    TQzPkgImagesImage* image = package.Images()->Add(3);
    image->SetPicture(std::string(512, 'x'), "png", 1, 1);
    EXPECT_EQ(QzImagesStatusText(&package, false), "1 Image (512 Bytes) ");
    package.Images()->Add(4)->SetPicture(std::string(1024, 'x'), "png", 1, 1);
    EXPECT_EQ(QzImagesStatusText(&package, true), "2 Images (1.5 KB) ")
        << "a package outside a display package has no refresh to tell";
}

TEST(ImagesLogic, StatusOfTheDisplaysSystemImagesTellsTheirLastRefresh)
{
    TComponent form(nullptr);
    auto* app = new TQzCApplication(&form);
    app->PkgDisplay()->SetLastUpdateFile("Standard.dis");
    app->PkgDisplay()->SetUpdateDateTime(EncodeDate(2024, 3, 5));
    const AnsiString text = QzImagesStatusText(app->PkgDisplay()->PkgSystem(), true);
    EXPECT_EQ(text.rfind("0 Images (0 Bytes) (LastUpdateFile:Standard.dis) (UpdateDateTime:", 0), 0u) << text;
    EXPECT_EQ(QzImagesModifiedOwner(*app->PkgDisplay()->PkgSystem()), &form);
}

TEST(ImagesLogic, CellsShowIdDescriptionAndTheChosenLine)
{
    TQzPkgImages package(nullptr);
    TQzPkgImagesImage* plain = AddPicture(package, 7, 16, 8);
    plain->SetProtected(true);
    TQzPkgImagesImage* masked = AddPicture(package, 8);
    TQzPicture(masked).CreateInternalMask(0x00FF0000);
    TQzPkgImagesImage* empty = package.Images()->Add(9);

    const AnsiString description = QzFindGraphicDescription(plain->GraphicClass());
    EXPECT_EQ(QzImagesCellText(*plain, TQzImagesLine::WidthHeight).Text, "7\n(" + description + ")\n(16x8)");
    EXPECT_EQ(QzImagesCellText(*plain, TQzImagesLine::Size).Text,
              "7\n(" + description + ")\n" + QzImagesSizeText(plain->GetSize()));
    EXPECT_EQ(QzImagesCellText(*plain, TQzImagesLine::Protected).Text, "7\n(" + description + ")\n(Protected)");
    EXPECT_FALSE(QzImagesCellText(*plain, TQzImagesLine::WidthHeight).Masked);

    const TQzImageCellText maskedCell = QzImagesCellText(*masked, TQzImagesLine::Protected);
    EXPECT_TRUE(maskedCell.Masked);
    EXPECT_EQ(maskedCell.Text, "8\n<" + description + ">\n-");
    EXPECT_EQ(QzImagesCellText(*empty, TQzImagesLine::WidthHeight).Text, "9\n(None)");
}

TEST(ImagesLogic, RowsAreInIdOrderAndADeletedRowPassesTheSelectionOn)
{
    TQzPkgImages package(nullptr);
    for (Integer id : {30, 4, 17})
        package.Images()->Add(id);
    std::vector<Integer> ids;
    for (const TQzPkgImagesImage* image : QzImagesSorted(package))
        ids.push_back(image->Id());
    EXPECT_EQ(ids, (std::vector<Integer>{4, 17, 30}));

    const struct {
        int Deleted, Left, Selected;
    } cases[] = {{0, 2, 0}, {1, 2, 1}, {2, 2, 1}, {0, 0, -1}};
    for (const auto& c : cases)
        EXPECT_EQ(QzImagesRowAfterDelete(c.Deleted, c.Left), c.Selected) << c.Deleted << " of " << c.Left + 1;
}

TEST(ImagesLogic, ReportCellsWrapAtTheRightEdgeAndStartANewPageBelow)
{
    const TQzImagesReportMetrics m = QzImagesReportMetrics(600, 600);
    EXPECT_EQ(m.CellWidth, 420);
    EXPECT_EQ(m.CellHeight, 600);
    EXPECT_EQ(m.GapX, 100);
    EXPECT_EQ(m.GapY, 100);
    // Three cells across (3 x 520 - 100 = 1460 <= 1500), two rows down.
    const QSize page(1500, 150 + 2 * 700);
    const auto cells = QzImagesReportLayout(8, page, 50, m);
    ASSERT_EQ(cells.size(), 8u);
    const int top = 50 + 150;
    EXPECT_EQ(cells[0].Rect, QRect(0, top, 420, 600));
    EXPECT_EQ(cells[2].Rect.topLeft(), QPoint(1040, top));
    EXPECT_EQ(cells[3].Rect.topLeft(), QPoint(0, top + 700));
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(cells[size_t(i)].Page, 0) << i;
    EXPECT_EQ(cells[6].Page, 1);
    EXPECT_EQ(cells[6].Rect.topLeft(), QPoint(0, top)) << "the heading comes first on every page";
    EXPECT_EQ(QzImagesReportLayout(6, page, 50, m).back().Page, 0) << "no blank page after a full one";
}

TEST(ImportLogic, ImagesTakeTheFreeIdsFromTheOneAskedFor)
{
    const struct {
        std::vector<Integer> Taken;
        Integer Asked;
        std::vector<Integer> Given;
    } cases[] = {
        {{}, 5, {5, 6, 7}},
        {{5, 7}, 5, {6, 8, 9}},
        {{6, 7}, 5, {5, 8, 9}},
        {{0, 1, 3}, 0, {2, 4, 5}},
        {{}, 0, {0, 1, 2}},
    };
    for (const auto& c : cases) {
        TQzPkgImages target(nullptr);
        for (Integer id : c.Taken)
            target.Images()->Add(id);
        TQzPkgImages source(nullptr);
        std::vector<TQzPkgImagesImage*> sources;
        for (Integer id : {1, 2, 3})
            sources.push_back(AddPicture(source, id, id, id));
        EXPECT_EQ(QzImportImages(*target.Images(), sources, c.Asked), c.Given) << "asked " << c.Asked;
        EXPECT_EQ(target.Images()->FindId(c.Given[2])->Width(), 3) << "copied in source order";
    }
}

TEST(ImportLogic, IdsRunningOutRefuseTheImportWhole)
{
    TQzPkgImages target(nullptr);
    for (Integer id = QzImportLastId - 2; id <= QzImportLastId; ++id)
        target.Images()->Add(id);
    EXPECT_EQ(QzNextFreeId(*target.Images(), QzImportLastId - 3), QzImportLastId + 1);
    EXPECT_EQ(QzNextFreeId(*target.Images(), QzImportLastId + 5), QzImportLastId + 1);
    EXPECT_EQ(QzImportPlanIds(*target.Images(), 1, QzImportLastId - 1),
              (std::vector<Integer>{QzImportLastId + 1}));

    TQzPkgImages source(nullptr);
    std::vector<TQzPkgImagesImage*> sources{AddPicture(source, 1), AddPicture(source, 2)};
    EXPECT_THROW(QzImportImages(*target.Images(), sources, QzImportLastId - 1), EQzPkgError);
    EXPECT_EQ(target.Images()->Count(), 3) << "nothing was added";
}

}  // namespace
