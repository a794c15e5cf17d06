#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "frame/PlainWords.h"

namespace lantos {

// What callers may want to tell apart.
enum class DatabaseErrorKind {
  Other,
  Locked,     // another copy had the database for longer than the wait for it
  NotThere,   // no table or no column has the name
  Duplicate,  // a key that is there already
  Refused,    // another rule of the database is against it
  ReadOnly,
  Full,
  Unreachable,  // the file can't be opened, read or written
  Damaged,
};

// What a person is told of it. A lock has its own words, since they name the wait.
std::string_view WordsOf(DatabaseErrorKind kind);
std::string WordsOfLock(std::string_view file, std::chrono::milliseconds wait);
// Of a file that another one has taken the place of.
std::string WordsOfMove(std::string_view file);
// With the database's file behind them, where its place is worth knowing.
std::string WordsOf(DatabaseErrorKind kind, std::string_view file);

// A statement that the engine refused: the text has the statement and the values that were involved, and is for the run
// log; the words are for the person. One that the program made up itself says the same to both.
class DatabaseError : public WordedError {
 public:
  explicit DatabaseError(const std::string& text, DatabaseErrorKind kind = DatabaseErrorKind::Other)
      : WordedError(text, text), kind_(kind) {}
  DatabaseError(const std::string& text, DatabaseErrorKind kind, int number, const std::string& words)
      : WordedError(text, words), kind_(kind), number_(number) {}

  DatabaseErrorKind Kind() const { return kind_; }
  int Number() const { return number_; }  // the engine's own; 0 for an error that isn't the engine's

 private:
  DatabaseErrorKind kind_;
  int number_ = 0;
};

}  // namespace lantos
