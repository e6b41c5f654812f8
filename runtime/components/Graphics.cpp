#include "runtime/components/Graphics.h"

#include "rtl/SysUtils.h"

#include <array>

namespace {

// In the class library's order: the plain colours, then the system colours
// alphabetically, so value lists look the way users know them.
const std::vector<std::pair<AnsiString, Int64>>& ColorIdents()
{
    static const std::vector<std::pair<AnsiString, Int64>> idents = {
        {"clBlack", clBlack},
        {"clMaroon", clMaroon},
        {"clGreen", clGreen},
        {"clOlive", clOlive},
        {"clNavy", clNavy},
        {"clPurple", clPurple},
        {"clTeal", clTeal},
        {"clGray", clGray},
        {"clSilver", clSilver},
        {"clRed", clRed},
        {"clLime", clLime},
        {"clYellow", clYellow},
        {"clBlue", clBlue},
        {"clFuchsia", clFuchsia},
        {"clAqua", clAqua},
        {"clWhite", clWhite},
        {"clMoneyGreen", clMoneyGreen},
        {"clSkyBlue", clSkyBlue},
        {"clCream", clCream},
        {"clMedGray", clMedGray},
        {"clActiveBorder", clActiveBorder},
        {"clActiveCaption", clActiveCaption},
        {"clAppWorkSpace", clAppWorkSpace},
        {"clBackground", clBackground},
        {"clBtnFace", clBtnFace},
        {"clBtnHighlight", clBtnHighlight},
        {"clBtnShadow", clBtnShadow},
        {"clBtnText", clBtnText},
        {"clCaptionText", clCaptionText},
        {"clDefault", clDefault},
        {"clGradientActiveCaption", clGradientActiveCaption},
        {"clGradientInactiveCaption", clGradientInactiveCaption},
        {"clGrayText", clGrayText},
        {"clHighlight", clHighlight},
        {"clHighlightText", clHighlightText},
        {"clHotLight", clHotLight},
        {"clInactiveBorder", clInactiveBorder},
        {"clInactiveCaption", clInactiveCaption},
        {"clInactiveCaptionText", clInactiveCaptionText},
        {"clInfoBk", clInfoBk},
        {"clInfoText", clInfoText},
        {"clMenu", clMenu},
        {"clMenuBar", clMenuBar},
        {"clMenuHighlight", clMenuHighlight},
        {"clMenuText", clMenuText},
        {"clNone", clNone},
        {"clScrollBar", clScrollBar},
        {"cl3DDkShadow", cl3DDkShadow},
        {"cl3DLight", cl3DLight},
        {"clWindow", clWindow},
        {"clWindowFrame", clWindowFrame},
        {"clWindowText", clWindowText},
    };
    return idents;
}

constexpr TColor Rgb(int r, int g, int b)
{
    return TColor(r | (g << 8) | (b << 16));
}

// The classic Windows scheme, indexed by system colour number.
constexpr std::array<TColor, 31> SystemColors = {
    Rgb(212, 208, 200), Rgb(58, 110, 165),  Rgb(10, 36, 106),   Rgb(128, 128, 128), Rgb(212, 208, 200),
    Rgb(255, 255, 255), Rgb(0, 0, 0),       Rgb(0, 0, 0),       Rgb(0, 0, 0),       Rgb(255, 255, 255),
    Rgb(212, 208, 200), Rgb(212, 208, 200), Rgb(128, 128, 128), Rgb(10, 36, 106),   Rgb(255, 255, 255),
    Rgb(212, 208, 200), Rgb(128, 128, 128), Rgb(128, 128, 128), Rgb(0, 0, 0),       Rgb(212, 208, 200),
    Rgb(255, 255, 255), Rgb(64, 64, 64),    Rgb(212, 208, 200), Rgb(0, 0, 0),       Rgb(255, 255, 225),
    Rgb(181, 181, 181), Rgb(0, 0, 128),     Rgb(166, 202, 240), Rgb(192, 192, 192), Rgb(49, 106, 197),
    Rgb(236, 233, 216),
};

}  // namespace

const TTypeInfo* TypeInfo_TGraphicsColor()
{
    static const TTypeInfo* t = DefineIntegerType("TColor", INT32_MIN, INT32_MAX, ColorIdents());
    return t;
}

AnsiString ColorToString(TColor color)
{
    AnsiString ident = IntToIdent(TypeInfo_TGraphicsColor(), color);
    if (!ident.empty())
        return ident;
    return "$" + IntToHex(Int64(Cardinal(color)), 8);
}

TColor StringToColor(const AnsiString& text)
{
    Int64 value = 0;
    if (IdentToInt(TypeInfo_TGraphicsColor(), Trim(text), value))
        return TColor(value);
    // $FF00000F and -16777201 are the same colour.
    Int64 number = 0;
    if (!TryStrToInt64(Trim(text), number) || number < INT32_MIN || number > Int64(UINT32_MAX))
        throw EConvertError("'" + text + "' is not a valid colour");
    return TColor(Cardinal(number));
}

TColor ColorToRGB(TColor color)
{
    if (color >= 0)
        return color;
    const size_t index = size_t(color & 0xFF);
    return index < SystemColors.size() ? SystemColors[index] : clBlack;
}

void GetColorValues(const std::function<void(const AnsiString&)>& proc)
{
    for (const auto& [name, value] : ColorIdents())
        proc(name);
}

// ---- Fonts ------------------------------------------------------------------

const TTypeInfo* TypeInfo_TFontCharset()
{
    static const TTypeInfo* t = DefineIntegerType("TFontCharset", 0, 255,
                                                  {
                                                      {"ANSI_CHARSET", ANSI_CHARSET},
                                                      {"DEFAULT_CHARSET", DEFAULT_CHARSET},
                                                      {"SYMBOL_CHARSET", SYMBOL_CHARSET},
                                                      {"MAC_CHARSET", MAC_CHARSET},
                                                      {"SHIFTJIS_CHARSET", SHIFTJIS_CHARSET},
                                                      {"HANGEUL_CHARSET", HANGEUL_CHARSET},
                                                      {"JOHAB_CHARSET", JOHAB_CHARSET},
                                                      {"GB2312_CHARSET", GB2312_CHARSET},
                                                      {"CHINESEBIG5_CHARSET", CHINESEBIG5_CHARSET},
                                                      {"GREEK_CHARSET", GREEK_CHARSET},
                                                      {"TURKISH_CHARSET", TURKISH_CHARSET},
                                                      {"HEBREW_CHARSET", HEBREW_CHARSET},
                                                      {"ARABIC_CHARSET", ARABIC_CHARSET},
                                                      {"BALTIC_CHARSET", BALTIC_CHARSET},
                                                      {"RUSSIAN_CHARSET", RUSSIAN_CHARSET},
                                                      {"THAI_CHARSET", THAI_CHARSET},
                                                      {"EASTEUROPE_CHARSET", EASTEUROPE_CHARSET},
                                                      {"OEM_CHARSET", OEM_CHARSET},
                                                      {"VIETNAMESE_CHARSET", VIETNAMESE_CHARSET},
                                                  });
    return t;
}

const TTypeInfo* TypeInfo_TFontStyle()
{
    static const TTypeInfo* t = DefineEnumType("TFontStyle", {"fsBold", "fsItalic", "fsUnderline", "fsStrikeOut"});
    return t;
}

const TTypeInfo* TypeInfo_TFontStyles()
{
    static const TTypeInfo* t = DefineSetType("TFontStyles", TypeInfo_TFontStyle());
    return t;
}

const TTypeInfo* TypeInfo_TFontPitch()
{
    static const TTypeInfo* t = DefineEnumType("TFontPitch", {"fpDefault", "fpVariable", "fpFixed"});
    return t;
}

const TTypeInfo* TypeInfo_TFontName()
{
    static const TTypeInfo* t = DefineStringType("TFontName");
    return t;
}

// Every attribute is written, as the class library does, except Size: it
// follows from Height, and storing both would let them disagree.
void TFont::DeclareProperties(TClassBuilder<TFont>& b)
{
    b.Property("Charset", TypeInfo_TFontCharset(), &TFont::Charset, &TFont::SetCharset);
    b.Property("Color", TypeInfo_TGraphicsColor(), &TFont::Color, &TFont::SetColor);
    b.Property("Height", &TFont::Height, &TFont::SetHeight);
    b.Property("Name", TypeInfo_TFontName(), &TFont::Name, &TFont::SetName);
    b.Enum("Pitch", TypeInfo_TFontPitch(), &TFont::Pitch, &TFont::SetPitch, fpDefault);
    b.Property("Size", &TFont::Size, &TFont::SetSize).Stored(false);
    b.Property("Style", TypeInfo_TFontStyles(), &TFont::Style, &TFont::SetStyle);
}

void TFont::SetCharset(TFontCharset value)
{
    if (FCharset != value) {
        FCharset = value;
        Changed();
    }
}

void TFont::SetColor(TColor value)
{
    if (FColor != value) {
        FColor = value;
        Changed();
    }
}

void TFont::SetHeight(Integer value)
{
    if (FHeight != value) {
        FHeight = value;
        Changed();
    }
}

void TFont::SetName(const AnsiString& value)
{
    // An empty name would leave the font undefined; the old one stays.
    if (!value.empty() && FName != value) {
        FName = value;
        Changed();
    }
}

void TFont::SetPitch(TFontPitch value)
{
    if (FPitch != value) {
        FPitch = value;
        Changed();
    }
}

namespace {

// Windows' MulDiv: the product in 64 bits, rounded half away from zero.
Integer MulDiv(Int64 number, Int64 numerator, Int64 denominator)
{
    const Int64 product = number * numerator;
    const Int64 half = denominator / 2;
    return Integer(product >= 0 ? (product + half) / denominator : (product - half) / denominator);
}

}  // namespace

Integer TFont::Size() const
{
    return -MulDiv(FHeight, 72, FPixelsPerInch);
}

void TFont::SetSize(Integer value)
{
    SetHeight(-MulDiv(value, FPixelsPerInch, 72));
}

void TFont::SetStyle(TFontStyles value)
{
    if (FStyle != value) {
        FStyle = value;
        Changed();
    }
}

bool TFont::operator==(const TFont& other) const
{
    return FCharset == other.FCharset && FColor == other.FColor && FHeight == other.FHeight &&
           FName == other.FName && FPitch == other.FPitch && FStyle == other.FStyle;
}

void TFont::Assign(TPersistent* source)
{
    auto* font = dynamic_cast<TFont*>(source);
    if (!font) {
        TPersistent::Assign(source);
        return;
    }
    if (*this == *font)
        return;
    FCharset = font->FCharset;
    FColor = font->FColor;
    FHeight = font->FHeight;
    FName = font->FName;
    FPitch = font->FPitch;
    FStyle = font->FStyle;
    Changed();
}

// ---- Brushes and pens ----------------------------------------------------------

const TTypeInfo* TypeInfo_TBrushStyle()
{
    static const TTypeInfo* t = DefineEnumType("TBrushStyle", {"bsSolid", "bsClear", "bsHorizontal", "bsVertical",
                                                               "bsFDiagonal", "bsBDiagonal", "bsCross", "bsDiagCross"});
    return t;
}

void TBrush::DeclareProperties(TClassBuilder<TBrush>& b)
{
    b.Property("Color", TypeInfo_TGraphicsColor(), &TBrush::Color, &TBrush::SetColor).Default(clWhite);
    b.Enum("Style", TypeInfo_TBrushStyle(), &TBrush::Style, &TBrush::SetStyle, bsSolid);
}

void TBrush::SetColor(TColor value)
{
    if (FColor == value)
        return;
    FColor = value;
    // A clear brush given a colour paints again.
    if (FStyle == bsClear)
        FStyle = bsSolid;
    Changed();
}

void TBrush::SetStyle(TBrushStyle value)
{
    if (FStyle != value) {
        FStyle = value;
        Changed();
    }
}

void TBrush::Assign(TPersistent* source)
{
    auto* brush = dynamic_cast<TBrush*>(source);
    if (!brush) {
        TPersistent::Assign(source);
        return;
    }
    FColor = brush->FColor;
    FStyle = brush->FStyle;
    Changed();
}

const TTypeInfo* TypeInfo_TPenStyle()
{
    static const TTypeInfo* t = DefineEnumType(
        "TPenStyle", {"psSolid", "psDash", "psDot", "psDashDot", "psDashDotDot", "psClear", "psInsideFrame"});
    return t;
}

const TTypeInfo* TypeInfo_TPenMode()
{
    static const TTypeInfo* t = DefineEnumType(
        "TPenMode", {"pmBlack", "pmWhite", "pmNop", "pmNot", "pmCopy", "pmNotCopy", "pmMergePenNot", "pmMaskPenNot",
                     "pmMergeNotPen", "pmMaskNotPen", "pmMerge", "pmNotMerge", "pmMask", "pmNotMask", "pmXor",
                     "pmNotXor"});
    return t;
}

void TPen::DeclareProperties(TClassBuilder<TPen>& b)
{
    b.Property("Color", TypeInfo_TGraphicsColor(), &TPen::Color, &TPen::SetColor).Default(clBlack);
    b.Enum("Mode", TypeInfo_TPenMode(), &TPen::Mode, &TPen::SetMode, pmCopy);
    b.Enum("Style", TypeInfo_TPenStyle(), &TPen::Style, &TPen::SetStyle, psSolid);
    b.Property("Width", &TPen::Width, &TPen::SetWidth).Default(1);
}

void TPen::SetColor(TColor value)
{
    if (FColor != value) {
        FColor = value;
        Changed();
    }
}

void TPen::SetMode(TPenMode value)
{
    if (FMode != value) {
        FMode = value;
        Changed();
    }
}

void TPen::SetStyle(TPenStyle value)
{
    if (FStyle != value) {
        FStyle = value;
        Changed();
    }
}

void TPen::SetWidth(Integer value)
{
    if (value >= 0 && FWidth != value) {
        FWidth = value;
        Changed();
    }
}

void TPen::Assign(TPersistent* source)
{
    auto* pen = dynamic_cast<TPen*>(source);
    if (!pen) {
        TPersistent::Assign(source);
        return;
    }
    FColor = pen->FColor;
    FMode = pen->FMode;
    FStyle = pen->FStyle;
    FWidth = pen->FWidth;
    Changed();
}
