#include "design/settings/QzPrivilegesLogic.h"

#include "rtl/Filer.h"
#include "rtl/SysUtils.h"

#include <algorithm>

namespace {

bool Contains(const AnsiString& text, const AnsiString& search)
{
    return AnsiUpperCase(text).find(AnsiUpperCase(search)) != std::string::npos;
}

std::string Contents(TQzPkgPrivileges& package)
{
    TWriter writer;
    package.xSaveToStream(&writer);
    return writer.Buffer() + "\n" + package.Description();
}

}  // namespace

std::vector<TQzPkgPrivilegesItem*> QzPrivilegesMatching(const TQzPkgPrivileges& package, const AnsiString& search)
{
    const AnsiString wanted = Trim(search);
    std::vector<TQzPkgPrivilegesItem*> items;
    for (int i = 0; i < package.Count(); ++i) {
        TQzPkgPrivilegesItem* item = package.GetItems(i);
        if (wanted.empty() || Contains(IntToStr(item->Id()), wanted) || Contains(QzPrivilegeCaption(*item), wanted))
            items.push_back(item);
    }
    std::sort(items.begin(), items.end(),
              [](const TQzPkgPrivilegesItem* a, const TQzPkgPrivilegesItem* b) { return a->Id() < b->Id(); });
    return items;
}

TQzPkgPrivilegesItem* QzAddPrivilege(TQzPkgPrivileges& package)
{
    const Integer id = package.UniqueId();
    TQzPkgPrivilegesItem* item = package.Add(id);
    item->SetDescription("Privilege " + IntToStr(id));
    return item;
}

void QzRenumberPrivilege(TQzPkgPrivileges& package, TQzPkgPrivilegesItem& item, const AnsiString& text)
{
    const AnsiString typed = Trim(text);
    Integer id = -1;
    if (typed.empty() || !TryStrToInt(typed, id) || id < 0)
        throw EQzPkgError("'" + typed + "' is not a privilege Id: give a number of 0 or more.");
    if (id == item.Id())
        return;
    if (const TQzPkgPrivilegesItem* other = package.FindId(id))
        throw EQzPkgError("The Id " + IntToStr(id) + " is already used by the privilege \"" +
                          QzPrivilegeCaption(*other) + "\": privilege Ids must be unique.");
    item.SetId(id);
}

AnsiString QzPrivilegeCaption(const TQzPkgPrivilegesItem& item)
{
    const AnsiString text = item.DisplayText();
    return text.empty() ? AnsiString("(no description)") : text;
}

TQzPrivilegesSnapshot::TQzPrivilegesSnapshot(TQzPkgPrivileges& package)
    : FPackage(package), FFileName(package.FileName()), FInitMode(package.InitMode()), FModified(package.GetModified())
{
    FCopy.Assign(&package);
}

bool TQzPrivilegesSnapshot::Changed() const
{
    return Contents(FPackage) != Contents(FCopy) ||
           FPackage.FileName() != FFileName || FPackage.InitMode() != FInitMode;
}

void TQzPrivilegesSnapshot::Restore()
{
    FPackage.Assign(&FCopy);
    FPackage.SetFileName(FFileName);
    FPackage.SetInitMode(FInitMode);
    FPackage.SetModified(FModified);
}
