#include "payroll/PayStub.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kRule = "====================================================";
constexpr std::uint8_t kMarried = 1;

struct AmountLine {
  std::string_view label;
  PayColumn column;
};
constexpr AmountLine kAmounts[] = {
    {"Taxable Gross Pay   : $", PayColumn::Gross},     {"FICA Deduction      : $", PayColumn::FICA},
    {"Medicare Deduction  : $", PayColumn::Medicare},  {"FUTA                : $", PayColumn::FUTA},
    {"SUTA                : $", PayColumn::SUTA},      {"Federal Withholding : $", PayColumn::Federal},
    {"State Withholding   : $", PayColumn::State},     {"Local Withholding   : $", PayColumn::Local},
    {"Additional Federal  : $", PayColumn::AddlFed},   {"Additional State    : $", PayColumn::AddlState},
    {"Additional Local    : $", PayColumn::AddlLocal}, {"Insurance Deduction : $", PayColumn::Insurance},
    {"Uniform Deduction   : $", PayColumn::Uniform},   {"401K Deduction      : $", PayColumn::Count},
    {"Savings Deduction   : $", PayColumn::Savings},
};

using Lines = std::vector<StubLine>;

void Add(Lines& lines, std::string_view label, std::string_view value) {
  lines.push_back({std::string(label) + std::string(value)});
}

// The list has no column of that deduction: no field of the record is known to hold it.
std::string AmountOf(const PayStub& stub, PayColumn column) {
  return column == PayColumn::Count ? "0.00" : WithThousands(stub.row[column]);
}
std::string YearOf(const PayStub& stub, PayColumn column) {
  if (column == PayColumn::Count) return "0.00";
  const std::optional<std::int64_t> sum = YearToDate(stub.rows, stub.row, column);
  return sum ? WithThousands(FormatHundredths(*sum)) : "";
}

void AddAmount(Lines& lines, const PayStub& stub, std::string_view label, PayColumn column) {
  Add(lines, label, AmountOf(stub, column) + " [YTD: $" + YearOf(stub, column) + "]");
}

void AddPerson(Lines& lines, const PayStub& stub) {
  const EmployeeRecord& who = stub.employee;
  Add(lines, "Payroll date        : ", stub.row[PayColumn::Date]);
  if (stub.number == StubNumber::Shown) Add(lines, "SSN                 : ", who.View(employee::SocSecNum));
  Add(lines, "Employee            : ", who.View(employee::Name));
  Add(lines, "Address             : ", who.View(employee::EmpAddr));
  Add(lines, "City, ST ZIP        : ",
      who.Get(employee::EmpCity) + ", " + who.Get(employee::EmpState) + " " + who.Get(employee::EmpZip));
  Add(lines, "Phone               : ", who.View(employee::EmpPhone));
}

bool IsYes(std::uint8_t flag) { return flag == 1 || flag == 'Y'; }

// As they stood on that payroll.
void AddTaxFacts(Lines& lines, const PayRecord& pay) {
  Add(lines, "Marital Status      : ", pay.Get(payrecord::MaritalStatus) == kMarried ? "Married" : "Single");
  Add(lines, "Exemptions          : ", std::to_string(pay.Get(payrecord::NumExemptions)));
  Add(lines, "FICA Exempt         : ", IsYes(pay.Get(payrecord::FICAExempt)) ? "Yes" : "No");
}

void AddPay(Lines& lines, const PayRecord& pay) {
  const PayKind kind = PayKindOf(pay);
  if (kind == PayKind::None) return Add(lines, "Pay is              : ", "None");
  Add(lines, "Pay Period          : ", PayPeriodName(PayPeriodOf(pay)));
  if (kind == PayKind::Hourly) {
    Add(lines, "Pay is              : ", "Hourly");
    Add(lines, "Wage ($/hour)       : $", WithThousands(FormatHundredths(pay.Get(payrecord::Wage))));
  } else if (kind == PayKind::Salaried) {
    Add(lines, "Pay is              : ", "Salaried");
    Add(lines, "Salary ($/period)   : $", WithThousands(FormatHundredths(pay.Get(payrecord::Salary))));
  } else {
    Add(lines, "Pay is              : ", "Commission");
    Add(lines, "Commission Percent  : %", FormatTenThousandths(pay.Get(payrecord::Commission)));
  }
}

}  // namespace

std::vector<StubLine> ComposePayStub(const PayStub& stub) {
  Lines lines(2);
  lines.push_back({std::string(stub.company), "Payroll Stub"});
  lines.push_back({FormatDate(stub.today)});
  Add(lines, kRule, "");
  AddPerson(lines, stub);
  AddTaxFacts(lines, stub.pay);
  AddPay(lines, stub.pay);
  Add(lines, "Hours               : ", stub.row[PayColumn::Hours]);
  for (const AmountLine& amount : kAmounts) AddAmount(lines, stub, amount.label, amount.column);
  Add(lines, kRule, "");
  AddAmount(lines, stub, "Net Payroll         : $", PayColumn::Net);
  return lines;
}

std::string WithThousands(std::string_view amount) {
  std::string text(amount);
  const std::size_t point = text.find('.');
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  for (std::size_t at = point == std::string::npos ? text.size() : point; at > first + 3;) {
    at -= 3;
    text.insert(at, 1, ',');
  }
  return text;
}

}  // namespace lantos
