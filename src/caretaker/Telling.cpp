#include "caretaker/Telling.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "frame/Text.h"

namespace lantos {

void AddJsonSwitch(CLI::App& command, Telling& telling) {
  command.add_flag_callback(
      "--json", [&telling] { telling = Telling::Json; }, "Tell it as JSON, for scripts");
}

void TellLine(std::string_view line) { fmt::print("{}\n", ToUtf8(line)); }

void TellJson(const nlohmann::ordered_json& value) {
  fmt::print("{}\n", value.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace));
}

ProgressBar::ProgressBar() : isWatched_(::isatty(STDERR_FILENO) == 1) {}

ProgressBar::~ProgressBar() {
  if (isShown_) fmt::print(stderr, "\r\033[K");
}

void ProgressBar::Show(std::string_view what, std::uint64_t done, std::uint64_t of) {
  stopping_.Look();
  if (!isWatched_) return;
  constexpr std::uint64_t kWidth = 30;
  const double share = of == 0 ? 1 : static_cast<double>(std::min(done, of)) / static_cast<double>(of);
  const auto filled = static_cast<std::size_t>(share * kWidth);
  fmt::print(stderr, "\r\033[K[{:<{}}] {:3.0f} %  {}", std::string(filled, '#'), kWidth, share * 100, ToUtf8(what));
  std::fflush(stderr);
  isShown_ = true;
}

}  // namespace lantos
