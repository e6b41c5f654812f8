#include "TestComponents.h"

#include "designide/DesignEditors.h"
#include "rtl/ComponentStream.h"

#include <filesystem>

#include <unistd.h>

const TTypeInfo* TypeInfo_TDtShape()
{
    static const TTypeInfo* t = DefineEnumType("TDtShape", {"dsCircle", "dsSquare", "dsTriangle"});
    return t;
}

const TTypeInfo* TypeInfo_TDtStyles()
{
    static const TTypeInfo* t = DefineSetType("TDtStyles", DefineEnumType("TDtStyle", {"dfBold", "dfItalic", "dfUnderline"}));
    return t;
}

const TTypeInfo* TypeInfo_TDtColor()
{
    static const TTypeInfo* t = DefineIntegerType("TDtColor", INT32_MIN, INT32_MAX);
    return t;
}

const TTypeInfo* TypeInfo_TDtCursor()
{
    static const TTypeInfo* t = DefineIntegerType("TDtCursor", INT16_MIN, INT16_MAX, {{"crDefault", 0}, {"crHand", -21}});
    return t;
}

void TDtControl::DeclareProperties(TClassBuilder<TDtControl>& b)
{
    b.Property("Width", &TDtControl::FWidth).Default(10);
    b.Property("Color", TypeInfo_TDtColor(), &TDtControl::FColor).Default(0);
    b.Property("Cursor", TypeInfo_TDtCursor(), &TDtControl::FCursor).Default(0);
    b.Property("Big", &TDtControl::FBig);
    b.Property("HotKey", &TDtControl::FHotKey);
    b.Enum("Shape", TypeInfo_TDtShape(), &TDtControl::FShape, nullptr, dsCircle);
    b.Property("Visible", &TDtControl::FVisible).Default(true);
    b.Set("Styles", TypeInfo_TDtStyles(), &TDtControl::FStyles, nullptr, TDtStyles{});
    b.Property("Ratio", &TDtControl::FRatio);
    b.Property("Caption", &TDtControl::FCaption);
    b.Property("Font", &TDtControl::GetFont);
    b.Property("Buddy", &TDtControl::FBuddy);
    b.Event("OnClick", &TDtControl::FOnClick);
    b.Property("Value", &TDtControl::FValue);
}

void RegisterDtClasses()
{
    RegisterComponentStreamClasses();
    RegisterClasses({ClassOf<TDtControl>(), ClassOf<TDtButton>(), ClassOf<TDtLabel>(), ClassOf<TDtTimer>(),
                     ClassOf<TDtForm>()});
}

std::unique_ptr<TFormDesigner> MakeTestDesigner()
{
    auto root = std::make_unique<TDtForm>(nullptr);
    root->SetName("Form1");
    (new TDtButton(root.get()))->SetName("Button1");
    (new TDtLabel(root.get()))->SetName("Label1");
    (new TDtControl(root.get()))->SetName("Control1");
    (new TDtTimer(root.get()))->SetName("Timer1");
    return std::make_unique<TFormDesigner>(std::move(root));
}

std::map<AnsiString, std::unique_ptr<TPropertyEditor>> EditorsFor(const TDesignerSelections& selection,
                                                                   IDesigner* designer)
{
    std::map<AnsiString, std::unique_ptr<TPropertyEditor>> editors;
    GetComponentProperties(selection, designer, [&](std::unique_ptr<TPropertyEditor> editor) {
        const AnsiString name = editor->GetName();
        editors[name] = std::move(editor);
    });
    return editors;
}

TTempFolder::TTempFolder()
{
    static int counter = 0;
    const auto name = "qz_designide_" + std::to_string(::getpid()) + "_" + std::to_string(++counter);
    FPath = (std::filesystem::temp_directory_path() / name).string();
    std::filesystem::remove_all(FPath);
    std::filesystem::create_directories(FPath);
}

TTempFolder::~TTempFolder()
{
    std::filesystem::remove_all(FPath);
}

void TTempFolder::Write(const std::string& name, const std::string& bytes) const
{
    std::filesystem::create_directories(std::filesystem::path(*this / name).parent_path());
    WriteFileAtomic(*this / name, bytes);
}
