#pragma once
// The commands of qzpkg, callable without a process so tests can run them.

#include <cstdio>
#include <string>
#include <vector>

// Runs one command line (without the program name); returns the exit code.
// Messages for the user go to out, errors to err.
int RunCommand(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
