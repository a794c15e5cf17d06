// Links that lead nowhere, into themselves or into the middle of a record.
#include <vector>

#include "Fixture.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Passwords.h"
#include "records/Vehicles.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"

namespace lantos::test {
namespace {

class Damage : public ShopTest {
 protected:
  Damage() {
    PutGolden();
    desktop.otherwise = [](const ui::Box& box) { return ui::ButtonsOf(box).back(); };
  }

  // Everything that reads, and what it leads to.
  void ReadAll() {
    records.system.ReadSystem();
    records.passwords.LoadPasswords();
    records.makes.LoadMakes();
    records.employees.LoadEmployees();
    records.employees.LoadEmployeeList();
    records.vehicles.LoadVehicles();
    Customers& customers = records.customers;
    customers.LoadCustomerTags();
    for (std::size_t i = 0; i < customers.Count(); ++i) {
      customers.MakeTagCurrent(i);
      customers.ReadCustomer();
      customers.LatestVehicleDate(customers.CurrentCustomer);
      customers.SpouseName(i);
    }
    customers.LookupCustomer(1001);
    customers.RefreshCustomers();
  }
};

TEST_F(Damage, NoLinkDoesHarmWhateverItHolds) {
  struct Place {
    std::string_view file;
    std::size_t offset;
  };
  const std::vector<Place> places = {{kCustomerTagFile, 68}, {kCustomerFile, 317 + 313}, {kVehicleFile, 794 + 393},
                                     {kMakeModelFile, 25},   {kMakeModelFile, 29 + 25},  {kMakeModelFile, 87 + 21}};
  for (const Place& place : places) {
    for (const std::int32_t link : {0, 1, 28, 29, 396, 100000, 2147483647, -2, -2147483647 - 1}) {
      const std::string golden = GoldenBytes(place.file);
      Put(place.file, Image(golden.size()).Text(0, golden).Long(place.offset, link));
      ReadAll();
      records.makes.DeleteModel("Ford", "Crown Victoria");
      records.makes.AddModel("Ford", "Focus");
      records.makes.LoadMakes();
      EXPECT_LT(BytesOf(kMakeModelFile).size(), 10000U);
      Put(kMakeModelFile, GoldenBytes(kMakeModelFile));
      Put(place.file, golden);
    }
  }
}

}  // namespace
}  // namespace lantos::test
