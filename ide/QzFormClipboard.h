#pragma once
// Cut, copy and paste of a form's components through the system clipboard.
// The clipboard gets the form text the IDE writes for the components, as
// plain text (a text editor takes it and gives it back) and under a type of
// the designer's own; pasting takes either. Cut and paste are each one step
// of the form's undo history, and the pasted components become the
// selection.

#include "rtl/Component.h"

#include <string>
#include <vector>

class QWidget;
class TIdeDesigner;

inline constexpr char QzComponentsMimeType[] = "application/x-qzide-components";

// The text a copy of components puts on the clipboard (UTF-8).
std::string QzCopyText(TIdeDesigner& designer, const std::vector<TComponent*>& components);
// Copies the selected components; false when there are none (the form
// itself is not copied) or they cannot be written (said to parent).
bool QzCopySelection(TIdeDesigner& designer, QWidget* parent = nullptr);
// Copies the selected components, then deletes them.
bool QzCutSelection(TIdeDesigner& designer, QWidget* parent = nullptr);

// Pastes components written as form text. Text that is not that is
// reported (to parent) and changes nothing; returns the pasted components.
std::vector<TComponent*> QzPasteText(TIdeDesigner& designer, const std::string& text, QWidget* parent = nullptr);
// Pastes what the clipboard holds.
std::vector<TComponent*> QzPasteClipboard(TIdeDesigner& designer, QWidget* parent = nullptr);
