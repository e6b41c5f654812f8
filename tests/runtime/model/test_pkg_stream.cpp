// Packages inside forms and through their contents block: every item comes
// back as it was, what the model does not know around a package stays in
// its place, and damaged data is refused without touching the package.

#include "ModelTestSupport.h"

#include "rtl/ComponentStream.h"
#include "support/TextLines.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

using namespace QzModelTest;

namespace {

class TModelTestForm : public TComponent {
    QZ_CLASS(TModelTestForm, TComponent)

public:
    explicit TModelTestForm(TComponent* owner) : TComponent(owner) {}
    AnsiString FCaption;

private:
    static void DeclareProperties(TClassBuilder<TModelTestForm>& b)
    {
        b.Property("Caption", &TModelTestForm::FCaption);
    }
};

void Register()
{
    RegisterQzModelClasses();
    RegisterClass(TModelTestForm::ClassInfo());
}

TFormTextOptions Lf()
{
    TFormTextOptions o;
    o.LineBreak = "\n";
    return o;
}

template <class T>
T* Find(TComponent* root, const AnsiString& name)
{
    auto* found = dynamic_cast<T*>(root->FindComponent(name));
    EXPECT_NE(found, nullptr) << name.c_str();
    return found;
}

// The form text of a form holding one strings package, with the package's
// own lines and those of everything around it.
std::string StringsForm()
{
    TModelTestForm form(nullptr);
    form.SetName("Form1");
    form.FCaption = "Main";
    auto* pkg = new TQzPkgStrings(&form);
    pkg->SetName("PkgStrings1");
    pkg->SetPkgName("Main");
    pkg->SetDescription("Main strings – ünïcode");
    FillStrings(*pkg);
    return WriteFormText(&form, Lf());
}

TEST(PackageInForm, EveryItemComesBackFromABinaryForm)
{
    Register();
    TModelTestForm form(nullptr);
    form.SetName("Form1");
    auto* pkg = new TQzPkgStrings(&form);
    pkg->SetName("PkgStrings1");
    pkg->SetPkgName("Main");
    pkg->SetActive(false);
    pkg->SetDescription("Ü description");
    FillStrings(*pkg);
    const std::string written = Contents(*pkg);
    const std::string binary = WriteComponentData(&form);

    std::unique_ptr<TComponent> read = ReadForm(binary);
    auto* back = Find<TQzPkgStrings>(read.get(), "PkgStrings1");
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(Contents(*back), written);
    EXPECT_EQ(back->PkgName(), "Main");
    EXPECT_FALSE(back->Active());
    EXPECT_EQ(back->Description(), "Ü description");
    EXPECT_FALSE(back->GetModified());
    // The block holds every item, in list order, and the placement; a
    // spot check that it was read, not merely copied.
    EXPECT_EQ(back->Labels()->GetItems(1)->Hint(), "Ñandú – “quoted”");
}

TEST(PackageInForm, WhatTheModelDoesNotKnowStaysInItsPlace)
{
    Register();
    // Foreign lines around and inside the package.
    std::vector<std::string> lines = TextLines(StringsForm());
    auto at = [&](const std::string& start) {
        for (size_t i = 0; i < lines.size(); ++i)
            if (lines[i].rfind(start, 0) == 0)
                return i;
        ADD_FAILURE() << "no line " << start;
        return size_t(0);
    };
    lines.insert(lines.begin() + long(at("  Caption")) + 1, "  Color = clBtnFace");
    lines.insert(lines.begin() + long(at("  object PkgStrings1")),
                 {"  object Panel1: TThirdPartyPanel", "    Bevel = bvRaised", "  end"});
    lines.insert(lines.begin() + long(at("    PkgName")) + 1, "    Tracking = True");
    std::string text;
    for (const std::string& l : lines)
        text += l + "\n";

    std::unique_ptr<TComponent> form = ReadForm(text, Lf());
    EXPECT_EQ(WriteFormText(form.get(), Lf()), text);

    // One label changed: only the package's data lines differ.
    Find<TQzPkgStrings>(form.get(), "PkgStrings1")->Labels()->FindId(0)->SetText("Save as");
    const std::vector<std::string> after = TextLines(WriteFormText(form.get(), Lf()));
    std::vector<std::string> before = TextLines(text);
    auto withoutData = [](const std::vector<std::string>& ls) {
        std::vector<std::string> out;
        bool inData = false;
        for (const std::string& l : ls) {
            if (l.find("Data = {") != std::string::npos)
                inData = true;
            if (!inData)
                out.push_back(l);
            if (inData && l.find('}') != std::string::npos)
                inData = false;
        }
        return out;
    };
    EXPECT_EQ(withoutData(after), withoutData(before));
    EXPECT_NE(after, before);
}

TEST(PackageInForm, APackageKeptInItsOwnFileLeavesNoDataInTheForm)
{
    Register();
    TInstalledFormat format;
    TTempDir dir;
    TModelTestForm form(nullptr);
    form.SetName("Form1");
    auto* pkg = new TQzPkgStrings(&form);
    pkg->SetName("PkgStrings1");
    FillStrings(*pkg);
    const std::string contents = Contents(*pkg);
    pkg->SaveFileEx(dir.File("main.pst"), imFile);
    const std::string text = WriteFormText(&form, Lf());
    EXPECT_EQ(text.find("Data"), std::string::npos);
    EXPECT_NE(text.find("InitMode = imFile"), std::string::npos);

    std::unique_ptr<TComponent> read = ReadForm(text, Lf());
    auto* back = Find<TQzPkgStrings>(read.get(), "PkgStrings1");
    EXPECT_EQ(Contents(*back), contents);
    EXPECT_TRUE(back->LastFileError().empty());

    // A missing file does not stop the form; the package says why.
    std::remove(dir.File("main.pst").c_str());
    read = ReadForm(text, Lf());
    back = Find<TQzPkgStrings>(read.get(), "PkgStrings1");
    EXPECT_TRUE(back->IsEmpty());
    EXPECT_NE(back->LastFileError().find("main.pst"), std::string::npos);
}

// A form whose package data holds the given contents block.
std::string FormWithData(const std::string& block)
{
    std::string hex;
    for (unsigned char c : block)
        hex += Format("%.2X", int(c));
    return "object Form1: TModelTestForm\n  object PkgStrings1: TQzPkgStrings\n    Data = {" + hex +
           "}\n  end\nend\n";
}

std::string StringsBlock(std::initializer_list<Integer> labelIds, Integer version = TQzPkgStrings::DataVersion)
{
    TWriter w;
    w.WriteInteger(version);
    w.WriteListBegin();
    for (Integer v : {TQzWindowPlacement::NeverPlaced, 0, 0, 0, 0})
        w.WriteInteger(v);
    w.WriteListEnd();
    w.WriteListBegin();
    for (Integer id : labelIds) {
        w.WriteInteger(id);
        w.WriteUTF8String("t");
        w.WriteUTF8String("h");
        w.WriteBoolean(false);
    }
    w.WriteListEnd();
    w.WriteListBegin();
    w.WriteListEnd();
    w.WriteListBegin();
    w.WriteListEnd();
    return w.Buffer();
}

TEST(PackageInForm, DamagedDataStopsTheFormNamingThePackage)
{
    Register();
    const struct {
        const char* Case;
        std::string Block;
        const char* Says;
    } cases[] = {
        {"good", StringsBlock({1, 2}), nullptr},
        {"duplicate Id", StringsBlock({1, 2, 1}), "Duplicate label Id 1"},
        {"negative Id", StringsBlock({-3}), "Invalid label Id -3"},
        {"newer layout", StringsBlock({}, TQzPkgStrings::DataVersion + 1), "Unsupported package data version"},
        {"truncated", StringsBlock({1, 2}).substr(0, 20), "PkgStrings1"},
        {"trailing bytes", StringsBlock({1}) + std::string(1, '\x02'), "Unexpected data"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Case);
        if (!c.Says) {
            std::unique_ptr<TComponent> form = ReadForm(FormWithData(c.Block), Lf());
            EXPECT_EQ(Find<TQzPkgStrings>(form.get(), "PkgStrings1")->Labels()->Count(), 2);
            continue;
        }
        try {
            ReadForm(FormWithData(c.Block), Lf());
            ADD_FAILURE() << "read";
        } catch (const EReadError& e) {
            EXPECT_NE(e.Message().find("PkgStrings1"), std::string::npos) << e.Message();
            EXPECT_NE(e.Message().find(c.Says), std::string::npos) << e.Message();
        }
    }
}

// ---------------------------------------------------------------------------
// Every kind's contents block

struct TKind {
    const char* Name;
    std::function<TQzPkgInfo*()> Make;
    std::function<void(TQzPkgInfo&)> Fill;
};

void FillImages(TQzPkgInfo& p)
{
    auto& pkg = static_cast<TQzPkgImages&>(p);
    TQzPkgImagesImage* image = pkg.Images()->Add(3);
    image->SetPicture(std::string("\x89PNG\r\n\x1a\n\0\0binary", 16), "TPngImage", 16, 24);
    image->SetExtension("InternalMask", std::string("\0\1\2", 3));
    image->SetProtected(true);
    pkg.Images()->Add(1);
    pkg.SetExtension("DesignSettings", "abc");
}

void FillVars(TQzPkgInfo& p)
{
    auto& pkg = static_cast<TQzPkgVars&>(p);
    pkg.Add("Setup\\Printer\\Copies", qvInteger)->SetVInteger(-3);
    pkg.Add("Setup\\Printer\\Duplex", qvBoolean)->SetVBoolean(true);
    pkg.Add("Setup\\Ratio", qvFloat)->SetVFloat(2.5L);
    pkg.Add("Título", qvString)->SetVString("ñ\r\nline");
    pkg.Add("Empty", qvFolder);
}

void FillPrivileges(TQzPkgInfo& p)
{
    auto& pkg = static_cast<TQzPkgPrivileges&>(p);
    pkg.SetKey("k€y");
    pkg.SetReadStateDisableControl(true);
    TQzPkgPrivilegesItem* item = pkg.Add(4);
    item->SetDescription("Edit customers");
    item->SetAccess(qaR);
    item->SetVisible(false);
    pkg.Add(9)->DescriptionId()->PkgId("User", 12);
}

void FillDisplay(TQzPkgInfo& p)
{
    auto& pkg = static_cast<TQzPkgDisplay&>(p);
    TQzPkgDisplaySetBackGround* bg = pkg.SetsBackGround()->Add("Paper");
    bg->SetStyle(bgGradientVer);
    bg->SetStartGraColor(0x102030);
    bg->SetTransparent(true);
    bg->Image()->PkgId("User", 2);
    bg->DescriptionId()->PkgId("System", 40);
    pkg.SetsColor()->Add("Alert")->SetColor(0x0000FF);
    TQzPkgDisplaySetFont* font = pkg.SetsFont()->Add("Título");
    font->SetFontName("DejaVu Sans");
    font->SetSize(11);
    font->SetItalic(true);
    pkg.SetCWTitleHeight(30);
    pkg.SetHiWinRgn(true);
    TStringList colors;
    colors.Add("Sky=$00FFCC99");
    pkg.SetUserColors(&colors);
    pkg.SetLastUpdateFile("Standard.dis");
    pkg.SetUpdateDateTime(45000.5);
    pkg.PkgUser()->Images()->Add(2)->SetPicture("GIF89a", "TGIFImage", 1, 1);
    TQzPkgInfo::TSystemUpdate allowed(*pkg.PkgSystem());
    pkg.PkgSystem()->Images()->Add(0)->SetProtected(true);
}

void FillLanguage(TQzPkgInfo& p)
{
    auto& pkg = static_cast<TQzPkgLanguage&>(p);
    pkg.Locale()->SetDateFormat(dfYMD);
    pkg.Locale()->SetNumericCurrencyString("€");
    pkg.Locale()->SetTimeSeparator('.');
    pkg.SetLastUpdateFile("base.lan");
    FillStrings(*pkg.PkgUser());
    TQzPkgInfo::TSystemUpdate allowed(*pkg.PkgSystem());
    pkg.PkgSystem()->Messages()->Add(2, "Not found")->SetProtected(true);
}

void FillSetup(TQzPkgInfo& p)
{
    auto& pkg = static_cast<TQzPkgSetup&>(p);
    pkg.Keys()->SetActionEnter(false);
    pkg.Keys()->SetRefresh(0x4052);
    pkg.DataBase()->SetDataBaseEngine(deMySQL);
    pkg.DataBase()->SetTimeSeparator('-');
}

const TKind Kinds[] = {
    {"strings", [] { return new TQzPkgStrings(nullptr); },
     [](TQzPkgInfo& p) { FillStrings(static_cast<TQzPkgStrings&>(p)); }},
    {"images", [] { return new TQzPkgImages(nullptr); }, FillImages},
    {"vars", [] { return new TQzPkgVars(nullptr); }, FillVars},
    {"privileges", [] { return new TQzPkgPrivileges(nullptr); }, FillPrivileges},
    {"display", [] { return new TQzPkgDisplay(nullptr); }, FillDisplay},
    {"language", [] { return new TQzPkgLanguage(nullptr); }, FillLanguage},
    {"setup", [] { return new TQzPkgSetup(nullptr); }, FillSetup},
};

class KindTest : public ::testing::TestWithParam<TKind> {
protected:
    std::unique_ptr<TQzPkgInfo> Make() { return std::unique_ptr<TQzPkgInfo>(GetParam().Make()); }
    std::unique_ptr<TQzPkgInfo> Filled()
    {
        auto pkg = Make();
        GetParam().Fill(*pkg);
        return pkg;
    }
};

// Blocks written by earlier builds (tests/runtime/model/blocks) still read,
// and are written again byte for byte: files in users' hands stay valid.
TEST_P(KindTest, BlocksWrittenBeforeReadAndAreWrittenTheSame)
{
    const AnsiString dir = AnsiString(QZ_SOURCE_DIR) + "/tests/runtime/model/blocks/";
    const std::string filled = ReadFileBytes(dir + GetParam().Name + ".bin");
    const std::string empty = ReadFileBytes(dir + GetParam().Name + "-empty.bin");
    EXPECT_EQ(Contents(*Filled()), filled);
    EXPECT_EQ(Contents(*Make()), empty);
    ASSERT_NE(filled, empty) << "the filler must change the package";
    for (const std::string* block : {&filled, &empty}) {
        auto pkg = block == &filled ? Make() : Filled();
        TReader r(*block);
        pkg->xLoadFromStream(&r);
        EXPECT_TRUE(r.AtEnd());
        EXPECT_EQ(Contents(*pkg), *block);
        EXPECT_TRUE(block == &empty || !pkg->IsEmpty());
    }
    // Assign goes through the same block.
    auto assigned = Make();
    assigned->Assign(Filled().get());
    EXPECT_EQ(Contents(*assigned), filled);
}

// A load refused at any byte leaves the package as it was, whether it was
// empty (nothing read may be committed) or held other contents (nothing may
// be cleared before the block is known whole).
TEST_P(KindTest, ABlockCutAnywhereIsRefusedAndChangesNothing)
{
    const std::string block = Contents(*Filled());
    TQzWindowPlacement elsewhere;
    elsewhere.Left = 7;
    elsewhere.Width = 300;
    auto empty = Make();
    auto other = Filled();
    other->SetPlacement(elsewhere);
    for (TQzPkgInfo* target : {empty.get(), other.get()}) {
        target->SetDescription("kept");
        const std::string before = Contents(*target);
        for (size_t cut = 0; cut < block.size(); ++cut) {
            const std::string part = block.substr(0, cut);
            TReader r(part);
            EXPECT_THROW(target->xLoadFromStream(&r), Exception) << "cut at " << cut;
            ASSERT_EQ(Contents(*target), before) << "cut at " << cut;
            ASSERT_EQ(target->Description(), "kept");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Model, KindTest, ::testing::ValuesIn(Kinds),
                         [](const auto& info) { return std::string(info.param.Name); });

TEST(ApplicationInForm, ItsPackagesAreWrittenInPlaceAndComeBack)
{
    Register();
    std::string text;
    std::string display, language, vars, privileges;
    {
        TModelTestForm form(nullptr);
        form.SetName("Form1");
        auto* app = new TQzCApplication(&form);
        app->SetName("QzCApplication1");
        app->SetPath("/data/app");
        FillDisplay(*app->PkgDisplay());
        FillLanguage(*app->PkgLanguage());
        FillVars(*app->PkgVars());
        app->PkgVars()->SetPkgName("AppVars");
        FillPrivileges(*app->Privileges());
        display = Contents(*app->PkgDisplay());
        language = Contents(*app->PkgLanguage());
        vars = Contents(*app->PkgVars());
        privileges = Contents(*app->Privileges());
        text = WriteFormText(&form, Lf());
    }
    EXPECT_NE(text.find("PkgLanguage.Data = {"), std::string::npos);
    EXPECT_NE(text.find("PkgVars.PkgName = 'AppVars'"), std::string::npos);
    EXPECT_EQ(text.find("object PkgDisplay"), std::string::npos);
    EXPECT_EQ(text.find("PkgSetup"), std::string::npos) << "an untouched package writes nothing";

    std::unique_ptr<TComponent> form = ReadForm(text, Lf());
    auto* app = Find<TQzCApplication>(form.get(), "QzCApplication1");
    ASSERT_NE(app, nullptr);
    EXPECT_EQ(QzCApp(), app);
    EXPECT_EQ(app->Path(), "/data/app");
    EXPECT_EQ(Contents(*app->PkgDisplay()), display);
    EXPECT_EQ(Contents(*app->PkgLanguage()), language);
    EXPECT_EQ(Contents(*app->PkgVars()), vars);
    EXPECT_EQ(Contents(*app->Privileges()), privileges);
    EXPECT_EQ(QzFindPkgVars("AppVars"), app->PkgVars());
    EXPECT_EQ(WriteFormText(form.get(), Lf()), text);
}

}  // namespace
