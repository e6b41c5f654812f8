#include "design/controls/QzMenuShortCuts.h"

#include <array>
#include <cctype>

namespace {

struct TKeyName {
    Word Key;
    const char* Name;
};

// Keys whose name is not their character.
constexpr std::array<TKeyName, 17> KeyNames = {{
    {0x08, "BkSp"},
    {0x09, "Tab"},
    {0x0D, "Enter"},
    {0x1B, "Esc"},
    {0x20, "Space"},
    {0x21, "PgUp"},
    {0x22, "PgDn"},
    {0x23, "End"},
    {0x24, "Home"},
    {0x25, "Left"},
    {0x26, "Up"},
    {0x27, "Right"},
    {0x28, "Down"},
    {0x2D, "Ins"},
    {0x2E, "Del"},
    {0x6B, "Num +"},
    {0x6D, "Num -"},
}};

constexpr Word VkF1 = 0x70;
constexpr int FunctionKeys = 12;

struct TModifier {
    TShortCut Bit;
    const char* Prefix;
};

// The order the names are written in.
constexpr std::array<TModifier, 3> Modifiers = {{{QzScShift, "Shift+"}, {QzScCtrl, "Ctrl+"}, {QzScAlt, "Alt+"}}};

AnsiString KeyText(Word key)
{
    if ((key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'))
        return AnsiString(1, char(key));
    if (key >= VkF1 && key < VkF1 + FunctionKeys)
        return "F" + IntToStr(key - VkF1 + 1);
    for (const TKeyName& k : KeyNames)
        if (k.Key == key)
            return k.Name;
    return "#" + IntToStr(key);
}

bool TextKey(const AnsiString& text, Word& key)
{
    if (text.size() == 1 && std::isalnum(static_cast<unsigned char>(text[0]))) {
        key = Word(std::toupper(static_cast<unsigned char>(text[0])));
        return true;
    }
    for (const TKeyName& k : KeyNames)
        if (SameText(text, k.Name)) {
            key = k.Key;
            return true;
        }
    if (text.size() >= 2 && (text[0] == 'F' || text[0] == 'f')) {
        Integer n = 0;
        if (TryStrToInt(text.substr(1), n) && n >= 1 && n <= FunctionKeys) {
            key = Word(VkF1 + n - 1);
            return true;
        }
    }
    return false;
}

bool StartsWithText(const AnsiString& text, const AnsiString& prefix)
{
    return text.size() >= prefix.size() && SameText(text.substr(0, prefix.size()), prefix);
}

}  // namespace

AnsiString QzShortCutToText(TShortCut shortCut)
{
    const Word key = shortCut & 0xFF;
    if (key == 0)
        return {};
    AnsiString text;
    for (const TModifier& m : Modifiers)
        if (shortCut & m.Bit)
            text += m.Prefix;
    return text + KeyText(key);
}

bool QzTextToShortCut(const AnsiString& text, TShortCut& shortCut)
{
    AnsiString rest = Trim(text);
    if (rest.empty() || SameText(rest, "(None)")) {
        shortCut = 0;
        return true;
    }
    TShortCut shift = 0;
    for (bool found = true; found;) {
        found = false;
        for (const TModifier& m : Modifiers)
            if (rest.size() > std::char_traits<char>::length(m.Prefix) && StartsWithText(rest, m.Prefix)) {
                shift |= m.Bit;
                rest = rest.substr(std::char_traits<char>::length(m.Prefix));
                found = true;
            }
    }
    Word key = 0;
    if (!TextKey(rest, key))
        return false;
    shortCut = TShortCut(shift | key);
    return true;
}

const std::vector<AnsiString>& QzShortCutNames()
{
    static const std::vector<AnsiString> names = [] {
        std::vector<AnsiString> list{"(None)"};
        for (char c = 'A'; c <= 'Z'; ++c)
            list.push_back(QzShortCutToText(TShortCut(QzScCtrl | c)));
        for (TShortCut shift : {TShortCut(0), QzScCtrl, QzScShift, TShortCut(QzScShift | QzScCtrl)})
            for (int f = 0; f < FunctionKeys; ++f)
                list.push_back(QzShortCutToText(TShortCut(shift | (VkF1 + f))));
        for (TShortCut shift : {TShortCut(0), QzScShift, QzScCtrl})
            for (Word key : {Word(0x2D), Word(0x2E)})
                list.push_back(QzShortCutToText(TShortCut(shift | key)));
        list.push_back(QzShortCutToText(TShortCut(QzScAlt | 0x08)));
        list.push_back(QzShortCutToText(TShortCut(QzScShift | QzScAlt | 0x08)));
        return list;
    }();
    return names;
}
