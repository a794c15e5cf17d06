#pragma once

#include <functional>
#include <unordered_map>
#include <vector>

#include "frame/Environment.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/Mailbox.h"
#include "records/inventory/NewerTag.h"
#include "records/inventory/TagPlaces.h"
#include "records/inventory/TagsOnFile.h"
#include "ui/Desktop.h"

namespace lantos {

// Takes what the other copies have told of into the list of parts. It works for a slice of time and is called again for
// the rest: until the last record is taken in, the mailbox stays as it is and is held. The part that the screens work
// on stays out of it.
class MailboxIntake {
 public:
  MailboxIntake(Environment& environment, ui::Desktop& desktop, Inventory& inventory, Mailbox& mailbox)
      : environment_(environment),
        inventory_(inventory),
        mailbox_(mailbox),
        walk_(environment, desktop, inventory),
        tags_(environment, desktop, inventory) {}

  // Nothing is left, too, when somebody has the mailbox, or the person gives up at a tag that can't be read: the
  // records wait for a later call.
  Mailbox::Left ProcessInventoryUpdates();
  // This copy has written the part itself, as this.
  void Follow(const InventoryTag& written);
  // What the tag file hasn't borne out for a minute is read from there.
  void ReadOverdue();

  // A part of the list is another one; a part joined the list.
  std::function<void(Inventory::PartIndex index, const InventoryTag& before)> onChanged;
  std::function<void(Inventory::PartIndex index)> onNew;

 private:
  enum class Progress { Going, Done, GivenUp };
  Progress WorkForASlice();
  Progress DoStep();
  bool ReadNext();
  bool BeginWalk();
  Progress TakeSome();
  enum class Taken { Yes, PlaceUnknown, GivenUp };
  Taken TakeKnown(Inventory::PartIndex index, const InventoryTag& received);
  bool TakeUnknown(const InventoryTag& received);
  enum class Moved { Taken, No, GivenUp };
  Moved TakeMoved(const InventoryTag& received);
  Inventory::PartIndex PartOfMaster(FileLink master);
  void Replace(Inventory::PartIndex index, const InventoryTag& tag);
  void End();

  Environment& environment_;
  Inventory& inventory_;
  Mailbox& mailbox_;
  TagPlaces walk_;
  TagsOnFile tags_;
  NewerTag newer_;
  LocalTime now_;  // of the step
  std::vector<InventoryTag> records_;
  std::size_t next_ = 0;
  bool hasWalked_ = false;                                            // for these records
  std::unordered_map<FileLink, Inventory::PartIndex> partsByMaster_;  // filled at the first number that is new
};

}  // namespace lantos
