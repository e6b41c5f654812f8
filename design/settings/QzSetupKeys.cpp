#include "design/settings/QzSetupKeys.h"

#include "design/controls/QzMenuShortCuts.h"

#include <array>

namespace {

const char* const Captions[QzSetupActionCount] = {
    "Append record",  "Calculator button", "Calendar button", "Custom button 1", "Custom button 2",
    "Maintenance button", "Relation button", "Delete record", "Edit record", "First record",
    "Insert record", "Last record", "Next record", "Post record", "Prior record",
    "Refresh",
};

struct TKeyCode {
    int Key;
    Word Code;
};

// Qt keys whose virtual key is not their own code; letters and digits are.
constexpr std::array<TKeyCode, 18> KeyCodes = {{
    {Qt::Key_Backspace, 0x08}, {Qt::Key_Tab, 0x09},      {Qt::Key_Return, 0x0D}, {Qt::Key_Enter, 0x0D},
    {Qt::Key_Escape, 0x1B},    {Qt::Key_Space, 0x20},    {Qt::Key_PageUp, 0x21}, {Qt::Key_PageDown, 0x22},
    {Qt::Key_End, 0x23},       {Qt::Key_Home, 0x24},     {Qt::Key_Left, 0x25},   {Qt::Key_Up, 0x26},
    {Qt::Key_Right, 0x27},     {Qt::Key_Down, 0x28},     {Qt::Key_Insert, 0x2D}, {Qt::Key_Delete, 0x2E},
    {Qt::Key_Plus, 0x6B},      {Qt::Key_Minus, 0x6D},
}};

constexpr Word VkF1 = 0x70;

Word VirtualKey(int key, Qt::KeyboardModifiers modifiers)
{
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return Word(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return Word(VkF1 + (key - Qt::Key_F1));
    // Plus and minus are shortcuts only on the keypad, where they have keys of their own.
    if ((key == Qt::Key_Plus || key == Qt::Key_Minus) && !(modifiers & Qt::KeypadModifier))
        return 0;
    for (const TKeyCode& k : KeyCodes)
        if (k.Key == key)
            return k.Code;
    return 0;
}

}  // namespace

const char* QzSetupActionCaption(TQzSetupAction action)
{
    return action >= 0 && action < QzSetupActionCount ? Captions[action] : "";
}

TShortCut QzShortCutOfKey(int key, Qt::KeyboardModifiers modifiers)
{
    const Word code = VirtualKey(key, modifiers);
    if (code == 0)
        return 0;
    TShortCut shortCut = code;
    if (modifiers & Qt::ShiftModifier)
        shortCut |= QzScShift;
    if (modifiers & Qt::ControlModifier)
        shortCut |= QzScCtrl;
    if (modifiers & Qt::AltModifier)
        shortCut |= QzScAlt;
    return shortCut;
}

void QzAssignShortCut(TQzSetupKeysValues& values, TQzSetupAction action, TShortCut shortCut)
{
    // A detached copy of the runtime's keys applies its rule word for word.
    TQzPkgSetupKeys keys;
    keys.SetValues(values);
    keys.SetShortCut(action, shortCut);
    values = keys.Values();
}

AnsiString QzDataBaseSample(const TQzSetupDataBaseValues& v)
{
    const AnsiString year = "2026", month = "11", day = "25";
    const AnsiString ds(1, v.DateSeparator);
    AnsiString date;
    switch (v.DateFormat) {
    case dfDMY:
        date = day + ds + month + ds + year;
        break;
    case dfMDY:
        date = month + ds + day + ds + year;
        break;
    case dfYMD:
        date = year + ds + month + ds + day;
        break;
    }
    const AnsiString ts(1, v.TimeSeparator);
    const AnsiString time = "14" + ts + "05" + ts + "00";
    AnsiString number = AnsiString("1234") + v.NumericDecimalSeparator + "50";
    if (v.QuotedNumber)
        number = "'" + number + "'";
    return "WHERE Day = '" + date + "' AND At = '" + time + "' AND Price = " + number;
}
