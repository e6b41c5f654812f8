#pragma once
// Conversions between the three stored forms of a component stream: text
// (what the IDE shows and writes to .dfm files by default), binary (the
// "TPF0" stream) and compiled resource (a binary stream behind a 16-bit
// resource header that starts with the bytes FF 0A 00).
//
// Text is written exactly as the IDE writes it: two-space indentation,
// strings cut into 64-character pieces joined by " +", binary data as
// upper-case hex in lines of 32 bytes, so a form converted to binary and
// back comes back byte for byte.

#include "rtl/Streams.h"

#include <string>
#include <string_view>
#include <vector>

// How characters above 127 in strings are written to text.
enum class THighChars {
    // 8-bit strings keep their code page bytes in the text; wide strings get
    // #nnnn escapes. What the suite's IDE generation writes.
    Raw,
    // Every character above 127 becomes a #nnnn escape of its Unicode
    // value (8-bit strings are decoded with the code page). What later IDE
    // generations write.
    Escape,
    // The text is UTF-8: characters above 127 appear as themselves.
    Utf8,
};

// How floating point values are written to text.
enum class TFloatText {
    General,  // up to 15 significant digits ("0.5"), as the suite's IDE generation
    Fixed18,  // 16 significant digits, 18 decimals ("0.500000000000000000"), as later ones
};

struct TFormTextOptions {
    THighChars HighChars = THighChars::Raw;
    // Code page of the form's 8-bit strings: decodes them for Escape and
    // Utf8, and decides where a long string of a double-byte code page may
    // be cut.
    int CodePage = 1252;
    AnsiString LineBreak = "\r\n";
    TFloatText Floats = TFloatText::General;
    // Text to binary: strings that do not fit in 8 bits become vaUTF8String
    // (as later IDE generations write them) instead of vaWString.
    bool Utf8Strings = false;
};

enum TStreamOriginalFormat { sofUnknown, sofBinary, sofText, sofUTF8Text };

enum class TFormFormat { Unknown, Text, Binary, Resource };

// Looks at the first bytes: "TPF0" is binary, FF 0A 00 a resource, and
// text starts (after blanks and an optional UTF-8 byte order mark) with
// object, inherited or inline.
TFormFormat DetectFormFormat(std::string_view bytes);
const char* FormFormatName(TFormFormat format);
// The stream's format without moving it; a resource counts as binary.
TStreamOriginalFormat TestStreamFormat(TStream& stream);

// The options that reproduce a form as it is stored, so that converting it
// to the other format and back with them gives the same bytes. From text:
// the line breaks, UTF-8 (a byte order mark, or every byte above 127 part
// of a UTF-8 character), the float style and whether the writer was a later IDE
// generation (18-decimal floats, or #nnnn escapes with no raw 8-bit
// characters and no short floats), whose binary strings beyond ASCII are
// UTF-8. From binary: UTF-8 strings, and whether a float needs 18 decimals
// to come back as a float. The code page is not among them (see
// GuessCodePage in rtl/CodePageGuess.h).
TFormTextOptions DetectFormTextOptions(std::string_view form);
// The bytes that hold 8-bit characters above 127: a binary form's strings
// that have any, a text form's lines that have any.
std::vector<std::string_view> FormHighStrings(std::string_view form);

// Conversions on byte strings. Errors: ETextParseError ("line N: ...") for
// text, EReadError ("... at offset N") for binary, EInvalidImage for a bad
// resource header.
std::string FormBinaryToText(std::string_view binary, const TFormTextOptions& options = {});
std::string FormTextToBinary(std::string_view text, const TFormTextOptions& options = {});
std::string FormResourceToText(std::string_view resource, const TFormTextOptions& options = {});
std::string FormTextToResource(std::string_view text, const TFormTextOptions& options = {});
// Wraps a binary stream in a resource header named after its root class.
std::string FormBinaryToResource(std::string_view binary);
// The binary stream inside a resource, after checking its header.
std::string_view FormResourceBody(std::string_view resource);
// Any of the three formats to text or to binary.
std::string FormToText(std::string_view anyFormat, const TFormTextOptions& options = {});
std::string FormToBinary(std::string_view anyFormat, const TFormTextOptions& options = {});

// The class library's stream versions: read the input from its position to
// its end and write at the output's position.
void ObjectBinaryToText(TStream& input, TStream& output, const TFormTextOptions& options = {});
void ObjectTextToBinary(TStream& input, TStream& output, const TFormTextOptions& options = {});
void ObjectResourceToText(TStream& input, TStream& output, const TFormTextOptions& options = {});
void ObjectTextToResource(TStream& input, TStream& output, const TFormTextOptions& options = {});
