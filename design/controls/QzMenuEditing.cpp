#include "design/controls/QzMenuEditing.h"

#include "runtime/model/QzMemory.h"

#include "designide/DesignIntf.h"

#include <algorithm>

TQzMenuItem* QzMenuListOf(TQzMenuItem* root, const TQzMenuPath& path)
{
    if (!root || path.empty())
        return nullptr;
    TQzMenuItem* list = root;
    for (size_t i = 0; i + 1 < path.size(); ++i) {
        if (path[i] < 0 || path[i] >= list->Count())
            return nullptr;
        list = list->Items(path[i]);
    }
    return list;
}

TQzMenuItem* QzMenuItemAt(TQzMenuItem* root, const TQzMenuPath& path)
{
    TQzMenuItem* list = QzMenuListOf(root, path);
    if (!list || path.back() < 0 || path.back() >= list->Count())
        return nullptr;
    return list->Items(path.back());
}

bool QzMenuPathValid(TQzMenuItem* root, const TQzMenuPath& path)
{
    TQzMenuItem* list = QzMenuListOf(root, path);
    return list && path.back() >= 0 && path.back() <= list->Count();
}

TQzMenuItem* QzMenuInsertNew(TComponent* menu, TQzMenuItem* root, const TQzMenuPath& path, IDesigner* designer,
                             const AnsiString& caption)
{
    if (!QzMenuPathValid(root, path))
        return nullptr;
    TComponent* owner = menu->Owner();
    const AnsiString className = TQzMenuItem::ClassInfo()->ClassName();
    auto* item = new TQzMenuItem(owner);
    item->SetName(designer ? designer->UniqueName(className) : QzUniqueComponentName(owner, className));
    item->SetCaption(caption);
    QzMenuListOf(root, path)->Insert(path.back(), item);
    return item;
}

TQzMenuPath QzMenuDelete(TQzMenuItem* root, const TQzMenuPath& path)
{
    TQzMenuItem* item = QzMenuItemAt(root, path);
    if (!item)
        return path;
    TQzMenuItem* list = QzMenuListOf(root, path);
    list->Remove(item);
    delete item;
    TQzMenuPath next = path;
    // The next item slides into the place; past the last, the previous one
    // (the slot when the list is empty now).
    if (next.back() >= list->Count() && next.back() > 0)
        --next.back();
    return next;
}

bool QzMenuMove(TQzMenuItem* root, TQzMenuPath& path, int delta)
{
    TQzMenuItem* item = QzMenuItemAt(root, path);
    if (!item)
        return false;
    const int to = path.back() + delta;
    if (to < 0 || to >= QzMenuListOf(root, path)->Count())
        return false;
    QzMenuListOf(root, path)->Insert(to, item);
    path.back() = to;
    return true;
}

TQzMenuPath QzMenuPathOf(TQzMenuItem* root, const TQzMenuItem* item)
{
    TQzMenuPath path;
    for (const TQzMenuItem* at = item; at && at != root; at = at->Parent()) {
        TQzMenuItem* parent = at->Parent();
        if (!parent)
            return {};
        path.insert(path.begin(), parent->IndexOf(at));
    }
    return item && item != root ? path : TQzMenuPath{};
}

bool QzMenuMoveTo(TQzMenuItem* root, TQzMenuPath& path, const TQzMenuPath& to)
{
    TQzMenuItem* item = QzMenuItemAt(root, path);
    TQzMenuItem* list = QzMenuListOf(root, to);
    if (!item || !list || !QzMenuPathValid(root, to) || item->Contains(list))
        return false;
    int index = to.back();
    // Within its own list the item's old place no longer counts.
    if (list == item->Parent() && index > path.back())
        --index;
    if (list == item->Parent() && index >= list->Count())
        index = list->Count() - 1;
    list->Insert(index, item);
    path = QzMenuPathOf(root, item);
    return true;
}

bool QzMenuIndent(TQzMenuItem* root, TQzMenuPath& path)
{
    TQzMenuItem* item = QzMenuItemAt(root, path);
    if (!item || path.back() == 0)
        return false;
    TQzMenuItem* before = QzMenuListOf(root, path)->Items(path.back() - 1);
    before->Insert(before->Count(), item);
    path = QzMenuPathOf(root, item);
    return true;
}

bool QzMenuOutdent(TQzMenuItem* root, TQzMenuPath& path)
{
    TQzMenuItem* item = QzMenuItemAt(root, path);
    if (!item || path.size() < 2)
        return false;
    TQzMenuPath parentPath(path.begin(), path.end() - 1);
    TQzMenuItem* grand = QzMenuListOf(root, parentPath);
    grand->Insert(parentPath.back() + 1, item);
    path = QzMenuPathOf(root, item);
    return true;
}

AnsiString QzMenuItemText(const TQzMenuItem* item)
{
    if (!item)
        return {};
    if (const TQzMemoryLabel* label = item->Label(); label && label->Id() >= 0) {
        const AnsiString text = label->Text();
        if (!text.empty())
            return text;
    }
    return item->Caption();
}
