#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "bench/BoardBench.h"
#include "bench/PlainEngine.h"
#include "bench/Ratios.h"
#include "contents/labor/frmLabor.h"

// A labor line added on a full day of 60 estimates: from the OK of the labor screen until list, totals, hours and
// colour stand. Plain is the same statements on the engine alone, prepared once; of a line that goes on the trail it is
// one that doesn't.
namespace lantos::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::int32_t kEstimate = 1001;
constexpr std::int32_t kNewLine = 6;

double Seconds(Clock::duration time) { return std::chrono::duration<double>(time).count(); }

void AddLaborLine(benchmark::State& state, Trailing trailing) {
  Board board(FullDayShop(), trailing);
  frmMain& window = *board.window;
  ui::ListBox& day = window.week.List1[static_cast<std::size_t>(2)];
  day.DoSelect(day.FindData(kEstimate));
  Clock::time_point start;
  board.world.desktop.atForm = [&start](ui::Form& form) {
    auto& labor = dynamic_cast<frmLabor&>(form);
    labor.Hours.SetText("1.5");
    labor.txtDesc.SetText("REPLACE FRONT BRAKE PADS\r\nROAD TEST");
    start = Clock::now();
    labor.OKButton.OnClick();
  };
  board.world.desktop.atBox = [](const ui::Box&) { return ui::Answer::Yes; };
  const std::string before = window.detail.txtTotalHours.Text();
  for (auto _ : state) {
    window.detail.cmdLaborAdd.OnClick();
    state.SetIterationTime(Seconds(Clock::now() - start));
    if (window.detail.txtTotalHours.Text() == before) state.SkipWithError("the totals don't follow");
    window.detail.cmdLaborRemove.OnClick();  // the line that was added is the selected one
  }
}

void RunStatements(benchmark::State& state) {
  PlainEngine engine(FullDayShop() / "Lantos.mdb");
  const std::string key = " where EstimateNumber = " + std::to_string(kEstimate);
  const std::string line = std::to_string(kNewLine);
  sqlite3_stmt* add = engine.Prepare(
      ("insert into Labors (EstimateNumber, LaborNumber, Description, LaborHours, LaborRate, LaborTotal, Mechanic) "
       "values (" +
       std::to_string(kEstimate) + ", " + line +
       ", 'REPLACE FRONT BRAKE PADS\tROAD TEST\t\t\t\t\t\t', 150, 8500, 12750, 0)")
          .c_str());
  sqlite3_stmt* sublets = engine.Prepare(("select * from Sublets" + key + " order by SubletNumber").c_str());
  sqlite3_stmt* waste = engine.Prepare(("select * from Waste" + key + " order by WasteNumber asc").c_str());
  sqlite3_stmt* remove = engine.Prepare(("delete from Labors" + key + " and LaborNumber = " + line).c_str());
  for (auto _ : state) {
    const Clock::time_point start = Clock::now();
    engine.Run(add);
    engine.Run(sublets);
    engine.Run(waste);
    state.SetIterationTime(Seconds(Clock::now() - start));
    engine.Run(remove);
  }
}

void WithTrail(benchmark::State& state) { AddLaborLine(state, Trailing::On); }
void WithoutTrail(benchmark::State& state) { AddLaborLine(state, Trailing::Off); }

BENCHMARK(WithoutTrail)->Name("AddLaborLine")->Unit(benchmark::kMicrosecond)->UseManualTime();
BENCHMARK(RunStatements)->Name("AddLaborLine/plain")->Unit(benchmark::kMicrosecond)->UseManualTime();
BENCHMARK(WithTrail)->Name("AddTrailedLine")->Unit(benchmark::kMicrosecond)->UseManualTime();
BENCHMARK(WithoutTrail)->Name("AddTrailedLine/plain")->Unit(benchmark::kMicrosecond)->UseManualTime();

}  // namespace

}  // namespace lantos::bench
