#include "design/settings/QzAppPkgCopy.h"

#include "runtime/model/QzApplication.h"
#include "runtime/util/QzDesigner.h"

namespace {

std::string ContentsOf(TQzPkgInfo& pkg)
{
    TWriter writer;
    pkg.xSaveToStream(&writer);
    return writer.Buffer();
}

bool SameAppPkg(TQzPkgInfo& a, TQzPkgInfo& b)
{
    return a.Description() == b.Description() && a.InitMode() == b.InitMode() && a.FileName() == b.FileName() &&
           ContentsOf(a) == ContentsOf(b);
}

}  // namespace

void QzCopyAppPkg(TQzPkgInfo& from, TQzPkgInfo& to)
{
    to.Assign(&from);
    to.SetInitMode(from.InitMode());
    to.SetFileName(from.FileName());
}

bool QzCommitAppPkg(TQzPkgInfo& edited, TQzPkgInfo& target, TQzCApplication* app,
                    const TQzEditorDialogRequest& request)
{
    if (SameAppPkg(edited, target))
        return false;
    QzCopyAppPkg(edited, target);
    if (target.InitMode() == imFile)
        target.SaveFile();
    if (request.Designer)
        request.Designer->Modified();
    else
        QzDesignerModified(app ? app->Owner() : nullptr);
    return true;
}

AnsiString QzAppPkgStorageText(const TQzPkgInfo& pkg)
{
    if (pkg.InitMode() == imFile && !pkg.FileName().empty())
        return pkg.FileName() + " (FILE)";
    return "(DFM)";
}

TQzCApplication* QzRequestApplication(const TQzEditorDialogRequest& request)
{
    if (auto* app = dynamic_cast<TQzCApplication*>(request.Component))
        return app;
    return QzCApp();
}
