#pragma once
// The privileges package: access levels by Id, each with a description (a
// text, or a label of a strings package) and a visibility. Both a palette
// component and the application's Privileges property.

#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgCollection.h"
#include "runtime/model/QzPkgInfo.h"

class TQzPkgPrivilegesItem : public TQzPkgIdItem {
    QZ_CLASS(TQzPkgPrivilegesItem, TQzPkgIdItem)

public:
    TQzPkgPrivilegesItem(TQzPkgIdCollection* collection, Integer id);

    const AnsiString& Description() const { return FDescription; }
    void SetDescription(const AnsiString& value);
    // The description as a label reference; copied from value.
    TQzMemoryLabel* DescriptionId() { return &FDescriptionId; }
    const TQzMemoryLabel* DescriptionId() const { return &FDescriptionId; }
    void SetDescriptionId(TQzMemoryLabel* value);
    TQzAccess Access() const { return FAccess; }
    void SetAccess(TQzAccess value);
    bool Visible() const { return FVisible; }
    void SetVisible(bool value);
    // The description text, else the referenced label's text.
    AnsiString DisplayText() const;
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgPrivilegesItem>& b);

    AnsiString FDescription;
    TQzMemoryLabel FDescriptionId;
    TQzAccess FAccess = qaRW;
    bool FVisible = true;
};

class TQzPkgPrivilegesItems : public TQzPkgIdCollection {
    QZ_CLASS(TQzPkgPrivilegesItems, TQzPkgIdCollection)

public:
    explicit TQzPkgPrivilegesItems(TQzPkgInfo* package) : TQzPkgIdCollection(package, "privilege") {}
    TQzPkgPrivilegesItem* Add(Integer id);
    TQzPkgPrivilegesItem* GetItems(int index) const { return static_cast<TQzPkgPrivilegesItem*>(Item(index)); }
    TQzPkgPrivilegesItem* FindId(Integer id) const { return static_cast<TQzPkgPrivilegesItem*>(FindIdItem(id)); }
};

class TQzPkgPrivileges : public TQzPkgInfo {
    QZ_CLASS(TQzPkgPrivileges, TQzPkgInfo)

public:
    static constexpr Integer DataVersion = 1;

    explicit TQzPkgPrivileges(TComponent* owner);

    // The package is its own list.
    TQzPkgPrivilegesItem* Add(Integer id) { return FItems.Add(id); }
    int Count() const { return FItems.Count(); }
    TQzPkgPrivilegesItem* GetItems(int index) const { return FItems.GetItems(index); }
    TQzPkgPrivilegesItem* FindId(Integer id) const { return FItems.FindId(id); }
    Integer UniqueId() const { return FItems.UniqueId(); }
    void Delete(int index) { FItems.Delete(index); }
    void BeginUpdate() { FItems.BeginUpdate(); }
    void EndUpdate() { FItems.EndUpdate(); }
    TQzPkgPrivilegesItems* Items() { return &FItems; }

    // A key the application checks its users' privileges with; the model
    // keeps it with the contents.
    const AnsiString& Key() const { return FKey; }
    void SetKey(const AnsiString& value);
    // Controls a privilege opens for reading only are disabled rather than
    // made read-only.
    bool ReadStateDisableControl() const { return FReadStateDisableControl; }
    void SetReadStateDisableControl(bool value);

    // The template: a UTF-8 text file of the privileges without the key
    // (docs/runtime-model.md). Loading replaces the list; a bad line raises
    // an error naming the file and the line and changes nothing.
    void LoadTemplateFromFile(const AnsiString& fileName);
    void SaveTemplateToFile(const AnsiString& fileName);

    void Clear() override;
    bool IsEmpty() const override;
    AnsiString DefaultExt() const override { return "pac"; }
    AnsiString KindName() const override { return "Access"; }
    // The application's PathPrivileges when it has one, else its Path.
    AnsiString BasePath() const override;

    void Transfer(TQzPkgTransfer& t) override;

private:
    TQzPkgPrivilegesItems FItems{this};
    AnsiString FKey;
    bool FReadStateDisableControl = false;
};
