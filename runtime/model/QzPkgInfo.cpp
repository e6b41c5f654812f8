#include "runtime/model/QzPkgInfo.h"

#include "runtime/model/QzPkgStream.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace {

// Package files by class: installed once by the files layer, looked up on
// every load and save.
std::map<const TMetaClass*, std::shared_ptr<TQzPkgFileFormat>>& FileFormats()
{
    static std::map<const TMetaClass*, std::shared_ptr<TQzPkgFileFormat>> formats;
    return formats;
}

bool IsAbsolutePath(const AnsiString& name)
{
    return (!name.empty() && (name[0] == '/' || name[0] == '\\')) || !ExtractFileDrive(name).empty();
}

}  // namespace

std::shared_ptr<TQzPkgFileFormat> QzRegisterPkgFileFormat(TMetaClass* pkgClass,
                                                          std::shared_ptr<TQzPkgFileFormat> format)
{
    if (!pkgClass || !pkgClass->InheritsFrom(TQzPkgInfo::ClassInfo()))
        throw EQzPkgError("A package file format must be installed for a package class");
    auto& formats = FileFormats();
    std::shared_ptr<TQzPkgFileFormat> previous;
    if (auto it = formats.find(pkgClass); it != formats.end()) {
        previous = std::move(it->second);
        formats.erase(it);
    }
    if (format)
        formats[pkgClass] = std::move(format);
    return previous;
}

TQzPkgFileFormat* QzFindPkgFileFormat(const TMetaClass* pkgClass)
{
    for (const TMetaClass* cls = pkgClass; cls; cls = cls->ClassParent()) {
        auto it = FileFormats().find(cls);
        if (it != FileFormats().end())
            return it->second.get();
    }
    return nullptr;
}

// ---------------------------------------------------------------------------

void TQzPkgInfo::DeclareProperties(TClassBuilder<TQzPkgInfo>& b)
{
    b.Property("Description", &TQzPkgInfo::Description, &TQzPkgInfo::SetDescription);
    b.Property("FileName", &TQzPkgInfo::FileName, &TQzPkgInfo::SetFileName);
    b.Enum("InitMode", TypeInfo_TQzRegisterInitMode(), &TQzPkgInfo::InitMode, &TQzPkgInfo::SetInitMode, imDFM);
}

TQzPkgInfo::TQzPkgInfo(TComponent* owner) : TComponent(owner) {}

// The derived parts are gone by now: links compare the pointer, they do not
// use the package.
TQzPkgInfo::~TQzPkgInfo()
{
    LeaveRegistry();
    NotifyEvt(peDestroy, nullptr);
}

void TQzPkgInfo::SetDescription(const AnsiString& value)
{
    if (value == FDescription)
        return;
    FDescription = value;
    FModified = true;
}

void TQzPkgInfo::SetFileName(const AnsiString& value)
{
    if (value == FFileName)
        return;
    FFileName = value;
    FFileStamp = {};
}

void TQzPkgInfo::SetInitMode(TQzRegisterInitMode value)
{
    FInitMode = value == imFile ? imFile : imDFM;
}

void TQzPkgInfo::SetPkgName(const AnsiString& value)
{
    if (value == FPkgName)
        return;
    AnsiString old = FPkgName;
    FPkgName = value;
    if (FActive && !ComponentState().Contains(csLoading))
        TakeOverName();
    NotifyEvt(peName, &old);
}

void TQzPkgInfo::SetActive(bool value)
{
    if (value == FActive)
        return;
    FActive = value;
    if (FActive && !ComponentState().Contains(csLoading))
        TakeOverName();
    NotifyEvt(peActive, nullptr);
}

// The newest package to take a name (by activation, renaming or loading)
// is the one found by it; the others of that name step back.
void TQzPkgInfo::TakeOverName()
{
    if (FKind == pkNone)
        return;
    for (TQzPkgInfo* other : QzPkgRegistry(FKind)) {
        if (other != this && other->FActive && SameText(other->FPkgName, FPkgName)) {
            other->FActive = false;
            other->NotifyEvt(peActive, nullptr);
        }
    }
}

void TQzPkgInfo::SetPlacement(const TQzWindowPlacement& value)
{
    if (value == FPlacement)
        return;
    FPlacement = value;
    FModified = true;
}

void TQzPkgInfo::Change()
{
    FModified = true;
    NotifyEvt(peChange, nullptr);
}

// A link may unlink itself, or others, while it hears: each is asked only
// while it is still linked.
void TQzPkgInfo::NotifyEvt(int event, void* data)
{
    if (FLinks.empty())
        return;
    const std::vector<IQzPkgLink*> links = FLinks;
    for (IQzPkgLink* link : links)
        if (std::find(FLinks.begin(), FLinks.end(), link) != FLinks.end())
            link->PkgNotify(this, event, data);
}

void TQzPkgInfo::AddLink(IQzPkgLink* link)
{
    if (link && std::find(FLinks.begin(), FLinks.end(), link) == FLinks.end())
        FLinks.push_back(link);
}

void TQzPkgInfo::RemoveLink(IQzPkgLink* link)
{
    FLinks.erase(std::remove(FLinks.begin(), FLinks.end(), link), FLinks.end());
}

bool TQzPkgInfo::CanChange() const
{
    if (!IsSystem() || FSystemUpdate > 0 || ComponentState().Contains(csLoading))
        return true;
    TQzCApplication* app = QzCApp();
    return app && app->SystemEdit();
}

void TQzPkgInfo::CheckChange() const
{
    if (!CanChange())
        throw EQzPkgError("The package \"" + FPkgName +
                          "\" holds the suite's own data and can be changed only while the application "
                          "allows system editing");
}

// ---------------------------------------------------------------------------
// Package files

AnsiString TQzPkgInfo::BasePath() const
{
    TQzCApplication* app = QzCApp();
    return app ? app->Path() : AnsiString();
}

AnsiString TQzPkgInfo::GetFileName(const AnsiString& name) const
{
    if (Trim(name).empty())
        return {};
    AnsiString full = name;
    if (ExtractFileExt(full).empty())
        full += "." + DefaultExt();
    if (!IsAbsolutePath(full)) {
        const AnsiString base = BasePath();
        if (!base.empty())
            full = IncludeTrailingPathDelimiter(base) + full;
    }
    return ExpandFileName(full);
}

TQzPkgInfo::TFileStamp TQzPkgInfo::StampOf(const AnsiString& fileName)
{
    TFileStamp stamp;
    std::error_code ec;
    const std::filesystem::path path(fileName);
    auto time = std::filesystem::last_write_time(path, ec);
    if (ec)
        return stamp;
    auto size = std::filesystem::file_size(path, ec);
    if (ec)
        return stamp;
    stamp.Valid = true;
    stamp.Time = static_cast<std::int64_t>(time.time_since_epoch().count());
    stamp.Size = size;
    return stamp;
}

void TQzPkgInfo::RememberFileStamp()
{
    FFileStamp = StampOf(GetPathFileName());
}

bool TQzPkgInfo::FileModified() const
{
    if (FInitMode != imFile || FFileName.empty())
        return false;
    const TFileStamp now = StampOf(GetPathFileName());
    return now.Valid && !(now == FFileStamp);
}

TQzPkgFileFormat& TQzPkgInfo::RequireFormat() const
{
    TQzPkgFileFormat* format = QzFindPkgFileFormat(ClassType());
    if (!format)
        throw EQzPkgError("No package file format is installed for " + ClassName() + " packages");
    return *format;
}

void TQzPkgInfo::LoadFile()
{
    if (FInitMode != imFile || Trim(FFileName).empty())
        return;
    RequireFormat().LoadFromFile(*this, GetPathFileName());
    FModified = false;
    FLastFileError.clear();
    RememberFileStamp();
    NotifyEvt(peChange, nullptr);
}

void TQzPkgInfo::LoadFileEx(const AnsiString& fileName, TQzRegisterInitMode mode)
{
    if (!Trim(fileName).empty())
        RequireFormat().LoadFromFile(*this, GetFileName(fileName));
    if (mode == imFile && !Trim(fileName).empty()) {
        FInitMode = imFile;
        FFileName = fileName;
        FModified = false;
        FLastFileError.clear();
        RememberFileStamp();
        NotifyEvt(peChange, nullptr);
    } else {
        // The contents now belong to the form, which must be saved.
        FInitMode = imDFM;
        FFileName.clear();
        FFileStamp = {};
        Change();
    }
}

void TQzPkgInfo::LoadFromFile(const AnsiString& fileName)
{
    RequireFormat().LoadFromFile(*this, fileName);
    Change();
}

void TQzPkgInfo::SaveFile()
{
    if (FInitMode != imFile || Trim(FFileName).empty())
        return;
    const AnsiString full = GetPathFileName();
    if (!FModified && FileExists(full))
        return;
    RequireFormat().SaveToFile(*this, full);
    FModified = false;
    RememberFileStamp();
}

void TQzPkgInfo::SaveFileEx(const AnsiString& fileName, TQzRegisterInitMode mode)
{
    if (mode == imFile && !Trim(fileName).empty()) {
        RequireFormat().SaveToFile(*this, GetFileName(fileName));
        FInitMode = imFile;
        FFileName = fileName;
        FModified = false;
        RememberFileStamp();
    } else {
        FInitMode = imDFM;
        FFileName.clear();
        FFileStamp = {};
        FModified = true;
    }
}

void TQzPkgInfo::SaveToFile(const AnsiString& fileName)
{
    RequireFormat().SaveToFile(*this, fileName);
    // Written over its own file: that file is up to date now.
    if (FInitMode == imFile && !FFileName.empty() && ExpandFileName(fileName) == GetPathFileName()) {
        FModified = false;
        RememberFileStamp();
    }
}

// ---------------------------------------------------------------------------
// Contents

void TQzPkgInfo::xSaveToStream(TWriter* writer)
{
    TQzPkgTransfer t(*writer);
    Transfer(t);
}

void TQzPkgInfo::xLoadFromStream(TReader* reader)
{
    TQzPkgTransfer t(*reader);
    Transfer(t);
}

TQzWindowPlacement TQzPkgInfo::TransferContentHeader(TQzPkgTransfer& t, Integer version) const
{
    t.BeginBlock();
    Integer stored = version;
    const size_t at = t.Loading() ? t.Reader().Position() : 0;
    t.Value(stored);
    if (stored < 1 || stored > version)
        t.Reader().Error("Unsupported package data version " + IntToStr(stored) + " (this program reads up to " +
                             IntToStr(version) + ")",
                         at);
    TQzWindowPlacement placement = FPlacement;
    Integer state = placement.State;
    t.List([&] {
        t.Value(placement.Left);
        t.Value(placement.Top);
        t.Value(placement.Width);
        t.Value(placement.Height);
        t.Value(state, 0, 2, "window state");
        // Later versions may add fields to the placement.
        while (t.Loading() && !t.Reader().EndOfList())
            t.Reader().SkipValue();
    });
    placement.State = state;
    return placement;
}

void TQzPkgInfo::CommitContents(const TQzWindowPlacement& placement)
{
    SetPlacement(placement);
    Change();
}

void TQzPkgInfo::ReadData(TStream& stream)
{
    TReader reader(stream);
    try {
        xLoadFromStream(&reader);
    } catch (const EReadError& e) {
        throw EReadError("Package " + Name() + ": " + e.Message());
    } catch (const Exception& e) {
        // A well-formed block that breaks the model's rules (a duplicate Id)
        // is damaged data all the same; the form must not load without it.
        throw EReadError("Package " + Name() + ": " + e.Message());
    }
}

void TQzPkgInfo::WriteData(TStream& stream)
{
    TWriter writer(stream);
    xSaveToStream(&writer);
    writer.FlushBuffer();
}

void TQzPkgInfo::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzPkgInfo*>(source);
    if (!other || !other->InheritsFrom(ClassType())) {
        TComponent::Assign(source);
        return;
    }
    if (other == this)
        return;
    TWriter writer;
    other->xSaveToStream(&writer);
    TReader reader(writer.Buffer());
    xLoadFromStream(&reader);
    FDescription = other->FDescription;
    Change();
}

void TQzPkgInfo::DefineProperties(TFiler& filer)
{
    TComponent::DefineProperties(filer);
    // A package kept in its own file leaves nothing of its contents in the form.
    filer.DefineBinaryProperty(
        "Data", [this](TStream& s) { ReadData(s); }, [this](TStream& s) { WriteData(s); },
        FInitMode != imFile && (!IsEmpty() || FPlacement.IsPlaced()));
}

void TQzPkgInfo::Loaded()
{
    TComponent::Loaded();
    if (FActive)
        TakeOverName();
    if (FInitMode == imFile && !Trim(FFileName).empty()) {
        // A missing or damaged package file must not stop the form loading:
        // the package stays empty and says why.
        try {
            LoadFile();
        } catch (const Exception& e) {
            FLastFileError = e.Message();
        }
    } else {
        FModified = false;
    }
}

void TQzPkgInfo::JoinRegistry(TQzPkgKind kind)
{
    if (TQzDetachedPkgs::Detaching())
        return;
    FKind = kind;
    QzRegistryAdd(this, kind);
}

void TQzPkgInfo::LeaveRegistry()
{
    if (FKind != pkNone)
        QzRegistryRemove(this, FKind);
    FKind = pkNone;
}
