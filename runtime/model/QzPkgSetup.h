#pragma once
// The setup package (the application's PkgSetup): the keyboard shortcuts
// of the data controls and the conventions of the database the application
// talks to.

#include "runtime/model/QzPkgInfo.h"

#include <array>

class TQzPkgSetup;

// The actions that have a shortcut, in the order they are stored.
enum TQzSetupAction {
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

class TQzPkgSetupKeys : public TPersistent {
    QZ_CLASS(TQzPkgSetupKeys, TPersistent)

public:
    explicit TQzPkgSetupKeys(TQzPkgSetup* owner = nullptr);

    // Enter moves to the next control, as Tab does.
    bool ActionEnter() const { return FActionEnter; }
    void SetActionEnter(bool value);
    // Edits start in insert (not overwrite) mode.
    bool InsertMode() const { return FInsertMode; }
    void SetInsertMode(bool value);

    TShortCut ShortCut(TQzSetupAction action) const { return FShortCuts[static_cast<size_t>(action)]; }
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

    void Assign(TPersistent* source) override;
    bool operator==(const TQzPkgSetupKeys& other) const;
    void Write(TWriter& w) const;
    void Read(TReader& r);

private:
    static void DeclareProperties(TClassBuilder<TQzPkgSetupKeys>& b);
    void Changed();

    TQzPkgSetup* FOwner;
    bool FActionEnter = true;
    bool FInsertMode = true;
    std::array<TShortCut, QzSetupActionCount> FShortCuts{};
};

class TQzPkgSetupDataBase : public TPersistent {
    QZ_CLASS(TQzPkgSetupDataBase, TPersistent)

public:
    explicit TQzPkgSetupDataBase(TQzPkgSetup* owner = nullptr);

    TQzDataBaseEngine DataBaseEngine() const { return FDataBaseEngine; }
    // Also takes the engine's own conventions for the settings below.
    void SetDataBaseEngine(TQzDataBaseEngine value);
    TQzDateFormat GetDateFormat() const { return FDateFormat; }
    void SetDateFormat(TQzDateFormat value);
    char GetDateSeparator() const { return FDateSeparator; }
    void SetDateSeparator(char value);
    char GetNumericDecimalSeparator() const { return FNumericDecimalSeparator; }
    void SetNumericDecimalSeparator(char value);
    // Numbers written in quotes in SQL text.
    bool GetQuotedNumber() const { return FQuotedNumber; }
    void SetQuotedNumber(bool value);
    // SQL text follows the engine's own syntax rather than the generic one.
    bool GetSQLSyntax() const { return FSQLSyntax; }
    void SetSQLSyntax(bool value);
    char GetTimeSeparator() const { return FTimeSeparator; }
    void SetTimeSeparator(char value);

    void Assign(TPersistent* source) override;
    bool operator==(const TQzPkgSetupDataBase& other) const;
    void Write(TWriter& w) const;
    void Read(TReader& r);

private:
    static void DeclareProperties(TClassBuilder<TQzPkgSetupDataBase>& b);
    template <class V>
    void Set(V& field, const V& value);
    void CopyValues(const TQzPkgSetupDataBase& source);

    TQzPkgSetup* FOwner;
    TQzDataBaseEngine FDataBaseEngine = deGeneric;
    TQzDateFormat FDateFormat = dfYMD;
    char FDateSeparator = '-';
    char FNumericDecimalSeparator = '.';
    bool FQuotedNumber = false;
    bool FSQLSyntax = true;
    char FTimeSeparator = ':';
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

    void xSaveToStream(TWriter* writer) override;
    void xLoadFromStream(TReader* reader) override;

private:
    TQzPkgSetupKeys FKeys{this};
    TQzPkgSetupDataBase FDataBase{this};
};
