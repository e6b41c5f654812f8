#pragma once
// How the form designer draws a control: its look, chosen from its class
// name, with its caption or text. What it reads of the component is in
// designide/forms/QzControlInfo.h, which the window's code gets from here.

#include "designide/forms/QzControlInfo.h"

class QPainter;

// Paints a control (its look, its caption or text) into rect.
void QzPaintControl(QPainter& painter, TComponent* component, const QRect& rect);
