// The strings editor's text files (one item a line, fields joined with ',')
// from anywhere: a line that cannot be read is refused with an error naming
// the file and the line, and whatever is read writes out as a file that
// reads back to itself.

#include "design/strings/QzPkgStringsLogic.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"

#include "rtl/StringList.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

[[noreturn]] void Fault(const std::string& what)
{
    std::fprintf(stderr, "%s\n", what.c_str());
    std::abort();
}

AnsiString Exported(const TQzPkgStrings& pkg, TQzMemoryFamily family)
{
    TStringList lines;
    QzStringsExportText(pkg, family, lines);
    return lines.Text();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const auto family = static_cast<TQzMemoryFamily>(data[0] % 3);
    TStringList lines;
    lines.SetText(std::string(reinterpret_cast<const char*>(data) + 1, size - 1));

    TQzDetachedPkgs detached;
    TQzPkgStrings pkg(nullptr);
    try {
        QzStringsImportText(pkg, family, lines, "in.txt");
    } catch (const Exception& e) {
        if (e.Message().find("in.txt") == std::string::npos || e.Message().find("line") == std::string::npos)
            Fault("refused without naming the file and line: " + e.Message());
        return 0;
    } catch (const std::exception& e) {
        Fault(std::string("refused with another error: ") + e.what());
    }

    // An export drops empty fields, so a label's lone hint comes back as its
    // text; from the second export on, the file is a fixed point.
    const AnsiString first = Exported(pkg, family);
    TStringList again;
    again.SetText(first);
    TQzPkgStrings copy(nullptr);
    try {
        QzStringsImportText(copy, family, again, "out.txt");
    } catch (const std::exception& e) {
        Fault(std::string("an export does not read back: ") + e.what());
    }
    if (Exported(copy, family) != first)
        Fault("an export reads back differently");
    return 0;
}
