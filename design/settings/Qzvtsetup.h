#pragma once
// TFrSetup: the application's setup package. The keys page lists every
// action with its shortcut; a shortcut is given by pressing it, and one
// another action has is refused as the running application refuses it.
// The database page holds the conventions SQL text is written with, with a
// sample. The window works on a copy of the package: Ok puts it back (one
// step in the designer's undo), Cancel leaves the form untouched.

#include "design/reg/QzEditorDialogs.h"
#include "design/settings/QzShortCutEdit.h"
#include "vcl/QzDialog.h"

#include "ui_TFrSetup.h"

#include "runtime/model/QzPkgSetup.h"

#include <memory>

class TQzCApplication;

class TFrSetup : public TQzDialog, public Ui::TFrSetup {
    Q_OBJECT

public:
    explicit TFrSetup(QWidget* parent = nullptr);
    ~TFrSetup() override;

    void SetApplication(TQzCApplication* app, const TQzEditorDialogRequest& request = {});
    TModalResult Execute() override;

    // The values shown, as Ok would store them.
    const TQzSetupKeysValues& Keys() const { return FKeys; }
    TQzSetupDataBaseValues DataBase() const;
    void SelectAction(TQzSetupAction action);

    // The commands, as the keys and buttons run them.
    void ShortCutPressed(TShortCut shortCut);
    void ClearKeyClick();
    void DefaultsClick();
    void EngineChange();
    void LoadClick();
    void SaveClick();
    void accept() override;

private:
    void ShowPackage();
    void ShowKeys();
    void ShowDataBase(const TQzSetupDataBaseValues& values);
    void ShowSample();
    TQzSetupAction SelectedAction() const;
    // The page's values into the copy; false (and the reason shown) when
    // the runtime refuses one.
    bool StoreInCopy();

    TQzCApplication* FApp = nullptr;
    TQzPkgSetup* FSetup = nullptr;
    std::unique_ptr<TQzPkgSetup> FCopy;
    TQzSetupKeysValues FKeys;
    TQzEditorDialogRequest FRequest;
};

// Installs the setup window as the one the application's setup property
// and component editor open.
void RegisterQzvtsetup();
