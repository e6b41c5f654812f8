#pragma once
// Package files: one file format per kind of package, installed into the
// model (QzRegisterPkgFileFormat) by RegisterQzPkgFileFormats, and the
// readers that show a file's description without loading it.
//
// Every kind shares the envelope of QzPkgFileFormat.h; inside it the
// contents are the package's own block (xSaveToStream). The kinds, their
// names in the header and their extensions are listed in
// docs/file-formats.md.

#include "runtime/files/QzPkgFileFormat.h"
#include "runtime/model/QzPkgInfo.h"

// The name a kind's files carry in their header.
inline constexpr const char* QzPkgKindStrings = "Strings";
inline constexpr const char* QzPkgKindImages = "Images";
inline constexpr const char* QzPkgKindVars = "Vars";
inline constexpr const char* QzPkgKindAccess = "Access";
inline constexpr const char* QzPkgKindDisplay = "Display";
inline constexpr const char* QzPkgKindLanguage = "Language";
inline constexpr const char* QzPkgKindSetup = "Setup";

// The file format of one kind: writes and reads the envelope around the
// package's block.
class TQzPkgFileCodec final : public TQzPkgFileFormat {
public:
    explicit TQzPkgFileCodec(AnsiString kind) : FKind(std::move(kind)) {}

    const AnsiString& Kind() const { return FKind; }
    // The whole file for pkg as it is now.
    std::string BuildFile(TQzPkgInfo& pkg) const;

    void SaveToFile(TQzPkgInfo& pkg, const AnsiString& fileName) override;
    void LoadFromFile(TQzPkgInfo& pkg, const AnsiString& fileName) override;
    // The same from the file's bytes, read already; fileName is for the
    // messages only.
    void LoadFromBytes(TQzPkgInfo& pkg, const AnsiString& fileName, std::string_view bytes);
    AnsiString ReadDescription(const AnsiString& fileName) override;

private:
    AnsiString FKind;
};

// Installs the formats of every package kind into the model; safe to call
// more than once. Programs call it once at start-up, before any package
// reads or writes its file.
void RegisterQzPkgFileFormats();

// The description stored in a package file of that kind, read from its
// header alone. A missing file, a file of another kind, or a damaged header
// raises EQzPkgFileError naming the file.
AnsiString QzReadPkgStringsDescription(const AnsiString& fileName);
AnsiString QzReadPkgImagesDescription(const AnsiString& fileName);
AnsiString QzReadPkgVarsDescription(const AnsiString& fileName);
AnsiString QzReadPkgAccessDescription(const AnsiString& fileName);
AnsiString QzReadPkgDisplayDescription(const AnsiString& fileName);
AnsiString QzReadPkgLanguageDescription(const AnsiString& fileName);
AnsiString QzReadPkgSetupDescription(const AnsiString& fileName);
