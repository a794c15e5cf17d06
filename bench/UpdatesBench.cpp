#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include "bench/BenchShop.h"
#include "bench/PlainFiles.h"
#include "bench/Ratios.h"
#include "masters/inventory/frmInvList.h"
#include "records/inventory/OutgoingChanges.h"
#include "support/ScratchDirectory.h"

// How copies tell one another of changed parts. A round of 100 changes to 20 update files; plain is the same opens with
// the claim that each makes, appends, closes and lines of the run log, made bare. And 10,000 changes taken into a list
// of 100,000 parts whose places in the tag file aren't known yet; plain is a reading of them, and of the tag of each at
// its place under one open.
namespace lantos::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kChanges = 100;
constexpr int kCopies = 20;
constexpr std::size_t kReceived = 10'000;
constexpr std::uint64_t kParts = 100'000;
constexpr std::uint64_t kStep = 7919;  // from one changed part to the next: they lie all over the file
constexpr double kLongestStop = 50;    // milliseconds
constexpr const char* kOwnFile = "AU9300.$$$";

double Milliseconds(Clock::duration time) { return std::chrono::duration<double, std::milli>(time).count(); }

std::string NameOf(int copy) { return "AU930" + std::to_string(copy) + ".$$$"; }

void MakeUpdateFiles(const std::filesystem::path& directory) {
  for (int copy = 0; copy <= kCopies; ++copy) std::ofstream(directory / NameOf(copy), std::ios::trunc);
}

void SendChanges(benchmark::State& state) {
  const test::ScratchDirectory place;
  World world(place.Path());
  world.environment.log.Open();
  world.environment.updateFileName = kOwnFile;
  OutgoingChanges changes(world.environment, world.desktop);
  for (auto _ : state) {
    state.PauseTiming();
    MakeUpdateFiles(place.Path());
    state.ResumeTiming();
    for (int i = 0; i < kChanges; ++i) changes.AddAuditRecord({});
    world.clock.MoveOn(5000);
    changes.SendDue();
    state.PauseTiming();
    if (std::filesystem::file_size(place.Path() / NameOf(kCopies)) != kChanges * InventoryTag::kLength) {
      state.SkipWithError("changes are missing");
    }
    state.ResumeTiming();
  }
  world.environment.log.Close();
}

void AppendBare(benchmark::State& state) {
  const test::ScratchDirectory place;
  PlainFiles files(place.Path());
  for (auto _ : state) {
    state.PauseTiming();
    MakeUpdateFiles(place.Path());
    state.ResumeTiming();
    for (int copy = 1; copy <= kCopies; ++copy) {
      files.Write(NameOf(copy), PlainFiles::kAtTheEnd, kChanges * InventoryTag::kLength);
    }
  }
}

// As World, but its clock goes.
struct LiveWorld {
  explicit LiveWorld(const std::filesystem::path& shopDirectory)
      : settings(shopDirectory / "settings"), environment(clock, settings) {
    environment.files.SetDataDir(shopDirectory.string() + "\\");
  }
  SystemClock clock;
  UserSettings settings;
  Environment environment;
  QuietDesktop desktop;
  Records records{environment, desktop};
  ui::GlobalKeys keys{desktop};
  Shop shop{desktop, environment, records, keys};
};

std::vector<char> BytesOfTags() {
  std::ifstream in(PartsShop() / std::string(kInventoryTagFile), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// Offsets in the tag file of 10,000 parts from all over it. Deleted ones have no number, and are told of seldom.
std::vector<std::uint64_t> ChangedTags(const std::vector<char>& tags) {
  std::vector<std::uint64_t> offsets;
  for (std::uint64_t i = 0; offsets.size() < kReceived; ++i) {
    const std::uint64_t offset = i * kStep % kParts * InventoryTag::kLength;
    if (tags[offset] != 0) offsets.push_back(offset);
  }
  return offsets;
}

// What other copies have told of them: as the file has them.
void PutMail(const std::vector<char>& tags) {
  std::ofstream mail(PartsShop() / kOwnFile, std::ios::binary | std::ios::trunc);
  for (const std::uint64_t offset : ChangedTags(tags)) mail.write(tags.data() + offset, InventoryTag::kLength);
}

void TakeIn(benchmark::State& state) {
  LiveWorld world(PartsShop());
  world.environment.log.Open();
  world.environment.updateFileName = kOwnFile;
  const std::vector<char> tags = BytesOfTags();
  double longest = 0;
  for (auto _ : state) {
    state.PauseTiming();
    world.records.inventory.SizeArrays();
    frmInvList list(world.shop);
    list.LoadForm();
    list.Show();
    world.records.inventory.FinishLoading();
    list.cmdSearch.OnClick();  // in order, and looked at
    world.records.inventory.FindPart("X");
    PutMail(tags);
    state.ResumeTiming();
    do {
      const Clock::time_point start = Clock::now();
      list.UpdTimer.DoTick();
      if (list.DataGrid1.RowCount() > 0) list.DataGrid1.RowAt(0);
      longest = std::max(longest, Milliseconds(Clock::now() - start));
    } while (list.UpdTimer.Interval() == 1);
    state.PauseTiming();
    if (std::filesystem::file_size(PartsShop() / kOwnFile) != 0) state.SkipWithError("changes are left");
    list.Unload();
    state.ResumeTiming();
  }
  std::filesystem::remove(PartsShop() / kOwnFile);
  world.environment.log.Close();
  state.counters["longest_stop_ms"] = longest;
  if (longest > kLongestStop) state.SkipWithError("a stop took too long");
}

void ReadChangesAndTags(benchmark::State& state) {
  const std::vector<char> bytes = BytesOfTags();
  const std::vector<std::uint64_t> changed = ChangedTags(bytes);
  PutMail(bytes);
  const std::filesystem::path mail = PartsShop() / kOwnFile;
  const std::filesystem::path tags = PartsShop() / std::string(kInventoryTagFile);
  std::vector<InventoryTag> records(kReceived);
  for (auto _ : state) {
    const SharedFile received(mail, Access::Read, Deny::Write);
    const SharedFile file(tags, Access::Read, Deny::None);
    InventoryTag tag;
    for (std::size_t i = 0; i < records.size(); ++i) {
      received.ReadAt(i * InventoryTag::kLength, records[i].Bytes());
      file.ReadAt(changed[i], tag.Bytes());
    }
    benchmark::DoNotOptimize(records.data());
    benchmark::ClobberMemory();
  }
  std::filesystem::remove(mail);
}

BENCHMARK(SendChanges)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(AppendBare)->Name("SendChanges/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(TakeIn)->Name("TakeChangesIn")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(ReadChangesAndTags)->Name("TakeChangesIn/plain")->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

}  // namespace lantos::bench
