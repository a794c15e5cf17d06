#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "shopmaker/SampleShop.h"
#include "shopmaker/SampleWork.h"

namespace lantos::sample {

// The live parts of a sample shop by what they are and which make they fit, as indexes into the shop's parts.
class PartShelf {
 public:
  explicit PartShelf(const SampleShop& shop);

  // Parts of the kind for the make; where there are none, or the kind fits all makes, any of the kind.
  const std::vector<std::size_t>& Fitting(PartKind kind, std::string_view make) const;

 private:
  void Place(std::size_t index, const PartKindEntry& kind, std::string_view description);

  struct Shelf {
    std::vector<std::size_t> any;
    std::map<std::string, std::vector<std::size_t>, std::less<>> byMake;  // in capitals, as descriptions have it
  };
  std::array<Shelf, kPartKindCount> shelves_;
};

}  // namespace lantos::sample
