#pragma once
// Joining pasted components into a form's stream. The form is then read
// again from the joined stream, so a pasted component is made exactly as a
// component of the form file would be, registered or not.
//
// Pasted components whose names are taken get the next free name of their
// kind (Button1 becomes Button2, or the next number free), and references
// among them follow their new names; a reference to a component the form
// does not have is dropped. Controls go into the container, everything
// else onto the form. When they would lie exactly on a control of the same
// class already there (pasting next to the original), they move down and
// right by 8 pixels until they do not.

#include "designide/QzStreamTree.h"

#include <string>
#include <string_view>
#include <vector>

struct TQzPasteResult {
    // The form's stream with the pasted components in it.
    std::string Form;
    // The names of the pasted components, those inside others left out.
    std::vector<AnsiString> Names;
};

// root is the form formBinary streams; container is root or a control of
// its form that holds other controls.
TQzPasteResult QzPasteIntoForm(TComponent* root, std::string_view formBinary, TComponent* container,
                               std::vector<TQzStreamNode> pasted);

// How far each paste that lands on its original moves.
inline constexpr int QzPasteOffset = 8;
