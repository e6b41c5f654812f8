#pragma once
// Copying images from another images package into the edited one: the
// imported pictures take the free Ids from the first one asked for, in the
// order of their source Ids; an Id the target already has is never reused.

#include "runtime/model/QzPkgImages.h"

#include <vector>

// The Ids are searched up to this one; past it every image gets the next.
inline constexpr Integer QzImportLastId = 1000000;

// The first Id after n that the target has no image of; QzImportLastId + 1
// when every Id up to QzImportLastId is taken (at once when n + 1 is
// already past it).
Integer QzNextFreeId(const TQzPkgImagesImages& target, Integer n);

// The Id the first imported image takes when the user asks for `asked`:
// asked itself when free, else the next free one after it.
Integer QzImportStartId(const TQzPkgImagesImages& target, Integer asked);

// The Ids `count` imported images take from `asked` on. Raises EQzPkgError
// when the free Ids run out before every image has one (two images would
// share QzImportLastId + 1).
std::vector<Integer> QzImportPlanIds(const TQzPkgImagesImages& target, int count, Integer asked);

// Adds a copy of each source image to the target under the planned Ids;
// returns them, in the order of `sources`. Checks everything first (the
// Ids, whether the target may change), so a refused import adds nothing.
std::vector<Integer> QzImportImages(TQzPkgImagesImages& target, const std::vector<TQzPkgImagesImage*>& sources,
                                    Integer asked);
