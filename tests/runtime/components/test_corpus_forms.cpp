// Real forms read into the control base classes: every value a modelled
// property is given in a real form must be taken (an identifier missing
// from a table would leave the property at its default and the value only
// raw), and every form must come back byte for byte.

#include "runtime/components/Forms.h"
#include "runtime/components/Menus.h"
#include "runtime/components/QzComponentsReg.h"

#include "rtl/ComponentStream.h"
#include "rtl/PropertyValues.h"
#include "support/Corpus.h"

#include <gtest/gtest.h>

#include <map>

namespace {

// The class library's own controls under their names, each publishing no
// more than the base classes do, so the real forms' controls load into the
// bases and exercise them.
#define QZ_STAND_IN(Name, Base)                               \
    class Name : public Base {                                \
        QZ_CLASS(Name, Base)                                  \
                                                              \
    public:                                                   \
        explicit Name(TComponent* owner) : Base(owner) {}     \
                                                              \
    private:                                                  \
        static void DeclareProperties(TClassBuilder<Name>& b) \
        {                                                     \
            DeclareCaption(b);                                \
        }                                                     \
    };

QZ_STAND_IN(TButton, TWinControl)
QZ_STAND_IN(TBitBtn, TWinControl)
QZ_STAND_IN(TCheckBox, TWinControl)
QZ_STAND_IN(TRadioButton, TWinControl)
QZ_STAND_IN(TGroupBox, TCustomControl)
QZ_STAND_IN(TPanel, TCustomControl)
QZ_STAND_IN(TTabSheet, TCustomControl)
QZ_STAND_IN(TLabel, TGraphicControl)
QZ_STAND_IN(TSpeedButton, TGraphicControl)
#undef QZ_STAND_IN

class TEdit : public TWinControl {
    QZ_CLASS(TEdit, TWinControl)

public:
    explicit TEdit(TComponent* owner) : TWinControl(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TEdit>& b) { DeclareText(b); }
};

std::vector<TMetaClass*> StandIns()
{
    return {TButton::ClassInfo(), TBitBtn::ClassInfo(),   TCheckBox::ClassInfo(), TRadioButton::ClassInfo(),
            TGroupBox::ClassInfo(), TPanel::ClassInfo(),  TTabSheet::ClassInfo(), TLabel::ClassInfo(),
            TSpeedButton::ClassInfo(), TEdit::ClassInfo()};
}

// The stand-ins are this file's alone: other tests in the program may rely
// on the class library's names being unknown.
class CorpusForms : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzComponentClasses();
        for (TMetaClass* cls : StandIns())
            RegisterClass(cls);
    }
    void TearDown() override
    {
        for (TMetaClass* cls : StandIns())
            UnRegisterClass(cls);
    }
};

bool IsOrdinal(const TTypeInfo* type)
{
    return type->Kind == tkInteger || type->Kind == tkEnumeration || type->Kind == tkSet || type->Kind == tkChar;
}

// The value a raw ordinal stands for, as the property's own text ("clRed",
// "[akLeft,akTop]", "12"); empty when the raw value is not an ordinal.
AnsiString RawOrdinalText(const std::string& raw, const TTypeInfo* type)
{
    TReader r{std::string_view(raw)};
    switch (r.NextValue()) {
    case vaIdent: {
        AnsiString ident = r.ReadIdent();
        Int64 value = 0;
        if (type->Kind == tkInteger && IdentToInt(type, ident, value))
            return IntToStr(value);
        if (type->Kind == tkEnumeration && GetEnumValue(type, ident) >= 0)
            return IntToStr(GetEnumValue(type, ident));
        return "unknown identifier " + ident;
    }
    case vaFalse:
    case vaTrue:
        return r.ReadBoolean() ? "1" : "0";
    case vaInt8:
    case vaInt16:
    case vaInt32:
    case vaInt64:
        return IntToStr(r.ReadInt64());
    case vaSet: {
        r.ReadValue();
        Int64 bits = 0;
        for (AnsiString name = r.ReadStr(); !name.empty(); name = r.ReadStr()) {
            int element = GetEnumValue(type->CompType, name);
            if (element < 0)
                return "unknown element " + name;
            bits |= Int64(1) << element;
        }
        return IntToStr(bits);
    }
    default:
        return {};
    }
}

// Every modelled ordinal property of every loaded component holds the value
// its form gave it.
void CheckOrdinalsTaken(TComponent* component, const std::string& file, std::map<AnsiString, int>& checked,
                        std::vector<std::string>& failures)
{
    if (auto* info = dynamic_cast<TComponentStreamInfo*>(component->StreamInfo())) {
        for (const TStreamedProperty& p : info->Properties) {
            AnsiString last;
            TObject* holder = ResolvePropertyPath(component, p.Name, last);
            const TPropInfo* prop = holder ? GetPropInfo(holder, last) : nullptr;
            if (!prop || !prop->SetProc || !IsOrdinal(prop->PropType))
                continue;
            const AnsiString expected = RawOrdinalText(p.Raw, prop->PropType);
            const AnsiString actual = IntToStr(GetOrdProp(holder, prop));
            if (expected.empty())
                continue;  // not an ordinal in the stream: a different property of the same name
            ++checked[prop->PropType->Name];
            if (expected != actual)
                failures.push_back(file + ": " + component->Name() + "." + p.Name + " is " + actual + ", the form says " +
                                   expected);
        }
    }
    for (int i = 0; i < component->ComponentCount(); ++i)
        CheckOrdinalsTaken(component->Components(i), file, checked, failures);
}

TEST_F(CorpusForms, EveryFormLoadsIntoTheControlClassesTakesItsValuesAndSavesByteForByte)
{
    std::vector<std::string> failures;
    std::map<AnsiString, int> checked;
    int forms = 0;
    for (const TCorpusFile& file : CorpusFiles()) {
        if (file.Format == "project")
            continue;
        const std::string original = ReadCorpusFile(file);
        const TFormTextOptions options = DetectFormTextOptions(original);
        try {
            const std::string binary = FormToBinary(original, options);
            // Whatever the root's class, it is read as a form, so the root
            // properties of every file meet TCustomForm.
            TForm form(nullptr);
            ReadComponentData(binary, &form, options);
            ++forms;
            CheckOrdinalsTaken(&form, file.Path, checked, failures);
            if (WriteComponentData(&form, options) != binary)
                failures.push_back(file.Path + ": written differently");
        } catch (const std::exception& e) {
            failures.push_back(file.Path + ": " + e.what());
        }
    }
    for (const std::string& f : failures)
        ADD_FAILURE() << f;
    EXPECT_GT(forms, 250);
    // The tables the real forms lean on most were met many times over.
    for (const char* type : {"TColor", "TFontCharset", "TCursor", "TAlign", "TAnchors", "TFontStyles",
                             "TFormBorderStyle", "TPosition", "TBorderIcons", "TTabOrder"})
        EXPECT_GT(checked[type], 0) << type;
}

}  // namespace
