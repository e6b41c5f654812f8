#include "runtime/files/QzPkgFiles.h"

#include "runtime/model/QzApplication.h"

namespace {

AnsiString ReadDescriptionOf(const AnsiString& fileName, const char* kind)
{
    return QzReadPkgFileHeader(fileName, kind).Description;
}

} // namespace

std::string TQzPkgFileCodec::BuildFile(TQzPkgInfo& pkg) const
{
    TWriter writer;
    pkg.xSaveToStream(&writer);
    return QzBuildPkgFile(FKind, pkg.Description(), writer.Buffer());
}

void TQzPkgFileCodec::SaveToFile(TQzPkgInfo& pkg, const AnsiString& fileName)
{
    std::string bytes;
    try {
        bytes = BuildFile(pkg);
    } catch (const Exception& e) {
        throw EQzPkgFileError(fileName, e.Message(), true);
    }
    try {
        WriteFileAtomic(fileName, bytes);
    } catch (const Exception& e) {
        // The stream's message names the file already; say what failed.
        throw EQzPkgFileError(fileName, e.Message(), true);
    }
}

void TQzPkgFileCodec::LoadFromFile(TQzPkgInfo& pkg, const AnsiString& fileName)
{
    pkg.CheckChange();  // a locked "System" package is refused before any file is read
    // The header first: a foreign or damaged file is refused before a large
    // file is read whole.
    QzReadPkgFileHeader(fileName, FKind);
    std::string bytes;
    try {
        bytes = ReadFileBytes(fileName);
    } catch (const Exception& e) {
        throw EQzPkgFileError(fileName, e.Message());
    }
    LoadFromBytes(pkg, fileName, bytes);
}

void TQzPkgFileCodec::LoadFromBytes(TQzPkgInfo& pkg, const AnsiString& fileName, std::string_view bytes)
{
    pkg.CheckChange();
    TQzPkgFileHeader header;
    const std::string_view contents = QzPkgFileContents(fileName, bytes, FKind, &header);
    // The envelope is whole (length and checksum agree); what can still
    // fail is a block this program does not understand. The model reads a
    // block all or nothing, so the package stays as it was.
    try {
        TReader reader(contents);
        pkg.xLoadFromStream(&reader);
    } catch (const Exception& e) {
        throw EQzPkgFileError(fileName, "its contents cannot be read (" + e.Message() + ")");
    }
    pkg.SetDescription(header.Description);
}

AnsiString TQzPkgFileCodec::ReadDescription(const AnsiString& fileName)
{
    return QzReadPkgFileHeader(fileName, FKind).Description;
}

void RegisterQzPkgFileFormats()
{
    const struct {
        TMetaClass* Class;
        const char* Kind;
    } formats[] = {
        {TQzPkgStrings::ClassInfo(), QzPkgKindStrings},
        {TQzPkgImages::ClassInfo(), QzPkgKindImages},
        {TQzPkgVars::ClassInfo(), QzPkgKindVars},
        {TQzPkgPrivileges::ClassInfo(), QzPkgKindAccess},
        {TQzPkgDisplay::ClassInfo(), QzPkgKindDisplay},
        {TQzPkgLanguage::ClassInfo(), QzPkgKindLanguage},
        {TQzPkgSetup::ClassInfo(), QzPkgKindSetup},
    };
    for (const auto& f : formats)
        QzRegisterPkgFileFormat(f.Class, std::make_shared<TQzPkgFileCodec>(f.Kind));
}

AnsiString QzReadPkgStringsDescription(const AnsiString& fileName) { return ReadDescriptionOf(fileName, QzPkgKindStrings); }
AnsiString QzReadPkgImagesDescription(const AnsiString& fileName) { return ReadDescriptionOf(fileName, QzPkgKindImages); }
AnsiString QzReadPkgVarsDescription(const AnsiString& fileName) { return ReadDescriptionOf(fileName, QzPkgKindVars); }
AnsiString QzReadPkgAccessDescription(const AnsiString& fileName) { return ReadDescriptionOf(fileName, QzPkgKindAccess); }
AnsiString QzReadPkgDisplayDescription(const AnsiString& fileName) { return ReadDescriptionOf(fileName, QzPkgKindDisplay); }
AnsiString QzReadPkgLanguageDescription(const AnsiString& fileName) { return ReadDescriptionOf(fileName, QzPkgKindLanguage); }
AnsiString QzReadPkgSetupDescription(const AnsiString& fileName) { return ReadDescriptionOf(fileName, QzPkgKindSetup); }
