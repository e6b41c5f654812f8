#pragma once
// The owner-drawn rows of the labels, messages and texts lists as a model
// over TQzMemoryRows: the Id in a column as wide as "9999" and "99", a "P"
// for protected items of the "System" package only, then the text. The
// cells are read from the items as they are drawn, so 100,000 rows cost
// no more to open than a screenful.

#include "design/strings/QzMemoryEditorLogic.h"
#include "vcl/QzListModel.h"

// The model shows rows as they stand; reload it after rows are loaded again.
// withProtected adds the "P" column (the "System" package).
TQzListModel* QzNewMemoryListModel(const TQzMemoryRows* rows, bool withProtected, QObject* parent);

// A text as one row shows it: line breaks drawn as blanks.
QString QzMemoryRowText(const AnsiString& text);
