#pragma once
// The open project as the design package sees it: its name, its modules
// (the units, and which of them have forms), each form as text, writing a
// form text back, and a form's root component in a designer.
//
// A project is a folder, optionally with its C++Builder project file. The
// same services serve the host (forms open in its designers, through
// IOpenDesigners) and the command line (forms loaded without a window).

#include "designide/FormDesigner.h"
#include "rtl/StringList.h"

#include <map>
#include <memory>
#include <vector>

struct TProjectModule {
    AnsiString FileName;   // the unit's source, full path
    AnsiString UnitName;
    AnsiString FormName;   // as the project file names it; may be empty
    AnsiString FormFile;   // the form file beside the source as it is on disk; empty when none

    bool HasForm() const { return !FormName.empty() || !FormFile.empty(); }
    // The module's form file name as the IDE names it: the source with ".dfm".
    AnsiString FormFileName() const { return ChangeFileExt(FileName, ".dfm"); }
};

// How a form file is stored: its framing, and the options that give its
// bytes back from its text.
struct TFormStorage {
    TFormFormat Format = TFormFormat::Resource;
    TFormTextOptions Options;

    static TFormStorage Of(std::string_view bytes) { return {DetectFormFormat(bytes), DetectFormTextOptions(bytes)}; }
    // text in this storage's format (text stays as it is).
    std::string Encode(const std::string& text) const;
};

// The designers that have forms open: the host's windows, or the
// headless designers below.
class IOpenDesigners {
public:
    virtual ~IOpenDesigners() = default;
    // The designer with formFile open (the full name of the file on disk),
    // or nullptr.
    virtual IDesigner* FindDesigner(const AnsiString& formFile) = 0;
    // Opens formFile in a designer unless it is open; nullptr when it cannot.
    virtual IDesigner* OpenDesigner(const AnsiString& formFile) = 0;
    // formFile was rewritten on disk from outside the designer.
    virtual void FormFileWritten(const AnsiString& /*formFile*/) {}
};

// Forms opened without a window, one TFormDesigner each.
class THeadlessDesigners : public IOpenDesigners {
public:
    IDesigner* FindDesigner(const AnsiString& formFile) override { return Find(formFile); }
    IDesigner* OpenDesigner(const AnsiString& formFile) override;
    // A form rewritten on disk is read again when next opened. The designer
    // that had it stays alive (closed) until CloseAll, so roots handed out
    // before do not dangle.
    void FormFileWritten(const AnsiString& formFile) override;

    TFormDesigner* Find(const AnsiString& formFile) const;
    std::vector<TFormDesigner*> Designers() const;
    // Saves every modified form to its file (in its own format, with a
    // backup); returns how many were saved.
    int SaveModified();
    void CloseAll()
    {
        FDesigners.clear();
        FClosed.clear();
    }

private:
    std::map<AnsiString, std::unique_ptr<TFormDesigner>> FDesigners;   // by lower-case file name
    std::vector<std::unique_ptr<TFormDesigner>> FClosed;
};

class TProjectServices {
public:
    virtual ~TProjectServices() = default;

    virtual AnsiString ProjectName() const = 0;
    virtual int ModuleCount() const = 0;
    virtual const TProjectModule& Module(int index) const = 0;

    // The form as text lines and the format it is stored in; false when
    // there is neither an open designer nor a form file.
    virtual bool ReadFormText(const AnsiString& formFileName, TStrings& lines, TStreamOriginalFormat& format) = 0;
    // Writes lines to the form file: binary when format is, else text;
    // keeps the previous file as Name.~dfm. A binary form keeps the framing
    // (bare or resource) and the options it was read with, so a form
    // written back unchanged is the file it was.
    virtual void WriteFormText(const TStrings& lines, const AnsiString& formFileName, TStreamOriginalFormat format) = 0;
    // The form's root as open in a designer, opening it when needed;
    // nullptr when no module of the project has that form.
    virtual TComponent* DesignForm(const AnsiString& formFileName) = 0;

    int FormCount() const;
    // The module whose form formFileName is (matched without regard to case
    // or extension), or nullptr.
    const TProjectModule* FindFormModule(const AnsiString& formFileName) const;
};

// A project folder. Given a folder, it uses the folder's project file (the
// first by name when there are several) or, without one, every unit in the
// folder and below (.cpp, .pas) and every form file without a unit.
class TFolderProject : public TProjectServices {
public:
    // path: a folder, a project file (.bpr, .bpk, .cbproj) or a form file
    // (a project of that form alone). A project file that cannot be read
    // raises, naming the file and the line.
    explicit TFolderProject(const AnsiString& path);

    AnsiString ProjectName() const override { return FName; }
    int ModuleCount() const override { return static_cast<int>(FModules.size()); }
    const TProjectModule& Module(int index) const override;

    bool ReadFormText(const AnsiString& formFileName, TStrings& lines, TStreamOriginalFormat& format) override;
    void WriteFormText(const TStrings& lines, const AnsiString& formFileName, TStreamOriginalFormat format) override;
    TComponent* DesignForm(const AnsiString& formFileName) override;

    const AnsiString& Folder() const { return FFolder; }
    const AnsiString& ProjectFile() const { return FProjectFile; }   // empty without one

    // The host's designers; nullptr goes back to the headless ones.
    void SetDesigners(IOpenDesigners* designers) { FDesigners = designers ? designers : &FHeadless; }
    IOpenDesigners& Designers() const { return *FDesigners; }
    THeadlessDesigners& HeadlessDesigners() { return FHeadless; }

    // formFileName made absolute against the folder; the name of the file
    // on disk when one matches without regard to case, else empty.
    AnsiString FindFormFile(const AnsiString& formFileName) const;

private:
    TFormStorage StorageForWriting(const AnsiString& file) const;

    void LoadProjectFile();
    void ScanFolder(const AnsiString& dir);
    AnsiString Absolute(const AnsiString& fileName) const;

    AnsiString FFolder;
    AnsiString FProjectFile;
    AnsiString FName;
    std::vector<TProjectModule> FModules;
    THeadlessDesigners FHeadless;
    IOpenDesigners* FDesigners = &FHeadless;
    // How each form was stored when it was last read, by lower-case file name.
    std::map<AnsiString, TFormStorage> FReadForms;
};

// path resolved against dir one part at a time, each part matched without
// regard to case when there is no exact match ("forms/UNIT1.DFM" finds
// "Forms/Unit1.dfm"). Parts that match nothing stay as written.
AnsiString ResolvePathCaseInsensitive(const AnsiString& dir, const AnsiString& path);
