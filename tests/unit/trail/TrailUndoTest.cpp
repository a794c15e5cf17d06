#include "trail/TrailUndo.h"

#include "estimatedb/DatabaseFixture.h"

namespace lantos::test {

namespace {

class TrailUndoTest : public DatabaseTest {
 protected:
  TrailUndoTest() {
    db.NewEstimate(7, kDay);
    db.KeepTrail(clock, kBeth);
  }

  void AnHourLater() { clock.MoveOn(3'600'000); }
  // What there is to undo for the person; fails when there is nothing.
  TrailDeed Last() {
    const std::optional<TrailDeed> deed = LastToUndo(DeedsOf(TrailOfEstimate(db, 7)), db.KeptTrail()->Author());
    EXPECT_TRUE(deed.has_value());
    return deed.value_or(TrailDeed{});
  }
  bool HasNone() { return !LastToUndo(DeedsOf(TrailOfEstimate(db, 7)), db.KeptTrail()->Author()); }
  std::string UndoLast() { return Undo(db, Last(), kDay); }
  std::string Value(const std::string& query) const { return PlainValue(query); }

  // As the screen of that makes it.
  void MoveTo(DaySerial day) {
    db.AddEstimateRow(8, day, kScheduled);
    db.CloneEstimate(7, 8);
    db.CloneLabors(8, 7);
    db.SetStatus(kRescheduled, 7);
    db.SetComments("Rescheduled for " + FormatDate(day) + ". CALL", 7);
  }

  const DaySerial kDay = Day(2003, 9, 30);
  const TrailAuthor kBeth{"FRONTDESK", "beth"};
  const TrailAuthor kAl{"BACKOFFICE", "al"};
};

}  // namespace

TEST_F(TrailUndoTest, AStatusGoesBack) {
  db.SetStatus(kArrived, 7);
  AnHourLater();
  EXPECT_EQ(UndoLast(), "");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 7"), "0");
  EXPECT_TRUE(HasNone());
  EXPECT_EQ(DeedsOf(TrailOfEstimate(db, 7)).at(0).words, "status back from Arrived to Scheduled");
}

TEST_F(TrailUndoTest, ARemovedLineComesBackAsItWas) {
  db.AddLabor(7, 2, "BRAKES", 150, 8000, 12000, 3);
  const std::string before = Value("select * from Labors");
  AnHourLater();
  db.DeleteLabor(7, 2);
  EXPECT_EQ(UndoLast(), "");
  EXPECT_EQ(Value("select * from Labors"), before);

  const de::Extra towing{"Ace Towing", "INV-77", 4500, 6000, "Towed in", "2", "3", "4", "Yes"};
  db.AddSublet(7, 1, towing);
  db.AddWaste(7, 3, towing);
  db.AddNote(7, 1, {"NOISE", "2", "3", "4", "5", "6", "7", "8"});
  db.AddPartRow(7, {"A-1", "FILTER", 1, 500, 500, 300, 600});
  for (const char* table : {"Sublets", "Waste", "Notes", "Parts"}) {
    const std::string all = std::string("select * from ") + table;
    const std::string row = Value(all);
    AnHourLater();
    if (*table == 'S') db.DeleteSublet(7, 1);
    if (*table == 'W') db.DeleteWaste(7, 3);
    if (*table == 'N') db.DeleteNote(7, 1);
    if (*table == 'P') db.DeletePart(7, "A-1");
    ASSERT_EQ(Value(all), "0 rows");
    EXPECT_EQ(UndoLast(), "");
    EXPECT_EQ(Value(all), row);
  }
}

TEST_F(TrailUndoTest, AMoveGoesBackAndItsCopyIsCancelled) {
  db.SetComments("CALL", 7);
  AnHourLater();
  MoveTo(kDay + 2);
  AnHourLater();
  EXPECT_EQ(UndoLast(), "");
  EXPECT_EQ(Value("select Status, Comments from Estimates where EstimateNumber = 7"), "0|CALL");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 8"), "6");
}

TEST_F(TrailUndoTest, AMoveWhoseCopyWasWorkedOnStays) {
  MoveTo(kDay + 2);
  AnHourLater();
  db.KeepTrail(clock, kAl);
  db.AddLabor(8, 1, "OIL", 50, 8000, 4000, 3);
  db.KeepTrail(clock, kBeth);
  EXPECT_EQ(UndoLast(), "Tue 09:15 BACKOFFICE (al) labor 1 added: OIL 0.50 h");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 7"), "7");
}

TEST_F(TrailUndoTest, WhatAnotherHasChangedSinceStays) {
  db.SetStatus(kArrived, 7);
  const TrailDeed mine = Last();
  AnHourLater();
  db.KeepTrail(clock, kAl);
  db.SetComments("KEYS IN THE BOX", 7);
  db.SetStatus(kCompleted, 7);
  EXPECT_EQ(Undo(db, mine, kDay), "Tue 09:15 BACKOFFICE (al) status from Arrived to Completed");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 7"), "3");
}

TEST_F(TrailUndoTest, ALineWhoseNumberIsAnothersByThenStaysAway) {
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  AnHourLater();
  db.DeleteLabor(7, 1);
  AnHourLater();
  db.AddLabor(7, 1, "TIRES", 50, 8000, 4000, 3);
  EXPECT_EQ(UndoLast(), "Tue 10:15 FRONTDESK (beth) labor 1 added: TIRES 0.50 h");
  EXPECT_EQ(Value("select Description from Labors"), "TIRES");
}

TEST_F(TrailUndoTest, AProgramWithoutATrailIsSeenByWhatItLeft) {
  db.SetStatus(kArrived, 7);
  Plain("update Estimates set Status = 4 where EstimateNumber = 7");
  EXPECT_EQ(UndoLast(), "A program that keeps no trail has changed it since.");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 7"), "4");
}

TEST_F(TrailUndoTest, OnlyOnesOwnAndOnlyWhatCanBeTakenBack) {
  EXPECT_TRUE(HasNone());
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  db.SetComments("KEYS IN THE BOX", 7);
  EXPECT_TRUE(HasNone());
  db.DeleteLabor(7, 1);
  db.AddLabor(7, 1, "OIL", 70, 8000, 5600, 3);  // a change of it
  EXPECT_TRUE(HasNone());
  db.KeepTrail(clock, kAl);
  db.SetStatus(kArrived, 7);
  db.KeepTrail(clock, kBeth);
  EXPECT_TRUE(HasNone());
}

TEST_F(TrailUndoTest, AnUndoThatFailsChangesNothing) {
  MoveTo(kDay + 2);
  Plain(
      "create trigger Closed before update on Estimates when new.EstimateNumber = 8 begin select "
      "raise(abort, 'closed'); end");
  const TrailDeed move = Last();
  EXPECT_NE(ErrorOf([&] { Undo(db, move, kDay); }), "");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 7"), "7");
}

TEST_F(TrailUndoTest, OneAfterTheOtherGoesBack) {
  db.SetStatus(kArrived, 7);
  AnHourLater();
  db.SetStatus(kInProgress, 7);
  AnHourLater();
  EXPECT_EQ(UndoLast(), "");
  EXPECT_EQ(UndoLast(), "");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 7"), "0");
  EXPECT_TRUE(HasNone());
}

TEST_F(TrailUndoTest, WhatTookADeedBackSaysSo) {
  MoveTo(kDay + 2);
  AnHourLater();
  EXPECT_EQ(UndoLast(), "");
  const std::vector<TrailDeed> deeds = DeedsOf(TrailOfEstimate(db, 7));
  ASSERT_EQ(deeds.size(), 2u);
  EXPECT_EQ(deeds[0].words, "move to 10/02 taken back");
  EXPECT_EQ(deeds[0].kind, TrailDeed::Kind::TakingBack);
  EXPECT_EQ(DeedsOf(TrailOfEstimate(db, 8)).at(0).words, "status back from Scheduled to Cancelled");
  AnHourLater();
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  AnHourLater();
  db.DeleteLabor(7, 1);
  EXPECT_EQ(UndoLast(), "");
  EXPECT_EQ(DeedsOf(TrailOfEstimate(db, 7)).at(0).words, "labor 1 put back: OIL 0.50 h");
}

TEST_F(TrailUndoTest, AContinuationGoesBackWithItsCopyAndTheHoursTakenOffIt) {
  db.SetStatus(kInProgress, 7);
  AnHourLater();
  db.AddEstimateRow(8, kDay + 1, kInProgress);
  db.CloneEstimate(7, 8);
  db.AddLabor(8, 1, "HOURS APPLIED ON 09/30/2003", -100, 8000, -8000, 3);
  db.SetStatus(kContinued, 7);
  EXPECT_EQ(CopyMadeBy(db, Last()), 8);
  AnHourLater();
  EXPECT_EQ(UndoLast(), "");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 7"), "2");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 8"), "6");
}

TEST_F(TrailUndoTest, AnEstimateAloneLosesTheDayThatItGot) {
  db.SetStatus(kEstimateOnly, 7);
  db.AddEstimateRow(8, kDay + 2, kScheduled);
  db.CloneEstimate(7, 8);
  db.SetComments("Scheduled for 10/02/2003.", 7);
  EXPECT_EQ(UndoLast(), "");
  EXPECT_EQ(Value("select Status, Comments from Estimates where EstimateNumber = 7"), "9|");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 8"), "6");
}

TEST_F(TrailUndoTest, WhatAConversionHasSetStays) {
  db.SetComments("Workorder # 000123 ", 7);
  db.SetStatus(kCompleted, 7);
  EXPECT_EQ(UndoLast(), "The estimate is Workorder # 000123.");
  EXPECT_EQ(Value("select Status from Estimates where EstimateNumber = 7"), "3");
}

TEST_F(TrailUndoTest, WhatWasConvertedSinceStays) {
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  db.DeleteLabor(7, 1);
  AnHourLater();
  db.KeepTrail(clock, kAl);
  db.SetComments("Workorder # 000123 ", 7);
  db.KeepTrail(clock, kBeth);
  EXPECT_EQ(UndoLast(), "Tue 09:15 BACKOFFICE (al) converted to work order # 000123");
  EXPECT_EQ(Value("select * from Labors"), "0 rows");
}

TEST_F(TrailUndoTest, ALineThatAProgramWithoutATrailHasPutThereStays) {
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  db.DeleteLabor(7, 1);
  Plain("insert into Labors (EstimateNumber, LaborNumber, Description) values (7, 1, 'TIRES')");
  EXPECT_EQ(UndoLast(), "A program that keeps no trail has changed it since.");
  EXPECT_EQ(Value("select Description from Labors"), "TIRES");
}

TEST_F(TrailUndoTest, ASurchargeThatTookTheNumberIsNamed) {
  db.AddSublet(7, 1, {"Ace Towing", "INV-77", 4500, 6000, "Towed in", "", "", "", "Yes"});
  db.DeleteSublet(7, 1);
  AnHourLater();
  db.AddSubletSurcharge(7, {250, "SHOP SUPPLIES", "No"});
  EXPECT_EQ(UndoLast(), "Tue 09:15 FRONTDESK (beth) surcharge of 2.50");
}

TEST_F(TrailUndoTest, TheSurchargesOwnLineIsNobodysRemoval) {
  db.AddWasteSurcharge(7, {250, "SHOP SUPPLIES", "No"});
  db.DeleteWaste(7, 1);
  EXPECT_TRUE(HasNone());
}

TEST_F(TrailUndoTest, CommentsThatAProgramWithoutATrailHasWrittenStay) {
  MoveTo(kDay + 2);
  Plain("update Estimates set Comments = 'KEYS IN THE BOX' where EstimateNumber = 7");
  EXPECT_EQ(UndoLast(), "A program that keeps no trail has changed it since.");
  EXPECT_EQ(Value("select Status, Comments from Estimates where EstimateNumber = 7"), "7|KEYS IN THE BOX");
}

}  // namespace lantos::test
