#pragma once
// The packages' contents blocks, as one code for both directions (private
// to the model).

#include "runtime/model/QzTypes.h"

#include "rtl/Filer.h"

#include <type_traits>

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

    // A package's block begins (its content header) and ends (before its
    // kind commits what it read). Inner packages (the language's strings,
    // the display's images) are blocks inside their owner's. EndBlock says
    // whether to commit: only when loading, and only once the outermost
    // block has taken every byte, since bytes left over mean a block this
    // program misread, and refusing it after the commit would be too late.
    void BeginBlock()
    {
        if (FReader)
            ++FOpenBlocks;
    }
    bool EndBlock()
    {
        if (!FReader)
            return false;
        if (--FOpenBlocks == 0 && !FReader->AtEnd())
            FReader->Error("Unexpected data after the package contents");
        return true;
    }
    TReader& Reader() const { return *FReader; }
    TWriter& Writer() const { return *FWriter; }

    void Value(bool& v) { Pass(v, &TReader::ReadBoolean, &TWriter::WriteBoolean); }
    void Value(Integer& v) { Pass(v, &TReader::ReadInteger, &TWriter::WriteInteger); }
    void Value(double& v) { Pass(v, &TReader::ReadDouble, &TWriter::WriteDouble); }
    void Value(Extended& v) { Pass(v, &TReader::ReadFloat, &TWriter::WriteFloat); }
    // Bytes kept as they are (pictures, extension blocks).
    void Binary(std::string& v) { Pass(v, &TReader::ReadBinary, &TWriter::WriteBinary); }

    // An integer that must lie in [low, high]; what names it in the error.
    void Value(Integer& v, Integer low, Integer high, const char* what)
    {
        InRange(v, low, high, [what](Integer read) { return AnsiString("Invalid ") + what + " " + IntToStr(read); });
    }

    // Texts travel as UTF-8 so that every character comes back as it was.
    void Value(AnsiString& v)
    {
        if (FReader)
            v = FReader->ReadUnicodeString();
        else
            FWriter->WriteUTF8String(v);
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
        Integer ordinal = static_cast<Integer>(v);
        InRange(ordinal, 0, static_cast<Integer>(last),
                [](Integer read) { return "Value " + IntToStr(read) + " out of range"; });
        v = static_cast<E>(ordinal);
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
                Checked([&] {
                    V v{};
                    each(v);
                    take(v);
                });
            }
        });
    }

    // Runs a part whose model refusals (a duplicate Id, a bad value) are
    // read errors where it began.
    template <class F>
    void Checked(F&& run)
    {
        const size_t at = FReader ? FReader->Position() : 0;
        try {
            run();
        } catch (const EQzPkgError& e) {
            if (!FReader)
                throw;
            FReader->Error(e.Message(), at);
        } catch (const EConvertError& e) {
            if (!FReader)
                throw;
            FReader->Error(e.Message(), at);
        }
    }

private:
    // An integer read is refused, where it began, outside [low, high].
    template <class Message>
    void InRange(Integer& v, Integer low, Integer high, Message&& message)
    {
        const size_t at = FReader ? FReader->Position() : 0;
        Value(v);
        if (FReader && (v < low || v > high))
            FReader->Error(message(v), at);
    }

    template <class V, class R, class W>
    void Pass(V& v, R (TReader::*read)(), void (TWriter::*write)(W))
    {
        if (FReader)
            v = (FReader->*read)();
        else
            (FWriter->*write)(v);
    }

    TWriter* FWriter = nullptr;
    TReader* FReader = nullptr;
    int FOpenBlocks = 0;
};
