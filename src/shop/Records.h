#pragma once

#include <memory>

#include "frame/Environment.h"
#include "ui/Desktop.h"

namespace lantos {

class CheckListTable;
class Customers;
class Followups;
class Inventory;
class InventoryKits;
class LaborKits;
class MakesModels;
class modEmployees;
class modSystem;
class NameList;
class Passwords;
class Payroll;
class PurchaseOrders;
class UsageHistory;
class Vehicles;
class Vendors;

// The shared flat files of one run, each family with its own working record. Whoever uses a family includes its header.
struct Records {
  Records(Environment& environment, ui::Desktop& desktop);
  ~Records();
  Records(const Records&) = delete;

 private:
  struct Families;
  std::unique_ptr<Families> families_;

 public:
  modSystem& system;
  Vehicles& vehicles;
  Customers& customers;
  MakesModels& makes;
  modEmployees& employees;
  Passwords& passwords;
  Inventory& inventory;
  InventoryKits& kits;
  NameList& departments;
  NameList& manufacturers;
  PurchaseOrders& orders;
  Followups& followups;
  LaborKits& laborKits;
  CheckListTable& checkList;
  UsageHistory& usageHistory;
  Vendors& vendors;
  Payroll& payroll;
};

}  // namespace lantos
