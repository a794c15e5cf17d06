#pragma once

#include <array>
#include <cstdint>

#include "estimatedb/de.h"
#include "masters/employees/CodeBoxes.h"
#include "masters/employees/EmployeeChoice.h"
#include "screens/EditForm.h"
#include "screens/NumberBoxes.h"

namespace lantos {

// How each employee is paid, and what is held back. The additional withholding, and whether the pay stub has the social
// security number, lie in the main application's database; without it those take no input.
class frmEmpPRInfo : public EditForm {
 public:
  // Begins with this employee, or with nobody.
  frmEmpPRInfo(Shop& shop, de2& database, std::int32_t employee);

  ui::ComboBox EmpList{*this, "EmpList"};
  ui::CheckBox Check1{*this, "Check1", "Active Emp. &Only"};
  ui::TextBox SocSecNum{*this, "SocSecNum"};
  ui::TextBox EmpAddr{*this, "EmpAddr"};
  ui::TextBox EmpCityStateZip{*this, "EmpCityStateZip"};
  ui::TextBox Wage{*this, "Wage"};
  ui::ComboBox WagePeriod{*this, "WagePeriod"};
  ui::ComboBox OvertimeExempt{*this, "OvertimeExempt"};
  ui::TextBox Salary{*this, "Salary"};
  ui::ComboBox SalaryPeriod{*this, "SalaryPeriod"};
  ui::TextBox Commission{*this, "Commission"};
  ui::ComboBox CommissionPeriod{*this, "CommissionPeriod"};
  ui::TextBox Insurance{*this, "Insurance"};
  ui::TextBox Savings{*this, "Savings"};
  ui::TextBox Uniform{*this, "Uniform"};
  ui::Frame frameAddl{*this, "frameAddl", "Additional Withholding"};
  ui::Label lblAddlFed{*this, "lblAddlFed", "&Federal"};
  ui::TextBox AddlFed{*this, "AddlFed"};
  ui::Label lblAddlState{*this, "lblAddlState", "Sta&te"};
  ui::TextBox AddlState{*this, "AddlState"};
  ui::Label lblAddlLocal{*this, "lblAddlLocal", "&Local"};
  ui::TextBox AddlLocal{*this, "AddlLocal"};
  ui::ComboBox PrintSSN{*this, "PrintSSN"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdPayroll{*this, "cmdPayroll", "PR &Hist."};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 protected:
  void OnLoad() override { choice_.Read(first_); }
  void Save() override;
  void ShowFields() override;
  void OtherKey(ui::KeyPress& key) override;

 private:
  void BindFields();
  void BindAdditional();
  void WireButtons();
  void ShowChosen();
  void ShowAmounts();
  void ReadAdditional();
  void ShowAdditional();
  void AllowAdditional();
  void StoreFields(EmployeeRecord& record) const;
  void SaveAdditional();
  bool IsSomebodyChosen();
  void OpenPayHistory();

  de2& database_;
  std::int32_t first_;
  bool hasDatabase_;
  EmployeeRecord shown_;  // as it was when the fields were filled
  de2::PRInfo additional_;
  std::array<ui::TextBox*, 3> additionalBoxes_{&AddlFed, &AddlState, &AddlLocal};
  EmployeeChoice choice_{shop_, EmpList, Check1, {[this] { return MayDropChanges(); }, [this] { ShowChosen(); }}};
  CodeBoxes codes_{[this] { MarkChanged(); }};
  NumberBoxes amounts_{*this, numbers_};
};

}  // namespace lantos
