#pragma once
// TFrPkgStrings: the editor of one strings package, its labels, messages
// and texts on three pages. The editor owns no data: every command changes
// the package, rebuilds the page's rows, refreshes the status bar, and tells
// the designer of the change unless the package lives in its own file,
// which is written when Load or Save is pressed.

#include "design/strings/QzMemoryEditorLogic.h"
#include "vcl/QzDialog.h"

#include "ui_TFrPkgStrings.h"

class QAction;
class QMenu;
class TQzListModel;
class TQzMemoryItemAdd;

class TFrPkgStrings : public TQzDialog, public Ui::TFrPkgStrings {
    Q_OBJECT

public:
    explicit TFrPkgStrings(QWidget* parent = nullptr);
    ~TFrPkgStrings() override;

    void SetPackage(TQzPkgStrings* package);
    TQzPkgStrings* Package() const { return FPackage; }

    // Fills the lists and runs the editor; returns when it is closed.
    TModalResult Execute() override;

    TQzMemoryFamily ActivePage() const;
    void SetActivePage(TQzMemoryFamily family);
    // The item of the active page's current row; null when none.
    TQzPkgIdItem* SelectedItem() const;
    // Selects the item with that Id on the active page through its Id box;
    // false when the page does not list it.
    bool SelectId(Integer id);
    // Selects that Id on the active page and runs Delete (with its
    // confirmation); true when the item is gone. The translators delete
    // through it.
    bool DeleteById(Integer id);
    // The page's rows as listed (for whoever drives the window).
    const TQzMemoryRows& Rows(TQzMemoryFamily family) const { return FPages[Index(family)].Rows; }

    // The commands, as the buttons and menus run them.
    void BtAddClick();
    void BtModifyClick();
    void BtDeleteClick();
    void BtReportClick();
    void BtLoadClick();
    void BtSaveClick();
    void BtLoadFromClick();
    void BtSaveToClick();
    void BtClearClick();
    void BtSynchronizerClick();
    void BtManagerClick();
    void ImportClick();
    void ExportClick();
    void ProtectAllClick(bool value);
    void UpdateSystemStringsClick();

private:
    struct TPage {
        TQzMemoryFamily Family = TQzMemoryFamily::Labels;
        TQzListView* List = nullptr;
        QLineEdit* Search = nullptr;
        QLineEdit* Id = nullptr;
        TQzMemoryRows Rows;
        TQzListModel* Model = nullptr;
        QMenu* Popup = nullptr;
        QList<QAction*> SystemOnly;   // shown for the "System" package alone
    };

    static int Index(TQzMemoryFamily family) { return static_cast<int>(family); }
    TPage& Active() { return FPages[Index(ActivePage())]; }
    const TPage& Active() const { return FPages[Index(ActivePage())]; }

    void SetUpPage(TPage& page);
    void CreatePopup(TPage& page);
    void LoadPage(TPage& page);
    void LoadAll();
    void ShowItem(TPage& page);
    void EdIdChange(TPage& page);
    void EdSearchChange(TPage& page);
    void OrderClick();
    void PageCChange();
    void ChangeState();
    void UpdateInfo();
    // Selects a row (clamped to the list) and shows its item.
    void SelectRow(TPage& page, int row);
    std::unique_ptr<TQzMemoryItemAdd> NewAddDialog(TQzMemoryFamily family);

    void UpdateFile();
    void Modified();
    // The designer hears of a change to a package kept in the form only; a
    // package in a file of its own is written instead.
    void ContentsModified();

    TQzPkgStrings* FPackage = nullptr;
    bool FIsSystem = false;
    TPage FPages[3];
    bool FShowing = false;   // an item being shown moves no other control
};

// Installs the strings editor as the window the strings package's editors
// open.
void RegisterQzvtpkgstrings();
