#include "board/WeekData.h"

#include <random>

#include "board/FollowingBench.h"

namespace lantos {
namespace {

using test::BoardBench;
using test::Texts;

// All that a board takes from it.
Texts Told(const WeekData& week) {
  Texts told;
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    told.push_back(fmt::format("{} of {} hours, {}", i, week.capacity.AvailableHours[i], week.capacity.DayComment[i]));
    for (const BoardRow& row : week.days[i]) {
      const Estimate& each = row.estimate;
      told.push_back(fmt::format("{} {} {} {} {} {} {} {}", each.EstimateNumber, each.CustomerNumber, each.SchedDate,
                                 each.Status, each.TotalHours, each.TotalLabor, each.VehMake, each.Comments));
      told.insert(told.end(), row.laborLines.begin(), row.laborLines.end());
    }
  }
  return told;
}

struct WeekDataTestBench : BoardBench {
  WeekDataTestBench() {
    for (std::int32_t i = 0; i < 40; ++i) {
      const std::int32_t number = 900 + i * 37 % 40;
      AddEstimate(number, sunday + i % 9 - 1, static_cast<std::int16_t>(i % 5), 7 + i % 2);
      for (std::int32_t line = i % 4; line > 0; --line) AddLabor(number, line, 25 * line, 100 * number);
    }
    Do("update Estimates set VehMake = 'Make ' || EstimateNumber % 3, Comments = ' c ' where EstimateNumber % 2 = 0");
    AddLabor(5, 1, 100, 1);  // of no estimate
    database.lantosData.SaveSpecialDay(sunday + 3, 12, "Inventory");
    database.lantosData.SaveSpecialDay(sunday + 7, 1, "Next week's");
  }

  void PutFarAway() {
    database.lantosData.Disconnect();
    database.lantosData.SetOpener([this] {
      return std::make_unique<test::FollowedEngine>(OpenDatabase(directory / "Lantos.mdb", environment.clock),
                                                    statements, isDeaf, isFar);
    });
  }

  const DaySerial sunday = Today() - static_cast<DaySerial>(kTuesday);
  int statements = 0;
  const bool isDeaf = false;
  const bool isFar = true;
};

struct WeekDataTest : WeekDataTestBench, testing::TestWithParam<const char*> {};

TEST_P(WeekDataTest, AtOnceIsTheSameAsInParts) {
  for (const DaySerial laborOf : {kNoDay, sunday, sunday + 2, sunday + 7}) {
    const auto fetch = [&](WeekAsked asked) {
      return Told(FetchWeek(database.lantosData, sunday, GetParam(), laborOf, asked));
    };
    const Texts inParts = fetch(WeekAsked::InParts);
    EXPECT_GT(inParts.size(), 7U + 30U);
    EXPECT_EQ(fetch(WeekAsked::AtOnce), inParts) << laborOf;
  }
}

// Each round changes some estimates in all the ways there are, and reads those alone.
TEST(WeekRefreshed, IsTheWeekReadAnew) {
  WeekDataTestBench bench;
  bench.PutFarAway();
  de& data = bench.database.lantosData;
  std::mt19937 random(20261123);
  const auto upTo = [&](int last) { return std::uniform_int_distribution(0, last)(random); };
  for (const DaySerial laborOf : {kNoDay, bench.sunday + 2}) {
    const auto fetch = [&] { return FetchWeek(data, bench.sunday, "EstimateNumber ASC", laborOf, WeekAsked::AtOnce); };
    WeekData week = fetch();
    for (int round = 0; round < 40; ++round) {
      std::set<std::int32_t> changed;
      for (int each = upTo(6); each >= 0; --each) {
        const std::int32_t number = 890 + upTo(60);
        const auto is = fmt::format("where EstimateNumber = {}", number);
        changed.insert(number);
        switch (upTo(4)) {
          case 0:
            bench.Do("delete from Estimates " + is);
            break;
          case 1:
            if (bench.Ask("select count(*) from Estimates " + is) == "0") {
              bench.AddEstimate(number, bench.sunday + upTo(8) - 1, kArrived);
            }
            break;
          case 2:
            bench.Do(fmt::format("update Estimates set SchedDate = '{}', Status = {} {}",
                                 FormatIsoDate(bench.sunday + upTo(8) - 1), upTo(6), is));
            break;
          case 3:
            bench.Do("delete from Labors " + is);
            break;
          default:
            bench.AddLabor(number, 100 + round * 10 + each, upTo(300), upTo(9000));
        }
      }
      RefreshWeek(data, week, changed);
      ASSERT_EQ(Told(week), Told(fetch())) << round;
    }
  }
}

TEST(WeekRefreshed, IsForAFewFromFarAwayInTheOrderOfTheirNumbers) {
  WeekDataTestBench bench;
  de& data = bench.database.lantosData;
  const auto fetch = [&](const char* order) { return FetchWeek(data, bench.sunday, order, kNoDay); };
  EXPECT_FALSE(IsWorthRefreshing(data, fetch("EstimateNumber ASC"), 3)) << "from near";
  bench.PutFarAway();
  EXPECT_TRUE(IsWorthRefreshing(data, fetch("EstimateNumber ASC"), 3));
  EXPECT_FALSE(IsWorthRefreshing(data, fetch("EstimateNumber ASC"), 1000));
  EXPECT_FALSE(IsWorthRefreshing(data, fetch("CustomerNumber ASC"), 3));
  EXPECT_FALSE(IsWorthRefreshing(data, WeekData(), 3)) << "nothing was read yet";
}

INSTANTIATE_TEST_SUITE_P(, WeekDataTest,
                         testing::Values("EstimateNumber ASC", "CustomerNumber ASC",
                                         "VehMake ASC, VehModel ASC, VehYear ASC", "Mechanic ASC"),
                         [](const auto& order) { return std::string(order.param).substr(0, 5); });

}  // namespace
}  // namespace lantos
