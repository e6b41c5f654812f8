// The identifier tables: names and numbers the forms store, both ways.

#include "runtime/components/Controls.h"
#include "runtime/components/Graphics.h"

#include <gtest/gtest.h>

namespace {

struct TIdent {
    const TTypeInfo* Type;
    const char* Name;
    Int64 Value;
};

// Values as the class library numbers them (system colours 0xFF0000nn).
TEST(Identifiers, NamesAndValuesMatchTheClassLibrary)
{
    const TIdent idents[] = {
        {TypeInfo_TGraphicsColor(), "clBtnFace", -16777201},
        {TypeInfo_TGraphicsColor(), "clWindow", -16777211},
        {TypeInfo_TGraphicsColor(), "clWindowText", -16777208},
        {TypeInfo_TGraphicsColor(), "clHighlight", -16777203},
        {TypeInfo_TGraphicsColor(), "clInfoBk", -16777192},
        {TypeInfo_TGraphicsColor(), "clMenuBar", -16777186},
        {TypeInfo_TGraphicsColor(), "clNavy", 0x800000},
        {TypeInfo_TGraphicsColor(), "clRed", 0x0000FF},
        {TypeInfo_TGraphicsColor(), "clSkyBlue", 0xF0CAA6},
        {TypeInfo_TGraphicsColor(), "clNone", 0x1FFFFFFF},
        {TypeInfo_TGraphicsColor(), "clDefault", 0x20000000},
        {TypeInfo_TCursor(), "crDefault", 0},
        {TypeInfo_TCursor(), "crArrow", -2},
        {TypeInfo_TCursor(), "crIBeam", -4},
        {TypeInfo_TCursor(), "crHSplit", -14},
        {TypeInfo_TCursor(), "crSQLWait", -17},
        {TypeInfo_TCursor(), "crHandPoint", -21},
        {TypeInfo_TFontCharset(), "ANSI_CHARSET", 0},
        {TypeInfo_TFontCharset(), "DEFAULT_CHARSET", 1},
        {TypeInfo_TFontCharset(), "GB2312_CHARSET", 134},
        {TypeInfo_TFontCharset(), "RUSSIAN_CHARSET", 204},
        {TypeInfo_TFontCharset(), "OEM_CHARSET", 255},
    };
    for (const TIdent& ident : idents) {
        Int64 value = 0;
        EXPECT_TRUE(IdentToInt(ident.Type, ident.Name, value)) << ident.Name;
        EXPECT_EQ(value, ident.Value) << ident.Name;
        EXPECT_EQ(IntToIdent(ident.Type, ident.Value), ident.Name);
    }
}

// Where two names share a value, forms get the one the class library writes.
TEST(Identifiers, SharedValuesAreWrittenByTheirUsualName)
{
    EXPECT_EQ(IntToIdent(TypeInfo_TCursor(), crSize), "crSizeAll");
    EXPECT_EQ(IntToIdent(TypeInfo_TGraphicsColor(), clLtGray), "clSilver");
    Int64 value = 0;
    EXPECT_TRUE(IdentToInt(TypeInfo_TCursor(), "crsize", value));
    EXPECT_EQ(value, -22);
    EXPECT_FALSE(IdentToInt(TypeInfo_TGraphicsColor(), "clBtnFaces", value));
}

TEST(Identifiers, ColoursConvertToTextAndBack)
{
    const struct {
        TColor Color;
        const char* Text;
    } colours[] = {
        {clBtnFace, "clBtnFace"}, {clBlack, "clBlack"}, {0x00123456, "$00123456"}, {TColor(0x8000000F), "$8000000F"},
    };
    for (const auto& c : colours) {
        EXPECT_EQ(ColorToString(c.Color), c.Text);
        EXPECT_EQ(StringToColor(c.Text), c.Color);
    }
    EXPECT_EQ(StringToColor(" clbtnface "), clBtnFace);
    EXPECT_EQ(StringToColor("-16777201"), clBtnFace);
    EXPECT_EQ(StringToColor("$FF00000F"), clBtnFace);
    for (const char* bad : {"", "clNothing", "$1FFFFFFFF", "12x"})
        EXPECT_THROW(StringToColor(bad), EConvertError) << bad;
}

TEST(Identifiers, SystemColoursResolveToTheirSchemeValue)
{
    EXPECT_EQ(ColorToRGB(clBtnFace), 0xC8D0D4);
    EXPECT_EQ(ColorToRGB(clWindow), 0xFFFFFF);
    EXPECT_EQ(ColorToRGB(clRed), clRed);
    int count = 0;
    GetColorValues([&count](const AnsiString&) { ++count; });
    EXPECT_EQ(count, 52);
}

TEST(Identifiers, FontSizeFollowsHeightAtTheScreenDensity)
{
    TFont font;
    EXPECT_EQ(font.Height(), -11);
    EXPECT_EQ(font.Size(), 8);
    font.SetSize(10);
    EXPECT_EQ(font.Height(), -13);
    font.SetHeight(-16);
    EXPECT_EQ(font.Size(), 12);
    font.SetPixelsPerInch(120);
    font.SetSize(8);
    EXPECT_EQ(font.Height(), -13);
}

}  // namespace
