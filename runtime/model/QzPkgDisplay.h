#pragma once
// The display package (the application's PkgDisplay): the sets of
// backgrounds, colours and fonts that controls name, the geometry of the
// common windows and hints, the user colours, and the application's two
// images packages "System" and "User".

#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgCollection.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgInfo.h"

#include "rtl/StringList.h"

class TQzPkgDisplaySets;

// A set is known by its Name, unique (without regard to case) in its list.
class TQzPkgDisplaySet : public TQzPkgItem {
    QZ_CLASS(TQzPkgDisplaySet, TQzPkgItem)

public:
    const AnsiString& Name() const { return FName; }
    // Raises EQzPkgError for an empty name or one another set of the list has.
    void SetName(const AnsiString& value);
    const AnsiString& Description() const { return FDescription; }
    void SetDescription(const AnsiString& value);
    TQzMemoryLabel* DescriptionId() { return &FDescriptionId; }
    const TQzMemoryLabel* DescriptionId() const { return &FDescriptionId; }
    void SetDescriptionId(TQzMemoryLabel* value);

protected:
    TQzPkgDisplaySet(TQzPkgDisplaySets* sets, const AnsiString& name);
    // Copies another set of class Set: its description and label (not its
    // name, which stays unique), then what copyValues copies. Any other
    // source is left to the ancestors.
    template <class Set, class CopyValues>
    void AssignSet(TPersistent* source, CopyValues&& copyValues)
    {
        auto* other = dynamic_cast<Set*>(source);
        if (!other) {
            TQzPkgItem::Assign(source);
            return;
        }
        AssignCommon(*other);
        copyValues(*other);
    }

private:
    static void DeclareProperties(TClassBuilder<TQzPkgDisplaySet>& b);
    void AssignCommon(const TQzPkgDisplaySet& source);
    AnsiString FName;
    AnsiString FDescription;
    TQzMemoryLabel FDescriptionId;
};

class TQzPkgDisplaySetBackGround : public TQzPkgDisplaySet {
    QZ_CLASS(TQzPkgDisplaySetBackGround, TQzPkgDisplaySet)

public:
    TQzPkgDisplaySetBackGround(TQzPkgDisplaySets* sets, const AnsiString& name) : TQzPkgDisplaySet(sets, name)
    {
        FImage.SetOwner(this);
        FImage.OnChange = [this] { Changed(); };
    }

    const TQzBackGroundValues& Values() const { return FValues; }
    TQzBackGroundStyle Style() const { return FValues.Style; }
    void SetStyle(TQzBackGroundStyle value);
    TColor SolidColor() const { return FValues.SolidColor; }
    void SetSolidColor(TColor value);
    TColor StartGraColor() const { return FValues.StartGraColor; }
    void SetStartGraColor(TColor value);
    TColor EndGraColor() const { return FValues.EndGraColor; }
    void SetEndGraColor(TColor value);
    bool Transparent() const { return FValues.Transparent; }
    void SetTransparent(bool value);
    // The picture of the bgImage styles.
    TQzMemoryImage* Image() { return &FImage; }
    const TQzMemoryImage* Image() const { return &FImage; }
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgDisplaySetBackGround>& b);
    template <class V>
    void Set(V& field, const V& value);
    TQzBackGroundValues FValues;
    TQzMemoryImage FImage;
};

class TQzPkgDisplaySetColor : public TQzPkgDisplaySet {
    QZ_CLASS(TQzPkgDisplaySetColor, TQzPkgDisplaySet)

public:
    TQzPkgDisplaySetColor(TQzPkgDisplaySets* sets, const AnsiString& name) : TQzPkgDisplaySet(sets, name) {}
    TColor Color() const { return FColor; }
    void SetColor(TColor value);
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgDisplaySetColor>& b);
    TColor FColor = 0;
};

class TQzPkgDisplaySetFont : public TQzPkgDisplaySet {
    QZ_CLASS(TQzPkgDisplaySetFont, TQzPkgDisplaySet)

public:
    TQzPkgDisplaySetFont(TQzPkgDisplaySets* sets, const AnsiString& name) : TQzPkgDisplaySet(sets, name) {}
    const TQzFontValues& Values() const { return FValues; }
    void SetValues(const TQzFontValues& value);
    void SetFontName(const AnsiString& value);
    void SetSize(Integer value);
    void SetColor(TColor value);
    void SetBold(bool value);
    void SetItalic(bool value);
    void SetUnderline(bool value);
    void SetStrikeOut(bool value);
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgDisplaySetFont>& b);
    // One of the values changed, as a change of them all.
    template <class V>
    void SetValue(V TQzFontValues::*member, const V& value)
    {
        TQzFontValues v = FValues;
        v.*member = value;
        SetValues(v);
    }
    TQzFontValues FValues;
};

// The lists of sets, searched by name.
class TQzPkgDisplaySets : public TQzPkgCollection {
    QZ_CLASS(TQzPkgDisplaySets, TQzPkgCollection)

public:
    explicit TQzPkgDisplaySets(TQzPkgInfo* package) : TQzPkgCollection(package) {}
    // The set of that name (any case), or nullptr.
    TQzPkgDisplaySet* FindSet(const AnsiString& name) const;
    // Raises EQzPkgError unless name may be given to a set (except may keep its own).
    void CheckName(const AnsiString& name, const TQzPkgDisplaySet* except) const;
};

class TQzPkgDisplaySetsBackGround : public TQzPkgDisplaySets {
    QZ_CLASS(TQzPkgDisplaySetsBackGround, TQzPkgDisplaySets)

public:
    using TQzPkgDisplaySets::TQzPkgDisplaySets;
    TQzPkgDisplaySetBackGround* Add(const AnsiString& name);
    TQzPkgDisplaySetBackGround* Find(const AnsiString& name) const
    {
        return static_cast<TQzPkgDisplaySetBackGround*>(FindSet(name));
    }
    TQzPkgDisplaySetBackGround* GetSetBackGround(int index) const
    {
        return static_cast<TQzPkgDisplaySetBackGround*>(Item(index));
    }
};

class TQzPkgDisplaySetsColor : public TQzPkgDisplaySets {
    QZ_CLASS(TQzPkgDisplaySetsColor, TQzPkgDisplaySets)

public:
    using TQzPkgDisplaySets::TQzPkgDisplaySets;
    TQzPkgDisplaySetColor* Add(const AnsiString& name);
    TQzPkgDisplaySetColor* Find(const AnsiString& name) const { return static_cast<TQzPkgDisplaySetColor*>(FindSet(name)); }
    TQzPkgDisplaySetColor* GetSetColor(int index) const { return static_cast<TQzPkgDisplaySetColor*>(Item(index)); }
};

class TQzPkgDisplaySetsFont : public TQzPkgDisplaySets {
    QZ_CLASS(TQzPkgDisplaySetsFont, TQzPkgDisplaySets)

public:
    using TQzPkgDisplaySets::TQzPkgDisplaySets;
    TQzPkgDisplaySetFont* Add(const AnsiString& name);
    TQzPkgDisplaySetFont* Find(const AnsiString& name) const { return static_cast<TQzPkgDisplaySetFont*>(FindSet(name)); }
    TQzPkgDisplaySetFont* GetSetFont(int index) const { return static_cast<TQzPkgDisplaySetFont*>(Item(index)); }
};

// Geometry of the runtime's common windows (CW: message and input boxes)
// and hint windows (Hi), in pixels.
struct TQzDisplayGeometry {
    Integer CWButtonsHeight = 25;
    Integer CWButtonsMargin = 8;
    Integer CWButtonsSpacing = 6;
    Integer CWButtonsWidth = 75;
    Integer CWMarginAfterTitle = 8;
    Integer CWMarginBottom = 8;
    Integer CWMarginLeft = 8;
    Integer CWMarginRight = 8;
    Integer CWMarginTop = 8;
    Integer CWTitleHeight = 20;
    Integer HiMarginBottom = 4;
    Integer HiMarginLeft = 4;
    Integer HiMarginRight = 4;
    Integer HiMarginTop = 4;
    bool CWWinRgn = false;   // common windows take the shape of their background picture
    bool HiWinRgn = false;
    bool operator==(const TQzDisplayGeometry&) const = default;
};

class TQzPkgDisplay : public TQzPkgInfo {
    QZ_CLASS(TQzPkgDisplay, TQzPkgInfo)

public:
    static constexpr Integer DataVersion = 1;

    explicit TQzPkgDisplay(TComponent* owner);
    ~TQzPkgDisplay() override;

    TQzPkgDisplaySetsBackGround* SetsBackGround() { return &FSetsBackGround; }
    TQzPkgDisplaySetsColor* SetsColor() { return &FSetsColor; }
    TQzPkgDisplaySetsFont* SetsFont() { return &FSetsFont; }
    const TQzPkgDisplaySetsBackGround* SetsBackGround() const { return &FSetsBackGround; }
    const TQzPkgDisplaySetsColor* SetsColor() const { return &FSetsColor; }
    const TQzPkgDisplaySetsFont* SetsFont() const { return &FSetsFont; }

    // The application's images packages, named "System" and "User".
    TQzPkgImages* PkgSystem() const { return FPkgSystem; }
    TQzPkgImages* PkgUser() const { return FPkgUser; }

    const TQzDisplayGeometry& Geometry() const { return FGeometry; }
    // Each raises EQzPkgError for a negative value.
    void SetCWButtonsHeight(Integer value);
    void SetCWButtonsMargin(Integer value);
    void SetCWButtonsSpacing(Integer value);
    void SetCWButtonsWidth(Integer value);
    void SetCWMarginAfterTitle(Integer value);
    void SetCWMarginBottom(Integer value);
    void SetCWMarginLeft(Integer value);
    void SetCWMarginRight(Integer value);
    void SetCWMarginTop(Integer value);
    void SetCWTitleHeight(Integer value);
    void SetHiMarginBottom(Integer value);
    void SetHiMarginLeft(Integer value);
    void SetHiMarginRight(Integer value);
    void SetHiMarginTop(Integer value);
    void SetCWWinRgn(bool value);
    void SetHiWinRgn(bool value);

    // The colours the user defined, one "Name=Value" line each; copied.
    const TStringList& UserColors() const { return FUserColors; }
    void SetUserColors(TStrings* value);

    // The display file the "System" images were last refreshed from, and when.
    const AnsiString& LastUpdateFile() const { return FLastUpdateFile; }
    void SetLastUpdateFile(const AnsiString& value);
    TDateTime UpdateDateTime() const { return FUpdateDateTime; }
    void SetUpdateDateTime(TDateTime value);

    void Clear() override;
    bool IsEmpty() const override;
    AnsiString DefaultExt() const override { return "dis"; }
    AnsiString KindName() const override { return "Display"; }

    void Transfer(TQzPkgTransfer& t) override;

private:
    void SetGeometry(Integer TQzDisplayGeometry::*field, Integer value);

    TQzPkgDisplaySetsBackGround FSetsBackGround{this};
    TQzPkgDisplaySetsColor FSetsColor{this};
    TQzPkgDisplaySetsFont FSetsFont{this};
    TQzDisplayGeometry FGeometry;
    TStringList FUserColors;
    AnsiString FLastUpdateFile;
    TDateTime FUpdateDateTime = 0;
    TQzPkgImages* FPkgSystem;
    TQzPkgImages* FPkgUser;
};
