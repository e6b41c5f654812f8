#pragma once
// TFrPkgVars: the variables package editor. The tree shows the package's
// folders, the list the variables of the selected one. The editor owns no
// data: every command changes the package, refreshes what it shows, and
// marks the change (Modified) unless the package lives in its own file,
// which is written when the editor closes.

#include "design/settings/QzPkgVarsLogic.h"
#include "vcl/QzDialog.h"
#include "vcl/QzDialogs.h"

#include "ui_TFrPkgVars.h"

#include <QIcon>

#include <memory>

class QAction;
class QMenu;
class QTreeWidgetItem;
class TFrFindDialog;
class TQzVarsListModel;

class TFrPkgVars : public TQzDialog, public Ui::TFrPkgVars {
    Q_OBJECT

public:
    explicit TFrPkgVars(QWidget* parent = nullptr);
    ~TFrPkgVars() override;

    void SetPackage(TQzPkgVars* package) { FPackage = package; }
    TQzPkgVars* Package() const { return FPackage; }

    // Runs the editor on the package; returns when it is closed.
    TModalResult Execute() override;

    // The selection, for whoever drives the window.
    TQzPkgVarsItem* SelectedFolder() const;   // null: the root or nothing
    TQzPkgVarsItem* SelectedVariable() const;
    bool SelectFolder(const TQzPkgVarsItem* folder);   // null: the root
    bool SelectVariable(const TQzPkgVarsItem* item);
    TFrFindDialog* FindDialog() const { return FFindDialog; }

    // The commands, as the buttons and menus run them.
    void NewFolder(bool subFolder);
    void NewVariable(TQzPkgVarsItemType type);
    void Modify1Click();
    void Delete1Click();
    void Delete2Click();
    void ChangeName1Click();
    void ChangeName2Click();
    void Folder3Click(TQzPkgVarsItemType type);
    void ClearAll1Click();
    void ClearAll2Click();
    void Find1Click();
    void FindDialog1Find(const TQzVarsFindOptions& options);
    void Load2Click();
    void Save2Click();
    void Import1Click();
    void Export1Click();

protected:
    bool FormKeyPress(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateMenus();
    void LoadFullTree();
    void LoadTree();
    void LoadListView(QTreeWidgetItem* node);
    void TViewChange();
    void TViewEdited(QTreeWidgetItem* node, int column);
    void ChangeState();
    void UpdatePopups();
    void AdjustComponents();
    void Modified();
    void UpdateFile();
    bool Confirm(Integer msgId, bool yesNo);

    AnsiString GetPath(QTreeWidgetItem* node) const;
    TQzPkgVarsItem* FolderOf(QTreeWidgetItem* node) const;
    QTreeWidgetItem* NodeOf(const TQzPkgVarsItem* folder) const;
    QTreeWidgetItem* AddNode(QTreeWidgetItem* parent, TQzPkgVarsItem* folder);
    QTreeWidgetItem* RootNode() const;
    int SelectedRow() const;
    void SelectRow(int row);
    // A file dialog request for the package's own kind of file.
    TQzFileRequest FileRequest(const AnsiString& title);

    TQzPkgVars* FPackage = nullptr;
    TQzVarsListModel* FList;
    TQzVarsFinder FFinder;
    TFrFindDialog* FFindDialog = nullptr;
    QIcon FIcons[4];   // selected folder, folder, variable, package root

    QMenu* PopupTView1;
    QMenu* PopupLView1;
    QAction* NewFolder1;
    QAction* NewSubFolder1;
    QAction* Delete1;
    QAction* ChangeName1;
    QAction* Modify1;
    QAction* Delete2;
    QAction* ChangeName2;
    QMenu* ChangeType3;
    QAction* ClearFolder2;
};

// Installs the variables editor as the window the variables package's
// editors open.
void RegisterQzvtpkgvars();
