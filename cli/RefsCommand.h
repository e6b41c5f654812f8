#pragma once

#include <cstdio>
#include <string>
#include <vector>

// qzpkg refs scan|count|replace|clean PROJECT --kind KIND ...: the packages
// manager over a project on disk (a project file or a folder of forms).
// Rows are tab-separated; exit code 3 when a count finds a reference to an
// item that does not exist, 1 for bad input (nothing is written then).
int RunRefs(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
