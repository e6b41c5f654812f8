#include "cli/RefsCommand.h"

#include "cli/CommandUsage.h"
#include "cli/RefsFormEdit.h"
#include "cli/RefsProjectPackages.h"

#include "design/manager/QzFormTokens.h"
#include "design/manager/QzManagerLogic.h"
#include "designide/ProjectServices.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzModelRegister.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgStrings.h"
#include "rtl/Streams.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>

namespace {

const char* const RefsUsage =
    "Usage: qzpkg refs ACTION PROJECT --kind KIND [options]\n"
    "\n"
    "Finds the references of a project's forms to package items, display sets\n"
    "and privileges. PROJECT is a project file (.bpr, .cbproj) or a folder of\n"
    "forms; forms may be text or binary.\n"
    "\n"
    "Actions:\n"
    "  scan    --package NAME --value VALUE\n"
    "      One line per reference to that item.\n"
    "  count   [--package NAME] [--summary]\n"
    "      One line per reference of the kind, whatever its item, with whether\n"
    "      the item exists in the project's packages (its forms' packages and\n"
    "      the package files in its folder); --summary prints one line per item\n"
    "      with its number of uses instead, items used nowhere included.\n"
    "      Exit code 3 when a reference names an item that does not exist.\n"
    "  replace --package NAME --value VALUE --to-package NAME2 --to-value VALUE2\n"
    "  clean   --package NAME --value VALUE\n"
    "      Rewrite the forms that hold references to that item: they name the\n"
    "      new item, or none. A form keeps its format and every other byte; the\n"
    "      old file is kept as Name.~dfm. With --dry-run nothing is written and\n"
    "      a unified diff of the forms' text is printed. References held by the\n"
    "      application's display sets and privileges change in their package,\n"
    "      in the form or the package file that keeps it.\n"
    "\n"
    "KIND is one of setsbackground setscolor setsfont images labels texts\n"
    "messages privileges. The set kinds name a set (--value Blue) and take no\n"
    "package, privileges an Id; the others a package and an Id.\n"
    "\n"
    "Lines are tab-separated: the form's path relative to the project's folder,\n"
    "the line (from 1), the component and property, the package, the value,\n"
    "and the reference as the packages manager shows it (count: exists or\n"
    "missing instead). References held by the application's display sets and\n"
    "privileges name the form or file of that package and '-' as the line.\n"
    "Summary lines: the package, the value, the uses, exists or missing, and\n"
    "where the uses are (Main.dfm:52 Report.dfm:19, '-' for none).\n";

enum class TAction { Scan, Count, Replace, Clean };

struct TRefsArgs {
    TAction Action = TAction::Scan;
    AnsiString Project;
    TQzDlgManager Kind = TQzDlgManager::Labels;
    AnsiString Package, Value, ToPackage, ToValue;
    bool HasPackage = false, HasValue = false, HasToPackage = false, HasToValue = false;
    bool Summary = false;
    bool DryRun = false;
};

TRefsArgs ParseArgs(const std::vector<std::string>& args)
{
    static const std::map<std::string, TAction> actions = {
        {"scan", TAction::Scan}, {"count", TAction::Count}, {"replace", TAction::Replace}, {"clean", TAction::Clean}};
    TRefsArgs parsed;
    std::vector<std::string> positional;
    bool hasKind = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        std::string name = args[i];
        std::string value;
        bool inlineValue = false;
        if (name.rfind("--", 0) == 0 && name.find('=') != std::string::npos) {
            value = name.substr(name.find('=') + 1);
            name = name.substr(0, name.find('='));
            inlineValue = true;
        }
        const auto take = [&]() {
            if (inlineValue)
                return value;
            if (i + 1 >= args.size())
                throw EUsage(name + " needs a value");
            return args[++i];
        };
        if (name == "--kind") {
            const std::string kind = take();
            if (!QzDlgManagerFromName(kind, parsed.Kind))
                throw EUsage("unknown kind '" + kind + "'");
            hasKind = true;
        } else if (name == "--package") {
            parsed.Package = take();
            parsed.HasPackage = true;
        } else if (name == "--value") {
            parsed.Value = take();
            parsed.HasValue = true;
        } else if (name == "--to-package") {
            parsed.ToPackage = take();
            parsed.HasToPackage = true;
        } else if (name == "--to-value") {
            parsed.ToValue = take();
            parsed.HasToValue = true;
        } else if (name == "--summary" && !inlineValue) {
            parsed.Summary = true;
        } else if (name == "--dry-run" && !inlineValue) {
            parsed.DryRun = true;
        } else if (name.rfind("--", 0) == 0) {
            throw EUsage("unknown option '" + name + "'");
        } else {
            positional.push_back(args[i]);
        }
    }
    if (positional.empty())
        throw EUsage("no action given");
    const auto action = actions.find(positional[0]);
    if (action == actions.end())
        throw EUsage("unknown action '" + positional[0] + "'");
    parsed.Action = action->second;
    if (positional.size() != 2)
        throw EUsage(positional.size() < 2 ? "no project given" : "more than one project given");
    parsed.Project = positional[1];
    if (!hasKind)
        throw EUsage("--kind is missing");

    const bool usesPackage = QzDlgManagerUsesPackage(parsed.Kind);
    const bool searches = parsed.Action != TAction::Count;
    if (searches && !parsed.HasValue)
        throw EUsage("--value is missing");
    if (searches && usesPackage && !parsed.HasPackage)
        throw EUsage("--package is missing");
    if (parsed.Action == TAction::Replace && !parsed.HasToValue)
        throw EUsage("--to-value is missing");
    if (parsed.Action == TAction::Replace && usesPackage && !parsed.HasToPackage)
        throw EUsage("--to-package is missing");
    if (parsed.Summary && parsed.Action != TAction::Count)
        throw EUsage("--summary is an option of count");
    if (parsed.DryRun && parsed.Action != TAction::Replace && parsed.Action != TAction::Clean)
        throw EUsage("--dry-run is an option of replace and clean");
    if (searches) {
        const AnsiString problem = QzCheckSearchInput(parsed.Kind, parsed.Package, parsed.Value);
        if (!problem.empty())
            throw EUsage(problem);
    }
    if (parsed.Action == TAction::Replace) {
        const AnsiString problem = QzCheckSearchInput(parsed.Kind, parsed.ToPackage, parsed.ToValue);
        if (!problem.empty())
            throw EUsage("--to-package/--to-value: " + problem);
    }
    return parsed;
}

// ---- rows ----------------------------------------------------------------------

const char* const None = "-";

class TRows {
public:
    TRows(const TFolderProject& project, const TQzProjectPackages& packages, std::FILE* out)
        : FProject(project), FPackages(packages), FOut(out)
    {
    }

    AnsiString Relative(const AnsiString& file) const
    {
        if (file.empty())
            return None;
        const std::filesystem::path rel = std::filesystem::path(file).lexically_relative(FProject.Folder());
        return rel.empty() || rel.string().rfind("..", 0) == 0 ? file : rel.generic_string();
    }

    // The first five columns of a hit.
    AnsiString Place(const TQzTokenRec1& hit) const
    {
        const bool usesPackage = QzDlgManagerUsesPackage(hit.Kind);
        const AnsiString pkg = usesPackage ? hit.PkgName : AnsiString(None);
        if (hit.Source == TQzHitSource::Form) {
            const AnsiString object = hit.ObjectName.empty() ? hit.ObjectClass : hit.ObjectName;
            return Relative(hit.FileName) + "\t" + IntToStr(hit.Line + 1) + "\t" + object + "." + hit.PropPath + "\t" +
                   pkg + "\t" + hit.Value;
        }
        const TQzPkgInfo* owner = hit.Source == TQzHitSource::Privilege ? static_cast<const TQzPkgInfo*>(FPackages.Privileges())
                                                                       : FPackages.Display();
        return Relative(FPackages.SourceOf(owner)) + "\t" + None + "\t" + SourceName(hit.Source) + "[" + hit.ItemName +
               "]." + (hit.Kind == TQzDlgManager::Images ? "Image" : "DescriptionId") + "\t" + pkg + "\t" + hit.Value;
    }

    // Where a hit is, in one word: "Main.dfm:159", or for a reference held
    // by the application's sets and privileges "Main.dfm:SetsBackGround[Blue]".
    AnsiString Where(const TQzTokenRec1& hit) const
    {
        if (hit.Source == TQzHitSource::Form)
            return Relative(hit.FileName) + ":" + IntToStr(hit.Line + 1);
        const TQzPkgInfo* owner = hit.Source == TQzHitSource::Privilege ? static_cast<const TQzPkgInfo*>(FPackages.Privileges())
                                                                       : FPackages.Display();
        return Relative(FPackages.SourceOf(owner)) + ":" + SourceName(hit.Source) + "[" + hit.ItemName + "]";
    }

    void Line(const AnsiString& text) const { std::fprintf(FOut, "%s\n", text.c_str()); }

private:
    static const char* SourceName(TQzHitSource source)
    {
        switch (source) {
        case TQzHitSource::SetBackGround: return "SetsBackGround";
        case TQzHitSource::SetColor: return "SetsColor";
        case TQzHitSource::SetFont: return "SetsFont";
        case TQzHitSource::Privilege: return "Privileges";
        case TQzHitSource::Form: break;
        }
        return "";
    }

    const TFolderProject& FProject;
    const TQzProjectPackages& FPackages;
    std::FILE* FOut;
};

// ---- count ----------------------------------------------------------------------

// Every package name the project's references use: a count takes them all,
// so that a reference to a package the project no longer has shows as missing.
std::vector<AnsiString> ReferencedPackages(TFolderProject& project, const TQzProjectPackages& packages, TQzDlgManager kind)
{
    std::vector<AnsiString> names = packages.PackageNames(kind);
    const auto add = [&](const AnsiString& name) {
        if (!name.empty() && std::none_of(names.begin(), names.end(), [&](const AnsiString& n) { return SameText(n, name); }))
            names.push_back(name);
    };
    TQzTokens tokens;
    for (int i = 0; i < project.ModuleCount(); ++i) {
        const TProjectModule& module = project.Module(i);
        TStringList lines;
        TStreamOriginalFormat format = sofUnknown;
        if (module.FormFile.empty() || !project.ReadFormText(module.FormFile, lines, format))
            continue;
        for (int k = 0; k < lines.Count(); ++k) {
            const AnsiString line = lines.Get(k);
            if (line.find("PkgName") == AnsiString::npos)
                continue;
            GetListTokens(tokens, line);
            const int equal = ScannerTokensEqual(tokens);
            if (equal > 0 && tokens[equal] == "=" && SameText(AnsiString(tokens[equal - 1]), "PkgName"))
                add(QzDecodeValue(QzValueText(line)));
        }
    }
    const auto addRef = [&](const TQzMemoryRef& ref) { add(ref.PkgName()); };
    if (const TQzPkgDisplay* display = packages.Display()) {
        for (int i = 0; i < display->SetsBackGround()->Count(); ++i) {
            addRef(*display->SetsBackGround()->GetSetBackGround(i)->Image());
            addRef(*display->SetsBackGround()->GetSetBackGround(i)->DescriptionId());
        }
        for (int i = 0; i < display->SetsColor()->Count(); ++i)
            addRef(*display->SetsColor()->GetSetColor(i)->DescriptionId());
        for (int i = 0; i < display->SetsFont()->Count(); ++i)
            addRef(*display->SetsFont()->GetSetFont(i)->DescriptionId());
    }
    if (const TQzPkgPrivileges* privileges = packages.Privileges())
        for (int i = 0; i < privileges->Count(); ++i)
            addRef(*privileges->GetItems(i)->DescriptionId());
    std::erase_if(names, [](const AnsiString& n) { return SameText(n, "System"); });
    return names;
}

struct TItemUse {
    AnsiString Package;
    AnsiString Value;
    int Uses = 0;
    bool Exists = true;
    AnsiString Places;   // the uses' places, blank-separated
};

// The items of the kind the project's packages hold: (package, value).
std::vector<std::pair<AnsiString, AnsiString>> KindItems(const TQzProjectPackages& packages, TQzDlgManager kind,
                                                        const std::vector<AnsiString>& pkgNames)
{
    std::vector<std::pair<AnsiString, AnsiString>> items;
    const auto ids = [&](const AnsiString& pkg, const TQzPkgIdCollection& list) {
        for (int i = 0; i < list.Count(); ++i)
            items.emplace_back(pkg, IntToStr(static_cast<const TQzPkgIdItem*>(list.Item(i))->Id()));
    };
    const auto names = [&](const TQzPkgDisplaySets& sets) {
        for (int i = 0; i < sets.Count(); ++i)
            items.emplace_back(AnsiString(), static_cast<const TQzPkgDisplaySet*>(sets.Item(i))->Name());
    };
    switch (kind) {
    case TQzDlgManager::SetsBackGround:
    case TQzDlgManager::SetsColor:
    case TQzDlgManager::SetsFont:
        if (const TQzPkgDisplay* display = packages.Display())
            names(kind == TQzDlgManager::SetsBackGround ? static_cast<const TQzPkgDisplaySets&>(*display->SetsBackGround())
                  : kind == TQzDlgManager::SetsColor   ? static_cast<const TQzPkgDisplaySets&>(*display->SetsColor())
                                                       : *display->SetsFont());
        break;
    case TQzDlgManager::Privileges:
        if (const TQzPkgPrivileges* privileges = packages.Privileges())
            for (int i = 0; i < privileges->Count(); ++i)
                items.emplace_back(AnsiString(), IntToStr(privileges->GetItems(i)->Id()));
        break;
    case TQzDlgManager::Images:
        for (const AnsiString& pkg : pkgNames)
            if (const TQzPkgImages* images = packages.FindImages(pkg))
                ids(images->PkgName(), *images->Images());
        break;
    case TQzDlgManager::Labels:
    case TQzDlgManager::Texts:
    case TQzDlgManager::Messages:
        for (const AnsiString& pkg : pkgNames)
            if (const TQzPkgStrings* strings = packages.FindStrings(pkg))
                ids(strings->PkgName(), kind == TQzDlgManager::Labels  ? static_cast<const TQzPkgIdCollection&>(*strings->Labels())
                                        : kind == TQzDlgManager::Texts ? static_cast<const TQzPkgIdCollection&>(*strings->Texts())
                                                                       : *strings->Messages());
        break;
    }
    return items;
}

// Items in package order, then by Id (numbers) or name.
bool ItemBefore(const TItemUse& a, const TItemUse& b)
{
    if (const int byPkg = CompareText(a.Package, b.Package))
        return byPkg < 0;
    Integer x = 0, y = 0;
    if (TryStrToInt(a.Value, x) && TryStrToInt(b.Value, y))
        return x < y;
    return CompareText(a.Value, b.Value) < 0;
}

// The package's own spelling of a name a reference writes in any case.
AnsiString PackageName(const TQzProjectPackages& packages, TQzDlgManager kind, const AnsiString& written)
{
    const TQzPkgInfo* pkg = kind == TQzDlgManager::Images ? static_cast<const TQzPkgInfo*>(packages.FindImages(written))
                                                          : packages.FindStrings(written);
    return pkg ? pkg->PkgName() : written;
}

std::vector<TItemUse> Summary(const TQzProjectPackages& packages, TQzDlgManager kind,
                              const std::vector<std::pair<AnsiString, AnsiString>>& items, const std::vector<TQzTokenRec2>& hits,
                              const TRows& rows)
{
    const bool usesPackage = QzDlgManagerUsesPackage(kind);
    std::vector<TItemUse> uses;
    std::map<AnsiString, std::size_t> index;   // by lower-case package and value
    const auto key = [](const AnsiString& pkg, const AnsiString& value) {
        Integer id = 0;
        return LowerCase(pkg) + "\n" + (TryStrToInt(Trim(value), id) ? IntToStr(id) : LowerCase(Trim(value)));
    };
    for (const auto& [pkg, value] : items)
        if (index.emplace(key(pkg, value), uses.size()).second)
            uses.push_back({pkg, value, 0, true, {}});
    for (const TQzTokenRec2& hit : hits) {
        const AnsiString pkg = usesPackage ? PackageName(packages, kind, hit.PkgName) : AnsiString();
        const auto [it, added] = index.emplace(key(pkg, hit.Value), uses.size());
        if (added)
            uses.push_back({pkg, hit.Value, 0, hit.Exists, {}});
        TItemUse& use = uses[it->second];
        ++use.Uses;
        use.Places += (use.Places.empty() ? "" : " ") + rows.Where(hit);
    }
    std::stable_sort(uses.begin(), uses.end(), ItemBefore);
    return uses;
}

// ---- the actions ------------------------------------------------------------------

struct TRun {
    explicit TRun(const TRefsArgs& args) : Project(args.Project), Packages(Project), Logic(Project, Packages) {}
    TFolderProject Project;
    TQzProjectPackages Packages;
    TQzManagerLogic Logic;
};

int Scan(TRun& run, const TRefsArgs& args, const TRows& rows)
{
    for (const TQzTokenRec1& hit : run.Logic.Scan(args.Kind, args.Package, args.Value))
        rows.Line(rows.Place(hit) + "\t" + hit.Text);
    return 0;
}

int Count(TRun& run, const TRefsArgs& args, const TRows& rows)
{
    const bool usesPackage = QzDlgManagerUsesPackage(args.Kind);
    const std::vector<AnsiString> packages =
        args.HasPackage ? std::vector<AnsiString>{args.Package} : ReferencedPackages(run.Project, run.Packages, args.Kind);
    const std::vector<TQzTokenRec2> hits = run.Logic.Count(args.Kind, packages);
    bool missing = false;
    if (args.Summary) {
        for (const TItemUse& use : Summary(run.Packages, args.Kind, KindItems(run.Packages, args.Kind, packages), hits, rows)) {
            rows.Line((usesPackage ? use.Package : AnsiString(None)) + "\t" + use.Value + "\t" + IntToStr(use.Uses) + "\t" +
                      (use.Exists ? "exists" : "missing") + "\t" + (use.Places.empty() ? AnsiString(None) : use.Places));
            missing = missing || !use.Exists;
        }
    } else {
        for (const TQzTokenRec2& hit : hits) {
            rows.Line(rows.Place(hit) + "\t" + (hit.Exists ? "exists" : "missing"));
            missing = missing || !hit.Exists;
        }
    }
    return missing ? 3 : 0;
}

// A form the run rewrites: its text before and after, and how it is stored.
struct TFormChange {
    AnsiString File;
    TStringList Before;
    TStringList After;
    TStreamOriginalFormat Format = sofUnknown;
    std::vector<const TQzTokenRec1*> Hits;
};

class TChanges {
public:
    explicit TChanges(TFolderProject& project) : FProject(project) {}

    // The form file's change, read when first asked for.
    TFormChange& Form(const AnsiString& file)
    {
        for (const auto& form : FForms)
            if (form->File == file)
                return *form;
        auto change = std::make_unique<TFormChange>();
        change->File = file;
        if (!FProject.ReadFormText(file, change->After, change->Format))
            throw EFOpenError("Cannot open form " + file);
        for (int i = 0; i < change->After.Count(); ++i)
            change->Before.Add(change->After.Get(i));
        FForms.push_back(std::move(change));
        return *FForms.back();
    }
    const std::vector<std::unique_ptr<TFormChange>>& Forms() const { return FForms; }

private:
    TFolderProject& FProject;
    std::vector<std::unique_ptr<TFormChange>> FForms;
};

// The sets and privileges of the application changed in its packages; the
// form that keeps a package gets its binary block written again, a package
// file is returned to be saved.
std::vector<TQzPkgInfo*> ChangeItems(TRun& run, const TRefsArgs& args, const std::vector<const TQzTokenRec1*>& hits,
                                     TChanges& changes)
{
    if (args.Action == TAction::Clean)
        run.Logic.Clear(hits);
    else
        run.Logic.Replace(hits, args.ToPackage, args.ToValue);
    std::vector<TQzPkgInfo*> owners;
    for (const TQzTokenRec1* hit : hits) {
        TQzPkgInfo* owner = hit->Source == TQzHitSource::Privilege ? static_cast<TQzPkgInfo*>(run.Packages.Privileges())
                                                                   : run.Packages.Display();
        if (owner && std::find(owners.begin(), owners.end(), owner) == owners.end())
            owners.push_back(owner);
    }
    std::vector<TQzPkgInfo*> files;
    for (TQzPkgInfo* owner : owners) {
        TFormDesigner* designer = run.Packages.FormOf(owner);
        if (!designer) {
            files.push_back(owner);
            continue;
        }
        const AnsiString file = run.Packages.SourceOf(owner);
        TStringList rewritten;
        rewritten.SetText(designer->FormText());
        TFormChange& form = changes.Form(file);
        QzSpliceDataBlocks(form.After, rewritten, file);
        for (const TQzTokenRec1* hit : hits)
            form.Hits.push_back(hit);
    }
    return files;
}

int Change(TRun& run, const TRefsArgs& args, const TRows& rows, std::FILE* out)
{
    const bool clear = args.Action == TAction::Clean;
    const std::vector<TQzTokenRec1> hits = run.Logic.Scan(args.Kind, args.Package, args.Value);

    // Every form is read, edited and encoded before any is written, so bad
    // input leaves the whole project as it was.
    TChanges changes(run.Project);
    std::vector<const TQzTokenRec1*> itemHits;
    for (const TQzTokenRec1& hit : hits) {
        if (hit.Source != TQzHitSource::Form) {
            itemHits.push_back(&hit);
            continue;
        }
        TFormChange& form = changes.Form(hit.FileName);
        QzApplyEdits(form.After, QzHitEdits(form.After, hit, clear, args.ToPackage, args.ToValue));
        form.Hits.push_back(&hit);
    }
    const std::vector<TQzPkgInfo*> packageFiles = itemHits.empty() ? std::vector<TQzPkgInfo*>()
                                                                   : ChangeItems(run, args, itemHits, changes);
    for (const auto& form : changes.Forms())
        if (form->Format == sofBinary) {
            const std::string bytes = ReadFileBytes(run.Project.FindFormFile(form->File));
            try {
                TFormStorage::Of(bytes).Encode(form->After.Text());
            } catch (Exception& e) {
                e.SetMessage(form->File + ": " + e.Message());
                throw;
            }
        }

    for (const auto& form : changes.Forms()) {
        // A replace by the same item rewrites nothing (and keeps the backup).
        if (form->Before.Text() == form->After.Text())
            continue;
        if (args.DryRun)
            std::fputs(QzUnifiedDiff(rows.Relative(form->File), form->Before, form->After).c_str(), out);
        else
            run.Project.WriteFormText(form->After, form->File, form->Format);
    }
    for (TQzPkgInfo* pkg : packageFiles) {
        const AnsiString file = run.Packages.SourceOf(pkg);
        if (args.DryRun)
            std::fprintf(out, "Binary files a/%s and b/%s differ\n", rows.Relative(file).c_str(), rows.Relative(file).c_str());
        else
            pkg->SaveToFile(file);
    }
    if (!args.DryRun) {
        for (const auto& form : changes.Forms())
            for (const TQzTokenRec1* hit : form->Hits)
                if (hit->Source == TQzHitSource::Form)
                    rows.Line(rows.Place(*hit) + "\t" + hit->Text);
        for (const TQzTokenRec1* hit : itemHits)
            rows.Line(rows.Place(*hit) + "\t" + hit->Text);
    }
    return 0;
}

}  // namespace

int RunRefs(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    if (QzWroteUsage(args, RefsUsage, out))
        return 0;
    TRefsArgs parsed;
    try {
        parsed = ParseArgs(args);
    } catch (const EUsage& e) {
        return QzUsageError("qzpkg refs", e, err);
    }
    RegisterQzModelClasses();
    RegisterQzComponentClasses();
    try {
        TRun run(parsed);
        const TRows rows(run.Project, run.Packages, out);
        switch (parsed.Action) {
        case TAction::Scan: return Scan(run, parsed, rows);
        case TAction::Count: return Count(run, parsed, rows);
        case TAction::Replace:
        case TAction::Clean: return Change(run, parsed, rows, out);
        }
    } catch (const Exception& e) {
        std::fprintf(err, "qzpkg refs: %s\n", e.Message().c_str());
    } catch (const std::exception& e) {
        std::fprintf(err, "qzpkg refs: %s\n", e.what());
    }
    return 1;
}
