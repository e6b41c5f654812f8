#pragma once

#include <cstdio>
#include <string>
#include <vector>

// qzpkg images export SOURCE DIR [--package NAME]
// qzpkg images import DIR PACKAGE
// An images package (a package file, or one kept in a form) to a folder of
// PNG files with a manifest, and a folder of pictures into a package file.
int RunImages(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
