// Register as the designer receives it, held against the runtime's own
// classes: what the palette offers exists under its name, can be created and
// streamed, comes once and in the order Register names it; every editor
// binding reaches a property that is really published, with an editor that
// can show it.

#include "RegTestComponents.h"

#include "design/reg/QzEditorDialogs.h"
#include "designide/DesignIntf.h"
#include "rtl/ComponentStream.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

class Registration : public TRegisteredPackageTest {
protected:
    // A form designer over one new component of the class, named "C1".
    static std::unique_ptr<TFormDesigner> FormWith(TMetaClass* cls, TComponent*& created)
    {
        auto root = std::make_unique<TComponent>(nullptr);
        root->SetName("Form1");
        created = cls->Create(root.get());
        created->SetName("C1");
        return std::make_unique<TFormDesigner>(std::move(root));
    }
};

std::vector<AnsiString> SplitNames(const AnsiString& list)
{
    std::vector<AnsiString> names;
    size_t from = 0;
    while (from < list.size()) {
        const size_t comma = std::min(list.find(',', from), list.size());
        names.push_back(list.substr(from, comma - from));
        from = comma + 1;
    }
    return names;
}

// Whether a binding of `type` applies to the property: the same type, or
// for objects an ancestor class.
bool OfType(const TPropInfo* prop, const TTypeInfo* type)
{
    return prop->PropType == type || (prop->PropType->Kind == tkClass && type->Kind == tkClass &&
                                      prop->PropType->ClassType->InheritsFrom(type->ClassType));
}

std::vector<const TRegistrationRecord*> RecordsOf(const char* call)
{
    std::vector<const TRegistrationRecord*> found;
    for (const TRegistrationRecord& record : DesignRegistry().Records())
        if (record.Call == call)
            found.push_back(&record);
    return found;
}

// An editor of the binding over `prop` of `instance`, set up as the
// inspector sets it up; what it shows, or the error it raised.
AnsiString ShownBy(const TPropertyEditorClass& editorClass, IDesigner* designer, TPersistent* instance,
                   const TPropInfo* prop)
{
    try {
        std::unique_ptr<TPropertyEditor> editor = editorClass.Create(designer, 1);
        editor->SetPropEntry(0, instance, prop);
        editor->Initialize();
        const TPropertyAttributes attributes = editor->GetAttributes();
        if (attributes.Contains(paValueList))
            ValuesOf(*editor);
        if (attributes.Contains(paSubProperties))
            editor->GetProperties([](std::unique_ptr<TPropertyEditor> sub) { sub->GetValue(); });
        editor->GetValue();
        return {};
    } catch (const std::exception& e) {
        return AnsiString("raised: ") + e.what();
    }
}

TEST_F(Registration, EveryPaletteClassIsARuntimeClassThatStreamsUnderItsNameOnce)
{
    std::set<AnsiString> seen;
    for (const TPalettePage& page : DesignRegistry().Pages()) {
        EXPECT_FALSE(page.Name.empty());
        EXPECT_FALSE(page.Classes.empty()) << page.Name;
        for (TMetaClass* cls : page.Classes) {
            const AnsiString name = cls->ClassName();
            SCOPED_TRACE(page.Name + ": " + name);
            EXPECT_TRUE(seen.insert(LowerCase(name)).second) << "on the palette twice";
            EXPECT_EQ(GetClass(name), cls) << "the runtime does not find it by its name";
            ASSERT_TRUE(cls->CanCreate() && cls->InheritsFrom(ClassOf<TComponent>()));
            EXPECT_FALSE(DesignRegistry().IsNoIcon(cls));

            // Dropped on a form, saved and opened again, it is itself.
            TComponent* created = nullptr;
            const std::string text = FormWith(cls, created)->FormText();
            std::unique_ptr<TComponent> reopened = ReadForm(text);
            TComponent* back = reopened->FindComponent("C1");
            ASSERT_NE(back, nullptr);
            EXPECT_EQ(back->ClassType(), cls);
        }
    }
    EXPECT_GT(seen.size(), 60u);
}

TEST_F(Registration, ThePaletteShowsPagesAndClassesInTheOrderRegisterNamesThem)
{
    std::vector<AnsiString> pageOrder;
    std::map<AnsiString, std::vector<AnsiString>> classesOf;
    for (const TRegistrationRecord* record : RecordsOf("RegisterComponents")) {
        ASSERT_EQ(record->Args.size(), 3u);
        const std::vector<AnsiString> names = SplitNames(record->Args[1]);
        // The last index passed says how many of the classes count.
        EXPECT_EQ(StrToInt(record->Args[2]), static_cast<int>(names.size()) - 1) << record->Text();
        const AnsiString key = LowerCase(record->Args[0]);
        if (!classesOf.count(key))
            pageOrder.push_back(record->Args[0]);
        for (const AnsiString& n : names)
            classesOf[key].push_back(n);
    }
    const std::vector<TPalettePage>& pages = DesignRegistry().Pages();
    ASSERT_EQ(pages.size(), pageOrder.size());
    ASSERT_FALSE(pages.empty());
    for (size_t i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(pages[i].Name, pageOrder[i]);
        std::vector<AnsiString> shown;
        for (TMetaClass* cls : pages[i].Classes)
            shown.push_back(cls->ClassName());
        EXPECT_EQ(shown, classesOf[LowerCase(pageOrder[i])]) << pages[i].Name;
    }
}

TEST_F(Registration, ClassesRegisteredWithoutAButtonAreRuntimeClassesOffThePalette)
{
    int checked = 0;
    for (const char* call : {"RegisterClass", "RegisterClasses", "RegisterNoIcon"})
        for (const TRegistrationRecord* record : RecordsOf(call))
            for (const AnsiString& name : SplitNames(record->Args.at(0))) {
                TMetaClass* cls = GetClass(name);
                ASSERT_NE(cls, nullptr) << record->Text();
                for (const TPalettePage& page : DesignRegistry().Pages())
                    EXPECT_EQ(std::count(page.Classes.begin(), page.Classes.end(), cls), 0) << name << " on " << page.Name;
                ++checked;
            }
    EXPECT_GT(checked, 0);
}

// A binding of a named property that misses it (a wrong name or type, a
// class without it) binds nothing and the inspector falls back silently.
TEST_F(Registration, EveryNamedBindingReachesAPublishedPropertyItsEditorCanShow)
{
    int checked = 0;
    for (const TPropertyEditorBinding& binding : DesignRegistry().PropertyEditors()) {
        if (!binding.ComponentClass || binding.PropertyName.empty())
            continue;
        TMetaClass* cls = binding.ComponentClass;
        SCOPED_TRACE(cls->ClassName() + "." + binding.PropertyName + " by " + binding.EditorClass.ClassName);
        EXPECT_EQ(GetClass(cls->ClassName()), cls);
        const TPropInfo* prop = GetPropInfo(cls, binding.PropertyName);
        ASSERT_NE(prop, nullptr) << "not published";
        EXPECT_TRUE(OfType(prop, binding.PropertyType)) << "published as " << prop->PropType->Name;
        EXPECT_EQ(GetEditorClass(cls, prop).ClassName, binding.EditorClass.ClassName) << "another binding wins";
        if (cls->InheritsFrom(ClassOf<TComponent>()) && cls->CanCreate()) {
            TComponent* created = nullptr;
            std::unique_ptr<TFormDesigner> form = FormWith(cls, created);
            EXPECT_EQ(ShownBy(binding.EditorClass, form.get(), created, prop), "");
        }
        ++checked;
    }
    EXPECT_GT(checked, 40);
}

// A binding of a type serves every property of that type, on every class
// of the palette and on the classes their published objects are.
TEST_F(Registration, EveryTypeBindingServesSomePaletteClassWithAnEditorThatCanShowIt)
{
    for (const TPropertyEditorBinding& binding : DesignRegistry().PropertyEditors()) {
        if (!binding.PropertyName.empty())
            continue;
        SCOPED_TRACE(binding.PropertyType->Name + " by " + binding.EditorClass.ClassName);
        int served = 0;
        for (const TPalettePage& page : DesignRegistry().Pages())
            for (TMetaClass* cls : page.Classes) {
                if (binding.ComponentClass && !cls->InheritsFrom(binding.ComponentClass))
                    continue;
                for (const TPropInfo* prop : cls->Properties()) {
                    if (!OfType(prop, binding.PropertyType) ||
                        GetEditorClass(cls, prop).ClassName != binding.EditorClass.ClassName)
                        continue;
                    TComponent* created = nullptr;
                    std::unique_ptr<TFormDesigner> form = FormWith(cls, created);
                    EXPECT_EQ(ShownBy(binding.EditorClass, form.get(), created, prop), "") << cls->ClassName() << "." << prop->Name;
                    ++served;
                }
            }
        EXPECT_GT(served, 0) << "serves no palette class";
    }
}

TEST_F(Registration, EveryComponentEditorWorksOnItsRuntimeClass)
{
    ASSERT_FALSE(DesignRegistry().ComponentEditors().empty());
    for (const TComponentEditorBinding& binding : DesignRegistry().ComponentEditors()) {
        TMetaClass* cls = binding.ComponentClass;
        SCOPED_TRACE(cls->ClassName() + " by " + binding.EditorClass.ClassName);
        EXPECT_EQ(GetClass(cls->ClassName()), cls);
        TComponent* created = nullptr;
        std::unique_ptr<TFormDesigner> form = FormWith(cls, created);
        std::unique_ptr<TComponentEditor> editor = GetComponentEditor(created, form.get());
        ASSERT_NE(editor, nullptr);
        const TComponentEditor& made = *editor;
        EXPECT_EQ(EditorClassNameOf(typeid(made)), binding.EditorClass.ClassName);
        for (int i = 0; i < editor->GetVerbCount(); ++i)
            EXPECT_FALSE(editor->GetVerb(i).empty()) << "verb " << i;
    }
}

TEST_F(Registration, EveryWindowAnEditorOpensIsInstalledByRegister)
{
    // The kinds run from the first to CommonWnds, the last.
    for (int k = 0; k <= static_cast<int>(TQzEditorDialog::CommonWnds); ++k) {
        const auto kind = static_cast<TQzEditorDialog>(k);
        EXPECT_TRUE(QzHasEditorDialog(kind)) << QzEditorDialogClass(kind);
    }
}

}  // namespace
