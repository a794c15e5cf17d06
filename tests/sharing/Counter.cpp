#include <sched.h>

#include <array>
#include <atomic>
#include <cstring>

#include "Checks.h"
#include "Processes.h"

namespace lantos::sharing {

namespace {

constexpr std::size_t kMost = 1'000'000;

struct Taken {
  std::array<std::atomic<unsigned char>, kMost> times = {};
  std::atomic<long> outside = 0;
  std::atomic<long> waits = 0;
};

std::uint32_t TakeNumber(const std::filesystem::path& path, std::atomic<long>& waits) {
  constexpr Mode kHold = {"RW/denyAll", Access::ReadWrite, Deny::All};
  SharedFile file;
  for (Opened opened = TryToOpen(path, kHold, file); opened != Opened::Yes; opened = TryToOpen(path, kHold, file)) {
    if (opened == Opened::Failed) throw std::runtime_error("the counter can't be opened");
    ++waits;
    ::sched_yield();
  }
  std::uint32_t number = 0;
  file.ReadAt(0, std::as_writable_bytes(std::span(&number, 1)));
  const std::uint32_t next = number + 1;
  file.WriteAt(0, std::as_bytes(std::span(&next, 1)));
  return number;
}

}  // namespace

bool CheckCounter(const std::filesystem::path& directory, int processes, int numbersEach) {
  Common<Taken> taken;
  const bool ended = RunProcesses(processes, [&](int) {
    for (int i = 0; i < numbersEach; ++i) {
      const std::uint32_t number = TakeNumber(directory / "COUNTER.DAT", taken->waits);
      if (number < kMost) {
        ++taken->times[number];
      } else {
        ++taken->outside;
      }
    }
  });
  int different = 0;
  for (const auto& times : taken->times) different += times != 0 ? 1 : 0;
  std::cout << "counter: " << different << " different numbers taken by " << processes << " processes, " << numbersEach
            << " each; " << taken->waits << " times it was held by another\n";
  return ended && taken->outside == 0 && different == processes * numbersEach;
}

}  // namespace lantos::sharing
