#pragma once

#include <cstddef>
#include <string_view>

#include "records/Record.h"

namespace lantos {

// TQCSTTAG.DAT: a short index record for each customer.
namespace customertag {
inline constexpr LongField Number{0};                  // 0 is an empty slot
inline constexpr TextField NameKey{Number.End(), 32};  // "Lastname,Firstname"
inline constexpr TextField SpouseKey{NameKey.End(), 32};
inline constexpr LongField Offset{SpouseKey.End()};  // FileLink of the master in TQCSTDAT.DAT
inline constexpr TextField Phone{Offset.End(), 15};
inline constexpr TextField reserved{Phone.End(), 9};
static_assert(reserved.End() == 96);
}  // namespace customertag
using CustomerTag = Record<customertag::reserved.End()>;

inline constexpr std::string_view kCustomerTagFile = "TQCSTTAG.DAT";
inline constexpr std::size_t kCustomerLimit = 32767;  // the count is a signed 16-bit value

}  // namespace lantos
