#include "trail/TrailExport.h"

#include <fmt/format.h>

#include "frame/CsvText.h"
#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

std::string Record(const TrailDeed& deed) {
  return fmt::format("{} {},{},{},{},{},{}\r\n", FormatIsoDate(deed.at.day), FormatTime(deed.at),
                     CsvText(ToUtf8(deed.author.workstation)), CsvText(ToUtf8(deed.author.user)),
                     deed.estimate == 0 ? "" : std::to_string(deed.estimate), CsvText(WordOf(deed.about)),
                     CsvText(ToUtf8(deed.words)));
}

}  // namespace

std::string TrailAsCsv(const std::vector<TrailDeed>& deeds) {
  std::string text(kCsvMark);
  text += "Time,Workstation,User,Estimate,Kind,Change\r\n";
  for (const TrailDeed& deed : deeds) text += Record(deed);
  return text;
}

}  // namespace lantos
