#pragma once
// The project open in the host: its folder and project file, the list of
// its forms (known at once, read only when first shown), and the designers
// of the forms that are open. It is also the project's IOpenDesigners, so
// the design package reads and designs the forms the user sees.

#include "designide/forms/QzIdeDesigner.h"

#include "designide/ProjectServices.h"

#include <QObject>
#include <map>
#include <memory>
#include <vector>

class TIdeProject : public QObject, public IOpenDesigners {
    Q_OBJECT

public:
    // path: a project file, a folder or a form file; raises, naming the
    // file and line, when it cannot be read.
    explicit TIdeProject(const AnsiString& path, QObject* parent = nullptr);
    // Gives the services back to the ones it replaced, when installed.
    ~TIdeProject() override;
    // Makes the project the services the design package uses, until it
    // goes. Separate from loading, so a project that loads can wait while
    // the one it replaces closes.
    void Install();

    TFolderProject& Services() { return FServices; }
    AnsiString Name() const { return FServices.ProjectName(); }

    // The forms as the project lists them ("Unit1.dfm", full paths).
    int FormCount() const { return static_cast<int>(FForms.size()); }
    const AnsiString& FormName(int index) const { return FForms.at(index); }
    // The form's name for lists and tabs: the file name without folder.
    AnsiString FormTitle(int index) const;
    int IndexOfForm(const AnsiString& formFile) const;

    // The open designer of a form, or nullptr.
    TIdeDesigner* Designer(int index) const;
    // Opens the form when it is not open; raises with a message naming the
    // file (and line) when it cannot be read, and nothing opens.
    TIdeDesigner* Open(int index);
    // Forgets the form's designer and its changes.
    void Close(int index);
    std::vector<TIdeDesigner*> OpenDesigners() const;
    // Saves the changed forms; returns how many.
    int SaveAll();

    // IOpenDesigners
    IDesigner* FindDesigner(const AnsiString& formFile) override;
    IDesigner* OpenDesigner(const AnsiString& formFile) override;
    void FormFileWritten(const AnsiString& formFile) override;

signals:
    void DesignerOpened(int index);
    // A form's file was written from outside its designer and read again.
    void DesignerReloaded(int index);

private:
    AnsiString FormFileOnDisk(int index) const;

    TFolderProject FServices;
    TProjectServices* FPreviousServices = nullptr;
    std::vector<AnsiString> FForms;
    std::map<int, std::unique_ptr<TIdeDesigner>> FDesigners;
    // Designers replaced or closed while an editor might still hold them.
    std::vector<std::unique_ptr<TIdeDesigner>> FRetired;
};
