// The setup and language pages' rules without their windows: the shortcut
// a key press makes, a shortcut refused while another action has it, and
// the sample of a locale as the application will show it.

#include "design/controls/QzMenuShortCuts.h"
#include "design/settings/QzLocaleSample.h"
#include "design/settings/QzSetupKeys.h"

#include <gtest/gtest.h>

TEST(SetupKeys, KeyPressesMakeTheStoredShortCuts)
{
    struct Case {
        int Key;
        Qt::KeyboardModifiers Modifiers;
        const char* Text;   // "" when the press makes no shortcut
    };
    const Case cases[] = {
        {Qt::Key_A, Qt::ControlModifier, "Ctrl+A"},
        {Qt::Key_F5, Qt::NoModifier, "F5"},
        {Qt::Key_F12, Qt::ShiftModifier | Qt::AltModifier, "Shift+Alt+F12"},
        {Qt::Key_PageDown, Qt::ControlModifier, "Ctrl+PgDn"},
        {Qt::Key_Return, Qt::ControlModifier, "Ctrl+Enter"},
        {Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier, "Ctrl+Enter"},
        {Qt::Key_Plus, Qt::KeypadModifier, "Num +"},
        {Qt::Key_Plus, Qt::NoModifier, ""},
        {Qt::Key_Control, Qt::ControlModifier, ""},
        {Qt::Key_F13, Qt::NoModifier, ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(QzShortCutToText(QzShortCutOfKey(c.Key, c.Modifiers)), c.Text) << c.Text;
}

TEST(SetupKeys, AShortCutInUseIsRefusedAndNothingChanges)
{
    TQzSetupKeysValues values = TQzPkgSetupKeys().Values();
    const TQzSetupKeysValues before = values;
    // Ctrl+PgDn is the next record's.
    const TShortCut nextRecord = values.ShortCuts[saNextRecord];
    try {
        QzAssignShortCut(values, saFirstRecord, nextRecord);
        FAIL() << "a shortcut in use was given twice";
    } catch (const EQzPkgError& e) {
        EXPECT_NE(e.Message().find("NextRecord"), AnsiString::npos) << e.Message();
    }
    EXPECT_EQ(values, before);

    // Cleared shortcuts do not collide with each other; a freed one is free.
    QzAssignShortCut(values, saNextRecord, 0);
    QzAssignShortCut(values, saPriorRecord, 0);
    QzAssignShortCut(values, saFirstRecord, nextRecord);
    EXPECT_EQ(values.ShortCuts[saFirstRecord], nextRecord);
}

TEST(LocaleSample, NumbersAndAmounts)
{
    TQzLocaleValues us;
    TQzLocaleValues eu;
    eu.NumericDecimalSeparator = ',';
    eu.NumericTrousandSeparator = '.';
    eu.NumericCurrencyString = "EUR";
    eu.NumericCurrencyFormat = cfAfterSpace;
    TQzLocaleValues whole = us;
    whole.Decimals = 0;
    whole.NumericCurrencyFormat = cfBeforeSpace;

    struct Case {
        const TQzLocaleValues* Locale;
        double Value;
        const char* Number;
        const char* Currency;
    };
    const Case cases[] = {
        {&us, 1234567.891, "1,234,567.89", "$1,234,567.89"},
        {&us, -12.5, "-12.50", "-$12.50"},
        {&us, 999.999, "1,000.00", "$1,000.00"},
        {&us, -0.001, "0.00", "$0.00"},   // rounds to zero: no sign
        {&us, 0.5, "0.50", "$0.50"},
        {&eu, 1234.5, "1.234,50", "1.234,50 EUR"},
        {&eu, -1234.5, "-1.234,50", "-1.234,50 EUR"},
        {&whole, 123456.5, "123,457", "$ 123,457"},
        {&whole, 100, "100", "$ 100"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(QzLocaleNumber(*c.Locale, c.Value), c.Number) << c.Value;
        EXPECT_EQ(QzLocaleCurrency(*c.Locale, c.Value), c.Currency) << c.Value;
    }
}

TEST(LocaleSample, DatesTimesAndTwoDigitYears)
{
    TQzLocaleValues v;
    EXPECT_EQ(QzLocaleDate(v, 2026, 3, 7), "07/03/2026");
    v.DateFormat = dfMDY;
    v.DateSeparator = '-';
    EXPECT_EQ(QzLocaleDate(v, 2026, 3, 7), "03-07-2026");
    v.DateFormat = dfYMD;
    v.DateSeparator = '.';
    EXPECT_EQ(QzLocaleDate(v, 2026, 3, 7), "2026.03.07");

    v.TimeSeparator = '.';
    v.TimePMString = "pm";
    EXPECT_EQ(QzLocaleTime(v, 14, 5, 9, false), "14.05.09");
    EXPECT_EQ(QzLocaleTime(v, 14, 5, 9, true), "2.05.09 pm");
    EXPECT_EQ(QzLocaleTime(v, 0, 30, 0, true), "12.30.00 AM");
    EXPECT_EQ(QzLocaleTime(v, 12, 0, 0, true), "12.00.00 pm");

    // The window around pivot 50 in the 2000s: below it this century, from it the one before.
    struct Case {
        TQzDateYear Mode;
        Integer Century, Pivot, TwoDigits, Year;
    };
    const Case cases[] = {
        {dyWindow, 2000, 50, 49, 2049}, {dyWindow, 2000, 50, 50, 1950}, {dyWindow, 2000, 0, 0, 1900},
        {dyCentury, 1900, 50, 49, 1949}, {dyFourDigits, 2000, 50, 49, -1},
    };
    for (const Case& c : cases) {
        v.DateYear = c.Mode;
        v.DateCentury = c.Century;
        v.DateYearFix = c.Pivot;
        EXPECT_EQ(QzLocaleYear(v, c.TwoDigits), c.Year) << c.TwoDigits << " pivot " << c.Pivot;
    }
}
