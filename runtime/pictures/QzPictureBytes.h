#pragma once
// Little-endian byte building and bounds-checked reading for the picture
// code's own formats (the ".imqz" file and the extension blocks). Private to
// runtime/pictures.

#include "runtime/pictures/QzPictureFormats.h"

#include <cstdint>
#include <string>
#include <string_view>

class TQzByteWriter {
public:
    void U8(unsigned value) { FBytes.push_back(static_cast<char>(value & 0xFFu)); }
    void U16(unsigned value)
    {
        U8(value);
        U8(value >> 8);
    }
    void U32(std::uint32_t value)
    {
        U16(value & 0xFFFFu);
        U16(value >> 16);
    }
    void I32(std::int32_t value) { U32(static_cast<std::uint32_t>(value)); }
    void Bytes(std::string_view bytes) { FBytes.append(bytes); }
    // A length byte, then the text.
    void ShortText(std::string_view text)
    {
        U8(static_cast<unsigned>(text.size()));
        Bytes(text);
    }
    const std::string& Result() const { return FBytes; }
    std::string& Result() { return FBytes; }

private:
    std::string FBytes;
};

// Every read past the end, or of a value out of its range, raises
// EInvalidGraphic "<what>: <problem> at offset <n>".
class TQzByteReader {
public:
    TQzByteReader(std::string_view bytes, AnsiString what) : FBytes(bytes), FWhat(std::move(what)) {}

    size_t Position() const { return FPos; }
    size_t Remaining() const { return FBytes.size() - FPos; }
    bool AtEnd() const { return FPos == FBytes.size(); }

    unsigned U8()
    {
        Need(1);
        return static_cast<unsigned char>(FBytes[FPos++]);
    }
    unsigned U16()
    {
        const unsigned low = U8();
        return low | (U8() << 8);
    }
    std::uint32_t U32()
    {
        const std::uint32_t low = U16();
        return low | (std::uint32_t(U16()) << 16);
    }
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
    std::string_view Bytes(size_t count)
    {
        Need(count);
        const std::string_view part = FBytes.substr(FPos, count);
        FPos += count;
        return part;
    }
    std::string_view ShortText() { return Bytes(U8()); }

    [[noreturn]] void Fail(const AnsiString& problem, size_t at) const
    {
        throw EInvalidGraphic(FWhat + ": " + problem + " at offset " + IntToStr(Int64(at)));
    }
    [[noreturn]] void Fail(const AnsiString& problem) const { Fail(problem, FPos); }

private:
    void Need(size_t count) const
    {
        if (count > Remaining())
            Fail("unexpected end of data");
    }

    std::string_view FBytes;
    AnsiString FWhat;
    size_t FPos = 0;
};
