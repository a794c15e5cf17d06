#include "shop/Records.h"

#include "records/CannedLabor.h"
#include "records/CheckList.h"
#include "records/Customers.h"
#include "records/Followups.h"
#include "records/MakesModels.h"
#include "records/Passwords.h"
#include "records/Payroll.h"
#include "records/PurchaseOrders.h"
#include "records/Vehicles.h"
#include "records/Vendors.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/NameList.h"
#include "records/inventory/UsageHistory.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"

namespace lantos {

struct Records::Families {
  Families(Environment& environment, ui::Desktop& desktop)
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
        usageHistory(environment, desktop, inventory),
        vendors(environment, desktop, system),
        payroll(environment, desktop, employees) {}

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
  Vendors vendors;
  Payroll payroll;
};

Records::Records(Environment& environment, ui::Desktop& desktop)
    : families_(std::make_unique<Families>(environment, desktop)),
      system(families_->system),
      vehicles(families_->vehicles),
      customers(families_->customers),
      makes(families_->makes),
      employees(families_->employees),
      passwords(families_->passwords),
      inventory(families_->inventory),
      kits(families_->kits),
      departments(families_->departments),
      manufacturers(families_->manufacturers),
      orders(families_->orders),
      followups(families_->followups),
      laborKits(families_->laborKits),
      checkList(families_->checkList),
      usageHistory(families_->usageHistory),
      vendors(families_->vendors),
      payroll(families_->payroll) {}

Records::~Records() = default;

}  // namespace lantos
