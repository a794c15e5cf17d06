#include "frame/JournalLines.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <span>

#include "frame/RunLog.h"

namespace lantos {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::uint64_t kMostBytes = 1 << 20;
constexpr int kNamesACopy = 100;
constexpr std::size_t kCheckDigits = 8;
constexpr int kLooks = 5;
constexpr std::int64_t kPause = 10;  // milliseconds

// FNV-1a: what was damaged is not taken for what is to be written.
std::string CheckOf(std::string_view text) {
  std::uint32_t hash = 2166136261u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
  return fmt::format("{:08x}", hash);
}

std::string NameOf(const Environment& environment, std::string_view prefix, int n) {
  const std::string& log = environment.log.Name();
  const std::string copy = log.size() > 6 ? log.substr(2, log.size() - 6) : DayMark(environment.Today()) + "000";
  return std::string(prefix) + copy + (n == 0 ? ".JNL" : fmt::format(".J{:02}", n));
}

}  // namespace

std::string MakeJournal(const Environment& environment, std::string_view prefix) {
  for (int n = 0; n < kNamesACopy; ++n) {
    std::string name = NameOf(environment, prefix, n);
    if (!environment.files.IsThere(name) && environment.files.MakeNew(name)) return name;
  }
  return {};
}

std::string FirstJournalOf(const Environment& environment, std::string_view prefix) {
  return NameOf(environment, prefix, 0);
}

void DeleteJournal(Environment& environment, const std::string& name, SharedFile& file) {
  const auto orLog = [&](const auto& step) {
    try {
      step();
    } catch (const FileError& error) {
      environment.log.Write(error.what());
    }
  };
  if (file.IsOpen()) {
    orLog([&] { file.Truncate(0); });
    orLog([&] { file.Close(); });
  }
  // Somebody may be looking at it just now.
  orLog([&] {
    for (int look = 0; look < kLooks && !environment.files.Delete(name); ++look) environment.clock.Wait(kPause);
  });
}

std::string JournalContent(const SharedFile& file) {
  std::string content(static_cast<std::size_t>(std::min(file.Length(), kMostBytes)), '\0');
  content.resize(file.ReadAt(0, std::as_writable_bytes(std::span(content))));
  const std::size_t end = content.rfind(kLineEnd);
  content.resize(end == std::string::npos ? 0 : end + kLineEnd.size());
  return content;
}

std::string JournalLine(std::string_view line) {
  return std::string(line) + ' ' + CheckOf(line) + std::string(kLineEnd);
}

std::optional<std::string_view> TakeJournalLine(std::string_view& content) {
  const std::size_t end = content.find(kLineEnd);
  if (end == std::string_view::npos || end < kCheckDigits + 1) return std::nullopt;
  const std::string_view line = content.substr(0, end - kCheckDigits - 1);
  if (content.substr(line.size(), kCheckDigits + 1) != ' ' + CheckOf(line)) return std::nullopt;
  content.remove_prefix(end + kLineEnd.size());
  return line;
}

std::string InOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    line += byte < ' ' || c == '%' ? fmt::format("%{:02x}", byte) : std::string(1, c);
  }
  return line;
}

std::string FromOneLine(std::string_view line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    unsigned byte = 0;
    const char* const digits = line.data() + i + 1;
    const bool isMark =
        line[i] == '%' && i + 2 < line.size() && std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    text += isMark ? static_cast<char>(byte) : line[i];
    if (isMark) i += 2;
  }
  return text;
}

std::string_view TakeWord(std::string_view& line) {
  const std::size_t end = std::min(line.find(' '), line.size());
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(std::min(end + 1, line.size()));
  return word;
}

}  // namespace lantos
