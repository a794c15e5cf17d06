#include "trail/TrailDeeds.h"

#include "estimatedb/DatabaseFixture.h"

namespace lantos::test {

namespace {

// Estimate 7 on Tuesday, September 30, 2003, and what is done to it at the front desk.
class TrailDeedsTest : public DatabaseTest {
 protected:
  TrailDeedsTest() {
    db.NewEstimate(7, kDay);
    db.KeepTrail(clock, {"FRONTDESK", "beth"});
  }

  std::vector<std::string> Words(std::int32_t estimate = 7) {
    std::vector<std::string> words;
    for (const TrailDeed& deed : DeedsOf(TrailOfEstimate(db, estimate))) words.push_back(deed.words);
    return words;
  }
  std::string Last() { return Words().empty() ? "" : Words().front(); }
  void AnHourLater() { clock.MoveOn(3'600'000); }

  const DaySerial kDay = Day(2003, 9, 30);
};

}  // namespace

TEST_F(TrailDeedsTest, ALabor) {
  db.AddLabor(7, 2, "BRAKES", 150, 8000, 12000, 3);
  EXPECT_EQ(Last(), "labor 2 added: BRAKES 1.50 h");
  AnHourLater();
  db.DeleteLabor(7, 2);
  db.AddLabor(7, 2, "BRAKES", 200, 8000, 16000, 3);
  EXPECT_EQ(Last(), "labor 2 changed: BRAKES 1.50 h to BRAKES 2.00 h");
  AnHourLater();
  db.DeleteLabor(7, 2);
  EXPECT_EQ(Words(), (std::vector<std::string>{"labor 2 removed: BRAKES 2.00 h",
                                               "labor 2 changed: BRAKES 1.50 h to BRAKES 2.00 h",
                                               "labor 2 added: BRAKES 1.50 h"}));
}

TEST_F(TrailDeedsTest, ALineTakenAwayAndAnotherAddedMuchLaterAreTwo) {
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  db.DeleteLabor(7, 1);
  AnHourLater();
  db.AddLabor(7, 1, "TIRES", 50, 8000, 4000, 3);
  EXPECT_EQ(Words().size(), 3u);
}

TEST_F(TrailDeedsTest, AMove) {
  db.SetStatus(kRescheduled, 7);
  db.SetComments("Rescheduled for 10/02/2003. CALL FIRST", 7);
  EXPECT_EQ(Words(), (std::vector<std::string>{"moved from 09/30 to 10/02"}));
}

TEST_F(TrailDeedsTest, AStatusAndAComment) {
  db.SetStatus(kArrived, 7);
  EXPECT_EQ(Last(), "status from Scheduled to Arrived");
  db.SetComments("KEYS IN THE BOX", 7);
  EXPECT_EQ(Last(), "comments: \"KEYS IN THE BOX\"");
  db.SetStatus(77, 7);
  EXPECT_EQ(Last(), "status from Arrived to status 77");
}

TEST_F(TrailDeedsTest, PartsWithWhatChangedOfThem) {
  de::Part part{"A-1", "FILTER", 1, 500, 500, 300, 600};
  db.AddPartRow(7, part);
  EXPECT_EQ(Last(), "part added: A-1 FILTER");
  part.Quantity = 2;
  part.PartPrice = 550;
  db.UpdatePartRow(7, "A-1", part);
  EXPECT_EQ(Last(), "part A-1 changed: quantity from 1 to 2, price from 5.00 to 5.50");
  db.DeletePart(7, "A-1");
  EXPECT_EQ(Last(), "part removed: A-1 FILTER");
}

TEST_F(TrailDeedsTest, ExtrasAndNotes) {
  const de::Extra towing{"Ace Towing", "INV-77", 4500, 6000, "Towed in", "", "", "", "Yes"};
  db.AddSublet(7, 1, towing);
  EXPECT_EQ(Last(), "sublet 1 added: Ace Towing 60.00");
  db.AddWaste(7, 2, towing);
  EXPECT_EQ(Last(), "waste charge 2 added: Ace Towing 60.00");
  db.AddNote(7, 1, {"NOISE IN FRONT", "2", "3", "4", "5", "6", "7", "8"});
  EXPECT_EQ(Last(), "note 1 added: NOISE IN FRONT");
  db.AddSubletSurcharge(7 + 1, {250, "SHOP SUPPLIES", "No"});
  EXPECT_EQ(Words(8), (std::vector<std::string>{"surcharge of 2.50"}));
  db.SetSubletSurcharge(300, 8, 1);
  EXPECT_EQ(Words(8).front(), "surcharge from 2.50 to 3.00");
}

TEST_F(TrailDeedsTest, AChecklistIsOneLine) {
  db.AddChecklistRow(7, "TIRES");
  AnHourLater();
  db.DeleteChecklist(7);
  for (const char* item : {"TIRES", "OIL", "BELTS"}) db.AddChecklistRow(7, item);
  EXPECT_EQ(Words(), (std::vector<std::string>{"checklist of 3 items stored", "checklist item: TIRES"}));
}

TEST_F(TrailDeedsTest, ACopyIsOneLine) {
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  db.SetCustomer(12, 7);
  db.AddEstimateRow(8, kDay + 2, kScheduled);
  db.CloneEstimate(7, 8);
  db.CloneLabors(8, 7);
  EXPECT_EQ(Words(8), (std::vector<std::string>{"booked for 10/02, copied from estimate # 000007"}));
}

TEST_F(TrailDeedsTest, WhatAnotherPersonDoesIsALineOfItsOwn) {
  db.DeleteLabor(7, 1);
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  db.DeleteLabor(7, 1);
  db.KeepTrail(clock, {"BACKOFFICE", "al"});
  db.AddLabor(7, 1, "OIL", 70, 8000, 5600, 3);
  EXPECT_EQ(Words().front(), "labor 1 added: OIL 0.70 h");
}

TEST_F(TrailDeedsTest, TheShopsDays) {
  db.SaveSpecialDay(kDay, 8, "SHORT DAY");
  EXPECT_EQ(Words(0).front(), "special day 09/30: 8 hours SHORT DAY");
  db.DeleteSpecialDay(kDay);
  EXPECT_EQ(Words(0).front(), "special day 09/30 removed");
}

TEST_F(TrailDeedsTest, TheTimeHasTheWeekdayForAWeekAndThenTheDate) {
  db.SetStatus(kArrived, 7);
  const TrailDeed deed = DeedsOf(TrailOfEstimate(db, 7)).at(0);
  EXPECT_EQ(WhenOf(deed, kDay), "Tue 08:15");
  EXPECT_EQ(WhenOf(deed, kDay + 6), "Tue 08:15");
  EXPECT_EQ(WhenOf(deed, kDay + 7), "Tue 09/30/2003 08:15");
  EXPECT_EQ(Sentence(deed, kDay), "Tue 08:15 FRONTDESK (beth) status from Scheduled to Arrived");
  EXPECT_EQ(deed.about, TrailKind::Status);
  EXPECT_EQ(WordOf(deed.about), "Status");
}

TEST_F(TrailDeedsTest, ADayOfAnotherYearHasIt) {
  db.SetStatus(kRescheduled, 7);
  db.SetComments("Rescheduled for 01/02/2004. CALL FIRST", 7);
  EXPECT_EQ(Last(), "moved from 09/30 to 01/02/2004");
}

TEST_F(TrailDeedsTest, AnEstimateAloneThatGetsADayIsMovedByItsComments) {
  db.SetComments("Scheduled for 10/02/2003. CALL FIRST", 7);
  EXPECT_EQ(Last(), "moved from 09/30 to 10/02");
  db.SetComments("Scheduled for 10/02/2003. CALL TWICE", 7);
  EXPECT_EQ(Last(), "comments: \"Scheduled for 10/02/2003. CALL TWICE\"");
}

TEST_F(TrailDeedsTest, AConversionNamesItsWorkOrder) {
  db.SetComments("Workorder # 000123 CALL FIRST", 7);
  EXPECT_EQ(Last(), "converted to work order # 000123");
  db.SetComments("Workorder # 000123 CALL TWICE", 7);
  EXPECT_EQ(Last(), "comments: \"Workorder # 000123 CALL TWICE\"");
}

TEST_F(TrailDeedsTest, TextsOfSeveralLinesAreOne) {
  db.AddLabor(7, 1, "\tFRONT BRAKES\tROAD TEST\t\t\t\t\t", 150, 8000, 12000, 3);
  EXPECT_EQ(Last(), "labor 1 added: FRONT BRAKES 1.50 h");
  db.SetComments("KEYS\r\nIN THE BOX", 7);
  EXPECT_EQ(Last(), "comments: \"KEYS  IN THE BOX\"");
}

TEST_F(TrailDeedsTest, APartThatIsStoredAnewWasChanged) {
  de::Part part{"A-1", "FILTER", 1, 500, 500, 300, 600};
  db.AddPartRow(7, part);
  db.DeletePart(7, "A-1");
  part.Quantity = 3;
  db.AddPartRow(7, part);
  EXPECT_EQ(Last(), "part A-1 changed: quantity from 1 to 3");
  AnHourLater();
  db.DeletePart(7, "A-1");
  part.PartNumber = "B-2";
  db.AddPartRow(7, part);
  EXPECT_EQ(Last(), "part A-1 changed to B-2 FILTER");
}

TEST_F(TrailDeedsTest, WhatBelongsTogetherIsOneAmidTheChangesOfOthers) {
  db.SetStatus(kRescheduled, 7);
  db.KeepTrail(clock, {"BACKOFFICE", "al"});
  db.AddEstimateRow(9, kDay, kScheduled);
  db.KeepTrail(clock, {"FRONTDESK", "beth"});
  db.SetComments("Rescheduled for 10/02/2003. CALL FIRST", 7);
  const std::vector<TrailDeed> deeds = DeedsOf(TrailOfDay(db, kDay));
  ASSERT_EQ(deeds.size(), 2u);
  EXPECT_EQ(deeds[0].words, "booked for 09/30");
  EXPECT_EQ(deeds[1].words, "moved from 09/30 to 10/02");
}

TEST_F(TrailDeedsTest, TheSurchargesOwnLineThatMakesRoomIsNoChangeOfTheOneThatTakesItsNumber) {
  db.AddWasteSurcharge(7, {250, "SHOP SUPPLIES", "No"});
  db.DeleteWaste(7, 1);
  db.AddWaste(7, 1, {"Ace Towing", "INV-77", 4500, 6000, "Towed in", "", "", "", "Yes"});
  EXPECT_EQ(Last(), "waste charge 1 added: Ace Towing 60.00");
}

}  // namespace lantos::test
