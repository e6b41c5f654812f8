#include "cli/StringsCommand.h"

#include "cli/CommandUsage.h"
#include "cli/EscapedField.h"
#include "cli/RefsFormEdit.h"
#include "design/strings/QzStringsChecks.h"
#include "design/strings/QzStringsExchange.h"
#include "designide/FormDesigner.h"
#include "designide/ProjectServices.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzModelRegister.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"

#include "rtl/Streams.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>

namespace {

const char* const Usage =
    "Usage: qzpkg strings export PACKAGE --format po|xliff|csv [--reference FILE] OUT\n"
    "       qzpkg strings import PACKAGE --format po|xliff|csv IN\n"
    "       qzpkg strings check PACKAGE --reference FILE\n"
    "\n"
    "PACKAGE (and FILE) is a strings package file (.pst), a language file (.lan,\n"
    "its User strings, or its System strings with --package System) or a form\n"
    "holding a strings package (with --package NAME when it holds several).\n"
    "\n"
    "export  writes every label, message and text as an entry whose context is\n"
    "        \"label:ID\", \"message:ID\" or \"text:ID\", whose source is the text of\n"
    "        the same Id in the reference (the package's own without one) and\n"
    "        whose translation is the package's text; a label's hint is a\n"
    "        translator comment. The format follows OUT's extension when\n"
    "        --format is not given.\n"
    "import  replaces the package's labels, messages and texts with IN's entries\n"
    "        and writes the package back (a form keeps its other bytes and its\n"
    "        previous file as Name.~dfm). A file that does not read is reported\n"
    "        with its line and changes nothing.\n"
    "check   prints, for each Id both packages hold, the texts (and hints) whose\n"
    "        placeholders, leading or trailing blanks or & accelerator differ\n"
    "        from the reference's, or that equal it: \"CONTEXT<TAB>FIELD<TAB>\n"
    "        PROBLEMS<TAB>REFERENCE<TAB>TEXT\", tabs and line breaks written\n"
    "        \\t, \\n, \\r. Exit code 3 when any row is printed.\n";

struct TArgs {
    AnsiString Action;
    AnsiString Package;
    AnsiString PackageName;   // --package
    AnsiString Reference;
    std::optional<TQzExchangeFormat> Format;
    AnsiString File;   // OUT or IN
};

TArgs ParseArgs(const std::vector<std::string>& args)
{
    TArgs parsed;
    std::vector<AnsiString> positional;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        const auto value = [&]() -> AnsiString {
            if (i + 1 >= args.size())
                throw EUsage(a + " needs a value");
            return args[++i];
        };
        if (a == "--format") {
            try {
                parsed.Format = QzExchangeFormatByName(value());
            } catch (const Exception& e) {
                throw EUsage(e.Message());
            }
        } else if (a == "--reference") {
            parsed.Reference = value();
        } else if (a == "--package") {
            parsed.PackageName = value();
        } else if (a.size() > 1 && a[0] == '-') {
            throw EUsage("unknown option " + a);
        } else {
            positional.push_back(a);
        }
    }
    if (positional.empty())
        throw EUsage("export, import or check?");
    parsed.Action = positional[0];
    const bool check = parsed.Action == "check";
    if (parsed.Action != "export" && parsed.Action != "import" && !check)
        throw EUsage("unknown action " + parsed.Action);
    if (positional.size() != (check ? 2u : 3u))
        throw EUsage(check ? "check takes one package" : parsed.Action + " takes a package and a file");
    parsed.Package = positional[1];
    if (!check) {
        parsed.File = positional[2];
        TQzExchangeFormat format;
        if (!parsed.Format && QzExchangeFormatOfFile(parsed.File, format))
            parsed.Format = format;
        if (!parsed.Format)
            throw EUsage("--format po, xliff or csv is needed for " + parsed.File);
    }
    if (check && parsed.Reference.empty())
        throw EUsage("check needs --reference FILE");
    if (parsed.Action == "import" && !parsed.Reference.empty())
        throw EUsage("import takes no reference");
    return parsed;
}

// A strings package read from a file, and how to write it back there.
class TStringsSource {
public:
    TStringsSource(const AnsiString& file, const AnsiString& packageName) : FFile(file)
    {
        // What the files hold is the project's, not this process's: it
        // takes no package name over.
        TQzDetachedPkgs detached;
        const AnsiString ext = ExtractFileExt(file);
        if (SameText(ext, ".pst")) {
            FPackage = std::make_unique<TQzPkgStrings>(nullptr);
            FKind = QzPkgKindStrings;
            TQzPkgFileCodec(FKind).LoadFromFile(*FPackage, file);
            FStrings = static_cast<TQzPkgStrings*>(FPackage.get());
        } else if (SameText(ext, ".lan")) {
            auto language = std::make_unique<TQzPkgLanguage>(nullptr);
            FKind = QzPkgKindLanguage;
            TQzPkgFileCodec(FKind).LoadFromFile(*language, file);
            // Its User strings unless System is asked for: a name meant for
            // a form's package (the other side of a check) means the user's.
            const bool system = SameText(packageName, "System");
            FStrings = system ? language->PkgSystem() : language->PkgUser();
            // A language file is no live suite data: its "System" strings
            // take changes whatever the application allows.
            FUnlocked = std::make_unique<TQzPkgInfo::TSystemUpdate>(*FStrings);
            FPackage = std::move(language);
        } else {
            // The project of one form takes names relative to the form's
            // own folder: the form is named to it in full.
            FFile = std::filesystem::absolute(file.c_str()).lexically_normal().string();
            LoadForm(packageName);
        }
    }

    TQzPkgStrings& Strings() const { return *FStrings; }
    AnsiString Name() const
    {
        return FStrings->PkgName().empty() ? ChangeFileExt(ExtractFileName(FFile), "") : FStrings->PkgName();
    }

    void Save()
    {
        if (FForm) {
            TStringList rewritten;
            rewritten.SetText(FForm->FormText());
            // Only the package's binary block changes; a form whose blocks no
            // longer pair up (a package that was empty has none) is taken
            // whole as the designer writes it.
            try {
                QzSpliceDataBlocks(FLines, rewritten, FFile);
            } catch (const Exception&) {
                FLines.SetText(rewritten.Text());
            }
            FProject->WriteFormText(FLines, FFile, FFormat);
            return;
        }
        TQzPkgFileCodec(FKind).SaveToFile(*FPackage, FFile);
    }

private:
    void LoadForm(const AnsiString& packageName)
    {
        FProject = std::make_unique<TFolderProject>(FFile);
        if (!FProject->ReadFormText(FFile, FLines, FFormat))
            throw EFOpenError("Cannot open form " + FFile);
        FForm = TFormDesigner::LoadFromBytes(FLines.Text(), FFile);
        std::vector<TQzPkgStrings*> found;
        AnsiString names;
        TComponent* root = FForm->GetRoot();
        for (int i = 0; i < root->ComponentCount(); ++i)
            if (auto* pkg = dynamic_cast<TQzPkgStrings*>(root->Components(i))) {
                names += (names.empty() ? "" : ", ") + pkg->Name() + " (\"" + pkg->PkgName() + "\")";
                if (packageName.empty() || SameText(pkg->PkgName(), packageName) || SameText(pkg->Name(), packageName))
                    found.push_back(pkg);
            }
        if (found.empty())
            throw Exception(FFile + ": " +
                            (names.empty() ? AnsiString("the form holds no strings package")
                                           : "no strings package \"" + packageName + "\" (the form holds " + names + ")"));
        if (found.size() > 1)
            throw Exception(FFile + ": the form holds several strings packages (" + names +
                            "); name one with --package");
        FStrings = found.front();
        if (FStrings->InitMode() == imFile)
            throw Exception(FFile + ": " + FStrings->Name() + " keeps its strings in its own file \"" +
                            FStrings->FileName() + "\"; give that file instead");
    }

    AnsiString FFile;
    AnsiString FKind;
    std::unique_ptr<TQzPkgInfo> FPackage;
    std::unique_ptr<TFolderProject> FProject;
    std::unique_ptr<TFormDesigner> FForm;
    TStringList FLines;
    TStreamOriginalFormat FFormat = sofUnknown;
    TQzPkgStrings* FStrings = nullptr;
    std::unique_ptr<TQzPkgInfo::TSystemUpdate> FUnlocked;
};

int Export(const TArgs& args, std::FILE* out)
{
    TStringsSource source(args.Package, args.PackageName);
    std::optional<TStringsSource> reference;
    if (!args.Reference.empty())
        reference.emplace(args.Reference, args.PackageName);
    const auto entries = QzStringsEntries(source.Strings(), reference ? &reference->Strings() : nullptr);
    WriteFileAtomic(args.File, QzWriteStrings(entries, *args.Format, source.Name()));
    std::fprintf(out, "%d entries written to %s\n", static_cast<int>(entries.size()), args.File.c_str());
    return 0;
}

int Import(const TArgs& args, std::FILE* out)
{
    TStringsSource source(args.Package, args.PackageName);
    std::string bytes;
    try {
        bytes = ReadFileBytes(args.File);
    } catch (const Exception& e) {
        throw Exception(args.File + ": " + e.Message());
    }
    const auto entries = QzReadStrings(bytes, *args.Format, args.File);
    QzApplyStringsEntries(source.Strings(), entries, args.File);
    source.Save();
    std::fprintf(out, "%d entries read into %s\n", static_cast<int>(entries.size()), args.Package.c_str());
    return 0;
}

int Check(const TArgs& args, std::FILE* out)
{
    TStringsSource source(args.Package, args.PackageName);
    TStringsSource reference(args.Reference, args.PackageName);
    const auto entries = QzStringsEntries(source.Strings(), &reference.Strings());
    const auto referenceEntries = QzStringsEntries(reference.Strings(), nullptr);
    bool any = false;
    const auto row = [&](const TQzStringsEntry& e, const char* field, const AnsiString& from, const AnsiString& to) {
        const unsigned problems = QzCheckTranslation(from, to);
        if (problems == spNone)
            return;
        any = true;
        std::fprintf(out, "%s\t%s\t%s\t%s\t%s\n", QzStringsContext(e.Kind, e.Id).c_str(), field,
                     QzStringProblemsText(problems).c_str(), QzEscapedField(from).c_str(), QzEscapedField(to).c_str());
    };
    for (const TQzStringsEntry& e : entries) {
        const auto ref = std::find_if(referenceEntries.begin(), referenceEntries.end(), [&](const TQzStringsEntry& r) {
            return r.Kind == e.Kind && r.Id == e.Id;
        });
        if (ref == referenceEntries.end())
            continue;
        row(e, "text", ref->Text, e.Text);
        if (!ref->Hint.empty() || !e.Hint.empty())
            row(e, "hint", ref->Hint, e.Hint);
    }
    return any ? 3 : 0;
}

} // namespace

int RunStrings(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    if (QzWroteUsage(args, Usage, out))
        return 0;
    TArgs parsed;
    try {
        parsed = ParseArgs(args);
    } catch (const EUsage& e) {
        return QzUsageError("qzpkg strings", e, err);
    }
    RegisterQzModelClasses();
    RegisterQzComponentClasses();
    RegisterQzPkgFileFormats();
    try {
        if (parsed.Action == "export")
            return Export(parsed, out);
        if (parsed.Action == "import")
            return Import(parsed, out);
        return Check(parsed, out);
    } catch (const Exception& e) {
        std::fprintf(err, "qzpkg strings: %s\n", e.Message().c_str());
    } catch (const std::exception& e) {
        std::fprintf(err, "qzpkg strings: %s\n", e.what());
    }
    return 1;
}
