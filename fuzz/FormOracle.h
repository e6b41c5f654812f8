#pragma once
// What must hold of any bytes offered as a form, shared by the fuzz targets
// and the tests that replay their findings. Each function returns what went
// wrong, or an empty string when the bytes behaved.
//
// Bytes are either refused with the reader's own error, which says where
// (a text line, a binary offset), or read completely: then what is written
// from them reads back, and writing that again gives the same text.

#include "rtl/FormText.h"
#include "rtl/Parser.h"

#include <string>
#include <string_view>

namespace QzFormOracle {

// Converting text written by us back and forth gives the same text.
inline std::string WrittenTextFault(const std::string& text, const TFormTextOptions& options)
{
    std::string again;
    try {
        again = FormBinaryToText(FormTextToBinary(text, options), options);
    } catch (const Exception& e) {
        return "text we wrote is refused: " + e.Message() + "\n" + text;
    }
    return again == text ? std::string() : "text we wrote comes back different:\n" + text + "\n---\n" + again;
}

inline std::string TextFormFault(std::string_view text, const TFormTextOptions& options = {})
{
    std::string binary;
    try {
        binary = FormTextToBinary(text, options);
    } catch (const ETextParseError& e) {
        return e.Line() > 0 ? std::string() : "refused without a line: " + e.Message();
    } catch (const Exception& e) {
        return "refused without a parse error: " + e.Message();
    }
    std::string written;
    try {
        written = FormBinaryToText(binary, options);
    } catch (const Exception& e) {
        return "what the text reader wrote cannot be written as text: " + e.Message();
    }
    return WrittenTextFault(written, options);
}

// Binary and resource forms; anything else is the text oracle's.
inline std::string BinaryFormFault(std::string_view form, const TFormTextOptions& options = {})
{
    const TFormFormat format = DetectFormFormat(form);
    if (format != TFormFormat::Binary && format != TFormFormat::Resource)
        return {};
    std::string text;
    try {
        text = FormToText(form, options);
    } catch (const EReadError& e) {
        return e.Message().find(" at offset ") != std::string::npos ? std::string() : "refused without an offset: " + e.Message();
    } catch (const EInvalidImage&) {
        return {};  // the resource header, which has no offsets to name
    } catch (const Exception& e) {
        return "refused without a read error: " + e.Message();
    }
    return WrittenTextFault(text, options);
}

} // namespace QzFormOracle
