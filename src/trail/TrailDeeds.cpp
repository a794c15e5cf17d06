#include "trail/TrailDeeds.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "estimatedb/modEstimates.h"
#include "frame/Dates.h"

namespace lantos {

namespace {

using Kind = TrailDeed::Kind;

constexpr std::int64_t kTogether = 2000;  // milliseconds between the changes of one deed
constexpr std::string_view kSurcharge = "SURCHARGE";

// The surcharge's line comes and goes with others.
bool IsRemoval(const TrailEntry& entry) {
  return entry.command.starts_with("Delete") && entry.before.size() == 1 && entry.estimate != 0 &&
         entry.command != "DeleteChecklist" && FirstOf(entry.before).Text("VendorName") != kSurcharge;
}

Kind KindOfDeed(const TrailEntry& entry) {
  if (entry.undoes != 0) return Kind::TakingBack;
  if (entry.command == "SetStatus") return Kind::Status;
  return IsRemoval(entry) ? Kind::Removal : Kind::Other;
}

void BecomesMove(TrailDeed& deed, const std::string& words) {
  deed.words = words;
  deed.about = TrailKind::Booking;
  deed.kind = Kind::Move;
}

TrailDeed DeedOf(TrailEntry entry) {
  TrailDeed deed{entry.at, entry.author, entry.estimate, KindOf(entry), KindOfDeed(entry), WordsOf(entry), {}};
  // An estimate alone keeps its status and gets a copy that has a day.
  const bool isOfEstimateAlone = FirstOf(entry.after).Text("Comments").starts_with("Scheduled for ");
  if (const std::string words = WordsOfMove(entry); isOfEstimateAlone && !words.empty()) BecomesMove(deed, words);
  deed.entries.push_back(std::move(entry));
  return deed;
}

// A line that is stored anew is taken away and added again.
bool JoinChangedLine(TrailDeed& deed, const TrailEntry& next) {
  if (deed.kind != Kind::Removal) return false;
  const std::string words = WordsOfChangedLine(deed.entries.back(), next);
  if (words.empty()) return false;
  deed.words = words;
  deed.kind = Kind::Other;
  return true;
}

// The status comes first, then the comments that name the day.
bool JoinMove(TrailDeed& deed, const TrailEntry& next) {
  const TrailEntry& last = deed.entries.back();
  const std::string words = WordsOfMove(next);
  if (words.empty() || deed.kind != Kind::Status || FirstOf(last.after).Long("Status") != kRescheduled) return false;
  BecomesMove(deed, words);
  return true;
}

// A checklist is stored whole: all its items go, and come again.
bool JoinChecklist(TrailDeed& deed, const TrailEntry& next) {
  if (next.command != "AddChecklistRow") return false;
  const std::string& first = deed.entries.front().command;
  if (first != "DeleteChecklist" && first != "AddChecklistRow") return false;
  deed.words = fmt::format("checklist of {} items stored", deed.entries.size() + (first == "AddChecklistRow" ? 1 : 0));
  return true;
}

// A copy of an estimate is made of its head and each kind of lines.
bool JoinCopy(TrailDeed& deed, const TrailEntry& next) {
  const std::string& first = deed.entries.front().command;
  if (!next.command.starts_with("Clone") || (first != "AddEstimateRow" && first != "NewEstimate")) return false;
  if (next.command == "CloneEstimate") deed.words += ", " + WordsOf(next);
  return true;
}

bool JoinTakingBack(TrailDeed& deed, const TrailEntry& next) {
  if (deed.entries.front().undoes != next.undoes) return false;
  if (next.command == "SetComments") deed.words = WordsOf(next);
  return true;
}

bool Joins(TrailDeed& deed, const TrailEntry& next) {
  if (deed.author != next.author || next.at.MillisecondsSince(deed.entries.back().at) > kTogether) return false;
  if (next.undoes != 0) return JoinTakingBack(deed, next);
  return JoinChangedLine(deed, next) || JoinMove(deed, next) || JoinChecklist(deed, next) || JoinCopy(deed, next);
}

}  // namespace

std::vector<TrailDeed> DeedsOf(std::vector<TrailEntry> newestFirst) {
  std::vector<TrailDeed> deeds;
  std::map<std::int32_t, std::size_t> lastOf;  // by estimate: others may change theirs at the same time
  std::for_each(newestFirst.rbegin(), newestFirst.rend(), [&](TrailEntry& entry) {
    const auto last = lastOf.find(entry.estimate);
    if (last != lastOf.end() && Joins(deeds[last->second], entry)) {
      deeds[last->second].entries.push_back(std::move(entry));
    } else {
      lastOf[entry.estimate] = deeds.size();
      deeds.push_back(DeedOf(std::move(entry)));
    }
  });
  std::reverse(deeds.begin(), deeds.end());
  return deeds;
}

std::string WhenOf(const TrailDeed& deed, DaySerial today) {
  constexpr DaySerial kWeek = 7;
  constexpr std::size_t kWeekday = 3, kHoursAndMinutes = 5;
  const bool isNear = deed.at.day <= today && deed.at.day > today - kWeek;
  const std::string day = FormatDateWithWeekday(deed.at.day);
  return (isNear ? day.substr(0, kWeekday) : day) + " " + FormatTime(deed.at).substr(0, kHoursAndMinutes);
}

std::string Sentence(const TrailDeed& deed, DaySerial today) {
  const std::string user = deed.author.user.empty() ? "" : " (" + deed.author.user + ")";
  return fmt::format("{} {}{} {}", WhenOf(deed, today), deed.author.workstation, user, deed.words);
}

}  // namespace lantos
