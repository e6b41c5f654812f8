#include "cli/PackageOwnFile.h"

#include "rtl/SysUtils.h"

#include <algorithm>

void QzLoadOwnPkgFile(TQzPkgInfo& pkg, const AnsiString& folder)
{
    if (pkg.InitMode() != imFile || pkg.FileName().empty())
        return;
    AnsiString file = pkg.FileName();
    std::replace(file.begin(), file.end(), '\\', '/');
    if (ExtractFileExt(file).empty())
        file += "." + pkg.DefaultExt();
    if (file[0] != '/')
        file = IncludeTrailingPathDelimiter(folder) + file;
    if (FileExists(file))
        pkg.LoadFromFile(file);
}
