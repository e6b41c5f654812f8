// The images editor and the import window driven as a user drives them:
// finding by Id, deleting and clearing, protection in the "System" package,
// refused files, the printed report, and an import that fills free Ids.

#include "design/images/QzImagesViewMenu.h"
#include "design/images/Qzvtimportimages.h"
#include "design/images/Qzvtpkgimages.h"
#include "design/images/Qzvtupdatesystemimages.h"
#include "rtl/ComponentStream.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPng.h"

#include "design/QzDesignWindowTest.h"
#include "support/gui/QzScreenshot.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

std::string Png(int side)
{
    QImage picture(side, side, QImage::Format_RGB32);
    picture.fill(qRgb(side * 3 % 256, 90, 200));
    return QzPicturePng(picture).toStdString();
}

void Fill(TQzPkgImages& package, std::initializer_list<Integer> ids)
{
    for (Integer id : ids)
        TQzPicture(package.Images()->Add(id)).LoadFromBytes(Png(8 + id), "test.png");
}

std::vector<Integer> Ids(const TQzPkgImages& package)
{
    std::vector<Integer> ids;
    for (const TQzPkgImagesImage* image : QzImagesSorted(package))
        ids.push_back(image->Id());
    return ids;
}

TFrPkgImages* Editor(QWidget* w) { return QzWindowAs<TFrPkgImages>(w); }

QString Status(QWidget* w)
{
    return TQzModalDriver::Find<QStatusBar>(w, "StatusBar1")->currentMessage();
}

class ImagesWindow : public TQzGuiTest {
protected:
    void SetUp() override
    {
        RegisterQzStandardWindows();
        RegisterQzPkgFileFormats();
        FForm = std::make_unique<TComponent>(nullptr);
        FPackage = new TQzPkgImages(FForm.get());
        FPackage->SetPkgName("Icons");
        Fill(*FPackage, {12, 3, 7});
    }

    TModalResult Run(TQzModalDriver& driver, TQzPkgImages* package = nullptr)
    {
        TFrPkgImages form;
        form.SetPackage(package ? package : FPackage);
        const TModalResult result = form.Execute();
        EXPECT_TRUE(driver.Finished());
        return result;
    }

    QString Path(const char* name) const { return FDir.filePath(name); }

    std::unique_ptr<TComponent> FForm;
    TQzPkgImages* FPackage = nullptr;  // owned by the form
    TQzMarkedLog FMarks;
    QTemporaryDir FDir;
};

TEST_F(ImagesWindow, TypingAnIdSelectsItsImageAndAClickWritesTheId)
{
    TQzModalDriver driver;
    driver.Type("EdId", "7")
        .Then("the typed Id is selected",
              [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Package : Icons");
                  EXPECT_EQ(Status(w).left(9), "3 Images ");
                  ASSERT_NE(Editor(w)->Images->SelectedImage(), nullptr);
                  EXPECT_EQ(Editor(w)->Images->SelectedImage()->Id(), 7);
                  EXPECT_TRUE(Editor(w)->BtModify->isEnabled());
              })
        .Type("EdId", "5")
        .Then("an Id no image has selects nothing",
              [](QWidget* w) {
                  EXPECT_EQ(Editor(w)->Images->SelectedRow(), -1);
                  EXPECT_FALSE(Editor(w)->BtModify->isEnabled());
                  EXPECT_FALSE(Editor(w)->BtDelete->isEnabled());
              })
        .Then("a click on the last cell",
              [](QWidget* w) {
                  TFrPkgImages* form = Editor(w);
                  const QRect cell = form->Images->visualRect(form->Images->GridModel()->index(2));
                  QTest::mouseClick(form->Images->viewport(), Qt::LeftButton, {}, cell.center());
                  EXPECT_EQ(form->EdId->text(), "12");
                  EXPECT_TRUE(form->BtDelete->isEnabled());
              })
        .Click("BtOk");
    EXPECT_EQ(Run(driver), mrOk);
}

TEST_F(ImagesWindow, AddedAndRenumberedImagesAreSelectedUnderTheirNewIds)
{
    QImage picture(24, 24, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    ASSERT_TRUE(picture.save(Path("new.png")));
    TQzTestDialogs dialogs;
    dialogs->AnswerOpenPictures({Path("new.png").toStdString()});
    TQzModalDriver driver;
    driver.Click("BtAdd")
        .Then("the free Id is offered",
              [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Add Image");
                  EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdId")->text(), "0");
              })
        .Click("BtLoad")
        .Click("BtOk")
        .Then("the new image is selected",
              [](QWidget* w) {
                  EXPECT_EQ(Editor(w)->EdId->text(), "0");
                  EXPECT_EQ(Editor(w)->Images->SelectedImage()->Width(), 24);
                  EXPECT_EQ(Status(w).left(9), "4 Images ");
              })
        .Type("EdId", "7")
        .Click("BtModify")
        .Then("renumber", [](QWidget* w) { EXPECT_EQ(w->windowTitle(), "Modify Image"); })
        .Type("EdId", "40")
        .Click("BtOk")
        .Then("the image moved to its new place",
              [](QWidget* w) {
                  EXPECT_EQ(Editor(w)->EdId->text(), "40");
                  EXPECT_EQ(Editor(w)->Images->SelectedRow(), 3);
              })
        .Click("BtOk");
    Run(driver);
    EXPECT_EQ(Ids(*FPackage), (std::vector<Integer>{0, 3, 12, 40}));
}

TEST_F(ImagesWindow, DeletingAsksAndPassesTheSelectionOnThenClearAllEmptiesThePackage)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbCancel).AnswerMessage(mbOK).AnswerMessage(mbOK).AnswerMessage(mbOK);
    TQzModalDriver driver;
    driver.Type("EdId", "12")
        .Click("BtDelete")
        .Then("a cancelled delete keeps the image", [this](QWidget*) { EXPECT_EQ(Ids(*FPackage), (std::vector<Integer>{3, 7, 12})); })
        .Click("BtDelete")
        .Then("the new last row is selected",
              [this](QWidget* w) {
                  EXPECT_EQ(Ids(*FPackage), (std::vector<Integer>{3, 7}));
                  EXPECT_EQ(Editor(w)->EdId->text(), "7");
                  EXPECT_EQ(Editor(w)->Images->SelectedImage()->Id(), 7);
                  EXPECT_EQ(Status(w).left(9), "2 Images ");
              })
        .Then("the manager removes an image",
              [this](QWidget* w) {
                  Editor(w)->DeleteItem(FPackage->Images()->FindId(3));
                  EXPECT_EQ(Ids(*FPackage), std::vector<Integer>{7});
              })
        .Click("BtDelete")
        .Then("deleting the only row leaves the Id box empty",
              [](QWidget* w) {
                  EXPECT_EQ(Editor(w)->EdId->text(), "");
                  EXPECT_EQ(Status(w), "0 Images (0 Bytes) ");
              })
        .Then("refill", [this](QWidget*) { Fill(*FPackage, {1, 2}); })
        .Click("BtClear")
        .Then("three deletes and the clear are marked", [this](QWidget*) { EXPECT_EQ(FMarks.Marked, std::vector<TComponent*>(4, FForm.get())); })
        .Click("BtOk");
    Run(driver);
    EXPECT_TRUE(FPackage->Images()->Count() == 0);
    const auto asked = dialogs->CallsOf(TQzDialogKind::Message);
    ASSERT_EQ(asked.size(), 4u);
    EXPECT_EQ(asked[3].Message.DefaultButton, mbCancel) << "clearing defaults to Cancel";
}

TEST_F(ImagesWindow, ProtectionIsOfferedOnlyInTheSystemPackageAndOnlyChangedWhileAllowed)
{
    auto* app = new TQzCApplication(FForm.get());
    auto* system = new TQzPkgImages(FForm.get());
    app->SetSystemEdit(true);
    system->SetPkgName("System");
    Fill(*system, {1, 2});
    app->SetSystemEdit(false);
    const auto protectedCount = [system] {
        int n = 0;
        for (const TQzPkgImagesImage* image : QzImagesSorted(*system))
            n += image->Protected();
        return n;
    };

    const struct {
        TQzPkgImages* Package;
        bool SystemEdit, Shown, Editable;
    } cases[] = {
        {FPackage, false, false, true},
        {system, false, true, false},
        {system, true, true, true},
    };
    for (const auto& c : cases) {
        app->SetSystemEdit(c.SystemEdit);
        TQzModalDriver driver;
        driver
            .Then("states",
                  [&c](QWidget* w) {
                      TFrPkgImages* form = Editor(w);
                      EXPECT_EQ(form->MnProtected->isVisible(), c.Shown);
                      EXPECT_EQ(form->MnProtectAllImages->isVisible(), c.Shown);
                      EXPECT_EQ(form->MnProtectAllImages->isEnabled(), c.SystemEdit);
                      EXPECT_EQ(form->BtAdd->isEnabled(), c.Editable);
                      EXPECT_EQ(form->BtClear->isEnabled(), c.Editable);
                      EXPECT_EQ(form->BtLoadFrom->isEnabled(), c.Editable);
                      EXPECT_EQ(form->MnImport->isEnabled(), c.Editable);
                      if (c.Shown && c.SystemEdit)
                          form->MnProtectAllImages->trigger();
                  })
            .Escape();
        Run(driver, c.Package);
    }
    EXPECT_EQ(protectedCount(), 2);
}

TEST_F(ImagesWindow, TheViewMenuDrivesTheGridAndOffersProtectionOnlyWhereAsked)
{
    for (const bool withProtected : {true, false}) {
        SCOPED_TRACE(withProtected);
        QWidget owner;
        auto* grid = new TQzImagesGrid(&owner);
        TQzImagesViewActions view;
        view.CreateViewMenu(&owner, grid, withProtected);
        const TQzImagesGridOptions& options = grid->GridDelegate()->Options();
        EXPECT_EQ(view.MnProtected != nullptr, withProtected);
        EXPECT_TRUE(view.MnWH->isChecked());
        view.MnTransparent->setChecked(true);
        view.MnStretch->setChecked(true);
        EXPECT_TRUE(options.Transparent && options.Stretch);
        view.MnSize->setChecked(true);
        EXPECT_FALSE(view.MnWH->isChecked()) << "the last line shows one thing";
        EXPECT_EQ(options.Line, TQzImagesLine::Size);
        if (view.MnProtected) {
            view.MnProtected->setChecked(true);
            EXPECT_EQ(options.Line, TQzImagesLine::Protected);
        }
        view.MnWH->setChecked(true);
        EXPECT_EQ(options.Line, TQzImagesLine::WidthHeight);
    }
}

TEST_F(ImagesWindow, ADamagedPackageFileIsRefusedAndThePackageKept)
{
    QFile damaged(Path("damaged.pim"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("not a package at all");
    damaged.close();
    const AnsiString name = Path("damaged.pim").toStdString();

    TQzTestDialogs dialogs;
    dialogs->AnswerOpen({name}).AnswerMessage(mbOK);
    TQzModalDriver driver;
    driver.Click("BtLoadFrom")
        .Then("nothing marked modified", [this](QWidget*) { EXPECT_EQ(FMarks.Count(), 0); })
        .Click("BtOk");
    Run(driver);
    EXPECT_EQ(Ids(*FPackage), (std::vector<Integer>{3, 7, 12}));
    const auto errors = dialogs->CallsOf(TQzDialogKind::Message);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_NE(errors[0].Message.Text.find("damaged.pim"), std::string::npos) << errors[0].Message.Text;
    EXPECT_EQ(dialogs->CallsOf(TQzDialogKind::OpenFiles)[0].File.Filter,
              "Package Images (*.pim)|*.pim|All files (*.*)|*.*");
}

// Through the printer set-up, or straight to a PDF file the user names.
TEST_F(ImagesWindow, TheReportPrintsTheHeadingAndEveryCell)
{
    for (const bool toPrinter : {true, false}) {
        const QString pdf = Path(toPrinter ? "printed.pdf" : "saved.pdf");
        TQzTestDialogs dialogs;
        TQzModalDriver driver;
        if (toPrinter) {
            dialogs->PrintTo(pdf.toStdString()).AnswerPrinterSetup(true);
            driver.Click("BtReport");
        } else {
            dialogs->AnswerSave(pdf.toStdString());
            driver.Then("save", [](QWidget* w) { Editor(w)->MnReportPdf->trigger(); });
        }
        driver.Click("BtOk");
        Run(driver);
        ASSERT_TRUE(QFile::exists(pdf)) << toPrinter;
        if (QStandardPaths::findExecutable("pdftotext").isEmpty())
            GTEST_SKIP() << "pdftotext is not installed: the text was not checked";
        QProcess process;
        process.start("pdftotext", {pdf, "-"});
        ASSERT_TRUE(process.waitForFinished());
        const QString text = QString::fromUtf8(process.readAllStandardOutput());
        EXPECT_TRUE(text.contains("**** Images Report ****")) << text.toStdString();
        for (const char* line : {"3", "7", "12", "(11x11)", "(20x20)"})
            EXPECT_TRUE(text.contains(line)) << line;
    }
}

TEST_F(ImagesWindow, ImportFillsFreeIdsFromTheIdAsked)
{
    TQzPkgImages source(nullptr);
    Fill(source, {1, 2, 5});
    const AnsiString file = Path("source.pim").toStdString();
    source.SaveToFile(file);
    TFrImportImages::SetLastFileName("");

    TQzTestDialogs dialogs;
    dialogs->AnswerOpen({file});
    TQzModalDriver driver;
    driver.Then("import", [](QWidget* w) { Editor(w)->MnImport->trigger(); })
        .Click("BtLoadFrom")
        .Then("select the first and last",
              [](QWidget* w) {
                  auto* grid = TQzModalDriver::Find<TQzImagesGrid>(w, "Images");
                  ASSERT_EQ(grid->GridModel()->rowCount(), 3);
                  grid->selectionModel()->select(grid->GridModel()->index(0), QItemSelectionModel::Select);
                  grid->selectionModel()->select(grid->GridModel()->index(2), QItemSelectionModel::Select);
              })
        .Click("BtOk")
        .Then("the first free Id is offered",
              [](QWidget* w) { EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdId")->text(), "0"); })
        .SetText("EdId", "6")
        .Click("BtOk")
        .Then("back in the editor", [](QWidget* w) { EXPECT_EQ(Status(w).left(9), "5 Images "); })
        .Click("BtOk");
    Run(driver);
    EXPECT_EQ(Ids(*FPackage), (std::vector<Integer>{3, 6, 7, 8, 12}));
    EXPECT_EQ(FPackage->Images()->FindId(8)->Width(), 8 + 5) << "source 5 went to the second free Id";
    TFrImportImages::SetLastFileName("");
}

// Opened from the display editor the editor shows no file commands and
// leaves the marking of the form to that editor.
TEST_F(ImagesWindow, ThePlacementIsKeptInThePackageAndMarkedUnlessEmbedded)
{
    for (const bool embedded : {false, true}) {
        FMarks.Marked.clear();
        TQzModalDriver driver;
        driver
            .Then("move",
                  [embedded](QWidget* w) {
                      EXPECT_EQ(TQzModalDriver::Find<QPushButton>(w, "BtLoad")->isVisible(), !embedded);
                      w->move(w->pos() + QPoint(10, 10));
                  })
            .Click("BtOk");
        TFrPkgImages form;
        form.SetPackage(FPackage);
        form.SetEmbedded(embedded);
        const TQzWindowPlacement before = FPackage->Placement();
        EXPECT_EQ(before.IsPlaced(), embedded) << "a new package was never placed";
        form.Execute();
        EXPECT_FALSE(FPackage->Placement() == before) << embedded;
        EXPECT_EQ(FMarks.Count(), embedded ? 0 : 1) << embedded;
    }
}

TEST_F(ImagesWindow, SystemImagesAreRefreshedFromAnExistingDisplayFileOnly)
{
    auto* app = new TQzCApplication(FForm.get());
    app->SetSystemEdit(true);
    const AnsiString file = Path("standard.dis").toStdString();
    {
        TQzPkgDisplay base(nullptr);
        Fill(*base.PkgSystem(), {1, 2});
        base.SaveToFile(file);
    }
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    TQzModalDriver driver;
    driver.SetText("Edit1", Path("missing.dis"))
        .Click("BtOk")
        .SetText("Edit1", QString::fromStdString(file))
        .Click("BtOk");
    TFrUpdateSystemImages form;
    form.SetApplication(app);
    EXPECT_EQ(form.Execute(), mrOk);
    EXPECT_EQ(dialogs->CallsOf(TQzDialogKind::Message).at(0).Message.Text, "Invalidate FileName");
    EXPECT_EQ(Ids(*app->PkgDisplay()->PkgSystem()), (std::vector<Integer>{1, 2}));
    EXPECT_EQ(app->PkgDisplay()->LastUpdateFile(), file);
}

// The demo project's images package opens in the editor (and, when asked
// for, gives the pictures of the user guide).
TEST_F(ImagesWindow, TheDemoProjectsImagesOpen)
{
    RegisterQzComponentClasses();
    const QString demo =
        QFileInfo(QStringLiteral(__FILE__)).absoluteDir().filePath(QStringLiteral("../../../examples/demo/Main.dfm"));
    QFile file(demo);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::unique_ptr<TComponent> main = ReadForm(file.readAll().toStdString());
    auto* package = dynamic_cast<TQzPkgImages*>(main->FindComponent("PkgImages"));
    ASSERT_NE(package, nullptr);
    EXPECT_EQ(Ids(*package), (std::vector<Integer>{1, 2, 3, 4, 5, 6}));
    TQzPkgImages source(nullptr);
    Fill(source, {20, 21, 22});
    source.SaveToFile(Path("more.pim").toStdString());
    TFrImportImages::SetLastFileName(Path("more.pim").toStdString());
    const QString shots = qEnvironmentVariable("QZ_SCREENSHOT_DIR");
    TQzModalDriver driver;
    driver.Type("EdId", "4")
        .Then("shot",
              [&shots](QWidget* w) {
                  if (!shots.isEmpty())
                      QzSaveScreenshot(w, shots + "/images-editor.png");
              })
        .Then("import", [](QWidget* w) { Editor(w)->MnImport->trigger(); })
        .Then("shot",
              [&shots](QWidget* w) {
                  auto* grid = TQzModalDriver::Find<TQzImagesGrid>(w, "Images");
                  EXPECT_EQ(grid->GridModel()->rowCount(), 3) << "the last import's file is read again";
                  grid->selectionModel()->select(grid->GridModel()->index(1), QItemSelectionModel::Select);
                  if (!shots.isEmpty())
                      QzSaveScreenshot(w, shots + "/images-import.png");
              })
        .Click("BtCancel")
        .Escape();
    TFrPkgImages form;
    form.resize(520, 400);
    form.SetPackage(package);
    form.Execute();
    TFrImportImages::SetLastFileName("");
}

}  // namespace
