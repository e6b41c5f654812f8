#pragma once
// The list of one kind of display sets, each drawn as it looks, with the
// commands that make, change, rename and delete sets. The set dialogs and
// the display dialog show one each; the panel works on whatever list it is
// given (the package's own, or a working copy) and tells its owner after
// every change.

#include "design/settings/QzDisplaySetRenames.h"

#include <QWidget>

#include <functional>

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

class TQzDisplaySetsPanel : public QWidget {
    Q_OBJECT

public:
    explicit TQzDisplaySetsPanel(QWidget* parent = nullptr);

    // withDefault adds a first row "(Default)": no set, the control's own look.
    void SetSets(TQzPkgDisplaySets* sets, bool withDefault = false);
    TQzPkgDisplaySets* Sets() const { return FSets; }
    TQzDisplaySetKind Kind() const { return FKind; }

    // The selected set; nullptr for "(Default)" or nothing.
    TQzPkgDisplaySet* Current() const;
    bool IsDefaultRow() const;
    // Selects the set of that name, "(Default)" for an empty name.
    void SelectName(const AnsiString& name);
    // Lists the sets again (after the list changed elsewhere).
    void Reload();

    // The commands, as the buttons run them.
    void NewSet();
    void EditSet();
    void ChooseFontColor();
    void RenameSet();
    // Renames the selected set as typing over its name does; false, the
    // reason shown and the name kept, when the name is refused.
    bool Rename(const AnsiString& name);
    void DeleteSet();

    // The renames made in the list since ForgetRenames; the owner makes the
    // project's controls follow them when its window is accepted.
    const TQzDisplaySetRenames& Renames() const { return FRenames; }
    void ForgetRenames() { FRenames.Clear(); }
    // Renames the sets in the controls of the open project's forms, tells
    // the user about a form that could not be changed, and forgets the
    // renames. Without a project only the list was renamed.
    void FollowRenames();

    std::function<void()> OnChanged;    // the list or a set changed
    std::function<void()> OnActivated;  // a row double-clicked

    QListWidget* LBSets;
    QPushButton* BtNew;
    QPushButton* BtEdit;
    QPushButton* BtFontColor;
    QPushButton* BtRename;
    QPushButton* BtDelete;
    QLineEdit* EdDescription;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Changed(const TQzPkgDisplaySet* select);
    void ItemEdited(QListWidgetItem* item);
    void UpdateState();
    void WriteDescription();
    bool Change(const std::function<void()>& change);

    TQzPkgDisplaySets* FSets = nullptr;
    TQzDisplaySetKind FKind = TQzDisplaySetKind::BackGround;
    TQzDisplaySetRenames FRenames;
    bool FWithDefault = false;
    bool FLoading = false;
};
