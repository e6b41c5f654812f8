#include "design/settings/Qzvtdisplay.h"

#include "design/controls/QzDisplayGeometryEdit.h"
#include "design/manager/Qzvtpkgloadsave.h"
#include "design/manager/Qzvtpkgsynchronizer.h"
#include "design/settings/QzDisplaySetsPanel.h"
#include "runtime/model/QzApplication.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QApplication>

TFrDisplay::TFrDisplay(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    QVBoxLayout* pages[] = {LayBackGrounds, LayColors, LayFonts};
    for (int i = 0; i < 3; ++i) {
        FPanels[i] = new TQzDisplaySetsPanel(PCSets->widget(i));
        FPanels[i]->setObjectName(QStringLiteral("Panel%1").arg(i));
        FPanels[i]->OnChanged = [this] { Modified(); };
        pages[i]->addWidget(FPanels[i]);
    }
    connect(BtSystemImages, &QPushButton::clicked, this, [this] { EditImages(FDisplay->PkgSystem()); });
    connect(BtUserImages, &QPushButton::clicked, this, [this] { EditImages(FDisplay->PkgUser()); });
    connect(BtHints, &QPushButton::clicked, this, [this] { RunSubDialog(TQzEditorDialog::Hints); });
    connect(BtCommonWnds, &QPushButton::clicked, this, [this] { RunSubDialog(TQzEditorDialog::CommonWnds); });
    connect(BtLoad, &QPushButton::clicked, this, &TFrDisplay::LoadClick);
    connect(BtSave, &QPushButton::clicked, this, &TFrDisplay::SaveClick);
    connect(BtSynchronize, &QPushButton::clicked, this, &TFrDisplay::SynchronizeClick);
    connect(EdDescription, &QLineEdit::editingFinished, this, &TFrDisplay::WriteDescription);
    connect(BtOk, &QPushButton::clicked, this, &TFrDisplay::accept);
}

void TFrDisplay::SetApplication(TQzCApplication* app, const TQzEditorDialogRequest& request)
{
    FApp = app;
    FDisplay = app ? app->PkgDisplay() : nullptr;
    FRequest = request;
    ShowPackage();
    for (TQzDisplaySetsPanel* panel : FPanels)
        panel->ForgetRenames();
}

TModalResult TFrDisplay::Execute()
{
    if (!FDisplay)
        return mrNone;
    return ShowModal();
}

void TFrDisplay::ShowPackage()
{
    if (!FDisplay)
        return;
    const TQzDisplaySetKind kinds[] = {TQzDisplaySetKind::BackGround, TQzDisplaySetKind::Color,
                                       TQzDisplaySetKind::Font};
    for (int i = 0; i < 3; ++i)
        FPanels[i]->SetSets(QzDisplaySets(*FDisplay, kinds[i]));
    const QSignalBlocker block(EdDescription);
    EdDescription->setText(QzQString(FDisplay->Description()));
    LabStorage->setText(FDisplay->InitMode() == imFile && !FDisplay->FileName().empty()
                            ? QzQString(FDisplay->FileName())
                            : QStringLiteral("the form (DFM)"));
}

void TFrDisplay::Modified()
{
    QzDisplayModified(FRequest, *FDisplay);
}

void TFrDisplay::WriteDescription()
{
    const AnsiString text = QzAnsiString(EdDescription->text());
    if (text == FDisplay->Description())
        return;
    if (QzRunReportingErrors(this, [&] { FDisplay->SetDescription(text); }))
        Modified();
}

void TFrDisplay::EditImages(TQzPkgImages* images)
{
    TQzEditorDialogRequest request;
    request.Package = images;
    request.Component = FApp;
    request.Designer = FRequest.Designer;
    // The images editor marks its own changes.
    QzRunEditorDialog(TQzEditorDialog::PkgImages, request);
    for (TQzDisplaySetsPanel* panel : FPanels)
        panel->LBSets->viewport()->update();
}

void TFrDisplay::RunSubDialog(TQzEditorDialog kind)
{
    TQzEditorDialogRequest request;
    request.Package = FDisplay;
    request.Component = FApp;
    request.Designer = FRequest.Designer;
    QzRunEditorDialog(kind, request);
}

void TFrDisplay::LoadClick()
{
    if (!QzExecutePkgLoadSave(FDisplay, TQzLoadSave::Load, this))
        return;
    // The loaded sets are not the ones renamed before.
    for (TQzDisplaySetsPanel* panel : FPanels)
        panel->ForgetRenames();
    ShowPackage();
    Modified();
}

void TFrDisplay::SaveClick()
{
    // Saving may move the package into its own file: the form changes too.
    if (QzExecutePkgLoadSave(FDisplay, TQzLoadSave::Save, this)) {
        ShowPackage();
        Modified();
    }
}

void TFrDisplay::SynchronizeClick()
{
    if (QzExecutePkgSynchronizer(FDisplay, this) == 1)
        ShowPackage();
}

void TFrDisplay::done(int result)
{
    WriteDescription();
    // The package was renamed as the user went and keeps it however the
    // window closes, so the controls follow however it closes too.
    for (TQzDisplaySetsPanel* panel : FPanels)
        panel->FollowRenames();
    if (FDisplay)
        QzRunReportingErrors(this, [this] { FDisplay->SaveFile(); });
    TQzDialog::done(result);
}

void RegisterQzvtdisplay()
{
    QzSetEditorDialog(TQzEditorDialog::Display, [](TQzEditorDialogRequest& request) {
        auto* app = dynamic_cast<TQzCApplication*>(request.Component);
        if (!app)
            app = QzCApp();
        if (!app)
            return 0;
        TFrDisplay form(QApplication::activeWindow());
        form.SetApplication(app, request);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
