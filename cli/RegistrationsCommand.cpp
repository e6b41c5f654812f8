#include "cli/RegistrationsCommand.h"

#include "design/reg/Qzreg.h"
#include "designide/DesignIntf.h"

#include "rtl/SysUtils.h"

namespace {

const char* const RegistrationsUsage =
    "Usage: qzpkg registrations\n"
    "\n"
    "Runs the design package's Register as the designer does when it loads\n"
    "the package, and prints every registration call in the order made, one\n"
    "a line, the call's name and its arguments separated by tabs:\n"
    "  RegisterComponents      page, classes (comma-separated), last index\n"
    "  RegisterPropertyEditor  property type, component class (nil: any),\n"
    "                          property name (empty: any), editor class\n"
    "  RegisterComponentEditor component class, editor class\n"
    "  RegisterNoIcon, RegisterClass, RegisterClasses   the classes\n"
    "  GroupDescendentsWith    the class, the group class\n";

}  // namespace

int RunRegistrations(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    if (!args.empty() && (args[0] == "--help" || args[0] == "-h")) {
        std::fputs(RegistrationsUsage, out);
        return 0;
    }
    if (!args.empty()) {
        std::fprintf(err, "qzpkg registrations: unexpected argument '%s'\n\n%s", args[0].c_str(), RegistrationsUsage);
        return 1;
    }
    try {
        // Only this package's calls: the listing must not depend on what ran before.
        ClearRegistrations();
        Register();
        for (const AnsiString& line : DesignRegistry().Listing())
            std::fprintf(out, "%s\n", line.c_str());
        ClearRegistrations();
    } catch (const Exception& e) {
        ClearRegistrations();
        std::fprintf(err, "qzpkg registrations: %s\n", e.Message().c_str());
        return 1;
    }
    return 0;
}
