#pragma once
// Small component classes with a published property of every kind, shared
// by the designide tests (global, so every test file sees one metaclass),
// and a designer over a form of them.

#include "designide/FormDesigner.h"
#include "rtl/Component.h"

#include <map>
#include <memory>

enum TDtShape { dsCircle, dsSquare, dsTriangle };
enum TDtStyle { dfBold, dfItalic, dfUnderline };
using TDtStyles = TEnumSet<TDtStyle>;

const TTypeInfo* TypeInfo_TDtShape();
const TTypeInfo* TypeInfo_TDtStyles();
const TTypeInfo* TypeInfo_TDtColor();   // an integer type of its own
const TTypeInfo* TypeInfo_TDtCursor();  // an integer type with identifiers

class TDtFont : public TPersistent {
    QZ_CLASS(TDtFont, TPersistent)

public:
    AnsiString FName = "Tahoma";
    Integer FSize = 8;
    TDtStyles FStyle;

private:
    static void DeclareProperties(TClassBuilder<TDtFont>& b)
    {
        b.Property("Name", &TDtFont::FName);
        b.Property("Size", &TDtFont::FSize).Default(8);
        b.Set("Style", TypeInfo_TDtStyles(), &TDtFont::FStyle, nullptr, TDtStyles{});
    }
};

// A font with one more property, to bind editors to an ancestor type.
class TDtBigFont : public TDtFont {
    QZ_CLASS(TDtBigFont, TDtFont)

public:
    Integer FWeight = 400;

private:
    static void DeclareProperties(TClassBuilder<TDtBigFont>& b) { b.Property("Weight", &TDtBigFont::FWeight).Default(400); }
};

class TDtControl : public TComponent {
    QZ_CLASS(TDtControl, TComponent)

public:
    explicit TDtControl(TComponent* owner) : TComponent(owner) {}

    Integer FWidth = 10;
    Integer FColor = 0;
    Integer FCursor = 0;
    Int64 FBig = 0;
    char FHotKey = 'A';
    TDtShape FShape = dsCircle;
    bool FVisible = true;
    TDtStyles FStyles;
    double FRatio = 0;
    AnsiString FCaption;
    TDtFont FFont;
    TDtControl* FBuddy = nullptr;
    AnsiString FOnClick;
    Variant FValue;

    TDtFont* GetFont() { return &FFont; }

private:
    static void DeclareProperties(TClassBuilder<TDtControl>& b);
};

class TDtButton : public TDtControl {
    QZ_CLASS(TDtButton, TDtControl)

public:
    using TDtControl::TDtControl;
    AnsiString FHint;

private:
    static void DeclareProperties(TClassBuilder<TDtButton>& b) { b.Property("Hint", &TDtButton::FHint); }
};

class TDtLabel : public TDtControl {
    QZ_CLASS(TDtLabel, TDtControl)

public:
    using TDtControl::TDtControl;
    TDtBigFont FTitleFont;
    TDtBigFont* GetTitleFont() { return &FTitleFont; }

private:
    static void DeclareProperties(TClassBuilder<TDtLabel>& b) { b.Property("TitleFont", &TDtLabel::GetTitleFont); }
};

// Shares only Name and Tag with the controls.
class TDtTimer : public TComponent {
    QZ_CLASS(TDtTimer, TComponent)

public:
    using TComponent::TComponent;
    Integer FInterval = 1000;

private:
    static void DeclareProperties(TClassBuilder<TDtTimer>& b) { b.Property("Interval", &TDtTimer::FInterval).Default(1000); }
};

class TDtForm : public TComponent {
    QZ_CLASS(TDtForm, TComponent)

public:
    using TComponent::TComponent;
    AnsiString FCaption;

private:
    static void DeclareProperties(TClassBuilder<TDtForm>& b) { b.Property("Caption", &TDtForm::FCaption); }
};

// Registers the classes above with the class library (for reading forms).
void RegisterDtClasses();

// A designer over Form1 (TDtForm) owning Button1 (TDtButton), Label1
// (TDtLabel), Control1 (TDtControl) and Timer1 (TDtTimer).
std::unique_ptr<TFormDesigner> MakeTestDesigner();

class TPropertyEditor;
// The editors GetComponentProperties gives for a selection, by name.
std::map<AnsiString, std::unique_ptr<TPropertyEditor>> EditorsFor(const TDesignerSelections& selection,
                                                                   IDesigner* designer);

// A folder under the system's temporary folder, removed with its contents.
class TTempFolder {
public:
    TTempFolder();
    ~TTempFolder();
    const std::string& Path() const { return FPath; }
    std::string operator/(const std::string& name) const { return FPath + "/" + name; }
    void Write(const std::string& name, const std::string& bytes) const;

private:
    std::string FPath;
};
