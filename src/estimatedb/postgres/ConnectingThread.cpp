#include "estimatedb/postgres/ConnectingThread.h"

#include <poll.h>
#include <signal.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "estimatedb/postgres/ServerLibrary.h"
#include "frame/Text.h"

namespace lantos {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// How soon the thread sees that nobody wants the connection any more.
constexpr milliseconds kSlice{20};
// With a thread that has been told so, and is speaking with the server.
constexpr milliseconds kPatienceWithTheEnd{500};

// What a connection is asked for; of one keyword the later one counts.
struct Wishes {
  std::vector<const char*> keywords;
  std::vector<const char*> values;

  void Add(const char* keyword, const char* value) {
    keywords.push_back(keyword);
    values.push_back(value);
  }
};

// Of the keywords the later ones count: those in front of the connection string give way to it. A line that is dead
// without saying so is found out within half a minute.
PostgresLink Begun(const std::string& server) {
  Wishes wishes;
  wishes.Add("fallback_application_name", "lantos");
  wishes.Add("keepalives_idle", "10");
  wishes.Add("keepalives_interval", "5");
  wishes.Add("keepalives_count", "3");
  wishes.Add("tcp_user_timeout", "25000");
  wishes.Add("dbname", server.c_str());
  wishes.Add("client_encoding", "UTF8");
  wishes.Add(nullptr, nullptr);
  PostgresLink link(Pq().connectStartParams(wishes.keywords.data(), wishes.values.data(), 1));
  if (!link) throw PostgresFailure("out of memory", "", PostgresFailure::Link::Lost);
  return link;
}

// "FATAL:  28P01: password authentication failed": of a login that fails libpq gives the state in its text alone.
std::string StateIn(std::string_view message) {
  for (std::size_t at = message.find(": "); at != std::string_view::npos; at = message.find(": ", at + 1)) {
    const std::string_view state = TrimView(message.substr(at + 2)).substr(0, 6);
    const auto isPart = [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z'); };
    const bool hasDigit = state.find_first_of("0123456789") != std::string_view::npos;  // "FATAL" has none
    if (hasDigit && state.size() == 6 && state[5] == ':' && std::all_of(state.begin(), state.begin() + 5, isPart)) {
      return std::string(state.substr(0, 5));
    }
  }
  return {};
}

[[noreturn]] void ThrowRefused(PGconn* connection) {
  const std::string message = Pq().errorMessage(connection);
  const std::string state = Pq().connectionNeedsPassword(connection) != 0 ? "28P01" : StateIn(message);
  throw PostgresFailure(message, state, PostgresFailure::Link::Lost);
}

}  // namespace

// What the two threads share; it goes with the later one.
class ConnectingThread::Work {
 public:
  void Do(const std::string& server, milliseconds patience);
  PostgresLink TakeWithin(milliseconds time);
  void GiveUp();

 private:
  enum class Step { LookingUp, Speaking, Done };

  bool Enter(Step step);
  PostgresLink Made(const std::string& server, milliseconds patience);
  bool WaitFor(PGconn* connection, short events, steady_clock::time_point end);

  std::mutex mutex_;
  std::condition_variable changed_;
  Step step_ = Step::LookingUp;
  bool isGivenUp_ = false;
  PostgresLink link_;
  std::optional<PostgresFailure> failure_;
};

// The person's signals are for the other thread.
void ConnectingThread::Work::Do(const std::string& server, milliseconds patience) {
  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, nullptr);
  PostgresLink link;
  std::optional<PostgresFailure> failure;
  try {
    link = Made(server, patience);
  } catch (const PostgresFailure& refused) {
    failure = refused;
  } catch (const std::exception& error) {
    failure.emplace(error.what(), "", PostgresFailure::Link::Lost);
  }
  const std::lock_guard lock(mutex_);
  if (!isGivenUp_) link_ = std::move(link);
  link.reset();
  failure_ = std::move(failure);
  step_ = Step::Done;
  changed_.notify_all();
}

bool ConnectingThread::Work::Enter(Step step) {
  const std::lock_guard lock(mutex_);
  if (!isGivenUp_) step_ = step;
  return !isGivenUp_;
}

PostgresLink ConnectingThread::Work::Made(const std::string& server, milliseconds patience) {
  PostgresLink link = Begun(server);
  if (!Enter(Step::Speaking)) return nullptr;
  PGconn* const connection = link.get();
  Pq().setErrorVerbosity(connection, PQERRORS_VERBOSE);
  const auto end = steady_clock::now() + patience;
  PostgresPollingStatusType status =
      Pq().status(connection) == CONNECTION_BAD ? PGRES_POLLING_FAILED : PGRES_POLLING_WRITING;
  while (status != PGRES_POLLING_OK && status != PGRES_POLLING_FAILED) {
    if (!WaitFor(connection, status == PGRES_POLLING_READING ? POLLIN : POLLOUT, end)) {
      throw PostgresFailure("no answer in time", "", PostgresFailure::Link::Lost);
    }
    status = Pq().connectPoll(connection);
  }
  if (status == PGRES_POLLING_FAILED) ThrowRefused(connection);
  return link;
}

// Until the socket can be read or written, as asked for; false when time is up, or nobody waits any more.
bool ConnectingThread::Work::WaitFor(PGconn* connection, short events, steady_clock::time_point end) {
  while (Enter(Step::Speaking) && steady_clock::now() < end) {
    pollfd each{Pq().socket(connection), events, 0};
    if (::poll(&each, 1, static_cast<int>(kSlice.count())) > 0) return true;
  }
  return false;
}

PostgresLink ConnectingThread::Work::TakeWithin(milliseconds time) {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, time, [this] { return step_ == Step::Done; });
  if (failure_) throw *failure_;
  return std::move(link_);
}

// A look-up goes on by itself: nothing of it is left to be ended. Who speaks with the server is waited for, so that a
// program that ends doesn't take away what the client library works with.
void ConnectingThread::Work::GiveUp() {
  std::unique_lock lock(mutex_);
  isGivenUp_ = true;
  link_.reset();
  changed_.wait_for(lock, kPatienceWithTheEnd, [this] { return step_ != Step::Speaking; });
}

ConnectingThread::ConnectingThread(std::string server, milliseconds patience) : work_(std::make_shared<Work>()) {
  Pq();  // its error, if it isn't there, is this thread's
  try {
    std::thread([work = work_, server = std::move(server), patience] { work->Do(server, patience); }).detach();
  } catch (const std::system_error& error) {
    throw PostgresFailure(error.what(), "", PostgresFailure::Link::Lost);
  }
}

ConnectingThread::~ConnectingThread() { work_->GiveUp(); }

PostgresLink ConnectingThread::TakeWithin(milliseconds time) { return work_->TakeWithin(time); }

}  // namespace lantos
