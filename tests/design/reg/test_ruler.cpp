// The ruler of the mask and region designer: where its marks fall at every
// unit and zoom, what they read, and how it travels in a form.

#include "design/images/Qzruler.h"

#include "runtime/components/Forms.h"

#include "rtl/ComponentStream.h"

#include <gtest/gtest.h>

namespace {

std::vector<int> PositionsOf(const std::vector<TQzRulerTick>& ticks, TQzRulerTickKind kind)
{
    std::vector<int> positions;
    for (const TQzRulerTick& tick : ticks)
        if (tick.Kind == kind)
            positions.push_back(tick.Position);
    return positions;
}

std::vector<AnsiString> LabelsOf(const std::vector<TQzRulerTick>& ticks)
{
    std::vector<AnsiString> labels;
    for (const TQzRulerTick& tick : ticks)
        if (tick.Kind == rtMajor)
            labels.push_back(tick.Label);
    return labels;
}

TEST(Ruler, MarksFallOnRoundValuesAtEveryUnitZoomAndOffset)
{
    const struct {
        TQzRulerUnits Units;
        Integer Zoom, Offset;
        int Length, Ticks;
        std::vector<int> Majors, Mediums;
        std::vector<AnsiString> Labels;
    } cases[] = {
        // fifths of 50 pixels: no medium
        {ruPixels, 100, 0, 100, 11, {0, 50, 100}, {}, {"0", "50", "100"}},
        {ruPixels, 100, 30, 100, 11, {20, 70}, {}, {"50", "100"}},
        // quarters of 20 pixels at 200%, scrolled by 30 picture pixels
        {ruPixels, 200, 30, 100, 11, {20, 60, 100}, {0, 40, 80}, {"40", "60", "80"}},
        // tenths of a centimetre at 96 dpi
        {ruMillimeters, 100, 0, 100, 27, {0, 38, 76}, {19, 57, 94}, {"0", "10", "20"}},
        {ruInches, 100, 0, 150, 16, {0, 48, 96, 144}, {}, {"0", "0.5", "1", "1.5"}},
        {ruInches, 3200, 0, 200, 14, {0, 61, 123, 184}, {31, 92, 154}, {"0", "0.02", "0.04", "0.06"}},
    };
    for (const auto& c : cases) {
        TQzRuler ruler(nullptr);
        ruler.SetUnits(c.Units);
        ruler.SetZoom(c.Zoom);
        ruler.SetOffset(c.Offset);
        SCOPED_TRACE(testing::Message() << "units " << c.Units << " zoom " << c.Zoom << " offset " << c.Offset);
        const auto ticks = ruler.Ticks(c.Length, 96);
        EXPECT_EQ(ticks.size(), static_cast<std::size_t>(c.Ticks));
        EXPECT_EQ(PositionsOf(ticks, rtMajor), c.Majors);
        EXPECT_EQ(PositionsOf(ticks, rtMedium), c.Mediums);
        EXPECT_EQ(LabelsOf(ticks), c.Labels);
        // Labels never crowd: majors stay at least 36 pixels apart.
        EXPECT_GE(ruler.MajorStep(96) * ruler.PixelsPerUnit(96), TQzRuler::MinMajorSpacing - 1e-6);
    }
}

TEST(Ruler, ZoomOutOfRangeIsRefusedAndTheMarkerHidesOffTheRuler)
{
    TQzRuler ruler(nullptr);
    ruler.SetZoom(200);
    for (Integer bad : {0, 9, 3201})
        EXPECT_THROW(ruler.SetZoom(bad), EConvertError) << bad;
    EXPECT_EQ(ruler.Zoom(), 200);
    ruler.SetOffset(10);
    const std::pair<Integer, int> markers[] = {{60, 100}, {10, 0}, {9, -1}, {61, -1}, {-1, -1}};
    for (const auto& [marker, position] : markers) {
        ruler.SetMarker(marker);
        EXPECT_EQ(ruler.MarkerPosition(100), position) << marker;
    }
}

TEST(Ruler, TravelsInAFormWithItsSettings)
{
    RegisterFormClasses();
    RegisterClass(ClassOf<TQzRuler>());
    TForm form(nullptr);
    form.SetName("Form1");
    auto* ruler = new TQzRuler(&form);
    ruler->SetName("Ruler1");
    ruler->SetParent(&form);
    ruler->SetUnits(ruMillimeters);
    ruler->SetZoom(150);
    const std::string text = WriteFormText(&form);
    EXPECT_EQ(text.find("Offset"), std::string::npos) << "defaults are not written:\n" << text;
    const auto read = ReadForm(text);
    auto* back = dynamic_cast<TQzRuler*>(read->FindComponent("Ruler1"));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->Units(), ruMillimeters);
    EXPECT_EQ(back->Zoom(), 150);
    EXPECT_EQ(back->Parent(), read.get());
}

}  // namespace
