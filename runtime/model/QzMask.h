#pragma once
// Property types of the controls that the design package binds editors to:
// the input mask of an edit (TQzMask) and multi-line text (TQzMultiLine).

#include "runtime/model/QzTypes.h"

#include "rtl/Persistent.h"

#include <functional>

// The input mask of an edit control: what kind of data it takes and the
// mask string ("options;mask text;space"), whose syntax the mask editor
// owns. Stored as it is set.
class TQzMask : public TPersistent {
    QZ_CLASS(TQzMask, TPersistent)

public:
    TQzDataType DataType() const { return FDataType; }
    void SetDataType(TQzDataType value);
    // Whether the data type may be chosen: a control whose type follows its
    // data (a field) says no.
    virtual bool CanChangeDataType() const { return true; }
    TQzMaskTake Take() const { return FTake; }
    void SetTake(TQzMaskTake value);
    Integer Size() const { return FSize; }
    void SetSize(Integer value);           // 0 (no limit) to 9999999
    Integer GetDecimals() const { return FDecimals; }
    void SetDecimals(Integer value);       // 0 to 15
    TQzDateYear GetDateYear() const { return FDateYear; }
    void SetDateYear(TQzDateYear value);
    const AnsiString& Text() const { return FText; }
    void SetText(const AnsiString& value);

    void Assign(TPersistent* source) override;
    std::function<void()> OnChange;

private:
    static void DeclareProperties(TClassBuilder<TQzMask>& b);
    template <class V>
    void Set(V& field, const V& value);

    TQzDataType FDataType = qdtString;
    TQzMaskTake FTake = mtData;
    Integer FSize = 0;
    Integer FDecimals = 0;
    TQzDateYear FDateYear = dyWindow;
    AnsiString FText;
};

// Text that may span several lines: a string property of its own type so
// that the multi-line editor can be bound to it.
using TQzMultiLine = AnsiString;
const TTypeInfo* TypeInfo_TQzMultiLine();
