#include "cli/PackageFileCommands.h"

#include "cli/EscapedField.h"
#include "cli/PackageConvertCommand.h"
#include "cli/PackageKinds.h"

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/util/QzNumeric.h"

#include <functional>

namespace {

const char* const InfoUsage =
    "Usage: qzpkg pkg info FILE\n"
    "\n"
    "Shows the kind of the package file FILE (Strings, Images, Vars, Access,\n"
    "Display, Language or Setup), its description and how many items of each\n"
    "sort it holds, one \"Name: value\" a line.\n";

const char* const PackageUsage =
    "Usage: qzpkg pkg info|dump|convert ...\n"
    "\n"
    "  info FILE                            a package file's kind, description and counts\n"
    "  dump FILE                            a package file's items, one a line\n"
    "  convert FROM TO [--component NAME]   a package between a form and a package file\n"
    "\n"
    "Run 'qzpkg pkg info|dump|convert --help' for more.\n";

const char* const DumpUsage =
    "Usage: qzpkg pkg dump FILE\n"
    "\n"
    "Prints the contents of the package file FILE, one item a line, its fields\n"
    "separated by tabs:\n"
    "  label     Id  Text  Hint          message  Id  Text\n"
    "  text      Id  Text                image    Id  Format  Width  Height  Bytes\n"
    "  folder    Path                    variable Path  Type  Value\n"
    "  privilege Id  Access  Visible  Description\n"
    "  background, color, font: a display set's published values in order\n"
    "  package   Name   (the items that follow belong to that inner package)\n"
    "  setting   Name  Value\n"
    "Tabs, line breaks and backslashes inside a field are written \\t, \\n,\n"
    "\\r and \\\\.\n";

// The kind whose header the file has. A damaged or foreign file fails the
// same way whatever kind is asked for; a file that fails differently for
// each kind is a package of a kind this program does not know.
const TQzPkgFileKind& KindOf(const AnsiString& fileName)
{
    std::vector<AnsiString> problems;
    for (const TQzPkgFileKind& kind : QzPkgFileKinds()) {
        try {
            QzReadPkgFileHeader(fileName, kind.Name);
            return kind;
        } catch (const EQzPkgFileError& e) {
            problems.push_back(e.Problem());
        }
    }
    for (const AnsiString& problem : problems)
        if (problem != problems.front())
            throw EQzPkgFileError(fileName, "it holds a package of a kind qzpkg does not know");
    throw EQzPkgFileError(fileName, problems.front());
}

struct TLoaded {
    const TQzPkgFileKind* Kind = nullptr;
    std::unique_ptr<TQzPkgInfo> Package;
};

TLoaded Load(const AnsiString& fileName)
{
    RegisterQzPkgFileFormats();
    TLoaded loaded;
    loaded.Kind = &KindOf(fileName);
    // Invisible to the package lists: reading a file takes no name over.
    TQzDetachedPkgs detached;
    loaded.Package = loaded.Kind->Create();
    TQzPkgFileCodec(loaded.Kind->Name).LoadFromFile(*loaded.Package, fileName);
    return loaded;
}

// ---- text of the fields ------------------------------------------------------

class TLines {
public:
    explicit TLines(std::FILE* out) : FOut(out) {}
    void Line(std::initializer_list<AnsiString> fields) { Line(std::vector<AnsiString>(fields)); }
    void Line(const std::vector<AnsiString>& fields)
    {
        AnsiString line;
        for (std::size_t i = 0; i < fields.size(); ++i)
            line += (i ? "\t" : "") + (i ? QzEscapedField(fields[i]) : fields[i]);
        std::fprintf(FOut, "%s\n", line.c_str());
    }

private:
    std::FILE* FOut;
};

AnsiString BoolText(bool value)
{
    return value ? "True" : "False";
}

// A published value as the object inspector would show it.
AnsiString PropertyText(TObject* object, const TPropInfo* prop)
{
    const TTypeInfo* type = prop->PropType;
    switch (type->Kind) {
    case tkInteger: {
        const Int64 value = GetOrdProp(object, prop);
        const AnsiString ident = IntToIdent(type, value);
        return ident.empty() ? IntToStr(value) : ident;
    }
    case tkChar:
        return AnsiString(1, static_cast<char>(GetOrdProp(object, prop)));
    case tkEnumeration:
        return GetEnumName(type, static_cast<int>(GetOrdProp(object, prop)));
    case tkSet:
        return SetToString(type, GetOrdProp(object, prop), true);
    case tkInt64:
        return IntToStr(GetInt64Prop(object, prop));
    case tkFloat:
        return QzCNumericToStr(static_cast<double>(GetFloatProp(object, prop)));
    case tkString:
        return GetStrProp(object, prop);
    case tkVariant:
        return VarToStr(GetVariantProp(object, prop));
    case tkClass:
        if (auto* ref = dynamic_cast<TQzMemoryRef*>(GetObjectProp(object, prop)))
            return ref->Id() < 0 && ref->PkgName().empty() ? AnsiString() : ref->PkgName() + ":" + IntToStr(ref->Id());
        return {};
    default:
        return {};
    }
}

std::vector<AnsiString> PublishedValues(const AnsiString& sort, TObject* object)
{
    std::vector<AnsiString> fields{sort};
    for (const TPropInfo* prop : GetPropList(object))
        fields.push_back(PropertyText(object, prop));
    return fields;
}

void Settings(TLines& lines, const AnsiString& prefix, TObject* object)
{
    for (const TPropInfo* prop : GetPropList(object))
        lines.Line({"setting", prefix + prop->Name, PropertyText(object, prop)});
}

// ---- the kinds ---------------------------------------------------------------

void DumpStrings(TLines& lines, const TQzPkgStrings& pkg)
{
    for (int i = 0; i < pkg.Labels()->Count(); ++i) {
        const TQzPkgStringsLabel* item = pkg.Labels()->GetItems(i);
        lines.Line({"label", IntToStr(item->Id()), item->Text(), item->Hint()});
    }
    for (int i = 0; i < pkg.Messages()->Count(); ++i) {
        const TQzPkgStringsMessage* item = pkg.Messages()->GetItems(i);
        lines.Line({"message", IntToStr(item->Id()), item->Text()});
    }
    for (int i = 0; i < pkg.Texts()->Count(); ++i) {
        const TQzPkgStringsText* item = pkg.Texts()->GetItems(i);
        lines.Line({"text", IntToStr(item->Id()), item->Text()});
    }
}

void DumpImages(TLines& lines, const TQzPkgImages& pkg)
{
    for (int i = 0; i < pkg.Images()->Count(); ++i) {
        const TQzPkgImagesImage* image = pkg.Images()->GetItems(i);
        lines.Line({"image", IntToStr(image->Id()), image->GraphicClass(), IntToStr(image->Width()),
                    IntToStr(image->Height()), IntToStr(image->GetSize())});
    }
}

void DumpVarsItem(TLines& lines, const TQzPkgVarsItem& item)
{
    if (item.IsFolder()) {
        lines.Line({"folder", item.Path()});
        for (int i = 0; i < item.Count(); ++i)
            DumpVarsItem(lines, *item.Items(i));
        return;
    }
    lines.Line({"variable", item.Path(), GetEnumName(TypeInfo_TQzPkgVarsItemType(), item.GetItemType()),
                item.GetVString()});
}

void DumpPrivileges(TLines& lines, const TQzPkgPrivileges& pkg)
{
    for (int i = 0; i < pkg.Count(); ++i) {
        const TQzPkgPrivilegesItem* item = pkg.GetItems(i);
        lines.Line({"privilege", IntToStr(item->Id()), QzAccessText(item->Access()), BoolText(item->Visible()),
                    item->DisplayText()});
    }
}

void DumpDisplay(TLines& lines, const TQzPkgDisplay& pkg)
{
    for (int i = 0; i < pkg.SetsBackGround()->Count(); ++i)
        lines.Line(PublishedValues("background", pkg.SetsBackGround()->GetSetBackGround(i)));
    for (int i = 0; i < pkg.SetsColor()->Count(); ++i)
        lines.Line(PublishedValues("color", pkg.SetsColor()->GetSetColor(i)));
    for (int i = 0; i < pkg.SetsFont()->Count(); ++i)
        lines.Line(PublishedValues("font", pkg.SetsFont()->GetSetFont(i)));
    for (TQzPkgImages* images : {pkg.PkgSystem(), pkg.PkgUser()}) {
        lines.Line({"package", images->PkgName()});
        DumpImages(lines, *images);
    }
    const TQzDisplayGeometry& g = pkg.Geometry();
    const std::pair<const char*, Integer> geometry[] = {
        {"CWButtonsHeight", g.CWButtonsHeight},   {"CWButtonsMargin", g.CWButtonsMargin},
        {"CWButtonsSpacing", g.CWButtonsSpacing}, {"CWButtonsWidth", g.CWButtonsWidth},
        {"CWMarginAfterTitle", g.CWMarginAfterTitle}, {"CWMarginBottom", g.CWMarginBottom},
        {"CWMarginLeft", g.CWMarginLeft},         {"CWMarginRight", g.CWMarginRight},
        {"CWMarginTop", g.CWMarginTop},           {"CWTitleHeight", g.CWTitleHeight},
        {"HiMarginBottom", g.HiMarginBottom},     {"HiMarginLeft", g.HiMarginLeft},
        {"HiMarginRight", g.HiMarginRight},       {"HiMarginTop", g.HiMarginTop},
    };
    for (const auto& [name, value] : geometry)
        lines.Line({"setting", name, IntToStr(value)});
    lines.Line({"setting", "CWWinRgn", BoolText(g.CWWinRgn)});
    lines.Line({"setting", "HiWinRgn", BoolText(g.HiWinRgn)});
    for (int i = 0; i < pkg.UserColors().Count(); ++i)
        lines.Line({"setting", "UserColor", pkg.UserColors().Strings(i)});
}

void DumpLanguage(TLines& lines, const TQzPkgLanguage& pkg)
{
    for (TQzPkgStrings* strings : {pkg.PkgSystem(), pkg.PkgUser()}) {
        lines.Line({"package", strings->PkgName()});
        DumpStrings(lines, *strings);
    }
    Settings(lines, "Locale.", const_cast<TQzPkgLanguageLocale*>(pkg.Locale()));
}

void DumpSetup(TLines& lines, const TQzPkgSetup& pkg)
{
    Settings(lines, "Keys.", const_cast<TQzPkgSetupKeys*>(pkg.Keys()));
    Settings(lines, "DataBase.", const_cast<TQzPkgSetupDataBase*>(pkg.DataBase()));
}

void Dump(TLines& lines, TQzPkgInfo& pkg)
{
    if (auto* strings = dynamic_cast<TQzPkgStrings*>(&pkg))
        DumpStrings(lines, *strings);
    else if (auto* images = dynamic_cast<TQzPkgImages*>(&pkg))
        DumpImages(lines, *images);
    else if (auto* vars = dynamic_cast<TQzPkgVars*>(&pkg)) {
        for (int i = 0; i < vars->Count(); ++i)
            DumpVarsItem(lines, *vars->Items(i));
    } else if (auto* privileges = dynamic_cast<TQzPkgPrivileges*>(&pkg))
        DumpPrivileges(lines, *privileges);
    else if (auto* display = dynamic_cast<TQzPkgDisplay*>(&pkg))
        DumpDisplay(lines, *display);
    else if (auto* language = dynamic_cast<TQzPkgLanguage*>(&pkg))
        DumpLanguage(lines, *language);
    else if (auto* setup = dynamic_cast<TQzPkgSetup*>(&pkg))
        DumpSetup(lines, *setup);
}

// ---- counts --------------------------------------------------------------------

using TCounts = std::vector<std::pair<AnsiString, int>>;

void CountVars(const TQzPkgVarsItem& item, int& variables, int& folders)
{
    if (!item.IsFolder()) {
        ++variables;
        return;
    }
    ++folders;
    for (int i = 0; i < item.Count(); ++i)
        CountVars(*item.Items(i), variables, folders);
}

// "Labels", or "System labels" for an inner package.
void CountStrings(TCounts& counts, const TQzPkgStrings& pkg, const AnsiString& inner)
{
    const auto name = [&](const char* plural) {
        return inner.empty() ? AnsiString(plural) : inner + " " + LowerCase(plural);
    };
    counts.push_back({name("Labels"), pkg.Labels()->Count()});
    counts.push_back({name("Messages"), pkg.Messages()->Count()});
    counts.push_back({name("Texts"), pkg.Texts()->Count()});
}

TCounts Counts(TQzPkgInfo& pkg)
{
    TCounts counts;
    if (auto* strings = dynamic_cast<TQzPkgStrings*>(&pkg)) {
        CountStrings(counts, *strings, "");
    } else if (auto* images = dynamic_cast<TQzPkgImages*>(&pkg)) {
        counts.push_back({"Images", images->Images()->Count()});
    } else if (auto* vars = dynamic_cast<TQzPkgVars*>(&pkg)) {
        int variables = 0, folders = 0;
        for (int i = 0; i < vars->Count(); ++i)
            CountVars(*vars->Items(i), variables, folders);
        counts.push_back({"Variables", variables});
        counts.push_back({"Folders", folders});
    } else if (auto* privileges = dynamic_cast<TQzPkgPrivileges*>(&pkg)) {
        counts.push_back({"Privileges", privileges->Count()});
    } else if (auto* display = dynamic_cast<TQzPkgDisplay*>(&pkg)) {
        counts.push_back({"Background sets", display->SetsBackGround()->Count()});
        counts.push_back({"Colour sets", display->SetsColor()->Count()});
        counts.push_back({"Font sets", display->SetsFont()->Count()});
        counts.push_back({"System images", display->PkgSystem()->Images()->Count()});
        counts.push_back({"User images", display->PkgUser()->Images()->Count()});
    } else if (auto* language = dynamic_cast<TQzPkgLanguage*>(&pkg)) {
        CountStrings(counts, *language->PkgSystem(), language->PkgSystem()->PkgName());
        CountStrings(counts, *language->PkgUser(), language->PkgUser()->PkgName());
    }
    return counts;
}

// ---- the commands ------------------------------------------------------------

using TCommandBody = std::function<void(const TLoaded&, std::FILE*)>;

int RunOnFile(const char* command, const char* usage, const std::vector<std::string>& args, std::FILE* out,
              std::FILE* err, const TCommandBody& body)
{
    if (!args.empty() && (args[0] == "--help" || args[0] == "-h")) {
        std::fputs(usage, out);
        return 0;
    }
    if (args.size() != 1) {
        std::fprintf(err, "qzpkg %s: %s\n\n%s", command, args.empty() ? "a package file is needed" : "one file only",
                     usage);
        return 1;
    }
    try {
        const TLoaded loaded = Load(args[0]);
        body(loaded, out);
    } catch (const Exception& e) {
        // Package file errors name the file themselves.
        std::fprintf(err, "qzpkg %s: %s\n", command, e.Message().c_str());
        return 1;
    }
    return 0;
}

}  // namespace

int RunPackageInfo(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    return RunOnFile("pkg info", InfoUsage, args, out, err, [&](const TLoaded& loaded, std::FILE* to) {
        std::fprintf(to, "File: %s\n", args[0].c_str());
        std::fprintf(to, "Kind: %s\n", loaded.Kind->Name);
        std::fprintf(to, "Description: %s\n", QzEscapedField(loaded.Package->Description()).c_str());
        for (const auto& [name, count] : Counts(*loaded.Package))
            std::fprintf(to, "%s: %d\n", name.c_str(), count);
    });
}

int RunPackageDump(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    return RunOnFile("pkg dump", DumpUsage, args, out, err, [](const TLoaded& loaded, std::FILE* to) {
        TLines lines(to);
        Dump(lines, *loaded.Package);
    });
}

int RunPackage(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    const struct {
        const char* Name;
        int (*Run)(const std::vector<std::string>&, std::FILE*, std::FILE*);
    } commands[] = {{"info", RunPackageInfo}, {"dump", RunPackageDump}, {"convert", RunPackageConvert}};
    if (!args.empty() && (args[0] == "--help" || args[0] == "-h")) {
        std::fputs(PackageUsage, out);
        return 0;
    }
    for (const auto& c : commands)
        if (!args.empty() && args[0] == c.Name)
            return c.Run(std::vector<std::string>(args.begin() + 1, args.end()), out, err);
    if (args.empty())
        std::fprintf(err, "qzpkg pkg: info, dump or convert is needed\n\n%s", PackageUsage);
    else
        std::fprintf(err, "qzpkg pkg: unknown command '%s'\n\n%s", args[0].c_str(), PackageUsage);
    return 1;
}
