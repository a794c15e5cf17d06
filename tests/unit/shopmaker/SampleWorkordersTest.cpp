#include <chrono>
#include <set>

#include "frame/Dates.h"
#include "records/Customers.h"
#include "records/Fixture.h"
#include "records/Followups.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"
#include "records/inventory/InventoryLayout.h"
#include "records/inventory/UsageHistory.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "shopmaker/SampleShop.h"
#include "shopmaker/SampleWork.h"
#include "workorders/RunningTotals.h"
#include "workorders/Workorders.h"

namespace lantos {
namespace {

constexpr DaySerial kDay = 37894;  // Tuesday, 30 September 2003

SampleOptions Small(std::uint64_t seed = 1) {
  SampleOptions options;
  options.customers = 40;
  options.vehicles = 60;
  options.parts = 80;
  options.estimates = 60;
  options.date = kDay;
  options.seed = seed;
  return options;
}

// The files of a made shop, read as the program reads them. No box comes up meanwhile.
class SampleWorkorders : public test::ShopTest {
 protected:
  void Make(const SampleOptions& options) {
    shop = ImagineShop(options);
    StandingClock maker({kDay, 0});
    WriteShop(PathOf(""), shop, maker);
  }
  template <class Tag>
  std::vector<Tag> TagsOf(std::string_view name) const {
    const std::string bytes = BytesOf(name);
    EXPECT_EQ(bytes.size() % Tag::kLength, 0u) << name;
    std::vector<Tag> tags(bytes.size() / Tag::kLength);
    for (std::size_t i = 0; i < tags.size(); ++i) {
      std::memcpy(tags[i].Bytes().data(), bytes.data() + i * Tag::kLength, Tag::kLength);
    }
    return tags;
  }
  std::vector<ActiveWoTag> ActiveTags() const { return TagsOf<ActiveWoTag>("TQOPENWO.DAT"); }
  std::vector<ArchivedWoTag> ArchivedTags() const { return TagsOf<ArchivedWoTag>("TQINCTAG.DAT"); }

  // Every work order with its tag.
  template <class Use>
  void ForEach(Use use) {
    for (const ActiveWoTag& tag : ActiveTags()) {
      workorders.CurrentActiveTag = tag;
      ASSERT_TRUE(workorders.GetCurrWoRec()) << tag.View(wotag::FileName);
      use(tag, workorders.Current);
    }
    for (const ArchivedWoTag& tag : ArchivedTags()) {
      if (tag.Get(wotag::MasterOffset) == kNoLink) continue;
      ASSERT_TRUE(workorders.GetArchWo(tag.Get(wotag::WorkorderNumber), tag.Get(wotag::MasterOffset)));
      use(tag, workorders.Current);
    }
  }

  SampleShop shop;
  Workorders workorders{environment, desktop, records};
};

TEST_F(SampleWorkorders, EveryTagLeadsToItsWorkOrder) {
  Make(Small());
  std::size_t met = 0;
  ForEach([&](const auto& tag, const Workorder& found) {
    SCOPED_TRACE(tag.Get(wotag::WorkorderNumber));
    EXPECT_EQ(found.WorkorderNumber, tag.Get(wotag::WorkorderNumber));
    EXPECT_TRUE(found.Totals == TotalsOf(tag));
    EXPECT_EQ(found.Status, kWoStatusTexts.at(tag.Get(wotag::Status)));
    EXPECT_EQ(WoTypeCode(found.Type), tag.Get(wotag::Type));
    EXPECT_EQ(found.Customer.Get(customer::Number), tag.Get(wotag::CustomerNumber));
    EXPECT_EQ((found.Customer.Get(customer::Lastname) + "," + found.Customer.Get(customer::Firstname)).substr(0, 31),
              tag.Get(wotag::CustomerName));
    EXPECT_EQ(!found.Customer.View(customer::tax_id_number).empty(), tag.Get(wotag::TaxExempt) == 1);
    EXPECT_EQ(found.Vehicle.Get(vehicle::VIN), tag.Get(wotag::VIN));
    EXPECT_EQ(found.Vehicle.Get(vehicle::LicenseNumber), tag.Get(wotag::LicenseNumber));
    ++met;
  });
  EXPECT_EQ(met, ArchivedTags().size());
  EXPECT_EQ(met, shop.workorders.size());
}

TEST_F(SampleWorkorders, TheirTotalsAreThoseOfTheirLines) {
  Make(Small());
  ForEach([&](const auto& tag, const Workorder& found) {
    Workorder summed;
    for (std::size_t i = 0; i < 4; ++i) {
      summed.Totals.Put(wototals::TaxRate[i], found.Totals.Get(wototals::TaxRate[i]));
      summed.Totals.Put(wototals::Discount[i], found.Totals.Get(wototals::Discount[i]));
      if (tag.Get(wotag::TaxExempt) == 1) {
        EXPECT_EQ(found.Totals.Get(wototals::TaxRate[i]), 0);
      }
    }
    const auto add = [&](WoCategory category, Cents amount) { AddWoAmount(summed, category, 0, amount); };
    found.Parts.ForEach([&](const WoPartLine& line) { add(WoCategory::Parts, line.Quantity * line.Price); });
    found.Labor.ForEach([&](const WoLaborLine& line) { add(WoCategory::Labor, line.Total); });
    found.Sublets.ForEach([&](const WoExtraLine& line) {
      add(line.IsTaxable() ? WoCategory::Sublet : WoCategory::NonTaxSublet, line.Price);
    });
    found.Waste.ForEach([&](const WoExtraLine& line) {
      add(line.IsTaxable() ? WoCategory::Waste : WoCategory::NonTaxWaste, line.Price);
    });
    found.Credits.ForEach([&](const WoCreditLine& line) { add(WoCategory::Credit, line.Amount); });
    SCOPED_TRACE(tag.Get(wotag::WorkorderNumber));
    for (const LongField field : wototals::Subtotal) EXPECT_EQ(found.Totals.Get(field), summed.Totals.Get(field));
    EXPECT_EQ(found.Totals.Get(wototals::WorkorderTax), summed.Totals.Get(wototals::WorkorderTax));
    EXPECT_EQ(found.Totals.Get(wototals::WorkorderTotal), summed.Totals.Get(wototals::WorkorderTotal));
    EXPECT_GT(found.Totals.Get(wototals::WorkorderTotal), 0);
    EXPECT_GT(found.Totals.Get(wototals::Cost[1]), 0);
  });
}

TEST_F(SampleWorkorders, ACustomerWithoutASalespersonHasNoneAsAfterAConversion) {
  Make(Small());
  ForEach([&](const auto&, const Workorder& found) {
    const std::int32_t number = found.Customer.Get(customer::Number);
    const auto owner = std::find_if(shop.customers.begin(), shop.customers.end(), [&](const CustomerRecord& record) {
      return record.Get(customer::Number) == number;
    });
    ASSERT_NE(owner, shop.customers.end());
    const std::string salesperson = owner->Get(customer::salesperson);
    EXPECT_EQ(found.Customer.Get(customer::salesperson), salesperson.empty() ? "None" : salesperson);
  });
}

TEST_F(SampleWorkorders, TheirNumbersRiseWithTheDayUpToTheShopsCounter) {
  Make(Small());
  const auto tags = ArchivedTags();
  ASSERT_FALSE(tags.empty());
  for (std::size_t i = 1; i < tags.size(); ++i) {
    EXPECT_EQ(tags[i].Get(wotag::WorkorderNumber), tags[i - 1].Get(wotag::WorkorderNumber) + 1);
    EXPECT_GE(TotalsOf(tags[i]).Get(wototals::DateOpen), TotalsOf(tags[i - 1]).Get(wototals::DateOpen));
  }
  EXPECT_EQ(records.system.TakeNumber(sysrec::last_workorder_number), tags.back().Get(wotag::WorkorderNumber) + 1);
  EXPECT_LE(TotalsOf(tags.back()).Get(wototals::DateOpen), ToFileDate(kDay));
}

TEST_F(SampleWorkorders, AnActiveOneHasATagInBothFilesAndAnArchivedOneOnlyInTheArchives) {
  Make(Small());
  std::map<std::int32_t, ActiveWoTag> active;
  std::int32_t last = 0;
  for (const ActiveWoTag& tag : ActiveTags()) {
    EXPECT_GT(tag.Get(wotag::WorkorderNumber), last);
    last = tag.Get(wotag::WorkorderNumber);
    active[last] = tag;
    const std::string text = BytesOf(tag.View(wotag::FileName));
    EXPECT_TRUE(text.starts_with("[Workorder]\r\n"));
    EXPECT_EQ(text.find('\0'), text.size() - 1);
  }
  const std::string archive = BytesOf("TQINVOIC.DAT");
  EXPECT_EQ(archive.find('\0'), std::string::npos);
  std::size_t unarchived = 0;
  FileLink behind = -1;
  for (const ArchivedWoTag& tag : ArchivedTags()) {
    const FileLink offset = tag.Get(wotag::MasterOffset);
    const auto found = active.find(tag.Get(wotag::WorkorderNumber));
    EXPECT_EQ(found != active.end(), offset == kNoLink);
    if (found != active.end()) {
      ++unarchived;
      EXPECT_TRUE(std::equal(tag.Bytes().begin(), tag.Bytes().begin() + wotag::MasterOffset.offset,
                             found->second.Bytes().begin()));
      continue;
    }
    EXPECT_EQ(offset, behind < 0 ? 0 : static_cast<FileLink>(archive.find("[Workorder]", behind)));
    behind = offset + 1;
  }
  EXPECT_EQ(unarchived, active.size());
  EXPECT_EQ(archive.find("[Workorder]", static_cast<std::size_t>(behind)), std::string::npos);
}

TEST_F(SampleWorkorders, TheActiveOnesAreOpenClosedAndPaidWhateverTheShopHasOfEstimates) {
  for (const std::int32_t estimates : {0, 1, 60, 600}) {
    SampleOptions options = Small();
    options.estimates = estimates;
    std::set<WoStatus> statuses;
    std::size_t active = 0;
    for (const SampleWorkorder& order : ImagineShop(options).workorders) {
      if (order.archived) continue;
      statuses.insert(order.status);
      ++active;
    }
    EXPECT_THAT(statuses, testing::IsSupersetOf({WoStatus::Open, WoStatus::Closed, WoStatus::Paid})) << estimates;
    EXPECT_LE(active, 203u);
  }
}

TEST_F(SampleWorkorders, AreAboutOneAVehicleSpreadOverThreeYears) {
  SampleOptions options;
  options.date = kDay;
  const SampleShop whole = ImagineShop(options);
  std::map<FileLink, int> visits;
  std::map<DaySerial, int> years;  // back from the day
  for (const SampleWorkorder& order : whole.workorders) {
    if (!order.archived) continue;
    ++visits[order.vehicle];
    ++years[(kDay - order.opened) / 366];
    EXPECT_LT(order.opened, kDay);
    EXPECT_NE(WeekdayIndex(order.opened), 0);
    EXPECT_LE(order.opened, order.closed == 0 ? kDay : order.closed);
    EXPECT_LE(order.closed, order.paid == 0 ? kDay : order.paid);
    EXPECT_LE(order.paid, kDay);
    EXPECT_EQ(order.paid > 0, order.status == WoStatus::Paid);
  }
  EXPECT_GT(visits.size(), 500u);
  EXPECT_LT(visits.size(), 650u);
  EXPECT_TRUE(std::any_of(visits.begin(), visits.end(), [](const auto& entry) { return entry.second >= 3; }));
  ASSERT_EQ(years.size(), 3u);
  for (const auto& [year, count] : years) EXPECT_GT(count, 100) << year;
}

TEST_F(SampleWorkorders, AVehiclesMileageOnlyRisesAndStaysBelowTodays) {
  Make(Small());
  std::map<std::string, const VehicleRecord*> today;
  for (const VehicleRecord& record : shop.vehicles) today[record.Get(vehicle::VIN)] = &record;
  std::map<std::string, std::int32_t> last;
  int compared = 0;
  for (const ArchivedWoTag& tag : ArchivedTags()) {
    if (tag.Get(wotag::MasterOffset) == kNoLink) continue;
    ASSERT_TRUE(workorders.GetArchWo(tag.Get(wotag::WorkorderNumber), tag.Get(wotag::MasterOffset)));
    const VehicleRecord& then = workorders.Current.Vehicle;
    const std::int32_t now = today.at(then.Get(vehicle::VIN))->Get(vehicle::Mileage);
    const std::int32_t mileage = then.Get(vehicle::Mileage);
    if (now == 0) {
      EXPECT_EQ(mileage, 0);
      continue;
    }
    EXPECT_LT(mileage, now);
    EXPECT_GE(mileage, then.Get(vehicle::FirstMileage));
    EXPECT_EQ(then.Get(vehicle::Date), TotalsOf(tag).Get(wototals::DateOpen));
    const auto [entry, isFirst] = last.try_emplace(then.Get(vehicle::VIN), mileage);
    if (!isFirst) {
      EXPECT_GE(mileage, entry->second) << tag.Get(wotag::WorkorderNumber);
    }
    entry->second = mileage;
    compared += !isFirst;
  }
  EXPECT_GT(compared, 5);
}

TEST_F(SampleWorkorders, AConvertedEstimateHasItsLinesOnTheWorkOrder) {
  Make(Small());
  int converted = 0;
  std::map<std::int32_t, const SampleWorkorder*> orders;
  for (const SampleWorkorder& order : shop.workorders) orders[order.number] = &order;
  ForEach([&](const auto& tag, const Workorder& found) {
    const SampleWorkorder& order = *orders.at(tag.Get(wotag::WorkorderNumber));
    if (order.estimate == SampleWorkorder::kNoEstimate) return;
    const SampleEstimate& estimate = shop.estimates.at(order.estimate);
    EXPECT_EQ(order.opened, estimate.scheduled);
    EXPECT_EQ(order.vehicle, estimate.vehicle);
    std::size_t labors = 0, parts = 0;
    found.Labor.ForEach([&](const WoLaborLine& line) {
      EXPECT_EQ(line.Mechanic, estimate.labors.at(labors).mechanic);
      EXPECT_EQ(line.Total, estimate.labors.at(labors).Total());
      EXPECT_EQ(line.Desc[0],
                estimate.labors[labors].description.substr(0, estimate.labors[labors].description.find('\t')));
      ++labors;
    });
    found.Parts.ForEach([&](const WoPartLine& line) { EXPECT_EQ(line.PartNumber, estimate.parts.at(parts++).number); });
    EXPECT_EQ(labors, estimate.labors.size());
    EXPECT_EQ(parts, estimate.parts.size());
    ++converted;
  });
  EXPECT_GT(converted, 5);
}

TEST_F(SampleWorkorders, TheirMechanicsAndPartsAreTheShopsAndSomeHaveNotesAndFollowups) {
  Make(Small());
  std::set<std::string> numbers;
  for (const InventoryTag& tag : shop.partTags) numbers.insert(tag.Get(inventorytag::StockNumber));
  std::set<std::int32_t> staff;
  for (const EmployeeRecord& record : shop.employees) staff.insert(record.Get(employee::EmpNumber));
  int notes = 0, followups = 0, parts = 0;
  ForEach([&](const auto&, const Workorder& found) {
    found.Parts.ForEach([&](const WoPartLine& line) {
      EXPECT_TRUE(numbers.contains(line.PartNumber)) << line.PartNumber;
      ++parts;
    });
    found.Labor.ForEach([&](const WoLaborLine& line) {
      EXPECT_TRUE(staff.contains(line.Mechanic));
      followups += line.FollowupDays > 0;
    });
    notes += !found.Notes[0][0].empty();
  });
  EXPECT_GT(parts, 50);
  EXPECT_GT(notes, 3);
  EXPECT_GT(followups, 0);
}

TEST_F(SampleWorkorders, APartsUseIsChainedFromItsMasterNewestFirst) {
  Make(Small());
  const auto uses = TagsOf<UsageRecord>("TQUSEHST.DAT");
  std::map<std::int32_t, FileDate> opened;
  for (const ArchivedWoTag& tag : ArchivedTags()) {
    opened[tag.Get(wotag::WorkorderNumber)] = TotalsOf(tag).Get(wototals::DateOpen);
  }
  std::size_t met = 0;
  for (const InventoryRecord& part : TagsOf<InventoryRecord>("TQINVENT.DAT")) {
    FileLink before = std::numeric_limits<FileLink>::max();
    for (FileLink link = part.Get(inventory::UsageLink); link != kNoLink;) {
      ASSERT_LT(link, before);
      ASSERT_EQ(link % static_cast<FileLink>(UsageRecord::kLength), 0);
      const UsageRecord& use = uses.at(static_cast<std::size_t>(link) / UsageRecord::kLength);
      EXPECT_EQ(use.Get(usage::StockNumber), part.Get(inventory::StockNumber));
      EXPECT_EQ(use.Get(usage::Date), opened.at(use.Get(usage::WorkorderNumber)));
      EXPECT_GT(use.Get(usage::Quantity), 0);
      EXPECT_LT(use.Get(usage::Price), use.Get(usage::Cost)) << "what it has cost lies where the price should";
      before = link;
      link = use.Get(usage::PrevLink);
      ++met;
    }
  }
  EXPECT_EQ(met, uses.size());
  EXPECT_GT(met, 50u);
}

TEST_F(SampleWorkorders, AFollowupNamesAnArchivedVisitOfItsVehicleOrOneBeforeTheArchive) {
  SampleOptions options;
  options.date = kDay;
  const SampleShop whole = ImagineShop(options);
  std::map<std::int32_t, const SampleWorkorder*> orders;
  for (const SampleWorkorder& order : whole.workorders) orders[order.number] = &order;
  int named = 0;
  for (const FollowupRecord& followup : whole.followups) {
    const auto found = orders.find(followup.Get(followup::WorkorderNumber));
    if (found == orders.end()) {
      EXPECT_LT(followup.Get(followup::WorkorderNumber), orders.begin()->first);
      EXPECT_GT(followup.Get(followup::WorkorderNumber), 0);
      continue;
    }
    ++named;
    const auto index = static_cast<std::size_t>(found->second->vehicle) / VehicleRecord::kLength;
    EXPECT_EQ(whole.vehicles.at(index).View(vehicle::VIN), followup.View(followup::VIN));
  }
  EXPECT_GT(named, 10);
}

TEST_F(SampleWorkorders, AreAsManyAsTheNumbersAllowInAShopOfAnySize) {
  SampleOptions options = Small();
  options.customers = 4000;
  options.vehicles = 12000;
  const SampleShop big = ImagineShop(options);
  EXPECT_GT(big.workorders.size(), 12000u);
  EXPECT_EQ(big.workorders.front().number, 1001);
  EXPECT_EQ(big.system.Get(sysrec::last_workorder_number), big.workorders.back().number + 1);
  options.customers = options.vehicles = options.estimates = 0;
  EXPECT_TRUE(ImagineShop(options).workorders.empty());
}

TEST_F(SampleWorkorders, AShopWithoutVehiclesHasThemWithoutOne) {
  SampleOptions options = Small();
  options.vehicles = 0;
  Make(options);
  std::size_t met = 0;
  ForEach([&](const auto& tag, const Workorder& found) {
    EXPECT_EQ(found.WorkorderNumber, tag.Get(wotag::WorkorderNumber));
    EXPECT_EQ(found.Vehicle.Get(vehicle::Make), "");
    ++met;
  });
  EXPECT_GT(met, 5u);
}

#ifdef NDEBUG
TEST_F(SampleWorkorders, OfABigShopAreWrittenWithinSeconds) {
  SampleOptions options = Small();
  options.customers = 5000;
  options.vehicles = 8000;
  options.parts = 15000;
  const auto start = std::chrono::steady_clock::now();
  Make(options);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
}
#endif

}  // namespace
}  // namespace lantos
