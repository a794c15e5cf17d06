#include "estimatedb/postgres/ServerWatch.h"

#include <fmt/format.h>
#include <poll.h>

#include <algorithm>
#include <utility>

#include "estimatedb/postgres/FeedTables.h"
#include "estimatedb/postgres/PostgresRows.h"
#include "estimatedb/postgres/ServerLibrary.h"

namespace lantos {

namespace {

using std::chrono::steady_clock;

constexpr double kNothingBehindIt = 9e15;

std::chrono::milliseconds Since(steady_clock::time_point moment) {
  return std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - moment);
}

bool IsReady(PGconn* connection, short events) {
  pollfd each{Pq().socket(connection), events, 0};
  return ::poll(&each, 1, 0) > 0;
}

}  // namespace

ForeignRows ServerWatch::Ask() {
  try {
    while (GoOn()) continue;
  } catch (const std::exception&) {  // also one that the client library isn't there
    Lose();
  }
  return std::exchange(news_, {});
}

// False when there is nothing to do but wait.
bool ServerWatch::GoOn() {
  switch (step_) {
    case Step::Away:
      if (steady_clock::now() < nextTry_) return false;
      link_ = BeginConnecting(place_.server);
      step_ = Step::Connecting;
      since_ = steady_clock::now();
      return true;
    case Step::Connecting:
      return GoOnConnecting();
    case Step::Quiet:
      return LookForNotices();
    default:
      return TakeAnswer();
  }
}

bool ServerWatch::GoOnConnecting() {
  PGconn* const connection = link_.get();
  if (Pq().status(connection) == CONNECTION_BAD) ThrowLost("no connection");
  if (Since(since_) > 2 * times_.patience) ThrowLost("no connection in time");
  if (!IsReady(connection, POLLIN | POLLOUT)) return false;
  const PostgresPollingStatusType status = Pq().connectPoll(connection);
  if (status == PGRES_POLLING_FAILED) ThrowLost("refused");
  if (status != PGRES_POLLING_OK) return IsReady(connection, status == PGRES_POLLING_READING ? POLLIN : POLLOUT);
  Pq().setNoticeReceiver(
      connection, [](void*, const PGresult*) {}, nullptr);
  if (Pq().setnonblocking(connection, 1) != 0) ThrowLost("no connection");
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
    if (Pq().resultStatus(result.get()) == PGRES_FATAL_ERROR) ThrowLost("refused");
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
      return listen();
    case Step::Listening:
      return Send(Step::Reading, std::string(kAskForNews), {fmt::format("{:.0f}", known_.value_or(kNothingBehindIt))});
    default:
      TakeNews();
      stands_ = true;
      pause_ = times_.firstPause;
      step_ = Step::Quiet;
  }
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
    return isChange && !row.IsNull("command") && row.Text("writer") != copy_;
  });
  news_.isAll = !known_ || behind != counted - *known_ || withRow != behind;
  if (rows.Count() != 0) news_.trail = std::move(rows);
  known_ = counted;
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
  const bool isNews = noticed_ && Since(*noticed_) >= times_.merge;
  if (!isNews && Since(heard_) < times_.heartbeat) return false;
  noticed_.reset();
  Send(Step::Reading, std::string(kAskForNews), {fmt::format("{:.0f}", *known_)});
  return true;
}

void ServerWatch::Lose() {
  link_.reset();
  result_.reset();
  noticed_.reset();
  if (std::exchange(stands_, false)) lostSince_ = heard_;
  step_ = Step::Away;
  nextTry_ = steady_clock::now() + pause_;
  pause_ = std::min(2 * pause_, times_.longestPause);
}

void ServerWatch::ThrowLost(const char* why) const { throw PostgresFailure(why, "", PostgresFailure::Link::Lost); }

WatchContact ServerWatch::Contact() const { return {stands_, Since(stands_ ? heard_ : lostSince_)}; }

}  // namespace lantos
