#pragma once

#include <vector>

#include "frame/Environment.h"
#include "records/inventory/Inventory.h"
#include "ui/Desktop.h"

namespace lantos {

// One walk over the tag file from its end, a block a step, which finds the places of many parts at once: sought one by
// one, each would cost a walk of its own. The file is waited for without end, and held for the length of a step.
class TagPlaces {
 public:
  TagPlaces(Environment& environment, ui::Desktop& desktop, Inventory& inventory)
      : environment_(environment), desktop_(desktop), inventory_(inventory) {}

  // For these parts of the list, whose places aren't known. None of them may be there twice.
  void Begin(const std::vector<Inventory::PartIndex>& wanted);
  bool IsUnderWay() const { return wanted_ > 0 && end_ >= InventoryTag::kLength; }
  // Notes the places of the parts that this block has. As in every search from the end, of two tags of one number the
  // last counts.
  void Step();
  // The whole walk at once, for those of these parts whose places aren't known; a part may stand here twice. A file
  // that is held or can't be read leaves the rest unknown: the search for each asks about it.
  void FindWhereFree(std::vector<Inventory::PartIndex> parts);
  // The place of the last tag that leads to this master; kNoLink when there is none.
  FileLink FindByMaster(FileLink master);

 private:
  // Reads the block ahead of end_, which then is where that begins.
  void ReadBlock();
  // From the last tag of the block backwards, until look says that it has seen enough.
  template <class Look>
  void LookAtBlock(Look look) const;
  void AskForBlock();
  void NotePlaces();

  Environment& environment_;
  ui::Desktop& desktop_;
  Inventory& inventory_;
  std::vector<InventoryTag> block_;
  std::vector<bool> isWanted_;
  std::size_t wanted_ = 0;  // not found yet
  std::uint64_t end_ = 0;   // of what the walk hasn't come to yet, in bytes
};

}  // namespace lantos
