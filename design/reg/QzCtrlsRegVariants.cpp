#include "design/reg/QzCtrlsRegVariants.h"

#include "runtime/components/QzPages.h"
#include "runtime/model/QzMask.h"
#include "runtime/util/QzNumeric.h"

#include <cmath>

namespace {

bool IsNumeric(TQzDataType type)
{
    return type == qdtInteger || type == qdtFloat || type == qdtCurrency;
}

// What stands before a list entry's " - description"; a leading "-" is a
// minus sign, not a separator.
AnsiString BeforeDescription(const AnsiString& text)
{
    const auto separator = text.find(" - ");
    if (separator != AnsiString::npos)
        return text.substr(0, separator);
    const auto dash = text.find('-', 1);
    return dash == AnsiString::npos ? text : text.substr(0, dash);
}

}  // namespace

AnsiString VariantToString(const Variant& value, TQzDataType dataType)
{
    if (value.IsEmpty() || value.IsNull())
        return QzNullText;
    switch (dataType) {
    case qdtInteger:
        return IntToStr(static_cast<Int64>(std::llround(value.AsFloat())));
    case qdtFloat:
    case qdtCurrency:
        return QzCNumericToStr(value.AsFloat());
    case qdtDateTime:
        return DateTimeToStr(value.AsDateTime());
    default:
        return value.AsString();
    }
}

Variant StringToVariant(const AnsiString& text, TQzDataType dataType)
{
    if (SameText(Trim(text), QzNullText))
        return Null();
    if (IsNumeric(dataType))
        return Variant(QzCStrToNumeric(text));
    if (dataType == qdtDateTime)
        return VarFromDateTime(StrToDateTime(Trim(text)));
    return Variant(text);
}

TQzDataType QzComponentDataType(TPersistent* instance)
{
    if (!instance)
        return qdtString;
    // The controls and collection items with a value say it themselves.
    if (auto* control = dynamic_cast<IQzValueControl*>(instance))
        return control->GetDataType();
    if (const TPropInfo* prop = GetPropInfo(instance, "DataType"); prop && prop->PropType == TypeInfo_TQzDataType())
        return static_cast<TQzDataType>(GetOrdProp(instance, prop));
    // A masked control keeps its data type in its mask.
    if (const TPropInfo* prop = GetPropInfo(instance, "Mask"); prop && prop->PropType->Kind == tkClass)
        if (auto* mask = dynamic_cast<TQzMask*>(GetObjectProp(instance, prop)))
            return mask->DataType();
    return qdtString;
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzVariantPropertyEditor::GetAttributes()
{
    return {paRevertable};
}

AnsiString TQzVariantPropertyEditor::GetValue()
{
    return VariantToString(GetVarValue(), DataType());
}

void TQzVariantPropertyEditor::SetValue(const AnsiString& value)
{
    SetVarValue(StringToVariant(value, DataType()));
}

bool TQzVariantPropertyEditor::AllEqual()
{
    const AnsiString first = GetValue();
    for (int i = 1; i < PropCount(); ++i)
        if (VariantToString(GetVarValueAt(i), QzComponentDataType(GetComponent(i))) != first)
            return false;
    return true;
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzPageControlVariantPropertyEditor::GetAttributes()
{
    return {paValueList, paRevertable};
}

void TQzPageControlVariantPropertyEditor::GetValues(const TGetStrProc& proc)
{
    auto* control = dynamic_cast<TQzCustomPageControl*>(GetComponent(0));
    if (!control)
        return;
    const TQzDataType type = DataType();
    for (int i = 0; i < control->PageCount(); ++i) {
        TQzPageItem* page = control->Page(i);
        AnsiString entry = VariantToString(page->Value(), type);
        if (const AnsiString description = page->Description(); !description.empty())
            entry += " - " + description;
        proc(entry);
    }
}

void TQzPageControlVariantPropertyEditor::SetValue(const AnsiString& value)
{
    TQzVariantPropertyEditor::SetValue(BeforeDescription(value));
}
