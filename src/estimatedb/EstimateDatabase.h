#pragma once

#include <chrono>
#include <filesystem>
#include <string_view>

#include "estimatedb/de.h"
#include "estimatedb/modEstimates.h"
#include "records/modSystem.h"

namespace lantos {

inline constexpr std::string_view kLantosDatabase = "Lantos.mdb";
inline constexpr std::string_view kKorvelDatabase = "Korvel.mdb";

// Both databases of one run and the estimate in memory.
struct EstimateDatabase {
  EstimateDatabase(Environment& environment, Records& records) : estimates(environment, lantosData, records.system) {}

  de lantosData;
  de2 korvelData;
  modEstimates estimates;
  std::chrono::milliseconds busyTimeout = kBusyTimeout;  // of connections made from now on
};

// Points both connections at the files in DataDir; they open on first use. A file that isn't ours (a Jet database, or
// anything else) is told from its first bytes and refused with DatabaseError that says what it is, untouched.
void Connect(EstimateDatabase& database, Environment& environment);
// Brings Lantos.mdb to the current shape; a current one is left untouched. Throws DatabaseError.
void UpgradeDatabase(EstimateDatabase& database, Environment& environment, Records& records);
// The installation's empty databases, at paths that don't exist yet. Throws DatabaseError; nothing is left then.
void CreateLantosDatabase(const std::filesystem::path& path, Clock& clock);
void CreateKorvelDatabase(const std::filesystem::path& path, Clock& clock);
// The tables of an empty Lantos.mdb, in a database that has none of them: all or none. Throws DatabaseError.
void MakeLantosTables(Engine& engine);

}  // namespace lantos
