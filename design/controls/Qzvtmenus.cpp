#include "design/controls/Qzvtmenus.h"

#include "design/controls/QzMenuPopup.h"
#include "design/controls/QzMenuShortCuts.h"
#include "design/reg/QzEditorDialogs.h"

#include "runtime/model/QzGlobals.h"
#include "runtime/model/QzMemory.h"
#include "runtime/util/QzDesigner.h"

#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

#include <algorithm>
#include <vector>

namespace {

std::vector<QPointer<TFrMenus>>& Windows()
{
    static std::vector<QPointer<TFrMenus>> windows;
    return windows;
}

TQzMenuItem* RootOf(TComponent* menu)
{
    if (auto* m = dynamic_cast<TQzMainMenu*>(menu))
        return m->Items();
    if (auto* m = dynamic_cast<TQzPopupMenu*>(menu))
        return m->Items();
    if (auto* m = dynamic_cast<TQzPanelMenu*>(menu))
        return m->Items();
    return nullptr;
}

}  // namespace

TFrMenus::TFrMenus(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::Tool), FView(new TQzMenuView), FTarget([this] { Refresh(); })
{
    setupUi(this);
    FView->setObjectName(QStringLiteral("MenuView"));
    ScrollBox->setWidget(FView);
    for (const AnsiString& name : QzShortCutNames())
        CBShortCut->addItem(QzQString(name));

    connect(FView, &TQzMenuView::CurrentChanged, this, [this] {
        FillItem();
        SelectInDesigner();
    });
    connect(FView, &TQzMenuView::CommandRequested, this, [this](TQzMenuCommand c) { Run(c); });
    connect(FView, &TQzMenuView::TextTyped, this, [this](const QString& text) {
        EdCaption->setEnabled(true);
        EdCaption->setFocus();
        EdCaption->setText(text);
    });
    connect(FView, &TQzMenuView::MoveRequested, this, &TFrMenus::MoveTo);
    connect(FView, &QWidget::customContextMenuRequested, this, &TFrMenus::ShowContextMenu);
    connect(EdCaption, &QLineEdit::returnPressed, this, &TFrMenus::CaptionEntered);
    connect(CBShortCut, &QComboBox::activated, this, [this] { ShortCutEntered(); });
    connect(CBShortCut->lineEdit(), &QLineEdit::returnPressed, this, &TFrMenus::ShortCutEntered);
    connect(BtLabel, &QToolButton::clicked, this, &TFrMenus::EditLabel);
    connect(CBEnabled, &QCheckBox::toggled, this, [this](bool on) { SetFlag(&TQzMenuItem::SetEnabled, on); });
    connect(CBVisible, &QCheckBox::toggled, this, [this](bool on) { SetFlag(&TQzMenuItem::SetVisible, on); });
    connect(CBChecked, &QCheckBox::toggled, this, [this](bool on) { SetFlag(&TQzMenuItem::SetChecked, on); });
    connect(BtInsert, &QToolButton::clicked, this, [this] { Run(TQzMenuCommand::Insert); });
    connect(BtDelete, &QToolButton::clicked, this, [this] { Run(TQzMenuCommand::Delete); });
    connect(BtSeparator, &QToolButton::clicked, this, &TFrMenus::InsertSeparator);
    connect(BtSubmenu, &QToolButton::clicked, this, [this] { Run(TQzMenuCommand::Submenu); });
    connect(BtMoveUp, &QToolButton::clicked, this, [this] { Run(TQzMenuCommand::MoveBack); });
    connect(BtMoveDown, &QToolButton::clicked, this, [this] { Run(TQzMenuCommand::MoveForward); });
    connect(BtIndent, &QToolButton::clicked, this, [this] { Run(TQzMenuCommand::Indent); });
    connect(BtOutdent, &QToolButton::clicked, this, [this] { Run(TQzMenuCommand::Outdent); });
    connect(BtTry, &QToolButton::clicked, this, &TFrMenus::TryPopup);
    // The designer's broadcast after any change of the form (the property
    // grid's included): the menu is drawn again.
    FListener = AddQzFormsListener([this](int message) {
        if (message == QzMasterMessage)
            Refresh();
    });
    Windows().push_back(this);
}

TFrMenus::~TFrMenus()
{
    RemoveQzFormsListener(FListener);
    auto& windows = Windows();
    windows.erase(std::remove(windows.begin(), windows.end(), this), windows.end());
}

void TFrMenus::Execute(TComponent* menu, IDesigner* designer)
{
    FTarget.Set(menu, designer);
    FView->SetMenu(RootOf(menu), dynamic_cast<TQzMainMenu*>(menu) != nullptr);
    Refresh();
    show();
    raise();
    activateWindow();
    FView->setFocus();
}

void TFrMenus::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
        close();
    else
        QWidget::keyPressEvent(event);
}

TQzMenuItem* TFrMenus::Root()
{
    return RootOf(FTarget.Component());
}

TQzMenuItem* TFrMenus::Current()
{
    return QzMenuItemAt(Root(), FView->Current());
}

void TFrMenus::Refresh()
{
    TComponent* menu = FTarget.Component();
    if (!menu) {
        // Gone from the form (or the form closed): nothing left to edit.
        close();
        return;
    }
    setWindowTitle(QzQString("Editing " + menu->Name()));
    BtTry->setEnabled(dynamic_cast<TQzPopupMenu*>(menu) != nullptr);
    const TQzMenuPath current = FView->Current();
    if (FView->Root() != Root())
        FView->SetMenu(Root(), dynamic_cast<TQzMainMenu*>(menu) != nullptr);
    // A set or the images may have changed in the property grid.
    FView->SetLook(QzMenuLookOf(menu));
    FView->SetCurrent(current);
}

void TFrMenus::TryPopup()
{
    auto* popup = dynamic_cast<TQzPopupMenu*>(FTarget.Component());
    if (!popup)
        return;
    TQzEditorDialogRequest request;
    request.Component = popup;
    request.Designer = FTarget.Designer();
    QzRunEditorDialog(TQzEditorDialog::PopupMenu, request);
}

void TFrMenus::FillItem()
{
    FFilling = true;
    TQzMenuItem* item = Current();
    const bool on = item != nullptr;
    for (QWidget* w : std::initializer_list<QWidget*>{CBShortCut, BtLabel, CBEnabled, CBVisible, CBChecked, BtDelete,
                                                      BtMoveUp, BtMoveDown, BtIndent, BtOutdent, BtSubmenu})
        w->setEnabled(on);
    LabName->setText(on ? QzQString(item->Name()) : QString());
    EdCaption->setText(on ? QzQString(item->Caption()) : QString());
    const AnsiString shortCut = on ? QzShortCutToText(item->ShortCut()) : AnsiString();
    CBShortCut->setCurrentText(shortCut.empty() ? QStringLiteral("(None)") : QzQString(shortCut));
    const TQzMemoryLabel* label = on ? item->Label() : nullptr;
    EdLabel->setText(label ? QzQString(label->Info()) : QString());
    LabHint->setText(label && label->Id() >= 0 ? QzQString(label->Hint()) : QString());
    CBEnabled->setChecked(on && item->Enabled());
    CBVisible->setChecked(on && item->Visible());
    CBChecked->setChecked(on && item->Checked());
    FFilling = false;
}

void TFrMenus::SelectInDesigner()
{
    IDesigner* designer = FTarget.Designer();
    if (!designer || !FTarget.Component())
        return;
    TQzMenuItem* item = Current();
    designer->SelectComponent(item ? static_cast<TPersistent*>(item) : FTarget.Component());
}

void TFrMenus::Changed(const TQzMenuPath& select)
{
    FView->Relayout();
    FView->SetCurrent(select);
    if (IDesigner* designer = FTarget.Designer())
        designer->Modified();
}

void TFrMenus::Run(TQzMenuCommand command)
{
    TQzMenuItem* root = Root();
    if (!root)
        return;
    TQzMenuPath path = FView->Current();
    switch (command) {
    case TQzMenuCommand::Insert:
        if (QzMenuInsertNew(FTarget.Component(), root, path, FTarget.Designer()))
            Changed(path);
        break;
    case TQzMenuCommand::Delete:
        if (Current()) {
            // The selection must not point at what goes.
            if (IDesigner* designer = FTarget.Designer())
                designer->SelectComponent(FTarget.Component());
            Changed(QzMenuDelete(root, path));
        }
        break;
    case TQzMenuCommand::MoveBack:
    case TQzMenuCommand::MoveForward:
        if (QzMenuMove(root, path, command == TQzMenuCommand::MoveBack ? -1 : 1))
            Changed(path);
        break;
    case TQzMenuCommand::Indent:
        if (QzMenuIndent(root, path))
            Changed(path);
        break;
    case TQzMenuCommand::Outdent:
        if (QzMenuOutdent(root, path))
            Changed(path);
        break;
    case TQzMenuCommand::Submenu:
        if (TQzMenuItem* item = Current(); item && !item->IsLine()) {
            path.push_back(0);
            FView->SetCurrent(path);
        }
        break;
    case TQzMenuCommand::EditCaption:
        EdCaption->setEnabled(true);
        EdCaption->setFocus();
        EdCaption->selectAll();
        break;
    }
}

void TFrMenus::InsertSeparator()
{
    const TQzMenuPath path = FView->Current();
    if (QzMenuInsertNew(FTarget.Component(), Root(), path, FTarget.Designer(), "-"))
        Changed(path);
}

void TFrMenus::SetCaption(const AnsiString& caption)
{
    TQzMenuItem* root = Root();
    if (!root)
        return;
    const TQzMenuPath path = FView->Current();
    TQzMenuItem* item = Current();
    if (!item) {
        if (caption.empty())
            return;
        if (QzMenuInsertNew(FTarget.Component(), root, path, FTarget.Designer(), caption))
            Changed(path);
        return;
    }
    if (item->Caption() == caption)
        return;
    item->SetCaption(caption);
    Changed(path);
}

void TFrMenus::CaptionEntered()
{
    SetCaption(QzAnsiString(EdCaption->text()));
    // Like typing a list: Enter goes on to the next place.
    TQzMenuPath next = FView->Current();
    if (QzMenuItemAt(Root(), next)) {
        ++next.back();
        FView->SetCurrent(next);
    }
    FView->setFocus();
}

bool TFrMenus::SetShortCut(const AnsiString& text)
{
    TQzMenuItem* item = Current();
    if (!item)
        return false;
    TShortCut shortCut = 0;
    if (!QzTextToShortCut(text, shortCut)) {
        QzMessage("\"" + text + "\" is not a shortcut.", mtError, {mbOK}, mbOK, this);
        FillItem();
        return false;
    }
    if (shortCut != item->ShortCut()) {
        item->SetShortCut(shortCut);
        Changed(FView->Current());
    }
    return true;
}

void TFrMenus::ShortCutEntered()
{
    if (!FFilling)
        SetShortCut(QzAnsiString(CBShortCut->currentText()));
}

void TFrMenus::SetFlag(void (TQzMenuItem::*setter)(bool), bool value)
{
    TQzMenuItem* item = Current();
    if (FFilling || !item)
        return;
    (item->*setter)(value);
    Changed(FView->Current());
}

void TFrMenus::EditLabel()
{
    TQzMenuItem* item = Current();
    if (!item)
        return;
    TQzEditorDialogRequest request;
    request.Target = item->Label();
    request.Component = item;
    request.Designer = FTarget.Designer();
    if (QzRunEditorDialog(TQzEditorDialog::MemoryLabel, request) == 1)
        Changed(FView->Current());
    else
        FillItem();
}

void TFrMenus::MoveTo(const TQzMenuPath& from, const TQzMenuPath& to)
{
    TQzMenuPath path = from;
    if (QzMenuMoveTo(Root(), path, to))
        Changed(path);
}

void TFrMenus::ShowContextMenu(const QPoint& pos)
{
    QMenu menu(this);
    const bool item = Current() != nullptr;
    const auto add = [&](const QString& text, const QString& key, bool enabled, auto slot) {
        QAction* action = menu.addAction(text);
        action->setShortcut(QKeySequence(key));
        action->setShortcutVisibleInContextMenu(true);
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, slot);
    };
    add(tr("&Insert"), QStringLiteral("Ins"), true, [this] { Run(TQzMenuCommand::Insert); });
    add(tr("&Delete"), QStringLiteral("Del"), item, [this] { Run(TQzMenuCommand::Delete); });
    add(tr("Insert &Separator"), {}, true, [this] { InsertSeparator(); });
    add(tr("&Create Submenu"), QStringLiteral("Ctrl+Right"), item, [this] { Run(TQzMenuCommand::Submenu); });
    menu.addSeparator();
    add(tr("Move &Up"), {}, item, [this] { Run(TQzMenuCommand::MoveBack); });
    add(tr("Move Dow&n"), {}, item, [this] { Run(TQzMenuCommand::MoveForward); });
    add(tr("In&dent"), QStringLiteral("Tab"), item, [this] { Run(TQzMenuCommand::Indent); });
    add(tr("&Outdent"), QStringLiteral("Shift+Tab"), item, [this] { Run(TQzMenuCommand::Outdent); });
    menu.exec(FView->mapToGlobal(pos));
}

TFrMenus* QzFindMenusWindow(TComponent* menu)
{
    for (const QPointer<TFrMenus>& window : Windows())
        if (window && window->Menu() == menu)
            return window;
    return nullptr;
}

void RegisterQzvtmenus()
{
    QzSetEditorDialog(TQzEditorDialog::Menus, [](TQzEditorDialogRequest& request) {
        TComponent* menu = request.Component;
        if (!RootOf(menu))
            return 0;
        TFrMenus* window = QzFindMenusWindow(menu);
        if (!window) {
            window = new TFrMenus(QzDesignWindowParent());
            window->setAttribute(Qt::WA_DeleteOnClose);
        }
        window->Execute(menu, request.Designer);
        return 1;
    });
    QzSetEditorDialog(TQzEditorDialog::PopupMenu, [](TQzEditorDialogRequest& request) {
        auto* popup = dynamic_cast<TQzPopupMenu*>(request.Component);
        if (!popup)
            return 0;
        QzShowPopupMenu(popup);
        return 1;
    });
}
