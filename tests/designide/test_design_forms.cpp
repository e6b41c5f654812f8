// What the designer reads of the runtime's controls without a window: the
// look chosen by a class's name and what a form's menu bar shows.

#include "designide/forms/QzControlInfo.h"
#include "designide/forms/QzMenuBar.h"

#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzMenus.h"

#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

TEST(QzControlLook, LookChosenByTheMostSpecificNamePart)
{
    const std::pair<const char*, TQzLook> cases[] = {
        {"TQzDBCheckBox", TQzLook::CheckBox}, {"TQzDBEdit", TQzLook::Edit},        {"TQzRichEdit", TQzLook::Memo},
        {"TQzBitBtn", TQzLook::Button},       {"TQzRadioGroup", TQzLook::GroupBox}, {"TQzTabSheet", TQzLook::TabSheet},
        {"TQzPkgImage", TQzLook::Image},      {"TQzRadioButton", TQzLook::RadioButton}, {"TMyTimer", TQzLook::Box},
    };
    for (const auto& [name, look] : cases)
        EXPECT_EQ(QzLookOf(name), look) << name;
}

TEST(QzMenuBar, TheBarShowsVisibleTopLevelItemsWithoutTheirMnemonicMarks)
{
    RegisterQzComponentClasses();
    TComponent owner(nullptr);
    auto* menu = new TQzMainMenu(&owner);
    for (const char* caption : {"&File", "Hidden", "Save && Exit", ""}) {
        auto* item = new TQzMenuItem(&owner);
        item->SetName(AnsiString("Item") + IntToStr(menu->Items()->Count()));
        item->SetCaption(caption);
        item->SetVisible(std::string(caption) != "Hidden");
        menu->Items()->Add(item);
        auto* sub = new TQzMenuItem(&owner);   // sub-items stay in their menu
        sub->SetCaption("Sub");
        item->Add(sub);
    }
    EXPECT_EQ(QzMenuBarCaptions(menu), (std::vector<AnsiString>{"&File", "Save && Exit", "Item3"}));
    const std::pair<const char*, const char*> marks[] = {
        {"&File", "File"}, {"Save && Exit", "Save & Exit"}, {"E&xit&", "Exit"}, {"&&&Go", "&Go"}, {"", ""}};
    for (const auto& [caption, shown] : marks)
        EXPECT_EQ(QzStripMnemonic(caption), shown) << caption;
}
