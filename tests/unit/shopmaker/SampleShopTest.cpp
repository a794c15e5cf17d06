#include "shopmaker/SampleShop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "estimatedb/EngineChoice.h"
#include "frame/Dates.h"
#include "records/CannedLabor.h"
#include "records/CustomerTag.h"
#include "records/MakesModels.h"
#include "records/PurchaseOrders.h"
#include "records/Vehicles.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/InventoryLayout.h"
#include "shopmaker/Contents.h"

namespace lantos {
namespace {

using test::Contents;
using test::ScratchDirectory;

constexpr DaySerial kDay = 37894;  // Tuesday, 30 September 2003

SampleOptions Small() {
  SampleOptions options;
  options.customers = 40;
  options.vehicles = 60;
  options.parts = 80;
  options.estimates = 60;
  options.date = kDay;
  return options;
}

TEST(SampleShop, LeavesNothingWhicheverStepItIsEndedAt) {
  const ScratchDirectory directory;
  StandingClock clock({kDay, 0});
  int steps = 0;
  MakeSampleShop(directory / "whole", Small(), clock, [&](std::string_view, std::uint64_t done, std::uint64_t of) {
    EXPECT_LT(done, of);
    ++steps;
  });
  EXPECT_GT(steps, 12 + 60);
  for (int end = 0; end < steps; end += 11) {
    int step = 0;
    const auto stop = [&](std::string_view, std::uint64_t, std::uint64_t) {
      if (step++ == end) throw std::runtime_error("enough");
    };
    EXPECT_THROW(MakeSampleShop(directory / "shop", Small(), clock, stop), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(directory / "shop")) << end;
  }
}

constexpr const char* kTables[] = {"Estimates", "Labors",    "Parts",       "Notes",        "Sublets",
                                   "Waste",     "Checklist", "SpecialDays", "StandardHours"};

std::string AsText(const Value& value) {
  struct Visitor {
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return std::to_string(number); }
    std::string operator()(const std::string& text) const { return "'" + text + "'"; }
    std::string operator()(const DateValue& date) const { return FormatIsoDate(date.day); }
  };
  return std::visit(Visitor(), value);
}

// Every row of a table as text, in file order.
std::vector<std::string> Rows(const std::filesystem::path& database, const std::string& table) {
  StandingClock clock({kDay, 0});
  const std::unique_ptr<Engine> engine = OpenDatabase(database, clock);
  std::vector<std::string> lines;
  for (Recordset rows = engine->Run("select * from " + table, {}); !rows.Eof(); rows.MoveNext()) {
    std::string line;
    for (const std::string& column : rows.Columns()) line += column + "=" + AsText(rows[column]) + " ";
    lines.push_back(line);
  }
  return lines;
}

class MadeShop : public testing::Test {
 protected:
  std::filesystem::path Shop(const char* name = "shop") const { return directory_.Path() / name; }
  void Make(const SampleOptions& options, const char* name = "shop", DaySerial today = kDay) {
    StandingClock clock({today, 0});
    MakeSampleShop(Shop(name), options, clock);
  }
  Recordset Query(const std::string& statement) {
    const std::unique_ptr<Engine> engine = OpenDatabase(Shop() / "Lantos.mdb", clock_);
    return engine->Run(statement, {});
  }

  ScratchDirectory directory_;
  StandingClock clock_{LocalTime{kDay, 0}};
};

TEST_F(MadeShop, IsTheSameTwiceInEveryByteAndRowWhateverTheDayItIsMadeOn) {
  Make(Small(), "one");
  Make(Small(), "two", kDay + 400);
  auto one = Contents(Shop("one")), two = Contents(Shop("two"));
  for (auto* files : {&one, &two}) std::erase_if(*files, [](const auto& file) { return file.first.ends_with(".mdb"); });
  EXPECT_GT(one.size(), 30u);  // and a text for each active work order
  EXPECT_TRUE(one == two);
  for (const char* table : kTables) {
    EXPECT_EQ(Rows(Shop("one") / "Lantos.mdb", table), Rows(Shop("two") / "Lantos.mdb", table)) << table;
  }
}

TEST_F(MadeShop, AnotherSeedIsAnotherShop) {
  SampleOptions other = Small();
  other.seed = 2;
  Make(Small(), "one");
  Make(other, "two");
  EXPECT_NE(test::ReadBytes(Shop("one") / "TQCSTDAT.DAT"), test::ReadBytes(Shop("two") / "TQCSTDAT.DAT"));
  EXPECT_NE(Rows(Shop("one") / "Lantos.mdb", "Labors"), Rows(Shop("two") / "Lantos.mdb", "Labors"));
}

TEST_F(MadeShop, HasFilesOfWholeRecords) {
  Make(Small());
  const auto files = Contents(Shop());
  const auto active =
      std::count_if(files.begin(), files.end(), [](const auto& file) { return file.first.ends_with(".tqa"); });
  EXPECT_EQ(files.size(), 35u + static_cast<std::size_t>(active));
  EXPECT_EQ(files.at("TQOPENWO.DAT").size(), 302u * static_cast<std::size_t>(active));
  EXPECT_GT(files.at("TQINCTAG.DAT").size(), 290u * static_cast<std::size_t>(active));
  EXPECT_EQ(files.at("TQINCTAG.DAT").size() % 290, 0u);
  EXPECT_GT(files.at("TQUSEHST.DAT").size(), 0u);
  EXPECT_EQ(files.at("TQUSEHST.DAT").size() % 76, 0u);
  EXPECT_EQ(files.at("TQSYSTEM.DAT").size(), 1038u);
  EXPECT_EQ(files.at("TQCSTTAG.DAT").size(), 40u * 96);
  EXPECT_EQ(files.at("TQCSTDAT.DAT").size(), 40u * 317);
  EXPECT_EQ(files.at("TQVEHICL.DAT").size(), 60u * 397);
  EXPECT_EQ(files.at("TQINVTAG.DAT").size(), 80u * 128);
  EXPECT_EQ(files.at("TQINVENT.DAT").size(), 80u * 344);
  EXPECT_EQ(files.at("TQMAKMOD.DAT").size() % 29, 0u);
  EXPECT_EQ(files.at("TQOPENPO.DAT").size(), 6u * 171);
  EXPECT_EQ(files.at("TQFOLLOW.DAT").size(), 2u * 596);
  EXPECT_GT(files.at("TQVENDOR.DAT").size(), 10u * 204);
  EXPECT_EQ(files.at("TQVENDOR.DAT").size() % 204, 0u);
  EXPECT_EQ(files.at("TQLABKIT.DAT").size(), 3u * 26);
  EXPECT_EQ(files.at("TQEMPLOY.DAT").size() % 199, 0u);
}

TEST_F(MadeShop, ListsDepartmentsAndManufacturersInColumnsOfTwenty) {
  Make(Small());
  for (const char* name : {"TQDEPART.DAT", "TQMANUFA.DAT"}) {
    const std::string line = test::ReadBytes(Shop() / name);
    ASSERT_TRUE(line.ends_with("\r\n")) << name;
    EXPECT_EQ((line.size() - 2) % 20, 0u) << name;
    for (std::size_t column = 0; column + 2 < line.size(); column += 20) {
      EXPECT_NE(line[column], ' ') << name;
      EXPECT_EQ(line[column + 19], ' ') << name;
    }
  }
}

TEST_F(MadeShop, ItsKitsArePartsThatTheInventoryHasAndItsJobsNameThem) {
  SampleOptions options;
  options.date = kDay;
  const SampleShop shop = ImagineShop(options);
  ASSERT_EQ(shop.parts.size(), static_cast<std::size_t>(options.parts));
  std::set<std::string> numbers;
  for (const InventoryRecord& part : shop.parts) numbers.insert(part.Get(inventory::StockNumber));
  ASSERT_EQ(shop.kits.size(), 3u);
  for (const InventoryKitRecord& kit : shop.kits) {
    EXPECT_TRUE(numbers.contains(kit.Get(inventorykit::KitNumber)));
    const auto components = ComponentsOf(kit);
    EXPECT_GE(components.size(), 2u);
    for (const KitComponent& component : components) EXPECT_TRUE(numbers.contains(component.partNumber));
  }
  for (const LaborKitRec& kit : shop.laborKits) EXPECT_TRUE(numbers.contains(kit.Get(laborkit::Kit)));
}

TEST_F(MadeShop, ItsOrdersHaveTheirTextsWithOneSubletEach) {
  SampleOptions options;
  options.date = kDay;
  const SampleShop shop = ImagineShop(options);
  ASSERT_EQ(shop.orders.size(), shop.orderTexts.size());
  for (std::size_t i = 0; i < shop.orders.size(); ++i) {
    EXPECT_EQ(shop.orders[i].Get(potag::FileName), shop.orderTexts[i].first);
    const std::string& text = shop.orderTexts[i].second;
    const std::size_t line = text.find("[Sublets]\r\n") + 11;
    const OrderedSublet sublet = ParseSubletLine(std::string_view(text).substr(line, text.find('\r', line) - line));
    EXPECT_EQ(sublet.vendor, shop.orders[i].Get(potag::VendorName));
    EXPECT_EQ(sublet.invoice, shop.orders[i].Get(potag::VendorInvoice));
    EXPECT_GT(sublet.price, sublet.cost);
  }
}

TEST_F(MadeShop, ItsVendorsAreThereOnceAndItsOrdersAndSubletsNameThem) {
  SampleOptions options;
  options.date = kDay;
  const SampleShop shop = ImagineShop(options);
  std::set<std::string> names;
  std::size_t deleted = 0;
  for (const VendorRecord& record : shop.vendors) {
    const std::string name = ToUpper(record.View(vendor::VendorName));
    if (name.empty()) {
      EXPECT_EQ(record, VendorRecord());
      ++deleted;
    } else {
      EXPECT_TRUE(names.insert(name).second) << name;
      EXPECT_NE(record.Get(vendor::Phone1), "") << name;
    }
  }
  EXPECT_EQ(deleted, 1u);
  for (const PoTag& order : shop.orders) EXPECT_TRUE(names.contains(ToUpper(order.View(potag::VendorName))));
  for (const SampleEstimate& estimate : shop.estimates) {
    for (const de::Extra& sublet : estimate.sublets) EXPECT_TRUE(names.contains(ToUpper(sublet.VendorName)));
  }
}

TEST_F(MadeShop, HasEveryEstimateWithItsLinesInTheDatabase) {
  Make(Small());
  const SampleShop shop = ImagineShop(Small());
  std::size_t labors = 0, parts = 0, notes = 0, sublets = 0, wastes = 0;
  for (const SampleEstimate& estimate : shop.estimates) {
    labors += estimate.labors.size();
    parts += estimate.parts.size();
    notes += estimate.notes.size();
    sublets += estimate.sublets.size();
    wastes += estimate.wastes.size();
  }
  const auto rows = [&](const char* table) { return Rows(Shop() / "Lantos.mdb", table).size(); };
  EXPECT_EQ(rows("Estimates"), 60u);
  EXPECT_EQ(rows("Labors"), labors);
  EXPECT_EQ(rows("Parts"), parts);
  EXPECT_EQ(rows("Notes"), notes);
  EXPECT_EQ(rows("Sublets"), sublets);
  EXPECT_EQ(rows("Waste"), wastes);
  EXPECT_EQ(rows("SpecialDays"), 3u);
  EXPECT_EQ(rows("StandardHours"), 1u);
}

TEST_F(MadeShop, ItsEstimatesBearTheSnapshotOfTheirVehicle) {
  Make(Small());
  const SampleShop shop = ImagineShop(Small());
  Recordset rows = Query("select * from Estimates order by EstimateNumber");
  ASSERT_EQ(rows.Count(), shop.estimates.size());
  for (const SampleEstimate& estimate : shop.estimates) {
    const VehicleRecord& record = shop.vehicles.at(static_cast<std::size_t>(estimate.vehicle) / VehicleRecord::kLength);
    EXPECT_EQ(rows.Long("EstimateNumber"), estimate.number);
    EXPECT_EQ(rows.Long("CustomerNumber"), record.Get(vehicle::Number));
    EXPECT_EQ(rows.Long("VehicleLink"), estimate.vehicle);
    EXPECT_EQ(rows.Date("SchedDate"), estimate.scheduled);
    EXPECT_EQ(rows.Date("CreateDate"), estimate.created);
    EXPECT_EQ(rows.Long("Status"), estimate.status);
    EXPECT_EQ(rows.Text("Comments"), estimate.comments);
    EXPECT_EQ(rows.Text("VehYear"), record.Get(vehicle::Year));
    EXPECT_EQ(rows.Text("VehMake"), record.Get(vehicle::Make));
    EXPECT_EQ(rows.Text("VehModel"), record.Get(vehicle::Model));
    EXPECT_EQ(rows.Text("VehVIN"), record.Get(vehicle::VIN));
    EXPECT_EQ(rows.Text("VehLic"), record.Get(vehicle::LicenseNumber));
    EXPECT_EQ(rows.Text("VehMileage"), std::to_string(record.Get(vehicle::Mileage)));
    EXPECT_EQ(rows.Text("VehEng"), record.Get(vehicle::EngineSize));
    EXPECT_EQ(rows.Text("VehTrans"), record.Get(vehicle::Transmission));
    rows.MoveNext();
  }
}

TEST_F(MadeShop, ItsCustomerFileHoldsTheNumbersOfItsEstimates) {
  Make(Small());
  std::set<std::int32_t> customers;
  const std::string tags = test::ReadBytes(Shop() / "TQCSTTAG.DAT");
  for (std::size_t at = 0; at < tags.size(); at += CustomerTag::kLength) {
    CustomerTag tag;
    std::memcpy(tag.Bytes().data(), tags.data() + at, CustomerTag::kLength);
    customers.insert(tag.Get(customertag::Number));
  }
  for (Recordset rows = Query("select * from Estimates"); !rows.Eof(); rows.MoveNext()) {
    EXPECT_TRUE(customers.contains(rows.Long("CustomerNumber")));
  }
}

TEST_F(MadeShop, IsRefusedWhereAShopIs) {
  Make(Small());
  const auto before = Contents(Shop());
  SampleOptions other = Small();
  other.seed = 9;
  EXPECT_THROW(Make(other), ShopError);
  EXPECT_TRUE(Contents(Shop()) == before);
}

TEST_F(MadeShop, OfAnImpossibleSizeLeavesNothingBehind) {
  SampleOptions options = Small();
  options.customers = 40000;
  EXPECT_THROW(Make(options), ShopError);
  EXPECT_FALSE(std::filesystem::exists(Shop()));
}

}  // namespace
}  // namespace lantos
