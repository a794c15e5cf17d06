#include "caretaker/backup/Checksum.h"

#include <fmt/format.h>

#include <array>

namespace lantos {

std::string Checksum::Take() {
  std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
  sha256_digest(&state_, digest.size(), digest.data());
  std::string text;
  for (const std::uint8_t byte : digest) text += fmt::format("{:02x}", byte);
  return text;
}

}  // namespace lantos
