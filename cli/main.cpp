// qzpkg: the command line over the project's forms and packages.

#include "cli/Commands.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    try {
        return RunCommand(args, stdout, stderr);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "qzpkg: %s\n", e.what());
        return 1;
    }
}
