#include "TestComponents.h"

#include "designide/DesignEditors.h"
#include "rtl/ComponentStream.h"

const TTypeInfo* TypeInfo_TDtShape()
{
    static const TTypeInfo* t = DefineEnumType("TDtShape", {"dsCircle", "dsSquare", "dsTriangle"});
    return t;
}

const TTypeInfo* TypeInfo_TDtStyles()
{
    static const TTypeInfo* t =
        DefineSetType("TDtStyles", DefineEnumType("TDtStyle", {"dfBold", "dfItalic", "dfUnderline"}));
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

void TDtFont::Assign(TPersistent* source)
{
    if (auto* font = dynamic_cast<TDtFont*>(source)) {
        FName = font->FName;
        FSize = font->FSize;
        FStyle = font->FStyle;
        return;
    }
    TPersistent::Assign(source);
}

void TDtFont::DeclareProperties(TClassBuilder<TDtFont>& b)
{
    b.Property("Name", &TDtFont::FName);
    b.Property("Size", &TDtFont::FSize).Default(8);
    b.Set("Style", TypeInfo_TDtStyles(), &TDtFont::FStyle, nullptr, TDtStyles{});
}

void TDtBigFont::DeclareProperties(TClassBuilder<TDtBigFont>& b)
{
    b.Property("Weight", &TDtBigFont::FWeight).Default(400);
}

void TDtControl::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == FBuddy)
        FBuddy = nullptr;
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

void TDtButton::DeclareProperties(TClassBuilder<TDtButton>& b)
{
    b.Property("Hint", &TDtButton::FHint);
}

void TDtLabel::DeclareProperties(TClassBuilder<TDtLabel>& b)
{
    b.Property("TitleFont", &TDtLabel::GetTitleFont);
}

void TDtTimer::DeclareProperties(TClassBuilder<TDtTimer>& b)
{
    b.Property("Interval", &TDtTimer::FInterval).Default(1000);
}

void TDtForm::DeclareProperties(TClassBuilder<TDtForm>& b)
{
    b.Property("Caption", &TDtForm::FCaption);
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
