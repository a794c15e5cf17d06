#include "workorders/ConversionJournal.h"

#include <fmt/format.h>

#include <charconv>
#include <limits>

#include "frame/Dates.h"
#include "frame/FileCause.h"
#include "frame/JournalLines.h"
#include "frame/PlainWords.h"
#include "frame/Text.h"
#include "records/Contention.h"

namespace lantos {

namespace {

// The journal's words for what is done to the estimate, which stands behind all files of the work order.
constexpr std::string_view kComments = "the comments of the estimate";
constexpr std::string_view kStatus = "the status of the estimate";
constexpr std::string_view kHeading = "Lantos conversion 1";
WordedError TooManyJournals(const Environment& environment) {
  const std::string text = "This copy has left 100 conversions half done, " +
                           FirstJournalOf(environment, kJournalPrefix) +
                           " and those behind it.\rFinish or undo some of them. Nothing was converted.";
  return WordedError(text, text);
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
    name_ = MakeJournal(environment, kJournalPrefix);
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
  const std::string text = JournalLine(line);
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

void ConversionJournal::Remove() { DeleteJournal(environment_, name_, file_); }

std::optional<BegunConversion> ReadJournal(std::string_view content) {
  BegunConversion begun;
  for (bool isFirst = true; !content.empty(); isFirst = false) {
    const std::optional<std::string_view> line = TakeJournalLine(content);
    if (!line) return std::nullopt;
    if (isFirst ? *line != kHeading : !ReadLine(*line, begun)) return std::nullopt;
  }
  return begun;
}

}  // namespace lantos
