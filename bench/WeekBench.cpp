#include <benchmark/benchmark.h>

#include <vector>

#include "bench/BoardBench.h"
#include "bench/PlainEngine.h"
#include "bench/Ratios.h"
#include "frame/Dates.h"

// LoadWeek on 7 days of 40 estimates with 5 labor lines each, the labor of the day shown; plain is the same statements
// in the same order on the engine alone, prepared once, with every column of every row looked at.
namespace lantos::bench {

namespace {

constexpr int kDayLines = 40 * 8;  // main, status, five labor lines and the blank one

void LoadWeek(benchmark::State& state) {
  Board board(BusyWeekShop());
  for (auto _ : state) board.window->LoadWeek(kBenchDay);
  if (board.window->day.List2.ListCount() != kDayLines) state.SkipWithError("lines of the day are missing");
}

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
