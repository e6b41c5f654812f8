#pragma once
// The variables package: a tree of folders holding typed variables.
//
// An item is addressed by its path: the Idents from the top level down,
// joined by '\' ("Setup\Printer\Copies"), without the package name. Idents
// are compared without regard to case; renaming takes any text as it is,
// so two items may share an Ident, and a path then finds the first.

#include "runtime/model/QzPkgInfo.h"

#include <vector>

class TQzPkgVars;
struct TQzVarValue;

class TQzPkgVarsItem : public TPersistent {
    QZ_CLASS(TQzPkgVarsItem, TPersistent)

public:
    // Frees the children and leaves the parent (or the package's top level).
    ~TQzPkgVarsItem() override;

    const AnsiString& Ident() const { return FIdent; }
    void SetIdent(const AnsiString& value);
    TQzPkgVarsItemType GetItemType() const { return FItemType; }
    // Converts the value: numbers to and from "True"/"False" as 1/0,
    // numbers to text and text that reads as a number back; a folder turned
    // into a variable loses its contents, a variable turned into a folder
    // its value.
    void SetItemType(TQzPkgVarsItemType value);
    bool IsFolder() const { return FItemType == qvFolder; }
    // The path from the top level ("Setup\Printer\Copies").
    AnsiString Path() const;

    // The value as the asked type, converted as SetItemType would; setting
    // converts to the item's own type. A folder has no value: getting gives
    // the empty value, setting raises EQzPkgError.
    bool GetVBoolean() const;
    void SetVBoolean(bool value);
    Integer GetVInteger() const;
    void SetVInteger(Integer value);
    Extended GetVFloat() const;
    void SetVFloat(Extended value);
    AnsiString GetVString() const;
    void SetVString(const AnsiString& value);

    // The tree: children of a folder, in the order they were added.
    TQzPkgVars* Package() const { return FPackage; }
    TQzPkgVarsItem* Parent() const { return FParent; }
    int Count() const { return static_cast<int>(FChildren.size()); }
    TQzPkgVarsItem* Items(int index) const;   // EListError out of range
    TQzPkgVarsItem* GetFirstChild() const { return FChildren.empty() ? nullptr : FChildren.front(); }
    TQzPkgVarsItem* GetNextSibling() const;
    // The child with that Ident, or nullptr.
    TQzPkgVarsItem* FindChild(const AnsiString& ident) const;

private:
    friend class TQzPkgVars;
    TQzPkgVarsItem(TQzPkgVars* package, TQzPkgVarsItem* parent, const AnsiString& ident, TQzPkgVarsItemType type);
    static void DeclareProperties(TClassBuilder<TQzPkgVarsItem>& b);
    std::vector<TQzPkgVarsItem*>& Siblings() const;
    void CheckChange() const;
    void Changed();
    void FreeChildren();
    void SetValue(const TQzVarValue& value);
    friend struct TQzVarValue;

    TQzPkgVars* FPackage;
    TQzPkgVarsItem* FParent;
    AnsiString FIdent;
    TQzPkgVarsItemType FItemType;
    bool FBoolean = false;
    Integer FInteger = 0;
    Extended FFloat = 0;
    AnsiString FString;
    std::vector<TQzPkgVarsItem*> FChildren;
};

class TQzPkgVars : public TQzPkgInfo {
    QZ_CLASS(TQzPkgVars, TQzPkgInfo)

public:
    static constexpr Integer DataVersion = 1;
    // Folders nest at most this deep; deeper data is refused as damaged.
    static constexpr int MaxDepth = 64;
    static constexpr char PathSeparator = '\\';

    explicit TQzPkgVars(TComponent* owner);
    ~TQzPkgVars() override;

    // Adds an item at path; the folders on the way are made when missing.
    // Raises EQzPkgError when an item already has that path, when a step of
    // the way is a variable, or when the last Ident is empty.
    TQzPkgVarsItem* Add(const AnsiString& path, TQzPkgVarsItemType type);
    // The item at path, or nullptr.
    TQzPkgVarsItem* Find(const AnsiString& path) const;

    // The top level.
    int Count() const { return static_cast<int>(FItems.size()); }
    TQzPkgVarsItem* Items(int index) const;   // EListError out of range
    TQzPkgVarsItem* GetFirst() const { return FItems.empty() ? nullptr : FItems.front(); }

    void Clear() override;
    bool IsEmpty() const override { return FItems.empty(); }
    void NotifyInit(TObject* sender) { NotifyEvt(peInit, sender); }

    AnsiString DefaultExt() const override { return "pva"; }
    AnsiString KindName() const override { return "PkgVars"; }
    // The application's PathPkgVars when it has one, else its Path.
    AnsiString BasePath() const override;
    using TQzPkgInfo::GetPathFileName;

    void Transfer(TQzPkgTransfer& t) override;

private:
    friend class TQzPkgVarsItem;
    static void DeclareProperties(TClassBuilder<TQzPkgVars>& b);
    void FreeItems(std::vector<TQzPkgVarsItem*>& items);
    void TransferItems(TQzPkgTransfer& t, TQzPkgVarsItem* parent, std::vector<TQzPkgVarsItem*>& items, int depth);

    std::vector<TQzPkgVarsItem*> FItems;
    bool FClearing = false;
};
