#include "caretaker/check/RunLogs.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "frame/Dates.h"
#include "frame/GuardedOpen.h"
#include "frame/LogOwner.h"
#include "frame/PathText.h"
#include "frame/RunLog.h"
#include "frame/Text.h"
#include "frame/WorkingCopies.h"

namespace lantos {

namespace {

constexpr std::size_t kStampLength = 19;  // "09/30/2003 08:15:00"

// The writer's claim says that nobody else may open it as a shared file. Whoever only looks at what is there already
// takes none.
std::string BytesOf(const std::filesystem::path& path) {
  const int descriptor = OpenExistingFile(path, O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) {
    const int reason = errno;
    RefuseUnfit(reason, path);
    ThrowFileError(reason, fmt::format("reading \"{}\"", TextOfPath(path)));
  }
  std::string bytes;
  std::array<char, 65536> block{};
  ssize_t length = 0;
  while ((length = ::read(descriptor, block.data(), block.size())) > 0) {
    bytes.append(block.data(), static_cast<std::size_t>(length));
  }
  const int reason = length < 0 ? errno : 0;
  ::close(descriptor);
  if (reason != 0) ThrowFileError(reason, fmt::format("reading \"{}\"", TextOfPath(path)));
  return bytes;
}

bool IsStamped(std::string_view line, std::string_view day) {
  return line.size() >= kStampLength && line.starts_with(day) && line[day.size()] == ' ';
}

// Lines of another day than the log's name says are last year's: then there are none.
std::vector<LogLine> LinesOf(const std::string& bytes, const std::string& day) {
  std::vector<LogLine> lines;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = bytes.find("\r\n", begin)) != std::string::npos; begin = end + 2) {
    const std::string line = bytes.substr(begin, end - begin);
    if (IsStamped(line, day)) {
      const std::string text = line.size() > kStampLength ? line.substr(kStampLength + 1) : "";
      lines.push_back({line.substr(day.size() + 1, kStampLength - day.size() - 1), TextOfPlatform(text)});
    } else if (!lines.empty()) {
      lines.back().text += "\n" + TextOfPlatform(line);
    }
  }
  return lines;
}

}  // namespace

std::vector<ToldRun> RunsOf(const FileIO& files, DaySerial day) {
  std::vector<ToldRun> runs;
  for (const std::string& name : files.List("LN" + DayMark(day) + "???.LOG")) {
    ToldRun run;
    run.log = name;
    run.lines = LinesOf(BytesOf(files.PathOf(name)), FormatDate(day));
    if (run.lines.empty()) continue;
    run.isAtWork = IsLogInUse(files, name);
    const LogOwner owner = OwnerOfLog(files.PathOf(name));
    run.workstation = owner.workstation;
    run.user = owner.user;
    runs.push_back(std::move(run));
  }
  std::stable_sort(runs.begin(), runs.end(),
                   [](const ToldRun& a, const ToldRun& b) { return a.lines.front().at < b.lines.front().at; });
  return runs;
}

}  // namespace lantos
