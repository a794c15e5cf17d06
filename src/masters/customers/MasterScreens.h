#pragma once

#include <memory>
#include <string_view>

#include "masters/customers/frmCustEdit.h"
#include "masters/vehicles/frmVehEdit.h"
#include "masters/vehicles/frmVehList.h"
#include "shop/Shop.h"

namespace lantos {

// What the rest of the program asks of the customer and vehicle screens. Each works on the records CurrentCustomer and
// CurrentVehicle; when nothing was chosen they are as before.
class MasterScreens {
 public:
  explicit MasterScreens(Shop& shop) : shop_(shop) {}

  // What the vehicle list has for the history of a vehicle, if anything.
  frmVehList::History vehicleHistory;

  // The customer search, for as long as the person stays. To maintain, a selection opens the edit screen and the search
  // comes back after it. Else a selected customer is the result, and so is a new one that was saved; whoever may only
  // choose makes no new ones. The caption ends in what the customer is for, if that is said. True when a customer was
  // chosen, who then is CurrentCustomer.
  enum class Purpose { Maintain, ChooseForEstimate, ChooseOnly };
  bool CustomerMaintenance(Purpose purpose, std::string_view forWhat = "");

  // The edit screen on CurrentCustomer, in a window made for it, or in the one that is there already. True when
  // something was saved.
  enum class Window { New, Kept };
  bool EditCustomer(Window which, std::unique_ptr<frmCustEdit>& window);
  // The same on a new customer, who takes a number at once. typedName is what the search was given. When the customer
  // wasn't saved CurrentCustomer is as before.
  bool AddCustomer(Window which, std::unique_ptr<frmCustEdit>& window, std::string_view typedName);

  // The vehicle list of CurrentCustomer. A vehicle that was selected is CurrentVehicle then.
  enum class VehicleChoice { None, Selected };
  VehicleChoice VehicleMaintenance();

 private:
  bool RunSearch(Purpose purpose, std::string_view forWhat);
  frmCustEdit& CustomerWindow(Window which, std::unique_ptr<frmCustEdit>& window);
  void AddVehicle(frmVehList& list);
  void EditVehicle(frmVehList& list);
  bool EditFields(VehicleRecord& record, const std::string& caption, const frmVehEdit::Store& store);
  bool SelectVehicle(FileLink link);

  Shop& shop_;
};

}  // namespace lantos
