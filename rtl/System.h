#pragma once
// Basic types of the class library. AnsiString holds UTF-8 text; byte
// streams keep their bytes as they were read.

#include <cstdint>
#include <string>

using AnsiString = std::string;
using Byte = std::uint8_t;
using Word = std::uint16_t;
using Cardinal = std::uint32_t;
using Integer = std::int32_t;
using Int64 = std::int64_t;
using Extended = long double;   // 80-bit on x86-64, as the stream format stores it
using TDateTime = double;       // days since 1899-12-30, fraction is the time of day
using Currency = std::int64_t;  // fixed point, four decimals (value * 10000)

// Text written by the class library ends lines the way the suite's files do.
inline constexpr const char* sLineBreak = "\r\n";
