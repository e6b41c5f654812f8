#pragma once
// Exceptions and the string, number and file-name helpers of the class
// library, with the semantics the suite's code expects.

#include "rtl/System.h"

#include <concepts>
#include <cstddef>
#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

// Base of every exception the class library raises. Message() is the text a
// user sees; what() returns the same text.
class Exception : public std::exception {
public:
    explicit Exception(AnsiString msg) : FMessage(std::move(msg)) {}
    const AnsiString& Message() const noexcept { return FMessage; }
    void SetMessage(AnsiString msg) { FMessage = std::move(msg); }
    const char* what() const noexcept override { return FMessage.c_str(); }

private:
    AnsiString FMessage;
};

#define QZ_DECLARE_EXCEPTION(Name, Base) \
    class Name : public Base {           \
    public:                              \
        using Base::Base;                \
    }

QZ_DECLARE_EXCEPTION(EConvertError, Exception);
QZ_DECLARE_EXCEPTION(EInvalidOperation, Exception);
QZ_DECLARE_EXCEPTION(EInvalidCast, Exception);
QZ_DECLARE_EXCEPTION(EListError, Exception);
QZ_DECLARE_EXCEPTION(EStringListError, Exception);
QZ_DECLARE_EXCEPTION(EComponentError, Exception);
QZ_DECLARE_EXCEPTION(EAssertionFailed, Exception);
QZ_DECLARE_EXCEPTION(EInOutError, Exception);
QZ_DECLARE_EXCEPTION(EStreamError, Exception);
QZ_DECLARE_EXCEPTION(EFileStreamError, EStreamError);
QZ_DECLARE_EXCEPTION(EFCreateError, EFileStreamError);
QZ_DECLARE_EXCEPTION(EFOpenError, EFileStreamError);
QZ_DECLARE_EXCEPTION(EReadError, EStreamError);
QZ_DECLARE_EXCEPTION(EWriteError, EStreamError);
QZ_DECLARE_EXCEPTION(EFilerError, EStreamError);
QZ_DECLARE_EXCEPTION(EClassNotFound, EFilerError);
QZ_DECLARE_EXCEPTION(EInvalidImage, EFilerError);
QZ_DECLARE_EXCEPTION(EParserError, Exception);
QZ_DECLARE_EXCEPTION(EPropertyError, Exception);
QZ_DECLARE_EXCEPTION(EVariantError, Exception);

// ---- Integers -----------------------------------------------------------

AnsiString IntToStr(Int64 value);
// Upper-case hex with at least digits digits; negative values show their
// 64-bit two's complement.
AnsiString IntToHex(Int64 value, int digits);
// Leading spaces, an optional sign, then decimal digits or "$"/"0x" hex.
// Hex may use the whole unsigned range of the target ("$FFFFFFFF" is -1),
// as Delphi's Val does. Raises EConvertError
// "'<text>' is not a valid integer value" on bad text or overflow.
Integer StrToInt(const AnsiString& text);
Int64 StrToInt64(const AnsiString& text);
Integer StrToIntDef(const AnsiString& text, Integer defaultValue);
Int64 StrToInt64Def(const AnsiString& text, Int64 defaultValue);
bool TryStrToInt(const AnsiString& text, Integer& value);
bool TryStrToInt64(const AnsiString& text, Int64& value);

// ---- Case and comparison --------------------------------------------------

// ASCII only: bytes of multi-byte UTF-8 sequences pass through unchanged.
AnsiString UpperCase(const AnsiString& s);
AnsiString LowerCase(const AnsiString& s);
// UTF-8 aware, independent of the process locale: ASCII, Latin-1, Latin
// Extended-A, Greek and Cyrillic letters change case; anything else, and
// invalid UTF-8 bytes, pass through unchanged.
AnsiString AnsiUpperCase(const AnsiString& s);
AnsiString AnsiLowerCase(const AnsiString& s);

// All comparisons return <0, 0 or >0.
int CompareStr(const AnsiString& s1, const AnsiString& s2);   // bytes
int CompareText(const AnsiString& s1, const AnsiString& s2);  // ASCII letters folded to upper case
bool SameStr(const AnsiString& s1, const AnsiString& s2);
bool SameText(const AnsiString& s1, const AnsiString& s2);
// Dictionary order as the Windows collation gives it: letters compare
// ignoring case first, and only equal-ignoring-case strings are ordered by
// case, lower case first ("a" < "A" < "b").
int AnsiCompareStr(const AnsiString& s1, const AnsiString& s2);
// Case-insensitive with the Unicode-aware folding of AnsiUpperCase.
int AnsiCompareText(const AnsiString& s1, const AnsiString& s2);
bool AnsiSameStr(const AnsiString& s1, const AnsiString& s2);
bool AnsiSameText(const AnsiString& s1, const AnsiString& s2);

// ---- Trimming, quoting, replacing ---------------------------------------

// Every byte <= ' ' counts as blank, control characters included.
AnsiString Trim(const AnsiString& s);
AnsiString TrimLeft(const AnsiString& s);
AnsiString TrimRight(const AnsiString& s);

AnsiString QuotedStr(const AnsiString& s);  // 'it''s'
AnsiString AnsiQuotedStr(const AnsiString& s, char quote);
// Undoes AnsiQuotedStr; text that is not quoted comes back unchanged.
AnsiString AnsiDequotedStr(const AnsiString& s, char quote);

enum TReplaceFlag : unsigned { rfReplaceAll = 1u, rfIgnoreCase = 2u };
using TReplaceFlags = unsigned;  // rfReplaceAll | rfIgnoreCase
// rfIgnoreCase matches with the Unicode-aware folding of AnsiUpperCase.
AnsiString StringReplace(const AnsiString& s, const AnsiString& oldPattern,
                         const AnsiString& newPattern, TReplaceFlags flags = 0);

// ---- Format ---------------------------------------------------------------

// One argument of Format, as Delphi's "array of const" element. Strings
// are referenced, not copied: a TVarRec lives only for the call it is
// built for.
enum TVarRecType { vtInteger, vtInt64, vtUInt64, vtExtended, vtString, vtChar, vtBoolean, vtPointer };

struct TVarRec {
    TVarRecType VType;
    Int64 VInteger = 0;          // vtInteger, vtInt64; vtUInt64 keeps the bits
    Extended VExtended = 0;      // vtExtended
    std::string_view VString;    // vtString, vtChar (one byte)
    const void* VPointer = nullptr;
    char VChar = 0;

    TVarRec(bool v) : VType(vtBoolean), VInteger(v) {}
    TVarRec(char v) : VType(vtChar), VChar(v) { VString = std::string_view(&VChar, 1); }
    template <std::integral T>
    TVarRec(T v) : VType(IntegerKind<T>()), VInteger(Int64(v)) {}
    TVarRec(float v) : VType(vtExtended), VExtended(v) {}
    TVarRec(double v) : VType(vtExtended), VExtended(v) {}
    TVarRec(long double v) : VType(vtExtended), VExtended(v) {}
    TVarRec(const char* v) : VType(vtString), VString(v ? v : "") {}
    TVarRec(const std::string& v) : VType(vtString), VString(v) {}
    TVarRec(std::string_view v) : VType(vtString), VString(v) {}
    template <class T>
        requires(!std::is_same_v<std::remove_cv_t<T>, char>)
    TVarRec(T* v) : VType(vtPointer), VPointer(v) {}
    TVarRec(std::nullptr_t) : VType(vtPointer) {}

    TVarRec(const TVarRec& other) { *this = other; }
    TVarRec& operator=(const TVarRec& other)
    {
        VType = other.VType;
        VInteger = other.VInteger;
        VExtended = other.VExtended;
        VPointer = other.VPointer;
        VChar = other.VChar;
        // A char argument points at its own copy of the byte.
        VString = other.VType == vtChar ? std::string_view(&VChar, 1) : other.VString;
        return *this;
    }

private:
    template <class T>
    static constexpr TVarRecType IntegerKind()
    {
        if constexpr (std::is_signed_v<T>)
            return sizeof(T) <= 4 ? vtInteger : vtInt64;
        else
            return sizeof(T) < 4 ? vtInteger : sizeof(T) == 4 ? vtInt64 : vtUInt64;
    }
};

// Delphi's Format: "%" [index ":"] ["-"] [width] ["." prec] type with the
// types d u x e f g n m p s (upper or lower case) and "%%"; index, width
// and prec may be "*" to take an integer argument. Numbers use '.' as
// decimal and ',' as thousands separator whatever the process locale.
// A bad directive, a missing argument or one of the wrong kind raises
// EConvertError "Format '<fmt>' invalid or incompatible with argument".
AnsiString FormatBuf(const AnsiString& fmt, const TVarRec* args, std::size_t count);
AnsiString Format(const AnsiString& fmt, std::initializer_list<TVarRec> args);

template <class... TArgs>
AnsiString Format(const AnsiString& fmt, const TArgs&... args)
{
    if constexpr (sizeof...(TArgs) == 0) {
        return FormatBuf(fmt, nullptr, 0);
    } else {
        const TVarRec recs[] = {TVarRec(args)...};
        return FormatBuf(fmt, recs, sizeof...(TArgs));
    }
}

// ---- File names -----------------------------------------------------------

// '/' is the separator; '\' is accepted too because names come from files
// written on Windows ("..\forms\Unit1.dfm"), as is a leading "C:" drive.
AnsiString ExtractFilePath(const AnsiString& fileName);  // keeps the trailing separator
AnsiString ExtractFileDir(const AnsiString& fileName);   // without it, except for the root
AnsiString ExtractFileName(const AnsiString& fileName);
AnsiString ExtractFileExt(const AnsiString& fileName);   // with the dot, or empty
AnsiString ChangeFileExt(const AnsiString& fileName, const AnsiString& extension);
// "C:" or "\\server\share" for Windows names; empty for Linux paths.
AnsiString ExtractFileDrive(const AnsiString& fileName);
AnsiString IncludeTrailingPathDelimiter(const AnsiString& path);
AnsiString ExcludeTrailingPathDelimiter(const AnsiString& path);
// Absolute, with "." and ".." resolved textually (symbolic links are left
// alone) and '\' turned into '/'.
AnsiString ExpandFileName(const AnsiString& fileName);
bool SameFileName(const AnsiString& s1, const AnsiString& s2);  // case-sensitive, as the file system

bool FileExists(const AnsiString& fileName);     // true for files, not directories
bool DirectoryExists(const AnsiString& dirName);
// Creates dir and its missing parents; raises EInOutError for an empty name.
bool ForceDirectories(const AnsiString& dir);
bool DeleteFile(const AnsiString& fileName);
bool RenameFile(const AnsiString& oldName, const AnsiString& newName);
AnsiString GetCurrentDir();
// The modification time in local time; false when the file is missing.
bool FileAge(const AnsiString& fileName, TDateTime& dateTime);
// Seconds since 1970-01-01 UTC, or -1: the file-date form of FileAge.
Int64 FileAge(const AnsiString& fileName);
Int64 FileGetDate(int handle);
TDateTime FileDateToDateTime(Int64 fileDate);
// The name of the entry in dir equal to name ignoring ASCII case ("Unit1.dfm"
// for "UNIT1.DFM"), preferring an exact match; empty when there is none.
AnsiString FindFileCaseInsensitive(const AnsiString& dir, const AnsiString& name);

// ---- Dates and times ------------------------------------------------------

inline constexpr int HoursPerDay = 24;
inline constexpr int MinsPerDay = HoursPerDay * 60;
inline constexpr int SecsPerDay = MinsPerDay * 60;
inline constexpr int MSecsPerDay = SecsPerDay * 1000;

TDateTime Now();   // local time
TDateTime Date();  // today, local time, no fraction
TDateTime Time();  // time of day only
// Raise EConvertError "Invalid argument to date encode" / "... time encode".
TDateTime EncodeDate(Word year, Word month, Word day);
TDateTime EncodeTime(Word hour, Word min, Word sec, Word msec);
bool TryEncodeDate(Word year, Word month, Word day, TDateTime& date);
bool TryEncodeTime(Word hour, Word min, Word sec, Word msec, TDateTime& time);
void DecodeDate(TDateTime dateTime, Word& year, Word& month, Word& day);
void DecodeTime(TDateTime dateTime, Word& hour, Word& min, Word& sec, Word& msec);
bool IsLeapYear(Word year);
int DaysInAMonth(Word year, Word month);

// Fixed formats, independent of any locale: "yyyy-mm-dd", "hh:nn:ss", and
// both joined by a space (the time left out at midnight, as Delphi does).
AnsiString DateToStr(TDateTime date);
AnsiString TimeToStr(TDateTime time);
AnsiString DateTimeToStr(TDateTime dateTime);
// Tokens, upper or lower case: yyyy yy mmmm mmm mm m dddd ddd dd d hh h
// nn n ss s zzz z, "c" for DateTimeToStr; "m"/"mm" right after an hour
// token mean minutes. Text in '...' or "..." and any other character are
// copied as they are.
AnsiString FormatDateTime(const AnsiString& fmt, TDateTime dateTime);
// Accept what the functions above write (seconds and ".zzz" optional).
// Raise EConvertError "'<text>' is not a valid date" / "... valid time" /
// "... valid date and time".
TDateTime StrToDate(const AnsiString& text);
TDateTime StrToTime(const AnsiString& text);
TDateTime StrToDateTime(const AnsiString& text);
bool TryStrToDate(const AnsiString& text, TDateTime& value);
bool TryStrToTime(const AnsiString& text, TDateTime& value);
bool TryStrToDateTime(const AnsiString& text, TDateTime& value);

// ---- Assertions -----------------------------------------------------------

// Raises EAssertionFailed "<msg> (<file>, line <line>)" when cond is false;
// an empty msg reads "Assertion failed".
void QzAssert(bool cond, const AnsiString& msg, const char* file, int line);

// The message is only built when the condition fails.
#define QZ_ASSERT(cond, msg) \
    ((cond) ? void(0) : QzAssert(false, (msg), __FILE__, __LINE__))

// Floating point
// FloatToStr writes the shortest form of up to 15 significant digits, with
// '.' as decimal separator and an exponent only where the digits would not
// show the value ("1E20", "1.5E-5"), as forms and package files store floats.
AnsiString FloatToStr(Extended value);
// Accepts what FloatToStr writes and the usual decimal forms; raises
// EConvertError "'<text>' is not a valid floating point value".
Extended StrToFloat(const AnsiString& text);
bool TryStrToFloat(const AnsiString& text, Extended& value);
// Fixed-point form: the value rounded to precision significant digits and
// shown with exactly digits decimals ("60.000000000000000000" for 16, 18);
// a value with more integer digits than precision falls back to FloatToStr.
AnsiString FloatToStrFixed(Extended value, int precision, int digits);
