#include "runtime/model/QzPkgLanguage.h"

#include "runtime/model/QzPkgStream.h"
#include "runtime/model/QzRegistry.h"

using namespace QzPkgStream;

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

template <class V>
void TQzPkgLanguageLocale::Set(V& field, const V& value)
{
    if (field == value)
        return;
    field = value;
    if (FOwner)
        FOwner->Change();
}

void TQzPkgLanguageLocale::RestoreDefaults()
{
    const TQzPkgLanguageLocale defaults;
    if (*this == defaults)
        return;
    CopyValues(defaults);
    if (FOwner)
        FOwner->Change();
}

void TQzPkgLanguageLocale::SetAutoLoad(bool value) { Set(FAutoLoad, value); }

void TQzPkgLanguageLocale::SetDateCentury(Integer value)
{
    CheckRange("century", value, 100, 9900);
    if (value % 100 != 0)
        throw EQzPkgError("Invalid century " + IntToStr(value) + ": a multiple of 100 is needed");
    Set(FDateCentury, value);
}

void TQzPkgLanguageLocale::SetDateFormat(TQzDateFormat value)
{
    CheckRange("date format", value, dfDMY, dfYMD);
    Set(FDateFormat, value);
}

void TQzPkgLanguageLocale::SetDateSeparator(char value)
{
    CheckSeparator("date separator", value);
    Set(FDateSeparator, value);
}

void TQzPkgLanguageLocale::SetDateYear(TQzDateYear value)
{
    CheckRange("date year mode", value, dyCentury, dyWindow);
    Set(FDateYear, value);
}

void TQzPkgLanguageLocale::SetDateYearFix(Integer value)
{
    CheckRange("pivot year", value, 0, 99);
    Set(FDateYearFix, value);
}

void TQzPkgLanguageLocale::SetDecimals(Integer value)
{
    CheckRange("number of decimals", value, 0, 15);
    Set(FDecimals, value);
}

void TQzPkgLanguageLocale::SetNumericCurrencyFormat(TQzCurrencyFormat value)
{
    CheckRange("currency format", value, cfBefore, cfAfterSpace);
    Set(FNumericCurrencyFormat, value);
}

void TQzPkgLanguageLocale::SetNumericCurrencyString(const AnsiString& value) { Set(FNumericCurrencyString, value); }

void TQzPkgLanguageLocale::SetNumericDecimalSeparator(char value)
{
    CheckSeparator("decimal separator", value);
    Set(FNumericDecimalSeparator, value);
}

void TQzPkgLanguageLocale::SetNumericTrousandSeparator(char value)
{
    CheckSeparator("thousands separator", value);
    Set(FNumericTrousandSeparator, value);
}

void TQzPkgLanguageLocale::SetTimeAMString(const AnsiString& value) { Set(FTimeAMString, value); }
void TQzPkgLanguageLocale::SetTimePMString(const AnsiString& value) { Set(FTimePMString, value); }

void TQzPkgLanguageLocale::SetTimeSeparator(char value)
{
    CheckSeparator("time separator", value);
    Set(FTimeSeparator, value);
}

void TQzPkgLanguageLocale::CopyValues(const TQzPkgLanguageLocale& s)
{
    FAutoLoad = s.FAutoLoad;
    FDateCentury = s.FDateCentury;
    FDateFormat = s.FDateFormat;
    FDateSeparator = s.FDateSeparator;
    FDateYear = s.FDateYear;
    FDateYearFix = s.FDateYearFix;
    FDecimals = s.FDecimals;
    FNumericCurrencyFormat = s.FNumericCurrencyFormat;
    FNumericCurrencyString = s.FNumericCurrencyString;
    FNumericDecimalSeparator = s.FNumericDecimalSeparator;
    FNumericTrousandSeparator = s.FNumericTrousandSeparator;
    FTimeAMString = s.FTimeAMString;
    FTimePMString = s.FTimePMString;
    FTimeSeparator = s.FTimeSeparator;
}

bool TQzPkgLanguageLocale::operator==(const TQzPkgLanguageLocale& s) const
{
    return FAutoLoad == s.FAutoLoad && FDateCentury == s.FDateCentury && FDateFormat == s.FDateFormat &&
           FDateSeparator == s.FDateSeparator && FDateYear == s.FDateYear && FDateYearFix == s.FDateYearFix &&
           FDecimals == s.FDecimals && FNumericCurrencyFormat == s.FNumericCurrencyFormat &&
           FNumericCurrencyString == s.FNumericCurrencyString &&
           FNumericDecimalSeparator == s.FNumericDecimalSeparator &&
           FNumericTrousandSeparator == s.FNumericTrousandSeparator && FTimeAMString == s.FTimeAMString &&
           FTimePMString == s.FTimePMString && FTimeSeparator == s.FTimeSeparator;
}

void TQzPkgLanguageLocale::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzPkgLanguageLocale*>(source);
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

// ( AutoLoad Century DateFormat DateSep DateYear YearFix Decimals
//   CurrencyFormat CurrencyString DecimalSep ThousandSep AM PM TimeSep )
void TQzPkgLanguageLocale::Write(TWriter& w) const
{
    w.WriteListBegin();
    w.WriteBoolean(FAutoLoad);
    w.WriteInteger(FDateCentury);
    w.WriteInteger(FDateFormat);
    w.WriteInteger(static_cast<unsigned char>(FDateSeparator));
    w.WriteInteger(FDateYear);
    w.WriteInteger(FDateYearFix);
    w.WriteInteger(FDecimals);
    w.WriteInteger(FNumericCurrencyFormat);
    WriteText(w, FNumericCurrencyString);
    w.WriteInteger(static_cast<unsigned char>(FNumericDecimalSeparator));
    w.WriteInteger(static_cast<unsigned char>(FNumericTrousandSeparator));
    WriteText(w, FTimeAMString);
    WriteText(w, FTimePMString);
    w.WriteInteger(static_cast<unsigned char>(FTimeSeparator));
    w.WriteListEnd();
}

// Into a scratch locale through the setters, so their checks apply, then
// copied whole.
void TQzPkgLanguageLocale::Read(TReader& r)
{
    TQzPkgLanguageLocale read;
    auto readChar = [&r] {
        const Integer c = r.ReadInteger();
        if (c < 0 || c > 255)
            throw EQzPkgError("Invalid separator " + IntToStr(c));
        return static_cast<char>(c);
    };
    r.ReadListBegin();
    Checked(r, [&] {
        read.SetAutoLoad(r.ReadBoolean());
        read.SetDateCentury(r.ReadInteger());
        read.SetDateFormat(static_cast<TQzDateFormat>(r.ReadInteger()));
        read.SetDateSeparator(readChar());
        read.SetDateYear(static_cast<TQzDateYear>(r.ReadInteger()));
        read.SetDateYearFix(r.ReadInteger());
        read.SetDecimals(r.ReadInteger());
        read.SetNumericCurrencyFormat(static_cast<TQzCurrencyFormat>(r.ReadInteger()));
        read.SetNumericCurrencyString(ReadText(r));
        read.SetNumericDecimalSeparator(readChar());
        read.SetNumericTrousandSeparator(readChar());
        read.SetTimeAMString(ReadText(r));
        read.SetTimePMString(ReadText(r));
        read.SetTimeSeparator(readChar());
    });
    r.ReadListEnd();
    CopyValues(read);
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
    if (value == FLastUpdateFile)
        return;
    FLastUpdateFile = value;
    Change();
}

void TQzPkgLanguage::SetUpdateDateTime(TDateTime value)
{
    if (value == FUpdateDateTime)
        return;
    FUpdateDateTime = value;
    Change();
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
//   Locale LastUpdateFile UpdateDateTime
//   the "System" strings block, the "User" strings block
void TQzPkgLanguage::xSaveToStream(TWriter* writer)
{
    TWriter& w = *writer;
    WriteContentHeader(w, DataVersion, Placement());
    FLocale.Write(w);
    WriteText(w, FLastUpdateFile);
    w.WriteDouble(FUpdateDateTime);
    FPkgSystem->xSaveToStream(&w);
    FPkgUser->xSaveToStream(&w);
}

void TQzPkgLanguage::xLoadFromStream(TReader* reader)
{
    TReader& r = *reader;
    Integer version = 0;
    const TQzWindowPlacement placement = ReadContentHeader(r, DataVersion, version);
    TQzPkgLanguageLocale locale;
    locale.Read(r);
    AnsiString lastUpdateFile = ReadText(r);
    const TDateTime updateDateTime = r.ReadDouble();
    TQzDetachedPkgs detached;
    TQzPkgStrings systemStrings(nullptr);
    TQzPkgStrings userStrings(nullptr);
    systemStrings.xLoadFromStream(&r);
    userStrings.xLoadFromStream(&r);

    FLocale.CopyValues(locale);
    FLastUpdateFile = lastUpdateFile;
    FUpdateDateTime = updateDateTime;
    FPkgSystem->TakeContents(systemStrings);
    FPkgUser->TakeContents(userStrings);
    SetPlacement(placement);
    Change();
}
