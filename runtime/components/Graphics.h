#pragma once
// The drawing attributes that controls publish: colours and font charsets
// with the names forms store them under (clBtnFace, DEFAULT_CHARSET), and
// the persistent TFont, TBrush and TPen a control owns. Headless: they hold
// what the designer draws with and what the form stream carries.

#include "runtime/model/QzTypes.h"

#include "rtl/Persistent.h"

#include <functional>

// ---- Colours ---------------------------------------------------------------

// Colours as the class library numbers them: 0x00BBGGRR for a plain colour,
// 0xFF0000nn for system colour nn (clBtnFace is 0xFF00000F), two markers.
inline constexpr TColor clSystemColor = TColor(0xFF000000);

inline constexpr TColor clScrollBar = clSystemColor | 0;
inline constexpr TColor clBackground = clSystemColor | 1;
inline constexpr TColor clActiveCaption = clSystemColor | 2;
inline constexpr TColor clInactiveCaption = clSystemColor | 3;
inline constexpr TColor clMenu = clSystemColor | 4;
inline constexpr TColor clWindow = clSystemColor | 5;
inline constexpr TColor clWindowFrame = clSystemColor | 6;
inline constexpr TColor clMenuText = clSystemColor | 7;
inline constexpr TColor clWindowText = clSystemColor | 8;
inline constexpr TColor clCaptionText = clSystemColor | 9;
inline constexpr TColor clActiveBorder = clSystemColor | 10;
inline constexpr TColor clInactiveBorder = clSystemColor | 11;
inline constexpr TColor clAppWorkSpace = clSystemColor | 12;
inline constexpr TColor clHighlight = clSystemColor | 13;
inline constexpr TColor clHighlightText = clSystemColor | 14;
inline constexpr TColor clBtnFace = clSystemColor | 15;
inline constexpr TColor clBtnShadow = clSystemColor | 16;
inline constexpr TColor clGrayText = clSystemColor | 17;
inline constexpr TColor clBtnText = clSystemColor | 18;
inline constexpr TColor clInactiveCaptionText = clSystemColor | 19;
inline constexpr TColor clBtnHighlight = clSystemColor | 20;
inline constexpr TColor cl3DDkShadow = clSystemColor | 21;
inline constexpr TColor cl3DLight = clSystemColor | 22;
inline constexpr TColor clInfoText = clSystemColor | 23;
inline constexpr TColor clInfoBk = clSystemColor | 24;
inline constexpr TColor clHotLight = clSystemColor | 26;
inline constexpr TColor clGradientActiveCaption = clSystemColor | 27;
inline constexpr TColor clGradientInactiveCaption = clSystemColor | 28;
inline constexpr TColor clMenuHighlight = clSystemColor | 29;
inline constexpr TColor clMenuBar = clSystemColor | 30;

inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clMaroon = 0x000080;
inline constexpr TColor clGreen = 0x008000;
inline constexpr TColor clOlive = 0x008080;
inline constexpr TColor clNavy = 0x800000;
inline constexpr TColor clPurple = 0x800080;
inline constexpr TColor clTeal = 0x808000;
inline constexpr TColor clGray = 0x808080;
inline constexpr TColor clSilver = 0xC0C0C0;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clLime = 0x00FF00;
inline constexpr TColor clYellow = 0x00FFFF;
inline constexpr TColor clBlue = 0xFF0000;
inline constexpr TColor clFuchsia = 0xFF00FF;
inline constexpr TColor clAqua = 0xFFFF00;
inline constexpr TColor clLtGray = 0xC0C0C0;
inline constexpr TColor clDkGray = 0x808080;
inline constexpr TColor clWhite = 0xFFFFFF;
inline constexpr TColor clMoneyGreen = 0xC0DCC0;
inline constexpr TColor clSkyBlue = 0xF0CAA6;
inline constexpr TColor clCream = 0xF0FBFF;
inline constexpr TColor clMedGray = 0xA4A0A0;
inline constexpr TColor clNone = 0x1FFFFFFF;
inline constexpr TColor clDefault = 0x20000000;

// TColor with its identifier table, so forms read and write "clBtnFace"
// rather than -16777201. The model's TypeInfo_TColor() carries no names;
// every colour the controls publish uses this one.
const TTypeInfo* TypeInfo_TGraphicsColor();

// "clBtnFace" for a named colour, else "$00BBGGRR" as the inspector shows
// colours; StringToColor takes either (and plain numbers) and raises
// EConvertError on anything else.
AnsiString ColorToString(TColor color);
TColor StringToColor(const AnsiString& text);
// The RGB a colour stands for on the default Windows scheme (system colours
// resolved), for whoever draws the control: 0x00BBGGRR.
TColor ColorToRGB(TColor color);
// Every named colour in the class library's order, for value lists.
void GetColorValues(const std::function<void(const AnsiString&)>& proc);

// ---- Fonts -------------------------------------------------------------

using TFontCharset = Byte;

inline constexpr TFontCharset ANSI_CHARSET = 0;
inline constexpr TFontCharset DEFAULT_CHARSET = 1;
inline constexpr TFontCharset SYMBOL_CHARSET = 2;
inline constexpr TFontCharset MAC_CHARSET = 77;
inline constexpr TFontCharset SHIFTJIS_CHARSET = 128;
inline constexpr TFontCharset HANGEUL_CHARSET = 129;
inline constexpr TFontCharset JOHAB_CHARSET = 130;
inline constexpr TFontCharset GB2312_CHARSET = 134;
inline constexpr TFontCharset CHINESEBIG5_CHARSET = 136;
inline constexpr TFontCharset GREEK_CHARSET = 161;
inline constexpr TFontCharset TURKISH_CHARSET = 162;
inline constexpr TFontCharset VIETNAMESE_CHARSET = 163;
inline constexpr TFontCharset HEBREW_CHARSET = 177;
inline constexpr TFontCharset ARABIC_CHARSET = 178;
inline constexpr TFontCharset BALTIC_CHARSET = 186;
inline constexpr TFontCharset RUSSIAN_CHARSET = 204;
inline constexpr TFontCharset THAI_CHARSET = 222;
inline constexpr TFontCharset EASTEUROPE_CHARSET = 238;
inline constexpr TFontCharset OEM_CHARSET = 255;

const TTypeInfo* TypeInfo_TFontCharset();

enum TFontStyle { fsBold, fsItalic, fsUnderline, fsStrikeOut };
using TFontStyles = TEnumSet<TFontStyle>;
const TTypeInfo* TypeInfo_TFontStyle();
const TTypeInfo* TypeInfo_TFontStyles();

enum TFontPitch { fpDefault, fpVariable, fpFixed };
const TTypeInfo* TypeInfo_TFontPitch();

// The string type of TFont.Name, so an editor can offer the installed fonts.
const TTypeInfo* TypeInfo_TFontName();

// Base of the drawing attributes: a change is reported to whoever owns the
// object (the control repaints, a parent-font link is broken).
class TGraphicsObject : public TPersistent {
    QZ_CLASS(TGraphicsObject, TPersistent)

public:
    std::function<void()> OnChange;

protected:
    void Changed()
    {
        if (OnChange)
            OnChange();
    }
};

class TFont : public TGraphicsObject {
    QZ_CLASS(TFont, TGraphicsObject)

public:
    static constexpr Integer DefaultPixelsPerInch = 96;

    TFont() = default;

    TFontCharset Charset() const { return FCharset; }
    void SetCharset(TFontCharset value);
    TColor Color() const { return FColor; }
    void SetColor(TColor value);
    // Negative: the character height in pixels; positive: the cell height.
    Integer Height() const { return FHeight; }
    void SetHeight(Integer value);
    const AnsiString& Name() const { return FName; }
    void SetName(const AnsiString& value);
    TFontPitch Pitch() const { return FPitch; }
    void SetPitch(TFontPitch value);
    // Points, derived from Height at PixelsPerInch; forms store Height only.
    Integer Size() const;
    void SetSize(Integer value);
    TFontStyles Style() const { return FStyle; }
    void SetStyle(TFontStyles value);
    Integer PixelsPerInch() const { return FPixelsPerInch; }
    void SetPixelsPerInch(Integer value) { FPixelsPerInch = value; }

    bool operator==(const TFont& other) const;
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TFont>& b);

    TFontCharset FCharset = DEFAULT_CHARSET;
    TColor FColor = clWindowText;
    Integer FHeight = -11;
    AnsiString FName = "MS Sans Serif";
    TFontPitch FPitch = fpDefault;
    TFontStyles FStyle;
    Integer FPixelsPerInch = DefaultPixelsPerInch;
};

// ---- Brushes and pens -------------------------------------------------------

enum TBrushStyle { bsSolid, bsClear, bsHorizontal, bsVertical, bsFDiagonal, bsBDiagonal, bsCross, bsDiagCross };
const TTypeInfo* TypeInfo_TBrushStyle();

class TBrush : public TGraphicsObject {
    QZ_CLASS(TBrush, TGraphicsObject)

public:
    TBrush() = default;

    TColor Color() const { return FColor; }
    void SetColor(TColor value);
    TBrushStyle Style() const { return FStyle; }
    void SetStyle(TBrushStyle value);
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TBrush>& b);

    TColor FColor = clWhite;
    TBrushStyle FStyle = bsSolid;
};

enum TPenStyle { psSolid, psDash, psDot, psDashDot, psDashDotDot, psClear, psInsideFrame };
const TTypeInfo* TypeInfo_TPenStyle();

enum TPenMode {
    pmBlack, pmWhite, pmNop, pmNot, pmCopy, pmNotCopy, pmMergePenNot, pmMaskPenNot,
    pmMergeNotPen, pmMaskNotPen, pmMerge, pmNotMerge, pmMask, pmNotMask, pmXor, pmNotXor,
};
const TTypeInfo* TypeInfo_TPenMode();

class TPen : public TGraphicsObject {
    QZ_CLASS(TPen, TGraphicsObject)

public:
    TPen() = default;

    TColor Color() const { return FColor; }
    void SetColor(TColor value);
    TPenMode Mode() const { return FMode; }
    void SetMode(TPenMode value);
    TPenStyle Style() const { return FStyle; }
    void SetStyle(TPenStyle value);
    // A negative width is ignored, as the class library does.
    Integer Width() const { return FWidth; }
    void SetWidth(Integer value);
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TPen>& b);

    TColor FColor = clBlack;
    TPenMode FMode = pmCopy;
    TPenStyle FStyle = psSolid;
    Integer FWidth = 1;
};
