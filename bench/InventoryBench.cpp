#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "bench/BenchShop.h"
#include "bench/CountCaseless.h"
#include "bench/Ratios.h"
#include "masters/inventory/frmInvList.h"
#include "records/inventory/Inventory.h"

// The inventory list with 100,000 parts: its load in the background, the timer's pauses apart, and a keystroke in its
// search. Plain are the same blocks read, each through an open of its own and kept; and one pass over the texts of all
// parts for the same letters in either case.
namespace lantos::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kBlock = 16384;
constexpr int kParts = 100'000;
constexpr double kLongestTick = 8;  // milliseconds

double Milliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

void InventoryLoad(benchmark::State& state) {
  World world(PartsShop());
  world.environment.log.Open();
  double longest = 0;
  for (auto _ : state) {
    state.PauseTiming();
    world.records.inventory.SizeArrays();
    frmInvList list(world.shop);
    state.ResumeTiming();
    list.LoadForm();
    while (list.IsLoading()) {
      const Clock::time_point start = Clock::now();
      list.ReadTimer.DoTick();
      longest = std::max(longest, Milliseconds(Clock::now() - start));
    }
    state.PauseTiming();
    if (world.records.inventory.Count() != kParts) state.SkipWithError("parts are missing");
    list.Unload();
    state.ResumeTiming();
  }
  world.environment.log.Close();
  state.counters["longest_tick_ms"] = longest;
  if (longest > kLongestTick) state.SkipWithError("a tick took too long");
}

void ReadBlocks(benchmark::State& state) {
  World world(PartsShop());
  const std::filesystem::path path = PartsShop() / std::string(kInventoryTagFile);
  const std::size_t blocks = static_cast<std::size_t>(std::filesystem::file_size(path)) / kBlock + 1;
  for (auto _ : state) {
    std::vector<std::byte> all(blocks * kBlock);
    for (std::size_t block = 0; block < blocks; ++block) {
      const SharedFile file(path, Access::Read, Deny::None);
      file.ReadAt(block * kBlock, std::span(all).subspan(block * kBlock, kBlock));
    }
    benchmark::DoNotOptimize(all.data());
    benchmark::ClobberMemory();
  }
}

std::unique_ptr<frmInvList> LoadedList(World& world) {
  world.records.inventory.SizeArrays();
  auto list = std::make_unique<frmInvList>(world.shop);
  list->LoadForm();
  while (list->IsLoading()) list->ReadTimer.DoTick();
  list->cbAutoSearch.SetValue(true);
  list->SearchDesc.SetText("first");  // the order is made at the first look
  return list;
}

void InventorySearch(benchmark::State& state) {
  World world(PartsShop());
  const std::unique_ptr<frmInvList> list = LoadedList(world);
  std::string text = "alternator re";
  for (auto _ : state) {
    text.back() = text.back() == 'e' ? 'E' : 'e';
    list->SearchDesc.SetText(text);
    if (list->DataGrid1.RowCount() == 0) state.SkipWithError("nothing was found");
  }
}

void SearchTexts(benchmark::State& state) {
  World world(PartsShop());
  const std::unique_ptr<frmInvList> list = LoadedList(world);
  const Inventory& inventory = world.records.inventory;
  std::string texts;
  for (Inventory::PartIndex part = 0; part < inventory.Count(); ++part) {
    texts.append(inventory.Tag(part).View(inventorytag::Description)).push_back('\0');
  }
  for (auto _ : state) {
    if (CountCaseless(texts, "alternator re") == 0) state.SkipWithError("nothing was found");
  }
}

BENCHMARK(InventoryLoad)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReadBlocks)->Name("InventoryLoad/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(InventorySearch)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(SearchTexts)->Name("InventorySearch/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
