#include "design/images/QzImagesExchange.h"

#include "design/images/QzMemoryImageLogic.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPng.h"

#include "rtl/Streams.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>

namespace {

namespace fs = std::filesystem;

constexpr const char* ManifestHeader = "Id,File,Width,Height,Bytes,Protected";

std::vector<AnsiString> SplitFields(const AnsiString& line)
{
    std::vector<AnsiString> fields(1);
    for (char c : line) {
        if (c == ',')
            fields.emplace_back();
        else
            fields.back() += c;
    }
    for (AnsiString& field : fields)
        field = Trim(field);
    return fields;
}

bool ReadBool(const AnsiString& text, bool& value)
{
    if (SameText(text, "true") || text == "1" || SameText(text, "yes"))
        value = true;
    else if (SameText(text, "false") || text == "0" || SameText(text, "no") || text.empty())
        value = false;
    else
        return false;
    return true;
}

// The Id a file's name gives: its name before the extension, when that is
// a number of at most what an Id box holds.
bool IdOfName(const AnsiString& fileName, Integer& id)
{
    const AnsiString stem = ChangeFileExt(ExtractFileName(fileName), "");
    if (stem.empty() || stem.size() > 9 || !std::all_of(stem.begin(), stem.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    id = StrToInt(stem);
    return true;
}

AnsiString PathIn(const AnsiString& folder, const AnsiString& name)
{
    return IncludeTrailingPathDelimiter(folder) + name;
}

// The rows an import takes: the manifest's, else one per file of the folder
// in name order (Id -1: the next free one).
std::vector<TQzImagesManifestRow> RowsToImport(const AnsiString& folder, bool& manifested,
                                               std::vector<AnsiString>& problems)
{
    const AnsiString manifest = PathIn(folder, QzImagesManifestName);
    manifested = FileExists(manifest);
    if (manifested)
        return QzParseImagesManifest(ReadFileBytes(manifest), manifest, problems);
    std::vector<AnsiString> names;
    std::error_code ec;
    for (fs::directory_iterator it(folder.c_str(), ec), end; !ec && it != end; it.increment(ec))
        if (it->is_regular_file(ec))
            names.push_back(it->path().filename().string());
    if (ec)
        throw EInOutError("Cannot read the folder \"" + folder + "\": " + ec.message());
    std::sort(names.begin(), names.end());
    std::vector<TQzImagesManifestRow> rows;
    for (const AnsiString& name : names) {
        TQzImagesManifestRow row;
        row.File = name;
        if (!IdOfName(name, row.Id))
            row.Id = -1;
        rows.push_back(row);
    }
    return rows;
}

}  // namespace

AnsiString QzImagesManifestText(const std::vector<TQzImagesManifestRow>& rows)
{
    AnsiString text = AnsiString(ManifestHeader) + "\n";
    for (const TQzImagesManifestRow& row : rows)
        text += IntToStr(row.Id) + "," + row.File + "," + IntToStr(row.Width) + "," + IntToStr(row.Height) + "," +
                IntToStr(row.Bytes) + "," + (row.Protected ? "true" : "false") + "\n";
    return text;
}

std::vector<TQzImagesManifestRow> QzParseImagesManifest(const std::string& text, const AnsiString& source,
                                                        std::vector<AnsiString>& problems)
{
    std::vector<TQzImagesManifestRow> rows;
    size_t start = 0;
    for (int lineNo = 1; start < text.size(); ++lineNo) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        AnsiString line = text.substr(start, end - start);
        start = end + 1;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (Trim(line).empty() || (lineNo == 1 && SameText(SplitFields(line)[0], "Id")))
            continue;
        const auto bad = [&](const AnsiString& why) {
            problems.push_back(source + " line " + IntToStr(lineNo) + ": " + why);
        };
        const std::vector<AnsiString> fields = SplitFields(line);
        if (fields.size() < 2) {
            bad("expected " + AnsiString(ManifestHeader));
            continue;
        }
        TQzImagesManifestRow row;
        Integer number = 0;
        if (!TryStrToInt(fields[0], row.Id) || row.Id < 0) {
            bad("the Id \"" + fields[0] + "\" is not a number of 0 or more");
            continue;
        }
        row.File = fields[1];
        const auto field = [&](size_t i) { return i < fields.size() ? fields[i] : AnsiString(); };
        row.Width = TryStrToInt(field(2), number) ? number : 0;
        row.Height = TryStrToInt(field(3), number) ? number : 0;
        Int64 bytes = 0;
        row.Bytes = TryStrToInt64(field(4), bytes) ? bytes : 0;
        if (!ReadBool(field(5), row.Protected)) {
            bad("Protected is \"" + field(5) + "\", not true or false");
            continue;
        }
        rows.push_back(row);
    }
    return rows;
}

TQzImagesExchangeReport QzExportImages(const TQzPkgImages& package, const AnsiString& folder)
{
    if (!ForceDirectories(folder))
        throw EInOutError("Cannot make the folder \"" + folder + "\"");
    TQzImagesExchangeReport report;
    std::vector<const TQzPkgImagesImage*> images;
    for (int i = 0; i < package.Images()->Count(); ++i)
        images.push_back(package.Images()->GetItems(i));
    std::stable_sort(images.begin(), images.end(), [](auto* a, auto* b) { return a->Id() < b->Id(); });
    for (const TQzPkgImagesImage* image : images) {
        TQzImagesManifestRow row;
        row.Id = image->Id();
        row.Protected = image->Protected();
        if (!image->Empty()) {
            const QImage picture = QzPictureWithMaskAlpha(*image);
            const QByteArray png = picture.isNull() ? QByteArray() : QzPicturePng(picture);
            row.File = IntToStr(image->Id()) + ".png";
            if (png.isEmpty()) {
                report.Problems.push_back(PathIn(folder, row.File) + ": the picture of image " + IntToStr(image->Id()) +
                                          " cannot be read; left out");
                continue;
            }
            // Each file can be made again from the package: no need to wait
            // for the disk, only never to leave half a file.
            WriteFileAtomic(PathIn(folder, row.File), png.toStdString(), {}, false);
            row.Width = picture.width();
            row.Height = picture.height();
            row.Bytes = png.size();
        }
        report.Rows.push_back(row);
    }
    WriteFileAtomic(PathIn(folder, QzImagesManifestName), QzImagesManifestText(report.Rows));
    return report;
}

TQzImagesExchangeReport QzImportImages(TQzPkgImages& package, const AnsiString& folder)
{
    if (!DirectoryExists(folder))
        throw EInOutError("The folder \"" + folder + "\" does not exist");
    TQzImagesExchangeReport report;
    bool manifested = false;
    std::vector<TQzImagesManifestRow> rows = RowsToImport(folder, manifested, report.Problems);

    // Every picture is read before the package changes, into a package of
    // our own, so that what goes in is only what was read whole.
    std::unique_ptr<TQzPkgImages> read;
    {
        TQzDetachedPkgs detached;
        read = std::make_unique<TQzPkgImages>(nullptr);
    }
    std::map<Integer, size_t> taken;   // Id -> row, for Ids named twice
    std::vector<std::pair<TQzImagesManifestRow, TQzPkgImagesImage*>> pictures;
    for (TQzImagesManifestRow& row : rows) {
        if (row.File == QzImagesManifestName)
            continue;
        TQzPkgImagesImage* image = read->Images()->Add(read->Images()->UniqueId());
        if (!row.File.empty()) {
            const AnsiString path = PathIn(folder, row.File);
            try {
                TQzPicture(image).LoadFromFile(path);
            } catch (const Exception& e) {
                report.Problems.push_back(e.Message() + "; skipped");
                delete image;
                continue;
            }
        }
        if (row.Id >= 0 && !taken.emplace(row.Id, pictures.size()).second) {
            report.Problems.push_back(PathIn(folder, row.File) + ": the Id " + IntToStr(row.Id) +
                                      " is given to another file already; skipped");
            delete image;
            continue;
        }
        pictures.emplace_back(row, image);
    }

    TQzPkgImagesImages& images = *package.Images();
    Integer next = 0;   // free Ids are handed out upwards
    images.BeginUpdate();
    for (auto& [row, picture] : pictures) {
        Integer id = row.Id;
        if (id < 0) {
            while (images.FindId(next) || taken.count(next))
                ++next;
            id = next++;
        }
        TQzPkgImagesImage* target = images.FindId(id);
        // Without a manifest, a replaced image keeps its protection.
        const bool isProtected = target && !manifested ? target->Protected() : row.Protected;
        if (!target)
            target = images.Add(id);
        target->Assign(picture);
        target->SetProtected(isProtected);
        row.Id = id;
        row.Width = picture->Width();
        row.Height = picture->Height();
        row.Bytes = picture->GetSize();
        report.Rows.push_back(row);
    }
    images.EndUpdate();
    return report;
}
