#include "design/strings/Qzvtpkgstringstranslator.h"

#include "design/strings/Qzvtopenfiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/util/QzDesigner.h"
#include "runtime/util/QzMessages.h"
#include "runtime/util/QzPaths.h"
#include "vcl/QzListDelegate.h"
#include "vcl/QzListModel.h"
#include "vcl/QzListView.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QAction>
#include <QMenu>
#include <QMouseEvent>

namespace {

enum TColumn { IdColumn, MarkColumn, EditedColumn, TranslationColumn };

// A row shows one line of a text of several.
QString OneLine(const AnsiString& text)
{
    QString s = QzQString(text);
    s.replace(QLatin1String("\r\n"), QLatin1String(" "));
    s.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return s;
}

QString CheckList(const std::vector<AnsiString>& checks)
{
    QStringList lines;
    for (const AnsiString& c : checks)
        lines << QzQString(c);
    return lines.join(QLatin1Char('\n'));
}

}  // namespace

// The rows' model: a marker column whose tooltip lists the checks the row
// fails, which the plain list model (tooltips repeat the cell) cannot say.
class TQzTranslatorListModel : public TQzListModel {
public:
    using TQzListModel::TQzListModel;
    std::function<QString(int sourceRow)> MarkTip;

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role == Qt::ToolTipRole && index.column() == MarkColumn)
            return MarkTip ? MarkTip(SourceRow(index.row())) : QString();
        return TQzListModel::data(index, role);
    }
};

// ---------------------------------------------------------------------------
// The Add and Modify dialog

TFrPkgStringsTranslatorAdd::TFrPkgStringsTranslatorAdd(TQzTranslatorKind kind, QWidget* parent)
    : TQzDialog(parent), FKind(kind)
{
    setupUi(this);
    connect(BtOk, &QPushButton::clicked, this, &TFrPkgStringsTranslatorAdd::accept);
    QzSetModalResult(BtCancel, mrCancel);
    const bool hint = QzTranslatorTraits(kind).HasHint;
    for (QWidget* w : std::initializer_list<QWidget*>{LabHint1, EdHint1, LabHint2, EdHint2})
        w->setVisible(hint);
    // A label or a message is one line; a text may hold several.
    if (kind != TQzTranslatorKind::Texts) {
        const int lines = fontMetrics().lineSpacing() * 3;
        EdText1->setMaximumHeight(lines);
        EdText2->setMaximumHeight(lines);
    }
}

TModalResult TFrPkgStringsTranslatorAdd::Execute(TQzPkgStrings* edited, const TQzPkgStrings* translation, Integer id,
                                                 bool modify)
{
    const TQzTranslatorTraits& traits = QzTranslatorTraits(FKind);
    FEdited = edited;
    FId = id;
    setWindowTitle(modify ? traits.ModifyCaption : traits.AddCaption);
    EdId->setText(QString::number(id));
    const TQzTranslatorSide other = QzTranslatorSide(translation, FKind, id);
    EdText1->setPlainText(QzQString(other.Text));
    EdHint1->setText(QzQString(other.Hint));
    const TQzTranslatorSide own = modify ? QzTranslatorSide(edited, FKind, id) : TQzTranslatorSide{};
    EdText2->setPlainText(QzQString(own.Text));
    EdHint2->setText(QzQString(own.Hint));
    EdText2->setFocus();
    return ShowModal();
}

void TFrPkgStringsTranslatorAdd::accept()
{
    const AnsiString text = QzAnsiString(EdText2->toPlainText());
    const AnsiString hint = QzAnsiString(EdHint2->text());
    if (QzRunReportingErrors(this, [&] { QzTranslatorWrite(*FEdited, FKind, FId, text, hint); }))
        TQzDialog::accept();
}

// ---------------------------------------------------------------------------
// The translator

TFrPkgStringsTranslator::TFrPkgStringsTranslator(TQzTranslatorKind kind, QWidget* parent)
    : TQzDialog(parent), FKind(kind)
{
    setupUi(this);
    CreateMenus();
    const TQzTranslatorTraits& traits = QzTranslatorTraits(kind);
    setWindowTitle(traits.Caption);
    // The controls carry the names the suite gives them in each translator.
    static const char* const memoNames[][3] = {
        {"MeHint1", "MeHint2", "Hint:"}, {"MeMsg1", "MeMsg2", "Message:"}, {"MeText1", "MeText2", "Text:"}};
    const auto& names = memoNames[static_cast<int>(kind)];
    List->setObjectName(traits.ListName);
    Memo1->setObjectName(names[0]);
    Memo2->setObjectName(names[1]);
    LabMemo->setText(names[2]);

    TQzRowProvider rows;
    rows.RowCount = [this] { return static_cast<int>(FIds.size()); };
    rows.Text = [this](int row, int column) -> QString {
        const Integer id = FIds[static_cast<size_t>(row)];
        switch (column) {
        case IdColumn: return QString::number(id);
        case MarkColumn: return RowChecks(id).empty() ? QString() : QStringLiteral("!");
        case EditedColumn: return OneLine(QzTranslatorSide(FPackage, FKind, id).Text);
        default: return OneLine(QzTranslatorSide(FTranslation->Strings(), FKind, id).Text);
        }
    };
    rows.TextColor = [](int, int column) { return column == MarkColumn ? QColor(Qt::red) : QColor(); };
    QList<TQzListColumn> columns;
    columns.append(TQzListColumn{{}, TQzColumnKind::Text, QStringLiteral("999999"), 0, Qt::AlignLeft | Qt::AlignVCenter, true});
    columns.append(TQzListColumn{{}, TQzColumnKind::Text, QStringLiteral("!!"), 0, Qt::AlignCenter, false});
    columns.append(TQzListColumn{});
    columns.append(TQzListColumn{});
    FModel = new TQzTranslatorListModel(columns, rows, this);
    FModel->MarkTip = [this](int row) -> QString {
        if (row < 0 || row >= static_cast<int>(FIds.size()))
            return {};
        return CheckList(RowChecks(FIds[static_cast<size_t>(row)]));
    };
    List->SetSortable(false);
    List->SetSearchColumn(IdColumn);
    // A row is as high as a line of text; the memos show a few lines of the
    // selected row (more for texts, which are written in paragraphs).
    List->SetRowHeight(fontMetrics().height() + 2);
    const int memoLines = kind == TQzTranslatorKind::Texts ? 8 : 4;
    for (QPlainTextEdit* memo : {Memo1, Memo2})
        memo->setMaximumHeight(fontMetrics().lineSpacing() * memoLines + 2 * memo->frameWidth() + 8);
    List->SetListModel(FModel);
    List->viewport()->installEventFilter(this);
    connect(List, &TQzListView::CurrentRowChanged, this, [this] { LabelsClick(); });
    connect(List, &QAbstractItemView::doubleClicked, this, [this] { Modify1Click(); });

    for (const char* name : QzTranslatorFilterNames())
        CBFilter->addItem(QString::fromUtf8(name));
    connect(CBFilter, &QComboBox::currentIndexChanged, this,
            [this](int index) { SetFilter(static_cast<TQzTranslatorFilter>(index)); });
    connect(SBPath, &QToolButton::clicked, this, [this] { SBPathClick(); });
}

TFrPkgStringsTranslator::~TFrPkgStringsTranslator() = default;

std::vector<AnsiString> TFrPkgStringsTranslator::RowChecks(Integer id) const
{
    return QzTranslatorRowChecks(QzTranslatorSide(FPackage, FKind, id), QzTranslatorSide(FTranslation->Strings(), FKind, id));
}

void TFrPkgStringsTranslator::CreateMenus()
{
    PopupMenu1 = new QMenu(this);
    PopupMenu1->setObjectName(QStringLiteral("PopupMenu1"));
    PopupMenu2 = new QMenu(this);
    PopupMenu2->setObjectName(QStringLiteral("PopupMenu2"));
    const auto command = [this](QMenu* menu, const char* name, const QString& caption, QKeySequence key, auto run) {
        auto* action = menu->addAction(caption);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, run);
        return action;
    };
    Add1 = command(PopupMenu1, "Add1", tr("&Add"), {}, [this] { Add1Click(); });
    Modify1 = command(PopupMenu1, "Modify1", tr("&Modify"), QKeySequence(Qt::CTRL | Qt::Key_M), [this] { Modify1Click(); });
    Delete1 = command(PopupMenu1, "Delete1", tr("&Delete"), {}, [this] { Delete1Click(); });
    PopupMenu1->addSeparator();
    Save1 = command(PopupMenu1, "Save1", tr("&Save"), QKeySequence(Qt::CTRL | Qt::Key_S), [this] { Save1Click(); });
    Save2 = command(PopupMenu2, "Save2", tr("&Save"), {}, [this] { Save1Click(); });
    // The shortcuts work without the menu open; the commands check the
    // selected row themselves.
    Modify1->setShortcutContext(Qt::WindowShortcut);
    Save1->setShortcutContext(Qt::WindowShortcut);
    addAction(Modify1);
    addAction(Save1);
    connect(PopupMenu1, &QMenu::aboutToShow, this, [this] { PopupMenu1Popup(); });
    connect(PopupMenu2, &QMenu::aboutToShow, this, [this] { PopupMenu1Popup(); });
}

TModalResult TFrPkgStringsTranslator::Execute()
{
    FTranslation = std::make_unique<TQzTranslation>(*FPackage, FFormFileOf);
    OpenTranslation(FTranslation->FileName());
    return ShowModal();
}

void TFrPkgStringsTranslator::OpenTranslation(const AnsiString& fileName)
{
    QzRunReportingErrors(this, [&] { FTranslation->Open(fileName); });
    UpdateCaptions();
    Load();
    UpdateBar();
}

void TFrPkgStringsTranslator::Load()
{
    Integer keep = 0;
    const bool hadRow = SelectedId(keep);
    FIds = QzTranslatorFilterIds(
        QzTranslatorIds(QzTranslatorCollection(FPackage, FKind), QzTranslatorCollection(FTranslation->Strings(), FKind)),
        FFilter, FKind, FPackage, FTranslation->Strings());
    FModel->Reload();
    if (!hadRow || !SelectId(keep))
        LabelsClick();
}

void TFrPkgStringsTranslator::UpdateBar()
{
    SBar->showMessage(QzQString(QzTranslatorStatusText(FKind, *FPackage, *FTranslation)));
    LabelTitle1->setText(QzQString("Pkg: " + FPackage->PkgName()));
    LabelTitle2->setText(QzQString("Pkg: " + FTranslation->Strings()->PkgName()));
}

void TFrPkgStringsTranslator::UpdateCaptions()
{
    LabCurrentFile->setText(QzQString(QzTranslatorCurrentFileText(*FTranslation)));
    LabLoadFile->setText(QzQString(QzTranslatorLoadFileText(*FTranslation)));
    // The file's own name matters most: the folders go first when short of room.
    const QString path = QzQString(FTranslation->FileName());
    LabelPath->setToolTip(path);
    LabelPath->setText(LabelPath->fontMetrics().elidedText(path, Qt::ElideLeft, std::max(LabelPath->width() - 8, 40)));
}

void TFrPkgStringsTranslator::AlignTitles()
{
    // Each title starts over its text column.
    const int x = List->columnViewportPosition(EditedColumn) + List->frameWidth();
    const int width = List->columnViewportPosition(TranslationColumn) - List->columnViewportPosition(EditedColumn);
    PanelTitle->layout()->setContentsMargins(x, 0, 0, 0);
    LabelTitle1->setFixedWidth(std::max(width, 10));
}

void TFrPkgStringsTranslator::resizeEvent(QResizeEvent* event)
{
    TQzDialog::resizeEvent(event);
    if (FTranslation)
        UpdateCaptions();
    AlignTitles();
}

void TFrPkgStringsTranslator::showEvent(QShowEvent* event)
{
    TQzDialog::showEvent(event);
    if (FTranslation)
        UpdateCaptions();
    AlignTitles();
}

bool TFrPkgStringsTranslator::SelectedId(Integer& id) const
{
    const int row = List->CurrentSourceRow();
    if (row < 0 || row >= static_cast<int>(FIds.size()))
        return false;
    id = FIds[static_cast<size_t>(row)];
    return true;
}

bool TFrPkgStringsTranslator::SelectId(Integer id)
{
    const auto it = std::lower_bound(FIds.begin(), FIds.end(), id);
    if (it == FIds.end() || *it != id)
        return false;
    List->SelectSourceRow(static_cast<int>(it - FIds.begin()));
    LabelsClick();
    return true;
}

void TFrPkgStringsTranslator::SetFilter(TQzTranslatorFilter filter)
{
    FFilter = filter;
    if (CBFilter->currentIndex() != static_cast<int>(filter))
        CBFilter->setCurrentIndex(static_cast<int>(filter));
    if (FTranslation)
        Load();
}

void TFrPkgStringsTranslator::LabelsClick()
{
    // The shortcuts act without the menu shown: they follow the row too.
    PopupMenu1Popup();
    Integer id = 0;
    if (!SelectedId(id)) {
        Memo1->clear();
        Memo2->clear();
        return;
    }
    const TQzTranslatorSide edited = QzTranslatorSide(FPackage, FKind, id);
    const TQzTranslatorSide other = QzTranslatorSide(FTranslation->Strings(), FKind, id);
    const bool hint = QzTranslatorTraits(FKind).HasHint;
    Memo1->setPlainText(QzQString(hint ? edited.Hint : edited.Text));
    Memo2->setPlainText(QzQString(hint ? other.Hint : other.Text));
}

void TFrPkgStringsTranslator::PopupMenu1Popup()
{
    if (!FTranslation)
        return;
    Integer id = 0;
    const bool selected = SelectedId(id);
    const bool inEdited = selected && QzTranslatorSide(FPackage, FKind, id).Present;
    const TQzTranslatorMenu m = QzTranslatorMenuState(selected, inEdited, FTranslation->SavesOwnFile());
    Add1->setEnabled(m.Add);
    Modify1->setEnabled(m.Modify);
    Delete1->setEnabled(m.Delete);
    Save1->setEnabled(m.Save);
    Save2->setEnabled(m.Save);
}

bool TFrPkgStringsTranslator::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == List->viewport() && event->type() == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton) {
            const QModelIndex index = List->indexAt(mouse->position().toPoint());
            if (index.isValid())
                List->SelectSourceRow(FModel->SourceRow(index.row()));
            return true;
        }
    }
    if (watched == List->viewport() && event->type() == QEvent::MouseButtonRelease)
        if (ListMouse(static_cast<QMouseEvent*>(event)))
            return true;
    return TQzDialog::eventFilter(watched, event);
}

bool TFrPkgStringsTranslator::ListMouse(QMouseEvent* event)
{
    if (event->button() != Qt::RightButton)
        return false;
    const QPoint at = List->viewport()->mapToGlobal(event->position().toPoint());
    if (List->indexAt(event->position().toPoint()).isValid()) {
        LabelsClick();
        PopupMenu1->popup(at);
    } else {
        PopupMenu2->popup(at);
    }
    return true;
}

// ---------------------------------------------------------------------------
// Commands

std::unique_ptr<TFrPkgStringsTranslatorAdd> TFrPkgStringsTranslator::CreateAddDialog()
{
    switch (FKind) {
    case TQzTranslatorKind::Labels: return std::make_unique<TFrPkgStringsLabelsTranslatorAdd>(this);
    case TQzTranslatorKind::Messages: return std::make_unique<TFrPkgStringsMessagesTranslatorAdd>(this);
    case TQzTranslatorKind::Texts: break;
    }
    return std::make_unique<TFrPkgStringsTextsTranslatorAdd>(this);
}

void TFrPkgStringsTranslator::RunAddDialog(Integer id, bool modify)
{
    auto dialog = CreateAddDialog();
    if (dialog->Execute(FPackage, FTranslation->Strings(), id, modify) != mrOk)
        return;
    Modified();
    Load();
    SelectId(id);
    UpdateBar();
}

void TFrPkgStringsTranslator::Add1Click()
{
    Integer id = 0;
    if (!SelectedId(id))
        id = QzTranslatorFreeId(QzTranslatorCollection(FPackage, FKind), QzTranslatorCollection(FTranslation->Strings(), FKind));
    else if (QzTranslatorSide(FPackage, FKind, id).Present)
        return;
    RunAddDialog(id, false);
}

void TFrPkgStringsTranslator::Modify1Click()
{
    Integer id = 0;
    if (SelectedId(id) && QzTranslatorSide(FPackage, FKind, id).Present)
        RunAddDialog(id, true);
}

void TFrPkgStringsTranslator::Delete1Click()
{
    Integer id = 0;
    if (!SelectedId(id) || !QzTranslatorSide(FPackage, FKind, id).Present)
        return;
    bool deleted = false;
    if (FDeleteById) {
        deleted = FDeleteById(id);
    } else if (QzMsgPkg(mtConfirmation, QzSystemPkgName, 26, {bkYes, bkNo}, bkYes) == bkYes) {
        TQzPkgIdCollection* items = QzTranslatorCollection(FPackage, FKind);
        deleted = QzRunReportingErrors(this, [&] { items->Delete(items->FindIdItem(id)->Index()); });
    }
    if (!deleted)
        return;
    Modified();
    Load();
    UpdateBar();
}

void TFrPkgStringsTranslator::Save1Click()
{
    if (FTranslation->SavesOwnFile())
        QzRunReportingErrors(this, [&] { FTranslation->Save(); });
}

void TFrPkgStringsTranslator::SBPathClick()
{
    const AnsiString current = FTranslation->FileName();
    const AnsiString folder = current.empty() ? QzAppPath() : ExtractFilePath(current);
    TFrOpenFiles files(this);
    if (files.Execute(folder, FTranslation->FileMask()) == mrOk)
        OpenTranslation(files.FileName());
}

void TFrPkgStringsTranslator::Modified()
{
    // The designer knows forms: climb from a language package's strings
    // through the application to the form that holds them.
    TComponent* owner = FPackage->Owner();
    while (owner && owner->Owner() && (dynamic_cast<TQzPkgInfo*>(owner) || dynamic_cast<TQzCApplication*>(owner)))
        owner = owner->Owner();
    QzDesignerModified(owner);
}

// ---------------------------------------------------------------------------

TModalResult QzExecuteStringsTranslator(TQzPkgStrings* package, TQzTranslatorKind kind,
                                        TFrPkgStringsTranslator::TDeleteById deleteById, QWidget* parent)
{
    std::unique_ptr<TFrPkgStringsTranslator> window;
    switch (kind) {
    case TQzTranslatorKind::Labels: window = std::make_unique<TFrPkgStringsLabelsTranslator>(parent); break;
    case TQzTranslatorKind::Messages: window = std::make_unique<TFrPkgStringsMessagesTranslator>(parent); break;
    case TQzTranslatorKind::Texts: window = std::make_unique<TFrPkgStringsTextsTranslator>(parent); break;
    }
    window->SetPackage(package);
    window->SetDeleteById(std::move(deleteById));
    return window->Execute();
}
