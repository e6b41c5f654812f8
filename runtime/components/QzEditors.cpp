#include "runtime/components/QzEditors.h"

void TQzLookupListBox::DeclareProperties(TClassBuilder<TQzLookupListBox>& b)
{
    QzDeclareValue(b, false);
}

void TQzLookupComboBox::DeclareProperties(TClassBuilder<TQzLookupComboBox>& b)
{
    QzDeclareValue(b, false);
}

void TQzLBPkgImages::DeclareProperties(TClassBuilder<TQzLBPkgImages>& b)
{
    b.Property("PkgName", &TQzLBPkgImages::PkgName, &TQzLBPkgImages::SetPkgName);
}

// A picture is chosen by its Id.
TQzLBPkgImages::TQzLBPkgImages(TComponent* owner) : TQzLookupListBox(owner)
{
    SetDataType(qdtInteger);
}

void TQzCBPkgImages::DeclareProperties(TClassBuilder<TQzCBPkgImages>& b)
{
    b.Property("PkgName", &TQzCBPkgImages::PkgName, &TQzCBPkgImages::SetPkgName);
}

TQzCBPkgImages::TQzCBPkgImages(TComponent* owner) : TQzLookupComboBox(owner)
{
    SetDataType(qdtInteger);
}

void TQzLBColors::DeclareProperties(TClassBuilder<TQzLBColors>& b)
{
    b.Property("ShowSystemColors", &TQzLBColors::FShowSystemColors).Default(true);
}

// A colour is chosen by its number.
TQzLBColors::TQzLBColors(TComponent* owner) : TQzLookupListBox(owner)
{
    SetDataType(qdtInteger);
}

void TQzCBColors::DeclareProperties(TClassBuilder<TQzCBColors>& b)
{
    b.Property("ShowSystemColors", &TQzCBColors::FShowSystemColors).Default(true);
}

TQzCBColors::TQzCBColors(TComponent* owner) : TQzLookupComboBox(owner)
{
    SetDataType(qdtInteger);
}

void TQzPkgImagesDialog::DeclareProperties(TClassBuilder<TQzPkgImagesDialog>& b)
{
    b.Property("PkgName", &TQzPkgImagesDialog::PkgName, &TQzPkgImagesDialog::SetPkgName);
    QzDeclareOwned<TQzPkgImagesDialog, TQzMemoryLabel>(b, "Title", [](TQzPkgImagesDialog& d) { return d.Title(); });
}

TQzPkgImagesDialog::TQzPkgImagesDialog(TComponent* owner)
    : TNonVisualComponent(owner), FTitle(std::make_unique<TQzMemoryLabel>())
{
    FTitle->SetOwner(this);
}

TQzPkgImagesDialog::~TQzPkgImagesDialog() = default;

void TQzPkgImagesAdd::DeclareProperties(TClassBuilder<TQzPkgImagesAdd>& b)
{
    b.Property("InitialDir", &TQzPkgImagesAdd::FInitialDir);
}

void TQzPkgImagesDesignRgn::DeclareProperties(TClassBuilder<TQzPkgImagesDesignRgn>& b)
{
    b.Property("ImageId", &TQzPkgImagesDesignRgn::FImageId).Default(-1);
}
