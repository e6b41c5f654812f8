// Binary and resource forms from anywhere: converting to text either
// succeeds or raises the class library's error, never crashes or hangs.

#include "rtl/FormText.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::string prefixed = "TPF0" + std::string(bytes);
    for (std::string_view form : {bytes, std::string_view(prefixed)}) {
        try {
            for (THighChars policy : {THighChars::Raw, THighChars::Escape, THighChars::Utf8}) {
                TFormTextOptions options;
                options.HighChars = policy;
                options.CodePage = policy == THighChars::Utf8 ? 936 : 1252;
                FormToText(form, options);
            }
            DetectFormTextOptions(form);
        } catch (const Exception&) {
        }
    }
    return 0;
}
