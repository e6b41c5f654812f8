#include "design/strings/Qzvtmemorymessage.h"

#include "design/strings/QzMemoryEditorOpener.h"
#include "design/strings/Qzvtmemorymessageadd.h"
#include "vcl/QzWindowBounds.h"

namespace {

TQzResizeInfoDesigner ResizeInfo;

}  // namespace

TFrMemoryMessage::TFrMemoryMessage(QWidget* parent) : TQzMemoryEditor(TQzMemoryFamily::Messages, parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    Bind({EdPkg, EdId, EdMessage, OrderLabel, OrderId, Messages, nullptr, BtAdd, BtModify, BtDelete, BtNull, BtDefault,
          BtManager, BtOk, BtCancel});
}

std::unique_ptr<TQzMemoryItemAdd> TFrMemoryMessage::CreateAddDialog()
{
    return std::make_unique<TFrMemoryMessageAdd>(this);
}

void RegisterQzvtmemorymessage()
{
    QzInstallMemoryEditor<TFrMemoryMessage, TQzMemoryMessage>(TQzEditorDialog::MemoryMessage);
}
