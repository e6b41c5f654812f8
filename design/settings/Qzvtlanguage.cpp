#include "design/settings/Qzvtlanguage.h"

#include "design/manager/Qzvtpkgloadsave.h"
#include "design/manager/Qzvtpkgsynchronizer.h"
#include "design/settings/QzAppPkgCopy.h"
#include "design/settings/QzLocaleSample.h"
#include "design/settings/QzSettingsWidgets.h"
#include "runtime/model/QzApplication.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QApplication>
#include <QSignalBlocker>

namespace {

// The sample shows the same moment and amount whatever the day.
constexpr Word SampleYear = 2026, SampleMonth = 12, SampleDay = 31;
constexpr Word SampleHour = 14, SampleMinute = 5, SampleSecond = 9;
constexpr double SampleNumber = 1234567.891;
constexpr Integer SampleTwoDigitYear = 49;

AnsiString Counted(int count, const char* one, const char* many)
{
    return IntToStr(count) + " " + (count == 1 ? one : many);
}

AnsiString StringsSummary(const TQzPkgStrings& strings)
{
    return Counted(strings.Labels()->Count(), "label", "labels") + ", " +
           Counted(strings.Messages()->Count(), "message", "messages") + ", " +
           Counted(strings.Texts()->Count(), "text", "texts");
}

}  // namespace

TFrLanguage::TFrLanguage(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    QzFillCombo(CBDateFormat, {"Day Month Year", "Month Day Year", "Year Month Day"});
    QzFillCombo(CBDateYear, {"In the century below", "Typed with four digits", "In the window around the pivot"});
    QzFillCombo(CBCurrencyFormat, {"Before: $1", "After: 1$", "Before, spaced: $ 1", "After, spaced: 1 $"});

    for (QComboBox* combo : {CBDateFormat, CBDateYear, CBCurrencyFormat})
        connect(combo, &QComboBox::currentIndexChanged, this, &TFrLanguage::ShowSample);
    for (QSpinBox* spin : {SEDateCentury, SEDateYearFix, SEDecimals})
        connect(spin, &QSpinBox::valueChanged, this, &TFrLanguage::ShowSample);
    for (QLineEdit* edit : {EdDateSeparator, EdTimeSeparator, EdTimeAM, EdTimePM, EdDecimalSeparator,
                            EdThousandSeparator, EdCurrencyString})
        connect(edit, &QLineEdit::textChanged, this, &TFrLanguage::ShowSample);

    connect(BtSystem, &QPushButton::clicked, this, [this] { EditStrings(FCopy->PkgSystem()); });
    connect(BtUser, &QPushButton::clicked, this, [this] { EditStrings(FCopy->PkgUser()); });
    connect(BtDefaults, &QPushButton::clicked, this, &TFrLanguage::DefaultsClick);
    connect(BtLoad, &QPushButton::clicked, this, &TFrLanguage::LoadClick);
    connect(BtSave, &QPushButton::clicked, this, &TFrLanguage::SaveClick);
    connect(BtSynchronize, &QPushButton::clicked, this, &TFrLanguage::SynchronizeClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrLanguage::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrLanguage::reject);
}

TFrLanguage::~TFrLanguage() = default;

void TFrLanguage::SetApplication(TQzCApplication* app, const TQzEditorDialogRequest& request)
{
    FApp = app;
    FLanguage = app ? app->PkgLanguage() : nullptr;
    FRequest = request;
    FCopy.reset();
    if (!FLanguage)
        return;
    FCopy = std::make_unique<TQzPkgLanguage>(nullptr);
    QzCopyAppPkg(*FLanguage, *FCopy);
    ShowPackage();
}

TModalResult TFrLanguage::Execute()
{
    if (!FCopy)
        return mrNone;
    return ShowModal();
}

void TFrLanguage::ShowPackage()
{
    ShowStrings();
    ShowLocale(FCopy->Locale()->Values());
    EdDescription->setText(QzQString(FCopy->Description()));
    LabStorage->setText(QzQString(QzAppPkgStorageText(*FCopy)));
}

// ---------------------------------------------------------------- strings

void TFrLanguage::ShowStrings()
{
    LabSystemCount->setText(QzQString(StringsSummary(*FCopy->PkgSystem())));
    LabUserCount->setText(QzQString(StringsSummary(*FCopy->PkgUser())));
    LabLastUpdate->setText(FCopy->LastUpdateFile().empty()
                               ? QStringLiteral("Not updated from a language file.")
                               : QzQString("Updated from " + FCopy->LastUpdateFile() + " on " +
                                           DateTimeToStr(FCopy->UpdateDateTime())));
}

void TFrLanguage::EditStrings(TQzPkgStrings* strings)
{
    TQzEditorDialogRequest request;
    request.Package = strings;
    request.Component = FApp;
    // No designer: the strings belong to the copy, which reaches the form on Ok.
    QzRunEditorDialog(TQzEditorDialog::PkgStrings, request);
    ShowStrings();
}

// ----------------------------------------------------------------- locale

TQzLocaleValues TFrLanguage::Locale() const
{
    TQzLocaleValues v = FCopy ? FCopy->Locale()->Values() : TQzLocaleValues();
    v.AutoLoad = CBAutoLoad->isChecked();
    v.DateFormat = static_cast<TQzDateFormat>(CBDateFormat->currentIndex());
    v.DateSeparator = QzSeparatorOf(EdDateSeparator);
    v.DateYear = static_cast<TQzDateYear>(CBDateYear->currentIndex());
    v.DateCentury = SEDateCentury->value();
    v.DateYearFix = SEDateYearFix->value();
    v.TimeSeparator = QzSeparatorOf(EdTimeSeparator);
    v.TimeAMString = QzAnsiString(EdTimeAM->text());
    v.TimePMString = QzAnsiString(EdTimePM->text());
    v.NumericDecimalSeparator = QzSeparatorOf(EdDecimalSeparator);
    v.NumericTrousandSeparator = QzSeparatorOf(EdThousandSeparator);
    v.Decimals = SEDecimals->value();
    v.NumericCurrencyString = QzAnsiString(EdCurrencyString->text());
    v.NumericCurrencyFormat = static_cast<TQzCurrencyFormat>(CBCurrencyFormat->currentIndex());
    return v;
}

void TFrLanguage::ShowLocale(const TQzLocaleValues& v)
{
    {
        const QSignalBlocker b1(CBAutoLoad), b2(CBDateFormat), b3(CBDateYear), b4(SEDateCentury);
        const QSignalBlocker b5(SEDateYearFix), b6(SEDecimals), b7(CBCurrencyFormat), b8(EdTimeAM);
        const QSignalBlocker b9(EdTimePM), b10(EdCurrencyString);
        CBAutoLoad->setChecked(v.AutoLoad);
        CBDateFormat->setCurrentIndex(v.DateFormat);
        CBDateYear->setCurrentIndex(v.DateYear);
        SEDateCentury->setValue(v.DateCentury);
        SEDateYearFix->setValue(v.DateYearFix);
        SEDecimals->setValue(v.Decimals);
        CBCurrencyFormat->setCurrentIndex(v.NumericCurrencyFormat);
        EdTimeAM->setText(QzQString(v.TimeAMString));
        EdTimePM->setText(QzQString(v.TimePMString));
        EdCurrencyString->setText(QzQString(v.NumericCurrencyString));
    }
    QzShowSeparator(EdDateSeparator, v.DateSeparator);
    QzShowSeparator(EdTimeSeparator, v.TimeSeparator);
    QzShowSeparator(EdDecimalSeparator, v.NumericDecimalSeparator);
    QzShowSeparator(EdThousandSeparator, v.NumericTrousandSeparator);
    ShowSample();
}

void TFrLanguage::ShowSample()
{
    const TQzLocaleValues v = Locale();
    // The century and the pivot only matter to the modes that use them.
    SEDateCentury->setEnabled(v.DateYear != dyFourDigits);
    SEDateYearFix->setEnabled(v.DateYear == dyWindow);
    LabDate->setText(QzQString(QzLocaleDate(v, SampleYear, SampleMonth, SampleDay)));
    const Integer year = QzLocaleYear(v, SampleTwoDigitYear);
    LabYear->setText(year < 0 ? QStringLiteral("typed in full") : QzQString("read as " + IntToStr(year)));
    LabTime->setText(QzQString(QzLocaleTime(v, SampleHour, SampleMinute, SampleSecond, false)));
    LabTime12->setText(QzQString(QzLocaleTime(v, SampleHour, SampleMinute, SampleSecond, true)));
    LabNumber->setText(QzQString(QzLocaleNumber(v, SampleNumber)));
    LabCurrency->setText(QzQString(QzLocaleCurrency(v, SampleNumber)));
    LabNegative->setText(QzQString(QzLocaleCurrency(v, -SampleNumber)));
}

void TFrLanguage::DefaultsClick()
{
    ShowLocale(TQzLocaleValues());
}

// ------------------------------------------------------------ the package

bool TFrLanguage::StoreInCopy()
{
    return QzRunReportingErrors(this, [&] {
        FCopy->Locale()->SetValues(Locale());
        FCopy->SetDescription(QzAnsiString(EdDescription->text()));
    });
}

void TFrLanguage::LoadClick()
{
    if (QzExecutePkgLoadSave(FCopy.get(), TQzLoadSave::Load, this))
        ShowPackage();
}

void TFrLanguage::SaveClick()
{
    if (StoreInCopy() && QzExecutePkgLoadSave(FCopy.get(), TQzLoadSave::Save, this))
        ShowPackage();
}

void TFrLanguage::SynchronizeClick()
{
    if (StoreInCopy() && QzExecutePkgSynchronizer(FCopy.get(), this) == 1)
        ShowPackage();
}

void TFrLanguage::accept()
{
    if (!StoreInCopy())
        return;
    if (!QzRunReportingErrors(this, [&] { QzCommitAppPkg(*FCopy, *FLanguage, FApp, FRequest); }))
        return;
    TQzDialog::accept();
}

void RegisterQzvtlanguage()
{
    QzSetEditorDialog(TQzEditorDialog::Language, [](TQzEditorDialogRequest& request) {
        TQzCApplication* app = QzRequestApplication(request);
        if (!app)
            return 0;
        TFrLanguage form(QApplication::activeWindow());
        form.SetApplication(app, request);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
