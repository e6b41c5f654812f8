// The memory image chooser: what each way of closing it stores in the
// reference, how a reference that follows its default opens, and adding an
// image from the chooser.

#include "design/images/Qzvtmemoryimage.h"
#include "design/images/Qzvtmemoryimageadd.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPng.h"

#include "rtl/ComponentStream.h"
#include "support/gui/QzModalDriver.h"
#include "support/gui/QzScreenshot.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>

#include <memory>

namespace {

class MemoryImageChooser : public TQzGuiTest {
protected:
    void SetUp() override
    {
        RegisterQzStandardWindows();
        Pkg = std::make_unique<TQzPkgImages>(nullptr);
        Pkg->SetPkgName("ChooserIcons");
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(Qt::green);
        for (Integer id : {1, 2, 3})
            TQzPicture(Pkg->Images()->Add(id)).LoadFromBytes(QzPicturePng(picture).toStdString(), "green.png");
    }

    std::unique_ptr<TQzPkgImages> Pkg;
};

TEST_F(MemoryImageChooser, EachWayOfClosingStoresItsIdAndTheDefaultImageIsStoredAsDefault)
{
    const struct {
        const char* Name;
        std::function<void(TQzModalDriver&)> Steps;
        Integer Stored;
    } cases[] = {
        {"Null", [](TQzModalDriver& d) { d.Click("BtNull"); }, TQzMemoryRef::IdNone},
        {"Default", [](TQzModalDriver& d) { d.Click("BtDefault"); }, TQzMemoryRef::IdDefault},
        {"the default's Id", [](TQzModalDriver& d) { d.Type("EdId", "3").Click("BtOk"); }, TQzMemoryRef::IdDefault},
        {"another Id", [](TQzModalDriver& d) { d.Type("EdId", "2").Click("BtOk"); }, 2},
        {"Cancel", [](TQzModalDriver& d) { d.Type("EdId", "2").Click("BtCancel"); }, 1},
        {"Escape", [](TQzModalDriver& d) { d.Escape(); }, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        TQzMemoryImage ref("ChooserIcons", 3, true);
        ref.PkgId("ChooserIcons", 1);
        TQzModalDriver driver;
        c.Steps(driver);
        TFrMemoryImage form;
        form.SetMemoryImage(&ref);
        form.Execute();
        EXPECT_TRUE(driver.Finished());
        EXPECT_EQ(ref.Id(), c.Stored);
        EXPECT_EQ(ref.PkgName(), "ChooserIcons");
    }
}

TEST_F(MemoryImageChooser, AReferenceThatFollowsItsDefaultOpensOnTheDefaultsImage)
{
    TQzMemoryImage ref("ChooserIcons", 2, true);
    ASSERT_EQ(ref.Id(), TQzMemoryRef::IdDefault);
    ref.SetPkgName("Elsewhere");
    TQzModalDriver driver;
    driver.Then("check", [](QWidget* w) {
        auto* form = qobject_cast<TFrMemoryImage*>(w);
        EXPECT_EQ(form->EdPkg->currentText(), "ChooserIcons");
        EXPECT_EQ(form->EdId->text(), "2");
        ASSERT_NE(form->Images->SelectedImage(), nullptr);
        EXPECT_EQ(form->Images->SelectedImage()->Id(), 2);
        EXPECT_TRUE(form->BtModify->isEnabled());
    }).Click("BtOk");
    TFrMemoryImage form;
    form.SetMemoryImage(&ref);
    EXPECT_EQ(form.Execute(), mrOk);
    EXPECT_EQ(ref.Id(), TQzMemoryRef::IdDefault);
}

TEST_F(MemoryImageChooser, AnImageAddedIsTheOneChosenAndDeletingTheLastChoosesTheNewLast)
{
    TQzMemoryImage ref;
    ref.PkgId("ChooserIcons", 1);
    TQzModalDriver driver;
    // Ok in the add dialog (its first free Id), then Ok in the chooser.
    driver.Click("BtAdd").Click("BtOk").Click("BtOk");
    TFrMemoryImage form;
    form.SetMemoryImage(&ref);
    form.Execute();
    EXPECT_EQ(ref.Id(), 0);  // the first free Id
    ASSERT_NE(Pkg->Images()->FindId(0), nullptr);
    EXPECT_EQ(Pkg->Images()->Count(), 4);

    ref.PkgId("ChooserIcons", 3);
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);  // delete image 3?
    driver.Click("BtDelete").Click("BtOk");
    form.Execute();
    EXPECT_EQ(Pkg->Images()->FindId(3), nullptr);
    EXPECT_EQ(ref.Id(), 2);
}

// The demo project's images are chosen from (and, when asked for, give
// the pictures of the user guide).
TEST_F(MemoryImageChooser, TheDemoProjectsImagesAreChosenFrom)
{
    RegisterQzComponentClasses();
    QFile file(QFileInfo(QStringLiteral(__FILE__)).absoluteDir().filePath(QStringLiteral("../../../examples/demo/Main.dfm")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::unique_ptr<TComponent> main = ReadForm(file.readAll().toStdString());
    const QString shots = qEnvironmentVariable("QZ_SCREENSHOT_DIR");
    TQzMemoryImage ref;
    ref.PkgId("DEMO", 4);
    TQzModalDriver driver;
    driver.Then("shot", [&shots](QWidget* w) {
        EXPECT_EQ(qobject_cast<TFrMemoryImage*>(w)->Images->GridModel()->rowCount(), 6);
        if (!shots.isEmpty())
            QzSaveScreenshot(w, shots + "/memory-image.png");
    })
        .Click("BtModify")
        .Then("shot", [&shots](QWidget* w) {
            EXPECT_EQ(qobject_cast<TFrMemoryImageAdd*>(w)->EdId->text(), "4");
            if (!shots.isEmpty())
                QzSaveScreenshot(w, shots + "/memory-image-add.png");
        })
        .Click("BtCancel")
        .Click("BtOk");
    TFrMemoryImage form;
    form.resize(520, 400);
    form.SetMemoryImage(&ref);
    EXPECT_EQ(form.Execute(), mrOk);
    EXPECT_EQ(ref.Id(), 4);
}

}  // namespace
