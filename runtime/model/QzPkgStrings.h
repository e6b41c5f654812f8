#pragma once
// The strings package: labels (text and hint), messages and texts, three
// lists side by side, each with its own Id space.

#include "runtime/model/QzPkgCollection.h"
#include "runtime/model/QzPkgInfo.h"

class TQzPkgStrings;

class TQzPkgStringsLabel : public TQzPkgIdItem {
    QZ_CLASS(TQzPkgStringsLabel, TQzPkgIdItem)

public:
    TQzPkgStringsLabel(TQzPkgIdCollection* collection, Integer id) : TQzPkgIdItem(collection, id) {}

    const AnsiString& Text() const { return FText; }
    void SetText(const AnsiString& value);
    const AnsiString& Hint() const { return FHint; }
    void SetHint(const AnsiString& value);
    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgStringsLabel>& b);
    AnsiString FText;
    AnsiString FHint;
};

// An Id with one text: what messages and texts hold.
class TQzPkgStringsTextItem : public TQzPkgIdItem {
    QZ_CLASS(TQzPkgStringsTextItem, TQzPkgIdItem)

public:
    const AnsiString& Text() const { return FText; }
    void SetText(const AnsiString& value);
    // From an item of the same class only: a message is no text.
    void Assign(TPersistent* source) override;

protected:
    TQzPkgStringsTextItem(TQzPkgIdCollection* collection, Integer id) : TQzPkgIdItem(collection, id) {}

private:
    static void DeclareProperties(TClassBuilder<TQzPkgStringsTextItem>& b);
    AnsiString FText;
};

class TQzPkgStringsMessage : public TQzPkgStringsTextItem {
    QZ_CLASS(TQzPkgStringsMessage, TQzPkgStringsTextItem)

public:
    TQzPkgStringsMessage(TQzPkgIdCollection* collection, Integer id) : TQzPkgStringsTextItem(collection, id) {}
};

// A text may hold several lines, kept with the line breaks it was given.
class TQzPkgStringsText : public TQzPkgStringsTextItem {
    QZ_CLASS(TQzPkgStringsText, TQzPkgStringsTextItem)

public:
    TQzPkgStringsText(TQzPkgIdCollection* collection, Integer id) : TQzPkgStringsTextItem(collection, id) {}
};

class TQzPkgStringsLabels : public TQzPkgIdCollection {
    QZ_CLASS(TQzPkgStringsLabels, TQzPkgIdCollection)

public:
    explicit TQzPkgStringsLabels(TQzPkgInfo* package) : TQzPkgIdCollection(package, "label") {}

    // Raises EQzPkgError for a used or negative Id.
    TQzPkgStringsLabel* Add(Integer id, const AnsiString& text = {}, const AnsiString& hint = {});
    TQzPkgStringsLabel* GetItems(int index) const { return static_cast<TQzPkgStringsLabel*>(Item(index)); }
    TQzPkgStringsLabel* FindId(Integer id) const { return static_cast<TQzPkgStringsLabel*>(FindIdItem(id)); }
    // The first label (in list order) whose text equals text exactly; nullptr when none.
    TQzPkgStringsLabel* FindLabel(const AnsiString& text) const;
};

class TQzPkgStringsMessages : public TQzPkgIdCollection {
    QZ_CLASS(TQzPkgStringsMessages, TQzPkgIdCollection)

public:
    explicit TQzPkgStringsMessages(TQzPkgInfo* package) : TQzPkgIdCollection(package, "message") {}

    TQzPkgStringsMessage* Add(Integer id, const AnsiString& text = {});
    TQzPkgStringsMessage* GetItems(int index) const { return static_cast<TQzPkgStringsMessage*>(Item(index)); }
    TQzPkgStringsMessage* FindId(Integer id) const { return static_cast<TQzPkgStringsMessage*>(FindIdItem(id)); }
};

class TQzPkgStringsTexts : public TQzPkgIdCollection {
    QZ_CLASS(TQzPkgStringsTexts, TQzPkgIdCollection)

public:
    explicit TQzPkgStringsTexts(TQzPkgInfo* package) : TQzPkgIdCollection(package, "text") {}

    TQzPkgStringsText* Add(Integer id, const AnsiString& text = {});
    TQzPkgStringsText* GetItems(int index) const { return static_cast<TQzPkgStringsText*>(Item(index)); }
    TQzPkgStringsText* FindId(Integer id) const { return static_cast<TQzPkgStringsText*>(FindIdItem(id)); }
};

class TQzPkgStrings : public TQzPkgInfo {
    QZ_CLASS(TQzPkgStrings, TQzPkgInfo)

public:
    // The version of the contents layout this class writes.
    static constexpr Integer DataVersion = 1;

    explicit TQzPkgStrings(TComponent* owner);
    ~TQzPkgStrings() override;

    TQzPkgStringsLabels* Labels() { return &FLabels; }
    TQzPkgStringsMessages* Messages() { return &FMessages; }
    TQzPkgStringsTexts* Texts() { return &FTexts; }
    const TQzPkgStringsLabels* Labels() const { return &FLabels; }
    const TQzPkgStringsMessages* Messages() const { return &FMessages; }
    const TQzPkgStringsTexts* Texts() const { return &FTexts; }

    // Empties the three lists.
    void Clear() override;
    bool IsEmpty() const override;
    // Tells the links to read everything again (after a bulk change).
    void NotifyInit(TObject* sender) { NotifyEvt(peInit, sender); }
    // Moves source's contents and placement here (source ends empty),
    // without checks: for contents read whole into a detached package.
    void TakeContents(TQzPkgStrings& source);

    AnsiString DefaultExt() const override { return "pst"; }
    AnsiString KindName() const override { return "PkgStrings"; }

    void Transfer(TQzPkgTransfer& t) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPkgStrings>& b);

    TQzPkgStringsLabels FLabels{this};
    TQzPkgStringsMessages FMessages{this};
    TQzPkgStringsTexts FTexts{this};
};
