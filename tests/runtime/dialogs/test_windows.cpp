// Centring a window over its parent or on the screen.

#include "runtime/dialogs/QzWindows.h"

#include "support/gui/QzTestApp.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {

class Placement : public TQzGuiTest {};

TEST_F(Placement, CentresOverTheParentWindowOrOnTheScreen)
{
    QWidget owner;
    owner.setGeometry(100, 120, 600, 400);
    owner.show();
    QWidget form(&owner, Qt::Dialog);
    form.resize(200, 100);
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();

    QzCenterWindow(&form, false);
    EXPECT_LE((form.frameGeometry().center() - owner.frameGeometry().center()).manhattanLength(), 2);
    QzCenterWindow(&form, true);
    EXPECT_LE((form.frameGeometry().center() - area.center()).manhattanLength(), 2);
    // A parent far off the screen does not take the form with it.
    owner.move(area.right() + 2000, area.bottom() + 2000);
    QzCenterWindow(&form, false);
    EXPECT_TRUE(area.contains(form.frameGeometry()));
}

} // namespace
