#pragma once
// TFrLanguage: the application's language package. Its "System" and
// "User" strings open in the strings editor; its locale is edited beside a
// live sample of dates, times, numbers and amounts as the application will
// show them. Like the setup window it works on a copy of the package,
// strings included: Ok puts the copy back as one change, Cancel drops it.

#include "design/reg/QzEditorDialogs.h"
#include "vcl/QzDialog.h"

#include "ui_TFrLanguage.h"

#include "runtime/model/QzPkgLanguage.h"

#include <memory>

class TQzCApplication;

class TFrLanguage : public TQzDialog, public Ui::TFrLanguage {
    Q_OBJECT

public:
    explicit TFrLanguage(QWidget* parent = nullptr);
    ~TFrLanguage() override;

    void SetApplication(TQzCApplication* app, const TQzEditorDialogRequest& request = {});
    TModalResult Execute() override;

    // The locale shown, as Ok would store it.
    TQzLocaleValues Locale() const;
    // The copy the window edits (its strings are what the strings editor gets).
    TQzPkgLanguage* Copy() const { return FCopy.get(); }

    // The commands, as the buttons run them.
    void EditStrings(TQzPkgStrings* strings);
    void DefaultsClick();
    void LoadClick();
    void SaveClick();
    void SynchronizeClick();
    void accept() override;

private:
    void ShowPackage();
    void ShowStrings();
    void ShowLocale(const TQzLocaleValues& values);
    void ShowSample();
    bool StoreInCopy();

    TQzCApplication* FApp = nullptr;
    TQzPkgLanguage* FLanguage = nullptr;
    std::unique_ptr<TQzPkgLanguage> FCopy;
    TQzEditorDialogRequest FRequest;
};

// Installs the language window as the one the application's language
// property opens.
void RegisterQzvtlanguage();
