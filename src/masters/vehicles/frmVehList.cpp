#include "masters/vehicles/frmVehList.h"

#include <algorithm>
#include <utility>

#include "frame/Numbers.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"

namespace lantos {
namespace {

constexpr std::string_view kSortSetting = "frmVehListSort";
constexpr std::string_view kShowDeletedSetting = "frmVehListShowDel";

std::vector<ui::GridColumn> GridColumns(bool fleet) {
  std::vector<ui::GridColumn> columns;
  for (std::size_t i = 0; i < kVehicleColumnCount; ++i) {
    const VehicleColumn column = static_cast<VehicleColumn>(i);
    const std::string name(NameOf(column, fleet));
    const bool number =
        column == VehicleColumn::Mileage || column == VehicleColumn::VLink || column == VehicleColumn::Deleted;
    const bool bookkeeping = column == VehicleColumn::VLink || column == VehicleColumn::Deleted;
    columns.push_back({name, name, number, bookkeeping});
  }
  return columns;
}

ui::GridRow GridRowOf(const VehicleRow& row) {
  ui::GridRow shown;
  for (std::size_t i = 0; i < kVehicleColumnCount; ++i)
    shown.cells.push_back(CellOf(row, static_cast<VehicleColumn>(i)));
  shown.data = row.VLink;
  return shown;
}

std::string DescriptionOf(const VehicleRow& row) { return row.Year + " " + row.Make + " " + row.Model; }

}  // namespace

frmVehList::frmVehList(Shop& shop, History history)
    : Form(shop.desktop, "frmVehList", "Vehicle List"),
      shop_(shop),
      history_(std::move(history)),
      fleet_(shop.environment.fleetVersion) {
  SetSize(12000, 7200);
  for (ui::TextBox* box : {&CustomerNumber, &CustName}) {
    box->SetLocked(true);
    box->SetTabStop(false);
  }
  lblLicense.SetCaption(fleet_ ? "Unit #" : "License #");
  CustomerNumber.SetSpokenName("Customer number");
  CustName.SetSpokenName("Customer name");
  DataGrid1.SetSpokenName("Vehicles");
  DataGrid1.SetColumns(GridColumns(fleet_));
  WireFilters();
  WireButtons();
}

void frmVehList::WireFilters() {
  for (ui::TextBox* box : {&txtYear, &txtMake, &txtModel, &txtLicense, &txtVIN}) {
    box->OnChange = [this] { ShowRows(); };
  }
  chkShowDeleted.OnClick = [this] {
    shop_.environment.settings.Save(kShowDeletedSetting, chkShowDeleted.Value() ? "True" : "False");
    ShowRows();
  };
  DataGrid1.OnHeadClick = [this](int column) { SortBy(static_cast<VehicleColumn>(column)); };
  DataGrid1.OnDoubleClick = [this] { LeaveWithRow(Request::Select); };
}

void frmVehList::WireButtons() {
  cmdSelect.SetToolTip("Select <F10>");
  cmdEdit.SetToolTip("Edit <Enter>");
  cmdNew.SetToolTip("New <Insert>");
  cmdDelete.SetToolTip("Delete <Ctrl+Del>");
  cmdHistory.SetToolTip("Generate History Report for Selected");
  cmdCancel.SetToolTip("Cancel <Esc>");
  cmdHistory.SetEnabled(history_ != nullptr);
  cmdSelect.OnClick = [this] { LeaveWithRow(Request::Select); };
  cmdEdit.OnClick = [this] { LeaveWithRow(Request::Edit); };
  cmdNew.OnClick = [this] { LeaveWith(Request::New); };
  cmdDelete.OnClick = [this] { Delete(); };
  cmdHistory.OnClick = [this] { ShowHistory(); };
  cmdCancel.OnClick = [this] { LeaveWith(Request::None); };
  SetDefaultButton(cmdEdit);
  SetCancelButton(cmdCancel);
}

void frmVehList::OnLoad() {
  const CustomerRecord& owner = shop_.records.customers.CurrentCustomer;
  CustomerNumber.SetText(FormatZeros(owner.Get(customer::Number), 6));
  CustName.SetText(owner.Get(customer::Lastname) + ", " + owner.Get(customer::Firstname));
  sort_ = VehicleSort::Parse(shop_.environment.settings.Get(kSortSetting, "VIN"));
  DataGrid1.SetSortedBy(sort_.Text(fleet_));
  ReadRows();
  chkShowDeleted.SetValue(shop_.environment.settings.GetBoolean(kShowDeletedSetting, false));
  ShowRows();
}

void frmVehList::OnActivate() {
  if (Focus() == &txtYear) DataGrid1.SetFocus();
}

void frmVehList::OnQueryClose(bool&) { LeaveWith(Request::None); }

void frmVehList::OnKeyDown(ui::KeyPress& key) {
  if (shop_.keys.HandleGlobalKeys(key, *this)) return;
  if (key.Is("Down") && dynamic_cast<ui::TextBox*>(Focus()) != nullptr && DataGrid1.RowCount() > 0) {
    key.Clear();
    return DataGrid1.SetFocus();
  }
  ui::Button* button = nullptr;
  if (key.Is("F10")) button = &cmdSelect;
  if (key.Is("Insert")) button = &cmdNew;
  if (key.IsControl("Delete")) button = &cmdDelete;
  if (key.Is("Esc")) button = &cmdCancel;
  // On a button the key presses that button.
  if (key.Is("Enter") && dynamic_cast<ui::Button*>(Focus()) == nullptr) button = &cmdEdit;
  if (button == nullptr) return;
  key.Clear();
  button->OnClick();
}

void frmVehList::ReadRows() {
  rows_.clear();
  shop_.records.vehicles.Walk(shop_.records.customers.CurrentCustomer.Get(customer::VLink),
                              [&](const VehicleRecord& record, FileLink link) {
                                rows_.push_back(MakeVehicleRow(record, link));
                                return true;
                              });
}

// The current row stays on its vehicle while that is shown; else it is the first.
void frmVehList::ShowRows() {
  const VehicleFilter filter{txtYear.Text(),    txtMake.Text(), txtModel.Text(),
                             txtLicense.Text(), txtVIN.Text(),  chkShowDeleted.Value()};
  const FileLink current = Chosen();
  std::vector<ui::GridRow> shown;
  int row = 0;
  for (const VehicleRow* each : Arrange(rows_, filter, sort_)) {
    if (each->VLink == current) row = static_cast<int>(shown.size());
    shown.push_back(GridRowOf(*each));
  }
  const bool any = !shown.empty();
  DataGrid1.SetRows(std::move(shown));
  if (any) DataGrid1.SetRow(row);
}

void frmVehList::SortBy(VehicleColumn column) {
  sort_.descending = sort_.column == column && !sort_.descending;
  sort_.column = column;
  const std::string text = sort_.Text(fleet_);
  shop_.environment.settings.Save(kSortSetting, text);
  DataGrid1.SetSortedBy(text);
  ShowRows();
}

FileLink frmVehList::Chosen() const {
  return DataGrid1.Row() < 0 ? kNoLink : DataGrid1.Rows()[static_cast<std::size_t>(DataGrid1.Row())].data;
}

VehicleRow* frmVehList::FindRow(FileLink link) {
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [link](const VehicleRow& row) { return row.VLink == link; });
  return found == rows_.end() ? nullptr : &*found;
}

void frmVehList::AddRow(const VehicleRecord& record, FileLink link) {
  rows_.insert(rows_.begin(), MakeVehicleRow(record, link));
  ShowRows();
  for (int row = 0; row < DataGrid1.RowCount(); ++row) {
    if (DataGrid1.Rows()[static_cast<std::size_t>(row)].data == link) DataGrid1.SetRow(row);
  }
}

void frmVehList::UpdateRow(const VehicleRecord& record, FileLink link) {
  VehicleRow* row = FindRow(link);
  if (row == nullptr) return;
  *row = MakeVehicleRow(record, link);
  ShowRows();
}

void frmVehList::LeaveWithRow(Request request) {
  if (Chosen() == kNoLink) return shop_.desktop.Tell("No vehicle selected.", Caption(), ui::Icon::Exclamation);
  LeaveWith(request);
}

void frmVehList::LeaveWith(Request request) {
  request_ = request;
  Hide();
}

void frmVehList::Delete() {
  const VehicleRow* row = FindRow(Chosen());
  if (row == nullptr) {
    return shop_.desktop.Tell("Must select a vehicle to delete.", Caption(), ui::Icon::Exclamation);
  }
  const std::string description = DescriptionOf(*row);
  const std::string title = row->IsDeleted() ? "Undelete vehicle" : "Delete vehicle";
  const std::string text = row->IsDeleted() ? "Return the " + description + " to this customer?"
                                            : "Delete the " + description + " from this customer?";
  if (shop_.desktop.Ask(text, title, ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes) {
    Toggle(row->VLink, title);
  }
}

void frmVehList::ShowHistory() {
  const VehicleRow* row = FindRow(Chosen());
  if (row == nullptr) return shop_.desktop.Tell("No vehicle selected.", Caption(), ui::Icon::Exclamation);
  if (history_(row->VIN, DescriptionOf(*row))) return;
  shop_.desktop.Tell(
      "Vehicle History by VIN report could not be generated.\r"
      "This can be because there is either no VIN or no history in the last three years.",
      "Vehicle History by VIN", ui::Icon::Exclamation);
}

// By what the record holds, which another workstation may have changed since the list was filled.
void frmVehList::Toggle(FileLink link, const std::string& title) {
  Vehicles& vehicles = shop_.records.vehicles;
  const std::optional<VehicleRecord> record = vehicles.Read(link);
  if (!record) return;
  const bool deletes = record->Get(vehicle::Deleted) != kVehicleDeleted;
  const std::optional<VehicleRecord> stored = vehicles.Update(
      link, [&](VehicleRecord& each) { each.Put(vehicle::Deleted, deletes ? kVehicleDeleted : kVehicleLive); });
  if (!stored) return;
  UpdateRow(*stored, link);
  shop_.desktop.Tell(deletes ? "Vehicle deleted from this customer." : "Vehicle restored to this customer.", title,
                     ui::Icon::Information);
}

}  // namespace lantos
