#include "records/WriteAhead.h"

#include <fmt/format.h>

#include <span>

#include "frame/Dates.h"
#include "frame/JournalLines.h"
#include "frame/RunLog.h"
#include "frame/UnfitFile.h"

namespace lantos {

namespace {

constexpr std::string_view kHeading = "Lantos records 1";
constexpr std::string_view kEnd = "end";
constexpr std::size_t kMostBytes = 4096;  // of one record

std::string Hexadecimal(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const char each : bytes) {
    const auto byte = static_cast<unsigned char>(each);
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
  }
  return text.empty() ? "-" : text;
}

std::optional<std::string> FromHexadecimal(std::string_view text) {
  std::string bytes;
  if (text == "-") return bytes;
  if (text.empty() || text.size() % 2 != 0 || text.size() > 2 * kMostBytes) return std::nullopt;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    unsigned byte = 0;
    const auto [end, error] = std::from_chars(text.data() + i, text.data() + i + 2, byte, 16);
    if (error != std::errc() || end != text.data() + i + 2) return std::nullopt;
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

bool ReadBytes(std::string_view line, WrittenAhead& ahead) {
  RecordBytes record;
  record.file = TakeWord(line);
  if (!IsPlainName(record.file) || !TakeNumber(line, record.offset) || record.offset > kLongestRecordFile) return false;
  const std::optional<std::string> before = FromHexadecimal(TakeWord(line));
  const std::optional<std::string> after = FromHexadecimal(line);
  if (!before || !after || after->empty() || before->size() > after->size()) return false;
  record.before = *before;
  record.after = *after;
  ahead.records.push_back(std::move(record));
  return true;
}

bool ReadLine(std::string_view line, WrittenAhead& ahead) {
  if (line == kEnd) {
    ahead.state = WrittenAhead::State::Whole;
    return !ahead.records.empty();
  }
  const std::string_view kind = TakeWord(line);
  if (kind == "bytes") return !ahead.when.empty() && ReadBytes(line, ahead);
  if (kind == "of") {
    ahead.what = FromOneLine(line);
    return true;
  }
  if (kind != "begun" || !ahead.when.empty()) return false;
  ahead.when = TakeWord(line);
  ahead.where = FromOneLine(line);
  return !ahead.when.empty();
}

}  // namespace

// What a longer note leaves behind the end of this one isn't read.
void WriteAhead::Note(std::string_view what, const std::vector<RecordBytes>& records) {
  const LocalTime now = environment_.clock.Now();
  std::string text = JournalLine(kHeading) + JournalLine("of " + InOneLine(what)) +
                     JournalLine(fmt::format("begun {}T{} {}", FormatIsoDate(now.day), FormatTime(now),
                                             InOneLine(environment_.computerName)));
  for (const RecordBytes& record : records) {
    text += JournalLine(fmt::format("bytes {} {} {} {}", record.file, record.offset, Hexadecimal(record.before),
                                    Hexadecimal(record.after)));
  }
  text += JournalLine(kEnd);
  try {
    if (name_.empty()) name_ = MakeJournal(environment_, kRecordsJournalPrefix);
    if (name_.empty()) return environment_.log.Write("No name is free for a journal of records.");
    if (!file_.IsOpen()) file_ = SharedFile(environment_.files.PathOf(name_), Access::ReadWrite, Deny::Write);
    file_.WriteAt(0, std::as_bytes(std::span(text)));
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
  }
}

WriteAhead::~WriteAhead() {
  if (!name_.empty()) DeleteJournal(environment_, name_, file_);
}

WrittenAhead ReadWriteAhead(std::string_view content) {
  using State = WrittenAhead::State;
  WrittenAhead ahead;
  for (bool isFirst = true; !content.empty() && ahead.state == State::Unfinished; isFirst = false) {
    const std::optional<std::string_view> line = TakeJournalLine(content);
    const bool isSound = line && (isFirst ? *line == kHeading : ReadLine(*line, ahead));
    if (!isSound) ahead.state = State::Damaged;
  }
  return ahead;
}

}  // namespace lantos
