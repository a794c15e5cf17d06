#pragma once

#include <cstdint>
#include <string>

#include "frame/Types.h"

namespace lantos {

// To the nearest whole number, halves to even, saturating at the ends of 32 bits.
std::int32_t RoundHalfEven(double value);
// The same, but what 32 bits can't hold ends the event: std::overflow_error.
std::int32_t WholeOrOverflow(double value);
std::int32_t LongOrOverflow(std::int64_t value);
// numerator / denominator in whole numbers, halves to even. The denominator isn't 0.
std::int64_t DivideHalfEven(std::int64_t numerator, std::int64_t denominator);

std::string FormatHundredths(std::int64_t value);        // 150 is "1.50", -5 is "-0.05"
std::string FormatTenThousandths(std::int64_t value);    // 82500 is "8.2500"
std::string FormatFixed(double value, int decimals);     // format "0.00": halves away from zero
std::string FormatZeros(std::int64_t value, int width);  // format "000000": leading zeros, never cut

}  // namespace lantos
