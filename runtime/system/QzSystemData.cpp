#include "runtime/system/QzSystemData.h"

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/system/QzSystemImages.h"
#include "runtime/system/QzSystemStrings.h"
#include "runtime/util/QzPaths.h"

#include <cstdio>

namespace {

// A colour of the system scheme, numbered as the class library numbers them.
constexpr TColor SystemColor(int index) { return TColor(0xFF000000u | unsigned(index)); }

constexpr TColor ColWindow = SystemColor(5);
constexpr TColor ColWindowText = SystemColor(8);
constexpr TColor ColHighlight = SystemColor(13);
constexpr TColor ColHighlightText = SystemColor(14);
constexpr TColor ColBtnFace = SystemColor(15);
constexpr TColor ColBtnShadow = SystemColor(16);
constexpr TColor ColGrayText = SystemColor(17);
constexpr TColor ColBtnText = SystemColor(18);
constexpr TColor ColBtnHighlight = SystemColor(20);
constexpr TColor Col3DDkShadow = SystemColor(21);
constexpr TColor Col3DLight = SystemColor(22);
constexpr TColor ColInfoText = SystemColor(23);
constexpr TColor ColInfoBk = SystemColor(24);

struct TBackGroundSet {
    const char* Name;
    const char* Description;
    TQzBackGroundStyle Style;
    TColor Solid;
    TColor Start;
    TColor End;
    bool Transparent;
};

constexpr TBackGroundSet BackGroundSets[] = {
    {"EdBackGround", "Background of edit boxes", bgSolid, ColWindow, 0xFFFFFF, 0xC0C0C0, false},
    {"FormBackGround", "Background of forms and panels", bgSolid, ColBtnFace, 0xFFFFFF, 0xC0C0C0, false},
    {"InfoBackGround", "Background of hints and notes", bgSolid, ColInfoBk, 0xFFFFFF, 0xC0C0C0, false},
    {"GradientSilver", "Vertical gradient from white to silver", bgGradientVer, ColBtnFace, 0xFFFFFF, 0xC0C0C0, false},
    {"GradientBlue", "Vertical gradient from white to light blue", bgGradientVer, ColBtnFace, 0xFFFFFF, 0xF0CAA6,
     false},
    {"GradientTitle", "Horizontal gradient for titles", bgGradientHor, ColBtnFace, 0x800000, 0xF0CAA6, false},
    {"Transparent", "No background: the parent shows through", bgSolid, ColBtnFace, 0xFFFFFF, 0xC0C0C0, true},
};

struct TColorSet {
    const char* Name;
    const char* Description;
    TColor Color;
};

constexpr TColorSet ColorSets[] = {
    {"ColText", "Text of edit boxes and lists", ColWindowText},
    {"ColBtnText", "Text of buttons", ColBtnText},
    {"ColGrayText", "Text of disabled controls", ColGrayText},
    {"ColHighlight", "Background of selected items", ColHighlight},
    {"ColHighlightText", "Text of selected items", ColHighlightText},
    {"ColInfoText", "Text of hints and notes", ColInfoText},
    {"ColWindow", "Background of edit boxes and lists", ColWindow},
    {"3DMLight", "Light edge of 3D frames", Col3DLight},
    {"3DMHighlight", "Lit edge of 3D frames", ColBtnHighlight},
    {"3DMShadow", "Shadow edge of 3D frames", ColBtnShadow},
    {"3DMDkShadow", "Dark shadow edge of 3D frames", Col3DDkShadow},
    {"ColError", "Text of error notes", 0x0000C0},
    {"ColLink", "Text of links", 0xC00000},
};

struct TFontSet {
    const char* Name;
    const char* Description;
    const char* FontName;
    Integer Size;
    TColor Color;
    bool Bold;
    bool Italic;
    bool Underline;
};

constexpr TFontSet FontSets[] = {
    {"Standard", "Text of controls", "Tahoma", 8, ColWindowText, false, false, false},
    {"Bold", "Emphasised text", "Tahoma", 8, ColWindowText, true, false, false},
    {"Title", "Titles of windows and groups", "Tahoma", 10, ColWindowText, true, false, false},
    {"Small", "Notes and status bars", "Tahoma", 7, ColWindowText, false, false, false},
    {"Hint", "Hints", "Tahoma", 8, ColInfoText, false, false, false},
    {"Fixed", "Text in columns of fixed width", "Courier New", 9, ColWindowText, false, false, false},
    {"Link", "Links", "Tahoma", 8, 0xC00000, false, false, true},
    {"Note", "Remarks", "Tahoma", 8, ColGrayText, false, true, false},
};

void FillFrom(TQzPkgStrings& source)
{
    for (const TQzSystemString& s : QzSystemLabels())
        source.Labels()->Add(s.Id, s.Text, s.Hint);
    for (const TQzSystemString& s : QzSystemMessages())
        source.Messages()->Add(s.Id, s.Text);
    for (const TQzSystemString& s : QzSystemTexts())
        source.Texts()->Add(s.Id, s.Text);
}

} // namespace

void QzFillSystemStrings(TQzPkgStrings& target)
{
    TQzDetachedPkgs detached;
    TQzPkgStrings source(nullptr);
    FillFrom(source);
    QzMergeSystemStrings(target, source, false);
}

void QzFillStandardDisplay(TQzPkgDisplay& target)
{
    for (const TBackGroundSet& s : BackGroundSets) {
        if (target.SetsBackGround()->Find(s.Name))
            continue;
        TQzPkgDisplaySetBackGround* set = target.SetsBackGround()->Add(s.Name);
        set->SetDescription(s.Description);
        set->SetStyle(s.Style);
        set->SetSolidColor(s.Solid);
        set->SetStartGraColor(s.Start);
        set->SetEndGraColor(s.End);
        set->SetTransparent(s.Transparent);
    }
    for (const TColorSet& s : ColorSets) {
        if (target.SetsColor()->Find(s.Name))
            continue;
        TQzPkgDisplaySetColor* set = target.SetsColor()->Add(s.Name);
        set->SetDescription(s.Description);
        set->SetColor(s.Color);
    }
    for (const TFontSet& s : FontSets) {
        if (target.SetsFont()->Find(s.Name))
            continue;
        TQzPkgDisplaySetFont* set = target.SetsFont()->Add(s.Name);
        set->SetDescription(s.Description);
        TQzFontValues values;
        values.Name = s.FontName;
        values.Size = s.Size;
        values.Color = s.Color;
        values.Bold = s.Bold;
        values.Italic = s.Italic;
        values.Underline = s.Underline;
        set->SetValues(values);
    }
}

void RegisterQzSystemData()
{
    TQzSystemPackagesProvider provider;
    provider.Strings = [](TQzPkgStrings& target) { QzFillSystemStrings(target); };
    provider.Images = [](TQzPkgImages& target) { QzFillSystemImages(target); };
    SetSystemPackagesProvider(std::move(provider));
}

void QzWriteInstallData(const AnsiString& folder)
{
    const AnsiString dir = QzAddPathBar(folder);
    if (!dir.empty() && !DirectoryExists(dir))
        ForceDirectories(dir);
    // Packages made here are the files' contents, not the program's: they
    // stay out of the registry.
    TQzDetachedPkgs detached;

    TQzPkgLanguage language(nullptr);
    QzFillSystemStrings(*language.PkgSystem());
    language.SetDescription("QzControls base language: English");
    TQzPkgFileCodec(QzPkgKindLanguage).SaveToFile(language, dir + QzBaseLanguageFileName);

    TQzPkgDisplay display(nullptr);
    QzFillStandardDisplay(display);
    QzFillSystemImages(*display.PkgSystem());
    display.SetDescription("QzControls standard display sets");
    TQzPkgFileCodec(QzPkgKindDisplay).SaveToFile(display, dir + QzStandardDisplayFileName);
}

int QzInstallDataMain(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <output folder>\n", argc > 0 ? argv[0] : "qz_install_data");
        return 2;
    }
    try {
        QzWriteInstallData(argv[1]);
    } catch (const Exception& e) {
        std::fprintf(stderr, "%s\n", e.Message().c_str());
        return 1;
    }
    return 0;
}
