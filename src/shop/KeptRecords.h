#pragma once

#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "shop/Records.h"

namespace lantos {

// The working records belong to whoever reads into them. Who only needs them for a while keeps what stood there and
// puts it back, but never an old state of a record that was written meanwhile: the next to write it would undo that. An
// error on the way puts it back too.

class KeptVehicle {
 public:
  explicit KeptVehicle(Vehicles& vehicles);
  ~KeptVehicle() {
    if (!settled_) PutBack();
  }
  KeptVehicle(const KeptVehicle&) = delete;
  void PutBack();
  void Release() { settled_ = true; }  // what stands in the working record now is to stay
  // Nothing when the vehicle that was kept is the one now written and in the working record.
  void PutBackUnlessWritten(FileLink written);

 private:
  Vehicles& vehicles_;
  VehicleRecord record_;
  FileLink offset_;
  bool settled_ = false;
};

class KeptCustomer {
 public:
  explicit KeptCustomer(Customers& customers);
  ~KeptCustomer() {
    if (!settled_) PutBack();
  }
  KeptCustomer(const KeptCustomer&) = delete;
  void PutBack();
  void Release() { settled_ = true; }
  // From the file, as it may have been written since.
  void ReadAgain();

 private:
  Customers& customers_;
  CustomerTag tag_;
  CustomerRecord record_;
  bool settled_ = false;
};

// Nobody writes from the table of the check list but who shows it: it is always put back.
class KeptCheckList {
 public:
  explicit KeptCheckList(CheckListTable& table) : table_(table), items_(table.items), loaded_(table.ChecklistLoaded) {}
  ~KeptCheckList() {
    table_.items = std::move(items_);
    table_.ChecklistLoaded = loaded_;
  }
  KeptCheckList(const KeptCheckList&) = delete;

 private:
  CheckListTable& table_;
  std::vector<ChecklistItem> items_;
  bool loaded_;
};

}  // namespace lantos
