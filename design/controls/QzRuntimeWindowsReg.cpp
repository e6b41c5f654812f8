#include "design/controls/QzRuntimeWindowsReg.h"

#include "design/reg/QzEditorDialogs.h"

#include "runtime/dialogs/QzImageE.h"
#include "runtime/dialogs/QzMemoE.h"
#include "runtime/dialogs/QzMsgHlp.h"
#include "runtime/dialogs/QzRichEditE.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/util/QzDesigner.h"

#include "rtl/StringList.h"

#include <QApplication>

namespace {

// What the window changed belongs to the form being designed.
void Modified(const TQzEditorDialogRequest& request)
{
    if (request.Designer)
        request.Designer->Modified();
}

int RunMemo(TQzEditorDialogRequest& request)
{
    TFrMemoE form(QApplication::activeWindow());
    auto* lines = dynamic_cast<TStrings*>(request.Target);
    if (!form.Execute(request.Caption, lines))
        return 0;
    if (lines)
        Modified(request);
    return 1;
}

int RunImage(TQzEditorDialogRequest& request)
{
    TFrImageE form(QApplication::activeWindow());
    if (!form.Execute(request.Caption, request.Component))
        return 0;
    // The picture lives in an images package, whose form changed, not the
    // control's (it still names the same image); they may be two forms.
    if (TQzPkgImagesImage* image = QzComponentImage(request.Component))
        if (TQzPkgInfo* package = image->Package())
            QzDesignerModified(package->Owner());
    return 1;
}

int RunRichText(TQzEditorDialogRequest& request)
{
    TFrRichEditE form(QApplication::activeWindow());
    if (!form.Execute(request.Caption, request.Component))
        return 0;
    if (request.Component)
        Modified(request);
    return 1;
}

int RunHelp(TQzEditorDialogRequest& request)
{
    TFrMsgHlp form(QApplication::activeWindow());
    return form.Execute(request.PkgName, request.TopicId, request.Text, request.Caption);
}

}  // namespace

void RegisterQzvtruntimewindows()
{
    QzSetEditorDialog(TQzEditorDialog::MemoEditor, RunMemo);
    QzSetEditorDialog(TQzEditorDialog::ImageEditor, RunImage);
    QzSetEditorDialog(TQzEditorDialog::RichEditor, RunRichText);
    QzSetEditorDialog(TQzEditorDialog::Help, RunHelp);
}
