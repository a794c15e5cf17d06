#include "estimatedb/engine/DatabaseError.h"

#include <fmt/format.h>

namespace lantos {

std::string_view WordsOf(DatabaseErrorKind kind) {
  switch (kind) {
    case DatabaseErrorKind::Locked:
      return "Another copy of the program has the database locked. Nothing was stored.";
    case DatabaseErrorKind::NotThere:
      return "The database lacks a table or column that the program needs. The run log names it.";
    case DatabaseErrorKind::Duplicate:
      return "The database has an entry of that number or name already; another workstation may have stored it. "
             "This one was not stored.";
    case DatabaseErrorKind::Refused:
      return "The database refused the change. Nothing was stored; the run log has the reason.";
    case DatabaseErrorKind::ReadOnly:
      return "The database can't be written to. Nothing was stored.";
    case DatabaseErrorKind::Full:
      return "The disk of the database is full. Nothing was stored.";
    case DatabaseErrorKind::Unreachable:
      return "The database can't be reached. Nothing was stored; the run log has the reason.";
    case DatabaseErrorKind::Damaged:
      return "The file of the database is damaged. The run log has the reason.";
    case DatabaseErrorKind::Other:
      break;
  }
  return "The database couldn't do what it was asked for. The run log has the reason.";
}

std::string WordsOf(DatabaseErrorKind kind, std::string_view file) {
  const bool isOfTheRows = kind == DatabaseErrorKind::Duplicate || kind == DatabaseErrorKind::Refused;
  return isOfTheRows ? std::string(WordsOf(kind)) : fmt::format("{}\n\n{}", WordsOf(kind), file);
}

std::string WordsOfLock(std::string_view file, std::chrono::milliseconds wait) {
  return fmt::format(
      "Another copy of the program has the database \"{}\" locked; it didn't become free within {:g} seconds. What was "
      "to be done in it was not done.",
      file, std::chrono::duration<double>(wait).count());
}

std::string WordsOfMove(std::string_view file) {
  return fmt::format(
      "The estimates have been moved, or restored from a copy, while this program ran: \"{}\" isn't the file that it "
      "has open. Nothing was stored.\n\nEnd the program and start it again.",
      file);
}

}  // namespace lantos
