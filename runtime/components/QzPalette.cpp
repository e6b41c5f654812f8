#include "runtime/components/QzPalette.h"

#include "rtl/SysUtils.h"

#include <initializer_list>

namespace {

struct TPage {
    const char* Name;
    std::uint32_t Color;
};

constexpr TPage Standard{"Qz Standard", 0x2F5F9F};
constexpr TPage Additional{"Qz Additional", 0x2E7D32};
constexpr TPage DataControls{"Qz Data Controls", 0xB35A00};
constexpr TPage Editors{"Qz Editors", 0x6A3D9A};
constexpr const TPage* Pages[] = {&Standard, &Additional, &DataControls, &Editors};

struct TButton {
    const char* ClassName;
    TQzPaletteGlyph Glyph;
    const char* Letters;
};

std::vector<TQzPaletteEntry> Table()
{
    using G = TQzPaletteGlyph;
    std::vector<TQzPaletteEntry> list;
    auto page = [&list](const TPage& p, std::initializer_list<TButton> buttons) {
        for (const TButton& b : buttons)
            list.push_back({p.Name, b.ClassName, b.Glyph, b.Letters});
    };
    page(Standard, {
                       {"TQzCApplication", G::Application, "APP"}, {"TQzCForm", G::Form, "FRM"},
                       {"TQzMainMenu", G::MenuBar, "MM"},          {"TQzPopupMenu", G::PopupMenu, "PM"},
                       {"TQzLabel", G::Text, "LBL"},               {"TQzEdit", G::Edit, "ED"},
                       {"TQzComboBox", G::Combo, "CB"},            {"TQzListBox", G::List, "LB"},
                       {"TQzMemo", G::Memo, "MEM"},                {"TQzRichEdit", G::Memo, "RE"},
                       {"TQzImage", G::Image, "IMG"},              {"TQzFocusImage", G::Image, "FI"},
                       {"TQzCheckBox", G::Check, "CHK"},           {"TQzRadioButton", G::Radio, "RB"},
                       {"TQzGroupBox", G::Group, "GB"},            {"TQzRadioGroup", G::Radio, "RG"},
                       {"TQzPanel", G::Panel, "PNL"},              {"TQzScrollBox", G::ScrollBox, "SB"},
                       {"TQzPageControl", G::Tabs, "PC"},          {"TQzBitBtn", G::Button, "BTN"},
                       {"TQzSpeedButton", G::SpeedButton, "SPB"},  {"TQzPkgImage", G::Image, "PI"},
                       {"TQzShape", G::Shape, "SHP"},              {"TQzUpDown", G::UpDown, "UD"},
                   });
    page(Additional, {
                         {"TQzPkgImages", G::Package, "PKI"},     {"TQzPkgStrings", G::Package, "PKS"},
                         {"TQzPkgVars", G::Package, "PKV"},       {"TQzMemoBar", G::ToolBar, "MB"},
                         {"TQzRichEditBar", G::ToolBar, "REB"},   {"TQzImageBar", G::ToolBar, "IB"},
                         {"TQzStatusBar", G::StatusBar, "STB"},   {"TQzSplitter", G::Splitter, "SPL"},
                         {"TQzProgressBar", G::Progress, "PRG"},  {"TQzTimer", G::Clock, "TMR"},
                         {"TQzThreadTimer", G::Clock, "TT"},      {"TQzImageForm", G::Form, "IF"},
                         {"TQzMoveForm", G::Form, "MF"},          {"TQzPanelMenu", G::MenuBar, "PMN"},
                         {"TQzOutLookBar", G::Outlook, "OLB"},    {"TQzPkgPrivileges", G::Package, "PKP"},
                         {"TQzLBPrivileges", G::List, "LBP"},     {"TQzSetsGroup", G::Group, "SG"},
                         {"TQzRuler", G::Ruler, "RUL"},           {"TQzCBuffer", G::Buffer, "BUF"},
                         {"TQzFontComboBox", G::Combo, "FCB"},    {"TQzFontListBox", G::List, "FLB"},
                         {"TQzExtScrollBar", G::ScrollBar, "ESB"}, {"TQzCFrame", G::Frame, "FRA"},
                     });
    page(DataControls, {
                           {"TQzDbLabel", G::Text, "LBL"},           {"TQzDbEdit", G::Edit, "ED"},
                           {"TQzDbComboBox", G::Combo, "CB"},        {"TQzDbListBox", G::List, "LB"},
                           {"TQzDbMemo", G::Memo, "MEM"},            {"TQzDbRichEdit", G::Memo, "RE"},
                           {"TQzDbImage", G::Image, "IMG"},          {"TQzDbFocusImage", G::Image, "FI"},
                           {"TQzDbCheckBox", G::Check, "CHK"},       {"TQzDbRadioGroup", G::Radio, "RG"},
                           {"TQzDbPageControl", G::Tabs, "PC"},      {"TQzDbNavigator", G::Navigator, "NAV"},
                           {"TQzDbBitBtn", G::Button, "BTN"},        {"TQzDbSpeedButton", G::SpeedButton, "SPB"},
                           {"TQzDbPkgImage", G::Image, "PI"},
                       });
    page(Editors, {
                      {"TQzLBSetsColor", G::List, "LSC"},       {"TQzCBSetsColor", G::Combo, "CSC"},
                      {"TQzLBSetsBackGround", G::List, "LSB"},  {"TQzCBSetsBackGround", G::Combo, "CSB"},
                      {"TQzLBSetsFont", G::List, "LSF"},        {"TQzCBSetsFont", G::Combo, "CSF"},
                      {"TQzLBPkgImages", G::List, "LPI"},       {"TQzCBPkgImages", G::Combo, "CPI"},
                      {"TQzLBColors", G::List, "LCL"},          {"TQzCBColors", G::Combo, "CCL"},
                      {"TQzCBPrinters", G::Combo, "PRN"},       {"TQzPkgImagesAdd", G::Package, "ADD"},
                      {"TQzPkgImagesDesignRgn", G::Shape, "RGN"},
                  });
    return list;
}

}  // namespace

const std::vector<TQzPaletteEntry>& QzPaletteClasses()
{
    static const std::vector<TQzPaletteEntry> entries = Table();
    return entries;
}

std::vector<AnsiString> QzPalettePages()
{
    std::vector<AnsiString> names;
    for (const TPage* page : Pages)
        names.push_back(page->Name);
    return names;
}

const TQzPaletteEntry* QzFindPaletteEntry(const AnsiString& className)
{
    for (const TQzPaletteEntry& entry : QzPaletteClasses())
        if (SameText(entry.ClassName, className))
            return &entry;
    return nullptr;
}

AnsiString QzPalettePage(const AnsiString& className)
{
    const TQzPaletteEntry* entry = QzFindPaletteEntry(className);
    return entry ? entry->Page : "";
}

std::uint32_t QzPalettePageColor(const AnsiString& page)
{
    for (const TPage* p : Pages)
        if (p->Name == page)
            return p->Color;
    return 0;
}
