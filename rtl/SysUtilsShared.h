#pragma once
// Helpers the source files of SysUtils share among themselves; callers of
// the class library use SysUtils.h.

#include "rtl/System.h"

#include <cstdint>

namespace SysUtilsImpl {

// The digits of value in base 10 or 16 (hex digits in upper case).
AnsiString UnsignedToStr(std::uint64_t value, int base);

inline char AsciiUpper(char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; }

} // namespace SysUtilsImpl
