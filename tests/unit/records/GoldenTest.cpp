#include "GoldenBench.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Passwords.h"
#include "records/Vehicles.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"

namespace lantos::test {
namespace {

using ui::Answer;

std::vector<Field> SystemFields() {
  FieldList list(kSystemFile);
  list FIELD(sysrec, last_workorder_number) FIELD(sysrec, last_estimate_number) FIELD(sysrec, korvel1)
      FIELD(sysrec, last_customer_number) FIELD(sysrec, last_employee_number) FIELD(sysrec, korvel2)
          FIELD(sysrec, tax_rate_parts) FIELD(sysrec, tax_rate_labor) FIELD(sysrec, tax_rate_sublet)
              FIELD(sysrec, tax_rate_waste) FIELD(sysrec, shop_rate) FIELD(sysrec, company_name)
                  FIELD(sysrec, company_address) FIELD(sysrec, company_city) FIELD(sysrec, company_state)
                      FIELD(sysrec, company_zip) FIELD(sysrec, company_phone1) FIELD(sysrec, company_phone2)
                          FIELD(sysrec, fed_id_number) FIELD(sysrec, state_id_number) FIELD(sysrec, local_id_number);
  for (std::size_t i = 0; i < 4; ++i) list("markups_" + std::to_string(i), sysrec::markups[i]);
  list FIELD(sysrec, hand_msg1) FIELD(sysrec, hand_msg2) FIELD(sysrec, korvel3) FIELD(sysrec, labor_surcharge_percent)
      FIELD(sysrec, parts_surcharge_percent) FIELD(sysrec, surcharge_description) FIELD(sysrec, fleet_terms)
          FIELD(sysrec, state_reg_number) FIELD(sysrec, korvel4) FIELD(sysrec, shell_command_line)
              FIELD(sysrec, korvel5) FIELD(sysrec, fleet_late_charge_percent) FIELD(sysrec, korvel6)
                  FIELD(sysrec, extra_company_name) FIELD(sysrec, korvel7) FIELD(sysrec, surcharge_is_sublet)
                      FIELD(sysrec, korvel8);
  return list.All();
}

std::vector<Field> CustomerTagFields() {
  FieldList list(kCustomerTagFile);
  list FIELD(customertag, Number) FIELD(customertag, NameKey) FIELD(customertag, SpouseKey) FIELD(customertag, Offset)
      FIELD(customertag, Phone) FIELD(customertag, reserved);
  return list.All();
}

std::vector<Field> CustomerFields() {
  FieldList list(kCustomerFile);
  list FIELD(customer, Number) FIELD(customer, Lastname) FIELD(customer, Firstname) FIELD(customer, Spouse)
      FIELD(customer, SpouseLast) FIELD(customer, Address) FIELD(customer, City) FIELD(customer, State)
          FIELD(customer, Zip) FIELD(customer, HomePhone) FIELD(customer, WorkPhone) FIELD(customer, WorkExt)
              FIELD(customer, OtherPhone) FIELD(customer, pricing_level) FIELD(customer, Date)
                  FIELD(customer, tax_id_number) FIELD(customer, Comment) FIELD(customer, salesperson)
                      FIELD(customer, VLink);
  return list.All();
}

std::vector<Field> VehicleFields() {
  FieldList list(kVehicleFile);
  list FIELD(vehicle, Number) FIELD(vehicle, Deleted) FIELD(vehicle, Make) FIELD(vehicle, Model) FIELD(vehicle, Year)
      FIELD(vehicle, EngineSize) FIELD(vehicle, Transmission) FIELD(vehicle, VIN) FIELD(vehicle, LicenseNumber)
          FIELD(vehicle, State);
  for (std::size_t i = 0; i < 4; ++i) list("VComment" + std::to_string(i + 1), vehicle::VComment[i]);
  list FIELD(vehicle, Mileage) FIELD(vehicle, Date) FIELD(vehicle, FirstMileage) FIELD(vehicle, FirstDate)
      FIELD(vehicle, VLink);
  return list.All();
}

std::vector<Field> MakeModelFields() {
  FieldList list(kMakeModelFile);
  list FIELD(makemodel, Name) FIELD(makemodel, Prev) FIELD(makemodel, Next);
  return list.All();
}

std::vector<Field> EmployeeFields() {
  FieldList list(kEmployeeFile);
  list FIELD(employee, EmpNumber) FIELD(employee, Name) FIELD(employee, SocSecNum) FIELD(employee, EmpAddr)
      FIELD(employee, EmpCity) FIELD(employee, EmpState) FIELD(employee, EmpZip) FIELD(employee, EmpPhone)
          FIELD(employee, DateHired) FIELD(employee, DateTerminated) FIELD(employee, MaritalStatus)
              FIELD(employee, NumExemptions) FIELD(employee, FICAExempt) FIELD(employee, Wage)
                  FIELD(employee, WagePeriod) FIELD(employee, Salary) FIELD(employee, SalaryPeriod)
                      FIELD(employee, CommissionPeriod) FIELD(employee, Commission) FIELD(employee, Insurance)
                          FIELD(employee, OvertimeExempt) FIELD(employee, Savings) FIELD(employee, korvel1)
                              FIELD(employee, Uniform) FIELD(employee, korvel2) FIELD(employee, PayrollHead);
  return list.All();
}

std::vector<Field> PasswordFields() {
  FieldList list(kPasswordFile);
  for (std::size_t i = 0; i < kPasswordCount; ++i) {
    list("password_" + std::to_string(i), TextField{i * kPasswordWidth, kPasswordWidth});
  }
  return list.All();
}

TEST(Layouts, EveryFieldLiesWhereTheGoldenFilesHaveIt) {
  for (const auto& fields : {SystemFields(), CustomerTagFields(), CustomerFields(), VehicleFields(), MakeModelFields(),
                             EmployeeFields(), PasswordFields()}) {
    ExpectGoldenLayout(fields);
  }
}

TEST_F(Golden, TheSystemRecordReadsAsItWasMade) {
  EXPECT_EQ(records.system.ReadSystem(), 0);
  const SystemRecord& system = records.system.SysRec;
  EXPECT_EQ(system.Get(sysrec::last_estimate_number), 3007);
  EXPECT_EQ(system.Get(sysrec::company_name), "M\xFCller's Garage");
  EXPECT_EQ(system.Get(sysrec::company_address), "12 Canal Street");
  EXPECT_EQ(system.Get(sysrec::company_phone2), "937-555-0100000");
  EXPECT_EQ(system.Get(sysrec::markups[3]), 650000);
  EXPECT_EQ(system.Get(sysrec::hand_msg2), std::string(79, 'x'));
  EXPECT_EQ(system.Get(sysrec::labor_surcharge_percent), -1250);
  EXPECT_EQ(system.Get(sysrec::surcharge_is_sublet), 'Y');
}

TEST_F(Golden, LoadAndSaveLeaveTheSystemRecordUnchanged) {
  records.system.ReadSystem();
  records.system.WriteSystem();
  EXPECT_EQ(BytesOf(kSystemFile), GoldenBytes(kSystemFile));
}

TEST_F(Golden, BytesMarkedKorvelsKeepTheirExactValuesAcrossAReadAndRewrite) {
  records.system.ReadSystem();
  for (const Field& field : SystemFields()) {
    if (field.kind != "opaque") Change(records.system.SysRec, field);
  }
  records.system.WriteSystem();
  const std::string after = BytesOf(kSystemFile);
  const std::string before = GoldenBytes(kSystemFile);
  for (const Field& field : SystemFields()) {
    const bool same = after.substr(field.offset, field.width) == before.substr(field.offset, field.width);
    EXPECT_EQ(same, field.kind == "opaque") << field.name;
  }
}

TEST_F(Golden, EditingOneFieldOfTheSystemRecordChangesThatFieldAlone) {
  ExpectEachFieldAlone(
      SystemFields(), 0, records.system.SysRec, [&] { records.system.ReadSystem(); },
      [&] { records.system.WriteSystem(); });
}

TEST_F(Golden, CustomersReadAsTheyWereMade) {
  Customers& customers = records.customers;
  ASSERT_TRUE(customers.LoadCustomerTags());
  ASSERT_EQ(customers.Count(), 4U);
  EXPECT_EQ(customers.FindCustomerTag(1002), 1U);
  ASSERT_TRUE(customers.ReadCustomer());
  EXPECT_EQ(customers.CurrentTag.Get(customertag::NameKey), "Bj\xF8rnson-Carpenters,Alexander-Ma");
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::Lastname), "Bj\xF8rnson-Carpenters");
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::Address), "22 Second Street");
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::HomePhone), "937-555-0202 x9");
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::pricing_level), 1);
}

TEST_F(Golden, LoadAndSaveLeaveTheCustomerFilesUnchanged) {
  Customers& customers = records.customers;
  customers.LoadCustomerTags();
  for (std::size_t i = 0; i < customers.Count(); ++i) {
    customers.MakeTagCurrent(i);
    ASSERT_TRUE(customers.ReadCustomer());
    ASSERT_TRUE(customers.WriteCustomer());
  }
  EXPECT_EQ(BytesOf(kCustomerTagFile), GoldenBytes(kCustomerTagFile));
  EXPECT_EQ(BytesOf(kCustomerFile), GoldenBytes(kCustomerFile));
}

TEST_F(Golden, EditingOneFieldOfACustomerChangesThatFieldAlone) {
  Customers& customers = records.customers;
  const auto load = [&] {
    customers.LoadCustomerTags();
    customers.CurrentCustomer = {};
    customers.FindCustomerTag(1002);
    ASSERT_TRUE(customers.ReadCustomer());
  };
  // The fourth master of the file. Another Number is another customer.
  ExpectEachFieldAlone(CustomerFields(), 3 * 317, customers.CurrentCustomer, load,
                       [&] {
                         ASSERT_TRUE(customers.WriteCustomer());
                         Put(kCustomerTagFile, GoldenBytes(kCustomerTagFile));
                       },
                       {"Number"});
}

TEST_F(Golden, EditingACustomersPhoneChangesThePhoneOfTheTagAlone) {
  Customers& customers = records.customers;
  customers.LoadCustomerTags();
  customers.FindCustomerTag(1003);
  ASSERT_TRUE(customers.ReadCustomer());
  customers.CurrentCustomer.Put(customer::HomePhone, "555-1");
  ASSERT_TRUE(customers.WriteCustomer());
  const auto [first, last] = Difference(GoldenBytes(kCustomerTagFile), BytesOf(kCustomerTagFile));
  EXPECT_EQ(first, 2U * 96 + 72);
  EXPECT_EQ(last, 2U * 96 + 77);
}

TEST_F(Golden, LoadAndSaveLeaveTheVehicleFileUnchanged) {
  for (FileLink link = 0; link < 4 * 397; link += 397) {
    records.vehicles.ReadVehicle(link);
    records.vehicles.WriteVehicle();
  }
  EXPECT_EQ(BytesOf(kVehicleFile), GoldenBytes(kVehicleFile));
}

TEST_F(Golden, EditingOneFieldOfAVehicleChangesThatFieldAlone) {
  ExpectEachFieldAlone(
      VehicleFields(), 794, records.vehicles.CurrentVehicle, [&] { records.vehicles.ReadVehicle(794); },
      [&] { records.vehicles.WriteVehicle(); });
}

TEST_F(Golden, MakesAndModelsReadAsTheyWereMade) {
  records.makes.LoadMakes();
  std::string all;
  for (const Make& make : records.makes.Makes()) all += make.Name + ";";
  for (const Model& model : records.makes.Models()) all += model.Make + " " + model.Name + ";";
  EXPECT_EQ(all, "Ford;Chevrolet;Toyota;Ford Pinto;Ford Crown Victoria;Toyota Corolla;");
}

TEST_F(Golden, AddingAModelLeavesEveryOtherByteOfTheMakeFileAsItWas) {
  records.makes.AddModel("Toyota", "Camry");
  const std::string before = GoldenBytes(kMakeModelFile);
  const std::string after = BytesOf(kMakeModelFile);
  const std::string camry = MakeModelImage("Camry", 145, 174);
  EXPECT_EQ(after.size(), before.size() + 29);
  EXPECT_EQ(after.substr(before.size()), camry);
  const auto [first, last] = Difference(before, after.substr(0, before.size()));
  EXPECT_EQ(first, 145U + 25);
  EXPECT_LE(last, 145U + 29);
}

TEST_F(Golden, LoadAndSaveLeaveTheEmployeeFileUnchanged) {
  records.employees.LoadEmployees();
  for (const std::int32_t number : {12, 3, 7}) {
    EXPECT_EQ(records.employees.UpdateEmployee(number, [](EmployeeRecord&) {}), modEmployees::Updated::Yes);
  }
  EXPECT_EQ(BytesOf(kEmployeeFile), GoldenBytes(kEmployeeFile));
  records.employees.SaveEmployees();
  EXPECT_EQ(BytesOf(kEmployeeFile), GoldenBytes(kEmployeeFile));
}

TEST_F(Golden, EditingOneFieldOfAnEmployeeChangesThatFieldAlone) {
  records.employees.LoadEmployees();
  // A record of its own, put into the table for each saving.
  EmployeeRecord record;
  ExpectEachFieldAlone(
      EmployeeFields(), 199, record,
      [&] {
        records.employees.LoadEmployees();
        record = records.employees.Employees()[1];
      },
      [&] {
        records.employees.Employees()[1] = record;
        records.employees.SaveEmployees();
      });
}

TEST_F(Golden, PasswordsReadAsTheyWereMade) {
  records.passwords.LoadPasswords();
  EXPECT_EQ(records.passwords.Password(Section::Workorders), "wrench");
  EXPECT_EQ(records.passwords.Password(Section::Inventory), "Stock");
  EXPECT_EQ(records.passwords.Password(Section::Customer), "");
  EXPECT_EQ(records.passwords.Password(Section::System), std::string(21, 'x'));
  EXPECT_EQ(records.passwords.Password(Section::EditMenu), "Edit");
}

TEST_F(Golden, LookingNeverWrites) {
  const auto before = Everything();
  records.system.ReadSystem();
  records.customers.LoadCustomerTags();
  records.customers.LookupCustomer(1001);
  records.customers.LookupCustomer(4711);
  records.customers.LatestVehicleDate(records.customers.CurrentCustomer);
  records.customers.SpouseName(0);
  records.customers.RefreshCustomers();
  records.vehicles.LoadVehicles();
  records.vehicles.ReadVehicle(397);
  records.vehicles.Walk(794, [](const VehicleRecord&, FileLink) { return true; });
  records.makes.LoadMakes();
  records.employees.LoadEmployees();
  records.employees.LoadEmployeeList();
  records.passwords.LoadPasswords();
  EXPECT_EQ(Everything(), before);
}

}  // namespace
}  // namespace lantos::test
