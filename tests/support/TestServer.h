#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

struct pg_conn;

namespace lantos::test {

// A database server of this program's own, on a socket in a temporary directory: started when somebody first asks for
// it, ended with the program, however that ends. Several schemas, one a test, keep tests apart.
class TestServer {
 public:
  static TestServer& Instance();

  // As whom a connection is made: the shop's user may do nothing but make schemas and what is in them.
  std::string Address(const std::string& user = "shop", const std::string& database = "test") const;
  const std::string& Directory() const { return directory_; }
  // The text of a file that stands in a database's place.
  std::string File(const std::string& schema) const;
  // Its name.
  std::string MakeSchema();

  // With the connections that it has.
  void Stop();
  void Start();

 private:
  TestServer();
  ~TestServer();
  void Tell(const std::string& order, const std::string& answer);

  std::string directory_;
  int orders_ = -1;
  int answers_ = -1;
  pid_t process_ = -1;
  int schemas_ = 0;
};

// What another program does on the server: the client library, nothing of ours in between.
class PlainConnection {
 public:
  // The schema stands first for names without one.
  PlainConnection(const std::string& address, const std::string& schema);
  ~PlainConnection();
  PlainConnection(const PlainConnection&) = delete;

  // Several at once; throws std::runtime_error with the server's words.
  void Run(const std::string& statements);
  // Values joined by "|", nulls as "null", one row a text; numbers as a file would show them.
  std::vector<std::string> Rows(const std::string& query);

 private:
  pg_conn* connection_;
};

}  // namespace lantos::test
