#include <benchmark/benchmark.h>

#include <string>

#include "bench/BenchShop.h"
#include "bench/PlainEngine.h"
#include "bench/Ratios.h"
#include "contents/labor/TechnicianHours.h"
#include "estimatedb/EstimateDatabase.h"
#include "estimatedb/LaborDays.h"
#include "support/ScratchDirectory.h"

// The hours of the technicians over ten years of estimates with 500,000 lines of labor, as their screen takes them up.
// Plain is the statement on the engine alone, from the same table.
namespace lantos::bench {

namespace {

// 64 estimates of three lines on each weekday, ten technicians.
constexpr const char* kFill =
    "BEGIN;"
    "WITH RECURSIVE each(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM each WHERE n < 166666) "
    "INSERT INTO Estimates (EstimateNumber, CustomerNumber, SchedDate, Status, VehYear, VehMake, VehModel, VehVIN) "
    "SELECT 1001 + n, 1 + n * 7919 % 30000, date('1993-10-01', '+' || (n / 64 / 5 * 7 + n / 64 % 5) || ' days'), "
    "CASE n % 20 WHEN 0 THEN 6 WHEN 1 THEN 7 WHEN 2 THEN 9 ELSE 4 END, '1998', 'FORD', 'TAURUS', '1FAFP52U5WG123456' "
    "FROM each;"
    "WITH RECURSIVE each(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM each WHERE n < 499999) "
    "INSERT INTO Labors (EstimateNumber, LaborNumber, Description, LaborHours, LaborRate, LaborTotal, Mechanic) "
    "SELECT 1001 + n / 3, 1 + n % 3, 'REPLACE FRONT BRAKE PADS' || char(9) || 'ROAD TEST', 10 + n * 31 % 290, 6500, "
    "9000, n * 7 / 3 % 10 FROM each;"
    "COMMIT;";

const std::filesystem::path& TenYears() {
  static const test::ScratchDirectory place;
  static const bool made = [] {
    StandingClock clock({kBenchDay, 0});
    const std::filesystem::path path = place.Path() / kLantosDatabase;
    CreateLantosDatabase(path, clock);
    sqlite3* database = nullptr;
    sqlite3_open(path.c_str(), &database);
    sqlite3_exec(database, kFill, nullptr, nullptr, nullptr);
    sqlite3_close(database);
    return true;
  }();
  (void)made;
  return place.Path();
}

// The first look makes the table; it isn't what is measured.
void MakeKeptHours() {
  World world(TenYears());
  EstimateDatabase database{world.environment, world.records};
  Connect(database, world.environment);
  KeptTechHours(database.lantosData);
}

void TechHours(benchmark::State& state) {
  MakeKeptHours();
  World world(TenYears());
  EstimateDatabase database{world.environment, world.records};
  Connect(database, world.environment);
  for (auto _ : state) {
    const TechnicianHours hours(database.lantosData);
    if (hours.On(kBenchDay - 1000).size() > 11) state.SkipWithError("too many technicians");
    benchmark::DoNotOptimize(hours.Of(4, kBenchDay));
  }
}

void TechHoursOnTheEngine(benchmark::State& state) {
  MakeKeptHours();
  PlainEngine engine(TenYears() / kLantosDatabase);
  sqlite3_stmt* statement =
      engine.Prepare(std::string(FindCommand(kLantosCommands, "KeptTechHours").statement).c_str());
  for (auto _ : state) {
    if (engine.Run(statement).empty()) state.SkipWithError("no hours");
  }
}

BENCHMARK(TechHours)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(TechHoursOnTheEngine)->Name("TechHours/plain")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
