// Rich text from anywhere (a rich edit's lines, a file a user opens): RTF
// that cannot be read is refused with its line, and whatever is read writes
// out as RTF that reads back to what it wrote.

#include "runtime/util/QzRtf.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size > 64 * 1024)
        return 0;
    const AnsiString text(reinterpret_cast<const char*>(data), size);
    TQzRtfDocument document;
    try {
        document = QzReadRtf(text);
    } catch (const EQzRtfError&) {
        return 0;
    }
    // What the writer drops (characters a paragraph cannot hold) goes on the
    // first write; after it the text is stable.
    const AnsiString once = QzWriteRtf(document);
    const AnsiString twice = QzWriteRtf(QzReadRtf(once));
    if (once != twice) {
        std::fprintf(stderr, "RTF written from a read document reads back differently:\n%s\n---\n%s\n", once.c_str(),
                     twice.c_str());
        std::abort();
    }
    return 0;
}
