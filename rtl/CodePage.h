#pragma once
// Conversions between Windows code page bytes, UTF-8 and UTF-16. Forms keep
// their 8-bit strings in the code page of the machine that wrote them, so
// every conversion names the code page it assumes.

#include "rtl/System.h"

#include <string>
#include <string_view>

// Decodes bytes of the code page (1252, 1251, 936, 932, 949, 950, 65001 ...)
// to UTF-8. Bytes that do not decode are taken as Latin-1.
std::string CodePageToUtf8(std::string_view bytes, int codePage);
// Encodes UTF-8 text in the code page; returns false when some character has
// no representation there (out is then unspecified).
bool Utf8ToCodePage(std::string_view utf8, int codePage, std::string& out);
// Decodes strictly: every byte that does not start a character of the code
// page (an undefined byte, a lead byte without its trail) becomes U+FFFD.
std::u32string CodePageToUtf32(std::string_view bytes, int codePage);

std::u16string Utf8ToUtf16(std::string_view utf8);
std::string Utf16ToUtf8(std::u16string_view text);
void AppendUtf8(std::string& out, char32_t cp);
// Decodes one code point at p (advancing it); malformed bytes come back as
// themselves, one at a time, so no input is lost.
char32_t NextUtf8(const char*& p, const char* end);

// Double-byte code pages: whether b starts a two-byte character.
bool IsLeadByte(int codePage, Byte b);
bool IsDoubleByteCodePage(int codePage);
