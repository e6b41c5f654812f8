#include "runtime/model/QzPkgSetup.h"

#include "runtime/model/QzPkgStream.h"

namespace {

// Shortcut bits as the suite stores them: virtual key in the low byte.
constexpr TShortCut scCtrl = 0x4000;

// The defaults, in TQzSetupAction order: Ctrl+A, F11, F12, F7, F8, F3, F4,
// Ctrl+Del, F2, Ctrl+Home, Insert, Ctrl+End, Ctrl+PgDn, Ctrl+Enter,
// Ctrl+PgUp, F5.
constexpr std::array<TShortCut, QzSetupActionCount> DefaultShortCuts = {
    scCtrl | 0x41, 0x7A, 0x7B, 0x76, 0x77, 0x72, 0x73, scCtrl | 0x2E,
    0x71, scCtrl | 0x24, 0x2D, scCtrl | 0x23, scCtrl | 0x22, scCtrl | 0x0D, scCtrl | 0x21, 0x74,
};

const char* const ActionNames[QzSetupActionCount] = {
    "AppendRecord", "BtnCalculator", "BtnCalendar", "BtnCustom1", "BtnCustom2", "BtnMaint",
    "BtnRelation", "DeleteRecord", "EditRecord", "FirstRecord", "InsertRecord", "LastRecord",
    "NextRecord", "PostRecord", "PriorRecord", "Refresh",
};

// How each engine writes dates and numbers in SQL text by default.
TQzSetupDataBaseValues ConventionsOf(TQzDataBaseEngine engine)
{
    switch (engine) {
    case deInterBase:
        return {engine, dfMDY, '/', '.', false, true, ':'};
    case deOracle:
        return {engine, dfDMY, '-', '.', false, true, ':'};
    case deMySQL:
        return {engine, dfYMD, '-', '.', true, true, ':'};
    case deGeneric:
        return {engine, dfYMD, '-', '.', false, false, ':'};
    case deMSSQL:
    case dePostgreSQL:
    case deSQLite:
        break;
    }
    return {engine, dfYMD, '-', '.', false, true, ':'};
}

TQzSetupKeysValues DefaultKeys()
{
    TQzSetupKeysValues v;
    v.ShortCuts = DefaultShortCuts;
    return v;
}

void CheckSeparator(const char* what, char value)
{
    if (static_cast<unsigned char>(value) < ' ')
        throw EQzPkgError(AnsiString("Invalid ") + what + ": a printable character is needed");
}

}  // namespace

// ---------------------------------------------------------------------------
// Keys

void TQzPkgSetupKeys::DeclareProperties(TClassBuilder<TQzPkgSetupKeys>& b)
{
    b.Property("ActionEnter", &TQzPkgSetupKeys::ActionEnter, &TQzPkgSetupKeys::SetActionEnter).Default(true);
    b.Property("InsertMode", &TQzPkgSetupKeys::InsertMode, &TQzPkgSetupKeys::SetInsertMode).Default(true);
    for (int i = 0; i < QzSetupActionCount; ++i) {
        const auto action = static_cast<TQzSetupAction>(i);
        b.Property(
             ActionNames[i], TypeInfo_TShortCut(), [action](TQzPkgSetupKeys& k) { return k.ShortCut(action); },
             [action](TQzPkgSetupKeys& k, TShortCut v) { k.SetShortCut(action, v); })
            .Default(DefaultShortCuts[static_cast<size_t>(i)]);
    }
}

TQzPkgSetupKeys::TQzPkgSetupKeys(TQzPkgSetup* owner) : TQzPkgSettings(owner, DefaultKeys()) {}

// One key, one action: a shortcut another action has is refused, since the
// data controls could not tell which of the two to run.
void TQzPkgSetupKeys::SetShortCut(TQzSetupAction action, TShortCut value)
{
    if (action < 0 || action >= QzSetupActionCount)
        throw EQzPkgError("Invalid setup action " + IntToStr(action));
    if (ShortCut(action) == value)
        return;
    TQzSetupAction other;
    if (value != 0 && FindAction(value, other))
        throw EQzPkgError(AnsiString("The shortcut is already used by ") + ActionNames[other]);
    TQzSetupKeysValues v = Values();
    v.ShortCuts[static_cast<size_t>(action)] = value;
    SetValues(v);
}

bool TQzPkgSetupKeys::FindAction(TShortCut shortCut, TQzSetupAction& action) const
{
    if (shortCut == 0)
        return false;
    for (int i = 0; i < QzSetupActionCount; ++i) {
        if (Values().ShortCuts[static_cast<size_t>(i)] == shortCut) {
            action = static_cast<TQzSetupAction>(i);
            return true;
        }
    }
    return false;
}

void TQzPkgSetupKeys::RestoreDefaults()
{
    SetValues(TQzPkgSetupKeys().Values());
}

// Every combination of flags and shortcuts may be kept: a shortcut's
// uniqueness is the setter's rule, so that settings stored before it came
// still read.
void TQzPkgSetupKeys::CheckValues(const TQzSetupKeysValues&) const {}

// ---------------------------------------------------------------------------
// Database

void TQzPkgSetupDataBase::DeclareProperties(TClassBuilder<TQzPkgSetupDataBase>& b)
{
    using D = TQzPkgSetupDataBase;
    b.Enum("DataBaseEngine", TypeInfo_TQzDataBaseEngine(), &D::DataBaseEngine, &D::SetDataBaseEngine, deGeneric);
    b.Enum("DateFormat", TypeInfo_TQzDateFormat(), &D::GetDateFormat, &D::SetDateFormat, dfYMD);
    b.Property("DateSeparator", &D::GetDateSeparator, &D::SetDateSeparator).Default('-');
    b.Property("NumericDecimalSeparator", &D::GetNumericDecimalSeparator, &D::SetNumericDecimalSeparator)
        .Default('.');
    b.Property("QuotedNumber", &D::GetQuotedNumber, &D::SetQuotedNumber).Default(false);
    b.Property("SQLSyntax", &D::GetSQLSyntax, &D::SetSQLSyntax).NoDefault();
    b.Property("TimeSeparator", &D::GetTimeSeparator, &D::SetTimeSeparator).Default(':');
}

TQzPkgSetupDataBase::TQzPkgSetupDataBase(TQzPkgSetup* owner) : TQzPkgSettings(owner, ConventionsOf(deGeneric)) {}

void TQzPkgSetupDataBase::SetDataBaseEngine(TQzDataBaseEngine value)
{
    if (value == DataBaseEngine())
        return;
    SetValues(ConventionsOf(value));
}

void TQzPkgSetupDataBase::CheckValues(const TQzSetupDataBaseValues& v) const
{
    if (v.DataBaseEngine < deGeneric || v.DataBaseEngine > deSQLite)
        throw EQzPkgError("Invalid database engine " + IntToStr(v.DataBaseEngine));
    if (v.DateFormat < dfDMY || v.DateFormat > dfYMD)
        throw EQzPkgError("Invalid date format " + IntToStr(v.DateFormat));
    CheckSeparator("date separator", v.DateSeparator);
    CheckSeparator("decimal separator", v.NumericDecimalSeparator);
    CheckSeparator("time separator", v.TimeSeparator);
}

// ---------------------------------------------------------------------------
// The package

TQzPkgSetup::TQzPkgSetup(TComponent* owner) : TQzPkgInfo(owner) {}

void TQzPkgSetup::Clear()
{
    FKeys.RestoreDefaults();
    FDataBase.SetValues(TQzPkgSetupDataBase().Values());
}

bool TQzPkgSetup::IsEmpty() const
{
    return FKeys == TQzPkgSetupKeys() && FDataBase == TQzPkgSetupDataBase();
}

// Layout (version 1), after the common header:
//   ( ActionEnter InsertMode ShortCut* )
//   ( Engine DateFormat DateSep DecimalSep QuotedNumber SQLSyntax TimeSep )
void TQzPkgSetup::Transfer(TQzPkgTransfer& t)
{
    const TQzWindowPlacement placement = TransferContentHeader(t, DataVersion);
    TQzSetupKeysValues k = FKeys.Values();
    t.List([&] {
        t.Value(k.ActionEnter);
        t.Value(k.InsertMode);
        for (TShortCut& s : k.ShortCuts) {
            Integer v = s;
            t.Value(v, 0, 0xFFFF, "shortcut");
            s = static_cast<TShortCut>(v);
        }
    });
    TQzSetupDataBaseValues d = FDataBase.Values();
    t.List([&] {
        t.Enum(d.DataBaseEngine, deSQLite);
        t.Enum(d.DateFormat, dfYMD);
        t.Char(d.DateSeparator);
        t.Char(d.NumericDecimalSeparator);
        t.Value(d.QuotedNumber);
        t.Value(d.SQLSyntax);
        t.Char(d.TimeSeparator);
        t.Checked([&] { FDataBase.CheckValues(d); });
    });
    if (!t.EndBlock())
        return;
    FKeys.SetValues(k);
    FDataBase.SetValues(d);
    CommitContents(placement);
}
