#include <fcntl.h>

#include <algorithm>
#include <chrono>

#include "Checks.h"
#include "Processes.h"

namespace lantos::sharing {

namespace {

constexpr int kOpens = 20'000;
constexpr int kRounds = 5;

// Microseconds for each, the best of some rounds.
template <class Open>
double Microseconds(Open open) {
  double best = 1e9;
  for (int round = 0; round < kRounds; ++round) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kOpens; ++i) open();
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
    best = std::min(best, taken.count() / kOpens);
  }
  return best;
}

}  // namespace

void PrintCost(const std::filesystem::path& directory) {
  const std::filesystem::path path = directory / "COST.DAT";
  SharedFile(path, Access::ReadWrite, Deny::All);
  const double plain = Microseconds([&] { ::close(::open(path.c_str(), O_RDWR | O_CLOEXEC)); });
  std::cout << "cost: plain open and close " << plain << " us";
  for (const Mode& mode : {kModes[0], kModes[1], kModes[3], kModes[8]}) {
    const double shared = Microseconds([&] { SharedFile(path, mode.access, mode.deny); });
    std::cout << ", " << mode.name << ' ' << shared << " us (" << shared / plain << " times)";
  }
  std::cout << '\n';
}

}  // namespace lantos::sharing
