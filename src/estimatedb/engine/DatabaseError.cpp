#include "estimatedb/engine/DatabaseError.h"

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

}  // namespace lantos
