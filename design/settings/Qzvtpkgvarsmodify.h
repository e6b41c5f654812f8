#pragma once
// TFrPkgVarsModify: "Edit Value", the value of one variable, edited with
// the editor its type needs (a True/False list for Booleans, digits for
// numbers). It closes with Ok only when the text is a value of the type.

#include "runtime/model/QzTypes.h"
#include "vcl/QzDialog.h"

#include "ui_TFrPkgVarsModify.h"

class TFrPkgVarsModify : public TQzDialog, public Ui::TFrPkgVarsModify {
    Q_OBJECT

public:
    explicit TFrPkgVarsModify(QWidget* parent = nullptr);

    // Sets the type of the value edited: its editor and its label.
    void SetType(TQzPkgVarsItemType type);
    TQzPkgVarsItemType Type() const { return FType; }
    // The value as typed (for Booleans, as chosen).
    AnsiString Value() const;
    void SetValue(const AnsiString& value);

    void accept() override;

private:
    TQzPkgVarsItemType FType = qvString;
    QString FLabelText;
};
