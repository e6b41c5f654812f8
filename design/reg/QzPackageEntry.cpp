// The plug-in's only code: what the host finds by name. Everything it
// calls lives in dclQzCtrls_c6_core, so a program that links the core and
// also loads the plug-in still has one copy of the package. The plug-in is
// built with hidden symbols; these two are the only ones it exports.

#include "design/reg/Qzreg.h"

#include "designide/QzPackageInterface.h"

#define QZ_PACKAGE_EXPORT __attribute__((visibility("default")))

extern "C" {

// Read by the host before anything else: the version of the host
// interfaces this plug-in was compiled against.
QZ_PACKAGE_EXPORT extern const int QzDesignPackageVersion = QzDesignInterfaceVersion;

QZ_PACKAGE_EXPORT void QzDesignPackageRegister()
{
    Register();
}
}
