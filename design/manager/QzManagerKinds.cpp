#include "design/manager/QzManagerKinds.h"

#include "rtl/SysUtils.h"

namespace {

const std::array<TQzDlgManagerInfo, QzDlgManagerCount> Infos{{
    {TQzDlgManager::SetsBackGround, "SetsBackGround", "TQzSetBackGround", false},
    {TQzDlgManager::SetsColor, "SetsColor", "TQzSetColor", false},
    {TQzDlgManager::SetsFont, "SetsFont", "TQzSetFont", false},
    {TQzDlgManager::Images, "Images", "TQzMemoryImage", true},
    {TQzDlgManager::Labels, "Labels", "TQzMemoryLabel", true},
    {TQzDlgManager::Texts, "Texts", "TQzMemoryText", true},
    {TQzDlgManager::Messages, "Messages", "TQzMemoryMessage", true},
    {TQzDlgManager::Privileges, "Privileges", "TQzPrivilege", false},
}};

}  // namespace

const TQzDlgManagerInfo& QzDlgManagerInfo(TQzDlgManager kind)
{
    return Infos.at(static_cast<std::size_t>(kind));
}

const std::array<TQzDlgManagerInfo, QzDlgManagerCount>& QzDlgManagerInfos()
{
    return Infos;
}

bool QzDlgManagerIsSet(TQzDlgManager kind)
{
    return kind == TQzDlgManager::SetsBackGround || kind == TQzDlgManager::SetsColor || kind == TQzDlgManager::SetsFont;
}

bool QzDlgManagerFromName(std::string_view name, TQzDlgManager& kind)
{
    for (const TQzDlgManagerInfo& info : Infos)
        if (SameText(AnsiString(name), info.Name)) {
            kind = info.Kind;
            return true;
        }
    return false;
}
