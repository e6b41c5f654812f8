// The project folder, its modules and its forms, read from open designers
// or from the form files.

#include "designide/ProjectServices.h"

#include "designide/ProjectFile.h"
#include "rtl/ComponentStream.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

const char* const Utf8Bom = "\xEF\xBB\xBF";

AnsiString Slashes(AnsiString path)
{
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

bool IsSourceUnit(const AnsiString& fileName)
{
    const AnsiString ext = ExtractFileExt(fileName);
    return SameText(ext, ".cpp") || SameText(ext, ".pas") || SameText(ext, ".c") || SameText(ext, ".cc") ||
           SameText(ext, ".cxx");
}

bool IsFormFile(const AnsiString& fileName)
{
    return SameText(ExtractFileExt(fileName), ".dfm");
}

// The form file beside a unit, as it is named on disk; empty when none.
AnsiString FormBeside(const AnsiString& unitFile)
{
    const AnsiString dir = ExtractFileDir(unitFile);
    const AnsiString found = FindFileCaseInsensitive(dir, ChangeFileExt(ExtractFileName(unitFile), ".dfm"));
    if (found.empty())
        return {};
    const AnsiString path = IncludeTrailingPathDelimiter(dir) + found;
    return FileExists(path) ? path : AnsiString();
}

AnsiString DetectLineBreak(const std::string& text)
{
    const std::size_t at = text.find_first_of("\r\n");
    if (at == std::string::npos)
        return sLineBreak;
    if (text[at] == '\r')
        return at + 1 < text.size() && text[at + 1] == '\n' ? "\r\n" : "\r";
    return "\n";
}

// Lines that give the text back as it was: its line break, and a break
// after the last line only when the text had one.
void LoadLines(TStrings& lines, const std::string& text)
{
    lines.SetLineBreak(sLineBreak);
    lines.SetText(text);
    lines.SetLineBreak(DetectLineBreak(text));
    lines.SetTrailingLineBreak(!text.empty() && (text.back() == '\n' || text.back() == '\r'));
}

TStreamOriginalFormat FormatOfBytes(std::string_view bytes)
{
    switch (DetectFormFormat(bytes)) {
    case TFormFormat::Binary:
    case TFormFormat::Resource:
        return sofBinary;
    case TFormFormat::Text:
    case TFormFormat::Unknown:
        break;
    }
    return bytes.substr(0, 3) == Utf8Bom ? sofUTF8Text : sofText;
}

// The form's text as the stored bytes give it; resource and binary forms
// are converted, text is taken as it stands.
std::string StoredFormText(const std::string& bytes, const TFormStorage& storage)
{
    switch (storage.Format) {
    case TFormFormat::Resource:
        return FormResourceToText(bytes, storage.Options);
    case TFormFormat::Binary:
        return FormBinaryToText(bytes, storage.Options);
    case TFormFormat::Text:
    case TFormFormat::Unknown:
        break;
    }
    return bytes.substr(0, 3) == Utf8Bom ? bytes.substr(3) : bytes;
}

// Runs a conversion of file's form, naming the file in what it raises.
template <class F>
auto ForFile(const AnsiString& file, F convert)
{
    try {
        return convert();
    } catch (Exception& e) {
        e.SetMessage(file + ": " + e.Message());
        throw;
    }
}

}  // namespace

AnsiString ResolvePathCaseInsensitive(const AnsiString& dir, const AnsiString& path)
{
    const AnsiString p = Slashes(path);
    AnsiString current = !p.empty() && p[0] == '/' ? AnsiString("/") : ExcludeTrailingPathDelimiter(Slashes(dir));
    std::size_t start = 0;
    while (start <= p.size()) {
        std::size_t end = p.find('/', start);
        if (end == AnsiString::npos)
            end = p.size();
        const AnsiString part = p.substr(start, end - start);
        start = end + 1;
        if (part.empty() || part == ".")
            continue;
        if (part == "..") {
            current = ExtractFileDir(current);
            continue;
        }
        const AnsiString found = FindFileCaseInsensitive(current, part);
        current = IncludeTrailingPathDelimiter(current) + (found.empty() ? part : found);
    }
    return current;
}

std::string TFormStorage::Encode(const std::string& text) const
{
    switch (Format) {
    case TFormFormat::Binary:
        return FormTextToBinary(text, Options);
    case TFormFormat::Resource:
        return FormTextToResource(text, Options);
    case TFormFormat::Text:
    case TFormFormat::Unknown:
        break;
    }
    return text;
}

// ---------------------------------------------------------------------------
// Headless designers

IDesigner* THeadlessDesigners::OpenDesigner(const AnsiString& formFile)
{
    if (TFormDesigner* open = Find(formFile))
        return open;
    std::unique_ptr<TFormDesigner> designer = TFormDesigner::LoadFromFile(formFile);
    TFormDesigner* result = designer.get();
    FDesigners[LowerCase(formFile)] = std::move(designer);
    return result;
}

void THeadlessDesigners::FormFileWritten(const AnsiString& formFile)
{
    const auto it = FDesigners.find(LowerCase(formFile));
    if (it == FDesigners.end())
        return;
    FClosed.push_back(std::move(it->second));
    FDesigners.erase(it);
}

TFormDesigner* THeadlessDesigners::Find(const AnsiString& formFile) const
{
    const auto it = FDesigners.find(LowerCase(formFile));
    return it == FDesigners.end() ? nullptr : it->second.get();
}

std::vector<TFormDesigner*> THeadlessDesigners::Designers() const
{
    std::vector<TFormDesigner*> result;
    for (const auto& [key, designer] : FDesigners)
        result.push_back(designer.get());
    return result;
}

int THeadlessDesigners::SaveModified()
{
    int saved = 0;
    for (const auto& [key, designer] : FDesigners) {
        if (designer->IsModified()) {
            designer->Save();
            ++saved;
        }
    }
    return saved;
}

// ---------------------------------------------------------------------------
// Project services

int TProjectServices::FormCount() const
{
    int count = 0;
    for (int i = 0; i < ModuleCount(); ++i)
        if (Module(i).HasForm())
            ++count;
    return count;
}

const TProjectModule* TProjectServices::FindFormModule(const AnsiString& formFileName) const
{
    const AnsiString stem = ChangeFileExt(Slashes(formFileName), "");
    for (int i = 0; i < ModuleCount(); ++i) {
        const TProjectModule& module = Module(i);
        if (SameText(ChangeFileExt(module.FileName, ""), stem) ||
            (!module.FormFile.empty() && SameText(ChangeFileExt(module.FormFile, ""), stem)))
            return &module;
    }
    return nullptr;
}

// ---------------------------------------------------------------------------
// A project folder

TFolderProject::TFolderProject(const AnsiString& path)
{
    const AnsiString full = ExpandFileName(path);
    if (DirectoryExists(full)) {
        FFolder = ExcludeTrailingPathDelimiter(full);
        std::vector<AnsiString> projects;
        std::error_code ec;
        for (fs::directory_iterator it(FFolder, ec), end; !ec && it != end; it.increment(ec))
            if (it->is_regular_file(ec) && IsProjectFileName(it->path().filename().string()))
                projects.push_back(it->path().filename().string());
        std::sort(projects.begin(), projects.end());
        if (!projects.empty())
            FProjectFile = IncludeTrailingPathDelimiter(FFolder) + projects.front();
    } else if (FileExists(full) && IsProjectFileName(full)) {
        FFolder = ExtractFileDir(full);
        FProjectFile = full;
    } else if (FileExists(full) && IsFormFile(full)) {
        // One form alone: a project of its folder holding only that form.
        FFolder = ExtractFileDir(full);
        FName = ChangeFileExt(ExtractFileName(full), "");
        FModules.push_back({ChangeFileExt(full, ".cpp"), FName, {}, full});
        return;
    } else {
        throw EFOpenError("Cannot open project " + path + ": no such folder, project file or form file");
    }

    if (FProjectFile.empty()) {
        FName = ExtractFileName(FFolder);
        ScanFolder(FFolder);
    } else {
        FName = ChangeFileExt(ExtractFileName(FProjectFile), "");
        LoadProjectFile();
    }
}

const TProjectModule& TFolderProject::Module(int index) const
{
    if (index < 0 || index >= ModuleCount())
        throw EListError(Format("Module index out of bounds (%d)", index));
    return FModules[static_cast<std::size_t>(index)];
}

void TFolderProject::LoadProjectFile()
{
    const AnsiString base = ExtractFileDir(FProjectFile);
    for (const TProjectFileEntry& entry : ReadProjectFile(FProjectFile)) {
        TProjectModule module;
        module.FileName = ExpandFileName(ResolvePathCaseInsensitive(base, entry.FileName));
        module.UnitName = entry.UnitName.empty() ? ChangeFileExt(ExtractFileName(module.FileName), "") : entry.UnitName;
        module.FormName = entry.FormName;
        if (IsSourceUnit(module.FileName))
            module.FormFile = FormBeside(module.FileName);
        FModules.push_back(std::move(module));
    }
}

void TFolderProject::ScanFolder(const AnsiString& dir)
{
    std::vector<AnsiString> files;
    std::vector<AnsiString> folders;
    std::error_code ec;
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
        const AnsiString name = it->path().filename().string();
        if (name.empty() || name[0] == '.' || name.rfind("__", 0) == 0)
            continue;   // hidden folders and the IDE's __history backups
        if (it->is_directory(ec))
            folders.push_back(name);
        else if (it->is_regular_file(ec))
            files.push_back(name);
    }
    std::sort(files.begin(), files.end());
    std::sort(folders.begin(), folders.end());

    const AnsiString prefix = IncludeTrailingPathDelimiter(dir);
    for (const AnsiString& name : files) {
        TProjectModule module;
        if (IsSourceUnit(name)) {
            module.FileName = prefix + name;
            module.FormFile = FormBeside(module.FileName);
        } else if (IsFormFile(name)) {
            // A form whose unit is not here still counts, under its unit's name.
            const bool hasUnit = std::any_of(files.begin(), files.end(), [&](const AnsiString& other) {
                return IsSourceUnit(other) && SameText(ChangeFileExt(other, ""), ChangeFileExt(name, ""));
            });
            if (hasUnit)
                continue;
            module.FileName = prefix + ChangeFileExt(name, ".cpp");
            module.FormFile = prefix + name;
        } else {
            continue;
        }
        module.UnitName = ChangeFileExt(ExtractFileName(module.FileName), "");
        FModules.push_back(std::move(module));
    }
    for (const AnsiString& folder : folders)
        ScanFolder(prefix + folder);
}

AnsiString TFolderProject::Absolute(const AnsiString& fileName) const
{
    const AnsiString name = Slashes(fileName);
    if (!name.empty() && name[0] == '/')
        return ExpandFileName(name);
    return ExpandFileName(IncludeTrailingPathDelimiter(FFolder) + name);
}

AnsiString TFolderProject::FindFormFile(const AnsiString& formFileName) const
{
    const AnsiString path = ResolvePathCaseInsensitive(FFolder, Absolute(formFileName));
    return FileExists(path) ? path : AnsiString();
}

bool TFolderProject::ReadFormText(const AnsiString& formFileName, TStrings& lines, TStreamOriginalFormat& format)
{
    const AnsiString file = FindFormFile(formFileName);
    const AnsiString name = file.empty() ? Absolute(formFileName) : file;
    const std::string stored = file.empty() ? std::string() : ReadFileBytes(file);
    // Telling the storage reads the bytes too: a cut binary form fails here.
    TFormStorage storage = ForFile(name, [&] { return TFormStorage::Of(stored); });
    if (IDesigner* designer = FDesigners->FindDesigner(name)) {
        auto* headless = dynamic_cast<TFormDesigner*>(designer);
        if (headless)
            storage = {headless->StoredFormat(), headless->TextOptions()};
        format = !file.empty() ? FormatOfBytes(stored) : headless ? headless->OriginalFormat() : sofText;
        LoadLines(lines, headless ? headless->FormText() : ::WriteFormText(designer->GetRoot(), storage.Options));
    } else if (file.empty()) {
        return false;
    } else {
        format = FormatOfBytes(stored);
        LoadLines(lines, ForFile(file, [&] { return StoredFormText(stored, storage); }));
    }
    FReadForms[LowerCase(name)] = storage;
    return true;
}

TFormStorage TFolderProject::StorageForWriting(const AnsiString& file) const
{
    const auto read = FReadForms.find(LowerCase(file));
    if (read != FReadForms.end())
        return read->second;
    return FileExists(file) ? TFormStorage::Of(ReadFileBytes(file)) : TFormStorage{};
}

void TFolderProject::WriteFormText(const TStrings& lines, const AnsiString& formFileName, TStreamOriginalFormat format)
{
    const AnsiString existing = FindFormFile(formFileName);
    const AnsiString target = existing.empty() ? Absolute(formFileName) : existing;
    const std::string text = lines.Text();
    std::string bytes;
    if (format == sofBinary) {
        TFormStorage storage = StorageForWriting(target);
        if (storage.Format != TFormFormat::Binary)
            storage.Format = TFormFormat::Resource;
        // Converted before anything is written, so bad text leaves the file alone.
        bytes = ForFile(target, [&] { return storage.Encode(text); });
    } else {
        bytes = format == sofUTF8Text ? Utf8Bom + text : text;
    }
    WriteFileAtomic(target, bytes, existing.empty() ? AnsiString() : FormBackupName(existing));
    FDesigners->FormFileWritten(target);
}

TComponent* TFolderProject::DesignForm(const AnsiString& formFileName)
{
    const TProjectModule* module = FindFormModule(Absolute(formFileName));
    if (!module || !module->HasForm())
        return nullptr;
    AnsiString file = FindFormFile(formFileName);
    if (file.empty())
        file = module->FormFile;
    if (file.empty())
        return nullptr;
    IDesigner* designer = FDesigners->OpenDesigner(file);
    return designer ? designer->GetRoot() : nullptr;
}
