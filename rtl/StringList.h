#pragma once
// TStrings, the abstract list of strings with an object pointer per line,
// and TStringList, its stored and optionally sorted form.

#include "rtl/Persistent.h"
#include "rtl/SysUtils.h"

#include <functional>
#include <vector>

class TStream;
class TStrings;

using TStringsEvent = std::function<void(TStrings& sender)>;

// A persistent, so a component can publish a list of strings: forms store
// it as the defined property "Strings", a list of string values
// ("Lines.Strings = ('one' 'two')").
class TStrings : public TPersistent {
    QZ_CLASS(TStrings, TPersistent)

public:
    ~TStrings() override = default;

    // ---- What a descendant provides
    virtual int Count() const = 0;
    virtual AnsiString Get(int index) const = 0;
    virtual void Insert(int index, const AnsiString& s) = 0;
    virtual void Delete(int index) = 0;
    virtual void Clear() = 0;
    virtual void Put(int index, const AnsiString& s);
    virtual void* GetObject(int index) const;
    virtual void PutObject(int index, void* object);
    // How names and entries compare in IndexOf, IndexOfName and sorting.
    virtual int CompareStrings(const AnsiString& s1, const AnsiString& s2) const;

    // ---- Lines and objects
    AnsiString Strings(int index) const { return Get(index); }
    AnsiString operator[](int index) const { return Get(index); }
    void* Objects(int index) const { return GetObject(index); }
    virtual int Add(const AnsiString& s);
    virtual int AddObject(const AnsiString& s, void* object);
    void InsertObject(int index, const AnsiString& s, void* object);
    virtual void Exchange(int index1, int index2);
    virtual void Move(int curIndex, int newIndex);
    void AddStrings(const TStrings& strings);
    // Copies the lines, their objects and the text settings (and for a
    // TStringList source, its sorting settings too).
    virtual void Assign(const TStrings& source);
    void Assign(TPersistent* source) override;
    void DefineProperties(TFiler& filer) override;
    // Same lines in the same order, compared byte for byte.
    bool Equals(const TStrings& strings) const;

    virtual int IndexOf(const AnsiString& s) const;
    int IndexOfObject(const void* object) const;

    // ---- name=value pairs
    int IndexOfName(const AnsiString& name) const;
    AnsiString Names(int index) const;
    AnsiString ValueFromIndex(int index) const;
    AnsiString Values(const AnsiString& name) const;
    // An empty value removes the pair, as in Delphi.
    void SetValue(const AnsiString& name, const AnsiString& value);
    char NameValueSeparator() const { return FNameValueSeparator; }
    void SetNameValueSeparator(char c) { FNameValueSeparator = c; }

    // ---- Text forms
    // Every line followed by LineBreak (the last one only with
    // TrailingLineBreak). SetText splits on CRLF, LF and CR, or, with a
    // LineBreak other than CRLF, on that LineBreak only.
    AnsiString Text() const;
    virtual void SetText(const AnsiString& text);
    const AnsiString& LineBreak() const { return FLineBreak; }
    void SetLineBreak(const AnsiString& lineBreak) { FLineBreak = lineBreak; }
    bool TrailingLineBreak() const { return FTrailingLineBreak; }
    void SetTrailingLineBreak(bool value) { FTrailingLineBreak = value; }

    // Items joined by Delimiter, quoted with QuoteChar (embedded quotes
    // doubled) when they hold a quote, a delimiter or, unless
    // StrictDelimiter, a blank or control character. When parsing without
    // StrictDelimiter, blanks separate unquoted items too.
    AnsiString DelimitedText() const;
    void SetDelimitedText(const AnsiString& text);
    // DelimitedText with ',' and '"' and no StrictDelimiter.
    AnsiString CommaText() const;
    void SetCommaText(const AnsiString& text);
    char Delimiter() const { return FDelimiter; }
    void SetDelimiter(char c) { FDelimiter = c; }
    char QuoteChar() const { return FQuoteChar; }
    void SetQuoteChar(char c) { FQuoteChar = c; }
    bool StrictDelimiter() const { return FStrictDelimiter; }
    void SetStrictDelimiter(bool value) { FStrictDelimiter = value; }

    // ---- Files and streams: bytes stay as they are; a UTF-8 byte order
    // mark is dropped on load and none is written.
    void LoadFromStream(TStream& stream);
    void SaveToStream(TStream& stream) const;
    void LoadFromFile(const AnsiString& fileName);
    // Through WriteFileAtomic: a failed save leaves the old file whole.
    void SaveToFile(const AnsiString& fileName) const;

    // ---- Batched changes: change events fire once for the outermost pair.
    void BeginUpdate();
    void EndUpdate();
    int UpdateCount() const { return FUpdateCount; }

protected:
    TStrings() = default;
    // A list is copied through Assign, which knows what its kind keeps.
    TStrings(const TStrings&) = delete;
    TStrings& operator=(const TStrings&) = delete;

    // Called when the outermost BeginUpdate starts (true) and EndUpdate ends
    // (false).
    virtual void SetUpdateState(bool updating);
    // Raises EStringListError "List index out of bounds (<index>)".
    [[noreturn]] static void RaiseIndexError(int index);
    // Raises unless 0 <= index < limit.
    static void CheckIndex(int index, int limit);
    // The text settings (line break, delimiters, separators).
    void CopySettingsFrom(const TStrings& source);

private:
    AnsiString FLineBreak = sLineBreak;
    bool FTrailingLineBreak = true;
    char FDelimiter = ',';
    char FQuoteChar = '"';
    char FNameValueSeparator = '=';
    bool FStrictDelimiter = false;
    int FUpdateCount = 0;
};

enum TDuplicates { dupIgnore, dupAccept, dupError };

class TStringList;
// Returns <0, 0 or >0 for the lines at index1 and index2.
using TStringListSortCompare = std::function<int(const TStringList& list, int index1, int index2)>;

class TStringList : public TStrings {
    QZ_CLASS(TStringList, TStrings)

public:
    using TStrings::Assign;
    TStringList() = default;
    // Copies lines, objects and settings, but not the event handlers.
    TStringList(const TStringList& other);
    TStringList& operator=(const TStringList& other);

    int Count() const override { return int(FItems.size()); }
    AnsiString Get(int index) const override;
    // The stored line, without a copy.
    const AnsiString& StringRef(int index) const;
    void Put(int index, const AnsiString& s) override;
    void* GetObject(int index) const override;
    void PutObject(int index, void* object) override;
    int Add(const AnsiString& s) override;
    int AddObject(const AnsiString& s, void* object) override;
    void Insert(int index, const AnsiString& s) override;
    void Delete(int index) override;
    void Clear() override;
    void Exchange(int index1, int index2) override;
    void Move(int curIndex, int newIndex) override;
    void Assign(const TStrings& source) override;
    int IndexOf(const AnsiString& s) const override;
    int CompareStrings(const AnsiString& s1, const AnsiString& s2) const override;

    // Binary search of a sorted list: true when s is there, and index is
    // its position (the first of equal lines) or where it would go.
    bool Find(const AnsiString& s, int& index) const;
    void Sort();
    // Sorts by compare (stable); the list keeps its order while compare
    // runs, so compare sees the lines at the indexes it is given.
    virtual void CustomSort(const TStringListSortCompare& compare);

    bool Sorted() const { return FSorted; }
    void SetSorted(bool value);
    TDuplicates Duplicates() const { return FDuplicates; }
    void SetDuplicates(TDuplicates value) { FDuplicates = value; }
    // Off by default: comparisons use AnsiCompareText, or AnsiCompareStr
    // when on.
    bool CaseSensitive() const { return FCaseSensitive; }
    void SetCaseSensitive(bool value);

    TStringsEvent OnChange;
    TStringsEvent OnChanging;

protected:
    void SetUpdateState(bool updating) override;
    void Changing();
    void Changed();

private:
    struct TItem {
        AnsiString FString;
        void* FObject = nullptr;
    };

    std::vector<TItem> FItems;
    bool FSorted = false;
    TDuplicates FDuplicates = dupIgnore;
    bool FCaseSensitive = false;

    void InsertItem(int index, const AnsiString& s, void* object);
    void CheckNotSorted() const;
};
