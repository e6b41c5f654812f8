// The default property editors as the object inspector uses them: values
// shown and typed for every kind, value lists, nested editors, several
// components at once.

#include "TestComponents.h"
#include "designide/DesignEditors.h"

#include <gtest/gtest.h>

namespace {

class PropertyEditors : public ::testing::Test {
protected:
    void SetUp() override { ClearRegistrations(); }

    TComponent* Get(const AnsiString& name) { return Designer->GetComponent(name); }
    TDtControl* Control(const AnsiString& name) { return dynamic_cast<TDtControl*>(Get(name)); }

    std::map<AnsiString, std::unique_ptr<TPropertyEditor>> Editors(std::initializer_list<const char*> names)
    {
        TDesignerSelections selection;
        for (const char* n : names)
            selection.push_back(Get(n));
        return EditorsFor(selection, Designer.get());
    }

    std::unique_ptr<TPropertyEditor> Editor(const AnsiString& component, const AnsiString& property)
    {
        auto editors = Editors({component.c_str()});
        auto it = editors.find(property);
        return it == editors.end() ? nullptr : std::move(it->second);
    }

    static std::vector<AnsiString> Values(TPropertyEditor& editor)
    {
        std::vector<AnsiString> values;
        editor.GetValues([&](const AnsiString& v) { values.push_back(v); });
        return values;
    }

    static std::vector<AnsiString> SubNames(TPropertyEditor& editor)
    {
        std::vector<AnsiString> names;
        editor.GetProperties([&](std::unique_ptr<TPropertyEditor> sub) { names.push_back(sub->GetName()); });
        return names;
    }

    std::unique_ptr<TFormDesigner> Designer = MakeTestDesigner();
};

struct TValueCase {
    const char* Property;
    const char* Shown;     // before
    const char* Typed;
    const char* ShownAfter;
    const char* EditorClass;
    bool ValueList;        // the row drops down a list
};

TEST_F(PropertyEditors, EveryKindShowsAndTakesItsValue)
{
    static const TValueCase cases[] = {
        {"Width", "10", "$1F", "31", "TIntegerProperty", false},
        {"Color", "0", " -5", "-5", "TIntegerProperty", false},
        {"Cursor", "crDefault", "crhand", "crHand", "TIntegerProperty", true},
        {"Cursor", "crDefault", "7", "7", "TIntegerProperty", true},
        {"Big", "0", "12345678901", "12345678901", "TInt64Property", false},
        {"HotKey", "A", "#9", "#9", "TCharProperty", false},
        {"HotKey", "A", " ", "#32", "TCharProperty", false},
        {"Shape", "dsCircle", "dssquare", "dsSquare", "TEnumProperty", true},
        {"Visible", "True", "false", "False", "TBoolProperty", true},
        {"Styles", "[]", "[dfUnderline, dfBold]", "[dfBold,dfUnderline]", "TSetProperty", false},
        {"Ratio", "0", "2.5", "2.5", "TFloatProperty", false},
        {"Caption", "", " padded ", " padded ", "TStringProperty", false},
        {"Buddy", "", "control1", "Control1", "TComponentProperty", true},
        {"OnClick", "", "Button1Click", "Button1Click", "TMethodProperty", true},
        {"Value", "", "abc", "abc", "TVariantProperty", false},
        {"Name", "Button1", "OK1", "OK1", "TComponentNameProperty", false},
    };
    for (const TValueCase& c : cases) {
        Designer = MakeTestDesigner();
        auto editor = Editor("Button1", c.Property);
        ASSERT_NE(editor, nullptr) << c.Property;
        const TPropertyEditor& made = *editor;
        EXPECT_EQ(EditorClassNameOf(typeid(made)), c.EditorClass) << c.Property;
        // No default editor opens a dialog; the kinds with names to choose drop a list.
        EXPECT_FALSE(editor->GetAttributes().Contains(paDialog)) << c.Property;
        EXPECT_EQ(editor->GetAttributes().Contains(paValueList), c.ValueList) << c.Property;
        EXPECT_EQ(editor->GetValue(), c.Shown) << c.Property;
        editor->SetValue(c.Typed);
        EXPECT_EQ(editor->GetValue(), c.ShownAfter) << c.Property;
        EXPECT_EQ(Designer->ModifiedCount(), 1) << c.Property;
    }
}

TEST_F(PropertyEditors, TextThatDoesNotFitIsRefusedAndChangesNothing)
{
    static const std::pair<const char*, const char*> cases[] = {
        {"Width", "abc"},      {"Width", "3000000000"}, {"Cursor", "crNope"},    {"Big", "1x"},
        {"HotKey", "ab"},      {"HotKey", "#300"},      {"Shape", "dsHexagon"}, {"Visible", "yes"},
        {"Styles", "[dfNope]"}, {"Ratio", "x1"},         {"Buddy", "Timer1"},    {"Buddy", "Nobody"},
        {"OnClick", "1abc"},   {"OnClick", "a b"},
    };
    for (const auto& [property, text] : cases) {
        auto editor = Editor("Button1", property);
        const AnsiString before = editor->GetValue();
        EXPECT_THROW(editor->SetValue(text), EConvertError) << property << " = " << text;
        EXPECT_EQ(editor->GetValue(), before) << property;
    }
    EXPECT_EQ(Designer->ModifiedCount(), 0);

    try {
        Editor("Button1", "Width")->SetValue("abc");
    } catch (const EConvertError& e) {
        EXPECT_EQ(e.Message(), "Invalid property value");
    }
    // Renaming to a taken name is the component's refusal.
    EXPECT_THROW(Editor("Button1", "Name")->SetValue("Label1"), EComponentError);
    EXPECT_EQ(Get("Button1")->Name(), "Button1");
}

TEST_F(PropertyEditors, ValueListsOfferWhatFits)
{
    EXPECT_EQ(Values(*Editor("Button1", "Shape")), (std::vector<AnsiString>{"dsCircle", "dsSquare", "dsTriangle"}));
    EXPECT_EQ(Values(*Editor("Button1", "Visible")), (std::vector<AnsiString>{"False", "True"}));
    EXPECT_EQ(Values(*Editor("Button1", "Cursor")), (std::vector<AnsiString>{"crDefault", "crHand"}));
    EXPECT_TRUE(Values(*Editor("Button1", "Width")).empty());
    // Components whose class fits the property's: not the timer, not the form.
    EXPECT_EQ(Values(*Editor("Button1", "Buddy")), (std::vector<AnsiString>{"Button1", "Label1", "Control1"}));

    // Handlers of the event's type that the form already has.
    Designer->CreateMethod("Button1Click", TypeInfo_TNotifyEvent());
    Designer->CreateMethod("Other", DefineMethodType("TDtOtherEvent", "int X"));
    EXPECT_EQ(Values(*Editor("Label1", "OnClick")), (std::vector<AnsiString>{"Button1Click"}));
}

TEST_F(PropertyEditors, SetElementsAreSubPropertiesThatKeepTheOtherElements)
{
    Control("Button1")->FStyles = {dfBold};
    Control("Label1")->FStyles = {dfBold, dfUnderline};
    auto editors = Editors({"Button1", "Label1"});
    TPropertyEditor& styles = *editors.at("Styles");
    EXPECT_FALSE(styles.AllEqual());
    EXPECT_EQ(styles.GetVisualValue(), "");
    EXPECT_EQ(SubNames(styles), (std::vector<AnsiString>{"dfBold", "dfItalic", "dfUnderline"}));

    std::vector<std::unique_ptr<TPropertyEditor>> elements;
    styles.GetProperties([&](std::unique_ptr<TPropertyEditor> e) { elements.push_back(std::move(e)); });
    EXPECT_TRUE(elements[0]->AllEqual());
    EXPECT_EQ(elements[0]->GetValue(), "True");
    EXPECT_FALSE(elements[2]->AllEqual());

    elements[1]->SetValue("True");
    EXPECT_EQ(Control("Button1")->FStyles, (TDtStyles{dfBold, dfItalic}));
    EXPECT_EQ(Control("Label1")->FStyles, (TDtStyles{dfBold, dfItalic, dfUnderline}));
    elements[0]->SetValue("False");
    EXPECT_EQ(Control("Button1")->FStyles, (TDtStyles{dfItalic}));
    EXPECT_EQ(Designer->ModifiedCount(), 2);
}

TEST_F(PropertyEditors, PublishedObjectsShowTheirTypeAndTheirOwnProperties)
{
    auto editors = Editors({"Button1", "Label1"});
    TPropertyEditor& font = *editors.at("Font");
    EXPECT_EQ(font.GetValue(), "(TDtFont)");
    EXPECT_TRUE(font.GetAttributes().Contains(paSubProperties));
    EXPECT_EQ(SubNames(font), (std::vector<AnsiString>{"Name", "Size", "Style"}));

    // A nested editor writes the nested object of every selected component.
    font.GetProperties([](std::unique_ptr<TPropertyEditor> sub) {
        if (sub->GetName() == "Size")
            sub->SetValue("12");
    });
    EXPECT_EQ(Control("Button1")->FFont.FSize, 12);
    EXPECT_EQ(Control("Label1")->FFont.FSize, 12);
    EXPECT_EQ(Designer->ModifiedCount(), 1);

    auto title = Editor("Label1", "TitleFont");
    EXPECT_EQ(title->GetValue(), "(TDtBigFont)");
    EXPECT_EQ(SubNames(*title), (std::vector<AnsiString>{"Name", "Size", "Style", "Weight"}));
}

TEST_F(PropertyEditors, SeveralComponentsShowOnlyWhatTheyShare)
{
    const auto has = [](const std::map<AnsiString, std::unique_ptr<TPropertyEditor>>& editors, const char* name) {
        return editors.count(name) == 1;
    };
    // Name cannot be shared; Hint is the button's, TitleFont the label's.
    const auto controls = Editors({"Button1", "Label1"});
    EXPECT_TRUE(has(controls, "Width") && has(controls, "Font"));
    EXPECT_FALSE(has(controls, "Name") || has(controls, "Hint") || has(controls, "TitleFont"));
    const auto mixed = Editors({"Button1", "Timer1"});
    EXPECT_TRUE(mixed.size() == 1 && has(mixed, "Tag"));
    // One component alone shows all of its own.
    const auto single = Editors({"Button1"});
    EXPECT_TRUE(has(single, "Name") && has(single, "Hint"));

    auto editors = Editors({"Button1", "Label1", "Control1"});
    TPropertyEditor& width = *editors.at("Width");
    EXPECT_EQ(width.PropCount(), 3);
    EXPECT_TRUE(width.AllEqual());
    Control("Label1")->FWidth = 99;
    EXPECT_FALSE(width.AllEqual());
    EXPECT_EQ(width.GetVisualValue(), "");
    EXPECT_EQ(width.GetValue(), "10");   // the first component's
    EXPECT_EQ(width.GetOrdValueAt(1), 99);

    width.SetValue("7");
    for (const char* name : {"Button1", "Label1", "Control1"})
        EXPECT_EQ(Control(name)->FWidth, 7) << name;
    EXPECT_EQ(Designer->ModifiedCount(), 1);

    // References compare by the component they name.
    Control("Button1")->FBuddy = Control("Label1");
    EXPECT_FALSE(editors.at("Buddy")->AllEqual());
    editors.at("Buddy")->SetValue("Label1");
    EXPECT_TRUE(editors.at("Buddy")->AllEqual());
}

TEST_F(PropertyEditors, RevertGoesBackToTheDefault)
{
    TDtControl* button = Control("Button1");
    button->FWidth = 50;
    button->FBuddy = Control("Label1");
    button->FCaption = "x";
    button->FStyles = {dfBold};
    button->FValue = 3;
    for (const char* property : {"Width", "Buddy", "Caption", "Styles", "Value", "Font"})
        Editor("Button1", property)->Revert();
    EXPECT_EQ(button->FWidth, 10);
    EXPECT_EQ(button->FBuddy, nullptr);
    EXPECT_EQ(button->FCaption, "");
    EXPECT_TRUE(button->FStyles.Empty());
    EXPECT_TRUE(button->FValue.IsEmpty());
}

TEST_F(PropertyEditors, EditStepsThroughTheValueListOrGivesAnEventItsHandler)
{
    auto shape = Editor("Button1", "Shape");
    shape->Edit();
    EXPECT_EQ(shape->GetValue(), "dsSquare");
    Control("Button1")->FShape = dsTriangle;
    shape->Edit();
    EXPECT_EQ(shape->GetValue(), "dsCircle");

    Editor("Label1", "OnClick")->Edit();
    EXPECT_EQ(Control("Label1")->FOnClick, "Label1Click");
    EXPECT_TRUE(Designer->MethodExists("Label1Click"));
    // An event that has a handler keeps it.
    Editor("Label1", "OnClick")->Edit();
    EXPECT_EQ(Control("Label1")->FOnClick, "Label1Click");
}

TEST_F(PropertyEditors, VariantsKeepTheirTypeWhenTyped)
{
    TDtControl* button = Control("Button1");
    auto value = Editor("Button1", "Value");
    button->FValue = 5;
    value->SetValue("42");
    EXPECT_EQ(button->FValue.VarType(), varInteger);
    EXPECT_EQ(button->FValue.AsInteger(), 42);
    EXPECT_THROW(value->SetValue("forty"), EConvertError);
    button->FValue = true;
    value->SetValue("false");
    EXPECT_EQ(button->FValue.VarType(), varBoolean);
    value->SetValue("null");
    EXPECT_TRUE(button->FValue.IsNull());
    EXPECT_EQ(value->GetValue(), "Null");
    value->SetValue("");
    EXPECT_TRUE(button->FValue.IsEmpty());
}

}  // namespace
