#pragma once
// The package files' windows (load and save of a package file, the
// active-packages list, the synchronizer): their part of Register, which
// installs their openers behind the editor-dialog seam. Registering again
// replaces them.
void RegisterPkgFilesWindows();
