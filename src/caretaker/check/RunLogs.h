#pragma once

#include <string>
#include <vector>

#include "frame/FileIO.h"

namespace lantos {

struct LogLine {
  std::string at;    // "08:15:00"
  std::string text;  // in the program's page; of several lines where the message had them
};

// What one run of the program has written down.
struct ToldRun {
  std::string log;          // its file
  std::string workstation;  // empty where the run didn't know its name, or an older program wrote the log
  std::string user;
  bool isAtWork = false;
  std::vector<LogLine> lines;
};

// The runs of a day, in the order in which they began, whether they still go on or not: a log is read past the claim of
// the copy that writes it, as far as it has whole lines. Empty where no log of the day is there any more. Throws
// FileError.
std::vector<ToldRun> RunsOf(const FileIO& files, DaySerial day);

}  // namespace lantos
