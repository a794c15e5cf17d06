#include "estimatedb/sqlite/SqliteEngine.h"

#include <set>

#include "DatabaseFixture.h"
#include "estimatedb/sqlite/DatabaseFileKind.h"

namespace lantos::test {
namespace {

using namespace std::string_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class Engines : public DatabaseTest {
 protected:
  Engines() : engine(Path(), clock) {}
  std::string Ask(const std::string& statement) {
    const Recordset rows = engine.Run(statement, {});
    return rows.Text(rows.Columns().front());
  }
  void AddDay(std::int64_t hours) { engine.Insert("SpecialDays", {"SpecialHours"}, {hours}); }
  std::string RefusalOfFile(const std::string& bytes) {
    Put("Other.mdb", bytes);
    const auto before = Everything();
    const std::string error = ErrorOf([&] { SqliteEngine(PathOf("Other.mdb"), clock); });
    EXPECT_EQ(Everything(), before) << "the file is untouched and nothing lies beside it";
    return error;
  }

  SqliteEngine engine;
};

TEST_F(Engines, AJetDatabaseIsRefusedUntouchedWithWhatCanBeDone) {
  for (const std::string& mark : {"\0\1\0\0Standard Jet DB\0\1\0\0\0"s, "\0\1\0\0Standard ACE DB\0\2\0\0\0"s}) {
    EXPECT_THAT(RefusalOfFile(mark + std::string(4096, '\7')),
                AllOf(HasSubstr("Other.mdb"), HasSubstr("Jet database"), HasSubstr("left as it is"),
                      HasSubstr("lantos-shop import"), HasSubstr("backup")));
  }
}

TEST_F(Engines, LoadNoLibraryWhateverTheDatabaseAsksFor) {
  EXPECT_THAT(ErrorOf([&] { engine.Run("SELECT load_extension('libm.so.6')", {}); }), HasSubstr("not authorized"));
  engine.Run("CREATE VIEW Wanted AS SELECT load_extension('libm.so.6') AS Loaded", {});
  EXPECT_THAT(ErrorOf([&] { engine.Run("SELECT Loaded FROM Wanted", {}); }), HasSubstr("unsafe use of load_extension"));
}

TEST_F(Engines, AnEmptyFileIsRefusedAndStaysEmpty) {
  EXPECT_THAT(RefusalOfFile(""), AllOf(HasSubstr("is empty"), HasSubstr("lantos-shop new")));
}

TEST_F(Engines, AnythingElseIsRefused) {
  for (const std::string& bytes :
       {"S"s, "SQLite format 3"s, "SQLite format 4\0..."s, std::string(100, '\0'), "[ini]"s}) {
    EXPECT_THAT(RefusalOfFile(bytes), HasSubstr("isn't a database of this program"));
  }
}

TEST_F(Engines, ADamagedDatabaseIsAnErrorNotACrash) {
  std::string bytes = EmptyDatabase();
  for (std::size_t i = 100; i < bytes.size(); i += 3) bytes[i] = static_cast<char>(i * 31);
  Put("Other.mdb", bytes);
  EXPECT_NE(ErrorOf([&] {
              SqliteEngine damaged(PathOf("Other.mdb"), clock);
              damaged.Run("select * from Estimates", {});
            }),
            "");
}

TEST_F(Engines, ADatabaseCutOffIsAnErrorNotACrash) {
  for (const std::size_t length : {16U, 20U, 99U, 100U, 4096U, 6000U}) {
    Put("Other.mdb", EmptyDatabase().substr(0, length));
    EXPECT_NE(ErrorOf([&] {
                SqliteEngine cut(PathOf("Other.mdb"), clock);
                cut.Run("select * from Estimates", {});
              }),
              "")
        << length;
  }
}

TEST_F(Engines, AFileThatIsNotThereIsNotMade) {
  EXPECT_THAT(ErrorOf([&] { SqliteEngine(PathOf("None.mdb"), clock); }), HasSubstr("None.mdb"));
  EXPECT_FALSE(std::filesystem::exists(PathOf("None.mdb")));
}

TEST_F(Engines, ARollbackJournalFullSyncAndNoMapping) {
  EXPECT_EQ(Ask("PRAGMA journal_mode"), "delete");
  EXPECT_EQ(Ask("PRAGMA synchronous"), "2");
  EXPECT_TRUE(engine.Run("PRAGMA mmap_size", {}).Eof() || Ask("PRAGMA mmap_size") == "0");
  EXPECT_EQ(Ask("PRAGMA busy_timeout"), "5000");
}

TEST_F(Engines, AWriteAheadLogIsGivenUpAtTheOpening) {
  Plain("PRAGMA journal_mode = WAL; insert into Estimates (EstimateNumber) values (9)");
  SqliteEngine other(Path(), clock);
  EXPECT_EQ(other.Run("select EstimateNumber from Estimates", {}).Long("EstimateNumber"), 9);
  EXPECT_EQ(PlainValue("PRAGMA journal_mode"), "delete");
  EXPECT_FALSE(std::filesystem::exists(PathOf("Lantos.mdb-wal")));
}

TEST_F(Engines, RunningAStatementAgainDoesNotPrepareItAgain) {
  const std::string_view statement = "select * from Estimates where EstimateNumber = ?";
  engine.Run(statement, {std::int64_t{1}});
  const std::size_t prepared = engine.StatementsPrepared();
  for (std::int64_t i = 0; i < 10; ++i) engine.Run(statement, {i});
  EXPECT_EQ(engine.StatementsPrepared(), prepared);
  for (int i = 0; i < 300; ++i) engine.Run("select " + std::to_string(i), {});
  EXPECT_EQ(engine.Run(statement, {std::int64_t{1}}).Count(), 0U) << "and many others don't harm it";
}

TEST_F(Engines, ColumnsThatAnotherWorkstationAddsAreSeenByAPreparedStatement) {
  const std::string_view statement = "select * from Labors where EstimateNumber = ?";
  Plain("insert into Labors (EstimateNumber, LaborNumber) values (1, 1)");
  EXPECT_FALSE(engine.Run(statement, {std::int64_t{1}}).HasColumn("Extra"));
  Plain("alter table Labors add column Extra Text(5) default 'new'");
  const Recordset rows = engine.Run(statement, {std::int64_t{1}});
  EXPECT_EQ(rows.Text("Extra"), "new");
  EXPECT_EQ(rows.Long("LaborNumber"), 1);
}

TEST_F(Engines, TextThatLooksLikeANumberStaysText) {
  engine.Insert("Labors", {"EstimateNumber", "LaborNumber", "Description"},
                {std::int64_t{1}, std::int64_t{1}, "0012"s});
  engine.Insert("Parts", {"EstimateNumber", "PartNumber"}, {std::int64_t{1}, "1e5"s});
  EXPECT_EQ(PlainValue("select typeof(Description) || Description from Labors"), "text0012");
  EXPECT_EQ(PlainValue("select typeof(PartNumber) || PartNumber from Parts"), "text1e5");
}

TEST_F(Engines, DatesLieInTheFileAsIsoText) {
  engine.Insert("SpecialDays", {"SpecialDate"}, {DateValue{37894}});
  EXPECT_EQ(PlainValue("select typeof(SpecialDate) || SpecialDate from SpecialDays"), "text2003-09-30");
  EXPECT_EQ(engine.Run("select SpecialDate from SpecialDays", {}).Date("SpecialDate"), 37894);
}

TEST_F(Engines, ADateWithATimeIsThatDayAndWhatIsNoDateIsNull) {
  Plain(
      "insert into SpecialDays (SpecialDate, SpecialHours) values ('2003-09-30 17:30:00', 1), ('2003-09-30T17:30', 2),"
      "('2003-02-30', 3), ('', 4), ('09/30/2003', 5), ('\xFF\xFE', 6)");
  Recordset rows = engine.Run("select SpecialDate from SpecialDays order by SpecialHours", {});
  EXPECT_THAT(Dump(rows), ElementsAre("09/30/2003", "09/30/2003", "null", "null", "null", "null"));
}

TEST_F(Engines, ARefusalOfAnyKindTellsAPersonNeitherStatementNorTheEnginesWords) {
  using Kind = DatabaseErrorKind;
  const auto expect = [](SqliteEngine& asked, Kind kind, const std::string& statement, std::vector<Value> values) {
    try {
      asked.Run(statement, values);
      ADD_FAILURE() << "not refused: " << statement;
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Kind(), kind);
      EXPECT_TRUE(error.Words().starts_with(WordsOf(kind))) << error.Words();
      EXPECT_EQ(error.Words().find("SpecialDays"), std::string::npos) << error.Words();
      EXPECT_THAT(error.what(), HasSubstr(statement));
    }
  };
  const std::string insert = "insert into SpecialDays (SpecialDesc) values (?)";
  engine.Run("PRAGMA query_only = ON", {});
  expect(engine, Kind::ReadOnly, insert, {"x"s});
  engine.Run("PRAGMA query_only = OFF", {});
  engine.Run("PRAGMA max_page_count = " + Ask("PRAGMA page_count"), {});
  expect(engine, Kind::Full, insert, {std::string(100000, 'x')});
  engine.Run("PRAGMA max_page_count = 1000000", {});
  engine.Run("create unique index Days on SpecialDays (SpecialDate)", {});
  AddDay(1);
  engine.Run("update SpecialDays set SpecialDate = 1", {});
  expect(engine, Kind::Duplicate, "insert into SpecialDays (SpecialDate) values (?)", {std::int64_t{1}});
  expect(engine, Kind::NotThere, "select SpecialColour from SpecialDays", {});
  std::string bytes = EmptyDatabase();
  std::fill(bytes.begin() + 4096, bytes.end(), '\xFF');
  Put("Other.mdb", bytes);
  SqliteEngine damaged(PathOf("Other.mdb"), clock);
  expect(damaged, Kind::Damaged, "select * from SpecialDays", {});
}

// They are read by people who know nothing of statements.
TEST(DatabaseErrors, HaveWordsOfTheirOwn) {
  using Kind = DatabaseErrorKind;
  std::set<std::string_view> all;
  for (const Kind kind : {Kind::Other, Kind::Locked, Kind::NotThere, Kind::Duplicate, Kind::Refused, Kind::ReadOnly,
                          Kind::Full, Kind::Unreachable, Kind::Damaged}) {
    EXPECT_TRUE(all.insert(WordsOf(kind)).second);
    EXPECT_TRUE(WordsOf(kind).ends_with('.'));
  }
}

// SQLite ends the whole transaction by itself then.
TEST_F(Engines, WorkThatAFullDiskHasUndoneFailsWhateverIsMadeOfIt) {
  engine.Run("PRAGMA max_page_count = " + Ask("PRAGMA page_count"), {});
  DatabaseErrorKind kind = DatabaseErrorKind::Other;
  try {
    engine.Together([&] {
      AddDay(1);
      ErrorOf(
          [&] { engine.Apart([&] { engine.Insert("SpecialDays", {"SpecialDesc"}, {std::string(100000, 'x')}); }); });
    });
  } catch (const DatabaseError& failure) {
    kind = failure.Kind();
  }
  EXPECT_EQ(kind, DatabaseErrorKind::Full);
  EXPECT_EQ(PlainValue("select count(*) from SpecialDays"), "0");
  engine.Together([&] { AddDay(4); });
  EXPECT_EQ(PlainValue("select SpecialHours from SpecialDays"), "4") << "and the next work is its own";
}

TEST_F(Engines, ReadingTogetherSeesOneStateOfTheDatabase) {
  engine.ReadTogether([&] {
    EXPECT_EQ(Ask("select count(*) from Estimates"), "0");
    SqliteEngine other(Path(), clock, SqliteEngine::Mode::Existing, std::chrono::milliseconds(1));
    EXPECT_THROW(other.Run("insert into Estimates (EstimateNumber) values (1)", {}), DatabaseError);
    EXPECT_EQ(Ask("select count(*) from Estimates"), "0");
  });
  SqliteEngine other(Path(), clock, SqliteEngine::Mode::Existing, std::chrono::milliseconds(1));
  other.Run("insert into Estimates (EstimateNumber) values (1)", {});
  EXPECT_EQ(Ask("select count(*) from Estimates"), "1");
}

TEST_F(Engines, LookingNeverWrites) {
  const auto before = Everything();
  const auto written = std::filesystem::last_write_time(Path());
  db.GetEstimatesByDate(37894);
  db.TechHours();
  db.ChecklistTable();
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(std::filesystem::last_write_time(Path()), written);
}

}  // namespace
}  // namespace lantos::test
