#pragma once
// What the package load and save dialog decides, apart from its window:
// the title and rows each kind of package gets, where its files are listed,
// the description read from a file without loading it, and what closing
// with Ok asks and does. The window only shows and asks.

#include "runtime/model/QzPkgInfo.h"

#include <vector>

enum class TQzLoadSave { Load, Save };

// The row below the description: hidden, the privileges' key, or the file
// the display or language package was last refreshed from.
enum class TQzPkgKeyRow { Hidden, Key, LastUpdateFile };

// "Load PkgStrings", "Save Access", ...
AnsiString QzPkgLoadSaveTitle(const TQzPkgInfo& pkg, TQzLoadSave direction);
TQzPkgKeyRow QzPkgLoadSaveKeyRow(const TQzPkgInfo& pkg, TQzLoadSave direction);
// The value the key row shows, and where the row's value is stored back.
AnsiString QzPkgKeyValue(const TQzPkgInfo& pkg);
void QzPkgSetKeyValue(TQzPkgInfo& pkg, const AnsiString& value);

// The search dialog's filter for the package's kind of file.
AnsiString QzPkgSearchFilter(const TQzPkgInfo& pkg);

// The folder the file list shows: the one a name without a folder is read
// from (the application's path), else the program's own folder.
AnsiString QzPkgListFolder(const TQzPkgInfo& pkg);
// The files of folder with the package's extension, by name.
std::vector<AnsiString> QzPkgListFiles(const TQzPkgInfo& pkg, const AnsiString& folder);
// How the file name field names fullName: by its name alone when the
// package would find it under that name, else in full.
AnsiString QzPkgShortFileName(const TQzPkgInfo& pkg, const AnsiString& fullName);

// The description stored in fileName (a name as the field holds it), read
// by the reader of the package's kind; raises EQzPkgFileError for a
// missing, damaged or foreign file.
AnsiString QzReadPkgDescription(const TQzPkgInfo& pkg, const AnsiString& fileName);

// What Ok must do before the dialog may close.
struct TQzLoadSaveCheck {
    enum TAction {
        Run,        // nothing to ask: go ahead
        Missing,    // the file to load does not exist: tell (Message) and stay
        NoName,     // a file is needed and none was given: tell and stay
        Confirm,    // ask (Message); go ahead only on yes
    };
    TAction Action = Run;
    AnsiString Message;    // the text to show, formatted
    AnsiString FileName;   // the full name of the file
};
TQzLoadSaveCheck QzPkgLoadSaveCheck(const TQzPkgInfo& pkg, TQzLoadSave direction, TQzRegisterInitMode mode,
                                    const AnsiString& fileName);

// The values of the dialog once the user confirmed.
struct TQzLoadSaveValues {
    TQzRegisterInitMode Mode = imDFM;
    AnsiString FileName;
    AnsiString Description;
    AnsiString KeyValue;   // stored only where the key row shows when saving
};
// Loads or writes the package; raises (leaving the package as it was) when
// the file cannot be read or written.
void QzPkgLoadSaveRun(TQzPkgInfo& pkg, TQzLoadSave direction, const TQzLoadSaveValues& values);

// The text of a message of the "System" strings package when the
// application's has it, else fallback (the built-in text when empty).
AnsiString QzPkgSystemMessage(Integer msgId, const AnsiString& fallback);
