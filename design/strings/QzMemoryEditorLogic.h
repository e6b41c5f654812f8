#pragma once
// What the memory label, message and text editors decide, without a window:
// the three families' differences in one table, where an editor starts, what
// it stores when it closes, the order and search of its list, and the
// writing of one item by the Add and Modify dialogs. The windows only show
// and forward.

#include "design/manager/QzManagerKinds.h"
#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgStrings.h"

#include <vector>

enum class TQzMemoryFamily { Labels, Messages, Texts };

struct TQzMemoryFamilyInfo {
    TQzMemoryFamily Family;
    const char* Caption;        // the editor's: "Labels"
    const char* ItemWord;       // "Label": the Add dialog's text caption and the order button
    const char* SearchCaption;  // "Search Label"
    const char* AddCaption;     // "Add Label"
    const char* ModifyCaption;  // "Modify Label"
    TQzDlgManager ManagerKind;  // what the packages manager looks for
    // Messages and texts narrow the list to the items holding the search
    // text; labels keep the whole list and move to the first match.
    bool FilterSearch;
};

const TQzMemoryFamilyInfo& QzMemoryFamilyInfo(TQzMemoryFamily family);

// The name a reference that names no package opens on.
inline constexpr const char* QzMemoryFallbackPkgName = "User";

// The family's list in pkg.
TQzPkgIdCollection* QzMemoryItems(TQzPkgStrings& pkg, TQzMemoryFamily family);
// An item's text (label text, message, text) and a label's hint (empty for
// the others).
const AnsiString& QzMemoryItemText(const TQzPkgIdItem& item);
AnsiString QzMemoryItemHint(const TQzPkgIdItem& item);

// ---- opening and closing

struct TQzMemoryChoice {
    AnsiString PkgName;
    Integer Id = TQzMemoryRef::IdNone;
};

// What an editor shows at start: the reference's package and Id, or its
// default's while it holds IdDefault; a reference naming no package opens
// on "User".
TQzMemoryChoice QzMemoryStartOf(const TQzMemoryRef& ref);
// The Id in the Id box: an empty box is no item; anything else must be a
// decimal number (EConvertError otherwise).
Integer QzMemoryIdOfText(const AnsiString& text);
// What the reference stores for a choice: the reference's default package
// and Id chosen by hand are stored as IdDefault, everything else as chosen.
Integer QzMemoryStoredId(const TQzMemoryRef& ref, const TQzMemoryChoice& choice);
// Sets the reference to the choice, by that rule.
void QzMemoryApply(TQzMemoryRef& ref, const TQzMemoryChoice& choice);

// Writes the package's own file, and that of the language package that
// holds it, where they live in files of their own and changed.
void QzMemorySaveFiles(TQzPkgStrings& pkg);
// The component whose form a change of pkg modifies: the package's owner,
// or the form holding the language package or application above it.
TComponent* QzMemoryDesignOwner(TQzPkgStrings& pkg);

// ---- Add and Modify

struct TQzMemoryItemFields {
    AnsiString IdText;   // as typed in the Id box
    AnsiString Text;
    AnsiString Hint;     // labels only
    bool Protected = false;
};

// The Add dialog's Ok: in modify mode the item that had oldId takes the
// fields (its Id first, so a refused Id changes nothing); otherwise a new
// item is added. Raises for a bad, negative or used Id, for a missing item
// and for a package that may not change, leaving the package as it was.
// Listeners hear of it once.
TQzPkgIdItem* QzMemoryWriteItem(TQzPkgStrings& pkg, TQzMemoryFamily family, bool modify, Integer oldId,
                                const TQzMemoryItemFields& fields);
// The fields of an existing item.
TQzMemoryItemFields QzMemoryFieldsOf(const TQzPkgIdItem& item);

// ---- the list

enum class TQzMemoryOrder { ByText, ById };

// The rows of an editor's list: the items of one family in the order asked,
// narrowed by a filter. Holds pointers only; load again after any change.
class TQzMemoryRows {
public:
    // filter: only items whose text holds it, without regard to case; a
    // filter that is blank after trimming keeps every item.
    void Load(TQzPkgIdCollection* items, TQzMemoryOrder order, const AnsiString& filter = {});
    void Clear();

    int Count() const { return static_cast<int>(FRows.size()); }
    TQzPkgIdItem* Item(int row) const;
    TQzMemoryOrder Order() const { return FOrder; }
    // The row of the item with that Id; -1 when it is not listed.
    int RowOfId(Integer id) const;
    // The search of the label list: by text, the first row that sorts at or
    // after search; by Id, the first row whose text begins with it (case
    // ignored both ways). -1 when none.
    int FindText(const AnsiString& search) const;

private:
    std::vector<TQzPkgIdItem*> FRows;
    std::vector<AnsiString> FKeys;   // folded texts, ordered as FRows when by text
    TQzMemoryOrder FOrder = TQzMemoryOrder::ByText;
};
