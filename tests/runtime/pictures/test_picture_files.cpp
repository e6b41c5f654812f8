// Loading and saving package images: every format by its content, the
// picture's own bytes back unchanged, conversion, the .imqz file with all it
// carries, and files that must be refused without touching the image.

#include "PictureTestSupport.h"

#include "runtime/pictures/QzImqzFile.h"
#include "runtime/pictures/QzPicture.h"

#include "rtl/Streams.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace QzPictureTest;

namespace {

// The classic 1 x 1 GIF: Qt has no GIF encoder to make one.
const std::string Gif1x1("GIF89a\x01\x00\x01\x00\x80\x00\x00\xff\xff\xff\x00\x00\x00!\xf9\x04\x01\x00\x00\x00\x00"
                         ",\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x44\x01\x00;",
                         43);

class PictureFiles : public ::testing::Test {
protected:
    PictureFiles()
    {
        FImage = FPkg.Images()->Add(1);
        FOther = FPkg.Images()->Add(2);
    }

    AnsiString Path(const AnsiString& name) const { return FDir.filePath(QString::fromStdString(name)).toStdString(); }

    AnsiString Write(const AnsiString& name, const std::string& bytes) const
    {
        WriteFileAtomic(Path(name), bytes);
        return Path(name);
    }

    // An image with a picture, both masks, design values and a block of a
    // later version.
    void Furnish(TQzPkgImagesImage* image) const
    {
        TQzPicture picture(image);
        picture.LoadFromBytes(Encode(KnownPicture(), "PNG"), "known.png");
        picture.CreateInternalMask(RedTColor);
        picture.CreateExternalMask(QzMaskColorAuto);
        TQzImageDesign design;
        design.Flags = {true, false, true};
        design.Values = {1, -2, 3, 40000, 5, 6, 7, 8};
        picture.SetDesign(design);
        image->SetExtension("LaterBlock", std::string("\x00\x01\x02", 3));
    }

    QTemporaryDir FDir;
    TQzPkgImages FPkg{nullptr};
    TQzPkgImagesImage* FImage;
    TQzPkgImagesImage* FOther;
};

TEST_F(PictureFiles, EveryFormatLoadsByContentAndSavesBackByteForByte)
{
    const QImage picture = KnownPicture();
    const struct {
        const char* Name;
        std::string Bytes;
        const char* GraphicClass;
        const char* Extension;
        int Width;
        int Height;
    } cases[] = {
        {"bmp", Encode(picture, "BMP"), "TBitmap", "bmp", 7, 5},
        {"png", Encode(picture, "PNG"), "TPngImage", "png", 7, 5},
        {"jpeg", Encode(picture, "JPEG"), "TJPEGImage", "jpg", 7, 5},
        {"ico", Encode(picture, "ICO"), "TIcon", "ico", 7, 5},
        {"gif", Gif1x1, "TGIFImage", "gif", 1, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        ASSERT_FALSE(c.Bytes.empty());
        // A misleading extension: the bytes decide.
        TQzPicture(FImage).LoadFromFile(Write(AnsiString("picture_") + c.Name + ".dat", c.Bytes));
        EXPECT_EQ(FImage->GraphicClass(), c.GraphicClass);
        EXPECT_EQ(FImage->Width(), c.Width);
        EXPECT_EQ(FImage->Height(), c.Height);
        EXPECT_EQ(FImage->PictureData(), c.Bytes);
        EXPECT_EQ(TQzPicture(FImage).Decode().size(), QSize(c.Width, c.Height));

        const AnsiString saved = Path(AnsiString("back.") + c.Extension);
        TQzPicture(FImage).SaveToFile(saved);
        EXPECT_EQ(ReadFileBytes(saved), c.Bytes);
    }
}

TEST_F(PictureFiles, SavingUnderAnotherFormatsExtensionConverts)
{
    TQzPicture(FImage).LoadFromBytes(Encode(KnownPicture(), "PNG"), "known.png");
    const struct {
        const char* File;
        const char* Class;
    } cases[] = {{"as.bmp", "TBitmap"}, {"as.JPEG", "TJPEGImage"}, {"as.ico", "TIcon"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.File);
        TQzPicture(FImage).SaveToFile(Path(c.File));
        TQzPicture(FOther).LoadFromFile(Path(c.File));
        EXPECT_EQ(FOther->GraphicClass(), c.Class);
        EXPECT_EQ(QSize(FOther->Width(), FOther->Height()), QSize(7, 5));
    }
    // No extension, or one no encoder knows: the picture as it is.
    for (const char* name : {"plain", "plain.xyz"}) {
        TQzPicture(FImage).SaveToFile(Path(name));
        EXPECT_EQ(ReadFileBytes(Path(name)), FImage->PictureData()) << name;
    }
}

TEST_F(PictureFiles, ImqzKeepsEverythingTheImageCarries)
{
    Furnish(FImage);
    FImage->SetProtected(true);
    TQzPicture(FOther).LoadFromBytes(Encode(QImage(3, 3, QImage::Format_RGB32), "BMP"), "old.bmp");
    TQzPicture(FImage).SaveToFile(Path("all.IMQZ"));

    TQzPicture(FOther).LoadFromFile(Path("all.IMQZ"));
    EXPECT_EQ(Snapshot(*FOther), Snapshot(*FImage));
    EXPECT_FALSE(FOther->Protected()) << "protection belongs to the package, not to the file";
    EXPECT_EQ(TQzPicture(FOther).GetDesign(), TQzPicture(FImage).GetDesign());
    EXPECT_EQ(TQzPicture(FOther).GetInternalMask(), TQzPicture(FImage).GetInternalMask());
    EXPECT_EQ(TQzPicture(FOther).InternalMaskColor(), RedTColor);
}

TEST_F(PictureFiles, ImqzGivesThePicturesRealSizeWhenTheImageLacksIt)
{
    // As images from forms that recorded no size arrive.
    FImage->SetPicture(Encode(KnownPicture(), "PNG"), "TPngImage", 0, 0);
    TQzPicture(FOther).LoadFromBytes(TQzPicture(FImage).ImqzBytes(), "sized.imqz");
    EXPECT_EQ(QSize(FOther->Width(), FOther->Height()), QSize(7, 5));

    FImage->SetPicture("not a picture", "TPngImage", 7, 5);
    EXPECT_THROW(TQzPicture(FImage).SaveToFile(Path("bad.imqz")), EInvalidGraphic);
    EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(Path("bad.imqz"))));
}

TEST_F(PictureFiles, APlainPictureReplacesTheMasksButKeepsTheDesignValues)
{
    Furnish(FImage);
    TQzPicture(FImage).LoadFromBytes(Encode(QImage(4, 4, QImage::Format_RGB32), "PNG"), "new.png");
    EXPECT_FALSE(TQzPicture(FImage).HasMask());
    EXPECT_EQ(TQzPicture(FImage).GetDesign().Values[3], 40000);
    EXPECT_TRUE(FImage->Extensions().Has("LaterBlock"));
}

// A PNG whose header announces a size beyond the limit (with a valid CRC,
// so only the limit can refuse it).
std::string HugePng()
{
    std::string png = Encode(KnownPicture(), "PNG");
    const size_t ihdr = png.find("IHDR");
    const char side[4] = {0, 0, 0x4E, 0x20};  // 20000
    png.replace(ihdr + 4, 4, side, 4);
    png.replace(ihdr + 8, 4, side, 4);
    const Cardinal crc = QzImqzCrc32(std::string_view(png).substr(ihdr, 17));
    for (int i = 0; i < 4; ++i)
        png[ihdr + 17 + size_t(i)] = char((crc >> (24 - 8 * i)) & 0xFF);
    return png;
}

// The .imqz bytes after change, with the checksum made right again so that
// the check behind it is the one that must refuse the file.
std::string Resealed(std::string bytes, size_t at, const std::string& with)
{
    bytes.replace(at, with.size(), with);
    const Cardinal crc = QzImqzCrc32(std::string_view(bytes).substr(0, bytes.size() - 4));
    for (int i = 0; i < 4; ++i)
        bytes[bytes.size() - 4 + size_t(i)] = char((crc >> (8 * i)) & 0xFF);
    return bytes;
}

std::string Flipped(std::string bytes, size_t at)
{
    bytes[at] = char(bytes[at] ^ 0x40);
    return bytes;
}

TEST_F(PictureFiles, DamagedFilesAreRefusedNamingTheFileAndChangeNothing)
{
    Furnish(FOther);
    const std::string imqz = TQzPicture(FOther).ImqzBytes();
    const std::string png = Encode(KnownPicture(), "PNG");
    const size_t classAt = sizeof QzImqzSignature + 4;
    const size_t widthAt = classAt + 1 + std::string("TPngImage").size();

    TQzImqzContents misfit;
    misfit.GraphicClass = "TPngImage";
    misfit.Width = 7;
    misfit.Height = 5;
    misfit.Picture = png;
    misfit.Blocks = {{QzExtInternalMask, QzEncodeMaskBlock({QImage(6, 5, QImage::Format_Mono), 0})}};

    const struct {
        const char* Name;
        std::string Bytes;
        const char* Says;
    } cases[] = {
        {"empty", "", "empty"},
        {"text", "just some text, no picture", "format"},
        {"truncated png", png.substr(0, png.size() / 2), "damaged.png"},
        {"huge png", HugePng(), "20000x20000"},
        {"imqz with a flipped byte", Flipped(imqz, imqz.size() / 2), "checksum"},
        {"truncated imqz", imqz.substr(0, imqz.size() - 9), "checksum"},
        {"newer imqz", Resealed(imqz, 8, std::string("\x02\x00", 2)), "version 2"},
        {"imqz with a huge width", Resealed(imqz, widthAt, std::string("\x00\x00\x01\x00", 4)), "65536"},
        {"imqz with a mask of another size", QzBuildImqz(misfit), "the mask is 6x5"},
        {"imqz with a wrong class", Resealed(imqz, classAt + 1, "TGIFImage"), "GIF"},
    };
    TQzPicture(FImage).LoadFromBytes(Encode(QImage(2, 3, QImage::Format_RGB32), "BMP"), "before.bmp");
    TQzPicture(FImage).CreateInternalMask(QzMaskColorAuto);
    const TSnapshot before = Snapshot(*FImage);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        const AnsiString file = Write("damaged.png", c.Bytes);
        try {
            TQzPicture(FImage).LoadFromFile(file);
            ADD_FAILURE() << "loaded";
        } catch (const EInvalidGraphic& e) {
            EXPECT_NE(e.Message().find(file), std::string::npos) << e.Message();
            EXPECT_NE(e.Message().find(c.Says), std::string::npos) << e.Message();
        }
        EXPECT_EQ(Snapshot(*FImage), before);
    }
    EXPECT_THROW(TQzPicture(FImage).LoadFromFile(Path("missing.png")), EInvalidGraphic);
    EXPECT_EQ(Snapshot(*FImage), before);
}

TEST_F(PictureFiles, AnEmptyImageCannotBeSavedAndAFailedSaveKeepsTheOldFile)
{
    const AnsiString file = Write("kept.png", "old contents");
    EXPECT_THROW(TQzPicture(FImage).SaveToFile(file), EInvalidGraphic);
    EXPECT_THROW(TQzPicture(FImage).SaveToFile(Path("x.imqz")), EInvalidGraphic);
    TQzPicture(FImage).LoadFromBytes(Encode(KnownPicture(), "PNG"), "known.png");
    EXPECT_THROW(TQzPicture(FImage).SaveToFile(Path("no/such/folder/x.png")), EInvalidGraphic);
    EXPECT_EQ(ReadFileBytes(file), "old contents");
}

} // namespace
