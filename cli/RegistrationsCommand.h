#pragma once

#include <cstdio>
#include <string>
#include <vector>

// qzpkg registrations: runs the design package's Register and prints each
// registration call it made, one a line: the call's name and its arguments,
// separated by tabs.
int RunRegistrations(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
