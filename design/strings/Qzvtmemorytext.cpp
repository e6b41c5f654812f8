#include "design/strings/Qzvtmemorytext.h"

#include "design/strings/QzMemoryEditorOpener.h"
#include "design/strings/Qzvtmemorytextadd.h"
#include "vcl/QzWindowBounds.h"

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
    QzInstallMemoryEditor<TFrMemoryText, TQzMemoryText>(TQzEditorDialog::MemoryText);
}
