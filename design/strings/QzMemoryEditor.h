#pragma once
// What the memory label, message and text editors share. Each picks a
// package among the active strings packages and an item of it for one
// memory reference, and adds, modifies, deletes and protects items of the
// chosen package on the spot. The three forms differ only in their table
// row (QzMemoryFamilyInfo), their Add dialog and the memo under the list.
//
// The editor works on the live reference: it is set only when the editor
// closes with Ok. Whatever way it closes, the chosen package is written to
// its own file when it lives in one.

#include "design/strings/QzMemoryEditorLogic.h"
#include "vcl/QzDialog.h"

#include <memory>
#include <optional>

class QAction;
class QComboBox;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class TQzListModel;
class TQzListView;
class TQzMemoryItemAdd;

class TQzMemoryEditor : public TQzDialog {
    Q_OBJECT

public:
    ~TQzMemoryEditor() override;

    // The reference edited; it must outlive the editor.
    void SetMemory(TQzMemoryRef* ref) { FRef = ref; }
    TQzMemoryRef* Memory() const { return FRef; }
    // Fills the window from the reference and runs it.
    TModalResult Execute() override;

    TQzMemoryFamily Family() const { return FFamily; }
    // The package chosen, or null when its name names none.
    TQzPkgStrings* Package() const { return FPkg; }
    const TQzMemoryRows& Rows() const { return FRows; }
    // The item of the current row, or null.
    TQzPkgIdItem* SelectedItem() const;

    // The commands, as the buttons and the pop-up menu run them.
    void BtAddClick();
    void BtModifyClick();
    void BtDeleteClick();
    void BtNullClick();
    void BtDefaultClick();
    void BtManagerClick();
    void ProtectAll(bool value);

    void done(int result) override;

protected:
    struct TControls {
        QComboBox* EdPkg;
        QLineEdit* EdId;
        QLineEdit* Search;
        QRadioButton* OrderLabel;
        QRadioButton* OrderId;
        TQzListView* List;
        QPlainTextEdit* Detail;   // the label's hint or the whole text; may be null
        QPushButton* BtAdd;
        QPushButton* BtModify;
        QPushButton* BtDelete;
        QPushButton* BtNull;
        QPushButton* BtDefault;
        QPushButton* BtManager;
        QPushButton* BtOk;
        QPushButton* BtCancel;
    };

    TQzMemoryEditor(TQzMemoryFamily family, QWidget* parent);
    // The form's controls; call once its layout is set up.
    void Bind(const TControls& controls);
    virtual std::unique_ptr<TQzMemoryItemAdd> CreateAddDialog() = 0;

private:
    void CreateMenu();
    void FillPackages(const AnsiString& selected);
    void EdPkgChange();
    void EdIdChange();
    void SearchChange();
    void OrderChange();
    void ListRowChanged(int row);
    // Rebuilds the rows from the package; keepId is selected again.
    void LoadList(Integer keepId);
    void SelectRow(int row, bool writeId);
    void ShowDetail(const TQzPkgIdItem* item);
    void ChangeState();
    void Modified();
    void RunAddDialog(bool modify);
    AnsiString PkgName() const;
    // Writes the chosen package's file and sets the reference on Ok; false
    // when the Id cannot be read and the editor must stay open.
    bool FormClose(int result);

    TQzMemoryFamily FFamily;
    const TQzMemoryFamilyInfo& FInfo;
    TQzMemoryRef* FRef = nullptr;
    TQzPkgStrings* FPkg = nullptr;
    TQzMemoryRows FRows;
    TQzListModel* FModel = nullptr;
    bool FModelProtected = false;
    bool FUpdating = false;
    // N&ull and De&fault close with their own Id, whatever the box shows.
    std::optional<Integer> FClosingId;
    TControls C{};
    QMenu* PPList = nullptr;
    QAction* MnProtectAll = nullptr;
    QAction* MnUnprotectAll = nullptr;
};
