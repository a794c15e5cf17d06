#include "board/DayCapacity.h"

#include "board/DayCapacityDatabase.h"

namespace lantos {
namespace {

using test::BoardShop;

std::string_view Word(Hundredths available, Hundredths scheduled, std::int32_t fudgeFactor) {
  return DayStatusText(ClassifyDay(available, scheduled, fudgeFactor));
}

TEST(ClassifyDay, NothingAvailableAndNothingScheduledIsClosed) {
  EXPECT_EQ(ClassifyDay(0, 0, 10), (ui::Color{224, 224, 224}));
  EXPECT_EQ(Word(0, 0, 10), "Closed");
}

TEST(ClassifyDay, WorkOnAClosedDayIsClosedInCapitalsWhateverTheHours) {
  EXPECT_EQ(ClassifyDay(0, 1, 10), (ui::Color{128, 128, 128}));
  EXPECT_EQ(Word(0, 100000, 10), "CLOSED!");
  EXPECT_EQ(Word(0, -100, 10), "CLOSED!");
}

TEST(ClassifyDay, TheGoodBandIsInclusive) {
  EXPECT_EQ(ClassifyDay(4000, 4000, 10), (ui::Color{192, 255, 192}));
  EXPECT_EQ(Word(4000, 3600, 10), "Good");
  EXPECT_EQ(Word(4000, 4400, 10), "Good");
}

TEST(ClassifyDay, AHundredthOutsideTheBandIsUnderOrOver) {
  EXPECT_EQ(ClassifyDay(4000, 3599, 10), (ui::Color{255, 255, 192}));
  EXPECT_EQ(Word(4000, 3599, 10), "Under");
  EXPECT_EQ(ClassifyDay(4000, 4401, 10), (ui::Color{255, 0, 0}));
  EXPECT_EQ(Word(4000, 4401, 10), "Over");
}

TEST(ClassifyDay, WithoutToleranceOnlyAnExactMatchIsGood) {
  EXPECT_EQ(Word(800, 800, 0), "Good");
  EXPECT_EQ(Word(800, 799, 0), "Under");
  EXPECT_EQ(Word(800, 801, 0), "Over");
}

TEST(ClassifyDay, TheBoundsAreRoundedHalfToEven) {
  // 50 hundredths and 5 %: 47.5 and 52.5 become 48 and 52.
  EXPECT_EQ(Word(50, 47, 5), "Under");
  EXPECT_EQ(Word(50, 48, 5), "Good");
  EXPECT_EQ(Word(50, 52, 5), "Good");
  EXPECT_EQ(Word(50, 53, 5), "Over");
}

TEST(ClassifyDay, AnEmptyOpenDayIsUnder) { EXPECT_EQ(Word(4000, 0, 10), "Under"); }

TEST(DayStatusText, AnyOtherColourIsUnknown) {
  EXPECT_EQ(DayStatusText(ui::Color{0, 0, 0}), "Unknown");
  EXPECT_EQ(DayStatusText(ui::Color{255, 255, 255}), "Unknown");
}

TEST(DayCapacity, StandardHoursCountInHundredths) {
  BoardShop world;
  DayCapacity capacity;
  capacity.LoadStandardHours(world.database.lantosData);
  EXPECT_EQ(capacity.AvailableHours, (std::array<Hundredths, 7>{0, 4000, 4000, 4000, 4000, 4000, 0}));
  EXPECT_EQ(capacity.FudgeFactor, 10);
  EXPECT_FALSE(world.database.lantosData.Rs("GetStdHours").IsOpen());
}

TEST(DayCapacity, AMissingRowOfStandardHoursIsAnError) {
  BoardShop world;
  world.Do("delete from StandardHours");
  DayCapacity capacity;
  EXPECT_THROW(capacity.LoadStandardHours(world.database.lantosData), DatabaseError);
}

TEST(DayCapacity, SpecialHoursReplaceTheStandardValueRatherThanAddingToIt) {
  BoardShop world;
  world.database.lantosData.SaveSpecialDay(world.Today(), 8, "Half the crew");
  DayCapacity capacity;
  capacity.LoadStandardHours(world.database.lantosData);
  capacity.LoadSpecialDay(world.database.lantosData, world.Today(), 2);
  EXPECT_EQ(capacity.AvailableHours[2], 800);
  EXPECT_EQ(capacity.DayComment[2], "Half the crew");
}

TEST(DayCapacity, ADayThatIsntSpecialKeepsItsHoursAndLosesItsComment) {
  BoardShop world;
  DayCapacity capacity;
  capacity.LoadStandardHours(world.database.lantosData);
  capacity.DayComment[2] = "from another week";
  capacity.LoadSpecialDay(world.database.lantosData, world.Today(), 2);
  EXPECT_EQ(capacity.AvailableHours[2], 4000);
  EXPECT_EQ(capacity.DayComment[2], "");
}

TEST(DayCapacity, ASpecialDayOfZeroHoursOnAWorkingDayWithEstimatesReadsClosedInCapitals) {
  BoardShop world;
  world.database.lantosData.SaveSpecialDay(world.Today(), 0, "Holiday");
  DayCapacity capacity;
  capacity.LoadStandardHours(world.database.lantosData);
  capacity.LoadSpecialDay(world.database.lantosData, world.Today(), 2);
  EXPECT_EQ(capacity.AvailableHours[2], 0);
  EXPECT_EQ(Word(capacity.AvailableHours[2], 150, capacity.FudgeFactor), "CLOSED!");
}

TEST(NextBusinessDay, IsTheNextDayWithStandardHours) {
  BoardShop world;
  EXPECT_EQ(NextBusinessDay(world.database.lantosData, world.Today()), world.Today() + 1);
  const DaySerial friday = world.Today() + 3;
  EXPECT_EQ(NextBusinessDay(world.database.lantosData, friday), friday + 3);
}

TEST(NextBusinessDay, ASpecialDayWithHoursOnANormallyClosedSundayIsOpen) {
  BoardShop world;
  const DaySerial friday = world.Today() + 3;
  world.database.lantosData.SaveSpecialDay(friday + 2, 8, "Open house");
  EXPECT_EQ(NextBusinessDay(world.database.lantosData, friday), friday + 2);
}

TEST(NextBusinessDay, ASpecialDayOfZeroHoursIsPassedOver) {
  BoardShop world;
  world.database.lantosData.SaveSpecialDay(world.Today() + 1, 0, "Holiday");
  EXPECT_EQ(NextBusinessDay(world.database.lantosData, world.Today()), world.Today() + 2);
}

TEST(NextBusinessDay, AStoredMinusOneReadsAsNoRowAndOtherNegativeHoursAsClosed) {
  BoardShop world;
  world.database.lantosData.SaveSpecialDay(world.Today() + 1, -2, "Closed");
  world.database.lantosData.SaveSpecialDay(world.Today() + 2, -1, "As usual");
  EXPECT_EQ(NextBusinessDay(world.database.lantosData, world.Today()), world.Today() + 2);
}

TEST(NextBusinessDay, HalfAStandardHourIsOpenButHalfASpecialHourIsClosed) {
  BoardShop world;
  world.Do("update StandardHours set WedHours = 0.5, ThuHours = 0.5");
  world.database.lantosData.SaveSpecialDay(world.Today() + 1, 1, "Wednesday");
  world.Do("update SpecialDays set SpecialHours = 0.5");
  EXPECT_EQ(NextBusinessDay(world.database.lantosData, world.Today()), world.Today() + 2);
}

TEST(NextBusinessDay, LeavesNoRecordsetOpen) {
  BoardShop world;
  NextBusinessDay(world.database.lantosData, world.Today());
  EXPECT_FALSE(world.database.lantosData.Rs("GetStdHours").IsOpen());
  EXPECT_FALSE(world.database.lantosData.Rs("SpecialDaysByDate").IsOpen());
}

}  // namespace
}  // namespace lantos
