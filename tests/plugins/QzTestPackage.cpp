// A design package the host must refuse: built for another version of the
// designer interfaces, or (without QZ_TEST_PACKAGE_VERSION) saying none.
// It counts the calls of its Register, which must never run.

#include "designide/QzPackageInterface.h"

#define QZ_PACKAGE_EXPORT __attribute__((visibility("default")))

extern "C" {

#ifdef QZ_TEST_PACKAGE_VERSION
QZ_PACKAGE_EXPORT extern const int QzDesignPackageVersion = QZ_TEST_PACKAGE_VERSION;
#endif

QZ_PACKAGE_EXPORT int QzTestRegisterCalls = 0;

QZ_PACKAGE_EXPORT void QzDesignPackageRegister()
{
    ++QzTestRegisterCalls;
}
}
