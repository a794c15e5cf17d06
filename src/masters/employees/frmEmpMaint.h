#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "estimatedb/de.h"
#include "masters/employees/CodeBoxes.h"
#include "masters/employees/EmployeeChoice.h"
#include "screens/EditForm.h"
#include "screens/NumberBoxes.h"

namespace lantos {

// Keeps the people of the shop: names, addresses, dates, tax facts. Nobody is chosen at first.
class frmEmpMaint : public EditForm {
 public:
  frmEmpMaint(Shop& shop, de2& database);

  ui::ComboBox EmpList{*this, "EmpList"};
  ui::CheckBox Check1{*this, "Check1", "Active Emp. &Only"};
  ui::TextBox EmpNumber{*this, "EmpNumber"};
  ui::TextBox SocSecNum{*this, "SocSecNum"};
  ui::TextBox EmpAddr{*this, "EmpAddr"};
  ui::TextBox EmpCity{*this, "EmpCity"};
  ui::TextBox EmpState{*this, "EmpState"};
  ui::TextBox EmpZip{*this, "EmpZip"};
  ui::TextBox EmpPhone{*this, "EmpPhone"};
  ui::ComboBox MaritalStatus{*this, "MaritalStatus"};
  ui::TextBox NumExemptions{*this, "NumExemptions"};
  ui::ComboBox FICAExempt{*this, "FICAExempt"};
  ui::TextBox DateHired{*this, "DateHired"};
  ui::TextBox DateTerminated{*this, "DateTerminated"};
  ui::Button cmdNew{*this, "cmdNew", "&New"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdRename{*this, "cmdRename", "&Rename"};
  ui::Button cmdDelete{*this, "cmdDelete", "&Delete"};
  ui::Button cmdPRInfo{*this, "cmdPRInfo", "PR In&fo"};
  ui::Button cmdPayroll{*this, "cmdPayroll", "PR His&t."};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 protected:
  void OnLoad() override { choice_.Read(kNoEmployeeNumber); }
  void Save() override;
  void ShowFields() override;
  void OtherKey(ui::KeyPress& key) override;

 private:
  void BindFields();
  void WireButtons();
  void ShowChosen();
  void StoreFields(EmployeeRecord& record) const;
  void StoreDate(EmployeeRecord& record, const ui::TextBox& box, LongField field) const;
  // False when nobody is, which has been told.
  bool IsSomebodyChosen();
  bool MayLeaveFields();

  void New();
  void Rename();
  void AskForName(const std::string& original, const std::function<void(const std::string&)>& store);
  void Delete();
  void TellOfPayRecords();
  void OpenPayInfo();
  void OpenPayHistory();

  de2& database_;
  EmployeeRecord shown_;  // as it was when the fields were filled
  EmployeeChoice choice_{shop_, EmpList, Check1, {[this] { return MayDropChanges(); }, [this] { ShowChosen(); }}};
  CodeBoxes codes_{[this] { MarkChanged(); }};
  NumberBoxes amounts_{*this, numbers_};
};

}  // namespace lantos
