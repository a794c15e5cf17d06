#pragma once

#include <nettle/sha2.h>

#include <cstddef>
#include <span>
#include <string>

namespace lantos {

// The SHA-256 of bytes that come one block after the other.
class Checksum {
 public:
  Checksum() { sha256_init(&state_); }
  void Add(std::span<const std::byte> bytes) {
    sha256_update(&state_, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
  }
  // In 64 small hexadecimal digits; begins anew.
  std::string Take();

 private:
  sha256_ctx state_;
};

}  // namespace lantos
