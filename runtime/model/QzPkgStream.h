#pragma once
// Helpers shared by the packages' contents readers and writers (private to
// the model).

#include "runtime/model/QzTypes.h"

#include "rtl/Filer.h"

#include <type_traits>

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

// One description of a layout that both directions run: saving writes each
// value as it stands, loading reads into the same variable. A kind's
// transfer works on temporaries and commits them only when the whole block
// has been read, so that a block failing at any byte leaves the package as
// it was; saving and loading cannot drift apart, since they are one code.
class TQzPkgTransfer {
public:
    explicit TQzPkgTransfer(TWriter& writer) : FWriter(&writer) {}
    explicit TQzPkgTransfer(TReader& reader) : FReader(&reader) {}

    bool Loading() const { return FReader != nullptr; }
    TReader& Reader() const { return *FReader; }
    TWriter& Writer() const { return *FWriter; }

    void Value(bool& v)
    {
        if (FReader)
            v = FReader->ReadBoolean();
        else
            FWriter->WriteBoolean(v);
    }

    void Value(Integer& v)
    {
        if (FReader)
            v = FReader->ReadInteger();
        else
            FWriter->WriteInteger(v);
    }

    // An integer that must lie in [low, high]; what names it in the error.
    void Value(Integer& v, Integer low, Integer high, const char* what)
    {
        const size_t at = FReader ? FReader->Position() : 0;
        Value(v);
        if (FReader && (v < low || v > high))
            FReader->Error(AnsiString("Invalid ") + what + " " + IntToStr(v), at);
    }

    void Value(double& v)
    {
        if (FReader)
            v = FReader->ReadDouble();
        else
            FWriter->WriteDouble(v);
    }

    void Value(Extended& v)
    {
        if (FReader)
            v = FReader->ReadFloat();
        else
            FWriter->WriteFloat(v);
    }

    // Texts travel as UTF-8 so that every character comes back as it was.
    void Value(AnsiString& v)
    {
        if (FReader)
            v = QzPkgStream::ReadText(*FReader);
        else
            QzPkgStream::WriteText(*FWriter, v);
    }

    // Bytes kept as they are (pictures, extension blocks).
    void Binary(std::string& v)
    {
        if (FReader)
            v = FReader->ReadBinary();
        else
            FWriter->WriteBinary(v);
    }

    // A single character, by its code.
    void Char(char& v)
    {
        Integer code = static_cast<unsigned char>(v);
        Value(code, 0, 255, "separator");
        v = static_cast<char>(code);
    }

    // An enumeration, by its ordinal, checked against its range when read.
    template <class E>
    void Enum(E& v, E last)
    {
        if (FReader)
            v = QzPkgStream::ReadEnum(*FReader, last);
        else
            FWriter->WriteInteger(static_cast<Integer>(v));
    }

    // A list of values that run has in both directions.
    template <class F>
    void List(F&& run)
    {
        if (FReader)
            FReader->ReadListBegin();
        else
            FWriter->WriteListBegin();
        run();
        if (FReader)
            FReader->ReadListEnd();
        else
            FWriter->WriteListEnd();
    }

    // A list of items. Saving transfers the values of each of count items
    // (valuesOf(index)); loading reads values until the list ends and hands
    // each to take. A refusal of the model while an item is read or taken
    // (a duplicate Id, a bad value) is a read error where the item began.
    template <class ValuesOf, class Each, class Take>
    void Items(int count, ValuesOf&& valuesOf, Each&& each, Take&& take)
    {
        using V = std::invoke_result_t<ValuesOf&, int>;
        List([&] {
            if (!FReader) {
                for (int i = 0; i < count; ++i) {
                    V v = valuesOf(i);
                    each(v);
                }
                return;
            }
            while (!FReader->EndOfList()) {
                QzPkgStream::Checked(*FReader, [&] {
                    V v{};
                    each(v);
                    take(v);
                });
            }
        });
    }

    // Runs a part whose model refusals are read errors where it began.
    template <class F>
    void Checked(F&& run)
    {
        if (FReader)
            QzPkgStream::Checked(*FReader, run);
        else
            run();
    }

private:
    TWriter* FWriter = nullptr;
    TReader* FReader = nullptr;
};
