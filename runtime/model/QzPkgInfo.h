#pragma once
// TQzPkgInfo, the base of every package: description, storage mode and
// package file, the modified flag, the links that hear of changes, the
// editor placement, and the streaming of the contents inside a form.
//
// Contents travel in one layout wherever they go. xSaveToStream writes them
// as filer values (see docs/runtime-model.md): the version of the kind's
// layout, the editor placement, then the kind's own lists. Inside a form
// that block is the binary property "Data" (ReadData/WriteData); a package
// file wraps the same block after its own header. Reading is all or
// nothing: a block that fails to read leaves the package as it was.

#include "runtime/model/QzTypes.h"

#include "rtl/Component.h"
#include "rtl/Filer.h"

#include <cstdint>
#include <memory>
#include <vector>

class TQzPkgInfo;
class TQzCApplication;
class TQzPkgTransfer;

// What a package tells its links (NotifyEvt's event argument).
enum TQzPkgEvent {
    peChange = 1,   // contents changed; data: nullptr
    peUpdate,       // NotifyUpdate(sender); data: the sender
    peInit,         // NotifyInit(sender): links re-read everything; data: the sender
    peActive,       // Active switched; data: nullptr
    peName,         // PkgName changed; data: the old name (const AnsiString*)
    peDestroy,      // the package is going; data: nullptr
};

// A component that shows package data (a label showing a package text, an
// editor window) links itself to the package to hear of changes.
class IQzPkgLink {
public:
    virtual ~IQzPkgLink() = default;
    virtual void PkgNotify(TQzPkgInfo* pkg, int event, void* data) = 0;
};

// How package files of one kind are written and read. The files layer
// installs one per package class (QzRegisterPkgFileFormat); the model calls
// it from LoadFile/SaveFile and their variants.
class TQzPkgFileFormat {
public:
    virtual ~TQzPkgFileFormat() = default;
    // Writes the package (description and contents) to fileName atomically.
    virtual void SaveToFile(TQzPkgInfo& pkg, const AnsiString& fileName) = 0;
    // Replaces the package's description and contents with the file's. On
    // any error raises a message naming the file and leaves pkg unchanged.
    virtual void LoadFromFile(TQzPkgInfo& pkg, const AnsiString& fileName) = 0;
    // The description stored in the file, read without loading the rest.
    virtual AnsiString ReadDescription(const AnsiString& fileName) = 0;
};

// Installs the format for pkgClass and its descendants that have none of
// their own; nullptr removes it. Returns the format it replaces, so that a
// caller can put it back.
std::shared_ptr<TQzPkgFileFormat> QzRegisterPkgFileFormat(TMetaClass* pkgClass,
                                                          std::shared_ptr<TQzPkgFileFormat> format);
// The format of the nearest class up from pkgClass that has one, or nullptr.
TQzPkgFileFormat* QzFindPkgFileFormat(const TMetaClass* pkgClass);

// The registries a package joins by kind (QzPkgStringsAll and friends).
enum TQzPkgKind { pkNone = -1, pkStrings, pkImages, pkVars };

class TQzPkgInfo : public TComponent {
    QZ_CLASS(TQzPkgInfo, TComponent)

public:
    explicit TQzPkgInfo(TComponent* owner);
    ~TQzPkgInfo() override;

    // ---- identity and settings
    const AnsiString& Description() const { return FDescription; }
    void SetDescription(const AnsiString& value);
    const AnsiString& FileName() const { return FFileName; }
    void SetFileName(const AnsiString& value);
    TQzRegisterInitMode InitMode() const { return FInitMode; }
    void SetInitMode(TQzRegisterInitMode value);
    // Packages of the three named kinds carry a name and an active flag; at
    // most one package per kind and name is active (the one found by name).
    const AnsiString& PkgName() const { return FPkgName; }
    virtual void SetPkgName(const AnsiString& value);
    bool Active() const { return FActive; }
    virtual void SetActive(bool value);
    TQzPkgKind Kind() const { return FKind; }
    // The package named "System" (any case), the suite's own.
    bool IsSystem() const { return QzIsSystemPkgName(FPkgName); }

    const TQzWindowPlacement& Placement() const { return FPlacement; }
    void SetPlacement(const TQzWindowPlacement& value);

    // ---- changes
    bool GetModified() const { return FModified; }
    void SetModified(bool value) { FModified = value; }
    // Contents changed: marks the package modified and tells the links.
    void Change();
    void NotifyEvt(int event, void* data);
    void NotifyUpdate(TObject* sender) { NotifyEvt(peUpdate, sender); }
    void AddLink(IQzPkgLink* link);
    void RemoveLink(IQzPkgLink* link);
    int LinkCount() const { return static_cast<int>(FLinks.size()); }

    // Whether the contents may be changed now: always, except for the
    // "System" package, which only while the application allows system
    // editing (and while it is being read or refreshed by the model).
    bool CanChange() const;
    // Raises EQzPkgError when CanChange() is false.
    void CheckChange() const;

    // ---- package files
    // The kind's file extension without its point ("pst"), and its name in
    // file headers and dialog titles ("PkgStrings").
    virtual AnsiString DefaultExt() const = 0;
    virtual AnsiString KindName() const = 0;
    // The folder relative file names are taken from: the application's
    // Path, or the current folder when there is no application or no path.
    virtual AnsiString BasePath() const;
    // The full name of a package file: the default extension added when
    // name has none, a relative name taken from BasePath().
    AnsiString GetFileName(const AnsiString& name) const;
    AnsiString GetPathFileName() const { return GetFileName(FFileName); }
    // True when the package lives in its file (FILE) and that file changed
    // on disk since the package last read or wrote it.
    bool FileModified() const;

    // From the package's own file, when it has one (FILE); otherwise nothing.
    void LoadFile();
    // Loads fileName and then keeps the package in it (imFile) or in the
    // form (imDFM, the file name is dropped).
    void LoadFileEx(const AnsiString& fileName, TQzRegisterInitMode mode);
    // Replaces the contents with a file's; the package stays where it lives
    // and is marked modified.
    void LoadFromFile(const AnsiString& fileName);
    // Writes the package's own file when it has one and is modified.
    void SaveFile();
    // imFile: writes fileName and keeps the package in it from now on.
    // imDFM: the package goes back into the form; nothing is written.
    void SaveFileEx(const AnsiString& fileName, TQzRegisterInitMode mode);
    // Writes a copy of the package to fileName.
    void SaveToFile(const AnsiString& fileName);
    // Why the package file could not be read when the form was loaded.
    const AnsiString& LastFileError() const { return FLastFileError; }

    // ---- contents
    // The whole contents through a filer writer or reader (the layout of
    // docs/runtime-model.md). Loading replaces everything or, on error,
    // raises and changes nothing.
    void xSaveToStream(TWriter* writer);
    void xLoadFromStream(TReader* reader);
    // The kind's layout, run by saving and loading alike: loading reads into
    // temporaries and commits them with CommitContents once all are read.
    virtual void Transfer(TQzPkgTransfer& t) = 0;
    virtual void Clear() = 0;
    virtual bool IsEmpty() const = 0;
    // The contents as the form's binary property "Data".
    void ReadData(TStream& stream);
    void WriteData(TStream& stream);
    // Copies description and contents from a package of this class.
    void Assign(TPersistent* source) override;

    void DefineProperties(TFiler& filer) override;
    void Loaded() override;

    // While one exists the "System" package accepts changes from the model
    // itself (refreshing it from the built-in data or a language file).
    class TSystemUpdate {
    public:
        explicit TSystemUpdate(const TQzPkgInfo& pkg) : FPkg(pkg) { ++FPkg.FSystemUpdate; }
        ~TSystemUpdate() { --FPkg.FSystemUpdate; }
        TSystemUpdate(const TSystemUpdate&) = delete;
        TSystemUpdate& operator=(const TSystemUpdate&) = delete;

    private:
        const TQzPkgInfo& FPkg;
    };

protected:
    // A named kind joins its registry from its constructor and leaves it
    // from its destructor, so the registry never holds a half-made package.
    void JoinRegistry(TQzPkgKind kind);
    void LeaveRegistry();
    // The first thing each kind's block holds, and the check of it: the
    // version of the kind's layout and the editor placement. Returns the
    // placement saved, or read.
    TQzWindowPlacement TransferContentHeader(TQzPkgTransfer& t, Integer version) const;
    // The end of a load: the placement read, and one change for it all.
    void CommitContents(const TQzWindowPlacement& placement);
    // A field's new value, as a change of the contents when it differs.
    template <class V>
    void ChangeField(V& field, const V& value)
    {
        if (field == value)
            return;
        field = value;
        Change();
    }

private:
    static void DeclareProperties(TClassBuilder<TQzPkgInfo>& b);
    TQzPkgFileFormat& RequireFormat() const;
    void TakeOverName();   // deactivates the other packages of this name
    void RememberFileStamp();

    struct TFileStamp {
        bool Valid = false;
        std::int64_t Time = 0;
        std::uintmax_t Size = 0;
        bool operator==(const TFileStamp&) const = default;
    };
    static TFileStamp StampOf(const AnsiString& fileName);

    AnsiString FDescription;
    AnsiString FFileName;
    TQzRegisterInitMode FInitMode = imDFM;
    AnsiString FPkgName;
    bool FActive = true;
    TQzPkgKind FKind = pkNone;
    TQzWindowPlacement FPlacement;
    bool FModified = false;
    TFileStamp FFileStamp;
    AnsiString FLastFileError;
    std::vector<IQzPkgLink*> FLinks;
    mutable int FSystemUpdate = 0;
};
