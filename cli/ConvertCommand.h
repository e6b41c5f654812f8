#pragma once

#include <cstdio>
#include <string>
#include <vector>

// qzpkg convert --to text|binary|resource [--high-chars raw|escape|utf8]
//               [--code-page N|auto] [--line-break crlf|lf] [--floats short|fixed]
//               [--wide-strings utf16|utf8] IN OUT
int RunConvert(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
