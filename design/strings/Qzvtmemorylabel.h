#pragma once
// TFrMemoryLabel ("Labels"): chooses the package and the label a
// TQzMemoryLabel refers to, with the label's hint under the list.

#include "design/strings/QzMemoryEditor.h"

#include "ui_TFrMemoryLabel.h"

class TFrMemoryLabel : public TQzMemoryEditor, public Ui::TFrMemoryLabel {
    Q_OBJECT

public:
    explicit TFrMemoryLabel(QWidget* parent = nullptr);

protected:
    std::unique_ptr<TQzMemoryItemAdd> CreateAddDialog() override;
};

// Installs the editor as the window the TQzMemoryLabel property editor opens.
void RegisterQzvtmemorylabel();
