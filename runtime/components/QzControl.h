#pragma once
// What the suite adds to the class library's controls: the privilege that
// guards a control, the display sets (font, colour, background) it takes
// its look from, the label it takes its caption or hint from, and the
// "Value" a data control holds. The parts live in TQzControlParts, which
// both the drawn (TQzGraphicControl) and the windowed (TQzWinControl) bases
// carry; a class publishes the parts it uses with the QzDeclare... helpers.

#include "runtime/components/Controls.h"
#include "runtime/model/QzMask.h"
#include "runtime/model/QzMemory.h"

#include "rtl/Variant.h"

#include <memory>

// What the "Value" editors need of a component (or a collection item) with
// a value: the value and the data type that turns it into text and back.
class IQzValueControl {
public:
    virtual ~IQzValueControl() = default;
    virtual Variant GetValue() const = 0;
    virtual void SetValue(const Variant& value) = 0;
    virtual TQzDataType GetDataType() const = 0;
};

class TQzControlParts {
public:
    explicit TQzControlParts(TPersistent* owner);
    ~TQzControlParts();
    TQzControlParts(const TQzControlParts&) = delete;
    TQzControlParts& operator=(const TQzControlParts&) = delete;

    // Caption and hint (a label has both), or the hint alone where the
    // control shows no caption.
    TQzMemoryLabel* Label() const { return FLabel.get(); }
    TQzPrivilege* Privilege() const { return FPrivilege.get(); }
    TQzSetFont* SetFont() const { return FSetFont.get(); }
    TQzSetColor* SetColor() const { return FSetColor.get(); }
    TQzSetBackGround* SetBackGround() const { return FSetBackGround.get(); }

private:
    std::unique_ptr<TQzMemoryLabel> FLabel;
    std::unique_ptr<TQzPrivilege> FPrivilege;
    std::unique_ptr<TQzSetFont> FSetFont;
    std::unique_ptr<TQzSetColor> FSetColor;
    std::unique_ptr<TQzSetBackGround> FSetBackGround;
};

// A persistent property object published by a getter that hands out the
// owned object and a setter that copies into it, as the class library does.
template <class T, class P, class G>
void QzDeclareOwned(TClassBuilder<T>& b, const AnsiString& name, G get)
{
    b.Property(
        name, [get](T& c) -> P* { return get(c); },
        [get](T& c, P* value) {
            if (value)
                get(c)->Assign(value);
        });
}

// The label under the name the class shows it by: "Caption" where the
// control shows it, "HintLabel" where only its hint is used.
template <class T>
void QzDeclareLabel(TClassBuilder<T>& b, const AnsiString& name = "Caption")
{
    QzDeclareOwned<T, TQzMemoryLabel>(b, name, [](T& c) { return c.Parts().Label(); });
}

template <class T>
void QzDeclarePrivilege(TClassBuilder<T>& b)
{
    QzDeclareOwned<T, TQzPrivilege>(b, "Privilege", [](T& c) { return c.Parts().Privilege(); });
}

// The display sets a control takes its look from.
enum TQzSetKind { qsFont = 1, qsColor = 2, qsBackGround = 4 };

template <class T>
void QzDeclareSets(TClassBuilder<T>& b, int kinds)
{
    if (kinds & qsBackGround)
        QzDeclareOwned<T, TQzSetBackGround>(b, "SetBackGround", [](T& c) { return c.Parts().SetBackGround(); });
    if (kinds & qsColor)
        QzDeclareOwned<T, TQzSetColor>(b, "SetColor", [](T& c) { return c.Parts().SetColor(); });
    if (kinds & qsFont)
        QzDeclareOwned<T, TQzSetFont>(b, "SetFont", [](T& c) { return c.Parts().SetFont(); });
}

// A control drawn on its parent, with the suite's parts.
class TQzGraphicControl : public TGraphicControl {
    QZ_CLASS(TQzGraphicControl, TGraphicControl)

public:
    explicit TQzGraphicControl(TComponent* owner) : TGraphicControl(owner), FParts(this) {}
    TQzControlParts& Parts() { return FParts; }
    const TQzControlParts& Parts() const { return FParts; }

private:
    TQzControlParts FParts;
};

// A windowed control with the suite's parts.
class TQzWinControl : public TCustomControl {
    QZ_CLASS(TQzWinControl, TCustomControl)

public:
    explicit TQzWinControl(TComponent* owner) : TCustomControl(owner), FParts(this) {}
    TQzControlParts& Parts() { return FParts; }
    const TQzControlParts& Parts() const { return FParts; }

private:
    TQzControlParts FParts;
};

// The value of a data control, converted by its data type: mixed into the
// controls with a "Value". A control with a mask takes the type from the
// mask (and overrides GetDataType); others publish "DataType" itself.
class TQzValueHolder : public IQzValueControl {
public:
    Variant GetValue() const override { return FValue; }
    void SetValue(const Variant& value) override { FValue = value; }
    TQzDataType GetDataType() const override { return FDataType; }
    void SetDataType(TQzDataType value) { FDataType = value; }

private:
    Variant FValue;
    TQzDataType FDataType = qdtString;
};

// Publishes "DataType" (unless the class has a mask that carries it) and
// "Value" of a class mixed with TQzValueHolder.
template <class T>
void QzDeclareValue(TClassBuilder<T>& b, bool withDataType = true)
{
    if (withDataType)
        b.Enum(
            "DataType", TypeInfo_TQzDataType(), [](T& c) { return c.GetDataType(); },
            [](T& c, TQzDataType v) { c.SetDataType(v); }, qdtString);
    b.Property(
        "Value", [](T& c) { return c.GetValue(); }, [](T& c, const Variant& v) { c.SetValue(v); });
}

// The field a data-aware control shows: the data source component and the
// field, both by name, as the design package's field lists take them.
class TQzDataLink {
public:
    const AnsiString& DataSource() const { return FDataSource; }
    void SetDataSource(const AnsiString& value) { FDataSource = value; }
    const AnsiString& DataField() const { return FDataField; }
    void SetDataField(const AnsiString& value) { FDataField = value; }

private:
    AnsiString FDataSource;
    AnsiString FDataField;
};

template <class T>
void QzDeclareDataLink(TClassBuilder<T>& b, bool withField = true)
{
    if (withField)
        b.Property(
            "DataField", [](T& c) { return c.DataField(); }, [](T& c, const AnsiString& v) { c.SetDataField(v); });
    b.Property(
        "DataSource", [](T& c) { return c.DataSource(); }, [](T& c, const AnsiString& v) { c.SetDataSource(v); });
}

// A mask, owned, for the controls that format what they show or take.
template <class T>
void QzDeclareMask(TClassBuilder<T>& b)
{
    QzDeclareOwned<T, TQzMask>(b, "Mask", [](T& c) { return c.Mask(); });
}

// A name for a component made at run time or by a designer verb: the class
// name without its T and the first free number ("QzTabSheet3"), unique
// among owner's components.
AnsiString QzUniqueComponentName(TComponent* owner, const AnsiString& className);
