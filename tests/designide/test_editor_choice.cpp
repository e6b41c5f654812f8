// Which editor a property and a component get, from the registrations.

#include "TestComponents.h"
#include "designide/DesignEditors.h"

#include <gtest/gtest.h>

namespace {

struct TBinding {
    const TTypeInfo* Type;
    TMetaClass* Component;
    const char* Property;
    const char* Editor;   // nullptr: hides the property
};

struct TChoiceCase {
    const char* Name;
    std::vector<TBinding> Bindings;
    TMetaClass* Component;
    const char* Property;
    const char* Expected;   // "" when the property is hidden
};

TPropertyEditorClass Named(const char* name)
{
    return name ? EditorClass<TStringProperty>(name) : TPropertyEditorClass{};
}

class EditorChoice : public ::testing::Test {
protected:
    void SetUp() override { ClearRegistrations(); }
    void TearDown() override { ClearRegistrations(); }
};

TEST_F(EditorChoice, TheMostSpecificBindingWins)
{
    TMetaClass* const control = ClassOf<TDtControl>();
    TMetaClass* const button = ClassOf<TDtButton>();
    TMetaClass* const label = ClassOf<TDtLabel>();
    const TTypeInfo* const integer = TypeInfo_Integer();
    const TTypeInfo* const font = ClassOf<TDtFont>()->TypeInfo();
    const TTypeInfo* const bigFont = ClassOf<TDtBigFont>()->TypeInfo();
    const TTypeInfo* const persistent = ClassOf<TPersistent>()->TypeInfo();

    const std::vector<TChoiceCase> cases = {
        {"nothing bound: the kind's default", {}, button, "Width", "TIntegerProperty"},
        {"a type bound for everyone", {{integer, nullptr, "", "A"}}, button, "Width", "A"},
        {"another type does not apply", {{TypeInfo_String(), nullptr, "", "A"}}, button, "Width", "TIntegerProperty"},
        {"a component class over any component",
         {{integer, control, "", "B"}, {integer, nullptr, "", "A"}}, button, "Width", "B"},
        {"the nearest component class", {{integer, button, "", "C"}, {integer, control, "", "B"}}, button, "Width", "C"},
        {"a sibling class does not apply", {{integer, button, "", "C"}, {integer, control, "", "B"}}, label, "Width", "B"},
        {"a named property over every property",
         {{integer, nullptr, "width", "D"}, {integer, button, "", "C"}}, button, "Width", "D"},
        {"another name does not apply", {{integer, nullptr, "Height", "D"}}, button, "Width", "TIntegerProperty"},
        {"named on the class over named on any", {{integer, control, "Width", "E"}, {integer, nullptr, "Width", "D"}},
         button, "Width", "E"},
        {"the later of equals", {{integer, nullptr, "", "A"}, {integer, nullptr, "", "A2"}}, button, "Width", "A2"},
        {"the later of equals, reversed", {{integer, nullptr, "", "A2"}, {integer, nullptr, "", "A"}}, button, "Width", "A"},
        {"an ancestor class type applies", {{persistent, nullptr, "", "P"}}, button, "Font", "P"},
        {"the exact class type over an ancestor", {{font, nullptr, "", "F"}, {persistent, nullptr, "", "P"}}, button,
         "Font", "F"},
        {"the nearest ancestor type", {{persistent, nullptr, "", "P"}, {font, nullptr, "", "F"}}, label, "TitleFont", "F"},
        {"the exact type over a named ancestor type",
         {{bigFont, nullptr, "", "G"}, {font, label, "TitleFont", "H"}}, label, "TitleFont", "G"},
        {"a descendant type does not apply", {{bigFont, nullptr, "", "G"}}, button, "Font", "TClassProperty"},
        {"a nil editor hides the property", {{integer, button, "Width", nullptr}, {integer, nullptr, "", "A"}}, button,
         "Width", ""},
        {"component references", {}, button, "Buddy", "TComponentProperty"},
        {"Boolean", {}, button, "Visible", "TBoolProperty"},
        {"the component name", {}, button, "Name", "TComponentNameProperty"},
    };

    for (const TChoiceCase& c : cases) {
        ClearRegistrations();
        for (const TBinding& b : c.Bindings)
            RegisterPropertyEditor(b.Type, b.Component, b.Property, Named(b.Editor));
        const TPropInfo* prop = GetPropInfo(c.Component, c.Property);
        ASSERT_NE(prop, nullptr) << c.Name;
        EXPECT_EQ(GetEditorClass(c.Component, prop).ClassName, c.Expected) << c.Name;
    }
}

TEST_F(EditorChoice, RegisteredEditorsServeTheInspectorAndHiddenPropertiesAreLeftOut)
{
    RegisterPropertyEditor(TypeInfo_Integer(), ClassOf<TDtControl>(), "Width", EditorClass<TEnumProperty>("TDtWide"));
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TDtButton>(), "Hint", {});
    auto designer = MakeTestDesigner();
    auto editors = EditorsFor({designer->GetComponent("Button1")}, designer.get());
    EXPECT_EQ(editors.count("Hint"), 0u);
    ASSERT_EQ(editors.count("Width"), 1u);
    EXPECT_NE(dynamic_cast<TEnumProperty*>(editors.at("Width").get()), nullptr);

    // The button and the timer differ in their Tag editor: not shown together.
    RegisterPropertyEditor(TypeInfo_Integer(), ClassOf<TDtTimer>(), "Tag", EditorClass<TIntegerProperty>("TDtTag"));
    EXPECT_TRUE(EditorsFor({designer->GetComponent("Button1"), designer->GetComponent("Timer1")}, designer.get()).empty());
}

// ---------------------------------------------------------------------------
// Component editors

int GVerbsRun = 0;

class TDtVerbEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
    int GetVerbCount() override { return 2; }
    AnsiString GetVerb(int index) override { return index == 0 ? "First" : "Second"; }
    void ExecuteVerb(int index) override { GVerbsRun = GVerbsRun * 10 + index + 1; }
};

class TDtQuietEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
};

TEST_F(EditorChoice, TheNearestRegisteredComponentEditorServes)
{
    auto designer = MakeTestDesigner();
    const auto nameFor = [&](const char* component) {
        const auto editor = GetComponentEditor(designer->GetComponent(component), designer.get());
        const TComponentEditor& made = *editor;
        return EditorClassNameOf(typeid(made));
    };
    EXPECT_EQ(nameFor("Button1"), "TDefaultEditor");

    RegisterComponentEditor(ClassOf<TDtControl>(), EditorClass<TDtQuietEditor>());
    EXPECT_EQ(nameFor("Button1"), "TDtQuietEditor");
    EXPECT_EQ(nameFor("Timer1"), "TDefaultEditor");

    RegisterComponentEditor(ClassOf<TDtButton>(), EditorClass<TDtVerbEditor>());
    EXPECT_EQ(nameFor("Button1"), "TDtVerbEditor");
    EXPECT_EQ(nameFor("Label1"), "TDtQuietEditor");

    // A later registration for the same class replaces the earlier one.
    RegisterComponentEditor(ClassOf<TDtControl>(), EditorClass<TDtVerbEditor>());
    EXPECT_EQ(nameFor("Label1"), "TDtVerbEditor");

    auto editor = GetComponentEditor(designer->GetComponent("Label1"), designer.get());
    EXPECT_EQ(editor->Component(), designer->GetComponent("Label1"));
    EXPECT_EQ(editor->GetDesigner(), designer.get());
}

TEST_F(EditorChoice, ADoubleClickRunsTheFirstVerbOrGivesTheMainEventAHandler)
{
    auto designer = MakeTestDesigner();
    GVerbsRun = 0;
    TDtVerbEditor(designer->GetComponent("Button1"), designer.get()).Edit();
    EXPECT_EQ(GVerbsRun, 1);
    TDtQuietEditor(designer->GetComponent("Button1"), designer.get()).Edit();   // no verbs: nothing happens
    EXPECT_EQ(designer->ModifiedCount(), 0);

    auto* button = dynamic_cast<TDtControl*>(designer->GetComponent("Button1"));
    GetComponentEditor(button, designer.get())->Edit();
    EXPECT_EQ(button->FOnClick, "Button1Click");
    EXPECT_TRUE(designer->MethodExists("Button1Click"));
    EXPECT_EQ(designer->ModifiedCount(), 1);

    // A component without events is left alone.
    GetComponentEditor(designer->GetComponent("Timer1"), designer.get())->Edit();
    EXPECT_EQ(designer->ModifiedCount(), 1);
}

}  // namespace
