// Aligned controls share out their parent's client area and anchored ones
// keep their distances as the designer edits them; a form as read is never
// moved, and a change moves only what it has to.

#include "runtime/components/ControlAlign.h"
#include "runtime/components/Forms.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPages.h"
#include "runtime/components/QzStdCtrls.h"

#include "rtl/ComponentStream.h"
#include "rtl/TypInfo.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using TBox = std::array<Integer, 4>;   // left, top, width, height

TBox Box(const TControl* c) { return {c->Left(), c->Top(), c->Width(), c->Height()}; }

class Align : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzComponentClasses();
        RegisterFormClasses();
        FForm.SetDesigning(true);
        SetClientSize(400, 300);
    }
    // Sized and aligned first, then placed, as the designer drops a control.
    TControl* Add(TWinControl* parent, TAlign align, const TBox& b, TControl* c = nullptr)
    {
        c = c ? c : new TCustomControl(&FForm);
        c->SetBounds(b[0], b[1], b[2], b[3]);
        c->SetAlign(align);
        c->SetParent(parent);
        return c;
    }
    void SetClientSize(Integer w, Integer h) { FForm.SetBounds(0, 0, w + FForm.FrameWidth(), h + FForm.FrameHeight()); }
    TForm FForm{nullptr};
};

TEST(AlignBounds, TopsByTheirTopBottomsFromTheBottomUpAndTheChangedOneWinsATie)
{
    const struct {
        TAlign Align;
        int Changed;
        std::vector<TBox> In, Out;
    } cases[] = {
        {alTop, -1, {{0, 50, 9, 10}, {0, 0, 9, 20}, {0, 50, 9, 5}}, {{0, 20, 400, 10}, {0, 0, 400, 20}, {0, 30, 400, 5}}},
        {alBottom, -1, {{0, 0, 9, 10}, {0, 280, 9, 20}, {0, 5, 9, 5}}, {{0, 265, 400, 10}, {0, 280, 400, 20}, {0, 275, 400, 5}}},
        {alLeft, 1, {{0, 0, 30, 9}, {0, 0, 40, 9}}, {{40, 0, 30, 300}, {0, 0, 40, 300}}},
    };
    for (const auto& c : cases) {
        std::vector<TAlignedControl> in;
        for (const TBox& b : c.In)
            in.push_back({c.Align, {akLeft, akTop}, {b[0], b[1], b[0] + b[2], b[1] + b[3]}, {}, true});
        std::vector<TBox> out;
        for (const TRect& r : QzAlignBounds(in, c.Changed, {0, 0, 400, 300}, 400, 300))
            out.push_back({r.Left, r.Top, r.Width(), r.Height()});
        EXPECT_EQ(out, c.Out) << c.Align;
    }
}

TEST_F(Align, RowsThenColumnsThenTheClientInsideFramesBevelsAndTabs)
{
    TControl* top = Add(&FForm, alTop, {5, 5, 10, 30});
    TControl* bottom = Add(&FForm, alBottom, {5, 5, 10, 20});
    Add(&FForm, alLeft, {5, 5, 50, 10});
    TControl* right = Add(&FForm, alRight, {5, 5, 60, 10});
    auto* client = static_cast<TWinControl*>(Add(&FForm, alClient, {5, 5, 10, 10}, new TQzPanel(&FForm)));
    TControl* inner = Add(client, alBottom, {0, 0, 10, 10});
    EXPECT_EQ(Box(top), (TBox{0, 0, 400, 30}));
    EXPECT_EQ(Box(bottom), (TBox{0, 280, 400, 20}));
    EXPECT_EQ(Box(right), (TBox{340, 30, 60, 250}));
    EXPECT_EQ(Box(client), (TBox{50, 30, 290, 250}));
    EXPECT_EQ(Box(inner), (TBox{1, 239, 288, 10}));   // inside the panel's bevel

    FForm.SetBorderStyle(bsNone);   // the frame's room goes to the client area
    EXPECT_EQ(Box(right), (TBox{348, 30, 60, 277}));
    EXPECT_EQ(Box(inner), (TBox{1, 266, 296, 10}));

    auto* pages = static_cast<TQzPageControl*>(Add(&FForm, alNone, {0, 0, 289, 193}, new TQzPageControl(&FForm)));
    TQzTabSheet* sheet = pages->AddPage()->TabSheet();
    pages->SetWidth(300);
    EXPECT_EQ(Box(sheet), (TBox{4, 24, 292, 165}));

    // What the property grid sets on the frame places the inside at once.
    SetOrdProp(client, "BevelWidth", 3);
    SetOrdProp(client, "BevelInner", bvLowered);
    EXPECT_EQ(Box(inner), (TBox{6, 261, 286, 10}));
    SetOrdProp(client, "BorderWidth", 2);
    EXPECT_EQ(Box(inner), (TBox{8, 259, 282, 10}));
    SetOrdProp(pages, "TabHeight", 30);
    EXPECT_EQ(Box(sheet), (TBox{4, 34, 292, 155}));
    SetOrdProp(pages, "TabPosition", tpLeft);
    EXPECT_EQ(Box(sheet), (TBox{34, 4, 262, 185}));
}

TEST_F(Align, AFormsBorderWidthIsTakenFromItsClientArea)
{
    TControl* top = Add(&FForm, alTop, {5, 5, 10, 30});
    TControl* client = Add(&FForm, alClient, {5, 5, 10, 10});
    const Integer width = FForm.Width(), height = FForm.Height();
    FForm.SetBorderWidth(5);
    EXPECT_EQ(FForm.Width(), width);   // the window keeps its size
    EXPECT_EQ(FForm.ClientWidth(), 390);
    EXPECT_EQ(FForm.ClientHeight(), 290);
    EXPECT_EQ(Box(top), (TBox{0, 0, 390, 30}));
    EXPECT_EQ(Box(client), (TBox{0, 30, 390, 260}));
    // Read from a form, the border comes before the client size it shapes.
    const std::string text = "object Form1: TForm\n  BorderWidth = 5\n  ClientHeight = 300\n  ClientWidth = 400\nend\n";
    auto form = ReadForm(text, DetectFormTextOptions(text));
    EXPECT_EQ(static_cast<TCustomForm*>(form.get())->Height(), height + 10);
    EXPECT_EQ(WriteFormText(form.get(), DetectFormTextOptions(text)), text);
}

TEST_F(Align, AMainMenuTakesItsBarFromTheClientArea)
{
    // As a form of that era stores it: the window's height, and the client
    // control 27 + 19 pixels lower.
    const std::string byHeight = "object Form1: TForm\n  Width = 276\n  Height = 386\n  Menu = MainMenu1\n"
                                 "  object Client1: TCustomControl\n    Left = 0\n    Top = 0\n    Width = 268\n"
                                 "    Height = 340\n    Align = alClient\n  end\n"
                                 "  object MainMenu1: TQzMainMenu\n  end\nend\n";
    auto form = ReadForm(byHeight, DetectFormTextOptions(byHeight));
    auto* f = static_cast<TCustomForm*>(form.get());
    EXPECT_EQ(f->ClientHeight(), 340);
    f->Realign();
    EXPECT_EQ(Box(static_cast<TControl*>(f->FindComponent("Client1"))), (TBox{0, 0, 268, 340}));
    EXPECT_EQ(WriteFormText(f, DetectFormTextOptions(byHeight)), byHeight);

    // A stored client size stays what it was, although the menu comes later.
    const std::string byClient = "object Form1: TForm\n  ClientHeight = 300\n  ClientWidth = 400\n"
                                 "  Menu = MainMenu1\n  object MainMenu1: TQzMainMenu\n  end\nend\n";
    form = ReadForm(byClient, DetectFormTextOptions(byClient));
    f = static_cast<TCustomForm*>(form.get());
    EXPECT_EQ(f->ClientHeight(), 300);
    EXPECT_EQ(f->Height(), 300 + 27 + 19);
    EXPECT_EQ(WriteFormText(f, DetectFormTextOptions(byClient)), byClient);

    // In the designer the window keeps its size and the client gives way.
    TControl* client = Add(&FForm, alClient, {5, 5, 10, 10});
    auto* menu = new TQzMainMenu(&FForm);
    FForm.SetMenu(menu);
    EXPECT_EQ(Box(client), (TBox{0, 0, 400, 281}));
    delete menu;
    EXPECT_EQ(FForm.Menu(), nullptr);
    EXPECT_EQ(Box(client), (TBox{0, 0, 400, 300}));
}

TEST_F(Align, AnOutlookBarsActivePageLiesBetweenTheButtonsAboveAndBelowIt)
{
    auto* bar = static_cast<TQzOutLookBar*>(Add(&FForm, alNone, {0, 0, 121, 241}, new TQzOutLookBar(&FForm)));
    TQzOutLookBarPage* first = bar->NewPage();
    bar->NewPage();
    TQzOutLookBarPage* third = bar->NewPage();
    EXPECT_EQ(Box(third), (TBox{0, 72, 121, 169}));   // the last added is active
    bar->SetActivePage(first);
    EXPECT_EQ(Box(first), (TBox{0, 24, 121, 169}));
    EXPECT_EQ(bar->ButtonRect(0).Top, 0);
    EXPECT_EQ(bar->ButtonRect(1).Top, 241 - 48);
    EXPECT_EQ(bar->ButtonRect(2).Top, 241 - 24);
    SetOrdProp(bar, "ButtonHeight", 30);
    EXPECT_EQ(Box(first), (TBox{0, 30, 121, 151}));
    bar->SetActivePage(nullptr);   // every button at the top
    EXPECT_EQ(Box(first), (TBox{0, 90, 121, 151}));
    EXPECT_EQ(bar->ButtonRect(2).Top, 60);
}

TEST_F(Align, OnlyWhatTheAlignmentLeavesFreeSticksAndUnalignedControlsStay)
{
    TControl* a = Add(&FForm, alTop, {0, 0, 10, 30});
    TControl* b = Add(&FForm, alTop, {0, 100, 10, 20});
    TControl* client = Add(&FForm, alClient, {0, 0, 10, 10});
    a->SetBounds(33, 10, 55, 40);
    EXPECT_EQ(Box(a), (TBox{0, 0, 400, 40}));
    EXPECT_EQ(Box(client), (TBox{0, 60, 400, 240}));
    a->SetTop(51);   // dragged below b: they change places
    EXPECT_EQ(Box(b), (TBox{0, 0, 400, 20}));
    EXPECT_EQ(Box(a), (TBox{0, 20, 400, 40}));
    a->SetAlign(alLeft);   // a row turned into a column keeps its thickness
    EXPECT_EQ(Box(a), (TBox{0, 20, 40, 280}));

    client->SetAlign(alNone);
    EXPECT_EQ(Box(client), (TBox{40, 20, 360, 280}));
    SetClientSize(500, 400);
    EXPECT_EQ(Box(client), (TBox{40, 20, 360, 280}));
    EXPECT_EQ(Box(a), (TBox{0, 20, 40, 380}));
}

TEST_F(Align, ControlsEnteringLeavingFreedOrHiddenChangeTheShares)
{
    TControl* top = Add(&FForm, alTop, {0, 0, 10, 30});
    TControl* client = Add(&FForm, alClient, {0, 0, 10, 10});
    auto* other = static_cast<TWinControl*>(Add(&FForm, alNone, {0, 0, 200, 100}));
    top->SetVisible(false);   // designed: it keeps its share
    EXPECT_EQ(Box(client), (TBox{0, 30, 400, 270}));
    top->SetParent(other);
    EXPECT_EQ(Box(client), (TBox{0, 0, 400, 300}));
    EXPECT_EQ(Box(top), (TBox{0, 0, 200, 30}));
    top->SetParent(&FForm);
    EXPECT_EQ(Box(client), (TBox{0, 30, 400, 270}));
    delete top;
    EXPECT_EQ(Box(client), (TBox{0, 0, 400, 300}));

    FForm.SetDesigning(false);   // at run time a hidden control gives up its share
    TControl* bar = Add(&FForm, alBottom, {0, 0, 10, 40});
    EXPECT_EQ(client->Height(), 260);
    bar->SetVisible(false);
    EXPECT_EQ(client->Height(), 300);
}

TEST_F(Align, AnchoredControlsKeepTheirDistancesAsTheParentGrowsAndShrinks)
{
    const struct {
        TAnchors Anchors;
        TBox Grown, Shrunk;   // client 500 x 400, 300 x 200
    } cases[] = {
        {{akLeft, akTop}, {100, 200, 280, 30}, {100, 200, 280, 30}},
        {{akRight, akBottom}, {200, 300, 280, 30}, {0, 100, 280, 30}},
        {{akLeft, akRight}, {100, 272, 380, 30}, {100, 128, 180, 30}},
        {{}, {160, 272, 280, 30}, {40, 128, 280, 30}},
        {{akLeft, akTop, akBottom}, {100, 200, 280, 130}, {100, 200, 280, 0}},
    };
    for (const auto& c : cases) {
        SetClientSize(400, 300);
        TControl* control = Add(&FForm, alNone, {100, 200, 280, 30});
        control->SetAnchors(c.Anchors);
        SetClientSize(500, 400);
        EXPECT_EQ(Box(control), c.Grown) << GetSetProp(control, "Anchors");
        SetClientSize(300, 200);
        EXPECT_EQ(Box(control), c.Shrunk) << GetSetProp(control, "Anchors");
        SetClientSize(400, 300);
        EXPECT_EQ(Box(control), (TBox{100, 200, 280, 30})) << GetSetProp(control, "Anchors");
        if (c.Anchors == TAnchors{akRight, akBottom}) {   // moved by the designer: the new distance counts
            control->SetLeft(50);
            SetClientSize(450, 300);
            EXPECT_EQ(control->Left(), 100);
        }
        delete control;
    }
}

const char* const LoadedForm = R"(object Form1: TForm
  Width = 408
  Height = 327
  object PnTop: TCustomControl
    Left = 0
    Top = 0
    Width = 400
    Height = 41
    Align = alTop
  end
  object PnClient: TCustomControl
    Left = 0
    Top = 41
    Width = 400
    Height = 259
    Align = alClient
    object BtOk: TCustomControl
      Left = 190
      Top = 220
      Width = 75
      Height = 25
      Anchors = [akRight, akBottom]
    end
  end
end
)";

TEST_F(Align, AFormIsNeverMovedAsReadAndAChangeMovesOnlyWhatItMust)
{
    std::string misfit = LoadedForm;   // bounds the alignment would not give
    misfit.replace(misfit.find("Width = 400"), 11, "Width = 350");
    for (const std::string& text : {std::string(LoadedForm), misfit}) {
        auto form = ReadForm(text, DetectFormTextOptions(text));
        form->SetDesigning(true);
        EXPECT_EQ(WriteFormText(form.get(), DetectFormTextOptions(text)), text);
    }
    auto form = ReadForm(LoadedForm, DetectFormTextOptions(LoadedForm));
    form->SetDesigning(true);
    static_cast<TControl*>(form->FindComponent("PnTop"))->SetAlign(alNone);
    std::string expected = LoadedForm;
    for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
             {"    Align = alTop\n", ""},
             {"Top = 41\n    Width = 400\n    Height = 259", "Top = 0\n    Width = 400\n    Height = 300"},
             {"Top = 220", "Top = 261"}})
        expected.replace(expected.find(from), from.size(), to);
    EXPECT_EQ(WriteFormText(form.get(), DetectFormTextOptions(LoadedForm)), expected);
}

TEST_F(Align, AnAlignmentBringsItsAnchorsAndOnlyOtherAnchorsAreWritten)
{
    std::string text = LoadedForm;   // a second top bar held to all four edges
    text.replace(text.find("    Align = alTop\n"), 18,
                 "    Align = alTop\n  end\n  object PnBar: TCustomControl\n    Align = alTop\n"
                 "    Anchors = [akLeft, akTop, akRight, akBottom]\n");
    auto form = ReadForm(text, DetectFormTextOptions(text));
    form->SetDesigning(true);
    auto* top = static_cast<TControl*>(form->FindComponent("PnTop"));
    auto* bar = static_cast<TControl*>(form->FindComponent("PnBar"));
    auto* ok = static_cast<TControl*>(form->FindComponent("BtOk"));
    EXPECT_EQ(top->Anchors(), (TAnchors{akLeft, akTop, akRight}));
    EXPECT_EQ(bar->Anchors(), (TAnchors{akLeft, akTop, akRight, akBottom}));
    EXPECT_EQ(WriteFormText(form.get(), DetectFormTextOptions(text)), text);

    bar->SetAlign(alClient);   // now the anchors it had are its alignment's own
    ok->SetAlign(alRight);
    EXPECT_EQ(ok->Anchors(), (TAnchors{akRight, akTop, akBottom}));
    top->SetAlign(alNone);
    top->SetAnchors({akLeft, akTop, akRight});   // kept as the designer set it
    const std::string written = WriteFormText(form.get(), DetectFormTextOptions(text));
    const auto block = [&](const std::string& name) {
        const size_t from = written.find("object " + name);
        return written.substr(from, written.find("end\n", from) - from);
    };
    EXPECT_EQ(block("PnBar").find("Anchors"), std::string::npos) << written;
    EXPECT_EQ(block("BtOk").find("Anchors"), std::string::npos) << written;
    EXPECT_NE(block("PnTop").find("Anchors = [akLeft, akTop, akRight]"), std::string::npos) << written;
}

}  // namespace
