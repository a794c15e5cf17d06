#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <libpq-fe.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/BoardBench.h"
#include "bench/FarServer.h"
#include "estimatedb/EstimateMove.h"
#include "frame/Dates.h"
#include "frame/PathText.h"
#include "support/TestServer.h"

// LoadWeek on 7 days of 40 estimates with 5 labor lines each, which lie on a database server, the labor of the day
// shown; plain is the statements that the board has for its days and its estimates, in two pipelines, made bare, with
// every column of every row looked at. The same once more with a server that lies a millisecond away, there and back,
// and against the eleven statements that the board has the server asked instead.
namespace lantos::bench {

namespace {

using test::TestServer;

constexpr int kDayLines = 40 * 8;  // main, status, five labor lines and the blank one
constexpr int kLaborLines = 40 * 5;
constexpr const char* kSchema = "busyweek";
constexpr std::chrono::milliseconds kFar{1};

// The busy week, its estimates moved to the server.
const std::filesystem::path& ServerShop() {
  static const std::filesystem::path shop = [] {
    const std::filesystem::path copy = BusyWeekShop().parent_path() / "server";
    std::filesystem::copy(BusyWeekShop(), copy, std::filesystem::copy_options::recursive);
    SystemClock clock;
    FileIO files(clock);
    files.SetDataDir(TextOfPath(copy) + "/");
    MoveToServer(files, TestServer::Instance().Address(), kSchema, [](const MoveProgress&) {});
    return copy;
  }();
  return shop;
}

FarServer& Far() {
  static FarServer server(BusyWeekShop().parent_path() / "far", TestServer::Instance().Directory(), kFar);
  return server;
}

std::string FarAddress() {
  Far();
  return "postgresql://shop@/test?host=" + TextOfPath(BusyWeekShop().parent_path() / "far");
}

// The same shop, whose file names the server's far socket.
const std::filesystem::path& FarShop() {
  static const std::filesystem::path shop = [] {
    const std::filesystem::path copy = BusyWeekShop().parent_path() / "farshop";
    std::filesystem::copy(ServerShop(), copy, std::filesystem::copy_options::recursive);
    std::ofstream(copy / "Lantos.mdb") << "Lantos database server\nserver = " << FarAddress()
                                       << "\nschema = " << kSchema << "\n";
    return copy;
  }();
  return shop;
}

void LoadWeekOf(benchmark::State& state, const std::filesystem::path& shop) {
  Board board(shop);
  for (auto _ : state) board.window->LoadWeek(kBenchDay);
  if (board.window->day.List2.ListCount() != kDayLines) state.SkipWithError("lines of the day are missing");
}

// One connection in pipelines, with nothing else around it.
class BarePipelines {
 public:
  explicit BarePipelines(const std::string& address) : connection_(PQconnectdb(address.c_str()), &PQfinish) {
    if (PQstatus(connection_.get()) != CONNECTION_OK) throw std::runtime_error(PQerrorMessage(connection_.get()));
    PQclear(PQexec(connection_.get(), (std::string("SET search_path TO ") + kSchema).c_str()));
    PQenterPipelineMode(connection_.get());
  }
  void Prepare(const char* name, const char* text) {
    PQsendPrepare(connection_.get(), name, text, 1, nullptr);
    Take([](PGresult*) {});
  }
  void Add(const char* text) { PQsendQueryParams(connection_.get(), text, 0, nullptr, nullptr, nullptr, nullptr, 0); }
  void Add(const char* name, const std::string& value) {
    const char* const values[] = {value.c_str()};
    PQsendQueryPrepared(connection_.get(), name, 1, values, nullptr, nullptr, 0);
  }
  // Sends what was added and hands each answer over.
  template <class Look>
  void Take(Look look) {
    PQpipelineSync(connection_.get());
    for (bool isThrough = false; !isThrough;) {
      PGresult* const result = PQgetResult(connection_.get());
      if (result == nullptr) continue;
      const ExecStatusType status = PQresultStatus(result);
      if (status == PGRES_FATAL_ERROR) throw std::runtime_error(PQresultErrorMessage(result));
      isThrough = status == PGRES_PIPELINE_SYNC;
      if (status == PGRES_TUPLES_OK) look(result);
      PQclear(result);
    }
  }

 private:
  std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
};

void LookAtEach(const PGresult* result) {
  for (int row = 0; row < PQntuples(result); ++row) {
    for (int column = 0; column < PQnfields(result); ++column) {
      benchmark::DoNotOptimize(*PQgetvalue(result, row, column));
    }
  }
}

void RunPipelines(benchmark::State& state, const std::string& address) {
  BarePipelines server(address);
  server.Prepare("special", "select * from SpecialDays where SpecialDate = $1::date");
  server.Prepare("estimates", "SELECT Estimates.* FROM Estimates WHERE (SchedDate = $1::date) ORDER BY estimatenumber");
  server.Prepare("totals",
                 "SELECT SUM(LaborHours) AS TotalHours, SUM(LaborTotal) AS TotalLabor FROM Labors WHERE "
                 "EstimateNumber = $1::integer");
  server.Prepare("labor", "select * from Labors where EstimateNumber = $1::integer ORDER BY LaborNumber NULLS FIRST");
  const DaySerial sunday = kBenchDay - WeekdayIndex(kBenchDay);
  const std::string today = FormatIsoDate(kBenchDay);
  int laborLines = 0;
  for (auto _ : state) {
    std::vector<std::string> all, ofToday;
    server.Add("BEGIN ISOLATION LEVEL REPEATABLE READ");
    server.Add("SAVEPOINT each");
    server.Add("select * from StandardHours where RecNum = 1 order by recnum");
    for (DaySerial day = sunday; day < sunday + 7; ++day) {
      server.Add("special", FormatIsoDate(day));
      server.Add("estimates", FormatIsoDate(day));
    }
    server.Add("RELEASE SAVEPOINT each");
    server.Take([&](PGresult* result) {
      LookAtEach(result);
      const int number = PQfnumber(result, "estimatenumber");
      const int date = PQfnumber(result, "scheddate");
      for (int row = 0; number >= 0 && row < PQntuples(result); ++row) {
        all.emplace_back(PQgetvalue(result, row, number));
        if (PQgetvalue(result, row, date) == today) ofToday.push_back(all.back());
      }
    });
    server.Add("SAVEPOINT each");
    for (const std::string& number : all) server.Add("totals", number);
    for (const std::string& number : ofToday) server.Add("labor", number);
    server.Add("RELEASE SAVEPOINT each");
    laborLines = 0;
    server.Take([&](PGresult* result) {
      LookAtEach(result);
      if (PQfnumber(result, "labornumber") >= 0) laborLines += PQntuples(result);
    });
    server.Add("COMMIT");
    server.Take([](PGresult*) {});
  }
  if (laborLines != kLaborLines) state.SkipWithError("labor lines are missing");
}

// As a board asks a server, which gives the same rows: the days at once, totals and labor of them in one statement
// each.
void RunEleven(benchmark::State& state, const std::string& address) {
  constexpr const char* kWeek = "FROM Estimates WHERE SchedDate >= $1::date AND SchedDate < $1::date + 7";
  BarePipelines server(address);
  server.Prepare("special", "select * from SpecialDays where SpecialDate = $1::date");
  server.Prepare("estimates", fmt::format("SELECT Estimates.* {} ORDER BY estimatenumber", kWeek).c_str());
  server.Prepare("totals",
                 fmt::format("SELECT EstimateNumber, SUM(LaborHours) AS TotalHours, SUM(LaborTotal) AS TotalLabor "
                             "FROM Labors WHERE EstimateNumber IN (SELECT EstimateNumber {}) GROUP BY EstimateNumber",
                             kWeek)
                     .c_str());
  server.Prepare("labor",
                 "select * from Labors where EstimateNumber IN (SELECT EstimateNumber FROM Estimates WHERE SchedDate = "
                 "$1::date) ORDER BY LaborNumber NULLS FIRST");
  const DaySerial sunday = kBenchDay - WeekdayIndex(kBenchDay);
  int laborLines = 0;
  for (auto _ : state) {
    server.Add("BEGIN ISOLATION LEVEL REPEATABLE READ");
    server.Add("SAVEPOINT each");
    server.Add("select * from StandardHours where RecNum = 1 order by recnum");
    server.Add("estimates", FormatIsoDate(sunday));
    server.Add("totals", FormatIsoDate(sunday));
    for (DaySerial day = sunday; day < sunday + 7; ++day) server.Add("special", FormatIsoDate(day));
    server.Add("labor", FormatIsoDate(kBenchDay));
    server.Add("RELEASE SAVEPOINT each");
    laborLines = 0;
    server.Take([&](PGresult* result) {
      LookAtEach(result);
      if (PQfnumber(result, "labornumber") >= 0) laborLines += PQntuples(result);
    });
    server.Add("COMMIT");
    server.Take([](PGresult*) {});
  }
  if (laborLines != kLaborLines) state.SkipWithError("labor lines are missing");
}

void LoadWeek(benchmark::State& state) { LoadWeekOf(state, ServerShop()); }
void RunStatements(benchmark::State& state) {
  ServerShop();
  RunPipelines(state, TestServer::Instance().Address());
}
void RunElevenStatements(benchmark::State& state) {
  ServerShop();
  RunEleven(state, TestServer::Instance().Address());
}
void LoadFarWeek(benchmark::State& state) { LoadWeekOf(state, FarShop()); }
void RunFarStatements(benchmark::State& state) {
  ServerShop();
  RunPipelines(state, FarAddress());
}

BENCHMARK(LoadWeek)->Name("LoadServerWeek")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(RunStatements)->Name("LoadServerWeek/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(LoadWeek)->Name("ServerWeekAtOnce")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(RunElevenStatements)->Name("ServerWeekAtOnce/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(LoadFarWeek)->Name("LoadFarWeek")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(RunFarStatements)->Name("LoadFarWeek/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
