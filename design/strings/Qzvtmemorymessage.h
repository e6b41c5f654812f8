#pragma once
// TFrMemoryMessage ("Messages"): chooses the package and the message a
// TQzMemoryMessage refers to.

#include "design/strings/QzMemoryEditor.h"

#include "ui_TFrMemoryMessage.h"

class TFrMemoryMessage : public TQzMemoryEditor, public Ui::TFrMemoryMessage {
    Q_OBJECT

public:
    explicit TFrMemoryMessage(QWidget* parent = nullptr);

protected:
    std::unique_ptr<TQzMemoryItemAdd> CreateAddDialog() override;
};

// Installs the editor as the window the TQzMemoryMessage property editor opens.
void RegisterQzvtmemorymessage();
