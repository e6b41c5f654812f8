#pragma once
// What the strings translators know without a window: the package that
// holds the other language and where its file lies, the rows (every Id of
// either side, once), what the pop-up menus allow, the status bar and
// caption texts, and the filters that narrow the rows to those needing
// work. The three translators (labels, messages, texts) differ only in the
// collection they show and a few words, gathered in TQzTranslatorTraits.

#include "runtime/model/QzPkgStrings.h"

#include <functional>
#include <memory>
#include <vector>

enum class TQzTranslatorKind { Labels, Messages, Texts };

struct TQzTranslatorTraits {
    const char* Caption;        // "Labels Translator"
    const char* ListName;       // the list's control name: "Labels"
    const char* AddCaption;     // "Add Label"
    const char* ModifyCaption;  // "Modify Label"
    const char* CountWord;      // " Labels )"
    bool HasHint;               // labels carry a hint beside the text
};
const TQzTranslatorTraits& QzTranslatorTraits(TQzTranslatorKind kind);

// The collection of the translator's kind; nullptr for a null package.
TQzPkgIdCollection* QzTranslatorCollection(TQzPkgStrings* pkg, TQzTranslatorKind kind);
const TQzPkgIdCollection* QzTranslatorCollection(const TQzPkgStrings* pkg, TQzTranslatorKind kind);

// One side of a row: the item's texts, or Present false when that side has
// no item with the Id.
struct TQzTranslatorSide {
    bool Present = false;
    AnsiString Text;
    AnsiString Hint;  // labels only
};
TQzTranslatorSide QzTranslatorSide(const TQzPkgStrings* pkg, TQzTranslatorKind kind, Integer id);

// Writes text (and, for labels, hint) as the item with id, adding it when
// the package has none. Raises what the collection raises for a refused
// change and then leaves the package as it was.
void QzTranslatorWrite(TQzPkgStrings& pkg, TQzTranslatorKind kind, Integer id, const AnsiString& text,
                       const AnsiString& hint);

// Every Id of either collection, ascending, each once. Either may be null.
std::vector<Integer> QzTranslatorIds(const TQzPkgIdCollection* edited, const TQzPkgIdCollection* translation);
// The smallest Id that neither collection uses.
Integer QzTranslatorFreeId(const TQzPkgIdCollection* edited, const TQzPkgIdCollection* translation);

// ---------------------------------------------------------------- the other language

// Finds the form file a root component was loaded from; empty when unknown.
using TQzFormFileOf = std::function<AnsiString(const TComponent* root)>;
// Through the open project: the module whose form a designer shows as
// root, or whose form the project file names as the root is named.
AnsiString QzProjectFormFileOf(const TComponent* root);

// The package that holds the translation, owned by the translator. A
// strings package on a form is translated by a strings package file beside
// the form; the "System" and "User" strings of a language package by the
// matching strings of another language file.
class TQzTranslation {
public:
    TQzTranslation(const TQzPkgStrings& edited, const TQzFormFileOf& formFileOf = QzProjectFormFileOf);
    ~TQzTranslation();
    TQzTranslation(const TQzTranslation&) = delete;
    TQzTranslation& operator=(const TQzTranslation&) = delete;

    TQzPkgStrings* Strings() const { return FStrings; }
    // The package that is read and written: the strings themselves, or the
    // language package holding them.
    TQzPkgInfo* FilePackage() const { return FFilePackage.get(); }
    // The translation file's full name; empty when the edited package has
    // no place that names one.
    const AnsiString& FileName() const { return FFileName; }
    // The file list mask of the file picker ("*.lan").
    AnsiString FileMask() const;
    // The file last read into the translation; empty while none was.
    const AnsiString& LoadedFile() const { return FLoadedFile; }

    // Points the translation at fileName and reads it when it exists (a
    // missing one leaves the translation empty, to be written by Save).
    // Raises with the file's name when it cannot be read, leaving the
    // translation as it was.
    void Open(const AnsiString& fileName);
    // Whether Save can write: the translation has a file of its own.
    bool SavesOwnFile() const;
    void Save();

private:
    std::unique_ptr<TQzPkgInfo> FFilePackage;
    TQzPkgStrings* FStrings = nullptr;
    AnsiString FFileName;
    AnsiString FLoadedFile;
};

// The file the edited package's translation lies in by default: beside
// its form with the strings file extension, or its language file's name
// with ".lan". Empty when neither is known.
AnsiString QzDefaultTranslationFile(const TQzPkgStrings& edited, const TQzFormFileOf& formFileOf);
// Whether the edited package is translated by a language file.
bool QzTranslatedByLanguage(const TQzPkgStrings& edited);

// ---------------------------------------------------------------- window texts

// What the pop-up menus allow for the selected row.
struct TQzTranslatorMenu {
    bool Add = false;
    bool Modify = false;
    bool Delete = false;
    bool Save = false;
};
// rowSelected false: no row is selected; Add then takes an Id that neither
// side uses (QzTranslatorFreeId).
TQzTranslatorMenu QzTranslatorMenuState(bool rowSelected, bool inEdited, bool savesOwnFile);

AnsiString QzTranslatorStatusText(TQzTranslatorKind kind, const TQzPkgStrings& edited, const TQzTranslation& translation);
AnsiString QzTranslatorCurrentFileText(const TQzTranslation& translation);
AnsiString QzTranslatorLoadFileText(const TQzTranslation& translation);

// ---------------------------------------------------------------- filters and checks

enum class TQzTranslatorFilter {
    All,
    MissingInEdited,       // the translation has it, the edited package not
    MissingInTranslation,  // the edited package has it, the translation not
    DiffersInPlaceholders, // both have it, with other %s/%d counts
    FailsChecks,           // both have it and some check fails
};
// The filter combo's entries, in the order of the enumeration.
const std::vector<const char*>& QzTranslatorFilterNames();

// Whether the two sides' texts hold different counts of %s/%d placeholders.
bool QzTranslatorPlaceholdersDiffer(const TQzTranslatorSide& edited, const TQzTranslatorSide& translation);
// The names of the checks a row fails (empty when it passes or one side is
// missing), as the row's marker tooltip lists them.
std::vector<AnsiString> QzTranslatorRowChecks(const TQzTranslatorSide& edited, const TQzTranslatorSide& translation);
bool QzTranslatorRowPasses(TQzTranslatorFilter filter, const TQzTranslatorSide& edited,
                           const TQzTranslatorSide& translation);
// The Ids of ids that pass the filter.
std::vector<Integer> QzTranslatorFilterIds(const std::vector<Integer>& ids, TQzTranslatorFilter filter,
                                           TQzTranslatorKind kind, const TQzPkgStrings* edited,
                                           const TQzPkgStrings* translation);
