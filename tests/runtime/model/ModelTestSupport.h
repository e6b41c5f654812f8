#pragma once
// Helpers shared by the model's tests: a package file format that the
// tests install in place of the files layer's, and fillers that give a
// package one of everything.

#include "runtime/model/Qzmain.h"

#include "rtl/Streams.h"

#include <memory>
#include <utility>
#include <vector>

namespace QzModelTest {

// Files as: kind name, a line break, the description, a line break, then
// the contents block. Enough to drive LoadFile/SaveFile and friends.
class TTestFileFormat : public TQzPkgFileFormat {
public:
    int Saves = 0;
    int Loads = 0;

    void SaveToFile(TQzPkgInfo& pkg, const AnsiString& fileName) override
    {
        TWriter w;
        pkg.xSaveToStream(&w);
        WriteFileAtomic(fileName, pkg.KindName() + "\n" + pkg.Description() + "\n" + w.Buffer());
        ++Saves;
    }

    void LoadFromFile(TQzPkgInfo& pkg, const AnsiString& fileName) override
    {
        const std::string bytes = ReadFileBytes(fileName);
        const size_t kindEnd = bytes.find('\n');
        const size_t descEnd = kindEnd == std::string::npos ? kindEnd : bytes.find('\n', kindEnd + 1);
        if (descEnd == std::string::npos || bytes.substr(0, kindEnd) != pkg.KindName())
            throw EReadError(fileName + ": not a " + pkg.KindName() + " file");
        const std::string body = bytes.substr(descEnd + 1);
        TReader r(body);
        pkg.xLoadFromStream(&r);
        pkg.SetDescription(bytes.substr(kindEnd + 1, descEnd - kindEnd - 1));
        ++Loads;
    }

    AnsiString ReadDescription(const AnsiString& fileName) override
    {
        const std::string bytes = ReadFileBytes(fileName);
        const size_t kindEnd = bytes.find('\n');
        return bytes.substr(kindEnd + 1, bytes.find('\n', kindEnd + 1) - kindEnd - 1);
    }
};

// Installs the test format (or, with install false, no format at all) for
// every package class while it lives, and then puts back what was
// installed before.
class TInstalledFormat {
public:
    explicit TInstalledFormat(bool install = true);
    ~TInstalledFormat();
    TInstalledFormat(const TInstalledFormat&) = delete;
    TInstalledFormat& operator=(const TInstalledFormat&) = delete;
    std::shared_ptr<TTestFileFormat> Format;

private:
    std::vector<std::pair<TMetaClass*, std::shared_ptr<TQzPkgFileFormat>>> FPrevious;
};

// A folder of its own under the system's temporary folder, removed after.
class TTempDir {
public:
    TTempDir();
    ~TTempDir();
    AnsiString File(const AnsiString& name) const { return FPath + "/" + name; }
    const AnsiString& Path() const { return FPath; }

private:
    AnsiString FPath;
};

// The contents block of a package, to compare two packages whole.
inline std::string Contents(TQzPkgInfo& pkg)
{
    TWriter w;
    pkg.xSaveToStream(&w);
    return w.Buffer();
}

// Labels, messages and texts with non-ASCII text, line breaks, empty
// fields, protected items and a placed editor.
void FillStrings(TQzPkgStrings& pkg);

}  // namespace QzModelTest
