// The variables tree: items found by their '\' paths, folders made on the
// way, typed values converted when read as another type or when the item
// changes type, and subtrees freed with their folder.

#include "runtime/model/Qzmain.h"

#include <gtest/gtest.h>

namespace {

TEST(VarsPackage, PathsFindItemsWhateverTheCase)
{
    TQzPkgVars vars(nullptr);
    TQzPkgVarsItem* copies = vars.Add("Setup\\Printer\\Copies", qvInteger);
    ASSERT_NE(copies, nullptr);
    EXPECT_EQ(copies->Path(), "Setup\\Printer\\Copies");
    EXPECT_EQ(vars.Find("setup\\PRINTER\\copies"), copies);
    // The folders on the way were made, in order.
    TQzPkgVarsItem* setup = vars.Find("Setup");
    ASSERT_NE(setup, nullptr);
    EXPECT_TRUE(setup->IsFolder());
    EXPECT_EQ(vars.GetFirst(), setup);
    EXPECT_EQ(setup->GetFirstChild(), vars.Find("Setup\\Printer"));
    EXPECT_EQ(copies->Parent(), vars.Find("Setup\\Printer"));

    const struct {
        const char* Path;
    } misses[] = {{""}, {"Copies"}, {"Setup\\Copies"}, {"Setup\\Printer\\Copies\\More"}, {"Setup\\"}, {"\\Setup"}};
    for (const auto& m : misses)
        EXPECT_EQ(vars.Find(m.Path), nullptr) << m.Path;
}

TEST(VarsPackage, RefusedPathsAddNothing)
{
    TQzPkgVars vars(nullptr);
    vars.Add("A\\Value", qvString);
    const struct {
        const char* Path;
        TQzPkgVarsItemType Type;
    } refused[] = {
        {"A\\Value", qvInteger},          // already there
        {"a\\VALUE", qvFolder},           // the same, other case
        {"A\\Value\\Below", qvString},    // a variable has no children
        {"B\\", qvString},                // empty name
        {"", qvBoolean},
        {"C\\\\D", qvBoolean},            // empty folder name on the way
    };
    for (const auto& r : refused)
        EXPECT_THROW(vars.Add(r.Path, r.Type), EQzPkgError) << r.Path;
    EXPECT_EQ(vars.Count(), 1);
    EXPECT_EQ(vars.Find("A")->Count(), 1);
    EXPECT_EQ(vars.Find("C"), nullptr);
}

TEST(VarsPackage, ValuesReadAsAnotherTypeAreConverted)
{
    TQzPkgVars vars(nullptr);
    const struct {
        const char* Case;
        TQzPkgVarsItemType Type;
        std::function<void(TQzPkgVarsItem*)> Set;
        bool B;
        Integer I;
        Extended F;
        const char* S;
    } rows[] = {
        {"true", qvBoolean, [](auto* i) { i->SetVBoolean(true); }, true, 1, 1, "True"},
        {"int", qvInteger, [](auto* i) { i->SetVInteger(-7); }, true, -7, -7, "-7"},
        {"zero", qvInteger, [](auto* i) { i->SetVInteger(0); }, false, 0, 0, "0"},
        {"float", qvFloat, [](auto* i) { i->SetVFloat(2.5L); }, true, 3, 2.5L, "2.5"},
        {"neg float", qvFloat, [](auto* i) { i->SetVFloat(-2.5L); }, true, -3, -2.5L, "-2.5"},
        {"huge float", qvFloat, [](auto* i) { i->SetVFloat(1e20L); }, true, 2147483647, 1e20L, "1E20"},
        {"numeric text", qvString, [](auto* i) { i->SetVString(" 12.25 "); }, true, 12, 12.25L, " 12.25 "},
        {"true text", qvString, [](auto* i) { i->SetVString("TRUE"); }, true, 0, 0, "TRUE"},
        {"other text", qvString, [](auto* i) { i->SetVString("abc"); }, false, 0, 0, "abc"},
        {"set int on text", qvString, [](auto* i) { i->SetVInteger(42); }, true, 42, 42, "42"},
        {"set text on int", qvInteger, [](auto* i) { i->SetVString("9.6"); }, true, 10, 10, "10"},
        {"set text on bool", qvBoolean, [](auto* i) { i->SetVString("0"); }, false, 0, 0, "False"},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.Case);
        TQzPkgVarsItem* item = vars.Add(r.Case, r.Type);
        r.Set(item);
        EXPECT_EQ(item->GetVBoolean(), r.B);
        EXPECT_EQ(item->GetVInteger(), r.I);
        EXPECT_EQ(item->GetVFloat(), r.F);
        EXPECT_EQ(item->GetVString(), r.S);
    }
}

TEST(VarsPackage, ChangingTheTypeKeepsTheValueItCanAndAFolderHoldsNone)
{
    TQzPkgVars vars(nullptr);
    TQzPkgVarsItem* item = vars.Add("N", qvString);
    item->SetVString("3.75");
    item->SetItemType(qvFloat);
    EXPECT_EQ(item->GetVFloat(), 3.75L);
    item->SetItemType(qvInteger);
    EXPECT_EQ(item->GetVInteger(), 4);
    item->SetItemType(qvBoolean);
    EXPECT_TRUE(item->GetVBoolean());
    item->SetItemType(qvString);
    EXPECT_EQ(item->GetVString(), "True");

    item->SetItemType(qvFolder);
    EXPECT_EQ(item->GetVString(), "");
    EXPECT_THROW(item->SetVInteger(1), EQzPkgError);
    vars.Add("N\\Inside", qvInteger);
    EXPECT_EQ(item->Count(), 1);
    // A folder turned into a variable loses what it held.
    item->SetItemType(qvInteger);
    EXPECT_EQ(item->Count(), 0);
    EXPECT_EQ(item->GetVInteger(), 0);
    EXPECT_EQ(vars.Find("N\\Inside"), nullptr);
}

TEST(VarsPackage, FreeingAFolderFreesItsSubtreeAndReportsOneChange)
{
    TQzPkgVars vars(nullptr);
    vars.Add("A\\B\\C", qvInteger);
    vars.Add("A\\B\\D", qvString);
    TQzPkgVarsItem* keep = vars.Add("A\\E", qvBoolean);
    struct TCounter : IQzPkgLink {
        int Changes = 0;
        void PkgNotify(TQzPkgInfo*, int event, void*) override { Changes += event == peChange; }
    } counter;
    vars.AddLink(&counter);
    delete vars.Find("A\\B");
    EXPECT_EQ(counter.Changes, 1);
    EXPECT_EQ(vars.Find("A\\B\\C"), nullptr);
    EXPECT_EQ(vars.Find("A")->Count(), 1);
    EXPECT_EQ(vars.Find("A")->GetFirstChild(), keep);
    EXPECT_EQ(keep->GetNextSibling(), nullptr);
    vars.Clear();
    EXPECT_EQ(counter.Changes, 2);
    EXPECT_TRUE(vars.IsEmpty());
    vars.RemoveLink(&counter);
}

TEST(VarsPackage, RenamingAcceptsAnyTextAndAPathFindsTheFirst)
{
    TQzPkgVars vars(nullptr);
    TQzPkgVarsItem* first = vars.Add("X", qvInteger);
    TQzPkgVarsItem* second = vars.Add("Y", qvInteger);
    second->SetIdent("x");
    EXPECT_EQ(vars.Find("X"), first);
    second->SetIdent("");
    EXPECT_EQ(second->Ident(), "");
    EXPECT_EQ(first->GetNextSibling(), second);
}

TEST(VarsPackage, DeepNestingIsRefused)
{
    TQzPkgVars vars(nullptr);
    AnsiString path = "v";
    for (int i = 0; i < TQzPkgVars::MaxDepth; ++i)
        path = "f\\" + path;
    EXPECT_THROW(vars.Add(path, qvInteger), EQzPkgError);
    EXPECT_TRUE(vars.IsEmpty());
}

}  // namespace
