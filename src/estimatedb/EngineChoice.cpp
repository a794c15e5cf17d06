#include "estimatedb/EngineChoice.h"

#include "estimatedb/sqlite/SqliteEngine.h"

namespace lantos {

// There is one engine so far. It looks at the first bytes itself, through the descriptor that it goes on with: a look
// from here, opened and closed, would drop the locks that this process has on the file.
std::unique_ptr<Engine> OpenDatabase(const std::filesystem::path& path, const Clock& clock,
                                     std::chrono::milliseconds busyTimeout) {
  return std::make_unique<SqliteEngine>(path, clock, SqliteEngine::Mode::Existing, busyTimeout);
}

std::unique_ptr<Engine> CreateDatabaseFile(const std::filesystem::path& path, const Clock& clock) {
  return std::make_unique<SqliteEngine>(path, clock, SqliteEngine::Mode::New);
}

}  // namespace lantos
