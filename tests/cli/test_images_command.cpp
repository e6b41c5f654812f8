// qzpkg images export and import: a package through a folder and back, the
// files an import must skip without losing the rest, and forms that keep
// several packages.

#ifdef QZ_CLI_DESIGN

#include "QzpkgRun.h"
#include "design/images/QzImagesExchange.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPng.h"

#include "rtl/Streams.h"

#include <gtest/gtest.h>

#include <QImage>

#include <filesystem>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::string Png(int width, int height, QRgb color)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return QzPicturePng(image).toStdString();
}

class ImagesCommand : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzPkgFileFormats();
        Dir = fs::temp_directory_path() / ("qzpkg-images-" + std::to_string(::getpid()));
        fs::remove_all(Dir);
        fs::create_directories(Dir);
    }
    void TearDown() override { fs::remove_all(Dir); }
    std::string PathOf(const std::string& name) const { return (Dir / name).string(); }

    std::unique_ptr<TQzPkgImages> Package() const
    {
        TQzDetachedPkgs detached;
        return std::make_unique<TQzPkgImages>(nullptr);
    }
    std::unique_ptr<TQzPkgImages> Load(const std::string& file) const
    {
        auto pkg = Package();
        TQzPkgFileCodec(QzPkgKindImages).LoadFromFile(*pkg, file);
        return pkg;
    }

    fs::path Dir;
};

TEST_F(ImagesCommand, ExportWritesPngsWithMasksAsAlphaAndImportReadsThemBackUnderTheirIds)
{
    auto pkg = Package();
    // A white square whose blue corner pixel is cut away by its mask.
    QImage square(3, 3, QImage::Format_RGB32);
    square.fill(Qt::white);
    square.setPixel(0, 2, qRgb(0, 0, 255));
    TQzPkgImagesImage* masked = pkg->Images()->Add(12);
    TQzPicture(masked).LoadFromBytes(QzPicturePng(square).toStdString(), "square.png");
    TQzPicture(masked).CreateInternalMask(0xFF0000);
    TQzPkgImagesImage* kept = pkg->Images()->Add(4);
    TQzPicture(kept).LoadFromBytes(Png(2, 5, qRgb(9, 9, 9)), "grey.png");
    kept->SetProtected(true);
    pkg->Images()->Add(7);  // no picture
    const std::string source = PathOf("icons.pim");
    TQzPkgFileCodec(QzPkgKindImages).SaveToFile(*pkg, source);

    const std::string folder = PathOf("out");
    const TQzpkgRun exported = Qzpkg({"images", "export", source, folder});
    ASSERT_EQ(exported.Code, 0) << exported.Err;
    std::vector<AnsiString> problems;
    const auto rows = QzParseImagesManifest(ReadFileBytes(folder + "/manifest.csv"), "manifest.csv", problems);
    EXPECT_TRUE(problems.empty());
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0], (TQzImagesManifestRow{4, "4.png", 2, 5, Int64(fs::file_size(folder + "/4.png")), true}));
    EXPECT_EQ(rows[1], (TQzImagesManifestRow{7, "", 0, 0, 0, false}));
    EXPECT_EQ(rows[2].File, "12.png");
    const QImage png(QString::fromStdString(folder + "/12.png"));
    EXPECT_EQ(qAlpha(png.pixel(0, 2)), 0);
    EXPECT_EQ(qAlpha(png.pixel(1, 2)), 255);

    const std::string target = PathOf("copy.pim");
    const TQzpkgRun imported = Qzpkg({"images", "import", folder, target});
    ASSERT_EQ(imported.Code, 0) << imported.Err;
    auto copy = Load(target);
    ASSERT_EQ(copy->Images()->Count(), 3);
    EXPECT_TRUE(copy->Images()->FindId(4)->Protected());
    EXPECT_EQ(copy->Images()->FindId(4)->Height(), 5);
    EXPECT_TRUE(copy->Images()->FindId(7)->Empty());
    const QImage back = TQzPicture(copy->Images()->FindId(12)).Decode();
    EXPECT_EQ(qAlpha(back.pixel(0, 2)), 0);
}

TEST_F(ImagesCommand, ImportWithoutManifestNamesAndSkipsWhatIsNoPictureAndKeepsTheRest)
{
    auto pkg = Package();
    TQzPicture(pkg->Images()->Add(0)).LoadFromBytes(Png(1, 1, qRgb(1, 2, 3)), "old.png");
    pkg->Images()->FindId(0)->SetProtected(true);
    const std::string target = PathOf("user.pim");
    TQzPkgFileCodec(QzPkgKindImages).SaveToFile(*pkg, target);

    const fs::path folder = Dir / "in";
    fs::create_directories(folder);
    std::string broken = Png(8, 8, qRgb(0, 0, 0));
    broken.resize(broken.size() / 2);
    const std::pair<const char*, std::string> files[] = {
        {"0.png", Png(6, 6, qRgb(0, 255, 0))},  // replaces image 0, keeps its protection
        {"20.png", Png(2, 2, qRgb(0, 0, 0))},
        {"logo.png", Png(3, 1, qRgb(0, 0, 0))},  // the first free Id
        {"notes.txt", "not a picture"},
        {"broken.png", broken},
    };
    for (const auto& [name, bytes] : files)
        WriteFileAtomic((folder / name).string(), bytes);

    const TQzpkgRun run = Qzpkg({"images", "import", folder.string(), target});
    EXPECT_EQ(run.Code, 2);
    EXPECT_NE(run.Err.find("notes.txt"), std::string::npos) << run.Err;
    EXPECT_NE(run.Err.find("broken.png"), std::string::npos) << run.Err;
    auto after = Load(target);
    ASSERT_EQ(after->Images()->Count(), 3);
    EXPECT_EQ(after->Images()->FindId(0)->Width(), 6);
    EXPECT_TRUE(after->Images()->FindId(0)->Protected());
    EXPECT_EQ(after->Images()->FindId(1)->Width(), 3);
    EXPECT_EQ(after->Images()->FindId(20)->Width(), 2);
}

TEST_F(ImagesCommand, AFormWithSeveralPackagesNeedsOneNamedAndBadArgumentsSayHow)
{
    const std::string form = std::string(QZ_SOURCE_DIR) + "/tests/data/refs-project/Main.dfm";
    const struct {
        std::vector<std::string> Args;
        int Code;
        const char* Says;
    } cases[] = {
        {{"images", "export", form, PathOf("a")}, 1, "several images packages (System, User, ICONS)"},
        {{"images", "export", form, PathOf("b"), "--package", "Nope"}, 1, "no images package named Nope"},
        {{"images", "export", form, PathOf("c"), "--package", "icons"}, 0, ""},
        {{"images", "import", PathOf("missing"), PathOf("x.pim")}, 1, "does not exist"},
        {{"images", "import", PathOf("c"), PathOf("x.pim"), "--package", "A"}, 1, "--package is an option of export"},
        {{"images", "rename", "a", "b"}, 1, "expected export SOURCE DIR"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Args[1] + " " + c.Args.back());
        const TQzpkgRun run = Qzpkg(c.Args);
        EXPECT_EQ(run.Code, c.Code) << run.Err;
        EXPECT_NE(run.Err.find(c.Says), std::string::npos) << run.Err;
    }
    EXPECT_EQ(fs::directory_iterator(Dir / "c") == fs::directory_iterator(), false);
    EXPECT_FALSE(fs::exists(Dir / "x.pim"));
}

}  // namespace

#endif
