#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "bench/BenchShop.h"
#include "bench/Ratios.h"
#include "frame/Text.h"

// From the start of the process to the first board painted, off-screen; plain is an empty window with a calendar and
// seven lists. The resident memory is taken as soon as the tags of all parts are in memory, too.
namespace lantos::bench {

namespace {

// One start a repetition, and many of them: the two take turns as often as can be, since a machine that many share has
// faster and slower seconds.
constexpr int kStarts = 61;

struct Start {
  double seconds;
  double residentKilobytes;
};

// Off-screen, with settings and windows of its own, and without the off-screen platform's complaints about itself.
std::vector<std::string> EnvironmentOf(const std::filesystem::path& home) {
  std::vector<std::string> variables = {"QT_QPA_PLATFORM=offscreen", "QT_LOGGING_RULES=default.warning=false",
                                        "XDG_CONFIG_HOME=" + home.string(), "XDG_RUNTIME_DIR=" + home.string()};
  const std::size_t own = variables.size();
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string text = *variable;
    const std::string name = text.substr(0, text.find('=') + 1);
    const bool replaced = std::any_of(variables.begin(), variables.begin() + static_cast<std::ptrdiff_t>(own),
                                      [&](const std::string& set) { return set.starts_with(name); });
    if (!replaced) variables.push_back(text);
  }
  return variables;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// One line from the process, or what there is when it ends.
std::string ReadLine(int pipe) {
  std::string line;
  char c = 0;
  while (read(pipe, &c, 1) == 1 && c != '\n') line += c;
  return line;
}

std::optional<Start> StartOnce(const std::vector<std::string>& command, const std::filesystem::path& home) {
  std::vector<std::string> arguments = command, variables = EnvironmentOf(home);
  std::array<int, 2> pipe{};
  if (pipe2(pipe.data(), O_CLOEXEC) != 0) return {};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
  const auto begin = std::chrono::steady_clock::now();
  pid_t process = 0;
  const int failed = posix_spawn(&process, command[0].c_str(), &actions, nullptr, Pointers(arguments).data(),
                                 Pointers(variables).data());
  posix_spawn_file_actions_destroy(&actions);
  close(pipe[1]);
  const std::string painted = failed == 0 ? ReadLine(pipe[0]) : "";
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  const std::string resident = failed == 0 ? ReadLine(pipe[0]) : "";
  close(pipe[0]);
  if (failed == 0) waitpid(process, nullptr, 0);
  if (!painted.starts_with("painted ") || !resident.starts_with("resident ")) return {};
  return Start{took.count(), Val(resident.substr(9))};
}

// What a run that ended without being closed leaves behind.
void RemoveTraces(const std::filesystem::path& shop) {
  for (const auto& entry : std::filesystem::directory_iterator(shop)) {
    const std::string name = ToUpper(entry.path().filename().string());
    if (name.ends_with(".LOG") || name.ends_with(".$$$")) std::filesystem::remove(entry.path());
  }
}

void MeasureStarts(benchmark::State& state, const std::vector<std::string>& command) {
  const std::filesystem::path home = StartShop().parent_path() / "home";
  std::filesystem::create_directory(home);
  std::filesystem::permissions(home, std::filesystem::perms::owner_all);
  double resident = 0;
  std::int64_t starts = 0;
  for (auto _ : state) {
    RemoveTraces(StartShop());
    const std::optional<Start> start = StartOnce(command, home);
    if (!start) {
      state.SkipWithError("no window was painted");
      return;
    }
    state.SetIterationTime(start->seconds);
    resident += start->residentKilobytes;
    ++starts;
  }
  state.counters[kResidentCounter] = resident / static_cast<double>(std::max<std::int64_t>(starts, 1));
}

// Three times the tag files that the program holds in memory.
double AllowedKilobytes() {
  const auto bytes = [](std::string_view file) { return std::filesystem::file_size(StartShop() / std::string(file)); };
  return 3.0 * static_cast<double>(bytes(kCustomerTagFile) + bytes(kInventoryTagFile)) / 1024;
}

void StartToBoard(benchmark::State& state) {
  MeasureStarts(state, {LANTOS_BENCH_BOARD, "/D=" + StartShop().string()});
  state.counters[kAllowanceCounter] = AllowedKilobytes();
}

void StartEmptyWindow(benchmark::State& state) { MeasureStarts(state, {LANTOS_BENCH_EMPTY_WINDOW}); }

BENCHMARK(StartToBoard)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1)->Repetitions(kStarts);
BENCHMARK(StartEmptyWindow)
    ->Name("StartToBoard/plain")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(kStarts);

}  // namespace

}  // namespace lantos::bench
