#pragma once
// TFrMemoryMessageAdd: adds a message to a strings package or modifies one: Id,
// the message in a memo and, for the "System" package, the "Protected" flag.

#include "design/strings/QzMemoryItemAdd.h"

#include "ui_TFrMemoryMessageAdd.h"

class TFrMemoryMessageAdd : public TQzMemoryItemAdd, public Ui::TFrMemoryMessageAdd {
    Q_OBJECT

public:
    explicit TFrMemoryMessageAdd(QWidget* parent = nullptr);

protected:
    void ShowFields(const TQzMemoryItemFields& fields) override;
    void ReadFields(TQzMemoryItemFields& fields) const override;
    QWidget* TextControl() const override { return EdMessage; }
};
