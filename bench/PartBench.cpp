#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <string>
#include <vector>

#include "bench/BenchShop.h"
#include "bench/Ratios.h"
#include "records/inventory/Inventory.h"
#include "records/modSystem.h"

// The look-ups of parts by number in a list of 100,000; plain is the same in a list of 1,000. 500 numbers are known,
// spread over the list, and 500 aren't.
namespace lantos::bench {

namespace {

constexpr int kManyParts = 100'000;
constexpr int kFewParts = 1'000;
constexpr int kSought = 500;

std::string NumberOfPart(int part) { return fmt::format("PF-{:06}-A", part); }

void FillList(Inventory& inventory, int parts) {
  for (int part = 0; part < parts; ++part) {
    InventoryTag tag;
    tag.Put(inventorytag::StockNumber, NumberOfPart(part));
    tag.Put(inventorytag::Pricing[kRetail], 100 + part);
    inventory.AppendTag(tag);
  }
}

void LookUp(benchmark::State& state, int parts) {
  World world(StartShop());
  Inventory inventory(world.environment, world.desktop, world.records.system);
  FillList(inventory, parts);
  std::vector<std::string> numbers;
  for (int i = 0; i < kSought; ++i) {
    numbers.push_back(NumberOfPart(i * (parts / kSought)));
    numbers.push_back(NumberOfPart(kManyParts + i));
  }
  for (auto _ : state) {
    int found = 0;
    for (const std::string& number : numbers) found += inventory.PartPricing(number).index != Inventory::kNoPart;
    if (found != kSought) state.SkipWithError("parts are missing");
  }
}

void FindPart(benchmark::State& state) { LookUp(state, kManyParts); }
void FindPartAmongFew(benchmark::State& state) { LookUp(state, kFewParts); }

BENCHMARK(FindPart)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(FindPartAmongFew)->Name("FindPart/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
