#pragma once
// The strings packages' windows (the memory label, message and text
// editors, their Add dialogs, the strings package editor, the translators):
// their part of Register, which installs their openers behind the
// editor-dialog seam. Registering again replaces them.
void RegisterStringsWindows();
