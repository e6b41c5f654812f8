// The identifier tables: names and numbers the forms store, both ways.

#include "runtime/components/Controls.h"
#include "runtime/components/Graphics.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

// Values as the class library numbers them (system colours 0xFF0000nn).
TEST(Identifiers, NamesAndValuesMatchTheClassLibrary)
{
    const struct {
        const TTypeInfo* Type;
        std::vector<std::pair<const char*, Int64>> Idents;
    } tables[] = {
        {TypeInfo_TGraphicsColor(),
         {{"clBtnFace", -16777201}, {"clWindow", -16777211}, {"clWindowText", -16777208}, {"clHighlight", -16777203},
          {"clInfoBk", -16777192}, {"clMenuBar", -16777186}, {"clNavy", 0x800000}, {"clRed", 0x0000FF},
          {"clSkyBlue", 0xF0CAA6}, {"clNone", 0x1FFFFFFF}, {"clDefault", 0x20000000}}},
        {TypeInfo_TCursor(),
         {{"crDefault", 0}, {"crArrow", -2}, {"crIBeam", -4}, {"crHSplit", -14}, {"crSQLWait", -17}, {"crHandPoint", -21}}},
        {TypeInfo_TFontCharset(),
         {{"ANSI_CHARSET", 0}, {"DEFAULT_CHARSET", 1}, {"GB2312_CHARSET", 134}, {"RUSSIAN_CHARSET", 204},
          {"OEM_CHARSET", 255}}},
    };
    for (const auto& table : tables)
        for (const auto& [name, expected] : table.Idents) {
            Int64 value = 0;
            EXPECT_TRUE(IdentToInt(table.Type, name, value)) << name;
            EXPECT_EQ(value, expected) << name;
            EXPECT_EQ(IntToIdent(table.Type, expected), name);
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
