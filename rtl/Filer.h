#pragma once
// The component stream filer: the value types of the binary form format and
// the low-level reader and writer shared by component streaming and by the
// text/binary conversions. Reading works on a byte buffer with bounds checks
// on every step, so a damaged stream raises EReadError naming the offset
// instead of running past its end.

#include "rtl/Streams.h"

#include <cstring>
#include <functional>
#include <string>
#include <string_view>

enum TValueType : Byte {
    vaNull,
    vaList,
    vaInt8,
    vaInt16,
    vaInt32,
    vaExtended,
    vaString,
    vaIdent,
    vaFalse,
    vaTrue,
    vaBinary,
    vaSet,
    vaLString,
    vaNil,
    vaCollection,
    vaSingle,
    vaCurrency,
    vaDate,
    vaWString,
    vaInt64,
    vaUTF8String,
    vaDouble,
};
inline constexpr int vaLast = vaDouble;

// Component header prefix flags (low nibble of a byte whose high nibble is F).
enum TFilerFlag : Byte { ffInherited = 1, ffChildPos = 2, ffInline = 4 };

inline constexpr char FilerSignature[4] = {'T', 'P', 'F', '0'};

const char* ValueTypeName(TValueType type);

// The header of a component in the stream.
struct TComponentHeader {
    Byte Flags = 0;          // TFilerFlag bits
    Integer Position = -1;   // child position when ffChildPos is set
    AnsiString ClassName;
    AnsiString ObjectName;
};

class TPersistent;

// What both TReader and TWriter offer to DefineProperties.
class TFiler {
public:
    virtual ~TFiler() = default;
    using TReaderProc = std::function<void(class TReader&)>;
    using TWriterProc = std::function<void(class TWriter&)>;
    using TStreamProc = std::function<void(TStream&)>;

    // A property that is not published but streamed by its owner.
    virtual void DefineProperty(const AnsiString& name, const TReaderProc& readData,
                                const TWriterProc& writeData, bool hasData) = 0;
    virtual void DefineBinaryProperty(const AnsiString& name, const TStreamProc& readData,
                                      const TStreamProc& writeData, bool hasData) = 0;
    // The ancestor being compared against while writing inherited forms.
    TPersistent* Ancestor() const { return FAncestor; }
    void SetAncestor(TPersistent* ancestor) { FAncestor = ancestor; }

protected:
    TPersistent* FAncestor = nullptr;
};

class TReader : public TFiler {
public:
    // Reads from the bytes of data, which must outlive the reader.
    explicit TReader(std::string_view data);
    explicit TReader(std::string&&) = delete;  // the bytes would die before the reader
    // Reads the rest of stream; Finish() moves the stream to where reading stopped.
    explicit TReader(TStream& stream);

    void Finish();
    size_t Position() const { return FPos; }
    void SetPosition(size_t pos) { FPos = pos; }
    size_t Size() const { return FData.size(); }
    std::string_view Data() const { return FData; }
    bool AtEnd() const { return FPos >= FData.size(); }

    TValueType NextValue() const;
    // The zero byte that closes a list; looks at the byte alone, since what
    // follows a property list may be a component header.
    TValueType ReadValue();
    void CheckValue(TValueType expected);
    bool EndOfList() const
    {
        Need(1);
        return FData[FPos] == 0;
    }
    void ReadListBegin() { CheckValue(vaList); }
    void ReadListEnd() { CheckValue(vaNull); }
    void ReadSignature();
    void ReadPrefix(Byte& flags, Integer& position);
    TComponentHeader ReadComponentHeader();

    Integer ReadInteger();
    Int64 ReadInt64();
    bool ReadBoolean();
    char ReadChar();
    Extended ReadFloat();
    float ReadSingle();
    double ReadDouble();
    Currency ReadCurrency();
    TDateTime ReadDate();
    AnsiString ReadIdent();
    // 8-bit string values (vaString, vaLString) as their bytes.
    std::string ReadString();
    // Any string value as UTF-8; 8-bit strings are decoded with the code page.
    AnsiString ReadUnicodeString(int codePage = 1252);
    std::u16string ReadWideString();
    AnsiString ReadStr();  // a short string: length byte and bytes
    std::string ReadBinary();  // vaBinary: the bytes
    std::string_view ReadBinaryBytes();  // the same, in place in the reader's data
    // Skips one value of any type, however nested.
    void SkipValue();
    void SkipProperty();
    void SkipComponent(bool skipHeader = true);

    // Raw access for the converters.
    Byte ReadByte();
    void ReadRaw(void* buf, size_t count);
    std::string_view ReadBytes(size_t count);
    template <typename T> T ReadLE()
    {
        T v;
        ReadRaw(&v, sizeof v);
        return v;
    }
    [[noreturn]] void Error(const AnsiString& what) const;
    [[noreturn]] void Error(const AnsiString& what, size_t offset) const;

    void DefineProperty(const AnsiString& name, const TReaderProc& readData,
                        const TWriterProc& writeData, bool hasData) override;
    void DefineBinaryProperty(const AnsiString& name, const TStreamProc& readData,
                              const TStreamProc& writeData, bool hasData) override;
    // Set by the component reader while it offers a property to
    // DefineProperties; true once a defined property claimed it.
    void SetPendingProperty(const AnsiString* name) { FPendingProperty = name; FPendingHandled = false; }
    bool PendingHandled() const { return FPendingHandled; }

private:
    void Need(size_t count) const;

    std::string FOwned;
    std::string_view FData;
    size_t FPos = 0;
    TStream* FStream = nullptr;
    Int64 FStreamStart = 0;
    int FSkipDepth = 0;
    const AnsiString* FPendingProperty = nullptr;
    bool FPendingHandled = false;
};

class TWriter : public TFiler {
public:
    TWriter() = default;
    // Writes into stream when FlushBuffer is called (and on destruction).
    explicit TWriter(TStream& stream) : FStream(&stream) {}
    ~TWriter() override;
    TWriter(const TWriter&) = delete;
    TWriter& operator=(const TWriter&) = delete;

    void FlushBuffer();
    std::string& Buffer() { return FBuffer; }

    void WriteValue(TValueType value) { FBuffer.push_back(char(value)); }
    void WriteListBegin() { WriteValue(vaList); }
    void WriteListEnd() { WriteValue(vaNull); }
    void WriteSignature() { FBuffer.append(FilerSignature, 4); }
    void WritePrefix(Byte flags, Integer position);
    void WriteComponentHeader(const TComponentHeader& header);

    void WriteInteger(Int64 value);  // the smallest of vaInt8/16/32/64 that holds it
    void WriteBoolean(bool value) { WriteValue(value ? vaTrue : vaFalse); }
    void WriteChar(char value);
    void WriteFloat(Extended value);
    void WriteSingle(float value);
    void WriteDouble(double value);
    void WriteCurrency(Currency value);
    void WriteDate(TDateTime value);
    void WriteIdent(std::string_view ident);  // False/True/nil/Null become their own types
    void WriteString(std::string_view bytes);  // vaString up to 255 bytes, vaLString above
    void WriteWideString(std::u16string_view text);
    void WriteUTF8String(std::string_view utf8);
    // UTF-8 text as an 8-bit string of the code page when it fits there,
    // else as a wide string.
    void WriteUnicodeString(std::string_view utf8, int codePage = 1252);
    void WriteStr(std::string_view shortString);
    void WriteBinary(std::string_view bytes);
    // vaBinary whose bytes fill(buffer) appends, so they are decoded in
    // place rather than copied in.
    template <typename Fill> void WriteBinaryWith(Fill fill)
    {
        WriteValue(vaBinary);
        const size_t lengthAt = FBuffer.size();
        WriteLE(std::int32_t(0));
        fill(FBuffer);
        const std::int32_t length = std::int32_t(FBuffer.size() - lengthAt - 4);
        std::memcpy(FBuffer.data() + lengthAt, &length, 4);
    }

    void WriteByte(Byte b) { FBuffer.push_back(char(b)); }
    void WriteRaw(const void* data, size_t count) { FBuffer.append(static_cast<const char*>(data), count); }
    template <typename T> void WriteLE(T v) { WriteRaw(&v, sizeof v); }

    void DefineProperty(const AnsiString& name, const TReaderProc& readData,
                        const TWriterProc& writeData, bool hasData) override;
    void DefineBinaryProperty(const AnsiString& name, const TStreamProc& readData,
                              const TStreamProc& writeData, bool hasData) override;

private:
    TStream* FStream = nullptr;
    std::string FBuffer;
};
