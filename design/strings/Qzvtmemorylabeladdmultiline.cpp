#include "design/strings/Qzvtmemorylabeladdmultiline.h"

#include "design/reg/QzEditorDialogs.h"
#include "design/strings/QzMemoryItemAdd.h"
#include "vcl/QzQtString.h"
#include "vcl/QzWindowBounds.h"

#include <QApplication>

namespace {

TQzResizeInfoDesigner ResizeInfo;
TQzResizeInfoDesigner MultiLineResizeInfo;

}  // namespace

TFrMemoryLabelAddMultiLine::TFrMemoryLabelAddMultiLine(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    connect(BtOk, &QPushButton::clicked, this, &TFrMemoryLabelAddMultiLine::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrMemoryLabelAddMultiLine::reject);
}

TFrMultiLine::TFrMultiLine(QWidget* parent) : TFrMemoryLabelAddMultiLine(parent)
{
    setObjectName(QStringLiteral("TFrMultiLine"));
    RememberBounds(&MultiLineResizeInfo);
}

void RegisterQzvtmultiline()
{
    QzSetEditorDialog(TQzEditorDialog::MultiLine, [](TQzEditorDialogRequest& request) {
        TFrMultiLine form(QApplication::activeWindow());
        form.setWindowTitle(QzQString(request.Caption));
        QzSetMemoText(form.Memo, request.Text);
        if (form.Execute() != mrOk)
            return 0;
        request.Text = QzMemoText(form.Memo);
        return 1;
    });
}
