#include "design/manager/QzPkgLoadSaveRules.h"

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/model/QzPkgPrivileges.h"
#include "runtime/model/QzPkgSetup.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzPkgVars.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/system/QzSystemStrings.h"
#include "runtime/util/QzPaths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

using TDescriptionReader = AnsiString (*)(const AnsiString& fileName);

struct TKindRow {
    TMetaClass* (*Class)();
    const char* Title;          // after "Load " or "Save "
    TDescriptionReader Reader;
    TQzPkgKeyRow SaveKeyRow;    // the key row when saving (loading never shows it)
};

// A package is of the first kind its class inherits from.
const TKindRow Kinds[] = {
    {&TQzPkgImages::ClassInfo, "PkgImages", &QzReadPkgImagesDescription, TQzPkgKeyRow::Hidden},
    {&TQzPkgStrings::ClassInfo, "PkgStrings", &QzReadPkgStringsDescription, TQzPkgKeyRow::Hidden},
    {&TQzPkgVars::ClassInfo, "PkgVars", &QzReadPkgVarsDescription, TQzPkgKeyRow::Hidden},
    {&TQzPkgDisplay::ClassInfo, "Display", &QzReadPkgDisplayDescription, TQzPkgKeyRow::LastUpdateFile},
    {&TQzPkgLanguage::ClassInfo, "Language", &QzReadPkgLanguageDescription, TQzPkgKeyRow::LastUpdateFile},
    {&TQzPkgSetup::ClassInfo, "Setup", &QzReadPkgSetupDescription, TQzPkgKeyRow::Hidden},
    {&TQzPkgPrivileges::ClassInfo, "Access", &QzReadPkgAccessDescription, TQzPkgKeyRow::Key},
};

const TKindRow* KindOf(const TQzPkgInfo& pkg)
{
    for (const TKindRow& row : Kinds)
        if (pkg.InheritsFrom(row.Class()))
            return &row;
    return nullptr;
}

AnsiString FormatWithName(const AnsiString& text, const AnsiString& fileName)
{
    try {
        return Format(text, {fileName});
    } catch (const EConvertError&) {
        // A translated text whose directives do not fit still names the file.
        return text + " (" + fileName + ")";
    }
}

}  // namespace

AnsiString QzPkgLoadSaveTitle(const TQzPkgInfo& pkg, TQzLoadSave direction)
{
    const TKindRow* kind = KindOf(pkg);
    return AnsiString(direction == TQzLoadSave::Load ? "Load " : "Save ") + (kind ? kind->Title : pkg.KindName());
}

TQzPkgKeyRow QzPkgLoadSaveKeyRow(const TQzPkgInfo& pkg, TQzLoadSave direction)
{
    const TKindRow* kind = KindOf(pkg);
    return direction == TQzLoadSave::Save && kind ? kind->SaveKeyRow : TQzPkgKeyRow::Hidden;
}

AnsiString QzPkgKeyValue(const TQzPkgInfo& pkg)
{
    if (const auto* access = dynamic_cast<const TQzPkgPrivileges*>(&pkg))
        return access->Key();
    if (const auto* display = dynamic_cast<const TQzPkgDisplay*>(&pkg))
        return display->LastUpdateFile();
    if (const auto* language = dynamic_cast<const TQzPkgLanguage*>(&pkg))
        return language->LastUpdateFile();
    return {};
}

void QzPkgSetKeyValue(TQzPkgInfo& pkg, const AnsiString& value)
{
    if (auto* access = dynamic_cast<TQzPkgPrivileges*>(&pkg))
        access->SetKey(value);
    else if (auto* display = dynamic_cast<TQzPkgDisplay*>(&pkg))
        display->SetLastUpdateFile(value);
    else if (auto* language = dynamic_cast<TQzPkgLanguage*>(&pkg))
        language->SetLastUpdateFile(value);
}

AnsiString QzPkgSearchFilter(const TQzPkgInfo& pkg)
{
    const TKindRow* kind = KindOf(pkg);
    const AnsiString mask = "*." + pkg.DefaultExt();
    return AnsiString(kind ? kind->Title : pkg.KindName()) + " Files (" + mask + ")|" + mask + "|All Files (*.*)|*.*";
}

AnsiString QzPkgListFolder(const TQzPkgInfo& pkg)
{
    const AnsiString base = pkg.BasePath();
    return base.empty() ? QzAppPath() : IncludeTrailingPathDelimiter(ExpandFileName(base));
}

std::vector<AnsiString> QzPkgListFiles(const TQzPkgInfo& pkg, const AnsiString& folder)
{
    namespace fs = std::filesystem;
    const AnsiString ext = LowerCase("." + pkg.DefaultExt());
    std::vector<AnsiString> files;
    std::error_code error;
    for (fs::directory_iterator it(fs::path(folder), error), end; !error && it != end; it.increment(error)) {
        if (!it->is_regular_file(error))
            continue;
        const AnsiString name = it->path().filename().string();
        if (LowerCase(ExtractFileExt(name)) == ext)
            files.push_back(name);
    }
    std::sort(files.begin(), files.end(),
              [](const AnsiString& a, const AnsiString& b) { return AnsiCompareText(a, b) < 0; });
    return files;
}

AnsiString QzPkgShortFileName(const TQzPkgInfo& pkg, const AnsiString& fullName)
{
    const AnsiString name = ExtractFileName(fullName);
    return pkg.GetFileName(name) == ExpandFileName(fullName) ? name : fullName;
}

AnsiString QzReadPkgDescription(const TQzPkgInfo& pkg, const AnsiString& fileName)
{
    const AnsiString full = pkg.GetFileName(fileName);
    if (const TKindRow* kind = KindOf(pkg))
        return kind->Reader(full);
    if (TQzPkgFileFormat* format = QzFindPkgFileFormat(pkg.ClassType()))
        return format->ReadDescription(full);
    return {};
}

TQzLoadSaveCheck QzPkgLoadSaveCheck(const TQzPkgInfo& pkg, TQzLoadSave direction, TQzRegisterInitMode mode,
                                    const AnsiString& fileName)
{
    TQzLoadSaveCheck check;
    check.FileName = pkg.GetFileName(fileName);
    if (direction == TQzLoadSave::Load) {
        // A load always reads a file; the storage mode only says whether the
        // package stays in it or goes into the form.
        if (check.FileName.empty() || !FileExists(check.FileName)) {
            check.Action = TQzLoadSaveCheck::Missing;
            check.Message = FormatWithName(QzPkgSystemMessage(smFileNotFound, {}), check.FileName);
            return check;
        }
        check.Action = TQzLoadSaveCheck::Confirm;
        check.Message =
            QzPkgSystemMessage(smEraseMemory, "The data that there is in memory will be erased. Do you want to continue?");
        return check;
    }
    if (mode != imFile)
        return check;
    if (check.FileName.empty()) {
        check.Action = TQzLoadSaveCheck::NoName;
        check.Message = "Type the name of the file the package is saved in.";
    } else if (FileExists(check.FileName)) {
        check.Action = TQzLoadSaveCheck::Confirm;
        check.Message = FormatWithName(
            QzPkgSystemMessage(smOverwriteFile, "File '%s' already exists. Do you want overwrite?"), check.FileName);
    }
    return check;
}

void QzPkgLoadSaveRun(TQzPkgInfo& pkg, TQzLoadSave direction, const TQzLoadSaveValues& values)
{
    if (direction == TQzLoadSave::Load) {
        pkg.LoadFileEx(values.FileName, values.Mode);
        return;
    }
    // Written last, so that a refused write leaves the settings as they were.
    const AnsiString description = pkg.Description();
    const AnsiString key = QzPkgKeyValue(pkg);
    pkg.SetDescription(values.Description);
    if (QzPkgLoadSaveKeyRow(pkg, direction) != TQzPkgKeyRow::Hidden)
        QzPkgSetKeyValue(pkg, values.KeyValue);
    try {
        pkg.SaveFileEx(values.Mode == imFile ? values.FileName : AnsiString(), values.Mode);
    } catch (...) {
        pkg.SetDescription(description);
        QzPkgSetKeyValue(pkg, key);
        throw;
    }
}

AnsiString QzPkgSystemMessage(Integer msgId, const AnsiString& fallback)
{
    if (const TQzPkgStrings* pkg = QzFindPkgStrings("System"))
        if (const TQzPkgStringsMessage* message = pkg->Messages()->FindId(msgId); message && !message->Text().empty())
            return message->Text();
    if (!fallback.empty())
        return fallback;
    const char* builtIn = QzSystemMessageText(msgId);
    return builtIn ? AnsiString(builtIn) : AnsiString();
}
