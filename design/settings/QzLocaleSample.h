#pragma once
// Dates, times, numbers and amounts written as the application will show
// them with a locale, for the live sample of the language window.

#include "runtime/model/QzPkgLanguage.h"

AnsiString QzLocaleDate(const TQzLocaleValues& locale, Word year, Word month, Word day);
// "14:05:09", or "2:05:09 PM" on the twelve-hour clock.
AnsiString QzLocaleTime(const TQzLocaleValues& locale, Word hour, Word minute, Word second, bool twelveHour);
// Rounded to the locale's decimals, thousands grouped: "-1,234,567.89".
AnsiString QzLocaleNumber(const TQzLocaleValues& locale, double value);
// The number with the currency string where the locale puts it; a
// negative amount keeps its sign in front: "-$12.50", "-12.50 EUR".
AnsiString QzLocaleCurrency(const TQzLocaleValues& locale, double value);
// The full year a two-digit year is read as; -1 when years are typed in
// full.
Integer QzLocaleYear(const TQzLocaleValues& locale, Integer twoDigitYear);
