#include "cli/ImagesCommand.h"

#include "cli/CommandUsage.h"
#include "cli/PackageOwnFile.h"
#include "design/images/QzImagesExchange.h"
#include "designide/FormDesigner.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzModelRegister.h"
#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzRegistry.h"

#include <memory>
#include <stdexcept>

namespace {

const char* const ImagesUsage =
    "Usage: qzpkg images export SOURCE DIR [--package NAME]\n"
    "       qzpkg images import DIR PACKAGE\n"
    "\n"
    "export writes the images of an images package into the folder DIR (made\n"
    "when missing): one PNG per image named by its Id (12.png), with what the\n"
    "image's transparency mask cuts away fully transparent, and manifest.csv,\n"
    "one row per image: Id,File,Width,Height,Bytes,Protected. SOURCE is an\n"
    "images package file (.pim) or a form (text or binary) that keeps images\n"
    "packages; --package names the one to export when it keeps several.\n"
    "\n"
    "import adds the pictures of DIR (BMP, PNG, JPEG, GIF, ICO, .imqz and the\n"
    "other formats qzpkg reads) to the images package file PACKAGE, made when\n"
    "missing. DIR's manifest.csv, when there is one, gives each file's Id and\n"
    "protection; otherwise a file named by a number (12.png) takes that Id and\n"
    "any other the next free one. An image of an Id the package has already\n"
    "is replaced. A file that is not a picture is named and skipped; the rest\n"
    "is imported and the package written whole (the old file stays as it was\n"
    "when writing fails).\n"
    "\n"
    "Exit code 0 when everything was exported or imported, 2 when some images\n"
    "or files were left out (each named on the error output), 1 on an error.\n";

bool IsImagesPackageFile(const AnsiString& fileName)
{
    try {
        QzReadPkgImagesDescription(fileName);
        return true;
    } catch (const Exception&) {
        if (SameText(ExtractFileExt(fileName), ".pim"))
            throw;
        return false;
    }
}

// The images packages a form keeps: its own and its application's two
// display images packages.
std::vector<TQzPkgImages*> FormImagesPackages(TComponent* root)
{
    std::vector<TQzPkgImages*> found;
    for (int i = 0; i < root->ComponentCount(); ++i) {
        TComponent* component = root->Components(i);
        if (auto* images = dynamic_cast<TQzPkgImages*>(component))
            found.push_back(images);
        else if (auto* app = dynamic_cast<TQzCApplication*>(component); app && app->PkgDisplay())
            for (TQzPkgImages* images : {app->PkgDisplay()->PkgSystem(), app->PkgDisplay()->PkgUser()})
                if (images)
                    found.push_back(images);
    }
    return found;
}

int ReportProblems(const TQzImagesExchangeReport& report, std::FILE* err)
{
    for (const AnsiString& problem : report.Problems)
        std::fprintf(err, "qzpkg images: %s\n", problem.c_str());
    return report.Problems.empty() ? 0 : 2;
}

int Export(const AnsiString& source, const AnsiString& folder, const AnsiString& pkgName, std::FILE* out, std::FILE* err)
{
    TQzDetachedPkgs detached;
    if (IsImagesPackageFile(source)) {
        TQzPkgImages pkg(nullptr);
        TQzPkgFileCodec(QzPkgKindImages).LoadFromFile(pkg, source);
        const TQzImagesExchangeReport report = QzExportImages(pkg, folder);
        std::fprintf(out, "%d images written to %s\n", int(report.Rows.size()), folder.c_str());
        return ReportProblems(report, err);
    }
    RegisterQzModelClasses();
    RegisterQzComponentClasses();
    std::unique_ptr<TFormDesigner> form = TFormDesigner::LoadFromFile(source);
    std::vector<TQzPkgImages*> packages = FormImagesPackages(form->GetRoot());
    if (!pkgName.empty())
        std::erase_if(packages, [&](const TQzPkgImages* p) { return !SameText(p->PkgName(), pkgName); });
    if (packages.empty())
        throw Exception(pkgName.empty() ? source + " keeps no images package"
                                        : source + " keeps no images package named " + pkgName);
    if (packages.size() > 1) {
        AnsiString names;
        for (const TQzPkgImages* p : packages)
            names += (names.empty() ? "" : ", ") + p->PkgName();
        throw Exception(source + " keeps several images packages (" + names + "): name one with --package");
    }
    QzLoadOwnPkgFile(*packages.front(), ExtractFileDir(source));
    const TQzImagesExchangeReport report = QzExportImages(*packages.front(), folder);
    std::fprintf(out, "%d images of %s written to %s\n", int(report.Rows.size()), packages.front()->PkgName().c_str(),
                 folder.c_str());
    return ReportProblems(report, err);
}

int Import(const AnsiString& folder, const AnsiString& packageFile, std::FILE* out, std::FILE* err)
{
    TQzDetachedPkgs detached;
    TQzPkgImages pkg(nullptr);
    TQzPkgFileCodec codec(QzPkgKindImages);
    if (FileExists(packageFile))
        codec.LoadFromFile(pkg, packageFile);
    const TQzImagesExchangeReport report = QzImportImages(pkg, folder);
    codec.SaveToFile(pkg, packageFile);
    std::fprintf(out, "%d images imported into %s\n", int(report.Rows.size()), packageFile.c_str());
    return ReportProblems(report, err);
}

}  // namespace

int RunImages(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    std::vector<std::string> positional;
    AnsiString pkgName;
    try {
        for (size_t i = 0; i < args.size(); ++i) {
            if (args[i] == "--help" || args[i] == "-h") {
                std::fputs(ImagesUsage, out);
                return 0;
            }
            if (args[i] == "--package") {
                if (i + 1 >= args.size())
                    throw EUsage("--package needs a package name");
                pkgName = args[++i];
            } else if (args[i].rfind("--", 0) == 0) {
                throw EUsage("unknown option " + args[i]);
            } else {
                positional.push_back(args[i]);
            }
        }
        if (positional.size() != 3 || (positional[0] != "export" && positional[0] != "import"))
            throw EUsage("expected export SOURCE DIR or import DIR PACKAGE");
        if (positional[0] == "import" && !pkgName.empty())
            throw EUsage("--package is an option of export");
    } catch (const EUsage& e) {
        return QzUsageError("qzpkg images", e, err);
    }
    RegisterQzPkgFileFormats();
    try {
        if (positional[0] == "export")
            return Export(positional[1], positional[2], pkgName, out, err);
        return Import(positional[1], positional[2], out, err);
    } catch (const Exception& e) {
        std::fprintf(err, "qzpkg images: %s\n", e.Message().c_str());
    } catch (const std::exception& e) {
        std::fprintf(err, "qzpkg images: %s\n", e.what());
    }
    return 1;
}
