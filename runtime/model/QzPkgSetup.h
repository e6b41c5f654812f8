#pragma once
// The setup package (the application's PkgSetup): the keyboard shortcuts
// of the data controls and the conventions of the database the application
// talks to.

#include "runtime/model/QzPkgSettings.h"

#include <array>

class TQzPkgSetup;

// The actions that have a shortcut, in the order they are stored. The type
// is fixed so that any int converts to it and a range check on it keeps
// its meaning (an unfixed enumeration holds only 0..15, and a compiler
// may drop the check as always false).
enum TQzSetupAction : int {
    saAppendRecord,
    saBtnCalculator,
    saBtnCalendar,
    saBtnCustom1,
    saBtnCustom2,
    saBtnMaint,
    saBtnRelation,
    saDeleteRecord,
    saEditRecord,
    saFirstRecord,
    saInsertRecord,
    saLastRecord,
    saNextRecord,
    saPostRecord,
    saPriorRecord,
    saRefresh,
};
inline constexpr int QzSetupActionCount = saRefresh + 1;

struct TQzSetupKeysValues {
    bool ActionEnter = true;   // Enter moves to the next control, as Tab does
    bool InsertMode = true;    // edits start in insert (not overwrite) mode
    std::array<TShortCut, QzSetupActionCount> ShortCuts{};
    bool operator==(const TQzSetupKeysValues&) const = default;
};

class TQzPkgSetupKeys : public TQzPkgSettings<TQzSetupKeysValues> {
    QZ_CLASS(TQzPkgSetupKeys, TPersistent)

public:
    explicit TQzPkgSetupKeys(TQzPkgSetup* owner = nullptr);

    bool ActionEnter() const { return Values().ActionEnter; }
    void SetActionEnter(bool value) { Set(&Values_t::ActionEnter, value); }
    bool InsertMode() const { return Values().InsertMode; }
    void SetInsertMode(bool value) { Set(&Values_t::InsertMode, value); }

    TShortCut ShortCut(TQzSetupAction action) const { return Values().ShortCuts[static_cast<size_t>(action)]; }
    void SetShortCut(TQzSetupAction action, TShortCut value);
    // The action a shortcut triggers; false when none has it.
    bool FindAction(TShortCut shortCut, TQzSetupAction& action) const;
    void RestoreDefaults();

    void SetAppendRecord(TShortCut value) { SetShortCut(saAppendRecord, value); }
    void SetBtnCalculator(TShortCut value) { SetShortCut(saBtnCalculator, value); }
    void SetBtnCalendar(TShortCut value) { SetShortCut(saBtnCalendar, value); }
    void SetBtnCustom1(TShortCut value) { SetShortCut(saBtnCustom1, value); }
    void SetBtnCustom2(TShortCut value) { SetShortCut(saBtnCustom2, value); }
    void SetBtnMaint(TShortCut value) { SetShortCut(saBtnMaint, value); }
    void SetBtnRelation(TShortCut value) { SetShortCut(saBtnRelation, value); }
    void SetDeleteRecord(TShortCut value) { SetShortCut(saDeleteRecord, value); }
    void SetEditRecord(TShortCut value) { SetShortCut(saEditRecord, value); }
    void SetFirstRecord(TShortCut value) { SetShortCut(saFirstRecord, value); }
    void SetInsertRecord(TShortCut value) { SetShortCut(saInsertRecord, value); }
    void SetLastRecord(TShortCut value) { SetShortCut(saLastRecord, value); }
    void SetNextRecord(TShortCut value) { SetShortCut(saNextRecord, value); }
    void SetPostRecord(TShortCut value) { SetShortCut(saPostRecord, value); }
    void SetPriorRecord(TShortCut value) { SetShortCut(saPriorRecord, value); }
    void SetRefresh(TShortCut value) { SetShortCut(saRefresh, value); }

    void CheckValues(const TQzSetupKeysValues& values) const override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgSetupKeys>& b);
};

struct TQzSetupDataBaseValues {
    TQzDataBaseEngine DataBaseEngine = deGeneric;
    TQzDateFormat DateFormat = dfYMD;
    char DateSeparator = '-';
    char NumericDecimalSeparator = '.';
    bool QuotedNumber = false;   // numbers written in quotes in SQL text
    bool SQLSyntax = false;      // SQL text follows the engine's own syntax rather than the generic one
    char TimeSeparator = ':';
    bool operator==(const TQzSetupDataBaseValues&) const = default;
};

class TQzPkgSetupDataBase : public TQzPkgSettings<TQzSetupDataBaseValues> {
    QZ_CLASS(TQzPkgSetupDataBase, TPersistent)

public:
    explicit TQzPkgSetupDataBase(TQzPkgSetup* owner = nullptr);

    TQzDataBaseEngine DataBaseEngine() const { return Values().DataBaseEngine; }
    // Also takes the engine's own conventions for the settings below.
    void SetDataBaseEngine(TQzDataBaseEngine value);
    TQzDateFormat GetDateFormat() const { return Values().DateFormat; }
    void SetDateFormat(TQzDateFormat value) { Set(&Values_t::DateFormat, value); }
    char GetDateSeparator() const { return Values().DateSeparator; }
    void SetDateSeparator(char value) { Set(&Values_t::DateSeparator, value); }
    char GetNumericDecimalSeparator() const { return Values().NumericDecimalSeparator; }
    void SetNumericDecimalSeparator(char value) { Set(&Values_t::NumericDecimalSeparator, value); }
    bool GetQuotedNumber() const { return Values().QuotedNumber; }
    void SetQuotedNumber(bool value) { Set(&Values_t::QuotedNumber, value); }
    bool GetSQLSyntax() const { return Values().SQLSyntax; }
    void SetSQLSyntax(bool value) { Set(&Values_t::SQLSyntax, value); }
    char GetTimeSeparator() const { return Values().TimeSeparator; }
    void SetTimeSeparator(char value) { Set(&Values_t::TimeSeparator, value); }

    void CheckValues(const TQzSetupDataBaseValues& values) const override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgSetupDataBase>& b);
};

class TQzPkgSetup : public TQzPkgInfo {
    QZ_CLASS(TQzPkgSetup, TQzPkgInfo)

public:
    static constexpr Integer DataVersion = 1;

    explicit TQzPkgSetup(TComponent* owner);

    TQzPkgSetupKeys* Keys() { return &FKeys; }
    const TQzPkgSetupKeys* Keys() const { return &FKeys; }
    TQzPkgSetupDataBase* DataBase() { return &FDataBase; }
    const TQzPkgSetupDataBase* DataBase() const { return &FDataBase; }

    // Back to the defaults of a new application.
    void Clear() override;
    bool IsEmpty() const override;
    AnsiString DefaultExt() const override { return "pse"; }
    AnsiString KindName() const override { return "Setup"; }

    void Transfer(TQzPkgTransfer& t) override;

private:
    TQzPkgSetupKeys FKeys{this};
    TQzPkgSetupDataBase FDataBase{this};
};
