#pragma once
// qzpkg classes: the runtime's component classes and their published
// properties, as forms and the designer see them.

#include <cstdio>
#include <string>
#include <vector>

int RunClasses(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
