#include "runtime/model/QzPkgDisplay.h"

#include "runtime/model/QzPkgStream.h"
#include "runtime/model/QzRegistry.h"

#include <limits>

// ---------------------------------------------------------------------------
// Sets

void TQzPkgDisplaySet::DeclareProperties(TClassBuilder<TQzPkgDisplaySet>& b)
{
    b.Property("Name", &TQzPkgDisplaySet::Name, &TQzPkgDisplaySet::SetName);
    b.Property("Description", &TQzPkgDisplaySet::Description, &TQzPkgDisplaySet::SetDescription);
    b.Property("DescriptionId", [](TQzPkgDisplaySet& s) { return s.DescriptionId(); });
}

TQzPkgDisplaySet::TQzPkgDisplaySet(TQzPkgDisplaySets* sets, const AnsiString& name)
    : TQzPkgItem(sets), FName(name)
{
    FDescriptionId.SetOwner(this);
    FDescriptionId.OnChange = [this] { Changed(); };
}

void TQzPkgDisplaySet::SetName(const AnsiString& value)
{
    if (value == FName)
        return;
    CheckChange();
    if (auto* sets = dynamic_cast<TQzPkgDisplaySets*>(Collection()))
        sets->CheckName(value, this);
    else if (Trim(value).empty())
        throw EQzPkgError("A display set needs a name");
    FName = value;
    Changed();
}

void TQzPkgDisplaySet::SetDescription(const AnsiString& value)
{
    ChangeField(FDescription, value);
}

void TQzPkgDisplaySet::SetDescriptionId(TQzMemoryLabel* value)
{
    if (value)
        FDescriptionId.Assign(value);
}

void TQzPkgDisplaySet::AssignCommon(const TQzPkgDisplaySet& source)
{
    SetDescription(source.FDescription);
    FDescriptionId.Assign(const_cast<TQzMemoryLabel*>(&source.FDescriptionId));
}

void TQzPkgDisplaySetBackGround::DeclareProperties(TClassBuilder<TQzPkgDisplaySetBackGround>& b)
{
    b.Enum("Style", TypeInfo_TQzBackGroundStyle(), &TQzPkgDisplaySetBackGround::Style,
           &TQzPkgDisplaySetBackGround::SetStyle, bgSolid);
    b.Property("SolidColor", TypeInfo_TColor(), &TQzPkgDisplaySetBackGround::SolidColor,
               &TQzPkgDisplaySetBackGround::SetSolidColor);
    b.Property("StartGraColor", TypeInfo_TColor(), &TQzPkgDisplaySetBackGround::StartGraColor,
               &TQzPkgDisplaySetBackGround::SetStartGraColor);
    b.Property("EndGraColor", TypeInfo_TColor(), &TQzPkgDisplaySetBackGround::EndGraColor,
               &TQzPkgDisplaySetBackGround::SetEndGraColor);
    b.Property("Transparent", &TQzPkgDisplaySetBackGround::Transparent, &TQzPkgDisplaySetBackGround::SetTransparent)
        .Default(false);
    b.Property("Image", [](TQzPkgDisplaySetBackGround& s) { return s.Image(); });
}

template <class V>
void TQzPkgDisplaySetBackGround::Set(V& field, const V& value)
{
    if (field == value)
        return;
    CheckChange();
    field = value;
    Changed();
}

void TQzPkgDisplaySetBackGround::SetStyle(TQzBackGroundStyle value)
{
    if (value < bgSolid || value > bgImageTile)
        throw EQzPkgError("Invalid background style " + IntToStr(value));
    Set(FValues.Style, value);
}

void TQzPkgDisplaySetBackGround::SetSolidColor(TColor value)
{
    Set(FValues.SolidColor, value);
}

void TQzPkgDisplaySetBackGround::SetStartGraColor(TColor value)
{
    Set(FValues.StartGraColor, value);
}

void TQzPkgDisplaySetBackGround::SetEndGraColor(TColor value)
{
    Set(FValues.EndGraColor, value);
}

void TQzPkgDisplaySetBackGround::SetTransparent(bool value)
{
    Set(FValues.Transparent, value);
}

void TQzPkgDisplaySetBackGround::Assign(TPersistent* source)
{
    AssignSet<TQzPkgDisplaySetBackGround>(source, [this](TQzPkgDisplaySetBackGround& other) {
        Set(FValues, other.FValues);
        FImage.Assign(&other.FImage);
    });
}

void TQzPkgDisplaySetColor::DeclareProperties(TClassBuilder<TQzPkgDisplaySetColor>& b)
{
    b.Property("Color", TypeInfo_TColor(), &TQzPkgDisplaySetColor::Color, &TQzPkgDisplaySetColor::SetColor);
}

void TQzPkgDisplaySetColor::SetColor(TColor value)
{
    ChangeField(FColor, value);
}

void TQzPkgDisplaySetColor::Assign(TPersistent* source)
{
    AssignSet<TQzPkgDisplaySetColor>(source, [this](const TQzPkgDisplaySetColor& other) { SetColor(other.FColor); });
}

void TQzPkgDisplaySetFont::DeclareProperties(TClassBuilder<TQzPkgDisplaySetFont>& b)
{
    b.Property("FontName", [](TQzPkgDisplaySetFont& s) { return s.FValues.Name; }, &TQzPkgDisplaySetFont::SetFontName);
    b.Property("Size", [](TQzPkgDisplaySetFont& s) { return s.FValues.Size; }, &TQzPkgDisplaySetFont::SetSize);
    b.Property("Color", TypeInfo_TColor(), [](TQzPkgDisplaySetFont& s) { return s.FValues.Color; },
               &TQzPkgDisplaySetFont::SetColor);
    b.Property("Bold", [](TQzPkgDisplaySetFont& s) { return s.FValues.Bold; }, &TQzPkgDisplaySetFont::SetBold);
    b.Property("Italic", [](TQzPkgDisplaySetFont& s) { return s.FValues.Italic; }, &TQzPkgDisplaySetFont::SetItalic);
    b.Property("Underline", [](TQzPkgDisplaySetFont& s) { return s.FValues.Underline; },
               &TQzPkgDisplaySetFont::SetUnderline);
    b.Property("StrikeOut", [](TQzPkgDisplaySetFont& s) { return s.FValues.StrikeOut; },
               &TQzPkgDisplaySetFont::SetStrikeOut);
}

void TQzPkgDisplaySetFont::SetValues(const TQzFontValues& value)
{
    if (value == FValues)
        return;
    if (value.Size <= 0)
        throw EQzPkgError("Invalid font size " + IntToStr(value.Size));
    CheckChange();
    FValues = value;
    Changed();
}

void TQzPkgDisplaySetFont::SetFontName(const AnsiString& value)
{
    SetValue(&TQzFontValues::Name, value);
}

void TQzPkgDisplaySetFont::SetSize(Integer value)
{
    SetValue(&TQzFontValues::Size, value);
}

void TQzPkgDisplaySetFont::SetColor(TColor value)
{
    SetValue(&TQzFontValues::Color, value);
}

void TQzPkgDisplaySetFont::SetBold(bool value)
{
    SetValue(&TQzFontValues::Bold, value);
}

void TQzPkgDisplaySetFont::SetItalic(bool value)
{
    SetValue(&TQzFontValues::Italic, value);
}

void TQzPkgDisplaySetFont::SetUnderline(bool value)
{
    SetValue(&TQzFontValues::Underline, value);
}

void TQzPkgDisplaySetFont::SetStrikeOut(bool value)
{
    SetValue(&TQzFontValues::StrikeOut, value);
}

void TQzPkgDisplaySetFont::Assign(TPersistent* source)
{
    AssignSet<TQzPkgDisplaySetFont>(source, [this](const TQzPkgDisplaySetFont& other) { SetValues(other.FValues); });
}

// ---------------------------------------------------------------------------
// Lists of sets

TQzPkgDisplaySet* TQzPkgDisplaySets::FindSet(const AnsiString& name) const
{
    for (int i = 0; i < Count(); ++i) {
        auto* set = static_cast<TQzPkgDisplaySet*>(Item(i));
        if (SameText(set->Name(), name))
            return set;
    }
    return nullptr;
}

void TQzPkgDisplaySets::CheckName(const AnsiString& name, const TQzPkgDisplaySet* except) const
{
    if (Trim(name).empty())
        throw EQzPkgError("A display set needs a name");
    const TQzPkgDisplaySet* other = FindSet(name);
    if (other && other != except)
        throw EQzPkgError("Duplicate display set name \"" + name + "\"");
}

TQzPkgDisplaySetBackGround* TQzPkgDisplaySetsBackGround::Add(const AnsiString& name)
{
    CheckChange();
    CheckName(name, nullptr);
    return new TQzPkgDisplaySetBackGround(this, name);
}

TQzPkgDisplaySetColor* TQzPkgDisplaySetsColor::Add(const AnsiString& name)
{
    CheckChange();
    CheckName(name, nullptr);
    return new TQzPkgDisplaySetColor(this, name);
}

TQzPkgDisplaySetFont* TQzPkgDisplaySetsFont::Add(const AnsiString& name)
{
    CheckChange();
    CheckName(name, nullptr);
    return new TQzPkgDisplaySetFont(this, name);
}

// ---------------------------------------------------------------------------
// The package

namespace {

TQzPkgImages* NewImages(TComponent* owner, const char* name)
{
    auto* pkg = new TQzPkgImages(owner);
    pkg->SetName(AnsiString("PkgImages") + name);
    pkg->SetPkgName(name);
    pkg->SetModified(false);
    return pkg;
}

// A reference to a label or an image as it travels: package name, Id.
struct TRefValues {
    AnsiString PkgName;
    Integer Id = 0;
};

TRefValues RefOf(const TQzMemoryRef& ref)
{
    return {ref.PkgName(), ref.Id()};
}

void TransferRef(TQzPkgTransfer& t, TRefValues& ref)
{
    t.Value(ref.PkgName);
    t.Value(ref.Id);
}

// What every set has: Name Description LabelPkg LabelId.
struct TSetValues {
    AnsiString Name;
    AnsiString Description;
    TRefValues DescriptionId;
};

TSetValues SetOf(const TQzPkgDisplaySet& set)
{
    return {set.Name(), set.Description(), RefOf(*set.DescriptionId())};
}

void TransferSet(TQzPkgTransfer& t, TSetValues& set)
{
    t.Value(set.Name);
    t.Value(set.Description);
    TransferRef(t, set.DescriptionId);
}

// A set of the free-standing list sets, named and described as read.
template <class Sets>
auto AddSet(Sets& sets, const TSetValues& values)
{
    auto* set = sets.Add(values.Name);
    set->SetDescription(values.Description);
    set->DescriptionId()->PkgId(values.DescriptionId.PkgName, values.DescriptionId.Id);
    return set;
}

struct TBackGroundEntry {
    TSetValues Set;
    TQzBackGroundValues Values;
    TRefValues Image;
};

struct TColorEntry {
    TSetValues Set;
    TColor Color = 0;
};

struct TFontEntry {
    TSetValues Set;
    TQzFontValues Values;
};

}  // namespace

TQzPkgDisplay::TQzPkgDisplay(TComponent* owner)
    : TQzPkgInfo(owner), FPkgSystem(NewImages(this, QzSystemPkgName)), FPkgUser(NewImages(this, QzUserPkgName))
{
}

// The images packages go before the lists that may name them.
TQzPkgDisplay::~TQzPkgDisplay()
{
    DestroyComponents();
}

void TQzPkgDisplay::SetGeometry(Integer TQzDisplayGeometry::*field, Integer value)
{
    if (value < 0)
        throw EQzPkgError("Invalid display measure " + IntToStr(value) + ": measures are 0 or more");
    ChangeField(FGeometry.*field, value);
}

void TQzPkgDisplay::SetCWButtonsHeight(Integer value) { SetGeometry(&TQzDisplayGeometry::CWButtonsHeight, value); }
void TQzPkgDisplay::SetCWButtonsMargin(Integer value) { SetGeometry(&TQzDisplayGeometry::CWButtonsMargin, value); }
void TQzPkgDisplay::SetCWButtonsSpacing(Integer value) { SetGeometry(&TQzDisplayGeometry::CWButtonsSpacing, value); }
void TQzPkgDisplay::SetCWButtonsWidth(Integer value) { SetGeometry(&TQzDisplayGeometry::CWButtonsWidth, value); }
void TQzPkgDisplay::SetCWMarginAfterTitle(Integer value) { SetGeometry(&TQzDisplayGeometry::CWMarginAfterTitle, value); }
void TQzPkgDisplay::SetCWMarginBottom(Integer value) { SetGeometry(&TQzDisplayGeometry::CWMarginBottom, value); }
void TQzPkgDisplay::SetCWMarginLeft(Integer value) { SetGeometry(&TQzDisplayGeometry::CWMarginLeft, value); }
void TQzPkgDisplay::SetCWMarginRight(Integer value) { SetGeometry(&TQzDisplayGeometry::CWMarginRight, value); }
void TQzPkgDisplay::SetCWMarginTop(Integer value) { SetGeometry(&TQzDisplayGeometry::CWMarginTop, value); }
void TQzPkgDisplay::SetCWTitleHeight(Integer value) { SetGeometry(&TQzDisplayGeometry::CWTitleHeight, value); }
void TQzPkgDisplay::SetHiMarginBottom(Integer value) { SetGeometry(&TQzDisplayGeometry::HiMarginBottom, value); }
void TQzPkgDisplay::SetHiMarginLeft(Integer value) { SetGeometry(&TQzDisplayGeometry::HiMarginLeft, value); }
void TQzPkgDisplay::SetHiMarginRight(Integer value) { SetGeometry(&TQzDisplayGeometry::HiMarginRight, value); }
void TQzPkgDisplay::SetHiMarginTop(Integer value) { SetGeometry(&TQzDisplayGeometry::HiMarginTop, value); }

void TQzPkgDisplay::SetCWWinRgn(bool value)
{
    ChangeField(FGeometry.CWWinRgn, value);
}

void TQzPkgDisplay::SetHiWinRgn(bool value)
{
    ChangeField(FGeometry.HiWinRgn, value);
}

void TQzPkgDisplay::SetUserColors(TStrings* value)
{
    TStringList colors;
    if (value)
        colors.Assign(*value);
    if (colors.Equals(FUserColors))
        return;
    FUserColors.Assign(colors);
    Change();
}

void TQzPkgDisplay::SetLastUpdateFile(const AnsiString& value)
{
    ChangeField(FLastUpdateFile, value);
}

void TQzPkgDisplay::SetUpdateDateTime(TDateTime value)
{
    ChangeField(FUpdateDateTime, value);
}

// The "System" images are the suite's: clearing the package leaves them.
void TQzPkgDisplay::Clear()
{
    FSetsBackGround.Clear();
    FSetsColor.Clear();
    FSetsFont.Clear();
    FPkgUser->Clear();
    FUserColors.Clear();
    FGeometry = {};
    Change();
}

bool TQzPkgDisplay::IsEmpty() const
{
    return FSetsBackGround.Count() == 0 && FSetsColor.Count() == 0 && FSetsFont.Count() == 0 &&
           FGeometry == TQzDisplayGeometry{} && FUserColors.Count() == 0 && FLastUpdateFile.empty() &&
           FUpdateDateTime == 0 && FPkgSystem->IsEmpty() && FPkgUser->IsEmpty();
}

// Layout (version 1), after the common header:
//   ( 14 measures, CWWinRgn, HiWinRgn )
//   ( UserColors line* )  LastUpdateFile UpdateDateTime
//   ( Name Description LabelPkg LabelId Style Solid Start End Transparent ImagePkg ImageId )*
//   ( Name Description LabelPkg LabelId Color )*
//   ( Name Description LabelPkg LabelId FontName Size Color Bold Italic Underline StrikeOut )*
//   the "System" images block, the "User" images block
void TQzPkgDisplay::Transfer(TQzPkgTransfer& t)
{
    const TQzWindowPlacement placement = TransferContentHeader(t, DataVersion);
    TQzDisplayGeometry g = FGeometry;
    t.List([&] {
        for (Integer* v : {&g.CWButtonsHeight, &g.CWButtonsMargin, &g.CWButtonsSpacing, &g.CWButtonsWidth,
                           &g.CWMarginAfterTitle, &g.CWMarginBottom, &g.CWMarginLeft, &g.CWMarginRight, &g.CWMarginTop,
                           &g.CWTitleHeight, &g.HiMarginBottom, &g.HiMarginLeft, &g.HiMarginRight, &g.HiMarginTop})
            t.Value(*v, 0, std::numeric_limits<Integer>::max(), "display measure");
        t.Value(g.CWWinRgn);
        t.Value(g.HiWinRgn);
    });
    TStringList colors;
    t.Items(
        FUserColors.Count(), [&](int i) { return FUserColors[i]; }, [&](AnsiString& line) { t.Value(line); },
        [&](const AnsiString& line) { colors.Add(line); });
    AnsiString lastUpdateFile = FLastUpdateFile;
    TDateTime updateDateTime = FUpdateDateTime;
    t.Value(lastUpdateFile);
    t.Value(updateDateTime);

    TQzPkgDisplaySetsBackGround backGrounds(nullptr);
    t.Items(
        FSetsBackGround.Count(),
        [&](int i) {
            const TQzPkgDisplaySetBackGround& s = *FSetsBackGround.GetSetBackGround(i);
            return TBackGroundEntry{SetOf(s), s.Values(), RefOf(*s.Image())};
        },
        [&](TBackGroundEntry& e) {
            TransferSet(t, e.Set);
            t.Enum(e.Values.Style, bgImageTile);
            t.Value(e.Values.SolidColor);
            t.Value(e.Values.StartGraColor);
            t.Value(e.Values.EndGraColor);
            t.Value(e.Values.Transparent);
            TransferRef(t, e.Image);
        },
        [&](const TBackGroundEntry& e) {
            TQzPkgDisplaySetBackGround* s = AddSet(backGrounds, e.Set);
            s->SetStyle(e.Values.Style);
            s->SetSolidColor(e.Values.SolidColor);
            s->SetStartGraColor(e.Values.StartGraColor);
            s->SetEndGraColor(e.Values.EndGraColor);
            s->SetTransparent(e.Values.Transparent);
            s->Image()->PkgId(e.Image.PkgName, e.Image.Id);
        });
    TQzPkgDisplaySetsColor colorSets(nullptr);
    t.Items(
        FSetsColor.Count(),
        [&](int i) {
            const TQzPkgDisplaySetColor& s = *FSetsColor.GetSetColor(i);
            return TColorEntry{SetOf(s), s.Color()};
        },
        [&](TColorEntry& e) {
            TransferSet(t, e.Set);
            t.Value(e.Color);
        },
        [&](const TColorEntry& e) { AddSet(colorSets, e.Set)->SetColor(e.Color); });
    TQzPkgDisplaySetsFont fonts(nullptr);
    t.Items(
        FSetsFont.Count(),
        [&](int i) {
            const TQzPkgDisplaySetFont& s = *FSetsFont.GetSetFont(i);
            return TFontEntry{SetOf(s), s.Values()};
        },
        [&](TFontEntry& e) {
            TransferSet(t, e.Set);
            t.Value(e.Values.Name);
            t.Value(e.Values.Size);
            t.Value(e.Values.Color);
            t.Value(e.Values.Bold);
            t.Value(e.Values.Italic);
            t.Value(e.Values.Underline);
            t.Value(e.Values.StrikeOut);
        },
        [&](const TFontEntry& e) { AddSet(fonts, e.Set)->SetValues(e.Values); });
    TQzDetachedPkgs detached;
    TQzPkgImages systemImages(nullptr);
    TQzPkgImages userImages(nullptr);
    (t.Loading() ? systemImages : *FPkgSystem).Transfer(t);
    (t.Loading() ? userImages : *FPkgUser).Transfer(t);
    if (!t.EndBlock())
        return;
    FGeometry = g;
    FUserColors.Assign(colors);
    FLastUpdateFile = lastUpdateFile;
    FUpdateDateTime = updateDateTime;
    FSetsBackGround.TakeItems(backGrounds);
    FSetsColor.TakeItems(colorSets);
    FSetsFont.TakeItems(fonts);
    FPkgSystem->TakeContents(systemImages);
    FPkgUser->TakeContents(userImages);
    CommitContents(placement);
}
