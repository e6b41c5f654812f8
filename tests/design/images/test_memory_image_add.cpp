// The image add/modify dialog as a user drives it: the clipboard both ways,
// files it must refuse, masks made and cleared, and what reaches the
// package on Ok, on a refused Id and on Cancel.

#include "design/images/QzMemoryImageLogic.h"
#include "design/images/Qzvtmemoryimageadd.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPng.h"

#include "rtl/Streams.h"
#include "support/gui/QzModalDriver.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>

#include <memory>

namespace {

// A 4x4 picture: white with a red diagonal.
QImage Diagonal()
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int i = 0; i < 4; ++i)
        image.setPixel(i, i, qRgb(255, 0, 0));
    return image;
}

std::string Png(const QImage& image)
{
    return QzPicturePng(image).toStdString();
}

class MemoryImageAdd : public TQzGuiTest {
protected:
    void SetUp() override
    {
        TQzDetachedPkgs detached;
        Pkg = std::make_unique<TQzPkgImages>(nullptr);
        Pkg->SetPkgName("Icons");
        TQzPicture(Pkg->Images()->Add(3)).LoadFromBytes(Png(Diagonal()), "diagonal.png");
    }
    AnsiString Write(const char* name, const std::string& bytes)
    {
        const AnsiString path = QzAnsiPath(name);
        WriteFileAtomic(path, bytes);
        return path;
    }
    AnsiString QzAnsiPath(const char* name) const { return Dir.filePath(name).toStdString(); }

    QTemporaryDir Dir;
    std::unique_ptr<TQzPkgImages> Pkg;
};

TEST_F(MemoryImageAdd, ClipboardCarriesMasksBetweenDialogsAndTakesPlainPicturesFromOtherPrograms)
{
    TFrMemoryImageAdd from;
    TQzPicture(from.WorkingImage()).LoadFromBytes(Png(Diagonal()), "diagonal.png");
    QzImageMaskFromColor(*from.WorkingImage(), TQzMaskKind::Internal, 0x0000FF);
    from.BtCopyClick();

    TFrMemoryImageAdd to;
    to.ChangeState();
    ASSERT_TRUE(to.BtPaste->isEnabled());
    to.BtPasteClick();
    EXPECT_EQ(to.WorkingImage()->PictureData(), from.WorkingImage()->PictureData());
    EXPECT_EQ(to.WorkingImage()->Extensions(), from.WorkingImage()->Extensions());
    EXPECT_TRUE(to.LaMask->isChecked());

    // Another program's picture: stored as PNG, without a mask.
    QImage other(5, 3, QImage::Format_RGB32);
    other.fill(Qt::blue);
    QGuiApplication::clipboard()->setImage(other);
    to.BtPasteClick();
    EXPECT_EQ(to.WorkingImage()->GraphicClass(), "TPngImage");
    EXPECT_EQ(to.Label1->text(), "(Portable Network Graphics) (5x3)");
    EXPECT_FALSE(to.LaMask->isChecked());

    // Cut leaves the copy on the clipboard and the working image empty.
    to.BtCutClick();
    EXPECT_TRUE(to.WorkingImage()->Empty());
    EXPECT_EQ(to.Label1->text(), "(None)");
    EXPECT_FALSE(to.BtSave->isEnabled());
    to.BtPasteClick();
    EXPECT_EQ(to.WorkingImage()->Width(), 5);
}

TEST_F(MemoryImageAdd, FilesThatAreNoPictureAreRefusedByNameAndTheImageStaysAsItWas)
{
    std::string truncated = Png(Diagonal());
    truncated.resize(truncated.size() / 2);
    const struct {
        const char* Name;
        std::string Bytes;
    } cases[] = {
        {"notes.txt", "just some text\n"},
        {"broken.png", truncated},
        {"empty.bmp", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        const AnsiString path = Write(c.Name, c.Bytes);
        TFrMemoryImageAdd dialog;
        TQzPicture(dialog.WorkingImage()).LoadFromBytes(Png(Diagonal()), "diagonal.png");
        const std::string before = dialog.WorkingImage()->PictureData();
        TQzTestDialogs dialogs;
        dialogs->AnswerOpenPictures({path}).AnswerMessage(mbOK);
        dialog.BtLoadClick();
        ASSERT_EQ(dialogs->CallsOf(TQzDialogKind::Message).size(), 1u);
        const AnsiString text = dialogs->CallsOf(TQzDialogKind::Message)[0].Message.Text;
        EXPECT_NE(text.find(c.Name), AnsiString::npos) << text;
        EXPECT_EQ(dialog.WorkingImage()->PictureData(), before);
    }
}

TEST_F(MemoryImageAdd, MasksAreMadeFromAColourOrAFileAndCleared)
{
    QImage shape(4, 4, QImage::Format_RGB32);
    shape.fill(Qt::black);
    shape.setPixel(0, 0, qRgb(255, 255, 255));
    const AnsiString shapeFile = Write("shape.png", Png(shape));
    const AnsiString wrongSize = Write("wrong.png", Png(QImage(2, 2, QImage::Format_RGB32)));

    TFrMemoryImageAdd dialog;
    dialog.ChooseColor = [](TColor& color) {
        color = 0x0000FF;  // red, as 0x00BBGGRR
        return true;
    };
    TQzPicture(dialog.WorkingImage()).LoadFromBytes(Png(Diagonal()), "diagonal.png");
    const auto cleared = [&] {
        const QImage mask = TQzPicture(dialog.WorkingImage()).GetInternalMask();
        return mask.isNull() ? Int64(-1) : QzMaskClearCount(mask);
    };

    dialog.MaskFromColor(true);
    EXPECT_EQ(cleared(), 4);  // the red diagonal
    EXPECT_TRUE(dialog.LaMask->isChecked());
    const QImage preview = QzPictureWithMaskAlpha(*dialog.WorkingImage());
    EXPECT_EQ(qAlpha(preview.pixel(2, 2)), 0);
    EXPECT_EQ(qAlpha(preview.pixel(1, 2)), 255);

    dialog.MaskFromColor(false);  // the bottom-left pixel is white
    EXPECT_EQ(cleared(), 12);

    TQzTestDialogs dialogs;
    dialogs->AnswerOpenPictures({shapeFile}).AnswerOpenPictures({wrongSize}).AnswerMessage(mbOK);
    dialog.MaskFromFile();
    EXPECT_EQ(cleared(), 1);
    dialog.MaskFromFile();  // refused: the image keeps the mask it had
    EXPECT_NE(dialogs->Calls().back().Message.Text.find("wrong.png"), AnsiString::npos);
    EXPECT_EQ(cleared(), 1);

    dialog.SetMaskKind(TQzMaskKind::External);
    dialog.MaskFromColor(true);
    dialog.MaskClear();  // the window shape only
    EXPECT_EQ(cleared(), 1);
    EXPECT_FALSE(QzImageHasMask(*dialog.WorkingImage(), TQzMaskKind::External));
    dialog.SetMaskKind(TQzMaskKind::Internal);
    dialog.MaskClear();
    EXPECT_EQ(cleared(), -1);
    EXPECT_FALSE(dialog.LaMask->isChecked());
}

TEST_F(MemoryImageAdd, ANameWithoutExtensionTakesTheChosenFiltersOne)
{
    const struct {
        const char* GraphicClass;
        const char* Name;
        int Filter;
        const char* Written;
    } cases[] = {
        {"TBitmap", "pic", 1, "pic.bmp"},
        {"TBitmap", "pic", 2, "pic.IMQZ"},
        {"TJPEGImage", "pic", 1, "pic.jpg"},
        {"TPngImage", "pic.dat", 2, "pic.dat"},
    };
    for (const auto& c : cases) {
        TQzPkgImagesImage* image = Pkg->Images()->Add(Pkg->Images()->UniqueId());
        image->SetPicture("x", c.GraphicClass, 1, 1);
        EXPECT_EQ(QzImageSaveName(c.Name, c.Filter, *image), c.Written) << c.GraphicClass << " " << c.Filter;
    }

    // Through the dialog: the picture's own format first, then the suite's.
    TFrMemoryImageAdd dialog;
    TQzPicture(dialog.WorkingImage()).LoadFromBytes(Png(Diagonal()), "diagonal.png");
    TQzTestDialogs dialogs;
    dialogs->AnswerSavePicture(QzAnsiPath("saved"));
    dialog.BtSaveClick();
    EXPECT_EQ(dialogs->Calls()[0].File.Filter,
              "Portable Network Graphics (*.png)|*.png|QzControls Image Files lala(*.imqz)|*.IMQZ");
    EXPECT_EQ(ReadFileBytes(QzAnsiPath("saved.png")), dialog.WorkingImage()->PictureData());
}

TEST_F(MemoryImageAdd, OnlyOkWithAFreeIdWritesThePackage)
{
    const std::string stored = Pkg->Images()->FindId(3)->PictureData();
    const AnsiString picture = Write("blue.png", Png(QImage(2, 2, QImage::Format_RGB32)));

    {
        // Add under a used Id: refused, the dialog stays; then a free one.
        TQzTestDialogs dialogs;
        dialogs->AnswerOpenPictures({picture}).AnswerMessage(mbOK);
        TQzModalDriver driver;
        driver.Click("BtLoad").SetText("EdId", "3").Click("BtOk").SetText("EdId", "7").Click("BtOk");
        TFrMemoryImageAdd dialog;
        EXPECT_EQ(dialog.Execute(Pkg.get(), false, Pkg->Images()->UniqueId()), 1);
        EXPECT_EQ(dialog.ResultId(), 7);
        EXPECT_EQ(Pkg->Images()->FindId(7)->Width(), 2);
        EXPECT_EQ(Pkg->Images()->FindId(3)->PictureData(), stored);
    }
    {
        // Modify without a change, and Cancel after one: nothing written.
        TQzModalDriver driver;
        driver.Click("BtOk");
        TFrMemoryImageAdd dialog;
        EXPECT_EQ(dialog.Execute(Pkg.get(), true, 3), 0);
        driver.Click("BtClear").Click("BtCancel");
        EXPECT_EQ(dialog.Execute(Pkg.get(), true, 3), 0);
        EXPECT_EQ(Pkg->Images()->FindId(3)->PictureData(), stored);
    }
    {
        // Modify under a new Id moves the image.
        TQzModalDriver driver;
        driver.Type("EdId", "9").Click("BtOk");
        TFrMemoryImageAdd dialog;
        EXPECT_EQ(dialog.Execute(Pkg.get(), true, 3), 1);
        EXPECT_EQ(Pkg->Images()->FindId(3), nullptr);
        EXPECT_EQ(Pkg->Images()->FindId(9)->PictureData(), stored);
    }
    EXPECT_EQ(Pkg->Images()->Count(), 2);
}

}  // namespace
