// The module's table of commands; qzpkg lists them in its usage and runs
// them through here.

#include "cli/DesignCommands.h"

#include "cli/ClassesCommand.h"
#include "cli/ImagesCommand.h"
#include "cli/PackageFileCommands.h"
#include "cli/RefsCommand.h"
#include "cli/RegistrationsCommand.h"
#include "cli/StringsCommand.h"

extern "C" __attribute__((visibility("default"))) const TDesignCommand* QzpkgDesignCommands()
{
    static const TDesignCommand commands[] = {
        {"registrations", RunRegistrations},
        {"pkg", RunPackage},
        {"info", RunPackageInfo},
        {"dump", RunPackageDump},
        {"classes", RunClasses},
        {"refs", RunRefs},
        {"strings", RunStrings},
        {"images", RunImages},
        {nullptr, nullptr},
    };
    return commands;
}
