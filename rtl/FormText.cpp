// Stream format detection and the compiled resource wrapping of forms.

#include "rtl/FormText.h"

#include "rtl/Filer.h"

#include <cstring>

namespace {

constexpr Word ResourceTypeRcData = 10;
constexpr Word ResourceFlags = 0x1030;  // moveable, pure, discardable

bool StartsWithSymbol(std::string_view text, std::string_view symbol)
{
    if (text.size() <= symbol.size())
        return false;
    for (size_t i = 0; i < symbol.size(); ++i)
        if ((text[i] | 0x20) != symbol[i])
            return false;
    char next = text[symbol.size()];
    return next == ' ' || next == '\t' || next == '\r' || next == '\n';
}

} // namespace

TFormFormat DetectFormFormat(std::string_view bytes)
{
    if (bytes.size() >= 4 && std::memcmp(bytes.data(), FilerSignature, 4) == 0)
        return TFormFormat::Binary;
    if (bytes.size() >= 3 && Byte(bytes[0]) == 0xFF && Byte(bytes[1]) == ResourceTypeRcData && bytes[2] == 0)
        return TFormFormat::Resource;
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF")
        bytes.remove_prefix(3);
    size_t i = bytes.find_first_not_of(" \t\r\n");
    if (i == std::string_view::npos)
        return TFormFormat::Unknown;
    bytes.remove_prefix(i);
    if (StartsWithSymbol(bytes, "object") || StartsWithSymbol(bytes, "inherited") || StartsWithSymbol(bytes, "inline"))
        return TFormFormat::Text;
    return TFormFormat::Unknown;
}

const char* FormFormatName(TFormFormat format)
{
    switch (format) {
    case TFormFormat::Text:
        return "text";
    case TFormFormat::Binary:
        return "binary";
    case TFormFormat::Resource:
        return "resource";
    default:
        return "unknown";
    }
}

TStreamOriginalFormat TestStreamFormat(TStream& stream)
{
    Int64 pos = stream.GetPosition();
    char head[64] = {};
    Int64 n = stream.Read(head, sizeof head);
    stream.SetPosition(pos);
    std::string_view bytes(head, size_t(n));
    switch (DetectFormFormat(bytes)) {
    case TFormFormat::Binary:
    case TFormFormat::Resource:
        return sofBinary;
    case TFormFormat::Text:
        return bytes.substr(0, 3) == "\xEF\xBB\xBF" ? sofUTF8Text : sofText;
    default:
        return sofUnknown;
    }
}

std::string_view FormResourceBody(std::string_view resource)
{
    if (DetectFormFormat(resource) != TFormFormat::Resource)
        throw EInvalidImage("Invalid stream format: not a compiled form resource");
    size_t nameEnd = resource.find('\0', 3);
    if (nameEnd == std::string_view::npos || resource.size() < nameEnd + 7)
        throw EInvalidImage("Invalid stream format: the resource header is incomplete");
    std::uint32_t size = 0;
    std::memcpy(&size, resource.data() + nameEnd + 3, 4);
    std::string_view body = resource.substr(nameEnd + 7);
    if (size > body.size())
        throw EInvalidImage("Invalid stream format: the resource holds " + std::to_string(body.size()) +
                            " bytes but its header announces " + std::to_string(size));
    return body.substr(0, size);
}

std::string FormBinaryToResource(std::string_view binary)
{
    // The resource is named after the root component's class, in capitals.
    TReader reader(binary);
    reader.ReadSignature();
    TComponentHeader root = reader.ReadComponentHeader();
    std::string out;
    out.reserve(binary.size() + root.ClassName.size() + 10);
    out.push_back(char(0xFF));
    out.push_back(char(ResourceTypeRcData & 0xFF));
    out.push_back(char(ResourceTypeRcData >> 8));
    for (char c : root.ClassName)
        out.push_back(c >= 'a' && c <= 'z' ? char(c - 32) : c);
    out.push_back('\0');
    out.push_back(char(ResourceFlags & 0xFF));
    out.push_back(char(ResourceFlags >> 8));
    std::uint32_t size = std::uint32_t(binary.size());
    out.append(reinterpret_cast<const char*>(&size), 4);
    out.append(binary);
    return out;
}

std::string FormResourceToText(std::string_view resource, const TFormTextOptions& options)
{
    return FormBinaryToText(FormResourceBody(resource), options);
}

std::string FormTextToResource(std::string_view text, const TFormTextOptions& options)
{
    return FormBinaryToResource(FormTextToBinary(text, options));
}

std::string FormToText(std::string_view anyFormat, const TFormTextOptions& options)
{
    switch (DetectFormFormat(anyFormat)) {
    case TFormFormat::Binary:
        return FormBinaryToText(anyFormat, options);
    case TFormFormat::Resource:
        return FormResourceToText(anyFormat, options);
    case TFormFormat::Text:
        return std::string(anyFormat);
    default:
        // Parsing says what is wrong with anything that is not a form.
        FormTextToBinary(anyFormat, options);
        return std::string(anyFormat);
    }
}

std::string FormToBinary(std::string_view anyFormat, const TFormTextOptions& options)
{
    switch (DetectFormFormat(anyFormat)) {
    case TFormFormat::Binary:
        return std::string(anyFormat);
    case TFormFormat::Resource:
        return std::string(FormResourceBody(anyFormat));
    default:
        return FormTextToBinary(anyFormat, options);
    }
}

void ObjectResourceToText(TStream& input, TStream& output, const TFormTextOptions& options)
{
    output.WriteString(FormResourceToText(input.ReadRemaining(), options));
}

void ObjectTextToResource(TStream& input, TStream& output, const TFormTextOptions& options)
{
    output.WriteString(FormTextToResource(input.ReadRemaining(), options));
}
