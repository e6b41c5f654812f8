#pragma once

#include <cstdio>
#include <string>
#include <vector>

// qzpkg strings export|import|check: a strings package (a package file, a
// language file's System or User strings, or a form's strings package)
// exchanged with translators' tools as PO, XLIFF or CSV, and checked
// against the language it was translated from. Exit code 3 when a check
// finds problems.
int RunStrings(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
