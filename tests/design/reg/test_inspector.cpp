// The design package's editors as the object inspector reaches them on the
// runtime's own controls: the editor Register's bindings choose for each
// property, what it shows, whether the row offers an ellipsis or a value
// list, and what a typed value does to every selected control.

#include "RegTestComponents.h"

#include <gtest/gtest.h>

namespace {

class Inspector : public TRegisteredPackageTest {
protected:
    // A form with `count` controls of the class (X1, X2) beside the controls
    // that references may name: an edit, a label, a button and an image.
    // A class the project holds once gets one.
    void MakeForm(const AnsiString& className, int count)
    {
        Chosen.clear();
        Form.reset();
        auto root = std::make_unique<TComponent>(nullptr);
        root->SetName("Form1");
        for (const char* other : {"TQzEdit", "TQzLabel", "TQzBitBtn", "TQzImage"})
            GetClass(other)->Create(root.get())->SetName(AnsiString(other).substr(3) + "1");
        for (int i = 1; i <= count; ++i) {
            try {
                TComponent* control = GetClass(className)->Create(root.get());
                control->SetName("X" + IntToStr(i));
                Chosen.push_back(control);
            } catch (const Exception&) {
                if (i == 1)
                    throw;
            }
        }
        Form = std::make_unique<TFormDesigner>(std::move(root));
    }

    // The inspector's row for `path` ("Pen.Width" for a nested property)
    // over the chosen controls; nullptr when the inspector leaves it out.
    std::unique_ptr<TPropertyEditor> Row(const AnsiString& path)
    {
        std::unique_ptr<TPropertyEditor> row;
        size_t from = 0;
        for (;;) {
            const size_t dot = path.find('.', from);
            const AnsiString part = path.substr(from, dot == AnsiString::npos ? AnsiString::npos : dot - from);
            std::unique_ptr<TPropertyEditor> found;
            const TGetPropProc take = [&](std::unique_ptr<TPropertyEditor> editor) {
                if (editor->GetName() == part)
                    found = std::move(editor);
            };
            if (row)
                row->GetProperties(take);
            else
                GetComponentProperties(TDesignerSelections(Chosen.begin(), Chosen.end()), Form.get(), take);
            row = std::move(found);
            if (!row || dot == AnsiString::npos)
                return row;
            from = dot + 1;
        }
    }

    // The value a control holds, read through the runtime's own properties.
    static AnsiString Stored(TObject* object, const AnsiString& path)
    {
        const size_t dot = path.find('.');
        if (dot != AnsiString::npos)
            return Stored(GetObjectProp(object, path.substr(0, dot)), path.substr(dot + 1));
        const TPropInfo* prop = RequirePropInfo(object, path);
        if (prop->PropType->Kind != tkClass)
            return VarToStr(GetPropValue(object, path));
        auto* component = dynamic_cast<TComponent*>(GetObjectProp(object, prop));
        return component ? component->Name() : AnsiString();
    }

    std::vector<AnsiString> StoredInAll(const AnsiString& path) const
    {
        std::vector<AnsiString> values;
        for (TComponent* control : Chosen)
            values.push_back(Stored(control, path));
        return values;
    }

    std::unique_ptr<TFormDesigner> Form;
    std::vector<TComponent*> Chosen;
};

struct TRowCase {
    const char* Class;
    const char* Property;
    bool Shared;          // shown while two controls are chosen, and edited in both
    const char* Shown;
    bool Ellipsis;        // opens a dialog
    bool ValueList;       // drops down a list
    bool Typeable;
    const char* Offered;  // one value the list holds, or nullptr
    const char* Typed;    // nullptr: not typed
    const char* Stored;   // what the chosen controls then hold
    const char* Refused;  // typed text that changes nothing, or nullptr
};

TEST_F(Inspector, EachRowShowsOffersAndWritesWhatItsEditorAllows)
{
    const TRowCase cases[] = {
        {"TQzBitBtn", "ModalResult", true, "mrNone", false, true, true, "mrClose", "mrok", "1", "mrMaybe"},
        {"TQzSpeedButton", "ModalResult", true, "mrNone", false, true, true, "mrYesToAll", "12", "12", "1x"},
        {"TQzShape", "Pen.Width", true, "1", false, true, true, "20", "3", "3", "wide"},
        {"TQzUpDown", "Associate", true, "", false, true, true, "Edit1", "edit1", "Edit1", "Label1"},
        {"TQzCForm", "BtnOk", true, "", false, true, true, "BitBtn1", "BitBtn1", "BitBtn1", "Edit1"},
        {"TQzImageBar", "Image", true, "", false, true, true, "Image1", "Image1", "Image1", "Label1"},
        {"TQzImage", "GraphicClass", true, "", false, true, true, "png", "png", "png", nullptr},
        {"TQzDbPkgImage", "PkgName", true, "", false, true, true, nullptr, "User", "User", nullptr},
        {"TQzCheckBox", "ValueChecked", true, "", false, false, true, nullptr, "Y", "Y", nullptr},
        {"TQzLabel", "Text", true, "", true, false, true, nullptr, "one", "one", nullptr},
        {"TQzEdit", "Value", false, "{NULL}", false, false, true, nullptr, "abc", "abc", nullptr},
        {"TQzCApplication", "Path", false, "", true, false, true, nullptr, "/data/packages", "/data/packages", nullptr},
        {"TQzCApplication", "PkgSetup", false, "(DFM)", true, false, false, nullptr, nullptr, nullptr, nullptr},
        {"TQzPkgImages", "InitMode", false, "DFM", false, true, false, "FILE", nullptr, nullptr, nullptr},
        {"TQzPkgStrings", "FileName", false, "(DFM)", true, false, false, nullptr, nullptr, nullptr, nullptr},
        {"TQzMainMenu", "WindowsList", false, "", false, true, true, nullptr, nullptr, nullptr, "Edit1"},
        {"TQzRichEdit", "Lines", false, "(TStrings)", true, false, false, nullptr, nullptr, nullptr, nullptr},
        {"TQzComboBox", "Items", true, "(Empty)", true, false, false, nullptr, nullptr, nullptr, nullptr},
        {"TQzPopupMenu", "Items", true, "(Menu)", true, false, false, nullptr, nullptr, nullptr, nullptr},
        {"TQzPanel", "Caption", true, "(None)", true, false, false, nullptr, nullptr, nullptr, nullptr},
    };
    for (const TRowCase& c : cases) {
        const AnsiString what = AnsiString(c.Class) + "." + c.Property;
        SCOPED_TRACE(what);
        MakeForm(c.Class, 2);
        if (Chosen.size() == 2) {
            EXPECT_EQ(Row(c.Property) != nullptr, c.Shared) << "shown for two controls";
        }
        if (!c.Shared)
            Chosen.resize(1);
        std::unique_ptr<TPropertyEditor> row = Row(c.Property);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->GetValue(), c.Shown);
        const TPropertyAttributes attributes = row->GetAttributes();
        EXPECT_EQ(attributes.Contains(paDialog), c.Ellipsis);
        EXPECT_EQ(attributes.Contains(paValueList), c.ValueList);
        EXPECT_EQ(!attributes.Contains(paReadOnly), c.Typeable);
        const std::vector<AnsiString> offered = ValuesOf(*row);
        if (c.Offered) {
            EXPECT_NE(std::find(offered.begin(), offered.end(), c.Offered), offered.end()) << c.Offered;
        }
        if (c.Refused) {
            EXPECT_EQ(std::find(offered.begin(), offered.end(), c.Refused), offered.end()) << c.Refused << " offered";
            const std::vector<AnsiString> before = StoredInAll(c.Property);
            Form->ClearModified();
            EXPECT_THROW(row->SetValue(c.Refused), EConvertError) << c.Refused;
            EXPECT_EQ(StoredInAll(c.Property), before);
            EXPECT_FALSE(Form->IsModified());
        }
        if (c.Typed) {
            Form->ClearModified();
            row->SetValue(c.Typed);
            EXPECT_EQ(StoredInAll(c.Property), std::vector<AnsiString>(Chosen.size(), c.Stored)) << c.Typed;
            EXPECT_TRUE(Form->IsModified());
        }
    }
}

}  // namespace
