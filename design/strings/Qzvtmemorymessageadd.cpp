#include "design/strings/Qzvtmemorymessageadd.h"

#include "vcl/QzWindowBounds.h"

namespace {

TQzResizeInfoDesigner ResizeInfo;

}  // namespace

TFrMemoryMessageAdd::TFrMemoryMessageAdd(QWidget* parent) : TQzMemoryItemAdd(TQzMemoryFamily::Messages, parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    Bind(EdId, EdProtected, BtOk, BtCancel);
}

void TFrMemoryMessageAdd::ShowFields(const TQzMemoryItemFields& fields)
{
    QzSetMemoText(EdMessage, fields.Text);
}

void TFrMemoryMessageAdd::ReadFields(TQzMemoryItemFields& fields) const
{
    fields.Text = QzMemoText(EdMessage);
}
