#include "estimatedb/EstimateDatabase.h"

#include <fmt/core.h>

#include <system_error>

#include "estimatedb/EngineChoice.h"
#include "estimatedb/Schema.h"
#include "frame/PathText.h"

namespace lantos {

namespace {

DataEnvironment::Opener OpenerOf(std::string_view name, Environment& environment,
                                 std::chrono::milliseconds busyTimeout) {
  return [name, &environment, busyTimeout] {
    return OpenDatabase(environment.files.PathOf(name), environment.clock, busyTimeout);
  };
}

void MakeTables(Engine& engine, std::span<const std::string_view> statements) {
  engine.Together([&] {
    for (const std::string_view statement : statements) engine.Run(statement, {});
  });
}

// One transaction: a crash on the way leaves an empty file, which is refused as such, and never half of the tables.
void CreateDatabase(const std::filesystem::path& path, const Clock& clock,
                    std::span<const std::string_view> statements) {
  if (std::filesystem::exists(path)) {
    throw DatabaseError(fmt::format("\"{}\" is there already and has been left as it is.", TextOfPath(path)));
  }
  try {
    MakeTables(*CreateDatabaseFile(path, clock), statements);
  } catch (...) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    throw;
  }
}

}  // namespace

void Connect(EstimateDatabase& database, Environment& environment) {
  database.lantosData.SetOpener(OpenerOf(kLantosDatabase, environment, database.busyTimeout));
  database.korvelData.SetOpener(OpenerOf(kKorvelDatabase, environment, database.busyTimeout));
}

void CreateLantosDatabase(const std::filesystem::path& path, Clock& clock) {
  CreateDatabase(path, clock, kLantosSchema);
}

void MakeLantosTables(Engine& engine) { MakeTables(engine, kLantosSchema); }

void CreateKorvelDatabase(const std::filesystem::path& path, Clock& clock) {
  CreateDatabase(path, clock, kKorvelSchema);
}

}  // namespace lantos
