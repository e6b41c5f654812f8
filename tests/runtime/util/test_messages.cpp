// Package messages: the text comes from the named strings package, falls
// back to the built-in English "System" text, and the box offers and
// answers the suite's button kinds through the dialog seam.

#include "runtime/util/QzMessages.h"

#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/system/QzSystemStrings.h"
#include "vcl/QzScriptedDialogs.h"

#include <gtest/gtest.h>

namespace {

class PkgMessages : public ::testing::Test {
protected:
    PkgMessages() : FScope(FDialogs)
    {
        RegisterQzStandardWindows();
        FDialogs.SetFailureHandler([](const AnsiString& message) { ADD_FAILURE() << message; });
        FUser.SetPkgName("User");
        FUser.Messages()->Add(smDeleteImage, "Delete this picture?");
        FUser.Messages()->Add(7, "Save %s now?");
        FUser.Messages()->Add(8, "%d items");
        FUser.Messages()->Add(smClearImages, "");  // an empty text counts as missing
    }
    const TQzMessageRequest& Last() const { return FDialogs.Calls().back().Message; }

    TQzScriptedDialogs FDialogs;
    TQzDialogsScope FScope;
    TQzPkgStrings FUser{nullptr};
};

TEST_F(PkgMessages, TextComesFromThePackageElseTheBuiltInSystemText)
{
    const struct {
        const char* Pkg;
        Integer Id;
        AnsiString Expected;
    } cases[] = {
        {"user", smDeleteImage, "Delete this picture?"},
        {"User", smDeleteItem, QzSystemMessageText(smDeleteItem)},
        {"User", smClearImages, QzSystemMessageText(smClearImages)},
        {"Nowhere", 999, "(Message 999 of the package \"Nowhere\" is missing.)"},
    };
    for (const auto& c : cases) {
        FDialogs.AnswerMessage(mbOK);
        QzMsgPkg(mtInformation, c.Pkg, c.Id, {bkOK}, bkOK);
        EXPECT_EQ(Last().Text, c.Expected);
        EXPECT_EQ(Last().Caption, "") << "without a System package the box names its type itself";
    }
    FDialogs.AnswerMessage(mbOK).AnswerMessage(mbOK).AnswerMessage(mbOK);
    QzMsgPkgArgs(mtConfirmation, "User", 7, {"a.pst"}, {bkOK}, bkOK);
    EXPECT_EQ(Last().Text, "Save a.pst now?");
    QzMsgPkgArgs(mtWarning, "User", 8, {"many"}, {bkOK}, bkOK);
    EXPECT_EQ(Last().Text, "%d items (many)") << "a translation that does not fit its arguments still shows";

    TQzPkgStrings system(nullptr);
    system.Labels()->Add(slCaptionConfirmation, "Bestätigen");
    system.SetPkgName("System");
    QzMsgPkg(mtConfirmation, "User", smDeleteImage, {bkOK}, bkOK);
    EXPECT_EQ(Last().Caption, "Bestätigen");
}

TEST_F(PkgMessages, ButtonKindsMapToTheBoxAndBack)
{
    const struct {
        std::vector<TQzButtonKind> Kinds;
        TQzButtonKind Default;
        TMsgDlgButtons Shown;
        TMsgDlgBtn ShownDefault;
        TMsgDlgBtn Pressed;
        TQzButtonKind Result;
    } cases[] = {
        {{bkYes, bkNo}, bkYes, {mbYes, mbNo}, mbYes, mbNo, bkNo},
        {{bkOK, bkCancel}, bkCancel, {mbOK, mbCancel}, mbCancel, mbOK, bkOK},
        {{bkOK, bkCancel}, bkCancel, {mbOK, mbCancel}, mbCancel, mbCancel, bkCancel},
        {{}, bkOK, {mbOK}, mbOK, mbOK, bkOK},
        {{bkHelp, bkOK}, bkHelp, {mbOK}, mbOK, mbOK, bkOK},
        {{bkClose}, bkClose, {mbCancel}, mbCancel, mbCancel, bkClose},
        {{bkYes, bkNo}, bkOK, {mbYes, mbNo}, mbYes, mbYes, bkYes},
        {{bkAbort, bkRetry, bkIgnore}, bkRetry, {mbAbort, mbRetry, mbIgnore}, mbRetry, mbIgnore, bkIgnore},
    };
    for (const auto& c : cases) {
        FDialogs.AnswerMessage(c.Pressed);
        EXPECT_EQ(QzMsgPkg(mtConfirmation, "User", smDeleteImage, c.Kinds.data(), int(c.Kinds.size()) - 1, c.Default),
                  c.Result);
        EXPECT_TRUE(Last().Buttons == c.Shown);
        EXPECT_EQ(Last().DefaultButton, c.ShownDefault);
    }
}

} // namespace
