#pragma once

#include <chrono>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "estimatedb/engine/Engine.h"
#include "estimatedb/postgres/ForeseenAnswers.h"
#include "estimatedb/postgres/OwnChanges.h"
#include "estimatedb/postgres/PostgresConnection.h"
#include "estimatedb/postgres/ServerFile.h"
#include "estimatedb/postgres/ServerWords.h"
#include "frame/Clock.h"

namespace lantos {

// The tables of a shop in a schema of a PostgreSQL server. It answers as a file does: one workstation writes at a time,
// who waits for it longer than the timeout is told so; a statement that fails within a transaction is undone alone;
// rows come in the order of a file. "today" inside the database is the clock's. Whenever the connection was lost, the
// next statement makes a new one; a transaction that it took along fails whatever comes.
class PostgresEngine : public Engine {
 public:
  // Connects. Throws DatabaseError, whose words say which server and what can be done.
  PostgresEngine(ServerPlace place, const Clock& clock, std::chrono::milliseconds busyTimeout = kBusyTimeout);

  Recordset Run(std::string_view statement, const std::vector<Value>& parameters) override;
  void Insert(std::string_view table, const std::vector<std::string>& columns,
              const std::vector<Value>& values) override;
  void UpdateFirst(std::string_view table, const std::vector<std::string>& columns, const std::vector<Value>& values,
                   const RowKey& key) override;
  void DeleteFirst(std::string_view table, const RowKey& key) override;
  void Together(const std::function<void()>& work) override;
  void Apart(const std::function<void()>& work) override;
  void ReadTogether(const std::function<void()>& work) override;
  void Post(std::string_view statement, const std::vector<Value>& parameters) override;
  bool IsFar() const override { return true; }
  void Foresee(const std::vector<Question>& questions) override;
  void ReadAhead(const std::vector<Question>& questions, const std::function<void()>& work) override;
  std::unique_ptr<ChangeWatch> Watch(const WatchTimes& times) override;

  // Within Together, in the server's own words; one round trip.
  std::vector<PostgresResult> AskPlainly(const std::vector<PostgresRequest>& requests);
  // What it is and where, for a person; asks nobody.
  std::string Name() const;
  // How often the server was asked and waited for.
  std::size_t RoundTrips() const { return roundTripsBefore_ + (connection_ ? connection_->Exchanges() : 0); }

 private:
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  // A statement as the server takes it.
  struct Statement {
    std::vector<std::string> texts;
    std::size_t places = 0;  // for values
    bool isWriting = false;
  };
  enum class Purpose { Read, Write };
  // Asked: it begins with its first statement. Lost: the server has undone it, with its connection or by itself.
  enum class Transaction { None, Asked, Begun, Lost };

  // A statement that was posted, and its place among what is pending.
  struct Posted {
    std::string statement;
    std::vector<Value> parameters;
    std::size_t place = 0;
  };

  void Connect();
  void Drop();
  const std::vector<std::string>& KeyOf(std::string_view table);
  std::string FirstRowWhere(std::string_view table, std::string_view column);
  const Statement& StatementOf(std::string_view statement);
  const Statement& StatementFor(std::string_view statement, const std::vector<Value>& parameters);
  std::vector<PostgresRequest> RequestsFor(const std::vector<Question>& questions);
  void Keep(const std::vector<Question>& questions, std::vector<Recordset> answers);
  void Forget(std::string_view statement, DatabaseErrorKind kind);
  PostgresResult Ask(const std::vector<PostgresRequest>& requests, Purpose purpose);
  using Look = PostgresConnection::Look;
  std::vector<PostgresResult> AskInTransaction(const std::vector<PostgresRequest>& requests,
                                               const Look& look = nullptr);
  std::vector<PostgresResult> AskWithin(const std::vector<PostgresRequest>& requests, const Look& look);
  // Somebody else has changed a table that a plan speaks of, or something between here and the server has lost the
  // plans: what was asked for hasn't been done, and is asked for once more.
  template <class Asking>
  auto OrWithNewPlans(Asking ask) {
    try {
      return ask();
    } catch (const PostgresFailure& failure) {
      if (failure.State() != "0A000" && failure.State() != "26000") throw;
      connection_->ForgetPlans();
    }
    return ask();
  }
  std::vector<PostgresResult> Exchange(const std::vector<PostgresRequest>& requests, const Look& look = nullptr);
  std::vector<PostgresRequest> Opening(Purpose purpose);
  void InTransaction(Purpose purpose, const std::function<void()>& work);
  void Commit(Purpose purpose);
  void AskAhead(const std::vector<Question>& questions);
  void EndReadingAhead();
  void RethrowPosted(const PostgresFailure& failure, std::size_t ahead);
  void Undo() noexcept;
  [[noreturn]] void Rethrow(const PostgresFailure& failure, std::string_view statement,
                            const std::vector<Value>& parameters, Fate fate);

  ServerPlace place_;
  const Clock& clock_;
  std::chrono::milliseconds busyTimeout_;
  std::shared_ptr<OwnChanges> own_ = std::make_shared<OwnChanges>();
  std::unique_ptr<PostgresConnection> connection_;
  std::size_t roundTripsBefore_ = 0;  // of earlier connections
  std::unordered_map<std::string, Statement, TextHash, std::equal_to<>> statements_;
  std::optional<std::map<std::string, std::vector<std::string>>> keys_;  // by table in lower case; none: not learned
  std::optional<DaySerial> today_;                                       // that the server was told
  Transaction transaction_ = Transaction::None;
  std::vector<PostgresRequest> pending_;  // what the transaction sends ahead of its next statement
  std::vector<Posted> posted_;
  int parts_ = 0;                 // of the transaction, one within the other
  std::exception_ptr allUndone_;  // why nothing of the running transaction is left
  ForeseenAnswers foreseen_;
  bool isReadingAhead_ = false;
};

// "libpq 15.8". Throws DatabaseError where it isn't installed.
std::string LibraryOfServers();

}  // namespace lantos
