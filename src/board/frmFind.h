#pragma once

#include <optional>
#include <string_view>

#include "estimatedb/EstimateDatabase.h"
#include "masters/customers/MasterScreens.h"
#include "records/CustomerTag.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The estimates of a customer, of all vehicles or of one, to go to one of them.
class frmFind : public SizedForm {
 public:
  frmFind(Shop& shop, EstimateDatabase& database, MasterScreens& masters);

  ui::Label lblCombo1{*this, "lblCombo1", "Cust&omer"};
  ui::ComboBox Combo1{*this, "Combo1"};
  ui::Button cmdSearch{*this, "cmdSearch", "Search..."};
  ui::Label lblCustomer{*this, "lblCustomer"};
  ui::Label lblCombo2{*this, "lblCombo2", "&Vehicle"};
  ui::ComboBox Combo2{*this, "Combo2"};
  ui::Button cmdUpdate{*this, "cmdUpdate", "Update"};
  ui::ListBox List1{*this, "List1"};
  ui::Label lblResults{*this, "lblResults"};
  ui::Button cmdSelect{*this, "cmdSelect", "&Select"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};

  // The estimate that was selected; nothing when the person left without one.
  const std::optional<std::int32_t>& Chosen() const { return chosen_; }

 private:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  void FillCustomers();
  void SelectCustomer(std::int32_t number);
  int RowFor(const CustomerTag& tag) const;
  void CustomerClicked();
  void FillVehicles();
  void VehicleClicked();
  void Search();
  void Update();
  void ClearList();
  void FollowList();
  void Select();
  std::int32_t Customer() const;

  Shop& shop_;
  EstimateDatabase& database_;
  MasterScreens& masters_;
  std::int32_t customer_ = 0;  // whose vehicles are in Combo2; 0: nobody's
  FileLink vehicle_ = kNoLink;
  std::optional<std::int32_t> chosen_;
};

}  // namespace lantos
