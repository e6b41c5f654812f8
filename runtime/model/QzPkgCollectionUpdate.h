#pragma once
// Holds a package collection's change notices back for a scope, however it
// is left, so that a run of changes is heard once.

#include "runtime/model/QzPkgCollection.h"

class TQzPkgCollectionUpdate {
public:
    explicit TQzPkgCollectionUpdate(TQzPkgCollection& items) : FItems(items) { FItems.BeginUpdate(); }
    ~TQzPkgCollectionUpdate() { FItems.EndUpdate(); }
    TQzPkgCollectionUpdate(const TQzPkgCollectionUpdate&) = delete;
    TQzPkgCollectionUpdate& operator=(const TQzPkgCollectionUpdate&) = delete;

private:
    TQzPkgCollection& FItems;
};
