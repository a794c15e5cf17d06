#pragma once

#include <map>
#include <set>
#include <vector>

#include "records/inventory/Inventory.h"

namespace lantos {

// Which tag of a part holds: the one that another copy has told of, or the one in the tag file. Who changes a part
// writes the file first and tells of it up to five seconds later, so that the word of an earlier change may come behind
// a later one. The file knows better then, unless it is the file that is behind, as with a program that tells of a
// change ahead of writing it.
class NewerTag {
 public:
  // listed is what the list has. The result is one of the two others, and good for as long as they are.
  const InventoryTag& Choose(Inventory::PartIndex part, const InventoryTag& listed, const InventoryTag& received,
                             const InventoryTag& inFile, LocalTime now);
  // The list has this part as the file has it, by a change of this run.
  void Follow(Inventory::PartIndex part);
  bool Follows(Inventory::PartIndex part) const { return followed_.contains(part); }
  // Parts whose last word the file hasn't borne out for so long.
  std::vector<Inventory::PartIndex> AheadOfFile(LocalTime now, std::int64_t milliseconds) const;

 private:
  struct Ahead {
    InventoryTag inFile;
    LocalTime since;
  };
  std::set<Inventory::PartIndex> followed_;
  std::map<Inventory::PartIndex, Ahead> ahead_;
};

}  // namespace lantos
