#include "runtime/components/QzComponentsReg.h"

#include "runtime/components/Forms.h"

#include "rtl/ComponentStream.h"

void RegisterQzComponentClasses()
{
    RegisterComponentStreamClasses();
    RegisterFormClasses();
}
