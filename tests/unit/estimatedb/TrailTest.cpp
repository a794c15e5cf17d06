#include "estimatedb/Trail.h"

#include "estimatedb/EitherDatabase.h"
#include "estimatedb/TrailRules.h"
#include "estimatedb/TrailText.h"

namespace lantos::test {

namespace {

// A shop with estimate 7 on September 30, 2003, whose changes are followed from then on.
class TrailTest : public EitherDatabase {
 protected:
  TrailTest() {
    db.NewEstimate(7, kDay);
    db.KeepTrail(clock, {"FRONTDESK", "beth"});
    db.KeptTrail()->Begin();
  }

  std::vector<std::string> Rows() const {
    return PlainRows(
        "select Workstation, UserName, Command, EstimateNumber, RowsBefore, RowsAfter from Trail order by "
        "TrailNumber");
  }
  std::string LastRow() const { return Rows().empty() ? "" : Rows().back(); }
  bool HasTrail() const {
    return PlainValue(Either("select count(*) from sqlite_master where name = 'Trail'",
                             "select count(*) from pg_catalog.pg_tables where tablename = 'trail' and schemaname = '" +
                                 Schema() + "'")) == "1";
  }

  const DaySerial kDay = Day(2003, 9, 30);
};

// Where the file itself is what stands against it.
class TrailInAFile : public TrailTest {};

INSTANTIATE_TEST_SUITE_P(Kept, TrailTest, testing::Values(Kept::InAFile, Kept::OnAServer), NameOfKept);
INSTANTIATE_TEST_SUITE_P(Kept, TrailInAFile, testing::Values(Kept::InAFile), NameOfKept);

}  // namespace

TEST_P(TrailTest, TheTableIsMadeAheadOfTheFirstChange) {
  EXPECT_EQ(HasTrail(), IsOnAServer()) << "a far one is asked at the start";
  db.GetEstimatesByDate(kDay);
  EXPECT_EQ(HasTrail(), IsOnAServer());
  db.SetStatus(1, 7);
  EXPECT_TRUE(HasTrail());
}

TEST_P(TrailTest, AChangeSaysWhoAndWhatWasBeforeAndAfter) {
  db.SetStatus(1, 7);
  db.SetStatus(3, 7);
  EXPECT_EQ(LastRow(), R"(FRONTDESK|beth|SetStatus|7|[{"SchedDate":"2003-09-30","Status":1}]|)"
                       R"([{"SchedDate":"2003-09-30","Status":3}])");
  const std::vector<TrailEntry> entries = TrailOfEstimate(db, 7);
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].number, 2);
  EXPECT_EQ(entries[0].at.day, clock.Now().day);
  EXPECT_EQ(entries[0].at.millisecondOfDay, clock.Now().millisecondOfDay / 1000 * 1000);
  EXPECT_EQ(entries[0].author, (TrailAuthor{"FRONTDESK", "beth"}));
  EXPECT_EQ(entries[0].command, "SetStatus");
  EXPECT_EQ(entries[0].before.at(0).Long("Status"), 1);
  EXPECT_EQ(entries[0].after.at(0).Long("status"), 3);
}

TEST_P(TrailTest, WhatChangesNothingLeavesNoRow) {
  db.SetStatus(1, 7);
  db.SetStatus(1, 7);
  db.SetStatus(1, 8);  // no such estimate
  db.DeleteLabor(7, 1);
  EXPECT_EQ(Rows().size(), 1u);
}

TEST_P(TrailTest, ALineIsKeptWholeWhenItComesAndWhenItGoes) {
  db.AddLabor(7, 2, "BRAKES", 150, 8000, 12000, 3);
  const std::string line =
      R"([{"LaborNumber":2,"Description":"BRAKES","LaborHours":150,"LaborRate":8000,"LaborTotal":12000,"Mechanic":3}])";
  EXPECT_EQ(LastRow(), "FRONTDESK|beth|AddLabor|7||" + line);
  db.DeleteLabor(7, 2);
  EXPECT_EQ(LastRow(), "FRONTDESK|beth|DeleteLabor|7|" + line + "|");
}

TEST_P(TrailTest, AChangedLineIsNamedAndHasOnlyWhatChanged) {
  de::Part part{"A-1", "FILTER", 1, 500, 500, 300, 600};
  db.AddPartRow(7, part);
  part.PartPrice = part.PartTotal = 550;
  db.UpdatePartRow(7, "A-1", part);
  EXPECT_EQ(LastRow(), R"(FRONTDESK|beth|UpdatePartRow|7|[{"PartNumber":"A-1","PartPrice":500,"PartTotal":500}]|)"
                       R"([{"PartNumber":"A-1","PartPrice":550,"PartTotal":550}])");
}

TEST_P(TrailTest, EachItemOfAChecklistIsARow) {
  db.AddChecklistRow(7, "TIRES;X");
  db.AddChecklistRow(7, "OIL;");
  EXPECT_EQ(LastRow(), R"(FRONTDESK|beth|AddChecklistRow|7||[{"ChecklistData":"OIL;"}])");
  db.DeleteChecklist(7);
  EXPECT_EQ(TrailOfEstimate(db, 7).at(0).before.size(), 2u);
}

TEST_P(TrailTest, TheShopsOwnDaysBelongToNoEstimate) {
  db.SaveSpecialDay(kDay, 8, "SHORT DAY");
  db.SaveSpecialDay(kDay, 4, "SHORT DAY");
  EXPECT_EQ(LastRow(), R"(FRONTDESK|beth|SaveSpecialDay|0|[{"SpecialDate":"2003-09-30","SpecialHours":8}]|)"
                       R"([{"SpecialDate":"2003-09-30","SpecialHours":4}])");
  db.UpdateStdHours({1, 2, 3, 4, 5, 6, 7}, 10);
  EXPECT_EQ(TrailOfEstimate(db, 0).at(0).after.at(0).Long("SatHours"), 7);
}

TEST_P(TrailTest, AChangeThatFailsLeavesNoRow) {
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  EXPECT_NE(ErrorOf([&] { db.AddLabor(7, 1, "OIL AGAIN", 50, 8000, 4000, 3); }), "");
  EXPECT_EQ(Rows().size(), 1u);
}

TEST_P(TrailTest, AChangeWhoseRowCantBeWrittenIsNotMade) {
  db.SetStatus(1, 7);
  Refuse("insert", "Trail");
  EXPECT_NE(ErrorOf([&] { db.SetStatus(3, 7); }), "");
  EXPECT_EQ(PlainValue("select Status from Estimates where EstimateNumber = 7"), "1");
}

TEST_P(TrailTest, AChangeGoesBackWithItsRowWhereTheTransactionGoesOnWithout) {
  db.SetStatus(1, 7);
  Refuse("insert", "Trail");
  const std::string outcome = ErrorOf([&] {
    db.Connection().Together([&] {
      const std::string refused = ErrorOf([&] { db.SetStatus(3, 7); });
      EXPECT_EQ(refused.empty(), IsOnAServer());
    });
  });
  EXPECT_EQ(outcome.empty(), !IsOnAServer()) << "what was only posted takes all of the transaction back";
  EXPECT_EQ(PlainValue("select Status from Estimates where EstimateNumber = 7"), "1");
}

TEST_P(TrailTest, SeveralChangesTogetherStandOrFallWithTheirRows) {
  EXPECT_NE(ErrorOf([&] {
              db.Connection().Together([&] {
                db.SetStatus(1, 7);
                db.SetComments("KEYS IN THE BOX", 7);
                throw DatabaseError("given up");
              });
            }),
            "");
  EXPECT_TRUE(TrailOfEstimate(db, 7).empty());
  db.SetStatus(1, 7);
  EXPECT_EQ(Rows().size(), 1u);
}

TEST_P(TrailTest, ATableThatSomebodyTookAwayIsMadeAnew) {
  db.SetStatus(1, 7);
  Plain("drop table Trail");
  EXPECT_TRUE(TrailOfEstimate(db, 7).empty());
  db.SetStatus(3, 7);
  EXPECT_EQ(Rows().size(), 1u);
}

TEST_P(TrailTest, ARecordsetThatIsBeingReadStaysWhereItIs) {
  db.AddLabor(7, 1, "OIL", 50, 8000, 4000, 3);
  db.AddLabor(7, 2, "BRAKES", 150, 8000, 12000, 3);
  Recordset& lines = db.LaborForEstimate(7);
  lines.MoveNext();
  db.DeleteLabor(7, 1);
  EXPECT_EQ(lines.Text("Description"), "BRAKES");
}

TEST_P(TrailTest, TextsOfThePageComeBackAsTheyWere) {
  const std::string comment = "\"Br\xFCssel\" \x80 50 'x'; \t\n \x81 {} \\";
  db.SetComments(comment, 7);
  EXPECT_EQ(TrailOfEstimate(db, 7).at(0).after.at(0).Text("Comments"), comment);
}

TEST_P(TrailTest, ADayHasItsOwn) {
  db.SetStatus(1, 7);
  clock.MoveTo({clock.Now().day + 1, 0});
  db.SetStatus(3, 7);
  db.SaveSpecialDay(kDay, 8, "SHORT DAY");
  ASSERT_EQ(TrailOfDay(db, clock.Today()).size(), 2u);
  EXPECT_EQ(TrailOfDay(db, clock.Today()).at(0).command, "SaveSpecialDay");
  EXPECT_EQ(TrailOfDay(db, clock.Today() - 1).size(), 1u);
}

TEST_P(TrailTest, PruningTakesWhatIsOlderThanADay) {
  EXPECT_EQ(PruneTrail(db, clock.Today()), 0);  // no table yet
  db.SetStatus(1, 7);
  clock.MoveTo({clock.Now().day + 1, 0});
  db.SetStatus(3, 7);
  EXPECT_EQ(PruneTrail(db, clock.Today() - 1), 0);
  EXPECT_EQ(PruneTrail(db, clock.Today()), 1);
  ASSERT_EQ(TrailOfEstimate(db, 7).size(), 1u);
  EXPECT_EQ(TrailOfEstimate(db, 7).at(0).after.at(0).Long("Status"), 3);
}

TEST_P(TrailTest, ACopyTellsWhatItIsOneOf) {
  db.AddEstimateRow(8, kDay + 2, 0);
  db.CloneEstimate(7, 8);
  EXPECT_EQ(LastRow(), R"(FRONTDESK|beth|CloneEstimate|8||[{"CopiedFrom":7}])");
}

TEST_P(TrailTest, WhatTakesAChangeBackNamesIt) {
  db.SetStatus(1, 7);
  db.KeptTrail()->TakeBack(1, [&] { db.SetStatus(0, 7); });
  db.SetStatus(3, 7);
  EXPECT_EQ(PlainRows("select Undoes from Trail order by TrailNumber"), (std::vector<std::string>{"0", "1", "0"}));
  EXPECT_EQ(TrailOfEstimate(db, 7).at(1).undoes, 1);
}

TEST_P(TrailInAFile, ADatabaseThatCantHaveTheTableIsChangedWithoutATrailAndOneLineSaysSo) {
  std::vector<std::string> notes;
  db.KeepTrail(clock, {"FRONTDESK", "beth"}, [&](const std::string& note) { notes.push_back(note); });
  Plain("create view Trail as select 1 as Something");
  db.SetStatus(1, 7);
  db.SetStatus(3, 7);
  EXPECT_EQ(PlainValue("select Status from Estimates where EstimateNumber = 7"), "3");
  ASSERT_EQ(notes.size(), 1u);
  EXPECT_TRUE(notes[0].starts_with("No trail is kept of the changes of this run: "));
}

TEST_P(TrailInAFile, AReadOnlyDatabaseRefusesTheChangeInItsOwnWordsAndCanBeRead) {
  db.GetEstimatesByDate(kDay);
  db.Connection().Run("pragma query_only = on", {});
  EXPECT_NE(ErrorOf([&] { db.SetStatus(1, 7); }), "");
  EXPECT_FALSE(HasTrail());
  EXPECT_EQ(db.EstimateByNumber(7).Long("Status"), 0);
}

TEST_P(TrailInAFile, ALockIsWaitedForOnceAndChangesNothing) {
  database.busyTimeout = std::chrono::milliseconds(1);
  Connect(database, environment);
  db.KeepTrail(clock, {"FRONTDESK", "beth"});
  {
    SQLite::Database other(Path().string(), SQLite::OPEN_READWRITE);
    other.exec("begin immediate");
    EXPECT_NE(ErrorOf([&] { db.SetStatus(1, 7); }), "");
  }
  db.SetStatus(1, 7);
  EXPECT_EQ(Rows().size(), 1u);
}

TEST_P(TrailTest, TextThatIsNoTrailHasNoRows) {
  for (const char* text : {"", "[", "7", "{}", "[1,null,\"x\"]", "[[]]", "\xFF\xFE"}) {
    EXPECT_TRUE(TrailRows(text).empty()) << text;
  }
  const std::vector<TrailRow> rows = TrailRows(R"([{"A":null,"B":1.5,"C":[1],"D":"x"}])");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_FALSE(rows[0].Has("A"));
  EXPECT_EQ(rows[0].Text("D"), "x");
}

// Each of de's commands whose statement changes rows has a rule, but for what looks after the tables themselves.
TEST(TrailRulesTest, EachChangingCommandHasOne) {
  std::vector<std::string> without;
  for (const Command& command : kLantosCommands) {
    const std::string word = ToUpper(command.statement.substr(0, command.statement.find(' ')));
    if ((word == "INSERT" || word == "UPDATE" || word == "DELETE") && FindTrailRule(command.name) == nullptr) {
      without.emplace_back(command.name);
    }
  }
  EXPECT_EQ(without, (std::vector<std::string>{"FillLaborDays", "ClearPartCosts"}));
}

}  // namespace lantos::test
