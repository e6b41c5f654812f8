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
    connect(EdLabel, &QLineEdit::textEdited, this, [this](const QString& text) { FText = QzAnsiString(text); });
}

void TFrMemoryLabelAdd::ShowFields(const TQzMemoryItemFields& fields)
{
    FText = fields.Text;
    EdLabel->setText(QzQString(fields.Text));
    EdHint->setText(QzQString(fields.Hint));
}

void TFrMemoryLabelAdd::ReadFields(TQzMemoryItemFields& fields) const
{
    fields.Text = FText;
    fields.Hint = QzAnsiString(EdHint->text());
}

void TFrMemoryLabelAdd::SBEditClick()
{
    TFrMemoryLabelAddMultiLine memo(this);
    QzSetMemoText(memo.Memo, FText);
    if (memo.Execute() != mrOk)
        return;
    FText = QzMemoText(memo.Memo);
    EdLabel->setText(QzQString(FText));
}
