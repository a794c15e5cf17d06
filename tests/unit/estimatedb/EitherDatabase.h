#pragma once

#include <memory>
#include <string>
#include <vector>

#include "DatabaseFixture.h"
#include "estimatedb/EngineChoice.h"
#include "support/TestServer.h"

namespace lantos::test {

enum class Kept { InAFile, OnAServer };

inline std::string NameOfKept(const testing::TestParamInfo<Kept>& kept) {
  return kept.param == Kept::InAFile ? "InAFile" : "OnAServer";
}

// A shop with the installation's Lantos.mdb, connected: the database itself, or the file that names a server with an
// empty one. What is expected of either is the same.
class EitherDatabase : public DatabaseTest, public testing::WithParamInterface<Kept> {
 protected:
  EitherDatabase() {
    if (!IsOnAServer()) return;
    schema_ = TestServer::Instance().MakeSchema();
    Put("Lantos.mdb", TestServer::Instance().File(schema_));
    MakeLantosTables(*Workstation());
  }

  static bool IsOnAServer() { return GetParam() == Kept::OnAServer; }
  const std::string& Schema() const { return schema_; }
  // Of the two, what the one at hand says.
  static std::string Either(const std::string& file, const std::string& server) {
    return IsOnAServer() ? server : file;
  }

  std::unique_ptr<Engine> Workstation(std::chrono::milliseconds busyTimeout = kBusyTimeout) {
    return OpenDatabase(Path(), clock, busyTimeout);
  }
  void Plain(const std::string& statements) const {
    IsOnAServer() ? PlainlyOnServer().Run(statements) : DatabaseTest::Plain(statements);
  }
  std::vector<std::string> PlainRows(const std::string& query) const {
    return IsOnAServer() ? PlainlyOnServer().Rows(query) : DatabaseTest::PlainRows(query);
  }
  std::string PlainValue(const std::string& query) const {
    const std::vector<std::string> rows = PlainRows(query);
    return rows.size() == 1 ? rows.front() : std::to_string(rows.size()) + " rows";
  }
  // Somebody's trigger is against each "insert", "update" or "delete" of a table, until it is gone again.
  void Refuse(const std::string& event, const std::string& table) const {
    const std::string begin = "create trigger Refusal before " + event + " on " + table;
    if (!IsOnAServer()) return Plain(begin + " begin select raise(abort, 'not today'); end");
    Plain(
        "create or replace function Refuse() returns trigger language plpgsql as "
        "$$ begin raise exception 'not today'; end $$; " +
        begin + " for each row execute function Refuse()");
  }
  void AllowAgain(const std::string& table) const {
    Plain("drop trigger Refusal" + (IsOnAServer() ? " on " + table : ""));
  }
  // What kind of error an action throws; it must throw one.
  template <class Action>
  static DatabaseErrorKind KindOf(Action action) {
    try {
      action();
    } catch (const DatabaseError& error) {
      return error.Kind();
    }
    throw std::logic_error("nothing failed");
  }

 private:
  PlainConnection& PlainlyOnServer() const {
    if (!plain_) plain_ = std::make_unique<PlainConnection>(TestServer::Instance().Address(), schema_);
    return *plain_;
  }

  std::string schema_;
  mutable std::unique_ptr<PlainConnection> plain_;
};

#define ON_EITHER_DATABASE(Fixture) \
  INSTANTIATE_TEST_SUITE_P(Kept, Fixture, testing::Values(Kept::InAFile, Kept::OnAServer), NameOfKept)

}  // namespace lantos::test
