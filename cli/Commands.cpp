#include "cli/Commands.h"

#include "cli/ConvertCommand.h"
#include "cli/DesignCommands.h"

namespace {

// A command runs here (Run set) or from the design commands' module. One
// without a synopsis is an older name kept working but not listed.
struct TCommand {
    const char* Name;
    const char* Synopsis;
    TCommandFunction Run;
};

const TCommand Commands[] = {
    {"convert", "convert --to text|binary|resource [options] IN OUT\n"
                "      Converts a form file between its text, binary and resource formats.\n",
     RunConvert},
#ifdef QZ_CLI_DESIGN
    {"registrations", "registrations\n"
                      "      Lists the design package's registration calls, one a line.\n", nullptr},
    {"pkg", "pkg info|dump FILE\n"
            "      Shows a package file's kind, description and item counts, or its items.\n"
            "  pkg convert FROM TO [--component NAME]\n"
            "      Moves a package between a form and a package file.\n", nullptr},
    {"info", nullptr, nullptr},
    {"dump", nullptr, nullptr},
    {"classes", "classes [--markdown] [CLASS ...]\n"
                "      Lists the runtime's component classes, or the properties of some.\n", nullptr},
    {"refs", "refs scan|count|replace|clean PROJECT --kind KIND [options]\n"
             "      Finds, counts, replaces or clears the forms' references to packages.\n", nullptr},
    {"images", "images export SOURCE DIR | images import DIR PACKAGE\n"
               "      Writes an images package's pictures to PNG files, or reads pictures into one.\n", nullptr},
    {"strings", "strings export|import|check PACKAGE [options] [FILE]\n"
                "      Exchanges a strings package with translators' tools (PO, XLIFF, CSV), or checks it.\n", nullptr},
#endif
};

void PrintUsage(std::FILE* to)
{
    std::fputs("Usage: qzpkg COMMAND [OPTIONS] ARGUMENTS\n\nCommands:\n", to);
    for (const TCommand& c : Commands) {
        if (!c.Synopsis)
            continue;
        std::fputs("  ", to);
        std::fputs(c.Synopsis, to);
    }
    std::fputs("\nRun 'qzpkg COMMAND --help' for the options of a command.\n", to);
}

} // namespace

int RunCommand(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    if (args.empty() || args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        PrintUsage(args.empty() ? err : out);
        return args.empty() ? 1 : 0;
    }
    const TCommand* command = nullptr;
    for (const TCommand& c : Commands)
        if (args[0] == c.Name)
            command = &c;
    if (!command) {
        std::fprintf(err, "qzpkg: unknown command '%s'\n\n", args[0].c_str());
        PrintUsage(err);
        return 1;
    }
    TCommandFunction run = command->Run;
    if (!run) {
        std::string error;
        run = FindDesignCommand(command->Name, error);
        if (!run) {
            std::fprintf(err, "qzpkg %s: %s\n", command->Name, error.c_str());
            return 1;
        }
    }
    return run(std::vector<std::string>(args.begin() + 1, args.end()), out, err);
}
