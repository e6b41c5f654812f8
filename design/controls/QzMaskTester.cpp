#include "design/controls/QzMaskTester.h"

#include "rtl/SysUtils.h"
#include "vcl/QzQtString.h"

#include <QDate>
#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

namespace {

TQzMaskVerdict Accept(const QString& value)
{
    return {true, QzAnsiString(value), {}};
}

TQzMaskVerdict Refuse(const QString& reason)
{
    return {false, {}, QzAnsiString(reason)};
}

TQzMaskOptions OptionsOf(const TQzMaskUnderTest& mask, TQzMaskParts& parts)
{
    parts = QzSplitMaskText(mask.Text);
    TQzMaskOptions options;
    ScanOptions(mask.Type, parts.Options, options);
    return options;
}

// ---------------------------------------------------------------- strings

// Why the options refuse ch, or empty when they take it.
QString ClassRefusal(const TQzMaskOptions& o, QChar ch)
{
    if (ch.isLetter())
        return o.AcceptsLetters ? QString() : QStringLiteral("letters");
    if (ch.isDigit())
        return o.AcceptsDigits ? QString() : QStringLiteral("digits");
    if (ch == QLatin1Char(' '))
        return o.AcceptsSpaces ? QString() : QStringLiteral("spaces");
    return o.AcceptsSymbols ? QString() : QStringLiteral("symbols");
}

QString ApplyCase(const TQzMaskOptions& o, const QString& text)
{
    switch (o.Case) {
    case 1: return text.toUpper();
    case 2: return text.toLower();
    case 3: return text.left(1).toUpper() + text.mid(1);
    default: return text;
    }
}

TQzMaskVerdict CheckString(const TQzMaskUnderTest& mask, const TQzMaskOptions& o, const TQzMaskParts& parts,
                           const QString& input)
{
    const QString pattern = QzQString(parts.MaskText);
    const bool masked = !pattern.trimmed().isEmpty();
    QString raw = input;
    if (!o.NoAutoTrim && !masked)
        raw = raw.trimmed();
    const qsizetype positions = masked ? pattern.count(QLatin1Char('#')) : mask.Size;
    if (masked && input.size() == pattern.size() && input.size() > positions) {
        // Typed with the literals: they must stand where the mask has them.
        raw.clear();
        for (qsizetype i = 0; i < pattern.size(); ++i) {
            if (pattern[i] == QLatin1Char('#'))
                raw += input[i];
            else if (input[i] != pattern[i])
                return Refuse(QStringLiteral("position %1 must be '%2'").arg(i + 1).arg(pattern[i]));
        }
    }
    if (positions > 0 && raw.size() > positions)
        return Refuse(masked ? QStringLiteral("longer than the mask text")
                             : QStringLiteral("longer than the size of %1").arg(positions));
    for (qsizetype i = 0; i < raw.size(); ++i)
        if (const QString what = ClassRefusal(o, raw[i]); !what.isEmpty())
            return Refuse(QStringLiteral("'%1' at %2: %3 are not accepted").arg(raw[i]).arg(i + 1).arg(what));
    if (o.FillAllCharacters && positions > 0 && raw.size() < positions)
        return Refuse(QStringLiteral("all %1 characters must be filled").arg(positions));
    QString value = ApplyCase(o, raw);
    if (masked && o.SaveMask) {
        QString shown = pattern;
        qsizetype next = 0;
        const QChar blank = parts.Space.empty() ? QLatin1Char('_') : QzQString(parts.Space).at(0);
        for (QChar& ch : shown)
            if (ch == QLatin1Char('#'))
                ch = next < value.size() ? value[next++] : blank;
        value = shown;
    }
    return Accept(value);
}

// ---------------------------------------------------------------- numbers

TQzMaskVerdict CheckNumber(const TQzMaskUnderTest& mask, const TQzMaskOptions& o, const QString& input)
{
    QString s = input.trimmed();
    if (s.isEmpty())
        return Accept(s);
    QString sign;
    if (s.startsWith(QLatin1Char('-')) || s.startsWith(QLatin1Char('+'))) {
        sign = s.left(1);
        s = s.mid(1);
    } else if (o.SignRight && s.endsWith(QLatin1Char('-'))) {
        sign = QStringLiteral("-");
        s.chop(1);
    }
    if (sign == QLatin1String("-") && o.Negatives == 0)
        return Refuse(QStringLiteral("negatives are not accepted"));
    if (sign == QLatin1String("+") && o.Negatives != 2)
        return Refuse(QStringLiteral("a '+' sign is not accepted"));

    const bool decimals = QzMaskGroupOf(mask.Type) == TQzMaskGroup::Decimal;
    QString exponent;
    if (const qsizetype e = s.indexOf(QLatin1Char('e'), 0, Qt::CaseInsensitive); e >= 0) {
        if (o.Scientific == 0)
            return Refuse(QStringLiteral("an exponent needs scientific notation"));
        exponent = s.mid(e + 1);
        s = s.left(e);
        static const QRegularExpression exp(QStringLiteral("^[+-]?[0-9]+$"));
        if (!exp.match(exponent).hasMatch())
            return Refuse(QStringLiteral("the exponent is no number"));
    }
    const QStringList halves = s.split(QLatin1Char('.'));
    if (halves.size() > 2)
        return Refuse(QStringLiteral("more than one decimal point"));
    if (halves.size() == 2 && !decimals)
        return Refuse(QStringLiteral("integers take no decimal point"));
    QString intPart = halves[0];
    const QString fraction = halves.size() == 2 ? halves[1] : QString();
    if (intPart.contains(QLatin1Char(','))) {
        if (!o.Thousands)
            return Refuse(QStringLiteral("thousands separators are not accepted"));
        static const QRegularExpression grouped(QStringLiteral("^[0-9]{1,3}(,[0-9]{3})+$"));
        if (!grouped.match(intPart).hasMatch())
            return Refuse(QStringLiteral("thousands are grouped by three"));
        intPart.remove(QLatin1Char(','));
    }
    static const QRegularExpression digits(QStringLiteral("^[0-9]*$"));
    if (!digits.match(intPart).hasMatch() || !digits.match(fraction).hasMatch())
        return Refuse(QStringLiteral("'%1' is no number").arg(input.trimmed()));
    if (intPart.isEmpty() && fraction.isEmpty())
        return Refuse(QStringLiteral("no digits"));
    if (decimals && mask.Decimals > 0 && fraction.size() > mask.Decimals)
        return Refuse(QStringLiteral("more than %1 decimals").arg(mask.Decimals));
    if (mask.Size > 0 && intPart.size() + fraction.size() > mask.Size)
        return Refuse(QStringLiteral("more than %1 digits").arg(mask.Size));
    const qsizetype intDigits = mask.Size - (decimals ? mask.Decimals : 0);
    if (o.CheckRange && mask.Size > 0 && intPart.size() > intDigits)
        return Refuse(QStringLiteral("the integer part takes at most %1 digits").arg(intDigits));
    if (o.FillAllDigits && mask.Size > 0 && intPart.size() != intDigits)
        return Refuse(QStringLiteral("all %1 integer digits must be filled").arg(intDigits));
    if (o.FillZeros && intDigits > 0)
        intPart = intPart.rightJustified(intDigits, QLatin1Char('0'));
    QString value = (sign == QLatin1String("-") ? sign : QString()) + (intPart.isEmpty() ? QStringLiteral("0") : intPart);
    if (!fraction.isEmpty())
        value += QLatin1Char('.') + fraction;
    if (!exponent.isEmpty())
        value += QLatin1Char('e') + exponent;
    return Accept(value);
}

// ---------------------------------------------------------------- dates

int NameIndex(const QString& token, QLocale::FormatType format, bool months)
{
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    for (int i = 1; i <= (months ? 12 : 7); ++i) {
        const QString name = months ? english.monthName(i, format) : english.dayName(i, format);
        if (token.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return 0;
}

bool NumberIn(const QString& token, int low, int high, int& value)
{
    bool ok = false;
    value = token.toInt(&ok);
    return ok && value >= low && value <= high;
}

TQzMaskVerdict CheckDate(const TQzMaskOptions& o, const QString& input)
{
    static const QRegularExpression separators(QStringLiteral("[^\\p{L}\\p{N}]+"));
    const QStringList tokens = input.split(separators, Qt::SkipEmptyParts);
    if (tokens.isEmpty())
        return Accept(QString());
    if (o.Duration > 0) {
        if (tokens.size() > o.Duration)
            return Refuse(QStringLiteral("a duration of at most %1 parts").arg(o.Duration));
        int unused = 0;
        for (const QString& token : tokens)
            if (!NumberIn(token, 0, 999999, unused))
                return Refuse(QStringLiteral("'%1' is no number").arg(token));
        return Accept(input.trimmed());
    }
    qsizetype next = 0;
    auto take = [&]() { return next < tokens.size() ? tokens[next++] : QString(); };
    int day = 0, month = 0, year = 0, hour = 0, value = 0;
    const bool twelve = o.Hour12 || o.AmPm;
    if (o.DayName != 0) {
        const QString t = take();
        if (!NameIndex(t, o.DayName == 1 ? QLocale::ShortFormat : QLocale::LongFormat, false))
            return Refuse(QStringLiteral("'%1' is no day name").arg(t));
    }
    if (o.Day && !NumberIn(take(), 1, 31, day))
        return Refuse(QStringLiteral("the day must be 1 to 31"));
    if (o.Month == 1 && !NumberIn(take(), 1, 12, month))
        return Refuse(QStringLiteral("the month must be 1 to 12"));
    if (o.Month >= 2) {
        const QString t = take();
        month = NameIndex(t, o.Month == 2 ? QLocale::ShortFormat : QLocale::LongFormat, true);
        if (month == 0)
            return Refuse(QStringLiteral("'%1' is no month name").arg(t));
    }
    if (o.Year != 0 && !NumberIn(take(), 0, 9999, year))
        return Refuse(QStringLiteral("the year must be 0 to 9999"));
    if (o.Hour && !NumberIn(take(), twelve ? 1 : 0, twelve ? 12 : 23, hour))
        return Refuse(twelve ? QStringLiteral("the hour must be 1 to 12") : QStringLiteral("the hour must be 0 to 23"));
    if (o.Minutes && !NumberIn(take(), 0, 59, value))
        return Refuse(QStringLiteral("the minutes must be 0 to 59"));
    if (o.Seconds && !NumberIn(take(), 0, 59, value))
        return Refuse(QStringLiteral("the seconds must be 0 to 59"));
    if (o.AmPm) {
        const QString t = take().toUpper();
        if (t != QLatin1String("AM") && t != QLatin1String("PM"))
            return Refuse(QStringLiteral("AM or PM expected"));
    }
    if (next < tokens.size())
        return Refuse(QStringLiteral("'%1' is more than the mask takes").arg(tokens[next]));
    if (day != 0 && month != 0) {
        // Without a year any leap day is a day.
        const int y = o.Year == 0 ? 2000 : (year < 100 ? 2000 + year : year);
        if (!QDate::isValid(y, month, day))
            return Refuse(QStringLiteral("no such day"));
    }
    return Accept(input.trimmed());
}

}  // namespace

TQzMaskVerdict QzMaskCheck(const TQzMaskUnderTest& mask, const AnsiString& input)
{
    TQzMaskParts parts;
    const TQzMaskOptions options = OptionsOf(mask, parts);
    const QString text = QzQString(input);
    switch (QzMaskGroupOf(mask.Type)) {
    case TQzMaskGroup::String: return CheckString(mask, options, parts, text);
    case TQzMaskGroup::Integer:
    case TQzMaskGroup::Decimal: return CheckNumber(mask, options, text);
    case TQzMaskGroup::DateTime: return CheckDate(options, text);
    case TQzMaskGroup::None: break;
    }
    return Accept(text);
}

std::vector<AnsiString> QzMaskSampleInputs(TQzDataType type)
{
    switch (QzMaskGroupOf(type)) {
    case TQzMaskGroup::Integer: return {"0", "123", "-45", "1,234", "000042", "12.5", "1234567890", "abc"};
    case TQzMaskGroup::Decimal: return {"0", "12.5", "-3.75", "1,234.56", "0.125", "1e5", "1234567.5", "abc"};
    case TQzMaskGroup::String:
        return {"Hello", "hello world", "12345", "(555)123-4567", "5551234567", "a_b!", " padded "};
    case TQzMaskGroup::DateTime:
        return {"25/12/2024", "31/02/2024", "7-3-99", "12:30:45", "25/12/2024 08:15:00", "9:05 PM",
                "Monday 3 March 2025"};
    case TQzMaskGroup::None: break;
    }
    return {"anything"};
}

AnsiString QzMaskQtInputMask(const TQzMaskUnderTest& mask)
{
    if (QzMaskGroupOf(mask.Type) != TQzMaskGroup::String)
        return {};
    TQzMaskParts parts;
    const TQzMaskOptions o = OptionsOf(mask, parts);
    const QString pattern = QzQString(parts.MaskText);
    if (pattern.trimmed().isEmpty())
        return {};
    // Qt's letters for one position: letters, digits, both, or anything;
    // the capital forms require the position to be filled.
    QChar slot = QLatin1Char('x');
    if (o.AcceptsLetters && !o.AcceptsDigits && !o.AcceptsSymbols && !o.AcceptsSpaces)
        slot = QLatin1Char('a');
    else if (o.AcceptsDigits && !o.AcceptsLetters && !o.AcceptsSymbols && !o.AcceptsSpaces)
        slot = QLatin1Char('0');
    else if (o.AcceptsDigits && o.AcceptsLetters && !o.AcceptsSymbols && !o.AcceptsSpaces)
        slot = QLatin1Char('n');
    if (o.FillAllCharacters)
        slot = slot == QLatin1Char('0') ? QLatin1Char('9') : slot.toUpper();
    QString out = o.Case == 1 ? QStringLiteral(">") : o.Case == 2 ? QStringLiteral("<") : QString();
    for (QChar ch : pattern) {
        if (ch == QLatin1Char('#'))
            out += slot;
        else
            out += QLatin1Char('\\') + QString(ch);
    }
    const QString space = QzQString(parts.Space);
    out += QLatin1Char(';') + (space.isEmpty() ? QStringLiteral("_") : space.left(1));
    return QzAnsiString(out);
}
