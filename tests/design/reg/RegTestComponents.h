#pragma once
// A component that publishes one property of every type the design
// package's property editors serve, so the editors can be tried on their
// own; and the helpers that build an editor over some of them, the way the
// object inspector does.

#include "designide/DesignEditors.h"
#include "designide/FormDesigner.h"
#include "runtime/model/QzMask.h"
#include "runtime/model/QzMemory.h"

#include <memory>
#include <vector>

class TRgHolder : public TComponent {
    QZ_CLASS(TRgHolder, TComponent)

public:
    explicit TRgHolder(TComponent* owner);

    TQzMemoryLabel FCaption{"", -1, false};
    TQzMemoryMessage FMessage;
    TQzMemoryText FText;
    TQzMemoryImage FImage;
    TQzSetFont FSetFont;
    TQzSetBackGround FSetBackGround;
    TQzSetColor FSetColor;
    TQzPrivilege FPrivilege;
    TQzMask FMask;
    AnsiString FLines;              // TQzMultiLine
    Integer FModalResult = 0;
    Integer FWidth = 1;
    AnsiString FGraphicClass;
    AnsiString FPkgName;
    AnsiString FPath;
    AnsiString FDataSource;
    AnsiString FDataField;
    Variant FValue;
    TQzDataType FDataType = qdtString;
    TQzRegisterInitMode FInitMode = imDFM;
    TComponent* FPartner = nullptr;

    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TRgHolder>& b);
};

// The same without a DataType: its values are texts.
class TRgPlain : public TComponent {
    QZ_CLASS(TRgPlain, TComponent)

public:
    using TComponent::TComponent;
    Variant FValue;

private:
    static void DeclareProperties(TClassBuilder<TRgPlain>& b);
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

// A form "Form1" with holders "H1", "H2", "H3" under a designer.
std::unique_ptr<TFormDesigner> MakeHolderForm();

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

std::vector<AnsiString> ValuesOf(TPropertyEditor& editor);
std::vector<AnsiString> VerbsOf(TComponentEditor& editor);
// "paDialog,paReadOnly": an attribute set as text, in declaration order.
AnsiString AttributesText(TPropertyAttributes attributes);
