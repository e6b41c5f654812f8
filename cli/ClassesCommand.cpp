#include "cli/ClassesCommand.h"

#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzPalette.h"

#include "rtl/SysUtils.h"
#include "rtl/TypInfo.h"

#include <map>

namespace {

const char* const ClassesUsage =
    "Usage: qzpkg classes [--markdown] [CLASS ...]\n"
    "\n"
    "Without CLASS, lists the runtime's component classes, one a line, with\n"
    "tabs between: the palette page (empty for classes without a button),\n"
    "the class and the class it derives from.\n"
    "With CLASS names, lists each class's published properties and events in\n"
    "the order forms store them: the class, the property, its type and the\n"
    "class that declares it.\n"
    "--markdown writes the catalogue of palette pages as Markdown tables\n"
    "instead, each class with the properties it declares itself.\n";

AnsiString TypeName(const TPropInfo& prop)
{
    return prop.PropType != nullptr ? prop.PropType->Name : AnsiString("?");
}

AnsiString ParentName(const TMetaClass& meta)
{
    return meta.ClassParent() != nullptr ? meta.ClassParent()->ClassName() : AnsiString();
}

// The properties a class declares itself, events apart, in declaration order.
AnsiString OwnProperties(const TMetaClass& meta, bool events)
{
    AnsiString list;
    for (const TPropInfo* prop : meta.DeclaredProperties()) {
        const bool isEvent = prop->PropType != nullptr && prop->PropType->Kind == tkMethod;
        if (isEvent != events)
            continue;
        if (!list.empty())
            list += ", ";
        list += prop->Name;
        if (!events)
            list += ": " + TypeName(*prop);
    }
    return list.empty() ? AnsiString("-") : list;
}

void ListClasses(std::FILE* out)
{
    for (const TMetaClass* meta : QzComponentClasses())
        std::fprintf(out, "%s\t%s\t%s\n", QzPalettePage(meta->ClassName()).c_str(), meta->ClassName().c_str(),
                     ParentName(*meta).c_str());
}

void WriteMarkdown(std::FILE* out)
{
    // The base classes first, then each page's classes in palette order.
    std::map<AnsiString, bool> onPalette;
    for (const TQzPaletteEntry& entry : QzPaletteClasses())
        onPalette[UpperCase(entry.ClassName)] = true;
    std::fprintf(out, "### Base and helper classes\n\n| Class | Derives from | Declares | Events |\n|---|---|---|---|\n");
    for (const TMetaClass* meta : QzComponentClasses())
        if (!onPalette.count(UpperCase(meta->ClassName())))
            std::fprintf(out, "| `%s` | `%s` | %s | %s |\n", meta->ClassName().c_str(), ParentName(*meta).c_str(),
                         OwnProperties(*meta, false).c_str(), OwnProperties(*meta, true).c_str());
    AnsiString page;
    for (const TQzPaletteEntry& entry : QzPaletteClasses()) {
        if (entry.Page != page) {
            page = entry.Page;
            std::fprintf(out, "\n### Page \"%s\"\n\n| Class | Derives from | Declares | Events |\n|---|---|---|---|\n",
                         page.c_str());
        }
        const TMetaClass* meta = GetClass(entry.ClassName);
        if (meta == nullptr) {
            std::fprintf(out, "| `%s` | (the design package's) | | |\n", entry.ClassName);
            continue;
        }
        std::fprintf(out, "| `%s` | `%s` | %s | %s |\n", meta->ClassName().c_str(), ParentName(*meta).c_str(),
                     OwnProperties(*meta, false).c_str(), OwnProperties(*meta, true).c_str());
    }
}

} // namespace

int RunClasses(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    bool markdown = false;
    std::vector<std::string> names;
    for (const std::string& arg : args) {
        if (arg == "--help" || arg == "-h") {
            std::fputs(ClassesUsage, out);
            return 0;
        }
        if (arg == "--markdown")
            markdown = true;
        else if (!arg.empty() && arg[0] == '-') {
            std::fprintf(err, "qzpkg classes: unknown option '%s'\n\n%s", arg.c_str(), ClassesUsage);
            return 1;
        } else
            names.push_back(arg);
    }
    if (markdown && !names.empty()) {
        std::fprintf(err, "qzpkg classes: --markdown takes no class names\n");
        return 1;
    }
    RegisterQzComponentClasses();
    // Check every name before printing anything.
    std::vector<const TMetaClass*> classes;
    for (const std::string& name : names) {
        const TMetaClass* meta = GetClass(name);
        if (meta == nullptr) {
            std::fprintf(err, "qzpkg classes: no class '%s' is registered\n", name.c_str());
            return 1;
        }
        classes.push_back(meta);
    }
    if (markdown)
        WriteMarkdown(out);
    else if (classes.empty())
        ListClasses(out);
    for (const TMetaClass* meta : classes)
        for (const TPropInfo* prop : meta->Properties())
            std::fprintf(out, "%s\t%s\t%s\t%s\n", meta->ClassName().c_str(), prop->Name.c_str(), TypeName(*prop).c_str(),
                         prop->DeclaringClass != nullptr ? prop->DeclaringClass->ClassName().c_str() : "");
    return 0;
}
