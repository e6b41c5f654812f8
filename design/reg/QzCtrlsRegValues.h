#pragma once
// Property editors whose whole behaviour is a value list or a text: modal
// results by name, pen widths, picture formats, package names, the storage
// mode, folders and data fields.

#include "designide/DesignEditors.h"

// A button's ModalResult: the names "mrNone" to "mrClose" for 0 to 15, any
// other value as its number. A name is accepted in any case; an empty text
// means mrNone.
class TQzModalResultProperty : public TIntegerProperty {
public:
    using TIntegerProperty::TIntegerProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const AnsiString& value) override;
};

// A pen's Width: 1 to 20 offered, any integer accepted.
class TQzWideProperty : public TIntegerProperty {
public:
    static constexpr int MaxListedWidth = 20;
    using TIntegerProperty::TIntegerProperty;
    TPropertyAttributes GetAttributes() override;
    void GetValues(const TGetStrProc& proc) override;
};

// An image's GraphicClass: the picture formats the program reads.
class TQzImageGraphicClassProperty : public TStringProperty {
public:
    using TStringProperty::TStringProperty;
    TPropertyAttributes GetAttributes() override;
    void GetValues(const TGetStrProc& proc) override;
};

// The name of an images package: the active ones are offered.
class TQzImagePkgNameProperty : public TStringProperty {
public:
    using TStringProperty::TStringProperty;
    TPropertyAttributes GetAttributes() override;
    void GetValues(const TGetStrProc& proc) override;
};

// The name of a variables package: the active ones are offered.
class TQzPkgVarsPkgVarsProperty : public TStringProperty {
public:
    using TStringProperty::TStringProperty;
    TPropertyAttributes GetAttributes() override;
    void GetValues(const TGetStrProc& proc) override;
};

// A package's InitMode, shown "DFM" or "FILE". It is changed only through
// the package load and save dialog, which also moves the contents; a value
// typed in the inspector is ignored.
class TQzPkgInitModeProperty : public TEnumProperty {
public:
    using TEnumProperty::TEnumProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const AnsiString& value) override;
};

// The text the storage mode value shows: "DFM", "FILE", else its number.
AnsiString QzInitModeText(Int64 mode);

// A folder typed as text, or chosen in the folder dialog.
class TQzDirectoryPropertyEditor : public TStringProperty {
public:
    static constexpr const char* DialogTitle = "Select an Alternative Path for Packages Search:";
    using TStringProperty::TStringProperty;
    TPropertyAttributes GetAttributes() override;
    void Edit() override;
};

// The field names of the data set that the component's "DataSource"
// property leads to (DataSource, then its DataSet, then the data set's
// Fields or FieldDefs, each item's FieldName or Name).
class TQzDBStringProperty : public TStringProperty {
public:
    using TStringProperty::TStringProperty;
    TPropertyAttributes GetAttributes() override;
    void GetValues(const TGetStrProc& proc) override;
};

// The DataField of the data-aware labels and edits.
class TQzDataFieldAggProperty : public TQzDBStringProperty {
public:
    using TQzDBStringProperty::TQzDBStringProperty;
};
