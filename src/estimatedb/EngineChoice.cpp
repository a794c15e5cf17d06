#include "estimatedb/EngineChoice.h"

#include "estimatedb/postgres/PostgresEngine.h"
#include "estimatedb/sqlite/DatabaseFileKind.h"
#include "estimatedb/sqlite/SqliteEngine.h"

namespace lantos {

// SQLite's engine looks at the first bytes itself, through the descriptor that it goes on with: a look from here,
// opened and closed, would drop the locks that this process has on the file. A file that names a server bears none.
std::unique_ptr<Engine> OpenDatabase(const std::filesystem::path& path, const Clock& clock,
                                     std::chrono::milliseconds busyTimeout) {
  try {
    return std::make_unique<SqliteEngine>(path, clock, SqliteEngine::Mode::Existing, busyTimeout);
  } catch (const ForeignFile& refusal) {
    if (refusal.FileKind() != DatabaseFileKind::Server) throw;
  }
  return std::make_unique<PostgresEngine>(ReadServerFile(std::filesystem::absolute(path)), clock, busyTimeout);
}

std::unique_ptr<Engine> CreateDatabaseFile(const std::filesystem::path& path, const Clock& clock) {
  return std::make_unique<SqliteEngine>(path, clock, SqliteEngine::Mode::New);
}

}  // namespace lantos
