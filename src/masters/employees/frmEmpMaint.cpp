#include "masters/employees/frmEmpMaint.h"

#include "frame/Numbers.h"
#include "masters/employees/NewEmployee.h"
#include "masters/employees/StoredEmployee.h"
#include "masters/employees/frmEmpNew.h"
#include "masters/employees/frmEmpPRHist.h"
#include "masters/employees/frmEmpPRInfo.h"

namespace lantos {

namespace {

constexpr FileDate kNoDate = -1;
constexpr std::string_view kMaritalStatusNames[] = {"Single", "Married"};  // by their code
constexpr MergedField kNameField[] = {{"Name", employee::Name}};
constexpr MergedField kFields[] = {
    {"Social security number", employee::SocSecNum},
    {"Address", employee::EmpAddr},
    {"City", employee::EmpCity},
    {"State", employee::EmpState},
    {"Zip", employee::EmpZip},
    {"Phone", employee::EmpPhone},
    {"Marital status", employee::MaritalStatus, kMaritalStatusNames},
    {"Exemptions", employee::NumExemptions, MergedField::Reads::Whole},
    {"FICA exempt", employee::FICAExempt, MergedField::Reads::YesNo},
    {"Date hired", employee::DateHired, MergedField::Reads::Day},
    {"Date terminated", employee::DateTerminated, MergedField::Reads::Day},
};

}  // namespace

frmEmpMaint::frmEmpMaint(Shop& shop, de2& database)
    : EditForm(shop, "frmEmpMaint", "Employee Maintenance"), database_(database) {
  SetSize(9900, 6000);
  BindFields();
  WireButtons();
}

void frmEmpMaint::BindFields() {
  ShowOnly(EmpNumber);
  Bind(SocSecNum, employee::SocSecNum);
  Bind(EmpAddr, employee::EmpAddr);
  Bind(EmpCity, employee::EmpCity);
  Bind(EmpState, employee::EmpState);
  Bind(EmpZip, employee::EmpZip);
  Bind(EmpPhone, employee::EmpPhone);
  codes_.Add(MaritalStatus, employee::MaritalStatus, kMaritalStatusNames);
  Watch(NumExemptions);
  amounts_.AddCount(NumExemptions, employee::NumExemptions, "Exemptions");
  codes_.Add(FICAExempt, employee::FICAExempt, {{"Yes", 1}, {"No", 0}});
  RefuseDatesWith("Invalid Date");
  BindDate(DateHired);
  BindDate(DateTerminated);
}

void frmEmpMaint::WireButtons() {
  SetEditButtons(cmdSave, cmdCancel);
  cmdNew.SetToolTip("Add New Employee <Ins>");
  cmdSave.SetToolTip("Save changes <F10>");
  cmdRename.SetToolTip("Rename this employee.");
  cmdDelete.SetToolTip("Delete this employee.");
  cmdPRInfo.SetToolTip("View/Edit Payroll Info <F7>");
  cmdPayroll.SetToolTip("View/Edit Payroll <F6>");
  cmdCancel.SetToolTip("Close/Cancel <Esc>");
  cmdNew.OnClick = [this] { New(); };
  cmdRename.OnClick = [this] { Rename(); };
  cmdDelete.OnClick = [this] { Delete(); };
  cmdPRInfo.OnClick = [this] { OpenPayInfo(); };
  cmdPayroll.OnClick = [this] { OpenPayHistory(); };
}

void frmEmpMaint::OtherKey(ui::KeyPress& key) {
  ui::Button* button = key.Is("Insert") ? &cmdNew : key.Is("F6") ? &cmdPayroll : key.Is("F7") ? &cmdPRInfo : nullptr;
  if (button == nullptr) return;
  key.Clear();
  Press(*button);
}

void frmEmpMaint::ShowChosen() {
  const EmployeeRecord* record = choice_.Look();
  shown_ = record != nullptr ? *record : EmployeeRecord();
  Reset();
}

void frmEmpMaint::ShowFields() {
  const bool isNobody = choice_.Chosen() == kNoEmployeeNumber;
  EmpNumber.SetText(isNobody ? std::string() : FormatZeros(choice_.Chosen(), 6));
  ShowTexts(shown_);
  ShowDate(DateHired, shown_.Get(employee::DateHired));
  ShowDate(DateTerminated, shown_.Get(employee::DateTerminated));
  amounts_.Show(shown_);
  codes_.Show(shown_);
  if (!isNobody) return;
  NumExemptions.SetText("");
  codes_.ShowNone();
}

void frmEmpMaint::StoreFields(EmployeeRecord& record) const {
  StoreTexts(record);
  codes_.Store(record);
  amounts_.Store(record);
  StoreDate(record, DateHired, employee::DateHired);
  StoreDate(record, DateTerminated, employee::DateTerminated);
}

// A date that still stands as it was shown is another workstation's to change.
void frmEmpMaint::StoreDate(EmployeeRecord& record, const ui::TextBox& box, LongField field) const {
  if (box.Text() == TextOfFileDate(shown_.Get(field))) return;
  record.Put(field, TrimView(box.Text()).empty() ? kNoDate : DateIn(box, record.Get(field)));
}

bool frmEmpMaint::IsSomebodyChosen() {
  if (choice_.Chosen() != kNoEmployeeNumber) return true;
  shop_.desktop.Tell("No employee selected!", Caption(), ui::Icon::Exclamation);
  return false;
}

void frmEmpMaint::Save() {
  if (!IsSomebodyChosen() || !amounts_.CanBeStored()) return;
  for (ui::TextBox* date : {&DateHired, &DateTerminated}) {
    if (!CheckDate(*date)) return date->SetFocus();
  }
  const std::int32_t number = choice_.Chosen();
  EmployeeRecord ours = shown_;
  StoreFields(ours);
  const std::optional<modEmployees::Updated> updated = StoreEmployee(shop_, number, kFields, shown_, ours, Caption());
  if (!updated) return;
  if (*updated == modEmployees::Updated::Yes) {
    MarkSaved(true);
    return choice_.List(number);
  }
  choice_.TellThatGone();
  ShowChosen();
}

// The fields are filled anew behind what follows.
bool frmEmpMaint::MayLeaveFields() {
  if (!MayDropChanges()) return false;
  Reset();
  return true;
}

void frmEmpMaint::New() {
  if (!MayLeaveFields()) return;
  const std::int32_t before = choice_.Chosen();
  AskForName("", [this](const std::string& name) { choice_.List(AddNewEmployee(shop_.records, name)); });
  if (choice_.Chosen() != before) SocSecNum.SetFocus();  // where the rest of a new employee begins
}

void frmEmpMaint::Rename() {
  if (!IsSomebodyChosen() || !MayLeaveFields()) return;
  const std::int32_t number = choice_.Chosen();
  AskForName(shown_.Get(employee::Name), [this, number](const std::string& name) {
    EmployeeRecord ours = shown_;
    ours.Put(employee::Name, name);
    const auto updated = StoreEmployee(shop_, number, kNameField, shown_, ours, Caption());
    if (!updated || *updated == modEmployees::Updated::Yes) return choice_.List(number);
    choice_.TellThatGone();
    ShowChosen();
  });
}

void frmEmpMaint::AskForName(const std::string& original, const std::function<void(const std::string&)>& store) {
  frmEmpNew form(shop_, original, store);
  form.ShowModal();
  form.Unload();
}

void frmEmpMaint::Delete() {
  const std::int32_t number = choice_.Chosen();
  if (number == kNoEmployeeNumber) {
    return shop_.desktop.Tell("No employee selected - can not delete.", Caption(), ui::Icon::Exclamation);
  }
  const EmployeeRecord* record = choice_.Look();
  if (record == nullptr) return ShowChosen();
  if (record->Get(employee::PayrollHead) != kNoLink) return TellOfPayRecords();
  const ui::Answer answer =
      shop_.desktop.Ask("Are you sure you wish to delete this employee?\rThis action can not be \"un-done\"!",
                        Caption(), ui::Buttons::YesNo, ui::Icon::Question);
  if (answer != ui::Answer::Yes) return;
  // A payroll may have been run while the person thought about it.
  if (shop_.records.employees.DeleteEmployee(number) == modEmployees::Deleted::HasPayRecords) return TellOfPayRecords();
  choice_.List(kNoEmployeeNumber);
  EmpList.SetFocus();
}

void frmEmpMaint::TellOfPayRecords() {
  shop_.desktop.Tell("Can not delete - this employee has P/R info on file.", Caption(), ui::Icon::Exclamation);
}

void frmEmpMaint::OpenPayInfo() {
  frmEmpPRInfo form(shop_, database_, choice_.Chosen());
  form.ShowModal();
  form.Unload();
}

void frmEmpMaint::OpenPayHistory() {
  if (!IsSomebodyChosen()) return;
  frmEmpPRHist form(shop_, database_, choice_.Chosen());
  form.ShowModal();
  form.Unload();
}

}  // namespace lantos
