// Window placement over a parent, and the designer's modified hook.

#include "runtime/util/QzDesigner.h"
#include "runtime/util/QzWindows.h"

#include "rtl/Component.h"
#include "support/gui/QzTestApp.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <vector>

namespace {

class Placement : public TQzGuiTest {};

TEST_F(Placement, CentresOverTheParentWindowOrOnTheScreen)
{
    QWidget owner;
    owner.setGeometry(100, 120, 600, 400);
    owner.show();
    QWidget form(&owner, Qt::Dialog);
    form.resize(200, 100);

    QzCenterWindow(&form, false);
    EXPECT_LE((form.frameGeometry().center() - owner.frameGeometry().center()).manhattanLength(), 2)
        << "over its parent window";

    QzCenterWindow(&form, true);
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_LE((form.frameGeometry().center() - area.center()).manhattanLength(), 2) << "on the screen";

    // A parent far off the screen does not take the form with it.
    owner.move(area.right() + 2000, area.bottom() + 2000);
    QzCenterWindow(&form, false);
    EXPECT_TRUE(area.contains(form.frameGeometry())) << "kept on a screen the user can see";
}

TEST(Designer, ModifiedReachesTheInstalledHookOnlyWithAnOwner)
{
    std::vector<TComponent*> told;
    TQzDesignerModifiedHook previous =
        SetQzDesignerModifiedHook([&](TComponent* owner) { told.push_back(owner); });
    TComponent form(nullptr);
    QzDesignerModified(&form);
    QzDesignerModified(nullptr);
    EXPECT_EQ(told, std::vector<TComponent*>{&form});

    SetQzDesignerModifiedHook(previous);
    QzDesignerModified(&form);  // no hook: nothing happens, nothing breaks
    EXPECT_EQ(told.size(), 1u);
}

} // namespace
