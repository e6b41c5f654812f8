#pragma once
// Making the item sets of packages of one kind agree, without a window:
// items missing from the target are added with all their data, items the
// master lacks are deleted, and an item both hold is never touched, so a
// translated text in the target survives whatever the master says.
//
// Kinds: strings (labels, messages, texts by Id), images (by Id), language
// packages (their "System" and "User" strings) and display packages (their
// background, colour and font sets by name, and their "System" and "User"
// images). The options say which of those parts take part.

#include "rtl/SysUtils.h"

#include <memory>
#include <vector>

class TQzPkgInfo;

struct TQzSyncOptions {
    bool AddItems = true;      // add what the target lacks
    bool DeleteItems = true;   // delete what the master lacks
    bool SyncSystem = true;    // the "System" part of a language or display package
    bool SyncUser = true;      // its "User" part
    bool SyncSets = true;      // a display package's sets
};

// What a run tells the window that shows it.
class IQzSyncProgress {
public:
    virtual ~IQzSyncProgress() = default;
    // A package pair begins; total is the number of steps it takes (the
    // items of both sides over the parts that take part).
    virtual void SyncBegin(int total) = 0;
    // One item walked.
    virtual void SyncStep() = 0;
};

struct TQzSyncCounts {
    int Added = 0;
    int Deleted = 0;
    bool operator==(const TQzSyncCounts&) const = default;
};

// A run that stopped: the file it stopped at and the files it had already
// written, which stay written.
class EQzSyncError : public Exception {
public:
    EQzSyncError(const AnsiString& fileName, const AnsiString& reason, std::vector<AnsiString> written);
    const AnsiString& FileName() const { return FFileName; }
    const std::vector<AnsiString>& Written() const { return FWritten; }

private:
    AnsiString FFileName;
    std::vector<AnsiString> FWritten;
};

// Whether pkg is of a kind the synchronizer handles.
bool QzCanSynchronize(const TQzPkgInfo* pkg);
// A new empty package of pkg's kind, in no package list (it takes no name
// over from the application's packages).
std::unique_ptr<TQzPkgInfo> QzNewPkgLike(const TQzPkgInfo& pkg);

// The steps QzSyncPackages will take for these two packages.
int QzSyncTotal(const TQzPkgInfo& master, const TQzPkgInfo& target, const TQzSyncOptions& options);
// Makes target's items agree with master's (both of one kind). Deletion
// walks the target from its last item, so deleting every item skips none.
TQzSyncCounts QzSyncPackages(const TQzPkgInfo& master, TQzPkgInfo& target, const TQzSyncOptions& options,
                             IQzSyncProgress* progress = nullptr);

// "To": edited is the master of each package file, fileNames taken from
// folder (or absolute), from the last to the first. Each file is read,
// brought into line and written back atomically before the next is read.
// Raises EQzSyncError at the first file that cannot be read, synchronized
// or written; that file is left as it was. Returns the files written.
std::vector<AnsiString> QzSynchronizeTo(TQzPkgInfo& edited, const AnsiString& folder,
                                        const std::vector<AnsiString>& fileNames, const TQzSyncOptions& options,
                                        IQzSyncProgress* progress = nullptr);
// "From": the package file masterFile is the master and edited the target.
// A file that cannot be read raises EQzSyncError and changes nothing.
TQzSyncCounts QzSynchronizeFrom(TQzPkgInfo& edited, const AnsiString& masterFile, const TQzSyncOptions& options,
                                IQzSyncProgress* progress = nullptr);
