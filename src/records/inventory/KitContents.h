#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "records/inventory/InventoryKits.h"

namespace lantos {

// What a kit consists of, to be edited: kLineCount rows at most, in order, and no blank ones between them.
class KitContents {
 public:
  explicit KitContents(const InventoryKitRecord& kit);

  std::size_t Count() const { return rows_.size(); }
  bool IsFull() const { return Count() == inventorykit::kLineCount; }
  const KitLineTexts& operator[](std::size_t row) const { return rows_.at(row).texts; }

  void Add(KitLineTexts texts) { rows_.push_back({std::move(texts), {}}); }
  void Change(std::size_t row, KitLineTexts texts) { rows_.at(row) = {std::move(texts), {}}; }
  void Remove(std::size_t row) { rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row)); }
  void Swap(std::size_t a, std::size_t b) { std::swap(rows_.at(a), rows_.at(b)); }

  // The whole record of the kit of that number: a line for each row, blank ones behind them.
  InventoryKitRecord RecordOf(std::string_view number) const;

 private:
  struct Row {
    KitLineTexts texts;
    // The whole line of the file, of which the texts are the beginning only. It stays for as long as the row does.
    std::string line;
  };
  std::vector<Row> rows_;
};

}  // namespace lantos
