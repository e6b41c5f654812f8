#include "design/strings/Qzvtmemorytext.h"

#include "design/reg/QzEditorDialogs.h"
#include "design/strings/Qzvtmemorytextadd.h"
#include "vcl/QzWindowBounds.h"

#include <QApplication>

namespace {

TQzResizeInfoDesigner ResizeInfo;

}  // namespace

TFrMemoryText::TFrMemoryText(QWidget* parent) : TQzMemoryEditor(TQzMemoryFamily::Texts, parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    Bind({EdPkg, EdId, EdText, OrderLabel, OrderId, Texts, EdTexto, BtAdd, BtModify, BtDelete, BtNull, BtDefault,
          BtManager, BtOk, BtCancel});
}

std::unique_ptr<TQzMemoryItemAdd> TFrMemoryText::CreateAddDialog()
{
    return std::make_unique<TFrMemoryTextAdd>(this);
}

void RegisterQzvtmemorytext()
{
    QzSetEditorDialog(TQzEditorDialog::MemoryText, [](TQzEditorDialogRequest& request) {
        auto* ref = dynamic_cast<TQzMemoryText*>(request.Target);
        if (!ref)
            return 0;
        TFrMemoryText form(QApplication::activeWindow());
        form.SetMemory(ref);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
