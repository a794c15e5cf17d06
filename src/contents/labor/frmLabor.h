#pragma once

#include "contents/Workbench.h"
#include "contents/labor/FollowupEntry.h"
#include "records/LaborText.h"
#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// One line of labor: who, how long, at what rate, for how much, and its text.
class frmLabor : public OkCancelForm {
 public:
  frmLabor(Workbench& bench, const WoLaborLine& line);
  ~frmLabor() override { Unload(); }

  ui::Label lblEmployee{*this, "lblEmployee", "&Technician"};
  ui::ComboBox EmpList{*this, "EmpList"};
  ui::CheckBox Check1{*this, "Check1", "Active Emp. Only"};
  ui::CheckBox Check2{*this, "Check2", "Allow N&one"};
  ui::Button cmdTechHours{*this, "cmdTechHours", "Tech Hrs"};
  ui::Label lblHours{*this, "lblHours", "&Hours"};
  ui::TextBox Hours{*this, "Hours"};
  ui::Label lblShopRate{*this, "lblShopRate", "&Rate"};
  ui::TextBox ShopRate{*this, "ShopRate"};
  ui::Label lblTotalLabor{*this, "lblTotalLabor", "Tota&l"};
  ui::TextBox TotalLabor{*this, "TotalLabor"};
  ui::Label lblDesc{*this, "lblDesc", "&Description"};
  ui::TextBox txtDesc{*this, "txtDesc"};
  ui::Label lblMax{*this, "lblMax", "Max 8 lines of 64 characters each -- extra characters will be truncated."};
  ui::Frame frameFollowup{*this, "frameFollowup", "Followup"};
  ui::Label lblMiles{*this, "lblMiles", "&Miles"};
  ui::TextBox Miles{*this, "Miles"};
  ui::Label lblDays{*this, "lblDays", "Da&ys"};
  ui::TextBox Days{*this, "Days"};
  ui::Label lblFollowupDate{*this, "lblFollowupDate", "Dat&e"};
  ui::TextBox FollowupDate{*this, "FollowupDate"};
  ui::Label lblRepairCode{*this, "lblRepairCode", "Repair &Code"};
  ui::ComboBox lovRepairCode{*this, "lovRepairCode"};
  ui::Button cmdSpellCheck{*this, "cmdSpellCheck", "&Spell Check"};
  ui::Button OKButton{*this, "OKButton", "OK"};
  ui::Button CancelButton{*this, "CancelButton", "Cancel"};

  // False when no list of employees could be built: the screen isn't shown then.
  bool HasEmployees() const { return hasEmployees_; }
  WoLaborLine CurrentLabor;  // as it came, and as it was saved

 private:
  void OnLoad() override;
  void OnActivate() override { Hours.SetFocus(); }
  void OnUnload(bool& refuse) override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  void WireAmounts();
  void WireEmployees();
  void ShowLine();
  bool FillEmployees();
  void SelectMechanic(std::int32_t mechanic);
  std::int32_t SelectedMechanic() const;
  void ActiveOnlyClicked();
  void AllowNoneClicked();
  void PickByHours();
  void LoadRepairCodes();
  void RepairCodePicked();

  bool TakeDescription();
  void StoreLine();

  Workbench& bench_;
  Shop& shop_;
  const WoLaborLine atLoad_;
  FollowupEntry followup_{bench_, CurrentLabor, Miles, Days, FollowupDate};
  NumberFields amounts_{*this};
  NumberFields followupNumbers_{*this};  // which have a message of their own
  LaborText description_;                // as it will be stored
  bool hasEmployees_ = false;
  bool showing_ = false;    // the fields are being filled
  bool switching_ = false;  // a box is being put back
};

}  // namespace lantos
