#include "cli/PackageConvertCommand.h"

#include "cli/CommandUsage.h"
#include "cli/PackageFormEdit.h"
#include "cli/PackageKinds.h"

#include "designide/ProjectServices.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzModelRegister.h"
#include "runtime/model/QzRegistry.h"
#include "rtl/Streams.h"

#include <algorithm>
#include <stdexcept>

namespace {

const char* const ConvertUsage =
    "Usage: qzpkg pkg convert FROM TO [--component NAME]\n"
    "\n"
    "Moves a package between a form and a package file of its own. One of\n"
    "FROM and TO is a form (text or binary), the other a package file, whose\n"
    "extension names the kind of package (.pst strings, .pim images, .pva\n"
    "variables, .pac privileges, .dis display, .lan language, .pse setup).\n"
    "\n"
    "From a form, the form's package of that kind is written to the file.\n"
    "Into a form, the file's items replace those of the form's package, which\n"
    "keeps them in the form from then on; every other byte of the form stays\n"
    "as it was, a binary form stays binary, and the old form is kept as\n"
    "Name.~dfm. A form with nothing to change is not written.\n"
    "\n"
    "  --component NAME  the package, when the form holds several of the kind\n"
    "                    (a package of the application object is named\n"
    "                    Application.PkgDisplay and so on)\n";

struct TConvertArgs {
    AnsiString From, To, Component;
};

TConvertArgs ParseArgs(const std::vector<std::string>& args)
{
    TConvertArgs parsed;
    std::vector<AnsiString> files;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--component") {
            if (++i == args.size())
                throw EUsage("--component needs a name");
            parsed.Component = args[i];
        } else if (!args[i].empty() && args[i][0] == '-') {
            throw EUsage("unknown option '" + args[i] + "'");
        } else {
            files.push_back(args[i]);
        }
    }
    if (files.size() != 2)
        throw EUsage("a form and a package file are needed, FROM and TO");
    parsed.From = files[0];
    parsed.To = files[1];
    return parsed;
}

// A package of the form: a component of its own, or one the application
// object keeps (written inside the application's object, its properties
// prefixed with its name).
struct TFormPackage {
    TQzPkgInfo* Package;
    AnsiString Name;      // as --component names it
    AnsiString Object;    // the object in the form's text that holds its lines
    AnsiString Prefix;    // before its property names there
};

std::vector<TFormPackage> PackagesOfKind(TComponent* root, const TQzPkgFileKind& kind)
{
    std::vector<TFormPackage> found;
    for (int i = 0; i < root->ComponentCount(); ++i) {
        TComponent* c = root->Components(i);
        if (auto* pkg = dynamic_cast<TQzPkgInfo*>(c); pkg && kind.Holds(pkg))
            found.push_back({pkg, c->Name(), c->Name(), ""});
        if (auto* app = dynamic_cast<TQzCApplication*>(c))
            for (int k = 0; k < app->ComponentCount(); ++k)
                if (auto* inner = dynamic_cast<TQzPkgInfo*>(app->Components(k)); inner && kind.Holds(inner))
                    found.push_back({inner, app->Name() + "." + inner->Name(), app->Name(), inner->Name() + "."});
    }
    return found;
}

const TFormPackage& ChoosePackage(const std::vector<TFormPackage>& found, const TConvertArgs& args,
                                  const AnsiString& form, const TQzPkgFileKind& kind)
{
    if (!args.Component.empty()) {
        for (const TFormPackage& p : found)
            if (SameText(p.Name, args.Component))
                return p;
        throw Exception(form + ": the form holds no package of kind " + kind.Name + " named " + args.Component);
    }
    if (found.empty())
        throw Exception(form + ": the form holds no package of kind " + kind.Name);
    if (found.size() > 1) {
        AnsiString names;
        for (const TFormPackage& p : found)
            names += (names.empty() ? "" : ", ") + p.Name;
        throw Exception(form + ": the form holds several packages of kind " + kind.Name + " (" + names +
                        "); choose one with --component");
    }
    return found.front();
}

std::string ContentsOf(TQzPkgInfo& pkg)
{
    TWriter writer;
    pkg.xSaveToStream(&writer);
    return writer.Buffer();
}

// The form read, its text and how it is stored, and its components loaded
// without a window.
struct TForm {
    explicit TForm(const AnsiString& file) : Project(file), File(file)
    {
        if (!Project.ReadFormText(file, Lines, Format))
            throw EFOpenError("Cannot open form " + file);
        // Packages read here are the form's, not this process's.
        TQzDetachedPkgs detached;
        Designer = TFormDesigner::LoadFromBytes(Lines.Text(), file);
    }
    TFolderProject Project;
    AnsiString File;
    TStringList Lines;
    TStreamOriginalFormat Format = sofUnknown;
    std::unique_ptr<TFormDesigner> Designer;
};

void FormToFile(const TConvertArgs& args, const TQzPkgFileKind& kind, std::FILE* out)
{
    TForm form(args.From);
    const std::vector<TFormPackage> found = PackagesOfKind(form.Designer->GetRoot(), kind);
    const TFormPackage& chosen = ChoosePackage(found, args, args.From, kind);
    if (chosen.Package->InitMode() == imFile)
        throw Exception(args.From + ": the package " + chosen.Name + " is kept in its own file " +
                        chosen.Package->FileName() + ", not in the form");
    TQzPkgFileCodec(kind.Name).SaveToFile(*chosen.Package, args.To);
    std::fprintf(out, "%s: %s written to %s\n", args.From.c_str(), chosen.Name.c_str(), args.To.c_str());
}

void FileToForm(const TConvertArgs& args, const TQzPkgFileKind& kind, std::FILE* out)
{
    // The file first, whole: a damaged one stops the run before the form is read.
    TQzDetachedPkgs detached;
    std::unique_ptr<TQzPkgInfo> source = kind.Create();
    TQzPkgFileCodec(kind.Name).LoadFromFile(*source, args.From);
    const std::string contents = ContentsOf(*source);

    TForm form(args.To);
    const std::vector<TFormPackage> found = PackagesOfKind(form.Designer->GetRoot(), kind);
    const TFormPackage& chosen = ChoosePackage(found, args, args.To, kind);
    TQzPkgInfo& pkg = *chosen.Package;
    if (pkg.InitMode() != imFile && ContentsOf(pkg) == contents) {
        std::fprintf(out, "%s: %s holds these items already; nothing written\n", args.To.c_str(), chosen.Name.c_str());
        return;
    }
    TReader reader(contents);
    pkg.xLoadFromStream(&reader);
    // The items live in the form from now on.
    pkg.SetInitMode(imDFM);
    pkg.SetFileName("");

    TStringList rewritten;
    rewritten.SetText(form.Designer->FormText());
    std::vector<AnsiString> names;
    for (const char* property : {"Data", "InitMode", "FileName"})
        names.push_back(chosen.Prefix + property);
    QzSpliceProperties(form.Lines, rewritten, chosen.Object, names, args.To);
    form.Project.WriteFormText(form.Lines, args.To, form.Format);
    std::fprintf(out, "%s: %s written to %s\n", args.From.c_str(), chosen.Name.c_str(), args.To.c_str());
}

}  // namespace

int RunPackageConvert(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    if (QzWroteUsage(args, ConvertUsage, out))
        return 0;
    TConvertArgs parsed;
    try {
        parsed = ParseArgs(args);
    } catch (const EUsage& e) {
        return QzUsageError("qzpkg pkg convert", e, err);
    }
    const TQzPkgFileKind* fromKind = QzPkgFileKindOf(parsed.From);
    const TQzPkgFileKind* toKind = QzPkgFileKindOf(parsed.To);
    if (!fromKind == !toKind) {
        AnsiString exts;
        for (const TQzPkgFileKind& kind : QzPkgFileKinds())
            exts += (exts.empty() ? "." : ", .") + kind.Ext();
        std::fprintf(err, "qzpkg pkg convert: %s\n",
                     (fromKind ? AnsiString("both are package files; one must be a form")
                               : "neither is a package file (" + exts + ")")
                         .c_str());
        return 1;
    }
    RegisterQzModelClasses();
    RegisterQzComponentClasses();
    RegisterQzPkgFileFormats();
    try {
        if (toKind)
            FormToFile(parsed, *toKind, out);
        else
            FileToForm(parsed, *fromKind, out);
    } catch (const Exception& e) {
        std::fprintf(err, "qzpkg pkg convert: %s\n", e.Message().c_str());
        return 1;
    } catch (const std::exception& e) {
        std::fprintf(err, "qzpkg pkg convert: %s\n", e.what());
        return 1;
    }
    return 0;
}
