#pragma once
// The packages manager's part of Register: the opener of its window behind
// the editor-dialog seam, and one host command per kind of reference under
// the host's "Packages &Manager" menu.

// Installs both; registering again replaces them.
void RegisterManagerWindows();

// The host's submenu that lists the kinds.
inline constexpr const char* QzManagerCommandGroup = "Packages &Manager";
