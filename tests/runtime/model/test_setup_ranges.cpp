// Values the setup package cannot hold are refused, whether they come from
// a caller or from a stored block, and refusing changes nothing.

#include "ModelTestSupport.h"

#include <gtest/gtest.h>

using namespace QzModelTest;

namespace {

// Refresh is the last shortcut stored, so its bytes are followed by the end
// of the keys and the database block, whose first two values are the engine
// and the date format: a marker there finds each value in the block.
constexpr TShortCut Marker = 0x7A5B;
const std::string MarkerBytes = {char(vaInt16), 0x5B, 0x7A};
const std::string KeysEnd = {char(vaNull), char(vaList)};

std::string SetupBlock()
{
    TQzPkgSetup setup(nullptr);
    setup.DataBase()->SetDataBaseEngine(deSQLite);
    setup.Keys()->SetRefresh(Marker);
    return Contents(setup);
}

std::string Int8(int v)
{
    return {char(vaInt8), static_cast<char>(v)};
}

// The block with the bytes of one value (at offset `at` after the marker's
// end, `size` bytes long) replaced.
std::string Patched(size_t at, size_t size, const std::string& bytes)
{
    std::string block = SetupBlock();
    const size_t marker = block.find(MarkerBytes);
    EXPECT_NE(marker, std::string::npos);
    EXPECT_EQ(block.compare(marker + MarkerBytes.size(), KeysEnd.size(), KeysEnd), 0);
    block.replace(marker + at, size, bytes);
    return block;
}

}  // namespace

TEST(SetupRanges, ValuesOutsideTheirRangeInABlockAreRefused)
{
    const size_t engine = MarkerBytes.size() + KeysEnd.size();
    const size_t dateFormat = engine + 2;
    const struct {
        const char* Case;
        std::string Block;
        const char* Says;
    } cases[] = {
        {"as written", SetupBlock(), nullptr},
        {"shortcut above a word", Patched(0, 3, {char(vaInt32), 0, 0, 1, 0}), "Invalid shortcut 65536"},
        {"engine past the last", Patched(engine, 2, Int8(deSQLite + 1)), "Value 7 out of range"},
        {"negative engine", Patched(engine, 2, Int8(-1)), "Value -1 out of range"},
        {"date format past the last", Patched(dateFormat, 2, Int8(dfYMD + 1)), "Value 3 out of range"},
        {"huge date format", Patched(dateFormat, 2, {char(vaInt32), 0, 0, 0, 0x40}), "out of range"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Case);
        TQzPkgSetup setup(nullptr);
        const std::string before = Contents(setup);
        TReader r(c.Block);
        if (!c.Says) {
            setup.xLoadFromStream(&r);
            EXPECT_EQ(setup.DataBase()->DataBaseEngine(), deSQLite);
            EXPECT_EQ(setup.Keys()->ShortCut(saRefresh), Marker);
            continue;
        }
        try {
            setup.xLoadFromStream(&r);
            ADD_FAILURE() << "read";
        } catch (const EReadError& e) {
            EXPECT_NE(e.Message().find(c.Says), std::string::npos) << e.Message();
        }
        EXPECT_EQ(Contents(setup), before);
    }
}

TEST(SetupRanges, ActionsOutsideTheListAreRefused)
{
    TQzPkgSetup setup(nullptr);
    const std::string before = Contents(setup);
    for (int action : {-1, QzSetupActionCount, QzSetupActionCount + 1, 1 << 20}) {
        SCOPED_TRACE(action);
        try {
            setup.Keys()->SetShortCut(static_cast<TQzSetupAction>(action), 0x4051);
            ADD_FAILURE() << "set";
        } catch (const EQzPkgError& e) {
            EXPECT_EQ(e.Message(), "Invalid setup action " + IntToStr(action));
        }
    }
    EXPECT_EQ(Contents(setup), before);
}
