#pragma once

#include <cstdio>
#include <string>
#include <vector>

// qzpkg pkg convert FROM TO [--component NAME]: a package kept in a form
// to a package file, or a package file's contents into a form's package,
// keeping every other byte of the form.
int RunPackageConvert(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
