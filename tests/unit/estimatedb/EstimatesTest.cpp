#include "EitherDatabase.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;

constexpr DaySerial kToday = 37894;  // 30 September 2003

class Estimates : public EitherDatabase {
 protected:
  Estimates() { Put("TQSYSTEM.DAT", Image(1038).Long(4, 1200)); }
  std::int32_t NextNumber() const { return LongAt(BytesOf("TQSYSTEM.DAT"), 4); }

  modEstimates& estimates = database.estimates;
};

ON_EITHER_DATABASE(Estimates);

// What only a file can hold.
class EstimatesOfFiles : public DatabaseTest {
 protected:
  modEstimates& estimates = database.estimates;
};

TEST_P(Estimates, LoadEstimateFillsEveryColumnField) {
  Plain(
      "insert into Estimates values (7, 77, 397, '2003-10-01', '2003-10-02', '2003-10-03', 4, 3, 12.5, 'Call first ',"
      "'2003-09-29', ' 1999', 'Ford ', 'F150', 'VIN1', 'ABC', '09/29/2003', '84512', '5.3L', 'Auto')");
  estimates.LoadEstimate(7);
  const Estimate& estimate = estimates.CurrentEstimate;
  EXPECT_EQ(estimate.EstimateNumber, 7);
  EXPECT_EQ(estimate.CustomerNumber, 77);
  EXPECT_EQ(estimate.VehicleLink, 397);
  EXPECT_EQ(estimate.SchedDate, kToday + 1);
  EXPECT_EQ(estimate.StartDate, kToday + 2);
  EXPECT_EQ(estimate.StopDate, kToday + 3);
  EXPECT_EQ(estimate.Status, kDeparted);
  EXPECT_EQ(estimate.Mechanic, 3);
  EXPECT_EQ(estimate.TotalPrice, 12.5);
  EXPECT_EQ(estimate.Comments, "Call first ");
  EXPECT_EQ(estimate.CreateDate, kToday - 1);
  EXPECT_THAT((std::vector{estimate.VehYear, estimate.VehMake, estimate.VehModel, estimate.VehVIN, estimate.VehLic,
                           estimate.VehDate, estimate.VehMileage, estimate.VehEng, estimate.VehTrans}),
              ElementsAre("1999", "Ford", "F150", "VIN1", "ABC", "09/29/2003", "84512", "5.3L", "Auto"));
  EXPECT_FALSE(db.Rs("EstimateByNumber").IsOpen());
}

TEST_P(Estimates, NullsReadAsNoneAndEmpty) {
  Plain("insert into Estimates (EstimateNumber, SchedDate) values (7, '2003-10-01')");
  estimates.CurrentEstimate.Comments = "old";
  estimates.LoadEstimate(7);
  EXPECT_EQ(estimates.CurrentEstimate.StartDate, -1);
  EXPECT_EQ(estimates.CurrentEstimate.StopDate, -1);
  EXPECT_EQ(estimates.CurrentEstimate.Comments, "");
  EXPECT_EQ(estimates.CurrentEstimate.VehEng, "");
}

TEST_P(Estimates, LoadingANumberThatIsGoneKeepsTheEarlierRecord) {
  db.NewEstimate(7, kToday);
  estimates.LoadEstimate(7);
  estimates.CurrentEstimate.Comments = "kept";
  Plain("delete from Estimates");
  estimates.LoadEstimate(7);
  EXPECT_EQ(estimates.CurrentEstimate.EstimateNumber, 7);
  EXPECT_EQ(estimates.CurrentEstimate.Comments, "kept");
}

TEST_P(Estimates, LoadingLeavesTheTotalsAsTheyWere) {
  db.NewEstimate(7, kToday);
  db.AddLabor(7, 1, "x", 150, 1, 2, 3);
  estimates.CurrentEstimate.TotalHours = 999;
  estimates.CurrentEstimate.TotalLabor = 888;
  estimates.LoadEstimate(7);
  EXPECT_EQ(estimates.CurrentEstimate.TotalHours, 999);
  EXPECT_EQ(estimates.CurrentEstimate.TotalLabor, 888);
}

TEST_F(EstimatesOfFiles, ADateThatIsNoneReadsAsNullAndNeverCrashes) {
  Plain(
      "insert into Estimates (EstimateNumber, SchedDate, StartDate, StopDate, CreateDate) values "
      "(7, '2003-10-01 00:00:00', 'soon', '2003-13-45', 20031001)");
  estimates.LoadEstimate(7);
  EXPECT_EQ(estimates.CurrentEstimate.SchedDate, kToday + 1);
  EXPECT_EQ(estimates.CurrentEstimate.StartDate, -1);
  EXPECT_EQ(estimates.CurrentEstimate.StopDate, -1);
}

TEST_F(EstimatesOfFiles, AStatusBeyondSixteenBitsStaysUnknown) {
  Plain("insert into Estimates (EstimateNumber, SchedDate, Status) values (7, '2003-10-01', 65536)");
  estimates.LoadEstimate(7);
  std::int16_t status = estimates.CurrentEstimate.Status;
  EXPECT_EQ(estimates.StatusText(status, kToday), "Unknown");
}

TEST_P(Estimates, CreateEstimateTakesTheNumberFoundAndAddsTheRow) {
  EXPECT_EQ(estimates.CreateEstimate(kToday + 7, kEstimateOnly), 1200);
  EXPECT_EQ(NextNumber(), 1201);
  EXPECT_EQ(PlainValue("select * from Estimates"),
            "1200|0|0|2003-10-07|null|null|9|0|0.0|null|2003-09-30|null|null|null|null|null|null|null|null|null");
  EXPECT_FALSE(db.Rs("EstimatesTable").IsOpen());
}

TEST_P(Estimates, ANumberIsSpentEvenWhenTheRowFails) {
  Refuse("insert", "Estimates");
  EXPECT_THROW(estimates.CreateEstimate(kToday, kScheduled), DatabaseError);
  EXPECT_EQ(NextNumber(), 1201);
  AllowAgain("Estimates");
  EXPECT_EQ(estimates.CreateEstimate(kToday, kScheduled), 1201);
}

TEST_P(Estimates, ANumberThatAnEstimateHasIsNotGivenAgain) {
  for (const char* number : {"1200", "1201", "1205", "2000000000"}) {
    Plain(std::string("insert into Estimates (EstimateNumber, Comments) values (") + number + ", 'old')");
  }
  desktop.WillAnswer({ui::Answer::Cancel, ui::Answer::Ok});
  EXPECT_THROW(estimates.CreateEstimate(kToday, kScheduled), std::runtime_error);
  EXPECT_EQ(PlainValue("select count(*) from Estimates"), "4");
  EXPECT_EQ(desktop.boxes.at(0).title, "Next Number");
  EXPECT_EQ(desktop.boxes.at(0).text,
            "001200, the running number of the estimates in TQSYSTEM.DAT, is in use already.\r"
            "The file was emptied, or is older than the others.\r\r"
            "The next free number is 001206.\rClick OK to go on from there, or CANCEL to stop.");
  EXPECT_EQ(estimates.CreateEstimate(kToday, kScheduled), 1206);
  EXPECT_EQ(NextNumber(), 1207);
  EXPECT_EQ(PlainValue("select count(*) from Estimates where Comments = 'old'"), "4");
}

class ClonedEstimates : public Estimates {
 protected:
  ClonedEstimates() {
    db.AddEstimateRow(1, kToday, kArrived);
    db.AddEstimateRow(2, kToday + 7, kScheduled);
    db.SetVehicleNew(397, {"1999", "Ford", "F150", "VIN1", "ABC", "09/29/2003", "84512", "5.3L", "Auto"}, 1);
    db.AddLabor(1, 3, "Brakes", 150, 6500, 9750, 4);
    Plain(
        "insert into Parts values (1, '0012', 'Filter', 2, 599, 1198, 300, 799);"
        "insert into Checklist (EstimateNumber, ChecklistData) values (1, 'wipers')");
    db.AddNote(1, 4, {"a", "b", "c", "d", "e", "f", "g", "h"});
    db.AddSublet(1, 1, {"SURCHARGE", "", 0, 1500, "1", "2", "3", "4", "No"});
    db.AddWaste(1, 2, {"Ace", "I", 10, 20, "1", "2", "3", "4", "Yes"});
    estimates.CloneEstimateContents(1, 2);
  }
};

ON_EITHER_DATABASE(ClonedEstimates);

TEST_P(ClonedEstimates, LinesKeepTheirNumbers) {
  EXPECT_EQ(PlainValue("select * from Labors where EstimateNumber = 2"), "2|3|Brakes|150|6500|9750|4");
  EXPECT_EQ(PlainValue("select * from Notes where EstimateNumber = 2"), "2|4|a|b|c|d|e|f|g|h");
  EXPECT_EQ(PlainValue("select * from Sublets where EstimateNumber = 2"), "2|1|SURCHARGE||0|1500|1|2|3|4|No");
  EXPECT_EQ(PlainValue("select * from Waste where EstimateNumber = 2"), "2|2|Ace|I|10|20|1|2|3|4|Yes");
}

TEST_P(ClonedEstimates, PartsHaveNoCostAndNoListPrice) {
  EXPECT_EQ(PlainValue("select * from Parts where EstimateNumber = 2"), "2|0012|Filter|2|599|1198|null|null");
}

TEST_P(ClonedEstimates, TheChecklistStartsEmpty) { EXPECT_TRUE(db.ChecklistForEstimate(2).Eof()); }

TEST_P(ClonedEstimates, TheCopysEngineReadsEmpty) {
  estimates.LoadEstimate(2);
  EXPECT_EQ(estimates.CurrentEstimate.VehMake, "Ford");
  EXPECT_EQ(estimates.CurrentEstimate.VehEng, "");
  EXPECT_EQ(PlainValue("select VehEng, VehTrans from Estimates where EstimateNumber = 2"), "null|null");
}

TEST_P(ClonedEstimates, StatusAndDatesStayTheNewRows) {
  EXPECT_EQ(PlainValue("select Status, SchedDate, CreateDate from Estimates where EstimateNumber = 2"),
            "0|2003-10-07|2003-09-30");
}

TEST_P(ClonedEstimates, DeletingTheCopysLinesDoesNotTouchTheOriginals) {
  db.DeleteLabor(2, 3);
  db.DeletePart(2, "0012");
  db.DeleteNote(2, 4);
  db.DeleteSublet(2, 1);
  db.DeleteWaste(2, 2);
  for (const char* table : {"Labors", "Parts", "Notes", "Sublets", "Waste"}) {
    EXPECT_EQ(PlainValue(std::string("select EstimateNumber from ") + table), "1") << table;
  }
}

TEST_P(Estimates, SaveStatusWritesTheStatusAlone) {
  db.NewEstimate(7, kToday);
  estimates.LoadEstimate(7);
  db.SetComments("by another", 7);
  estimates.CurrentEstimate.Status = kCompleted;
  estimates.SaveStatus();
  EXPECT_EQ(PlainValue("select Status, Comments from Estimates"), "3|by another");
}

TEST_P(Estimates, EveryStatusHasItsWord) {
  constexpr const char* kWords[] = {"Scheduled", "Arrived",   "In Progress", "Completed", "Departed",
                                    "Continued", "Cancelled", "Rescheduled", "No-show",   "Estimate Only"};
  for (std::int16_t code = 0; code < 10; ++code) {
    std::int16_t status = code;
    EXPECT_EQ(estimates.StatusText(status, kToday), kWords[code]);
    EXPECT_EQ(status, code);
  }
  for (std::int16_t code : {std::int16_t{-1}, std::int16_t{10}, std::int16_t{32767}}) {
    EXPECT_EQ(estimates.StatusText(code, kToday), "Unknown");
  }
}

TEST_P(Estimates, AScheduledOneOfYesterdayIsANoShowInTheCallersVariableOnly) {
  db.NewEstimate(7, kToday - 1);
  estimates.LoadEstimate(7);
  EXPECT_EQ(estimates.StatusText(estimates.CurrentEstimate.Status, estimates.CurrentEstimate.SchedDate), "No-show");
  EXPECT_EQ(estimates.CurrentEstimate.Status, kNoShow);
  EXPECT_EQ(PlainValue("select Status from Estimates"), "0");
}

TEST_P(Estimates, AScheduledOneOfTodayStaysScheduled) {
  std::int16_t status = kScheduled;
  EXPECT_EQ(estimates.StatusText(status, kToday), "Scheduled");
  EXPECT_EQ(status, kScheduled);
}

TEST_P(Estimates, OtherStatusesOfThePastStayWhatTheyAre) {
  std::int16_t status = kArrived;
  EXPECT_EQ(estimates.StatusText(status, kToday - 9), "Arrived");
  EXPECT_EQ(status, kArrived);
}

TEST_P(Estimates, CancelledRescheduledAndEstimateOnlyDoNotCountTowardTheDay) {
  std::string counts;
  for (std::int16_t status = -1; status <= 10; ++status) counts += modEstimates::CountsTowardDay(status) ? 'y' : 'n';
  EXPECT_EQ(counts, "nyyyyyynnynn");
}

}  // namespace
}  // namespace lantos::test
