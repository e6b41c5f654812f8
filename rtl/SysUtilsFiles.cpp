// SysUtils: file names and the file system.

#include "rtl/SysUtils.h"

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>
#include <vector>

namespace fs = std::filesystem;

// ---- File names -----------------------------------------------------------

namespace {

bool IsPathDelim(char c)
{
    return c == '/' || c == '\\';
}

bool HasDrive(const AnsiString& s)
{
    return s.size() >= 2 && s[1] == ':' && ((s[0] >= 'A' && s[0] <= 'Z') || (s[0] >= 'a' && s[0] <= 'z'));
}

// Index of the last path delimiter, counting the colon of a "C:" drive,
// or npos.
std::size_t LastDelimiter(const AnsiString& s)
{
    for (std::size_t i = s.size(); i-- > 0;) {
        if (IsPathDelim(s[i]) || (i == 1 && HasDrive(s)))
            return i;
    }
    return AnsiString::npos;
}

// Index of the dot starting the extension, or npos.
std::size_t ExtensionDot(const AnsiString& s)
{
    std::size_t delim = LastDelimiter(s);
    std::size_t dot = s.rfind('.');
    if (dot == AnsiString::npos || (delim != AnsiString::npos && dot < delim))
        return AnsiString::npos;
    return dot;
}

} // namespace

AnsiString ExtractFilePath(const AnsiString& fileName)
{
    std::size_t i = LastDelimiter(fileName);
    return i == AnsiString::npos ? AnsiString() : fileName.substr(0, i + 1);
}

AnsiString ExtractFileDir(const AnsiString& fileName)
{
    std::size_t i = LastDelimiter(fileName);
    if (i == AnsiString::npos)
        return {};
    // Keep the separator of a root ("/", "C:\") and of a doubled one.
    bool root = i == 0 || IsPathDelim(fileName[i - 1]) || (i == 2 && HasDrive(fileName));
    if (IsPathDelim(fileName[i]) && !root)
        return fileName.substr(0, i);
    return fileName.substr(0, i + 1);
}

AnsiString ExtractFileName(const AnsiString& fileName)
{
    std::size_t i = LastDelimiter(fileName);
    return i == AnsiString::npos ? fileName : fileName.substr(i + 1);
}

AnsiString ExtractFileExt(const AnsiString& fileName)
{
    std::size_t dot = ExtensionDot(fileName);
    return dot == AnsiString::npos ? AnsiString() : fileName.substr(dot);
}

AnsiString ChangeFileExt(const AnsiString& fileName, const AnsiString& extension)
{
    return fileName.substr(0, ExtensionDot(fileName)) + extension;
}

AnsiString ExtractFileDrive(const AnsiString& fileName)
{
    if (HasDrive(fileName))
        return fileName.substr(0, 2);
    if (fileName.size() > 2 && fileName[0] == '\\' && fileName[1] == '\\') {
        // \\server\share
        std::size_t server = fileName.find('\\', 2);
        if (server == AnsiString::npos || server == 2)
            return {};
        std::size_t share = fileName.find('\\', server + 1);
        return fileName.substr(0, share);
    }
    return {};
}

AnsiString IncludeTrailingPathDelimiter(const AnsiString& path)
{
    if (!path.empty() && IsPathDelim(path.back()))
        return path;
    return path + '/';
}

AnsiString ExcludeTrailingPathDelimiter(const AnsiString& path)
{
    if (!path.empty() && IsPathDelim(path.back()))
        return path.substr(0, path.size() - 1);
    return path;
}

AnsiString ExpandFileName(const AnsiString& fileName)
{
    if (fileName.empty())
        return {};
    AnsiString name = fileName;
    std::replace(name.begin(), name.end(), '\\', '/');
    if (name[0] != '/')
        name = IncludeTrailingPathDelimiter(GetCurrentDir()) + name;
    std::vector<AnsiString> segments;
    std::size_t from = 1;
    while (from <= name.size()) {
        std::size_t to = std::min(name.find('/', from), name.size());
        AnsiString segment = name.substr(from, to - from);
        if (segment == "..") {
            if (!segments.empty())
                segments.pop_back();
        } else if (!segment.empty() && segment != ".") {
            segments.push_back(segment);
        }
        from = to + 1;
    }
    AnsiString out;
    for (const AnsiString& segment : segments)
        out += "/" + segment;
    if (out.empty() || name.back() == '/')
        out += '/';
    return out;
}

bool SameFileName(const AnsiString& s1, const AnsiString& s2)
{
    return s1 == s2;
}

bool FileExists(const AnsiString& fileName)
{
    std::error_code ec;
    return !fileName.empty() && fs::exists(fileName, ec) && !fs::is_directory(fileName, ec);
}

bool DirectoryExists(const AnsiString& dirName)
{
    std::error_code ec;
    return !dirName.empty() && fs::is_directory(dirName, ec);
}

bool ForceDirectories(const AnsiString& dir)
{
    AnsiString path = ExcludeTrailingPathDelimiter(dir);
    if (path.empty() && dir.empty())
        throw EInOutError("Unable to create directory");
    if (path.empty())
        return true;  // the root
    std::error_code ec;
    fs::create_directories(path, ec);
    return DirectoryExists(path);
}

bool DeleteFile(const AnsiString& fileName)
{
    std::error_code ec;
    return !fs::is_directory(fileName, ec) && fs::remove(fileName, ec);
}

bool RenameFile(const AnsiString& oldName, const AnsiString& newName)
{
    std::error_code ec;
    fs::rename(oldName, newName, ec);
    return !ec;
}

AnsiString GetCurrentDir()
{
    std::error_code ec;
    fs::path p = fs::current_path(ec);
    return ec ? AnsiString() : p.string();
}

TDateTime FileDateToDateTime(Int64 fileDate)
{
    std::time_t t = std::time_t(fileDate);
    std::tm tm{};
    localtime_r(&t, &tm);
    return EncodeDate(Word(tm.tm_year + 1900), Word(tm.tm_mon + 1), Word(tm.tm_mday)) +
           EncodeTime(Word(tm.tm_hour), Word(tm.tm_min), Word(std::min(tm.tm_sec, 59)), 0);
}

Int64 FileAge(const AnsiString& fileName)
{
    struct stat st {};
    if (fileName.empty() || ::stat(fileName.c_str(), &st) != 0)
        return -1;
    return Int64(st.st_mtime);
}

bool FileAge(const AnsiString& fileName, TDateTime& dateTime)
{
    Int64 age = FileAge(fileName);
    if (age < 0)
        return false;
    dateTime = FileDateToDateTime(age);
    return true;
}

Int64 FileGetDate(int handle)
{
    struct stat st {};
    if (::fstat(handle, &st) != 0)
        return -1;
    return Int64(st.st_mtime);
}

AnsiString FindFileCaseInsensitive(const AnsiString& dir, const AnsiString& name)
{
    if (name.empty())
        return {};
    fs::path base = dir.empty() ? fs::path(".") : fs::path(dir);
    std::error_code ec;
    if (fs::exists(base / name, ec))
        return name;
    AnsiString best;
    for (fs::directory_iterator it(base, ec), end; !ec && it != end; it.increment(ec)) {
        AnsiString entry = it->path().filename().string();
        // Of several matches the byte-wise first, so the answer does not
        // depend on the order the directory lists them.
        if (SameText(entry, name) && (best.empty() || entry < best))
            best = entry;
    }
    return best;
}
