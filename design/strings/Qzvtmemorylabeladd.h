#pragma once
// TFrMemoryLabelAdd: adds a label to a strings package or modifies one: Id,
// label text (a button opens it in a multi-line memo), hint and, for the
// "System" package, the "Protected" flag.

#include "design/strings/QzMemoryItemAdd.h"

#include "ui_TFrMemoryLabelAdd.h"

class TFrMemoryLabelAdd : public TQzMemoryItemAdd, public Ui::TFrMemoryLabelAdd {
    Q_OBJECT

public:
    explicit TFrMemoryLabelAdd(QWidget* parent = nullptr);

    void SBEditClick();

protected:
    void ShowFields(const TQzMemoryItemFields& fields) override;
    void ReadFields(TQzMemoryItemFields& fields) const override;
    QWidget* TextControl() const override { return EdLabel; }

private:
    // The label text as last set: a line edit may not keep the line breaks
    // a text from the multi-line memo has.
    AnsiString FText;
};
