#include "frame/Numbers.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace lantos {

std::int32_t RoundHalfEven(double value) {
  if (std::isnan(value)) return 0;
  const double whole = std::nearbyint(value);  // the default rounding mode is to nearest, halves to even
  if (whole >= static_cast<double>(std::numeric_limits<std::int32_t>::max())) {
    return std::numeric_limits<std::int32_t>::max();
  }
  if (whole <= static_cast<double>(std::numeric_limits<std::int32_t>::min())) {
    return std::numeric_limits<std::int32_t>::min();
  }
  return static_cast<std::int32_t>(whole);
}

std::int32_t LongOrOverflow(std::int64_t value) {
  if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
    throw std::overflow_error("Overflow: " + std::to_string(value) + " is too large.");
  }
  return static_cast<std::int32_t>(value);
}

std::int32_t WholeOrOverflow(double value) {
  if (!(std::fabs(value) < 1e15)) throw std::overflow_error("Overflow: the number is too large.");
  return LongOrOverflow(std::llrint(value));  // halves to even
}

std::int64_t DivideHalfEven(std::int64_t numerator, std::int64_t denominator) {
  std::int64_t quotient = numerator / denominator;
  const std::int64_t remainder = numerator % denominator;
  const std::int64_t twice = 2 * (remainder < 0 ? -remainder : remainder);
  const std::int64_t size = denominator < 0 ? -denominator : denominator;
  if (twice > size || (twice == size && quotient % 2 != 0)) {
    quotient += (numerator < 0) == (denominator < 0) ? 1 : -1;
  }
  return quotient;
}

namespace {

std::string FormatScaled(std::int64_t value, std::uint64_t scale, int decimals) {
  const std::uint64_t size = value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
  return fmt::format("{}{}.{:0{}}", value < 0 ? "-" : "", size / scale, size % scale, decimals);
}

}  // namespace

std::string FormatHundredths(std::int64_t value) { return FormatScaled(value, 100, 2); }

std::string FormatTenThousandths(std::int64_t value) { return FormatScaled(value, 10000, 4); }

std::string FormatFixed(double value, int decimals) {
  if (!std::isfinite(value)) return "0";
  // Through the shortest decimal text of the number, so that 1.005 rounds as it reads and not as it is stored.
  const double scale = std::pow(10.0, decimals);
  const double scaled = std::fabs(value) * scale;
  if (scaled >= 9e15) return fmt::format("{:.{}f}", value, decimals);
  const double nudged = std::floor(scaled + 0.5 + scaled * std::numeric_limits<double>::epsilon() * 2);
  const auto whole = static_cast<std::uint64_t>(nudged);
  const auto unit = static_cast<std::uint64_t>(scale);
  const char* sign = value < 0 && whole != 0 ? "-" : "";
  if (decimals == 0) return fmt::format("{}{}", sign, whole);
  return fmt::format("{}{}.{:0{}}", sign, whole / unit, whole % unit, decimals);
}

std::string FormatZeros(std::int64_t value, int width) {
  if (value < 0) return fmt::format("-{:0{}}", 0 - static_cast<std::uint64_t>(value), width);
  return fmt::format("{:0{}}", value, width);
}

}  // namespace lantos
