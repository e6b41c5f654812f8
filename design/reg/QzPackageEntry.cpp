// The plug-in's only code: the entry the host finds by name. Everything it
// calls lives in dclQzCtrls_c6_core, so a program that links the core and
// also loads the plug-in still has one copy of the package.

#include "design/reg/Qzreg.h"

extern "C" __attribute__((visibility("default"))) void QzDesignPackageRegister()
{
    Register();
}
