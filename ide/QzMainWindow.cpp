#include "ide/QzMainWindow.h"

#include "ide/QzComponentTree.h"
#include "ide/QzControlLook.h"
#include "ide/QzDesignSurface.h"
#include "ide/QzFormClipboard.h"
#include "designide/DesignMenuCommands.h"
#include "designide/forms/QzIdeProject.h"
#include "ide/QzInspector.h"
#include "ide/QzPalette.h"

#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include "runtime/model/QzGlobals.h"
#include "runtime/util/QzDesigner.h"

#include "rtl/ComponentStream.h"
#include "rtl/SysUtils.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QListWidget>
#include <QMenuBar>
#include <QScrollArea>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QUndoGroup>
#include <QUndoStack>
#include <QVBoxLayout>

#include <map>
#include <utility>

namespace {

// The design package's commands (the packages manager by kind, ...), read
// each time the menu opens: the package registers them when it loads.
void FillDesignMenuCommands(QMenu* menu, QWidget* window)
{
    menu->clear();
    std::map<AnsiString, QMenu*> groups;
    for (const TDesignMenuCommand& command : DesignMenuCommands()) {
        QMenu* into = menu;
        if (!command.Group.empty()) {
            QMenu*& group = groups[command.Group];
            if (!group)
                group = menu->addMenu(QzQString(command.Group));
            into = group;
        }
        const auto run = command.Execute;
        into->addAction(QzQString(command.Caption), window, [window, run] { QzRunReportingErrors(window, run); });
    }
    if (menu->isEmpty())
        menu->addAction(QObject::tr("(No tools: the design package is not loaded)"))->setEnabled(false);
}

}  // namespace

TQzMainWindow::TQzMainWindow(QWidget* parent)
    : QMainWindow(parent),
      FPalette(new TQzPalette),
      FTabs(new QTabWidget),
      FForms(new QListWidget),
      FTree(new TQzComponentTree),
      FInspector(new TQzInspector),
      FUndo(new QUndoGroup(this))
{
    setWindowTitle(tr("qzide"));
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(FPalette);
    layout->addWidget(FTabs);
    FTabs->setTabsClosable(true);
    FTabs->setDocumentMode(true);
    setCentralWidget(central);
    BuildDocks();
    BuildMenus();
    connect(FTabs, &QTabWidget::currentChanged, this, [this] { CurrentTabChanged(); });
    connect(FTabs, &QTabWidget::tabCloseRequested, this, [this](int tab) {
        auto* scroll = qobject_cast<QScrollArea*>(FTabs->widget(tab));
        auto* surface = scroll ? qobject_cast<TQzDesignSurface*>(scroll->widget()) : nullptr;
        if (surface)
            CloseForm(FormIndexOf(surface->Designer()));
    });
    connect(FForms, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { ShowForm(FForms->row(item)); });
    connect(FForms, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { ShowForm(FForms->row(item)); });
    resize(1400, 860);
    InstallRuntimeHooks();
}

void TQzMainWindow::InstallRuntimeHooks()
{
    FPreviousDesignMode = std::exchange(QzDesignMode, true);
    // A package editor marks the form that owns the package as changed.
    FPreviousModifiedHook = SetQzDesignerModifiedHook([this](TComponent* owner) {
        for (TIdeDesigner* d : FProject ? FProject->OpenDesigners() : std::vector<TIdeDesigner*>{})
            if (owner == d->GetRoot() || owner->Owner() == d->GetRoot())
                d->ChangedOutside(QStringLiteral("Package Change"));
    });
}

TQzMainWindow::~TQzMainWindow()
{
    SetQzDesignerModifiedHook(std::move(FPreviousModifiedHook));
    QzDesignMode = FPreviousDesignMode;
    // The surfaces and the docks refer to the designers the project owns.
    FTree->SetDesigner(nullptr);
    FInspector->SetDesigner(nullptr);
    while (FTabs->count() > 0)
        delete FTabs->widget(0);
    FSurfaces.clear();
}

void TQzMainWindow::BuildDocks()
{
    const auto dock = [this](const QString& title, QWidget* widget, Qt::DockWidgetArea area) {
        auto* d = new QDockWidget(title, this);
        d->setObjectName(title);
        d->setWidget(widget);
        addDockWidget(area, d);
        return d;
    };
    QDockWidget* forms = dock(tr("Forms"), FForms, Qt::LeftDockWidgetArea);
    QDockWidget* tree = dock(tr("Components"), FTree, Qt::LeftDockWidgetArea);
    QDockWidget* inspector = dock(tr("Object Inspector"), FInspector, Qt::RightDockWidgetArea);
    splitDockWidget(forms, tree, Qt::Vertical);
    resizeDocks({forms, tree}, {160, 500}, Qt::Vertical);
    resizeDocks({forms, inspector}, {230, 320}, Qt::Horizontal);
}

void TQzMainWindow::BuildMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QToolBar* tools = addToolBar(tr("Standard"));
    tools->setObjectName(QStringLiteral("Standard"));
    QAction* open = file->addAction(tr("&Open Project..."), this, [this] { OpenProjectDialog(); });
    open->setShortcut(QKeySequence::Open);
    file->addAction(tr("Open &Folder..."), this, [this] { OpenFolderDialog(); });
    QAction* save = file->addAction(tr("&Save"), this, [this] { SaveCurrent(); });
    save->setShortcut(QKeySequence::Save);
    QAction* saveAll = file->addAction(tr("Save A&ll"), this, [this] { SaveAll(); });
    saveAll->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    file->addAction(tr("&Close Form"), this, [this] {
        if (TIdeDesigner* d = CurrentDesigner())
            CloseForm(FormIndexOf(d));
    });
    file->addSeparator();
    file->addAction(tr("E&xit"), this, &QWidget::close)->setShortcut(QKeySequence::Quit);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    QAction* undo = FUndo->createUndoAction(this, tr("&Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = FUndo->createRedoAction(this, tr("&Redo"));
    // Ctrl+Y as the IDE has it, Ctrl+Shift+Z as other programs do.
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    edit->addAction(undo);
    edit->addAction(redo);
    edit->addSeparator();
    const auto command = [&](const QString& text, QKeySequence::StandardKey key, auto run) {
        QAction* action = edit->addAction(text, this, [this, run] {
            if (TIdeDesigner* d = CurrentDesigner())
                run(d);
        });
        action->setShortcut(key);
        return action;
    };
    FCut = command(tr("Cu&t"), QKeySequence::Cut, [this](TIdeDesigner* d) { QzCutSelection(*d, this); });
    FCopy = command(tr("&Copy"), QKeySequence::Copy, [this](TIdeDesigner* d) { QzCopySelection(*d, this); });
    FPaste = command(tr("&Paste"), QKeySequence::Paste, [this](TIdeDesigner* d) { QzPasteClipboard(*d, this); });
    // Del belongs to the designer and the inspector's editors alike.
    FDelete = edit->addAction(tr("&Delete"), this, [this] {
        if (TIdeDesigner* d = CurrentDesigner())
            d->DeleteComponents(d->SelectedComponents());
    });
    FSelectAll = command(tr("Select &All"), QKeySequence::SelectAll,
                         [this](TIdeDesigner* d) { SurfaceOf(d)->SelectAll(); });
    UpdateEditActions();

    QMenu* toolsMenu = menuBar()->addMenu(tr("&Tools"));
    connect(toolsMenu, &QMenu::aboutToShow, this, [this, toolsMenu] { FillDesignMenuCommands(toolsMenu, this); });
    FillDesignMenuCommands(toolsMenu, this);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    for (QDockWidget* d : findChildren<QDockWidget*>())
        view->addAction(d->toggleViewAction());
    view->addAction(tools->toggleViewAction());

    tools->addAction(open);
    tools->addAction(save);
    tools->addAction(saveAll);
    tools->addSeparator();
    tools->addAction(undo);
    tools->addAction(redo);
}

void TQzMainWindow::UpdateEditActions()
{
    TIdeDesigner* d = CurrentDesigner();
    const auto selected = d ? d->SelectedComponents() : std::vector<TComponent*>{};
    const bool components = !selected.empty() && selected.front() != d->GetRoot();
    FCut->setEnabled(components);
    FCopy->setEnabled(components);
    FDelete->setEnabled(components);
    FPaste->setEnabled(d != nullptr);
    FSelectAll->setEnabled(d != nullptr);
}

void TQzMainWindow::ShowStatus(const QString& text) { statusBar()->showMessage(text); }

bool TQzMainWindow::OpenProject(const QString& path)
{
    // The project open stays open, unchanged, unless the new one loads and
    // the user lets the old one go.
    std::unique_ptr<TIdeProject> next;
    if (!QzRunReportingErrors(this, [&] { next = std::make_unique<TIdeProject>(path.toStdString()); }))
        return false;
    if (!CloseProject())
        return false;
    FProject = std::move(next);
    FProject->Install();
    // Only the names now: a form is read when it is first shown.
    for (int i = 0; i < FProject->FormCount(); ++i)
        FForms->addItem(QzQString(FProject->FormTitle(i)));
    connect(FProject.get(), &TIdeProject::DesignerReloaded, this, [this](int index) {
        // Written from outside: the old surface goes, the new form shows.
        for (auto it = FSurfaces.begin(); it != FSurfaces.end();) {
            if (FormIndexOf(it->first) < 0) {
                const int tab = TabOf(it->first);
                FUndo->removeStack(it->first->UndoStack());
                if (tab >= 0)
                    delete FTabs->widget(tab);
                it = FSurfaces.erase(it);
            } else {
                ++it;
            }
        }
        ShowForm(index);
    });
    setWindowTitle(tr("qzide - %1").arg(QzQString(FProject->Name())));
    ShowStatus(tr("%1: %2 forms").arg(QzQString(FProject->Name())).arg(FProject->FormCount()));
    if (FProject->FormCount() > 0)
        ShowForm(0);
    return true;
}

bool TQzMainWindow::CloseProject()
{
    if (!FProject)
        return true;
    for (TIdeDesigner* d : FProject->OpenDesigners())
        if (!AskToSave(d))
            return false;
    FTree->SetDesigner(nullptr);
    FInspector->SetDesigner(nullptr);
    while (FTabs->count() > 0)
        delete FTabs->widget(0);
    FSurfaces.clear();
    FForms->clear();
    FProject.reset();
    return true;
}

TIdeDesigner* TQzMainWindow::ShowForm(int index)
{
    if (!FProject || index < 0 || index >= FProject->FormCount())
        return nullptr;
    TIdeDesigner* designer = FProject->Designer(index);
    if (!designer && !QzRunReportingErrors(this, [&] { designer = FProject->Open(index); }))
        return nullptr;
    if (FSurfaces.count(designer) == 0) {
        auto* surface = new TQzDesignSurface(designer);
        surface->PendingClass = [this] { return FPalette->SelectedClass(); };
        surface->ClassPlaced = [this] { FPalette->ClearSelection(); };
        auto* scroll = new QScrollArea;
        scroll->setWidget(surface);
        scroll->setWidgetResizable(true);
        FSurfaces[designer] = surface;
        FUndo->addStack(designer->UndoStack());
        designer->SetOutsideStepName([] {
            const QWidget* window = QApplication::activeWindow();
            return window && !window->windowTitle().isEmpty() ? tr("Change in %1").arg(window->windowTitle())
                                                               : tr("Change");
        });
        connect(designer, &TIdeDesigner::Changed, this, [this, designer] { DesignerChanged(designer); });
        connect(designer, &TIdeDesigner::SelectionChanged, this, [this, designer] { SelectionChanged(designer); });
        connect(designer, &TIdeDesigner::RootReplaced, this, [this, designer] {
            if (designer == CurrentDesigner()) {
                FTree->Rebuild();
                FInspector->Rebuild();
            }
        });
        FTabs->addTab(scroll, QzQString(FProject->FormTitle(index)));
    }
    FTabs->setCurrentIndex(TabOf(designer));
    FForms->setCurrentRow(index);
    UpdateTitles();
    return designer;
}

bool TQzMainWindow::AskToSave(TIdeDesigner* designer)
{
    if (!designer || !designer->IsModified())
        return true;
    const AnsiString text = "Save changes to " + ExtractFileName(designer->FileName()) + "?";
    switch (QzMessage(text, mtConfirmation, mbYesNoCancel, mbYes, this)) {
    case mrYes:
        return QzRunReportingErrors(this, [designer] { designer->Save(); });
    case mrNo:
        return true;
    default:
        return false;
    }
}

bool TQzMainWindow::CloseForm(int index)
{
    if (!FProject || index < 0)
        return false;
    TIdeDesigner* designer = FProject->Designer(index);
    if (!designer)
        return true;
    if (!AskToSave(designer))
        return false;
    const int tab = TabOf(designer);
    if (designer == CurrentDesigner()) {
        FTree->SetDesigner(nullptr);
        FInspector->SetDesigner(nullptr);
    }
    FUndo->removeStack(designer->UndoStack());
    FSurfaces.erase(designer);
    if (tab >= 0)
        delete FTabs->widget(tab);
    FProject->Close(index);
    CurrentTabChanged();
    return true;
}

bool TQzMainWindow::SaveCurrent()
{
    TIdeDesigner* d = CurrentDesigner();
    if (!d)
        return false;
    if (!QzRunReportingErrors(this, [d] { d->Save(); }))
        return false;
    ShowStatus(tr("Saved %1").arg(QzQString(d->FileName())));
    return true;
}

int TQzMainWindow::SaveAll()
{
    if (!FProject)
        return 0;
    int saved = 0;
    if (!QzRunReportingErrors(this, [&] { saved = FProject->SaveAll(); }))
        return 0;
    ShowStatus(tr("Saved %1 forms").arg(saved));
    UpdateTitles();
    return saved;
}

TIdeDesigner* TQzMainWindow::CurrentDesigner() const
{
    auto* scroll = qobject_cast<QScrollArea*>(FTabs->currentWidget());
    auto* surface = scroll ? qobject_cast<TQzDesignSurface*>(scroll->widget()) : nullptr;
    return surface ? surface->Designer() : nullptr;
}

TQzDesignSurface* TQzMainWindow::SurfaceOf(TIdeDesigner* designer) const
{
    auto it = FSurfaces.find(designer);
    return it == FSurfaces.end() ? nullptr : it->second;
}

int TQzMainWindow::TabOf(TIdeDesigner* designer) const
{
    TQzDesignSurface* surface = SurfaceOf(designer);
    for (int i = 0; surface && i < FTabs->count(); ++i)
        if (auto* scroll = qobject_cast<QScrollArea*>(FTabs->widget(i)); scroll && scroll->widget() == surface)
            return i;
    return -1;
}

int TQzMainWindow::FormIndexOf(TIdeDesigner* designer) const
{
    for (int i = 0; FProject && i < FProject->FormCount(); ++i)
        if (FProject->Designer(i) == designer)
            return i;
    return -1;
}

void TQzMainWindow::CurrentTabChanged()
{
    TIdeDesigner* d = CurrentDesigner();
    FTree->SetDesigner(d);
    FInspector->SetDesigner(d);
    FUndo->setActiveStack(d ? d->UndoStack() : nullptr);
    if (d)
        FForms->setCurrentRow(FormIndexOf(d));
    UpdateEditActions();
    SelectionChanged(d);
}

void TQzMainWindow::UpdateTitles()
{
    for (TIdeDesigner* d : FProject ? FProject->OpenDesigners() : std::vector<TIdeDesigner*>{}) {
        const int tab = TabOf(d);
        if (tab >= 0)
            FTabs->setTabText(tab, QzQString(ExtractFileName(d->FileName())) + (d->IsModified() ? "*" : ""));
    }
}

void TQzMainWindow::DesignerChanged(TIdeDesigner* designer)
{
    UpdateTitles();
    // Open package editors follow what the designer did to packages.
    QzFormsPerform(QzMasterMessage);
    if (designer != CurrentDesigner())
        return;
    FTree->Rebuild();
    FInspector->RefreshValues();
    ShowSelection(designer);
}

void TQzMainWindow::SelectionChanged(TIdeDesigner* designer)
{
    if (!designer || designer != CurrentDesigner())
        return;
    UpdateEditActions();
    FTree->SyncSelection();
    FInspector->Rebuild();
    ShowSelection(designer);
}

void TQzMainWindow::ShowSelection(TIdeDesigner* designer)
{
    const auto selected = designer->SelectedComponents();
    if (selected.size() == 1) {
        TComponent* c = selected.front();
        QString text = QzQString(c->Name() + ": " + StreamedClassName(c));
        if (QzIsControl(c)) {
            const QRect r = QzControlBounds(c);
            text += QStringLiteral("  (%1, %2, %3 x %4)").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
        }
        ShowStatus(text);
    } else {
        ShowStatus(tr("%1 components selected").arg(selected.size()));
    }
}

void TQzMainWindow::OpenProjectDialog()
{
    TQzFileRequest request;
    request.Title = "Open Project";
    request.Filter = "Projects and forms (*.bpr;*.bpk;*.cbproj;*.dfm)|*.bpr;*.bpk;*.cbproj;*.dfm|"
                     "C++Builder projects (*.bpr;*.bpk;*.cbproj)|*.bpr;*.bpk;*.cbproj|Forms (*.dfm)|*.dfm|"
                     "All files (*.*)|*.*";
    request.Parent = this;
    const AnsiString file = QzOpenFile(request);
    if (!file.empty())
        OpenProject(QzQString(file));
}

void TQzMainWindow::OpenFolderDialog()
{
    const AnsiString folder = QzDialogs().SelectFolder("Open Folder of Forms", {}, this);
    if (!folder.empty())
        OpenProject(QzQString(folder));
}

void TQzMainWindow::closeEvent(QCloseEvent* event)
{
    if (CloseProject())
        event->accept();
    else
        event->ignore();
}
