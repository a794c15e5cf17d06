#include "payroll/PayStub.h"

#include <gtest/gtest.h>

#include "PayImage.h"

namespace lantos::test {
namespace {

using Texts = std::vector<std::string>;

class PayStubTest : public testing::Test {
 protected:
  PayStubTest() {
    employee.Put(employee::Name, "Zoe Young");
    employee.Put(employee::SocSecNum, "000-00-0012");
    employee.Put(employee::EmpAddr, "1 Mill Lane");
    employee.Put(employee::EmpCity, "Springfield");
    employee.Put(employee::EmpState, "OH");
    employee.Put(employee::EmpZip, "45501");
    employee.Put(employee::EmpPhone, "937-555-0912");
    pay.Put(payrecord::Hours, 4000);
    pay.Put(payrecord::Wage, 250000);
  }
  std::vector<StubLine> Compose(StubNumber number = StubNumber::Left) {
    const Withholding known = {1111, 222, 33, 9000000};
    const std::vector<PayRow> rows = {MakePayRow(pay, known, {100, 20, 3}), MakePayRow(earlier, known, {})};
    return ComposePayStub({"The Shop", ToSerial({2006, 4, 1}), employee, pay, rows, rows[0], number});
  }
  static Texts TextsOf(const std::vector<StubLine>& lines) {
    Texts texts;
    for (const StubLine& line : lines) texts.push_back(line.text);
    return texts;
  }
  Texts KindOfPay() {
    const Texts all = TextsOf(Compose());
    const auto begin = std::find(all.begin(), all.end(), "FICA Exempt         : No") + 1;
    return {begin, std::find(begin, all.end(), "Hours               : 40.00")};
  }

  EmployeeRecord employee;
  PayRecord pay = PayOf({{2006, 3, 31}, 12345678, 2, 1, 1});
  PayRecord earlier = PayOf({{2006, 3, 24}, 100, 2, 1, 1});
};

TEST_F(PayStubTest, EveryLineToTheBlank) {
  pay.Put(payrecord::FICA, 3720);
  pay.Put(payrecord::Savings, 123456);
  const std::vector<StubLine> lines = Compose(StubNumber::Shown);
  EXPECT_EQ(TextsOf(lines), (Texts{"",
                                   "",
                                   "The Shop",
                                   "04/01/2006",
                                   "====================================================",
                                   "Payroll date        : 03/31/2006",
                                   "SSN                 : 000-00-0012",
                                   "Employee            : Zoe Young",
                                   "Address             : 1 Mill Lane",
                                   "City, ST ZIP        : Springfield, OH 45501",
                                   "Phone               : 937-555-0912",
                                   "Marital Status      : Married",
                                   "Exemptions          : 2",
                                   "FICA Exempt         : No",
                                   "Pay Period          : Weekly",
                                   "Pay is              : Salaried",
                                   "Salary ($/period)   : $0.00",
                                   "Hours               : 40.00",
                                   "Taxable Gross Pay   : $123,456.78 [YTD: $123,457.78]",
                                   "FICA Deduction      : $37.20 [YTD: $37.20]",
                                   "Medicare Deduction  : $0.00 [YTD: $0.00]",
                                   "FUTA                : $0.00 [YTD: $0.00]",
                                   "SUTA                : $0.00 [YTD: $0.00]",
                                   "Federal Withholding : $11.11 [YTD: $22.22]",
                                   "State Withholding   : $2.22 [YTD: $4.44]",
                                   "Local Withholding   : $0.33 [YTD: $0.66]",
                                   "Additional Federal  : $1.00 [YTD: $1.00]",
                                   "Additional State    : $0.20 [YTD: $0.20]",
                                   "Additional Local    : $0.03 [YTD: $0.03]",
                                   "Insurance Deduction : $0.00 [YTD: $0.00]",
                                   "Uniform Deduction   : $0.00 [YTD: $0.00]",
                                   "401K Deduction      : $0.00 [YTD: $0.00]",
                                   "Savings Deduction   : $1,234.56 [YTD: $1,234.56]",
                                   "====================================================",
                                   "Net Payroll         : $89,998.77 [YTD: $179,998.77]"}));
  EXPECT_EQ(lines[2].atRightEdge, "Payroll Stub");
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i != 2) EXPECT_EQ(lines[i].atRightEdge, "");
  }
}

TEST_F(PayStubTest, TheNumberIsLeftOutUnlessItIsWanted) {
  const Texts texts = TextsOf(Compose(StubNumber::Left));
  EXPECT_EQ(texts[5], "Payroll date        : 03/31/2006");
  EXPECT_EQ(texts[6], "Employee            : Zoe Young");
}

TEST_F(PayStubTest, TheFourKindsOfPay) {
  pay.Put(payrecord::SalaryPeriod, std::uint8_t{2});
  pay.Put(payrecord::Salary, 123456789);
  EXPECT_EQ(KindOfPay(), (Texts{"Pay Period          : Two-weekly", "Pay is              : Salaried",
                                "Salary ($/period)   : $1,234,567.89"}));
  pay.Put(payrecord::WagePeriod, std::uint8_t{1});
  EXPECT_EQ(KindOfPay(),
            (Texts{"Pay Period          : Weekly", "Pay is              : Hourly", "Wage ($/hour)       : $2,500.00"}));
  pay.Put(payrecord::WagePeriod, std::uint8_t{0});
  pay.Put(payrecord::SalaryPeriod, std::uint8_t{0});
  pay.Put(payrecord::CommissionPeriod, std::uint8_t{4});
  pay.Put(payrecord::Commission, 125000);
  EXPECT_EQ(KindOfPay(), (Texts{"Pay Period          : Monthly", "Pay is              : Commission",
                                "Commission Percent  : %12.5000"}));
  pay.Put(payrecord::CommissionPeriod, std::uint8_t{0});
  EXPECT_EQ(KindOfPay(), (Texts{"Pay is              : None"}));
}

TEST_F(PayStubTest, AnUnknownPeriodIsBlank) {
  pay.Put(payrecord::SalaryPeriod, std::uint8_t{200});
  EXPECT_EQ(KindOfPay()[0], "Pay Period          : ");
}

TEST_F(PayStubTest, TaxFactsAreThoseOfThePayroll) {
  pay.Put(payrecord::MaritalStatus, std::uint8_t{0});
  pay.Put(payrecord::NumExemptions, std::uint8_t{11});
  pay.Put(payrecord::FICAExempt, std::uint8_t{1});
  const Texts texts = TextsOf(Compose());
  EXPECT_EQ(texts[10], "Marital Status      : Single");
  EXPECT_EQ(texts[11], "Exemptions          : 11");
  EXPECT_EQ(texts[12], "FICA Exempt         : Yes");
}

TEST(PayStub, WhatIsNotKnownIsNeitherAnAmountNorASum) {
  const PayRecord pay = PayOf({{2006, 3, 31}, 100});
  const std::vector<PayRow> rows = {MakePayRow(pay, {}, {})};
  const std::vector<StubLine> lines = ComposePayStub({"", 1, EmployeeRecord(), pay, rows, rows[0], StubNumber::Left});
  EXPECT_EQ(lines.back().text, "Net Payroll         : $ [YTD: $]");
}

TEST(PayStub, ThousandsAreParted) {
  EXPECT_EQ(WithThousands("0.00"), "0.00");
  EXPECT_EQ(WithThousands("999.99"), "999.99");
  EXPECT_EQ(WithThousands("1000.00"), "1,000.00");
  EXPECT_EQ(WithThousands("-123456.70"), "-123,456.70");
  EXPECT_EQ(WithThousands("-999.70"), "-999.70");
  EXPECT_EQ(WithThousands("21474836.47"), "21,474,836.47");
  EXPECT_EQ(WithThousands(""), "");
}

}  // namespace
}  // namespace lantos::test
