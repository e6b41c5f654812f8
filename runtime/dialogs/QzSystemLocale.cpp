#include "runtime/dialogs/QzSystemLocale.h"

#include "vcl/QzQtString.h"

#include <QLocale>

namespace {

bool IsField(char c)
{
    return c == 'd' || c == 'D' || c == 'M' || c == 'm' || c == 'y' || c == 'Y';
}

// Calls visit(index, character) for every character outside quotes.
template <class Visit>
void ForUnquoted(const AnsiString& pattern, Visit&& visit)
{
    bool quoted = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '\'') {
            quoted = !quoted;
            continue;
        }
        if (!quoted && !visit(i, pattern[i]))
            return;
    }
}

AnsiString SystemPattern()
{
    return QzAnsiString(QLocale::system().dateFormat(QLocale::ShortFormat));
}

}  // namespace

TQzDateFormat QzDateFormatOfPattern(const AnsiString& pattern)
{
    constexpr std::size_t None = AnsiString::npos;
    std::size_t day = None, month = None, year = None;
    ForUnquoted(pattern, [&](std::size_t i, char c) {
        std::size_t& first = (c == 'd' || c == 'D') ? day : (c == 'M' || c == 'm') ? month : year;
        if (IsField(c) && first == None)
            first = i;
        return true;
    });
    if (year != None && (day == None || year < day) && (month == None || year < month))
        return dfYMD;
    if (month != None && day != None && month < day)
        return dfMDY;
    return dfDMY;
}

char QzDateSeparatorOfPattern(const AnsiString& pattern)
{
    char separator = '/';
    bool afterField = false;
    ForUnquoted(pattern, [&](std::size_t, char c) {
        if (IsField(c)) {
            afterField = true;
            return true;
        }
        if (afterField) {
            separator = c;
            return false;
        }
        return true;
    });
    return separator;
}

TQzDateFormat QzSystemDateFormat()
{
    return QzDateFormatOfPattern(SystemPattern());
}

char QzSystemDateSeparator()
{
    return QzDateSeparatorOfPattern(SystemPattern());
}
