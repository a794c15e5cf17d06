#pragma once

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/engine/Recordset.h"

namespace lantos {

// How long a lock that another copy of the program holds is waited for, unless somebody says otherwise.
inline constexpr std::chrono::milliseconds kBusyTimeout{5000};

// What callers may want to tell apart.
enum class DatabaseErrorKind {
  Other,
  Locked,    // another copy had the database for longer than the wait for it
  NotThere,  // no table or no column has the name
};

// A statement that the engine refused, with the statement and the values that were involved.
class DatabaseError : public std::runtime_error {
 public:
  explicit DatabaseError(const std::string& text, DatabaseErrorKind kind = DatabaseErrorKind::Other)
      : std::runtime_error(text), kind_(kind) {}
  DatabaseError(const std::string& text, DatabaseErrorKind kind, int number, std::string description)
      : std::runtime_error(text), kind_(kind), number_(number), description_(std::move(description)) {}

  DatabaseErrorKind Kind() const { return kind_; }
  // As the engine itself has them; 0 and what() for an error that isn't the engine's.
  int Number() const { return number_; }
  std::string Description() const { return description_.empty() ? what() : description_; }

 private:
  DatabaseErrorKind kind_;
  int number_ = 0;
  std::string description_;
};

// The one row that a change through a recordset is meant for: the first whose column has the value.
struct RowKey {
  std::string_view column;
  Value value;
};

// A database behind the named commands: opens, runs a statement with parameters, gives rows by column name. Text
// crosses this border in the program's page and lies as Unicode in the database; dates lie there as ISO text.
// Every call throws DatabaseError when the engine refuses.
class Engine {
 public:
  virtual ~Engine() = default;
  // Runs a statement of the program's dialect. Rows, if it has any, are fetched whole; a statement without rows gives
  // a closed recordset.
  virtual Recordset Run(std::string_view statement, const std::vector<Value>& parameters) = 0;
  // What recordsets do to the one table they come from: a new row, a changed one, one row less. Where no row has the
  // key, a change or removal does nothing.
  virtual void Insert(std::string_view table, const std::vector<std::string>& columns,
                      const std::vector<Value>& values) = 0;
  virtual void UpdateFirst(std::string_view table, const std::vector<std::string>& columns,
                           const std::vector<Value>& values, const RowKey& key) = 0;
  virtual void DeleteFirst(std::string_view table, const RowKey& key) = 0;
  // All of the work or nothing of it, kept together and written once.
  virtual void Together(const std::function<void()>& work) = 0;
  // Statements that only read, seeing one state of the database and sharing one lock: many small ones take a third of
  // the time. Nobody can write meanwhile, so nothing in the work may wait for a person.
  virtual void ReadTogether(const std::function<void()>& work) = 0;
};

}  // namespace lantos
