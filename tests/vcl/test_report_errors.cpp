// A change run from a window: it happens, or its reason is shown once in an
// error box and the caller hears of the refusal; nothing escapes to Qt.

#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"
#include "vcl/QzReportErrors.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

class ReportErrorsTest : public TQzGuiTest {};

struct TCase {
    const char* Name;
    std::function<void()> Change;
    AnsiString What;
    bool Done;
    AnsiString Shown;   // the error box's text; empty: no box
};

TEST_F(ReportErrorsTest, AChangeHappensOrItsReasonIsShownOnce)
{
    const TCase cases[] = {
        {"succeeds", [] {}, "", true, ""},
        {"succeeds, with what", [] {}, "Cannot copy: ", true, ""},
        {"refused", [] { throw EConvertError("Value out of range"); }, "", false, "Value out of range"},
        {"refused, with what", [] { throw Exception("no room"); }, "Cannot paste: ", false, "Cannot paste: no room"},
    };
    for (const TCase& c : cases) {
        TQzTestDialogs dialogs;
        if (!c.Shown.empty())
            dialogs->AnswerMessage(mbOK);
        EXPECT_EQ(QzRunReportingErrors(nullptr, c.Change, c.What), c.Done) << c.Name;
        const std::vector<TQzDialogCall> boxes = dialogs->CallsOf(TQzDialogKind::Message);
        ASSERT_EQ(boxes.size(), c.Shown.empty() ? 0u : 1u) << c.Name;
        if (!boxes.empty()) {
            EXPECT_EQ(boxes[0].Message.Text, c.Shown) << c.Name;
            EXPECT_EQ(boxes[0].Message.Type, mtError) << c.Name;
        }
    }
}

}  // namespace
