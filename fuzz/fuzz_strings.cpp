// Translators' files (PO, CSV and, with Qt, XLIFF) from anywhere: refused only with an
// error naming the file and a line, and a package that refuses entries is
// left as it was; read, they write and read back to the same entries.

#include "design/strings/QzStringsExchange.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void Fault(const std::string& what)
{
    std::fprintf(stderr, "%s\n", what.c_str());
    std::abort();
}

} // namespace

#ifndef QZ_FUZZ_XLIFF
// Without Qt the XLIFF reader is not built; the format is never chosen
// then, so the dispatcher's XLIFF branch only needs to link.
std::string QzWriteXliff(const std::vector<TQzStringsEntry>&, const AnsiString&)
{
    std::abort();
}
std::vector<TQzStringsEntry> QzReadXliff(const std::string&, const AnsiString&)
{
    std::abort();
}
#endif

// The first byte picks the format.
TQzExchangeFormat FormatOf(std::uint8_t byte)
{
#ifdef QZ_FUZZ_XLIFF
    if (byte % 3 == 2)
        return TQzExchangeFormat::Xliff;
#endif
    return byte & 1 ? TQzExchangeFormat::Csv : TQzExchangeFormat::Po;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const TQzExchangeFormat format = FormatOf(data[0]);
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::vector<TQzStringsEntry> entries;
    try {
        entries = QzReadStrings(bytes, format, "in");
    } catch (const EQzExchangeError& e) {
        if (e.Message().rfind("in:", 0) != 0)
            Fault("refused without naming the file: " + e.Message());
        return 0;
    } catch (const std::exception& e) {
        Fault(std::string("refused with another error: ") + e.what());
    }

    std::vector<TQzStringsEntry> back;
    try {
        back = QzReadStrings(QzWriteStrings(entries, format, "F"), format, "out");
    } catch (const std::exception& e) {
        Fault(std::string("what was read does not read back: ") + e.what());
    }
    if (back != entries)
        Fault("what was read reads back differently");

    TQzDetachedPkgs detached;
    TQzPkgStrings pkg(nullptr);
    pkg.Labels()->Add(3, "before", "hint");
    pkg.Texts()->Add(4, "before");
    const auto before = QzStringsEntries(pkg, nullptr);
    try {
        QzApplyStringsEntries(pkg, entries, "in");
    } catch (const EQzExchangeError&) {
        if (QzStringsEntries(pkg, nullptr) != before)
            Fault("refused entries changed the package");
        return 0;
    }
    if (QzStringsEntries(pkg, nullptr).size() != entries.size())
        Fault("the package does not hold the entries it took");
    return 0;
}
