#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <vector>

#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "records/Fixture.h"

namespace lantos::test {

inline DaySerial Day(int year, int month, int day) { return ToSerial({year, month, day}); }

// What another program does to a database file: plain SQLite, nothing of ours in between.
inline void Plain(const std::filesystem::path& path, const std::string& statements) {
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, 5000);
  database.exec("PRAGMA synchronous = OFF");
  database.exec(statements);
}

// The rows of a statement as another program sees them: values joined by "|", nulls as "null", one row a text.
inline std::vector<std::string> PlainRows(const std::filesystem::path& path, const std::string& query) {
  SQLite::Database database(path.string(), SQLite::OPEN_READONLY, 5000);
  SQLite::Statement statement(database, query);
  std::vector<std::string> rows;
  while (statement.executeStep()) {
    std::string row;
    for (int i = 0; i < statement.getColumnCount(); ++i) {
      const SQLite::Column column = statement.getColumn(i);
      row += (i == 0 ? "" : "|") + (column.isNull() ? std::string("null") : column.getString());
    }
    rows.push_back(row);
  }
  return rows;
}

// The rows of an open recordset in the same form, dates as the program writes them.
inline std::vector<std::string> Dump(Recordset& rows) {
  std::vector<std::string> result;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    std::string row;
    for (const std::string& column : rows.Columns()) {
      row += (row.empty() ? "" : "|") + (rows.IsNull(column) ? std::string("null") : rows.Text(column));
    }
    result.push_back(row);
  }
  return result;
}

// A shop with the installation's Lantos.mdb, connected.
class DatabaseTest : public ShopTest {
 protected:
  DatabaseTest() {
    Put("Lantos.mdb", EmptyDatabase());
    Connect(database, environment);
  }

  std::filesystem::path Path() const { return PathOf("Lantos.mdb"); }
  void Plain(const std::string& statements) const { test::Plain(Path(), statements); }
  std::vector<std::string> PlainRows(const std::string& query) const { return test::PlainRows(Path(), query); }
  // The one value of a query.
  std::string PlainValue(const std::string& query) const {
    const std::vector<std::string> rows = PlainRows(query);
    return rows.size() == 1 ? rows.front() : std::to_string(rows.size()) + " rows";
  }

  // The installation's database, made once: making it waits for the disk.
  const std::string& EmptyDatabase() {
    static const std::string bytes = [this] {
      CreateLantosDatabase(PathOf("made.mdb"), clock);
      std::string made = BytesOf("made.mdb");
      std::filesystem::remove(PathOf("made.mdb"));
      return made;
    }();
    return bytes;
  }

  EstimateDatabase database{environment, records};
  de& db = database.lantosData;
};

// What an action throws, as text; empty when it doesn't.
template <class Action>
std::string ErrorOf(Action action) {
  try {
    action();
  } catch (const DatabaseError& error) {
    return error.what();
  }
  return {};
}

}  // namespace lantos::test
