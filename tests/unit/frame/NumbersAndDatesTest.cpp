#include <gtest/gtest.h>

#include "frame/Clock.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"

namespace lantos {

namespace {
constexpr DaySerial kTuesday = 37894;  // 30 September 2003
}

TEST(Numbers, RoundingIsToNearestHalvesToEven) {
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
  EXPECT_EQ(RoundHalfEven(1e300), 2147483647);
  EXPECT_EQ(RoundHalfEven(-1e300), -2147483647 - 1);
  EXPECT_EQ(DivideHalfEven(5, 2), 2);
  EXPECT_EQ(DivideHalfEven(7, 2), 4);
  EXPECT_EQ(DivideHalfEven(-5, 2), -2);
  EXPECT_EQ(DivideHalfEven(-7, 2), -4);
  EXPECT_EQ(DivideHalfEven(10, 4), 2);
}

TEST(Numbers, FormatsShowHundredthsWithTwoDecimals) {
  EXPECT_EQ(FormatHundredths(150), "1.50");
  EXPECT_EQ(FormatHundredths(-5), "-0.05");
  EXPECT_EQ(FormatHundredths(0), "0.00");
  EXPECT_EQ(FormatHundredths(-2147483648LL), "-21474836.48");
  EXPECT_EQ(FormatTenThousandths(82500), "8.2500");
}

TEST(Numbers, FormatFixedRoundsAsTheNumberReads) {
  EXPECT_EQ(FormatFixed(1.005, 2), "1.01");
  EXPECT_EQ(FormatFixed(2.675, 2), "2.68");
  EXPECT_EQ(FormatFixed(-1.005, 2), "-1.01");
  EXPECT_EQ(FormatFixed(-0.001, 2), "0.00");
  EXPECT_EQ(FormatFixed(7, 0), "7");
  EXPECT_EQ(FormatFixed(1234567.891, 2), "1234567.89");
}

TEST(Numbers, FormatZerosFillsAndNeverCuts) {
  EXPECT_EQ(FormatZeros(42, 6), "000042");
  EXPECT_EQ(FormatZeros(1234567, 6), "1234567");
  EXPECT_EQ(FormatZeros(-1, 6), "-000001");
}

TEST(Dates, FromFileDateLetsABareSerialPass) {
  EXPECT_EQ(FromFileDate(0), 0);
  EXPECT_EQ(FromFileDate(693974), 693974);
  EXPECT_EQ(FromFileDate(693975), 1);
  EXPECT_EQ(FromFileDate(37894), 37894);
  EXPECT_EQ(FromFileDate(731868), 37894);
  EXPECT_EQ(ToFileDate(kTuesday), 731868);
}

TEST(Dates, FormatsAreThoseOfTheScreens) {
  EXPECT_EQ(FormatDate(kTuesday), "09/30/2003");
  EXPECT_EQ(FormatPanelDate(kTuesday), "Tue 9/30");
  EXPECT_EQ(FormatDateWithWeekday(kTuesday), "Tue 09/30/2003");
  EXPECT_EQ(FormatLongDate(kTuesday), "Tuesday, September 30, 2003");
  EXPECT_EQ(FormatIsoDate(kTuesday), "2003-09-30");
  EXPECT_EQ(FormatDate(0), "12/30/1899");
}

TEST(Dates, WeekdaysCountFromSunday) {
  EXPECT_EQ(WeekdayIndex(kTuesday), 2);
  EXPECT_EQ(WeekdayIndex(0), 6);
  EXPECT_EQ(WeekdayIndex(-1), 5);
  EXPECT_EQ(WeekdayIndex(1), 0);
}

TEST(Dates, ADateIsReadInTheFormsThatPeopleType) {
  for (const char* text : {"9/30/2003", "09/30/03", "9-30-2003", "9.30.2003", "2003-09-30", "Sep 30, 2003",
                           "30 September 2003", " 9/30/2003 "}) {
    EXPECT_EQ(ParseDate(text), kTuesday) << text;
  }
  EXPECT_EQ(ParseDate("9/30", 2003), kTuesday);
  EXPECT_EQ(ParseDate("1/1/30"), ToSerial({1930, 1, 1}));
  EXPECT_EQ(ParseDate("1/1/29"), ToSerial({2029, 1, 1}));
  for (const char* text : {"", "x", "13/1/2003", "2/29/2003", "9/30", "9/30/2003/1", "9/30/2003x", "0/0/0"}) {
    EXPECT_EQ(ParseDate(text), std::nullopt) << text;
  }
}

TEST(Dates, AnIsoDateMayHaveATimeBehindIt) {
  EXPECT_EQ(ParseIsoDate("2003-09-30"), kTuesday);
  EXPECT_EQ(ParseIsoDate("2003-09-30 12:00:00"), kTuesday);
  for (const char* text : {"2003-9-30", "2003-02-30", "2003-09-30x", "20030930", "", "2003-09-3a"}) {
    EXPECT_EQ(ParseIsoDate(text), std::nullopt) << text;
  }
}

TEST(Clock, AMomentIsReadAndShown) {
  const auto time = ParseLocalTime("2003-09-30T08:15:00");
  ASSERT_TRUE(time);
  EXPECT_EQ(FormatDateTime(*time), "09/30/2003 08:15:00");
  EXPECT_EQ(FormatTime(time->PlusMilliseconds(-8 * 3600 * 1000 - 15 * 60 * 1000 - 1000)), "23:59:59");
  EXPECT_EQ(time->PlusMilliseconds(86400000).day, kTuesday + 1);
  for (const char* text : {"2003-09-30T24:00:00", "2003-09-30T08:60:00", "2003-09-30T8:15", "x", "2003-09-30T08:15:00.",
                           "2003-09-30T08:15:00.12345"}) {
    EXPECT_FALSE(ParseLocalTime(text)) << text;
  }
}

TEST(Clock, WaitingOneSecondMovesAStandingClockToTheNextSecond) {
  StandingClock clock(*ParseLocalTime("2003-09-30T08:15:00.400"));
  WaitOneSecond(clock);
  EXPECT_EQ(clock.Now(), *ParseLocalTime("2003-09-30T08:15:01"));
  WaitOneSecond(clock);
  EXPECT_EQ(clock.Now(), *ParseLocalTime("2003-09-30T08:15:02"));
}

}  // namespace lantos
