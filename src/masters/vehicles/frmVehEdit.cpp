#include "masters/vehicles/frmVehEdit.h"

#include <limits>
#include <utility>

#include "frame/Numbers.h"
#include "masters/vehicles/frmMakeModel.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"

namespace lantos {
namespace {

// Puts the list under the text without a word to anybody: the row that bears it becomes current.
void MatchRow(ui::ComboBox& combo) {
  const int row = combo.FindText(combo.Text());
  if (row >= 0) combo.SetListIndex(row);
}

}  // namespace

frmVehEdit::frmVehEdit(Shop& shop, VehicleRecord& record, const std::string& caption, Store store)
    : EditForm(shop, "frmVehEdit", caption), record_(record), store_(std::move(store)) {
  SetSize(9600, 7200);
  lblLicense.SetCaption(shop.environment.fleetVersion ? "Unit Number" : "License Number");
  ShowOnly(CustomerNumber);
  ShowOnly(Lastname);
  BindFields();
  SetEditButtons(cmdSave, cmdReset, cmdCancel);
}

void frmVehEdit::BindFields() {
  for (ui::ComboBox* combo : {&Make, &Model}) {
    combo->SetEditable(true);
    combo->SetToolTip("Makes and models <Insert>");
    WatchCombo(*combo);
  }
  Bind(Make, vehicle::Make);
  Bind(Model, vehicle::Model);
  Bind(Year, vehicle::Year);
  Bind(EngineSize, vehicle::EngineSize);
  Bind(Transmission, vehicle::Transmission);
  Bind(VIN, vehicle::VIN);
  Bind(LicenseNumber, vehicle::LicenseNumber);
  Bind(State, vehicle::State);
  for (std::size_t i = 0; i < VComment.size(); ++i) Bind(VComment[i], vehicle::VComment[i]);
  Mileage.SetMaxLength(14);
  Watch(Mileage);
  numbers_.Add(Mileage, "Mileage", NumberFields::Read::Whole);
  BindDate(txtDate);
}

// Both a typed text and a picked row; only a make has a list that hangs on it.
void frmVehEdit::WatchCombo(ui::ComboBox& combo) {
  combo.OnChange = combo.OnClick = [this] {
    MarkChanged();
    if (Make.Text() != modelsOf_) FillModels();
  };
}

void frmVehEdit::OnLoad() {
  if (shop_.records.makes.Makes().empty()) shop_.records.makes.LoadMakes();
  FillMakes();
  Reset();
}

void frmVehEdit::FillMakes() {
  const Quiet quiet(*this);
  Make.Clear();
  for (const lantos::Make& make : shop_.records.makes.Makes()) Make.AddItem(make.Name);
  MatchRow(Make);
  FillModels();
}

void frmVehEdit::FillModels() {
  const Quiet quiet(*this);
  modelsOf_ = Make.Text();
  Model.Clear();
  for (const lantos::Model& model : shop_.records.makes.Models()) {
    if (model.Make == modelsOf_) Model.AddItem(model.Name);
  }
  MatchRow(Model);
}

void frmVehEdit::ShowFields() {
  const CustomerRecord& owner = shop_.records.customers.CurrentCustomer;
  CustomerNumber.SetText(FormatZeros(owner.Get(customer::Number), 6));
  Lastname.SetText(owner.Get(customer::Lastname));
  ShowTexts(record_);
  Mileage.SetText(std::to_string(record_.Get(vehicle::Mileage)));
  ShowDate(txtDate, record_.Get(vehicle::Date));
}

void frmVehEdit::OtherKey(ui::KeyPress& key) {
  if (!key.Is("Insert") || (!Make.HasFocus() && !Model.HasFocus())) return;
  key.Clear();
  MaintainMakes();
}

void frmVehEdit::MaintainMakes() {
  frmMakeModel makes(shop_);
  makes.ShowModal();
  makes.Unload();
  FillMakes();
}

bool frmVehEdit::CheckMileage() {
  if (TrimView(Mileage.Text()).empty()) Mileage.SetText("0");
  if (IsNumeric(Mileage.Text())) {
    const double value = ToNumber(Mileage.Text());
    if (value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max()) {
      return true;
    }
  }
  shop_.desktop.Tell("Invalid mileage - must be numeric.", Caption(), ui::Icon::Exclamation);
  return false;
}

void frmVehEdit::Save() {
  if (!CheckMileage()) return Mileage.SetFocus();
  if (!CheckDate(txtDate)) return txtDate.SetFocus();
  VehicleRecord ours = record_;
  StoreTexts(ours);
  ours.Put(vehicle::Number, shop_.records.customers.CurrentCustomer.Get(customer::Number));
  ours.Put(vehicle::Mileage, ToLongOrZero(Mileage.Text()));
  ours.Put(vehicle::Date, DateIn(txtDate, record_.Get(vehicle::Date)));
  Vehicles::FollowFirstMileage(ours);
  if (store_ && !store_(record_, ours)) return;
  record_ = ours;
  MarkUnchanged();
  MarkSaved(true);
  Hide();
}

}  // namespace lantos
