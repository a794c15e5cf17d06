#pragma once

#include <cstdint>

// Units of the whole program. Money, hours and rates are whole numbers; the name of the type says which.
namespace lantos {

using Cents = std::int32_t;       // hundredths of a dollar
using Hundredths = std::int32_t;  // hundredths of an hour
using Millionths = std::int32_t;  // 1000000 is 100 %
using DaySerial = std::int32_t;   // days since 30 December 1899; 0 is that day
using FileDate = std::int32_t;    // DaySerial + 693974; 0 is no date
using FileLink = std::int32_t;    // 0-based byte offset in a file; kNoLink is none
using FileHandle = std::uint16_t;

inline constexpr FileLink kNoLink = -1;
inline constexpr FileHandle kNoHandle = 65535;

}  // namespace lantos
