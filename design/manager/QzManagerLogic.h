#pragma once
// The packages manager without its window: scan the project's forms (and
// the application's sets and privileges) for the references to one item,
// count every reference of a kind and check that its item exists, and
// replace or clear the references found. The manager window and the
// command line's "refs" command are thin layers over it.
//
// Forms come from the project services: their text (from an open designer
// or from the file) to scan, and their root component in a designer to
// change. The packages come from IQzManagerPackages.

#include "design/manager/QzFormScanner.h"
#include "design/manager/QzManagerPackages.h"
#include "design/manager/QzManagerProgress.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class TProjectServices;
class TComponent;

// What the last run was; Clear after a count clears what the count found.
enum class TQzManagerRun { None, Scan, Count };

// The message a search's inputs deserve, or empty when they will do: a
// package and a numeric Id for the package kinds, a value for the others.
AnsiString QzCheckSearchInput(TQzDlgManager kind, const AnsiString& pkgName, const AnsiString& value);
// "1 line", "3 lines".
AnsiString QzLinesText(int count);

class TQzManagerLogic {
public:
    // progress may be nullptr (nothing shown, never cancelled).
    TQzManagerLogic(TProjectServices& project, IQzManagerPackages& packages, IQzManagerProgress* progress = nullptr);

    // The project's form files, in module order, as ReadFormText and
    // DesignForm take them.
    std::vector<AnsiString> FormFiles() const;

    // Scan: every form (its text), then, unless cancelled, the display
    // sets for Images ("Images Check (SetsBackGround)") and the sets and
    // privileges for Labels ("Labels Check (SetsBackGround, SetsColor,
    // SetsFont, Privileges)"). Progress title "Scanning". Hits in form
    // order, then line order, then the checks. A form that cannot be read
    // is skipped. Raises EQzScanError.
    std::vector<TQzTokenRec1> Scan(TQzDlgManager kind, const AnsiString& pkgName, const AnsiString& value);

    // The packages a count may choose from: PackageNames of the kind
    // without "System".
    std::vector<AnsiString> CountPackages(TQzDlgManager kind) const;
    // Count: every reference of the kind in the forms whose package is one
    // of packages (package kinds; any case), then for Images and Labels
    // the sets and privileges, then "Exist Check", which sets Exists and
    // appends QzNonexistentText to the row text of references to missing
    // items. Progress title "Counting". Raises EQzScanError.
    std::vector<TQzTokenRec2> Count(TQzDlgManager kind, const std::vector<AnsiString>& packages);

    // Replace: each hit (the checked rows) now names newPkg and newValue:
    // a form hit through the component on the form's designer, a set or
    // privilege hit in the display package or privileges. Returns the
    // number of references changed; forms that could not be changed are in
    // Failures() as "Unable to modified <form>". Progress title "Replacing".
    int Replace(const std::vector<const TQzTokenRec1*>& hits, const AnsiString& newPkg, const AnsiString& newValue);
    // Clear: form hits get an empty package and Id -1 (a set its empty
    // name, a privilege Id -1); set and privilege hits Id -1. Returns the
    // number changed, as Replace. Progress title "Cleaning".
    int Clear(const std::vector<const TQzTokenRec1*>& hits);

    // Whether the last pass was cancelled, and what the last run was.
    bool Cancelled() const { return FCancelled; }
    TQzManagerRun LastRun() const { return FLastRun; }
    const std::vector<AnsiString>& Failures() const { return FFailures; }

    // Scanning opens each form in the designer as it goes, as the IDE's
    // manager does; off, forms are only read (the command line).
    bool OpenFormsWhileScanning = false;
    // Told once per form that Replace or Clear changed, after its changes.
    // Unset, the form's designer (when the project is a TFolderProject) is
    // marked modified.
    std::function<void(const AnsiString& formFile, TComponent* root)> OnFormChanged;

private:
    // The form's text; false when there is none.
    bool ReadForm(const AnsiString& file, std::string& text);
    // The counting pass: reads every form into texts (none for one that
    // cannot be read) and returns the steps the pass will take.
    int CountLines(TQzDlgManager kind, std::vector<std::optional<std::string>>& texts);
    // phase: the text shown while the forms are read; empty shows each
    // form's name.
    void ScanForms(TQzFormScanner& scanner, const AnsiString& phase, std::vector<TQzTokenRec1>& hits);
    void CheckSets(TQzDlgManager kind, const AnsiString& pkgName, const AnsiString& value, bool any,
                   const std::vector<AnsiString>& packages, std::vector<TQzTokenRec1>& hits);
    int ChangeHits(const std::vector<const TQzTokenRec1*>& hits, bool clear, const AnsiString& newPkg,
                   const AnsiString& newValue);
    bool ChangeFormHit(TComponent* root, const TQzTokenRec1& hit, bool clear, const AnsiString& newPkg,
                       const AnsiString& newValue);
    // Returns the package that holds the changed reference, or nullptr.
    TComponent* ChangeItemHit(const TQzTokenRec1& hit, bool clear, const AnsiString& newPkg, const AnsiString& newValue);
    void FormChanged(const AnsiString& formFile, TComponent* root);

    TProjectServices& FProject;
    IQzManagerPackages& FPackages;
    TQzNoProgress FNoProgress;
    IQzManagerProgress* FProgress;
    TQzPropertyTypes FTypes;
    AnsiString FTitle;
    bool FCancelled = false;
    TQzManagerRun FLastRun = TQzManagerRun::None;
    std::vector<AnsiString> FFailures;
};
