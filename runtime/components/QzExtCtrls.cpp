#include "runtime/components/QzExtCtrls.h"

namespace {

// Glyph and layout, published the same way by both kinds of button.
template <class T>
void DeclareGlyph(TClassBuilder<T>& b)
{
    QzDeclareOwned<T, TQzMemoryImage>(b, "Glyph", [](T& c) { return c.GlyphParts().Glyph.get(); });
    b.Enum(
        "Layout", TypeInfo_TButtonLayout(), [](T& c) { return c.GlyphParts().Layout; },
        [](T& c, TButtonLayout v) { c.GlyphParts().Layout = v; }, blGlyphLeft);
    b.Property(
         "Margin", [](T& c) { return c.GlyphParts().Margin; }, [](T& c, Integer v) { c.GlyphParts().Margin = v; })
        .Default(-1);
    b.Property(
         "Spacing", [](T& c) { return c.GlyphParts().Spacing; }, [](T& c, Integer v) { c.GlyphParts().Spacing = v; })
        .Default(4);
}

template <class T>
void DeclareModalResult(TClassBuilder<T>& b)
{
    b.Property(
         "ModalResult", TypeInfo_TModalResult(), [](T& c) { return c.GlyphParts().ModalResult; },
         [](T& c, TModalResult v) { c.GlyphParts().ModalResult = v; })
        .Default(mrNone);
}

template <class T>
void DeclarePicture(TClassBuilder<T>& b)
{
    b.Property(
         "AutoSize", [](T& c) { return c.PictureParts().AutoSize; }, [](T& c, bool v) { c.PictureParts().AutoSize = v; })
        .Default(false);
    b.Property(
         "Center", [](T& c) { return c.PictureParts().Center; }, [](T& c, bool v) { c.PictureParts().Center = v; })
        .Default(false);
    b.Property(
        "GraphicClass", [](T& c) { return c.PictureParts().GraphicClass; },
        [](T& c, const AnsiString& v) { c.PictureParts().GraphicClass = v; });
    QzDeclareOwned<T, TQzMemoryImage>(b, "Picture", [](T& c) { return c.PictureParts().Picture.get(); });
    b.Property(
         "Proportional", [](T& c) { return c.PictureParts().Proportional; },
         [](T& c, bool v) { c.PictureParts().Proportional = v; })
        .Default(false);
    b.Property(
         "Stretch", [](T& c) { return c.PictureParts().Stretch; }, [](T& c, bool v) { c.PictureParts().Stretch = v; })
        .Default(false);
    b.Property(
         "Transparent", [](T& c) { return c.PictureParts().Transparent; },
         [](T& c, bool v) { c.PictureParts().Transparent = v; })
        .Default(false);
}

}  // namespace

// ---- Buttons -----------------------------------------------------------------

const TTypeInfo* TypeInfo_TButtonLayout()
{
    static const TTypeInfo* t =
        DefineEnumType("TButtonLayout", {"blGlyphLeft", "blGlyphRight", "blGlyphTop", "blGlyphBottom"});
    return t;
}

void TQzCustomBitBtn::DeclareProperties(TClassBuilder<TQzCustomBitBtn>& b)
{
    b.Redeclare("TabStop").Default(true);
    b.Property("Cancel", &TQzCustomBitBtn::FCancel).Default(false);
    QzDeclareLabel(b);
    b.Property("Default", &TQzCustomBitBtn::FDefault).Default(false);
    DeclareGlyph(b);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor);
    DeclareClickEvents(b);
    DeclareFocusEvents(b);
}

TQzCustomBitBtn::TQzCustomBitBtn(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 75, 25);
    SetTabStop(true);
}

void TQzBitBtn::DeclareProperties(TClassBuilder<TQzBitBtn>& b)
{
    DeclareModalResult(b);
}

void TQzCustomSpeedButton::DeclareProperties(TClassBuilder<TQzCustomSpeedButton>& b)
{
    b.Property("AllowAllUp", &TQzCustomSpeedButton::FAllowAllUp).Default(false);
    QzDeclareLabel(b);
    b.Property("Down", &TQzCustomSpeedButton::Down, &TQzCustomSpeedButton::SetDown).Default(false);
    b.Property("Flat", &TQzCustomSpeedButton::FFlat).Default(false);
    DeclareGlyph(b);
    b.Property("GroupIndex", &TQzCustomSpeedButton::GroupIndex, &TQzCustomSpeedButton::SetGroupIndex).Default(0);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor);
    DeclareClickEvents(b);
}

TQzCustomSpeedButton::TQzCustomSpeedButton(TComponent* owner) : TQzGraphicControl(owner)
{
    SetBounds(0, 0, 23, 22);
}

void TQzCustomSpeedButton::SetDown(bool value)
{
    if (value == FDown)
        return;
    // Without a group a button is not a toggle; a grouped one is released
    // only by another of its group, unless all may be up.
    if (FGroupIndex == 0 && !ComponentState().Contains(csLoading)) {
        FDown = false;
        return;
    }
    if (!value && !FAllowAllUp && !ComponentState().Contains(csLoading))
        return;
    FDown = value;
    if (!value || ComponentState().Contains(csLoading) || !GetParentComponent())
        return;
    TComponent* parent = GetParentComponent();
    for (int i = 0; i < parent->ChildCount(); ++i) {
        auto* other = dynamic_cast<TQzCustomSpeedButton*>(parent->Child(i));
        if (other && other != this && other->FGroupIndex == FGroupIndex)
            other->FDown = false;
    }
}

void TQzSpeedButton::DeclareProperties(TClassBuilder<TQzSpeedButton>& b)
{
    DeclareModalResult(b);
}

// ---- Images ------------------------------------------------------------------

void TQzCustomImage::DeclareProperties(TClassBuilder<TQzCustomImage>& b)
{
    DeclarePicture(b);
    QzDeclareLabel(b, "HintLabel");
    QzDeclarePrivilege(b);
    DeclareClickEvents(b);
}

TQzCustomImage::TQzCustomImage(TComponent* owner) : TQzGraphicControl(owner)
{
    SetBounds(0, 0, 105, 105);
}

void TQzCustomFocusImage::DeclareProperties(TClassBuilder<TQzCustomFocusImage>& b)
{
    b.Redeclare("TabStop").Default(true);
    DeclarePicture(b);
    QzDeclareLabel(b, "HintLabel");
    QzDeclarePrivilege(b);
    DeclareClickEvents(b);
    DeclareFocusEvents(b);
}

TQzCustomFocusImage::TQzCustomFocusImage(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 105, 105);
    SetTabStop(true);
}

void TQzCustomPkgImage::DeclareProperties(TClassBuilder<TQzCustomPkgImage>& b)
{
    b.Property("Center", &TQzCustomPkgImage::FCenter).Default(false);
    QzDeclareLabel(b, "HintLabel");
    b.Property("PkgName", &TQzCustomPkgImage::PkgName, &TQzCustomPkgImage::SetPkgName);
    b.Property("Stretch", &TQzCustomPkgImage::FStretch).Default(false);
    b.Property("Transparent", &TQzCustomPkgImage::FTransparent).Default(false);
    DeclareClickEvents(b);
}

TQzCustomPkgImage::TQzCustomPkgImage(TComponent* owner) : TQzGraphicControl(owner)
{
    SetBounds(0, 0, 105, 105);
}

void TQzPkgImage::DeclareProperties(TClassBuilder<TQzPkgImage>& b)
{
    b.Property("ImageId", &TQzPkgImage::ImageId, &TQzPkgImage::SetImageId).Default(-1);
}

// ---- Shapes ------------------------------------------------------------------

void TQzPen::DeclareProperties(TClassBuilder<TQzPen>& b)
{
    QzDeclareOwned<TQzPen, TQzSetColor>(b, "SetColor", [](TQzPen& p) { return p.SetColor(); });
}

TQzPen::TQzPen() : FSetColor(std::make_unique<TQzSetColor>()) {}

TQzPen::~TQzPen() = default;

void TQzPen::Assign(TPersistent* source)
{
    TPen::Assign(source);
    if (auto* pen = dynamic_cast<TQzPen*>(source))
        FSetColor->Assign(pen->FSetColor.get());
}

const TTypeInfo* TypeInfo_TShapeType()
{
    static const TTypeInfo* t = DefineEnumType(
        "TShapeType", {"stRectangle", "stSquare", "stRoundRect", "stRoundSquare", "stEllipse", "stCircle"});
    return t;
}

void TQzShape::DeclareProperties(TClassBuilder<TQzShape>& b)
{
    b.Property("Brush", &TQzShape::Brush, &TQzShape::SetBrush);
    b.Property("Pen", &TQzShape::Pen, &TQzShape::SetPen);
    b.Enum("Shape", TypeInfo_TShapeType(), &TQzShape::FShape, &TQzShape::FShape, stRectangle);
    QzDeclareLabel(b, "HintLabel");
    DeclareClickEvents(b);
}

TQzShape::TQzShape(TComponent* owner) : TQzGraphicControl(owner)
{
    SetBounds(0, 0, 65, 65);
}

// ---- Up-down -----------------------------------------------------------------

const TTypeInfo* TypeInfo_TUDOrientation()
{
    static const TTypeInfo* t = DefineEnumType("TUDOrientation", {"udHorizontal", "udVertical"});
    return t;
}

void TQzUpDown::DeclareProperties(TClassBuilder<TQzUpDown>& b)
{
    b.Property("ArrowKeys", &TQzUpDown::FArrowKeys).Default(true);
    b.Property("Associate", &TQzUpDown::Associate, &TQzUpDown::SetAssociate);
    b.Property("Increment", &TQzUpDown::FIncrement).Default(1);
    b.Property("Max", &TQzUpDown::FMax).Default(100);
    b.Property("Min", &TQzUpDown::FMin).Default(0);
    b.Enum("Orientation", TypeInfo_TUDOrientation(), &TQzUpDown::FOrientation, &TQzUpDown::FOrientation, udVertical);
    b.Property("Position", &TQzUpDown::FPosition).Default(0);
    QzDeclarePrivilege(b);
    b.Property("Thousands", &TQzUpDown::FThousands).Default(true);
    b.Property("Wrap", &TQzUpDown::FWrap).Default(false);
    DeclareClickEvents(b);
}

TQzUpDown::TQzUpDown(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 15, 25);
}

void TQzUpDown::SetAssociate(TWinControl* value)
{
    if (value == this)
        throw EInvalidOperation("An up-down control cannot be its own associate");
    QzSetReference(this, FAssociate, value);
    if (value && !ComponentState().Contains(csLoading))
        SetBounds(value->Left() + value->Width(), value->Top(), Width(), value->Height());
}

void TQzUpDown::Notification(TComponent* component, TOperation operation)
{
    TQzWinControl::Notification(component, operation);
    if (operation == opRemove)
        QzClearReference(FAssociate, component);
}
