// The project access functions over the installed project services.

#include "designide/QzPortDsgn.h"

namespace {

TProjectServices* GServices = nullptr;

TProjectServices& Services(const char* function)
{
    QZ_ASSERT(GServices != nullptr, Format("QzPortDsgn: %s needs the project services, which are not installed", function));
    return *GServices;
}

}  // namespace

void SetProjectServices(TProjectServices* services)
{
    GServices = services;
}

TProjectServices* GetProjectServices()
{
    return GServices;
}

TProjectServicesScope::TProjectServicesScope(TProjectServices* services) : FPrevious(GServices)
{
    GServices = services;
}

TProjectServicesScope::~TProjectServicesScope()
{
    GServices = FPrevious;
}

AnsiString QzGetProjectName()
{
    return Services("QzGetProjectName").ProjectName();
}

int QzGetModuleCount()
{
    return Services("QzGetModuleCount").ModuleCount();
}

int QzGetFormCount()
{
    return Services("QzGetFormCount").FormCount();
}

void QzGetFormNames(TStrings* names)
{
    TProjectServices& services = Services("QzGetFormNames");
    QZ_ASSERT(names != nullptr, "QzPortDsgn: QzGetFormNames needs a list");
    names->BeginUpdate();
    names->Clear();
    for (int i = 0; i < services.ModuleCount(); ++i)
        if (services.Module(i).HasForm())
            names->Add(services.Module(i).FormFileName());
    names->EndUpdate();
}

bool QzDelphiFormToFormText(const AnsiString& formFileName, TStrings* lines, TStreamOriginalFormat& format)
{
    TProjectServices& services = Services("QzDelphiFormToFormText");
    QZ_ASSERT(lines != nullptr, "QzPortDsgn: QzDelphiFormToFormText needs a list");
    return services.ReadFormText(formFileName, *lines, format);
}

void QzDelphiFormTextToForm(TStrings* lines, const AnsiString& formFileName, TStreamOriginalFormat format)
{
    TProjectServices& services = Services("QzDelphiFormTextToForm");
    QZ_ASSERT(lines != nullptr, "QzPortDsgn: QzDelphiFormTextToForm needs a list");
    services.WriteFormText(*lines, formFileName, format);
}

TComponent* QzDelphiDesignForm(const AnsiString& formFileName)
{
    return Services("QzDelphiDesignForm").DesignForm(formFileName);
}
