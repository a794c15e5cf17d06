#include "EitherDatabase.h"

namespace lantos::test {
namespace {

using namespace std::string_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

// What is asked of any engine, and answered alike.
class EitherEngine : public EitherDatabase {
 protected:
  EitherEngine() : engine(Workstation()) {}
  Recordset Ask(const std::string& statement) { return engine->Run(statement, {}); }
  std::string Value(const std::string& statement) {
    const Recordset rows = Ask(statement);
    return rows.Text(rows.Columns().front());
  }
  void AddDay(std::int64_t hours) { engine->Insert("SpecialDays", {"SpecialHours"}, {hours}); }
  void AddEstimate(std::int64_t number) { engine->Insert("Estimates", {"EstimateNumber"}, {number}); }
  std::vector<std::string> Days() { return PlainRows("select SpecialHours from SpecialDays order by SpecialHours"); }

  std::unique_ptr<Engine> engine;
};

ON_EITHER_DATABASE(EitherEngine);

TEST_P(EitherEngine, TextCrossesTheBorderAsUnicode) {
  const std::string text = "Caf\xE9 \x80 50";  // e with acute, euro sign
  engine->Insert("SpecialDays", {"SpecialDesc"}, {text});
  EXPECT_EQ(PlainValue("select SpecialDesc from SpecialDays"), "Caf\xC3\xA9 \xE2\x82\xAC 50");
  EXPECT_EQ(Ask("select SpecialDesc from SpecialDays").Text("SpecialDesc"), text);
  EXPECT_EQ(Ask("select SpecialDesc from SpecialDays where SpecialDesc = 'Caf\xE9 \x80 50'").Count(), 1U);
}

TEST_P(EitherEngine, WhatThePageCantHoldReadsAsAQuestionMark) {
  Plain("insert into SpecialDays (SpecialDesc) values ('\xCE\xA9 ohm')");
  EXPECT_EQ(Ask("select SpecialDesc from SpecialDays").Text("SpecialDesc"), "? ohm");
}

TEST_P(EitherEngine, TextsStayAsTheyAreTyped) {
  const std::string wide(300, 'w');
  for (const std::string& text : {"0012"s, "1e5"s, " two blanks  "s, ""s, "O'Neil \"x\" \\ ? $1"s, wide}) {
    engine->Run("delete from Labors", {});
    engine->Insert("Labors", {"EstimateNumber", "LaborNumber", "Description"},
                   {std::int64_t{1}, std::int64_t{1}, text});
    EXPECT_EQ(Ask("select * from Labors").Text("Description"), text);
    engine->Run("delete from Parts", {});
    engine->Insert("Parts", {"EstimateNumber", "PartNumber"}, {std::int64_t{1}, text});
    EXPECT_EQ(engine->Run("select * from Parts where PartNumber = ?", {text}).Text("PartNumber"), text);
  }
}

TEST_P(EitherEngine, TextsAreComparedAndOrderedByTheirBytes) {
  for (const std::string& part : {"b"s, "B"s, "a"s, "\xE9"s, "_"s, "12"s, "0012"s, "Z"s}) {
    engine->Insert("Parts", {"EstimateNumber", "PartNumber"}, {std::int64_t{5}, part});
  }
  Recordset rows = engine->Run("select * from Parts where EstimateNumber = ?", {std::int64_t{5}});
  std::vector<std::string> parts;
  for (; !rows.Eof(); rows.MoveNext()) parts.push_back(rows.Text("PartNumber"));
  EXPECT_THAT(parts, ElementsAre("0012", "12", "B", "Z", "_", "a", "b", "\xE9"));
  EXPECT_EQ(engine->Run("select * from Parts where PartNumber = ?", {"A"s}).Count(), 0U);
}

TEST_P(EitherEngine, NumbersComeAsTheKindThatTheyAre) {
  engine->Insert("Estimates", {"EstimateNumber", "TotalPrice"}, {std::int64_t{1}, 0.1});
  engine->Insert("SpecialDays", {"SpecialHours"}, {7.5});
  EXPECT_EQ(Ask("select * from Estimates")["TotalPrice"], lantos::Value(0.1));
  EXPECT_EQ(Ask("select * from SpecialDays")["SpecialHours"], lantos::Value(7.5));
  EXPECT_EQ(Ask("select * from StandardHours")["MonHours"], lantos::Value(std::int64_t{16}));
  EXPECT_EQ(Ask("select count(*) as Sum from Estimates")["Sum"], lantos::Value(std::int64_t{1}));
  EXPECT_TRUE(Ask("select * from Estimates").IsNull("Comments"));
}

TEST_P(EitherEngine, DatesAreDaysWhateverTheirKindOfParameter) {
  engine->Insert("SpecialDays", {"SpecialDate"}, {DateValue{37894}});
  EXPECT_EQ(Ask("select SpecialDate from SpecialDays").Date("SpecialDate"), 37894);
  EXPECT_EQ(Ask("select * from SpecialDays where SpecialDate = \"09/30/2003\"").Count(), 1U);
  EXPECT_EQ(Ask("select * from SpecialDays").TypeOf("SpecialDate"), ColumnType::Date);
}

TEST_P(EitherEngine, ColumnsSayWhetherTheyAreShortOrLongTexts) {
  const Recordset labors = Ask("select * from Labors");
  EXPECT_EQ(labors.TypeOf("Description"), ColumnType::LongText);
  EXPECT_EQ(labors.TypeOf("LaborHours"), ColumnType::Other);
  EXPECT_EQ(Ask("select * from Parts").TypeOf("PartDesc"), ColumnType::ShortText);
}

TEST_P(EitherEngine, RowsWithoutAnOrderComeByTheirKeyOrAsTheyWereAdded) {
  for (const int number : {7, 3, 5}) AddEstimate(number);
  engine->Run("update Estimates set Status = 2 where EstimateNumber = 3", {});
  for (const int hours : {7, 3, 5}) AddDay(hours);
  engine->Run("update SpecialDays set SpecialDesc = 'x' where SpecialHours = 7", {});
  Recordset estimates = Ask("select * from Estimates");
  EXPECT_EQ(estimates.Long("EstimateNumber"), 3);
  std::vector<int> hours;
  for (Recordset days = Ask("select * from SpecialDays"); !days.Eof(); days.MoveNext()) {
    hours.push_back(days.Long("SpecialHours"));
  }
  EXPECT_THAT(hours, ElementsAre(7, 3, 5));
  EXPECT_THAT(Ask("select * from SpecialDays").Columns().size(), 3U) << "and nothing tells how it is done";
}

TEST_P(EitherEngine, NullsComeFirst) {
  for (const int number : {1, 2, 3}) AddEstimate(number);
  engine->Run("update Estimates set SchedDate = ? where EstimateNumber = 1", {DateValue{37894}});
  const std::string all = "select * from Estimates order by SchedDate";
  EXPECT_TRUE(Ask(all).IsNull("SchedDate"));
  EXPECT_EQ(Ask(all).Long("EstimateNumber"), 2) << "equal ones by their key";
  EXPECT_EQ(Ask(all + " desc").Long("EstimateNumber"), 1);
}

TEST_P(EitherEngine, AFailureNamesStatementValuesAndReason) {
  EXPECT_THAT(ErrorOf([&] { engine->Run("select * from Nowhere where A = ?", {"O'Neil"s}); }),
              AllOf(HasSubstr(Either("no such table: Nowhere", "relation \"nowhere\" does not exist")),
                    HasSubstr("select * from Nowhere where A = ?"), HasSubstr("'O''Neil'")));
  EXPECT_THAT(ErrorOf([&] { engine->Run("select ?", {}); }), HasSubstr("number of values"));
  EXPECT_NE(ErrorOf([&] { engine->Run("select 1; drop table Estimates", {}); }), "");
  EXPECT_NE(ErrorOf([&] { engine->Run("", {}); }), "");
  EXPECT_EQ(Value("select count(*) from Estimates"), "0");
}

TEST_P(EitherEngine, AFailureIsOfAKindAndKeepsItsWords) {
  const auto kindOf = [this](const std::string& statement) { return KindOf([&] { engine->Run(statement, {}); }); };
  EXPECT_EQ(kindOf("select * from Nowhere"), DatabaseErrorKind::NotThere);
  EXPECT_EQ(kindOf("select Nonsense from Estimates"), DatabaseErrorKind::NotThere);
  EXPECT_EQ(kindOf("select Status, from Estimates"), DatabaseErrorKind::Other);
  EXPECT_EQ(kindOf("insert into Labors (EstimateNumber) select 'no such table'; x"), DatabaseErrorKind::Other);
  AddEstimate(1);
  try {
    AddEstimate(1);
    FAIL() << "the key";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Kind(), DatabaseErrorKind::Duplicate);
    EXPECT_EQ(error.Number(), IsOnAServer() ? 0 : 19);
    EXPECT_EQ(error.Words(), WordsOf(DatabaseErrorKind::Duplicate));
    EXPECT_THAT(error.what(), testing::StartsWith(Either("UNIQUE constraint failed: Estimates.EstimateNumber\n",
                                                         "23505 duplicate key value violates unique constraint")));
  }
  Refuse("delete", "Estimates");
  EXPECT_EQ(kindOf("delete from Estimates"), DatabaseErrorKind::Refused);
}

TEST_P(EitherEngine, AStatementThatFailedCanBeRunAgain) {
  const std::string_view statement = "insert into Estimates (EstimateNumber) values (?)";
  engine->Run(statement, {std::int64_t{1}});
  EXPECT_THROW(engine->Run(statement, {std::int64_t{1}}), DatabaseError);
  engine->Run(statement, {std::int64_t{2}});
  EXPECT_EQ(PlainValue("select count(*) from Estimates"), "2");
}

TEST_P(EitherEngine, WorkThatFailsTogetherLeavesNothing) {
  EXPECT_THROW(engine->Together([&] {
    AddEstimate(1);
    AddEstimate(1);
  }),
               DatabaseError);
  EXPECT_EQ(PlainValue("select count(*) from Estimates"), "0");
  engine->Together([&] { AddEstimate(1); });
  EXPECT_EQ(PlainValue("select count(*) from Estimates"), "1");
}

TEST_P(EitherEngine, AStatementThatFailsWithinTheWorkTakesNothingElseAlong) {
  engine->Together([&] {
    AddDay(1);
    EXPECT_NE(ErrorOf([&] { Ask("select * from Nowhere"); }), "");
    AddEstimate(1);
    EXPECT_NE(ErrorOf([&] { AddEstimate(1); }), "");
    AddDay(2);
  });
  EXPECT_THAT(Days(), ElementsAre("1", "2"));
  engine->ReadTogether([&] {
    EXPECT_NE(ErrorOf([&] { Ask("select * from Nowhere"); }), "");
    EXPECT_EQ(Value("select count(*) from SpecialDays"), "2");
  });
}

TEST_P(EitherEngine, WhatFailsApartIsUndoneAndTheRestOfTheWorkStands) {
  std::string error;
  engine->Together([&] {
    AddDay(1);
    error = ErrorOf([&] {
      engine->Apart([&] {
        AddDay(2);
        engine->Run("insert into Nowhere values (1)", {});
      });
    });
    engine->Apart([&] { AddDay(3); });
  });
  EXPECT_THAT(error, HasSubstr("insert into Nowhere"));
  EXPECT_THAT(Days(), ElementsAre("1", "3"));
}

TEST_P(EitherEngine, WhatIsPostedIsStoredInItsPlaceAndSeenByWhatComesNext) {
  const auto post = [this](std::int64_t hours) {
    engine->Post("insert into SpecialDays (SpecialHours) values (?)", {hours});
  };
  post(1);
  EXPECT_THAT(Days(), ElementsAre("1")) << "outside of a transaction it is run";
  engine->Together([&] {
    post(2);
    EXPECT_EQ(Value("select count(*) from SpecialDays"), "2");
    engine->Run("delete from SpecialDays", {});
    post(3);
    engine->Apart([&] { post(4); });
    post(5);
  });
  EXPECT_THAT(Days(), ElementsAre("3", "4", "5"));
  engine->Together([&] { post(6); });
  EXPECT_EQ(PlainValue("select count(*) from SpecialDays"), "4");
}

TEST_P(EitherEngine, APostedChangeThatFailsTakesAllOfItsWorkAlong) {
  const auto post = [this] { engine->Post("insert into Estimates (EstimateNumber) values (?)", {std::int64_t{1}}); };
  AddEstimate(1);
  const std::function<void()> kBehind[] = {[] {}, [&] { Value("select count(*) from Estimates"); },
                                           [&] { engine->Apart([&] { AddDay(2); }); }};
  for (const auto& behind : kBehind) {
    EXPECT_EQ(KindOf([&] {
                engine->Together([&] {
                  AddDay(1);
                  post();
                  behind();
                });
              }),
              DatabaseErrorKind::Duplicate);
    EXPECT_THAT(Days(), testing::IsEmpty());
  }
  EXPECT_THAT(ErrorOf([&] { engine->Together(post); }), HasSubstr("insert into Estimates (EstimateNumber) values"));
  engine->Together([&] {
    EXPECT_NE(ErrorOf([&] { engine->Apart(post); }), "") << "but for one that is apart";
    AddDay(3);
  });
  EXPECT_THAT(Days(), ElementsAre("3"));
}

TEST_P(EitherEngine, WorkThatReadsAheadGetsTheSameAnswers) {
  AddDay(1);
  const Question days{"select * from SpecialDays", {}};
  std::size_t count = 0;
  engine->ReadAhead({days, {"select * from Estimates where EstimateNumber = ?", {std::int64_t{7}}}}, [&] {
    count = Ask("select * from SpecialDays").Count();
    EXPECT_TRUE(engine->Run("select * from Estimates where EstimateNumber = ?", {std::int64_t{7}}).Eof());
    engine->ReadAhead({days}, [&] { AddDay(2); });
    count += Ask("select * from SpecialDays").Count();
  });
  EXPECT_EQ(count, 1U + 2U);
  EXPECT_EQ(KindOf([&] {
              engine->ReadAhead({days, {"select * from Nowhere", {}}}, [&] {
                EXPECT_EQ(Ask("select * from SpecialDays").Count(), 2U);
                Ask("select * from Nowhere");
              });
            }),
            DatabaseErrorKind::NotThere);
  EXPECT_EQ(Ask("select * from SpecialDays").Count(), 2U);
}

TEST_P(EitherEngine, WorkApartOfNothingIsWorkTogether) {
  EXPECT_NE(ErrorOf([&] {
              engine->Apart([&] {
                AddDay(1);
                engine->Run("insert into Nowhere values (1)", {});
              });
            }),
            "");
  EXPECT_EQ(PlainValue("select count(*) from SpecialDays"), "0");
  engine->Together([&] { engine->Together([&] { AddDay(4); }); });
  EXPECT_THAT(Days(), ElementsAre("4")) << "within a transaction the work is part of that one";
}

TEST_P(EitherEngine, WhatIsReadTogetherIsOneState) {
  const std::unique_ptr<Engine> other = Workstation(std::chrono::milliseconds(1));
  const auto write = [&] { other->Run("insert into Estimates (EstimateNumber) values (1)", {}); };
  engine->ReadTogether([&] {
    EXPECT_EQ(Value("select count(*) from Estimates"), "0");
    if (IsOnAServer()) {
      write();
    } else {
      EXPECT_THROW(write(), DatabaseError) << "a file lets nobody write meanwhile";
    }
    EXPECT_EQ(Value("select count(*) from Estimates"), "0");
  });
  if (!IsOnAServer()) write();
  EXPECT_EQ(Value("select count(*) from Estimates"), "1");
}

TEST_P(EitherEngine, WritersWaitForEachOtherAndAreToldWhenItTakesTooLong) {
  const std::unique_ptr<Engine> waiting = Workstation(std::chrono::milliseconds(20));
  engine->Together([&] {
    AddDay(1);
    try {
      waiting->Run("update Estimates set Status = ? where EstimateNumber = ?", {std::int64_t{3}, std::int64_t{7}});
      ADD_FAILURE() << "the turn is taken";
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Kind(), DatabaseErrorKind::Locked);
      EXPECT_THAT(error.Words(), AllOf(HasSubstr("Another copy of the program has the database"),
                                       HasSubstr("Lantos.mdb"), HasSubstr("0.02 seconds")));
      EXPECT_THAT(error.what(), AllOf(HasSubstr("update Estimates"), HasSubstr("3, 7")));
    }
    EXPECT_THROW(waiting->Together([&] { waiting->Run("delete from SpecialDays", {}); }), DatabaseError);
    waiting->Run("select * from SpecialDays", {});
  });
  waiting->Run("update SpecialDays set SpecialHours = 2", {});
  EXPECT_THAT(Days(), ElementsAre("2"));
}

TEST_P(EitherEngine, ColumnsThatAnotherWorkstationAddsAreSeen) {
  const std::string_view statement = "select * from Labors where EstimateNumber = ?";
  Plain("insert into Labors (EstimateNumber, LaborNumber) values (1, 1)");
  EXPECT_FALSE(engine->Run(statement, {std::int64_t{1}}).HasColumn("Extra"));
  Plain("alter table Labors add column Extra " + Either("Text(5)", "varchar") + " default 'new'");
  const Recordset rows = engine->Run(statement, {std::int64_t{1}});
  EXPECT_EQ(rows.Text("Extra"), "new");
  EXPECT_EQ(rows.Long("LaborNumber"), 1);
}

TEST_P(EitherEngine, TheCreateDateIsTheClocksDay) {
  engine->Insert("Estimates", {"EstimateNumber"}, {std::int64_t{1}});
  clock.MoveTo(*ParseLocalTime("2003-10-01T00:00:00"));
  engine->Insert("Estimates", {"EstimateNumber"}, {std::int64_t{2}});
  clock.MoveTo(*ParseLocalTime("2004-07-15T23:59:59"));
  engine->Together([&] { AddEstimate(3); });
  EXPECT_THROW(engine->Together([&] { AddEstimate(3); }), DatabaseError);
  AddEstimate(4);
  clock.MoveTo(*ParseLocalTime("2004-07-16T08:00:00"));
  EXPECT_THROW(AddEstimate(4), DatabaseError);
  AddEstimate(5);
  EXPECT_THAT(PlainRows("select CreateDate from Estimates order by EstimateNumber"),
              ElementsAre("2003-09-30", "2003-10-01", "2004-07-15", "2004-07-15", "2004-07-16"));
}

TEST_P(EitherEngine, CountersGoOnAfterADeletion) {
  for (int i = 0; i < 2; ++i) engine->Insert("Checklist", {"EstimateNumber"}, {std::int64_t{1}});
  engine->Run("delete from Checklist", {});
  engine->Insert("Checklist", {"EstimateNumber"}, {std::int64_t{1}});
  EXPECT_EQ(PlainValue("select RecId from Checklist"), "3");
}

}  // namespace
}  // namespace lantos::test
