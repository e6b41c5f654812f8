// Text forms from anywhere: parsing either succeeds, and then the result
// converts back to text that parses to the same binary, or fails with a
// parse error. Nothing else may happen.

#include "rtl/FormText.h"
#include "rtl/Parser.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string binary;
    try {
        binary = FormTextToBinary(text);
    } catch (const Exception&) {
        return 0;
    }
    // What we wrote we must read back; the text of it is stable.
    std::string again = FormTextToBinary(FormBinaryToText(binary));
    std::string second = FormTextToBinary(FormBinaryToText(again));
    if (again != second)
        std::abort();
    return 0;
}
