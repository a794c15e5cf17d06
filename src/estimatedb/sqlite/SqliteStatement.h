#pragma once

#include <memory>
#include <string>
#include <vector>

#include "estimatedb/engine/Recordset.h"

struct sqlite3;
struct sqlite3_stmt;

namespace lantos {

// A statement, prepared once and run as often as wanted. It stands beside the wrapper's own class since that one can't
// tell when another workstation has altered the table behind a "select *": its columns are those of the first time.
// Everything here throws SQLite::Exception.
class SqliteStatement {
 public:
  SqliteStatement(sqlite3* connection, const std::string& text);

  // Runs from the start to the end. No columns: a closed recordset.
  Recordset Run(const std::vector<Value>& parameters);

 private:
  void Bind(int index, const Value& value);
  void BindText(int index, const std::string& text);
  void LearnColumns();
  void TakeRow(std::vector<Value>& cells);
  Value TakeCell(int column);

  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  sqlite3* connection_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
  std::shared_ptr<const ColumnList> columns_;
  int preparations_ = 0;                // how often the engine has prepared the statement anew by itself
  std::size_t cellsExpected_ = 0;       // as many as the last run gave
  std::vector<std::string> converted_;  // texts that had to be turned into UTF-8, for as long as they are bound
};

}  // namespace lantos
