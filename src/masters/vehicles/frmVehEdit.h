#pragma once

#include <functional>

#include "records/MakesModels.h"
#include "records/Vehicles.h"
#include "screens/EditForm.h"

namespace lantos {

// Edits a vehicle of the current customer. Saving changes the record it was given, once whoever showed the screen has
// stored it, if that is to be done while the screen is up.
class frmVehEdit : public EditForm {
 public:
  // The record outlives the screen.
  // store gets the record as it was shown and as it was typed, and makes of the latter the one that was stored. False
  // when it wasn't, which has been told: the screen stays.
  using Store = std::function<bool(const VehicleRecord& read, VehicleRecord& ours)>;
  frmVehEdit(Shop& shop, VehicleRecord& record, const std::string& caption, Store store = nullptr);

  ui::TextBox CustomerNumber{*this, "CustomerNumber"};
  ui::TextBox Lastname{*this, "Lastname"};
  ui::ComboBox Make{*this, "Make"};
  ui::ComboBox Model{*this, "Model"};
  ui::TextBox Year{*this, "Year"};
  ui::TextBox EngineSize{*this, "EngineSize"};
  ui::TextBox Transmission{*this, "Transmission"};
  ui::TextBox VIN{*this, "VIN"};
  ui::Label lblLicense{*this, "lblLicense"};
  ui::TextBox LicenseNumber{*this, "LicenseNumber"};
  ui::TextBox State{*this, "State"};
  ui::TextBox Mileage{*this, "Mileage"};
  ui::TextBox txtDate{*this, "txtDate"};
  ui::ControlArray<ui::TextBox, 4> VComment{*this, "VComment"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdReset{*this, "cmdReset", "&Reset"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 protected:
  void OnLoad() override;
  void OnActivate() override { Make.SetFocus(); }  // what is above it is seldom touched
  void Save() override;
  void ShowFields() override;
  void OtherKey(ui::KeyPress& key) override;

 private:
  void BindFields();
  void WatchCombo(ui::ComboBox& combo);
  void FillMakes();
  void FillModels();
  void MaintainMakes();
  bool CheckMileage();

  VehicleRecord& record_;
  Store store_;
  std::string modelsOf_;  // the make whose models are listed
};

}  // namespace lantos
