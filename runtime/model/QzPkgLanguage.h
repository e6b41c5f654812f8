#pragma once
// The language package (the application's PkgLanguage): the application's
// two strings packages "System" and "User", and the locale the runtime
// formats dates and numbers with.

#include "runtime/model/QzPkgInfo.h"
#include "runtime/model/QzPkgStrings.h"

class TQzPkgLanguage;

// Date, time and number conventions. Every setter marks the language
// package changed.
class TQzPkgLanguageLocale : public TPersistent {
    QZ_CLASS(TQzPkgLanguageLocale, TPersistent)

public:
    explicit TQzPkgLanguageLocale(TQzPkgLanguage* owner = nullptr) : FOwner(owner) {}

    // Back to the defaults of a new application (day/month/year, '/', ':',
    // '.' decimals, ',' thousands, "$" before the number, two decimals).
    void RestoreDefaults();

    bool AutoLoad() const { return FAutoLoad; }
    void SetAutoLoad(bool value);
    Integer DateCentury() const { return FDateCentury; }
    void SetDateCentury(Integer value);   // a multiple of 100, 100 to 9900
    TQzDateFormat DateFormat() const { return FDateFormat; }
    void SetDateFormat(TQzDateFormat value);
    char DateSeparator() const { return FDateSeparator; }
    void SetDateSeparator(char value);
    TQzDateYear DateYear() const { return FDateYear; }
    void SetDateYear(TQzDateYear value);
    Integer DateYearFix() const { return FDateYearFix; }
    void SetDateYearFix(Integer value);   // the window's pivot, 0 to 99
    Integer Decimals() const { return FDecimals; }
    void SetDecimals(Integer value);      // 0 to 15
    TQzCurrencyFormat NumericCurrencyFormat() const { return FNumericCurrencyFormat; }
    void SetNumericCurrencyFormat(TQzCurrencyFormat value);
    const AnsiString& NumericCurrencyString() const { return FNumericCurrencyString; }
    void SetNumericCurrencyString(const AnsiString& value);
    char NumericDecimalSeparator() const { return FNumericDecimalSeparator; }
    void SetNumericDecimalSeparator(char value);
    // Spelled as the suite has always spelled it.
    char NumericTrousandSeparator() const { return FNumericTrousandSeparator; }
    void SetNumericTrousandSeparator(char value);
    const AnsiString& TimeAMString() const { return FTimeAMString; }
    void SetTimeAMString(const AnsiString& value);
    const AnsiString& TimePMString() const { return FTimePMString; }
    void SetTimePMString(const AnsiString& value);
    char TimeSeparator() const { return FTimeSeparator; }
    void SetTimeSeparator(char value);

    void Assign(TPersistent* source) override;
    bool operator==(const TQzPkgLanguageLocale& other) const;
    void Write(TWriter& w) const;
    void Read(TReader& r);

private:
    friend class TQzPkgLanguage;
    static void DeclareProperties(TClassBuilder<TQzPkgLanguageLocale>& b);
    template <class V>
    void Set(V& field, const V& value);
    void CopyValues(const TQzPkgLanguageLocale& source);

    TQzPkgLanguage* FOwner;
    bool FAutoLoad = false;
    Integer FDateCentury = 2000;
    TQzDateFormat FDateFormat = dfDMY;
    char FDateSeparator = '/';
    TQzDateYear FDateYear = dyWindow;
    Integer FDateYearFix = 50;
    Integer FDecimals = 2;
    TQzCurrencyFormat FNumericCurrencyFormat = cfBefore;
    AnsiString FNumericCurrencyString = "$";
    char FNumericDecimalSeparator = '.';
    char FNumericTrousandSeparator = ',';
    AnsiString FTimeAMString = "AM";
    AnsiString FTimePMString = "PM";
    char FTimeSeparator = ':';
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

    void xSaveToStream(TWriter* writer) override;
    void xLoadFromStream(TReader* reader) override;

private:
    TQzPkgStrings* FPkgSystem;
    TQzPkgStrings* FPkgUser;
    TQzPkgLanguageLocale FLocale{this};
    AnsiString FLastUpdateFile;
    TDateTime FUpdateDateTime = 0;
};
