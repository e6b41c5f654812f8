#include "design/strings/Qzvtmemorylabel.h"

#include "design/reg/QzEditorDialogs.h"
#include "design/strings/Qzvtmemorylabeladd.h"
#include "vcl/QzWindowBounds.h"

#include <QApplication>

namespace {

TQzResizeInfoDesigner ResizeInfo;

}  // namespace

TFrMemoryLabel::TFrMemoryLabel(QWidget* parent) : TQzMemoryEditor(TQzMemoryFamily::Labels, parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    Bind({EdPkg, EdId, EdLabel, OrderLabel, OrderId, Labels, EdHint, BtAdd, BtModify, BtDelete, BtNull, BtDefault,
          BtManager, BtOk, BtCancel});
}

std::unique_ptr<TQzMemoryItemAdd> TFrMemoryLabel::CreateAddDialog()
{
    return std::make_unique<TFrMemoryLabelAdd>(this);
}

void RegisterQzvtmemorylabel()
{
    QzSetEditorDialog(TQzEditorDialog::MemoryLabel, [](TQzEditorDialogRequest& request) {
        auto* ref = dynamic_cast<TQzMemoryLabel*>(request.Target);
        if (!ref)
            return 0;
        TFrMemoryLabel form(QApplication::activeWindow());
        form.SetMemory(ref);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
