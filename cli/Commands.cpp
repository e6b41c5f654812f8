#include "cli/Commands.h"

#include "cli/ConvertCommand.h"
#ifdef QZ_CLI_DESIGN
#include "cli/ClassesCommand.h"
#include "cli/PackageFileCommands.h"
#include "cli/RegistrationsCommand.h"
#endif

#include <cstring>
#include <functional>
#include <map>

namespace {

const char* const Usage =
    "Usage: qzpkg COMMAND [OPTIONS] ARGUMENTS\n"
    "\n"
    "Commands:\n"
    "  convert --to text|binary|resource [options] IN OUT\n"
    "      Converts a form file between its text, binary and resource formats.\n"
#ifdef QZ_CLI_DESIGN
    "  registrations\n"
    "      Lists the design package's registration calls, one a line.\n"
    "  info FILE\n"
    "      Shows a package file's kind, description and item counts.\n"
    "  dump FILE\n"
    "      Prints a package file's items as text, one a line.\n"
    "  classes [--markdown] [CLASS ...]\n"
    "      Lists the runtime's component classes, or the properties of some.\n"
#endif
    "\n"
    "Run 'qzpkg COMMAND --help' for the options of a command.\n";

} // namespace

int RunCommand(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    if (args.empty() || args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        std::fputs(Usage, args.empty() ? err : out);
        return args.empty() ? 1 : 0;
    }
    const std::map<std::string, std::function<int(const std::vector<std::string>&, std::FILE*, std::FILE*)>> commands = {
        {"convert", RunConvert},
#ifdef QZ_CLI_DESIGN
        {"registrations", RunRegistrations},
        {"info", RunPackageInfo},
        {"dump", RunPackageDump},
        {"classes", RunClasses},
#endif
    };
    auto it = commands.find(args[0]);
    if (it == commands.end()) {
        std::fprintf(err, "qzpkg: unknown command '%s'\n\n%s", args[0].c_str(), Usage);
        return 1;
    }
    return it->second(std::vector<std::string>(args.begin() + 1, args.end()), out, err);
}
