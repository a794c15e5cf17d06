#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/BenchShop.h"
#include "bench/Ratios.h"
#include "frame/SharingClaim.h"
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
constexpr int kReceived = 10'000;
constexpr int kParts = 100'000;
constexpr int kStep = 7919;          // from one changed part to the next: they lie all over the file
constexpr double kLongestStop = 50;  // milliseconds
constexpr off_t kLogLine = 64;
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

// The calls that an open which denies all takes at the least.
int OpenBare(const std::filesystem::path& path) {
  const int file = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
  if (file < 0) throw std::runtime_error("open");
  struct flock claim = {};
  claim.l_type = F_WRLCK;
  claim.l_whence = SEEK_SET;
  claim.l_start = static_cast<off_t>(kReadMark);
  claim.l_len = 1;
  if (::fcntl(file, F_OFD_SETLK, &claim) != 0) throw std::runtime_error("claim");
  return file;
}

void AppendBare(benchmark::State& state) {
  const test::ScratchDirectory place;
  const std::array<char, kChanges * InventoryTag::kLength> bytes{};
  const int log = ::open((place.Path() / "PLAIN.LOG").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  off_t logEnd = 0;
  for (auto _ : state) {
    state.PauseTiming();
    MakeUpdateFiles(place.Path());
    state.ResumeTiming();
    for (int copy = 1; copy <= kCopies; ++copy) {
      const int file = OpenBare(place.Path() / NameOf(copy));
      const off_t end = ::lseek(file, 0, SEEK_END);
      if (::pwrite(file, bytes.data(), bytes.size(), end) < 0) throw std::runtime_error("append");
      ::close(file);
      if (::pwrite(log, bytes.data(), kLogLine, logEnd) < 0) throw std::runtime_error("log");
      logEnd += kLogLine;
    }
  }
  ::close(log);
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

// 10,000 changes, of parts all over the file, as the file has them.
void PutMail(const std::vector<char>& tags) {
  std::ofstream mail(PartsShop() / kOwnFile, std::ios::binary | std::ios::trunc);
  for (int i = 0; i < kReceived; ++i) {
    const std::size_t part = static_cast<std::size_t>(i) * kStep % kParts;
    mail.write(tags.data() + part * InventoryTag::kLength, InventoryTag::kLength);
  }
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
  PutMail(BytesOfTags());
  const std::filesystem::path mail = PartsShop() / kOwnFile;
  const std::filesystem::path tags = PartsShop() / std::string(kInventoryTagFile);
  std::vector<InventoryTag> records(kReceived);
  for (auto _ : state) {
    const SharedFile received(mail, Access::Read, Deny::Write);
    const SharedFile file(tags, Access::Read, Deny::None);
    InventoryTag tag;
    for (int i = 0; i < kReceived; ++i) {
      received.ReadAt(static_cast<std::uint64_t>(i) * InventoryTag::kLength,
                      records[static_cast<std::size_t>(i)].Bytes());
      file.ReadAt(static_cast<std::uint64_t>(i) * kStep % kParts * InventoryTag::kLength, tag.Bytes());
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
