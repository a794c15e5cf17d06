#include <array>
#include <atomic>
#include <chrono>
#include <random>

#include "Checks.h"
#include "Processes.h"

namespace lantos::sharing {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr int kFiles = 12;
constexpr int kMostRounds = 6;
constexpr double kOpensASecond = 50'000;  // a million in twenty seconds
constexpr double kShareOfConflicts = 0.55;
constexpr int kDeleteOneIn = 40;

// Who has which file open, counted right behind the open and right before the close: of two opens that should have met
// at least one sees the other here.
struct Board {
  std::array<std::array<std::atomic<int>, kModes.size()>, kFiles> holders = {};
  std::atomic<long> opens = 0;
  std::atomic<long> refusals = 0;
  std::atomic<long> violations = 0;
  std::atomic<long> failures = 0;
  std::atomic<long> deletions = 0;
};

bool IsViolated(Board& board, std::size_t file, std::size_t mode) {
  for (std::size_t other = 0; other < kModes.size(); ++other) {
    const int mine = other == mode ? 1 : 0;
    if (Conflict(kModes[mode], kModes[other]) && board.holders[file][other] > mine) return true;
  }
  return false;
}

struct Racer {
  Board& board;
  const std::filesystem::path& directory;
  bool deletes;
  std::mt19937 random;
  long opens = 0;
  long refusals = 0;
  long deletions = 0;

  void OpenOnce(std::size_t mode) {
    const std::size_t file = random() % kFiles;
    const std::filesystem::path path = directory / ("RACE" + std::to_string(file) + ".DAT");
    SharedFile opened;
    switch (TryToOpen(path, kModes[mode], opened)) {
      case Opened::Refused:
        ++refusals;
        return;
      case Opened::Failed:
        ++board.failures;
        return;
      case Opened::Yes:
        ++opens;
    }
    ++board.holders[file][mode];
    if (IsViolated(board, file, mode)) ++board.violations;
    if (random() % 8 == 0) ::sched_yield();
    --board.holders[file][mode];
    // Whoever comes now makes the file anew, while others may still be about to claim the old one.
    if (deletes && kModes[mode].deny == Deny::All && random() % kDeleteOneIn == 0) {
      if (::unlink(path.c_str()) == 0) ++deletions;
    }
  }

  void Report() const {
    board.opens += opens;
    board.refusals += refusals;
    board.deletions += deletions;
  }
};

enum class Refusals { Expected, Forbidden };

struct Field {
  std::string_view name;
  double share;  // of the time
  Refusals refusals;
  std::size_t (*mode)(int process, unsigned random);  // place in kModes
};

constexpr std::array<Field, 4> kFields = {{
    {"all modes", kShareOfConflicts, Refusals::Expected, [](int, unsigned random) { return random % kModes.size(); }},
    {"sharing readers and writers", 0.15, Refusals::Forbidden, [](int, unsigned random) { return random % 3ul; }},
    {"readers that deny writing", 0.15, Refusals::Forbidden, [](int, unsigned random) { return random % 2 * 3ul; }},
    {"one writer that denies writing, readers", 0.15, Refusals::Forbidden,
     [](int process, unsigned random) { return process == 0 ? 4 + random % 2ul : 0ul; }},
}};

void RunField(const Field& field, const std::filesystem::path& directory, int processes, double seconds,
              RaceResult& result) {
  Common<Board> board;
  const bool ended = RunProcesses(processes, [&](int process) {
    Racer racer{*board, directory, field.refusals == Refusals::Expected, std::mt19937(std::random_device{}())};
    const auto end = SteadyClock::now() + std::chrono::duration<double>(seconds);
    while (SteadyClock::now() < end) racer.OpenOnce(field.mode(process, static_cast<unsigned>(racer.random())));
    racer.Report();
  });
  result.opens += board->opens;
  result.violations += board->violations;
  std::cout << "race, " << field.name << ": " << board->opens << " opens, " << board->refusals << " refusals, "
            << board->deletions << " deletions, " << board->violations << " violations, " << board->failures
            << " failures\n";
  const bool refusedRightly = (board->refusals == 0) == (field.refusals == Refusals::Forbidden);
  result.good = result.good && ended && refusedRightly && board->violations == 0 && board->failures == 0;
}

}  // namespace

RaceResult RunRace(const std::filesystem::path& directory, int processes, double seconds) {
  RaceResult result;
  for (const Field& field : kFields) RunField(field, directory, processes, seconds * field.share, result);
  return result;
}

// On a busy machine the race is run again until the opens are enough to say something.
bool CheckRace(const std::filesystem::path& directory, int processes, double seconds) {
  RaceResult all;
  int rounds = 0;
  while (rounds == 0 || (static_cast<double>(all.opens) < seconds * kOpensASecond && rounds < kMostRounds)) {
    const RaceResult result = RunRace(directory, processes, seconds);
    all.opens += result.opens;
    all.violations += result.violations;
    all.good = all.good && result.good;
    ++rounds;
  }
  std::cout << "race: " << all.opens << " opens by " << processes << " processes in " << rounds * seconds << " s, "
            << all.violations << " violations\n";
  return all.good && static_cast<double>(all.opens) >= seconds * kOpensASecond;
}

}  // namespace lantos::sharing
