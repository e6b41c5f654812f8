#pragma once
// Pictures of windows for the documentation and for looking at a layout.

#include <QString>

class QWidget;

// Renders `window` (laid out first when it was never shown) into a PNG file;
// false when the file cannot be written.
bool QzSaveScreenshot(QWidget* window, const QString& fileName);
