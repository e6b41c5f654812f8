#pragma once
// The suite's buttons, images, shapes and up-down control. Pictures come
// from images packages through memory references; GraphicClass names the
// format a picture is kept in.

#include "runtime/components/QzCollection.h"
#include "runtime/components/QzControl.h"

// ---- Buttons -----------------------------------------------------------------

enum TButtonLayout { blGlyphLeft, blGlyphRight, blGlyphTop, blGlyphBottom };
const TTypeInfo* TypeInfo_TButtonLayout();

// The glyph, its layout and the modal result that the drawn and the
// windowed buttons share.
struct TQzGlyphParts {
    TQzGlyphParts() : Glyph(std::make_unique<TQzMemoryImage>()) {}
    std::unique_ptr<TQzMemoryImage> Glyph;
    TButtonLayout Layout = blGlyphLeft;
    Integer Margin = -1;
    Integer Spacing = 4;
    TModalResult ModalResult = mrNone;
};

class TQzCustomBitBtn : public TQzWinControl {
    QZ_CLASS(TQzCustomBitBtn, TQzWinControl)

public:
    explicit TQzCustomBitBtn(TComponent* owner);
    TQzGlyphParts& GlyphParts() { return FGlyph; }
    TQzMemoryImage* Glyph() const { return FGlyph.Glyph.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomBitBtn>& b);

    TQzGlyphParts FGlyph;
    bool FCancel = false;
    bool FDefault = false;
};

class TQzBitBtn : public TQzCustomBitBtn {
    QZ_CLASS(TQzBitBtn, TQzCustomBitBtn)

public:
    explicit TQzBitBtn(TComponent* owner) : TQzCustomBitBtn(owner) {}
    TModalResult ModalResult() { return GlyphParts().ModalResult; }

private:
    static void DeclareProperties(TClassBuilder<TQzBitBtn>& b);
};

class TQzCustomSpeedButton : public TQzGraphicControl {
    QZ_CLASS(TQzCustomSpeedButton, TQzGraphicControl)

public:
    explicit TQzCustomSpeedButton(TComponent* owner);
    TQzGlyphParts& GlyphParts() { return FGlyph; }
    TQzMemoryImage* Glyph() const { return FGlyph.Glyph.get(); }

    // Buttons of one group (GroupIndex > 0) under one parent stay down one
    // at a time: pressing one releases the others.
    bool Down() const { return FDown; }
    void SetDown(bool value);
    Integer GroupIndex() const { return FGroupIndex; }
    void SetGroupIndex(Integer value) { FGroupIndex = value; }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomSpeedButton>& b);

    TQzGlyphParts FGlyph;
    bool FAllowAllUp = false;
    bool FDown = false;
    bool FFlat = false;
    Integer FGroupIndex = 0;
};

class TQzSpeedButton : public TQzCustomSpeedButton {
    QZ_CLASS(TQzSpeedButton, TQzCustomSpeedButton)

public:
    explicit TQzSpeedButton(TComponent* owner) : TQzCustomSpeedButton(owner) {}
    TModalResult ModalResult() { return GlyphParts().ModalResult; }

private:
    static void DeclareProperties(TClassBuilder<TQzSpeedButton>& b);
};

// ---- Images ------------------------------------------------------------------

// How a picture sits in its control.
struct TQzPictureParts {
    TQzPictureParts() : Picture(std::make_unique<TQzMemoryImage>()) {}
    std::unique_ptr<TQzMemoryImage> Picture;
    // The format the picture is kept in ("bmp", "png"...), as
    // QzFormatGraphics lists them; empty for the picture's own.
    AnsiString GraphicClass;
    bool AutoSize = false;
    bool Center = false;
    bool Proportional = false;
    bool Stretch = false;
    bool Transparent = false;
};

class TQzCustomImage : public TQzGraphicControl {
    QZ_CLASS(TQzCustomImage, TQzGraphicControl)

public:
    explicit TQzCustomImage(TComponent* owner);
    TQzPictureParts& PictureParts() { return FPicture; }
    TQzMemoryImage* Picture() const { return FPicture.Picture.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomImage>& b);

    TQzPictureParts FPicture;
};

class TQzImage : public TQzCustomImage {
    QZ_CLASS(TQzImage, TQzCustomImage)

public:
    explicit TQzImage(TComponent* owner) : TQzCustomImage(owner) {}
};

// An image that takes the focus (and so can be tabbed to and clicked).
class TQzCustomFocusImage : public TQzWinControl {
    QZ_CLASS(TQzCustomFocusImage, TQzWinControl)

public:
    explicit TQzCustomFocusImage(TComponent* owner);
    TQzPictureParts& PictureParts() { return FPicture; }
    TQzMemoryImage* Picture() const { return FPicture.Picture.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomFocusImage>& b);

    TQzPictureParts FPicture;
};

class TQzFocusImage : public TQzCustomFocusImage {
    QZ_CLASS(TQzFocusImage, TQzCustomFocusImage)

public:
    explicit TQzFocusImage(TComponent* owner) : TQzCustomFocusImage(owner) {}
};

// The picture of one Id of an images package named by PkgName.
class TQzCustomPkgImage : public TQzGraphicControl {
    QZ_CLASS(TQzCustomPkgImage, TQzGraphicControl)

public:
    explicit TQzCustomPkgImage(TComponent* owner);
    const AnsiString& PkgName() const { return FPkgName; }
    void SetPkgName(const AnsiString& value) { FPkgName = value; }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomPkgImage>& b);

    AnsiString FPkgName;
    bool FCenter = false;
    bool FStretch = false;
    bool FTransparent = false;
};

class TQzPkgImage : public TQzCustomPkgImage {
    QZ_CLASS(TQzPkgImage, TQzCustomPkgImage)

public:
    explicit TQzPkgImage(TComponent* owner) : TQzCustomPkgImage(owner) {}
    Integer ImageId() const { return FImageId; }
    void SetImageId(Integer value) { FImageId = value; }

private:
    static void DeclareProperties(TClassBuilder<TQzPkgImage>& b);

    Integer FImageId = -1;
};

// ---- Shapes ------------------------------------------------------------------

// A pen whose colour may come from a colour set of the application.
class TQzPen : public TPen {
    QZ_CLASS(TQzPen, TPen)

public:
    TQzPen();
    ~TQzPen() override;
    TQzSetColor* SetColor() const { return FSetColor.get(); }
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPen>& b);

    std::unique_ptr<TQzSetColor> FSetColor;
};

enum TShapeType { stRectangle, stSquare, stRoundRect, stRoundSquare, stEllipse, stCircle };
const TTypeInfo* TypeInfo_TShapeType();

class TQzShape : public TQzGraphicControl {
    QZ_CLASS(TQzShape, TQzGraphicControl)

public:
    explicit TQzShape(TComponent* owner);
    TBrush* Brush() { return &FBrush; }
    void SetBrush(TBrush* value) { FBrush.Assign(value); }
    TQzPen* Pen() { return &FPen; }
    void SetPen(TQzPen* value) { FPen.Assign(value); }

private:
    static void DeclareProperties(TClassBuilder<TQzShape>& b);

    TBrush FBrush;
    TQzPen FPen;
    TShapeType FShape = stRectangle;
};

// ---- Up-down -----------------------------------------------------------------

enum TUDOrientation { udHorizontal, udVertical };
const TTypeInfo* TypeInfo_TUDOrientation();

class TQzUpDown : public TQzWinControl {
    QZ_CLASS(TQzUpDown, TQzWinControl)

public:
    explicit TQzUpDown(TComponent* owner);

    // The control whose value the arrows change. Outside loading, the
    // up-down moves to its right edge and takes its height, as it is drawn
    // attached to it. An up-down cannot be its own associate.
    TWinControl* Associate() const { return FAssociate; }
    void SetAssociate(TWinControl* value);
    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzUpDown>& b);

    TWinControl* FAssociate = nullptr;
    bool FArrowKeys = true;
    Integer FIncrement = 1;
    Integer FMax = 100;
    Integer FMin = 0;
    TUDOrientation FOrientation = udVertical;
    Integer FPosition = 0;
    bool FThousands = true;
    bool FWrap = false;
};
