#pragma once
// A component that publishes one property of every type the design
// package's editors serve, so each editor can be tried on its own, and the
// helpers that build an editor over some of them as the inspector does.

#include "designide/DesignEditors.h"
#include "design/reg/QzEditorDialogs.h"
#include "designide/FormDesigner.h"
#include "runtime/model/QzMask.h"
#include "runtime/model/QzMemory.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

class TRgHolder : public TComponent {
    QZ_CLASS(TRgHolder, TComponent)

public:
    using TComponent::TComponent;

    TQzMemoryLabel FCaption;
    TQzMemoryMessage FMessage;
    TQzMemoryText FText;
    TQzMemoryImage FImage;
    TQzSetFont FSetFont;
    TQzSetColor FSetColor;
    TQzPrivilege FPrivilege;
    TQzMask FMask;
    AnsiString FLines;   // a TQzMultiLine
    Integer FModalResult = 0;
    AnsiString FPkgName, FPath, FDataSource, FDataField;
    Variant FValue;
    TQzDataType FDataType = qdtString;
    TQzRegisterInitMode FInitMode = imDFM;

private:
    static void DeclareProperties(TClassBuilder<TRgHolder>& b);
};

// A control whose data type is its mask's.
class TRgMasked : public TComponent {
    QZ_CLASS(TRgMasked, TComponent)

public:
    using TComponent::TComponent;
    TQzMask FMask;
    Variant FValue;

private:
    static void DeclareProperties(TClassBuilder<TRgMasked>& b);
};

void RegisterRgClasses();

// Each test starts from the design package's Register over the runtime's
// registered classes, and leaves no registrations behind.
class TRegisteredPackageTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

// An editor of class E over property `prop` of every object in `objects`.
template <class E>
std::unique_ptr<E> EditorOn(IDesigner* designer, const std::vector<TPersistent*>& objects, const AnsiString& prop)
{
    auto editor = std::make_unique<E>(designer, static_cast<int>(objects.size()));
    for (std::size_t i = 0; i < objects.size(); ++i)
        editor->SetPropEntry(static_cast<int>(i), objects[i], RequirePropInfo(objects[i], prop));
    editor->Initialize();
    return editor;
}

// A form "Form1" holding H1, H2 and H3 under a designer.
class THolderFormTest : public ::testing::Test {
protected:
    THolderFormTest();
    TRgHolder* H(const char* name) const { return dynamic_cast<TRgHolder*>(Form->GetComponent(name)); }
    template <class E>
    std::unique_ptr<E> On(const AnsiString& prop, std::vector<const char*> names = {"H1"})
    {
        std::vector<TPersistent*> objects;
        for (const char* n : names)
            objects.push_back(H(n));
        return EditorOn<E>(Form.get(), objects, prop);
    }

    std::unique_ptr<TFormDesigner> Form;
};

std::vector<AnsiString> ValuesOf(TPropertyEditor& editor);

// A window in place of an editor's dialog: records what it was given, acts
// on its target as the test says, and answers `result`.
struct TFakeDialog {
    TFakeDialog(TQzEditorDialog kind, int result = 1, std::function<void(TQzEditorDialogRequest&)> act = {})
        : Scope(kind, [this, result, act](TQzEditorDialogRequest& r) {
              Requests.push_back(r);
              if (act)
                  act(r);
              return result;
          })
    {
    }
    std::vector<TQzEditorDialogRequest> Requests;
    TQzEditorDialogScope Scope;
};
