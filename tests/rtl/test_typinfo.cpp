#include "rtl/Component.h"
#include "rtl/TypInfo.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

enum TTestAlign { taNone, taTop, taBottom, taClient };
enum TTestAnchor { akLeft, akTop, akRight, akBottom };
using TTestAnchors = TEnumSet<TTestAnchor>;

const TTypeInfo* TypeInfo_TTestAlign()
{
    static const TTypeInfo* t = DefineEnumType("TTestAlign", {"taNone", "taTop", "taBottom", "taClient"});
    return t;
}

const TTypeInfo* TypeInfo_TTestAnchors()
{
    static const TTypeInfo* t =
        DefineSetType("TTestAnchors", DefineEnumType("TTestAnchor", {"akLeft", "akTop", "akRight", "akBottom"}));
    return t;
}

const TTypeInfo* TypeInfo_TTestColor()
{
    static const TTypeInfo* t = DefineIntegerType("TTestColor", INT32_MIN, INT32_MAX);
    return t;
}

class TWidget : public TComponent {
    QZ_CLASS(TWidget, TComponent)

public:
    explicit TWidget(TComponent* owner) : TComponent(owner) {}

    const AnsiString& GetCaption() const { return FCaption; }
    void SetCaption(const AnsiString& value)
    {
        FCaption = value;
        ++CaptionWrites;
    }
    Integer GetArea() const { return FWidth * FHeight; }

    AnsiString FCaption;
    int CaptionWrites = 0;
    Integer FWidth = 50;
    Integer FHeight = 10;
    bool FVisible = true;
    TTestAlign FAlign = taNone;
    TTestAnchors FAnchors{akLeft, akTop};
    Integer FColor = 0x1F;
    double FRatio = 0;
    Currency FPrice = 0;
    Int64 FBig = 0;
    char FHotKey = 'A';
    Variant FValue;
    TDateTime FWhen = 0;
    AnsiString FOnClick;
    TWidget* FBuddy = nullptr;

private:
    bool IsCaptionStored() const { return FCaption != "Widget"; }

    static void DeclareProperties(TClassBuilder<TWidget>& b)
    {
        b.Property("Caption", &TWidget::GetCaption, &TWidget::SetCaption).Stored(&TWidget::IsCaptionStored);
        b.Property("Width", &TWidget::FWidth).Default(50);
        b.Property("Height", &TWidget::FHeight);
        b.Property("Area", &TWidget::GetArea);
        b.Property("Visible", &TWidget::FVisible).Default(true);
        b.Enum("Align", TypeInfo_TTestAlign(), &TWidget::FAlign, nullptr, taNone);
        b.Set("Anchors", TypeInfo_TTestAnchors(), &TWidget::FAnchors, nullptr, TTestAnchors{akLeft, akTop});
        b.Property("Color", TypeInfo_TTestColor(), &TWidget::FColor).Default(0x1F);
        b.Property("Ratio", &TWidget::FRatio);
        b.Property("Price", TypeInfo_Currency(), &TWidget::FPrice);
        b.Property("Big", &TWidget::FBig);
        b.Property("HotKey", &TWidget::FHotKey);
        b.Property("Value", &TWidget::FValue);
        b.Property("When", TypeInfo_TDateTime(), &TWidget::FWhen);
        b.Property("Buddy", &TWidget::FBuddy);
        b.Event("OnClick", &TWidget::FOnClick);
        b.Property(
             "Hidden", [](TWidget& w) { return !w.FVisible; }, [](TWidget& w, bool v) { w.FVisible = !v; })
            .Stored(false);
    }
};

class TFancyWidget : public TWidget {
    QZ_CLASS(TFancyWidget, TWidget)

public:
    explicit TFancyWidget(TComponent* owner) : TWidget(owner) { FWidth = 80; }
    AnsiString FStyle;

private:
    static void DeclareProperties(TClassBuilder<TFancyWidget>& b)
    {
        b.Property("Style", &TFancyWidget::FStyle);
        b.Redeclare("width").Default(80);
        b.Redeclare("Caption").Stored(true);
    }
};

// Declares no properties of its own.
class TPlainWidget : public TFancyWidget {
    QZ_CLASS(TPlainWidget, TFancyWidget)

public:
    using TFancyWidget::TFancyWidget;
};

class TAbstractWidget : public TComponent {
    QZ_CLASS(TAbstractWidget, TComponent)

public:
    using TComponent::TComponent;
    virtual void Paint() = 0;
};

// Two classes naming each other as property types.
class TTestPage;
class TTestBook : public TComponent {
    QZ_CLASS(TTestBook, TComponent)
public:
    using TComponent::TComponent;
    TTestPage* FActivePage = nullptr;
    static void DeclareProperties(TClassBuilder<TTestBook>& b);
};

class TTestPage : public TComponent {
    QZ_CLASS(TTestPage, TComponent)
public:
    using TComponent::TComponent;
    TTestBook* FBook = nullptr;
    static void DeclareProperties(TClassBuilder<TTestPage>& b) { b.Property("Book", &TTestPage::FBook); }
};

void TTestBook::DeclareProperties(TClassBuilder<TTestBook>& b)
{
    b.Property("ActivePage", &TTestBook::FActivePage);
}

std::vector<AnsiString> Names(const std::vector<const TPropInfo*>& props)
{
    std::vector<AnsiString> names;
    for (const TPropInfo* p : props)
        names.push_back(p->Name);
    return names;
}

template <class F>
AnsiString PropertyError(F&& action)
{
    try {
        action();
    } catch (const EPropertyError& e) {
        return e.Message();
    }
    return "no error";
}

TEST(TypInfo, PropertyListPutsAncestorsFirstAndRedeclaredOnesInPlace)
{
    const std::vector<AnsiString> widget = {"Name",  "Tag",  "Caption", "Width", "Height", "Area",
                                            "Visible", "Align", "Anchors", "Color", "Ratio", "Price",
                                            "Big",   "HotKey", "Value", "When",  "Buddy",  "OnClick", "Hidden"};
    EXPECT_EQ(Names(GetPropList(TWidget::ClassInfo())), widget);

    std::vector<AnsiString> fancy = widget;
    fancy.push_back("Style");
    EXPECT_EQ(Names(GetPropList(TFancyWidget::ClassInfo())), fancy);
    EXPECT_EQ(Names(GetPropList(TPlainWidget::ClassInfo())), fancy);
    EXPECT_EQ(Names(TFancyWidget::ClassInfo()->DeclaredProperties()),
              (std::vector<AnsiString>{"Style", "Width", "Caption"}));
    EXPECT_TRUE(TPlainWidget::ClassInfo()->DeclaredProperties().empty());

    const TPropInfo* width = GetPropInfo(TFancyWidget::ClassInfo(), "Width");
    EXPECT_EQ(width->Default, 80);
    EXPECT_EQ(width->DeclaringClass, TFancyWidget::ClassInfo());
    EXPECT_EQ(width->NameIndex, 3);
    EXPECT_EQ(GetPropInfo(TWidget::ClassInfo(), "Width")->Default, 50);
    EXPECT_EQ(GetPropInfo(TPlainWidget::ClassInfo(), "Width"), width);
}

TEST(TypInfo, FindsPropertiesCaseInsensitivelyThroughAncestors)
{
    TFancyWidget w(nullptr);
    EXPECT_EQ(GetPropInfo(&w, "CAPTION")->Name, "Caption");
    EXPECT_EQ(GetPropInfo(&w, "tag")->DeclaringClass, TComponent::ClassInfo());
    EXPECT_EQ(GetPropInfo(&w, "Missing"), nullptr);
    EXPECT_TRUE(IsPublishedProp(&w, "style"));
    EXPECT_FALSE(IsPublishedProp(TWidget::ClassInfo(), "Style"));
    EXPECT_EQ(PropertyError([&] { GetStrProp(&w, "Missing"); }), "Property Missing does not exist");
}

TEST(TypInfo, DeducesTypesFromAccessors)
{
    const std::pair<const char*, const TTypeInfo*> cases[] = {
        {"Caption", TypeInfo_String()},  {"Width", TypeInfo_Integer()},         {"Visible", TypeInfo_Boolean()},
        {"Ratio", TypeInfo_Double()},    {"Big", TypeInfo_Int64()},             {"HotKey", TypeInfo_Char()},
        {"Value", TypeInfo_Variant()},   {"OnClick", TypeInfo_TNotifyEvent()},  {"Name", TypeInfo_TComponentName()},
        {"Buddy", TWidget::ClassInfo()->TypeInfo()},
    };
    for (const auto& [name, type] : cases)
        EXPECT_EQ(GetPropInfo(TWidget::ClassInfo(), name)->PropType, type) << name;
    EXPECT_EQ(TWidget::ClassInfo()->TypeInfo()->ClassType, TWidget::ClassInfo());
}

TEST(TypInfo, ValuesTravelThroughEveryKind)
{
    TWidget w(nullptr);
    struct TCase {
        const char* Name;
        Variant Value;
        Variant Expected;
    };
    const TCase cases[] = {
        {"Caption", "Hello", "Hello"},       {"Width", "120", 120},
        {"Visible", false, false},           {"Visible", "True", true},
        {"Align", "taClient", "taClient"},   {"Align", 2, "taBottom"},
        {"Anchors", "[akRight]", "akRight"}, {"Color", -1, -1},
        {"Ratio", 0.25, 0.25},               {"Big", Int64(1) << 40, Int64(1) << 40},
        {"HotKey", 66, 66},                  {"Value", "any", "any"},
        {"OnClick", "Button1Click", "Button1Click"}, {"Hidden", true, true},
    };
    for (const auto& c : cases) {
        SetPropValue(&w, c.Name, c.Value);
        EXPECT_EQ(GetPropValue(&w, c.Name), c.Expected) << c.Name;
    }
    EXPECT_EQ(w.CaptionWrites, 1);
    EXPECT_EQ(w.FAlign, taBottom);
    EXPECT_EQ(w.FAnchors, TTestAnchors{akRight});
    EXPECT_EQ(GetPropValue(&w, "Align", false), 2);

    SetPropValue(&w, "When", VarFromDateTime(45000.5));
    EXPECT_EQ(GetPropValue(&w, "When").VarType(), varDate);
    EXPECT_EQ(w.FWhen, 45000.5);
}

TEST(TypInfo, CurrencyTravelsAsItsValue)
{
    TWidget w(nullptr);
    const TPropInfo* price = GetPropInfo(&w, "Price");
    SetFloatProp(&w, price, 1.5L);
    EXPECT_EQ(w.FPrice, 15000);
    w.FPrice = 12345;
    EXPECT_EQ(GetFloatProp(&w, price), 1.2345L);
}

TEST(TypInfo, EnumerationsByName)
{
    const TTypeInfo* align = TypeInfo_TTestAlign();
    EXPECT_EQ(GetEnumName(align, 3), "taClient");
    EXPECT_EQ(GetEnumName(align, 9), "9");
    EXPECT_EQ(GetEnumValue(align, "TACLIENT"), 3);
    EXPECT_EQ(GetEnumValue(align, "taLeft"), -1);
    EXPECT_EQ(GetEnumName(TypeInfo_Boolean(), 1), "True");
    EXPECT_EQ(GetEnumValue(TypeInfo_Boolean(), "false"), 0);

    TWidget w(nullptr);
    SetEnumProp(&w, "Align", "tatop");
    EXPECT_EQ(GetEnumProp(&w, "Align"), "taTop");
    EXPECT_EQ(PropertyError([&] { SetEnumProp(&w, "Align", "taLeft"); }), "Invalid property value");
    EXPECT_EQ(PropertyError([&] { SetOrdProp(&w, "Align", 4); }), "Invalid property value");
    EXPECT_EQ(PropertyError([&] { SetOrdProp(&w, "Visible", -1); }), "Invalid property value");
    EXPECT_EQ(w.FAlign, taTop);
}

TEST(TypInfo, SetsByName)
{
    const TTypeInfo* anchors = TypeInfo_TTestAnchors();
    EXPECT_EQ(SetToString(anchors, 0b1011), "akLeft,akTop,akBottom");
    EXPECT_EQ(SetToString(anchors, 0, true), "[]");
    EXPECT_EQ(StringToSet(anchors, " [ akLeft , AKBOTTOM ] "), 0b1001);
    EXPECT_EQ(StringToSet(anchors, "[]"), 0);
    EXPECT_THROW(StringToSet(anchors, "akLeft,akMiddle"), EPropertyError);
    EXPECT_THROW(StringToSet(anchors, "[akLeft"), EPropertyError);

    TWidget w(nullptr);
    SetSetProp(&w, "Anchors", "akTop,akRight");
    EXPECT_EQ(w.FAnchors, (TTestAnchors{akTop, akRight}));
    EXPECT_EQ(GetSetProp(&w, "Anchors", true), "[akTop,akRight]");
    EXPECT_EQ(GetOrdProp(&w, "Anchors"), 0b0110);
    EXPECT_EQ(PropertyError([&] { SetOrdProp(&w, "Anchors", 0b10000); }), "Invalid property value");
}

TEST(TypInfo, DefaultAndStoredDecideWhatIsWritten)
{
    TFancyWidget w(nullptr);
    const auto isDefault = [&](const char* name) { return IsDefaultPropValue(&w, GetPropInfo(&w, name)); };
    const auto isStored = [&](const char* name) { return IsStoredProp(&w, GetPropInfo(&w, name)); };

    // Fresh values: the redeclared Width default is the descendant's.
    for (const char* name : {"Caption", "Width", "Visible", "Align", "Anchors", "Color", "Ratio", "Price", "Big",
                             "Value", "When", "Buddy", "OnClick", "Tag", "Name"})
        EXPECT_TRUE(isDefault(name)) << name;
    EXPECT_FALSE(isDefault("Height"));   // no default: always written
    EXPECT_FALSE(isDefault("HotKey"));

    w.FWidth = 50;
    w.FAnchors = {};
    w.FRatio = 0.5;
    w.FBuddy = &w;
    w.FValue = Null();
    for (const char* name : {"Width", "Anchors", "Ratio", "Buddy", "Value"})
        EXPECT_FALSE(isDefault(name)) << name;

    EXPECT_FALSE(isStored("Name"));
    EXPECT_FALSE(isStored("Hidden"));
    EXPECT_TRUE(isStored("Tag"));
    TWidget plain(nullptr);
    plain.FCaption = "Widget";
    EXPECT_FALSE(IsStoredProp(&plain, GetPropInfo(&plain, "Caption")));
    w.FCaption = "Widget";
    EXPECT_TRUE(isStored("Caption"));   // redeclared as always stored
}

TEST(TypInfo, RejectsWrongKindsReadOnlyPropertiesAndForeignObjects)
{
    TWidget w(nullptr);
    const TPropInfo* area = GetPropInfo(&w, "Area");
    EXPECT_FALSE(area->SetProc);
    EXPECT_EQ(GetOrdProp(&w, area), 500);
    EXPECT_EQ(PropertyError([&] { SetOrdProp(&w, area, 1); }), "Property Area is read-only");
    EXPECT_EQ(PropertyError([&] { GetStrProp(&w, "Width"); }), "Invalid property type: Integer");
    EXPECT_EQ(PropertyError([&] { GetOrdProp(&w, "Caption"); }), "Invalid property type: AnsiString");
    EXPECT_EQ(PropertyError([&] { GetPropValue(&w, "Buddy"); }), "Invalid property type: TWidget");

    TComponent other(nullptr);
    TPlainWidget buddy(nullptr);
    EXPECT_THROW(SetObjectProp(&w, "Buddy", &other), EPropertyError);
    SetObjectProp(&w, "Buddy", &buddy);
    EXPECT_EQ(GetObjectProp(&w, "Buddy"), &buddy);
    SetObjectProp(&w, "Buddy", nullptr);
    EXPECT_EQ(w.FBuddy, nullptr);
    // A property of another class is not applied to this object.
    EXPECT_THROW(GetStrProp(&other, GetPropInfo(&w, "Caption")), EPropertyError);
}

TEST(TypInfo, ClassRegistryFindsByNameAndRegistersAncestors)
{
    RegisterClass(TPlainWidget::ClassInfo());
    EXPECT_EQ(FindClass("tplainwidget"), TPlainWidget::ClassInfo());
    EXPECT_EQ(GetClass("TFancyWidget"), TFancyWidget::ClassInfo());
    EXPECT_EQ(GetClass("TComponent"), TComponent::ClassInfo());
    EXPECT_EQ(GetClass("TPersistent"), TPersistent::ClassInfo());
    EXPECT_EQ(GetClass("TObject"), nullptr);

    RegisterClass(TPlainWidget::ClassInfo());   // again: no harm
    TMetaClass impostor("TPlainWidget", TComponent::ClassInfo());
    EXPECT_THROW(RegisterClass(&impostor), EFilerError);

    UnRegisterClass(TPlainWidget::ClassInfo());
    EXPECT_EQ(GetClass("TPlainWidget"), nullptr);
    EXPECT_THROW(FindClass("TPlainWidget"), EClassNotFound);
    try {
        FindClass("TNoSuch");
    } catch (const EClassNotFound& e) {
        EXPECT_EQ(e.Message(), "Class TNoSuch not found");
    }
    UnRegisterClass(TFancyWidget::ClassInfo());
    UnRegisterClass(TWidget::ClassInfo());
}

TEST(TypInfo, MetaclassesCreateInstancesAndCompare)
{
    TComponent owner(nullptr);
    TComponent* made = TFancyWidget::ClassInfo()->Create(&owner);
    EXPECT_EQ(made->Owner(), &owner);
    EXPECT_EQ(made->ClassName(), "TFancyWidget");   // through a base pointer
    EXPECT_TRUE(made->InheritsFrom(TWidget::ClassInfo()));
    EXPECT_FALSE(made->InheritsFrom(TPlainWidget::ClassInfo()));
    EXPECT_EQ(static_cast<TWidget*>(made)->FWidth, 80);

    EXPECT_TRUE(TPlainWidget::ClassInfo()->CanCreate());
    EXPECT_FALSE(TAbstractWidget::ClassInfo()->CanCreate());
    EXPECT_FALSE(TPersistent::ClassInfo()->CanCreate());
    EXPECT_THROW(TAbstractWidget::ClassInfo()->Create(&owner), EInvalidOperation);
    EXPECT_EQ(owner.ComponentCount(), 1);
}

TEST(TypInfo, ClassesMayNameEachOtherAsPropertyTypes)
{
    EXPECT_EQ(GetPropInfo(TTestBook::ClassInfo(), "ActivePage")->PropType, TTestPage::ClassInfo()->TypeInfo());
    EXPECT_EQ(GetPropInfo(TTestPage::ClassInfo(), "Book")->PropType, TTestBook::ClassInfo()->TypeInfo());
}

}  // namespace
