#include "rtl/Filer.h"

#include "rtl/CodePage.h"
#include "rtl/StreamNesting.h"

#include <cfloat>
#include <cmath>

static_assert(LDBL_MANT_DIG == 64, "the stream's 10-byte floats need an 80-bit long double");

namespace {

bool SameAscii(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'a' && x <= 'z')
            x = char(x - 32);
        if (y >= 'a' && y <= 'z')
            y = char(y - 32);
        if (x != y)
            return false;
    }
    return true;
}

} // namespace

const char* ValueTypeName(TValueType type)
{
    static const char* const names[] = {
        "vaNull", "vaList", "vaInt8", "vaInt16", "vaInt32", "vaExtended", "vaString", "vaIdent",
        "vaFalse", "vaTrue", "vaBinary", "vaSet", "vaLString", "vaNil", "vaCollection", "vaSingle",
        "vaCurrency", "vaDate", "vaWString", "vaInt64", "vaUTF8String", "vaDouble",
    };
    return type <= vaLast ? names[type] : "unknown value type";
}

// ---- TReader ----------------------------------------------------------------

TReader::TReader(std::string_view data) : FData(data) {}

TReader::TReader(TStream& stream) : FStream(&stream)
{
    FStreamStart = stream.GetPosition();
    FOwned = stream.ReadRemaining();
    FData = FOwned;
}

void TReader::Finish()
{
    if (FStream)
        FStream->SetPosition(FStreamStart + Int64(FPos));
}

void TReader::Error(const AnsiString& what) const
{
    Error(what, FPos);
}

void TReader::Error(const AnsiString& what, size_t offset) const
{
    throw EReadError(what + " at offset " + std::to_string(FStreamStart + Int64(offset)));
}

void TReader::Need(size_t count) const
{
    if (count > FData.size() - FPos)
        Error("Unexpected end of stream");
}

Byte TReader::ReadByte()
{
    Need(1);
    return Byte(FData[FPos++]);
}

void TReader::ReadRaw(void* buf, size_t count)
{
    Need(count);
    std::memcpy(buf, FData.data() + FPos, count);
    FPos += count;
}

std::string_view TReader::ReadBytes(size_t count)
{
    Need(count);
    std::string_view out = FData.substr(FPos, count);
    FPos += count;
    return out;
}

TValueType TReader::NextValue() const
{
    Need(1);
    Byte b = Byte(FData[FPos]);
    if (b > vaLast)
        Error("Invalid value type " + std::to_string(b));
    return TValueType(b);
}

TValueType TReader::ReadValue()
{
    TValueType t = NextValue();
    ++FPos;
    return t;
}

void TReader::CheckValue(TValueType expected)
{
    size_t at = FPos;
    TValueType got = ReadValue();
    if (got != expected)
        Error(AnsiString(ValueTypeName(expected)) + " expected, found " + ValueTypeName(got), at);
}

void TReader::ReadSignature()
{
    if (FData.size() - FPos < 4 || std::memcmp(FData.data() + FPos, FilerSignature, 4) != 0)
        Error("Invalid stream format: the signature TPF0 is missing");
    FPos += 4;
}

void TReader::ReadPrefix(Byte& flags, Integer& position)
{
    flags = 0;
    position = -1;
    Need(1);
    Byte b = Byte(FData[FPos]);
    if ((b & 0xF0) != 0xF0)
        return;
    ++FPos;
    flags = b & 0x0F;
    if (flags & ffChildPos)
        position = ReadInteger();
}

TComponentHeader TReader::ReadComponentHeader()
{
    TComponentHeader h;
    ReadPrefix(h.Flags, h.Position);
    h.ClassName = ReadStr();
    h.ObjectName = ReadStr();
    return h;
}

Integer TReader::ReadInteger()
{
    size_t at = FPos;
    switch (ReadValue()) {
    case vaInt8:
        return ReadLE<std::int8_t>();
    case vaInt16:
        return ReadLE<std::int16_t>();
    case vaInt32:
        return ReadLE<std::int32_t>();
    default:
        Error("Integer value expected", at);
    }
}

Int64 TReader::ReadInt64()
{
    if (NextValue() == vaInt64) {
        ++FPos;
        return ReadLE<std::int64_t>();
    }
    return ReadInteger();
}

bool TReader::ReadBoolean()
{
    size_t at = FPos;
    TValueType t = ReadValue();
    if (t != vaTrue && t != vaFalse)
        Error("Boolean value expected", at);
    return t == vaTrue;
}

char TReader::ReadChar()
{
    std::string s = ReadString();
    if (s.size() != 1)
        Error("Character value expected");
    return s[0];
}

Extended TReader::ReadFloat()
{
    size_t at = FPos;
    switch (ReadValue()) {
    case vaExtended: {
        long double v = 0;
        ReadRaw(&v, 10);
        return v;
    }
    case vaSingle:
        return ReadLE<float>();
    case vaDouble:
    case vaDate:
        return ReadLE<double>();
    case vaCurrency:
        return Extended(ReadLE<std::int64_t>()) / 10000;
    case vaInt8:
    case vaInt16:
    case vaInt32:
    case vaInt64:
        FPos = at;
        return Extended(ReadInt64());
    default:
        Error("Floating point value expected", at);
    }
}

float TReader::ReadSingle()
{
    if (NextValue() == vaSingle) {
        ++FPos;
        return ReadLE<float>();
    }
    return float(ReadFloat());
}

double TReader::ReadDouble()
{
    if (NextValue() == vaDouble) {
        ++FPos;
        return ReadLE<double>();
    }
    return double(ReadFloat());
}

Currency TReader::ReadCurrency()
{
    if (NextValue() == vaCurrency) {
        ++FPos;
        return ReadLE<std::int64_t>();
    }
    return Currency(std::llround(ReadFloat() * 10000));
}

TDateTime TReader::ReadDate()
{
    if (NextValue() == vaDate) {
        ++FPos;
        return ReadLE<double>();
    }
    return double(ReadFloat());
}

AnsiString TReader::ReadIdent()
{
    size_t at = FPos;
    switch (ReadValue()) {
    case vaIdent:
        return ReadStr();
    case vaFalse:
        return "False";
    case vaTrue:
        return "True";
    case vaNil:
        return "nil";
    case vaNull:
        return "Null";
    default:
        Error("Identifier expected", at);
    }
}

std::string TReader::ReadString()
{
    size_t at = FPos;
    switch (ReadValue()) {
    case vaString:
        return std::string(ReadBytes(ReadByte()));
    case vaLString: {
        std::int32_t len = ReadLE<std::int32_t>();
        if (len < 0)
            Error("Invalid string length", at);
        return std::string(ReadBytes(size_t(len)));
    }
    default:
        Error("String value expected", at);
    }
}

std::u16string TReader::ReadWideString()
{
    size_t at = FPos;
    TValueType t = NextValue();
    if (t == vaWString) {
        ++FPos;
        std::int32_t len = ReadLE<std::int32_t>();
        if (len < 0 || size_t(len) > (FData.size() - FPos) / 2)
            Error("Invalid string length", at);
        std::u16string out(size_t(len), u'\0');
        ReadRaw(out.data(), size_t(len) * 2);
        return out;
    }
    return Utf8ToUtf16(ReadUnicodeString());
}

AnsiString TReader::ReadUnicodeString(int codePage)
{
    size_t at = FPos;
    switch (NextValue()) {
    case vaString:
    case vaLString:
        return CodePageToUtf8(ReadString(), codePage);
    case vaWString:
        return Utf16ToUtf8(ReadWideString());
    case vaUTF8String: {
        ++FPos;
        std::int32_t len = ReadLE<std::int32_t>();
        if (len < 0)
            Error("Invalid string length", at);
        return std::string(ReadBytes(size_t(len)));
    }
    default:
        Error("String value expected", at);
    }
}

AnsiString TReader::ReadStr()
{
    Byte len = ReadByte();
    return std::string(ReadBytes(len));
}

std::string TReader::ReadBinary()
{
    return std::string(ReadBinaryBytes());
}

std::string_view TReader::ReadBinaryBytes()
{
    CheckValue(vaBinary);
    std::int32_t len = ReadLE<std::int32_t>();
    if (len < 0)
        Error("Invalid binary length");
    return ReadBytes(size_t(len));
}

void TReader::SkipValue()
{
    if (++FSkipDepth > MaxStreamNesting)
        Error("Values nested too deeply");
    size_t at = FPos;
    switch (ReadValue()) {
    case vaNull:
    case vaFalse:
    case vaTrue:
    case vaNil:
        break;
    case vaList:
        while (!EndOfList())
            SkipValue();
        ReadListEnd();
        break;
    case vaInt8:
        ReadBytes(1);
        break;
    case vaInt16:
        ReadBytes(2);
        break;
    case vaInt32:
    case vaSingle:
        ReadBytes(4);
        break;
    case vaExtended:
        ReadBytes(10);
        break;
    case vaString:
    case vaIdent:
        ReadBytes(ReadByte());
        break;
    case vaLString:
    case vaBinary:
    case vaUTF8String: {
        std::int32_t len = ReadLE<std::int32_t>();
        if (len < 0)
            Error("Invalid length", at);
        ReadBytes(size_t(len));
        break;
    }
    case vaWString: {
        std::int32_t len = ReadLE<std::int32_t>();
        if (len < 0 || size_t(len) > (FData.size() - FPos) / 2)
            Error("Invalid length", at);
        ReadBytes(size_t(len) * 2);
        break;
    }
    case vaSet:
        for (Byte len = ReadByte(); len != 0; len = ReadByte())
            ReadBytes(len);
        break;
    case vaCollection:
        while (!EndOfList()) {
            if (NextValue() == vaInt8 || NextValue() == vaInt16 || NextValue() == vaInt32)
                ReadInteger();
            ReadListBegin();
            while (!EndOfList())
                SkipProperty();
            ReadListEnd();
        }
        ReadListEnd();
        break;
    case vaCurrency:
    case vaDate:
    case vaInt64:
    case vaDouble:
        ReadBytes(8);
        break;
    }
    --FSkipDepth;
}

void TReader::SkipProperty()
{
    ReadStr();
    SkipValue();
}

void TReader::SkipComponent(bool skipHeader)
{
    if (++FSkipDepth > MaxStreamNesting)
        Error("Components nested too deeply");
    if (skipHeader)
        ReadComponentHeader();
    while (!EndOfList())
        SkipProperty();
    ReadListEnd();
    while (!EndOfList())
        SkipComponent(true);
    ReadListEnd();
    --FSkipDepth;
}

void TReader::DefineProperty(const AnsiString& name, const TReaderProc& readData, const TWriterProc&, bool)
{
    if (FPendingProperty && !FPendingHandled && readData && SameAscii(*FPendingProperty, name)) {
        FPendingHandled = true;
        readData(*this);
    }
}

void TReader::DefineBinaryProperty(const AnsiString& name, const TStreamProc& readData, const TStreamProc&, bool)
{
    if (FPendingProperty && !FPendingHandled && readData && SameAscii(*FPendingProperty, name)) {
        FPendingHandled = true;
        TMemoryStream data(ReadBinary());
        readData(data);
    }
}

// ---- TWriter ----------------------------------------------------------------

TWriter::~TWriter()
{
    try {
        FlushBuffer();
    } catch (...) {
        // A destructor cannot report; callers that care call FlushBuffer themselves.
    }
}

void TWriter::FlushBuffer()
{
    if (FStream && !FBuffer.empty()) {
        FStream->WriteBuffer(FBuffer.data(), Int64(FBuffer.size()));
        FBuffer.clear();
    }
}

void TWriter::WritePrefix(Byte flags, Integer position)
{
    if (flags == 0)
        return;
    WriteByte(Byte(0xF0 | flags));
    if (flags & ffChildPos)
        WriteInteger(position);
}

void TWriter::WriteComponentHeader(const TComponentHeader& header)
{
    WritePrefix(header.Flags, header.Position);
    WriteStr(header.ClassName);
    WriteStr(header.ObjectName);
}

void TWriter::WriteInteger(Int64 value)
{
    if (value >= INT8_MIN && value <= INT8_MAX) {
        WriteValue(vaInt8);
        WriteLE(std::int8_t(value));
    } else if (value >= INT16_MIN && value <= INT16_MAX) {
        WriteValue(vaInt16);
        WriteLE(std::int16_t(value));
    } else if (value >= INT32_MIN && value <= INT32_MAX) {
        WriteValue(vaInt32);
        WriteLE(std::int32_t(value));
    } else {
        WriteValue(vaInt64);
        WriteLE(std::int64_t(value));
    }
}

void TWriter::WriteChar(char value)
{
    WriteString(std::string_view(&value, 1));
}

void TWriter::WriteFloat(Extended value)
{
    WriteValue(vaExtended);
    WriteRaw(&value, 10);
}

void TWriter::WriteSingle(float value)
{
    WriteValue(vaSingle);
    WriteLE(value);
}

void TWriter::WriteDouble(double value)
{
    WriteValue(vaDouble);
    WriteLE(value);
}

void TWriter::WriteCurrency(Currency value)
{
    WriteValue(vaCurrency);
    WriteLE(std::int64_t(value));
}

void TWriter::WriteDate(TDateTime value)
{
    WriteValue(vaDate);
    WriteLE(value);
}

void TWriter::WriteIdent(std::string_view ident)
{
    if (SameAscii(ident, "False"))
        WriteValue(vaFalse);
    else if (SameAscii(ident, "True"))
        WriteValue(vaTrue);
    else if (SameAscii(ident, "Null"))
        WriteValue(vaNull);
    else if (SameAscii(ident, "nil"))
        WriteValue(vaNil);
    else {
        WriteValue(vaIdent);
        WriteStr(ident);
    }
}

void TWriter::WriteString(std::string_view bytes)
{
    if (bytes.size() <= 255) {
        WriteValue(vaString);
        WriteByte(Byte(bytes.size()));
    } else {
        WriteValue(vaLString);
        WriteLE(std::int32_t(bytes.size()));
    }
    FBuffer.append(bytes);
}

void TWriter::WriteWideString(std::u16string_view text)
{
    WriteValue(vaWString);
    WriteLE(std::int32_t(text.size()));
    WriteRaw(text.data(), text.size() * 2);
}

void TWriter::WriteUTF8String(std::string_view utf8)
{
    WriteValue(vaUTF8String);
    WriteLE(std::int32_t(utf8.size()));
    FBuffer.append(utf8);
}

void TWriter::WriteUnicodeString(std::string_view utf8, int codePage)
{
    std::string bytes;
    if (Utf8ToCodePage(utf8, codePage, bytes))
        WriteString(bytes);
    else
        WriteWideString(Utf8ToUtf16(utf8));
}

void TWriter::WriteStr(std::string_view shortString)
{
    // A short string holds at most 255 bytes; longer names cannot be streamed.
    if (shortString.size() > 255)
        throw EWriteError("Name too long for the stream: " + std::string(shortString.substr(0, 40)) + "...");
    WriteByte(Byte(shortString.size()));
    FBuffer.append(shortString);
}

void TWriter::WriteBinary(std::string_view bytes)
{
    WriteValue(vaBinary);
    WriteLE(std::int32_t(bytes.size()));
    FBuffer.append(bytes);
}

void TWriter::DefineProperty(const AnsiString& name, const TReaderProc&, const TWriterProc& writeData, bool hasData)
{
    if (hasData && writeData) {
        WriteStr(name);
        writeData(*this);
    }
}

void TWriter::DefineBinaryProperty(const AnsiString& name, const TStreamProc&, const TStreamProc& writeData, bool hasData)
{
    if (hasData && writeData) {
        TMemoryStream data;
        writeData(data);
        WriteStr(name);
        WriteBinary(data.Bytes());
    }
}
