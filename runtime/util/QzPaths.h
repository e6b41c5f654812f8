#pragma once
// File-name helpers and the folders the runtime works in.

#include "rtl/System.h"

// "pim" -> ".pim"; an extension that already has its point, or an empty
// one, comes back unchanged.
AnsiString QzAddPointExt(const AnsiString& ext);

// The path with a trailing '/' (a trailing '\' of a Windows name counts as
// one); an empty path stays empty, so it keeps meaning "the current folder".
AnsiString QzAddPathBar(const AnsiString& path);

// The folder of the running program, with a trailing '/'.
AnsiString QzAppPath();

// The folder of the installation data (the base language file, the standard
// display file, palette pictures), with a trailing '/':
//  1. the environment variable QZ_INSTALL_PATH, when set and not empty,
//     names that folder itself;
//  2. otherwise, beside the runtime library: <libdir>/../share/qzcontrols,
//     or <libdir>/../../share/qzcontrols for multi-arch library folders
//     (lib/x86_64-linux-gnu), the first that exists. The build tree has the
//     same shape (build/runtime/ and build/share/qzcontrols/), so a program
//     run from the build finds the data the build generated.
// When neither folder exists the first candidate is returned all the same.
AnsiString QzGetInstallPath();
// How a picked file is entered in a setting: its name alone when it lies in
// the installation folder (installPath), so that the setting survives a
// move of the installation, and its full path otherwise.
AnsiString QzInstallFileEntry(const AnsiString& picked, const AnsiString& installPath);

// The file names of the installation data.
inline constexpr const char* QzBaseLanguageFileName = "Base.lan";
inline constexpr const char* QzStandardDisplayFileName = "Standard.dis";
