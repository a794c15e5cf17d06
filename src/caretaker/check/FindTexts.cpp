#include <algorithm>
#include <array>
#include <cstring>

#include "caretaker/check/FieldTable.h"
#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"

namespace lantos {

namespace {

// The page leaves these open.
bool IsOutside(unsigned char c) { return c == 0x81 || c == 0x8D || c == 0x8F || c == 0x90 || c == 0x9D; }

// Most texts are plain letters, eight of which are looked at in one step.
bool IsPlain(const std::byte* text, std::size_t length) {
  std::uint64_t seen = 0;
  for (; length >= sizeof(seen); text += sizeof(seen), length -= sizeof(seen)) {
    std::uint64_t letters = 0;
    std::memcpy(&letters, text, sizeof(letters));
    seen |= letters;
  }
  for (; length > 0; ++text, --length) seen |= std::to_integer<std::uint64_t>(*text);
  return (seen & 0x8080808080808080U) == 0;
}

// Up to the NUL that ends it.
bool HasOutside(const std::byte* field, std::size_t width) {
  if (IsPlain(field, width)) return false;
  const auto* text = reinterpret_cast<const unsigned char*>(field);
  const auto* end = std::find(text, text + width, '\0');
  return std::any_of(text, end, IsOutside);
}

}  // namespace

void FindTexts(ShopView& shop, const Tell& tell) {
  for (const FieldsOfFile& file : FieldTable()) {
    const FlatFiles::Bytes bytes = shop.flat.Read(file.file);
    for (std::size_t record = 0; (record + 1) * file.length <= bytes.size(); ++record) {
      for (const FieldsOfFile::Named& field : file.texts) {
        if (!HasOutside(bytes.data() + record * file.length + field.offset, field.width)) continue;
        tell({std::string(file.file), RecordWords(record), std::string(field.name),
              "it has a character outside of the page 1252"});
      }
    }
  }
  for (const EstimateRows::BadCell& cell : shop.Estimates().badTexts) {
    tell({cell.database, fmt::format("{} {}", cell.table, cell.row), cell.column,
          fmt::format("\"{}\" has a character outside of the page 1252", cell.text)});
  }
}

}  // namespace lantos
