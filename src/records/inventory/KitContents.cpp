#include "records/inventory/KitContents.h"

#include <algorithm>

namespace lantos {

namespace {

// A line as it stands, blanks before it included, since its first characters count.
std::string LineAt(const InventoryKitRecord& kit, std::size_t number) {
  const TextField field = inventorykit::Line(number);
  const auto* begin = reinterpret_cast<const char*>(kit.Bytes().data()) + field.offset;
  const std::string_view line(begin, field.width);
  return std::string(line.substr(0, line.find('\0')));
}

// Than could be written from the texts, which for "()" would be nothing.
bool SaysMoreThan(std::string_view line, const KitLineTexts& texts) {
  const std::string rebuilt = JoinKitLine(texts);
  return rebuilt.empty() || rebuilt.size() > inventorykit::kLineUsed ||
         !TrimView(line.substr(std::min(line.size(), inventorykit::kLineUsed))).empty();
}

}  // namespace

KitContents::KitContents(const InventoryKitRecord& kit) {
  for (std::size_t i = 0; i < inventorykit::kLineCount; ++i) {
    std::string line = LineAt(kit, i);
    if (TrimView(std::string_view(line).substr(0, inventorykit::kLineUsed)).empty()) continue;
    KitLineTexts texts = SplitKitLine(line);
    if (!SaysMoreThan(line, texts)) line.clear();
    rows_.push_back({std::move(texts), std::move(line)});
  }
}

InventoryKitRecord KitContents::RecordOf(std::string_view number) const {
  InventoryKitRecord kit;
  kit.Put(inventorykit::KitNumber, Trim(number));
  for (std::size_t i = 0; i < rows_.size() && i < inventorykit::kLineCount; ++i) {
    const Row& row = rows_[i];
    kit.Put(inventorykit::Line(i), row.line.empty() ? JoinKitLine(row.texts) : row.line);
  }
  return kit;
}

}  // namespace lantos
