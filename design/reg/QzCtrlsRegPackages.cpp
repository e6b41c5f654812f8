#include "design/reg/QzCtrlsRegPackages.h"

#include "design/reg/QzCtrlsRegReferences.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgInfo.h"

AnsiString QzPkgStorageText(const TQzPkgInfo* pkg)
{
    if (!pkg)
        return {};
    const AnsiString storage = pkg->InitMode() == imFile ? "(FILE)" : "(DFM)";
    return pkg->Description().empty() ? storage : pkg->Description() + " " + storage;
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzCApplicationPkgProperty::GetAttributes()
{
    return {paDialog, paReadOnly, paRevertable};
}

AnsiString TQzCApplicationPkgProperty::GetValue()
{
    return QzPkgStorageText(dynamic_cast<const TQzPkgInfo*>(GetObjectValue()));
}

void TQzCApplicationPkgProperty::Edit()
{
    QzRequireApplication();
    TQzEditorDialogRequest request;
    request.Component = dynamic_cast<TComponent*>(GetComponent(0));
    if (PassesPackage())
        request.Package = dynamic_cast<TComponent*>(GetObjectValue());
    request.Designer = Designer();
    // The dialogs change the application in place and mark the form
    // modified themselves, change by change.
    QzRunEditorDialog(DialogKind(), request);
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzCApplicationPrivilegesProperty::GetAttributes()
{
    return {paDialog, paReadOnly, paRevertable};
}

AnsiString TQzCApplicationPrivilegesProperty::GetValue()
{
    TObject* privileges = GetObjectValue();
    return "(" + (privileges ? privileges->ClassType()->ClassName() : GetPropType()->Name) + ")";
}

void TQzCApplicationPrivilegesProperty::Edit()
{
    TQzCApplication* app = QzRequireApplication();
    TQzEditorDialogRequest request;
    request.Component = dynamic_cast<TComponent*>(GetComponent(0));
    request.Package = app->Privileges();
    request.Designer = Designer();
    QzRunEditorDialog(TQzEditorDialog::Privileges, request);
}

// ---------------------------------------------------------------------------

TPropertyAttributes TQzPkgFileNameProperty::GetAttributes()
{
    return {paDialog, paReadOnly, paRevertable};
}

AnsiString TQzPkgFileNameProperty::GetValue()
{
    return QzPkgStorageText(dynamic_cast<const TQzPkgInfo*>(GetComponent(0)));
}

void TQzPkgFileNameProperty::Edit()
{
    QzRequireApplication();
    TQzEditorDialogRequest request;
    request.Component = dynamic_cast<TComponent*>(GetComponent(0));
    request.Package = request.Component;
    request.Designer = Designer();
    QzRunEditorDialog(DialogKind(), request);
}
