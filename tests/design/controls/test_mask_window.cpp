// The mask editor driven as a user drives it: what reaches the mask on Ok,
// that Cancel leaves it alone, and the rules of its controls.

#include "design/controls/Qzvtmask.h"
#include "runtime/model/QzMask.h"

#include "support/gui/QzModalDriver.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

#include <memory>

namespace {

class MaskWindow : public TQzGuiTest {
protected:
    static std::unique_ptr<TQzMask> NewMask(TQzDataType type, const AnsiString& text, Integer size = 0)
    {
        auto mask = std::make_unique<TQzMask>();
        mask->SetDataType(type);
        mask->SetText(text);
        mask->SetSize(size);
        return mask;
    }

    // Runs the editor on mask with the driver's steps; returns Execute's answer.
    static TModalResult Run(TQzMask& mask, TQzModalDriver& driver)
    {
        TFrMask form;
        form.SetMask(&mask);
        const TModalResult result = form.Execute();
        EXPECT_TRUE(driver.Finished());
        return result;
    }

    static TQzModalDriver::TStep ChooseType(TQzDataType type)
    {
        return [type](QWidget* w) {
            auto* list = TQzModalDriver::Find<QComboBox>(w, "CBDataType");
            list->setCurrentIndex(list->findData(static_cast<int>(type)));
        };
    }

    template <typename T>
    static T* Get(QWidget* w, const char* name)
    {
        return TQzModalDriver::Find<T>(w, name);
    }
};

struct Snapshot {
    TQzDataType Type;
    TQzMaskTake Take;
    Integer Size, Decimals;
    TQzDateYear DateYear;
    AnsiString Text;
    explicit Snapshot(const TQzMask& m)
        : Type(m.DataType()), Take(m.Take()), Size(m.Size()), Decimals(m.GetDecimals()), DateYear(m.GetDateYear()),
          Text(m.Text())
    {
    }
    bool operator==(const Snapshot&) const = default;
};

TEST_F(MaskWindow, OkStoresWhatTheControlsBuild)
{
    struct Case {
        const char* What;
        TQzDataType Type;
        const char* Text;
        std::function<void(TQzModalDriver&)> Steps;
        TQzDataType StoredType;
        const char* Stored;
    };
    const Case cases[] = {
        {"a box clicked", qdtString, "<sadwu",
         [](TQzModalDriver& d) { d.SetChecked("CBPassword", true); }, qdtString, "<sadwu*"},
        {"default options typed in any order", qdtFloat, ">",
         [](TQzModalDriver& d) {
             d.SetText("EdOptions", "&.>-").Then("default", [](QWidget* w) {
                 EXPECT_EQ(Get<QLabel>(w, "LabelInfo")->text(), "<Default Mask>");
             });
         },
         qdtFloat, ""},
        {"date options typed out of order", qdtDateTime, "",
         [](TQzModalDriver& d) { d.SetText("EdOptions", "").Type("EdOptions", "dm>"); }, qdtDateTime, ">dm"},
        {"a mask text and its space", qdtString, "",
         [](TQzModalDriver& d) { d.SetText("EdMaskText", "(###)").SetText("EdSpace", "_"); }, qdtString,
         "<sadw;(###);_"},
        {"another data type", qdtString, "<u",
         [](TQzModalDriver& d) { d.Then("integer", ChooseType(qdtInteger)).SetChecked("CBFillZeros", true); },
         qdtInteger, ">0"},
        {"twelve hours check AM/PM", qdtDateTime, "<hn",
         [](TQzModalDriver& d) {
             d.SetChecked("CB12", true).Then("AM/PM follows", [](QWidget* w) {
                 EXPECT_TRUE(Get<QCheckBox>(w, "CBAmPm")->isChecked());
                 EXPECT_FALSE(Get<QCheckBox>(w, "CBAmPm")->isEnabled());
                 EXPECT_TRUE(Get<QCheckBox>(w, "CBAutoAdjust12H")->isEnabled());
             });
         },
         qdtDateTime, "<hnao"},
        {"a duration clears the date", qdtDateTime, "<dmyh",
         [](TQzModalDriver& d) {
             d.Then("duration 3", [](QWidget* w) { Get<QComboBox>(w, "CBDuration")->setCurrentIndex(3); })
                 .Then("date disabled", [](QWidget* w) {
                     EXPECT_FALSE(Get<QCheckBox>(w, "CBDay")->isEnabled());
                     EXPECT_FALSE(Get<QCheckBox>(w, "CB12")->isEnabled());
                 });
         },
         qdtDateTime, "<hc"},
        {"a duration undone restores the date", qdtDateTime, "<dmyh",
         [](TQzModalDriver& d) {
             d.Then("duration 3", [](QWidget* w) { Get<QComboBox>(w, "CBDuration")->setCurrentIndex(3); })
                 .Then("none", [](QWidget* w) { Get<QComboBox>(w, "CBDuration")->setCurrentIndex(0); });
         },
         qdtDateTime, "<dmyh"},
        {"an example", qdtInteger, "",
         [](TQzModalDriver& d) {
             d.Click("SBExamples")
                 .Then("Telephone", [](QWidget* w) { Get<QListWidget>(w, "LBExamples")->setCurrentRow(1); })
                 .Click("BtOk");
         },
         qdtString, "<d;(###)###-####"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        auto owned = NewMask(c.Type, c.Text, 4);
        TQzMask& mask = *owned;
        TQzModalDriver driver;
        c.Steps(driver);
        driver.Click("BtOk");
        EXPECT_EQ(Run(mask, driver), mrOk);
        EXPECT_EQ(mask.DataType(), c.StoredType);
        EXPECT_EQ(mask.Text(), c.Stored);
    }
}

TEST_F(MaskWindow, CancelAndEscapeLeaveTheMaskAsItWas)
{
    for (const char* how : {"cancel", "escape"}) {
        auto owned = NewMask(qdtString, "<sadwu;(###);*", 5);
        TQzMask& mask = *owned;
        mask.SetTake(mtText);
        const Snapshot before(mask);
        TQzModalDriver driver;
        driver.SetChecked("CBPassword", true)
            .SetText("EdSize", "9")
            .SetText("EdMaskText", "##")
            .Then("date", ChooseType(qdtDateTime))
            .SetChecked("CBHour", true);
        if (std::string(how) == "cancel")
            driver.Click("BtCancel");
        else
            driver.Escape();
        EXPECT_EQ(Run(mask, driver), mrCancel) << how;
        EXPECT_TRUE(Snapshot(mask) == before) << how << ": " << mask.Text();
    }
}

TEST_F(MaskWindow, OpeningShowsTheMaskAndNoneOrMemoMasksOpenNothing)
{
    for (TQzDataType type : {qdtNone, qdtMemo}) {
        auto owned = NewMask(type, "<m");
        TQzMask& mask = *owned;
        TFrMask form;
        form.SetMask(&mask);
        EXPECT_EQ(form.Execute(), mrNone);
        EXPECT_FALSE(form.isVisible());
    }
    auto owned = NewMask(qdtFloat, "%+*z.&k$0@3", 12);
    TQzMask& mask = *owned;
    mask.SetTake(mtRawText);
    mask.SetDecimals(4);
    TQzModalDriver driver;
    driver
        .Then("shown",
              [](QWidget* w) {
                  EXPECT_EQ(Get<QLineEdit>(w, "EdOptions")->text(), "%+*z.&k$0@3");
                  EXPECT_EQ(Get<QLabel>(w, "LabelInfo")->text(), "<Custom Mask>");
                  EXPECT_EQ(Get<QLineEdit>(w, "EdSize")->text(), "12");
                  EXPECT_EQ(Get<QComboBox>(w, "CBDecimals")->currentText(), "4");
                  EXPECT_TRUE(Get<QRadioButton>(w, "RGCientific3")->isChecked());
                  EXPECT_TRUE(Get<QRadioButton>(w, "RGAcceptsNegatives2")->isChecked());
                  EXPECT_TRUE(Get<QRadioButton>(w, "RGAlign1")->isChecked());
                  // Precision and date year only mean something while data is taken.
                  EXPECT_FALSE(Get<QComboBox>(w, "CBDecimals")->isEnabled());
                  EXPECT_FALSE(Get<QComboBox>(w, "CBDateYear")->isEnabled());
              })
        .Click("BtCancel");
    EXPECT_EQ(Run(mask, driver), mrCancel);
}

TEST_F(MaskWindow, TypedOptionsRefuseRepeatsAndStrangersAndSetTheBoxes)
{
    auto owned = NewMask(qdtString, "");
    TQzMask& mask = *owned;
    TQzModalDriver driver;
    driver.Type("EdOptions", "ss+ul<>")
        .Then("typed", [](QWidget* w) {
            EXPECT_EQ(Get<QLineEdit>(w, "EdOptions")->text(), "su<");
            EXPECT_TRUE(Get<QCheckBox>(w, "CBAcceptsSymbols")->isChecked());
            EXPECT_FALSE(Get<QCheckBox>(w, "CBAcceptsLetters")->isChecked());
            EXPECT_TRUE(Get<QRadioButton>(w, "RGCase1")->isChecked());
        })
        .Click("BtOk");
    EXPECT_EQ(Run(mask, driver), mrOk);
    EXPECT_EQ(mask.Text(), "<su");
}

TEST_F(MaskWindow, EachGroupRemembersItsOptionsWhileTheTypeChanges)
{
    auto owned = NewMask(qdtString, "<u");
    TQzMask& mask = *owned;
    TQzModalDriver driver;
    driver.Then("integer", ChooseType(qdtInteger))
        .Then("integer default", [](QWidget* w) { EXPECT_EQ(Get<QLineEdit>(w, "EdOptions")->text(), ">"); })
        .SetChecked("CBNoZero", true)
        .Then("string", ChooseType(qdtString))
        .Then("string again", [](QWidget* w) { EXPECT_EQ(Get<QLineEdit>(w, "EdOptions")->text(), "<u"); })
        .Then("integer", ChooseType(qdtInteger))
        .Then("integer again", [](QWidget* w) { EXPECT_EQ(Get<QLineEdit>(w, "EdOptions")->text(), ">z"); })
        .Click("BtOk");
    EXPECT_EQ(Run(mask, driver), mrOk);
    EXPECT_EQ(mask.Text(), ">z");
}

TEST_F(MaskWindow, AnEmptySizeIsRefusedAndTheWindowStaysOpen)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    auto owned = NewMask(qdtString, "", 3);
    TQzMask& mask = *owned;
    TQzModalDriver driver;
    driver.SetText("EdSize", "")
        .Click("BtOk")
        .Then("still open", [](QWidget* w) { EXPECT_TRUE(w->inherits("TFrMask")); })
        .SetText("EdSize", "7")
        .Click("BtOk");
    EXPECT_EQ(Run(mask, driver), mrOk);
    EXPECT_EQ(mask.Size(), 7);
    ASSERT_EQ(dialogs->Calls().size(), 1u);
    EXPECT_EQ(dialogs->Calls()[0].Message.Type, mtError);
}

TEST_F(MaskWindow, TheTesterMarksInputsAcceptedOrRejected)
{
    auto owned = NewMask(qdtString, "<d;(###)###-####");
    TQzMask& mask = *owned;
    TQzModalDriver driver;
    driver.Type("EdTest", "555123")
        .Then("verdict", [](QWidget* w) {
            EXPECT_TRUE(Get<QLabel>(w, "LabTestVerdict")->text().startsWith("Accepted")) 
                << Get<QLabel>(w, "LabTestVerdict")->text().toStdString();
            auto* samples = Get<QListWidget>(w, "LBSamples");
            int accepted = 0, rejected = 0;
            for (int i = 0; i < samples->count(); ++i)
                (samples->item(i)->data(Qt::UserRole).toBool() ? accepted : rejected)++;
            EXPECT_GT(accepted, 0);
            EXPECT_GT(rejected, 0);
        })
        .Then("letters only", [](QWidget* w) {
            Get<QLineEdit>(w, "EdMaskText")->setText("");
            Get<QLineEdit>(w, "EdTest")->setText("12a");
            EXPECT_TRUE(Get<QLabel>(w, "LabTestVerdict")->text().startsWith("Rejected"));
        })
        .Click("BtCancel");
    EXPECT_EQ(Run(mask, driver), mrCancel);
}

}  // namespace
