#include <fmt/format.h>

#include <map>

#include "caretaker/check/FlatFiles.h"
#include "caretaker/exchange/EstimateList.h"
#include "caretaker/exchange/ShopExport.h"
#include "estimatedb/modEstimates.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "frame/Version.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr std::size_t kLongestLine = 75;  // bytes, without its end

// What has a meaning in such a text is marked; what no calendar can show is left out.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\n') {
      escaped += "\\n";
    } else if (static_cast<unsigned char>(c) >= ' ') {
      if (c == '\\' || c == ';' || c == ',') escaped += '\\';
      escaped += c;
    }
  }
  return escaped;
}

bool IsInsideCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// A long line goes on behind a blank, and never in the middle of a character.
std::string Folded(std::string line) {
  std::string text;
  while (line.size() > kLongestLine) {
    std::size_t end = kLongestLine;
    while (IsInsideCharacter(line[end])) --end;
    text += line.substr(0, end) + "\r\n";
    line = ' ' + line.substr(end);
  }
  return text + line + "\r\n";
}

std::string DateOf(DaySerial day) {
  const CivilDate date = FromSerial(day);
  return fmt::format("{:04}{:02}{:02}", date.year, date.month, date.day);
}

struct Event {
  std::string name;  // the same each time
  DaySerial day = 0;
  std::string summary;
  std::string description;
};

// "cedar-street-auto-repair.97331.lantos": two shops in one calendar have other events.
std::string DomainOf(const FileIO& files) {
  FlatFiles flat(files);
  const auto records = flat.Records<SystemRecord>(kSystemFile);
  std::string domain;
  if (records.empty()) return "lantos";
  for (const TextField field : {sysrec::company_name, sysrec::company_zip}) {
    std::string word;
    for (const char c : ToLower(records[0].Get(field))) {
      if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
        word += c;
      } else if (!word.empty() && word.back() != '-') {
        word += '-';
      }
    }
    if (word.ends_with('-')) word.pop_back();
    if (!word.empty()) domain += word + '.';
  }
  return domain + "lantos";
}

std::string TextOf(const Event& event, const std::string& domain, const std::string& stamp) {
  std::string text = "BEGIN:VEVENT\r\n";
  text += Folded("UID:" + event.name + '@' + domain);
  text += "DTSTAMP:" + stamp + "\r\n";
  text += "DTSTART;VALUE=DATE:" + DateOf(event.day) + "\r\n";
  text += "DTEND;VALUE=DATE:" + DateOf(event.day + 1) + "\r\n";
  text += Folded("SUMMARY:" + Escaped(event.summary));
  if (!event.description.empty()) text += Folded("DESCRIPTION:" + Escaped(event.description));
  return text + "TRANSP:TRANSPARENT\r\nEND:VEVENT\r\n";
}

std::string LineOf(const ListedEstimate& estimate) {
  const std::string name = estimate.name.empty() ? fmt::format("Estimate {}", estimate.number) : estimate.name;
  return fmt::format("{} ({} h){}", name, FormatHundredths(estimate.hours),
                     estimate.vehicle.empty() ? "" : ", " + estimate.vehicle);
}

Event EventOf(const ListedEstimate& estimate) {
  std::string description = fmt::format("Estimate {}, {}", estimate.number, modEstimates::StatusWord(estimate.status));
  if (!estimate.license.empty()) description += "\n" + estimate.license;
  if (!estimate.comments.empty()) description += "\n" + estimate.comments;
  return {fmt::format("estimate-{}", estimate.number), *estimate.day, LineOf(estimate), std::move(description)};
}

Event EventOf(DaySerial day, const std::vector<const ListedEstimate*>& estimates) {
  std::int64_t hours = 0;
  std::string description;
  for (const ListedEstimate* each : estimates) {
    hours += each->hours;
    description += (description.empty() ? "" : "\n") + LineOf(*each);
  }
  return {"day-" + DateOf(day), day,
          fmt::format("{} h, {} appointment{}", FormatHundredths(hours), estimates.size(),
                      estimates.size() == 1 ? "" : "s"),
          std::move(description)};
}

}  // namespace

std::string ShopAsCalendar(const FileIO& files, DaySerial first, DaySerial last, EventKind kind, const TellRows& tell) {
  const std::string domain = DomainOf(files);
  const EstimateList list = ReadEstimateList(files, tell);
  std::map<DaySerial, std::vector<const ListedEstimate*>> days;
  for (const ListedEstimate& each : list.estimates) {
    if (!each.day || *each.day < first || *each.day > last) continue;
    if (each.status != kCancelled && each.status != kRescheduled) days[*each.day].push_back(&each);
  }
  // A floating time has no place in it, and the day is enough to tell which of two is the newer one.
  const std::string stamp = DateOf(files.GetClock().Today()) + "T000000Z";
  std::string text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n";
  text += Folded("PRODID:-//Lantos//" + ProgramVersion() + "//EN");
  text += "CALSCALE:GREGORIAN\r\nMETHOD:PUBLISH\r\nX-WR-CALNAME:Lantos appointments (read only)\r\n";
  for (const auto& [day, estimates] : days) {
    if (kind == EventKind::Day) text += TextOf(EventOf(day, estimates), domain, stamp);
    if (kind == EventKind::Day) continue;
    for (const ListedEstimate* each : estimates) text += TextOf(EventOf(*each), domain, stamp);
  }
  return text + "END:VCALENDAR\r\n";
}

}  // namespace lantos
