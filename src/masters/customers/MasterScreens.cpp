#include "masters/customers/MasterScreens.h"

#include "masters/customers/NameSearch.h"
#include "masters/customers/frmCustSearch.h"
#include "masters/vehicles/frmVehEdit.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "shop/KeptRecords.h"

namespace lantos {
namespace {

void PutName(CustomerRecord& record, TextField field, std::string_view name) {
  record.Put(field, Trim(Left(name, field.width - 1)));
}

}  // namespace

bool MasterScreens::CustomerMaintenance(bool allowEdit, bool forEstimate) {
  shop_.desktop.ShowStatus("Performing Customer Maintenance...");
  const bool chosen = RunSearch(allowEdit, forEstimate);
  shop_.desktop.ShowStatus("");
  return chosen;
}

bool MasterScreens::RunSearch(bool allowEdit, bool forEstimate) {
  const bool picks = forEstimate || !allowEdit;
  frmCustSearch search(shop_);
  search.cmdNew.SetEnabled(allowEdit || forEstimate);
  search.cmdCancel.SetCaption(picks ? "Cancel" : "Close");
  KeptCustomer kept(shop_.records.customers);
  bool edited = false;
  bool chosen = false;
  do {
    search.ShowModal();
    if (search.Result() == frmCustSearch::Request::None) break;
    const bool isNew = search.Result() == frmCustSearch::Request::New;
    std::unique_ptr<frmCustEdit> window;
    // From the first edit on what was kept may be out of date.
    if (isNew || !picks) kept.Release();
    if (isNew) {
      chosen = AddCustomer(true, window, search.NameKey.Text()) && picks;
    } else if (picks) {
      chosen = true;
    } else {
      EditCustomer(true, window);
    }
    if (window) {
      edited = true;
      window->Unload();
    }
    search.ShowHits();
  } while (!chosen);
  search.Unload();
  if (chosen) {
    kept.Release();
  } else if (edited) {
    kept.ReadAgain();
  } else {
    kept.PutBack();
  }
  return chosen;
}

frmCustEdit& MasterScreens::CustomerWindow(bool newWindow, std::unique_ptr<frmCustEdit>& window) {
  if (!newWindow && window) return *window;
  if (window) window->Unload();
  window = std::make_unique<frmCustEdit>(shop_);
  window->OpenVehicles = [this] { VehicleMaintenance(); };
  return *window;
}

bool MasterScreens::EditCustomer(bool newWindow, std::unique_ptr<frmCustEdit>& window) {
  frmCustEdit& edit = CustomerWindow(newWindow, window);
  edit.Begin(false);
  edit.ShowModal();
  return edit.Saved();
}

bool MasterScreens::AddCustomer(bool newWindow, std::unique_ptr<frmCustEdit>& window, std::string_view typedName) {
  Customers& customers = shop_.records.customers;
  KeptCustomer kept(customers);
  frmCustEdit& edit = CustomerWindow(newWindow, window);
  customers.NewCustomer();
  const NameParts name = SplitName(typedName);
  PutName(customers.CurrentCustomer, customer::Lastname, name.last);
  PutName(customers.CurrentCustomer, customer::Firstname, name.first);
  const std::int32_t number = customers.CurrentCustomer.Get(customer::Number);
  edit.Begin(true);
  edit.ShowModal();
  if (!edit.Saved()) return false;
  kept.Release();
  // The person may have gone on to another customer with the screen; the new one is the one that was added.
  return customers.FindCustomerTag(number) != customers.Count() && customers.ReadCustomer();
}

int MasterScreens::VehicleMaintenance() {
  frmVehList list(shop_);
  int result = 0;
  while (result == 0) {
    list.ShowModal();
    const frmVehList::Request request = list.Result();
    if (request == frmVehList::Request::None) break;
    if (request == frmVehList::Request::New) AddVehicle(list);
    if (request == frmVehList::Request::Edit) EditVehicle(list);
    if (request == frmVehList::Request::Select && SelectVehicle(list.Chosen())) result = kVehicleSelected;
  }
  list.Unload();
  return result;
}

void MasterScreens::AddVehicle(frmVehList& list) {
  Vehicles& vehicles = shop_.records.vehicles;
  const KeptVehicle kept(vehicles);
  vehicles.NewVehicle();
  vehicles.CurrentVehicleOffset = kNoLink;
  frmVehEdit edit(shop_, "New Vehicle");
  edit.ShowModal();
  const bool saved = edit.Saved();
  edit.Unload();
  if (saved) {
    shop_.records.customers.AppendVehicle();
    if (vehicles.CurrentVehicleOffset != kNoLink) list.AddRow();
  }
}

void MasterScreens::EditVehicle(frmVehList& list) {
  Vehicles& vehicles = shop_.records.vehicles;
  KeptVehicle kept(vehicles);
  const FileLink link = list.Chosen();
  bool written = false;
  vehicles.ReadVehicle(link);
  if (vehicles.CurrentVehicleOffset == link) {
    frmVehEdit edit(shop_, "Edit Vehicle");
    edit.ShowModal();
    const bool saved = edit.Saved();
    edit.Unload();
    if (saved) vehicles.WriteVehicle();
    written = saved && vehicles.CurrentVehicleOffset == link;
    if (written) list.UpdateRow();
  }
  kept.PutBackUnlessWritten(written ? link : kNoLink);
}

// A vehicle that couldn't be read isn't selected; the list comes back.
bool MasterScreens::SelectVehicle(FileLink link) {
  Vehicles& vehicles = shop_.records.vehicles;
  KeptVehicle kept(vehicles);
  vehicles.ReadVehicle(link);
  if (vehicles.CurrentVehicleOffset != link) return false;
  kept.Release();
  return true;
}

}  // namespace lantos
