#pragma once

#include <cstdint>

#include "Readers.h"

// A target defines Try for arbitrary bytes.
namespace lantos::fuzz {

void Try(std::string_view bytes);

// One shop for the whole run; each round overwrites its files.
inline QuietShop& TheShop() {
  static QuietShop shop;
  return shop;
}

// What must hold whatever the bytes are.
inline void Require(bool condition) {
  if (!condition) __builtin_trap();
}

}  // namespace lantos::fuzz

extern "C" __attribute__((used)) inline int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lantos::fuzz::Try(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
