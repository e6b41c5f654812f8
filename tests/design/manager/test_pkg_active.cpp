// The active-packages window: the order of its entries, making one the
// active one, and following the runtime when packages come and go.

#include "design/manager/QzPkgFilesReg.h"
#include "design/manager/Qzvtpkgactive.h"
#include "design/reg/QzEditorDialogs.h"
#include "runtime/model/QzGlobals.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/util/QzDesigner.h"

#include "support/gui/QzScreenshot.h"
#include "support/gui/QzTestApp.h"

#include <QAction>
#include <QListWidget>

#include <memory>

namespace {

class PkgActive : public TQzGuiTest {
protected:
    void SetUp() override
    {
        FForm = std::make_unique<TComponent>(nullptr);
        FForm->SetName("Form1");
    }
    void TearDown() override { QzFreePkgActiveWindows(); }

    TQzPkgStrings* Add(const AnsiString& pkgName, const AnsiString& name, bool onForm = true)
    {
        auto* pkg = new TQzPkgStrings(onForm ? FForm.get() : nullptr);
        if (!onForm)
            FLoose.emplace_back(pkg);
        pkg->SetName(name);
        pkg->SetPkgName(pkgName);
        return pkg;
    }

    // The entries of this test's packages, as "name (owner.component)", in
    // the order shown.
    std::vector<AnsiString> Mine(const std::vector<TQzActiveEntry>& entries) const
    {
        std::vector<AnsiString> shown;
        for (const TQzActiveEntry& e : entries)
            if (e.Object && (e.Object->Owner() == FForm.get() || IsLoose(e.Object)))
                shown.push_back(e.Name + " (" + e.OwnerName + "." + e.ComponentName + ")" + (e.Active ? "*" : ""));
        return shown;
    }

    bool IsLoose(const TComponent* c) const
    {
        for (const auto& pkg : FLoose)
            if (pkg.get() == c)
                return true;
        return false;
    }

    std::unique_ptr<TComponent> FForm;
    std::vector<std::unique_ptr<TQzPkgStrings>> FLoose;
};

TEST_F(PkgActive, EntriesSortByNameAndEqualNamesKeepTheirCreationOrder)
{
    Add("PkgBeta", "Strings1");
    Add("PkgAlpha", "Strings2", false);
    Add("PkgBeta", "Strings3");
    Add("pkgalpha", "Strings4");
    const std::vector<AnsiString> expected = {
        "PkgAlpha (nil.Strings2)",   // a second "alpha" took the name over
        "pkgalpha (Form1.Strings4)*",
        "PkgBeta (Form1.Strings1)",
        "PkgBeta (Form1.Strings3)*",
    };
    EXPECT_EQ(Mine(QzActiveEntries(akStrings)), expected);
}

TEST_F(PkgActive, TheWindowSelectsActivatesAndFollowsTheRuntime)
{
    TQzPkgStrings* first = Add("PkgLabels", "Strings1");
    TQzPkgStrings* second = Add("PkgLabels", "Strings2");
    const TQzEditorDialogOpener previous = QzSetEditorDialog(TQzEditorDialog::PkgActive, {});
    RegisterPkgFilesWindows();
    TQzEditorDialogRequest request;
    request.Package = first;
    ASSERT_EQ(QzRunEditorDialog(TQzEditorDialog::PkgActive, request), 1);
    auto* form = qobject_cast<TFrPkgActive*>(FrPkgStringsActive);
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->windowTitle(), "View PkgStrings");
    EXPECT_EQ(form->Selected(), first);

    // "&Active" on the inactive one of the two.
    ASSERT_FALSE(first->Active());
    form->Active1->trigger();
    EXPECT_TRUE(first->Active());
    EXPECT_FALSE(second->Active());
    EXPECT_EQ(form->Selected(), first);

    // A package created, then the broadcast: listed, the selection kept.
    const int before = form->ListBox->count();
    TQzPkgStrings* third = Add("PkgOther", "Strings3");
    QzFormsPerform(QzMasterMessage);
    EXPECT_EQ(form->ListBox->count(), before + 1);
    EXPECT_EQ(form->Selected(), first);
    if (qEnvironmentVariableIsSet("QZ_SCREENSHOT_DIR"))
        QzSaveScreenshot(form, qEnvironmentVariable("QZ_SCREENSHOT_DIR") + "/pkg-active.png");

    // The same window shows another package of its kind; freed, the slot
    // empties.
    request.Package = third;
    QzRunEditorDialog(TQzEditorDialog::PkgActive, request);
    EXPECT_EQ(FrPkgStringsActive, form);
    EXPECT_EQ(form->Selected(), third);
    QzFreePkgActiveWindows();
    EXPECT_EQ(FrPkgStringsActive, nullptr);
    QzSetEditorDialog(TQzEditorDialog::PkgActive, previous);
}

}  // namespace
