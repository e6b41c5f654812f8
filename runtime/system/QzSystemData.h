#pragma once
// The built-in data the runtime installs: the "System" strings that refresh
// an application's language package, the standard display sets, and the
// install data files generated from them at build time.

#include "rtl/System.h"

class TQzPkgStrings;
class TQzPkgDisplay;

// Fills target with the built-in "System" labels, messages and texts, all
// protected; items of the same Id are written over. Bypasses the
// system-editing guard: it is how the suite's own strings get there.
void QzFillSystemStrings(TQzPkgStrings& target);

// Adds the standard background, colour and font sets to a display package
// (a set whose name the package already has is left as it is).
void QzFillStandardDisplay(TQzPkgDisplay& target);

// Installs the built-in "System" strings as the model's provider, so that
// TQzCApplication::UpdateSystemPkgs refreshes from them, and the built-in
// "System" pictures likewise. Safe to call more than once.
void RegisterQzSystemData();

// Writes the install data into folder (created when missing): the base
// language file (QzBaseLanguageFileName, a language package whose "System"
// strings are the built-in ones) and the standard display file
// (QzStandardDisplayFileName, a display package with the standard sets and
// the "System" pictures).
// Raises EQzPkgFileError naming the file that could not be written.
void QzWriteInstallData(const AnsiString& folder);

// The generator the build runs: argv[1] is the output folder. Returns the
// process exit code and reports errors on stderr.
int QzInstallDataMain(int argc, char** argv);
