#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

struct pg_conn;
struct pg_result;

namespace lantos {

// What a server, or the way to it, has against something.
class PostgresFailure : public std::runtime_error {
 public:
  enum class Link { Stands, Lost };

  // The state is the five characters of the server's table of errors; empty where it said nothing. Text is UTF-8. Place
  // is that of the request that failed among those that were sent.
  PostgresFailure(const std::string& text, std::string state, Link link, std::size_t place = 0)
      : std::runtime_error(text), state_(std::move(state)), link_(link), place_(place) {}

  const std::string& State() const { return state_; }
  bool IsLost() const { return link_ == Link::Lost; }
  std::size_t Place() const { return place_; }

 private:
  std::string state_;
  Link link_;
  std::size_t place_;
};

// A statement in the server's words, with its values as text; nothing stands for null. A type of 0 leaves it to the
// server what the value is. Planned: one that comes often, which the server takes in once.
struct PostgresRequest {
  enum class Use { Once, Planned };

  std::string text;
  std::vector<std::optional<std::string>> values = {};
  std::vector<unsigned> types = {};
  Use use = Use::Once;
};

struct ClearPostgresResult {
  void operator()(pg_result* result) const;
};
using PostgresResult = std::unique_ptr<pg_result, ClearPostgresResult>;

struct FinishPostgresConnection {
  void operator()(pg_conn* connection) const;
};
using PostgresLink = std::unique_ptr<pg_conn, FinishPostgresConnection>;

// What the server says in place of an answer. Place as in PostgresFailure.
PostgresFailure FailureOf(const pg_result* result, std::size_t place = 0);

// One connection. Everything here throws PostgresFailure.
class PostgresConnection {
 public:
  // Server is a connection string. Patience is with its look-up and its answer together.
  PostgresConnection(const std::string& server, std::chrono::milliseconds patience);
  ~PostgresConnection();
  PostgresConnection(const PostgresConnection&) = delete;
  PostgresConnection& operator=(const PostgresConnection&) = delete;

  // Told of each answer as it comes, by the place of its request, while the server is at the next. True: it has what it
  // wants of it, and the answer is left out.
  using Look = std::function<bool(std::size_t place, const pg_result& answer)>;
  // Sends all in one go and waits for all that comes back: one round trip. Outside of a transaction they are one. The
  // first that fails keeps the others behind it from being done, and is thrown. What is left out is null.
  std::vector<PostgresResult> Exchange(const std::vector<PostgresRequest>& requests, const Look& look = nullptr);
  // What the server has taken in is taken in anew from now on.
  void ForgetPlans() { plans_.clear(); }
  // Whether it stands, as far as can be told without asking the server.
  bool Stands();
  // 150003 is 15.3; 0 where it can't be told.
  int ServerVersion() const;
  // Round trips so far, the making of the connection left out.
  std::size_t Exchanges() const { return exchanges_; }

 private:
  // The plan of a request and whether it is sent along; no name for a request without one.
  struct Plan {
    std::string name;
    bool isNew = false;
  };
  Plan PlanOf(const PostgresRequest& request) const;
  void Send(const PostgresRequest& request, const Plan& plan);
  std::vector<PostgresResult> Receive(const std::vector<PostgresRequest>& requests, const std::vector<Plan>& plans,
                                      const Look& look);
  void Flush();
  [[noreturn]] void ThrowLost() const;

  PostgresLink connection_;
  std::unordered_map<std::string, std::string> plans_;  // names by what they are of
  mutable std::size_t plansNamed_ = 0;
  std::size_t exchanges_ = 0;
};

}  // namespace lantos
