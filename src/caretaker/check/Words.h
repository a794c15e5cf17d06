#pragma once

#include <fmt/format.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/Types.h"
#include "records/Record.h"

// What findings are put together from.
namespace lantos {

// Records are counted from 1, as people do.
inline std::string RecordWords(std::size_t index) { return fmt::format("record {}", index + 1); }
inline std::string CustomerWords(std::size_t index, std::int32_t number) {
  return fmt::format("record {} (customer {:06})", index + 1, number);
}
inline std::string PartWords(std::size_t index, std::string_view number) {
  return fmt::format("record {} (part {})", index + 1, number);
}

// A number as it lies in a record.
inline std::string LongBytes(std::int32_t value) {
  Record<4> bytes;
  bytes.Put(LongField{0}, value);
  return {reinterpret_cast<const char*>(bytes.Bytes().data()), 4};
}

// The place of a record in its file.
template <class RecordType>
std::uint64_t PlaceOf(std::size_t index) {
  return std::uint64_t{index} * RecordType::kLength;
}

// The record that a link leads to; false where none begins there.
template <class RecordType, class Rows>
bool LeadsTo(FileLink link, const Rows& rows, std::size_t& index) {
  if (link < 0 || static_cast<std::size_t>(link) % RecordType::kLength != 0) return false;
  index = static_cast<std::size_t>(link) / RecordType::kLength;
  return index < rows.size();
}

}  // namespace lantos
