#pragma once
// The control base classes as the designer sees them: bounds, alignment,
// colour, font and the behaviour flags every control publishes, the
// parent/child tree (a control's parent is a TWinControl) and the tab order
// among siblings. Headless: nothing here opens a window; the designer draws
// a control from these properties and the object inspector edits them.

#include "runtime/components/Graphics.h"

#include "rtl/Component.h"
#include "rtl/ModalResult.h"

#include <cstdint>
#include <memory>

class TWinControl;
class TPopupMenu;

// ---- Cursors ----------------------------------------------------------------

using TCursor = std::int16_t;

inline constexpr TCursor crDefault = 0;
inline constexpr TCursor crNone = -1;
inline constexpr TCursor crArrow = -2;
inline constexpr TCursor crCross = -3;
inline constexpr TCursor crIBeam = -4;
inline constexpr TCursor crSizeNESW = -6;
inline constexpr TCursor crSizeNS = -7;
inline constexpr TCursor crSizeNWSE = -8;
inline constexpr TCursor crSizeWE = -9;
inline constexpr TCursor crUpArrow = -10;
inline constexpr TCursor crHourGlass = -11;
inline constexpr TCursor crDrag = -12;
inline constexpr TCursor crNoDrop = -13;
inline constexpr TCursor crHSplit = -14;
inline constexpr TCursor crVSplit = -15;
inline constexpr TCursor crMultiDrag = -16;
inline constexpr TCursor crSQLWait = -17;
inline constexpr TCursor crNo = -18;
inline constexpr TCursor crAppStart = -19;
inline constexpr TCursor crHelp = -20;
inline constexpr TCursor crHandPoint = -21;
inline constexpr TCursor crSizeAll = -22;
inline constexpr TCursor crSize = -22;

const TTypeInfo* TypeInfo_TCursor();

// ---- Small types ------------------------------------------------------------

// Forms store a modal result as its number ("ModalResult = 1"), so the type
// has no identifier table; the names are rtl/ModalResult.h's.
const TTypeInfo* TypeInfo_TModalResult();

enum TAlign { alNone, alTop, alBottom, alLeft, alRight, alClient, alCustom };
const TTypeInfo* TypeInfo_TAlign();

enum TAnchorKind { akLeft, akTop, akRight, akBottom };
using TAnchors = TEnumSet<TAnchorKind>;
const TTypeInfo* TypeInfo_TAnchorKind();
const TTypeInfo* TypeInfo_TAnchors();

// A rectangle by its edges, in the parent's client coordinates.
struct TRect {
    Integer Left = 0;
    Integer Top = 0;
    Integer Right = 0;
    Integer Bottom = 0;
    Integer Width() const { return Right - Left; }
    Integer Height() const { return Bottom - Top; }
    bool operator==(const TRect&) const = default;
};

// What an anchored control remembers of its place (see ControlAlign.h):
// per axis the size, the near edge or the centre, and the parent's client
// size they were taken at. A parent size of 0 means nothing to keep.
struct TAnchorRules {
    Integer X = 0;
    Integer Y = 0;
    Integer ParentWidth = 0;
    Integer ParentHeight = 0;
    bool operator==(const TAnchorRules&) const = default;
};

enum TAlignment { taLeftJustify, taRightJustify, taCenter };
const TTypeInfo* TypeInfo_TAlignment();

enum TTextLayout { tlTop, tlCenter, tlBottom };
const TTypeInfo* TypeInfo_TTextLayout();

enum TBevelCut { bvNone, bvLowered, bvRaised, bvSpace };
const TTypeInfo* TypeInfo_TBevelCut();

// A control's border is the first two of the form's border styles.
enum TFormBorderStyle { bsNone, bsSingle, bsSizeable, bsDialog, bsToolWindow, bsSizeToolWin };
using TBorderStyle = TFormBorderStyle;
const TTypeInfo* TypeInfo_TFormBorderStyle();
const TTypeInfo* TypeInfo_TBorderStyle();

enum TScrollStyle { ssNone, ssHorizontal, ssVertical, ssBoth };
const TTypeInfo* TypeInfo_TScrollStyle();

enum TEditCharCase { ecNormal, ecUpperCase, ecLowerCase };
const TTypeInfo* TypeInfo_TEditCharCase();

enum TScrollBarKind { sbHorizontal, sbVertical };
const TTypeInfo* TypeInfo_TScrollBarKind();

// -1 (not in a tab order) to 32767.
const TTypeInfo* TypeInfo_TTabOrder();

// Handlers of the keyboard: (Sender, Key, Shift) and (Sender, Key).
const TTypeInfo* TypeInfo_TKeyEvent();
const TTypeInfo* TypeInfo_TKeyPressEvent();

// ---- References --------------------------------------------------------------

// A published reference to another component: the target is asked to say
// when it goes, so the reference never outlives it. A Notification override
// calls QzClearReference for each reference it holds.
template <class T>
void QzSetReference(TComponent* self, T*& field, T* value)
{
    if (field == value)
        return;
    field = value;
    if (value)
        value->FreeNotification(self);
}

template <class T>
void QzClearReference(T*& field, TComponent* removed)
{
    if (field && static_cast<TComponent*>(field) == removed)
        field = nullptr;
}

// Frees every component placed inside parent (whoever owns them): a deleted
// panel takes its contents with it instead of leaving them parentless.
void QzFreeChildComponents(TComponent* parent);

// ---- Components without a window ------------------------------------------------

// A component the designer shows as an icon on the form: its place is its
// DesignInfo, streamed as the defined properties "Left" and "Top" (16 bits
// each) as the class library does for every component.
class TNonVisualComponent : public TComponent {
    QZ_CLASS(TNonVisualComponent, TComponent)

public:
    explicit TNonVisualComponent(TComponent* owner) : TComponent(owner) {}

    Integer DesignLeft() const { return DesignInfo() & 0xFFFF; }
    Integer DesignTop() const { return (DesignInfo() >> 16) & 0xFFFF; }
    void SetDesignPosition(Integer left, Integer top);
    void DefineProperties(TFiler& filer) override;
};

// ---- TControl ----------------------------------------------------------------

class TControl : public TComponent {
    QZ_CLASS(TControl, TComponent)

public:
    explicit TControl(TComponent* owner);
    ~TControl() override;

    // The parent is the TWinControl in whose tree the control sits; nullptr
    // while it sits under something that is not a control.
    TWinControl* Parent() const;
    void SetParent(TWinControl* parent);
    void SetParentComponent(TComponent* parent) override;

    Integer Left() const { return FLeft; }
    void SetLeft(Integer value) { SetBounds(value, FTop, FWidth, FHeight); }
    Integer Top() const { return FTop; }
    void SetTop(Integer value) { SetBounds(FLeft, value, FWidth, FHeight); }
    Integer Width() const { return FWidth; }
    void SetWidth(Integer value) { SetBounds(FLeft, FTop, value, FHeight); }
    Integer Height() const { return FHeight; }
    void SetHeight(Integer value) { SetBounds(FLeft, FTop, FWidth, value); }
    // An aligned control's parent puts it back in line at once, so only
    // the size its alignment leaves free (an alTop control's height, an
    // alLeft control's width) sticks.
    virtual void SetBounds(Integer left, Integer top, Integer width, Integer height);
    TRect BoundsRect() const { return {FLeft, FTop, FLeft + FWidth, FTop + FHeight}; }
    // The inside of the control; a form subtracts its frame.
    virtual Integer ClientWidth() const { return FWidth; }
    virtual Integer ClientHeight() const { return FHeight; }

    // Alignment and anchors act on changes made after a form is loaded,
    // never on the form as it was read.
    TAlign Align() const { return FAlign; }
    void SetAlign(TAlign value);
    bool IsAnchorsStored() const;
    TAnchors Anchors() const { return FAnchors; }
    void SetAnchors(TAnchors value);
    const TAnchorRules& AnchorRules() const { return FAnchorRules; }
    TCursor Cursor() const { return FCursor; }
    void SetCursor(TCursor value) { FCursor = value; }
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool value) { FEnabled = value; }
    bool Visible() const { return FVisible; }
    void SetVisible(bool value);

    // Caption and Text are one string, as in the class library; a class
    // publishes whichever of the two it shows.
    const AnsiString& Caption() const { return FText; }
    void SetCaption(const AnsiString& value) { SetText(value); }
    const AnsiString& Text() const { return FText; }
    virtual void SetText(const AnsiString& value) { FText = value; }

    const AnsiString& Hint() const { return FHint; }
    void SetHint(const AnsiString& value) { FHint = value; }
    // While ParentShowHint is set, ShowHint follows the parent's.
    bool ShowHint() const { return FShowHint; }
    void SetShowHint(bool value);
    bool ParentShowHint() const { return FParentShowHint; }
    void SetParentShowHint(bool value);

    // While ParentColor (ParentFont) is set, the colour (font) follows the
    // parent's; setting the colour (changing the font) clears the flag.
    TColor Color() const { return FColor; }
    void SetColor(TColor value);
    bool ParentColor() const { return FParentColor; }
    void SetParentColor(bool value);
    TFont* Font() const { return FFont.get(); }
    void SetFont(TFont* value) { FFont->Assign(value); }
    bool ParentFont() const { return FParentFont; }
    void SetParentFont(bool value);

    TPopupMenu* PopupMenu() const { return FPopupMenu; }
    void SetPopupMenu(TPopupMenu* value);

    // At design time an event holds the name of its handler ("Button1Click").
    AnsiString EventHandler(const AnsiString& event) const;
    void SetEventHandler(const AnsiString& event, const AnsiString& handler);

    void Notification(TComponent* component, TOperation operation) override;
    // Takes the anchors' distances from the bounds as read.
    void Loaded() override;

protected:
    friend class TWinControl;

    // The size changed (not while loading): a windowed control places its
    // contents again.
    virtual void ClientResized() {}

    // The parent's colour, font or hint flag changed (or the control came
    // under a new parent): take them over where the Parent... flags say so.
    void ParentChanged();
    // This control's colour, font or hint flag changed: a windowed control
    // passes it on to the controls inside.
    virtual void PropagateToChildren() {}
    // TControl publishes Left, Top, Width, Height and the shared look and
    // behaviour; these let a descendant publish its caption or text.
    template <class T>
    static void DeclareCaption(TClassBuilder<T>& b)
    {
        b.Property("Caption", &TControl::Caption, &TControl::SetCaption);
    }
    template <class T>
    static void DeclareText(TClassBuilder<T>& b)
    {
        b.Property("Text", &TControl::Text, &TControl::SetText);
    }
    template <class T>
    static void DeclareEvent(TClassBuilder<T>& b, const AnsiString& name, const TTypeInfo* type = TypeInfo_TNotifyEvent())
    {
        b.Event(
            name, type, [name](T& c) { return c.EventHandler(name); },
            [name](T& c, const AnsiString& handler) { c.SetEventHandler(name, handler); });
    }
    // OnClick and OnDblClick.
    template <class T>
    static void DeclareClickEvents(TClassBuilder<T>& b)
    {
        DeclareEvent(b, "OnClick");
        DeclareEvent(b, "OnDblClick");
    }
    // OnEnter, OnExit and the keyboard events of a control that takes focus.
    template <class T>
    static void DeclareFocusEvents(TClassBuilder<T>& b)
    {
        DeclareEvent(b, "OnEnter");
        DeclareEvent(b, "OnExit");
        DeclareEvent(b, "OnKeyDown", TypeInfo_TKeyEvent());
        DeclareEvent(b, "OnKeyPress", TypeInfo_TKeyPressEvent());
        DeclareEvent(b, "OnKeyUp", TypeInfo_TKeyEvent());
    }

private:
    static void DeclareProperties(TClassBuilder<TControl>& b);
    bool IsColorStored() const { return !FParentColor; }
    bool IsFontStored() const { return !FParentFont; }
    bool IsShowHintStored() const { return !FParentShowHint; }
    void FontChanged();
    bool IsAligned() const { return FAlign != alNone && FAlign != alCustom; }
    // The parent places its aligned controls again, this one first among
    // those of its alignment.
    void RequestAlign();
    // Remembers the distances the anchors keep, from the bounds as they are.
    void UpdateAnchorRules();
    // Bounds given by the parent's alignment: they leave the anchors' rules
    // as they were.
    void SetAlignedBounds(const TRect& bounds);

    Integer FLeft = 0;
    Integer FTop = 0;
    Integer FWidth = 0;
    Integer FHeight = 0;
    TAlign FAlign = alNone;
    TAnchors FAnchors{akLeft, akTop};
    TAnchorRules FAnchorRules;
    bool FAnchorMove = false;
    TCursor FCursor = crDefault;
    bool FEnabled = true;
    bool FVisible = true;
    AnsiString FText;
    AnsiString FHint;
    bool FShowHint = false;
    bool FParentShowHint = true;
    TColor FColor = clWindow;
    bool FParentColor = true;
    std::unique_ptr<TFont> FFont;
    bool FParentFont = true;
    bool FTakingParentFont = false;
    TPopupMenu* FPopupMenu = nullptr;
    std::vector<std::pair<AnsiString, AnsiString>> FEvents;
};

// ---- TWinControl -----------------------------------------------------------------

class TWinControl : public TControl {
    QZ_CLASS(TWinControl, TControl)
    friend class TControl;

public:
    explicit TWinControl(TComponent* owner);
    ~TWinControl() override;

    // The controls placed directly inside, in their tree order.
    int ControlCount() const;
    TControl* Controls(int index) const;   // EListError out of range

    // The position among the parent's windowed controls. Setting it moves
    // the control there and renumbers its siblings 0, 1, 2...; a control
    // placed into a parent joins at the end. While loading, the stream's
    // numbers are taken as they are.
    Integer TabOrder() const { return FTabOrder; }
    void SetTabOrder(Integer value);
    bool TabStop() const { return FTabStop; }
    void SetTabStop(bool value) { FTabStop = value; }
    // The parent's windowed controls by TabOrder.
    std::vector<TWinControl*> TabList() const;

    void SetParentComponent(TComponent* parent) override;

    // Places the aligned controls inside and moves the anchored ones to the
    // client size as it is now.
    void Realign() { AlignControls(nullptr); }
    // The part of the client area the aligned controls share out; a control
    // with a frame or tabs of its own keeps them free.
    virtual void AdjustClientRect(TRect& rect) const;

protected:
    void PropagateToChildren() override;
    void ClientResized() override { Realign(); }
    // changed goes first among the controls of its alignment, so the one
    // the designer just moved wins a tie. Does nothing while this control
    // loads, is freed or is placing its controls already.
    void AlignControls(TControl* changed);

private:
    static void DeclareProperties(TClassBuilder<TWinControl>& b);

    Integer FTabOrder = -1;
    bool FTabStop = false;
    // Above 0 while the controls inside are being placed (and for good once
    // the control is being freed): their own requests are dropped then.
    int FAlignLevel = 0;
};

// The setter of a published field that shapes a windowed control's client
// area (a bevel, a border, the row of tabs): the controls inside are placed
// anew once it is set, unless the control is being read.
template <class T, class V>
auto QzRealigningSetter(V T::*field)
{
    return [field](T& control, V value) {
        control.*field = value;
        control.Realign();
    };
}

// A control drawn on its parent, without a window of its own (labels,
// shapes, speed buttons).
class TGraphicControl : public TControl {
    QZ_CLASS(TGraphicControl, TControl)

public:
    explicit TGraphicControl(TComponent* owner) : TControl(owner) {}
};

// A windowed control that draws itself (panels, lists drawn by the suite).
class TCustomControl : public TWinControl {
    QZ_CLASS(TCustomControl, TWinControl)

public:
    explicit TCustomControl(TComponent* owner) : TWinControl(owner) {}
};

// Registers the control base classes and the menu bases; safe to call again.
void RegisterControlClasses();
