#pragma once
// The designer host's main window: menus, tool bar and status bar, the
// component palette, the project's forms, the component tree and object
// inspector of the current form, and the open forms' designers in tabs.

#include "runtime/util/QzDesigner.h"

#include "rtl/System.h"

#include <QMainWindow>
#include <map>
#include <memory>

class QAction;
class QListWidget;
class QTabWidget;
class QUndoGroup;
class TIdeDesigner;
class TIdeProject;
class TQzComponentTree;
class TQzDesignSurface;
class TQzInspector;
class TQzPalette;

class TQzMainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit TQzMainWindow(QWidget* parent = nullptr);
    ~TQzMainWindow() override;

    // Opens a project file, a folder of forms or a form file, then closes
    // the one open (asking to save its changes first); false, with the one
    // open as it was, when the user cancelled or it cannot be read.
    bool OpenProject(const QString& path);
    // Shows the project's index-th form, reading it first when needed; an
    // unreadable form is reported (naming the file and line) and not opened.
    TIdeDesigner* ShowForm(int index);
    // Closes the current form, asking to save its changes; false when the
    // user cancelled.
    bool CloseForm(int index);
    bool SaveCurrent();
    int SaveAll();
    // Asks about every changed form; false when the user cancelled.
    bool CloseProject();

    TIdeProject* Project() const { return FProject.get(); }
    TIdeDesigner* CurrentDesigner() const;
    TQzDesignSurface* SurfaceOf(TIdeDesigner* designer) const;
    TQzPalette* Palette() const { return FPalette; }
    TQzInspector* Inspector() const { return FInspector; }
    TQzComponentTree* Tree() const { return FTree; }
    QListWidget* FormsList() const { return FForms; }
    QTabWidget* FormTabs() const { return FTabs; }
    QUndoGroup* UndoGroup() const { return FUndo; }
    // Tells the user something in the status bar.
    void ShowStatus(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildMenus();
    void BuildDocks();
    void CurrentTabChanged();
    void DesignerChanged(TIdeDesigner* designer);
    void SelectionChanged(TIdeDesigner* designer);
    // The selected component and its bounds in the status bar.
    void ShowSelection(TIdeDesigner* designer);
    // Design mode on, and the runtime's package editors marking the forms
    // they change, while the window lives.
    void InstallRuntimeHooks();
    int TabOf(TIdeDesigner* designer) const;
    int FormIndexOf(TIdeDesigner* designer) const;
    void UpdateTitles();
    // Cut, Copy and Delete want components selected, Paste a form open.
    void UpdateEditActions();
    void OpenProjectDialog();
    void OpenFolderDialog();
    // Asks whether to save designer's changes: true to go on (saved or
    // discarded), false when cancelled.
    bool AskToSave(TIdeDesigner* designer);

    std::unique_ptr<TIdeProject> FProject;
    TQzPalette* FPalette;
    QTabWidget* FTabs;
    QListWidget* FForms;
    TQzComponentTree* FTree;
    TQzInspector* FInspector;
    QUndoGroup* FUndo;
    QAction* FCut = nullptr;
    QAction* FCopy = nullptr;
    QAction* FPaste = nullptr;
    QAction* FDelete = nullptr;
    QAction* FSelectAll = nullptr;
    std::map<TIdeDesigner*, TQzDesignSurface*> FSurfaces;
    TQzDesignerModifiedHook FPreviousModifiedHook;
    bool FPreviousDesignMode = false;
};
