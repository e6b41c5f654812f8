#pragma once
// A binary component stream held as a tree of components, each with its
// header, its properties as raw values and the components streamed inside
// it. Copying and pasting cut and join streams at this level, so whatever a
// component holds (classes that are not registered, properties nobody
// models) travels with its bytes unchanged.

#include "rtl/ComponentStream.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct TQzStreamNode {
    TComponentHeader Header;
    std::vector<TStreamedProperty> Properties;
    std::vector<TQzStreamNode> Children;

    const TStreamedProperty* Property(const AnsiString& name) const;
    // An integer property's value; nullopt when it is missing or no integer.
    std::optional<Int64> IntegerValue(const AnsiString& name) const;
    // Sets an integer property, adding it first in the list when missing.
    void SetIntegerValue(const AnsiString& name, Int64 value);
};

// Reads a stream that starts with its signature; EReadError when damaged.
TQzStreamNode QzReadStreamTree(std::string_view binary);
// The tree as a stream with its signature, byte for byte as it was read.
std::string QzWriteStreamTree(const TQzStreamNode& node);

// Copies one raw value, replacing every identifier that rename maps to
// another name, inside lists and collection items as well.
using TQzIdentMap = std::function<std::optional<AnsiString>(const AnsiString&)>;
std::string QzRenameIdents(std::string_view raw, const TQzIdentMap& rename);
// The identifier a raw value holds; nullopt for any other kind of value.
std::optional<AnsiString> QzIdentValue(std::string_view raw);
