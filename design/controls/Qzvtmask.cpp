#include "design/controls/Qzvtmask.h"

#include "design/controls/QzMaskTester.h"
#include "design/controls/Qzvtmaskexamples.h"
#include "design/reg/QzEditorDialogs.h"
#include "runtime/model/QzMask.h"
#include "runtime/model/QzTypes.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzWindowBounds.h"

#include "rtl/SysUtils.h"
#include "rtl/TypInfo.h"

#include <QApplication>
#include <QButtonGroup>
#include <QKeyEvent>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>

#include <algorithm>
#include <string_view>

namespace {

TQzResizeInfoDesigner ResizeInfo;

// The check boxes and the option each one stands for.
struct TCheckOption {
    QCheckBox* Ui::TFrMask::*Box;
    bool TQzMaskOptions::*Field;
};

constexpr TCheckOption CheckOptions[] = {
    {&Ui::TFrMask::CBSignRight, &TQzMaskOptions::SignRight},
    {&Ui::TFrMask::CBNoZero, &TQzMaskOptions::NoZero},
    {&Ui::TFrMask::CBThousands, &TQzMaskOptions::Thousands},
    {&Ui::TFrMask::CBTrimDec, &TQzMaskOptions::TrimDec},
    {&Ui::TFrMask::CBCheckRange, &TQzMaskOptions::CheckRange},
    {&Ui::TFrMask::CBFillAllDigits, &TQzMaskOptions::FillAllDigits},
    {&Ui::TFrMask::CBFillZeros, &TQzMaskOptions::FillZeros},
    {&Ui::TFrMask::CBShowCurrency, &TQzMaskOptions::ShowCurrency},
    {&Ui::TFrMask::CBDay, &TQzMaskOptions::Day},
    {&Ui::TFrMask::CBHour, &TQzMaskOptions::Hour},
    {&Ui::TFrMask::CBMinutes, &TQzMaskOptions::Minutes},
    {&Ui::TFrMask::CBSeconds, &TQzMaskOptions::Seconds},
    {&Ui::TFrMask::CBAmPm, &TQzMaskOptions::AmPm},
    {&Ui::TFrMask::CB12, &TQzMaskOptions::Hour12},
    {&Ui::TFrMask::CBAutoAdjust12H, &TQzMaskOptions::AutoAdjust12H},
    {&Ui::TFrMask::CBAcceptsSymbols, &TQzMaskOptions::AcceptsSymbols},
    {&Ui::TFrMask::CBAcceptsLetters, &TQzMaskOptions::AcceptsLetters},
    {&Ui::TFrMask::CBAcceptsDigits, &TQzMaskOptions::AcceptsDigits},
    {&Ui::TFrMask::CBAcceptsSpaces, &TQzMaskOptions::AcceptsSpaces},
    {&Ui::TFrMask::CBNoAutoTrim, &TQzMaskOptions::NoAutoTrim},
    {&Ui::TFrMask::CBFillAllCharacters, &TQzMaskOptions::FillAllCharacters},
    {&Ui::TFrMask::CBSaveMask, &TQzMaskOptions::SaveMask},
    {&Ui::TFrMask::CBPassword, &TQzMaskOptions::Password},
    {&Ui::TFrMask::CBDataAlignRight, &TQzMaskOptions::DataAlignRight},
};

constexpr char AlignChars[] = "<%>";

// The radio buttons of a group box, numbered in the order the form lists them.
QButtonGroup* RadioGroup(QWidget* box)
{
    auto* group = new QButtonGroup(box);
    int id = 0;
    for (QRadioButton* radio : box->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly))
        group->addButton(radio, id++);
    return group;
}

void Check(QButtonGroup* group, int id)
{
    if (QAbstractButton* button = group->button(id))
        button->setChecked(true);
}

void SelectData(QComboBox* combo, int value)
{
    const int index = combo->findData(value);
    if (index >= 0)
        combo->setCurrentIndex(index);
}

int GroupOfValue(QComboBox* combo)
{
    return combo->currentData().toInt();
}

void FillEnum(QComboBox* combo, const TTypeInfo* type, std::initializer_list<int> values)
{
    combo->clear();
    for (int value : values)
        combo->addItem(QzQString(GetEnumName(type, value)), value);
}

}  // namespace

TFrMask::TFrMask(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    FAlign = RadioGroup(RGAlign);
    FNegatives = RadioGroup(RGAcceptsNegatives);
    FCientific = RadioGroup(RGCientific);
    FCase = RadioGroup(RGCase);
    FDay = RadioGroup(RGDay);
    FMonth = RadioGroup(RGMonth);
    FYear = RadioGroup(RGYear);
    EdSize->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,7}")), EdSize));
    FillLists();

    for (const TCheckOption& option : CheckOptions)
        connect(this->*option.Box, &QCheckBox::clicked, this, &TFrMask::OptionClick);
    for (QButtonGroup* group : {FAlign, FNegatives, FCientific, FCase, FDay, FMonth, FYear})
        connect(group, &QButtonGroup::idClicked, this, &TFrMask::OptionClick);
    connect(CBDuration, &QComboBox::currentIndexChanged, this, &TFrMask::UpdateDurationStatus);
    connect(CBDataType, &QComboBox::currentIndexChanged, this, &TFrMask::CBDataTypeChange);
    connect(CBTake, &QComboBox::currentIndexChanged, this, &TFrMask::CBTakeChange);
    connect(EdOptions, &QLineEdit::textChanged, this, &TFrMask::EdOptionsChange);
    connect(SBExamples, &QPushButton::clicked, this, &TFrMask::SBExamplesClick);
    connect(SpeedButton1, &QToolButton::clicked, this, &TFrMask::SpeedButton1Click);
    connect(BtOk, &QPushButton::clicked, this, &TFrMask::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrMask::reject);
    for (QLineEdit* edit : {EdSize, EdMaskText, EdSpace, EdTest})
        connect(edit, &QLineEdit::textChanged, this, &TFrMask::UpdateTester);
    connect(CBDecimals, &QComboBox::currentIndexChanged, this, &TFrMask::UpdateTester);
}

TFrMask::~TFrMask() = default;

void TFrMask::FillLists()
{
    const QSignalBlocker blockType(CBDataType);
    const QSignalBlocker blockTake(CBTake);
    FillEnum(CBDataType, TypeInfo_TQzDataType(), {qdtInteger, qdtFloat, qdtCurrency, qdtString, qdtDateTime, qdtMemo});
    FillEnum(CBTake, TypeInfo_TQzMaskTake(), {mtData, mtText, mtRawText});
    FillEnum(CBDateYear, TypeInfo_TQzDateYear(), {dyCentury, dyFourDigits, dyWindow});
}

TModalResult TFrMask::Execute()
{
    if (!FMask || FMask->DataType() == qdtNone || FMask->DataType() == qdtMemo)
        return mrNone;
    FGroupOptions = {};
    AssignMask();
    return ShowModal();
}

int TFrMask::GroupSlot(TQzDataType type) const
{
    switch (QzMaskGroupOf(type)) {
    case TQzMaskGroup::String: return 0;
    case TQzMaskGroup::DateTime: return 1;
    case TQzMaskGroup::Integer: return 2;
    case TQzMaskGroup::Decimal: return 3;
    case TQzMaskGroup::None: break;
    }
    return -1;
}

TQzDataType TFrMask::GetDataType() const
{
    return static_cast<TQzDataType>(GroupOfValue(CBDataType));
}

void TFrMask::SetDataType(TQzDataType type)
{
    SelectData(CBDataType, type);
}

void TFrMask::AssignMask()
{
    {
        const QSignalBlocker block(CBDataType);
        SelectData(CBDataType, FMask->DataType());
    }
    SelectData(CBTake, FMask->Take());
    EdSize->setText(QString::number(FMask->Size()));
    CBDecimals->setCurrentIndex(FMask->GetDecimals());
    SelectData(CBDateYear, FMask->GetDateYear());
    CBDataType->setEnabled(FMask->CanChangeDataType());
    FShownType = FMask->DataType();
    CBTakeChange();
    ScanOptions(QzAnsiString(EdOptions->text()));
    ProcessTextMask(FMask->Text());
    CBDataTypeChange();
}

void TFrMask::ProcessTextMask(const AnsiString& text)
{
    const TQzMaskParts parts = QzSplitMaskText(text);
    FBuilding = true;
    EdOptions->setText(QzQString(parts.Options));
    FBuilding = false;
    ScanOptions(parts.Options);
    MakeStringOptions();
    if (const int slot = GroupSlot(GetDataType()); slot >= 0)
        FGroupOptions[slot] = QzAnsiString(EdOptions->text());
    EdMaskText->setText(QzQString(parts.MaskText));
    EdSpace->setText(QzQString(parts.Space));
}

TQzMaskOptions TFrMask::CurrentOptions() const
{
    TQzMaskOptions o;
    const int align = FAlign->checkedId();
    o.Align = AlignChars[align >= 0 ? align : 0];
    for (const TCheckOption& option : CheckOptions)
        o.*option.Field = (this->*option.Box)->isChecked();
    o.Negatives = std::max(FNegatives->checkedId(), 0);
    o.Scientific = std::max(FCientific->checkedId(), 0);
    o.Case = std::max(FCase->checkedId(), 0);
    o.DayName = std::max(FDay->checkedId(), 0);
    o.Month = std::max(FMonth->checkedId(), 0);
    o.Year = std::max(FYear->checkedId(), 0);
    o.Duration = FDuration;
    return o;
}

// Puts options into the controls without any of them answering.
void TFrMask::ShowOptions(const TQzMaskOptions& o)
{
    const bool scanning = FScanning;
    FScanning = true;
    Check(FAlign, static_cast<int>(std::string_view(AlignChars).find(o.Align)));
    for (const TCheckOption& option : CheckOptions)
        (this->*option.Box)->setChecked(o.*option.Field);
    Check(FNegatives, o.Negatives);
    Check(FCientific, o.Scientific);
    Check(FCase, o.Case);
    Check(FDay, o.DayName);
    Check(FMonth, o.Month);
    Check(FYear, o.Year);
    {
        const QSignalBlocker block(CBDuration);
        CBDuration->setCurrentIndex(o.Duration);
    }
    FDuration = o.Duration;
    FScanning = scanning;
    UpdateEnabling();
}

void TFrMask::ScanOptions(const AnsiString& options)
{
    TQzMaskOptions o = CurrentOptions();
    ::ScanOptions(GetDataType(), options, o);
    ShowOptions(o);
}

void TFrMask::MakeStringOptions()
{
    const AnsiString options = ::MakeStringOptions(GetDataType(), CurrentOptions());
    FBuilding = true;
    EdOptions->setText(QzQString(options));
    FBuilding = false;
    UpdateLabelInfo(options);
    UpdateTester();
}

bool TFrMask::UpdateLabelInfo(const AnsiString& options)
{
    const bool isDefault = QzMaskIsDefault(GetDataType(), options);
    LabelInfo->setText(isDefault ? QStringLiteral("<Default Mask>") : QStringLiteral("<Custom Mask>"));
    return isDefault;
}

void TFrMask::UpdateEnabling()
{
    const TQzMaskDateEnabling e = QzMaskDateEnabling(CurrentOptions());
    CBAmPm->setEnabled(e.AmPm);
    CBAutoAdjust12H->setEnabled(e.AutoAdjust12H);
    CB12->setEnabled(e.Hour12);
    for (QWidget* w : std::initializer_list<QWidget*>{CBDay, RGDay, RGMonth, RGYear})
        w->setEnabled(e.DayMonthYear);
}

void TFrMask::UpdateDurationStatus()
{
    TQzMaskOptions o = CurrentOptions();
    QzMaskSetDuration(o, CBDuration->currentIndex(), FDateSaved);
    ShowOptions(o);
    if (!FScanning)
        MakeStringOptions();
}

void TFrMask::OptionClick()
{
    if (FScanning)
        return;
    TQzMaskOptions o = CurrentOptions();
    QzApply12HourRule(o);
    ShowOptions(o);
    MakeStringOptions();
}

void TFrMask::CBDataTypeChange()
{
    const TQzDataType type = GetDataType();
    if (const int slot = GroupSlot(FShownType); slot >= 0)
        FGroupOptions[slot] = QzAnsiString(EdOptions->text());
    FShownType = type;
    const int slot = GroupSlot(type);
    if (slot >= 0) {
        static constexpr int Pages[] = {1, 2, 0, 0};  // TSString, TSDateTime, TSNumber, TSNumber
        PageControl->setCurrentIndex(Pages[slot]);
        FBuilding = true;
        EdOptions->setText(QzQString(FGroupOptions[slot]));
        FBuilding = false;
    }
    ScanOptions(QzAnsiString(EdOptions->text()));
    MakeStringOptions();
}

void TFrMask::CBTakeChange()
{
    const bool data = GroupOfValue(CBTake) == mtData;
    for (QWidget* w : std::initializer_list<QWidget*>{LabDecimals, CBDecimals, LabDateYear, CBDateYear})
        w->setEnabled(data);
}

void TFrMask::EdOptionsChange()
{
    if (FBuilding)
        return;
    const AnsiString options = QzAnsiString(EdOptions->text());
    ScanOptions(options);
    UpdateLabelInfo(options);
    UpdateTester();
}

bool TFrMask::EdOptionsKeyPress(char key)
{
    // A key typed over a selection replaces it: the selected options no
    // longer count as present.
    QString remaining = EdOptions->text();
    if (EdOptions->hasSelectedText())
        remaining.remove(EdOptions->selectionStart(), EdOptions->selectedText().size());
    return QzMaskOptionKeyAllowed(GetDataType(), QzAnsiString(remaining), key);
}

bool TFrMask::FormKeyPress(QKeyEvent* event)
{
    // Enter in the tester's line keeps the input as a sample rather than
    // closing the editor.
    // The focus child, not hasFocus(): the key reaches the form before the
    // control, and an inactive window (a test's, another desktop's) still
    // routes keys to it.
    if (focusWidget() == EdTest && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        EdTestReturnPressed();
        return true;
    }
    const QString text = event->text();
    // Keys without a character (arrows, Delete, Backspace) pass: they only
    // ever move or remove.
    if (focusWidget() == EdOptions && text.size() == 1 && text[0].unicode() >= 32 && event->key() != Qt::Key_Backspace) {
        const char16_t ch = text[0].unicode();
        if (ch > 127 || !EdOptionsKeyPress(static_cast<char>(ch)))
            return true;
    }
    return TQzDialog::FormKeyPress(event);
}

void TFrMask::SBExamplesClick()
{
    TFrMaskExamples examples(this);
    const int index = examples.Execute();
    if (index < 0)
        return;
    const TQzMaskExample& example = QzMaskExamples()[static_cast<size_t>(index)];
    SetDataType(example.Type);
    EdSize->setText(QString::fromLatin1(example.Size));
    CBDecimals->setCurrentIndex(example.Decimals);
    ProcessTextMask(example.Mask);
}

void TFrMask::SpeedButton1Click()
{
    TQzEditorDialogRequest request;
    request.PkgName = "System";
    request.TopicId = 1;
    request.Caption = "Mask";
    QzRunEditorDialog(TQzEditorDialog::Help, request);
}

void TFrMask::accept()
{
    Integer size = 0;
    try {
        size = StrToInt(QzAnsiString(EdSize->text()));
    } catch (const EConvertError& e) {
        QzMessage(e.Message(), mtError, {mbOK}, mbOK, this);
        EdSize->setFocus();
        return;
    }
    const TQzDataType type = GetDataType();
    FMask->SetDataType(type);
    FMask->SetTake(static_cast<TQzMaskTake>(GroupOfValue(CBTake)));
    FMask->SetSize(size);
    FMask->SetDecimals(CBDecimals->currentIndex());
    FMask->SetDateYear(static_cast<TQzDateYear>(GroupOfValue(CBDateYear)));
    MakeStringOptions();
    FMask->SetText(QzJoinMaskText(type, QzAnsiString(EdOptions->text()), QzAnsiString(EdMaskText->text()),
                                  QzAnsiString(EdSpace->text())));
    if (FNotify)
        FNotify();
    TQzDialog::accept();
}

// ------------------------------------------------------------------ tester

void TFrMask::UpdateTester()
{
    TQzMaskUnderTest mask;
    mask.Type = GetDataType();
    mask.Size = EdSize->text().toInt();
    mask.Decimals = CBDecimals->currentIndex();
    const AnsiString options = QzAnsiString(EdOptions->text());
    mask.Text = QzJoinMaskText(mask.Type, options.empty() ? QzMaskDefaultOptions(mask.Type) : options,
                               QzAnsiString(EdMaskText->text()), QzAnsiString(EdSpace->text()));
    const TQzMaskOptions o = CurrentOptions();
    const bool strings = QzMaskGroupOf(mask.Type) == TQzMaskGroup::String;
    {
        const QSignalBlocker block(EdTest);
        const QString inputMask = QzQString(QzMaskQtInputMask(mask));
        if (EdTest->inputMask() != inputMask)
            EdTest->setInputMask(inputMask);
        EdTest->setEchoMode(strings && o.Password ? QLineEdit::Password : QLineEdit::Normal);
        const char align = o.Align;
        const bool right = align == '>' || (strings && o.DataAlignRight);
        EdTest->setAlignment(align == '%' ? Qt::AlignHCenter : right ? Qt::AlignRight : Qt::AlignLeft);
    }
    const TQzMaskVerdict verdict = QzMaskCheck(mask, QzAnsiString(TestedInput()));
    LabTestVerdict->setText(verdict.Accepted ? QStringLiteral("Accepted: \"%1\"").arg(QzQString(verdict.Value))
                                             : QStringLiteral("Rejected: %1").arg(QzQString(verdict.Reason)));
    // The samples: the group's own and whatever was kept from the line.
    QStringList inputs;
    for (const AnsiString& sample : QzMaskSampleInputs(mask.Type))
        inputs << QzQString(sample);
    inputs << FKeptSamples;
    LBSamples->clear();
    for (const QString& input : inputs) {
        const TQzMaskVerdict v = QzMaskCheck(mask, QzAnsiString(input));
        auto* item = new QListWidgetItem(
            v.Accepted ? QStringLiteral("accepted  \"%1\" -> \"%2\"").arg(input, QzQString(v.Value))
                       : QStringLiteral("rejected  \"%1\": %2").arg(input, QzQString(v.Reason)),
            LBSamples);
        item->setData(Qt::UserRole, v.Accepted);
        item->setForeground(v.Accepted ? QColor(0, 110, 0) : QColor(170, 0, 0));
    }
}

// With a mask text the line shows the literals and blanks; the tester takes
// the characters typed into the mask's positions.
QString TFrMask::TestedInput() const
{
    if (EdTest->inputMask().isEmpty())
        return EdTest->text();
    const QString pattern = EdMaskText->text();
    const QString shown = EdTest->displayText();
    const QString space = EdSpace->text();
    const QChar blank = space.isEmpty() ? QLatin1Char('_') : space[0];
    QString typed;
    for (qsizetype i = 0; i < pattern.size() && i < shown.size(); ++i)
        if (pattern[i] == QLatin1Char('#') && shown[i] != blank)
            typed += shown[i];
    return typed;
}

void TFrMask::EdTestReturnPressed()
{
    const QString text = TestedInput();
    if (!FKeptSamples.contains(text))
        FKeptSamples << text;
    UpdateTester();
}

void RegisterQzvtmask()
{
    QzSetEditorDialog(TQzEditorDialog::Mask, [](TQzEditorDialogRequest& request) {
        auto* mask = dynamic_cast<TQzMask*>(request.Target);
        if (!mask)
            return 0;
        TFrMask form(QApplication::activeWindow());
        form.SetMask(mask);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
