#pragma once
// TFrMenus: the menu designer of the suite's main, popup and panel menus,
// a window kept beside the designer, one per menu. The menu is drawn as it
// will look; items are typed into the empty slot at the end of a list,
// inserted, deleted, moved and indented from the keyboard, the buttons, the
// context menu or by dragging them. The current item is the designer's
// selection, so the property grid shows it; every change is one change of
// the form.

#include "design/controls/QzDesignTarget.h"
#include "design/controls/QzMenuView.h"

#include "ui_TFrMenus.h"

#include <QWidget>

class TFrMenus : public QWidget, public Ui::TFrMenus {
    Q_OBJECT

public:
    explicit TFrMenus(QWidget* parent = nullptr);
    ~TFrMenus() override;

    // Shows menu (a TQzMainMenu, TQzPopupMenu or TQzPanelMenu).
    void Execute(TComponent* menu, IDesigner* designer);
    TComponent* Menu() { return FTarget.Component(); }
    TQzMenuView* View() const { return FView; }
    // The item being edited; nullptr on an empty slot.
    TQzMenuItem* Current();

    // The commands, as the keys, buttons and context menu run them.
    void Run(TQzMenuCommand command);
    void InsertSeparator();
    // Sets the current item's caption; on the empty slot, adds an item.
    void SetCaption(const AnsiString& caption);
    // false (after telling the user) when text names no shortcut.
    bool SetShortCut(const AnsiString& text);
    void EditLabel();
    void MoveTo(const TQzMenuPath& from, const TQzMenuPath& to);
    // A popup menu pops up as it will; a main menu has no popup to show.
    void TryPopup();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    TQzMenuItem* Root();
    // Lays the menu out again and shows the current item.
    void Refresh();
    void FillItem();
    // A change made: selects path, tells the designer.
    void Changed(const TQzMenuPath& select);
    void SelectInDesigner();
    void ShowContextMenu(const QPoint& pos);
    void CaptionEntered();
    void ShortCutEntered();
    void SetFlag(void (TQzMenuItem::*setter)(bool), bool value);

    TQzMenuView* FView;
    TQzDesignTarget FTarget;
    int FListener = 0;
    bool FFilling = false;
};

// The window open for menu, or nullptr.
TFrMenus* QzFindMenusWindow(TComponent* menu);
// Installs the openers of the menus editor and of a popup menu's display.
void RegisterQzvtmenus();
