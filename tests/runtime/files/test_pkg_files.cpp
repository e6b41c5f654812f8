// Package files of every kind: saved and loaded back whole, descriptions read
// from the header alone, and damaged, truncated or foreign files refused with
// a message naming the file while the package stays as it was.

#include "runtime/files/QzPkgFiles.h"

#include "fuzz/PkgFileOracle.h"

#include "runtime/model/QzApplication.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <algorithm>
#include <functional>
#include <random>

namespace fs = std::filesystem;

namespace {

struct TKindCase {
    const char* Name;
    const char* Kind;
    AnsiString (*ReadDescription)(const AnsiString&);
    std::function<std::unique_ptr<TQzPkgInfo>()> Create;
    std::function<void(TQzPkgInfo&, int seed)> Fill;  // seeds give different contents
};
void PrintTo(const TKindCase& c, std::ostream* os) { *os << c.Name; }

template <class T>
TKindCase Kind(const char* name, const char* kind, AnsiString (*read)(const AnsiString&),
               std::function<void(T&, int)> fill)
{
    return {name, kind, read, [] { return std::unique_ptr<TQzPkgInfo>(new T(nullptr)); },
            [fill](TQzPkgInfo& p, int seed) { fill(static_cast<T&>(p), seed); }};
}

const TKindCase Kinds[] = {
    Kind<TQzPkgStrings>("Strings", QzPkgKindStrings, QzReadPkgStringsDescription, [](auto& p, int seed) {
        p.Labels()->Add(seed, "Größe — 日本", "hint\r\nwith break")->SetProtected(true);
        p.Texts()->Add(9000 + seed, "line 1\r\nline 2\r\n");
    }),
    Kind<TQzPkgImages>("Images", QzPkgKindImages, QzReadPkgImagesDescription, [](auto& p, int seed) {
        p.Images()->Add(seed)->SetPicture(std::string(300, char(seed)), "TPngImage", 16, 12);
        p.Images()->Add(seed + 1)->SetExtension("Mask", std::string("\0\1\2", 3));
    }),
    Kind<TQzPkgVars>("Vars", QzPkgKindVars, QzReadPkgVarsDescription, [](auto& p, int seed) {
        p.Add("Setup\\Printer\\Copies", qvInteger)->SetVInteger(seed);
        p.Add("Setup\\Scale", qvFloat)->SetVFloat(Extended(0.1) * seed);
    }),
    Kind<TQzPkgPrivileges>("Access", QzPkgKindAccess, QzReadPkgAccessDescription, [](auto& p, int seed) {
        p.Add(seed)->SetAccess(qaR);
        p.SetKey("k3y");
    }),
    Kind<TQzPkgDisplay>("Display", QzPkgKindDisplay, QzReadPkgDisplayDescription, [](auto& p, int seed) {
        p.SetsBackGround()->Add("Back" + IntToStr(seed))->SetStyle(bgGradientVer);
        p.SetCWButtonsHeight(30);
    }),
    Kind<TQzPkgLanguage>("Language", QzPkgKindLanguage, QzReadPkgLanguageDescription, [](auto& p, int seed) {
        p.PkgUser()->Labels()->Add(seed, "Kunde", "Der Kunde");
        p.Locale()->SetNumericDecimalSeparator(',');
    }),
    Kind<TQzPkgSetup>("Setup", QzPkgKindSetup, QzReadPkgSetupDescription, [](auto& p, int seed) {
        p.Keys()->SetRefresh(TShortCut(0xC000 | ('A' + seed)));  // Ctrl+Alt+letter: no default has it
        p.DataBase()->SetDataBaseEngine(dePostgreSQL);
    }),
};

// Everything a package holds, as the model writes it.
std::string ContentsOf(TQzPkgInfo& pkg)
{
    TWriter writer;
    pkg.xSaveToStream(&writer);
    return writer.Buffer();
}

class PkgFiles : public ::testing::TestWithParam<TKindCase> {
protected:
    static void SetUpTestSuite() { RegisterQzPkgFileFormats(); }
    void SetUp() override
    {
        FDir = fs::temp_directory_path() / ("qz_pkg_files_" + std::to_string(getpid()) + GetParam().Name);
        fs::create_directories(FDir);
    }
    void TearDown() override { fs::remove_all(FDir); }

    std::unique_ptr<TQzPkgInfo> Sample(int seed, const AnsiString& description)
    {
        auto pkg = GetParam().Create();
        GetParam().Fill(*pkg, seed);
        pkg->SetDescription(description);
        return pkg;
    }
    // A new name each time: rewriting one file makes the file system flush it
    // on every close, which would make the damage loops crawl.
    fs::path Write(const std::string& bytes)
    {
        const fs::path file = FDir / ("f" + std::to_string(++FCount) + ".pkg");
        std::ofstream(file, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
        return file;
    }
    // Loading must fail naming the file, and leave a filled package as it was.
    void ExpectRefused(const std::string& bytes, const std::string& what)
    {
        const fs::path file = Write(bytes);
        auto pkg = Sample(5, "before");
        const std::string before = ContentsOf(*pkg);
        try {
            pkg->LoadFromFile(file.string());
            ADD_FAILURE() << "loaded a file " << what;
        } catch (const EQzPkgFileError& e) {
            EXPECT_NE(e.Message().find("'" + file.string() + "'"), AnsiString::npos) << e.Message();
        }
        EXPECT_TRUE(ContentsOf(*pkg) == before && pkg->Description() == "before") << "changed by a file " << what;
        fs::remove(file);
    }

    fs::path FDir;
    int FCount = 0;
};

TEST_P(PkgFiles, SavedPackageLoadsBackWholeAndItsDescriptionReadsAlone)
{
    const AnsiString description = "Beschreibung: äöü — " + AnsiString(3000, 'x');
    auto original = Sample(3, description);
    const fs::path file = FDir / "full.pkg";
    original->SaveToFile(file.string());

    auto loaded = Sample(8, "other");  // loading replaces, it does not merge
    loaded->LoadFromFile(file.string());
    EXPECT_EQ(ContentsOf(*loaded), ContentsOf(*original));
    EXPECT_EQ(loaded->Description(), description);
    // Saving what was loaded gives the same bytes: nothing lost or added.
    const std::string bytes = ReadFileBytes(file.string());
    loaded->SaveToFile((FDir / "again.pkg").string());
    EXPECT_EQ(ReadFileBytes((FDir / "again.pkg").string()), bytes);

    // The description comes from the header: damaged contents do not matter.
    std::string damaged = bytes;
    damaged.back() = char(damaged.back() ^ 0x55);
    EXPECT_EQ(GetParam().ReadDescription(Write(damaged).string()), description);
    for (const TKindCase& other : Kinds)
        if (other.Kind != GetParam().Kind) {
            try {
                other.ReadDescription(file.string());
                ADD_FAILURE() << other.Name << " read a " << GetParam().Name << " file";
            } catch (const EQzPkgFileError& e) {
                EXPECT_EQ(e.Problem(), Format("it holds a package of kind %s, not %s", GetParam().Kind, other.Kind));
            }
        }
}

// Every cut and a few hundred random flips, of the whole file and of the
// contents inside a correct envelope (where the checksums do not stop them
// and the model's readers must): refused naming the file with the package
// as it was, or, for a flip the contents can hold, read whole.
TEST_P(PkgFiles, DamageAnywhereIsRefusedAndChangesNothing)
{
    auto sample = Sample(1, "damage");
    const fs::path file = FDir / "sample.pkg";
    sample->SaveToFile(file.string());
    const std::string bytes = ReadFileBytes(file.string());
    const std::string contents = ContentsOf(*sample);
    const auto wrapped = [&](const std::string& c) { return QzBuildPkgFile(GetParam().Kind, "damage", c); };

    TQzPkgFileCodec codec(GetParam().Kind);
    auto pkg = Sample(5, "before");
    const std::string before = ContentsOf(*pkg);
    // true when refused as it must be; false when read.
    const auto refused = [&](const std::string& damaged, const std::string& what) {
        try {
            codec.LoadFromBytes(*pkg, "damaged.pkg", damaged);
        } catch (const EQzPkgFileError& e) {
            EXPECT_EQ(e.FileName(), "damaged.pkg");
            EXPECT_TRUE(ContentsOf(*pkg) == before && pkg->Description() == "before") << "changed by " << what;
            return true;
        }
        pkg = Sample(5, "before");
        return false;
    };
    for (size_t at = 0; at < bytes.size() && !HasFailure(); ++at)
        EXPECT_TRUE(refused(bytes.substr(0, at), "the file cut at " + std::to_string(at)));
    for (size_t at = 0; at < contents.size() && !HasFailure(); ++at)
        EXPECT_TRUE(refused(wrapped(contents.substr(0, at)), "the contents cut at " + std::to_string(at)));
    EXPECT_TRUE(refused(wrapped(contents + '\0'), "a byte after the contents"));

    const auto& oracleKinds = QzPkgFileOracle::Kinds;
    const char kindByte = char(std::find_if(std::begin(oracleKinds), std::end(oracleKinds),
                                            [&](const auto& k) { return k.Name == GetParam().Kind; }) -
                               std::begin(oracleKinds));
    std::mt19937 random(7);
    for (int i = 0; i < 300 && !HasFailure(); ++i) {
        std::string damaged = bytes;
        damaged[random() % damaged.size()] ^= char(1 + random() % 255);
        EXPECT_TRUE(refused(damaged, "a flip in the file"));
        damaged = contents;
        damaged[random() % damaged.size()] ^= char(1 + random() % 255);
        if (!refused(wrapped(damaged), "a flip in the contents")) {
            EXPECT_EQ(QzPkgFileOracle::PkgFileFault(kindByte + damaged), "");
        }
    }
    // The public load goes the same way from disk.
    ExpectRefused(bytes.substr(0, bytes.size() - 1), "cut by its last byte");
}

// Inputs that once broke a rule, kept beside the fuzz target's seeds.
TEST(PkgFileFuzzSeeds, KeepTheRules)
{
    RegisterQzPkgFileFormats();
    int count = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(QZ_SOURCE_DIR) / "fuzz/seeds/pkgfile")) {
        EXPECT_EQ(QzPkgFileOracle::PkgFileFault(ReadFileBytes(entry.path().string())), "") << entry.path();
        ++count;
    }
    EXPECT_GE(count, 7);
}

TEST_P(PkgFiles, FailedSaveLeavesTheOldFileAndNothingBeside)
{
    const fs::path file = FDir / "kept.pkg";
    Sample(1, "kept")->SaveToFile(file.string());
    const std::string kept = ReadFileBytes(file.string());

    auto pkg = Sample(2, AnsiString(QzPkgMaxDescriptionLength + 1, 'd'));  // beyond the header's limit
    EXPECT_THROW(pkg->SaveToFile(file.string()), EQzPkgFileError);
    pkg->SetDescription("short");
    fs::create_directories(FDir / "folder.pkg" / "inside");  // a target that cannot be replaced
    try {
        pkg->SaveToFile((FDir / "folder.pkg").string());
        ADD_FAILURE() << "saved over a folder";
    } catch (const EQzPkgFileError& e) {
        EXPECT_EQ(e.Message().rfind("Cannot write the package file '" + (FDir / "folder.pkg").string(), 0), 0u);
    }
    if (geteuid() != 0) {  // root may write anywhere
        fs::permissions(FDir, fs::perms::owner_read | fs::perms::owner_exec);
        EXPECT_THROW(pkg->SaveToFile(file.string()), EQzPkgFileError);
        fs::permissions(FDir, fs::perms::owner_all);
    }
    EXPECT_EQ(ReadFileBytes(file.string()), kept);
    EXPECT_EQ(std::distance(fs::directory_iterator(FDir), fs::directory_iterator()), 2) << "a temporary was left";
}

INSTANTIATE_TEST_SUITE_P(EveryKind, PkgFiles, ::testing::ValuesIn(Kinds),
                         [](const auto& info) { return info.param.Name; });

TEST(PkgFileEnvelope, ForeignFilesAreRefusedWithWhatIsWrong)
{
    RegisterQzPkgFileFormats();
    TWriter newer, huge;
    for (TWriter* w : {&newer, &huge}) {
        w->WriteRaw(QzPkgFileSignature, sizeof QzPkgFileSignature);
        w->WriteString("Strings");
    }
    newer.WriteInteger(QzPkgFileVersion + 1);
    huge.WriteInteger(1);
    huge.WriteUTF8String("d");
    huge.WriteInteger(QzPkgMaxContentsSize + 1);
    huge.WriteInteger(0);
    huge.WriteInteger(Int64(QzCrc32(huge.Buffer())));
    const struct {
        std::string Bytes;
        AnsiString Problem;
    } cases[] = {
        {"", "it is not a package file"},
        {"object Form1: TForm1\r\nend\r\n", "it is not a package file"},
        {std::string("\x89PNG\r\n\x1a\n", 8) + std::string(40, '\0'), "it is not a package file"},
        {std::string(QzPkgFileSignature, 5), "the file is truncated"},
        {newer.Buffer(), "it was written in format version 2, newer than this program reads (1)"},
        {huge.Buffer(), Format("its header is damaged (contents size %d)", QzPkgMaxContentsSize + 1)},
        {QzBuildPkgFile("Images", "d", ""), "it holds a package of kind Images, not Strings"},
        {QzBuildPkgFile("Strings", "d", "not filer values"), "its contents cannot be read ("},
    };
    const fs::path file = fs::temp_directory_path() / ("qz_foreign_" + std::to_string(getpid()) + ".pst");
    for (const auto& c : cases) {
        std::ofstream(file, std::ios::binary | std::ios::trunc) << c.Bytes;
        TQzPkgStrings pkg(nullptr);
        pkg.Labels()->Add(1, "kept");
        try {
            pkg.LoadFromFile(file.string());
            ADD_FAILURE() << "loaded: " << c.Problem;
        } catch (const EQzPkgFileError& e) {
            EXPECT_EQ(e.Problem().substr(0, c.Problem.size()), c.Problem);
        }
        EXPECT_EQ(pkg.Labels()->Count(), 1);
    }
    fs::remove(file);
    EXPECT_THROW(QzReadPkgStringsDescription(file.string()), EQzPkgFileError) << "a missing file";
    // The checksum is the standard CRC-32, whatever the length's remainder.
    EXPECT_EQ(QzCrc32("123456789"), 0xCBF43926u);
    EXPECT_EQ(QzCrc32("The quick brown fox jumps over the lazy dog"), 0x414FA339u);
}

} // namespace
