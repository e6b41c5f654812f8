// qzpkg as a program: a conversion loads no Qt, and the commands over the
// runtime come from their module, found beside the program.

#include "QzpkgRun.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

namespace {

// Runs a shell command line; returns its standard output.
std::string Output(const std::string& command)
{
    std::string out;
    std::FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return out;
    std::array<char, 4096> buf;
    for (size_t n; (n = std::fread(buf.data(), 1, buf.size(), pipe)) > 0;)
        out.append(buf.data(), n);
    ::pclose(pipe);
    return out;
}

TEST(QzpkgProgram, LoadsOnlyTheClassLibrary)
{
    // The dynamic loader lists what the program needs without running it.
    const std::string libraries = Output("LD_TRACE_LOADED_OBJECTS=1 '" QZPKG_PROGRAM "'");
    EXPECT_NE(libraries.find("librtl.so"), std::string::npos) << libraries;
    for (const char* unwanted : {"libQt6", "libQzCtrls", "libdclQzCtrls", "libdesignide", "libvcl"})
        EXPECT_EQ(libraries.find(unwanted), std::string::npos) << unwanted << " in\n" << libraries;
}

#ifdef QZ_CLI_DESIGN

TEST(QzpkgProgram, RunsTheDesignCommandsFromTheModuleBesideIt)
{
    const std::string out = Output("'" QZPKG_PROGRAM "' registrations");
    EXPECT_EQ(out.rfind("RegisterComponents\tQz Standard\t", 0), 0u) << out.substr(0, 200);
    EXPECT_NE(Output("'" QZPKG_PROGRAM "' classes").find("\tTQzLabel\t"), std::string::npos);
}

TEST(QzpkgProgram, TheCommandsWithOptionsShowTheirUsageOrNameWhatIsWrong)
{
    const std::vector<std::vector<std::string>> commands = {{"strings"}, {"refs"}, {"pkg", "convert"}, {"images"}};
    for (const std::vector<std::string>& command : commands) {
        std::string name = "qzpkg";
        for (const std::string& word : command)
            name += " " + word;
        SCOPED_TRACE(name);
        std::vector<std::string> help = command;
        help.insert(help.end(), {"x", "--help"});
        const TQzpkgRun shown = Qzpkg(help);
        EXPECT_EQ(shown.Code, 0);
        EXPECT_EQ(shown.Out.rfind("Usage: " + name + " ", 0), 0u) << "--help anywhere: " << shown.Out;
        const TQzpkgRun wrong = Qzpkg(command);
        EXPECT_EQ(wrong.Code, 1);
        EXPECT_EQ(wrong.Err.rfind(name + ": ", 0), 0u) << wrong.Err;
        EXPECT_NE(wrong.Err.find("(" + name + " --help shows the usage)\n"), std::string::npos) << wrong.Err;
    }
}

TEST(QzpkgProgram, SaysWhereTheModuleWasLookedForWhenItIsMissing)
{
    SetDesignCommandsModule("/nonexistent/qzpkg_design.so");
    const TQzpkgRun run = QzpkgAsSet({"info", "x.pst"});
    EXPECT_EQ(run.Code, 1);
    EXPECT_EQ(run.Err, "qzpkg info: this command needs qzpkg_design.so, which is not at /nonexistent/qzpkg_design.so\n");
    // Usage and conversions need no module.
    EXPECT_EQ(Qzpkg({"--help"}).Code, 0);
}

#endif

} // namespace
