#pragma once
// What pasting does to a form beyond joining the components into its
// stream: where the controls go, which control pasted pages need, and the
// runtime's controls settled once the form is read again.

#include "designide/QzStreamTree.h"

#include <optional>
#include <vector>

// Where pasted controls go: the selected panel, group box or page sheet,
// else the selected control's parent, else the form root.
TComponent* QzPasteContainer(TComponent* root, TComponent* selected);

// Pasted pages go onto the selected control of their holder's kind (a tab
// sheet onto a page control), or the one the selection sits in: container
// becomes that control. The reason, for the user, when there is none.
std::optional<AnsiString> QzPlacePastedPages(TComponent* root, TComponent* selected,
                                             const std::vector<TQzStreamNode>& pasted, TComponent*& container);

// After the form is read again with the components named: a pasted sheet
// gets its tab on its page control, and aligned controls take their place
// in line with their new siblings (a form as read is never moved).
void QzSettlePasted(TComponent* root, const std::vector<AnsiString>& names);
