#include "rtl/Collection.h"
#include "rtl/Component.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class TColumn : public TCollectionItem {
    QZ_CLASS(TColumn, TCollectionItem)

public:
    explicit TColumn(TCollection* collection) : TCollectionItem(collection) {}

    void SetWidth(Integer value)
    {
        FWidth = value;
        Changed(false);
    }
    void Assign(TPersistent* source) override
    {
        if (auto* column = dynamic_cast<TColumn*>(source)) {
            FTitle = column->FTitle;
            FWidth = column->FWidth;
        } else {
            TCollectionItem::Assign(source);
        }
    }
    AnsiString GetDisplayName() override { return FTitle.empty() ? TCollectionItem::GetDisplayName() : FTitle; }

    AnsiString FTitle;
    Integer FWidth = 64;

private:
    static void DeclareProperties(TClassBuilder<TColumn>& b)
    {
        b.Property("Title", &TColumn::FTitle);
        b.Property("Width", &TColumn::FWidth, &TColumn::SetWidth).Default(64);
    }
};

class TWideColumn : public TColumn {
    QZ_CLASS(TWideColumn, TColumn)

public:
    using TColumn::TColumn;
};

// Records every Update it receives.
class TColumns : public TCollection {
    QZ_CLASS(TColumns, TCollection)

public:
    explicit TColumns(TPersistent* owner, TMetaClass* itemClass = TColumn::ClassInfo())
        : TCollection(owner, itemClass)
    {
    }
    TColumn* Column(int index) const { return static_cast<TColumn*>(Items(index)); }
    std::vector<TCollectionItem*> Updates;

protected:
    void Update(TCollectionItem* item) override { Updates.push_back(item); }
};

class TGrid : public TComponent {
    QZ_CLASS(TGrid, TComponent)

public:
    explicit TGrid(TComponent* owner) : TComponent(owner), FColumns(std::make_unique<TColumns>(this)) {}
    TColumns* GetColumns() const { return FColumns.get(); }
    void SetColumns(TColumns* value) { FColumns->Assign(value); }

private:
    std::unique_ptr<TColumns> FColumns;

    static void DeclareProperties(TClassBuilder<TGrid>& b)
    {
        b.Property("Tag2", &TGrid::Tag);
        b.Property("Columns", &TGrid::GetColumns, &TGrid::SetColumns);
    }
};

std::vector<AnsiString> Titles(const TColumns& columns)
{
    std::vector<AnsiString> titles;
    for (int i = 0; i < columns.Count(); ++i)
        titles.push_back(columns.Column(i)->FTitle);
    return titles;
}

TColumns* Filled(TColumns* columns, std::initializer_list<const char*> titles)
{
    for (const char* title : titles)
        static_cast<TColumn*>(columns->Add())->FTitle = title;
    return columns;
}

TEST(Collection, ItemIDsIncreaseAndAreNeverReused)
{
    TColumns columns(nullptr);
    Filled(&columns, {"a", "b", "c"});
    EXPECT_EQ(columns.Items(2)->ID(), 2);
    columns.Delete(1);
    EXPECT_EQ(Titles(columns), (std::vector<AnsiString>{"a", "c"}));
    auto* d = columns.Add();
    EXPECT_EQ(d->ID(), 3);
    EXPECT_EQ(columns.FindItemID(3), d);
    EXPECT_EQ(columns.FindItemID(2), columns.Items(1));
    EXPECT_EQ(columns.FindItemID(1), nullptr);
    EXPECT_NE(dynamic_cast<TColumn*>(d), nullptr);

    try {
        columns.Items(3);
        ADD_FAILURE();
    } catch (const EListError& e) {
        EXPECT_EQ(e.Message(), "List index out of bounds (3)");
    }
    EXPECT_THROW(columns.Delete(-1), EListError);
    EXPECT_THROW(columns.Insert(4), EListError);
}

TEST(Collection, IndexMovesItems)
{
    TColumns columns(nullptr);
    Filled(&columns, {"a", "b", "c", "d"});
    columns.Items(0)->SetIndex(2);
    EXPECT_EQ(Titles(columns), (std::vector<AnsiString>{"b", "c", "a", "d"}));
    columns.Items(3)->SetIndex(0);
    EXPECT_EQ(Titles(columns), (std::vector<AnsiString>{"d", "b", "c", "a"}));
    static_cast<TColumn*>(columns.Insert(1))->FTitle = "new";
    EXPECT_EQ(Titles(columns), (std::vector<AnsiString>{"d", "new", "b", "c", "a"}));
    EXPECT_EQ(columns.Items(1)->Index(), 1);
    EXPECT_THROW(columns.Items(0)->SetIndex(5), EListError);
    EXPECT_EQ(columns.Column(0)->FTitle, "d");
}

TEST(Collection, UpdateComesOnceAfterTheOutermostEndUpdate)
{
    TColumns columns(nullptr);
    auto* first = static_cast<TColumn*>(columns.Add());
    first->SetWidth(10);
    first->SetIndex(0);   // no move, no change
    EXPECT_EQ(columns.Updates, (std::vector<TCollectionItem*>{nullptr, first}));

    columns.Updates.clear();
    columns.BeginUpdate();
    columns.Add();
    columns.BeginUpdate();
    columns.Insert(0);
    first->SetWidth(20);
    columns.Delete(2);
    columns.EndUpdate();
    EXPECT_TRUE(columns.Updates.empty());
    columns.EndUpdate();
    EXPECT_EQ(columns.Updates, (std::vector<TCollectionItem*>{nullptr}));

    columns.Updates.clear();
    columns.Items(0)->SetIndex(1);
    delete columns.Items(0);   // freeing an item removes it
    EXPECT_EQ(columns.Count(), 1);
    columns.Clear();
    columns.Clear();   // already empty: nothing changes
    EXPECT_EQ(columns.Updates, (std::vector<TCollectionItem*>{nullptr, nullptr, nullptr}));
    EXPECT_EQ(columns.UpdateCount(), 0);
}

TEST(Collection, ItemsMoveOnlyToCollectionsOfTheirClass)
{
    TColumns left(nullptr);
    TColumns right(nullptr);
    TColumns wide(nullptr, TWideColumn::ClassInfo());
    Filled(&left, {"a", "b"});
    Filled(&right, {"x"});
    TCollectionItem* b = left.Items(1);
    b->SetCollection(&right);
    EXPECT_EQ(Titles(left), (std::vector<AnsiString>{"a"}));
    EXPECT_EQ(Titles(right), (std::vector<AnsiString>{"x", "b"}));
    EXPECT_EQ(b->Collection(), &right);
    EXPECT_EQ(b->ID(), 1);   // numbered by its new collection

    EXPECT_THROW(b->SetCollection(&wide), EListError);
    EXPECT_EQ(b->Collection(), &right);
    b->SetCollection(nullptr);
    EXPECT_EQ(b->Index(), -1);
    EXPECT_EQ(b->GetNamePath(), "TColumn");
    delete b;

    EXPECT_THROW({ TCollection bad(TComponent::ClassInfo()); }, EInvalidOperation);
}

TEST(Collection, AssignCopiesItemsIntoItsOwnItemClass)
{
    TColumns source(nullptr);
    Filled(&source, {"a", "b"});
    source.Column(1)->FWidth = 7;
    TColumns wide(nullptr, TWideColumn::ClassInfo());
    Filled(&wide, {"old"});
    wide.Updates.clear();

    wide.Assign(&source);
    EXPECT_EQ(Titles(wide), (std::vector<AnsiString>{"a", "b"}));
    EXPECT_EQ(wide.Items(1)->ClassType(), TWideColumn::ClassInfo());
    EXPECT_EQ(wide.Column(1)->FWidth, 7);
    EXPECT_EQ(wide.Updates, (std::vector<TCollectionItem*>{nullptr}));

    TComponent stranger(nullptr);
    try {
        wide.Assign(&stranger);
        ADD_FAILURE();
    } catch (const EConvertError& e) {
        EXPECT_EQ(e.Message(), "Cannot assign a TComponent to a TColumns");
    }
    EXPECT_THROW(wide.Items(0)->Assign(nullptr), EConvertError);
}

TEST(Collection, NamePathsFollowTheOwningProperty)
{
    TComponent form(nullptr);
    auto* grid = new TGrid(&form);
    grid->SetName("Grid1");
    TColumns* columns = grid->GetColumns();
    Filled(columns, {"", "Price"});
    EXPECT_EQ(columns->GetNamePath(), "Grid1.Columns");
    EXPECT_EQ(columns->Items(1)->GetNamePath(), "Grid1.Columns[1]");
    EXPECT_EQ(columns->Items(1)->GetOwner(), columns);
    EXPECT_EQ(columns->Items(0)->GetDisplayName(), "TColumn");
    EXPECT_EQ(columns->Items(1)->GetDisplayName(), "Price");
    columns->SetPropName("Cols");
    EXPECT_EQ(columns->GetNamePath(), "Grid1.Cols");
    EXPECT_EQ(TColumns(nullptr).GetNamePath(), "TColumns");

    // Published item properties go through the item's setter.
    columns->Updates.clear();
    SetOrdProp(columns->Items(0), "Width", 99);
    EXPECT_EQ(columns->Column(0)->FWidth, 99);
    EXPECT_EQ(columns->Updates, (std::vector<TCollectionItem*>{columns->Items(0)}));

    TColumns copy(nullptr);
    Filled(&copy, {"x", "y", "z"});
    SetObjectProp(grid, "Columns", &copy);
    EXPECT_EQ(Titles(*grid->GetColumns()), (std::vector<AnsiString>{"x", "y", "z"}));
}

}  // namespace
