#include "masters/employees/frmEmpPRInfo.h"

#include "masters/employees/StoredEmployee.h"
#include "masters/employees/frmEmpPRHist.h"
#include "records/PayPeriods.h"

namespace lantos {

namespace {

constexpr MergedField kFields[] = {
    {"Wage", employee::Wage, MergedField::Reads::Money},
    {"Wage period", employee::WagePeriod, kPayPeriodNames},
    {"Overtime exempt", employee::OvertimeExempt, MergedField::Reads::YesNo},
    {"Salary", employee::Salary, MergedField::Reads::Money},
    {"Salary period", employee::SalaryPeriod, kPayPeriodNames},
    {"Commission rate", employee::Commission, MergedField::Reads::TenThousandths},
    {"Commission period", employee::CommissionPeriod, kPayPeriodNames},
    {"Insurance deduction", employee::Insurance, MergedField::Reads::Money},
    {"Savings deduction", employee::Savings, MergedField::Reads::Money},
    {"Uniform deduction", employee::Uniform, MergedField::Reads::Money},
};
constexpr int kYes = 0;  // rows of PrintSSN
constexpr int kNo = 1;
constexpr int kNeither = -1;

std::string CityStateZip(const EmployeeRecord& record) {
  const std::string city = record.Get(employee::EmpCity);
  const std::string stateZip = Trim(record.Get(employee::EmpState) + " " + record.Get(employee::EmpZip));
  return city.empty() || stateZip.empty() ? city + stateZip : city + ", " + stateZip;
}

}  // namespace

frmEmpPRInfo::frmEmpPRInfo(Shop& shop, de2& database, std::int32_t employee)
    : EditForm(shop, "frmEmpPRInfo", "Employee Payroll Info"),
      database_(database),
      first_(employee),
      hasDatabase_(shop.environment.hasKorvelDatabase) {
  SetSize(10200, 7200);
  BindFields();
  BindAdditional();
  WireButtons();
}

void frmEmpPRInfo::BindFields() {
  for (ui::TextBox* box : {&SocSecNum, &EmpAddr, &EmpCityStateZip}) ShowOnly(*box);
  for (ui::TextBox* box : {&Wage, &Salary, &Commission, &Insurance, &Savings, &Uniform}) Watch(*box);
  amounts_.AddMoney(Wage, employee::Wage, "Wage ($/hour)");
  codes_.Add(WagePeriod, employee::WagePeriod, kPayPeriodNames);
  codes_.Add(OvertimeExempt, employee::OvertimeExempt, {{"Yes", 1}, {"No", 0}});
  amounts_.AddMoney(Salary, employee::Salary, "Salary ($/period)");
  codes_.Add(SalaryPeriod, employee::SalaryPeriod, kPayPeriodNames);
  amounts_.AddRate(Commission, employee::Commission, "Commission rate (%)");
  codes_.Add(CommissionPeriod, employee::CommissionPeriod, kPayPeriodNames);
  amounts_.AddMoney(Insurance, employee::Insurance, "Insurance Deduction");
  amounts_.AddMoney(Savings, employee::Savings, "Savings Deduction");
  amounts_.AddMoney(Uniform, employee::Uniform, "Uniform Deduction");
  OvertimeExempt.SetToolTip("If Yes, then overtime will not be calculated.");
}

void frmEmpPRInfo::BindAdditional() {
  frameAddl.Holds(lblAddlFed, AddlFed, lblAddlState, AddlState, lblAddlLocal, AddlLocal);
  for (ui::TextBox* box : additionalBoxes_) Watch(*box);
  amounts_.AddMoney(AddlFed, "Additional federal withholding");
  amounts_.AddMoney(AddlState, "Additional state withholding");
  amounts_.AddMoney(AddlLocal, "Additional local withholding");
  PrintSSN.AddItem("Yes");
  PrintSSN.AddItem("No");
  PrintSSN.OnClick = [this] {
    if (PrintSSN.ListIndex() != (additional_.PrintSSN ? kYes : kNo)) MarkChanged();
  };
  AllowAdditional();
}

void frmEmpPRInfo::WireButtons() {
  SetEditButtons(cmdSave, cmdCancel);
  cmdSave.SetToolTip("Save changes <F10>");
  cmdPayroll.SetToolTip("View/Edit Payroll <F6>");
  cmdCancel.SetToolTip("Close/Cancel <Esc>");
  cmdPayroll.OnClick = [this] { OpenPayHistory(); };
}

void frmEmpPRInfo::OtherKey(ui::KeyPress& key) {
  if (!key.Is("F6")) return;
  key.Clear();
  Press(cmdPayroll);
}

void frmEmpPRInfo::ShowChosen() {
  const EmployeeRecord* record = choice_.Look();
  shown_ = record != nullptr ? *record : EmployeeRecord();
  ReadAdditional();
  Reset();
}

// A database that can't be read is as good as none: the person is told once, and the rest can be kept all the same.
void frmEmpPRInfo::ReadAdditional() {
  additional_ = {};
  if (!hasDatabase_ || choice_.Chosen() == kNoEmployeeNumber) return;
  try {
    additional_ = database_.PRInfoOf(choice_.Chosen());
  } catch (const DatabaseError& error) {
    shop_.environment.log.Write(error.what());
    hasDatabase_ = false;
    AllowAdditional();
    shop_.desktop.Tell(error.Words() + "\rThe additional withholding can't be shown.", Caption(),
                       ui::Icon::Exclamation);
  }
}

void frmEmpPRInfo::AllowAdditional() {
  for (ui::TextBox* box : additionalBoxes_) box->SetEnabled(hasDatabase_);
  PrintSSN.SetEnabled(hasDatabase_);
}

void frmEmpPRInfo::ShowFields() {
  SocSecNum.SetText(shown_.Get(employee::SocSecNum));
  EmpAddr.SetText(shown_.Get(employee::EmpAddr));
  EmpCityStateZip.SetText(CityStateZip(shown_));
  ShowAmounts();
  ShowAdditional();
}

void frmEmpPRInfo::ShowAmounts() {
  amounts_.Show(shown_);
  codes_.Show(shown_);
  if (choice_.Chosen() != kNoEmployeeNumber) return;
  codes_.ShowNone();
  for (ui::TextBox* box : {&Wage, &Salary, &Commission, &Insurance, &Savings, &Uniform}) box->SetText("");
}

void frmEmpPRInfo::ShowAdditional() {
  amounts_.ShowValue(AddlFed, additional_.AdditionalFederal);
  amounts_.ShowValue(AddlState, additional_.AdditionalState);
  amounts_.ShowValue(AddlLocal, additional_.AdditionalLocal);
  PrintSSN.SetListIndex(additional_.PrintSSN ? kYes : kNo);
  if (hasDatabase_ && choice_.Chosen() != kNoEmployeeNumber) return;
  for (ui::TextBox* box : additionalBoxes_) box->SetText("");
  PrintSSN.SetListIndex(kNeither);
}

bool frmEmpPRInfo::IsSomebodyChosen() {
  if (choice_.Chosen() != kNoEmployeeNumber) return true;
  shop_.desktop.Tell("No employee selected.\rMust select an employee first.", Caption(), ui::Icon::Exclamation);
  return false;
}

void frmEmpPRInfo::Save() {
  if (!IsSomebodyChosen() || !amounts_.CanBeStored()) return;
  const std::int32_t number = choice_.Chosen();
  EmployeeRecord ours = shown_;
  StoreFields(ours);
  const std::optional<modEmployees::Updated> updated = StoreEmployee(shop_, number, kFields, shown_, ours, Caption());
  if (!updated) return;
  if (*updated == modEmployees::Updated::IsGone) {
    choice_.TellThatGone();
    return ShowChosen();
  }
  SaveAdditional();
  MarkSaved(true);
  choice_.List(number);
  EnterAnew();
}

void frmEmpPRInfo::StoreFields(EmployeeRecord& record) const {
  amounts_.Store(record);
  codes_.Store(record);
}

void frmEmpPRInfo::SaveAdditional() {
  if (!hasDatabase_) return;
  const auto changed = [this](const ui::TextBox& box) {
    return amounts_.IsChanged(box) ? std::optional(amounts_.ValueIn(box)) : std::nullopt;
  };
  de2::PRInfoChange change{changed(AddlFed), changed(AddlState), changed(AddlLocal), {}};
  const bool prints = PrintSSN.ListIndex() == kYes;
  if (prints != additional_.PrintSSN) change.PrintSSN = prints;
  database_.SavePRInfo(choice_.Chosen(), change);
}

void frmEmpPRInfo::OpenPayHistory() {
  if (!IsSomebodyChosen()) return;
  frmEmpPRHist form(shop_, database_, choice_.Chosen());
  form.ShowModal();
  form.Unload();
}

}  // namespace lantos
