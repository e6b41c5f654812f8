#include "design/strings/Qzvtmemorymessage.h"

#include "design/reg/QzEditorDialogs.h"
#include "design/strings/Qzvtmemorymessageadd.h"
#include "vcl/QzWindowBounds.h"

#include <QApplication>

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
    QzSetEditorDialog(TQzEditorDialog::MemoryMessage, [](TQzEditorDialogRequest& request) {
        auto* ref = dynamic_cast<TQzMemoryMessage*>(request.Target);
        if (!ref)
            return 0;
        TFrMemoryMessage form(QApplication::activeWindow());
        form.SetMemory(ref);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
