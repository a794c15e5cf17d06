#include "workorders/ConversionJournal.h"

#include <fmt/format.h>

#include <charconv>
#include <limits>

#include "frame/Dates.h"
#include "frame/FileCause.h"
#include "frame/PlainWords.h"
#include "frame/Text.h"
#include "records/Contention.h"

namespace lantos {

namespace {

// The journal's words for what is done to the estimate, which stands behind all files of the work order.
constexpr std::string_view kComments = "the comments of the estimate";
constexpr std::string_view kStatus = "the status of the estimate";
constexpr std::string_view kHeading = "Lantos conversion 1";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::uint64_t kMostBytes = 1 << 20;
constexpr int kNamesACopy = 100;
constexpr std::size_t kCheckDigits = 8;
constexpr int kLooks = 5;
constexpr std::int64_t kPause = 10;  // milliseconds

// FNV-1a: a line that was damaged doesn't move any stock.
std::string CheckOf(std::string_view text) {
  std::uint32_t hash = 2166136261u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
  return fmt::format("{:08x}", hash);
}

// What tells this copy's log from those of the others: "AJb15003.JNL"; ".J01" and so on behind it, where
// this copy has left some behind.
std::string NameOf(const Environment& environment, int n) {
  const std::string& log = environment.log.Name();
  const std::string copy = log.size() > 6 ? log.substr(2, log.size() - 6) : DayMark(environment.Today()) + "000";
  return std::string(kJournalPrefix) + copy + (n == 0 ? ".JNL" : fmt::format(".J{:02}", n));
}

WordedError TooManyJournals(const Environment& environment) {
  const std::string text = "This copy has left " + std::to_string(kNamesACopy) + " conversions half done, " +
                           NameOf(environment, 0) + " and those behind it.\rFinish or undo some of them. Nothing was " +
                           "converted.";
  return WordedError(text, text);
}

std::string_view TakeWord(std::string_view& text) {
  const std::size_t end = std::min(text.find(' '), text.size());
  const std::string_view word = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return word;
}

template <class Number>
bool TakeNumber(std::string_view& text, Number& number) {
  const std::string_view word = TakeWord(text);
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  return error == std::errc() && end == word.data() + word.size() && !word.empty();
}

// A text in a line of its own: what would end the line, or begins such a mark, stands as "%" and two digits.
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

// A part that comes a second time was taken back, and was begun anew.
bool ReadPart(std::string_view line, BegunConversion& begun) {
  JournaledPart part;
  if (!TakeNumber(line, part.quantity) || !TakeNumber(line, part.stockInTag) || !TakeNumber(line, part.stockInMaster) ||
      !TakeNumber(line, part.usageLink) || line.empty()) {
    return false;
  }
  part.number = FromOneLine(line);
  std::erase_if(begun.parts, [&](const JournaledPart& each) { return each.number == part.number; });
  begun.parts.push_back(std::move(part));
  return true;
}

bool ReadNoted(std::string_view line, BegunConversion& begun) {
  FileLink usage = kNoLink;
  if (!TakeNumber(line, usage) || usage < kNoLink || begun.parts.empty()) return false;
  if (begun.parts.back().number != FromOneLine(line)) return false;
  begun.parts.back().noted = usage;
  return true;
}

bool ReadContents(std::string_view line, BegunConversion& begun) {
  std::uint64_t contents = 0;
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), contents, 16);
  if (error != std::errc() || end != line.data() + line.size()) return false;
  begun.contents = contents;
  return true;
}

// One line, without its check. False for what no journal has, in this place.
bool ReadLine(std::string_view line, BegunConversion& begun) {
  const std::string_view kind = TakeWord(line);
  if (kind == "estimate") {
    if (begun.estimate != 0 || !TakeNumber(line, begun.estimate) || !TakeNumber(line, begun.workorder)) return false;
    begun.when = TakeWord(line);
    begun.where = FromOneLine(line);
    return begun.estimate > 0 && begun.workorder > 0;
  }
  if (begun.estimate == 0) return false;
  if (kind == "number") return begun.hasNumber = true;
  if (kind == "undone") return begun.isUndone = true;
  if (kind == "writes") {
    begun.hasFiles = begun.hasFiles || line == kComments || line == kStatus;
    return true;
  }
  if (!begun.hasNumber) return false;
  if (kind == "holds") return ReadContents(line, begun);
  if (kind == "part") return ReadPart(line, begun);
  return kind == "noted" && ReadNoted(line, begun);
}

}  // namespace

ConversionJournal::ConversionJournal(Environment& environment, ui::Desktop& desktop, std::int32_t estimate,
                                     std::int32_t workorder)
    : environment_(environment), desktop_(desktop) {
  try {
    for (int n = 0; name_.empty() && n < kNamesACopy; ++n) {
      const std::string name = NameOf(environment, n);
      if (!environment.files.IsThere(name) && environment.files.MakeNew(name)) name_ = name;
    }
    if (name_.empty()) throw TooManyJournals(environment);
    file_ = SharedFile(environment.files.PathOf(name_), Access::ReadWrite, Deny::Write);
    Write(std::string(kHeading));
    const LocalTime now = environment.clock.Now();
    Write(fmt::format("estimate {} {} {}T{} {}", estimate, workorder, FormatIsoDate(now.day), FormatTime(now),
                      InOneLine(environment.computerName)));
  } catch (const FileError& error) {
    if (!name_.empty()) Remove();
    const std::string what = "The journal of the conversion can not be written";
    throw WordedError(what + ": " + error.what(), InWords(FileFailure(error), what) + "\rNothing was converted.");
  }
}

ConversionJournal::ConversionJournal(Environment& environment, ui::Desktop& desktop, const std::string& name)
    : environment_(environment),
      desktop_(desktop),
      name_(name),
      file_(environment.files.PathOf(name), Access::ReadWrite, Deny::Write, Absent::Fail) {
  end_ = Content().size();  // half a line behind it is written over
}

void ConversionJournal::Write(const std::string& line) {
  const std::string text = line + ' ' + CheckOf(line) + std::string(kLineEnd);
  file_.WriteAt(end_, std::as_bytes(std::span(text)));
  end_ += text.size();
}

void ConversionJournal::WriteOrAsk(const std::string& line) {
  RunOrAsk([&] { Write(line); });
}

void ConversionJournal::Force() {
  RunOrAsk([&] { file_.Flush(); });
}

void ConversionJournal::RunOrAsk(const std::function<void()>& step) {
  Contention contention(contention::kConversionFile, desktop_, environment_, name_);
  if (contention.Run(step)) return;
  const std::string text = "The journal of the conversion was not written.";
  throw WordedError(text, text);
}

void ConversionJournal::TakesNumber() { WriteOrAsk("number"); }

void ConversionJournal::Holds(std::uint64_t contents) { WriteOrAsk(fmt::format("holds {:016x}", contents)); }

void ConversionJournal::WillMove(const JournaledPart& part) {
  WriteOrAsk(fmt::format("part {} {} {} {} {}", part.quantity, part.stockInTag, part.stockInMaster, part.usageLink,
                         InOneLine(part.number)));
}

void ConversionJournal::HasNoted(const std::string& part, FileLink usage) {
  WriteOrAsk(fmt::format("noted {} {}", usage, InOneLine(part)));
}

void ConversionJournal::WillWrite(std::string_view what) {
  try {
    Write("writes " + std::string(what));
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
  }
}

void ConversionJournal::WillWriteComments() {
  WillWrite(kComments);
  Force();
}

void ConversionJournal::WillWriteStatus() { WillWrite(kStatus); }

void ConversionJournal::IsUndone() { WriteOrAsk("undone"); }

void ConversionJournal::Remove() {
  try {
    if (file_.IsOpen()) {
      file_.Truncate(0);
      file_.Close();
    }
    // Somebody may be looking at it just now.
    for (int look = 0; look < kLooks && !environment_.files.Delete(name_); ++look) environment_.clock.Wait(kPause);
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
  }
}

std::string JournalContent(const SharedFile& file) {
  std::string content(static_cast<std::size_t>(std::min(file.Length(), kMostBytes)), '\0');
  content.resize(file.ReadAt(0, std::as_writable_bytes(std::span(content))));
  const std::size_t end = content.rfind(kLineEnd);
  content.resize(end == std::string::npos ? 0 : end + kLineEnd.size());
  return content;
}

std::optional<BegunConversion> ReadJournal(std::string_view content) {
  BegunConversion begun;
  for (bool isFirst = true; !content.empty(); isFirst = false) {
    const std::size_t end = content.find(kLineEnd);
    if (end == std::string_view::npos || end < kCheckDigits + 1) return std::nullopt;
    const std::string_view line = content.substr(0, end - kCheckDigits - 1);
    if (content.substr(line.size(), kCheckDigits + 1) != ' ' + CheckOf(line)) return std::nullopt;
    content.remove_prefix(end + kLineEnd.size());
    if (isFirst ? line != kHeading : !ReadLine(line, begun)) return std::nullopt;
  }
  return begun;
}

}  // namespace lantos
