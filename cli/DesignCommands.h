#pragma once
// The commands that work over the runtime and the design package live in a
// module of their own, which qzpkg loads only when one of them runs: a
// conversion then starts without loading Qt, the runtime or the design
// package.

#include <cstdio>
#include <string>
#include <vector>

using TCommandFunction = int (*)(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);

struct TDesignCommand {
    const char* Name;
    TCommandFunction Run;
};

// The module's one export: its commands, ending with {nullptr, nullptr}.
extern "C" const TDesignCommand* QzpkgDesignCommands();
inline constexpr const char* QzpkgDesignModuleFile = "qzpkg_design.so";

// qzpkg's side: the module's command of that name, loading the module on
// first use. Null when the module cannot be loaded or lacks the command;
// error then says why.
TCommandFunction FindDesignCommand(const std::string& name, std::string& error);
// Tests load the module from the build tree instead of beside the program.
void SetDesignCommandsModule(const std::string& path);
