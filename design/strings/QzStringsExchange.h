#pragma once
// A strings package exchanged with translators' tools as gettext PO,
// XLIFF 1.2 or CSV. Each label, message and text is one entry:
//   context  "label:12", "message:3", "text:40": the collection and the Id;
//   source   the text of the same Id in a reference package (the language
//            translated from), or the package's own text without one;
//   text     the package's text, what the translator writes;
//   hint     a label's hint, as a translator comment (PO), a note (XLIFF)
//            or a column (CSV);
//   flag     the item's protection.
// Export and import are inverse: a package exported and imported again
// holds what it held. Import replaces all three collections with the
// file's entries; a file that does not read raises an error naming its
// line and changes nothing.

#include "rtl/SysUtils.h"

#include <string>
#include <vector>

class TQzPkgStrings;

QZ_DECLARE_EXCEPTION(EQzExchangeError, Exception);

enum class TQzExchangeFormat { Po, Xliff, Csv };

// "po", "xliff" (or "xlf"), "csv", any case; raises EQzExchangeError.
TQzExchangeFormat QzExchangeFormatByName(const AnsiString& name);
// The format a file name's extension stands for; false when none does.
bool QzExchangeFormatOfFile(const AnsiString& fileName, TQzExchangeFormat& format);

enum class TQzStringsKind { Label, Message, Text };

struct TQzStringsEntry {
    TQzStringsKind Kind = TQzStringsKind::Label;
    Integer Id = 0;
    AnsiString Source;
    AnsiString Text;
    AnsiString Hint;
    bool Protected = false;
    int Line = 0;   // where an imported entry began (1-based)
    bool operator==(const TQzStringsEntry& other) const;
};

// "label:12".
AnsiString QzStringsContext(TQzStringsKind kind, Integer id);
// The kind and Id of a context; false when it is not one.
bool QzParseStringsContext(const AnsiString& context, TQzStringsKind& kind, Integer& id);

// The package's items, labels then messages then texts, each by Id
// ascending; reference (may be nullptr) gives the source texts (and, for
// a label it lacks, its own text stands in).
std::vector<TQzStringsEntry> QzStringsEntries(const TQzPkgStrings& pkg, const TQzPkgStrings* reference);
// Replaces pkg's three collections with the entries. Raises (and changes
// nothing) when the package may not change or two entries share a context.
void QzApplyStringsEntries(TQzPkgStrings& pkg, const std::vector<TQzStringsEntry>& entries,
                           const AnsiString& sourceName);

// The file's bytes (UTF-8) for the entries. name names the package in the
// file's header.
std::string QzWriteStrings(const std::vector<TQzStringsEntry>& entries, TQzExchangeFormat format,
                           const AnsiString& name);
// The entries of a file's bytes; raises EQzExchangeError "fileName:line: why".
std::vector<TQzStringsEntry> QzReadStrings(const std::string& bytes, TQzExchangeFormat format,
                                           const AnsiString& fileName);

// The formats one by one (QzWriteStrings and QzReadStrings dispatch to them).
std::string QzWritePo(const std::vector<TQzStringsEntry>& entries, const AnsiString& name);
std::vector<TQzStringsEntry> QzReadPo(const std::string& bytes, const AnsiString& fileName);
std::string QzWriteXliff(const std::vector<TQzStringsEntry>& entries, const AnsiString& name);
std::vector<TQzStringsEntry> QzReadXliff(const std::string& bytes, const AnsiString& fileName);
std::string QzWriteCsv(const std::vector<TQzStringsEntry>& entries);
std::vector<TQzStringsEntry> QzReadCsv(const std::string& bytes, const AnsiString& fileName);

// "fileName:line: why" as an EQzExchangeError.
[[noreturn]] void QzExchangeFail(const AnsiString& fileName, int line, const AnsiString& why);
