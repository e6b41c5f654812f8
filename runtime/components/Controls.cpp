#include "runtime/components/Controls.h"

#include "runtime/components/ControlAlign.h"
#include "runtime/components/Menus.h"

#include "rtl/Filer.h"
#include "rtl/ScopedValue.h"

#include <algorithm>
#include <climits>
#include <utility>

// ---- Types --------------------------------------------------------------------

const TTypeInfo* TypeInfo_TCursor()
{
    static const TTypeInfo* t = DefineIntegerType("TCursor", -32768, 32767,
                                                  {
                                                      {"crDefault", crDefault},
                                                      {"crArrow", crArrow},
                                                      {"crCross", crCross},
                                                      {"crIBeam", crIBeam},
                                                      {"crSizeNESW", crSizeNESW},
                                                      {"crSizeNS", crSizeNS},
                                                      {"crSizeNWSE", crSizeNWSE},
                                                      {"crSizeWE", crSizeWE},
                                                      {"crUpArrow", crUpArrow},
                                                      {"crHourGlass", crHourGlass},
                                                      {"crDrag", crDrag},
                                                      {"crNoDrop", crNoDrop},
                                                      {"crHSplit", crHSplit},
                                                      {"crVSplit", crVSplit},
                                                      {"crMultiDrag", crMultiDrag},
                                                      {"crSQLWait", crSQLWait},
                                                      {"crNo", crNo},
                                                      {"crAppStart", crAppStart},
                                                      {"crHelp", crHelp},
                                                      {"crHandPoint", crHandPoint},
                                                      {"crSizeAll", crSizeAll},
                                                      // After crSizeAll, so -22 is written by that name.
                                                      {"crSize", crSize},
                                                      {"crNone", crNone},
                                                  });
    return t;
}

const TTypeInfo* TypeInfo_TModalResult()
{
    static const TTypeInfo* t = DefineIntegerType("TModalResult", INT32_MIN, INT32_MAX);
    return t;
}

const TTypeInfo* TypeInfo_TAlign()
{
    static const TTypeInfo* t =
        DefineEnumType("TAlign", {"alNone", "alTop", "alBottom", "alLeft", "alRight", "alClient", "alCustom"});
    return t;
}

const TTypeInfo* TypeInfo_TAnchorKind()
{
    static const TTypeInfo* t = DefineEnumType("TAnchorKind", {"akLeft", "akTop", "akRight", "akBottom"});
    return t;
}

const TTypeInfo* TypeInfo_TAnchors()
{
    static const TTypeInfo* t = DefineSetType("TAnchors", TypeInfo_TAnchorKind());
    return t;
}

const TTypeInfo* TypeInfo_TAlignment()
{
    static const TTypeInfo* t = DefineEnumType("TAlignment", {"taLeftJustify", "taRightJustify", "taCenter"});
    return t;
}

const TTypeInfo* TypeInfo_TTextLayout()
{
    static const TTypeInfo* t = DefineEnumType("TTextLayout", {"tlTop", "tlCenter", "tlBottom"});
    return t;
}

const TTypeInfo* TypeInfo_TBevelCut()
{
    static const TTypeInfo* t = DefineEnumType("TBevelCut", {"bvNone", "bvLowered", "bvRaised", "bvSpace"});
    return t;
}

const TTypeInfo* TypeInfo_TFormBorderStyle()
{
    static const TTypeInfo* t = DefineEnumType(
        "TFormBorderStyle", {"bsNone", "bsSingle", "bsSizeable", "bsDialog", "bsToolWindow", "bsSizeToolWin"});
    return t;
}

const TTypeInfo* TypeInfo_TBorderStyle()
{
    static const TTypeInfo* t = DefineEnumType("TBorderStyle", {"bsNone", "bsSingle"});
    return t;
}

const TTypeInfo* TypeInfo_TScrollStyle()
{
    static const TTypeInfo* t = DefineEnumType("TScrollStyle", {"ssNone", "ssHorizontal", "ssVertical", "ssBoth"});
    return t;
}

const TTypeInfo* TypeInfo_TEditCharCase()
{
    static const TTypeInfo* t = DefineEnumType("TEditCharCase", {"ecNormal", "ecUpperCase", "ecLowerCase"});
    return t;
}

const TTypeInfo* TypeInfo_TScrollBarKind()
{
    static const TTypeInfo* t = DefineEnumType("TScrollBarKind", {"sbHorizontal", "sbVertical"});
    return t;
}

const TTypeInfo* TypeInfo_TTabOrder()
{
    static const TTypeInfo* t = DefineIntegerType("TTabOrder", -1, 32767);
    return t;
}

const TTypeInfo* TypeInfo_TKeyEvent()
{
    static const TTypeInfo* t = DefineMethodType("TKeyEvent", "TObject *Sender, WORD &Key, TShiftState Shift");
    return t;
}

const TTypeInfo* TypeInfo_TKeyPressEvent()
{
    static const TTypeInfo* t = DefineMethodType("TKeyPressEvent", "TObject *Sender, char &Key");
    return t;
}

void QzFreeChildComponents(TComponent* parent)
{
    while (parent->ChildCount() > 0)
        delete parent->Child(parent->ChildCount() - 1);
}

// ---- TControl -------------------------------------------------------------------

// Left, Top, Width and Height have no default: a form always records where
// a control stands.
void TControl::DeclareProperties(TClassBuilder<TControl>& b)
{
    b.Property("Left", &TControl::Left, &TControl::SetLeft);
    b.Property("Top", &TControl::Top, &TControl::SetTop);
    b.Property("Width", &TControl::Width, &TControl::SetWidth);
    b.Property("Height", &TControl::Height, &TControl::SetHeight);
    b.Enum("Align", TypeInfo_TAlign(), &TControl::Align, &TControl::SetAlign, alNone);
    b.Set("Anchors", TypeInfo_TAnchors(), &TControl::Anchors, &TControl::SetAnchors, TAnchors{akLeft, akTop})
        .Stored(&TControl::IsAnchorsStored);
    b.Property("Color", TypeInfo_TGraphicsColor(), &TControl::Color, &TControl::SetColor)
        .Default(clWindow)
        .Stored(&TControl::IsColorStored);
    b.Property("Cursor", TypeInfo_TCursor(), &TControl::Cursor, &TControl::SetCursor).Default(crDefault);
    b.Property("Enabled", &TControl::Enabled, &TControl::SetEnabled).Default(true);
    b.Property("Font", &TControl::Font, &TControl::SetFont).Stored(&TControl::IsFontStored);
    b.Property("Hint", &TControl::Hint, &TControl::SetHint);
    b.Property("ParentColor", &TControl::ParentColor, &TControl::SetParentColor).Default(true);
    b.Property("ParentFont", &TControl::ParentFont, &TControl::SetParentFont).Default(true);
    b.Property("ParentShowHint", &TControl::ParentShowHint, &TControl::SetParentShowHint).Default(true);
    b.Property("PopupMenu", &TControl::PopupMenu, &TControl::SetPopupMenu);
    b.Property("ShowHint", &TControl::ShowHint, &TControl::SetShowHint).Stored(&TControl::IsShowHintStored);
    b.Property("Visible", &TControl::Visible, &TControl::SetVisible).Default(true);
}

TControl::TControl(TComponent* owner) : TComponent(owner), FFont(std::make_unique<TFont>())
{
    FFont->OnChange = [this] { FontChanged(); };
}

// A control freed from a parent that lives on leaves a gap its aligned
// siblings close.
TControl::~TControl()
{
    if (TWinControl* parent = Parent()) {
        TComponent::SetParentComponent(nullptr);
        parent->AlignControls(nullptr);
    }
}

TWinControl* TControl::Parent() const
{
    return dynamic_cast<TWinControl*>(GetParentComponent());
}

void TControl::SetParent(TWinControl* parent)
{
    SetParentComponent(parent);
}

void TControl::SetParentComponent(TComponent* parent)
{
    if (parent == GetParentComponent())
        return;
    TWinControl* old = Parent();
    TComponent::SetParentComponent(parent);
    ParentChanged();
    if (ComponentState().Contains(csLoading))
        return;
    UpdateAnchorRules();
    if (old)
        old->AlignControls(nullptr);
    RequestAlign();
}

// The inside is placed before the parent puts this control in line; should
// the parent change the size again, that SetBounds places the inside anew.
void TControl::SetBounds(Integer left, Integer top, Integer width, Integer height)
{
    if (left == FLeft && top == FTop && width == FWidth && height == FHeight)
        return;
    const bool resized = width != FWidth || height != FHeight;
    FLeft = left;
    FTop = top;
    FWidth = width;
    FHeight = height;
    if (ComponentState().Contains(csLoading))
        return;
    UpdateAnchorRules();
    if (resized)
        ClientResized();
    if (IsAligned())
        RequestAlign();
}

void TControl::SetAlignedBounds(const TRect& bounds)
{
    TScopedValue<bool> moving(FAnchorMove, true);
    SetBounds(bounds.Left, bounds.Top, bounds.Width(), bounds.Height());
}

// The alignment brings its anchors, while a form is read as well: Anchors
// comes after Align in the stream and is there only when they differ.
// Turning between a row (top, bottom) and a column (left, right) turns the
// control too, so a bar keeps its thickness.
void TControl::SetAlign(TAlign value)
{
    if (value == FAlign)
        return;
    const TAlign old = FAlign;
    FAlign = value;
    FAnchors = QzAnchorsOfAlign(value);
    if (ComponentState().Contains(csLoading))
        return;
    const auto isRow = [](TAlign a) { return a == alTop || a == alBottom; };
    const auto isColumn = [](TAlign a) { return a == alLeft || a == alRight; };
    if ((isRow(old) && isColumn(value)) || (isColumn(old) && isRow(value))) {
        std::swap(FWidth, FHeight);
        ClientResized();
    }
    UpdateAnchorRules();
    RequestAlign();
}

bool TControl::IsAnchorsStored() const
{
    return FAnchors != QzAnchorsOfAlign(FAlign);
}

void TControl::SetAnchors(TAnchors value)
{
    FAnchors = value;
    UpdateAnchorRules();
}

// At design time a hidden control keeps its share; at run time it gives it up.
void TControl::SetVisible(bool value)
{
    if (value == FVisible)
        return;
    FVisible = value;
    if (!ComponentState().Contains(csLoading) && IsAligned())
        RequestAlign();
}

void TControl::Loaded()
{
    TComponent::Loaded();
    UpdateAnchorRules();
}

void TControl::RequestAlign()
{
    if (TWinControl* parent = Parent())
        parent->AlignControls(this);
}

void TControl::UpdateAnchorRules()
{
    if (FAnchorMove || ComponentState().Contains(csLoading))
        return;
    const TWinControl* parent = Parent();
    FAnchorRules = parent ? QzTakeAnchorRules(FAnchors, BoundsRect(), parent->ClientWidth(), parent->ClientHeight())
                          : TAnchorRules{};
}

void TControl::SetShowHint(bool value)
{
    FShowHint = value;
    FParentShowHint = false;
    PropagateToChildren();
}

void TControl::SetParentShowHint(bool value)
{
    FParentShowHint = value;
    if (value)
        ParentChanged();
}

void TControl::SetColor(TColor value)
{
    FColor = value;
    FParentColor = false;
    PropagateToChildren();
}

void TControl::SetParentColor(bool value)
{
    FParentColor = value;
    if (value)
        ParentChanged();
}

void TControl::SetParentFont(bool value)
{
    FParentFont = value;
    if (value)
        ParentChanged();
}

void TControl::FontChanged()
{
    if (!FTakingParentFont)
        FParentFont = false;
    PropagateToChildren();
}

void TControl::SetPopupMenu(TPopupMenu* value)
{
    QzSetReference(this, FPopupMenu, value);
}

void TControl::ParentChanged()
{
    const TWinControl* parent = Parent();
    if (!parent)
        return;
    if (FParentColor)
        FColor = parent->Color();
    if (FParentShowHint)
        FShowHint = parent->ShowHint();
    if (FParentFont) {
        FTakingParentFont = true;
        FFont->Assign(parent->Font());
        FTakingParentFont = false;
    }
    PropagateToChildren();
}

AnsiString TControl::EventHandler(const AnsiString& event) const
{
    for (const auto& [name, handler] : FEvents)
        if (name == event)
            return handler;
    return {};
}

void TControl::SetEventHandler(const AnsiString& event, const AnsiString& handler)
{
    for (auto it = FEvents.begin(); it != FEvents.end(); ++it)
        if (it->first == event) {
            if (handler.empty())
                FEvents.erase(it);
            else
                it->second = handler;
            return;
        }
    if (!handler.empty())
        FEvents.emplace_back(event, handler);
}

void TControl::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove)
        QzClearReference(FPopupMenu, component);
}

// ---- TWinControl ------------------------------------------------------------------

void TWinControl::DeclareProperties(TClassBuilder<TWinControl>& b)
{
    b.Property("TabOrder", TypeInfo_TTabOrder(), &TWinControl::TabOrder, &TWinControl::SetTabOrder).Default(-1);
    b.Property("TabStop", &TWinControl::TabStop, &TWinControl::SetTabStop).Default(false);
}

TWinControl::TWinControl(TComponent* owner) : TControl(owner) {}

TWinControl::~TWinControl()
{
    // The contents go with this control: nothing is placed again on the way.
    ++FAlignLevel;
    QzFreeChildComponents(this);
}

int TWinControl::ControlCount() const
{
    int count = 0;
    for (int i = 0; i < ChildCount(); ++i)
        if (dynamic_cast<TControl*>(Child(i)))
            ++count;
    return count;
}

TControl* TWinControl::Controls(int index) const
{
    int seen = 0;
    for (int i = 0; i < ChildCount(); ++i)
        if (auto* control = dynamic_cast<TControl*>(Child(i)); control && seen++ == index)
            return control;
    throw EListError("Control index out of bounds (" + IntToStr(index) + ")");
}

namespace {

std::vector<TWinControl*> WindowedChildren(const TComponent* parent)
{
    std::vector<TWinControl*> list;
    if (parent)
        for (int i = 0; i < parent->ChildCount(); ++i)
            if (auto* control = dynamic_cast<TWinControl*>(parent->Child(i)))
                list.push_back(control);
    return list;
}

// Controls without a number yet (-1) come after those with one; equal
// numbers keep their tree order.
void SortByTabOrder(std::vector<TWinControl*>& list)
{
    std::stable_sort(list.begin(), list.end(), [](const TWinControl* a, const TWinControl* b) {
        const Integer ka = a->TabOrder() < 0 ? INT_MAX : a->TabOrder();
        const Integer kb = b->TabOrder() < 0 ? INT_MAX : b->TabOrder();
        return ka < kb;
    });
}

}  // namespace

std::vector<TWinControl*> TWinControl::TabList() const
{
    std::vector<TWinControl*> list = WindowedChildren(GetParentComponent());
    SortByTabOrder(list);
    return list;
}

void TWinControl::SetTabOrder(Integer value)
{
    if (ComponentState().Contains(csLoading) || !GetParentComponent()) {
        FTabOrder = value;
        return;
    }
    std::vector<TWinControl*> list = TabList();
    list.erase(std::find(list.begin(), list.end(), this));
    // Out of range (or -1) means last, as the class library does.
    const size_t at = value < 0 || size_t(value) > list.size() ? list.size() : size_t(value);
    list.insert(list.begin() + long(at), this);
    for (size_t i = 0; i < list.size(); ++i)
        list[i]->FTabOrder = Integer(i);
}

void TWinControl::SetParentComponent(TComponent* parent)
{
    TComponent* old = GetParentComponent();
    if (parent == old)
        return;
    const bool loading = ComponentState().Contains(csLoading);
    TControl::SetParentComponent(parent);
    if (loading)
        return;
    // The old siblings close the gap; this control joins the new ones last.
    std::vector<TWinControl*> before = WindowedChildren(old);
    SortByTabOrder(before);
    for (size_t i = 0; i < before.size(); ++i)
        before[i]->FTabOrder = Integer(i);
    FTabOrder = parent ? Integer(WindowedChildren(parent).size()) - 1 : -1;
}

void TWinControl::AdjustClientRect(TRect&) const {}

void TWinControl::AlignControls(TControl* changed)
{
    if (FAlignLevel > 0 || ComponentState().Contains(csLoading) || ComponentState().Contains(csDestroying))
        return;
    std::vector<TControl*> controls;
    std::vector<TAlignedControl> placing;
    int changedAt = -1;
    for (int i = 0; i < ChildCount(); ++i) {
        auto* control = dynamic_cast<TControl*>(Child(i));
        if (!control || control->ComponentState().Contains(csLoading))
            continue;
        if (control == changed)
            changedAt = int(controls.size());
        controls.push_back(control);
        const bool shares = control->FVisible || control->ComponentState().Contains(csDesigning);
        placing.push_back({control->FAlign, control->FAnchors, control->BoundsRect(), control->FAnchorRules, shares});
    }
    TRect client{0, 0, ClientWidth(), ClientHeight()};
    AdjustClientRect(client);
    const std::vector<TRect> bounds = QzAlignBounds(placing, changedAt, client, ClientWidth(), ClientHeight());
    TScopedValue<int> aligning(FAlignLevel, FAlignLevel + 1);
    for (size_t i = 0; i < controls.size(); ++i)
        if (!(bounds[i] == placing[i].Bounds))
            controls[i]->SetAlignedBounds(bounds[i]);
}

void TWinControl::PropagateToChildren()
{
    for (int i = 0; i < ChildCount(); ++i)
        if (auto* control = dynamic_cast<TControl*>(Child(i)))
            control->ParentChanged();
}

void RegisterControlClasses()
{
    RegisterRtlClasses();
    RegisterClasses({TControl::ClassInfo(), TWinControl::ClassInfo(), TGraphicControl::ClassInfo(),
                     TCustomControl::ClassInfo(), TMenu::ClassInfo(), TMainMenu::ClassInfo(),
                     TPopupMenu::ClassInfo()});
}

// ---- TNonVisualComponent ------------------------------------------------------------

void TNonVisualComponent::SetDesignPosition(Integer left, Integer top)
{
    SetDesignInfo(Integer((Cardinal(top & 0xFFFF) << 16) | Cardinal(left & 0xFFFF)));
}

void TNonVisualComponent::DefineProperties(TFiler& filer)
{
    TComponent::DefineProperties(filer);
    filer.DefineProperty(
        "Left", [this](TReader& r) { SetDesignPosition(r.ReadInteger(), DesignTop()); },
        [this](TWriter& w) { w.WriteInteger(DesignLeft()); }, DesignLeft() != 0);
    filer.DefineProperty(
        "Top", [this](TReader& r) { SetDesignPosition(DesignLeft(), r.ReadInteger()); },
        [this](TWriter& w) { w.WriteInteger(DesignTop()); }, DesignTop() != 0);
}
