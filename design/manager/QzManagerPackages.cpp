#include "design/manager/QzManagerPackages.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"

#include "rtl/StringList.h"
#include "rtl/SysUtils.h"

#include <algorithm>

std::vector<AnsiString> TQzRuntimePackages::PackageNames(TQzDlgManager kind) const
{
    TStringList list;
    switch (kind) {
    case TQzDlgManager::Labels:
    case TQzDlgManager::Texts:
    case TQzDlgManager::Messages:
        QzPkgStringsActives(&list);
        break;
    case TQzDlgManager::Images:
        QzPkgImagesActives(&list);
        break;
    default:
        return {};
    }
    std::vector<AnsiString> names;
    for (int i = 0; i < list.Count(); ++i)
        if (!list.StringRef(i).empty())
            names.push_back(list.StringRef(i));
    std::sort(names.begin(), names.end(), [](const AnsiString& a, const AnsiString& b) { return CompareText(a, b) < 0; });
    names.erase(std::unique(names.begin(), names.end(), [](const AnsiString& a, const AnsiString& b) { return SameText(a, b); }),
                names.end());
    return names;
}

TQzPkgStrings* TQzRuntimePackages::FindStrings(const AnsiString& pkgName) const
{
    return QzFindPkgStrings(pkgName);
}

TQzPkgImages* TQzRuntimePackages::FindImages(const AnsiString& pkgName) const
{
    return QzFindPkgImages(pkgName);
}

TQzPkgDisplay* TQzRuntimePackages::Display() const
{
    TQzCApplication* app = QzCApp();
    return app ? app->PkgDisplay() : nullptr;
}

TQzPkgPrivileges* TQzRuntimePackages::Privileges() const
{
    TQzCApplication* app = QzCApp();
    return app ? app->Privileges() : nullptr;
}

bool QzItemExists(const IQzManagerPackages& packages, TQzDlgManager kind, const AnsiString& pkgName,
                  const AnsiString& value)
{
    if (QzDlgManagerIsSet(kind)) {
        const TQzPkgDisplay* display = packages.Display();
        if (!display)
            return false;
        if (kind == TQzDlgManager::SetsBackGround)
            return display->SetsBackGround()->Find(value) != nullptr;
        if (kind == TQzDlgManager::SetsColor)
            return display->SetsColor()->Find(value) != nullptr;
        return display->SetsFont()->Find(value) != nullptr;
    }
    Integer id = 0;
    if (!TryStrToInt(Trim(value), id))
        return false;
    switch (kind) {
    case TQzDlgManager::Privileges: {
        const TQzPkgPrivileges* privileges = packages.Privileges();
        return privileges && privileges->FindId(id);
    }
    case TQzDlgManager::Images: {
        const TQzPkgImages* images = packages.FindImages(pkgName);
        return images && images->Images()->FindId(id);
    }
    case TQzDlgManager::Labels:
    case TQzDlgManager::Texts:
    case TQzDlgManager::Messages: {
        const TQzPkgStrings* strings = packages.FindStrings(pkgName);
        if (!strings)
            return false;
        if (kind == TQzDlgManager::Labels)
            return strings->Labels()->FindId(id) != nullptr;
        if (kind == TQzDlgManager::Texts)
            return strings->Texts()->FindId(id) != nullptr;
        return strings->Messages()->FindId(id) != nullptr;
    }
    default:
        return false;
    }
}
