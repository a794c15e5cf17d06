#include "estimatedb/postgres/PostgresConnection.h"

#include <poll.h>

#include <algorithm>

#include "estimatedb/postgres/ConnectingThread.h"
#include "estimatedb/postgres/ServerLibrary.h"

namespace lantos {

namespace {

// Until the socket can be read or written, as asked for, or time is up.
bool WaitFor(PGconn* connection, short events, std::chrono::milliseconds atMost) {
  pollfd each{Pq().socket(connection), events, 0};
  return ::poll(&each, 1, static_cast<int>(std::max<std::int64_t>(atMost.count(), 0))) > 0;
}

std::string FieldOf(const PGresult* result, int field) {
  const char* text = Pq().resultErrorField(result, field);
  return text == nullptr ? "" : text;
}

// The server ends a connection with an error before it hangs up.
bool EndsTheConnection(std::string_view state) { return state.starts_with("57P") || state.starts_with("08"); }

// More different statements than the program has.
constexpr std::size_t kPlansKept = 128;

// A plan is made for the types of its values too.
std::string KeyOf(const PostgresRequest& request) {
  std::string key = request.text;
  for (const unsigned type : request.types) key += "," + std::to_string(type);
  return key;
}

// The server may begin while the rest is being put together.
constexpr std::size_t kSentAtOnce = 32;

}  // namespace

PostgresFailure FailureOf(const PGresult* result, std::size_t place) {
  const std::string state = FieldOf(result, PG_DIAG_SQLSTATE);
  std::string text = FieldOf(result, PG_DIAG_MESSAGE_PRIMARY);
  if (const std::string detail = FieldOf(result, PG_DIAG_MESSAGE_DETAIL); !detail.empty()) text += "\n" + detail;
  if (text.empty()) text = Pq().resultErrorMessage(result);
  const bool isLost = state.empty() || EndsTheConnection(state);
  return {text, state, isLost ? PostgresFailure::Link::Lost : PostgresFailure::Link::Stands, place};
}

void ClearPostgresResult::operator()(pg_result* result) const { Pq().clear(result); }
void FinishPostgresConnection::operator()(pg_conn* connection) const { Pq().finish(connection); }

PostgresConnection::PostgresConnection(const std::string& server, std::chrono::milliseconds patience) {
  ConnectingThread making(server, patience);
  connection_ = making.TakeWithin(patience);
  if (!connection_) throw PostgresFailure("no answer in time", "", PostgresFailure::Link::Lost);
  Pq().setNoticeReceiver(
      connection_.get(), [](void*, const PGresult*) {}, nullptr);
  if (Pq().setnonblocking(connection_.get(), 1) != 0 || Pq().enterPipelineMode(connection_.get()) != 1) ThrowLost();
}

PostgresConnection::~PostgresConnection() = default;

void PostgresConnection::ThrowLost() const {
  throw PostgresFailure(Pq().errorMessage(connection_.get()), "", PostgresFailure::Link::Lost);
}

PostgresConnection::Plan PostgresConnection::PlanOf(const PostgresRequest& request) const {
  if (request.use == PostgresRequest::Use::Once) return {};
  const auto known = plans_.find(KeyOf(request));
  if (known != plans_.end()) return {known->second};
  if (plans_.size() >= kPlansKept) return {};
  return {"lantos_" + std::to_string(++plansNamed_), true};
}

void PostgresConnection::Send(const PostgresRequest& request, const Plan& plan) {
  PGconn* const connection = connection_.get();
  std::vector<const char*> values;
  for (const auto& value : request.values) values.push_back(value ? value->c_str() : nullptr);
  const int count = static_cast<int>(values.size());
  const char* const text = request.text.c_str();
  if (plan.isNew && Pq().sendPrepare(connection, plan.name.c_str(), text, count, request.types.data()) != 1)
    ThrowLost();
  const int isSent =
      plan.name.empty()
          ? Pq().sendQueryParams(connection, text, count, request.types.data(), values.data(), nullptr, nullptr, 0)
          : Pq().sendQueryPrepared(connection, plan.name.c_str(), count, values.data(), nullptr, nullptr, 0);
  if (isSent != 1) ThrowLost();
}

// What the server sends meanwhile is taken in: two sides that only write would wait for each other for ever.
void PostgresConnection::Flush() {
  PGconn* const connection = connection_.get();
  int left = 0;
  while ((left = Pq().flush(connection)) == 1) {
    WaitFor(connection, POLLIN | POLLOUT, std::chrono::milliseconds(1000));
    if (Pq().consumeInput(connection) != 1) ThrowLost();
  }
  if (left < 0) ThrowLost();
}

std::vector<PostgresResult> PostgresConnection::Exchange(const std::vector<PostgresRequest>& requests,
                                                         const Look& look) {
  ++exchanges_;
  std::vector<Plan> plans;
  std::unordered_map<std::string, std::string> sentAlong;
  const PostgresRequest* before = nullptr;
  for (const PostgresRequest& request : requests) {
    const bool isAsBefore = before != nullptr && request.use == before->use && request.text == before->text &&
                            request.types == before->types;
    before = &request;
    Plan plan = isAsBefore ? Plan{plans.back().name} : PlanOf(request);
    if (plan.isNew) {
      const auto [known, isFirst] = sentAlong.try_emplace(KeyOf(request), plan.name);
      plan = {known->second, isFirst};
    }
    Send(request, plan);
    plans.push_back(std::move(plan));
    if (plans.size() % kSentAtOnce == 0) Flush();
  }
  if (Pq().pipelineSync(connection_.get()) != 1) ThrowLost();
  Flush();
  return Receive(requests, plans, look);
}

// A plan that went along is answered ahead of its statement.
std::vector<PostgresResult> PostgresConnection::Receive(const std::vector<PostgresRequest>& requests,
                                                        const std::vector<Plan>& plans, const Look& look) {
  PGconn* const connection = connection_.get();
  std::vector<PostgresResult> results;
  std::optional<PostgresFailure> failure;
  bool isPlanned = false;
  for (;;) {
    PostgresResult result(Pq().getResult(connection));
    if (!result) {
      if (Pq().status(connection) == CONNECTION_BAD) break;
      continue;  // stands between the answers of two statements
    }
    const ExecStatusType status = Pq().resultStatus(result.get());
    if (status == PGRES_PIPELINE_SYNC) break;
    if (status == PGRES_FATAL_ERROR && !failure) failure = FailureOf(result.get(), results.size());
    if (failure && failure->IsLost()) break;
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) continue;
    const std::size_t place = results.size();
    if (plans[place].isNew && !isPlanned) {
      isPlanned = true;
      plans_.emplace(KeyOf(requests[place]), plans[place].name);
      continue;
    }
    isPlanned = false;
    if (look && look(place, *result)) result.reset();
    results.push_back(std::move(result));
  }
  if (failure) throw *failure;
  if (results.size() != requests.size() || Pq().status(connection) == CONNECTION_BAD) ThrowLost();
  return results;
}

int PostgresConnection::ServerVersion() const { return Pq().serverVersion(connection_.get()); }

bool PostgresConnection::Stands() {
  PGconn* const connection = connection_.get();
  while (Pq().status(connection) == CONNECTION_OK && WaitFor(connection, POLLIN, std::chrono::milliseconds(0))) {
    if (Pq().consumeInput(connection) != 1) return false;
  }
  return Pq().status(connection) == CONNECTION_OK;
}

}  // namespace lantos
