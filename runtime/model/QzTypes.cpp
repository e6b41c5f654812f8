#include "runtime/model/QzTypes.h"

const TTypeInfo* TypeInfo_TColor()
{
    static const TTypeInfo* t = DefineIntegerType("TColor", INT32_MIN, INT32_MAX);
    return t;
}

const TTypeInfo* TypeInfo_TShortCut()
{
    static const TTypeInfo* t = DefineIntegerType("TShortCut", 0, 0xFFFF);
    return t;
}

const TTypeInfo* TypeInfo_TQzRegisterInitMode()
{
    static const TTypeInfo* t = DefineEnumType("TQzRegisterInitMode", {"imDFM", "imFile"});
    return t;
}

const TTypeInfo* TypeInfo_TQzPkgVarsItemType()
{
    static const TTypeInfo* t =
        DefineEnumType("TQzPkgVarsItemType", {"qvBoolean", "qvInteger", "qvFloat", "qvString", "qvFolder"});
    return t;
}

const TTypeInfo* TypeInfo_TQzAccess()
{
    static const TTypeInfo* t = DefineEnumType("TQzAccess", {"qaN", "qaR", "qaRW"});
    return t;
}

AnsiString QzAccessText(TQzAccess access)
{
    switch (access) {
    case qaN:
        return "N";
    case qaR:
        return "R";
    case qaRW:
        return "R/W";
    }
    return IntToStr(access);
}

const TTypeInfo* TypeInfo_TQzBackGroundStyle()
{
    static const TTypeInfo* t = DefineEnumType(
        "TQzBackGroundStyle", {"bgSolid", "bgGradientHor", "bgGradientVer", "bgImage", "bgImageTile"});
    return t;
}

const TTypeInfo* TypeInfo_TQzDateFormat()
{
    static const TTypeInfo* t = DefineEnumType("TQzDateFormat", {"dfDMY", "dfMDY", "dfYMD"});
    return t;
}

const TTypeInfo* TypeInfo_TQzDateYear()
{
    static const TTypeInfo* t = DefineEnumType("TQzDateYear", {"dyCentury", "dyFourDigits", "dyWindow"});
    return t;
}

const TTypeInfo* TypeInfo_TQzCurrencyFormat()
{
    static const TTypeInfo* t =
        DefineEnumType("TQzCurrencyFormat", {"cfBefore", "cfAfter", "cfBeforeSpace", "cfAfterSpace"});
    return t;
}

const TTypeInfo* TypeInfo_TQzDataBaseEngine()
{
    static const TTypeInfo* t = DefineEnumType(
        "TQzDataBaseEngine", {"deGeneric", "deInterBase", "deMSSQL", "deOracle", "deMySQL", "dePostgreSQL", "deSQLite"});
    return t;
}

const TTypeInfo* TypeInfo_TQzDataType()
{
    static const TTypeInfo* t = DefineEnumType(
        "TQzDataType", {"qdtInteger", "qdtFloat", "qdtCurrency", "qdtString", "qdtDateTime", "qdtNone", "qdtMemo"});
    return t;
}

const TTypeInfo* TypeInfo_TQzMaskTake()
{
    static const TTypeInfo* t = DefineEnumType("TQzMaskTake", {"mtData", "mtText", "mtRawText"});
    return t;
}

bool QzIsSystemPkgName(const AnsiString& name)
{
    return SameText(name, QzSystemPkgName);
}
