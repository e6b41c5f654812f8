#pragma once
// TFrMemoryText ("Texts"): chooses the package and the text a
// TQzMemoryText refers to, with the whole text under the list.

#include "design/strings/QzMemoryEditor.h"

#include "ui_TFrMemoryText.h"

class TFrMemoryText : public TQzMemoryEditor, public Ui::TFrMemoryText {
    Q_OBJECT

public:
    explicit TFrMemoryText(QWidget* parent = nullptr);

protected:
    std::unique_ptr<TQzMemoryItemAdd> CreateAddDialog() override;
};

// Installs the editor as the window the TQzMemoryText property editor opens.
void RegisterQzvtmemorytext();
