#pragma once
// Between the RTF a rich edit keeps in its lines and the document a Qt
// text editor edits: what the RTF subset holds goes both ways unchanged,
// and the rich text windows keep their lines in RTF through the codec.

#include "runtime/util/QzRtf.h"

#include "runtime/dialogs/QzRichEditE.h"

class QTextDocument;

// Replaces document's contents with rtf's.
void QzRtfToDocument(const TQzRtfDocument& rtf, QTextDocument& document);
// What of document the RTF subset holds. Formats set on the document as a
// whole (its default font) are left to the reader's defaults.
TQzRtfDocument QzRtfFromDocument(const QTextDocument& document);

// Reads lines that hold RTF, HTML (written before lines were kept in RTF)
// or plain text; writes RTF. RTF that cannot be read shows as the text it is.
TQzRichTextCodec QzRtfCodec();
