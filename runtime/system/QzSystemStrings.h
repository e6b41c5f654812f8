#pragma once
// The built-in "System" strings: the English messages the editors show by
// Id, the labels the message boxes use for their captions, and the help
// texts of the runtime's help window. They fill the application's "System"
// strings package and the base language file the build generates; a
// translated language file replaces them item by item.

#include "rtl/System.h"

#include <span>

struct TQzSystemString {
    Integer Id;
    const char* Text;
    const char* Hint;  // labels only; "" elsewhere
};

// The message Ids the editors use. Messages with "%s" take the file name.
enum TQzSystemMessageId : Integer {
    smTextNotFound = 2,        // a search found nothing
    smDeleteImage = 25,        // confirm deleting an image
    smDeleteItem = 26,         // confirm deleting a label, message or text
    smDeleteFolder = 34,       // confirm deleting a folder of variables
    smDeleteVariable = 35,     // confirm deleting a variable
    smChangeType = 36,         // confirm changing a variable's type
    smFileNotFound = 49,       // %s: the package file to load does not exist
    smClearImages = 50,        // confirm emptying an images package
    smOverwriteFile = 51,      // %s: confirm overwriting a package file
    smEraseMemory = 56,        // confirm replacing the contents by a file's
    smClearStrings = 58,       // confirm emptying a strings package
    smClearVariables = 59,     // confirm emptying a variables package
    smClearFolder = 60,        // confirm deleting the variables of a folder
};

// Labels: the caption of a message box of each message type, by Id
// (type + 1): Warning, Error, Information, Confirm, and the custom type.
enum TQzSystemLabelId : Integer {
    slCaptionWarning = 1,
    slCaptionError = 2,
    slCaptionInformation = 3,
    slCaptionConfirmation = 4,
    slCaptionCustom = 5,
};

// Texts: the help pages of the runtime's help window.
enum TQzSystemTextId : Integer {
    stMaskHelp = 1,   // the options of an edit mask
    stHelpWindow = 4, // the help window itself, the page of its sample
};

// The tables, ascending by Id.
std::span<const TQzSystemString> QzSystemMessages();
std::span<const TQzSystemString> QzSystemLabels();
std::span<const TQzSystemString> QzSystemTexts();

// The built-in text of one item, or nullptr when there is none.
const char* QzSystemMessageText(Integer id);
const char* QzSystemLabelText(Integer id);
const char* QzSystemTextText(Integer id);
