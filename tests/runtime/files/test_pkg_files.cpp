// Package files of every kind: saved and loaded back with all their data,
// descriptions read from the header alone, and damaged, truncated or
// foreign files refused with a message naming the file while the package
// stays as it was.

#include "runtime/files/QzPkgFiles.h"

#include "runtime/model/QzApplication.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>

namespace fs = std::filesystem;

namespace {

// ---- Sample packages, one per kind --------------------------------------

void FillStrings(TQzPkgInfo& p, int seed)
{
    auto& pkg = static_cast<TQzPkgStrings&>(p);
    pkg.Labels()->Add(seed, "Größe — 日本", "hint\r\nwith break")->SetProtected(true);
    pkg.Labels()->Add(seed + 7, "", "only a hint");
    pkg.Messages()->Add(3, "Delete %s?");
    pkg.Texts()->Add(9000 + seed, "line 1\r\nline 2\r\n")->SetProtected(true);
}

void FillImages(TQzPkgInfo& p, int seed)
{
    auto& pkg = static_cast<TQzPkgImages&>(p);
    std::string picture;
    for (int i = 0; i < 300; ++i)
        picture += char((i * 37 + seed) & 0xFF);
    TQzPkgImagesImage* image = pkg.Images()->Add(seed);
    image->SetPicture(picture, "TPngImage", 16, 12);
    image->SetExtension("Mask", std::string("\0\1\2", 3));
    image->SetProtected(true);
    pkg.Images()->Add(seed + 1);  // an empty image
    pkg.SetExtension("Designer", "settings");
}

void FillVars(TQzPkgInfo& p, int seed)
{
    auto& pkg = static_cast<TQzPkgVars&>(p);
    pkg.Add("Setup\\Printer\\Copies", qvInteger)->SetVInteger(seed);
    pkg.Add("Setup\\Printer\\Name", qvString)->SetVString("Laser — 2");
    pkg.Add("Setup\\Scale", qvFloat)->SetVFloat(Extended(0.1) * seed);
    pkg.Add("Enabled", qvBoolean)->SetVBoolean(true);
    pkg.Add("Empty", qvFolder);
}

void FillPrivileges(TQzPkgInfo& p, int seed)
{
    auto& pkg = static_cast<TQzPkgPrivileges&>(p);
    TQzPkgPrivilegesItem* item = pkg.Add(seed);
    item->SetDescription("Edit customers");
    item->SetAccess(qaR);
    item->SetVisible(false);
    pkg.Add(seed + 1)->SetAccess(qaRW);
    pkg.SetKey("k3y");
    pkg.SetReadStateDisableControl(true);
}

void FillDisplay(TQzPkgInfo& p, int seed)
{
    auto& pkg = static_cast<TQzPkgDisplay&>(p);
    TQzPkgDisplaySetBackGround* back = pkg.SetsBackGround()->Add("Back" + IntToStr(seed));
    back->SetStyle(bgGradientVer);
    back->SetStartGraColor(0x123456);
    pkg.SetsColor()->Add("Col")->SetColor(0x00FF00);
    pkg.SetsFont()->Add("Big")->SetSize(14 + seed);
    pkg.SetCWButtonsHeight(30);
    TStringList colors;
    colors.Add("Brand=$00336699");
    pkg.SetUserColors(&colors);
}

void FillLanguage(TQzPkgInfo& p, int seed)
{
    auto& pkg = static_cast<TQzPkgLanguage&>(p);
    pkg.PkgUser()->Labels()->Add(seed, "Kunde", "Der Kunde");
    pkg.PkgUser()->Messages()->Add(2, "Nicht gefunden");
    pkg.Locale()->SetDateFormat(dfYMD);
    pkg.Locale()->SetNumericDecimalSeparator(',');
    pkg.SetLastUpdateFile("Base.lan");
}

void FillSetup(TQzPkgInfo& p, int seed)
{
    auto& pkg = static_cast<TQzPkgSetup&>(p);
    pkg.Keys()->SetInsertMode(false);
    pkg.Keys()->SetRefresh(TShortCut(0xC000 | ('A' + seed)));  // Ctrl+Alt+letter: no default has it
    pkg.DataBase()->SetDataBaseEngine(dePostgreSQL);
    pkg.DataBase()->SetDateSeparator('-');
}

struct TKindCase {
    const char* Name;
    const char* Kind;
    const char* Ext;
    std::function<std::unique_ptr<TQzPkgInfo>()> Create;
    void (*Fill)(TQzPkgInfo&, int seed);
    AnsiString (*ReadDescription)(const AnsiString&);
};

template <class T>
std::unique_ptr<TQzPkgInfo> Make()
{
    return std::make_unique<T>(nullptr);
}

void PrintTo(const TKindCase& c, std::ostream* os) { *os << c.Name; }

const TKindCase Kinds[] = {
    {"Strings", QzPkgKindStrings, "pst", Make<TQzPkgStrings>, FillStrings, QzReadPkgStringsDescription},
    {"Images", QzPkgKindImages, "pim", Make<TQzPkgImages>, FillImages, QzReadPkgImagesDescription},
    {"Vars", QzPkgKindVars, "pva", Make<TQzPkgVars>, FillVars, QzReadPkgVarsDescription},
    {"Access", QzPkgKindAccess, "pac", Make<TQzPkgPrivileges>, FillPrivileges, QzReadPkgAccessDescription},
    {"Display", QzPkgKindDisplay, "dis", Make<TQzPkgDisplay>, FillDisplay, QzReadPkgDisplayDescription},
    {"Language", QzPkgKindLanguage, "lan", Make<TQzPkgLanguage>, FillLanguage, QzReadPkgLanguageDescription},
    {"Setup", QzPkgKindSetup, "pse", Make<TQzPkgSetup>, FillSetup, QzReadPkgSetupDescription},
};

// Everything a package holds, as the model writes it.
std::string ContentsOf(TQzPkgInfo& pkg)
{
    TWriter writer;
    pkg.xSaveToStream(&writer);
    return writer.Buffer();
}

std::string ReadAll(const fs::path& file) { return ReadFileBytes(file.string()); }
void WriteAll(const fs::path& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary | std::ios::trunc).write(bytes.data(), std::streamsize(bytes.size()));
}

class PkgFiles : public ::testing::TestWithParam<TKindCase> {
protected:
    static void SetUpTestSuite() { RegisterQzPkgFileFormats(); }

    void SetUp() override
    {
        FDir = fs::temp_directory_path() /
               ("qz_pkg_files_" + std::to_string(getpid()) + "_" + GetParam().Name);
        fs::remove_all(FDir);
        fs::create_directories(FDir);
    }
    void TearDown() override
    {
        std::error_code ec;
        fs::permissions(FDir, fs::perms::owner_all, ec);
        fs::remove_all(FDir, ec);
    }

    // A filled package saved to a file of its own kind.
    fs::path SaveSample(const AnsiString& description, int seed = 1)
    {
        auto pkg = GetParam().Create();
        GetParam().Fill(*pkg, seed);
        pkg->SetDescription(description);
        const fs::path file = FDir / (AnsiString("sample.") + GetParam().Ext);
        pkg->SaveToFile(file.string());
        return file;
    }

    // A new name each time: rewriting one file makes the file system flush
    // it on every close, which would make these loops crawl.
    fs::path FreshFile() { return FDir / ("damaged" + std::to_string(++FFresh) + "." + GetParam().Ext); }

    // Loading file must fail with a message naming it, and leave a filled
    // package exactly as it was.
    void ExpectRefused(const fs::path& file, const std::string& what)
    {
        auto pkg = GetParam().Create();
        GetParam().Fill(*pkg, 5);
        pkg->SetDescription("before");
        const std::string before = ContentsOf(*pkg);
        try {
            pkg->LoadFromFile(file.string());
            ADD_FAILURE() << "loaded a file that is " << what;
        } catch (const EQzPkgFileError& e) {
            EXPECT_NE(e.Message().find("'" + file.string() + "'"), AnsiString::npos) << e.Message();
            EXPECT_EQ(e.FileName(), file.string());
        }
        EXPECT_EQ(ContentsOf(*pkg), before) << "the package changed after a file that is " << what;
        EXPECT_EQ(pkg->Description(), "before");
    }

    fs::path FDir;
    int FFresh = 0;
};

TEST_P(PkgFiles, SavedPackageLoadsBackWithAllItsData)
{
    auto original = GetParam().Create();
    GetParam().Fill(*original, 3);
    original->SetDescription("Beschreibung: äöü — " + AnsiString(GetParam().Name));
    const fs::path file = FDir / (AnsiString("full.") + GetParam().Ext);
    original->SaveToFile(file.string());

    const std::string bytes = ReadAll(file);
    ASSERT_GE(bytes.size(), sizeof QzPkgFileSignature);
    EXPECT_EQ(bytes.compare(0, sizeof QzPkgFileSignature, QzPkgFileSignature, sizeof QzPkgFileSignature), 0);

    auto loaded = GetParam().Create();
    GetParam().Fill(*loaded, 8);  // loading replaces, it does not merge
    loaded->LoadFromFile(file.string());
    EXPECT_EQ(ContentsOf(*loaded), ContentsOf(*original));
    EXPECT_EQ(loaded->Description(), original->Description());

    // Saving what was loaded gives the same bytes: nothing is lost or added.
    const fs::path again = FDir / (AnsiString("again.") + GetParam().Ext);
    loaded->SaveToFile(again.string());
    EXPECT_EQ(ReadAll(again), bytes);
}

TEST_P(PkgFiles, DescriptionIsReadFromTheHeaderAlone)
{
    const AnsiString description = "Kunden & Lieferanten, Version 2 — " + AnsiString(3000, 'x');
    const fs::path file = SaveSample(description);
    EXPECT_EQ(GetParam().ReadDescription(file.string()), description);

    // The contents are not read: damaging them leaves the description readable.
    std::string bytes = ReadAll(file);
    bytes.back() = char(bytes.back() ^ 0x55);
    WriteAll(file, bytes);
    EXPECT_EQ(GetParam().ReadDescription(file.string()), description);
    ExpectRefused(file, "damaged in its last byte");
}

TEST_P(PkgFiles, ReadersOfOtherKindsRefuseTheFile)
{
    const fs::path file = SaveSample("mine");
    for (const TKindCase& other : Kinds) {
        if (other.Kind == GetParam().Kind)
            continue;
        try {
            other.ReadDescription(file.string());
            ADD_FAILURE() << other.Name << " read a " << GetParam().Name << " file";
        } catch (const EQzPkgFileError& e) {
            EXPECT_EQ(e.Problem(), Format("it holds a package of kind %s, not %s", GetParam().Kind, other.Kind));
        }
    }
}

TEST_P(PkgFiles, TruncatedFilesAreRefusedAtEveryLength)
{
    const fs::path file = SaveSample("truncated");
    const std::string bytes = ReadAll(file);
    for (size_t length = 0; length < bytes.size(); length += length < 128 ? 1 : 13) {
        const fs::path cut = FreshFile();
        WriteAll(cut, bytes.substr(0, length));
        ExpectRefused(cut, "truncated to " + std::to_string(length) + " bytes");
        fs::remove(cut);
        if (HasFailure())
            return;
    }
}

TEST_P(PkgFiles, AnyFlippedByteIsRefused)
{
    const fs::path file = SaveSample("flipped");
    const std::string bytes = ReadAll(file);
    for (size_t at = 0; at < bytes.size(); at += at < 128 ? 1 : 7) {
        for (unsigned char mask : {0x01, 0x80}) {
            std::string damaged = bytes;
            damaged[at] = char(damaged[at] ^ mask);
            const fs::path bad = FreshFile();
            WriteAll(bad, damaged);
            ExpectRefused(bad, "flipped at byte " + std::to_string(at));
            fs::remove(bad);
            if (HasFailure())
                return;
        }
    }
    // Bytes after the contents are damage too.
    const fs::path bad = FreshFile();
    WriteAll(bad, bytes + "x");
    ExpectRefused(bad, "longer than its contents");
}

TEST_P(PkgFiles, FailedSaveLeavesNoPartialFile)
{
    const fs::path file = SaveSample("kept");
    const std::string kept = ReadAll(file);

    auto pkg = GetParam().Create();
    GetParam().Fill(*pkg, 2);
    // A description beyond the header's limit: refused before writing.
    pkg->SetDescription(AnsiString(QzPkgMaxDescriptionLength + 1, 'd'));
    EXPECT_THROW(pkg->SaveToFile(file.string()), EQzPkgFileError);
    EXPECT_EQ(ReadAll(file), kept);

    // A target that cannot be replaced (a folder of that name).
    pkg->SetDescription("short");
    const fs::path folder = FDir / "folder.pkg";
    fs::create_directories(folder / "inside");
    try {
        pkg->SaveToFile(folder.string());
        ADD_FAILURE() << "saved over a folder";
    } catch (const EQzPkgFileError& e) {
        EXPECT_EQ(e.Message().rfind("Cannot write the package file '" + folder.string() + "'", 0), 0u)
            << e.Message();
    }
    EXPECT_TRUE(fs::is_directory(folder / "inside"));

    // A folder that may not be written to (root may write anywhere).
    if (geteuid() != 0) {
        fs::permissions(FDir, fs::perms::owner_read | fs::perms::owner_exec);
        EXPECT_THROW(pkg->SaveToFile(file.string()), EQzPkgFileError);
        fs::permissions(FDir, fs::perms::owner_all);
        EXPECT_EQ(ReadAll(file), kept);
    }
    // Nothing was left beside the files: no temporary, no half-written copy.
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(FDir))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"folder.pkg", "sample." + std::string(GetParam().Ext)}));
}

INSTANTIATE_TEST_SUITE_P(EveryKind, PkgFiles, ::testing::ValuesIn(Kinds),
                         [](const auto& info) { return info.param.Name; });

// ---- Files that are not package files of the kind -------------------------

class ForeignFiles : public ::testing::Test {
protected:
    static void SetUpTestSuite() { RegisterQzPkgFileFormats(); }
    void SetUp() override
    {
        FDir = fs::temp_directory_path() / ("qz_foreign_" + std::to_string(getpid()));
        fs::create_directories(FDir);
    }
    void TearDown() override { fs::remove_all(FDir); }

    AnsiString ProblemLoading(const std::string& bytes)
    {
        const fs::path file = FDir / "x.pst";
        WriteAll(file, bytes);
        TQzPkgStrings pkg(nullptr);
        pkg.Labels()->Add(1, "kept");
        try {
            pkg.LoadFromFile(file.string());
        } catch (const EQzPkgFileError& e) {
            EXPECT_EQ(pkg.Labels()->Count(), 1);
            return e.Problem();
        }
        return "(loaded)";
    }

    fs::path FDir;
};

TEST_F(ForeignFiles, AreRefusedWithWhatIsWrong)
{
    const std::string signature(QzPkgFileSignature, sizeof QzPkgFileSignature);
    TWriter newer;
    newer.WriteRaw(QzPkgFileSignature, sizeof QzPkgFileSignature);
    newer.WriteString("Strings");
    newer.WriteInteger(QzPkgFileVersion + 1);

    const struct {
        const char* Name;
        std::string Bytes;
        const char* Problem;
    } cases[] = {
        {"empty", "", "it is not a package file"},
        {"text", "object Form1: TForm1\r\nend\r\n", "it is not a package file"},
        {"form stream", std::string("TPF0\x06TForm1", 11), "it is not a package file"},
        {"png", std::string("\x89PNG\r\n\x1a\n", 8) + std::string(40, '\0'), "it is not a package file"},
        {"signature cut", signature.substr(0, 5), "the file is truncated"},
        {"newer format", newer.Buffer(), "it was written in format version 2, newer than this program reads (1)"},
        {"other kind", QzBuildPkgFile("Images", "d", ""), "it holds a package of kind Images, not Strings"},
        {"unreadable contents", QzBuildPkgFile("Strings", "d", "not filer values"), nullptr},
    };
    for (const auto& c : cases) {
        const AnsiString problem = ProblemLoading(c.Bytes);
        if (c.Problem)
            EXPECT_EQ(problem, c.Problem) << c.Name;
        else
            EXPECT_EQ(problem.rfind("its contents cannot be read (", 0), 0u) << c.Name << ": " << problem;
    }
}

TEST_F(ForeignFiles, MissingFileIsNamed)
{
    const AnsiString missing = (FDir / "nowhere.pst").string();
    try {
        QzReadPkgStringsDescription(missing);
        ADD_FAILURE();
    } catch (const EQzPkgFileError& e) {
        EXPECT_EQ(e.Message(), "Cannot read the package file '" + missing + "': the file does not exist");
    }
    TQzPkgStrings pkg(nullptr);
    EXPECT_THROW(pkg.LoadFromFile(missing), EQzPkgFileError);
}

TEST_F(ForeignFiles, HeaderLimitsHoldAgainstHostileValues)
{
    // A header that claims more contents than any package file may hold.
    TWriter w;
    w.WriteRaw(QzPkgFileSignature, sizeof QzPkgFileSignature);
    w.WriteString("Strings");
    w.WriteInteger(1);
    w.WriteUTF8String("d");
    w.WriteInteger(QzPkgMaxContentsSize + 1);
    w.WriteInteger(0);
    w.WriteInteger(Int64(QzCrc32(w.Buffer())));
    EXPECT_EQ(ProblemLoading(w.Buffer()), Format("its header is damaged (contents size %d)", QzPkgMaxContentsSize + 1));
}

TEST(PkgFileChecksum, IsTheStandardCrc32AtEveryLengthAndAlignment)
{
    EXPECT_EQ(QzCrc32("123456789"), 0xCBF43926u);
    EXPECT_EQ(QzCrc32(""), 0u);
    // Against the bit-by-bit definition, over lengths and offsets that
    // cover the eight-byte steps and the tail.
    std::string bytes;
    for (int i = 0; i < 80; ++i)
        bytes += char(i * 73 + 11);
    for (size_t from = 0; from < 8; ++from)
        for (size_t length = 0; from + length <= bytes.size(); ++length) {
            Cardinal crc = 0xFFFFFFFFu;
            for (size_t i = from; i < from + length; ++i) {
                crc ^= Byte(bytes[i]);
                for (int k = 0; k < 8; ++k)
                    crc = (crc & 1) ? 0xEDB88320u ^ (crc >> 1) : crc >> 1;
            }
            ASSERT_EQ(QzCrc32(std::string_view(bytes).substr(from, length)), ~crc) << from << "+" << length;
        }
}

// ---- The model's file operations through the installed formats -----------

TEST_F(ForeignFiles, PackageKeptInItsOwnFileReloadsFromIt)
{
    const AnsiString file = (FDir / "own.pst").string();
    TQzPkgStrings pkg(nullptr);
    pkg.Labels()->Add(1, "one");
    pkg.SaveFileEx(file, imFile);
    EXPECT_EQ(pkg.InitMode(), imFile);
    ASSERT_TRUE(FileExists(file));

    TQzPkgStrings other(nullptr);
    other.LoadFileEx(file, imFile);
    ASSERT_NE(other.Labels()->FindId(1), nullptr);
    EXPECT_EQ(other.Labels()->FindId(1)->Text(), "one");

    // A damaged file leaves the package as it was, with the file named.
    WriteAll(file, "garbage");
    try {
        other.LoadFile();
        ADD_FAILURE() << "loaded garbage";
    } catch (const Exception& e) {
        EXPECT_NE(e.Message().find(file), AnsiString::npos) << e.Message();
    }
    EXPECT_EQ(other.Labels()->FindId(1)->Text(), "one");
}

} // namespace
