// Loading the design commands' module on demand.

#include "cli/DesignCommands.h"

#include <dlfcn.h>
#include <limits.h>
#include <unistd.h>


namespace {

std::string& ModuleOverride()
{
    static std::string path;
    return path;
}

std::string ProgramFolder()
{
    char buf[PATH_MAX];
    ssize_t n = ::readlink("/proc/self/exe", buf, sizeof buf - 1);
    if (n <= 0)
        return ".";
    std::string path(buf, size_t(n));
    size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash);
}

// Beside the program in the build tree; in the plug-in folder once installed.
std::vector<std::string> ModuleCandidates()
{
    if (!ModuleOverride().empty())
        return {ModuleOverride()};
    const std::string folder = ProgramFolder();
    return {folder + "/" + QzpkgDesignModuleFile,
            folder + "/" QZPKG_DESIGN_FROM_BIN "/" + QzpkgDesignModuleFile};
}

// Loading the same module again finds the one already loaded.
const TDesignCommand* LoadCommands(std::string& error)
{
    const std::vector<std::string> candidates = ModuleCandidates();
    for (const std::string& path : candidates) {
        if (::access(path.c_str(), F_OK) != 0)
            continue;
        void* module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!module) {
            error = ::dlerror();
            return nullptr;
        }
        auto entry = reinterpret_cast<const TDesignCommand* (*)()>(::dlsym(module, "QzpkgDesignCommands"));
        if (!entry) {
            error = path + " is not qzpkg's design commands module";
            return nullptr;
        }
        return entry();
    }
    error = std::string("this command needs ") + QzpkgDesignModuleFile + ", which is not at";
    for (const std::string& path : candidates)
        error += (&path == &candidates.front() ? " " : " nor at ") + path;
    return nullptr;
}

} // namespace

TCommandFunction FindDesignCommand(const std::string& name, std::string& error)
{
    const TDesignCommand* commands = LoadCommands(error);
    if (!commands)
        return nullptr;
    for (const TDesignCommand* c = commands; c->Name; ++c)
        if (name == c->Name)
            return c->Run;
    error = "the design commands module has no command '" + name + "'";
    return nullptr;
}

void SetDesignCommandsModule(const std::string& path)
{
    ModuleOverride() = path;
}
