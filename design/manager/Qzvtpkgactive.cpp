#include "design/manager/Qzvtpkgactive.h"

#include "runtime/model/QzGlobals.h"
#include "runtime/util/QzDesigner.h"
#include "vcl/QzQtString.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

constexpr int ObjectRole = Qt::UserRole + 1;
constexpr int NameRole = Qt::UserRole + 2;
constexpr int WhereRole = Qt::UserRole + 3;
constexpr int ActiveRole = Qt::UserRole + 4;

QWidget** WindowSlot(TQzActiveKind kind)
{
    switch (kind) {
    case akStrings: return &FrPkgStringsActive;
    case akImages: return &FrPkgImagesActive;
    case akVars: return &FrPkgVarsActive;
    case akApplications: return &FrApplicationsActive;
    case akNone: break;
    }
    return nullptr;
}

// An entry: its name, bold when it is the active one, then where it lives,
// "(Owner.Component)", in the muted colour.
class TActiveEntryDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem opt = option;
        initStyleOption(&opt, index);
        opt.text.clear();
        const QWidget* widget = opt.widget;
        QStyle* style = widget ? widget->style() : QApplication::style();
        style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

        const bool selected = opt.state & QStyle::State_Selected;
        const QRect text = opt.rect.adjusted(3, 0, -3, 0);
        QFont font = opt.font;
        font.setBold(index.data(ActiveRole).toBool());
        painter->save();
        painter->setFont(font);
        painter->setPen(opt.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        const QString name = index.data(NameRole).toString();
        QRect used;
        painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, name, &used);
        painter->setFont(opt.font);
        painter->setPen(opt.palette.color(selected ? QPalette::HighlightedText : QPalette::PlaceholderText));
        painter->drawText(text.adjusted(used.width() + 6, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          "(" + index.data(WhereRole).toString() + ")");
        painter->restore();
    }
};

}  // namespace

TFrPkgActive::TFrPkgActive(QWidget* parent) : QWidget(parent, Qt::Window)
{
    setupUi(this);
    setAttribute(Qt::WA_QuitOnClose, false);
    ListBox->setItemDelegate(new TActiveEntryDelegate(ListBox));
    FPopup = new QMenu(this);
    Active1 = FPopup->addAction("&Active");
    Active1->setObjectName("Active1");
    connect(Active1, &QAction::triggered, this, &TFrPkgActive::Active1Click);
    connect(ListBox, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (QListWidgetItem* item = ListBox->itemAt(at))
            ListBox->setCurrentItem(item);
        Active1->setEnabled(Selected() != nullptr);
        FPopup->popup(ListBox->viewport()->mapToGlobal(at));
    });
    FListener = AddQzFormsListener([this](int message) {
        if (message == QzMasterMessage && FKind != akNone)
            UpdateListBox(Selected());
    });
}

TFrPkgActive::~TFrPkgActive()
{
    RemoveQzFormsListener(FListener);
    if (QWidget** slot = WindowSlot(FKind); slot && *slot == this)
        *slot = nullptr;
}

void TFrPkgActive::Execute(TComponent* component)
{
    FKind = QzActiveKindOf(component);
    setWindowTitle(QzQString(QzActiveCaption(FKind)));
    UpdateListBox(component);
}

TComponent* TFrPkgActive::Selected() const
{
    const QListWidgetItem* item = ListBox->currentItem();
    return item && item->isSelected() ? reinterpret_cast<TComponent*>(item->data(ObjectRole).value<quintptr>())
                                      : nullptr;
}

void TFrPkgActive::UpdateListBox(TComponent* select)
{
    ListBox->clear();
    for (const TQzActiveEntry& entry : QzActiveEntries(FKind)) {
        auto* item = new QListWidgetItem(QzQString(entry.Text), ListBox);
        item->setData(ObjectRole, QVariant::fromValue(reinterpret_cast<quintptr>(entry.Object)));
        item->setData(NameRole, QzQString(entry.Name));
        item->setData(WhereRole, QzQString(entry.OwnerName + "." + entry.ComponentName));
        item->setData(ActiveRole, entry.Active);
        if (select && entry.Object == select)
            ListBox->setCurrentItem(item);
    }
}

void TFrPkgActive::Active1Click()
{
    TComponent* object = Selected();
    if (!object)
        return;
    // An entry whose object went since the list was filled is only dropped.
    QzActivateEntry(FKind, object);
    UpdateListBox(object);
}

bool QzShowPkgActive(TComponent* component)
{
    QWidget** slot = WindowSlot(QzActiveKindOf(component));
    if (!slot)
        return false;
    if (!*slot) {
        *slot = new TFrPkgActive;
        // Top-level and kept for the session: freed before the application
        // goes, while the runtime it listens to is still there.
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, *slot, &QWidget::deleteLater, Qt::UniqueConnection);
    }
    if (auto* form = qobject_cast<TFrPkgActive*>(*slot))
        form->Execute(component);
    (*slot)->show();
    (*slot)->raise();
    (*slot)->activateWindow();
    return true;
}

void QzFreePkgActiveWindows()
{
    for (TQzActiveKind kind : {akStrings, akImages, akVars, akApplications})
        delete *WindowSlot(kind);   // the destructor empties the slot
}
