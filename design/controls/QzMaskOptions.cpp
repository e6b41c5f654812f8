#include "design/controls/QzMaskOptions.h"

#include "runtime/util/QzFields.h"

#include "rtl/StringList.h"
#include "rtl/SysUtils.h"

#include <algorithm>
#include <cstring>

namespace {

bool Has(const AnsiString& text, char ch)
{
    return text.find(ch) != AnsiString::npos;
}

bool HasAny(const AnsiString& text, const char* chars)
{
    return text.find_first_of(chars) != AnsiString::npos;
}

bool IsNumberGroup(TQzMaskGroup group)
{
    return group == TQzMaskGroup::Integer || group == TQzMaskGroup::Decimal;
}

void Append(AnsiString& out, bool on, char ch)
{
    if (on)
        out += ch;
}

AnsiString NumberOptions(const TQzMaskOptions& o)
{
    AnsiString out;
    Append(out, o.Negatives == 1, '-');
    Append(out, o.Negatives == 2, '+');
    Append(out, o.SignRight, '*');
    Append(out, o.NoZero, 'z');
    Append(out, o.Thousands, '.');
    Append(out, o.TrimDec, '&');
    Append(out, o.CheckRange, 'k');
    Append(out, o.FillAllDigits, '$');
    Append(out, o.FillZeros, '0');
    Append(out, o.ShowCurrency, '@');
    if (o.Scientific >= 1 && o.Scientific <= 4)
        out += static_cast<char>('0' + o.Scientific);
    return out;
}

AnsiString DateOptions(const TQzMaskOptions& o)
{
    AnsiString out;
    Append(out, o.Day, 'd');
    Append(out, o.DayName == 1, 'D');
    Append(out, o.DayName == 2, '1');
    Append(out, o.Month == 1, 'm');
    Append(out, o.Month == 2, 'M');
    Append(out, o.Month == 3, '2');
    Append(out, o.Year == 1, 'y');
    Append(out, o.Hour, 'h');
    Append(out, o.Minutes, 'n');
    Append(out, o.Seconds, 's');
    Append(out, o.AmPm, 'a');
    Append(out, o.Hour12, 'o');
    Append(out, o.AutoAdjust12H, 'k');
    if (o.Duration >= 1 && o.Duration <= 6)
        out += QzMaskDurationChars[o.Duration - 1];
    return out;
}

AnsiString StringOptions(const TQzMaskOptions& o)
{
    AnsiString out;
    Append(out, o.AcceptsSymbols, 's');
    Append(out, o.AcceptsLetters, 'a');
    Append(out, o.AcceptsDigits, 'd');
    Append(out, o.AcceptsSpaces, 'w');
    Append(out, o.NoAutoTrim, 't');
    Append(out, o.FillAllCharacters, '$');
    Append(out, o.SaveMask, 'm');
    Append(out, o.Case == 1, 'u');
    Append(out, o.Case == 2, 'l');
    Append(out, o.Case == 3, 'f');
    Append(out, o.Password, '*');
    Append(out, o.DataAlignRight, 'r');
    return out;
}

void ResetNumbers(TQzDataType type, bool isDefault, TQzMaskOptions& o)
{
    o.Align = isDefault ? '>' : '<';
    o.Negatives = 0;
    o.SignRight = o.NoZero = o.Thousands = o.TrimDec = false;
    o.CheckRange = o.FillAllDigits = o.FillZeros = o.ShowCurrency = false;
    o.Scientific = 0;
    if (isDefault && QzMaskGroupOf(type) == TQzMaskGroup::Decimal) {
        o.Negatives = 1;
        o.Thousands = o.TrimDec = true;
    }
}

void ResetStrings(bool isDefault, TQzMaskOptions& o)
{
    o.Align = '<';
    o.AcceptsSymbols = o.AcceptsLetters = o.AcceptsDigits = o.AcceptsSpaces = isDefault;
    o.NoAutoTrim = o.FillAllCharacters = o.Password = o.DataAlignRight = false;
    o.Case = 0;
    // Save-mask is deliberately kept: it survives a rescan.
}

void ResetDate(bool isDefault, TQzMaskOptions& o)
{
    o.Align = '<';
    o.Day = isDefault;
    o.DayName = 0;
    o.Month = isDefault ? 1 : 0;
    o.Year = isDefault ? 1 : 0;
    o.Hour = o.Minutes = o.Seconds = o.AmPm = o.Hour12 = o.AutoAdjust12H = false;
    o.Duration = 0;
}

void ApplyNumberChar(char ch, TQzMaskOptions& o)
{
    switch (ch) {
    case '-': o.Negatives = 1; break;
    case '+': o.Negatives = 2; break;
    case '*': o.SignRight = true; break;
    case 'z': o.NoZero = true; break;
    case '.': o.Thousands = true; break;
    case '&': o.TrimDec = true; break;
    case 'k': o.CheckRange = true; break;
    case '$': o.FillAllDigits = true; break;
    case '0': o.FillZeros = true; break;
    case '@': o.ShowCurrency = true; break;
    case '1': case '2': case '3': case '4': o.Scientific = ch - '0'; break;
    default: break;
    }
}

void ApplyDateChar(char ch, TQzMaskOptions& o)
{
    if (const char* at = std::strchr(QzMaskDurationChars, ch); at && ch != '\0') {
        o.Duration = static_cast<int>(at - QzMaskDurationChars) + 1;
        return;
    }
    switch (ch) {
    case 'd': o.Day = true; break;
    case 'D': o.DayName = 1; break;
    case '1': o.DayName = 2; break;
    case 'm': o.Month = 1; break;
    case 'M': o.Month = 2; break;
    case '2': o.Month = 3; break;
    case 'y': o.Year = 1; break;
    case 'h': o.Hour = true; break;
    case 'n': o.Minutes = true; break;
    case 's': o.Seconds = true; break;
    case 'a': o.AmPm = true; break;
    case 'o': o.Hour12 = true; break;
    case 'k': o.AutoAdjust12H = true; break;
    default: break;
    }
}

void ApplyStringChar(TQzDataType type, char ch, TQzMaskOptions& o)
{
    switch (ch) {
    case 's': o.AcceptsSymbols = true; break;
    case 'a': o.AcceptsLetters = true; break;
    case 'd': o.AcceptsDigits = true; break;
    case 'w': o.AcceptsSpaces = true; break;
    case 't': o.NoAutoTrim = true; break;
    case '$': o.FillAllCharacters = true; break;
    // Memo masks never read save-mask back, though the builder writes it.
    case 'm': if (type == qdtString) o.SaveMask = true; break;
    case 'u': o.Case = 1; break;
    case 'l': o.Case = 2; break;
    case 'f': o.Case = 3; break;
    case '*': o.Password = true; break;
    case 'r': o.DataAlignRight = true; break;
    default: break;
    }
}

bool IsAlign(char ch)
{
    return ch == '<' || ch == '%' || ch == '>';
}

// The rivals that forbid typing ch in the date group.
const char* DateRivals(char ch)
{
    switch (ch) {
    // The letter l, not the digit one: "d" and "D" can still follow "1".
    case 'd': return "Dl";
    case 'D': return "dl";
    case '1': return "dD";
    case 'm': return "M2";
    case 'M': return "m2";
    case '2': return "mM";
    default: return "";
    }
}

const char* StringRivals(char ch)
{
    switch (ch) {
    case 'u': return "lf";
    case 'l': return "uf";
    case 'f': return "ul";
    default: return "";
    }
}

const char* NumberRivals(char ch)
{
    switch (ch) {
    case '+': return "-";
    case '-': return "+";
    default: return "";
    }
}

// A part as it stands, unless reading it back would change it (a ';', a
// quote, a control character, blanks at its ends, '#' and a digit at its
// start): then written as the field reader expects it.
AnsiString MaskField(const AnsiString& part)
{
    const bool plain = part.find_first_of(";\"") == AnsiString::npos &&
                       std::none_of(part.begin(), part.end(), [](char c) { return (c >= 0 && c < 32) || c == 127; }) &&
                       !(part.size() > 1 && part[0] == '#' && part[1] >= '0' && part[1] <= '9') &&
                       Trim(part) == part;
    if (plain)
        return part;
    TStringList one;
    one.Add(part);
    return QzTextFromStrings(&one, ';');
}

}  // namespace

TQzMaskGroup QzMaskGroupOf(TQzDataType type)
{
    switch (type) {
    case qdtInteger: return TQzMaskGroup::Integer;
    case qdtFloat:
    case qdtCurrency: return TQzMaskGroup::Decimal;
    case qdtString:
    case qdtMemo: return TQzMaskGroup::String;
    case qdtDateTime: return TQzMaskGroup::DateTime;
    case qdtNone: break;
    }
    return TQzMaskGroup::None;
}

AnsiString QzMaskDefaultOptions(TQzDataType type)
{
    switch (QzMaskGroupOf(type)) {
    case TQzMaskGroup::Integer: return ">";
    case TQzMaskGroup::Decimal: return ">.-&";
    case TQzMaskGroup::String: return "<sadw";
    case TQzMaskGroup::DateTime: return "<dmy";
    case TQzMaskGroup::None: break;
    }
    return "";
}

bool QzMaskIsDefault(TQzDataType type, const AnsiString& options)
{
    if (QzMaskGroupOf(type) == TQzMaskGroup::None)
        return false;
    const AnsiString def = QzMaskDefaultOptions(type);
    if (options.size() != def.size())
        return false;
    for (char ch : options)
        if (!Has(def, ch))
            return false;
    return true;
}

AnsiString MakeStringOptions(TQzDataType type, const TQzMaskOptions& options)
{
    AnsiString out(1, options.Align);
    switch (QzMaskGroupOf(type)) {
    case TQzMaskGroup::Integer:
    case TQzMaskGroup::Decimal: return out + NumberOptions(options);
    case TQzMaskGroup::DateTime: return out + DateOptions(options);
    case TQzMaskGroup::String: return out + StringOptions(options);
    case TQzMaskGroup::None: break;
    }
    return out;
}

void ScanOptions(TQzDataType type, const AnsiString& text, TQzMaskOptions& options)
{
    const TQzMaskGroup group = QzMaskGroupOf(type);
    const bool isDefault = text.empty() || QzMaskIsDefault(type, text);
    if (IsNumberGroup(group))
        ResetNumbers(type, isDefault, options);
    else if (group == TQzMaskGroup::String)
        ResetStrings(isDefault, options);
    else if (group == TQzMaskGroup::DateTime)
        ResetDate(isDefault, options);
    if (isDefault)
        return;
    for (char ch : text) {
        if (ch < '$' || ch > 'z')
            continue;
        if (IsAlign(ch))
            options.Align = ch;
        else if (IsNumberGroup(group))
            ApplyNumberChar(ch, options);
        else if (group == TQzMaskGroup::DateTime)
            ApplyDateChar(ch, options);
        else if (group == TQzMaskGroup::String)
            ApplyStringChar(type, ch, options);
    }
}

bool QzMaskOptionKeyAllowed(TQzDataType type, const AnsiString& current, char ch)
{
    if (ch == '\b')
        return true;
    if (Has(current, ch))
        return false;
    if (IsAlign(ch))
        return !HasAny(current, "<%>");
    switch (QzMaskGroupOf(type)) {
    case TQzMaskGroup::Integer:
    case TQzMaskGroup::Decimal:
        return Has("$*+-.0@kz", ch) && !HasAny(current, NumberRivals(ch));
    case TQzMaskGroup::DateTime:
        return Has("12DMadhmnosy", ch) && !HasAny(current, DateRivals(ch));
    case TQzMaskGroup::String:
        return Has("$*adflmstuw", ch) && !HasAny(current, StringRivals(ch));
    case TQzMaskGroup::None: break;
    }
    return false;
}

TQzMaskDateEnabling QzMaskDateEnabling(const TQzMaskOptions& options)
{
    TQzMaskDateEnabling e;
    const bool duration = options.Duration != 0;
    e.Hour12 = !duration;
    e.DayMonthYear = !duration;
    e.AmPm = !options.Hour12 && !duration;
    e.AutoAdjust12H = options.Hour12;
    return e;
}

void QzApply12HourRule(TQzMaskOptions& options)
{
    if (options.Hour12)
        options.AmPm = true;
    else
        options.AutoAdjust12H = false;
}

void QzMaskSetDuration(TQzMaskOptions& options, int duration, TQzMaskDateSaved& saved)
{
    const bool was = options.Duration != 0;
    const bool now = duration != 0;
    options.Duration = duration;
    if (was == now)
        return;
    if (now) {
        saved = {options.Day, options.DayName, options.Month, options.Year};
        options.Day = false;
        options.DayName = options.Month = options.Year = 0;
    } else {
        options.Day = saved.Day;
        options.DayName = saved.DayName;
        options.Month = saved.Month;
        options.Year = saved.Year;
    }
}

TQzMaskParts QzSplitMaskText(const AnsiString& text)
{
    TStringList parts;
    try {
        QzTextToStrings(text, &parts, ';');
    } catch (const EConvertError&) {
        // A hand-written mask with a stray quote still opens: its parts are
        // taken as they stand between the separators.
        parts.Clear();
        AnsiString field;
        for (char ch : text) {
            if (ch == ';') {
                parts.Add(field);
                field.clear();
            } else {
                field += ch;
            }
        }
        parts.Add(field);
    }
    TQzMaskParts result;
    if (parts.Count() > 0)
        result.Options = parts[0];
    if (parts.Count() > 1)
        result.MaskText = parts[1];
    if (parts.Count() > 2)
        result.Space = parts[2];
    if (parts.Count() <= 1)
        result.Space = "_";
    return result;
}

AnsiString QzJoinMaskText(TQzDataType type, const AnsiString& options, const AnsiString& maskText,
                          const AnsiString& space)
{
    if (QzMaskGroupOf(type) == TQzMaskGroup::String && !Trim(maskText).empty()) {
        AnsiString text = options + ";" + MaskField(maskText);
        if (!Trim(space).empty())
            text += ";" + MaskField(space);
        return text;
    }
    return QzMaskIsDefault(type, options) ? AnsiString() : options;
}

const std::array<TQzMaskExample, QzMaskExampleCount>& QzMaskExamples()
{
    static const std::array<TQzMaskExample, QzMaskExampleCount> examples{{
        {"String UpperCase", qdtString, "0", 0, "<sadwu"},
        {"Telephone", qdtString, "0", 0, "<d;(###)###-####"},
        {"Integer", qdtInteger, "9", 0, ">"},
        {"Integer Zero", qdtInteger, "9", 0, ">0"},
        {"Tax", qdtFloat, "6", 2, ">-"},
        {"Currency", qdtFloat, "19", 2, ">-."},
        {"Date", qdtDateTime, "0", 0, "<dmy"},
        {"Time", qdtDateTime, "0", 0, "<hns"},
        {"DateTime", qdtDateTime, "0", 0, "<dmyhns"},
    }};
    return examples;
}
