#include <signal.h>

#include <atomic>
#include <random>

#include "Checks.h"
#include "Processes.h"

namespace lantos::sharing {

namespace {

// Killed while it holds the file for certain.
void Hold(const std::filesystem::path& path, const Mode& mode, std::atomic<bool>& ready) {
  const SharedFile file(path, mode.access, mode.deny);
  ready = true;
  while (true) ::pause();
}

// Killed somewhere between open and close.
void OpenAndClose(const std::filesystem::path& path, std::atomic<bool>& ready) {
  for (std::size_t i = 0;; ++i) {
    SharedFile file;
    TryToOpen(path, kModes[i % kModes.size()], file);
    ready = true;
  }
}

}  // namespace

bool CheckKills(const std::filesystem::path& directory, int kills) {
  constexpr Mode kAlone = {"RW/denyAll", Access::ReadWrite, Deny::All};
  const std::filesystem::path path = directory / "KILLS.DAT";
  std::mt19937 random(20030930);
  int free = 0;
  int refusedBefore = 0;
  for (int i = 0; i < kills; ++i) {
    const bool holds = i % 2 == 0;
    const Mode& mode = kModes[static_cast<std::size_t>(i / 2) % kModes.size()];
    Common<std::atomic<bool>> ready;
    const pid_t child = Start([&] { holds ? Hold(path, mode, *ready) : OpenAndClose(path, *ready); });
    while (!*ready && ::waitpid(child, nullptr, WNOHANG) == 0) ::sched_yield();
    SharedFile file;
    if (holds) {
      refusedBefore += TryToOpen(path, kAlone, file) == Opened::Refused ? 1 : 0;
    } else {
      ::usleep(static_cast<useconds_t>(random() % 200));
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    free += TryToOpen(path, kAlone, file) == Opened::Yes ? 1 : 0;
  }
  std::cout << "kills: " << kills << " processes killed, " << (kills + 1) / 2 << " of them while they held the file ("
            << refusedBefore << " of these were in the way until then); the file was free again " << free << " times\n";
  return free == kills && refusedBefore == (kills + 1) / 2;
}

}  // namespace lantos::sharing
