#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <memory>
#include <string>
#include <vector>

#include "bench/BenchShop.h"
#include "bench/Ratios.h"
#include "board/frmMain.h"
#include "frame/Dates.h"

// LoadWeek on 7 days of 40 estimates with 5 labor lines each, the labor of the day shown; plain is the same statements
// in the same order on the engine alone, prepared once, with every column of every row looked at.
namespace lantos::bench {

namespace {

constexpr int kDayLines = 40 * 8;  // main, status, five labor lines and the blank one

struct Board {
  Board() : world(BusyWeekShop()), database(world.environment, world.records), masters(world.shop) {
    Connect(database, world.environment);
    StartAndStop steps;
    steps.processCommandLine = [] {};
    steps.initGlobals = [this] {
      world.records.system.ReadSystem(false);
      return world.environment.log.Open();
    };
    steps.deleteUpdateFileAndCloseLog = [] {};
    window = std::make_unique<frmMain>(world.shop, database, masters, std::move(steps));
    window->LoadForm();
  }

  World world;
  EstimateDatabase database;
  MasterScreens masters;
  std::unique_ptr<frmMain> window;
};

void LoadWeek(benchmark::State& state) {
  Board board;
  for (auto _ : state) board.window->LoadWeek(kBenchDay);
  if (board.window->List2.ListCount() != kDayLines) state.SkipWithError("lines of the day are missing");
}

class PlainEngine {
 public:
  explicit PlainEngine(const std::filesystem::path& path) {
    Check(sqlite3_open_v2(path.c_str(), &connection_, SQLITE_OPEN_READWRITE, nullptr));
  }
  ~PlainEngine() {
    for (sqlite3_stmt* statement : statements_) sqlite3_finalize(statement);
    sqlite3_close(connection_);
  }
  PlainEngine(const PlainEngine&) = delete;
  PlainEngine& operator=(const PlainEngine&) = delete;

  sqlite3_stmt* Prepare(const char* text) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(connection_, text, -1, &statement, nullptr));
    statements_.push_back(statement);
    return statement;
  }
  // The first column of every row; all columns are looked at.
  std::vector<std::int64_t> Run(sqlite3_stmt* statement) {
    std::vector<std::int64_t> keys;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      for (int column = 0; column < sqlite3_column_count(statement); ++column) LookAt(statement, column);
      keys.push_back(sqlite3_column_int64(statement, 0));
    }
    Check(sqlite3_reset(statement));
    return keys;
  }
  std::vector<std::int64_t> Run(sqlite3_stmt* statement, const std::string& text) {
    sqlite3_bind_text(statement, 1, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    return Run(statement);
  }
  std::vector<std::int64_t> Run(sqlite3_stmt* statement, std::int64_t number) {
    sqlite3_bind_int64(statement, 1, number);
    return Run(statement);
  }

 private:
  static void LookAt(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
      case SQLITE_INTEGER:
        benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
        break;
      case SQLITE_FLOAT:
        benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
        break;
      case SQLITE_TEXT:
        benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
        break;
      default:
        break;
    }
  }
  static void Check(int result) {
    if (result != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(result));
  }

  sqlite3* connection_ = nullptr;
  std::vector<sqlite3_stmt*> statements_;
};

void RunStatements(benchmark::State& state) {
  PlainEngine engine(BusyWeekShop() / "Lantos.mdb");
  sqlite3_stmt* hours = engine.Prepare("select * from StandardHours where RecNum = 1");
  sqlite3_stmt* special = engine.Prepare("select * from SpecialDays where SpecialDate = ?");
  sqlite3_stmt* estimates = engine.Prepare("SELECT Estimates.* FROM Estimates WHERE (SchedDate = ?)");
  sqlite3_stmt* totals = engine.Prepare(
      "SELECT SUM(LaborHours) AS TotalHours, SUM(LaborTotal) AS TotalLabor FROM Labors WHERE EstimateNumber = ?");
  sqlite3_stmt* labor = engine.Prepare("select * from Labors where EstimateNumber = ? order by LaborNumber");
  const DaySerial sunday = kBenchDay - WeekdayIndex(kBenchDay);
  std::size_t laborLines = 0;
  for (auto _ : state) {
    laborLines = 0;
    engine.Run(hours);
    for (DaySerial day = sunday; day < sunday + 7; ++day) engine.Run(special, FormatIsoDate(day));
    for (DaySerial day = sunday; day < sunday + 7; ++day) {
      for (const std::int64_t number : engine.Run(estimates, FormatIsoDate(day))) {
        engine.Run(totals, number);
        if (day == kBenchDay) laborLines += engine.Run(labor, number).size();
      }
    }
  }
  if (laborLines != 200) state.SkipWithError("labor lines are missing");
}

BENCHMARK(LoadWeek)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(RunStatements)->Name("LoadWeek/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
