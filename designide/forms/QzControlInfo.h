#pragma once
// What the form designer needs to know of a component to draw and move it:
// its bounds, its caption or text and the kind of control it looks like.
// Registered classes are asked through their published properties; a
// component whose class is not registered still has the values it was read
// with, so it is drawn where the form file puts it, but it cannot be moved.

#include "rtl/Component.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

// How a control is drawn, chosen from its class name.
enum class TQzLook {
    Box,          // a labelled box: class name and name
    Label,
    Edit,
    Memo,
    Button,
    CheckBox,
    RadioButton,
    Panel,
    GroupBox,
    ListBox,
    ComboBox,
    Image,
    PageControl,
    TabSheet,
};

TQzLook QzLookOf(const AnsiString& className);

// An integer property, published or as read from the form file.
std::optional<Integer> QzIntegerValue(TComponent* component, const AnsiString& name);
// The text a control shows for a property: a string, an identifier, or the
// first line of a list; empty when it has none.
AnsiString QzTextValue(TComponent* component, const AnsiString& name);

// The component placed directly on parent under name; nullptr when none
// (or name is empty).
TComponent* QzChildNamed(TComponent* parent, const AnsiString& name);
// What a component shows as its title: its caption, else its label's
// text, else its name.
AnsiString QzShownCaption(TComponent* component);

// A control has bounds and sits on a parent; everything else the form owns
// is non-visual and shown as an icon.
bool QzIsControl(TComponent* component);
// A control that holds other controls: panels, group boxes, page sheets.
bool QzIsContainer(TComponent* component);
// A control that shows one of its controls at a time behind a row of tabs:
// a page control by its class's name, or a control of a class we do not
// know whose ActivePage names one of its controls.
bool QzIsPageControl(TComponent* component);
// Left, Top, Width and Height relative to the parent.
QRect QzControlBounds(TComponent* component);
// A control whose bounds the designer can change (its class is registered).
bool QzCanMove(TComponent* component);
void QzSetControlBounds(TComponent* component, const QRect& bounds);

// Where a non-visual component's icon is: its DesignInfo (low 16 bits
// left, high 16 bits top), or the Left and Top it was read with.
QPoint QzIconPosition(TComponent* component);
bool QzCanMoveIcon(TComponent* component);
void QzSetIconPosition(TComponent* component, const QPoint& position);
// The side of the square a non-visual component is shown as.
inline constexpr int QzIconSize = 28;
// Where a component lies within its parent: a control's bounds, a
// non-visual component's icon.
QRect QzDesignRect(TComponent* component);

// The client area's size of a root (a form's client size, a frame's size).
QSize QzClientSize(TComponent* root);
// A root that holds only non-visual components and is no window (no
// caption, no client size): a data module, drawn as a plain white area of
// its width and height.
bool QzIsDataModule(TComponent* root);
// The caption a form shows in its title bar.
AnsiString QzFormCaption(TComponent* root);
