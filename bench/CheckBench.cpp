#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "bench/BenchShop.h"
#include "caretaker/check/CheckShop.h"

// A check of a sound shop of 32,767 customers, 50,000 vehicles and 100,000 parts. It can't be faster than reading all
// of its files.
namespace lantos::bench {

namespace {

void CheckSound(benchmark::State& state) {
  World world(CheckedShop());
  for (auto _ : state) {
    ShopView shop(world.environment.files);
    if (!CheckShop(shop, Kinds()).empty()) state.SkipWithError("the shop isn't sound");
  }
}

std::uintmax_t ReadWhole(const std::filesystem::path& path) {
  const auto length = static_cast<std::size_t>(std::filesystem::file_size(path));
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const std::unique_ptr<std::byte[]> memory(new std::byte[length]);
  const ssize_t got = ::read(file, memory.get(), length);
  ::close(file);
  benchmark::DoNotOptimize(memory.get());
  benchmark::ClobberMemory();
  return got < 0 ? 0 : static_cast<std::uintmax_t>(got);
}

void ReadAllFiles(benchmark::State& state) {
  const std::filesystem::path directory = CheckedShop();
  for (auto _ : state) {
    std::uintmax_t bytes = 0;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) bytes += ReadWhole(entry.path());
    if (bytes == 0) state.SkipWithError("the files were not read");
  }
}

BENCHMARK(CheckSound)->Name("CheckShop")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ReadAllFiles)->Name("CheckShop/plain")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
