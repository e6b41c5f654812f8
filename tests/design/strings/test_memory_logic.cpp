// What the memory label, message and text editors decide without a window:
// where they start, what a reference stores when they close, how an item is
// written (and refused), and the order and search of their lists.

#include "design/strings/QzMemoryEditorLogic.h"

#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(MemoryEditorLogic, StartsOnTheReferenceOrItsDefaultOrUser)
{
    const struct {
        const char* PkgName;
        Integer Id;
        const char* DefaultPkg;
        Integer DefaultId;
        bool HasDefault;
        const char* WantPkg;
        Integer WantId;
    } cases[] = {
        {"MAIN", 12, "", -1, false, "MAIN", 12},
        {"", -1, "", -1, false, "User", -1},            // names no package
        {"  ", 4, "", -1, false, "User", 4},
        {"MAIN", -2, "System", 30, true, "System", 30},  // the default shown as what it stands for
        {"MAIN", -2, "", -1, false, "MAIN", -2},         // no default: -2 is kept as it is
        {"MAIN", 7, "System", 30, true, "MAIN", 7},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.PkgName) + "/" + std::to_string(c.Id));
        TQzMemoryLabel ref(c.DefaultPkg, c.DefaultId, c.HasDefault);
        ref.PkgId(c.PkgName, c.Id);
        const TQzMemoryChoice start = QzMemoryStartOf(ref);
        EXPECT_EQ(start.PkgName, c.WantPkg);
        EXPECT_EQ(start.Id, c.WantId);
    }
}

TEST(MemoryEditorLogic, ClosingStoresTheDefaultChosenByHandAsMinusTwo)
{
    TQzMemoryMessage ref("System", 30, true);
    const struct {
        const char* PkgName;
        Integer Id;
        Integer Stored;
    } cases[] = {
        {"System", 30, -2},
        {"SYSTEM", 30, -2},   // package names ignore case
        {"System", 31, 31},
        {"User", 30, 30},
        {"System", -1, -1},   // N&ull
        {"User", -2, -2},     // De&fault, whatever the package
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.PkgName) + "/" + std::to_string(c.Id));
        QzMemoryApply(ref, {c.PkgName, c.Id});
        EXPECT_EQ(ref.Id(), c.Stored);
        EXPECT_EQ(ref.PkgName(), c.PkgName);
    }
    // A reference without a default stores every Id as chosen.
    TQzMemoryText plain;
    QzMemoryApply(plain, {"", -1});
    EXPECT_EQ(plain.Id(), -1);
    QzMemoryApply(plain, {"MAIN", 0});
    EXPECT_EQ(plain.Id(), 0);

    EXPECT_EQ(QzMemoryIdOfText(""), -1);
    EXPECT_EQ(QzMemoryIdOfText("0042"), 42);
}

class MemoryWrite : public ::testing::Test {
protected:
    MemoryWrite()
    {
        Pkg->SetPkgName("MAIN");
        Pkg->Labels()->Add(1, "One", "first");
        Pkg->Labels()->Add(2, "Two");
        Pkg->Messages()->Add(5, "Five");
    }
    // Labels as "Id=text/hint" in list order.
    AnsiString Labels() const
    {
        AnsiString s;
        for (int i = 0; i < Pkg->Labels()->Count(); ++i) {
            const TQzPkgStringsLabel* l = Pkg->Labels()->GetItems(i);
            s += IntToStr(l->Id()) + "=" + l->Text() + "/" + l->Hint() + (l->Protected() ? "P" : "") + " ";
        }
        return s;
    }
    std::unique_ptr<TQzPkgStrings> Pkg = std::make_unique<TQzPkgStrings>(nullptr);
};

TEST_F(MemoryWrite, AddsAndModifiesAndRefusesBadIdsWithoutChangingAnything)
{
    const struct {
        const char* Name;
        bool Modify;
        Integer OldId;
        TQzMemoryItemFields Fields;
        const char* After;   // nullptr: refused, nothing changed
    } cases[] = {
        {"add", false, -1, {"3", "Three", "third", true}, "1=One/first 2=Two/ 3=Three/thirdP "},
        {"modify keeps its Id", true, 1, {"1", "Uno", "", false}, "1=Uno/ 2=Two/ "},
        {"modify moves the Id", true, 1, {"9", "One", "first", false}, "9=One/first 2=Two/ "},
        {"add on a used Id", false, -1, {"2", "Dup", "", false}, nullptr},
        {"modify onto a used Id", true, 1, {"2", "Changed", "", false}, nullptr},
        {"an Id that is no number", false, -1, {"1x", "Bad", "", false}, nullptr},
        {"an empty Id", false, -1, {"", "Bad", "", false}, nullptr},
        {"a negative Id", false, -1, {"-4", "Bad", "", false}, nullptr},
        {"an item that went", true, 7, {"7", "Gone", "", false}, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        Pkg = std::make_unique<TQzPkgStrings>(nullptr);
        Pkg->Labels()->Add(1, "One", "first");
        Pkg->Labels()->Add(2, "Two");
        if (!c.After) {
            EXPECT_THROW(QzMemoryWriteItem(*Pkg, TQzMemoryFamily::Labels, c.Modify, c.OldId, c.Fields), Exception);
            EXPECT_EQ(Labels(), "1=One/first 2=Two/ ");
            continue;
        }
        TQzPkgIdItem* item = QzMemoryWriteItem(*Pkg, TQzMemoryFamily::Labels, c.Modify, c.OldId, c.Fields);
        EXPECT_EQ(item->Id(), StrToInt(c.Fields.IdText));
        EXPECT_EQ(Labels(), c.After);
    }
}

TEST_F(MemoryWrite, TheSystemPackageIsRefusedUnlessTheApplicationAllowsIt)
{
    Pkg->SetPkgName("system");
    EXPECT_THROW(QzMemoryWriteItem(*Pkg, TQzMemoryFamily::Messages, false, -1, {"6", "Six", "", false}),
                 EQzPkgError);
    EXPECT_EQ(Pkg->Messages()->Count(), 1);
    // Messages and texts take their text; a hint has nowhere to go.
    Pkg->SetPkgName("MAIN");
    QzMemoryWriteItem(*Pkg, TQzMemoryFamily::Texts, false, -1, {"0", "a\r\nb", "ignored", false});
    EXPECT_EQ(Pkg->Texts()->FindId(0)->Text(), "a\r\nb");
    EXPECT_EQ(QzMemoryFieldsOf(*Pkg->Texts()->FindId(0)).Hint, "");
}

TEST(MemoryRows, OrderSearchAndFilter)
{
    TQzPkgStrings pkg(nullptr);
    const std::pair<Integer, const char*> items[] = {
        {4, "delta"}, {1, "Bravo"}, {3, "alpha"}, {2, "bravo"}, {10, "Charlie"}, {0, "Élan"},
    };
    for (const auto& [id, text] : items) {
        pkg.Labels()->Add(id, text);
        pkg.Messages()->Add(id, text);
    }
    const auto ids = [](const TQzMemoryRows& rows) {
        AnsiString s;
        for (int r = 0; r < rows.Count(); ++r)
            s += IntToStr(rows.Item(r)->Id()) + " ";
        return s;
    };
    TQzMemoryRows rows;
    rows.Load(pkg.Labels(), TQzMemoryOrder::ByText);
    // Case ignored, equal texts by Id; letters beyond ASCII fold too.
    EXPECT_EQ(ids(rows), "3 1 2 10 4 0 ");
    const struct {
        const char* Search;
        int ByText;   // row found in text order
        int ById;     // row found in Id order (prefix match)
    } searches[] = {
        {"br", 1, 1},       // both bravos; the first in each order
        {"BRAVO", 1, 1},
        {"c", 3, 5},
        {"bz", 3, -1},      // text order lands where it would sort; Id order needs a prefix
        {"zulu", 5, -1},    // letters beyond ASCII sort after z
        {"éz", -1, -1},
        {"éL", 5, 0},
    };
    TQzMemoryRows byId;
    byId.Load(pkg.Labels(), TQzMemoryOrder::ById);
    EXPECT_EQ(ids(byId), "0 1 2 3 4 10 ");
    for (const auto& s : searches) {
        SCOPED_TRACE(s.Search);
        EXPECT_EQ(rows.FindText(s.Search), s.ByText);
        EXPECT_EQ(byId.FindText(s.Search), s.ById);
    }
    EXPECT_EQ(rows.RowOfId(10), 3);
    EXPECT_EQ(rows.RowOfId(99), -1);

    // Messages and texts narrow the list to what holds the search text.
    TQzMemoryRows filtered;
    filtered.Load(pkg.Messages(), TQzMemoryOrder::ById, "RAV");
    EXPECT_EQ(ids(filtered), "1 2 ");
    filtered.Load(pkg.Messages(), TQzMemoryOrder::ById, "   ");
    EXPECT_EQ(filtered.Count(), 6);
}

}  // namespace
