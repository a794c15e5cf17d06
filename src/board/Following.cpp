#include "board/Following.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::chrono::milliseconds kRestBehindFailure{5000};
// Of a busy shop's changes those of a second are one reload: many boards would keep a server from its work otherwise.
constexpr std::chrono::milliseconds kRestBehindReload{1000};
constexpr std::chrono::milliseconds kRestBehindLookAtNames{1000};
constexpr std::int32_t kOfNoEstimate = 0;  // hours and special days

// "0:03", "12:40", "1:05:00".
std::string FormatAge(std::chrono::milliseconds age) {
  const auto seconds = age.count() / 1000;
  if (seconds < 3600) return fmt::format("{}:{:02}", seconds / 60, seconds % 60);
  return fmt::format("{}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

// Whether an estimate is among what was changed.
bool Concerns(const ChangeNews& news, std::int32_t estimate) {
  return news.isAll || std::any_of(news.changes.begin(), news.changes.end(),
                                   [estimate](const TrailEntry& change) { return change.estimate == estimate; });
}

}  // namespace

std::string ChangedBy(const TrailEntry& change) {
  const std::string place = change.author.workstation.empty() ? "elsewhere" : "at " + change.author.workstation;
  return "Changed " + place + " " + Left(FormatTime(change.at), 5);
}

Following::Following(const BoardParts& parts, Board& board, ui::Timer& timer, ui::Label& told,
                     std::function<bool()> isFree)
    : parts_(parts), board_(board), timer_(timer), told_(told), isFree_(std::move(isFree)), names_(parts.shop) {
  told_.SetVisible(false);
  timer_.OnTimer = [this] { Tick(); };
}

void Following::Begin() {
  try {
    feed_.emplace(parts_.database.lantosData);
  } catch (const DatabaseError& error) {
    parts_.shop.environment.log.Write(std::string("What others change isn't followed: ") + error.what());
    return;
  }
  stood_ = feed_->Contact().stands;
  names_.Begin();
  rest_ = restOfNames_ = 0;
  timer_.SetInterval(static_cast<int>(feed_->Pace().count()));
  TellContact();
  told_.SetVisible(true);
}

void Following::ShowAll() {
  waiting_.isAll = stale_.isAll = true;
  names_.MakeStale();
  Tick();
}

void Following::End() {
  timer_.SetInterval(0);
  feed_.reset();
  waiting_ = {};
  stale_ = {};
  told_.SetVisible(false);
  told_.SetCaption("");
}

void Following::Tick() {
  if (!feed_) return;
  TakeNews();
  TellContact();
  if (rest_ > 0) --rest_;
  if (restOfNames_ > 0) --restOfNames_;
  if (rest_ > 0 || !isFree_()) return;
  const bool areNames = ReadNames();
  if (waiting_.IsNone() && !areNames) return;
  try {
    if (Show(waiting_, areNames)) rest_ = TicksOf(kRestBehindReload);
    waiting_ = {};
    if (areNames) names_.WereShown();
  } catch (const std::exception& error) {  // it is tried again, without a box that nobody has asked for
    parts_.shop.environment.log.Write(error.what());
    rest_ = TicksOf(kRestBehindFailure);
  }
}

void Following::TakeNews() {
  ChangeNews news = feed_->Ask();
  // What was changed while nobody was heard of may be told by nothing.
  const bool stands = feed_->Contact().stands;
  if (!std::exchange(stood_, stands) && stands) news.isAll = true;
  // One's own are on the board, and not in what was read for it.
  if (Trail* const trail = parts_.database.lantosData.KeptTrail()) {
    stale_.estimates.merge(trail->TakeChanged());
  } else {
    stale_.isAll = true;
  }
  for (const TrailEntry& change : news.changes) stale_.estimates.insert(change.estimate);
  stale_.isAll = stale_.isAll || news.isAll || stale_.estimates.contains(kOfNoEstimate);
  waiting_.Add(std::move(news));
}

// A tag file that can't be read just then doesn't hold up what was changed in the database.
bool Following::ReadNames() {
  if (restOfNames_ > 0) return false;
  restOfNames_ = TicksOf(kRestBehindLookAtNames);
  if (!names_.AreStale()) return false;
  try {
    names_.ReadTags();
    return true;
  } catch (const FileError& error) {
    parts_.shop.environment.log.Write(error.what());
    restOfNames_ = TicksOf(kRestBehindFailure);
    return false;
  }
}

int Following::TicksOf(std::chrono::milliseconds time) const { return static_cast<int>(time / feed_->Pace()); }

void Following::TellContact() {
  const WatchContact contact = feed_->Contact();
  const std::string age = FormatAge(contact.ago);
  const std::string lost = contact.trouble.empty() ? "Not followed for " + age : "Not followed: " + contact.trouble;
  const std::string text = contact.stands ? "Followed " + age + " ago" : lost;
  if (told_.Caption() != text) told_.SetCaption(text);
  const bool isNewReason = !contact.reason.empty() && contact.reason != reason_;
  if (isNewReason) parts_.shop.environment.log.Write("What others change isn't followed: " + contact.reason);
  reason_ = contact.reason;
}

bool Following::Show(const ChangeNews& news, bool areNames) {
  const std::int32_t onShow = parts_.detail.DisplayedEstimate();
  const auto isOfIt = [&](const TrailEntry& change) { return change.estimate == onShow; };
  const auto last = std::find_if(news.changes.rbegin(), news.changes.rend(), isOfIt);
  const bool isOnShow = onShow != 0 && (news.isAll || last != news.changes.rend());
  const bool isOfWeek = areNames || ConcernsWeek(news);
  if (isOfWeek) {
    board_.ShowWeekAnew(stale_);
    stale_ = {};
  }
  // Selected and not on show: the detail view and the commands go by what is in memory of it.
  const std::int32_t current = parts_.database.estimates.CurrentEstimate.EstimateNumber;
  const bool isOfCurrent = current != 0 && current != onShow && Concerns(news, current);
  if (isOfCurrent) parts_.database.estimates.LoadEstimate(current);
  if (isOnShow) {
    parts_.detail.ShowAnew(last != news.changes.rend() ? ChangedBy(*last) : "");
  } else if (areNames) {
    const Customers::Quietly quietly(parts_.shop.records.customers);
    parts_.detail.ReadCustomerAgain();
  }
  return isOfWeek || isOfCurrent || isOnShow;
}

bool Following::ConcernsWeek(const ChangeNews& news) const {
  return news.isAll || std::any_of(news.changes.begin(), news.changes.end(),
                                   [this](const TrailEntry& change) { return ConcernsWeek(change); });
}

// Of an estimate that is listed every line counts, of another one its day. What is of no estimate is of a special day,
// or of every week.
bool Following::ConcernsWeek(const TrailEntry& change) const {
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    if (change.estimate != 0 && parts_.week.Lists(i, change.estimate)) return true;
  }
  const std::string_view day = change.estimate != 0 ? "SchedDate" : "SpecialDate";
  bool isDated = change.estimate != 0;
  for (const std::vector<TrailRow>* rows : {&change.before, &change.after}) {
    for (const TrailRow& row : *rows) {
      if (IsInWeek(row, day)) return true;
      isDated = isDated || row.Has(day);
    }
  }
  return !isDated;
}

bool Following::IsInWeek(const TrailRow& row, std::string_view column) const {
  const std::optional<DaySerial> day = ParseIsoDate(Left(row.Text(column), 10));
  return day && parts_.state.PanelOf(*day).has_value();
}

}  // namespace lantos
