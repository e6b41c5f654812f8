#include "design/settings/QzDisplaySetsPanel.h"

#include "design/controls/QzDisplayPreview.h"
#include "design/settings/QzDisplaySetPaint.h"
#include "design/settings/Qzvtsetsbackgroundadd.h"
#include "designide/QzPortDsgn.h"
#include "runtime/pictures/Qzdrawutil.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

constexpr int PreviewWidth = 72;   // backgrounds and colours
constexpr int NameWidth = 150;     // fonts: the name column before the sample

// A row holds its set's index in the list (-1: "(Default)"), so that a row
// painted while the list changes never reaches a set that is gone.
TQzPkgDisplaySet* SetAt(const TQzPkgDisplaySets* sets, int index)
{
    return sets && index >= 0 && index < sets->Count() ? static_cast<TQzPkgDisplaySet*>(sets->Item(index)) : nullptr;
}

// Each row shows the set as it looks beside its name and description.
class TSetDelegate : public QStyledItemDelegate {
public:
    TSetDelegate(QObject* parent, const TQzPkgDisplaySets* const* sets) : QStyledItemDelegate(parent), FSets(sets) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        int height = 2 * option.fontMetrics.height() + 8;
        if (auto* font = dynamic_cast<const TQzPkgDisplaySetFont*>(SetOf(index)))
            height = std::clamp(QFontMetrics(QzFontOfValues(font->Values())).height() + 10, height, 64);
        return {NameWidth + 200, height};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem opt = option;
        initStyleOption(&opt, index);
        opt.text.clear();
        const QWidget* widget = opt.widget;
        (widget ? widget->style() : QApplication::style())->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);
        painter->save();
        painter->setPen(opt.palette.color(opt.state & QStyle::State_Selected ? QPalette::HighlightedText
                                                                              : QPalette::Text));
        const QRect area = option.rect.adjusted(4, 3, -4, -3);
        const TQzPkgDisplaySet* set = SetOf(index);
        if (!set) {
            QFont italic = opt.font;
            italic.setItalic(true);
            painter->setFont(italic);
            painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                              QStringLiteral("(Default): the control's own look"));
            painter->restore();
            return;
        }
        const QRect names = NameRect(area, *set);
        QFont bold = opt.font;
        bold.setBold(true);
        painter->setFont(bold);
        const QString description = QzQString(set->Description());
        painter->drawText(names, Qt::AlignLeft | (description.isEmpty() ? Qt::AlignVCenter : Qt::AlignTop),
                          QzQString(set->Name()));
        painter->setFont(opt.font);
        painter->drawText(names, Qt::AlignLeft | Qt::AlignBottom,
                          opt.fontMetrics.elidedText(description, Qt::ElideRight, names.width()));
        painter->restore();
        const bool font = dynamic_cast<const TQzPkgDisplaySetFont*>(set) != nullptr;
        const QRect preview = font ? QRect(names.right() + 8, area.top(), area.right() - names.right() - 8,
                                           area.height())
                                   : QRect(area.left(), area.top(), PreviewWidth, area.height());
        QzPaintDisplaySet(*painter, preview, *set);
    }

    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override
    {
        const QRect area = option.rect.adjusted(4, 3, -4, -3);
        const TQzPkgDisplaySet* set = SetOf(index);
        QRect rect = set ? NameRect(area, *set) : area;
        rect.setHeight(editor->sizeHint().height());
        editor->setGeometry(rect);
    }

private:
    TQzPkgDisplaySet* SetOf(const QModelIndex& index) const
    {
        return SetAt(*FSets, index.data(Qt::UserRole).toInt());
    }
    static QRect NameRect(const QRect& area, const TQzPkgDisplaySet& set)
    {
        if (dynamic_cast<const TQzPkgDisplaySetFont*>(&set))
            return QRect(area.left(), area.top(), NameWidth, area.height());
        return area.adjusted(PreviewWidth + 8, 0, 0, 0);
    }

    const TQzPkgDisplaySets* const* FSets;
};

QPushButton* MakeButton(QWidget* parent, QBoxLayout* layout, const char* name, const QString& text)
{
    auto* button = new QPushButton(text, parent);
    button->setObjectName(QString::fromLatin1(name));
    layout->addWidget(button);
    return button;
}

}  // namespace

TQzDisplaySetsPanel::TQzDisplaySetsPanel(QWidget* parent) : QWidget(parent)
{
    auto* main = new QVBoxLayout(this);
    main->setContentsMargins(0, 0, 0, 0);
    auto* body = new QHBoxLayout;
    main->addLayout(body, 1);
    LBSets = new QListWidget(this);
    LBSets->setObjectName(QStringLiteral("LBSets"));
    LBSets->setItemDelegate(new TSetDelegate(LBSets, &FSets));
    LBSets->setEditTriggers(QAbstractItemView::EditKeyPressed);
    LBSets->setMinimumSize(380, 220);
    body->addWidget(LBSets, 1);
    auto* buttons = new QVBoxLayout;
    body->addLayout(buttons);
    BtNew = MakeButton(this, buttons, "BtNew", QStringLiteral("&New..."));
    BtEdit = MakeButton(this, buttons, "BtEdit", QStringLiteral("&Edit..."));
    BtFontColor = MakeButton(this, buttons, "BtFontColor", QStringLiteral("Font &Colour..."));
    BtRename = MakeButton(this, buttons, "BtRename", QStringLiteral("&Rename"));
    BtDelete = MakeButton(this, buttons, "BtDelete", QStringLiteral("&Delete"));
    buttons->addStretch(1);
    auto* line = new QHBoxLayout;
    main->addLayout(line);
    auto* label = new QLabel(QStringLiteral("Set descri&ption:"), this);
    EdDescription = new QLineEdit(this);
    EdDescription->setObjectName(QStringLiteral("EdDescription"));
    label->setBuddy(EdDescription);
    line->addWidget(label);
    line->addWidget(EdDescription, 1);

    LBSets->installEventFilter(this);
    connect(BtNew, &QPushButton::clicked, this, &TQzDisplaySetsPanel::NewSet);
    connect(BtEdit, &QPushButton::clicked, this, &TQzDisplaySetsPanel::EditSet);
    connect(BtFontColor, &QPushButton::clicked, this, &TQzDisplaySetsPanel::ChooseFontColor);
    connect(BtRename, &QPushButton::clicked, this, &TQzDisplaySetsPanel::RenameSet);
    connect(BtDelete, &QPushButton::clicked, this, &TQzDisplaySetsPanel::DeleteSet);
    connect(EdDescription, &QLineEdit::editingFinished, this, &TQzDisplaySetsPanel::WriteDescription);
    connect(LBSets, &QListWidget::currentRowChanged, this, &TQzDisplaySetsPanel::UpdateState);
    connect(LBSets, &QListWidget::itemChanged, this, &TQzDisplaySetsPanel::ItemEdited);
    connect(LBSets, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        if (OnActivated)
            OnActivated();
        else if (item->data(Qt::UserRole).toInt() >= 0)
            EditSet();
    });
}

bool TQzDisplaySetsPanel::eventFilter(QObject* watched, QEvent* event)
{
    // Insert and Delete on the list, as in the designer's other lists.
    if (watched == LBSets && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() == Qt::NoModifier && key->key() == Qt::Key_Insert) {
            NewSet();
            return true;
        }
        if (key->modifiers() == Qt::NoModifier && key->key() == Qt::Key_Delete) {
            DeleteSet();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void TQzDisplaySetsPanel::SetSets(TQzPkgDisplaySets* sets, bool withDefault)
{
    FSets = sets;
    FWithDefault = withDefault;
    if (sets)
        FKind = QzDisplaySetKindOf(*sets);
    BtFontColor->setVisible(FKind == TQzDisplaySetKind::Font);
    Reload();
}

void TQzDisplaySetsPanel::Reload()
{
    const TQzPkgDisplaySet* current = Current();
    const AnsiString keep = current ? current->Name() : AnsiString();
    const bool keepDefault = IsDefaultRow();
    FLoading = true;
    LBSets->clear();
    if (FWithDefault) {
        auto* item = new QListWidgetItem(QStringLiteral("(Default)"), LBSets);
        item->setData(Qt::UserRole, -1);
    }
    for (int i = 0; FSets && i < FSets->Count(); ++i) {
        auto* set = static_cast<TQzPkgDisplaySet*>(FSets->Item(i));
        auto* item = new QListWidgetItem(QzQString(set->Name()), LBSets);
        item->setData(Qt::UserRole, i);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    FLoading = false;
    if (!keep.empty())
        SelectName(keep);
    else if (keepDefault || LBSets->count() > 0)
        LBSets->setCurrentRow(0);
    UpdateState();
}

TQzPkgDisplaySet* TQzDisplaySetsPanel::Current() const
{
    QListWidgetItem* item = LBSets->currentItem();
    return item ? SetAt(FSets, item->data(Qt::UserRole).toInt()) : nullptr;
}

bool TQzDisplaySetsPanel::IsDefaultRow() const
{
    return FWithDefault && LBSets->currentRow() == 0;
}

void TQzDisplaySetsPanel::SelectName(const AnsiString& name)
{
    const int index = FSets ? QzIndexOfDisplaySet(*FSets, name) : -1;
    if (index >= 0)
        LBSets->setCurrentRow(index + (FWithDefault ? 1 : 0));
    else if (FWithDefault)
        LBSets->setCurrentRow(0);
}

void TQzDisplaySetsPanel::UpdateState()
{
    TQzPkgDisplaySet* set = Current();
    for (QWidget* w : std::initializer_list<QWidget*>{BtEdit, BtFontColor, BtRename, BtDelete, EdDescription})
        w->setEnabled(set != nullptr);
    BtNew->setEnabled(FSets != nullptr);
    const QSignalBlocker block(EdDescription);
    EdDescription->setText(set ? QzQString(set->Description()) : QString());
}

bool TQzDisplaySetsPanel::Change(const std::function<void()>& change)
{
    return QzRunReportingErrors(this, change);
}

void TQzDisplaySetsPanel::Changed(const TQzPkgDisplaySet* select)
{
    Reload();
    if (select)
        SelectName(select->Name());
    if (OnChanged)
        OnChanged();
}

void TQzDisplaySetsPanel::NewSet()
{
    if (!FSets)
        return;
    TQzPkgDisplaySet* added = nullptr;
    switch (FKind) {
    case TQzDisplaySetKind::BackGround: {
        TFrSetsBackGroundAdd form(this);
        if (form.Execute(static_cast<TQzPkgDisplaySetsBackGround*>(FSets), nullptr) != mrOk)
            return;
        added = form.Result();
        break;
    }
    case TQzDisplaySetKind::Color: {
        QColor color(Qt::black);
        if (!QzChooseColor(color, this) ||
            !Change([&] {
                auto* set = static_cast<TQzPkgDisplaySetColor*>(QzAddDisplaySet(*FSets, QzNewDisplaySetName(*FSets)));
                set->SetColor(QzColorOfQColor(color));
                added = set;
            }))
            return;
        break;
    }
    case TQzDisplaySetKind::Font: {
        const TQzFontValues standard;
        QFont font = QzFontOfValues(standard);
        if (!QzChooseFont(font, this) ||
            !Change([&] {
                auto* set = static_cast<TQzPkgDisplaySetFont*>(QzAddDisplaySet(*FSets, QzNewDisplaySetName(*FSets)));
                set->SetValues(QzFontValuesOf(font, standard.Color));
                added = set;
            }))
            return;
        break;
    }
    }
    Changed(added);
    // A colour or font set gets a number for a name: let it be typed over.
    if (FKind != TQzDisplaySetKind::BackGround)
        RenameSet();
}

void TQzDisplaySetsPanel::EditSet()
{
    TQzPkgDisplaySet* set = Current();
    if (!set)
        return;
    if (auto* back = dynamic_cast<TQzPkgDisplaySetBackGround*>(set)) {
        // The background window changes the name too.
        const AnsiString name = back->Name();
        TFrSetsBackGroundAdd form(this);
        if (form.Execute(static_cast<TQzPkgDisplaySetsBackGround*>(FSets), back) == mrOk) {
            if (back->Name() != name)
                FRenames.Renamed(name, back->Name());
            Changed(back);
        }
    } else if (auto* color = dynamic_cast<TQzPkgDisplaySetColor*>(set)) {
        QColor value = QzColorToQColor(color->Color());
        if (QzChooseColor(value, this) && Change([&] { color->SetColor(QzColorOfQColor(value)); }))
            Changed(color);
    } else if (auto* font = dynamic_cast<TQzPkgDisplaySetFont*>(set)) {
        QFont value = QzFontOfValues(font->Values());
        if (QzChooseFont(value, this) && Change([&] { font->SetValues(QzFontValuesOf(value, font->Values().Color)); }))
            Changed(font);
    }
}

void TQzDisplaySetsPanel::ChooseFontColor()
{
    auto* font = dynamic_cast<TQzPkgDisplaySetFont*>(Current());
    if (!font)
        return;
    QColor value = QzColorToQColor(font->Values().Color);
    if (QzChooseColor(value, this) && Change([&] { font->SetColor(QzColorOfQColor(value)); }))
        Changed(font);
}

void TQzDisplaySetsPanel::RenameSet()
{
    if (Current())
        LBSets->editItem(LBSets->currentItem());
}

bool TQzDisplaySetsPanel::Rename(const AnsiString& name)
{
    TQzPkgDisplaySet* set = Current();
    if (!set)
        return false;
    const AnsiString old = set->Name();
    if (name == old)
        return true;
    const bool done = Change([&] { set->SetName(name); });
    if (done)
        FRenames.Renamed(old, name);
    // Refused: the row shows the name the set kept.
    Changed(set);
    return done;
}

void TQzDisplaySetsPanel::ItemEdited(QListWidgetItem* item)
{
    if (FLoading || item != LBSets->currentItem())
        return;
    const AnsiString typed = QzAnsiString(item->text().trimmed());
    // Queued: the list must not be rebuilt while it finishes the edit.
    QMetaObject::invokeMethod(this, [this, typed] { Rename(typed); }, Qt::QueuedConnection);
}

void TQzDisplaySetsPanel::DeleteSet()
{
    TQzPkgDisplaySet* set = Current();
    if (!set)
        return;
    const AnsiString text = "Delete the set \"" + set->Name() + "\"?";
    if (QzMessage(text, mtConfirmation, mbYesNo, mbNo, this) != mrYes)
        return;
    const int row = LBSets->currentRow();
    const int index = set->Index();
    const AnsiString name = set->Name();
    if (Change([&] { FSets->Delete(index); }))
        FRenames.Deleted(name);
    Changed(nullptr);
    LBSets->setCurrentRow(std::min(row, LBSets->count() - 1));
}

void TQzDisplaySetsPanel::WriteDescription()
{
    TQzPkgDisplaySet* set = Current();
    const AnsiString text = QzAnsiString(EdDescription->text());
    if (!set || text == set->Description())
        return;
    if (Change([&] { set->SetDescription(text); }))
        Changed(set);
    else
        UpdateState();
}

void TQzDisplaySetsPanel::FollowRenames()
{
    const std::vector<TQzSetRename> renames = FRenames.Renames();
    FRenames.Clear();
    TProjectServices* project = GetProjectServices();
    if (renames.empty() || !project)
        return;
    TQzSetRenamesFollowed followed;
    QzRunReportingErrors(this, [&] { followed = QzFollowDisplaySetRenames(*project, FKind, renames); });
    AnsiString failures;
    for (const AnsiString& failure : followed.Failures)
        failures += (failures.empty() ? "" : "\n") + failure;
    if (!failures.empty())
        QzMessage("Controls on these forms still name the sets' old names:\n" + failures, mtWarning, {mbOK}, mbOK,
                  this);
}
