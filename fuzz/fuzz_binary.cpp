// Binary and resource forms from anywhere, also without their signature:
// refused with the offset, or read completely so that the text written from
// them reads back the same, under each way of writing high characters.

#include "fuzz/FormOracle.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::string prefixed = "TPF0" + std::string(bytes);
    for (std::string_view form : {bytes, std::string_view(prefixed)}) {
        for (THighChars policy : {THighChars::Raw, THighChars::Escape, THighChars::Utf8}) {
            TFormTextOptions options;
            options.HighChars = policy;
            options.CodePage = policy == THighChars::Utf8 ? 936 : 1252;
            const std::string fault = QzFormOracle::BinaryFormFault(form, options);
            if (!fault.empty()) {
                std::fprintf(stderr, "%s\n", fault.c_str());
                std::abort();
            }
        }
        try {
            DetectFormTextOptions(form);
        } catch (const Exception&) {
        }
    }
    return 0;
}
