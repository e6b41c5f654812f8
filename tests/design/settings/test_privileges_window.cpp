// The privilege picker and the privileges editor as a user drives them:
// the Id chosen or kept, the search, the unique Ids, and Cancel giving the
// package back untouched and unmarked.

#include "design/reg/QzEditorDialogs.h"
#include "design/settings/Qzvtprivilege.h"
#include "design/settings/Qzvtprivileges.h"
#include "runtime/model/QzMemory.h"

#include "design/QzDesignWindowTest.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

#include <memory>

namespace {

class PrivilegesWindows : public TQzGuiTest {
protected:
    void SetUp() override
    {
        FForm = std::make_unique<TComponent>(nullptr);
        FPackage = new TQzPkgPrivileges(FForm.get());
        for (auto [id, text, access] : {std::tuple{1, "Read orders", qaR}, {2, "Edit orders", qaRW}, {7, "Reports", qaN}}) {
            TQzPkgPrivilegesItem* item = FPackage->Add(id);
            item->SetDescription(text);
            item->SetAccess(access);
        }
        FPackage->SetKey("old key");
        FPackage->SetModified(false);
    }

    static QStringList Rows(QWidget* w, int column)
    {
        QStringList rows;
        auto* list = TQzModalDriver::Find<QTreeWidget>(w, "Privileges");
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            rows << list->topLevelItem(i)->text(column);
        return rows;
    }

    static TQzModalDriver::TStep SelectRow(int row)
    {
        return [row](QWidget* w) {
            auto* list = TQzModalDriver::Find<QTreeWidget>(w, "Privileges");
            list->setCurrentItem(list->topLevelItem(row));
        };
    }

    AnsiString Contents() const
    {
        AnsiString text = FPackage->Key() + ";";
        for (int i = 0; i < FPackage->Count(); ++i) {
            const TQzPkgPrivilegesItem* item = FPackage->GetItems(i);
            text += IntToStr(item->Id()) + ":" + item->Description() + ":" + QzAccessText(item->Access()) + ";";
        }
        return text;
    }

    std::unique_ptr<TComponent> FForm;
    TQzPkgPrivileges* FPackage = nullptr;  // owned by the form
    TQzMarkedLog FMarks;
};

TEST_F(PrivilegesWindows, ThePickerGivesTheIdChosenAndCancelKeepsTheOldOne)
{
    struct Case {
        const char* Name;
        QString Search;
        int Row;          // -1: leave the selection as it opened
        bool Accept;
        Integer Expected;
    };
    const Case cases[] = {
        {"opens on the current one", "", -1, true, 2},
        {"a privilege picked", "", 3, true, 7},
        {"(None) picked", "", 0, true, TQzPrivilege::IdNone},
        {"cancelled", "", 1, false, 2},
        {"a search keeps the current one when it matches", "ORDER", -1, true, 2},
        {"else the first match is taken", "read", -1, true, 1},
        {"search by Id", "7", -1, true, 7},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        TQzPrivilege privilege;
        privilege.SetId(2);
        TQzModalDriver driver;
        driver.Then("shown", [](QWidget* w) {
            EXPECT_EQ(Rows(w, 2), QStringList({"(None)", "Read orders", "Edit orders", "Reports"}));
            EXPECT_EQ(Rows(w, 1), QStringList({"", "R", "R/W", "N"}));
        });
        if (!c.Search.isEmpty())
            driver.Type("EdSearch", c.Search);
        if (c.Row >= 0)
            driver.Then("select", SelectRow(c.Row));
        if (c.Accept)
            driver.Enter();
        else
            driver.Click("BtCancel");
        TFrPrivilege form;
        EXPECT_EQ(form.Execute(&privilege, FPackage), c.Accept ? 1 : 0);
        EXPECT_EQ(privilege.Id(), c.Expected);
    }
}

TEST_F(PrivilegesWindows, EditsReachThePackageOnOkAndCancelGivesItBack)
{
    const AnsiString before = Contents();
    for (bool accept : {false, true}) {
        SCOPED_TRACE(accept ? "Ok" : "Cancel");
        TQzTestDialogs dialogs;
        dialogs->AnswerMessage(mbYes);
        TQzModalDriver driver;
        driver.Then("key", [this](QWidget* w) {
                  auto* key = TQzModalDriver::Find<QLineEdit>(w, "EdKey");
                  EXPECT_EQ(key->text(), "old key");
                  key->setText("new key");
                  EXPECT_EQ(FPackage->Key(), "old key") << "the key waits for Ok";
              })
            .Click("BtAdd")
            .Then("described", [](QWidget* w) {
                EXPECT_EQ(Rows(w, 0), QStringList({"0", "1", "2", "7"})) << "the first free Id";
                auto* edit = TQzModalDriver::Find<QLineEdit>(w, "EdDescription");
                QTest::keyClicks(edit, "Admin");
                TQzModalDriver::Find<QComboBox>(w, "CBAccess")->setCurrentIndex(1);
                emit TQzModalDriver::Find<QComboBox>(w, "CBAccess")->activated(1);
                EXPECT_EQ(Rows(w, 3).front(), "Admin");
            })
            .Then("Reports", SelectRow(3))
            .Click("BtDelete")
            .Then("gone", [](QWidget* w) { EXPECT_EQ(Rows(w, 0), QStringList({"0", "1", "2"})); })
            .Click(accept ? "BtOk" : "BtCancel");
        TFrPrivileges form;
        EXPECT_EQ(form.Execute(FPackage), accept ? 1 : 0);
        EXPECT_EQ(Contents(), accept ? AnsiString("new key;1:Read orders:R;2:Edit orders:R/W;0:Admin:R;") : before);
        EXPECT_EQ(FMarks.Marked, accept ? std::vector<TComponent*>{FForm.get()} : std::vector<TComponent*>{});
        EXPECT_EQ(FPackage->GetModified(), accept);
    }
}

TEST_F(PrivilegesWindows, AnIdInUseIsRefusedNamingItsHolderAndAFreeOneIsTaken)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    TQzModalDriver driver;
    driver.Then("Read orders", SelectRow(0))
        .Type("EdId", "2")
        .Key(Qt::Key_Return)
        .Then("refused", [&](QWidget* w) {
            ASSERT_EQ(dialogs->CallsOf(TQzDialogKind::Message).size(), 1u);
            EXPECT_EQ(dialogs->Calls().back().Message.Text,
                      "The Id 2 is already used by the privilege \"Edit orders\": privilege Ids must be unique.");
            EXPECT_EQ(Rows(w, 0), QStringList({"1", "2", "7"}));
            EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdId")->text(), "1");
        })
        .Type("EdId", "5")
        .Key(Qt::Key_Return)
        .Then("renumbered", [](QWidget* w) { EXPECT_EQ(Rows(w, 0), QStringList({"2", "5", "7"})); })
        .Click("BtOk");
    TFrPrivileges form;
    EXPECT_EQ(form.Execute(FPackage), 1);
    ASSERT_NE(FPackage->FindId(5), nullptr);
    EXPECT_EQ(FPackage->FindId(5)->Description(), "Read orders");
    EXPECT_EQ(FPackage->FindId(1), nullptr);
}

TEST_F(PrivilegesWindows, WhereUsedAsksThePackagesManagerForThePrivilegesId)
{
    TQzEditorDialogRequest asked;
    TQzEditorDialogScope manager(TQzEditorDialog::Manager, [&](TQzEditorDialogRequest& r) {
        asked = r;
        return 0;
    });
    TQzModalDriver driver;
    driver.Then("Reports", SelectRow(2)).Click("BtWhereUsed").Click("BtCancel");
    TFrPrivileges form;
    form.Execute(FPackage);
    EXPECT_EQ(asked.Kind, 7) << "the packages manager's Privileges kind";
    EXPECT_EQ(asked.Value, "7");
}

}  // namespace
