#pragma once

#include "records/MakesModels.h"
#include "records/Vehicles.h"
#include "screens/EditForm.h"

namespace lantos {

// Edits a vehicle of the current customer. Saving changes the record it was given; whoever showed the screen writes
// it.
class frmVehEdit : public EditForm {
 public:
  // The record outlives the screen.
  frmVehEdit(Shop& shop, VehicleRecord& record, const std::string& caption);

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
  std::string modelsOf_;  // the make whose models are listed
};

}  // namespace lantos
