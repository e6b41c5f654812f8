// The ruler of the mask and region designer: where its marks fall at every
// unit and zoom, what they read, and how the ruler travels in a form.

#include "design/images/Qzruler.h"
#include "support/gui/QzTestApp.h"

#include "runtime/components/Forms.h"

#include "rtl/ComponentStream.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

struct TSpacingCase {
    TQzRulerUnits Units;
    Integer Zoom;
    int Ppi;
    double Major;
    int Divisions;
};

TEST(Ruler, MajorsAreRoundStepsAtLeastThirtySixPixelsApart)
{
    const TSpacingCase cases[] = {
        {ruPixels, 100, 96, 50, 5},       {ruPixels, 10, 96, 500, 5},       {ruPixels, 400, 96, 10, 10},
        {ruPixels, 3200, 96, 2, 4},       {ruMillimeters, 100, 96, 10, 10}, {ruMillimeters, 50, 96, 20, 4},
        {ruMillimeters, 10, 96, 100, 10}, {ruMillimeters, 100, 300, 5, 5},  {ruInches, 100, 96, 0.5, 5},
        {ruInches, 25, 96, 2, 4},         {ruInches, 3200, 96, 0.02, 4},
    };
    for (const TSpacingCase& c : cases) {
        TQzRuler ruler(nullptr);
        ruler.SetUnits(c.Units);
        ruler.SetZoom(c.Zoom);
        SCOPED_TRACE(testing::Message() << "units " << c.Units << " zoom " << c.Zoom << " ppi " << c.Ppi);
        EXPECT_NEAR(ruler.MajorStep(c.Ppi), c.Major, 1e-9);
        EXPECT_EQ(ruler.Divisions(c.Ppi), c.Divisions);
        const double majorPixels = ruler.MajorStep(c.Ppi) * ruler.PixelsPerUnit(c.Ppi);
        EXPECT_GE(majorPixels, TQzRuler::MinMajorSpacing - 1e-6);
        EXPECT_GE(majorPixels / c.Divisions, 3.5);
    }
}

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

TEST(Ruler, TicksCoverTheLengthWithLabelledMajorsAndMediumsHalfway)
{
    TQzRuler pixels(nullptr);
    const auto ticks = pixels.Ticks(100, 96);
    ASSERT_EQ(ticks.size(), 11u);   // fifths of 50: every 10 pixels, both ends included
    EXPECT_EQ(ticks.back().Position, 100);
    EXPECT_EQ(PositionsOf(ticks, rtMajor), (std::vector<int>{0, 50, 100}));
    EXPECT_TRUE(PositionsOf(ticks, rtMedium).empty()) << "fifths have no half";
    EXPECT_EQ(LabelsOf(ticks), (std::vector<AnsiString>{"0", "50", "100"}));
    for (const TQzRulerTick& tick : ticks)
        EXPECT_EQ(tick.Label.empty(), tick.Kind != rtMajor);

    TQzRuler millimeters(nullptr);
    millimeters.SetUnits(ruMillimeters);
    const auto mm = millimeters.Ticks(100, 96);
    EXPECT_EQ(mm.size(), 27u);   // 0 to 26 mm
    EXPECT_EQ(PositionsOf(mm, rtMajor), (std::vector<int>{0, 38, 76}));
    EXPECT_EQ(PositionsOf(mm, rtMedium), (std::vector<int>{19, 57, 94}));
    EXPECT_EQ(LabelsOf(mm), (std::vector<AnsiString>{"0", "10", "20"}));
}

TEST(Ruler, OffsetAndZoomMoveTheMarksButKeepTheirValues)
{
    TQzRuler scrolled(nullptr);
    scrolled.SetOffset(30);
    const auto ticks = scrolled.Ticks(100, 96);
    EXPECT_EQ(ticks.front().Position, 0);   // value 30 is a minor mark
    EXPECT_EQ(PositionsOf(ticks, rtMajor), (std::vector<int>{20, 70}));
    EXPECT_EQ(LabelsOf(ticks), (std::vector<AnsiString>{"50", "100"}));

    TQzRuler zoomed(nullptr);
    zoomed.SetZoom(200);
    zoomed.SetOffset(30);   // picture pixels: 60 screen pixels at 200%
    const auto zoomedTicks = zoomed.Ticks(100, 96);
    EXPECT_EQ(PositionsOf(zoomedTicks, rtMajor), (std::vector<int>{20, 60, 100}));
    EXPECT_EQ(LabelsOf(zoomedTicks), (std::vector<AnsiString>{"40", "60", "80"}));
}

TEST(Ruler, FractionalStepsAreLabelledWithoutTrailingZeros)
{
    TQzRuler ruler(nullptr);
    ruler.SetUnits(ruInches);
    EXPECT_EQ(LabelsOf(ruler.Ticks(150, 96)), (std::vector<AnsiString>{"0", "0.5", "1", "1.5"}));
    ruler.SetZoom(3200);
    EXPECT_EQ(LabelsOf(ruler.Ticks(200, 96)), (std::vector<AnsiString>{"0", "0.02", "0.04", "0.06"}));
}

TEST(Ruler, ZoomOutOfRangeIsRefusedAndKept)
{
    TQzRuler ruler(nullptr);
    ruler.SetZoom(250);
    for (Integer bad : {0, 9, 3201, -100}) {
        EXPECT_THROW(ruler.SetZoom(bad), EConvertError) << bad;
        EXPECT_EQ(ruler.Zoom(), 250);
    }
}

TEST(Ruler, MarkerFollowsOffsetAndZoomAndHidesOffTheRuler)
{
    TQzRuler ruler(nullptr);
    ruler.SetZoom(200);
    ruler.SetOffset(10);
    const struct {
        Integer Marker;
        int Expected;
    } cases[] = {{60, 100}, {10, 0}, {9, -1}, {61, -1}, {-1, -1}};
    for (const auto& c : cases) {
        ruler.SetMarker(c.Marker);
        EXPECT_EQ(ruler.MarkerPosition(100), c.Expected) << c.Marker;
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
    ruler->SetBounds(8, 16, 300, 24);
    ruler->SetOrientation(roVertical);
    ruler->SetUnits(ruMillimeters);
    ruler->SetZoom(150);

    const std::string text = WriteFormText(&form);
    EXPECT_NE(text.find("Orientation = roVertical"), std::string::npos) << text;
    EXPECT_NE(text.find("Units = ruMillimeters"), std::string::npos) << text;
    EXPECT_EQ(text.find("Offset"), std::string::npos) << "defaults are not written:\n" << text;

    const auto read = ReadForm(text);
    auto* back = dynamic_cast<TQzRuler*>(read->FindComponent("Ruler1"));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->Orientation(), roVertical);
    EXPECT_EQ(back->Units(), ruMillimeters);
    EXPECT_EQ(back->Zoom(), 150);
    EXPECT_EQ(back->Parent(), read.get());
    EXPECT_EQ(back->Width(), 300);
}

TEST(Ruler, PaintsMajorsAcrossTheRulerFromTheEdgeNextToThePicture)
{
    QzTestApplication();
    TQzRuler ruler(nullptr);
    QImage image(101, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        ruler.Paint(painter, image.rect(), 96);
    }
    const auto dark = [&](int x, int y) { return qGray(image.pixel(x, y)) < 128; };
    EXPECT_TRUE(dark(50, 19));
    EXPECT_TRUE(dark(50, 5));    // a major spans nearly the whole depth
    EXPECT_TRUE(dark(30, 19));
    EXPECT_FALSE(dark(30, 10));   // a minor only a quarter of it
    EXPECT_FALSE(dark(35, 19));   // nothing between marks
}

}  // namespace
