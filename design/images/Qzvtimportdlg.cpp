#include "design/images/Qzvtimportdlg.h"

#include "design/images/QzImportImagesLogic.h"
#include "vcl/QzIdEdit.h"

#include <algorithm>

TFrImportDlg::TFrImportDlg(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    // Digits only, enough of them for the last Id an import searches.
    QzMakeIdEdit(EdId, 7);
    QzSetModalResult(BtOk, mrOk);
    QzSetModalResult(BtCancel, mrCancel);
}

Integer TFrImportDlg::StartId() const
{
    return std::max(QzIdEditValue(EdId), 0);
}

void TFrImportDlg::SetStartId(Integer id)
{
    QzSetIdEditValue(EdId, id);
}
