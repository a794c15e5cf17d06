#include "support/TestServer.h"

#include <fcntl.h>
#include <libpq-fe.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace lantos::test {

TestServer& TestServer::Instance() {
  static TestServer server;
  return server;
}

// The pipe of orders ends with this process, by whatever end; the server takes that for the order to go.
TestServer::TestServer() {
  directory_ = (std::filesystem::temp_directory_path() / ("lantos-server-" + std::to_string(::getpid()))).string();
  int orders[2];
  int answers[2];
  if (::pipe2(orders, O_CLOEXEC) != 0 || ::pipe2(answers, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  process_ = ::fork();
  if (process_ == 0) {
    ::setsid();  // a key that interrupts the tests isn't for it
    ::dup2(orders[0], STDIN_FILENO);
    ::dup2(answers[1], STDOUT_FILENO);
    ::execl(LANTOS_DATABASE_SERVER, LANTOS_DATABASE_SERVER, directory_.c_str(), nullptr);
    ::_exit(127);
  }
  ::close(orders[0]);
  ::close(answers[1]);
  orders_ = orders[1];
  answers_ = answers[0];
  Tell("", "ready\n");
}

TestServer::~TestServer() {
  ::close(orders_);
  ::close(answers_);
  ::waitpid(process_, nullptr, 0);
}

void TestServer::Tell(const std::string& order, const std::string& answer) {
  std::string said;
  char each = 0;
  if (::write(orders_, order.data(), order.size()) != static_cast<ssize_t>(order.size()))
    throw std::runtime_error(order);
  while (!said.ends_with('\n') && ::read(answers_, &each, 1) == 1) said += each;
  if (said != answer)
    throw std::runtime_error("the database server said \"" + said + "\"; see " + LANTOS_DATABASE_SERVER);
}

void TestServer::Stop() { Tell("stop\n", "stopped\n"); }
void TestServer::Start() { Tell("start\n", "started\n"); }

std::string TestServer::Address(const std::string& user, const std::string& database) const {
  return "postgresql://" + user + "@/" + database + "?host=" + directory_;
}

std::string TestServer::File(const std::string& schema) const {
  return "Lantos database server\nserver = " + Address() + "\nschema = " + schema + "\n";
}

std::string TestServer::MakeSchema() {
  const std::string name = "shop" + std::to_string(++schemas_);
  PlainConnection(Address(), name).Run("CREATE SCHEMA " + name);
  return name;
}

namespace {

[[noreturn]] void Fail(pg_conn* connection) { throw std::runtime_error(PQerrorMessage(connection)); }

// As a file shows it: a number with a fraction always shows one.
std::string Shown(const PGresult* result, int row, int column) {
  if (PQgetisnull(result, row, column) != 0) return "null";
  constexpr unsigned kFloat8 = 701;
  std::string text = PQgetvalue(result, row, column);
  if (PQftype(result, column) == kFloat8 && text.find_first_of(".eN") == std::string::npos) text += ".0";
  return text;
}

}  // namespace

PlainConnection::PlainConnection(const std::string& address, const std::string& schema)
    : connection_(PQconnectdb(address.c_str())) {
  if (PQstatus(connection_) != CONNECTION_OK) Fail(connection_);
  PQsetNoticeReceiver(
      connection_, [](void*, const PGresult*) {}, nullptr);
  Run("SET search_path TO " + schema + "; SET client_encoding TO UTF8; SET DateStyle TO ISO");
}

PlainConnection::~PlainConnection() { PQfinish(connection_); }

void PlainConnection::Run(const std::string& statements) {
  PGresult* const result = PQexec(connection_, statements.c_str());
  const bool isDone = PQresultStatus(result) == PGRES_COMMAND_OK || PQresultStatus(result) == PGRES_TUPLES_OK;
  PQclear(result);
  if (!isDone) Fail(connection_);
}

std::vector<std::string> PlainConnection::Rows(const std::string& query) {
  PGresult* const result = PQexec(connection_, query.c_str());
  if (PQresultStatus(result) != PGRES_TUPLES_OK) {
    PQclear(result);
    Fail(connection_);
  }
  std::vector<std::string> rows;
  for (int row = 0; row < PQntuples(result); ++row) {
    std::string text;
    for (int i = 0; i < PQnfields(result); ++i) text += (i == 0 ? "" : "|") + Shown(result, row, i);
    rows.push_back(text);
  }
  PQclear(result);
  return rows;
}

}  // namespace lantos::test
