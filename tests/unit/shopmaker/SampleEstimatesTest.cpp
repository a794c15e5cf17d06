#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "estimatedb/modEstimates.h"
#include "frame/Dates.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "records/inventory/InventoryLayout.h"
#include "records/modSystem.h"
#include "shopmaker/SampleShop.h"

namespace lantos {
namespace {

constexpr DaySerial kDay = 37894;  // Tuesday, 30 September 2003
constexpr DaySerial kSunday = kDay - 2;

SampleOptions Around(DaySerial day, std::int32_t estimates = 120) {
  SampleOptions options;
  options.date = day;
  options.estimates = estimates;
  return options;
}

std::int32_t Available(const SampleShop& shop, DaySerial day) {
  for (const SampleSpecialDay& special : shop.specialDays) {
    if (special.date == day) return special.hours;
  }
  return shop.standardHours[static_cast<std::size_t>(WeekdayIndex(day))];
}

Hundredths Scheduled(const SampleShop& shop, DaySerial day) {
  Hundredths hours = 0;
  for (const SampleEstimate& estimate : shop.estimates) {
    if (estimate.scheduled != day || !modEstimates::CountsTowardDay(estimate.status)) continue;
    for (const SampleLabor& labor : estimate.labors) hours += labor.hours;
  }
  return hours;
}

enum class Fill { Under, Good, Over };
Fill FillOf(const SampleShop& shop, DaySerial day) {
  const Hundredths available = Available(shop, day) * 100;
  const Hundredths scheduled = Scheduled(shop, day);
  if (scheduled * 100 < available * (100 - kFirstFudgeFactor)) return Fill::Under;
  return scheduled * 100 > available * (100 + kFirstFudgeFactor) ? Fill::Over : Fill::Good;
}

TEST(SampleEstimates, EveryOneHasACustomerAndAVehicleOfHis) {
  const SampleShop shop = ImagineShop(Around(kDay));
  ASSERT_EQ(shop.estimates.size(), 120u);
  for (const SampleEstimate& estimate : shop.estimates) {
    const CustomerRecord& owner = shop.customers.at(estimate.customer);
    ASSERT_EQ(estimate.vehicle % static_cast<FileLink>(VehicleRecord::kLength), 0);
    const VehicleRecord& record = shop.vehicles.at(static_cast<std::size_t>(estimate.vehicle) / VehicleRecord::kLength);
    EXPECT_EQ(record.Get(vehicle::Number), owner.Get(customer::Number));
    EXPECT_NE(record.Get(vehicle::Deleted), kVehicleDeleted);
  }
}

TEST(SampleEstimates, TheirNumbersFollowTheirCreationAndTheCounterIsBehindTheLast) {
  const SampleShop shop = ImagineShop(Around(kDay));
  for (std::size_t i = 1; i < shop.estimates.size(); ++i) {
    EXPECT_EQ(shop.estimates[i].number, shop.estimates[i - 1].number + 1);
    EXPECT_GE(shop.estimates[i].created, shop.estimates[i - 1].created);
  }
  EXPECT_EQ(shop.system.Get(sysrec::last_estimate_number), shop.estimates.back().number + 1);
}

TEST(SampleEstimates, LieOnOpenDaysWithinTwoWeeksAndWereMadeByTheDay) {
  const SampleShop shop = ImagineShop(Around(kDay));
  std::set<DaySerial> days;
  for (const SampleEstimate& estimate : shop.estimates) {
    days.insert(estimate.scheduled);
    EXPECT_LE(std::abs(estimate.scheduled - kDay), 14);
    EXPECT_GT(Available(shop, estimate.scheduled), 0);
    EXPECT_LE(estimate.created, std::min(kDay, estimate.scheduled));
  }
  EXPECT_GE(days.size(), 15u);
  EXPECT_LT(*days.begin(), kDay - 7);
  EXPECT_GT(*days.rbegin(), kDay + 7);
}

TEST(SampleEstimates, EveryStatusIsThere) {
  const SampleShop shop = ImagineShop(Around(kDay));
  std::set<std::int16_t> statuses;
  for (const SampleEstimate& estimate : shop.estimates) statuses.insert(estimate.status);
  EXPECT_EQ(statuses.size(), kStatusCount);
  EXPECT_EQ(*statuses.begin(), kScheduled);
  EXPECT_EQ(*statuses.rbegin(), kEstimateOnly);
}

class TheWeekOfTheDay : public testing::TestWithParam<int> {};

TEST_P(TheWeekOfTheDay, HasDaysOverDaysUnderAndGoodOnesWhateverTheSeed) {
  SampleOptions options = Around(kSunday + GetParam());
  options.parts = 30;
  for (options.seed = 1; options.seed <= 5; ++options.seed) {
    const SampleShop shop = ImagineShop(options);
    std::set<Fill> fills;
    for (DaySerial day = kSunday + 1; day <= kSunday + 6; ++day) fills.insert(FillOf(shop, day));
    EXPECT_THAT(fills, testing::ElementsAre(Fill::Under, Fill::Good, Fill::Over)) << options.seed;
    EXPECT_EQ(FillOf(shop, kSunday + 1), Fill::Good) << options.seed;
    EXPECT_EQ(FillOf(shop, kSunday + 2), Fill::Over) << options.seed;
    EXPECT_EQ(FillOf(shop, kSunday + 5), Fill::Under) << options.seed;
  }
}
INSTANTIATE_TEST_SUITE_P(OnAnyWeekday, TheWeekOfTheDay, testing::Range(0, 7));

TEST(SampleEstimates, TheirLaborHasEightLinesATechnicianAndHours) {
  const SampleShop shop = ImagineShop(Around(kDay));
  for (const SampleEstimate& estimate : shop.estimates) {
    ASSERT_FALSE(estimate.labors.empty());
    for (const SampleLabor& labor : estimate.labors) {
      EXPECT_EQ(std::count(labor.description.begin(), labor.description.end(), '\t'), 7);
      EXPECT_NE(labor.description.front(), '\t');
      EXPECT_GT(labor.hours, 0);
      EXPECT_THAT(shop.technicians, testing::Contains(labor.mechanic));
    }
  }
}

TEST(SampleEstimates, ALaborLinesTotalIsItsHoursAtItsRate) {
  SampleLabor labor;
  labor.hours = 150;
  labor.rate = 8500;
  EXPECT_EQ(labor.Total(), 12750);
}

TEST(SampleEstimates, TheirPartsAreInTheInventoryAndNoneStandsTwiceOnOne) {
  const SampleShop shop = ImagineShop(Around(kDay));
  std::set<std::string> known;
  for (const InventoryTag& tag : shop.partTags) known.insert(tag.Get(inventorytag::StockNumber));
  std::size_t parts = 0;
  for (const SampleEstimate& estimate : shop.estimates) {
    std::set<std::string> here;
    for (const SamplePart& part : estimate.parts) {
      EXPECT_TRUE(known.contains(part.number)) << part.number;
      EXPECT_TRUE(here.insert(part.number).second) << part.number;
      EXPECT_GT(part.quantity, 0);
      EXPECT_GT(part.price, 0);
    }
    parts += here.size();
  }
  EXPECT_GT(parts, 100u);
}

// A kind of part that is made for one make names it; such a part stands on no other make's estimate, as long as the
// shop has one that fits.
TEST(SampleEstimates, APartForOneMakeStandsOnlyOnEstimatesForThatMake) {
  const SampleShop shop = ImagineShop(Around(kDay));
  int checked = 0;
  for (const SampleEstimate& estimate : shop.estimates) {
    const VehicleRecord& record = shop.vehicles.at(static_cast<std::size_t>(estimate.vehicle) / VehicleRecord::kLength);
    const std::string fitting = "OIL FILTER " + ToUpper(record.Get(vehicle::Make)) + " ";
    const bool stocked = std::any_of(shop.partTags.begin(), shop.partTags.end(), [&](const auto& tag) {
      return tag.View(inventorytag::Description).starts_with(fitting);
    });
    for (const SamplePart& part : estimate.parts) {
      if (!stocked || !part.description.starts_with("OIL FILTER")) continue;
      EXPECT_TRUE(part.description.starts_with(fitting)) << part.description << " is not " << fitting;
      ++checked;
    }
  }
  EXPECT_GT(checked, 0);
}

TEST(SampleEstimates, SomeCarryCommentsSubletsWasteAndNotes) {
  const SampleShop shop = ImagineShop(Around(kDay));
  const auto count = [&](auto has) { return std::count_if(shop.estimates.begin(), shop.estimates.end(), has); };
  EXPECT_GT(count([](const auto& estimate) { return !estimate.comments.empty(); }), 10);
  EXPECT_GT(count([](const auto& estimate) { return !estimate.sublets.empty(); }), 3);
  EXPECT_GT(count([](const auto& estimate) { return !estimate.wastes.empty(); }), 3);
  EXPECT_GT(count([](const auto& estimate) { return !estimate.notes.empty(); }), 3);
}

TEST(SampleEstimates, AShopWithoutVehiclesHasEstimatesWithoutOne) {
  SampleOptions options = Around(kDay, 10);
  options.vehicles = 0;
  for (const SampleEstimate& estimate : ImagineShop(options).estimates) EXPECT_EQ(estimate.vehicle, kNoLink);
}

TEST(SampleEstimates, MoreEstimatesMeanMoreMechanics) {
  EXPECT_GT(ImagineShop(Around(kDay, 600)).technicians.size(), ImagineShop(Around(kDay, 120)).technicians.size());
}

TEST(SampleEstimates, AnEmptyShopOfNothingCanBeHad) {
  SampleOptions options = Around(kDay, 0);
  options.customers = options.vehicles = options.parts = 0;
  const SampleShop shop = ImagineShop(options);
  EXPECT_TRUE(shop.customers.empty());
  EXPECT_TRUE(shop.vehicles.empty());
  EXPECT_TRUE(shop.parts.empty());
  EXPECT_TRUE(shop.estimates.empty());
}

TEST(SampleEstimates, SizesThatNoShopCanHaveAreRefused) {
  const auto with = [](auto change) {
    SampleOptions options = Around(kDay);
    change(options);
    return options;
  };
  EXPECT_THROW(CheckSampleOptions(with([](auto& o) { o.customers = 32768; })), ShopError);
  EXPECT_THROW(CheckSampleOptions(with([](auto& o) { o.customers = -1; })), ShopError);
  EXPECT_THROW(CheckSampleOptions(with([](auto& o) { o.vehicles = 2147483647; })), ShopError);
  EXPECT_THROW(CheckSampleOptions(with([](auto& o) { o.parts = 2147483647; })), ShopError);
  EXPECT_THROW(CheckSampleOptions(with([](auto& o) { o.customers = 0; })), ShopError);
  EXPECT_THROW(CheckSampleOptions(with([](auto& o) { o.date = 0; })), ShopError);
  EXPECT_NO_THROW(CheckSampleOptions(with([](auto& o) { o.customers = 32767; })));
}

}  // namespace
}  // namespace lantos
