#pragma once
// The small types of the package model: enumerations the packages publish
// (each with its type record, so the inspector lists its names and an editor
// can be bound to it), colours and shortcuts, the editor placement kept in
// every package, and the model's exception.

#include "rtl/SysUtils.h"
#include "rtl/TypInfo.h"
#include "rtl/WindowPlacement.h"

// Raised when the model refuses an operation: a duplicate Id, a change to
// the "System" package without permission, a second application object.
QZ_DECLARE_EXCEPTION(EQzPkgError, Exception);

// A colour as the suite stores it: 0x00BBGGRR, or a negative system colour.
using TColor = Integer;
// A keyboard shortcut: virtual key in the low byte, shift state above.
using TShortCut = Word;

const TTypeInfo* TypeInfo_TColor();
const TTypeInfo* TypeInfo_TShortCut();

// Where a package keeps its contents: inside the form (DFM) or in a package
// file of its own (FILE).
enum TQzRegisterInitMode { imDFM, imFile };
const TTypeInfo* TypeInfo_TQzRegisterInitMode();

// The type of a variable; a folder holds other items and has no value.
enum TQzPkgVarsItemType { qvBoolean, qvInteger, qvFloat, qvString, qvFolder };
const TTypeInfo* TypeInfo_TQzPkgVarsItemType();

// A privilege's access: none, read, read and write. Shown "N", "R", "R/W".
enum TQzAccess { qaN, qaR, qaRW };
const TTypeInfo* TypeInfo_TQzAccess();
AnsiString QzAccessText(TQzAccess access);

enum TQzBackGroundStyle { bgSolid, bgGradientHor, bgGradientVer, bgImage, bgImageTile };
const TTypeInfo* TypeInfo_TQzBackGroundStyle();

enum TQzDateFormat : int { dfDMY, dfMDY, dfYMD };
const TTypeInfo* TypeInfo_TQzDateFormat();

// How a two-digit year is completed: always 19yy/20yy by a fixed century,
// four digits typed, or a sliding window around a pivot year.
enum TQzDateYear { dyCentury, dyFourDigits, dyWindow };
const TTypeInfo* TypeInfo_TQzDateYear();

// Where the currency string goes: "$1", "1$", "$ 1", "1 $".
enum TQzCurrencyFormat { cfBefore, cfAfter, cfBeforeSpace, cfAfterSpace };
const TTypeInfo* TypeInfo_TQzCurrencyFormat();

enum TQzDataBaseEngine : int { deGeneric, deInterBase, deMSSQL, deOracle, deMySQL, dePostgreSQL, deSQLite };
const TTypeInfo* TypeInfo_TQzDataBaseEngine();

// The data type of an edit's mask (value 5: none).
enum TQzDataType { qdtInteger, qdtFloat, qdtCurrency, qdtString, qdtDateTime, qdtNone, qdtMemo };
const TTypeInfo* TypeInfo_TQzDataType();

// How a masked value is taken from the text: as typed data, as the text
// shown, or as the text without the mask's literals.
enum TQzMaskTake { mtData, mtText, mtRawText };
const TTypeInfo* TypeInfo_TQzMaskTake();


// The package named "System" (in any case) is the suite's own.
inline constexpr const char* QzSystemPkgName = "System";
inline constexpr const char* QzUserPkgName = "User";
bool QzIsSystemPkgName(const AnsiString& name);

// The values of a background set: how a control's surface is painted.
struct TQzBackGroundValues {
    TQzBackGroundStyle Style = bgSolid;
    TColor SolidColor = -16777211;      // the system window colour
    TColor StartGraColor = 0x00FFFFFF;
    TColor EndGraColor = 0x00C0C0C0;
    bool Transparent = false;
    bool operator==(const TQzBackGroundValues&) const = default;
};

// The values of a font set.
struct TQzFontValues {
    AnsiString Name = "Tahoma";
    Integer Size = 8;
    TColor Color = -16777208;           // the system window text colour
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool StrikeOut = false;
    bool operator==(const TQzFontValues&) const = default;
};
