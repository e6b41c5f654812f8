#include "design/manager/QzFormScanner.h"

#include "design/manager/QzManagerProgress.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define QZ_SCAN_AVX2 1
#include <immintrin.h>
#else
#define QZ_SCAN_AVX2 0
#endif

namespace {

inline bool IsBlank(char c)
{
    const auto u = static_cast<unsigned char>(c);
    return u >= 1 && u <= 32;
}

inline bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

inline bool IsWordChar(char c)
{
    return IsLetter(c) || (c >= '0' && c <= '9');
}

// The words that open a component in form text.
bool IsObjectWord(std::string_view word)
{
    if (word.size() != 6 && word.size() != 9)
        return false;
    const char first = QzFoldAscii(word[0]);
    if (first == 'O')
        return QzSameAscii(word, "object");
    return first == 'I' && (QzSameAscii(word, "inherited") || QzSameAscii(word, "inline"));
}

bool EndsWithGreater(std::string_view line)
{
    std::size_t e = line.size();
    while (e > 0 && static_cast<unsigned char>(line[e - 1]) <= 32)
        --e;
    return e > 0 && line[e - 1] == '>';
}

// The line feeds in [from, to).
int CountLineFeeds(const char* from, const char* to)
{
    std::size_t count = 0;
#if defined(__SSE2__)
    const __m128i lf = _mm_set1_epi8('\n');
    const __m128i zero = _mm_setzero_si128();
    while (to - from >= 16) {
        // Byte counters hold up to 255 blocks before they are summed.
        std::size_t blocks = std::min<std::size_t>(static_cast<std::size_t>(to - from) / 16, 255);
        __m128i counts = zero;
        for (; blocks > 0; --blocks, from += 16)
            counts = _mm_sub_epi8(counts, _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)), lf));
        const __m128i sums = _mm_sad_epu8(counts, zero);
        count += static_cast<std::size_t>(_mm_cvtsi128_si32(sums)) + static_cast<std::size_t>(_mm_extract_epi16(sums, 4));
    }
#endif
    for (; from < to; ++from)
        count += *from == '\n';
    return static_cast<int>(count);
}

int PopCount32(unsigned bits)
{
    bits = bits - ((bits >> 1) & 0x55555555u);
    bits = (bits & 0x33333333u) + ((bits >> 2) & 0x33333333u);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0Fu;
    return static_cast<int>((bits * 0x01010101u) >> 24);
}

// The bytes a line that may match holds: the first two characters of a
// searched value (or the key's anchor letter alone), in any case, and with
// Pieces the '#' and '+' of values written in escapes or pieces.
struct TMatchBytes {
    char First;   // | 0x20
    char Next;    // | 0x20
    bool Second;
    bool Pieces;

    bool At(const char* p, std::size_t at, std::size_t n) const
    {
        const char c = p[at];
        if (Pieces && (c == '#' || c == '+'))
            return true;
        return static_cast<char>(c | 0x20) == First &&
               (!Second || (at + 1 < n && static_cast<char>(p[at + 1] | 0x20) == Next));
    }
};

// Each finder goes on from b while a whole block and the byte after it are
// in the text, calls found(pos, line feeds before pos) for every matching
// byte, and leaves b and feeds where it stopped.
#if defined(__SSE2__)
template <class Found>
void FindMatchesSse2(const char* p, std::size_t& b, std::size_t n, const TMatchBytes& m, std::size_t& feeds,
                     Found& found)
{
    const __m128i v20 = _mm_set1_epi8(0x20);
    const __m128i vFirst = _mm_set1_epi8(m.First);
    const __m128i vNext = _mm_set1_epi8(m.Next);
    const __m128i vHash = _mm_set1_epi8('#');
    const __m128i vPlus = _mm_set1_epi8('+');
    const __m128i vLf = _mm_set1_epi8('\n');
    const __m128i zero = _mm_setzero_si128();
    __m128i lanes = zero;   // line feeds per byte lane, for up to 255 blocks
    int blocks = 0;
    for (; b + 17 <= n; b += 16) {
        const __m128i cur = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + b));
        const __m128i lf = _mm_cmpeq_epi8(cur, vLf);
        __m128i match = _mm_cmpeq_epi8(_mm_or_si128(cur, v20), vFirst);
        if (m.Second) {
            const __m128i after = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + b + 1));
            match = _mm_and_si128(match, _mm_cmpeq_epi8(_mm_or_si128(after, v20), vNext));
        }
        if (m.Pieces)
            match = _mm_or_si128(match, _mm_or_si128(_mm_cmpeq_epi8(cur, vHash), _mm_cmpeq_epi8(cur, vPlus)));
        if (unsigned mask = static_cast<unsigned>(_mm_movemask_epi8(match))) {
            const __m128i sums = _mm_sad_epu8(lanes, zero);
            const std::size_t before = feeds + static_cast<std::size_t>(_mm_cvtsi128_si32(sums)) +
                                       static_cast<std::size_t>(_mm_extract_epi16(sums, 4));
            const unsigned lfMask = static_cast<unsigned>(_mm_movemask_epi8(lf));
            for (; mask; mask &= mask - 1) {
                const int bit = std::countr_zero(mask);
                found(b + static_cast<std::size_t>(bit),
                      before + static_cast<std::size_t>(PopCount32(lfMask & ((1u << bit) - 1))));
            }
        }
        lanes = _mm_sub_epi8(lanes, lf);
        if (++blocks == 255 || b + 33 > n) {
            const __m128i sums = _mm_sad_epu8(lanes, zero);
            feeds += static_cast<std::size_t>(_mm_cvtsi128_si32(sums)) + static_cast<std::size_t>(_mm_extract_epi16(sums, 4));
            lanes = zero;
            blocks = 0;
        }
    }
}
#endif

#if QZ_SCAN_AVX2
bool HasAvx2()
{
    static const bool has = __builtin_cpu_supports("avx2");
    return has;
}

__attribute__((target("avx2"))) std::size_t SumLanesAvx2(__m256i lanes)
{
    const __m256i sums = _mm256_sad_epu8(lanes, _mm256_setzero_si256());
    return static_cast<std::size_t>(_mm256_extract_epi64(sums, 0) + _mm256_extract_epi64(sums, 1) +
                                    _mm256_extract_epi64(sums, 2) + _mm256_extract_epi64(sums, 3));
}

// The same 32 bytes at a time, where the processor has AVX2.
template <class Found>
__attribute__((target("avx2"))) void FindMatchesAvx2(const char* p, std::size_t& b, std::size_t n,
                                                     const TMatchBytes& m, std::size_t& feeds, Found& found)
{
    const __m256i v20 = _mm256_set1_epi8(0x20);
    const __m256i vFirst = _mm256_set1_epi8(m.First);
    const __m256i vNext = _mm256_set1_epi8(m.Next);
    const __m256i vHash = _mm256_set1_epi8('#');
    const __m256i vPlus = _mm256_set1_epi8('+');
    const __m256i vLf = _mm256_set1_epi8('\n');
    __m256i lanes = _mm256_setzero_si256();
    int blocks = 0;
    for (; b + 33 <= n; b += 32) {
        const __m256i cur = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + b));
        const __m256i lf = _mm256_cmpeq_epi8(cur, vLf);
        __m256i match = _mm256_cmpeq_epi8(_mm256_or_si256(cur, v20), vFirst);
        if (m.Second) {
            const __m256i after = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + b + 1));
            match = _mm256_and_si256(match, _mm256_cmpeq_epi8(_mm256_or_si256(after, v20), vNext));
        }
        if (m.Pieces)
            match = _mm256_or_si256(match, _mm256_or_si256(_mm256_cmpeq_epi8(cur, vHash), _mm256_cmpeq_epi8(cur, vPlus)));
        if (unsigned mask = static_cast<unsigned>(_mm256_movemask_epi8(match))) {
            const std::size_t before = feeds + SumLanesAvx2(lanes);
            const unsigned lfMask = static_cast<unsigned>(_mm256_movemask_epi8(lf));
            for (; mask; mask &= mask - 1) {
                const int bit = std::countr_zero(mask);
                const unsigned below = bit == 0 ? 0u : lfMask & (0xFFFFFFFFu >> (32 - bit));
                found(b + static_cast<std::size_t>(bit), before + static_cast<std::size_t>(PopCount32(below)));
            }
        }
        lanes = _mm256_sub_epi8(lanes, lf);
        if (++blocks == 255 || b + 65 > n) {
            feeds += SumLanesAvx2(lanes);
            lanes = _mm256_setzero_si256();
            blocks = 0;
        }
    }
}
#endif

// What follows "=", without the blanks (and code 0) at its end.
std::string_view TrimValue(std::string_view value)
{
    std::size_t e = value.size();
    while (e > 0 && static_cast<unsigned char>(value[e - 1]) <= 32)
        --e;
    return value.substr(0, e);
}

// Whether token 0 of line (or of the line line begins) is surely an
// object word: the word is followed by what ends a token. Anything unusual
// is left to the tokenizer.
bool IsObjectLine(std::string_view line)
{
    std::size_t i = 0;
    while (i < line.size() && (IsBlank(line[i]) || line[i] == '.'))
        ++i;
    const std::size_t wordStart = i;
    while (i < line.size() && IsWordChar(line[i]))
        ++i;
    if (!IsObjectWord(line.substr(wordStart, i - wordStart)))
        return false;
    return i == line.size() || line[i] == ' ' || line[i] == '.' || line[i] == ':' || line[i] == '=';
}

// The item part of a property path: "Items[2]" of "Items[2].Caption".
std::string_view ItemPart(std::string_view propPath)
{
    const std::size_t close = propPath.rfind(']');
    return close == std::string_view::npos ? std::string_view() : propPath.substr(0, close + 1);
}

}  // namespace

AnsiString QzLineString(const TQzTokenRec1& hit, bool withPackage)
{
    switch (hit.Source) {
    case TQzHitSource::Form: {
        AnsiString text = "(" + ExtractFileName(hit.FileName) + ") (" + hit.ObjectName + ": " + hit.ObjectClass;
        const std::string_view item = ItemPart(hit.PropPath);
        if (!item.empty())
            text += " - " + AnsiString(item);
        text += ") ";
        if (withPackage && QzDlgManagerUsesPackage(hit.Kind))
            text += "(" + hit.Value + ", " + hit.PkgName + ")";
        else
            text += hit.Value;
        return text;
    }
    case TQzHitSource::Privilege:
        return AnsiString("(") + QzDlgManagerName(TQzDlgManager::Privileges) + ") Name: '" + hit.ItemName + "'";
    case TQzHitSource::SetBackGround:
        return AnsiString("(") + QzDlgManagerName(TQzDlgManager::SetsBackGround) + ") Id: " + hit.ItemName;
    case TQzHitSource::SetColor:
        return AnsiString("(") + QzDlgManagerName(TQzDlgManager::SetsColor) + ") Id: " + hit.ItemName;
    case TQzHitSource::SetFont:
        return AnsiString("(") + QzDlgManagerName(TQzDlgManager::SetsFont) + ") Id: " + hit.ItemName;
    }
    return {};
}

TQzFormScanner::TQzFormScanner(TQzDlgManager kind, TQzPropertyTypes* types)
    : FKind(kind),
      FTypes(types ? types : &FOwnTypes),
      FKindClass(QzDlgManagerInfo(kind).ClassName),
      FKeyName(kind == TQzDlgManager::Privileges ? "Id" : "Name")
{
}

void TQzFormScanner::SetSearch(const AnsiString& pkgName, const AnsiString& value)
{
    FCountMode = false;
    FSearchPkg = pkgName;
    FSearchValue = value;
}

void TQzFormScanner::SetCountMode()
{
    FCountMode = true;
    FSearchPkg.clear();
    FSearchValue.clear();
}

void TQzFormScanner::BeginFile(const AnsiString& fileName)
{
    FFileName = fileName;
    FFormName.clear();
    FObjectPath.clear();
    FObjectName.clear();
    FObjectClass.clear();
    FPendingObject = {};
    FPendingIndex = -1;
    FCollections.clear();
    FPkgNameSeen = false;
    FSeenPkg.clear();
    FSeenPath.clear();
    FSeenPkgLine = -1;
    FCancelled = false;
    FProcName = "Scanner";
    FLine = -1;
    // Looked up per file: the classes may be registered after the scanner was made.
    FKindMeta = GetClass(FKindClass);
}

template <class Body>
void TQzFormScanner::Run(const AnsiString& fileName, Body&& body)
{
    BeginFile(fileName);
    try {
        body();
        EnsureObject();
    } catch (const EQzScanError&) {
        throw;
    } catch (const std::exception& e) {
        RaiseInternal(e);
    }
}

void TQzFormScanner::Scanner(const TStrings& lines, const AnsiString& fileName, std::vector<TQzTokenRec1>& hits)
{
    const auto* list = dynamic_cast<const TStringList*>(&lines);
    Run(fileName, [&] {
        AnsiString copy;
        for (int i = 0; i < lines.Count(); ++i) {
            std::string_view line;
            if (list) {
                line = list->StringRef(i);
            } else {
                copy = lines.Get(i);
                line = copy;
            }
            if (auto hit = LineScanner(line))
                hits.push_back(std::move(*hit));
            FProcName = "Scanner";
            if (FProgress) {
                FProgress->IncProgressBar(1);
                if (FProgress->CheckCancel()) {
                    FCancelled = true;
                    return;
                }
            }
        }
    });
}

void TQzFormScanner::Scanner(std::string_view text, const AnsiString& fileName, std::vector<TQzTokenRec1>& hits)
{
    Run(fileName, [&] {
        if (!FProgress) {
            ScanEvents(text, hits);
            return;
        }
        // Line by line, so that progress and cancel follow every line.
        std::size_t pos = 0;
        while (pos < text.size()) {
            const void* lf = std::memchr(text.data() + pos, '\n', text.size() - pos);
            const std::size_t end = lf ? static_cast<std::size_t>(static_cast<const char*>(lf) - text.data()) : text.size();
            std::string_view line = text.substr(pos, end - pos);
            if (!line.empty() && line.back() == '\r')
                line.remove_suffix(1);
            pos = end + 1;
            if (auto hit = LineScanner(line))
                hits.push_back(std::move(*hit));
            FProcName = "Scanner";
            FProgress->IncProgressBar(1);
            if (FProgress->CheckCancel()) {
                FCancelled = true;
                return;
            }
        }
    });
}

// Few lines of a form can match: when counting, those that hold the kind's
// key (its anchor letter, in any case); when searching, those that hold
// the first two characters of the searched value (a value written in
// pieces or escapes holds '+' or '#'). These bytes are found 16 at a time.
// At each such line the object and collections are brought up to date from
// the lines skipped since the last one (the last object line among them,
// then the lines that open, close or number collections), and the line is
// read by the same rules as line by line; so is the line before it for a
// package kind (its PkgName line), and the line after every PkgName line.
void TQzFormScanner::ScanEvents(std::string_view text, std::vector<TQzTokenRec1>& hits)
{
    const std::size_t n = text.size();
    if (n == 0)
        return;
    TTextCursor c;
    c.Text = text;
    ScanLineAt(c, 0, hits);

    const char* p = text.data();
    const std::string_view value = FSearchValue;
    const bool byValue = !FCountMode && !value.empty();
    const bool pairs = byValue && QzDlgManagerUsesPackage(FKind);
    const char key = QzDlgManagerUsesPackage(FKind) ? 'k' : FKind == TQzDlgManager::Privileges ? 'd' : 'm';
    const char first = static_cast<char>((byValue ? value[0] : key) | 0x20);
    const bool second = byValue && value.size() > 1;
    const char next = second ? static_cast<char>(value[1] | 0x20) : 0;

    // The line feeds before b are counted on the way, so a line's index
    // costs nothing extra where one is needed.
    std::size_t b = c.Processed;
    const int firstLine = c.KnownLine;   // the index of the line at b
    std::size_t feeds = 0;               // line feeds from there to b
    const TMatchBytes m{first, next, second, byValue};
    // A value of word characters is written as it is, bare or in one
    // quoted piece (escapes and pieces bring '#' or '+'): where it matches,
    // no word character touches it.
    const bool wordValue =
        byValue && std::all_of(value.begin(), value.end(), [](char ch) { return IsWordChar(ch); });
    const auto found = [&](std::size_t pos, std::size_t feedsBefore) {
        if (pos < c.Processed)
            return;
        if (wordValue && p[pos] != '#' && p[pos] != '+' &&
            ((pos > 0 && IsWordChar(p[pos - 1])) || (pos + value.size() < n && IsWordChar(p[pos + value.size()]))))
            return;
        c.KnownPos = LineStartBefore(c, pos);
        c.KnownLine = firstLine + static_cast<int>(feedsBefore);
        ScanEvent(c, c.KnownPos, pairs, hits);
    };
#if QZ_SCAN_AVX2
    if (HasAvx2())
        FindMatchesAvx2(p, b, n, m, feeds, found);
#endif
#if defined(__SSE2__)
    FindMatchesSse2(p, b, n, m, feeds, found);
#endif
    for (; b < n; ++b) {
        const char c0 = p[b];
        if (m.At(p, b, n))
            found(b, feeds);
        feeds += c0 == '\n';
    }
    CatchUp(c, n, hits);
}

void TQzFormScanner::ScanEvent(TTextCursor& c, std::size_t start, bool pairs, std::vector<TQzTokenRec1>& hits)
{
    const std::size_t from = pairs && start > c.Processed ? LineStartBefore(c, start - 1) : start;
    CatchUp(c, from, hits);
    ScanLineAt(c, from, hits);
    if (c.Processed <= start)
        ScanLineAt(c, start, hits);
}

void TQzFormScanner::CatchUp(TTextCursor& c, std::size_t to, std::vector<TQzTokenRec1>& hits)
{
    if (to <= c.Processed)
        return;
    const std::string_view text = c.Text;
    const auto lineAt = [&](std::size_t start, std::size_t& next) {
        const void* lf = std::memchr(text.data() + start, '\n', to - start);
        const std::size_t end = lf ? static_cast<std::size_t>(static_cast<const char*>(lf) - text.data()) : to;
        next = end + 1;
        std::string_view line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        return line;
    };

    // The last object line settles the object; no collection outlives it.
    std::size_t pos = c.Processed;
    for (std::size_t end = to; end > c.Processed;) {
        const std::size_t start = LineStartBefore(c, end - 1);
        std::size_t next = 0;
        const std::string_view line = lineAt(start, next);
        if (IsTokenObjectLine(line)) {
            const int index = LineIndexAt(c, start);
            FLine = index;
            FCollections.clear();
            FPendingObject = line;
            FPendingIndex = index;
            pos = next;
            break;
        }
        end = start;
    }
    // Then the lines that open, close or number collections; outside one,
    // only a '<' can open one.
    if (FCollections.empty() && !std::memchr(text.data() + pos, '<', to > pos ? to - pos : 0))
        pos = to;
    while (pos < to) {
        std::size_t next = 0;
        const std::string_view line = lineAt(pos, next);
        bool shapes = std::memchr(line.data(), '<', line.size()) || std::memchr(line.data(), '>', line.size());
        if (!shapes && !FCollections.empty()) {
            std::size_t i = 0;
            while (i < line.size() && IsBlank(line[i]))
                ++i;
            std::size_t e = i;
            while (e < line.size() && IsWordChar(line[e]))
                ++e;
            const std::string_view word = line.substr(i, e - i);
            shapes = QzSameAscii(word, "item") || QzSameAscii(word, "Index");
        }
        if (shapes) {
            FLine = LineIndexAt(c, pos) - 1;
            if (auto hit = LineScanner(line))
                hits.push_back(std::move(*hit));
        }
        pos = next;
    }
    // Lines read here hold no match: nothing waits for the line at to.
    FPkgNameSeen = false;
    c.Processed = to;
}

void TQzFormScanner::ScanLineAt(TTextCursor& c, std::size_t start, std::vector<TQzTokenRec1>& hits)
{
    const std::string_view text = c.Text;
    std::size_t pos = start;
    int lineIndex = LineIndexAt(c, start);
    do {
        const void* lf = std::memchr(text.data() + pos, '\n', text.size() - pos);
        const std::size_t end = lf ? static_cast<std::size_t>(static_cast<const char*>(lf) - text.data()) : text.size();
        std::string_view line = text.substr(pos, end - pos);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (lineIndex == 0 || !DeferObject(line, lineIndex)) {
            FLine = lineIndex - 1;
            if (auto hit = LineScanner(line))
                hits.push_back(std::move(*hit));
        }
        FProcName = "Scanner";
        pos = end + 1;
        ++lineIndex;
    } while (FPkgNameSeen && pos < text.size());
    c.Processed = std::min(pos, text.size());
    c.KnownPos = c.Processed;
    c.KnownLine = lineIndex;
}

std::size_t TQzFormScanner::LineStartBefore(const TTextCursor& c, std::size_t pos)
{
    const char* p = c.Text.data();
    const void* lf = memrchr(p + c.Processed, '\n', pos - c.Processed);
    return lf ? static_cast<std::size_t>(static_cast<const char*>(lf) - p) + 1 : c.Processed;
}

int TQzFormScanner::LineIndexAt(TTextCursor& c, std::size_t start)
{
    // Counted from the nearest line whose index is known, forward or back.
    if (start >= c.KnownPos)
        c.KnownLine += CountLineFeeds(c.Text.data() + c.KnownPos, c.Text.data() + start);
    else
        c.KnownLine -= CountLineFeeds(c.Text.data() + start, c.Text.data() + c.KnownPos);
    c.KnownPos = start;
    return c.KnownLine;
}

bool TQzFormScanner::IsTokenObjectLine(std::string_view line)
{
    // Token 0 starts at the first character that is no blank and no '.'.
    std::size_t i = 0;
    while (i < line.size() && (IsBlank(line[i]) || line[i] == '.'))
        ++i;
    if (i == line.size() || (QzFoldAscii(line[i]) != 'O' && QzFoldAscii(line[i]) != 'I'))
        return false;
    if (IsObjectLine(line))
        return true;
    GetListTokens(FObjectTokens, line);
    return !FObjectTokens.empty() && IsObjectWord(FObjectTokens[0]);
}

bool TQzFormScanner::DeferObject(std::string_view line, int lineIndex)
{
    if (!IsObjectLine(line))
        return false;
    FLine = lineIndex;
    FPkgNameSeen = false;
    FCollections.clear();
    FPendingObject = line;
    FPendingIndex = lineIndex;
    return true;
}

void TQzFormScanner::EnsureObject()
{
    if (FPendingObject.empty())
        return;
    const int line = FLine;
    FLine = FPendingIndex;
    GetListTokens(FObjectTokens, FPendingObject);
    FPendingObject = {};
    const std::vector<TCollectionLevel> keep = std::move(FCollections);
    ScannerObject(FObjectTokens);
    FCollections = keep;
    FLine = line;
}

TQzFormScanner::TLineKind TQzFormScanner::ClassifyLine(std::string_view line, bool pkgPending)
{
    // Most lines of a form set properties no reference lives in (Left,
    // Font.Name, hex data): those are known from their first characters.
    const char* p = line.data();
    const std::size_t n = line.size();
    std::size_t i = 0;
    while (i < n && IsBlank(p[i]))
        ++i;
    if (i == n)
        return TLineKind::Skip;
    if (!IsLetter(p[i]))
        return std::memchr(p + i, '=', n - i) == nullptr && std::memchr(p + i, ':', n - i) == nullptr &&
                       !EndsWithGreater(line) && p[i] != '.'
                   ? TLineKind::Skip
                   : TLineKind::Full;

    FTokens.clear();
    std::size_t segStart = i;
    while (i < n && IsWordChar(p[i]))
        ++i;
    const std::string_view first = line.substr(segStart, i - segStart);
    if (IsObjectWord(first) || (!FCollections.empty() && QzSameAscii(first, "item")))
        return TLineKind::Full;
    FTokens.push_back(first);
    for (;;) {
        while (i < n && (p[i] == '.' || p[i] == ' '))
            ++i;
        if (i == n)
            return EndsWithGreater(line) ? TLineKind::Full : TLineKind::Skip;
        if (p[i] == '=')
            break;
        if (!IsWordChar(p[i]))
            return TLineKind::Full;
        segStart = i;
        while (i < n && IsWordChar(p[i]))
            ++i;
        FTokens.push_back(line.substr(segStart, i - segStart));
    }
    const std::string_view key = FTokens.back();
    ++i;
    while (i < n && IsBlank(p[i]))
        ++i;
    if (i < n && p[i] == '<')
        return TLineKind::Full;
    FValue = TrimValue(line.substr(i));
    const bool keyLine = QzDlgManagerUsesPackage(FKind) ? QzSameAscii(key, "PkgName") || (pkgPending && key == "Id")
                                                        : QzSameAscii(key, FKeyName);
    if (!FCollections.empty()) {
        // Inside a collection what follows "=" can close it; the tokenizer decides.
        const bool index = FTokens.size() == 1 && QzSameAscii(key, "Index");
        return keyLine || index || EndsWithGreater(line) ? TLineKind::Full : TLineKind::Skip;
    }
    if (!keyLine)
        return TLineKind::Skip;
    FTokens.push_back("=");
    return TLineKind::Simple;
}

std::optional<TQzTokenRec1> TQzFormScanner::LineScanner(std::string_view line)
{
    ++FLine;
    FProcName = "LineScanner";
    // The package line counts for the very next line only.
    const bool pkgPending = FPkgNameSeen;
    FPkgNameSeen = false;
    if (FLine > 0) {
        switch (ClassifyLine(line, pkgPending)) {
        case TLineKind::Skip:
            return std::nullopt;
        case TLineKind::Simple:
            return ApplyRules(static_cast<int>(FTokens.size()) - 1, pkgPending);
        case TLineKind::Full:
            break;
        }
    }

    FProcName = "GetListTokens";
    GetListTokens(FTokens, line);
    FProcName = "LineScanner";
    if (FLine == 0)
        FFormName = AnsiString(GetToken(FTokens, 1)) + AnsiString(GetToken(FTokens, 2)) + AnsiString(GetToken(FTokens, 3));
    if (ScannerObject(FTokens))
        return std::nullopt;
    const int equal = ScannerTokensEqual(FTokens);
    if (ScannerCollection(FTokens, equal))
        return std::nullopt;
    if (equal < 1 || FTokens[static_cast<std::size_t>(equal)] != "=")
        return std::nullopt;
    FValue = QzValueText(line);
    return ApplyRules(equal, pkgPending);
}

std::optional<TQzTokenRec1> TQzFormScanner::ApplyRules(int equalIndex, bool pkgPending)
{
    if (QzDlgManagerUsesPackage(FKind))
        return PackageRule(equalIndex, pkgPending);
    return NameRule(equalIndex);
}

bool TQzFormScanner::ScannerObject(const TQzTokens& tokens)
{
    if (tokens.empty() || !IsObjectWord(tokens[0]))
        return false;
    const char* caller = FProcName;
    FProcName = "GetObject";
    FPendingObject = {};
    FCollections.clear();
    if (GetToken(tokens, 2) == ":") {
        FObjectName.assign(GetToken(tokens, 1));
        FObjectClass.assign(GetToken(tokens, 3));
    } else {
        // A component without a name: "object TQzLabel".
        FObjectName.clear();
        FObjectClass.assign(GetToken(tokens, 1));
    }
    FObjectPath.assign(FObjectName).append(":").append(FObjectClass);
    FProcName = caller;
    return true;
}

bool TQzFormScanner::ScannerCollection(const TQzTokens& tokens, int equalIndex)
{
    if (!FCollections.empty()) {
        if (!tokens.empty() && QzSameAscii(tokens.back(), "end>")) {
            FCollections.pop_back();
            return true;
        }
        if (tokens.size() == 1 && QzSameAscii(tokens[0], "item")) {
            ++FCollections.back().Index;
            return true;
        }
        if (equalIndex == 1 && tokens[1] == "=" && QzSameAscii(tokens[0], "Index")) {
            FCollections.back().Index = StrToIntDef(AnsiString(GetToken(tokens, 2)), FCollections.back().Index);
            return true;
        }
    }
    if (equalIndex >= 1 && tokens[static_cast<std::size_t>(equalIndex)] == "=" && GetToken(tokens, equalIndex + 1) == "<") {
        TCollectionLevel level;
        for (int i = 0; i < equalIndex; ++i)
            level.Name += (i ? "." : "") + AnsiString(tokens[static_cast<std::size_t>(i)]);
        FCollections.push_back(std::move(level));
        return true;
    }
    return false;
}

std::optional<TQzTokenRec1> TQzFormScanner::NameRule(int equalIndex)
{
    if (!QzSameAscii(FTokens[static_cast<std::size_t>(equalIndex - 1)], FKeyName))
        return std::nullopt;
    const std::string_view value = FValue;
    if (FCountMode ? value.empty() : !QzSameValue(value, FSearchValue))
        return std::nullopt;
    if (!ValidTokenSel(FTokens, equalIndex))
        return std::nullopt;
    return MakeHit(value, equalIndex);
}

std::optional<TQzTokenRec1> TQzFormScanner::PackageRule(int equalIndex, bool pkgPending)
{
    const std::string_view key = FTokens[static_cast<std::size_t>(equalIndex - 1)];
    if (QzSameAscii(key, "PkgName")) {
        const std::string_view value = FValue;
        if (FCountMode ? value.empty() || value == "''" : !QzSameValue(value, FSearchPkg))
            return std::nullopt;
        // The property's class is checked on the Id line, which must name
        // the same property: one check serves both lines. The package is
        // decoded only for a hit.
        FPkgNameSeen = true;
        FSeenPkg.assign(value);
        FSeenPkgLine = FLine;
        BuildRelPath(FTokens, equalIndex);
        FSeenPath = FRelPath;
        return std::nullopt;
    }
    // The Id of the same reference, on the line right after its package.
    if (!pkgPending || key != "Id")
        return std::nullopt;
    const std::string_view value = FValue;
    if (FCountMode ? value.empty() : !QzSameValue(value, FSearchValue))
        return std::nullopt;
    BuildRelPath(FTokens, equalIndex);
    if (FRelPath != FSeenPath || !ValidTokenSel(FTokens, equalIndex))
        return std::nullopt;
    TQzTokenRec1 hit = MakeHit(value, equalIndex);
    hit.PkgName = QzDecodeValue(FSeenPkg);
    if (hit.PkgName.empty())
        return std::nullopt;
    hit.PkgLine = FSeenPkgLine;
    hit.Text = QzLineString(hit, FCountMode);
    return hit;
}

AnsiString TQzFormScanner::CollectionPath() const
{
    AnsiString path;
    for (const TCollectionLevel& level : FCollections) {
        if (!path.empty())
            path += '.';
        path += level.Name + "[" + IntToStr(level.Index < 0 ? 0 : level.Index) + "]";
    }
    return path;
}

void TQzFormScanner::BuildRelPath(const TQzTokens& tokens, int equalIndex)
{
    FRelPath.clear();
    for (const TCollectionLevel& level : FCollections) {
        if (!FRelPath.empty())
            FRelPath += '.';
        char digits[16];
        const auto end = std::to_chars(digits, digits + sizeof digits, level.Index < 0 ? 0 : level.Index).ptr;
        FRelPath.append(level.Name).append("[").append(digits, end).append("]");
    }
    for (int i = 0; i + 1 < equalIndex; ++i) {
        if (!FRelPath.empty())
            FRelPath += '.';
        FRelPath.append(tokens[static_cast<std::size_t>(i)]);
    }
}

AnsiString TQzFormScanner::GetStrChange(const TQzTokens& tokens, int equalIndex) const
{
    AnsiString path = FObjectPath;
    const AnsiString collections = CollectionPath();
    if (!collections.empty())
        path += "." + collections;
    for (int i = 0; i + 1 < equalIndex; ++i)
        path += "." + AnsiString(tokens[static_cast<std::size_t>(i)]);
    return path;
}

bool TQzFormScanner::ValidTokenSel(const TQzTokens& tokens, int equalIndex)
{
    EnsureObject();
    // References on the form itself are the form's own, not its components'.
    if (FObjectPath.empty() || FObjectPath == FFormName)
        return false;
    BuildRelPath(tokens, equalIndex);
    const TMetaClass* cls = ResolveRelPath();
    return cls && (cls == FKindMeta || SameText(cls->ClassName(), FKindClass));
}

const TMetaClass* TQzFormScanner::ResolveRelPath()
{
    const char* caller = FProcName;
    FProcName = "GetTypeProperty";
    if (FObjectClass.empty())
        RaiseFileError();
    const TMetaClass* cls = nullptr;
    try {
        cls = FTypes->Resolve(FObjectClass, FRelPath);
    } catch (const EPropertyError&) {
        RaiseFileError();
    }
    FProcName = caller;
    return cls;
}

const TMetaClass* TQzFormScanner::GetTypeProperty(const AnsiString& path)
{
    const char* caller = FProcName;
    FProcName = "GetTypeProperty";
    const std::size_t colon = path.find(':');
    if (colon == AnsiString::npos)
        RaiseFileError();
    const std::size_t dot = path.find('.', colon);
    const std::string_view view(path);
    const std::string_view className = view.substr(colon + 1, dot == AnsiString::npos ? AnsiString::npos : dot - colon - 1);
    const std::string_view rest = dot == AnsiString::npos ? std::string_view() : view.substr(dot + 1);
    if (className.empty())
        RaiseFileError();
    const TMetaClass* cls = nullptr;
    try {
        cls = FTypes->Resolve(className, rest);
    } catch (const EPropertyError&) {
        RaiseFileError();
    }
    FProcName = caller;
    return cls;
}

TQzTokenRec1 TQzFormScanner::MakeHit(std::string_view value, int equalIndex)
{
    (void)equalIndex;
    EnsureObject();
    TQzTokenRec1 hit;
    hit.Kind = FKind;
    hit.Source = TQzHitSource::Form;
    hit.FileName = FFileName;
    hit.Line = FLine;
    hit.Value = QzDecodeValue(value);
    hit.ObjectName = FObjectName;
    hit.ObjectClass = FObjectClass;
    hit.PropPath = FRelPath;   // as the type check built it for this line
    if (!QzDlgManagerIsSet(FKind))
        hit.Id = StrToIntDef(hit.Value, -1);
    hit.Text = QzLineString(hit);
    return hit;
}

void TQzFormScanner::RaiseInternal(const std::exception& cause) const
{
    (void)cause;
    throw EQzScanError(Format(QzInternalErrorFormat, FFileName, IntToStr(FLine + 1), AnsiString(FProcName)));
}

void TQzFormScanner::RaiseFileError() const
{
    throw EQzScanError(Format(QzFileErrorFormat, FFileName, IntToStr(FLine + 1)));
}
