#pragma once

#include <optional>

#include "records/inventory/Inventory.h"

namespace lantos {

// A part as a row of the inventory list knows it.
struct PartAt {
  FileLink master = kNoLink;  // where it lies, as the part's tag has it
  Inventory::PartIndex index = Inventory::kNoPart;
};

// The rows of the inventory list as they are shown: what a screen on one part needs to go to its neighbours.
class PartRows {
 public:
  virtual ~PartRows() = default;
  // Nothing at the ends, and for a part that has no row because the search leaves it out.
  virtual std::optional<PartAt> Before(Inventory::PartIndex part) const = 0;
  virtual std::optional<PartAt> After(Inventory::PartIndex part) const = 0;
  // The part was saved: its row is written anew from its tag.
  virtual void Refresh(Inventory::PartIndex part) = 0;
};

}  // namespace lantos
