#pragma once
// Memory references: the small persistent objects through which a control
// names one package item (a package name and an Id) instead of holding a
// text or a picture itself. Written in a form as two lines, "PkgName" then
// "Id", inside the control's property.
//
// Id -2 (IdDefault) means the reference's default item, shown "(Default)";
// any other negative Id means no item, shown "(None)"; 0 and up name an item.
// The text is looked up when asked for, so a reference follows its package
// as it is edited, loaded or replaced.

#include "runtime/model/QzTypes.h"

#include "rtl/Persistent.h"

#include <functional>

class TQzPkgStrings;
class TQzPkgImages;
class TQzPkgImagesImage;
class TQzPkgStringsLabel;
class TQzPkgDisplaySetBackGround;
class TQzPkgDisplaySetColor;
class TQzPkgDisplaySetFont;

class TQzMemoryRef : public TPersistent {
    QZ_CLASS(TQzMemoryRef, TPersistent)

public:
    static constexpr Integer IdNone = -1;
    static constexpr Integer IdDefault = -2;

    // The default item the reference stands for while it holds IdDefault;
    // a reference with a default starts at IdDefault, one without at IdNone.
    explicit TQzMemoryRef(const AnsiString& defaultPkgName = {}, Integer defaultId = IdNone, bool hasDefault = false);

    const AnsiString& PkgName() const { return FPkgName; }
    void SetPkgName(const AnsiString& value);
    Integer Id() const { return FId; }
    void SetId(Integer value);
    void PkgId(const AnsiString& pkgName, Integer id);

    const AnsiString& DefaultPkgName() const { return FDefaultPkgName; }
    Integer DefaultId() const { return FDefaultId; }
    bool HasDefault() const { return FHasDefault; }

    // Points anywhere: an item Id, or IdDefault with a default.
    bool Defined() const;
    // The package name and Id the reference leads to (the default's for
    // IdDefault); false when it leads nowhere.
    bool Resolve(AnsiString& pkgName, Integer& id) const;
    // One line for the object inspector: "(12, MAIN)" and what the kind
    // adds, "(Default)" or "(None)".
    virtual AnsiString Info() const;

    // Package name and Id of another reference of the same class.
    void Assign(TPersistent* source) override;
    // Told after every change of the package name or the Id.
    std::function<void()> OnChange;
    TPersistent* GetOwner() override { return FOwner; }
    void SetOwner(TPersistent* owner) { FOwner = owner; }

protected:
    // "(Id, PkgName)", or "(Default)"/"(None)"; false for the last two.
    bool InfoHead(AnsiString& head) const;

private:
    static void DeclareProperties(TClassBuilder<TQzMemoryRef>& b);
    bool IsIdStored() const { return FId != FInitialId; }
    void Changed();

    AnsiString FPkgName;
    Integer FId;
    AnsiString FDefaultPkgName;
    Integer FDefaultId;
    bool FHasDefault;
    Integer FInitialId;
    TPersistent* FOwner = nullptr;
};

class TQzMemoryLabel : public TQzMemoryRef {
    QZ_CLASS(TQzMemoryLabel, TQzMemoryRef)

public:
    using TQzMemoryRef::TQzMemoryRef;
    // The referenced label's text and hint; empty when it leads nowhere.
    AnsiString Text() const;
    AnsiString Hint() const;
    // "(12, MAIN) Save - Saves the file".
    AnsiString Info() const override;
    const TQzPkgStringsLabel* Item() const;
};

class TQzMemoryMessage : public TQzMemoryRef {
    QZ_CLASS(TQzMemoryMessage, TQzMemoryRef)

public:
    using TQzMemoryRef::TQzMemoryRef;
    AnsiString Text() const;
    AnsiString Info() const override;
};

class TQzMemoryText : public TQzMemoryRef {
    QZ_CLASS(TQzMemoryText, TQzMemoryRef)

public:
    using TQzMemoryRef::TQzMemoryRef;
    AnsiString Text() const;
    AnsiString Info() const override;
};

class TQzMemoryImage : public TQzMemoryRef {
    QZ_CLASS(TQzMemoryImage, TQzMemoryRef)

public:
    using TQzMemoryRef::TQzMemoryRef;
    // Bound to one image directly (the editors' image lists draw through it).
    explicit TQzMemoryImage(TQzPkgImagesImage* image);

    // The referenced image, or nullptr.
    TQzPkgImagesImage* Image() const;
    // No image, or an image without a picture.
    bool Empty() const;
    // "(12, MAIN)".
    AnsiString Info() const override;

private:
    TQzPkgImagesImage* FImage = nullptr;
};

// A privilege Id (IdNone: no privilege needed) checked against the
// application's privileges package.
class TQzPrivilege : public TPersistent {
    QZ_CLASS(TQzPrivilege, TPersistent)

public:
    static constexpr Integer IdNone = -1;

    Integer Id() const { return FId; }
    void SetId(Integer value);
    // The access the privilege grants: its item's, R/W without a privilege,
    // N when the Id is not in the package (an unknown privilege opens nothing).
    TQzAccess Access() const;
    // The privilege's description (its text, else its label's), or empty.
    AnsiString Info() const;
    void Assign(TPersistent* source) override;
    std::function<void()> OnChange;

private:
    static void DeclareProperties(TClassBuilder<TQzPrivilege>& b);
    Integer FId = IdNone;
};

// The defaults a display-set reference falls back on when it names no set
// of the application's display package.
struct TQzDefaultSetBackGround {
    AnsiString Name;
    TQzBackGroundValues Values;
};
struct TQzDefaultSetColor {
    AnsiString Name;
    TColor Color = 0;
};
struct TQzDefaultSetFont {
    AnsiString Name;
    TQzFontValues Values;
};

// A display set named by its Name; the set is looked up in the application's
// display package when its values are asked for.
class TQzSetRef : public TPersistent {
    QZ_CLASS(TQzSetRef, TPersistent)

public:
    const AnsiString& Name() const { return FName; }
    void SetName(const AnsiString& value);
    void Assign(TPersistent* source) override;
    std::function<void()> OnChange;

protected:
    TQzSetRef() = default;

private:
    static void DeclareProperties(TClassBuilder<TQzSetRef>& b);
    AnsiString FName;
};

class TQzSetBackGround : public TQzSetRef {
    QZ_CLASS(TQzSetBackGround, TQzSetRef)

public:
    // With useDefault, the default's values apply while no set is found.
    explicit TQzSetBackGround(const TQzDefaultSetBackGround* defaultSet = nullptr, bool useDefault = true);
    // The set of that name in the application's display package, or nullptr.
    const TQzPkgDisplaySetBackGround* Found() const;
    TQzBackGroundValues Values() const;
    // The image of the set found (its Image reference), or nullptr.
    const TQzMemoryImage* Image() const;

private:
    const TQzDefaultSetBackGround* FDefault;
    bool FUseDefault;
};

class TQzSetColor : public TQzSetRef {
    QZ_CLASS(TQzSetColor, TQzSetRef)

public:
    explicit TQzSetColor(const TQzDefaultSetColor* defaultSet = nullptr, bool useDefault = true);
    const TQzPkgDisplaySetColor* Found() const;
    TColor Color() const;

private:
    const TQzDefaultSetColor* FDefault;
    bool FUseDefault;
};

class TQzSetFont : public TQzSetRef {
    QZ_CLASS(TQzSetFont, TQzSetRef)

public:
    explicit TQzSetFont(const TQzDefaultSetFont* defaultSet = nullptr, bool useDefault = true);
    const TQzPkgDisplaySetFont* Found() const;
    TQzFontValues Values() const;

private:
    const TQzDefaultSetFont* FDefault;
    bool FUseDefault;
};
