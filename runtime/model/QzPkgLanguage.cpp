#include "runtime/model/QzPkgLanguage.h"

#include "runtime/model/QzPkgStream.h"
#include "runtime/model/QzRegistry.h"

namespace {

void CheckRange(const char* what, Integer value, Integer low, Integer high)
{
    if (value < low || value > high)
        throw EQzPkgError(AnsiString("Invalid ") + what + " " + IntToStr(value) + " (" + IntToStr(low) + " to " +
                          IntToStr(high) + ")");
}

// Separators are printable single characters: a control character would
// make dates and numbers unreadable.
void CheckSeparator(const char* what, char value)
{
    if (static_cast<unsigned char>(value) < ' ')
        throw EQzPkgError(AnsiString("Invalid ") + what + ": a printable character is needed");
}

TQzPkgStrings* NewStrings(TComponent* owner, const char* name)
{
    auto* pkg = new TQzPkgStrings(owner);
    pkg->SetName(AnsiString("PkgStrings") + name);
    pkg->SetPkgName(name);
    pkg->SetModified(false);
    return pkg;
}

}  // namespace

// ---------------------------------------------------------------------------
// Locale

void TQzPkgLanguageLocale::DeclareProperties(TClassBuilder<TQzPkgLanguageLocale>& b)
{
    using L = TQzPkgLanguageLocale;
    b.Property("AutoLoad", &L::AutoLoad, &L::SetAutoLoad).Default(false);
    b.Property("DateCentury", &L::DateCentury, &L::SetDateCentury).Default(2000);
    b.Enum("DateFormat", TypeInfo_TQzDateFormat(), &L::DateFormat, &L::SetDateFormat, dfDMY);
    b.Property("DateSeparator", &L::DateSeparator, &L::SetDateSeparator).Default('/');
    b.Enum("DateYear", TypeInfo_TQzDateYear(), &L::DateYear, &L::SetDateYear, dyWindow);
    b.Property("DateYearFix", &L::DateYearFix, &L::SetDateYearFix).Default(50);
    b.Property("Decimals", &L::Decimals, &L::SetDecimals).Default(2);
    b.Enum("NumericCurrencyFormat", TypeInfo_TQzCurrencyFormat(), &L::NumericCurrencyFormat,
           &L::SetNumericCurrencyFormat, cfBefore);
    b.Property("NumericCurrencyString", &L::NumericCurrencyString, &L::SetNumericCurrencyString);
    b.Property("NumericDecimalSeparator", &L::NumericDecimalSeparator, &L::SetNumericDecimalSeparator).Default('.');
    b.Property("NumericTrousandSeparator", &L::NumericTrousandSeparator, &L::SetNumericTrousandSeparator)
        .Default(',');
    b.Property("TimeAMString", &L::TimeAMString, &L::SetTimeAMString);
    b.Property("TimePMString", &L::TimePMString, &L::SetTimePMString);
    b.Property("TimeSeparator", &L::TimeSeparator, &L::SetTimeSeparator).Default(':');
}

TQzPkgLanguageLocale::TQzPkgLanguageLocale(TQzPkgLanguage* owner) : TQzPkgSettings(owner) {}

void TQzPkgLanguageLocale::CheckValues(const TQzLocaleValues& v) const
{
    CheckRange("century", v.DateCentury, 100, 9900);
    if (v.DateCentury % 100 != 0)
        throw EQzPkgError("Invalid century " + IntToStr(v.DateCentury) + ": a multiple of 100 is needed");
    CheckRange("date format", v.DateFormat, dfDMY, dfYMD);
    CheckSeparator("date separator", v.DateSeparator);
    CheckRange("date year mode", v.DateYear, dyCentury, dyWindow);
    CheckRange("pivot year", v.DateYearFix, 0, 99);
    CheckRange("number of decimals", v.Decimals, 0, 15);
    CheckRange("currency format", v.NumericCurrencyFormat, cfBefore, cfAfterSpace);
    CheckSeparator("decimal separator", v.NumericDecimalSeparator);
    CheckSeparator("thousands separator", v.NumericTrousandSeparator);
    CheckSeparator("time separator", v.TimeSeparator);
}

// ---------------------------------------------------------------------------
// The package

TQzPkgLanguage::TQzPkgLanguage(TComponent* owner)
    : TQzPkgInfo(owner), FPkgSystem(NewStrings(this, QzSystemPkgName)), FPkgUser(NewStrings(this, QzUserPkgName))
{
}

TQzPkgLanguage::~TQzPkgLanguage()
{
    DestroyComponents();
}

void TQzPkgLanguage::SetLastUpdateFile(const AnsiString& value)
{
    ChangeField(FLastUpdateFile, value);
}

void TQzPkgLanguage::SetUpdateDateTime(TDateTime value)
{
    ChangeField(FUpdateDateTime, value);
}

void TQzPkgLanguage::Clear()
{
    FPkgUser->Clear();
    FLocale.RestoreDefaults();
}

bool TQzPkgLanguage::IsEmpty() const
{
    return FPkgSystem->IsEmpty() && FPkgUser->IsEmpty() && FLocale == TQzPkgLanguageLocale() &&
           FLastUpdateFile.empty() && FUpdateDateTime == 0;
}

// Layout (version 1), after the common header:
//   ( AutoLoad Century DateFormat DateSep DateYear YearFix Decimals
//     CurrencyFormat CurrencyString DecimalSep ThousandSep AM PM TimeSep )
//   LastUpdateFile UpdateDateTime
//   the "System" strings block, the "User" strings block
void TQzPkgLanguage::Transfer(TQzPkgTransfer& t)
{
    const TQzWindowPlacement placement = TransferContentHeader(t, DataVersion);
    TQzLocaleValues l = FLocale.Values();
    t.List([&] {
        t.Value(l.AutoLoad);
        t.Value(l.DateCentury);
        t.Enum(l.DateFormat, dfYMD);
        t.Char(l.DateSeparator);
        t.Enum(l.DateYear, dyWindow);
        t.Value(l.DateYearFix);
        t.Value(l.Decimals);
        t.Enum(l.NumericCurrencyFormat, cfAfterSpace);
        t.Value(l.NumericCurrencyString);
        t.Char(l.NumericDecimalSeparator);
        t.Char(l.NumericTrousandSeparator);
        t.Value(l.TimeAMString);
        t.Value(l.TimePMString);
        t.Char(l.TimeSeparator);
        t.Checked([&] { FLocale.CheckValues(l); });
    });
    AnsiString lastUpdateFile = FLastUpdateFile;
    TDateTime updateDateTime = FUpdateDateTime;
    t.Value(lastUpdateFile);
    t.Value(updateDateTime);
    TQzDetachedPkgs detached;
    TQzPkgStrings systemStrings(nullptr);
    TQzPkgStrings userStrings(nullptr);
    (t.Loading() ? systemStrings : *FPkgSystem).Transfer(t);
    (t.Loading() ? userStrings : *FPkgUser).Transfer(t);
    if (!t.EndBlock())
        return;
    FLocale.SetValues(l);
    FLastUpdateFile = lastUpdateFile;
    FUpdateDateTime = updateDateTime;
    FPkgSystem->TakeContents(systemStrings);
    FPkgUser->TakeContents(userStrings);
    CommitContents(placement);
}
