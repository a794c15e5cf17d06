#include "estimatedb/postgres/PostgresEngine.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "estimatedb/engine/SqlWords.h"
#include "estimatedb/engine/StatementText.h"
#include "estimatedb/postgres/PostgresDialect.h"
#include "estimatedb/postgres/PostgresRequests.h"
#include "estimatedb/postgres/PostgresRows.h"
#include "estimatedb/postgres/PostgresValues.h"
#include "estimatedb/postgres/ServerLibrary.h"
#include "estimatedb/postgres/ServerSession.h"
#include "estimatedb/postgres/ServerWatch.h"
#include "frame/Dates.h"
#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// More different statements than the program has; texts made up on the way push nothing out that matters.
constexpr std::size_t kStatementsKept = 128;

// Within a transaction each statement is one of its own: the server gives up the whole of it otherwise when one fails.
const PostgresRequest kBeginStatement{"SAVEPOINT lantos_statement"};
const PostgresRequest kEndStatement{"RELEASE SAVEPOINT lantos_statement"};
const PostgresRequest kUndoStatement{"ROLLBACK TO SAVEPOINT lantos_statement"};
const PostgresRequest kBeginPart{"SAVEPOINT lantos_part"};
const PostgresRequest kEndPart{"RELEASE SAVEPOINT lantos_part"};
const PostgresRequest kUndoPart{"ROLLBACK TO SAVEPOINT lantos_part"};

}  // namespace

PostgresEngine::PostgresEngine(ServerPlace place, const Clock& clock, std::chrono::milliseconds busyTimeout)
    : place_(std::move(place)), clock_(clock), busyTimeout_(busyTimeout) {
  Connect();
}

void PostgresEngine::Connect() {
  Drop();
  const DaySerial today = clock_.Today();
  ServerSession session = OpenSession(place_, today, busyTimeout_, own_->Name());
  connection_ = std::move(session.connection);
  keys_ = std::move(session.keys);
  statements_.clear();
  today_ = today;
}

void PostgresEngine::Drop() {
  roundTripsBefore_ = RoundTrips();
  connection_.reset();
  today_.reset();
}

Recordset PostgresEngine::Run(std::string_view statement, const std::vector<Value>& parameters) {
  if (std::optional<Recordset> known = foreseen_.Take(statement, parameters)) return std::move(*known);
  Fate fate = Fate::NotStored;
  try {
    const Statement& turned = StatementFor(statement, parameters);
    const Purpose purpose = turned.isWriting ? Purpose::Write : Purpose::Read;
    if (turned.isWriting) foreseen_.Forget();
    if (transaction_ == Transaction::None && turned.isWriting) fate = Fate::Unknown;
    const PostgresResult result = Ask(RequestsOf(turned.texts, parameters), purpose);
    Forget(statement, DatabaseErrorKind::Other);
    return RowsOf(*result);
  } catch (const PostgresFailure& failure) {
    Forget(statement, KindOfState(failure.State()));
    Rethrow(failure, statement, parameters, fate);
  }
}

// Without a plan: one that the server has lost could be asked for again, what went before it couldn't.
void PostgresEngine::Post(std::string_view statement, const std::vector<Value>& parameters) {
  const bool isAlone = transaction_ == Transaction::None || transaction_ == Transaction::Lost || parts_ != 0;
  const Statement* const turned = isAlone ? nullptr : &StatementFor(statement, parameters);
  if (turned == nullptr || turned->texts.size() != 1) {
    Run(statement, parameters);
    return;
  }
  foreseen_.Forget();
  posted_.push_back({std::string(statement), parameters, pending_.size()});
  Append(pending_, RequestsOf(turned->texts, parameters, PostgresRequest::Use::Once));
}

std::string PostgresEngine::Name() const {
  const int version = connection_ ? connection_->ServerVersion() : 0;
  const std::string number = version == 0 ? "" : fmt::format(" {}.{}", version / 10000, version % 10000);
  return fmt::format("PostgreSQL{} at {}, database \"{}\"", number, place_.address, place_.database);
}

std::unique_ptr<ChangeWatch> PostgresEngine::Watch(const WatchTimes& times) {
  return std::make_unique<ServerWatch>(place_, own_, times);
}

std::vector<PostgresResult> PostgresEngine::AskPlainly(const std::vector<PostgresRequest>& requests) {
  try {
    return AskInTransaction(requests);
  } catch (const PostgresFailure& failure) {
    Rethrow(failure, FromUtf8(requests.front().text), {}, Fate::NotStored);
  }
}

// What makes or changes tables, and what misses one, shows that the keys must be asked for again.
void PostgresEngine::Forget(std::string_view statement, DatabaseErrorKind kind) {
  const std::vector<Word> words = MeaningfulWords(statement);
  const auto begins = [&](std::string_view keyword) { return !words.empty() && IsKeyword(words[0], keyword); };
  if (kind != DatabaseErrorKind::NotThere && !begins("CREATE") && !begins("ALTER") && !begins("DROP")) return;
  keys_.reset();
  statements_.clear();
}

const PostgresEngine::Statement& PostgresEngine::StatementFor(std::string_view statement,
                                                              const std::vector<Value>& parameters) {
  const Statement& turned = StatementOf(statement);
  if (parameters.size() == turned.places) return turned;
  throw DatabaseError("The number of values isn't that of the statement's parameters.\n\n" +
                      StatementForLog(statement, parameters));
}

const PostgresEngine::Statement& PostgresEngine::StatementOf(std::string_view statement) {
  const auto known = statements_.find(statement);
  if (known != statements_.end()) return known->second;
  const std::vector<Word> words = MeaningfulWords(statement);
  if (words.empty()) throw DatabaseError("The statement is empty.");
  Statement turned;
  turned.texts = ToPostgres(statement, [this](std::string_view table) { return KeyOf(table); });
  turned.places = static_cast<std::size_t>(
      std::count_if(words.begin(), words.end(), [](const Word& word) { return IsSign(word, '?'); }));
  turned.isWriting = IsWriting(statement);
  if (statements_.size() >= kStatementsKept) statements_.clear();
  return statements_.emplace(statement, std::move(turned)).first->second;
}

const std::vector<std::string>& PostgresEngine::KeyOf(std::string_view table) {
  static const std::vector<std::string> kNone;
  if (!keys_) keys_ = KeysIn(*Ask({{std::string(kAskForKeys)}}, Purpose::Read));
  const auto found = keys_->find(ToLower(Unquoted(table)));
  return found == keys_->end() ? kNone : found->second;
}

void PostgresEngine::Insert(std::string_view table, const std::vector<std::string>& columns,
                            const std::vector<Value>& values) {
  std::string places;
  for (std::size_t i = 0; i < columns.size(); ++i) places += i == 0 ? "?" : ", ?";
  Run(fmt::format("INSERT INTO {} ({}) VALUES ({})", table, fmt::join(columns, ", "), places), values);
}

void PostgresEngine::UpdateFirst(std::string_view table, const std::vector<std::string>& columns,
                                 const std::vector<Value>& values, const RowKey& key) {
  std::vector<Value> all = values;
  all.push_back(key.value);
  Run(fmt::format("UPDATE {} SET {} = ? WHERE {}", table, fmt::join(columns, " = ?, "),
                  FirstRowWhere(table, key.column)),
      all);
}

void PostgresEngine::DeleteFirst(std::string_view table, const RowKey& key) {
  Run(fmt::format("DELETE FROM {} WHERE {}", table, FirstRowWhere(table, key.column)), {key.value});
}

// A row's own place is of no use for a table that the program knows the key of: it moves with each change.
std::string PostgresEngine::FirstRowWhere(std::string_view table, std::string_view column) {
  std::string key;
  try {
    key = fmt::format("{}", fmt::join(KeyOf(table), ", "));
  } catch (const PostgresFailure& failure) {
    Rethrow(failure, table, {}, Fate::NotStored);
  }
  if (key.empty()) key = "ctid";
  return fmt::format("({0}) = (SELECT {0} FROM {1} WHERE {2} = ? ORDER BY {0} LIMIT 1)", key, table, column);
}

// Without a transaction, what is sent together is one.
PostgresResult PostgresEngine::Ask(const std::vector<PostgresRequest>& requests, Purpose purpose) {
  if (transaction_ != Transaction::None) return std::move(AskInTransaction(requests).back());
  if (!connection_ || !connection_->Stands()) Connect();
  return OrWithNewPlans([&] {
    std::vector<PostgresRequest> all = Opening(purpose);
    Append(all, requests);
    return std::move(Exchange(all).back());
  });
}

std::vector<PostgresResult> PostgresEngine::AskInTransaction(const std::vector<PostgresRequest>& requests,
                                                             const Look& look) {
  return OrWithNewPlans([&] { return AskWithin(requests, look); });
}

std::vector<PostgresResult> PostgresEngine::AskWithin(const std::vector<PostgresRequest>& requests, const Look& look) {
  if (transaction_ == Transaction::Lost) std::rethrow_exception(allUndone_);
  if (transaction_ == Transaction::Asked && (!connection_ || !connection_->Stands())) Connect();
  std::vector<PostgresRequest> all = std::exchange(pending_, {});
  const std::size_t ahead = all.size();
  all.push_back(kBeginStatement);
  Append(all, requests);
  all.push_back(kEndStatement);
  transaction_ = Transaction::Begun;
  try {
    const Look lookAtRequested = [&](std::size_t place, const pg_result& answer) {
      const bool isRequested = look && place > ahead && place <= ahead + requests.size();
      return isRequested && look(place - ahead - 1, answer);
    };
    std::vector<PostgresResult> results = Exchange(all, lookAtRequested);
    posted_.clear();
    results.erase(results.begin(), results.begin() + static_cast<std::ptrdiff_t>(ahead + 1));
    results.pop_back();
    return results;
  } catch (const PostgresFailure& failure) {
    if (failure.IsLost() || failure.Place() < ahead) {
      transaction_ = Transaction::Lost;
      RethrowPosted(failure, ahead);
    } else {
      posted_.clear();
      pending_ = {kUndoStatement, kEndStatement};
    }
    throw;
  }
}

std::vector<PostgresResult> PostgresEngine::Exchange(const std::vector<PostgresRequest>& requests, const Look& look) {
  try {
    return connection_->Exchange(requests, look);
  } catch (const PostgresFailure& failure) {
    today_.reset();  // may be undone with what failed
    if (failure.IsLost()) Drop();
    throw;
  }
}

// What goes ahead of whatever writes: which day it is, and one's turn.
std::vector<PostgresRequest> PostgresEngine::Opening(Purpose purpose) {
  if (purpose == Purpose::Read) return {};
  std::vector<PostgresRequest> requests;
  if (const DaySerial today = clock_.Today(); today_ != today) {
    requests.push_back(TellToday(today));
    today_ = today;
  }
  requests.push_back({std::string(kTakeTurn)});
  return requests;
}

void PostgresEngine::Together(const std::function<void()>& work) { InTransaction(Purpose::Write, work); }

void PostgresEngine::ReadTogether(const std::function<void()>& work) { InTransaction(Purpose::Read, work); }

void PostgresEngine::Apart(const std::function<void()>& work) {
  if (transaction_ == Transaction::None) return Together(work);
  pending_.push_back(kBeginPart);
  ++parts_;
  try {
    work();
  } catch (...) {
    --parts_;
    foreseen_.Forget();  // may be of what is undone
    Append(pending_, {kUndoPart, kEndPart});
    throw;
  }
  --parts_;
  pending_.push_back(kEndPart);
}

// Within a transaction the work is part of that one.
void PostgresEngine::InTransaction(Purpose purpose, const std::function<void()>& work) {
  if (transaction_ != Transaction::None) return work();
  transaction_ = Transaction::Asked;
  allUndone_ = nullptr;
  pending_ = {{purpose == Purpose::Write ? "BEGIN" : std::string(kBeginReading)}};
  Append(pending_, Opening(purpose));
  try {
    work();
    if (transaction_ == Transaction::Lost) std::rethrow_exception(allUndone_);
    Commit(purpose);
  } catch (...) {
    Undo();
    throw;
  }
}

void PostgresEngine::Commit(Purpose purpose) {
  foreseen_.Forget();
  std::vector<PostgresRequest> all = std::exchange(pending_, {});
  const bool isBegun = std::exchange(transaction_, Transaction::None) == Transaction::Begun;
  if (!isBegun && posted_.empty()) return;
  if (!isBegun && (!connection_ || !connection_->Stands())) Connect();
  all.push_back({"COMMIT"});
  try {
    const std::vector<PostgresResult> results = Exchange(all);
    posted_.clear();
    const std::string_view done = Pq().cmdStatus(results.back().get());
    if (done != "COMMIT") throw DatabaseError(fmt::format("The server ended several changes together by {}.", done));
  } catch (const PostgresFailure& failure) {
    if (!failure.IsLost()) RethrowPosted(failure, all.size());
    Rethrow(failure, "several changes together", {}, purpose == Purpose::Write ? Fate::Unknown : Fate::NotStored);
  }
}

void PostgresEngine::Undo() noexcept {
  foreseen_.Forget();
  pending_.clear();
  posted_.clear();
  transaction_ = Transaction::None;
  try {
    statements_.clear();
    keys_.reset();
    today_.reset();
    if (connection_) Exchange({{"ROLLBACK"}});
  } catch (...) {
    connection_.reset();  // the server undoes what has lost its connection
  }
}

// As its own failure, where it is that of a posted statement.
void PostgresEngine::RethrowPosted(const PostgresFailure& failure, std::size_t ahead) {
  for (const Posted& each : std::exchange(posted_, {})) {
    if (each.place != failure.Place() || failure.Place() >= ahead || failure.IsLost()) continue;
    Rethrow(failure, each.statement, each.parameters, Fate::NotStored);
  }
}

// Called while the failure is on its way.
void PostgresEngine::Rethrow(const PostgresFailure& failure, std::string_view statement,
                             const std::vector<Value>& parameters, Fate fate) {
  const DatabaseErrorKind kind = failure.IsLost() ? DatabaseErrorKind::Unreachable : KindOfState(failure.State());
  const std::string file = TextOfPath(place_.file);
  std::string text =
      fmt::format("{} {}\n\n{}", failure.State(), FromUtf8(failure.what()), StatementForLog(statement, parameters));
  std::string words = WordsOf(kind, file);
  if (failure.IsLost()) words = WordsOfLostConnection(place_, fate);
  if (failure.IsLost() && fate == Fate::Unknown) own_->Doubt();
  if (kind == DatabaseErrorKind::Locked) {
    words = WordsOfLock(file, busyTimeout_);
    text = words + "\n\n" + text;
  }
  const DatabaseError error(text, kind, 0, words);
  if (transaction_ == Transaction::Lost) allUndone_ = std::make_exception_ptr(error);
  throw error;
}

std::string LibraryOfServers() {
  const int version = Pq().libVersion();
  return fmt::format("libpq {}.{}", version / 10000, version % 10000);
}

}  // namespace lantos
