#include "masters/customers/MasterScreens.h"

#include "masters/customers/KeptCustomer.h"
#include "masters/customers/NameSearch.h"
#include "masters/customers/frmCustSearch.h"
#include "masters/vehicles/StoredVehicle.h"
#include "masters/vehicles/frmVehEdit.h"
#include "records/Customers.h"
#include "records/Vehicles.h"

namespace lantos {
namespace {

void PutName(CustomerRecord& record, TextField field, std::string_view name) {
  record.Put(field, Trim(Left(name, field.width - 1)));
}

}  // namespace

bool MasterScreens::CustomerMaintenance(Purpose purpose, std::string_view forWhat) {
  shop_.desktop.ShowStatus("Performing Customer Maintenance...");
  const bool chosen = RunSearch(purpose, forWhat);
  shop_.desktop.ShowStatus("");
  return chosen;
}

bool MasterScreens::RunSearch(Purpose purpose, std::string_view forWhat) {
  const bool picks = purpose != Purpose::Maintain;
  frmCustSearch search(shop_);
  if (!forWhat.empty()) search.SetCaption(search.Caption() + " - " + std::string(forWhat));
  search.cmdNew.SetEnabled(purpose != Purpose::ChooseOnly);
  search.cmdCancel.SetCaption(picks ? "Cancel" : "Close");
  KeptCustomer before(shop_.records.customers);
  bool edited = false;
  bool chosen = false;
  do {
    search.ShowModal();
    if (search.Result() == frmCustSearch::Request::None) break;
    const bool isNew = search.Result() == frmCustSearch::Request::New;
    std::unique_ptr<frmCustEdit> window;
    // From the first edit on what was kept may be out of date.
    if (isNew || !picks) before.Release();
    if (isNew) {
      chosen = AddCustomer(Window::New, window, search.NameKey.Text()) && picks;
    } else if (picks) {
      chosen = true;
    } else {
      EditCustomer(Window::New, window);
    }
    if (window) {
      edited = true;
      window->Unload();
    }
    search.ShowHits();
  } while (!chosen);
  search.Unload();
  if (chosen) {
    before.Release();
  } else if (edited) {
    before.ReadAgain();
  }
  return chosen;
}

frmCustEdit& MasterScreens::CustomerWindow(Window which, std::unique_ptr<frmCustEdit>& window) {
  if (which == Window::Kept && window) return *window;
  if (window) window->Unload();
  window = std::make_unique<frmCustEdit>(shop_);
  // The customer may have been on show for long: the chain is walked as it is.
  window->OpenVehicles = [this] {
    if (shop_.records.customers.ReadCustomer(Customers::From::File)) VehicleMaintenance();
  };
  return *window;
}

bool MasterScreens::EditCustomer(Window which, std::unique_ptr<frmCustEdit>& window) {
  frmCustEdit& edit = CustomerWindow(which, window);
  edit.Begin(frmCustEdit::Customer::Known);
  edit.ShowModal();
  return edit.Saved();
}

bool MasterScreens::AddCustomer(Window which, std::unique_ptr<frmCustEdit>& window, std::string_view typedName) {
  Customers& customers = shop_.records.customers;
  KeptCustomer before(customers);
  frmCustEdit& edit = CustomerWindow(which, window);
  if (!customers.NewCustomer()) return false;
  const NameParts name = SplitName(typedName);
  PutName(customers.CurrentCustomer, customer::Lastname, name.last);
  PutName(customers.CurrentCustomer, customer::Firstname, name.first);
  edit.Begin(frmCustEdit::Customer::New);
  edit.ShowModal();
  if (!edit.Saved()) return false;
  before.Release();
  // The person may have gone on to another customer with the screen; the new one is the one that was added.
  return customers.MakeCurrent(edit.Added());
}

MasterScreens::VehicleChoice MasterScreens::VehicleMaintenance() {
  frmVehList list(shop_, vehicleHistory);
  VehicleChoice choice = VehicleChoice::None;
  while (choice == VehicleChoice::None) {
    list.ShowModal();
    const frmVehList::Request request = list.Result();
    if (request == frmVehList::Request::None) break;
    if (request == frmVehList::Request::New) AddVehicle(list);
    if (request == frmVehList::Request::Edit) EditVehicle(list);
    if (request == frmVehList::Request::Select && SelectVehicle(list.Chosen())) choice = VehicleChoice::Selected;
  }
  list.Unload();
  return choice;
}

void MasterScreens::AddVehicle(frmVehList& list) {
  VehicleRecord record = shop_.records.vehicles.NewVehicle();
  FileLink link = kNoLink;
  const auto append = [&](const VehicleRecord&, VehicleRecord& ours) {
    return shop_.records.customers.AppendVehicle(ours, &link) != kNoLink;
  };
  if (EditFields(record, "New Vehicle", append)) list.AddRow(record, link);
}

void MasterScreens::EditVehicle(frmVehList& list) {
  Vehicles& vehicles = shop_.records.vehicles;
  const FileLink link = list.Chosen();
  const std::string title = "Edit Vehicle";
  std::optional<VehicleRecord> record = vehicles.Read(link);
  const auto store = [&](const VehicleRecord& read, VehicleRecord& ours) {
    return StoreVehicle(shop_, link, read, ours, title) == VehicleStored::Yes;
  };
  if (record && EditFields(*record, title, store)) list.UpdateRow(*record, link);
}

bool MasterScreens::EditFields(VehicleRecord& record, const std::string& caption, const frmVehEdit::Store& store) {
  frmVehEdit edit(shop_, record, caption, store);
  edit.ShowModal();
  const bool saved = edit.Saved();
  edit.Unload();
  return saved;
}

// A vehicle that couldn't be read isn't selected; the list comes back.
bool MasterScreens::SelectVehicle(FileLink link) {
  Vehicles& vehicles = shop_.records.vehicles;
  const std::optional<VehicleRecord> record = vehicles.Read(link);
  if (record) vehicles.MakeCurrent(*record, link);
  return record.has_value();
}

}  // namespace lantos
