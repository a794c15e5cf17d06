#pragma once

#include "records/CannedLabor.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/Followups.h"
#include "records/Inventory.h"
#include "records/InventoryKits.h"
#include "records/MakesModels.h"
#include "records/NameList.h"
#include "records/Passwords.h"
#include "records/PurchaseOrders.h"
#include "records/UsageHistory.h"
#include "records/Vehicles.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"

namespace lantos {

// The shared flat files of one run, each family with its own working record.
struct Records {
  Records(Environment& environment, ui::Desktop& desktop)
      : system(environment, desktop),
        vehicles(environment, desktop, system),
        customers(environment, desktop, system, vehicles),
        makes(environment),
        employees(environment),
        passwords(environment),
        inventory(environment, desktop, system),
        kits(environment, desktop),
        departments(environment, kDepartmentFile),
        manufacturers(environment, kManufacturerFile),
        orders(environment, desktop),
        followups(environment),
        laborKits(environment),
        checkList(environment),
        usageHistory(environment, desktop, inventory) {}

  modSystem system;
  Vehicles vehicles;
  Customers customers;
  MakesModels makes;
  modEmployees employees;
  Passwords passwords;
  Inventory inventory;
  InventoryKits kits;
  NameList departments;
  NameList manufacturers;
  PurchaseOrders orders;
  Followups followups;
  LaborKits laborKits;
  CheckListTable checkList;
  UsageHistory usageHistory;
};

}  // namespace lantos
