// Package files of every kind from anywhere, whole or as contents in a
// correct envelope: refused naming the file with the package untouched, or
// read so that what was read saves and reads back the same.

#include "fuzz/PkgFileOracle.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const std::string fault = QzPkgFileOracle::PkgFileFault(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        std::abort();
    }
    return 0;
}
