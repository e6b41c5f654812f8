#pragma once
// TFrMemoryTextAdd: adds a text to a strings package or modifies one: Id,
// the text in a memo and, for the "System" package, the "Protected" flag.

#include "design/strings/QzMemoryItemAdd.h"

#include "ui_TFrMemoryTextAdd.h"

class TFrMemoryTextAdd : public TQzMemoryItemAdd, public Ui::TFrMemoryTextAdd {
    Q_OBJECT

public:
    explicit TFrMemoryTextAdd(QWidget* parent = nullptr);

protected:
    void ShowFields(const TQzMemoryItemFields& fields) override;
    void ReadFields(TQzMemoryItemFields& fields) const override;
    QWidget* TextControl() const override { return EdText; }
};
