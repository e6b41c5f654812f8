#include "support/gui/QzScreenshot.h"

#include <QLayout>
#include <QPixmap>
#include <QWidget>

bool QzSaveScreenshot(QWidget* window, const QString& fileName)
{
    window->ensurePolished();
    if (window->layout() != nullptr)
        window->layout()->activate();
    if (!window->isVisible() && !window->testAttribute(Qt::WA_Resized))
        window->adjustSize();
    return window->grab().save(fileName, "PNG");
}
