#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/FileIO.h"
#include "frame/SharedFile.h"

namespace lantos {

inline constexpr char kMonthCharacters[] = "123456789abc";

// Month character and two-digit day: "b15" for 15 November.
std::string DayMark(DaySerial day);

// The text log of one run, "LN" + day mark + three-digit counter + ".LOG" in DataDir.
class RunLog {
 public:
  explicit RunLog(FileIO& files) : files_(files) {}

  // Deletes logs of other days, takes the first free name of today and opens it with no sharing. Copies that start in
  // the same moment get a name each. False when all 1000 names are taken; throws FileError when the file can't be made.
  bool Open();
  // One line: date and time padded to 20 characters, the message, CR LF. Never reports.
  void Write(std::string_view message) noexcept;
  void Close();  // never reports either
  bool IsOpen() const { return file_.IsOpen(); }
  const std::string& Name() const { return name_; }  // empty before Open
  std::filesystem::path Path() const;

 private:
  bool OpenAlone(const std::string& name);
  const std::string& Stamp();

  FileIO& files_;
  SharedFile file_;
  std::string stamp_;
  LocalTime stampedSecond_;
  std::string name_;
  std::uint64_t offset_ = 0;
};

// "AU" + day mark.
std::string UpdateFilePrefix(DaySerial day);
// Makes an empty file under the first free name prefix + n + ".$$$", n from 0 to 999, which no other copy gets. Empty
// when all are taken; throws FileError when it can't be made.
std::string TakeUpdateFile(const FileIO& files, DaySerial day);
// Names of journals in DataDir.
struct LeftJournals {
  std::vector<std::string> ofConversions, ofRecords;
};
// Deletes update files of other days, going on past errors. Returns the journals that it has come by, so that a start
// reads the directory once for all.
LeftJournals DeleteOldUpdateFiles(const FileIO& files, DaySerial day);

// What a conversion that is at work, or ended in the middle, has in DataDir: "AJ", the mark and number of the copy's
// log, ".JNL".
inline constexpr std::string_view kJournalPrefix = "AJ";
inline constexpr std::string_view kJournalPattern = "AJ*.J??";
// The same of a customer, a vehicle or a part that is being stored.
inline constexpr std::string_view kRecordsJournalPrefix = "AR";

}  // namespace lantos
