#pragma once
// The stream encoding of published property values, shared by the
// component reader and writer.

#include "rtl/ComponentStream.h"
#include "rtl/TypInfo.h"

// Raised inside the reader when a value does not fit its property; the
// reader then keeps the value raw.
class EValueDoesNotFit : public EReadError {
public:
    using EReadError::EReadError;
};

// A component reference read before every component existed.
struct TReferenceFixup {
    TObject* Instance;
    const TPropInfo* Prop;
    AnsiString Name;  // "Button1" or "Form2.Button1"
};

struct TPropertyContext {
    TComponent* Root = nullptr;
    int CodePage = 1252;
    std::vector<TReferenceFixup>* Fixups = nullptr;  // reading only
};

// Reads the value at the reader into the property; raises EValueDoesNotFit
// when it cannot be used (the reader is then somewhere inside the value).
void ReadPropertyValue(TReader& r, TObject* instance, const TPropInfo* prop, TPropertyContext& ctx);

// Appends, in the order the IDE writes them, the encoding of every property
// of instance that would be written now: stored published properties that
// differ from their default (nested objects' as "Prefix.Name"), then those
// its DefineProperties writes.
void CollectProperties(TObject* instance, const AnsiString& prefix, TPropertyContext& ctx,
                       std::vector<TStreamedProperty>& out);

// Resolves a dotted property path ("Font.Name") to the object holding the
// last part and that part's name; nullptr when a step is not a published
// object property.
TObject* ResolvePropertyPath(TObject* instance, const AnsiString& path, AnsiString& lastName);
