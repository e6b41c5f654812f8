#include "design/images/Qzvtimportimages.h"

#include "design/images/QzImportImagesLogic.h"
#include "design/images/Qzvtimportdlg.h"
#include "design/manager/Qzvtpkgloadsave.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"
#include "vcl/QzWindowBounds.h"

namespace {

AnsiString LastFile;
TQzResizeInfoDesigner LastBounds;

}  // namespace

AnsiString TFrImportImages::LastFileName()
{
    return LastFile;
}

void TFrImportImages::SetLastFileName(const AnsiString& name)
{
    LastFile = name;
}

TFrImportImages::TFrImportImages(QWidget* parent) : TQzDialog(parent), PkgImages(std::make_unique<TQzPkgImages>(nullptr))
{
    setupUi(this);
    // The source is no package of the project: kept out of the lists of
    // active images packages.
    PkgImages->SetActive(false);
    Images->setSelectionMode(QAbstractItemView::ExtendedSelection);
    RememberBounds(&LastBounds);

    // The source's protection is not imported: its menu offers no Protected.
    CreateViewMenu(this, Images, false);

    connect(BtLoad, &QPushButton::clicked, this, &TFrImportImages::BtLoadClick);
    connect(BtLoadFrom, &QPushButton::clicked, this, &TFrImportImages::BtLoadFromClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrImportImages::BtOkClick);
    connect(BtCancel, &QPushButton::clicked, this, &TFrImportImages::reject);
    BtOk->setDefault(true);
    Panel1->installEventFilter(this);
}

TFrImportImages::~TFrImportImages() = default;

TModalResult TFrImportImages::Execute()
{
    if (!LastFile.empty()) {
        // The last file may have gone since: the window opens empty then.
        if (!QzRunReportingErrors(this, [&] { PkgImages->LoadFromFile(LastFile); }))
            LastFile.clear();
    }
    Label7->setText(QzQString(LastFile));
    LoadImages();
    UpdateInfo();
    AdjustComponents();
    const TModalResult result = ShowModal();
    LastFile = QzAnsiString(Label7->text());
    return result;
}

void TFrImportImages::LoadImages()
{
    Images->GridDelegate()->Cache().Clear();
    Images->GridModel()->Reload(PkgImages.get());
}

void TFrImportImages::UpdateInfo()
{
    // The source's size only: its protection is not imported.
    StatusBar1->showMessage(QzQString(QzImagesStatusText(PkgImages.get(), false)));
}

// The name is shown as given: on file systems that tell case apart a name
// in lower case would not open again.
void TFrImportImages::SourceLoaded(const AnsiString& fileName)
{
    LoadImages();
    UpdateInfo();
    Label7->setText(QzQString(fileName));
}

void TFrImportImages::BtLoadClick()
{
    if (QzExecutePkgLoadSave(PkgImages.get(), TQzLoadSave::Load, this, false))
        SourceLoaded(PkgImages->GetPathFileName());
}

void TFrImportImages::BtLoadFromClick()
{
    const AnsiString name = QzOpenFile(QzPkgFileRequest(*PkgImages, "Package Images", "Load From", this));
    if (name.empty())
        return;
    if (!QzRunReportingErrors(this, [&] { PkgImages->LoadFromFile(name); }))
        return;
    PkgImages->Change();
    SourceLoaded(name);
}

void TFrImportImages::BtOkClick()
{
    const std::vector<int> rows = Images->SelectedRows();
    if (rows.empty() || !FTarget) {
        accept();
        return;
    }
    TFrImportDlg ask(this);
    ask.SetStartId(FTarget->Images()->UniqueId());
    // Cancelled: the import window stays open.
    if (ask.Execute() != mrOk)
        return;
    std::vector<TQzPkgImagesImage*> sources;
    for (int row : rows)
        sources.push_back(Images->GridModel()->Image(row));
    const Integer start = ask.StartId();
    if (QzRunReportingErrors(this, [&] { QzImportImages(*FTarget->Images(), sources, start); },
                             "The images cannot be imported: "))
        accept();
}

void TFrImportImages::AdjustComponents()
{
    const int h = BtOk->sizeHint().height();
    const int margin = 4;
    const int width = Panel1->width() - 2 * margin;
    int top = Panel1->height() - h - h / 6;
    BtCancel->setGeometry(margin, top, width, h);
    const std::pair<QPushButton*, int> stack[] = {{BtOk, h / 6}, {BtLoad, h / 2}, {BtLoadFrom, h / 6}};
    for (const auto& [button, gap] : stack) {
        top -= gap + h;
        button->setGeometry(margin, top, width, h);
    }
}

bool TFrImportImages::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Panel1 && event->type() == QEvent::Resize)
        AdjustComponents();
    return TQzDialog::eventFilter(watched, event);
}
