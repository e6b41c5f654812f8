#include "runtime/components/QzForms.h"

void TQzFormDataSource::DeclareProperties(TClassBuilder<TQzFormDataSource>& b)
{
    b.Property("DataSource", &TQzFormDataSource::DataSource, &TQzFormDataSource::SetDataSource);
}

AnsiString TQzFormDataSource::GetDisplayName()
{
    return FDataSource.empty() ? TQzCollectionItem::GetDisplayName() : FDataSource;
}

// The form's string Caption stays the class library's; the suite's caption
// from a strings package is published as "Label".
void TQzCForm::DeclareProperties(TClassBuilder<TQzCForm>& b)
{
    b.Property("BtnCancel", &TQzCForm::BtnCancel, &TQzCForm::SetBtnCancel);
    b.Property("BtnOk", &TQzCForm::BtnOk, &TQzCForm::SetBtnOk);
    b.Property("DataSources", TCollection::ClassInfo()->TypeInfo(),
               [](TQzCForm& f) -> TCollection* { return f.DataSources(); },
               [](TQzCForm& f, TCollection* v) {
                   if (v)
                       f.DataSources()->Assign(v);
               });
    QzDeclareLabel(b, "Label");
    b.Property("PkgVars", &TQzCForm::PkgVars, &TQzCForm::SetPkgVars);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
}

TQzCForm::TQzCForm(TComponent* owner)
    : TForm(owner), FParts(this), FDataSources(std::make_unique<TQzCollection>(this, TQzFormDataSource::ClassInfo()))
{
}

TQzCForm::~TQzCForm() = default;

void TQzCForm::SetBtnOk(TControl* value)
{
    QzSetReference(this, FBtnOk, value);
}

void TQzCForm::SetBtnCancel(TControl* value)
{
    QzSetReference(this, FBtnCancel, value);
}

void TQzCForm::Notification(TComponent* component, TOperation operation)
{
    TForm::Notification(component, operation);
    if (operation == opRemove) {
        QzClearReference(FBtnOk, component);
        QzClearReference(FBtnCancel, component);
    }
}

void TQzCFrame::DeclareProperties(TClassBuilder<TQzCFrame>& b)
{
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
}

void TQzImageForm::DeclareProperties(TClassBuilder<TQzImageForm>& b)
{
    b.Property("Active", &TQzImageForm::FActive).Default(true);
    b.Property("Draggable", &TQzImageForm::FDraggable).Default(true);
    QzDeclareOwned<TQzImageForm, TQzMemoryImage>(b, "Picture", [](TQzImageForm& f) { return f.Picture(); });
}

TQzImageForm::TQzImageForm(TComponent* owner)
    : TNonVisualComponent(owner), FPicture(std::make_unique<TQzMemoryImage>())
{
    FPicture->SetOwner(this);
}

TQzImageForm::~TQzImageForm() = default;

void TQzMoveForm::DeclareProperties(TClassBuilder<TQzMoveForm>& b)
{
    b.Property("Active", &TQzMoveForm::FActive).Default(true);
    b.Property("Control", &TQzMoveForm::Control, &TQzMoveForm::SetControl);
}

void TQzMoveForm::SetControl(TControl* value)
{
    QzSetReference(this, FControl, value);
}

void TQzMoveForm::Notification(TComponent* component, TOperation operation)
{
    TNonVisualComponent::Notification(component, operation);
    if (operation == opRemove)
        QzClearReference(FControl, component);
}
