#include <benchmark/benchmark.h>

#include <array>
#include <vector>

#include "bench/BenchShop.h"
#include "bench/Ratios.h"
#include "masters/CustomerSearch.h"

// The customer search by name over all tags of the largest shop; plain is one pass over the bytes of the same tags
// that looks for the same letters in either case.
namespace lantos::bench {

namespace {

constexpr std::string_view kName = "Tanaka";

std::size_t CountCaseless(std::string_view bytes, std::string_view needle) {
  std::array<unsigned char, 256> fold;
  for (std::size_t i = 0; i < fold.size(); ++i) {
    fold[i] = static_cast<unsigned char>(ToUpper(static_cast<char>(static_cast<unsigned char>(i))));
  }
  const auto at = [&](std::string_view text, std::size_t i) { return fold[static_cast<unsigned char>(text[i])]; };
  const unsigned char first = at(needle, 0);
  std::size_t found = 0;
  for (std::size_t i = 0; i + needle.size() <= bytes.size(); ++i) {
    if (at(bytes, i) != first) continue;
    std::size_t same = 1;
    while (same < needle.size() && at(bytes, i + same) == at(needle, same)) ++same;
    found += same == needle.size();
  }
  return found;
}

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
