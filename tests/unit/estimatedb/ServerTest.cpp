#include <fmt/format.h>

#include "DatabaseFixture.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/postgres/PostgresEngine.h"
#include "support/TestServer.h"

namespace lantos::test {
namespace {

using namespace std::string_literals;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

// A shop whose tables a server has.
class Servers : public DatabaseTest {
 protected:
  Servers() : schema(server.MakeSchema()) {
    PutFile(server.Address(), schema);
    engine = std::make_unique<PostgresEngine>(ReadServerFile(Path()), clock);
    MakeLantosTables(*engine);
  }
  void PutFile(const std::string& address, const std::string& itsSchema) const {
    Put("Lantos.mdb", fmt::format("Lantos database server\nserver = {}\nschema = {}\n", address, itsSchema));
  }
  // What a person is told when a connection is made.
  std::string WordsOfOpening() const {
    try {
      OpenDatabase(Path(), clock);
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Kind(), DatabaseErrorKind::Unreachable);
      return error.Words();
    }
    return {};
  }
  template <class Action>
  static std::string WordsOfFailure(Action action) {
    try {
      action();
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Kind(), DatabaseErrorKind::Unreachable) << error.what();
      return error.Words();
    }
    return {};
  }
  void AsOwner(const std::string& statement) const { PlainConnection(server.Address("owner"), schema).Run(statement); }
  void EndAllConnections() const {
    AsOwner("select pg_terminate_backend(pid, 1000) from pg_stat_activity where usename = 'shop'");
  }
  std::string Count(const std::string& table = "SpecialDays") const {
    return PlainConnection(server.Address(), schema).Rows("select count(*) from " + table).front();
  }
  void AddDay(std::int64_t hours) { engine->Insert("SpecialDays", {"SpecialHours"}, {hours}); }
  // The server hangs up on whoever adds a day: at once, or at the end of the transaction.
  void HangUpOnADay(const std::string& when) const {
    PlainConnection(server.Address(), schema)
        .Run(
            "create or replace function HangUp() returns trigger language plpgsql as "
            "$$ begin perform pg_terminate_backend(pg_backend_pid()); return null; end $$; "
            "create constraint trigger Hanging after insert on SpecialDays " +
            when + " for each row execute function HangUp()");
  }
  void HangUpNoMore() const { AsOwner("drop trigger Hanging on SpecialDays"); }

  TestServer& server = TestServer::Instance();
  std::string schema;
  std::unique_ptr<PostgresEngine> engine;
};

TEST_F(Servers, AreFoundByTheFileInTheDatabasesPlace) {
  const std::unique_ptr<Engine> opened = OpenDatabase(Path(), clock);
  EXPECT_EQ(opened->Run("select * from StandardHours", {}).Long("MonHours"), 16);
  Put("Lantos.mdb", "\xEF\xBB\xBF" + BytesOf("Lantos.mdb"));
  EXPECT_EQ(WordsOfOpening(), "") << "with the mark that some editors put in front";
}

TEST_F(Servers, HaveOneShopASchema) {
  const std::string other = server.MakeSchema();
  PutFile(server.Address(), other);
  const std::unique_ptr<Engine> second = OpenDatabase(Path(), clock);
  MakeLantosTables(*second);
  second->Insert("SpecialDays", {"SpecialHours"}, {std::int64_t{1}});
  EXPECT_EQ(Count(), "0");
  EXPECT_EQ(second->Run("select * from SpecialDays", {}).Count(), 1U);
}

TEST_F(Servers, TakeASchemaOfAnyName) {
  for (const std::string name : {"North Shop", "M\xC3\xBCller's \"best\""}) {
    std::string quoted = name;
    for (std::size_t at = 0; (at = quoted.find('"', at)) != std::string::npos; at += 2) quoted.insert(at, 1, '"');
    PlainConnection(server.Address(), schema).Run("create schema \"" + quoted + "\"");
    PutFile(server.Address(), name);
    const std::unique_ptr<Engine> odd = OpenDatabase(Path(), clock);
    MakeLantosTables(*odd);
    for (const std::int64_t hours : {7, 3}) odd->Insert("SpecialDays", {"SpecialHours"}, {hours});
    odd->UpdateFirst("SpecialDays", {"SpecialDesc"}, {"first"s}, {"SpecialDate", DateValue{1}});
    EXPECT_EQ(odd->Run("select * from SpecialDays", {}).Long("SpecialHours"), 7);
  }
}

TEST_F(Servers, ThatCantBeReachedAreNamedWithWhatCanBeDone) {
  PutFile("postgresql://127.0.0.1:1/test", schema);
  EXPECT_THAT(WordsOfOpening(), AllOf(HasSubstr("127.0.0.1:1"), HasSubstr("can't be reached"), HasSubstr("Lantos.mdb"),
                                      HasSubstr("whether the server runs")));
}

TEST_F(Servers, ThatRefuseTheLoginAreToldSo) {
  PutFile(server.Address("stranger"), schema);
  EXPECT_THAT(WordsOfOpening(), AllOf(HasSubstr("refused the login"), HasSubstr("password file")));
  PutFile(server.Address("clerk"), schema);
  ::unsetenv("PGPASSWORD");
  EXPECT_THAT(WordsOfOpening(), HasSubstr("refused the login"));
  ::setenv("PGPASSWORD", "wrong", 1);
  EXPECT_THAT(WordsOfOpening(), HasSubstr("refused the login"));
  ::setenv("PGPASSWORD", "secret", 1);
  EXPECT_EQ(WordsOfOpening(), "");
  ::unsetenv("PGPASSWORD");
}

TEST_F(Servers, WithoutTheDatabaseOrTheSchemaSayWhichLineIsWrong) {
  PutFile(server.Address("shop", "nowhere"), schema);
  EXPECT_THAT(WordsOfOpening(), AllOf(HasSubstr("\"nowhere\""), HasSubstr("\"server\""), HasSubstr("Lantos.mdb")));
  PutFile(server.Address(), "elsewhere");
  EXPECT_THAT(WordsOfOpening(), AllOf(HasSubstr("\"elsewhere\""), HasSubstr("\"schema\""), HasSubstr("Lantos.mdb")));
  AsOwner("create schema locked_away");
  PutFile(server.Address(), "locked_away");
  EXPECT_THAT(WordsOfOpening(), AllOf(HasSubstr("\"locked_away\""), HasSubstr("doesn't let this login")));
  AsOwner("drop schema locked_away");
}

TEST_F(Servers, ThatCantHoldEveryTextAreRefused) {
  AsOwner("create database latin encoding latin1 template template0 lc_collate 'C' lc_ctype 'C'");
  PutFile(server.Address("owner", "latin"), "public");
  EXPECT_THAT(WordsOfOpening(), AllOf(HasSubstr("LATIN1"), HasSubstr("UTF8")));
}

TEST_F(Servers, WithoutAConnectionLeftSaySo) {
  AsOwner("alter role shop connection limit 0");
  EXPECT_THAT(WordsOfOpening(), HasSubstr("as many connections as it takes"));
  AsOwner("alter role shop connection limit -1");
}

TEST_F(Servers, AreAskedAgainOnANewConnectionWhenTheOldOneIsGone) {
  AddDay(1);
  EndAllConnections();
  AddDay(2);
  EndAllConnections();
  engine->Together([&] { AddDay(3); });
  EndAllConnections();
  EXPECT_EQ(engine->Run("select * from SpecialDays", {}).Count(), 3U);
}

TEST_F(Servers, StoppedAndStartedServeTheNextCommand) {
  AddDay(1);
  server.Stop();
  const std::string words = WordsOfFailure([&] { AddDay(2); });
  server.Start();
  EXPECT_THAT(words, AllOf(HasSubstr("can't be reached"), HasSubstr("Nothing was stored")));
  EXPECT_EQ(Count(), "1");
  AddDay(2);
  EXPECT_EQ(Count(), "2");
}

TEST_F(Servers, AConnectionLostWithinATransactionTakesAllOfItAlong) {
  std::string first;
  std::string second;
  const std::string whole = WordsOfFailure([&] {
    engine->Together([&] {
      AddDay(1);
      EndAllConnections();
      first = WordsOfFailure([&] { AddDay(2); });
      second = WordsOfFailure([&] { AddDay(3); });
    });
  });
  EXPECT_THAT(first, AllOf(HasSubstr("was lost"), HasSubstr("Nothing of what was being done was stored"),
                           HasSubstr("The next command connects again")));
  EXPECT_EQ(second, first) << "nothing goes to a new connection";
  EXPECT_EQ(whole, first) << "whatever the work makes of it";
  EXPECT_EQ(Count(), "0");
  engine->Together([&] { AddDay(4); });
  EXPECT_EQ(Count(), "1");
}

TEST_F(Servers, AConnectionLostWithAChangeOnItsWayLeavesItOpenWhetherItIsStored) {
  HangUpOnADay("");
  EXPECT_THAT(WordsOfFailure([&] { AddDay(1); }), AllOf(HasSubstr("was lost"), HasSubstr("isn't known")));
  HangUpNoMore();
  EXPECT_EQ(Count(), "0");
  AddDay(1);
  HangUpOnADay("deferrable initially deferred");
  EXPECT_THAT(WordsOfFailure([&] { engine->Together([&] { AddDay(2); }); }), HasSubstr("isn't known"));
  HangUpNoMore();
  EXPECT_EQ(Count(), "1");
}

TEST_F(Servers, AConnectionLostInReadingIsSaidToHaveStoredNothing) {
  EXPECT_THAT(WordsOfFailure([&] { engine->Run("select pg_terminate_backend(pg_backend_pid())", {}); }),
              HasSubstr("Nothing of what was being done was stored"));
  EXPECT_EQ(engine->Run("select * from SpecialDays", {}).Count(), 0U);
}

TEST_F(Servers, ADatabaseThatMayOnlyBeReadSaysSo) {
  PutFile(server.Address() + "&options=-cdefault_transaction_read_only%3Don", schema);
  const std::unique_ptr<Engine> reading = OpenDatabase(Path(), clock);
  try {
    reading->Insert("SpecialDays", {"SpecialHours"}, {std::int64_t{1}});
    ADD_FAILURE() << "not refused";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Kind(), DatabaseErrorKind::ReadOnly);
  }
}

TEST_F(Servers, ATextThatNoServerCanHoldIsRefusedWhole) {
  EXPECT_THAT(ErrorOf([&] { engine->Insert("SpecialDays", {"SpecialDesc"}, {"a\0b"s}); }),
              HasSubstr("can't be stored"));
  EXPECT_EQ(Count(), "0");
}

TEST_F(Servers, AreAskedOnceForAStatementAndThriceForAReadAndAChangeTogether) {
  const auto tripsOf = [this](const std::function<void()>& work) {
    const std::size_t before = engine->RoundTrips();
    work();
    return engine->RoundTrips() - before;
  };
  engine->Run("select * from SpecialDays", {});  // asks for the keys too
  EXPECT_EQ(tripsOf([&] { AddDay(1); }), 1U);
  EXPECT_EQ(tripsOf([&] { engine->Run("select * from SpecialDays", {}); }), 1U);
  EXPECT_EQ(tripsOf([&] {
              engine->Together([&] {
                engine->Run("select * from SpecialDays", {});
                AddDay(2);
              });
            }),
            3U);
  EXPECT_EQ(tripsOf([&] { engine->Together([] {}); }), 0U);
  EXPECT_EQ(tripsOf([&] {
              engine->Together([&] {
                engine->Run("select * from SpecialDays", {});
                engine->Post("insert into SpecialDays (SpecialHours) values (?)", {std::int64_t{3}});
              });
            }),
            2U)
      << "the change goes with the commit";
  const Question days{"select * from SpecialDays where SpecialHours = ?", {std::int64_t{3}}};
  EXPECT_EQ(tripsOf([&] {
              engine->ReadAhead({days, {"select * from Estimates", {}}}, [&] {
                engine->ReadAhead({days}, [&] {
                  EXPECT_EQ(engine->Run(days.statement, days.values).Count(), 1U);
                  engine->Run("select * from Estimates", {});
                });
              });
            }),
            1U);
}

TEST_F(Servers, APostedChangeWhoseConnectionIsLostIsNotSaidToBeStored) {
  HangUpOnADay("");
  const auto post = [this] { engine->Post("insert into SpecialDays (SpecialHours) values (1)", {}); };
  EXPECT_THAT(WordsOfFailure([&] { engine->Together(post); }), HasSubstr("isn't known"));
  EXPECT_THAT(WordsOfFailure([&] {
                engine->Together([&] {
                  post();
                  engine->Run("select * from Estimates", {});
                });
              }),
              HasSubstr("Nothing of what was being done was stored"));
  HangUpNoMore();
  EXPECT_EQ(Count(), "0");
  engine->Together(post);
  EXPECT_EQ(Count(), "1");
  EndAllConnections();
  engine->Together(post);
  EXPECT_EQ(Count(), "2") << "nothing was on its way";
}

TEST_F(Servers, ReadingAheadGoesOnWithNewPlansAndANewConnection) {
  const Question labor{"select * from Labors where EstimateNumber = ?", {std::int64_t{5}}};
  const auto read = [&] {
    std::size_t count = 9;
    engine->ReadAhead({labor}, [&] { count = engine->Run(labor.statement, labor.values).Count(); });
    return count;
  };
  EXPECT_EQ(read(), 0U);
  engine->Run("deallocate all", {});
  EXPECT_EQ(read(), 0U);
  EndAllConnections();
  EXPECT_EQ(read(), 0U);
  server.Stop();
  EXPECT_THAT(WordsOfFailure(read), HasSubstr("can't be reached"));
  server.Start();
  EXPECT_EQ(read(), 0U);
}

TEST_F(Servers, PlansThatNoLongerHoldAreMadeAnew) {
  const auto hoursOf = [this](std::int64_t estimate) {
    return engine->Run("select * from Labors where EstimateNumber = ?", {estimate}).Count();
  };
  EXPECT_EQ(hoursOf(5), 0U);
  PlainConnection(server.Address(), schema)
      .Run(
          "alter table Labors add column Extra varchar; "
          "insert into Labors (EstimateNumber, LaborNumber) values (5, 1)");
  EXPECT_EQ(hoursOf(5), 1U);
  engine->ReadTogether([&] {
    EXPECT_EQ(hoursOf(5), 1U);
    engine->Run("select count(*) from Labors", {});
  });
  PlainConnection(server.Address(), schema).Run("alter table Labors drop column Extra");
  engine->Together([&] {
    AddDay(1);
    EXPECT_EQ(hoursOf(5), 1U);
  });
  EXPECT_EQ(Count(), "1");
  engine->Run("deallocate all", {});
  EXPECT_EQ(hoursOf(5), 1U);
}

TEST_F(Servers, AWeeksEstimatesAndTheirLinesAreAskedForInThreeRoundTrips) {
  constexpr DaySerial kSunday = 37892;
  std::vector<std::int32_t> numbers;
  for (std::int32_t i = 1; i <= 280; ++i) numbers.push_back(i);
  PlainConnection(server.Address(), schema)
      .Run(
          "insert into Estimates (EstimateNumber, SchedDate) select n, date '2003-09-28' + n % 7 from "
          "generate_series(1, 280) n; insert into Labors (EstimateNumber, LaborNumber, LaborHours) select n, l, n "
          "from generate_series(1, 280) n, generate_series(1, 3) l");
  Connect(database, environment);
  std::size_t trips = 0;
  std::int64_t hours = 0;
  db.SetOpener([&] { return std::make_unique<PostgresEngine>(ReadServerFile(Path()), clock); });
  auto& connection = dynamic_cast<PostgresEngine&>(db.Connection());
  connection.ReadTogether([&] {
    const std::size_t before = connection.RoundTrips();
    db.ForeseeDays(kSunday);
    std::size_t found = 0;
    for (DaySerial day = kSunday; day < kSunday + 7; ++day) found += db.GetEstimatesByDate(day).Count();
    EXPECT_EQ(found, 280U);
    EXPECT_EQ(db.GetStdHours().Long("FudgeFactor"), 10);
    db.ForeseeLines(numbers, numbers);
    for (const std::int32_t number : numbers) {
      hours += db.TotalsForEstimate(number).Long("TotalHours");
      EXPECT_EQ(db.LaborForEstimate(number).Count(), 3U);
    }
    trips = connection.RoundTrips() - before;
  });
  EXPECT_EQ(hours, 3 * 280 * 281 / 2);
  EXPECT_EQ(trips, 2U) << "and one for the end";
}

TEST_F(Servers, WhatWasAskedForAheadIsOfItsTransactionAlone) {
  engine->ReadTogether([&] { engine->Foresee({{"select * from SpecialDays", {}}}); });
  AddDay(1);
  EXPECT_EQ(engine->Run("select * from SpecialDays", {}).Count(), 1U);
  engine->Together([&] {
    engine->Foresee({{"select * from SpecialDays", {}}, {"select * from Nowhere", {}}});
    AddDay(2);
    EXPECT_EQ(engine->Run("select * from SpecialDays", {}).Count(), 2U);
    EXPECT_THROW(engine->Run("select * from Nowhere", {}), DatabaseError);
  });
  EXPECT_EQ(Count(), "2");
  engine->Together([&] {
    EXPECT_THROW(engine->Apart([&] {
      AddDay(3);
      engine->Foresee({{"select * from SpecialDays", {}}});
      throw std::runtime_error("given up");
    }),
                 std::runtime_error);
    EXPECT_EQ(engine->Run("select * from SpecialDays", {}).Count(), 2U) << "nor of a part that is undone";
  });
}

}  // namespace
}  // namespace lantos::test
