#pragma once
// Reading forms into live components and writing them back.
//
// Reading creates each component through its registered metaclass and sets
// the published properties it knows. Whatever it cannot use (classes that
// are not registered, properties the class does not publish, values that
// do not fit the property) is kept with its raw bytes and its place, and
// writing puts it back where it was. A property that still holds the value
// it was read with is written with the bytes it was read from, so a form
// loaded and saved without changes comes back byte for byte, and changing
// one property changes only that property.

#include "rtl/Component.h"
#include "rtl/Filer.h"
#include "rtl/FormText.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

// A component of a class that is not registered: it keeps the class name
// it was streamed with, its properties (raw) and its children.
class TUnknownComponent : public TComponent {
    QZ_CLASS(TUnknownComponent, TComponent)

public:
    explicit TUnknownComponent(TComponent* owner) : TComponent(owner) {}
};

// One property as it stood in the stream.
struct TStreamedProperty {
    AnsiString Name;   // dotted for properties of nested objects ("Font.Name")
    std::string Raw;   // the value's bytes
};

// What the reader keeps of each component it read.
class TComponentStreamInfo : public TStreamInfoBase {
public:
    TComponentHeader Header;
    std::vector<TStreamedProperty> Properties;
    // The encoding of every modelled property right after loading; a
    // property whose encoding is still the same is written with its raw
    // bytes.
    std::vector<TStreamedProperty> Loaded;
};

// The class name a component is streamed under: the one it was read with,
// else its own.
AnsiString StreamedClassName(const TComponent* component);

// Reads a form in any of the three formats into a new root component,
// which the caller owns. The code page decodes 8-bit strings.
std::unique_ptr<TComponent> ReadForm(std::string_view form, const TFormTextOptions& options = {});
// Reads a binary stream (starting with its signature) into an existing root;
// a stream that is refused leaves the root as it was.
void ReadComponentData(std::string_view binary, TComponent* root, const TFormTextOptions& options = {});
// The component and everything it streams, as a binary stream.
std::string WriteComponentData(TComponent* root, const TFormTextOptions& options = {});
// The same as text.
std::string WriteFormText(TComponent* root, const TFormTextOptions& options = {});

// The class library's stream versions.
void ReadComponent(TStream& stream, TComponent* instance);
void WriteComponent(TStream& stream, TComponent* instance);

// Registers TUnknownComponent (and the rtl classes); safe to call again.
void RegisterComponentStreamClasses();
