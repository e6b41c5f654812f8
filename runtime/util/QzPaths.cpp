#include "runtime/util/QzPaths.h"

#include "rtl/SysUtils.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

namespace {

AnsiString ReadLink(const char* path)
{
    std::vector<char> buf(4096);
    for (;;) {
        const ssize_t n = readlink(path, buf.data(), buf.size());
        if (n < 0)
            return {};
        if (size_t(n) < buf.size())
            return AnsiString(buf.data(), size_t(n));
        buf.resize(buf.size() * 2);
    }
}

// The file this library was loaded from: the address of one of its own
// functions tells the dynamic loader which object to name.
AnsiString RuntimeLibraryFile()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&QzGetInstallPath), &info) == 0 || info.dli_fname == nullptr)
        return {};
    AnsiString name = info.dli_fname;
    if (name.empty() || name.front() != '/')
        name = ExpandFileName(name);
    // A library reached through a symbolic link keeps its data beside the
    // real file, as the install rules put it.
    const AnsiString target = ReadLink(name.c_str());
    if (!target.empty())
        name = target.front() == '/' ? target : ExpandFileName(ExtractFilePath(name) + target);
    return name;
}

} // namespace

AnsiString QzAddPointExt(const AnsiString& ext)
{
    if (ext.empty() || ext.front() == '.')
        return ext;
    return "." + ext;
}

AnsiString QzAddPathBar(const AnsiString& path)
{
    if (path.empty() || path.back() == '/' || path.back() == '\\')
        return path;
    return path + "/";
}

AnsiString QzAppPath()
{
    const AnsiString exe = ReadLink("/proc/self/exe");
    if (exe.empty())
        return QzAddPathBar(GetCurrentDir());
    return ExtractFilePath(exe);
}

AnsiString QzGetInstallPath()
{
    if (const char* env = std::getenv("QZ_INSTALL_PATH"); env != nullptr && *env != '\0')
        return QzAddPathBar(ExpandFileName(env));
    AnsiString libDir = ExtractFilePath(RuntimeLibraryFile());
    if (libDir.empty())
        libDir = QzAppPath();
    const AnsiString candidates[] = {
        ExpandFileName(libDir + "../share/qzcontrols") + "/",
        ExpandFileName(libDir + "../../share/qzcontrols") + "/",
    };
    for (const AnsiString& dir : candidates)
        if (DirectoryExists(dir))
            return dir;
    return candidates[0];
}

AnsiString QzInstallFileEntry(const AnsiString& picked, const AnsiString& installPath)
{
    const bool installed = AnsiCompareText(QzAddPathBar(ExtractFilePath(picked)), QzAddPathBar(installPath)) == 0;
    return installed ? ExtractFileName(picked) : picked;
}
