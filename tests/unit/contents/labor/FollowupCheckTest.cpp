#include "contents/labor/FollowupCheck.h"

#include <gtest/gtest.h>

#include "frame/Dates.h"
#include "records/Vehicles.h"

namespace lantos {
namespace {

const DaySerial kToday = ToSerial({2003, 9, 30});

TEST(FollowupCheck, EmptyFieldsPass) {
  FollowupFields fields;
  EXPECT_TRUE(CheckDays(fields, kToday));
  EXPECT_TRUE(CheckMiles(fields, kToday, 12000));
  EXPECT_TRUE(CheckFollowupDate(fields, kToday, kToday));
  EXPECT_EQ(fields.miles + fields.days + fields.date, "");
}

TEST(FollowupCheck, DaysEmptyTheMilesAndCountFromTheBaseDate) {
  FollowupFields fields{"3000", "30", ""};
  EXPECT_TRUE(CheckDays(fields, kToday));
  EXPECT_EQ(fields.miles, "");
  EXPECT_EQ(fields.date, "10/30/2003");
}

TEST(FollowupCheck, AnyWholeNumberOfDaysWillDo) {
  const std::pair<const char*, const char*> days[] = {
      {"0", "09/30/2003"}, {"-1", "09/29/2003"}, {"-40000", "03/25/1894"}, {"1,000", "06/26/2006"}};
  for (const auto& [number, date] : days) {
    FollowupFields fields{"", number, ""};
    EXPECT_TRUE(CheckDays(fields, kToday)) << number;
    EXPECT_EQ(fields.date, date);
  }
  FollowupFields earlier{"", "", "09/20/2003"};
  EXPECT_TRUE(CheckFollowupDate(earlier, kToday, kToday));
  EXPECT_EQ(earlier.days, "-10");
  EXPECT_TRUE(CheckDays(earlier, kToday));
  EXPECT_EQ(earlier.date, "09/20/2003");
}

TEST(FollowupCheck, MilesEmptyTheDaysAndCountFromTodayByTheYearlyMiles) {
  FollowupFields fields{"3000", "30", ""};
  EXPECT_TRUE(CheckMiles(fields, kToday, 12000));
  EXPECT_EQ(fields.days, "");
  EXPECT_EQ(fields.date, "12/30/2003");  // 91.25 days
}

TEST(FollowupCheck, ADateFillsTheDaysWhenNeitherIsThere) {
  FollowupFields fields{"", "", "10/10/2003"};
  EXPECT_TRUE(CheckFollowupDate(fields, kToday, kToday));
  EXPECT_EQ(fields.days, "10");
  FollowupFields withMiles{"3000", "", "10/10/2003"};
  EXPECT_TRUE(CheckFollowupDate(withMiles, kToday, kToday));
  EXPECT_EQ(withMiles.days, "");
}

TEST(FollowupCheck, WhatIsNoNumberOrDateFails) {
  FollowupFields fields{"far", "soon", "never"};
  EXPECT_FALSE(CheckDays(fields, kToday));
  EXPECT_FALSE(CheckMiles(fields, kToday, 12000));
  EXPECT_FALSE(CheckFollowupDate(fields, kToday, kToday));
  FollowupFields tooEarly{"", "-900000", ""};
  EXPECT_FALSE(CheckDays(tooEarly, kToday));
  FollowupFields huge{"1e300", "1e300", ""};
  EXPECT_FALSE(CheckDays(huge, kToday));
  EXPECT_FALSE(CheckMiles(huge, kToday, 12000));
}

TEST(FollowupCheck, YearlyMilesComeFromTwoOdometerReadings) {
  VehicleRecord record;
  EXPECT_EQ(YearlyMiles(record), 12000);
  record.Put(vehicle::Mileage, 40000);
  record.Put(vehicle::FirstMileage, 10000);
  record.Put(vehicle::Date, ToFileDate(kToday));
  record.Put(vehicle::FirstDate, ToFileDate(kToday - 730));
  EXPECT_EQ(YearlyMiles(record), 15000);
  record.Put(vehicle::FirstMileage, 40000);
  EXPECT_EQ(YearlyMiles(record), 12000) << "no difference";
  record.Put(vehicle::FirstMileage, 10000);
  record.Put(vehicle::FirstDate, ToFileDate(kToday));
  EXPECT_EQ(YearlyMiles(record), 12000);
}

}  // namespace
}  // namespace lantos
