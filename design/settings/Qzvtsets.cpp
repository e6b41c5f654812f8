#include "design/settings/Qzvtsets.h"

#include "design/reg/QzEditorDialogs.h"
#include "design/settings/QzDisplaySetsPanel.h"
#include "runtime/model/QzApplication.h"
#include "runtime/util/QzDesigner.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QApplication>
#include <QListWidget>

namespace {

std::unique_ptr<TQzPkgDisplaySets> NewWorkList(TQzDisplaySetKind kind)
{
    switch (kind) {
    case TQzDisplaySetKind::BackGround: return std::make_unique<TQzPkgDisplaySetsBackGround>(nullptr);
    case TQzDisplaySetKind::Color: return std::make_unique<TQzPkgDisplaySetsColor>(nullptr);
    case TQzDisplaySetKind::Font: break;
    }
    return std::make_unique<TQzPkgDisplaySetsFont>(nullptr);
}

const char* Title(TQzDisplaySetKind kind)
{
    switch (kind) {
    case TQzDisplaySetKind::BackGround: return "Background Sets";
    case TQzDisplaySetKind::Color: return "Colour Sets";
    case TQzDisplaySetKind::Font: break;
    }
    return "Font Sets";
}

template <class Form>
int RunPicker(TQzEditorDialogRequest& request)
{
    auto* target = dynamic_cast<TQzSetRef*>(request.Target);
    TQzCApplication* app = QzCApp();
    if (!target || !app)
        return 0;
    Form form(QApplication::activeWindow());
    if (form.Execute(target, app->PkgDisplay()) != mrOk)
        return 0;
    // The property editor marks the form it edits; the application may sit
    // on another one.
    if (form.SetsWritten() && (!request.Designer || request.Designer->GetRoot() != app->Owner()))
        QzDesignerModified(app);
    return 1;
}

}  // namespace

TFrSetPicker::TFrSetPicker(TQzDisplaySetKind kind, QWidget* parent)
    : TQzDialog(parent), FKind(kind), FWork(NewWorkList(kind))
{
    setupUi(this);
    setWindowTitle(QString::fromLatin1(Title(kind)));
    FPanel = new TQzDisplaySetsPanel(this);
    LaySets->addWidget(FPanel, 1);
    FPanel->OnChanged = [this] { FChanged = true; };
    FPanel->OnActivated = [this] { accept(); };
    connect(FPanel->LBSets, &QListWidget::currentRowChanged, this, [this] { FTouched = true; });
    connect(BtOk, &QPushButton::clicked, this, &TFrSetPicker::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrSetPicker::reject);
}

TFrSetPicker::~TFrSetPicker() = default;

TModalResult TFrSetPicker::Execute(TQzSetRef* target, TQzPkgDisplay* display)
{
    if (!target || !display)
        return mrNone;
    FTarget = target;
    FDisplay = display;
    FChanged = FWritten = false;
    QzCopyDisplaySets(*QzDisplaySets(*display, FKind), *FWork);
    FPanel->SetSets(FWork.get(), true);
    FPanel->ForgetRenames();
    FPanel->SelectName(target->Name());
    const bool missing = !target->Name().empty() && !FWork->FindSet(target->Name());
    LabInfo->setText(missing ? "The set \"" + QzQString(target->Name()) +
                                   "\" is not in the display package; it stays unless you choose another."
                             : QStringLiteral("Choose the set, or (Default) for the control's own look."));
    FTouched = false;
    return ShowModal();
}

AnsiString TFrSetPicker::Chosen() const
{
    if (const TQzPkgDisplaySet* set = FPanel->Current())
        return set->Name();
    // A name the package does not know is kept until another row is chosen.
    return FTouched ? AnsiString() : FTarget->Name();
}

void TFrSetPicker::accept()
{
    if (!FTarget) {
        TQzDialog::accept();
        return;
    }
    const bool done = QzRunReportingErrors(this, [this] {
        if (FChanged) {
            QzCopyDisplaySets(*FWork, *QzDisplaySets(*FDisplay, FKind));
            FWritten = true;
            FChanged = false;
        }
        FTarget->SetName(Chosen());
    });
    if (!done)
        return;
    if (FWritten)
        FPanel->FollowRenames();
    TQzDialog::accept();
}

void RegisterQzvtsets()
{
    QzSetEditorDialog(TQzEditorDialog::SetBackGround, RunPicker<TFrSetBackGround>);
    QzSetEditorDialog(TQzEditorDialog::SetColor, RunPicker<TFrSetColor>);
    QzSetEditorDialog(TQzEditorDialog::SetFont, RunPicker<TFrSetFont>);
}
