#pragma once
// How the qzpkg commands that take options treat their command line:
// --help or -h anywhere shows the usage and nothing runs; a command line
// the command cannot run is named on the error output, with the way to the
// usage, and the command ends with exit code 1.

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

// What is wrong with a command line, as the user is told it.
class EUsage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Writes usage to out when args ask for it.
inline bool QzWroteUsage(const std::vector<std::string>& args, const char* usage, std::FILE* out)
{
    const bool asked =
        std::any_of(args.begin(), args.end(), [](const std::string& a) { return a == "--help" || a == "-h"; });
    if (asked)
        std::fputs(usage, out);
    return asked;
}

// command as the user types it ("qzpkg strings"); answers the exit code.
inline int QzUsageError(const char* command, const EUsage& e, std::FILE* err)
{
    std::fprintf(err, "%s: %s (%s --help shows the usage)\n", command, e.what(), command);
    return 1;
}
