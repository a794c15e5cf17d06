#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <memory>
#include <vector>

#include "bench/BenchShop.h"
#include "bench/Ratios.h"

// Loading the tables that are held for a run. Each loads into memory of its own, as at the start of a run; plain is
// reading the same bytes with the same calls into memory that was never touched either.
namespace lantos::bench {

namespace {

constexpr std::size_t kTagBlock = 176 * CustomerTag::kLength;

// Reads a file from start to end and returns its length, -1 when that failed.
std::int64_t ReadWhole(const std::filesystem::path& path, std::size_t block) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return -1;
  const auto length = static_cast<std::size_t>(std::filesystem::file_size(path));
  const std::unique_ptr<std::byte[]> memory(new std::byte[length + block]);
  std::size_t done = 0;
  for (ssize_t got = 1; got > 0 && done <= length; done += static_cast<std::size_t>(got)) {
    got = pread(file, memory.get() + done, block, static_cast<off_t>(done));
    if (got < 0) break;
  }
  close(file);
  benchmark::DoNotOptimize(memory.get());
  benchmark::ClobberMemory();
  return static_cast<std::int64_t>(done);
}

void ReadPlain(benchmark::State& state, std::string_view name, std::size_t block) {
  const std::filesystem::path path = LargestShop() / std::string(name);
  const auto length = static_cast<std::int64_t>(std::filesystem::file_size(path));
  for (auto _ : state) {
    if (ReadWhole(path, block == 0 ? static_cast<std::size_t>(length) : block) != length) {
      state.SkipWithError("the file was not read");
    }
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
void ReadVehicleBytes(benchmark::State& state) { ReadPlain(state, kVehicleFile, 0); }

BENCHMARK(LoadCustomerTags)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReadTagBlocks)->Name("LoadCustomerTags/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(LoadVehicles)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReadVehicleBytes)->Name("LoadVehicles/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
