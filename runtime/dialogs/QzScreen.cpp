#include "runtime/dialogs/QzScreen.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QWidget>

#include <vector>

namespace {

TQzScreen TheScreen;

// The windows whose painting the outermost BeginUpdate stopped; a window
// closed meanwhile drops out by itself.
std::vector<QPointer<QWidget>>& Frozen()
{
    static std::vector<QPointer<QWidget>> windows;
    return windows;
}

QScreen* Primary()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) ? QGuiApplication::primaryScreen() : nullptr;
}

}  // namespace

TQzScreen* const QzScreen = &TheScreen;

void TQzScreen::BeginUpdate()
{
    if (FUpdateCount++ > 0 || !qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->updatesEnabled()) {
            window->setUpdatesEnabled(false);
            Frozen().emplace_back(window);
        }
}

void TQzScreen::EndUpdate()
{
    if (FUpdateCount == 0 || --FUpdateCount > 0 || !qobject_cast<QApplication*>(QCoreApplication::instance()))
        return;
    for (const QPointer<QWidget>& window : Frozen())
        if (window)
            window->setUpdatesEnabled(true);
    Frozen().clear();
    QApplication::restoreOverrideCursor();
}

int TQzScreen::Width() const
{
    QScreen* screen = Primary();
    return screen ? screen->availableGeometry().width() : 0;
}

int TQzScreen::Height() const
{
    QScreen* screen = Primary();
    return screen ? screen->availableGeometry().height() : 0;
}

int TQzScreen::PixelsPerInch() const
{
    QScreen* screen = Primary();
    return screen ? qRound(screen->logicalDotsPerInch()) : 0;
}
