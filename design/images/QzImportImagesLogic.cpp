#include "design/images/QzImportImagesLogic.h"

#include "runtime/model/QzPkgInfo.h"

Integer QzNextFreeId(const TQzPkgImagesImages& target, Integer n)
{
    if (n >= QzImportLastId)
        return QzImportLastId + 1;
    Integer id = n + 1;
    while (id <= QzImportLastId && target.FindId(id))
        ++id;
    return id;
}

Integer QzImportStartId(const TQzPkgImagesImages& target, Integer asked)
{
    return target.FindId(asked) ? QzNextFreeId(target, asked) : asked;
}

std::vector<Integer> QzImportPlanIds(const TQzPkgImagesImages& target, int count, Integer asked)
{
    std::vector<Integer> ids;
    if (count <= 0)
        return ids;
    ids.reserve(static_cast<size_t>(count));
    Integer id = QzImportStartId(target, asked);
    for (int i = 0; i < count; ++i) {
        // Past the last Id searched the next free one stays the same: only
        // the first image may take it.
        if (!ids.empty() && id == ids.back())
            throw EQzPkgError("No free image Id is left after " + IntToStr(ids.back()) + ": " + IntToStr(i) + " of " +
                              IntToStr(count) + " images would fit, so none was imported.");
        ids.push_back(id);
        id = QzNextFreeId(target, id);
    }
    return ids;
}

std::vector<Integer> QzImportImages(TQzPkgImagesImages& target, const std::vector<TQzPkgImagesImage*>& sources,
                                    Integer asked)
{
    const std::vector<Integer> ids = QzImportPlanIds(target, static_cast<int>(sources.size()), asked);
    if (ids.empty())
        return ids;
    target.CheckChange();
    for (Integer id : ids)
        target.CheckNewId(id);
    target.BeginUpdate();
    try {
        for (size_t i = 0; i < ids.size(); ++i)
            target.Add(ids[i])->Assign(sources[i]);
    } catch (...) {
        target.EndUpdate();
        throw;
    }
    target.EndUpdate();
    return ids;
}
