#pragma once
// The editor controls: list and combo boxes that offer the application's
// display sets, the pictures of an images package, colours and printers,
// and the two dialog components that add pictures to an images package and
// design a picture's region. Their "Value" is the chosen entry.

#include "runtime/components/QzStdCtrls.h"

// A list box of entries it finds itself; Value is the chosen one.
class TQzLookupListBox : public TQzListControl, public TQzValueHolder {
    QZ_CLASS(TQzLookupListBox, TQzListControl)

public:
    explicit TQzLookupListBox(TComponent* owner) : TQzListControl(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzLookupListBox>& b);
};

// A combo box of entries it finds itself; Value is the chosen one.
class TQzLookupComboBox : public TQzComboControl, public TQzValueHolder {
    QZ_CLASS(TQzLookupComboBox, TQzComboControl)

public:
    explicit TQzLookupComboBox(TComponent* owner) : TQzComboControl(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzLookupComboBox>& b);
};

// The display sets of the application, by name.
#define QZ_SETS_LOOKUP(Name, Base)                                          \
    class Name : public Base {                                              \
        QZ_CLASS(Name, Base)                                                \
                                                                            \
    public:                                                                 \
        explicit Name(TComponent* owner) : Base(owner) { SetDataType(qdtString); } \
    };

QZ_SETS_LOOKUP(TQzLBSetsColor, TQzLookupListBox)
QZ_SETS_LOOKUP(TQzCBSetsColor, TQzLookupComboBox)
QZ_SETS_LOOKUP(TQzLBSetsBackGround, TQzLookupListBox)
QZ_SETS_LOOKUP(TQzCBSetsBackGround, TQzLookupComboBox)
QZ_SETS_LOOKUP(TQzLBSetsFont, TQzLookupListBox)
QZ_SETS_LOOKUP(TQzCBSetsFont, TQzLookupComboBox)
#undef QZ_SETS_LOOKUP

// The pictures of the images package PkgName, by Id.
class TQzLBPkgImages : public TQzLookupListBox {
    QZ_CLASS(TQzLBPkgImages, TQzLookupListBox)

public:
    explicit TQzLBPkgImages(TComponent* owner);
    const AnsiString& PkgName() const { return FPkgName; }
    void SetPkgName(const AnsiString& value) { FPkgName = value; }

private:
    static void DeclareProperties(TClassBuilder<TQzLBPkgImages>& b);

    AnsiString FPkgName;
};

class TQzCBPkgImages : public TQzLookupComboBox {
    QZ_CLASS(TQzCBPkgImages, TQzLookupComboBox)

public:
    explicit TQzCBPkgImages(TComponent* owner);
    const AnsiString& PkgName() const { return FPkgName; }
    void SetPkgName(const AnsiString& value) { FPkgName = value; }

private:
    static void DeclareProperties(TClassBuilder<TQzCBPkgImages>& b);

    AnsiString FPkgName;
};

// Colours by value; the system colours only with ShowSystemColors.
class TQzLBColors : public TQzLookupListBox {
    QZ_CLASS(TQzLBColors, TQzLookupListBox)

public:
    explicit TQzLBColors(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzLBColors>& b);

    bool FShowSystemColors = true;
};

class TQzCBColors : public TQzLookupComboBox {
    QZ_CLASS(TQzCBColors, TQzLookupComboBox)

public:
    explicit TQzCBColors(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzCBColors>& b);

    bool FShowSystemColors = true;
};

// The installed printers.
class TQzCBPrinters : public TQzComboControl {
    QZ_CLASS(TQzCBPrinters, TQzComboControl)

public:
    explicit TQzCBPrinters(TComponent* owner) : TQzComboControl(owner) {}
};

// A dialog component working on one images package, named by PkgName.
class TQzPkgImagesDialog : public TNonVisualComponent {
    QZ_CLASS(TQzPkgImagesDialog, TNonVisualComponent)

public:
    explicit TQzPkgImagesDialog(TComponent* owner);
    ~TQzPkgImagesDialog() override;
    const AnsiString& PkgName() const { return FPkgName; }
    void SetPkgName(const AnsiString& value) { FPkgName = value; }
    // The window's caption, from a strings package.
    TQzMemoryLabel* Title() const { return FTitle.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzPkgImagesDialog>& b);

    AnsiString FPkgName;
    std::unique_ptr<TQzMemoryLabel> FTitle;
};

// Imports picture files into the package.
class TQzPkgImagesAdd : public TQzPkgImagesDialog {
    QZ_CLASS(TQzPkgImagesAdd, TQzPkgImagesDialog)

public:
    explicit TQzPkgImagesAdd(TComponent* owner) : TQzPkgImagesDialog(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzPkgImagesAdd>& b);

    AnsiString FInitialDir;
};

// Designs the window region of the picture ImageId of the package.
class TQzPkgImagesDesignRgn : public TQzPkgImagesDialog {
    QZ_CLASS(TQzPkgImagesDesignRgn, TQzPkgImagesDialog)

public:
    explicit TQzPkgImagesDesignRgn(TComponent* owner) : TQzPkgImagesDialog(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzPkgImagesDesignRgn>& b);

    Integer FImageId = -1;
};
