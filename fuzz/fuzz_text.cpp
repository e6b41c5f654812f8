// Text forms from anywhere: refused with the line, or read completely so
// that what is written from them reads back the same.

#include "fuzz/FormOracle.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    const std::string fault = QzFormOracle::TextFormFault(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        std::abort();
    }
    return 0;
}
