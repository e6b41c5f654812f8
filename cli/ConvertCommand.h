#pragma once

#include <cstdio>
#include <string>
#include <vector>

// qzpkg convert --to text|binary|resource [--high-chars raw|escape|utf8]
//               [--code-page N] [--line-break crlf|lf] [--utf8-strings] IN OUT
int RunConvert(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
