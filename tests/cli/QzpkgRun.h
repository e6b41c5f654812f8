#pragma once
// Runs one qzpkg command line in-process and captures what it prints.

#include "cli/Commands.h"
#include "cli/DesignCommands.h"

#include <cstdio>
#include <string>
#include <vector>

struct TQzpkgRun {
    int Code;
    std::string Out, Err;
};

// As the program runs it, with whatever design module is set.
inline TQzpkgRun QzpkgAsSet(const std::vector<std::string>& args)
{
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    const int code = RunCommand(args, out, err);
    const auto slurp = [](std::FILE* f) {
        std::string s;
        std::rewind(f);
        for (int c; (c = std::fgetc(f)) != EOF;)
            s.push_back(char(c));
        std::fclose(f);
        return s;
    };
    return {code, slurp(out), slurp(err)};
}

inline TQzpkgRun Qzpkg(const std::vector<std::string>& args)
{
#ifdef QZPKG_DESIGN_MODULE
    SetDesignCommandsModule(QZPKG_DESIGN_MODULE);
#endif
    return QzpkgAsSet(args);
}
