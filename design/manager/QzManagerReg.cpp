#include "design/manager/QzManagerReg.h"

#include "design/manager/Qzvtmanager.h"
#include "design/reg/QzEditorDialogs.h"

#include "designide/DesignMenuCommands.h"
#include "designide/QzPortDsgn.h"
#include "vcl/QzDialogs.h"

#include <QApplication>

namespace {

int RunManager(TQzEditorDialogRequest& request)
{
    TProjectServices* project = GetProjectServices();
    if (!project) {
        QzMessage("The packages manager works on the open project: open a project first.", mtInformation);
        return 0;
    }
    const TQzDlgManager kind = request.Kind >= 0 && request.Kind < QzDlgManagerCount
                                   ? static_cast<TQzDlgManager>(request.Kind)
                                   : TQzDlgManager::Labels;
    TQzRuntimePackages packages;
    TFrManager manager(*project, packages, QApplication::activeWindow());
    return manager.Execute(kind, request.PkgName, request.Value) == mrOk ? 1 : 0;
}

}  // namespace

void RegisterManagerWindows()
{
    QzSetEditorDialog(TQzEditorDialog::Manager, RunManager);
    for (const TQzDlgManagerInfo& info : QzDlgManagerInfos())
        RegisterDesignMenuCommand({QzManagerCommandGroup, info.Name, [kind = info.Kind] {
                                   TQzEditorDialogRequest request;
                                   request.Kind = static_cast<int>(kind);
                                   QzRunEditorDialog(TQzEditorDialog::Manager, request);
                               }});
}
