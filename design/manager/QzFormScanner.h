#pragma once
// The form-file scanner: reads the text of one form line by line and finds
// the places where a component refers to a package item (an image, label,
// text or message by package and Id), a display set (by name) or a
// privilege (by Id). It follows the object and collection structure of the
// text and accepts a line only when the property it sets is of the kind's
// class, which it learns from the registered classes (TQzPropertyTypes),
// never by building a form.
//
// Two modes: a search for one package and value, and a count that takes
// every reference of the kind whatever its package and value.

#include "design/manager/QzFormTokens.h"
#include "design/manager/QzManagerKinds.h"
#include "design/manager/QzPropertyTypes.h"

#include "rtl/StringList.h"
#include "rtl/SysUtils.h"

#include <optional>
#include <string_view>
#include <vector>

class IQzManagerProgress;

// A failure of a scan, its message ready to show: "Internal Error: File: %s
// Line: %s Procedure: %s" for the unexpected, "The file: %s can contain an
// error in the line: %s" for a line whose property path makes no sense.
// Lines in messages count from 1.
QZ_DECLARE_EXCEPTION(EQzScanError, Exception);

inline constexpr const char* QzInternalErrorFormat = "Internal Error: File: %s Line: %s Procedure: %s";
inline constexpr const char* QzFileErrorFormat = "The file: %s can contain an error in the line: %s";

// Where a hit was found: on a component of a form, or on an item of the
// application's display package or privileges (the sets and privileges
// checks of images and labels).
enum class TQzHitSource { Form, SetBackGround, SetColor, SetFont, Privilege };

// One reference found.
struct TQzTokenRec1 {
    TQzDlgManager Kind = TQzDlgManager::Labels;
    TQzHitSource Source = TQzHitSource::Form;
    AnsiString FileName;     // the form file as the project names it; empty outside forms
    Integer Id = -1;         // the Id of a package item or privilege; -1 for sets
    AnsiString Value;        // the value as matched, decoded: "25", "Blue"
    AnsiString Text;         // the row text (QzLineString)
    int Line = -1;           // 0-based line of the value (the Id line, the Name line)
    // Form hits: the component and the property path from it to the
    // reference ("Caption", "SetBackGround", "Items[2].Caption").
    AnsiString ObjectName;   // empty for a component without a name
    AnsiString ObjectClass;
    AnsiString PropPath;
    // Package kinds: the package as written (decoded) and its line.
    AnsiString PkgName;
    int PkgLine = -1;
    // Set and privilege hits: the set's name or the privilege's Id as text.
    AnsiString ItemName;
};

// A hit of a count, with whether the item it names exists.
struct TQzTokenRec2 : TQzTokenRec1 {
    bool Exists = true;
};

// The row text of a hit:
//   form hit:      "(Main.dfm) (Label1: TQzLabel) 25", with " - Items[2]"
//                  after the class when the reference is in a collection item;
//   set hit:       "(SetsBackGround) Id: Blue";
//   privilege hit: "(Privileges) Name: '3'".
// A count's form hit names its package too: "... (Label1: TQzLabel) (25, DEMO)".
AnsiString QzLineString(const TQzTokenRec1& hit, bool withPackage = false);
// Appended to the row text of a count hit whose item does not exist.
inline constexpr const char* QzNonexistentText = " ( Nonexistent )";

class TQzFormScanner {
public:
    // types may be shared between scanners (and kept between scans) so that
    // what one resolved serves the next; nullptr uses a cache of its own.
    explicit TQzFormScanner(TQzDlgManager kind, TQzPropertyTypes* types = nullptr);

    TQzDlgManager Kind() const { return FKind; }
    // Search mode: the package (package kinds only) and value (an Id as
    // decimal text, a set's name, a privilege's Id) to find. Both compare
    // without regard to case; a quoted value in the form by its content.
    void SetSearch(const AnsiString& pkgName, const AnsiString& value);
    // Count mode: every reference of the kind.
    void SetCountMode();
    bool CountMode() const { return FCountMode; }

    // Told after each line; may be nullptr. A cancel stops the file after
    // the current line, and Cancelled() says so. Without one, a whole text
    // is scanned by jumping to the lines that may match, which finds the
    // same hits in a fraction of the time.
    void SetProgress(IQzManagerProgress* progress) { FProgress = progress; }
    bool Cancelled() const { return FCancelled; }

    // Scans one form given as lines; fileName goes into the hits and the
    // error messages. Appends the hits in line order. Raises EQzScanError.
    void Scanner(const TStrings& lines, const AnsiString& fileName, std::vector<TQzTokenRec1>& hits);
    // The same over a whole form text (lines end in LF or CR LF).
    void Scanner(std::string_view text, const AnsiString& fileName, std::vector<TQzTokenRec1>& hits);

    // Starts a file: clears the per-file state.
    void BeginFile(const AnsiString& fileName);
    // One line, the next of the file (line 0 names the form): updates the
    // object and collection state and returns the hit the line makes.
    std::optional<TQzTokenRec1> LineScanner(std::string_view line);

    // The property path of a property line (tokens, '=' at equalIndex) on
    // the current object: "Panel1:TQzPanel.SetBackGround",
    // "ListBox1:TQzListBox.Items[2].Caption".
    AnsiString GetStrChange(const TQzTokens& tokens, int equalIndex) const;
    // Whether the line sets a property of the kind's class on a child
    // object of the form (never the form itself).
    bool ValidTokenSel(const TQzTokens& tokens, int equalIndex);
    // The class of the object path denotes (see GetStrChange), or nullptr
    // when it cannot be known (an unregistered class, an unknown property).
    // Raises EQzScanError for a path that makes no sense.
    const TMetaClass* GetTypeProperty(const AnsiString& path);

    // The state, as the last line read left it.
    const AnsiString& FormName() const { return FFormName; }       // "Form1:TForm1"
    const AnsiString& ObjectPath() const { return FObjectPath; }   // "Label1:TQzLabel"
    // The innermost open collection (collections may nest in items).
    bool InCollection() const { return !FCollections.empty(); }
    AnsiString CollectionName() const { return FCollections.empty() ? AnsiString() : FCollections.back().Name; }
    int CollectionIndex() const { return FCollections.empty() ? -1 : FCollections.back().Index; }
    bool PkgNameSeen() const { return FPkgNameSeen; }
    const char* ProcName() const { return FProcName; }
    int LineIndex() const { return FLine; }
    const AnsiString& FileName() const { return FFileName; }

private:
    // An open collection: its property path below the object and the
    // index of the item being read.
    struct TCollectionLevel {
        AnsiString Name;
        int Index = -1;
    };
    // What the first characters of a line tell.
    enum class TLineKind {
        Skip,     // sets nothing a reference lives in
        Simple,   // "Name.Name = value" outside collections: FTokens holds the names and "="
        Full,     // anything else: tokenize
    };

    TLineKind ClassifyLine(std::string_view line, bool pkgPending);
    std::optional<TQzTokenRec1> ApplyRules(int equalIndex, bool pkgPending);
    bool ScannerObject(const TQzTokens& tokens);
    // The object line at text is remembered and read only when a reference
    // needs it (most objects hold none).
    bool DeferObject(std::string_view line, int lineIndex);
    void EnsureObject();
    // True when the line was collection bookkeeping and yields nothing more.
    bool ScannerCollection(const TQzTokens& tokens, int equalIndex);
    std::optional<TQzTokenRec1> NameRule(int equalIndex);
    std::optional<TQzTokenRec1> PackageRule(int equalIndex, bool pkgPending);
    TQzTokenRec1 MakeHit(std::string_view value, int equalIndex);
    // The property path below the object into FRelPath: "Items[2].Caption".
    void BuildRelPath(const TQzTokens& tokens, int equalIndex);
    AnsiString CollectionPath() const;
    const TMetaClass* ResolveRelPath();
    [[noreturn]] void RaiseInternal(const std::exception& cause) const;
    [[noreturn]] void RaiseFileError() const;
    // Runs body over a new file, reporting what it throws as a scan error.
    template <class Body>
    void Run(const AnsiString& fileName, Body&& body);
    // Where a scan by jumping stands in its text.
    struct TTextCursor {
        std::string_view Text;
        std::size_t Processed = 0;   // the lines before it are read
        std::size_t KnownPos = 0;    // a line start whose index is known
        int KnownLine = 0;
    };
    // Scans text by jumping from one line that may match to the next.
    void ScanEvents(std::string_view text, std::vector<TQzTokenRec1>& hits);
    // A line that may match, at start (its index is known to c).
    void ScanEvent(TTextCursor& c, std::size_t start, bool pairs, std::vector<TQzTokenRec1>& hits);
    // Brings the object and collection state over the unread lines before to.
    void CatchUp(TTextCursor& c, std::size_t to, std::vector<TQzTokenRec1>& hits);
    // Reads the line at start, and the lines after it while a package line
    // waits for its Id.
    void ScanLineAt(TTextCursor& c, std::size_t start, std::vector<TQzTokenRec1>& hits);
    static std::size_t LineStartBefore(const TTextCursor& c, std::size_t pos);
    static int LineIndexAt(TTextCursor& c, std::size_t start);
    bool IsTokenObjectLine(std::string_view line);

    TQzDlgManager FKind;
    TQzPropertyTypes FOwnTypes;
    TQzPropertyTypes* FTypes;
    IQzManagerProgress* FProgress = nullptr;
    bool FCountMode = false;
    AnsiString FSearchPkg;
    AnsiString FSearchValue;
    const char* FKindClass;
    const TMetaClass* FKindMeta = nullptr;
    const char* FKeyName;   // the token before "=" the name rule looks for

    // Per file.
    AnsiString FFileName;
    AnsiString FFormName;
    AnsiString FObjectPath;
    AnsiString FObjectName;
    AnsiString FObjectClass;
    std::string_view FPendingObject;   // an object line not read yet
    int FPendingIndex = -1;
    std::vector<TCollectionLevel> FCollections;
    bool FPkgNameSeen = false;
    AnsiString FSeenPkg;   // as written
    std::string FSeenPath;
    int FSeenPkgLine = -1;
    std::string FRelPath;
    bool FCancelled = false;
    const char* FProcName = "Scanner";
    int FLine = -1;
    TQzTokens FTokens;
    std::string_view FValue;   // what the line sets, as written
    TQzTokens FObjectTokens;
};
