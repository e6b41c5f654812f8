#pragma once

#include <cstdio>
#include <string>
#include <vector>

// qzpkg pkg info|dump|convert: the commands on package files.
int RunPackage(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);

// qzpkg pkg info FILE: the package file's kind, description and item counts,
// one "Name: value" a line.
int RunPackageInfo(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);

// qzpkg pkg dump FILE: the package file's contents as text, one item a line,
// its fields separated by tabs ("label<TAB>Id<TAB>Text<TAB>Hint"). Tabs,
// line breaks and backslashes inside a field are written \t, \n, \r, \\.
int RunPackageDump(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
