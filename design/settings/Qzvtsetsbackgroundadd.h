#pragma once
// TFrSetsBackGroundAdd: adds a background set to a list, or changes one.
// The values are edited on a scratch set with a live preview; the list
// sees them only when OK finds the name free.

#include "vcl/QzDialog.h"

#include "ui_TFrSetsBackGroundAdd.h"

#include "runtime/model/QzPkgDisplay.h"

class QPushButton;
class TQzPreviewPane;

class TFrSetsBackGroundAdd : public TQzDialog, public Ui::TFrSetsBackGroundAdd {
    Q_OBJECT

public:
    explicit TFrSetsBackGroundAdd(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // set nullptr: adds a new set to sets under the name proposed;
    // otherwise edits set, a member of sets. mrOk when the list was written.
    TModalResult Execute(TQzPkgDisplaySetsBackGround* sets, TQzPkgDisplaySetBackGround* set,
                         const AnsiString& proposedName = {});
    // The set added or edited, after mrOk.
    TQzPkgDisplaySetBackGround* Result() const { return FResult; }

    void accept() override;

private:
    void ShowValues();
    void ChooseColor(TColor TQzBackGroundValues::*which);
    void ChooseImage();
    void StyleChanged();
    void Write();

    TQzPkgDisplaySetsBackGround* FSets = nullptr;
    TQzPkgDisplaySetBackGround* FSet = nullptr;
    TQzPkgDisplaySetBackGround* FResult = nullptr;
    TQzPkgDisplaySetsBackGround FScratchList{nullptr};
    TQzPkgDisplaySetBackGround* FScratch;
    TQzPreviewPane* FPreview;
};
