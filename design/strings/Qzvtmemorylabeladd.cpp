#include "design/strings/Qzvtmemorylabeladd.h"

#include "design/strings/Qzvtmemorylabeladdmultiline.h"
#include "vcl/QzQtString.h"
#include "vcl/QzWindowBounds.h"

namespace {

TQzResizeInfoDesigner ResizeInfo;

}  // namespace

TFrMemoryLabelAdd::TFrMemoryLabelAdd(QWidget* parent) : TQzMemoryItemAdd(TQzMemoryFamily::Labels, parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    Bind(EdId, EdProtected, BtOk, BtCancel);
    connect(SBEdit, &QToolButton::clicked, this, &TFrMemoryLabelAdd::SBEditClick);
}

void TFrMemoryLabelAdd::ShowFields(const TQzMemoryItemFields& fields)
{
    FText = fields.Text;
    EdLabel->setText(QzQString(fields.Text));
    EdHint->setText(QzQString(fields.Hint));
}

void TFrMemoryLabelAdd::ReadFields(TQzMemoryItemFields& fields) const
{
    // The edit shows the text as last set unless the user typed another.
    fields.Text = EdLabel->text() == QzQString(FText) ? FText : QzAnsiString(EdLabel->text());
    fields.Hint = QzAnsiString(EdHint->text());
}

void TFrMemoryLabelAdd::SBEditClick()
{
    TFrMemoryLabelAddMultiLine memo(this);
    TQzMemoryItemFields fields;
    ReadFields(fields);
    QzSetMemoText(memo.Memo, fields.Text);
    if (memo.Execute() != mrOk)
        return;
    FText = QzMemoText(memo.Memo);
    EdLabel->setText(QzQString(FText));
}
