#include "runtime/model/QzPkgSetup.h"

#include "runtime/model/QzPkgStream.h"

using namespace QzPkgStream;

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

struct TEngineConventions {
    TQzDateFormat DateFormat;
    char DateSeparator;
    char DecimalSeparator;
    bool QuotedNumber;
    bool SQLSyntax;
    char TimeSeparator;
};

// How each engine writes dates and numbers in SQL text by default.
TEngineConventions ConventionsOf(TQzDataBaseEngine engine)
{
    switch (engine) {
    case deInterBase:
        return {dfMDY, '/', '.', false, true, ':'};
    case deOracle:
        return {dfDMY, '-', '.', false, true, ':'};
    case deMySQL:
        return {dfYMD, '-', '.', true, true, ':'};
    case deGeneric:
        return {dfYMD, '-', '.', false, false, ':'};
    case deMSSQL:
    case dePostgreSQL:
    case deSQLite:
        break;
    }
    return {dfYMD, '-', '.', false, true, ':'};
}

void CheckSeparator(const char* what, char value)
{
    if (static_cast<unsigned char>(value) < ' ')
        throw EQzPkgError(AnsiString("Invalid ") + what + ": a printable character is needed");
}

char ReadSeparator(TReader& r)
{
    const Integer c = r.ReadInteger();
    if (c < 0 || c > 255)
        throw EQzPkgError("Invalid separator " + IntToStr(c));
    return static_cast<char>(c);
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

TQzPkgSetupKeys::TQzPkgSetupKeys(TQzPkgSetup* owner) : FOwner(owner), FShortCuts(DefaultShortCuts) {}

void TQzPkgSetupKeys::Changed()
{
    if (FOwner)
        FOwner->Change();
}

void TQzPkgSetupKeys::SetActionEnter(bool value)
{
    if (value == FActionEnter)
        return;
    FActionEnter = value;
    Changed();
}

void TQzPkgSetupKeys::SetInsertMode(bool value)
{
    if (value == FInsertMode)
        return;
    FInsertMode = value;
    Changed();
}

// One key, one action: a shortcut another action has is refused, since the
// data controls could not tell which of the two to run.
void TQzPkgSetupKeys::SetShortCut(TQzSetupAction action, TShortCut value)
{
    if (action < 0 || action >= QzSetupActionCount)
        throw EQzPkgError("Invalid setup action " + IntToStr(action));
    auto& slot = FShortCuts[static_cast<size_t>(action)];
    if (slot == value)
        return;
    TQzSetupAction other;
    if (value != 0 && FindAction(value, other))
        throw EQzPkgError(AnsiString("The shortcut is already used by ") + ActionNames[other]);
    slot = value;
    Changed();
}

bool TQzPkgSetupKeys::FindAction(TShortCut shortCut, TQzSetupAction& action) const
{
    if (shortCut == 0)
        return false;
    for (int i = 0; i < QzSetupActionCount; ++i) {
        if (FShortCuts[static_cast<size_t>(i)] == shortCut) {
            action = static_cast<TQzSetupAction>(i);
            return true;
        }
    }
    return false;
}

void TQzPkgSetupKeys::RestoreDefaults()
{
    const TQzPkgSetupKeys defaults;
    Assign(const_cast<TQzPkgSetupKeys*>(&defaults));
}

bool TQzPkgSetupKeys::operator==(const TQzPkgSetupKeys& other) const
{
    return FActionEnter == other.FActionEnter && FInsertMode == other.FInsertMode && FShortCuts == other.FShortCuts;
}

void TQzPkgSetupKeys::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzPkgSetupKeys*>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    if (*this == *other)
        return;
    FActionEnter = other->FActionEnter;
    FInsertMode = other->FInsertMode;
    FShortCuts = other->FShortCuts;
    Changed();
}

// ( ActionEnter InsertMode ShortCut* )
void TQzPkgSetupKeys::Write(TWriter& w) const
{
    w.WriteListBegin();
    w.WriteBoolean(FActionEnter);
    w.WriteBoolean(FInsertMode);
    for (TShortCut s : FShortCuts)
        w.WriteInteger(s);
    w.WriteListEnd();
}

void TQzPkgSetupKeys::Read(TReader& r)
{
    TQzPkgSetupKeys read;
    r.ReadListBegin();
    read.FActionEnter = r.ReadBoolean();
    read.FInsertMode = r.ReadBoolean();
    for (auto& s : read.FShortCuts) {
        const size_t at = r.Position();
        const Integer v = r.ReadInteger();
        if (v < 0 || v > 0xFFFF)
            r.Error("Invalid shortcut " + IntToStr(v), at);
        s = static_cast<TShortCut>(v);
    }
    r.ReadListEnd();
    FActionEnter = read.FActionEnter;
    FInsertMode = read.FInsertMode;
    FShortCuts = read.FShortCuts;
}

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

TQzPkgSetupDataBase::TQzPkgSetupDataBase(TQzPkgSetup* owner) : FOwner(owner)
{
    const TEngineConventions c = ConventionsOf(FDataBaseEngine);
    FDateFormat = c.DateFormat;
    FDateSeparator = c.DateSeparator;
    FNumericDecimalSeparator = c.DecimalSeparator;
    FQuotedNumber = c.QuotedNumber;
    FSQLSyntax = c.SQLSyntax;
    FTimeSeparator = c.TimeSeparator;
}

template <class V>
void TQzPkgSetupDataBase::Set(V& field, const V& value)
{
    if (field == value)
        return;
    field = value;
    if (FOwner)
        FOwner->Change();
}

void TQzPkgSetupDataBase::SetDataBaseEngine(TQzDataBaseEngine value)
{
    if (value < deGeneric || value > deSQLite)
        throw EQzPkgError("Invalid database engine " + IntToStr(value));
    if (value == FDataBaseEngine)
        return;
    const TEngineConventions c = ConventionsOf(value);
    FDataBaseEngine = value;
    FDateFormat = c.DateFormat;
    FDateSeparator = c.DateSeparator;
    FNumericDecimalSeparator = c.DecimalSeparator;
    FQuotedNumber = c.QuotedNumber;
    FSQLSyntax = c.SQLSyntax;
    FTimeSeparator = c.TimeSeparator;
    if (FOwner)
        FOwner->Change();
}

void TQzPkgSetupDataBase::SetDateFormat(TQzDateFormat value)
{
    if (value < dfDMY || value > dfYMD)
        throw EQzPkgError("Invalid date format " + IntToStr(value));
    Set(FDateFormat, value);
}

void TQzPkgSetupDataBase::SetDateSeparator(char value)
{
    CheckSeparator("date separator", value);
    Set(FDateSeparator, value);
}

void TQzPkgSetupDataBase::SetNumericDecimalSeparator(char value)
{
    CheckSeparator("decimal separator", value);
    Set(FNumericDecimalSeparator, value);
}

void TQzPkgSetupDataBase::SetQuotedNumber(bool value) { Set(FQuotedNumber, value); }
void TQzPkgSetupDataBase::SetSQLSyntax(bool value) { Set(FSQLSyntax, value); }

void TQzPkgSetupDataBase::SetTimeSeparator(char value)
{
    CheckSeparator("time separator", value);
    Set(FTimeSeparator, value);
}

void TQzPkgSetupDataBase::CopyValues(const TQzPkgSetupDataBase& s)
{
    FDataBaseEngine = s.FDataBaseEngine;
    FDateFormat = s.FDateFormat;
    FDateSeparator = s.FDateSeparator;
    FNumericDecimalSeparator = s.FNumericDecimalSeparator;
    FQuotedNumber = s.FQuotedNumber;
    FSQLSyntax = s.FSQLSyntax;
    FTimeSeparator = s.FTimeSeparator;
}

bool TQzPkgSetupDataBase::operator==(const TQzPkgSetupDataBase& s) const
{
    return FDataBaseEngine == s.FDataBaseEngine && FDateFormat == s.FDateFormat && FDateSeparator == s.FDateSeparator &&
           FNumericDecimalSeparator == s.FNumericDecimalSeparator && FQuotedNumber == s.FQuotedNumber &&
           FSQLSyntax == s.FSQLSyntax && FTimeSeparator == s.FTimeSeparator;
}

void TQzPkgSetupDataBase::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzPkgSetupDataBase*>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    if (*this == *other)
        return;
    CopyValues(*other);
    if (FOwner)
        FOwner->Change();
}

// ( Engine DateFormat DateSep DecimalSep QuotedNumber SQLSyntax TimeSep )
void TQzPkgSetupDataBase::Write(TWriter& w) const
{
    w.WriteListBegin();
    w.WriteInteger(FDataBaseEngine);
    w.WriteInteger(FDateFormat);
    w.WriteInteger(static_cast<unsigned char>(FDateSeparator));
    w.WriteInteger(static_cast<unsigned char>(FNumericDecimalSeparator));
    w.WriteBoolean(FQuotedNumber);
    w.WriteBoolean(FSQLSyntax);
    w.WriteInteger(static_cast<unsigned char>(FTimeSeparator));
    w.WriteListEnd();
}

void TQzPkgSetupDataBase::Read(TReader& r)
{
    TQzPkgSetupDataBase read;
    r.ReadListBegin();
    Checked(r, [&] {
        read.SetDataBaseEngine(ReadEnum(r, deSQLite));
        read.SetDateFormat(ReadEnum(r, dfYMD));
        read.SetDateSeparator(ReadSeparator(r));
        read.SetNumericDecimalSeparator(ReadSeparator(r));
        read.SetQuotedNumber(r.ReadBoolean());
        read.SetSQLSyntax(r.ReadBoolean());
        read.SetTimeSeparator(ReadSeparator(r));
    });
    r.ReadListEnd();
    CopyValues(read);
}

// ---------------------------------------------------------------------------
// The package

TQzPkgSetup::TQzPkgSetup(TComponent* owner) : TQzPkgInfo(owner) {}

void TQzPkgSetup::Clear()
{
    FKeys.RestoreDefaults();
    const TQzPkgSetupDataBase defaults;
    FDataBase.Assign(const_cast<TQzPkgSetupDataBase*>(&defaults));
}

bool TQzPkgSetup::IsEmpty() const
{
    return FKeys == TQzPkgSetupKeys() && FDataBase == TQzPkgSetupDataBase();
}

// Layout (version 1), after the common header: Keys DataBase.
void TQzPkgSetup::xSaveToStream(TWriter* writer)
{
    WriteContentHeader(*writer, DataVersion, Placement());
    FKeys.Write(*writer);
    FDataBase.Write(*writer);
}

void TQzPkgSetup::xLoadFromStream(TReader* reader)
{
    TReader& r = *reader;
    Integer version = 0;
    const TQzWindowPlacement placement = ReadContentHeader(r, DataVersion, version);
    TQzPkgSetupKeys keys;
    keys.Read(r);
    TQzPkgSetupDataBase dataBase;
    dataBase.Read(r);
    FKeys.Assign(&keys);
    FDataBase.Assign(&dataBase);
    SetPlacement(placement);
    Change();
}
