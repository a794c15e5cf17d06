#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "shopmaker/GrowingFile.h"
#include "shopmaker/SampleShop.h"
#include "workorders/Workorder.h"

namespace lantos::sample {

// The parts that left the stock, each part's chained from the newest back.
class UsageWriter {
 public:
  UsageWriter(ShopDirectory& directory, const SampleShop& shop);

  // A work order that was given up took none.
  void Add(const Workorder& workorder, WoStatus status);
  // The newest record of each part, by its index.
  std::vector<FileLink> Close();

 private:
  GrowingFile file_;
  std::vector<FileLink> newest_;
  std::unordered_map<std::string_view, std::size_t> index_;
};

}  // namespace lantos::sample
