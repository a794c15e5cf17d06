#pragma once

#include <memory>
#include <string_view>

#include "masters/customers/frmCustEdit.h"
#include "masters/vehicles/frmVehList.h"
#include "shop/Shop.h"

namespace lantos {

// What the rest of the program asks of the customer and vehicle screens. Each works on the records CurrentCustomer and
// CurrentVehicle; when nothing was chosen they are as before.
class MasterScreens {
 public:
  explicit MasterScreens(Shop& shop) : shop_(shop) {}

  // The customer search, for as long as the person stays. For an estimate, or without leave to edit, a selected
  // customer is the result, and so is a new one that was saved. Else (maintenance) a selection opens the edit screen
  // and the search comes back after it. Without leave to edit and not for an estimate there are no new customers.
  // True when a customer was chosen, who then is CurrentCustomer.
  bool CustomerMaintenance(bool allowEdit, bool forEstimate);

  // The edit screen on CurrentCustomer; with newWindow, or without a window, it is made first. True when something
  // was saved.
  bool EditCustomer(bool newWindow, std::unique_ptr<frmCustEdit>& window);
  // The same on a new customer, who takes a number at once. typedName is what the search was given. When the customer
  // wasn't saved CurrentCustomer is as before.
  bool AddCustomer(bool newWindow, std::unique_ptr<frmCustEdit>& window, std::string_view typedName);

  // The vehicle list of CurrentCustomer: 3 when a vehicle was selected, who then is CurrentVehicle, else 0.
  int VehicleMaintenance();

 private:
  bool RunSearch(bool allowEdit, bool forEstimate);
  frmCustEdit& CustomerWindow(bool newWindow, std::unique_ptr<frmCustEdit>& window);
  void AddVehicle(frmVehList& list);
  void EditVehicle(frmVehList& list);
  bool SelectVehicle(FileLink link);

  Shop& shop_;
};

inline constexpr int kVehicleSelected = 3;

}  // namespace lantos
