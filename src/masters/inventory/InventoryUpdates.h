#pragma once

#include <functional>

#include "records/inventory/MailboxIntake.h"
#include "records/inventory/OutgoingChanges.h"
#include "shop/Shop.h"
#include "ui/Controls.h"

namespace lantos {

// The timers by which the copies keep one another's lists of parts up to date: one sends this copy's changes, the other
// takes in those of the others.
class InventoryUpdates {
 public:
  // What becomes of the list on show.
  struct List {
    std::function<bool()> isLoading;
    std::function<void(Inventory::PartIndex index, const InventoryTag& before)> onChanged;
    std::function<void(Inventory::PartIndex index)> onNew;
    std::function<void()> show;  // after any number of these
  };
  InventoryUpdates(Shop& shop, ui::Timer& audit, ui::Timer& update, List list);
  ~InventoryUpdates();
  InventoryUpdates(const InventoryUpdates&) = delete;

  // Both timers begin.
  void Start();
  // At the end of the run: sends what waits, and lets go of the update file.
  void Finish();

 private:
  void AuditTick();
  void UpdateTick();
  void WarnOfMissingFile();

  Shop& shop_;
  ui::Timer& audit_;
  ui::Timer& update_;
  List list_;
  OutgoingChanges outgoing_;
  Mailbox mailbox_;
  MailboxIntake intake_;
  bool changed_ = false;  // since the list was shown
};

}  // namespace lantos
