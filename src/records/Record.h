#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "frame/Text.h"

// Records on disk are little-endian and packed. A record here is its bytes as they lie in the file, and a layout is a
// row of fields, each beginning where the one before it ends. Reading looks into the bytes, writing changes the bytes
// of one field; what no field names stays as it was.
namespace lantos {

struct LongField {
  std::size_t offset;
  constexpr std::size_t End() const { return offset + 4; }
};
struct IntegerField {
  std::size_t offset;
  constexpr std::size_t End() const { return offset + 2; }
};
struct ByteField {
  std::size_t offset;
  constexpr std::size_t End() const { return offset + 1; }
};
// One byte a character; text, then NULs to the width. A text of the full width has no terminator.
struct TextField {
  std::size_t offset;
  std::size_t width;
  constexpr std::size_t End() const { return offset + width; }
};
// Bytes that belong to the main application, carried through unread.
struct OpaqueField {
  std::size_t offset;
  std::size_t width;
  constexpr std::size_t End() const { return offset + width; }
};

template <std::size_t Length>
class Record {
 public:
  static constexpr std::size_t kLength = Length;

  std::int32_t Get(LongField field) const { return static_cast<std::int32_t>(Bits(field.offset, 4)); }
  std::int16_t Get(IntegerField field) const { return static_cast<std::int16_t>(Bits(field.offset, 2)); }
  std::uint8_t Get(ByteField field) const { return static_cast<std::uint8_t>(Bits(field.offset, 1)); }
  // Through TrimNull.
  std::string Get(TextField field) const { return std::string(View(field)); }
  // The same without a copy; good for as long as the record stays as it is.
  std::string_view View(TextField field) const {
    std::string_view all(reinterpret_cast<const char*>(bytes_.data()) + field.offset, field.width);
    const std::size_t nul = all.find('\0');
    return TrimView(nul == std::string_view::npos ? all : all.substr(0, nul));
  }

  void Put(LongField field, std::int32_t value) { PutBits(field.offset, 4, static_cast<std::uint32_t>(value)); }
  void Put(IntegerField field, std::int16_t value) { PutBits(field.offset, 2, static_cast<std::uint16_t>(value)); }
  void Put(ByteField field, std::uint8_t value) { PutBits(field.offset, 1, value); }
  void Put(TextField field, std::string_view text) {
    const std::size_t used = std::min(text.size(), field.width);
    // The text may be a view into this very field, or of nothing at all.
    if (used > 0) std::memmove(bytes_.data() + field.offset, text.data(), used);
    std::memset(bytes_.data() + field.offset + used, 0, field.width - used);
  }

  std::span<std::byte, Length> Bytes() { return bytes_; }
  std::span<const std::byte, Length> Bytes() const { return bytes_; }
  bool operator==(const Record&) const = default;

 private:
  std::uint32_t Bits(std::size_t offset, std::size_t count) const {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value |= std::to_integer<std::uint32_t>(bytes_[offset + i]) << (8 * i);
    return value;
  }
  void PutBits(std::size_t offset, std::size_t count, std::uint32_t value) {
    for (std::size_t i = 0; i < count; ++i) bytes_[offset + i] = static_cast<std::byte>(value >> (8 * i));
  }

  std::array<std::byte, Length> bytes_{};
};

}  // namespace lantos
