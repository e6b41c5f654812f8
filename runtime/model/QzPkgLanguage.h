#pragma once
// The language package (the application's PkgLanguage): the application's
// two strings packages "System" and "User", and the locale the runtime
// formats dates and numbers with.

#include "runtime/model/QzPkgSettings.h"
#include "runtime/model/QzPkgStrings.h"

class TQzPkgLanguage;

// Date, time and number conventions. Every setter marks the language
// package changed.
struct TQzLocaleValues {
    bool AutoLoad = false;
    Integer DateCentury = 2000;   // a multiple of 100, 100 to 9900
    TQzDateFormat DateFormat = dfDMY;
    char DateSeparator = '/';
    TQzDateYear DateYear = dyWindow;
    Integer DateYearFix = 50;     // the window's pivot, 0 to 99
    Integer Decimals = 2;         // 0 to 15
    TQzCurrencyFormat NumericCurrencyFormat = cfBefore;
    AnsiString NumericCurrencyString = "$";
    char NumericDecimalSeparator = '.';
    char NumericTrousandSeparator = ',';   // spelled as the suite has always spelled it
    AnsiString TimeAMString = "AM";
    AnsiString TimePMString = "PM";
    char TimeSeparator = ':';
    bool operator==(const TQzLocaleValues&) const = default;
};

class TQzPkgLanguageLocale : public TQzPkgSettings<TQzLocaleValues> {
    QZ_CLASS(TQzPkgLanguageLocale, TPersistent)

public:
    explicit TQzPkgLanguageLocale(TQzPkgLanguage* owner = nullptr);

    // Back to the defaults of a new application (day/month/year, '/', ':',
    // '.' decimals, ',' thousands, "$" before the number, two decimals).
    void RestoreDefaults() { SetValues({}); }

    bool AutoLoad() const { return Values().AutoLoad; }
    void SetAutoLoad(bool value) { Set(&Values_t::AutoLoad, value); }
    Integer DateCentury() const { return Values().DateCentury; }
    void SetDateCentury(Integer value) { Set(&Values_t::DateCentury, value); }
    TQzDateFormat DateFormat() const { return Values().DateFormat; }
    void SetDateFormat(TQzDateFormat value) { Set(&Values_t::DateFormat, value); }
    char DateSeparator() const { return Values().DateSeparator; }
    void SetDateSeparator(char value) { Set(&Values_t::DateSeparator, value); }
    TQzDateYear DateYear() const { return Values().DateYear; }
    void SetDateYear(TQzDateYear value) { Set(&Values_t::DateYear, value); }
    Integer DateYearFix() const { return Values().DateYearFix; }
    void SetDateYearFix(Integer value) { Set(&Values_t::DateYearFix, value); }
    Integer Decimals() const { return Values().Decimals; }
    void SetDecimals(Integer value) { Set(&Values_t::Decimals, value); }
    TQzCurrencyFormat NumericCurrencyFormat() const { return Values().NumericCurrencyFormat; }
    void SetNumericCurrencyFormat(TQzCurrencyFormat value) { Set(&Values_t::NumericCurrencyFormat, value); }
    const AnsiString& NumericCurrencyString() const { return Values().NumericCurrencyString; }
    void SetNumericCurrencyString(const AnsiString& value) { Set(&Values_t::NumericCurrencyString, value); }
    char NumericDecimalSeparator() const { return Values().NumericDecimalSeparator; }
    void SetNumericDecimalSeparator(char value) { Set(&Values_t::NumericDecimalSeparator, value); }
    char NumericTrousandSeparator() const { return Values().NumericTrousandSeparator; }
    void SetNumericTrousandSeparator(char value) { Set(&Values_t::NumericTrousandSeparator, value); }
    const AnsiString& TimeAMString() const { return Values().TimeAMString; }
    void SetTimeAMString(const AnsiString& value) { Set(&Values_t::TimeAMString, value); }
    const AnsiString& TimePMString() const { return Values().TimePMString; }
    void SetTimePMString(const AnsiString& value) { Set(&Values_t::TimePMString, value); }
    char TimeSeparator() const { return Values().TimeSeparator; }
    void SetTimeSeparator(char value) { Set(&Values_t::TimeSeparator, value); }

    void CheckValues(const TQzLocaleValues& values) const override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgLanguageLocale>& b);
};

class TQzPkgLanguage : public TQzPkgInfo {
    QZ_CLASS(TQzPkgLanguage, TQzPkgInfo)

public:
    static constexpr Integer DataVersion = 1;

    explicit TQzPkgLanguage(TComponent* owner);
    ~TQzPkgLanguage() override;

    // The application's strings packages, named "System" and "User".
    TQzPkgStrings* PkgSystem() const { return FPkgSystem; }
    TQzPkgStrings* PkgUser() const { return FPkgUser; }
    TQzPkgLanguageLocale* Locale() { return &FLocale; }
    const TQzPkgLanguageLocale* Locale() const { return &FLocale; }

    // The language file the "System" strings were last refreshed from, and when.
    const AnsiString& LastUpdateFile() const { return FLastUpdateFile; }
    void SetLastUpdateFile(const AnsiString& value);
    TDateTime UpdateDateTime() const { return FUpdateDateTime; }
    void SetUpdateDateTime(TDateTime value);

    // Empties the "User" strings and restores the locale; the "System"
    // strings are the suite's and stay.
    void Clear() override;
    bool IsEmpty() const override;
    AnsiString DefaultExt() const override { return "lan"; }
    AnsiString KindName() const override { return "Language"; }

    void Transfer(TQzPkgTransfer& t) override;

private:
    TQzPkgStrings* FPkgSystem;
    TQzPkgStrings* FPkgUser;
    TQzPkgLanguageLocale FLocale{this};
    AnsiString FLastUpdateFile;
    TDateTime FUpdateDateTime = 0;
};
