#include "design/strings/QzStringsChecks.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The conversion letters of text's placeholders in the runtime's Format
// syntax (%[index:][-][width][.precision]type), sorted: a translation may
// reorder its placeholders through indexes, not change their kinds. "%%"
// is a percent sign.
std::string Placeholders(std::string_view text)
{
    std::string kinds;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%')
            continue;
        std::size_t j = i + 1;
        if (j < text.size() && text[j] == '%') {
            i = j;
            continue;
        }
        const auto digits = [&] {
            while (j < text.size() && (IsDigit(text[j]) || text[j] == '*'))
                ++j;
        };
        digits();
        if (j < text.size() && text[j] == ':') {
            ++j;
            digits();
        }
        if (j < text.size() && text[j] == '-')
            ++j;
        digits();
        if (j < text.size() && text[j] == '.') {
            ++j;
            digits();
        }
        if (j < text.size() && text[j] != '\0' && std::strchr("dDuUeEfFgGnNmMpPsSxX", text[j])) {
            kinds += static_cast<char>(std::tolower(static_cast<unsigned char>(text[j])));
            i = j;
        }
    }
    std::sort(kinds.begin(), kinds.end());
    return kinds;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view Leading(std::string_view s)
{
    std::size_t n = 0;
    while (n < s.size() && IsBlank(s[n]))
        ++n;
    return s.substr(0, n);
}

std::string_view Trailing(std::string_view s)
{
    std::size_t n = s.size();
    while (n > 0 && IsBlank(s[n - 1]))
        --n;
    return s.substr(n);
}

// An '&' before anything but another '&' ("&&" shows one ampersand).
bool HasAccelerator(std::string_view s)
{
    for (std::size_t i = 0; i + 1 < s.size(); ++i) {
        if (s[i] != '&')
            continue;
        if (s[i + 1] != '&')
            return true;
        ++i;
    }
    return false;
}

bool HasNonBlank(std::string_view s)
{
    return std::any_of(s.begin(), s.end(), [](char c) { return !IsBlank(c); });
}

} // namespace

unsigned QzCheckTranslation(const AnsiString& source, const AnsiString& translation)
{
    unsigned problems = spNone;
    if (Placeholders(source) != Placeholders(translation))
        problems |= spPlaceholders;
    if (Leading(source) != Leading(translation) || Trailing(source) != Trailing(translation))
        problems |= spBlanks;
    if (HasAccelerator(source) != HasAccelerator(translation))
        problems |= spAccelerator;
    if (source == translation && HasNonBlank(source))
        problems |= spSameText;
    return problems;
}

AnsiString QzStringProblemsText(unsigned problems)
{
    static const std::pair<unsigned, const char*> names[] = {
        {spPlaceholders, "placeholders differ"},
        {spBlanks, "leading or trailing blanks differ"},
        {spAccelerator, "& accelerator missing on one side"},
        {spSameText, "same text in both languages"},
    };
    AnsiString text;
    for (const auto& [flag, name] : names)
        if (problems & flag)
            text += (text.empty() ? "" : ", ") + AnsiString(name);
    return text;
}
