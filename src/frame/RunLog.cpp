#include "frame/RunLog.h"

#include <fmt/format.h>

#include "frame/Dates.h"
#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr int kNamesADay = 1000;
constexpr std::size_t kStampWidth = 20;

// One that another workstation holds open stays.
void DeleteOthers(const FileIO& files, std::string_view pattern, std::string_view prefix) {
  for (const std::string& name : files.List(pattern)) {
    if (!EqualsIgnoringCase(Left(name, prefix.size()), prefix)) files.Delete(name);
  }
}

// Makes an empty file under the first name that none bears yet, which another copy may take in the same moment: then
// it is the next one's turn. Empty when use says no to all of them.
template <class NameOf, class Use>
std::string TakeFirstFree(const FileIO& files, NameOf nameOf, Use use) {
  for (int n = 0; n < kNamesADay; ++n) {
    std::string name = nameOf(n);
    if (!files.FileExists(name) && files.MakeNew(name) && use(name)) return name;
  }
  return {};
}

}  // namespace

std::string DayMark(DaySerial day) {
  const CivilDate date = FromSerial(day);
  return fmt::format("{}{:02}", kMonthCharacters[date.month - 1], date.day);
}

bool RunLog::Open() {
  const std::string prefix = "LN" + DayMark(files_.GetClock().Today());
  DeleteOthers(files_, "LN*.LOG", prefix);
  name_ = TakeFirstFree(
      files_, [&](int n) { return prefix + fmt::format("{:03}.LOG", n); },
      [this](const std::string& name) { return OpenAlone(name); });
  offset_ = 0;
  return !name_.empty();
}

// A program that looks at every new file may have it for a moment.
bool RunLog::OpenAlone(const std::string& name) {
  try {
    file_ = SharedFile(files_.PathOf(name), Access::ReadWrite, Deny::All);
    return true;
  } catch (const FileError& error) {
    if (error.Number() == FileErrorNumber::PermissionDenied) return false;
    files_.Delete(name);  // nobody will write in it
    throw;
  }
}

void RunLog::Write(std::string_view message) noexcept {
  if (!file_.IsOpen()) return;
  try {
    std::string line = Stamp();
    line += WithReadableEscapes(message);
    line += "\r\n";
    file_.WriteAt(offset_, std::as_bytes(std::span(line)));
    offset_ += line.size();
  } catch (...) {
    // A log that can't be written is nobody's business.
  }
}

// Lines come in hundreds a second, and their stamp shows no more than that.
const std::string& RunLog::Stamp() {
  const LocalTime now = files_.GetClock().Now();
  const LocalTime second{now.day, now.millisecondOfDay - now.millisecondOfDay % 1000};
  if (stamp_.empty() || second != stampedSecond_) stamp_ = LeftJustify(FormatDateTime(second), kStampWidth);
  stampedSecond_ = second;
  return stamp_;
}

void RunLog::Close() {
  try {
    file_.Close();
  } catch (const FileError&) {
    // What the disk still refuses of it is nobody's business either.
  }
}

std::filesystem::path RunLog::Path() const { return name_.empty() ? std::filesystem::path() : files_.PathOf(name_); }

std::string UpdateFilePrefix(DaySerial day) { return "AU" + DayMark(day); }

std::string TakeUpdateFile(const FileIO& files, DaySerial day) {
  return TakeFirstFree(
      files, [&](int n) { return UpdateFilePrefix(day) + std::to_string(n) + ".$$$"; },
      [](const std::string&) { return true; });
}

LeftJournals DeleteOldUpdateFiles(const FileIO& files, DaySerial day) {
  constexpr std::string_view updateFile = "AU", ending = ".$$$";
  const std::string prefix = UpdateFilePrefix(day);
  LeftJournals journals;
  for (const std::string& name : files.List("A*.???")) {
    const auto begins = [&name](std::string_view with) { return EqualsIgnoringCase(Left(name, with.size()), with); };
    const bool isJournal = ToUpper(name).find(".J") != std::string::npos;
    if (isJournal && begins(kJournalPrefix)) journals.ofConversions.push_back(name);
    if (isJournal && begins(kRecordsJournalPrefix)) journals.ofRecords.push_back(name);
    if (begins(updateFile) && name.ends_with(ending) && !begins(prefix)) files.Delete(name);
  }
  return journals;
}

}  // namespace lantos
