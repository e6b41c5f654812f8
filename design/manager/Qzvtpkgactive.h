#pragma once
// TFrPkgActive: a window beside the designer listing every strings, images
// or variables package the runtime knows, or every application, so that
// the user can see which one of a name is active and make another one the
// active one. One window per list is kept for the session (the runtime's
// FrPkgStringsActive and friends); it follows the designer through the
// runtime's broadcast, which the host sends whenever a form changes.

#include "design/manager/QzPkgActiveList.h"

#include "ui_TFrPkgActive.h"

#include <QWidget>

class QAction;
class QMenu;

class TFrPkgActive : public QWidget, public Ui::TFrPkgActive {
    Q_OBJECT

public:
    explicit TFrPkgActive(QWidget* parent = nullptr);
    ~TFrPkgActive() override;

    // Shows the list component belongs to, with component selected.
    void Execute(TComponent* component);

    TQzActiveKind Kind() const { return FKind; }
    // The object of the selected entry, or nullptr.
    TComponent* Selected() const;
    // Refills the list, selecting select (or nothing when it is gone).
    void UpdateListBox(TComponent* select);
    // The popup's "&Active": the selected entry becomes the active one.
    void Active1Click();

    QAction* Active1;

private:
    QMenu* FPopup;
    TQzActiveKind FKind = akNone;
    int FListener = 0;
};

// Shows the window of component's list, creating it the first time; false
// when component is neither a listed package nor an application.
bool QzShowPkgActive(TComponent* component);
// Closes and frees the windows (the host, when it goes).
void QzFreePkgActiveWindows();
