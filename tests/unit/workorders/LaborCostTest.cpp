#include "workorders/LaborCost.h"

#include "records/Fixture.h"
#include "records/modEmployees.h"

namespace lantos::test {
namespace {

class GetLaborCostTest : public ShopTest {
 protected:
  static EmployeeRecord Employee(std::int32_t number) {
    EmployeeRecord record;
    record.Put(employee::EmpNumber, number);
    return record;
  }
  static EmployeeRecord Salaried(std::uint8_t period, Cents salary) {
    EmployeeRecord record = Employee(7);
    record.Put(employee::SalaryPeriod, period);
    record.Put(employee::Salary, salary);
    return record;
  }
  static EmployeeRecord Hourly(Cents wage, std::uint8_t wagePeriod = 1) {
    EmployeeRecord record = Employee(7);
    record.Put(employee::Wage, wage);
    record.Put(employee::WagePeriod, wagePeriod);
    return record;
  }
  void PutEmployees(std::initializer_list<EmployeeRecord> employees) const {
    std::string bytes;
    for (const EmployeeRecord& record : employees) {
      bytes.append(reinterpret_cast<const char*>(record.Bytes().data()), EmployeeRecord::kLength);
    }
    Put(kEmployeeFile, bytes);
  }
  Cents CostOf(const EmployeeRecord& record, Hundredths hours, Cents rate) {
    PutEmployees({record});
    modEmployees employees(environment);
    return GetLaborCost(employees, hours, rate, 7);
  }
};

TEST_F(GetLaborCostTest, TheWageOfEachPayPeriod) {
  EXPECT_EQ(HourlyWage(Hourly(1850)), 1850);
  EXPECT_EQ(HourlyWage(Hourly(1850, 0)), 0) << "not paid by the hour";
  EXPECT_EQ(HourlyWage(Hourly(1850, 255)), 1850);
  EXPECT_EQ(HourlyWage(Salaried(1, 80000)), 2000);    // a week of 40 hours
  EXPECT_EQ(HourlyWage(Salaried(2, 160000)), 2000);   // two weeks
  EXPECT_EQ(HourlyWage(Salaried(3, 173333)), 2000);   // half a month: 173333 / 86.667 is 1999.996
  EXPECT_EQ(HourlyWage(Salaried(4, 346667)), 2000);   // a month: 346667 / 173.333 is 2000.002
  EXPECT_EQ(HourlyWage(Salaried(5, 1040000)), 2000);  // a quarter of 520 hours
  EXPECT_EQ(HourlyWage(Salaried(6, 2080000)), 2000);  // half a year
  EXPECT_EQ(HourlyWage(Salaried(7, 4160000)), 2000);  // a year of 2080 hours
  EXPECT_EQ(HourlyWage(Salaried(8, 16000)), 2000);    // a day of 8 hours
  EXPECT_EQ(HourlyWage(Salaried(9, 16000)), 0);
  EXPECT_EQ(HourlyWage(Salaried(255, 16000)), 0);
}

TEST_F(GetLaborCostTest, AnUnevenWageIsRoundedToAWholeCentHalvesToEven) {
  EXPECT_EQ(HourlyWage(Salaried(1, 50020)), 1250);   // 1250.5
  EXPECT_EQ(HourlyWage(Salaried(1, 50060)), 1252);   // 1251.5
  EXPECT_EQ(HourlyWage(Salaried(8, 12347)), 1543);   // 1543.375
  EXPECT_EQ(HourlyWage(Salaried(3, 100000)), 1154);  // 1153.846
  EXPECT_EQ(HourlyWage(Salaried(4, 250000)), 1442);  // 1442.308
  EXPECT_EQ(HourlyWage(Salaried(7, 2147483647)), 1032444);
}

TEST_F(GetLaborCostTest, ASalaryGoesAheadOfAWage) {
  EmployeeRecord record = Hourly(9900);
  record.Put(employee::SalaryPeriod, 1);
  record.Put(employee::Salary, 80000);
  EXPECT_EQ(HourlyWage(record), 2000);
}

TEST_F(GetLaborCostTest, EachPayPeriodAtTwoAndAHalfHours) {
  struct Worked {
    std::uint8_t period;
    Cents salary;
    Cents cost;
  };
  for (const Worked& worked : {Worked{1, 80000, 5000}, Worked{2, 160000, 5000}, Worked{3, 100000, 2885},
                               Worked{4, 250000, 3605}, Worked{5, 1040000, 5000}, Worked{6, 2080000, 5000},
                               Worked{7, 3000000, 3605}, Worked{8, 16000, 5000}, Worked{9, 16000, 0}}) {
    EXPECT_EQ(CostOf(Salaried(worked.period, worked.salary), 250, 6500), worked.cost) << int{worked.period};
  }
  EXPECT_EQ(CostOf(Hourly(1850), 250, 6500), 4625);
}

TEST_F(GetLaborCostTest, CommissionIsAShareOfWhatIsCharged) {
  EmployeeRecord record = Hourly(0);
  record.Put(employee::CommissionPeriod, 1);
  record.Put(employee::Commission, 350000);
  EXPECT_EQ(CostOf(record, 250, 6500), 5688);  // 35% of 162.50: 56.875
  record.Put(employee::Wage, 1000);
  EXPECT_EQ(CostOf(record, 250, 6500), 2500 + 5688);
  record.Put(employee::CommissionPeriod, 0);
  EXPECT_EQ(CostOf(record, 250, 6500), 2500) << "the rate alone earns nothing";
}

TEST_F(GetLaborCostTest, HalfACentGoesToTheEvenNeighbour) {
  EXPECT_EQ(CostOf(Hourly(1001), 50, 0), 500);  // 5.005
  EXPECT_EQ(CostOf(Hourly(1003), 50, 0), 502);  // 5.015
  EXPECT_EQ(CostOf(Hourly(1003), -50, 0), -502);
  EmployeeRecord record = Hourly(101);
  record.Put(employee::CommissionPeriod, 1);
  record.Put(employee::Commission, 500000);
  EXPECT_EQ(CostOf(record, 10, 10), 11) << "10.1 of wage and 0.5 of commission are rounded as one";
}

TEST_F(GetLaborCostTest, NobodyAndAnUnknownNumberCostNothing) {
  PutEmployees({Hourly(1000)});
  modEmployees& employees = records.employees;
  EXPECT_EQ(GetLaborCost(employees, 100, 6500, 0), 0);
  EXPECT_EQ(GetLaborCost(employees, 100, 6500, -1), 0);
  EXPECT_FALSE(employees.Loaded()) << "for nobody the table isn't loaded";
  EXPECT_EQ(GetLaborCost(employees, 100, 6500, 8), 0);
  EXPECT_TRUE(employees.Loaded());
  EXPECT_EQ(GetLaborCost(employees, 100, 6500, 7), 1000);
}

TEST_F(GetLaborCostTest, ATableThatIsLoadedIsNotReadAgain) {
  PutEmployees({Hourly(1000)});
  records.employees.LoadEmployees();
  PutEmployees({Hourly(2000)});
  EXPECT_EQ(GetLaborCost(records.employees, 100, 0, 7), 1000);
}

TEST_F(GetLaborCostTest, FiguresBeyondAllBoundsStayAtTheBound) {
  EmployeeRecord record = Hourly(2147483647);
  record.Put(employee::CommissionPeriod, 1);
  record.Put(employee::Commission, 2147483647);
  EXPECT_EQ(CostOf(record, 2147483647, 2147483647), 2147483647);
}

TEST_F(GetLaborCostTest, TheCommissionOfAMechanicIsAsTheFileHasIt) {
  EmployeeRecord record = Employee(7);
  record.Put(employee::Commission, 350000);
  PutEmployees({Employee(3), record});
  EXPECT_EQ(GetMechanicCommission(records.employees, 7), 350000) << "whatever its period";
  EXPECT_EQ(GetMechanicCommission(records.employees, 3), 0);
  EXPECT_EQ(GetMechanicCommission(records.employees, 8), 0);
  EXPECT_EQ(GetMechanicCommission(records.employees, 0), 0);
}

}  // namespace
}  // namespace lantos::test
