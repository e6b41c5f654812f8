#include "design/manager/QzPkgFilesReg.h"

#include "design/manager/Qzvtpkgactive.h"
#include "design/reg/QzEditorDialogs.h"

void RegisterPkgFilesWindows()
{
    // "View &Package List" names the package, "View CA&pplication List" the
    // application; the window stays open beside the designer.
    QzSetEditorDialog(TQzEditorDialog::PkgActive, [](TQzEditorDialogRequest& request) {
        return QzShowPkgActive(request.Package ? request.Package : request.Component) ? 1 : 0;
    });
}
