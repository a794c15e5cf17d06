#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace lantos {

// The same numbers for the same seed on every machine and library: SplitMix64, and no distribution of the standard
// library, since those differ.
class Random {
 public:
  // Each matter of a shop draws from its own stream, so that a different count of parts changes no customer.
  Random(std::uint64_t seed, std::uint64_t stream)
      : state_(seed * 0x9E3779B97F4A7C15u + stream * 0xD1B54A32D192ED03u) {}

  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
  }
  // 0 to bound - 1; bound is 1 or more.
  std::int32_t Below(std::int32_t bound) {
    return static_cast<std::int32_t>(((Next() >> 32) * static_cast<std::uint64_t>(bound)) >> 32);
  }
  std::int32_t Between(std::int32_t first, std::int32_t last) { return first + Below(last - first + 1); }
  bool Chance(int percent) { return Below(100) < percent; }

  template <class Table>
  const auto& Pick(const Table& table) {
    return std::begin(table)[Below(static_cast<std::int32_t>(std::size(table)))];
  }

 private:
  std::uint64_t state_;
};

}  // namespace lantos
