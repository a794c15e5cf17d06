#include "estimatedb/LaborDays.h"

namespace lantos {

namespace {

constexpr std::string_view kKept = "KeptTechHours";

// The triggers wait for whoever writes, where several may: what these have written is filled in behind them.
constexpr std::string_view kMaking[] = {"CreateLaborDays",       "CreateLaborDaysNow",      "FollowAddedLabor",
                                        "FollowChangedLabor",    "FollowRemovedLabor",      "FollowAddedEstimate",
                                        "FollowChangedEstimate", "FollowRemovedEstimate",   "FillLaborDays",
                                        "IndexLaborDays",        "IndexLaborDaysByEstimate"};

// All of it or nothing: a table without the triggers would fall behind.
void Make(de& database) {
  database.Connection().Together([&] {
    for (const std::string_view command : kMaking) database.Run(command);
  });
}

}  // namespace

Recordset& KeptTechHours(de& database) {
  try {
    return database.Run(kKept);
  } catch (const DatabaseError& error) {
    if (error.Kind() != DatabaseErrorKind::NotThere) throw;
  }
  try {
    Make(database);
    return database.Run(kKept);
  } catch (const DatabaseError&) {
    // What is wrong with the tables themselves, the reading tells.
    return database.TechHours();
  }
}

}  // namespace lantos
