// Forms read into live components and written back: what the model knows
// is applied and written from the components, what it does not know stays
// as it was read, in its place.

#include "rtl/Collection.h"
#include "rtl/ComponentStream.h"
#include "rtl/Parser.h"
#include "rtl/StringList.h"
#include "support/Corpus.h"
#include "support/TextLines.h"

#include <gtest/gtest.h>

#include <sstream>
#include <typeinfo>

namespace {

class TTestFont : public TPersistent {
    QZ_CLASS(TTestFont, TPersistent)

public:
    AnsiString FName = "Tahoma";
    Integer FSize = 8;

private:
    static void DeclareProperties(TClassBuilder<TTestFont>& b)
    {
        b.Property("Name", &TTestFont::FName);
        b.Property("Size", &TTestFont::FSize).Default(8);
    }
};

class TTestColumn : public TCollectionItem {
    QZ_CLASS(TTestColumn, TCollectionItem)

public:
    explicit TTestColumn(TCollection* collection) : TCollectionItem(collection) {}
    Integer FWidth = 64;
    AnsiString FTitle;

private:
    static void DeclareProperties(TClassBuilder<TTestColumn>& b)
    {
        b.Property("Title", &TTestColumn::FTitle);
        b.Property("Width", &TTestColumn::FWidth).Default(64);
    }
};

enum TTestAlign { alNone, alTop, alClient };

const TTypeInfo* TypeInfo_TTestColor()
{
    static const TTypeInfo* t =
        DefineIntegerType("TTestColor", INT32_MIN, INT32_MAX, {{"clRed", 0xFF}, {"clBtnFace", -16777201}});
    return t;
}

const TTypeInfo* TypeInfo_TTestAlign()
{
    static const TTypeInfo* t = DefineEnumType("TTestAlign", {"alNone", "alTop", "alClient"});
    return t;
}

// A control with one property of each kind the reader applies.
class TTestControl : public TComponent {
    QZ_CLASS(TTestControl, TComponent)

public:
    explicit TTestControl(TComponent* owner) : TComponent(owner), FColumns(this, TTestColumn::ClassInfo()) {}

    Integer FLeft = 0;
    AnsiString FCaption;
    TTestAlign FAlign = alNone;
    Integer FColor = 0;
    TTestFont FFont;
    TTestFont* GetFont() { return &FFont; }
    TCollection FColumns;
    TCollection* GetColumns() { return &FColumns; }
    TTestControl* FBuddy = nullptr;
    AnsiString FOnClick;
    // Kept by the control itself through DefineProperties.
    std::vector<AnsiString> FLines;
    std::string FBlob;

    void Notification(TComponent* component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        if (operation == opRemove && component == FBuddy)
            FBuddy = nullptr;
    }

    void DefineProperties(TFiler& filer) override
    {
        filer.DefineProperty(
            "Lines",
            [this](TReader& r) {
                FLines.clear();
                r.ReadListBegin();
                while (!r.EndOfList())
                    FLines.push_back(r.ReadUnicodeString());
                r.ReadListEnd();
            },
            [this](TWriter& w) {
                w.WriteListBegin();
                for (const AnsiString& l : FLines)
                    w.WriteString(l);
                w.WriteListEnd();
            },
            !FLines.empty());
        filer.DefineBinaryProperty(
            "Blob", [this](TStream& s) { FBlob = s.ReadRemaining(); }, [this](TStream& s) { s.WriteString(FBlob); },
            !FBlob.empty());
    }

private:
    static void DeclareProperties(TClassBuilder<TTestControl>& b)
    {
        b.Property("Left", &TTestControl::FLeft);
        b.Property("Caption", &TTestControl::FCaption);
        b.Enum("Align", TypeInfo_TTestAlign(), &TTestControl::FAlign, nullptr, alNone);
        b.Property("Color", TypeInfo_TTestColor(), &TTestControl::FColor).Default(0);
        b.Property("Font", &TTestControl::GetFont);
        b.Property("Columns", &TTestControl::GetColumns);
        b.Property("Buddy", &TTestControl::FBuddy);
        b.Event("OnClick", &TTestControl::FOnClick);
    }
};

// A control publishing a list of strings, as memos and list boxes do.
class TTestList : public TComponent {
    QZ_CLASS(TTestList, TComponent)

public:
    explicit TTestList(TComponent* owner) : TComponent(owner) {}
    TStringList FItems;
    TStringList* GetItems() { return &FItems; }

private:
    static void DeclareProperties(TClassBuilder<TTestList>& b) { b.Property("Items", &TTestList::GetItems); }
};

class TTestForm : public TComponent {
    QZ_CLASS(TTestForm, TComponent)

public:
    explicit TTestForm(TComponent* owner) : TComponent(owner) {}
    AnsiString FCaption;

private:
    static void DeclareProperties(TClassBuilder<TTestForm>& b) { b.Property("Caption", &TTestForm::FCaption); }
};

void RegisterTestClasses()
{
    RegisterComponentStreamClasses();
    RegisterClasses({TTestControl::ClassInfo(), TTestForm::ClassInfo(), TTestColumn::ClassInfo(), TTestList::ClassInfo()});
}

TFormTextOptions Lf()
{
    TFormTextOptions o;
    o.LineBreak = "\n";
    return o;
}

// Known classes and properties mixed with ones the model has never heard of.
const char* const MixedForm =
    "object Form1: TTestForm\n"
    "  Left = 192\n"
    "  Caption = 'Main'\n"
    "  Color = clBtnFace\n"
    "  object Panel1: TThirdPartyPanel\n"
    "    Bevel = bvRaised\n"
    "    Tag = 3\n"
    "    object Button1: TTestControl\n"
    "      Left = 8\n"
    "      Caption = 'OK'\n"
    "      Color = clRed\n"
    "      Font.Name = 'Arial'\n"
    "      Font.Style = [fsBold]\n"
    "      Columns = <\n"
    "        item\n"
    "          Title = 'A'\n"
    "          Width = 30\n"
    "        end>\n"
    "      Buddy = Edit1\n"
    "      Lines = (\n"
    "        'one'\n"
    "        'two')\n"
    "      Blob = {0102}\n"
    "      Hint = 'press'\n"
    "      OnClick = Button1Click\n"
    "    end\n"
    "  end\n"
    "  object Edit1: TTestControl\n"
    "    Left = 100\n"
    "    Align = alTop\n"
    "  end\n"
    "  inline Frame1: TFrame1 [0]\n"
    "    object Label1: TTestControl\n"
    "    end\n"
    "  end\n"
    "end\n";

std::unique_ptr<TComponent> Load(const std::string& text)
{
    RegisterTestClasses();
    return ReadForm(text, Lf());
}

// The lines of a that b lacks and the other way round.
std::vector<std::string> ChangedLines(const std::string& a, const std::string& b)
{
    std::vector<std::string> la = TextLines(a), lb = TextLines(b), diff;
    for (const std::string& l : la)
        if (std::find(lb.begin(), lb.end(), l) == lb.end())
            diff.push_back("-" + l);
    for (const std::string& l : lb)
        if (std::find(la.begin(), la.end(), l) == la.end())
            diff.push_back("+" + l);
    return diff;
}

} // namespace

TEST(ComponentStream, KnownPropertiesAreAppliedAndTheRestKept)
{
    auto form = Load(MixedForm);
    ASSERT_TRUE(form->ClassType()->InheritsFrom(TTestForm::ClassInfo()));
    EXPECT_EQ(static_cast<TTestForm*>(form.get())->FCaption, "Main");

    auto* panel = form->FindComponent("Panel1");
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(dynamic_cast<TUnknownComponent*>(panel));
    EXPECT_EQ(StreamedClassName(panel), "TThirdPartyPanel");
    EXPECT_EQ(panel->Tag(), 3);

    auto* button = dynamic_cast<TTestControl*>(form->FindComponent("Button1"));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->GetParentComponent(), panel);
    EXPECT_EQ(button->Owner(), form.get());
    EXPECT_EQ(button->FLeft, 8);
    EXPECT_EQ(button->FCaption, "OK");
    EXPECT_EQ(button->FColor, 0xFF);  // through the type's identifiers
    EXPECT_EQ(button->FFont.FName, "Arial");
    ASSERT_EQ(button->FColumns.Count(), 1);
    EXPECT_EQ(static_cast<TTestColumn*>(button->FColumns.Items(0))->FWidth, 30);
    EXPECT_EQ(button->FBuddy, form->FindComponent("Edit1"));
    EXPECT_EQ(button->FOnClick, "Button1Click");
    EXPECT_EQ(button->FLines, (std::vector<AnsiString>{"one", "two"}));
    EXPECT_EQ(button->FBlob, std::string("\x01\x02", 2));

    // The frame owns what was read inside it.
    auto* frame = form->FindComponent("Frame1");
    ASSERT_NE(frame, nullptr);
    EXPECT_TRUE(frame->ComponentState().Contains(csInline));
    EXPECT_NE(frame->FindComponent("Label1"), nullptr);

    // Unchanged, it is written back byte for byte.
    EXPECT_EQ(WriteFormText(form.get(), Lf()), MixedForm);
}

TEST(ComponentStream, EachChangeTouchesOnlyItsOwnLines)
{
    struct Case {
        const char* what;
        std::function<void(TComponent*)> change;
        std::vector<std::string> lines;
    };
    auto button = [](TComponent* f) { return static_cast<TTestControl*>(f->FindComponent("Button1")); };
    auto edit = [](TComponent* f) { return static_cast<TTestControl*>(f->FindComponent("Edit1")); };
    const Case cases[] = {
        {"a known property", [&](TComponent* f) { button(f)->FCaption = "Cancel"; },
         {"-      Caption = 'OK'", "+      Caption = 'Cancel'"}},
        {"a property back to its default", [&](TComponent* f) { edit(f)->FAlign = alNone; }, {"-    Align = alTop"}},
        {"a property that was not stored", [&](TComponent* f) { edit(f)->FCaption = "Name"; },
         {"+    Caption = 'Name'"}},
        {"a nested object's property", [&](TComponent* f) { button(f)->FFont.FSize = 12; }, {"+      Font.Size = 12"}},
        {"an item of a collection", [&](TComponent* f) { static_cast<TTestColumn*>(button(f)->FColumns.Items(0))->FWidth = 31; },
         {"-          Width = 30", "+          Width = 31"}},
        {"a defined property", [&](TComponent* f) { button(f)->FLines.push_back("three"); },
         {"-        'two')", "+        'two'", "+        'three')"}},
        {"a reference", [&](TComponent* f) { button(f)->FBuddy = nullptr; }, {"-      Buddy = Edit1"}},
        {"an integer shown by its identifier", [&](TComponent* f) { edit(f)->FColor = -16777201; },
         {"+    Color = clBtnFace"}},
        {"an integer without one", [&](TComponent* f) { button(f)->FColor = 0x80; },
         {"-      Color = clRed", "+      Color = 128"}},
        {"a property the model keeps raw, untouched by a change elsewhere", [&](TComponent* f) { button(f)->FLeft = 9; },
         {"-      Left = 8", "+      Left = 9"}},
    };
    for (const Case& c : cases) {
        auto form = Load(MixedForm);
        c.change(form.get());
        EXPECT_EQ(ChangedLines(MixedForm, WriteFormText(form.get(), Lf())), c.lines) << c.what;
    }
}

TEST(ComponentStream, NewPropertiesGoAfterTheirPredecessorsInClassOrder)
{
    auto form = Load(MixedForm);
    static_cast<TTestControl*>(form->FindComponent("Edit1"))->FCaption = "Name";
    std::string text = WriteFormText(form.get(), Lf());
    EXPECT_NE(text.find("    Left = 100\n    Caption = 'Name'\n    Align = alTop\n"), std::string::npos) << text;
}

TEST(ComponentStream, ComponentsAddedAndFreedAppearAndDisappear)
{
    auto form = Load(MixedForm);
    delete form->FindComponent("Edit1");
    auto* added = new TTestControl(form.get());
    added->SetName("Button2");
    added->FLeft = 5;
    added->SetParentComponent(form.get());
    std::string text = WriteFormText(form.get(), Lf());
    EXPECT_EQ(text.find("Edit1: TTestControl"), std::string::npos);
    // Button1's reference to the freed Edit1 went with it.
    EXPECT_EQ(text.find("Buddy = Edit1"), std::string::npos);
    EXPECT_NE(text.find("  object Button2: TTestControl\n    Left = 5\n    Font.Name = 'Tahoma'\n    Columns = <>\n  end\nend\n"),
              std::string::npos) << text;
    // Everything else is as it was.
    EXPECT_NE(text.find("    Bevel = bvRaised\n"), std::string::npos);
}

TEST(ComponentStream, ComponentsNotReadFromAStreamAreWrittenFromTheirProperties)
{
    RegisterTestClasses();
    TTestForm form(nullptr);
    form.SetName("Form9");
    auto* c = new TTestControl(&form);
    c->SetName("Grid");
    c->FAlign = alClient;
    c->FColumns.Add();
    c->FOnClick = "GridClick";
    c->SetParentComponent(&form);
    EXPECT_EQ(WriteFormText(&form, Lf()),
              "object Form9: TTestForm\n"
              "  object Grid: TTestControl\n"
              "    Left = 0\n"
              "    Align = alClient\n"
              "    Font.Name = 'Tahoma'\n"
              "    Columns = <\n"
              "      item\n"
              "      end>\n"
              "    OnClick = GridClick\n"
              "  end\n"
              "end\n");
}

TEST(ComponentStream, DamagedFormsFailWithAClearErrorAndLeaveNothingBehind)
{
    RegisterTestClasses();
    std::string binary = FormTextToBinary(MixedForm);
    for (size_t cut : {size_t(10), binary.size() / 2, binary.size() - 1})
        EXPECT_THROW(ReadForm(binary.substr(0, cut)), EReadError) << cut;
    // Two components of one name cannot both exist.
    try {
        Load("object F: TTestForm\n  object A: TTestControl\n  end\n  object A: TTestControl\n  end\nend\n");
        ADD_FAILURE() << "duplicate names were accepted";
    } catch (const EReadError& e) {
        EXPECT_NE(e.Message().find("Component A"), std::string::npos) << e.Message();
    }
    EXPECT_THROW(Load("object F: TTestForm\n  Left = \nend\n"), ETextParseError);
}

// Each byte of a form in turn replaced by bytes that mean something to the
// reader: value types, list ends, lengths.
template <typename Check>
void ForEachDamagedByte(const std::string& binary, Check check)
{
    for (size_t i = 4; i < binary.size(); ++i)
        for (char value : {'\x00', '\x01', '\x06', '\x07', '\x0E', '\x12', '\x7F', '\xFF'}) {
            if (binary[i] == value)
                continue;
            std::string damaged = binary;
            damaged[i] = value;
            check(damaged, i);
        }
}

TEST(ComponentStream, ADamagedStreamIsReadWholeOrChangesNothing)
{
    RegisterTestClasses();
    const std::string binary = FormTextToBinary(MixedForm, Lf());
    TTestForm untouched(nullptr);
    const std::string empty = WriteComponentData(&untouched, Lf());
    int refused = 0;
    ForEachDamagedByte(binary, [&](const std::string& damaged, size_t at) {
        TTestForm root(nullptr);
        try {
            ReadComponentData(damaged, &root, Lf());
        } catch (const EReadError& e) {
            ++refused;
            EXPECT_NE(e.Message().find(" at offset "), std::string::npos) << e.Message();
            EXPECT_EQ(root.ComponentCount(), 0) << "damaged at " << at << ": " << e.Message();
            EXPECT_EQ(WriteComponentData(&root, Lf()), empty) << "damaged at " << at << ": " << e.Message();
        } catch (const Exception& e) {
            ADD_FAILURE() << "damaged at " << at << " raised " << typeid(e).name() << ": " << e.Message();
        }
    });
    EXPECT_GT(refused, 0);
}

TEST(ComponentStream, EveryCorpusFormSurvivesLoadingAndSaving)
{
    RegisterTestClasses();
    std::vector<std::string> failures;
    for (const TCorpusFile& file : CorpusFiles()) {
        if (file.Format == "project")
            continue;
        std::string original = ReadCorpusFile(file);
        TFormTextOptions options = DetectFormTextOptions(original);
        try {
            std::string binary = FormToBinary(original, options);
            std::unique_ptr<TComponent> form = ReadForm(binary, options);
            if (WriteComponentData(form.get(), options) != binary)
                failures.push_back(file.Path);
        } catch (const std::exception& e) {
            failures.push_back(file.Path + ": " + e.what());
        }
    }
    for (const std::string& f : failures)
        ADD_FAILURE() << f;
}

TEST(ComponentStream, StringListsAreStoredAsTheirStringsProperty)
{
    const std::string text = "object F: TTestForm\n"
                             "  object L: TTestList\n"
                             "    Items.Strings = (\n"
                             "      'one'\n"
                             "      'caf\xE9')\n"
                             "  end\n"
                             "end\n";
    auto form = Load(text);
    auto* list = static_cast<TTestList*>(form->FindComponent("L"));
    ASSERT_EQ(list->FItems.Count(), 2);
    EXPECT_EQ(list->FItems[1], "caf\xC3\xA9");
    EXPECT_EQ(WriteFormText(form.get(), Lf()), text);
    list->FItems.Add("\xE4\xB8\xAD");  // beyond the code page: written as a wide string
    EXPECT_NE(WriteFormText(form.get(), Lf()).find("      'caf\xE9'\n      #20013)"), std::string::npos);
    list->FItems.Clear();
    EXPECT_EQ(WriteFormText(form.get(), Lf()).find("Items.Strings"), std::string::npos);
}
