#include "board/WeekData.h"

#include "board/BoardBench.h"

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

struct WeekDataTest : BoardBench, testing::TestWithParam<const char*> {
  WeekDataTest() {
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

  const DaySerial sunday = Today() - static_cast<DaySerial>(kTuesday);
};

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

INSTANTIATE_TEST_SUITE_P(, WeekDataTest,
                         testing::Values("EstimateNumber ASC", "CustomerNumber ASC",
                                         "VehMake ASC, VehModel ASC, VehYear ASC", "Mechanic ASC"),
                         [](const auto& order) { return std::string(order.param).substr(0, 5); });

}  // namespace
}  // namespace lantos
