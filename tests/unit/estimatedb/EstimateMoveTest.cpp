#include "estimatedb/EstimateMove.h"

#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "DatabaseFixture.h"
#include "estimatedb/ChangeFeed.h"
#include "estimatedb/Trail.h"
#include "support/FaultyCalls.h"
#include "support/TestServer.h"

namespace lantos::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const TellProgress kUntold = [](const MoveProgress&) {};

// A file's shop with something of everything in it, and a server.
class EstimateMoves : public DatabaseTest {
 protected:
  EstimateMoves() { Plain(kWork); }
  ~EstimateMoves() override { database.lantosData.Disconnect(); }

  EstimateMove ToServer(const std::string& schema) {
    return MoveToServer(environment.files, server.Address(), schema, kUntold);
  }
  std::string Fresh() {
    static int schemas = 0;
    return "moved" + std::to_string(++schemas);
  }
  std::vector<std::string> OnServer(const std::string& schema, const std::string& query) {
    return PlainConnection(server.Address(), schema).Rows(query);
  }
  // All that the program sees of the estimates, wherever they lie.
  std::vector<std::string> Seen() {
    std::vector<std::string> all;
    const std::unique_ptr<Engine> engine = OpenDatabase(Path(), clock);
    for (const char* table : {"Estimates", "Labors", "select * from Parts order by EstimateNumber, PartNumber", "Notes",
                              "Sublets", "Waste", "Checklist", "StandardHours", "SpecialDays"}) {
      Recordset rows = engine->Run(table, {});
      for (const std::string& row : Dump(rows)) all.push_back(std::string(table) + ": " + row);
    }
    return all;
  }
  template <class Action>
  static std::string Words(Action action) {
    try {
      action();
    } catch (const DatabaseError& error) {
      return error.Words();
    }
    return {};
  }
  std::vector<std::string> FilesOf(const std::string& pattern) { return environment.files.List(pattern); }

  static constexpr const char* kWork =
      "insert into Estimates (EstimateNumber, CustomerNumber, VehicleLink, SchedDate, Status, TotalPrice, Comments, "
      "CreateDate, VehYear, VehMake) values "
      "(900, 77, 397, '2003-09-30', 1, 12.5, 'O''Brien; DROP TABLE \"Labors\"; -- \u00e9\u4f60\U0001F600', "
      "'2003-09-29', "
      "' ', '\\x41 %s {0} $1 ?'), "
      "(901, 0, -1, null, 0, 0, null, null, null, ''), (7, 0, -1, '2003-10-01 08:15:00', 9, 1e300, '  ', null, null, "
      "null);"
      "insert into Labors values (900, 1, 'First\r\nline\tand\n\n', 150, 6500, 9750, 3), (900, 2, '', -50, 0, 0, 0), "
      "(901, 1, null, null, null, 2147483647, -2147483648);"
      "insert into Parts values (900, 'pad-9', 'lower', 1, 2, 3, null, null), (900, 'PAD-9', 'upper', 1, 2, 3, 4, 5), "
      "(900, '0012', '\u00e4', 1, 2, 3, null, 0);"
      "insert into Notes (EstimateNumber, NoteNumber, Desc1, Desc8) values (900, 1, '=1+1', 'last');"
      "insert into Sublets (EstimateNumber, SubletNumber, VendorName, Cost, Taxable) values (900, 1, 'SURCHARGE', 5, "
      "'No');"
      "insert into Waste (EstimateNumber, WasteNumber, VendorName) values (900, 3, 'OIL');"
      "insert into Checklist (EstimateNumber, ChecklistData) values (900, 'a'), (900, 'b'), (900, 'gone');"
      "delete from Checklist where ChecklistData = 'gone';"
      "insert into SpecialDays values ('2003-12-25', 0, 'second to none'), ('2003-12-24', 7.5, 'half'), "
      "('2003-12-25', 3, 'twice');";

  TestServer& server = TestServer::Instance();
};

TEST_F(EstimateMoves, TakeEveryRowToTheServerAndBack) {
  const std::vector<std::string> before = Seen();
  const std::string schema = Fresh();
  const EstimateMove there = ToServer(schema);
  EXPECT_EQ(there.moved.tables.size(), 9U);
  EXPECT_EQ(there.moved.datesDropped, 0);
  EXPECT_THAT(BytesOf("Lantos.mdb"), AllOf(HasSubstr("Lantos database server\n"), HasSubstr("schema = " + schema)));
  EXPECT_EQ(Seen(), before);
  EXPECT_THAT(OnServer(schema, "select partnumber from parts order by partnumber"),
              ElementsAre("0012", "PAD-9", "pad-9"));
  EXPECT_THAT(OnServer(schema, "select comments from estimates where estimatenumber = 900"),
              ElementsAre("O'Brien; DROP TABLE \"Labors\"; -- \u00e9\u4f60\U0001F600"))
      << "characters that the program's page can't hold, too";
  EXPECT_THAT(FilesOf("Lantos*"), testing::UnorderedElementsAre(there.kept, "Lantos.mdb"));
  const EstimateMove back = MoveToFile(environment.files, kUntold);
  EXPECT_THAT(back.kept, HasSubstr(schema + "_until_"));
  EXPECT_EQ(Seen(), before);
  EXPECT_EQ(PlainValue("select Comments from Estimates where EstimateNumber = 900"),
            "O'Brien; DROP TABLE \"Labors\"; -- \u00e9\u4f60\U0001F600");
  EXPECT_EQ(OnServer(back.kept, "select count(*) from labors").front(), "3") << "the old one is still there";
  EXPECT_EQ(BytesOf(there.kept).substr(0, 6), "SQLite");
}

// Or it would plan the first statements as for empty tables, until it comes to look by itself.
TEST_F(EstimateMoves, LeaveAServerThatKnowsHowMuchStandsInItsTables) {
  const std::string schema = Fresh();
  ToServer(schema);
  EXPECT_THAT(OnServer(schema, "select reltuples from pg_class where oid = 'labors'::regclass"), ElementsAre("3"));
}

TEST_F(EstimateMoves, CountersGoOnWhereTheyWere) {
  ToServer(Fresh());
  const auto next = [this] {
    const std::unique_ptr<Engine> engine = OpenDatabase(Path(), clock);
    engine->Insert("Checklist", {"EstimateNumber"}, {std::int64_t{900}});
    return engine->Run("select max(RecId) as Highest from Checklist", {}).Long("Highest");
  };
  EXPECT_EQ(next(), 4) << "the third one is gone, and its number with it";
  MoveToFile(environment.files, kUntold);
  EXPECT_EQ(next(), 5);
}

TEST_F(EstimateMoves, TheLastNumberOfACounterIsNotGivenAgainBehindTheWayBack) {
  ToServer(Fresh());
  OpenDatabase(Path(), clock)->Run("delete from Checklist", {});
  MoveToFile(environment.files, kUntold);
  OpenDatabase(Path(), clock)->Insert("Checklist", {"EstimateNumber"}, {std::int64_t{900}});
  EXPECT_EQ(PlainValue("select RecId from Checklist"), "4");
}

TEST_F(EstimateMoves, TakeTheTrailAlongWhichGoesOnThere) {
  const auto change = [this](std::int16_t status) {
    Connect(database, environment);
    db.KeepTrail(clock, {"FRONTDESK", "beth"});
    db.SetStatus(status, 900);
    std::vector<std::int32_t> numbers;
    for (const TrailEntry& entry : TrailOfEstimate(db, 900)) numbers.push_back(entry.number);
    database.lantosData.Disconnect();
    return numbers;
  };
  change(3);
  EXPECT_EQ(ToServer(Fresh()).moved.tables.size(), 10U);
  EXPECT_THAT(change(4), ElementsAre(2, 1));
  MoveToFile(environment.files, kUntold);
  EXPECT_THAT(change(2), ElementsAre(3, 2, 1));
}

TEST_F(EstimateMoves, LeaveTheHoursOfTheTechniciansToBeMadeAnew) {
  Connect(database, environment);
  db.Run("CreateLaborDays");
  database.lantosData.Disconnect();
  EXPECT_EQ(ToServer(Fresh()).moved.tables.size(), 9U);
}

TEST_F(EstimateMoves, LeaveWhatChangesAreFedFromToBeMadeAnew) {
  Connect(database, environment);
  db.KeepTrail(clock, {"FRONTDESK", "beth"});
  db.SetStatus(3, 900);
  database.lantosData.Disconnect();
  ToServer(Fresh());
  {
    ChangeFeed feed(db);
    for (int look = 0; look < 2000 && !feed.Ask().isAll; ++look)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  database.lantosData.Disconnect();
  const EstimateMove back = MoveToFile(environment.files, kUntold);
  EXPECT_EQ(back.moved.tables.size(), 10U);
  EXPECT_TRUE(back.moved.leftBehind.empty());
}

TEST_F(EstimateMoves, SayWhatTheyLeaveBehind) {
  Plain(
      "create table Another (Id integer); insert into Another values (1);"
      "update Estimates set StartDate = 'whenever' where EstimateNumber = 900");
  const EstimateMove move = ToServer(Fresh());
  EXPECT_THAT(move.moved.leftBehind, ElementsAre("Another"));
  EXPECT_EQ(move.moved.datesDropped, 1);
}

TEST_F(EstimateMoves, TakeAwayASecondNameThatABrokenOffOneHasGiven) {
  const std::filesystem::path second = PathOf("Lantos-until-2003-09-28.mdb");
  std::filesystem::create_hard_link(Path(), second);
  Put("Lantos-until-2003-09-27.mdb", "of an earlier move");
  const std::string kept = ToServer(Fresh()).kept;
  EXPECT_THAT(FilesOf("Lantos*"), testing::UnorderedElementsAre("Lantos.mdb", kept, "Lantos-until-2003-09-27.mdb"));
}

TEST_F(EstimateMoves, LeaveATableBehindWhoseNameOnlyBeginsLikeOneOfTheirOwn) {
  Plain("create table Labor (Id integer)");
  EXPECT_THAT(ToServer(Fresh()).moved.leftBehind, ElementsAre("Labor")) << "which isn't LaborDays";
}

TEST_F(EstimateMoves, TellHowFarTheyAre) {
  std::vector<std::string> told;
  MoveToServer(environment.files, server.Address(), Fresh(), [&](const MoveProgress& progress) {
    told.push_back(progress.table + " " + std::to_string(static_cast<int>(progress.step)) + " " +
                   std::to_string(progress.done) + "/" + std::to_string(progress.of));
  });
  EXPECT_THAT(told, testing::IsSupersetOf({"Labors 0 0/3", "Labors 0 3/3", "Labors 1 3/3"}));
}

TEST_F(EstimateMoves, WriteOverNothing) {
  const std::string schema = server.MakeSchema();
  PlainConnection(server.Address(), schema).Run("create function Mine() returns int language sql as 'select 1'");
  const std::string before = BytesOf("Lantos.mdb");
  EXPECT_THAT(Words([&] { ToServer(schema); }), HasSubstr("nothing is written over"));
  EXPECT_EQ(BytesOf("Lantos.mdb"), before);
  EXPECT_THAT(FilesOf("Lantos*"), ElementsAre("Lantos.mdb"));
  EXPECT_THAT(OnServer(schema, "select relname from pg_class where relnamespace = '" + schema + "'::regnamespace"),
              IsEmpty());
}

TEST_F(EstimateMoves, StopAtWhatNoServerCanHoldAndSayWhereItIs) {
  const std::string before = BytesOf("Lantos.mdb");
  const std::pair<const char*, const char*> kUnfit[] = {
      {"update Labors set LaborHours = 'many' where LaborNumber = 2", "its \"LaborHours\" holds \"many\""},
      {"update Labors set LaborHours = 2147483648 where LaborNumber = 2", "is too large"},
      {"update Labors set LaborHours = 1.5 where LaborNumber = 2", "isn't a whole number"},
      {"update Labors set Description = 'a' || char(0) || 'b' where LaborNumber = 2", "(its number is 0)"}};
  for (const auto& [statement, words] : kUnfit) {
    Put("Lantos.mdb", before);
    Plain(statement);
    const std::string schema = Fresh();
    EXPECT_THAT(
        Words([&] { ToServer(schema); }),
        AllOf(HasSubstr("\"Labors\""), HasSubstr("\"EstimateNumber\" 900, \"LaborNumber\" 2"), HasSubstr(words)));
    EXPECT_THAT(OnServer("public", "select nspname from pg_namespace where nspname = '" + schema + "'"), IsEmpty());
    EXPECT_THAT(FilesOf("Lantos*"), ElementsAre("Lantos.mdb"));
  }
}

TEST_F(EstimateMoves, WantADatabaseOfThisProgramsShape) {
  Plain("alter table Labors add column Extra text");
  EXPECT_THAT(Words([&] { ToServer(Fresh()); }), HasSubstr("a column \"Extra\""));
  Plain("alter table Labors drop column Extra; alter table Estimates drop column VehTrans");
  EXPECT_THAT(Words([&] { ToServer(Fresh()); }), HasSubstr("Start Lantos on the shop once"));
}

TEST_F(EstimateMoves, AreRefusedWhileSomebodyWorks) {
  Put("LN930000.LOG", "");
  const SharedFile log(PathOf("LN930000.LOG"), Access::ReadWrite, Deny::All);
  const std::string schema = Fresh();
  EXPECT_THAT(Words([&] { ToServer(schema); }), AllOf(HasSubstr("LN930000.LOG"), HasSubstr("End it")));
}

TEST_F(EstimateMoves, GoOneWayAtATime) {
  EXPECT_THAT(Words([&] { MoveToFile(environment.files, kUntold); }), HasSubstr("doesn't name a server"));
  ToServer(Fresh());
  EXPECT_THAT(Words([&] { ToServer(Fresh()); }), HasSubstr("names a server already"));
  std::filesystem::remove(Path());
  EXPECT_THAT(Words([&] { ToServer(Fresh()); }), HasSubstr("There is no"));
}

TEST_F(EstimateMoves, PutNoPasswordIntoTheFile) {
  EXPECT_THAT(
      Words([&] { MoveToServer(environment.files, "postgresql://clerk:secret@/test?host=/tmp", "north", kUntold); }),
      AllOf(HasSubstr("password"), Not(HasSubstr("secret"))));
  EXPECT_THAT(Words([&] { MoveToServer(environment.files, server.Address(), "a\nserver = x", kUntold); }),
              HasSubstr("line 4"));
}

TEST_F(EstimateMoves, ACopyThatWentOnStoresNothingInTheOldDatabase) {
  const std::unique_ptr<Engine> old = OpenDatabase(Path(), clock);
  old->Run("select count(*) from Estimates", {});
  ToServer(Fresh());
  EXPECT_THAT(Words([&] { old->Run("update Estimates set Status = 5", {}); }), HasSubstr("have been moved"));
  EXPECT_EQ(
      test::PlainRows(PathOf(FilesOf("Lantos-until*").front()), "select count(*) from Estimates where Status = 5"),
      std::vector<std::string>{"0"});
}

TEST_F(EstimateMoves, ACopyThatWentOnOnTheServerStoresNothingThere) {
  ToServer(Fresh());
  const std::unique_ptr<Engine> old = OpenDatabase(Path(), clock);
  old->Run("select count(*) from Estimates", {});
  const std::string kept = MoveToFile(environment.files, kUntold).kept;
  EXPECT_THROW(old->Run("update Estimates set Status = 5", {}), DatabaseError);
  EXPECT_EQ(OnServer(kept, "select count(*) from estimates where status = 5").front(), "0");
}

// A process that is ended on its way, at each of the places where it tells of itself or asks something of a file.
class BrokenOffMoves : public EstimateMoves {
 protected:
  using Move = std::function<void(const TellProgress&)>;

  // True when it came to its end.
  static bool RunsToItsEnd(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
      try {
        work();
      } catch (const std::exception& error) {
        ::fprintf(stderr, "%s\n", error.what());
        ::_exit(2);
      }
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(!WIFEXITED(status) || WEXITSTATUS(status) == 0);
    return WIFEXITED(status);
  }

  static std::function<void()> EndedAtStep(const Move& move, int at) {
    return [&move, at] {
      int step = 0;
      move([&](const MoveProgress&) {
        if (step++ == at) ::kill(::getpid(), SIGKILL);
      });
    };
  }
  std::function<void()> EndedAtCall(const Move& move, std::size_t at) {
    return [this, &move, at] {
      FaultyCalls calls(Path().parent_path());
      calls.KillAt(at);
      move(kUntold);
    };
  }

  // Puts the shop back into the state that it was in.
  void StartAnew(const std::string& lantos) {
    for (const std::string& name : FilesOf("Lantos*")) std::filesystem::remove(PathOf(name));
    Put("Lantos.mdb", lantos);
  }
};

TEST_F(BrokenOffMoves, ToAServerLeaveTheShopWholeAtEachStepAndCall) {
  const std::vector<std::string> before = Seen();
  const std::string file = BytesOf("Lantos.mdb");
  for (const bool atCalls : {false, true}) {
    bool isThrough = false;
    for (int at = 0; !isThrough; ++at) {
      StartAnew(file);
      const std::string schema = Fresh();
      const Move move = [&](const TellProgress& tell) {
        MoveToServer(environment.files, server.Address(), schema, tell);
      };
      isThrough = RunsToItsEnd(atCalls ? EndedAtCall(move, static_cast<std::size_t>(at)) : EndedAtStep(move, at));
      ASSERT_EQ(Seen(), before) << at;
      if (!isThrough && FilesOf("Lantos-until*").empty() && at % 5 == 0) {
        EXPECT_EQ(ToServer(Fresh()).moved.tables.size(), 9U) << "another try goes through";
        ASSERT_EQ(Seen(), before);
      }
    }
  }
}

TEST_F(BrokenOffMoves, ToAFileLeaveTheShopWholeAtEachStepAndCall) {
  const std::vector<std::string> before = Seen();
  const std::string schema = Fresh();
  ToServer(schema);
  const std::string pointer = BytesOf("Lantos.mdb");
  const Move move = [this](const TellProgress& tell) { MoveToFile(environment.files, tell); };
  for (const bool atCalls : {false, true}) {
    bool isThrough = false;
    for (int at = 0; !isThrough; ++at) {
      StartAnew(pointer);
      isThrough = RunsToItsEnd(atCalls ? EndedAtCall(move, static_cast<std::size_t>(at)) : EndedAtStep(move, at));
      ASSERT_EQ(Seen(), before) << at;
    }
    const std::string kept = OnServer("public", "select nspname from pg_namespace where nspname like '" + schema +
                                                    "_until%' order by nspname desc")
                                 .front();
    PlainConnection(server.Address(), "public").Run("alter schema " + kept + " rename to " + schema);
  }
}

}  // namespace
}  // namespace lantos::test
