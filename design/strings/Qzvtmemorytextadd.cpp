#include "design/strings/Qzvtmemorytextadd.h"

#include "vcl/QzWindowBounds.h"

namespace {

TQzResizeInfoDesigner ResizeInfo;

}  // namespace

TFrMemoryTextAdd::TFrMemoryTextAdd(QWidget* parent) : TQzMemoryItemAdd(TQzMemoryFamily::Texts, parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    Bind(EdId, EdProtected, BtOk, BtCancel);
}

void TFrMemoryTextAdd::ShowFields(const TQzMemoryItemFields& fields)
{
    QzSetMemoText(EdText, fields.Text);
}

void TFrMemoryTextAdd::ReadFields(TQzMemoryItemFields& fields) const
{
    fields.Text = QzMemoText(EdText);
}
