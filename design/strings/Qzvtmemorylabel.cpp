#include "design/strings/Qzvtmemorylabel.h"

#include "design/strings/QzMemoryEditorOpener.h"
#include "design/strings/Qzvtmemorylabeladd.h"
#include "vcl/QzWindowBounds.h"

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
    QzInstallMemoryEditor<TFrMemoryLabel, TQzMemoryLabel>(TQzEditorDialog::MemoryLabel);
}
