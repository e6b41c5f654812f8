// qzpkg registrations as a user runs it: the design package's calls, one a
// line, the same every time.

#ifdef QZ_CLI_DESIGN

#include "QzpkgRun.h"
#include "designide/DesignIntf.h"
#include "support/TextLines.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

TEST(RegistrationsCommand, ListsEveryCallOnceATimeInOrderAndTakesNoArguments)
{
    const TQzpkgRun first = Qzpkg({"registrations"});
    ASSERT_EQ(first.Code, 0) << first.Err;
    EXPECT_EQ(first.Err, "");
    const auto lines = TextLines(first.Out);
    ASSERT_EQ(lines.size(), 100u);
    EXPECT_EQ(lines[0].rfind("RegisterComponents\tQz Standard\tTQzCApplication,TQzCForm,", 0), 0u);
    EXPECT_EQ(lines[4], "RegisterPropertyEditor\tTQzMultiLine\tnil\t\tTQzMultiLinePropertyEditor");
    // The data-aware page control's collections are bound twice, both listed.
    const std::string twice = "RegisterPropertyEditor\tTQzCollection\tTQzDbPageControl\t\tTQzCollectionPropertyEditor";
    EXPECT_EQ(std::count(lines.begin(), lines.end(), twice), 2);

    // The listing does not pile up, and leaves the registry as it found it.
    const TQzpkgRun second = Qzpkg({"registrations"});
    EXPECT_EQ(second.Out, first.Out);
    EXPECT_TRUE(DesignRegistry().Records().empty());

    // It explains itself and takes no arguments.
    EXPECT_NE(Qzpkg({"registrations", "--help"}).Out.find("Usage: qzpkg registrations"), std::string::npos);
    const TQzpkgRun extra = Qzpkg({"registrations", "now"});
    EXPECT_EQ(extra.Code, 1);
    EXPECT_EQ(extra.Out, "");
    EXPECT_NE(extra.Err.find("unexpected argument 'now'"), std::string::npos) << extra.Err;
    EXPECT_NE(Qzpkg({"--help"}).Out.find("registrations"), std::string::npos);
}

}  // namespace

#endif
