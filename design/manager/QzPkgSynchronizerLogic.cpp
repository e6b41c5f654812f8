#include "design/manager/QzPkgSynchronizerLogic.h"

#include "runtime/model/QzPkgCollectionUpdate.h"
#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"

#include <functional>

namespace {

// One list of the master and its counterpart in the target, with the three
// things the walk needs to know of them.
struct TPair {
    const TQzPkgCollection* Master;
    TQzPkgCollection* Target;
    // Whether the target holds an item with the key of item (of the other list).
    std::function<bool(const TQzPkgCollection& list, const TQzPkgItem& item)> Holds;
    // Adds to target a copy of master's item, key and data.
    std::function<void(TQzPkgCollection& target, TQzPkgItem& item)> AddCopy;
};

bool HoldsId(const TQzPkgCollection& list, const TQzPkgItem& item)
{
    return static_cast<const TQzPkgIdCollection&>(list).FindIdItem(static_cast<const TQzPkgIdItem&>(item).Id()) != nullptr;
}

bool HoldsName(const TQzPkgCollection& list, const TQzPkgItem& item)
{
    return static_cast<const TQzPkgDisplaySets&>(list).FindSet(static_cast<const TQzPkgDisplaySet&>(item).Name()) !=
           nullptr;
}

// An Id list's copy: a new item under the master's Id, then all of its data.
template <class List>
TPair IdPair(const List* master, List* target)
{
    return {master, target, HoldsId, [](TQzPkgCollection& list, TQzPkgItem& item) {
                auto& from = static_cast<TQzPkgIdItem&>(item);
                static_cast<List&>(list).Add(from.Id())->Assign(&from);
            }};
}

template <class Sets>
TPair SetsPair(const Sets* master, Sets* target)
{
    return {master, target, HoldsName, [](TQzPkgCollection& list, TQzPkgItem& item) {
                auto& from = static_cast<TQzPkgDisplaySet&>(item);
                static_cast<Sets&>(list).Add(from.Name())->Assign(&from);
            }};
}

void AddStrings(std::vector<TPair>& pairs, const TQzPkgStrings* master, TQzPkgStrings* target)
{
    if (!master || !target)
        return;
    pairs.push_back(IdPair(master->Labels(), target->Labels()));
    pairs.push_back(IdPair(master->Messages(), target->Messages()));
    pairs.push_back(IdPair(master->Texts(), target->Texts()));
}

void AddImages(std::vector<TPair>& pairs, const TQzPkgImages* master, TQzPkgImages* target)
{
    if (master && target)
        pairs.push_back(IdPair(master->Images(), target->Images()));
}

// The lists that take part, in the order they are processed.
std::vector<TPair> PairsOf(const TQzPkgInfo& master, TQzPkgInfo& target, const TQzSyncOptions& options)
{
    std::vector<TPair> pairs;
    if (auto* m = dynamic_cast<const TQzPkgStrings*>(&master)) {
        AddStrings(pairs, m, dynamic_cast<TQzPkgStrings*>(&target));
    } else if (auto* m = dynamic_cast<const TQzPkgImages*>(&master)) {
        AddImages(pairs, m, dynamic_cast<TQzPkgImages*>(&target));
    } else if (auto* m = dynamic_cast<const TQzPkgLanguage*>(&master)) {
        auto* t = dynamic_cast<TQzPkgLanguage*>(&target);
        if (t && options.SyncSystem)
            AddStrings(pairs, m->PkgSystem(), t->PkgSystem());
        if (t && options.SyncUser)
            AddStrings(pairs, m->PkgUser(), t->PkgUser());
    } else if (auto* m = dynamic_cast<const TQzPkgDisplay*>(&master)) {
        auto* t = dynamic_cast<TQzPkgDisplay*>(&target);
        if (t && options.SyncSets) {
            pairs.push_back(SetsPair(m->SetsBackGround(), t->SetsBackGround()));
            pairs.push_back(SetsPair(m->SetsColor(), t->SetsColor()));
            pairs.push_back(SetsPair(m->SetsFont(), t->SetsFont()));
        }
        if (t && options.SyncSystem)
            AddImages(pairs, m->PkgSystem(), t->PkgSystem());
        if (t && options.SyncUser)
            AddImages(pairs, m->PkgUser(), t->PkgUser());
    }
    if (!pairs.empty() && master.ClassType() != target.ClassType())
        throw EQzPkgError("A " + master.KindName() + " package cannot be synchronized with a " + target.KindName() +
                          " package");
    return pairs;
}

TQzSyncCounts ProcessPair(const TPair& pair, const TQzSyncOptions& options, IQzSyncProgress* progress)
{
    TQzSyncCounts counts;
    if (options.DeleteItems) {
        TQzPkgCollectionUpdate update(*pair.Target);
        for (int i = pair.Target->Count() - 1; i >= 0; --i) {
            if (!pair.Holds(*pair.Master, *pair.Target->Item(i))) {
                pair.Target->Delete(i);
                ++counts.Deleted;
            }
            if (progress)
                progress->SyncStep();
        }
    }
    if (options.AddItems) {
        TQzPkgCollectionUpdate update(*pair.Target);
        for (int i = 0; i < pair.Master->Count(); ++i) {
            TQzPkgItem* item = pair.Master->Item(i);
            if (!pair.Holds(*pair.Target, *item)) {
                pair.AddCopy(*pair.Target, *item);
                ++counts.Added;
            }
            if (progress)
                progress->SyncStep();
        }
    }
    return counts;
}

// A package file is no live suite data: its "System" parts take changes
// whatever the application allows.
class TFileSystemParts {
public:
    explicit TFileSystemParts(const TQzPkgInfo& pkg)
    {
        Add(&pkg);
        if (auto* language = dynamic_cast<const TQzPkgLanguage*>(&pkg))
            Add(language->PkgSystem());
        if (auto* display = dynamic_cast<const TQzPkgDisplay*>(&pkg))
            Add(display->PkgSystem());
    }

private:
    void Add(const TQzPkgInfo* pkg)
    {
        if (pkg)
            FGuards.push_back(std::make_unique<TQzPkgInfo::TSystemUpdate>(*pkg));
    }
    std::vector<std::unique_ptr<TQzPkgInfo::TSystemUpdate>> FGuards;
};

AnsiString FullName(const AnsiString& folder, const AnsiString& fileName)
{
    if (folder.empty() || (!fileName.empty() && fileName[0] == '/'))
        return fileName;
    return IncludeTrailingPathDelimiter(folder) + fileName;
}

} // namespace

EQzSyncError::EQzSyncError(const AnsiString& fileName, const AnsiString& reason, std::vector<AnsiString> written)
    : Exception(""), FFileName(fileName), FWritten(std::move(written))
{
    AnsiString text = "Synchronizing \"" + fileName + "\" failed: " + reason;
    if (!FWritten.empty())
        text += FWritten.size() == 1 ? "\nThe file synchronized before it stays written."
                                     : "\nThe " + IntToStr(static_cast<int>(FWritten.size())) +
                                           " files synchronized before it stay written.";
    SetMessage(text);
}

bool QzCanSynchronize(const TQzPkgInfo* pkg)
{
    return dynamic_cast<const TQzPkgStrings*>(pkg) || dynamic_cast<const TQzPkgImages*>(pkg) ||
           dynamic_cast<const TQzPkgLanguage*>(pkg) || dynamic_cast<const TQzPkgDisplay*>(pkg);
}

std::unique_ptr<TQzPkgInfo> QzNewPkgLike(const TQzPkgInfo& pkg)
{
    TQzDetachedPkgs detached;
    if (dynamic_cast<const TQzPkgStrings*>(&pkg))
        return std::make_unique<TQzPkgStrings>(nullptr);
    if (dynamic_cast<const TQzPkgImages*>(&pkg))
        return std::make_unique<TQzPkgImages>(nullptr);
    if (dynamic_cast<const TQzPkgLanguage*>(&pkg))
        return std::make_unique<TQzPkgLanguage>(nullptr);
    if (dynamic_cast<const TQzPkgDisplay*>(&pkg))
        return std::make_unique<TQzPkgDisplay>(nullptr);
    throw EQzPkgError("A " + pkg.KindName() + " package cannot be synchronized");
}

int QzSyncTotal(const TQzPkgInfo& master, const TQzPkgInfo& target, const TQzSyncOptions& options)
{
    int total = 0;
    for (const TPair& pair : PairsOf(master, const_cast<TQzPkgInfo&>(target), options))
        total += (options.DeleteItems ? pair.Target->Count() : 0) + (options.AddItems ? pair.Master->Count() : 0);
    return total;
}

TQzSyncCounts QzSyncPackages(const TQzPkgInfo& master, TQzPkgInfo& target, const TQzSyncOptions& options,
                             IQzSyncProgress* progress)
{
    if (!QzCanSynchronize(&master))
        throw EQzPkgError("A " + master.KindName() + " package cannot be synchronized");
    const std::vector<TPair> pairs = PairsOf(master, target, options);
    if (progress)
        progress->SyncBegin(QzSyncTotal(master, target, options));
    TQzSyncCounts counts;
    for (const TPair& pair : pairs) {
        const TQzSyncCounts one = ProcessPair(pair, options, progress);
        counts.Added += one.Added;
        counts.Deleted += one.Deleted;
    }
    return counts;
}

std::vector<AnsiString> QzSynchronizeTo(TQzPkgInfo& edited, const AnsiString& folder,
                                        const std::vector<AnsiString>& fileNames, const TQzSyncOptions& options,
                                        IQzSyncProgress* progress)
{
    std::vector<AnsiString> written;
    for (auto name = fileNames.rbegin(); name != fileNames.rend(); ++name) {
        const AnsiString file = FullName(folder, *name);
        try {
            std::unique_ptr<TQzPkgInfo> target = QzNewPkgLike(edited);
            TFileSystemParts unlocked(*target);
            target->LoadFromFile(file);
            QzSyncPackages(edited, *target, options, progress);
            target->SaveToFile(file);
        } catch (const Exception& e) {
            throw EQzSyncError(file, e.Message(), written);
        } catch (const std::exception& e) {
            throw EQzSyncError(file, e.what(), written);
        }
        written.push_back(file);
    }
    return written;
}

TQzSyncCounts QzSynchronizeFrom(TQzPkgInfo& edited, const AnsiString& masterFile, const TQzSyncOptions& options,
                                IQzSyncProgress* progress)
{
    try {
        std::unique_ptr<TQzPkgInfo> master = QzNewPkgLike(edited);
        {
            TFileSystemParts unlocked(*master);
            master->LoadFromFile(masterFile);
        }
        return QzSyncPackages(*master, edited, options, progress);
    } catch (const Exception& e) {
        throw EQzSyncError(masterFile, e.Message(), {});
    } catch (const std::exception& e) {
        throw EQzSyncError(masterFile, e.what(), {});
    }
}
