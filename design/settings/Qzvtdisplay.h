#pragma once
// TFrDisplay: the application's display package as a whole. Its three
// lists of sets, each drawn as it looks; its two images packages through
// the images editor; the look of hints and common windows; its file
// through the load and save dialog, and the synchronizer. Like the other
// package editors it works on the package itself: every change is marked
// at once (one undo step each), and a package kept in its own file is
// written when the window closes. The project's controls that named a
// renamed set are given its new name when the window closes.

#include "design/reg/QzEditorDialogs.h"
#include "vcl/QzDialog.h"

#include "ui_TFrDisplay.h"

#include "runtime/model/QzPkgDisplay.h"

class TQzCApplication;
class TQzDisplaySetsPanel;

class TFrDisplay : public TQzDialog, public Ui::TFrDisplay {
    Q_OBJECT

public:
    explicit TFrDisplay(QWidget* parent = nullptr);

    // The application whose display package is edited, and the request it
    // came with (its designer marks the changes).
    void SetApplication(TQzCApplication* app, const TQzEditorDialogRequest& request = {});
    TModalResult Execute() override;

    TQzDisplaySetsPanel* Panel(int index) const { return FPanels[index]; }

    // The commands, as the buttons run them.
    void EditImages(TQzPkgImages* images);
    void RunSubDialog(TQzEditorDialog kind);
    void LoadClick();
    void SaveClick();
    void SynchronizeClick();

protected:
    void done(int result) override;

private:
    void ShowPackage();
    void Modified();
    void WriteDescription();

    TQzCApplication* FApp = nullptr;
    TQzPkgDisplay* FDisplay = nullptr;
    TQzEditorDialogRequest FRequest;
    TQzDisplaySetsPanel* FPanels[3];
};

void RegisterQzvtdisplay();
