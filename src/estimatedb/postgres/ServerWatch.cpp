#include "estimatedb/postgres/ServerWatch.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "estimatedb/postgres/FeedTables.h"
#include "estimatedb/postgres/PostgresRows.h"
#include "estimatedb/postgres/ServerLibrary.h"
#include "estimatedb/postgres/ServerWords.h"
#include "frame/Text.h"

namespace lantos {

namespace {

using std::chrono::steady_clock;

constexpr double kNothingBehindIt = 9e15;

std::chrono::milliseconds Since(steady_clock::time_point moment) {
  return std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - moment);
}

std::string NumberText(double number) { return fmt::format("{:.0f}", number); }

}  // namespace

ForeignRows ServerWatch::Ask() {
  try {
    while (!news_.isAll && !news_.trail.IsOpen() && GoOn()) continue;
  } catch (const PostgresFailure& failure) {
    Lose(failure.what(), failure.State());
  } catch (const std::exception& error) {  // also one that the client library isn't there
    Lose(error.what(), "");
  }
  return std::exchange(news_, {});
}

// False when there is nothing to do but wait.
bool ServerWatch::GoOn() {
  switch (step_) {
    case Step::Away:
      if (steady_clock::now() < nextTry_) return false;
      connecting_ = std::make_unique<ConnectingThread>(place_.server, 2 * times_.patience);
      step_ = Step::Connecting;
      return false;
    case Step::Connecting:
      return GoOnConnecting();
    case Step::Quiet:
      return LookForNotices();
    default:
      return TakeAnswer();
  }
}

// A name that is being looked up is waited for as long as that takes: a second look-up would be no faster.
bool ServerWatch::GoOnConnecting() {
  link_ = connecting_->TakeWithin(std::chrono::milliseconds(0));
  if (!link_) return false;
  connecting_.reset();
  Pq().setNoticeReceiver(
      link_.get(), [](void*, const PGresult*) {}, nullptr);
  if (Pq().setnonblocking(link_.get(), 1) != 0) ThrowLost("no connection");
  Send(Step::Finding, std::string(kAskForFeed), {place_.schema});
  return true;
}

void ServerWatch::Send(Step step, const std::string& text, const std::vector<std::string>& values) {
  std::vector<const char*> each;
  for (const std::string& value : values) each.push_back(value.c_str());
  const int isSent = values.empty() ? Pq().sendQuery(link_.get(), text.c_str())
                                    : Pq().sendQueryParams(link_.get(), text.c_str(), static_cast<int>(each.size()),
                                                           nullptr, each.data(), nullptr, nullptr, 0);
  if (isSent != 1) ThrowLost("not sent");
  step_ = step;
  since_ = steady_clock::now();
  result_.reset();
}

void ServerWatch::TakeInput() {
  if (Pq().flush(link_.get()) < 0) ThrowLost("not sent");
  if (Pq().consumeInput(link_.get()) != 1) ThrowLost("ended");
}

// Several statements in one have several answers; the last counts.
bool ServerWatch::TakeAnswer() {
  TakeInput();
  while (Pq().isBusy(link_.get()) == 0) {
    PostgresResult result(Pq().getResult(link_.get()));
    if (!result) {
      DrainNotices();
      Answered();
      return true;
    }
    if (Pq().resultStatus(result.get()) == PGRES_FATAL_ERROR) throw FailureOf(result.get());
    result_ = std::move(result);
  }
  if (Since(since_) > times_.patience) ThrowLost("no answer");
  return false;
}

void ServerWatch::Answered() {
  if (Pq().status(link_.get()) != CONNECTION_OK) ThrowLost("ended");
  heard_ = steady_clock::now();
  const auto listen = [this] { Send(Step::Listening, "LISTEN " + channel_); };
  switch (step_) {
    case Step::Finding: {
      channel_ = Pq().getvalue(result_.get(), 0, 3);
      const bool isThere = std::string_view(Pq().getvalue(result_.get(), 0, 4)) == "t";
      return isThere ? listen() : Send(Step::Making, std::string(kMakeFeed));
    }
    case Step::Making:
      known_.reset();  // nobody has counted what was changed until then
      untold_.reset();
      looked_ = {};
      return listen();
    case Step::Listening:
      return Read();
    case Step::Reading:
      TakeNews();
      Stand();
      if (Since(looked_) >= times_.look) Look();
      return;
    default:
      step_ = Step::Quiet;
      if (HasMissed()) Send(Step::Finding, std::string(kAskForFeed), {place_.schema});
  }
}

void ServerWatch::Read() {
  read_ = steady_clock::now();
  doubtsAsked_ = own_->Doubts();
  Send(Step::Reading, std::string(kAskForNews), {NumberText(known_.value_or(kNothingBehindIt))});
}

// Numbers that are missing were pruned, or count from the beginning again.
void ServerWatch::TakeNews() {
  if (Pq().ntuples(result_.get()) == 0) throw PostgresFailure("no count", "", PostgresFailure::Link::Stands);
  Recordset rows = RowsOf(*result_);
  const double counted = rows.Number("counted");
  double behind = 0;
  double withRow = 0;
  rows.Filter([&](const Recordset& row) {
    const bool isChange = !row.IsNull("changenumber");
    behind += isChange ? 1 : 0;
    withRow += isChange && !row.IsNull("command") ? 1 : 0;
    return isChange && !row.IsNull("command") && row.Text("writer") != own_->Name();
  });
  const bool isInDoubt = std::exchange(doubtsTold_, doubtsAsked_) != doubtsAsked_;
  news_.isAll = !known_ || behind != counted - *known_ || withRow != behind || isInDoubt;
  if (rows.Count() != 0) news_.trail = std::move(rows);
  known_ = counted;
}

void ServerWatch::Look() {
  looked_ = steady_clock::now();
  Send(Step::Looking, std::string(kAskForUntold), {NumberText(trailFrom_.value_or(kNothingBehindIt))});
}

// Whose they are isn't known: they may be one's own.
bool ServerWatch::HasMissed() {
  const auto number = [this](int column) { return std::stod(Pq().getvalue(result_.get(), 0, column)); };
  const bool hasMissed = untold_ && number(1) != *untold_;
  news_.isAll = news_.isAll || hasMissed;
  trailFrom_ = number(0);
  untold_ = number(2);
  return hasMissed;
}

void ServerWatch::Stand() {
  stands_ = true;
  trouble_.clear();
  reason_.clear();
  pause_ = times_.firstPause;
  step_ = Step::Quiet;
}

void ServerWatch::DrainNotices() {
  while (PGnotify* const notice = Pq().notifies(link_.get())) {
    if (!noticed_) noticed_ = steady_clock::now();
    Pq().freemem(notice);
  }
}

bool ServerWatch::LookForNotices() {
  TakeInput();
  DrainNotices();
  const bool isNews = noticed_ && Since(*noticed_) >= times_.merge && Since(read_) >= times_.rest;
  const bool isInDoubt = own_->Doubts() != doubtsTold_;
  if (!isNews && !isInDoubt && Since(heard_) < times_.heartbeat) return false;
  noticed_.reset();
  Read();
  return true;
}

void ServerWatch::Lose(const std::string& reason, std::string_view state) {
  connecting_.reset();
  link_.reset();
  result_.reset();
  noticed_.reset();
  if (std::exchange(stands_, false)) lostSince_ = heard_;
  trouble_ = TroubleOfFollowing(state);
  reason_ = trouble_.empty() ? FromUtf8(reason) : WordsOfTroubledFollowing(place_, state);
  step_ = Step::Away;
  nextTry_ = steady_clock::now() + pause_;
  pause_ = std::min(2 * pause_, times_.longestPause);
}

void ServerWatch::ThrowLost(const char* why) const { throw PostgresFailure(why, "", PostgresFailure::Link::Lost); }

WatchContact ServerWatch::Contact() const { return {stands_, Since(stands_ ? heard_ : lostSince_), trouble_, reason_}; }

}  // namespace lantos
