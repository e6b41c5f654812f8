#pragma once
// TFrMask: the editor of an edit's input mask (TQzMask). The controls show
// the options of the mask's data type; clicking them rebuilds the options
// text, typing the options text sets the controls. Nothing reaches the mask
// before Ok. Beside the options a tester shows what an edit with the mask
// being designed would take.

#include "design/controls/QzMaskOptions.h"
#include "vcl/QzDialog.h"

#include "ui_TFrMask.h"

#include <QStringList>

#include <array>
#include <functional>

class QButtonGroup;
class TQzMask;

class TFrMask : public TQzDialog, public Ui::TFrMask {
    Q_OBJECT

public:
    explicit TFrMask(QWidget* parent = nullptr);
    ~TFrMask() override;

    void SetMask(TQzMask* mask) { FMask = mask; }
    // Told after Ok has written the mask.
    void SetNotify(std::function<void()> notify) { FNotify = std::move(notify); }

    // Runs the editor on the mask; mrOk when it was closed with Ok. A mask
    // of type 5 or 6 opens nothing and gives mrNone.
    TModalResult Execute() override;

    TQzDataType GetDataType() const;
    void SetDataType(TQzDataType type);

    // The groups' options as the controls hold them now.
    TQzMaskOptions CurrentOptions() const;

    void accept() override;

protected:
    bool FormKeyPress(QKeyEvent* event) override;

private:
    void FillLists();
    void AssignMask();
    void ProcessTextMask(const AnsiString& text);
    void ScanOptions(const AnsiString& options);
    void MakeStringOptions();
    bool UpdateLabelInfo(const AnsiString& options);
    void UpdateDurationStatus();
    void UpdateEnabling();
    void ShowOptions(const TQzMaskOptions& options);
    bool EdOptionsKeyPress(char key);

    void CBDataTypeChange();
    void CBTakeChange();
    void EdOptionsChange();
    void OptionClick();
    void SBExamplesClick();
    void SpeedButton1Click();
    void UpdateTester();
    void EdTestReturnPressed();
    QString TestedInput() const;

    int GroupSlot(TQzDataType type) const;

    TQzMask* FMask = nullptr;
    std::function<void()> FNotify;
    // One remembered options text per group: string, date, integer, decimal.
    std::array<AnsiString, 4> FGroupOptions;
    TQzDataType FShownType = qdtString;
    bool FScanning = false;
    bool FBuilding = false;
    // What the date controls held before a duration was chosen.
    TQzMaskDateSaved FDateSaved;
    int FDuration = 0;
    // Inputs kept from the tester's line (Enter), tried after the samples.
    QStringList FKeptSamples;

    QButtonGroup* FAlign;
    QButtonGroup* FNegatives;
    QButtonGroup* FCientific;
    QButtonGroup* FCase;
    QButtonGroup* FDay;
    QButtonGroup* FMonth;
    QButtonGroup* FYear;
};

// Installs the mask editor as the window the mask property opens.
void RegisterQzvtmask();
