#pragma once
// The design package's access to the open project: its name, its modules
// and forms, a form as text, writing a form text back, and a form's root
// component in the designer. Everything goes through the installed
// project services; calling any of these without them is an assertion
// failure naming QzPortDsgn.

#include "designide/ProjectServices.h"

// Installs the services these functions use (not owned; nullptr removes them).
void SetProjectServices(TProjectServices* services);
TProjectServices* GetProjectServices();

// Installs services for the lifetime of a scope and puts the previous ones back.
class TProjectServicesScope {
public:
    explicit TProjectServicesScope(TProjectServices* services);
    ~TProjectServicesScope();
    TProjectServicesScope(const TProjectServicesScope&) = delete;
    TProjectServicesScope& operator=(const TProjectServicesScope&) = delete;

private:
    TProjectServices* FPrevious;
};

AnsiString QzGetProjectName();
int QzGetModuleCount();
// The modules that have a form.
int QzGetFormCount();
// Replaces names' lines with the form file names: each module's file name
// with its extension changed to ".dfm".
void QzGetFormNames(TStrings* names);
// The form as text, from the designer when it is open there, else from
// the form file (a resource or binary form converted, a text form as it
// stands); format receives the stored format. False when the form file
// does not exist.
bool QzDelphiFormToFormText(const AnsiString& formFileName, TStrings* lines, TStreamOriginalFormat& format);
// Writes lines to the form file: a compiled resource when format is
// sofBinary, text otherwise; atomically, keeping the previous file as
// Name.~dfm.
void QzDelphiFormTextToForm(TStrings* lines, const AnsiString& formFileName, TStreamOriginalFormat format);
// The form's root as open in the designer, opened when needed; nullptr when
// no module has that form.
TComponent* QzDelphiDesignForm(const AnsiString& formFileName);
