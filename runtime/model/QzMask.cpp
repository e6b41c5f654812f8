#include "runtime/model/QzMask.h"

void TQzMask::DeclareProperties(TClassBuilder<TQzMask>& b)
{
    b.Enum("DataType", TypeInfo_TQzDataType(), &TQzMask::DataType, &TQzMask::SetDataType, qdtString);
    b.Enum("Take", TypeInfo_TQzMaskTake(), &TQzMask::Take, &TQzMask::SetTake, mtData);
    b.Property("Size", &TQzMask::Size, &TQzMask::SetSize).Default(0);
    b.Property("Decimals", &TQzMask::GetDecimals, &TQzMask::SetDecimals).Default(0);
    b.Enum("DateYear", TypeInfo_TQzDateYear(), &TQzMask::GetDateYear, &TQzMask::SetDateYear, dyWindow);
    b.Property("Text", &TQzMask::Text, &TQzMask::SetText);
}

template <class V>
void TQzMask::Set(V& field, const V& value)
{
    if (field == value)
        return;
    field = value;
    if (OnChange)
        OnChange();
}

void TQzMask::SetDataType(TQzDataType value)
{
    if (value < qdtInteger || value > qdtMemo)
        throw EQzPkgError("Invalid data type " + IntToStr(value));
    Set(FDataType, value);
}

void TQzMask::SetTake(TQzMaskTake value)
{
    if (value < mtData || value > mtRawText)
        throw EQzPkgError("Invalid mask take " + IntToStr(value));
    Set(FTake, value);
}

void TQzMask::SetSize(Integer value)
{
    if (value < 0 || value > 9999999)
        throw EQzPkgError("Invalid mask size " + IntToStr(value));
    Set(FSize, value);
}

void TQzMask::SetDecimals(Integer value)
{
    if (value < 0 || value > 15)
        throw EQzPkgError("Invalid number of decimals " + IntToStr(value));
    Set(FDecimals, value);
}

void TQzMask::SetDateYear(TQzDateYear value)
{
    if (value < dyCentury || value > dyWindow)
        throw EQzPkgError("Invalid date year mode " + IntToStr(value));
    Set(FDateYear, value);
}

void TQzMask::SetText(const AnsiString& value)
{
    Set(FText, value);
}

void TQzMask::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzMask*>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    // The data type follows the control when the control says so.
    if (CanChangeDataType())
        SetDataType(other->FDataType);
    SetTake(other->FTake);
    SetSize(other->FSize);
    SetDecimals(other->FDecimals);
    SetDateYear(other->FDateYear);
    SetText(other->FText);
}

const TTypeInfo* TypeInfo_TQzMultiLine()
{
    static const TTypeInfo* t = DefineStringType("TQzMultiLine");
    return t;
}
