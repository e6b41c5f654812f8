#pragma once
// Helpers shared by the packages' contents readers and writers (private to
// the model).

#include "runtime/model/QzTypes.h"

#include "rtl/Filer.h"

namespace QzPkgStream {

// Texts travel as UTF-8 so that every character comes back as it was.
inline void WriteText(TWriter& w, const AnsiString& text)
{
    w.WriteUTF8String(text);
}

inline AnsiString ReadText(TReader& r)
{
    return r.ReadUnicodeString();
}

// Runs read, turning a refusal of the model (a duplicate Id, a bad value)
// into a read error at the place where it happened.
template <class F>
void Checked(TReader& r, F&& read)
{
    const size_t at = r.Position();
    try {
        read();
    } catch (const EQzPkgError& e) {
        r.Error(e.Message(), at);
    } catch (const EConvertError& e) {
        r.Error(e.Message(), at);
    }
}

// An enumeration value read as an integer and checked against its range.
template <class E>
E ReadEnum(TReader& r, E last)
{
    const size_t at = r.Position();
    const Integer v = r.ReadInteger();
    if (v < 0 || v > static_cast<Integer>(last))
        r.Error("Value " + IntToStr(v) + " out of range", at);
    return static_cast<E>(v);
}

}  // namespace QzPkgStream
