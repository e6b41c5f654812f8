#pragma once
// The roots a form file describes: a form with its frame, caption and
// window settings, and a frame (a reusable piece of a form). A designed
// form is loaded into one of these and written back from it.

#include "runtime/components/Controls.h"
#include "rtl/WindowPlacement.h"

class TMainMenu;

// A windowed control whose contents may be larger than itself and scroll.
class TScrollingWinControl : public TWinControl {
    QZ_CLASS(TScrollingWinControl, TWinControl)

public:
    explicit TScrollingWinControl(TComponent* owner) : TWinControl(owner) {}

    bool AutoScroll() const { return FAutoScroll; }
    void SetAutoScroll(bool value) { FAutoScroll = value; }

private:
    static void DeclareProperties(TClassBuilder<TScrollingWinControl>& b);

    bool FAutoScroll = true;
};

enum TBorderIcon { biSystemMenu, biMinimize, biMaximize, biHelp };
using TBorderIcons = TEnumSet<TBorderIcon>;
const TTypeInfo* TypeInfo_TBorderIcon();
const TTypeInfo* TypeInfo_TBorderIcons();

enum TFormStyle { fsNormal, fsMDIChild, fsMDIForm, fsStayOnTop };
const TTypeInfo* TypeInfo_TFormStyle();

enum TPosition {
    poDesigned, poDefault, poDefaultPosOnly, poDefaultSizeOnly,
    poScreenCenter, poDesktopCenter, poMainFormCenter, poOwnerFormCenter,
};
const TTypeInfo* TypeInfo_TPosition();

const TTypeInfo* TypeInfo_TWindowState();

const TTypeInfo* TypeInfo_TCloseEvent();
const TTypeInfo* TypeInfo_TCloseQueryEvent();

// A main menu's bar in the classic metrics the forms were designed with.
inline constexpr Integer QzClassicMenuBarHeight = 19;

class TCustomForm : public TScrollingWinControl {
    QZ_CLASS(TCustomForm, TScrollingWinControl)

public:
    explicit TCustomForm(TComponent* owner);

    // The inside of the window: its size less the frame and caption that
    // the border style gives (the classic Windows metrics), the border
    // width on every side and the menu bar.
    Integer ClientWidth() const override { return Width() - FrameWidth(); }
    Integer ClientHeight() const override { return Height() - FrameHeight() - MenuBarHeight(); }
    void SetClientWidth(Integer value) { SetWidth(value + FrameWidth()); }
    void SetClientHeight(Integer value);
    Integer FrameWidth() const;
    Integer FrameHeight() const;
    // A form with a main menu shows its bar between caption and client.
    Integer MenuBarHeight() const;

    TFormBorderStyle BorderStyle() const { return FBorderStyle; }
    // The frame changes the client area, so the aligned controls follow.
    void SetBorderStyle(TFormBorderStyle value);
    Integer BorderWidth() const { return FBorderWidth; }
    // The window keeps its size; the client area gives up the border.
    void SetBorderWidth(Integer value);
    TBorderIcons BorderIcons() const { return FBorderIcons; }
    void SetBorderIcons(TBorderIcons value) { FBorderIcons = value; }
    TPosition Position() const { return FPosition; }
    void SetPosition(TPosition value) { FPosition = value; }
    TFormStyle FormStyle() const { return FFormStyle; }
    void SetFormStyle(TFormStyle value) { FFormStyle = value; }

    TWinControl* ActiveControl() const { return FActiveControl; }
    void SetActiveControl(TWinControl* value);
    TMainMenu* Menu() const { return FMenu; }
    // The window keeps its size; the client area gives up the menu bar.
    void SetMenu(TMainMenu* value);

    // Written after the published properties, as the class library does:
    // the screen density the form was designed at and the height of a line
    // of its font there.
    Integer PixelsPerInch() const { return FPixelsPerInch; }
    void SetPixelsPerInch(Integer value) { FPixelsPerInch = value; }
    Integer TextHeight() const { return FTextHeight; }
    void SetTextHeight(Integer value) { FTextHeight = value; }
    void DefineProperties(TFiler& filer) override;

    void Notification(TComponent* component, TOperation operation) override;
    void Loaded() override;

private:
    static void DeclareProperties(TClassBuilder<TCustomForm>& b);
    // The size is stored while the form scrolls, the client size otherwise.
    bool IsFormSizeStored() const { return AutoScroll(); }
    bool IsClientSizeStored() const { return !AutoScroll(); }

    TFormBorderStyle FBorderStyle = bsSizeable;
    TBorderIcons FBorderIcons{biSystemMenu, biMinimize, biMaximize};
    Integer FBorderWidth = 0;
    // The client height a form file gave, applied once the menu it names
    // is known; -1 when the file gave the window's height instead.
    Integer FStreamedClientHeight = -1;
    bool FCtl3D = true;
    TFormStyle FFormStyle = fsNormal;
    AnsiString FHelpFile;
    bool FKeyPreview = false;
    bool FOldCreateOrder = false;
    TPosition FPosition = poDesigned;
    bool FScaled = true;
    TWindowState FWindowState = wsNormal;
    TWinControl* FActiveControl = nullptr;
    TMainMenu* FMenu = nullptr;
    Integer FPixelsPerInch = 96;
    Integer FTextHeight = 13;
};

class TForm : public TCustomForm {
    QZ_CLASS(TForm, TCustomForm)

public:
    explicit TForm(TComponent* owner) : TCustomForm(owner) {}
};

class TCustomFrame : public TScrollingWinControl {
    QZ_CLASS(TCustomFrame, TScrollingWinControl)

public:
    explicit TCustomFrame(TComponent* owner);
};

class TFrame : public TCustomFrame {
    QZ_CLASS(TFrame, TCustomFrame)

public:
    explicit TFrame(TComponent* owner) : TCustomFrame(owner) {}
};

// Registers the form and frame roots (and the control bases); safe to call again.
void RegisterFormClasses();
