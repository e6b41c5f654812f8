#pragma once
// Components of a form as the form text the IDE writes for them, and back:
// what the clipboard carries between forms and text editors.

#include "designide/QzStreamTree.h"

#include <string>
#include <string_view>
#include <vector>

// The "object ... end" blocks of components of root's form, one after the
// other, in the order the form streams them. A component inside another
// one that is also given goes once, inside it. formBinary is the form's
// stream as it stands (WriteComponentData of root).
std::string QzComponentsToText(TComponent* root, std::string_view formBinary,
                               const std::vector<TComponent*>& components, const TFormTextOptions& options);

// The components of text made of one or more "object ... end" blocks (also
// "inherited" and "inline"), and nothing else. ETextParseError, naming the
// line, when it is anything else.
std::vector<TQzStreamNode> QzComponentsFromText(std::string_view text, const TFormTextOptions& options);

// Whether text starts as form text does ("object", "inherited", "inline"),
// to tell text of another kind from form text that is broken.
bool QzStartsAsComponentText(std::string_view text);

// A form's own text options as the clipboard carries them: characters
// beyond ASCII as themselves (its text is Unicode, not the form's code
// page) and the platform's line breaks.
TFormTextOptions QzClipboardTextOptions(TFormTextOptions formOptions);
