#include "design/controls/Qzvtcollection.h"

#include "design/controls/QzCollectionEditing.h"
#include "design/controls/Qzvtcollpagecontrol.h"
#include "design/reg/QzEditorDialogs.h"

#include "runtime/components/QzPages.h"
#include "runtime/model/QzGlobals.h"
#include "runtime/util/QzDesigner.h"

#include "vcl/QzQtString.h"

#include "rtl/TypInfo.h"

#include <QAction>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>

namespace {

std::vector<QPointer<TFrCollection>>& Windows()
{
    static std::vector<QPointer<TFrCollection>> windows;
    return windows;
}

// A command of the list's context menu; the key it names is the list's
// (eventFilter), so it works wherever the window is.
void AddAction(QWidget* on, const QString& text, std::function<void()> run)
{
    auto* action = new QAction(text, on);
    QObject::connect(action, &QAction::triggered, on, std::move(run));
    on->addAction(action);
}

}  // namespace

TFrCollection::TFrCollection(QWidget* parent) : QWidget(parent, Qt::Window | Qt::Tool), FTarget([this] { UpdateList(); })
{
    setupUi(this);
    connect(BtAdd, &QToolButton::clicked, this, &TFrCollection::BtAddClick);
    connect(BtDelete, &QToolButton::clicked, this, &TFrCollection::BtDeleteClick);
    connect(BtMoveUp, &QToolButton::clicked, this, &TFrCollection::BtMoveUpClick);
    connect(BtMoveDown, &QToolButton::clicked, this, &TFrCollection::BtMoveDownClick);
    connect(BtSelectAll, &QToolButton::clicked, this, &TFrCollection::BtSelectAllClick);
    AddAction(ListView, tr("&Add\tIns"), [this] { BtAddClick(); });
    AddAction(ListView, tr("&Delete\tDel"), [this] { BtDeleteClick(); });
    AddAction(ListView, tr("Move &Up\tCtrl+Up"), [this] { BtMoveUpClick(); });
    AddAction(ListView, tr("Move Dow&n\tCtrl+Down"), [this] { BtMoveDownClick(); });
    AddAction(ListView, tr("Select A&ll\tCtrl+A"), [this] { BtSelectAllClick(); });
    ListView->installEventFilter(this);
    connect(ListView, &QListWidget::itemSelectionChanged, this, [this] {
        if (FFilling)
            return;
        UpdateButtons();
        SelectInDesigner();
    });
    // The designer's broadcast after any change of the form: the lines
    // follow what the property grid changed.
    FListener = AddQzFormsListener([this](int message) {
        if (message == QzMasterMessage)
            UpdateList();
    });
    Windows().push_back(this);
}

TFrCollection::~TFrCollection()
{
    RemoveQzFormsListener(FListener);
    auto& windows = Windows();
    windows.erase(std::remove(windows.begin(), windows.end(), this), windows.end());
}

bool TFrCollection::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != ListView || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers mods = key->modifiers() & ~Qt::KeypadModifier;
    if (mods == Qt::NoModifier && key->key() == Qt::Key_Insert)
        BtAddClick();
    else if (mods == Qt::NoModifier && key->key() == Qt::Key_Delete)
        BtDeleteClick();
    else if (mods == Qt::ControlModifier && key->key() == Qt::Key_Up)
        BtMoveUpClick();
    else if (mods == Qt::ControlModifier && key->key() == Qt::Key_Down)
        BtMoveDownClick();
    else if (mods == Qt::NoModifier && key->key() == Qt::Key_Escape)
        close();
    else
        return QWidget::eventFilter(watched, event);
    return true;
}

void TFrCollection::Execute(TCollection* collection, TComponent* component, IDesigner* designer, const AnsiString& caption)
{
    FTarget.Set(component, designer);
    FPropName = collection->PropName();
    setWindowTitle(QzQString(caption.empty() ? "Editing " + collection->GetNamePath() : caption));
    UpdateList();
    show();
    raise();
    activateWindow();
    ListView->setFocus();
}

TCollection* TFrCollection::Collection()
{
    TComponent* component = FTarget.Component();
    if (!component || FPropName.empty())
        return nullptr;
    const TPropInfo* prop = GetPropInfo(component, FPropName);
    return prop ? dynamic_cast<TCollection*>(GetObjectProp(component, prop)) : nullptr;
}

std::vector<int> TFrCollection::Chosen() const
{
    std::vector<int> chosen;
    for (int i = 0; i < ListView->count(); ++i)
        if (ListView->item(i)->isSelected())
            chosen.push_back(i);
    return chosen;
}

void TFrCollection::Choose(const std::vector<int>& indices)
{
    FFilling = true;
    ListView->clearSelection();
    for (int i : indices)
        if (i >= 0 && i < ListView->count()) {
            ListView->item(i)->setSelected(true);
            ListView->setCurrentRow(i, QItemSelectionModel::NoUpdate);
        }
    FFilling = false;
    UpdateButtons();
    SelectInDesigner();
}

AnsiString TFrCollection::ItemLine(TCollection* collection, int index)
{
    return IntToStr(index) + " - " + collection->Items(index)->GetDisplayName();
}

void TFrCollection::UpdateList()
{
    TCollection* collection = Collection();
    if (!collection) {
        // Gone from the form (or the form closed): nothing left to edit.
        close();
        return;
    }
    const std::vector<int> chosen = Chosen();
    FFilling = true;
    ListView->clear();
    for (int i = 0; i < collection->Count(); ++i)
        ListView->addItem(QzQString(ItemLine(collection, i)));
    for (int i : chosen)
        if (i < ListView->count())
            ListView->item(i)->setSelected(true);
    FFilling = false;
    UpdateButtons();
}

void TFrCollection::UpdateButtons()
{
    const std::vector<int> chosen = Chosen();
    BtDelete->setEnabled(!chosen.empty());
    BtMoveUp->setEnabled(!chosen.empty() && chosen.front() > 0);
    BtMoveDown->setEnabled(!chosen.empty() && chosen.back() < ListView->count() - 1);
    BtSelectAll->setEnabled(ListView->count() > 0);
}

void TFrCollection::SelectInDesigner()
{
    IDesigner* designer = Designer();
    TCollection* collection = Collection();
    if (!designer || !collection)
        return;
    TDesignerSelections selections;
    const std::vector<int> chosen = Chosen();
    for (int i : chosen)
        selections.push_back(collection->Items(i));
    if (selections.empty())
        selections.push_back(FTarget.Component());
    designer->SetSelections(selections);
    ItemsChosen(chosen);
}

void TFrCollection::Changed(const std::vector<int>& indices)
{
    UpdateList();
    Choose(indices);
    if (IDesigner* designer = Designer())
        designer->Modified();
}

void TFrCollection::AddItem(TCollection* collection)
{
    collection->Add();
}

void TFrCollection::DeleteItem(TCollection* collection, int index)
{
    collection->Delete(index);
}

void TFrCollection::BtAddClick()
{
    TCollection* collection = Collection();
    if (!collection)
        return;
    AddItem(collection);
    Changed({collection->Count() - 1});
}

void TFrCollection::BtDeleteClick()
{
    TCollection* collection = Collection();
    const std::vector<int> chosen = Chosen();
    if (!collection || chosen.empty())
        return;
    // The selection must not point at what goes.
    if (IDesigner* designer = Designer())
        designer->SelectComponent(FTarget.Component());
    const int next = QzCollectionDelete(collection, chosen, [&](int index) { DeleteItem(collection, index); });
    Changed(next >= 0 ? std::vector<int>{next} : std::vector<int>{});
}

void TFrCollection::Move(int delta)
{
    TCollection* collection = Collection();
    std::vector<int> chosen = Chosen();
    if (collection && QzCollectionMove(collection, chosen, delta))
        Changed(chosen);
}

void TFrCollection::BtSelectAllClick()
{
    std::vector<int> all(size_t(ListView->count()));
    for (int i = 0; i < ListView->count(); ++i)
        all[size_t(i)] = i;
    Choose(all);
}

TFrCollection* QzFindCollectionWindow(const TCollection* collection)
{
    for (const QPointer<TFrCollection>& window : Windows())
        if (window && window->Collection() == collection)
            return window;
    return nullptr;
}

namespace {

template <class TWindow>
int OpenCollection(TQzEditorDialogRequest& request)
{
    auto* collection = dynamic_cast<TCollection*>(request.Target);
    if (!collection || !request.Component)
        return 0;
    TFrCollection* window = QzFindCollectionWindow(collection);
    if (!window) {
        window = new TWindow(QzDesignWindowParent());
        window->setAttribute(Qt::WA_DeleteOnClose);
    }
    window->Execute(collection, request.Component, request.Designer, request.Caption);
    return 1;
}

}  // namespace

void RegisterQzvtcollection()
{
    QzSetEditorDialog(TQzEditorDialog::Collection, OpenCollection<TFrCollection>);
    QzSetEditorDialog(TQzEditorDialog::CollPageControl, [](TQzEditorDialogRequest& request) {
        if (!dynamic_cast<TQzCustomPageControl*>(request.Component))
            return OpenCollection<TFrCollection>(request);
        if (request.Caption.empty())
            request.Caption = "Editing " + request.Component->Name() + ".Pages";
        return OpenCollection<TFrCollPageControl>(request);
    });
}
