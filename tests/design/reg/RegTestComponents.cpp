#include "RegTestComponents.h"

#include "design/reg/Qzreg.h"
#include "designide/DesignIntf.h"
#include "rtl/ComponentStream.h"
#include "runtime/components/QzComponentsReg.h"

void TRgHolder::DeclareProperties(TClassBuilder<TRgHolder>& b)
{
    b.Property("Caption", [](TRgHolder& h) { return &h.FCaption; });
    b.Property("Message", [](TRgHolder& h) { return &h.FMessage; });
    b.Property("Text", [](TRgHolder& h) { return &h.FText; });
    b.Property("Image", [](TRgHolder& h) { return &h.FImage; });
    b.Property("SetFont", [](TRgHolder& h) { return &h.FSetFont; });
    b.Property("SetColor", [](TRgHolder& h) { return &h.FSetColor; });
    b.Property("Privilege", [](TRgHolder& h) { return &h.FPrivilege; });
    b.Property("Mask", [](TRgHolder& h) { return &h.FMask; });
    b.Property("Lines", TypeInfo_TQzMultiLine(), &TRgHolder::FLines);
    b.Property("ModalResult", &TRgHolder::FModalResult);
    b.Property("PkgName", &TRgHolder::FPkgName);
    b.Property("Path", &TRgHolder::FPath);
    b.Property("DataSource", &TRgHolder::FDataSource);
    b.Property("DataField", &TRgHolder::FDataField);
    b.Property("Value", &TRgHolder::FValue);
    b.Enum("DataType", TypeInfo_TQzDataType(), &TRgHolder::FDataType, nullptr, qdtString);
    b.Enum("InitMode", TypeInfo_TQzRegisterInitMode(), &TRgHolder::FInitMode, nullptr, imDFM);
}

void TRgMasked::DeclareProperties(TClassBuilder<TRgMasked>& b)
{
    b.Property("Mask", [](TRgMasked& m) { return &m.FMask; });
    b.Property("Value", &TRgMasked::FValue);
}

void RegisterRgClasses()
{
    RegisterComponentStreamClasses();
    RegisterClass(ClassOf<TRgHolder>());
}

void TRegisteredPackageTest::SetUp()
{
    RegisterQzComponentClasses();
    ClearRegistrations();
    Register();
}

void TRegisteredPackageTest::TearDown()
{
    ClearRegistrations();
}

THolderFormTest::THolderFormTest()
{
    RegisterRgClasses();
    auto root = std::make_unique<TComponent>(nullptr);
    root->SetName("Form1");
    for (const char* name : {"H1", "H2", "H3"})
        (new TRgHolder(root.get()))->SetName(name);
    Form = std::make_unique<TFormDesigner>(std::move(root));
}

std::vector<AnsiString> ValuesOf(TPropertyEditor& editor)
{
    std::vector<AnsiString> values;
    editor.GetValues([&](const AnsiString& v) { values.push_back(v); });
    return values;
}
