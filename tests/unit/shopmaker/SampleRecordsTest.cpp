#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "frame/Dates.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"
#include "records/inventory/InventoryLayout.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "shopmaker/SampleShop.h"

namespace lantos {
namespace {

constexpr DaySerial kDay = 37894;  // Tuesday, 30 September 2003

// One shop of the default sizes for all the looking.
class SampleRecords : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    SampleOptions options;
    options.date = kDay;
    shop_ = std::make_unique<SampleShop>(ImagineShop(options));
  }
  static void TearDownTestSuite() { shop_.reset(); }
  static const SampleShop& Shop() { return *shop_; }

  static std::unique_ptr<SampleShop> shop_;
};
std::unique_ptr<SampleShop> SampleRecords::shop_;

TEST_F(SampleRecords, EveryCustomerTagLeadsToItsMaster) {
  ASSERT_EQ(Shop().customerTags.size(), 400u);
  ASSERT_EQ(Shop().customers.size(), 400u);
  for (const CustomerTag& tag : Shop().customerTags) {
    const FileLink offset = tag.Get(customertag::Offset);
    ASSERT_EQ(offset % static_cast<FileLink>(CustomerRecord::kLength), 0);
    const CustomerRecord& master = Shop().customers.at(static_cast<std::size_t>(offset) / CustomerRecord::kLength);
    EXPECT_EQ(tag.Get(customertag::Number), master.Get(customer::Number));
    EXPECT_EQ(tag.Get(customertag::NameKey),
              (master.Get(customer::Lastname) + "," + master.Get(customer::Firstname)).substr(0, 32));
    EXPECT_EQ(tag.Get(customertag::SpouseKey),
              (master.Get(customer::SpouseLast) + "," + master.Get(customer::Spouse)).substr(0, 32));
    EXPECT_EQ(tag.Get(customertag::Phone), master.Get(customer::HomePhone));
    EXPECT_EQ(tag.Get(customertag::reserved), "");
  }
}

TEST_F(SampleRecords, NoCustomerNumberComesTwiceAndTheCounterIsBehindTheLast) {
  std::set<std::int32_t> numbers;
  for (const CustomerRecord& record : Shop().customers) numbers.insert(record.Get(customer::Number));
  EXPECT_EQ(numbers.size(), Shop().customers.size());
  EXPECT_GT(*numbers.begin(), 0);
  EXPECT_EQ(Shop().system.Get(sysrec::last_customer_number), *numbers.rbegin() + 1);
}

TEST_F(SampleRecords, NoTextOfACustomerIsCut) {
  for (const CustomerRecord& record : Shop().customers) {
    for (const TextField field : {customer::Lastname, customer::Firstname, customer::Address, customer::City,
                                  customer::HomePhone, customer::tax_id_number, customer::Comment}) {
      EXPECT_LT(record.View(field).size(), field.width) << record.View(field);
    }
  }
}

TEST_F(SampleRecords, EveryChainOfVehiclesEndsAndHoldsOnlyTheOwnersVehicles) {
  std::size_t met = 0;
  for (const CustomerRecord& owner : Shop().customers) {
    std::set<FileLink> passed;
    for (FileLink link = owner.Get(customer::VLink); link != kNoLink;) {
      ASSERT_TRUE(passed.insert(link).second) << "a loop at " << link;
      ASSERT_EQ(link % static_cast<FileLink>(VehicleRecord::kLength), 0);
      const VehicleRecord& record = Shop().vehicles.at(static_cast<std::size_t>(link) / VehicleRecord::kLength);
      EXPECT_EQ(record.Get(vehicle::Number), owner.Get(customer::Number));
      const FileLink next = record.Get(vehicle::VLink);
      EXPECT_LT(next, link) << "the newest comes first";
      link = next;
    }
    met += passed.size();
  }
  EXPECT_EQ(met, 650u);
  EXPECT_EQ(Shop().vehicles.size(), 650u);
}

TEST_F(SampleRecords, SomeCustomersHaveNoVehicleAndSomeHaveMany) {
  std::map<std::int32_t, int> counts;
  for (const VehicleRecord& record : Shop().vehicles) ++counts[record.Get(vehicle::Number)];
  EXPECT_LT(counts.size(), Shop().customers.size());
  EXPECT_TRUE(std::any_of(counts.begin(), counts.end(), [](const auto& entry) { return entry.second >= 4; }));
}

TEST_F(SampleRecords, EveryVehicleNumberIsItsOwnHasSeventeenCharactersAndARightCheckDigit) {
  std::set<std::string> numbers;
  const std::string values = "0123456789.ABCDEFGH..JKLMN.P.R..STUVWXYZ";
  const int weights[] = {8, 7, 6, 5, 4, 3, 2, 10, 0, 9, 8, 7, 6, 5, 4, 3, 2};
  for (const VehicleRecord& record : Shop().vehicles) {
    const std::string vin = record.Get(vehicle::VIN);
    ASSERT_EQ(vin.size(), 17u);
    EXPECT_TRUE(numbers.insert(vin).second) << vin;
    EXPECT_EQ(vin.find_first_of("IOQ"), std::string::npos) << vin;
    // The letters stand in the table so that their place, less the tens, is their value.
    int sum = 0;
    for (std::size_t i = 0; i < 17; ++i) sum += weights[i] * static_cast<int>(values.find(vin[i]) % 10);
    EXPECT_EQ(vin[8], "0123456789X"[sum % 11]) << vin;
  }
}

TEST_F(SampleRecords, NoVehicleIsOfAYearToCome) {
  for (const VehicleRecord& record : Shop().vehicles) {
    const int year = std::stoi(record.Get(vehicle::Year));
    EXPECT_GE(year, 2003 - 18);
    EXPECT_LE(year, 2003);
  }
}

TEST_F(SampleRecords, TheFirstMileageIsThereWheneverAMileageIsAndNeverAboveIt) {
  int unknown = 0;
  for (const VehicleRecord& record : Shop().vehicles) {
    const std::int32_t mileage = record.Get(vehicle::Mileage), first = record.Get(vehicle::FirstMileage);
    if (mileage == 0) {
      ++unknown;
      EXPECT_EQ(first, 0);
      EXPECT_EQ(record.Get(vehicle::Date), 0);
      EXPECT_EQ(record.Get(vehicle::FirstDate), 0);
      continue;
    }
    EXPECT_GT(first, 0);
    EXPECT_LE(first, mileage);
    EXPECT_LE(record.Get(vehicle::FirstDate), record.Get(vehicle::Date));
    EXPECT_LT(record.Get(vehicle::Date), ToFileDate(kDay));
    EXPECT_GE(FromSerial(FromFileDate(record.Get(vehicle::FirstDate))).year, std::stoi(record.Get(vehicle::Year)) - 1);
  }
  EXPECT_GT(unknown, 0);
}

TEST_F(SampleRecords, SomeVehiclesAreDeletedAndStayInTheirChains) {
  const auto deleted = std::count_if(Shop().vehicles.begin(), Shop().vehicles.end(), [](const auto& record) {
    return record.Get(vehicle::Deleted) == kVehicleDeleted;
  });
  EXPECT_GT(deleted, 0);
  EXPECT_LT(deleted, 50);
}

TEST_F(SampleRecords, EveryMakeLeadsToItsModelsAndEveryVehicleIsOneOfThem) {
  std::set<std::pair<std::string, std::string>> known;
  std::size_t records = 0;
  for (std::size_t i = 0; i < Shop().makes.size(); ++i) {
    const MakeModelRecord& make = Shop().makes[i];
    if (make.Get(makemodel::Prev) != kNoLink) continue;
    ++records;
    for (FileLink link = make.Get(makemodel::Next); link != kNoLink;) {
      const MakeModelRecord& model = Shop().makes.at(static_cast<std::size_t>(link) / MakeModelRecord::kLength);
      // A model's link back names the make even when another model has been put in between since.
      EXPECT_EQ(model.Get(makemodel::Prev), static_cast<FileLink>(i * MakeModelRecord::kLength));
      EXPECT_TRUE(known.emplace(make.Get(makemodel::Name), model.Get(makemodel::Name)).second);
      ASSERT_LE(++records, Shop().makes.size());
      link = model.Get(makemodel::Next);
    }
  }
  EXPECT_EQ(records, Shop().makes.size());
  for (const VehicleRecord& record : Shop().vehicles) {
    EXPECT_TRUE(known.contains({record.Get(vehicle::Make), record.Get(vehicle::Model)}));
  }
}

TEST_F(SampleRecords, EveryPartTagLeadsToItsMasterAndCopiesItsPricesAndStock) {
  ASSERT_EQ(Shop().partTags.size(), 1200u);
  for (const InventoryTag& tag : Shop().partTags) {
    const FileLink offset = tag.Get(inventorytag::Tag);
    ASSERT_EQ(offset % static_cast<FileLink>(InventoryRecord::kLength), 0);
    const InventoryRecord& part = Shop().parts.at(static_cast<std::size_t>(offset) / InventoryRecord::kLength);
    const bool deleted = part.Get(inventory::Deleted) == 1;
    EXPECT_EQ(tag.Get(inventorytag::StockNumber), deleted ? "" : part.Get(inventory::StockNumber));
    EXPECT_EQ(tag.Get(inventorytag::Description), part.Get(inventory::Description));
    EXPECT_EQ(tag.Get(inventorytag::InStock), part.Get(inventory::QtyInStock));
    EXPECT_EQ(tag.Get(inventorytag::IsStocked), part.Get(inventory::IsStocked));
    for (int level = 0; level < 4; ++level) {
      EXPECT_EQ(tag.Get(inventorytag::Pricing[level]), part.Get(inventory::Pricing[level]));
    }
    EXPECT_EQ(part.Get(inventory::UsageLink), kNoLink);
    EXPECT_EQ(part.Get(inventory::ReceivingLink), kNoLink);
  }
}

TEST_F(SampleRecords, EveryPartWithACoreHasItsCompanion) {
  std::map<std::string, const InventoryRecord*> byNumber;
  for (const InventoryRecord& part : Shop().parts) {
    EXPECT_TRUE(byNumber.emplace(part.Get(inventory::StockNumber), &part).second) << part.Get(inventory::StockNumber);
  }
  int cores = 0;
  for (const auto& [number, part] : byNumber) {
    if (part->Get(inventory::HasACore) != 1) continue;
    ++cores;
    const InventoryRecord& core = *byNumber.at(number + "/C");
    EXPECT_EQ(core.Get(inventory::Department), "CORES");
    EXPECT_EQ(core.Get(inventory::Pricing[0]), part->Get(inventory::CoreCost));
    EXPECT_EQ(core.Get(inventory::HasACore), 0);
    EXPECT_EQ(core.Get(inventory::Description), ("CORE: " + part->Get(inventory::Description)).substr(0, 39));
  }
  EXPECT_GT(cores, 20);
}

TEST_F(SampleRecords, AlternatePartsNameEachOther) {
  std::map<std::string, std::string> alternates;
  for (const InventoryRecord& part : Shop().parts) {
    if (!part.View(inventory::AltNumber[0]).empty()) {
      alternates[part.Get(inventory::StockNumber)] = part.Get(inventory::AltNumber[0]);
    }
  }
  EXPECT_GT(alternates.size(), 10u);
  for (const auto& [one, other] : alternates) EXPECT_EQ(alternates[other], one);
}

TEST_F(SampleRecords, TheStaffHasTechniciansAndOneWhoHasLeft) {
  int gone = 0;
  std::set<std::int32_t> numbers;
  for (const EmployeeRecord& record : Shop().employees) {
    EXPECT_TRUE(numbers.insert(record.Get(employee::EmpNumber)).second);
    gone += record.Get(employee::DateTerminated) != -1;
  }
  EXPECT_EQ(gone, 1);
  EXPECT_GE(Shop().technicians.size(), 2u);
  for (const std::int32_t number : Shop().technicians) EXPECT_TRUE(numbers.contains(number));
  EXPECT_EQ(Shop().system.Get(sysrec::last_employee_number), *numbers.rbegin() + 1);
}

}  // namespace
}  // namespace lantos
