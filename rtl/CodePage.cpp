#include "rtl/CodePage.h"

#include <array>
#include <cerrno>
#include <iconv.h>
#include <map>
#include <memory>
#include <mutex>

namespace {

std::string IconvName(int codePage)
{
    if (codePage == 65001)
        return "UTF-8";
    if (codePage == 936)
        return "GBK";
    if (codePage == 932)
        return "CP932";
    if (codePage == 949)
        return "CP949";
    if (codePage == 950)
        return "BIG5";
    return "CP" + std::to_string(codePage);
}

// Converts with iconv; returns false when the input has a sequence that the
// target cannot represent or the source does not decode.
bool Iconv(const std::string& from, const std::string& to, std::string_view in, std::string& out)
{
    iconv_t cd = iconv_open(to.c_str(), from.c_str());
    if (cd == iconv_t(-1))
        return false;
    out.assign(in.size() * 4 + 16, '\0');
    char* src = const_cast<char*>(in.data());
    size_t srcLeft = in.size();
    char* dst = out.data();
    size_t dstLeft = out.size();
    size_t r = iconv(cd, &src, &srcLeft, &dst, &dstLeft);
    iconv_close(cd);
    if (r == size_t(-1))
        return false;
    out.resize(out.size() - dstLeft);
    return true;
}

using SingleByteTable = std::array<char32_t, 256>;

// Single-byte code pages are decoded through a table filled once.
const SingleByteTable* SingleByteTableFor(int codePage)
{
    static std::mutex lock;
    static std::map<int, std::unique_ptr<SingleByteTable>> tables;
    std::lock_guard guard(lock);
    auto& slot = tables[codePage];
    if (!slot) {
        slot = std::make_unique<SingleByteTable>();
        for (int b = 0; b < 256; ++b) {
            char c = char(b);
            std::string utf32;
            (*slot)[size_t(b)] = char32_t(b);
            if (b >= 0x80 && Iconv(IconvName(codePage), "UTF-32LE", std::string_view(&c, 1), utf32) && utf32.size() == 4) {
                char32_t cp = 0;
                for (int i = 3; i >= 0; --i)
                    cp = (cp << 8) | Byte(utf32[size_t(i)]);
                (*slot)[size_t(b)] = cp;
            }
        }
    }
    return slot.get();
}

} // namespace

bool IsDoubleByteCodePage(int codePage)
{
    return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950;
}

bool IsLeadByte(int codePage, Byte b)
{
    switch (codePage) {
    case 932:
        return (b >= 0x81 && b <= 0x9F) || (b >= 0xE0 && b <= 0xFC);
    case 936:
    case 949:
    case 950:
        return b >= 0x81 && b <= 0xFE;
    default:
        return false;
    }
}

void AppendUtf8(std::string& out, char32_t cp)
{
    if (cp < 0x80) {
        out.push_back(char(cp));
    } else if (cp < 0x800) {
        out.push_back(char(0xC0 | (cp >> 6)));
        out.push_back(char(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        out.push_back(char(0xE0 | (cp >> 12)));
        out.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(char(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(char(0xF0 | (cp >> 18)));
        out.push_back(char(0x80 | ((cp >> 12) & 0x3F)));
        out.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(char(0x80 | (cp & 0x3F)));
    }
}

char32_t NextUtf8(const char*& p, const char* end)
{
    Byte b = Byte(*p);
    int extra = b >= 0xF0 && b < 0xF8 ? 3 : b >= 0xE0 ? 2 : b >= 0xC0 ? 1 : 0;
    if (b < 0x80 || extra == 0 || end - p <= extra) {
        ++p;
        return b;
    }
    char32_t cp = b & (0x3F >> extra);
    for (int i = 1; i <= extra; ++i) {
        Byte c = Byte(p[i]);
        if ((c & 0xC0) != 0x80) {
            ++p;
            return b;
        }
        cp = (cp << 6) | (c & 0x3F);
    }
    p += extra + 1;
    return cp;
}

std::string CodePageToUtf8(std::string_view bytes, int codePage)
{
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 2);
    if (codePage == 65001)
        return std::string(bytes);
    if (!IsDoubleByteCodePage(codePage)) {
        const SingleByteTable& table = *SingleByteTableFor(codePage);
        for (char c : bytes)
            AppendUtf8(out, table[Byte(c)]);
        return out;
    }
    if (Iconv(IconvName(codePage), "UTF-8", bytes, out))
        return out;
    out.clear();
    for (char c : bytes)
        AppendUtf8(out, Byte(c));
    return out;
}

bool Utf8ToCodePage(std::string_view utf8, int codePage, std::string& out)
{
    if (codePage == 65001) {
        out.assign(utf8);
        return true;
    }
    bool ascii = true;
    for (char c : utf8)
        ascii = ascii && Byte(c) < 0x80;
    if (ascii) {
        out.assign(utf8);
        return true;
    }
    return Iconv("UTF-8", IconvName(codePage), utf8, out);
}

std::u32string CodePageToUtf32(std::string_view bytes, int codePage)
{
    std::u32string out;
    iconv_t cd = iconv_open("UTF-32LE", IconvName(codePage).c_str());
    if (cd == iconv_t(-1))
        return std::u32string(bytes.size(), U'\uFFFD');
    out.reserve(bytes.size());
    char* src = const_cast<char*>(bytes.data());
    size_t srcLeft = bytes.size();
    while (srcLeft > 0) {
        char32_t buf[256];
        char* dst = reinterpret_cast<char*>(buf);
        size_t dstLeft = sizeof buf;
        const size_t r = iconv(cd, &src, &srcLeft, &dst, &dstLeft);
        out.append(buf, (sizeof buf - dstLeft) / sizeof(char32_t));
        if (r == size_t(-1) && errno != E2BIG) {
            // EILSEQ or a sequence cut by the end: skip one byte and go on.
            out.push_back(U'\uFFFD');
            ++src;
            --srcLeft;
            iconv(cd, nullptr, nullptr, nullptr, nullptr);
        }
    }
    iconv_close(cd);
    return out;
}

std::u16string Utf8ToUtf16(std::string_view utf8)
{
    std::u16string out;
    out.reserve(utf8.size());
    const char* p = utf8.data();
    const char* end = p + utf8.size();
    while (p < end) {
        char32_t cp = NextUtf8(p, end);
        if (cp >= 0x10000) {
            cp -= 0x10000;
            out.push_back(char16_t(0xD800 + (cp >> 10)));
            out.push_back(char16_t(0xDC00 + (cp & 0x3FF)));
        } else {
            out.push_back(char16_t(cp));
        }
    }
    return out;
}

std::string Utf16ToUtf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t cp = text[i];
        if (cp >= 0xD800 && cp < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (text[i + 1] - 0xDC00);
            ++i;
        }
        AppendUtf8(out, cp);
    }
    return out;
}
