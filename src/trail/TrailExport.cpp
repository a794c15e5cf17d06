#include "trail/TrailExport.h"

#include <fmt/format.h>

#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kFormulaSigns = "=+-@\t\r";

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  if (!text.empty() && kFormulaSigns.find(text.front()) != std::string_view::npos) quoted += '\'';
  for (const char c : text) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

std::string Record(const TrailDeed& deed) {
  return fmt::format("{} {},{},{},{},{},{}\r\n", FormatIsoDate(deed.at.day), FormatTime(deed.at),
                     Quoted(ToUtf8(deed.author.workstation)), Quoted(ToUtf8(deed.author.user)),
                     deed.estimate == 0 ? "" : std::to_string(deed.estimate), Quoted(WordOf(deed.about)),
                     Quoted(ToUtf8(deed.words)));
}

}  // namespace

std::string TrailAsCsv(const std::vector<TrailDeed>& deeds) {
  std::string text(kMark);
  text += "Time,Workstation,User,Estimate,Kind,Change\r\n";
  for (const TrailDeed& deed : deeds) text += Record(deed);
  return text;
}

}  // namespace lantos
