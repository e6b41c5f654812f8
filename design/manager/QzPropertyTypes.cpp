#include "design/manager/QzPropertyTypes.h"

#include "runtime/model/QzRegistry.h"

#include "rtl/Collection.h"
#include "rtl/Component.h"
#include "rtl/SysUtils.h"

#include <memory>
#include <vector>

namespace {

// One part of a property path: "Caption", or "Items[2]" (a collection
// item; the index itself does not change the class).
struct TPathPart {
    std::string_view Name;
    bool Item = false;
};

std::vector<TPathPart> SplitPath(std::string_view path)
{
    std::vector<TPathPart> parts;
    if (path.empty())
        return parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t dot = path.find('.', start);
        std::string_view part = path.substr(start, dot == std::string_view::npos ? std::string_view::npos : dot - start);
        TPathPart p;
        const std::size_t open = part.find('[');
        if (open != std::string_view::npos) {
            const std::string_view index = part.substr(open + 1);
            bool digits = index.size() >= 2 && index.back() == ']';
            for (std::size_t i = 0; digits && i + 1 < index.size(); ++i)
                digits = index[i] >= '0' && index[i] <= '9';
            if (!digits)
                throw EPropertyError("Bad item index in property path: " + AnsiString(path));
            part = part.substr(0, open);
            p.Item = true;
        }
        if (part.empty())
            throw EPropertyError("Empty part in property path: " + AnsiString(path));
        p.Name = part;
        parts.push_back(p);
        if (dot == std::string_view::npos)
            break;
        start = dot + 1;
    }
    return parts;
}

// The class of a class-typed published property, or nullptr.
const TMetaClass* PropertyClass(const TMetaClass* cls, std::string_view name)
{
    const TPropInfo* prop = cls->FindProperty(AnsiString(name));
    if (!prop || !prop->PropType || prop->PropType->Kind != tkClass)
        return nullptr;
    return prop->PropType->ClassType;
}

// The item class of the collection that parts[0..last] lead to from a
// component of class root: only a live collection knows it, so one
// component is made for the purpose (its packages join no registry) and
// freed at once.
const TMetaClass* ItemClassOf(const TMetaClass* root, const std::vector<TPathPart>& parts, std::size_t last)
{
    if (!root->CanCreate())
        return nullptr;
    try {
        TQzDetachedPkgs detached;
        std::unique_ptr<TComponent> sample(root->Create(nullptr));
        TObject* obj = sample.get();
        for (std::size_t i = 0; i <= last && obj; ++i) {
            obj = GetObjectProp(obj, RequirePropInfo(obj, AnsiString(parts[i].Name)));
            if (!parts[i].Item)
                continue;
            auto* collection = dynamic_cast<TCollection*>(obj);
            if (!collection)
                return nullptr;
            if (i == last)
                return collection->ItemClass();
            obj = collection->Count() > 0 ? collection->Items(0) : collection->Add();
        }
    } catch (const std::exception&) {
        // A class that cannot be made here (an application object while
        // the project has one) denotes nothing: its lines never match.
    }
    return nullptr;
}

void AppendLower(std::string& out, std::string_view s)
{
    for (char c : s)
        out += (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

const TMetaClass* TQzPropertyTypes::Resolve(std::string_view className, std::string_view path)
{
    // Indexes do not change the class, so "Items[2]" and "Items[7]" share one entry.
    FKey.clear();
    AppendLower(FKey, className);
    FKey += '|';
    bool inIndex = false;
    bool badIndex = false;
    for (const char c : path) {
        if (c == '[' || c == ']') {
            inIndex = c == '[';
        } else if (inIndex) {
            badIndex = badIndex || c < '0' || c > '9';
            continue;
        }
        FKey += (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
    }
    if (badIndex)
        return Walk(className, path);   // raises, naming the path
    const auto found = FCache.find(FKey);
    if (found != FCache.end())
        return found->second;
    const TMetaClass* cls = Walk(className, path);
    FCache.emplace(FKey, cls);
    return cls;
}

const TMetaClass* TQzPropertyTypes::Walk(std::string_view className, std::string_view path)
{
    const std::vector<TPathPart> parts = SplitPath(path);
    const TMetaClass* root = GetClass(AnsiString(className));
    const TMetaClass* cls = root;
    for (std::size_t i = 0; cls && i < parts.size(); ++i) {
        cls = PropertyClass(cls, parts[i].Name);
        if (cls && parts[i].Item)
            cls = cls->InheritsFrom(TCollection::ClassInfo()) ? ItemClassOf(root, parts, i) : nullptr;
    }
    return cls;
}
