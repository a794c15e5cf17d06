#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

#include "bench/BenchShop.h"
#include "bench/Ratios.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "records/modSystem.h"

// Loading the tables that are held for a run. Each loads into memory of its own, as at the start of a run; plain is
// reading the same bytes with the same calls into memory of its own too.
namespace lantos::bench {

namespace {

constexpr std::size_t kTagBlock = 176 * CustomerTag::kLength;

// Reads a file from start to end, and returns how much that was.
std::size_t ReadWhole(const std::filesystem::path& path, std::size_t length, std::size_t block) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return 0;
  const std::unique_ptr<std::byte[]> memory(new std::byte[length]);
  std::size_t done = 0;
  for (ssize_t got = 1; got > 0 && done < length; done += static_cast<std::size_t>(got)) {
    got = std::max<ssize_t>(0,
                            pread(file, memory.get() + done, std::min(block, length - done), static_cast<off_t>(done)));
  }
  close(file);
  benchmark::DoNotOptimize(memory.get());
  benchmark::ClobberMemory();
  return done;
}

void ReadPlain(benchmark::State& state, std::string_view name, std::size_t block) {
  const std::filesystem::path path = LargestShop() / std::string(name);
  const auto length = static_cast<std::size_t>(std::filesystem::file_size(path));
  for (auto _ : state) {
    if (ReadWhole(path, length, block) != length) state.SkipWithError("the file was not read");
  }
}

void LoadCustomerTags(benchmark::State& state) {
  World world(LargestShop());
  for (auto _ : state) {
    Customers customers(world.environment, world.desktop, world.records.system, world.records.vehicles);
    customers.LoadCustomerTags();
    if (customers.Count() != 32767) state.SkipWithError("tags are missing");
  }
}

void LoadVehicles(benchmark::State& state) {
  World world(LargestShop());
  for (auto _ : state) {
    Vehicles vehicles(world.environment, world.desktop, world.records.system);
    vehicles.LoadVehicles();
    if (vehicles.Count() != 50000) state.SkipWithError("vehicles are missing");
  }
}

void ReadTagBlocks(benchmark::State& state) { ReadPlain(state, kCustomerTagFile, kTagBlock); }
void ReadVehicleBytes(benchmark::State& state) {
  ReadPlain(state, kVehicleFile, std::numeric_limits<std::size_t>::max());  // in one go
}

BENCHMARK(LoadCustomerTags)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReadTagBlocks)->Name("LoadCustomerTags/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(LoadVehicles)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReadVehicleBytes)->Name("LoadVehicles/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
