#pragma once
// The class of a property path ("TQzListBox" . "Items[2].Caption") as the
// registered classes and their published properties tell it, cached per
// class and path (item indexes left out), so that a project's worth of
// lines costs one lookup per distinct path.

#include "rtl/TypInfo.h"

#include <string_view>
#include <unordered_map>

class TQzPropertyTypes {
public:
    // The class of the object that path denotes, starting from the
    // registered class className: each part a published class-typed
    // property, "Name[i]" an item of a collection property (the item class
    // is learnt once from a component of className made for the purpose).
    // nullptr when the class is not registered, a part is not a published
    // property of a class type, or the component cannot be made. A part
    // that is not a name (an empty part, a bad index) raises EPropertyError.
    const TMetaClass* Resolve(std::string_view className, std::string_view path);

    // How many distinct (class, path) pairs were resolved: tests check
    // that lines are not resolved twice.
    std::size_t CacheSize() const { return FCache.size(); }
    void Clear() { FCache.clear(); }

private:
    const TMetaClass* Walk(std::string_view className, std::string_view path);
    std::unordered_map<std::string, const TMetaClass*> FCache;
    std::string FKey;   // kept, so a lookup allocates nothing
};
