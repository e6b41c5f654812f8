#include "design/settings/Qzvtsetup.h"

#include "design/controls/QzMenuShortCuts.h"
#include "design/manager/Qzvtpkgloadsave.h"
#include "design/settings/QzAppPkgCopy.h"
#include "design/settings/QzSettingsWidgets.h"
#include "design/settings/QzSetupKeys.h"
#include "runtime/model/QzApplication.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QApplication>
#include <QHeaderView>
#include <QSignalBlocker>

TFrSetup::TFrSetup(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    LVKeys->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    QzFillCombo(CBEngine, {"Generic", "InterBase", "Microsoft SQL Server", "Oracle", "MySQL", "PostgreSQL", "SQLite"});
    QzFillCombo(CBDbDateFormat, {"Day Month Year", "Month Day Year", "Year Month Day"});

    EdShortCut->OnPressed = [this](TShortCut shortCut) { ShortCutPressed(shortCut); };
    connect(LVKeys, &QTreeWidget::currentItemChanged, this, [this] {
        EdShortCut->SetShortCut(FKeys.ShortCuts[static_cast<size_t>(SelectedAction())]);
    });
    // Pressing a key on the list moves the focus to the field, which takes
    // the next key pressed.
    connect(LVKeys, &QTreeWidget::itemActivated, this, [this] { EdShortCut->setFocus(); });
    connect(BtClearKey, &QPushButton::clicked, this, &TFrSetup::ClearKeyClick);
    connect(BtDefaults, &QPushButton::clicked, this, &TFrSetup::DefaultsClick);
    connect(CBActionEnter, &QCheckBox::toggled, this, [this](bool on) { FKeys.ActionEnter = on; });
    connect(CBInsertMode, &QCheckBox::toggled, this, [this](bool on) { FKeys.InsertMode = on; });

    connect(CBEngine, &QComboBox::currentIndexChanged, this, &TFrSetup::EngineChange);
    connect(CBDbDateFormat, &QComboBox::currentIndexChanged, this, &TFrSetup::ShowSample);
    for (QLineEdit* edit : {EdDbDateSeparator, EdDbTimeSeparator, EdDbDecimalSeparator})
        connect(edit, &QLineEdit::textChanged, this, &TFrSetup::ShowSample);
    for (QCheckBox* check : {CBQuotedNumber, CBSQLSyntax})
        connect(check, &QCheckBox::toggled, this, &TFrSetup::ShowSample);

    connect(BtLoad, &QPushButton::clicked, this, &TFrSetup::LoadClick);
    connect(BtSave, &QPushButton::clicked, this, &TFrSetup::SaveClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrSetup::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrSetup::reject);
}

TFrSetup::~TFrSetup() = default;

void TFrSetup::SetApplication(TQzCApplication* app, const TQzEditorDialogRequest& request)
{
    FApp = app;
    FSetup = app ? app->PkgSetup() : nullptr;
    FRequest = request;
    FCopy.reset();
    if (!FSetup)
        return;
    FCopy = std::make_unique<TQzPkgSetup>(nullptr);
    QzCopyAppPkg(*FSetup, *FCopy);
    ShowPackage();
}

TModalResult TFrSetup::Execute()
{
    if (!FCopy)
        return mrNone;
    return ShowModal();
}

void TFrSetup::ShowPackage()
{
    FKeys = FCopy->Keys()->Values();
    ShowKeys();
    ShowDataBase(FCopy->DataBase()->Values());
    EdDescription->setText(QzQString(FCopy->Description()));
    LabStorage->setText(QzQString(QzAppPkgStorageText(*FCopy)));
}

// ------------------------------------------------------------------- keys

void TFrSetup::ShowKeys()
{
    const int row = LVKeys->currentItem() ? LVKeys->indexOfTopLevelItem(LVKeys->currentItem()) : 0;
    {
        const QSignalBlocker block(LVKeys);
        LVKeys->clear();
        for (int i = 0; i < QzSetupActionCount; ++i) {
            auto* item = new QTreeWidgetItem(LVKeys);
            item->setText(0, QString::fromUtf8(QzSetupActionCaption(static_cast<TQzSetupAction>(i))));
            item->setText(1, QzQString(QzShortCutToText(FKeys.ShortCuts[static_cast<size_t>(i)])));
        }
        LVKeys->setCurrentItem(LVKeys->topLevelItem(row));
    }
    EdShortCut->SetShortCut(FKeys.ShortCuts[static_cast<size_t>(SelectedAction())]);
    const QSignalBlocker blockEnter(CBActionEnter), blockInsert(CBInsertMode);
    CBActionEnter->setChecked(FKeys.ActionEnter);
    CBInsertMode->setChecked(FKeys.InsertMode);
}

TQzSetupAction TFrSetup::SelectedAction() const
{
    const int row = LVKeys->currentItem() ? LVKeys->indexOfTopLevelItem(LVKeys->currentItem()) : 0;
    return static_cast<TQzSetupAction>(row < 0 ? 0 : row);
}

void TFrSetup::SelectAction(TQzSetupAction action)
{
    LVKeys->setCurrentItem(LVKeys->topLevelItem(action));
}

void TFrSetup::ShortCutPressed(TShortCut shortCut)
{
    const TQzSetupAction action = SelectedAction();
    QzRunReportingErrors(this, [&] { QzAssignShortCut(FKeys, action, shortCut); });
    // Refused or not, the field and the list show what the action has.
    ShowKeys();
}

void TFrSetup::ClearKeyClick()
{
    ShortCutPressed(0);
}

void TFrSetup::DefaultsClick()
{
    FKeys = TQzPkgSetupKeys().Values();
    ShowKeys();
}

// --------------------------------------------------------------- database

TQzSetupDataBaseValues TFrSetup::DataBase() const
{
    TQzSetupDataBaseValues v;
    v.DataBaseEngine = static_cast<TQzDataBaseEngine>(CBEngine->currentIndex());
    v.DateFormat = static_cast<TQzDateFormat>(CBDbDateFormat->currentIndex());
    v.DateSeparator = QzSeparatorOf(EdDbDateSeparator);
    v.TimeSeparator = QzSeparatorOf(EdDbTimeSeparator);
    v.NumericDecimalSeparator = QzSeparatorOf(EdDbDecimalSeparator);
    v.QuotedNumber = CBQuotedNumber->isChecked();
    v.SQLSyntax = CBSQLSyntax->isChecked();
    return v;
}

void TFrSetup::ShowDataBase(const TQzSetupDataBaseValues& v)
{
    {
        const QSignalBlocker blockEngine(CBEngine), blockFormat(CBDbDateFormat);
        const QSignalBlocker blockQuoted(CBQuotedNumber), blockSyntax(CBSQLSyntax);
        CBEngine->setCurrentIndex(v.DataBaseEngine);
        CBDbDateFormat->setCurrentIndex(v.DateFormat);
        CBQuotedNumber->setChecked(v.QuotedNumber);
        CBSQLSyntax->setChecked(v.SQLSyntax);
    }
    QzShowSeparator(EdDbDateSeparator, v.DateSeparator);
    QzShowSeparator(EdDbTimeSeparator, v.TimeSeparator);
    QzShowSeparator(EdDbDecimalSeparator, v.NumericDecimalSeparator);
    ShowSample();
}

void TFrSetup::EngineChange()
{
    // A new engine brings its own conventions, as the runtime sets them.
    TQzPkgSetupDataBase conventions;
    conventions.SetDataBaseEngine(static_cast<TQzDataBaseEngine>(CBEngine->currentIndex()));
    ShowDataBase(conventions.Values());
}

void TFrSetup::ShowSample()
{
    LabDbSample->setText(QzQString(QzDataBaseSample(DataBase())));
}

// ------------------------------------------------------------ the package

bool TFrSetup::StoreInCopy()
{
    return QzRunReportingErrors(this, [&] {
        FCopy->DataBase()->SetValues(DataBase());
        FCopy->Keys()->SetValues(FKeys);
        FCopy->SetDescription(QzAnsiString(EdDescription->text()));
    });
}

void TFrSetup::LoadClick()
{
    if (QzExecutePkgLoadSave(FCopy.get(), TQzLoadSave::Load, this))
        ShowPackage();
}

void TFrSetup::SaveClick()
{
    // What is saved is what the window shows.
    if (StoreInCopy() && QzExecutePkgLoadSave(FCopy.get(), TQzLoadSave::Save, this))
        ShowPackage();
}

void TFrSetup::accept()
{
    if (!StoreInCopy())
        return;
    if (!QzRunReportingErrors(this, [&] { QzCommitAppPkg(*FCopy, *FSetup, FApp, FRequest); }))
        return;
    TQzDialog::accept();
}

void RegisterQzvtsetup()
{
    QzSetEditorDialog(TQzEditorDialog::Setup, [](TQzEditorDialogRequest& request) {
        TQzCApplication* app = QzRequestApplication(request);
        if (!app)
            return 0;
        TFrSetup form(QApplication::activeWindow());
        form.SetApplication(app, request);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
