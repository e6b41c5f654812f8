#include "runtime/system/QzSystemStrings.h"

#include <algorithm>

namespace {

constexpr TQzSystemString Messages[] = {
    {smTextNotFound, "The text you searched for was not found.", ""},
    {smDeleteImage, "Do you want to delete the selected image?", ""},
    {smDeleteItem, "Do you want to delete the selected item?", ""},
    {smDeleteFolder, "Do you want to delete the selected folder with all the folders and variables it holds?", ""},
    {smDeleteVariable, "Do you want to delete the selected variable?", ""},
    {smChangeType,
     "Do you want to change the type of the selected item? Its value is converted to the new type, and a "
     "value that does not fit is lost.",
     ""},
    {smFileNotFound, "The file '%s' does not exist.", ""},
    {smClearImages, "Do you want to delete all the images of this package?", ""},
    {smOverwriteFile, "The file '%s' already exists. Do you want to overwrite it?", ""},
    {smEraseMemory, "The data now in memory will be replaced by the file's. Do you want to continue?", ""},
    {smClearStrings, "Do you want to delete all the labels, messages and texts of this package?", ""},
    {smClearVariables, "Do you want to delete all the folders and variables of this package?", ""},
    {smClearFolder, "Do you want to delete the variables of the selected folder? Its sub-folders are kept.", ""},
};

constexpr TQzSystemString Labels[] = {
    {slCaptionWarning, "Warning", "Caption of a warning message box"},
    {slCaptionError, "Error", "Caption of an error message box"},
    {slCaptionInformation, "Information", "Caption of an information message box"},
    {slCaptionConfirmation, "Confirm", "Caption of a message box that asks for confirmation"},
    {slCaptionCustom, "Message", "Caption of any other message box"},
};

constexpr TQzSystemString Texts[] = {
    {stMaskHelp,
     "Edit masks\r\n"
     "\r\n"
     "A mask has up to three parts separated by ';': the options, then (for strings) the mask text, then the "
     "character shown in the empty places. An empty mask uses the default options of the data type.\r\n"
     "\r\n"
     "Alignment, first option of every type: '<' left, '%' centre, '>' right.\r\n"
     "\r\n"
     "Numbers: '-' accepts negatives, '+' accepts them and always shows the sign, '*' sign on the right, "
     "'z' zero not shown, '.' thousands separators, '&' trailing decimals trimmed, 'k' integer part checked "
     "against the size, '$' every digit must be filled, '0' padding with zeros, '@' currency symbol shown, "
     "'1' to '4' scientific notation with 1, 2 or 3 digits or automatic.\r\n"
     "\r\n"
     "Dates and times: 'd' numeric day, 'D' short day name, '1' long day name, 'm' numeric month, 'M' short "
     "month name, '2' long month name, 'y' year, 'h' hours, 'n' minutes, 's' seconds, 'a' AM/PM, 'o' 12-hour "
     "clock, 'k' automatic 12-hour adjustment, 'z' 'x' 'c' 'v' 'b' 'p' a duration of 1 to 6 units.\r\n"
     "\r\n"
     "Strings: 's' symbols, 'a' letters, 'd' digits and 'w' spaces accepted, 't' no automatic trimming, "
     "'$' every position must be filled, 'm' the mask's literal characters are stored with the data, "
     "'u' upper case, 'l' lower case, 'f' first character in upper case, '*' password entry, 'r' data "
     "aligned right.",
     ""},
    {stHelpWindow,
     "The help window\r\n"
     "\r\n"
     "A message that needs more explanation than its box can hold comes with a help page: the message is "
     "shown on top and the page under it.\r\n"
     "\r\n"
     "Help pages are texts of a strings package. The first line of a text is the page's title; the rest is "
     "its body. The suite's own pages are texts of the \"System\" package, and an application adds its own "
     "pages to any strings package it ships.\r\n"
     "\r\n"
     "Copy puts the message and its page on the clipboard, to paste into a report.",
     ""},
};

const char* Find(std::span<const TQzSystemString> table, Integer id)
{
    const auto it = std::lower_bound(table.begin(), table.end(), id,
                                     [](const TQzSystemString& s, Integer value) { return s.Id < value; });
    return it != table.end() && it->Id == id ? it->Text : nullptr;
}

} // namespace

std::span<const TQzSystemString> QzSystemMessages() { return Messages; }
std::span<const TQzSystemString> QzSystemLabels() { return Labels; }
std::span<const TQzSystemString> QzSystemTexts() { return Texts; }

const char* QzSystemMessageText(Integer id) { return Find(Messages, id); }
const char* QzSystemLabelText(Integer id) { return Find(Labels, id); }
const char* QzSystemTextText(Integer id) { return Find(Texts, id); }
