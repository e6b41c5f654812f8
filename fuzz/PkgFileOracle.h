#pragma once
// What must hold of any bytes offered as a package file, shared by the fuzz
// target and the tests that replay its findings. PkgFileFault returns what
// went wrong, or an empty string when the bytes behaved:
//
// - Refused, the error is the package file error naming the file, and the
//   package that was to take the contents is exactly as it was (its
//   description and every byte of its contents).
// - Accepted, what the package holds now is written and read back the same.
//
// An input is one byte choosing the kind (its low bits) and whether the
// rest is a whole file (its high bit) or only the contents, which are then
// put in a correct envelope: most damage to a whole file is caught by the
// envelope's checksums, so the contents are where the model's readers are
// really tried.

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"

#include <iterator>
#include <memory>
#include <string>
#include <string_view>

namespace QzPkgFileOracle {

struct TKind {
    const char* Name;  // as a file's header names it
    std::unique_ptr<TQzPkgInfo> (*Create)();
};

template <class T>
std::unique_ptr<TQzPkgInfo> Make()
{
    return std::make_unique<T>(nullptr);
}

inline constexpr TKind Kinds[] = {
    {QzPkgKindStrings, Make<TQzPkgStrings>},    {QzPkgKindImages, Make<TQzPkgImages>},
    {QzPkgKindVars, Make<TQzPkgVars>},          {QzPkgKindAccess, Make<TQzPkgPrivileges>},
    {QzPkgKindDisplay, Make<TQzPkgDisplay>},    {QzPkgKindLanguage, Make<TQzPkgLanguage>},
    {QzPkgKindSetup, Make<TQzPkgSetup>},
};
inline constexpr unsigned char WholeFile = 0x80;
inline constexpr const char* FileName = "fuzzed.pkg";

inline std::string ContentsOf(TQzPkgInfo& pkg)
{
    TWriter writer;
    pkg.xSaveToStream(&writer);
    return writer.Buffer();
}

inline std::string PkgFileFault(std::string_view input)
{
    if (input.empty())
        return {};
    const unsigned char head = static_cast<unsigned char>(input[0]);
    const TKind& kind = Kinds[(head & ~WholeFile) % std::size(Kinds)];
    const std::string file = head & WholeFile ? std::string(input.substr(1))
                                              : QzBuildPkgFile(kind.Name, "fuzzed", input.substr(1));
    TQzPkgFileCodec codec(kind.Name);
    // Packages read here join no list, so names and activity play no part.
    TQzDetachedPkgs detached;
    std::unique_ptr<TQzPkgInfo> pkg = kind.Create();
    pkg->SetDescription("before");
    TQzWindowPlacement placed;
    placed.Left = 11;
    pkg->SetPlacement(placed);
    const std::string before = ContentsOf(*pkg);
    try {
        codec.LoadFromBytes(*pkg, FileName, file);
    } catch (const EQzPkgFileError& e) {
        if (e.FileName() != FileName)
            return "refused without naming the file: " + e.Message();
        if (pkg->Description() != "before" || ContentsOf(*pkg) != before)
            return "refused but changed the package: " + e.Message();
        return {};
    } catch (const Exception& e) {
        return "refused with another error than the package file one: " + e.Message();
    } catch (const std::exception& e) {
        return std::string("a standard exception escaped: ") + e.what();
    }
    // Accepted: what was taken in must survive a save and a load.
    try {
        const std::string saved = codec.BuildFile(*pkg);
        std::unique_ptr<TQzPkgInfo> again = kind.Create();
        codec.LoadFromBytes(*again, FileName, saved);
        if (codec.BuildFile(*again) != saved)
            return "accepted contents do not read back the same";
    } catch (const Exception& e) {
        return "accepted contents cannot be saved and read back: " + e.Message();
    }
    return {};
}

}  // namespace QzPkgFileOracle
