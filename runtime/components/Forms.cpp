#include "runtime/components/Forms.h"

#include "runtime/components/Menus.h"

#include "rtl/Filer.h"

#include <algorithm>

void TScrollingWinControl::DeclareProperties(TClassBuilder<TScrollingWinControl>& b)
{
    b.Property("AutoScroll", &TScrollingWinControl::AutoScroll, &TScrollingWinControl::SetAutoScroll).Default(true);
}

const TTypeInfo* TypeInfo_TBorderIcon()
{
    static const TTypeInfo* t = DefineEnumType("TBorderIcon", {"biSystemMenu", "biMinimize", "biMaximize", "biHelp"});
    return t;
}

const TTypeInfo* TypeInfo_TBorderIcons()
{
    static const TTypeInfo* t = DefineSetType("TBorderIcons", TypeInfo_TBorderIcon());
    return t;
}

const TTypeInfo* TypeInfo_TFormStyle()
{
    static const TTypeInfo* t = DefineEnumType("TFormStyle", {"fsNormal", "fsMDIChild", "fsMDIForm", "fsStayOnTop"});
    return t;
}

const TTypeInfo* TypeInfo_TPosition()
{
    static const TTypeInfo* t =
        DefineEnumType("TPosition", {"poDesigned", "poDefault", "poDefaultPosOnly", "poDefaultSizeOnly",
                                     "poScreenCenter", "poDesktopCenter", "poMainFormCenter", "poOwnerFormCenter"});
    return t;
}

const TTypeInfo* TypeInfo_TWindowState()
{
    static const TTypeInfo* t = DefineEnumType("TWindowState", {"wsNormal", "wsMinimized", "wsMaximized"});
    return t;
}

const TTypeInfo* TypeInfo_TCloseEvent()
{
    static const TTypeInfo* t = DefineMethodType("TCloseEvent", "TObject *Sender, TCloseAction &Action");
    return t;
}

const TTypeInfo* TypeInfo_TCloseQueryEvent()
{
    static const TTypeInfo* t = DefineMethodType("TCloseQueryEvent", "TObject *Sender, bool &CanClose");
    return t;
}

// ---- TCustomForm ----------------------------------------------------------------

void TCustomForm::DeclareProperties(TClassBuilder<TCustomForm>& b)
{
    b.Redeclare("Width").Stored(&TCustomForm::IsFormSizeStored);
    b.Redeclare("Height").Stored(&TCustomForm::IsFormSizeStored);
    b.Redeclare("Color").NoDefault();
    b.Redeclare("ParentFont").Default(false);
    // A form has no parent to follow: these two are never written.
    b.Redeclare("ParentColor").Stored(false);
    b.Redeclare("ParentShowHint").Stored(false);
    b.Redeclare("Visible").Default(false);
    b.Property("ActiveControl", &TCustomForm::ActiveControl, &TCustomForm::SetActiveControl);
    b.Set("BorderIcons", TypeInfo_TBorderIcons(), &TCustomForm::BorderIcons, &TCustomForm::SetBorderIcons,
          TBorderIcons{biSystemMenu, biMinimize, biMaximize});
    b.Enum("BorderStyle", TypeInfo_TFormBorderStyle(), &TCustomForm::BorderStyle, &TCustomForm::SetBorderStyle,
           bsSizeable);
    b.Property("BorderWidth", &TCustomForm::BorderWidth, &TCustomForm::SetBorderWidth).Default(0);
    DeclareCaption(b);
    b.Property("ClientHeight", &TCustomForm::ClientHeight, &TCustomForm::SetClientHeight)
        .Stored(&TCustomForm::IsClientSizeStored);
    b.Property("ClientWidth", &TCustomForm::ClientWidth, &TCustomForm::SetClientWidth)
        .Stored(&TCustomForm::IsClientSizeStored);
    b.Property("Ctl3D", &TCustomForm::FCtl3D).Default(true);
    b.Enum("FormStyle", TypeInfo_TFormStyle(), &TCustomForm::FormStyle, &TCustomForm::SetFormStyle, fsNormal);
    b.Property("HelpFile", &TCustomForm::FHelpFile);
    b.Property("KeyPreview", &TCustomForm::FKeyPreview).Default(false);
    b.Property("Menu", &TCustomForm::Menu, &TCustomForm::SetMenu);
    // Always written, so a form says which creation order it was designed for.
    b.Property("OldCreateOrder", &TCustomForm::FOldCreateOrder);
    b.Property("PixelsPerInch", &TCustomForm::PixelsPerInch, &TCustomForm::SetPixelsPerInch).Stored(false);
    b.Enum("Position", TypeInfo_TPosition(), &TCustomForm::Position, &TCustomForm::SetPosition, poDesigned);
    b.Property("Scaled", &TCustomForm::FScaled).Default(true);
    b.Enum("WindowState", TypeInfo_TWindowState(), &TCustomForm::FWindowState, &TCustomForm::FWindowState, wsNormal);
    DeclareEvent(b, "OnActivate");
    DeclareClickEvents(b);
    DeclareEvent(b, "OnClose", TypeInfo_TCloseEvent());
    DeclareEvent(b, "OnCloseQuery", TypeInfo_TCloseQueryEvent());
    DeclareEvent(b, "OnCreate");
    DeclareEvent(b, "OnDeactivate");
    DeclareEvent(b, "OnDestroy");
    DeclareEvent(b, "OnHide");
    DeclareEvent(b, "OnKeyDown", TypeInfo_TKeyEvent());
    DeclareEvent(b, "OnKeyPress", TypeInfo_TKeyPressEvent());
    DeclareEvent(b, "OnKeyUp", TypeInfo_TKeyEvent());
    DeclareEvent(b, "OnPaint");
    DeclareEvent(b, "OnResize");
    DeclareEvent(b, "OnShow");
}

TCustomForm::TCustomForm(TComponent* owner) : TScrollingWinControl(owner)
{
    SetBounds(0, 0, 320, 240);
    SetColor(clBtnFace);
    SetParentFont(false);
    SetVisible(false);
}

namespace {

Integer WindowFrameWidth(TFormBorderStyle style)
{
    switch (style) {
    case bsNone:
        return 0;
    case bsSizeable:
    case bsSizeToolWin:
        return 8;
    default:
        return 6;
    }
}

// The frame and the caption bar (a tool window's is shorter).
Integer WindowFrameHeight(TFormBorderStyle style)
{
    switch (style) {
    case bsNone:
        return 0;
    case bsSizeable:
        return 27;
    case bsToolWindow:
        return 21;
    case bsSizeToolWin:
        return 23;
    default:
        return 25;
    }
}

}  // namespace

Integer TCustomForm::FrameWidth() const
{
    return WindowFrameWidth(FBorderStyle) + 2 * std::max<Integer>(0, FBorderWidth);
}

Integer TCustomForm::FrameHeight() const
{
    return WindowFrameHeight(FBorderStyle) + 2 * std::max<Integer>(0, FBorderWidth);
}

// The classic menu bar: forms of that era that store their window's height
// give their client area 19 pixels less when they have a menu.
Integer TCustomForm::MenuBarHeight() const
{
    return FMenu ? QzClassicMenuBarHeight : 0;
}

// While a form is read, the menu it names is not there yet: the client
// size is applied again once it is (Loaded).
void TCustomForm::SetClientHeight(Integer value)
{
    if (ComponentState().Contains(csLoading))
        FStreamedClientHeight = value;
    SetHeight(value + FrameHeight() + MenuBarHeight());
}

void TCustomForm::Loaded()
{
    if (FStreamedClientHeight >= 0)
        SetHeight(FStreamedClientHeight + FrameHeight() + MenuBarHeight());
    FStreamedClientHeight = -1;
    TScrollingWinControl::Loaded();
}

void TCustomForm::SetBorderStyle(TFormBorderStyle value)
{
    if (value == FBorderStyle)
        return;
    FBorderStyle = value;
    Realign();
}

void TCustomForm::SetBorderWidth(Integer value)
{
    if (value == FBorderWidth)
        return;
    FBorderWidth = value;
    Realign();
}

void TCustomForm::SetActiveControl(TWinControl* value)
{
    QzSetReference(this, FActiveControl, value);
}

void TCustomForm::SetMenu(TMainMenu* value)
{
    if (value == FMenu)
        return;
    QzSetReference(this, FMenu, value);
    Realign();
}

void TCustomForm::DefineProperties(TFiler& filer)
{
    TScrollingWinControl::DefineProperties(filer);
    filer.DefineProperty(
        "PixelsPerInch", [this](TReader& r) { FPixelsPerInch = r.ReadInteger(); },
        [this](TWriter& w) { w.WriteInteger(FPixelsPerInch); }, true);
    filer.DefineProperty(
        "TextHeight", [this](TReader& r) { FTextHeight = r.ReadInteger(); },
        [this](TWriter& w) { w.WriteInteger(FTextHeight); }, true);
}

void TCustomForm::Notification(TComponent* component, TOperation operation)
{
    TScrollingWinControl::Notification(component, operation);
    if (operation == opRemove) {
        QzClearReference(FActiveControl, component);
        if (component == FMenu) {
            QzClearReference(FMenu, component);
            Realign();
        }
    }
}

// ---- Frames ------------------------------------------------------------------------

TCustomFrame::TCustomFrame(TComponent* owner) : TScrollingWinControl(owner)
{
    SetBounds(0, 0, 320, 240);
    SetColor(clBtnFace);
    SetParentColor(true);
}

void RegisterFormClasses()
{
    RegisterControlClasses();
    RegisterClasses({TScrollingWinControl::ClassInfo(), TCustomForm::ClassInfo(), TForm::ClassInfo(),
                     TCustomFrame::ClassInfo(), TFrame::ClassInfo()});
}
