#pragma once
// Rich text in the RTF the suite's rich edits keep in their lines: the
// subset the rich text editors produce (fonts, sizes, bold, italic,
// underline, colours, alignment, bullets), read from whatever a word
// processor writes. What the subset cannot hold (pictures, tables, styles,
// fields' codes, page set-up) is skipped and its text kept.

#include "rtl/SysUtils.h"

#include <cstdint>
#include <optional>
#include <vector>

enum class TQzRtfAlign { Left, Center, Right, Justify };

struct TQzRtfCharFormat {
    AnsiString FontName;               // empty: the document's default font
    double PointSize = 0;              // 0: the default size
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    std::optional<std::uint32_t> Color;  // 0xRRGGBB; none: the automatic colour
    bool operator==(const TQzRtfCharFormat&) const = default;
};

struct TQzRtfRun {
    // UTF-8; a tab is '\t', a line break inside the paragraph U+2028.
    AnsiString Text;
    TQzRtfCharFormat Format;
    bool operator==(const TQzRtfRun&) const = default;
};

struct TQzRtfParagraph {
    TQzRtfAlign Align = TQzRtfAlign::Left;
    bool Bullet = false;
    std::vector<TQzRtfRun> Runs;
    bool operator==(const TQzRtfParagraph&) const = default;
};

struct TQzRtfDocument {
    // Never empty once read: a document has at least one paragraph.
    std::vector<TQzRtfParagraph> Paragraphs;
    bool operator==(const TQzRtfDocument&) const = default;
    // The text alone, paragraphs separated by "\n".
    AnsiString PlainText() const;
};

// Appends text to the paragraph, into its last run when that has the
// same format, so that a paragraph never holds two neighbours alike.
void QzRtfAddText(TQzRtfParagraph& paragraph, const AnsiString& text, const TQzRtfCharFormat& format);

// Whether text is RTF (it starts, after blanks, with "{\rtf").
bool QzIsRtf(const AnsiString& text);
// Reads RTF; raises EQzRtfError naming the line for text that is not RTF
// or whose groups do not close. Unknown control words are skipped.
TQzRtfDocument QzReadRtf(const AnsiString& text);
// Writes the document as RTF that QzReadRtf reads back to the same document
// (runs of one format merged).
AnsiString QzWriteRtf(const TQzRtfDocument& document);

QZ_DECLARE_EXCEPTION(EQzRtfError, Exception);
