// The registration calls: what the host records and lists, in order, and
// what it keeps for the palette.

#include "TestComponents.h"
#include "designide/DesignEditors.h"

#include <gtest/gtest.h>

namespace {

// Registrations are global; each test starts from none.
class Registration : public ::testing::Test {
protected:
    void SetUp() override { ClearRegistrations(); }
    void TearDown() override { ClearRegistrations(); }
};

TPropertyEditorClass NamedPropertyEditor(const AnsiString& name)
{
    return {name, [](IDesigner*, int) -> std::unique_ptr<TPropertyEditor> { return nullptr; }};
}

TComponentEditorClass NamedComponentEditor(const AnsiString& name)
{
    return {name, [](TComponent*, IDesigner*) -> std::unique_ptr<TComponentEditor> { return nullptr; }};
}

TEST_F(Registration, EveryCallIsListedInOrderWithItsArgumentsUntilCleared)
{
    // Only the classes up to the last index count, as C++Builder passes them.
    TMetaClass* const editors[] = {ClassOf<TDtLabel>(), ClassOf<TDtTimer>(), ClassOf<TDtForm>()};
    TMetaClass* const streamable[] = {ClassOf<TDtFont>()};

    RegisterComponents("Dt Standard", {ClassOf<TDtControl>(), ClassOf<TDtButton>()});
    RegisterComponents("Dt Editors", editors, 1);
    RegisterPropertyEditor(TypeInfo_TDtShape(), nullptr, "", NamedPropertyEditor("TDtShapeProperty"));
    RegisterPropertyEditor(TypeInfo_Integer(), ClassOf<TDtButton>(), "Width", NamedPropertyEditor("TDtWideProperty"));
    RegisterComponentEditor(ClassOf<TDtForm>(), NamedComponentEditor("TDtFormEditor"));
    RegisterNoIcon({ClassOf<TDtBigFont>()});
    DesignIntf::RegisterClass(ClassOf<TDtBigFont>());
    RegisterClasses(streamable, 0);
    GroupDescendentsWith(ClassOf<TDtTimer>(), ClassOf<TDtControl>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TDtButton>(), "Hint", TPropertyEditorClass{});
    RegisterComponents("Empty", std::vector<TMetaClass*>{});

    const std::vector<AnsiString> expected = {
        "RegisterComponents\tDt Standard\tTDtControl,TDtButton\t1",
        "RegisterComponents\tDt Editors\tTDtLabel,TDtTimer\t1",
        "RegisterPropertyEditor\tTDtShape\tnil\t\tTDtShapeProperty",
        "RegisterPropertyEditor\tInteger\tTDtButton\tWidth\tTDtWideProperty",
        "RegisterComponentEditor\tTDtForm\tTDtFormEditor",
        "RegisterNoIcon\tTDtBigFont",
        "RegisterClass\tTDtBigFont",
        "RegisterClasses\tTDtFont",
        "GroupDescendentsWith\tTDtTimer\tTDtControl",
        "RegisterPropertyEditor\tString\tTDtButton\tHint\tnil",
        "RegisterComponents\tEmpty\t\t-1",
    };
    EXPECT_EQ(DesignRegistry().Listing(), expected);
    ASSERT_EQ(DesignRegistry().Records().size(), expected.size());
    EXPECT_EQ(DesignRegistry().Records()[3].Args, (std::vector<AnsiString>{"Integer", "TDtButton", "Width", "TDtWideProperty"}));
    EXPECT_EQ(DesignRegistry().FindPage("Dt Editors")->Classes.size(), 2u);
    EXPECT_TRUE(DesignRegistry().IsNoIcon(ClassOf<TDtBigFont>()));
    EXPECT_FALSE(DesignRegistry().IsNoIcon(ClassOf<TDtControl>()));

    // Clearing forgets every kind of call.
    ClearRegistrations();
    const TDesignRegistry& r = DesignRegistry();
    EXPECT_TRUE(r.Records().empty() && r.Pages().empty() && r.PropertyEditors().empty() && r.ComponentEditors().empty());
    EXPECT_TRUE(!r.IsNoIcon(ClassOf<TDtBigFont>()) && !r.GroupOf(ClassOf<TDtTimer>()));
}

TEST_F(Registration, PalettePagesKeepTheirClassesInOrderAndAPageNamedAgainGrows)
{
    RegisterComponents("Dt Standard", {ClassOf<TDtButton>(), ClassOf<TDtControl>()});
    RegisterComponents("Dt Extra", {ClassOf<TDtTimer>()});
    RegisterComponents("dt standard", {ClassOf<TDtLabel>()});

    const auto& pages = DesignRegistry().Pages();
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].Name, "Dt Standard");
    EXPECT_EQ(pages[0].Classes,
              (std::vector<TMetaClass*>{ClassOf<TDtButton>(), ClassOf<TDtControl>(), ClassOf<TDtLabel>()}));
    EXPECT_EQ(pages[1].Name, "Dt Extra");
    EXPECT_EQ(DesignRegistry().FindPage("DT EXTRA"), &pages[1]);
    EXPECT_EQ(DesignRegistry().FindPage("Missing"), nullptr);
    // Palette classes can be streamed.
    EXPECT_EQ(GetClass("TDtLabel"), ClassOf<TDtLabel>());
    // Each call is still listed on its own.
    EXPECT_EQ(DesignRegistry().Records().size(), 3u);
}

class TDtOwnProperty : public TStringProperty {
public:
    using TStringProperty::TStringProperty;
};

class TDtOwnEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
};

TEST_F(Registration, EditorClassesAreNamedAfterTheirClassAndMakeThem)
{
    const TPropertyEditorClass property = EditorClass<TDtOwnProperty>();
    const TComponentEditorClass component = EditorClass<TDtOwnEditor>();
    EXPECT_EQ(property.ClassName, "TDtOwnProperty");
    EXPECT_EQ(component.ClassName, "TDtOwnEditor");
    EXPECT_EQ(EditorClass<TDtOwnProperty>("TQzOther").ClassName, "TQzOther");

    EXPECT_NE(dynamic_cast<TDtOwnProperty*>(property.Create(nullptr, 2).get()), nullptr);
    TDtTimer timer(nullptr);
    const std::unique_ptr<TComponentEditor> editor = component.Create(&timer, nullptr);
    EXPECT_NE(dynamic_cast<TDtOwnEditor*>(editor.get()), nullptr);
    EXPECT_EQ(editor->Component(), &timer);
}

TEST_F(Registration, GroupsReachDescendantsAndTheLatestGroupingHolds)
{
    GroupDescendentsWith(ClassOf<TDtControl>(), ClassOf<TDtForm>());
    EXPECT_EQ(DesignRegistry().GroupOf(ClassOf<TDtButton>()), ClassOf<TDtForm>());
    EXPECT_EQ(DesignRegistry().GroupOf(ClassOf<TDtTimer>()), nullptr);

    GroupDescendentsWith(ClassOf<TDtButton>(), ClassOf<TDtTimer>());
    EXPECT_EQ(DesignRegistry().GroupOf(ClassOf<TDtButton>()), ClassOf<TDtTimer>());
    EXPECT_EQ(DesignRegistry().GroupOf(ClassOf<TDtLabel>()), ClassOf<TDtForm>());
}

TEST_F(Registration, NilArgumentsAreRefusedAndRecordNothing)
{
    TMetaClass* const withNil[] = {ClassOf<TDtControl>(), nullptr};
    const std::vector<std::pair<const char*, std::function<void()>>> calls = {
        {"RegisterComponents", [&] { RegisterComponents("Dt", withNil, 1); }},
        {"RegisterNoIcon", [&] { RegisterNoIcon(withNil, 1); }},
        {"RegisterClass", [] { DesignIntf::RegisterClass(nullptr); }},
        {"RegisterClasses", [&] { RegisterClasses(withNil, 1); }},
        {"GroupDescendentsWith", [] { GroupDescendentsWith(ClassOf<TDtTimer>(), nullptr); }},
        {"RegisterPropertyEditor", [] { RegisterPropertyEditor(nullptr, nullptr, "", NamedPropertyEditor("TX")); }},
        {"RegisterComponentEditor", [] { RegisterComponentEditor(ClassOf<TDtForm>(), TComponentEditorClass{}); }},
    };
    for (const auto& [name, call] : calls) {
        try {
            call();
            ADD_FAILURE() << name << " accepted a nil argument";
        } catch (const EAssertionFailed& e) {
            EXPECT_NE(e.Message().find(name), AnsiString::npos) << e.Message();
        }
    }
    EXPECT_TRUE(DesignRegistry().Records().empty());
    EXPECT_TRUE(DesignRegistry().Pages().empty());
}

}  // namespace
