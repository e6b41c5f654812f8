#pragma once
// The runtime's link to a form designer. A package editor marks the form
// that owns a package modified through QzDesignerModified; a designer host
// installs the hook that does it, and without one the call does nothing
// (a finished application has no designer).

#include <functional>

class TComponent;

using TQzDesignerModifiedHook = std::function<void(TComponent* owner)>;

// Installs hook (an empty one removes it); returns the hook it replaces.
TQzDesignerModifiedHook SetQzDesignerModifiedHook(TQzDesignerModifiedHook hook);

// Tells the designer that the form owning owner changed. Nothing happens
// for a null owner or without a hook.
void QzDesignerModified(TComponent* owner);

// The runtime's broadcast to its open forms (QzMasterMessage when packages
// change): windows that show packages listen, and the designer host sends
// it when a form it designs changes, so their lists follow.
using TQzFormsListener = std::function<void(int message)>;
// Returns the id that removes the listener again.
int AddQzFormsListener(TQzFormsListener listener);
void RemoveQzFormsListener(int id);
void QzFormsPerform(int message);
