#include <benchmark/benchmark.h>

#include <vector>

#include "bench/BenchShop.h"
#include "bench/CountCaseless.h"
#include "bench/Ratios.h"
#include "masters/customers/CustomerSearch.h"
#include "records/Customers.h"

// The customer search by name over all tags of the largest shop; plain is one pass over the bytes of the same tags
// that looks for the same letters in either case.
namespace lantos::bench {

namespace {

constexpr std::string_view kName = "Tanaka";

void SearchByName(benchmark::State& state) {
  World world(LargestShop());
  world.records.customers.LoadCustomerTags();
  CustomerSearch search(world.shop, [](std::string_view) {});
  CustomerQuery query;
  query.NameKey = kName;
  for (auto _ : state) {
    const std::vector<std::size_t> hits = search.Find(query);
    if (hits.empty()) state.SkipWithError("nobody was found");
  }
}

void SearchBytes(benchmark::State& state) {
  World world(LargestShop());
  Customers& customers = world.records.customers;
  customers.LoadCustomerTags();
  std::string bytes;
  for (std::size_t i = 0; i < customers.Count(); ++i) {
    bytes.append(reinterpret_cast<const char*>(customers.Tag(i).Bytes().data()), CustomerTag::kLength);
  }
  for (auto _ : state) {
    if (CountCaseless(bytes, kName) == 0) state.SkipWithError("nobody was found");
  }
}

BENCHMARK(SearchByName)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(SearchBytes)->Name("SearchByName/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
