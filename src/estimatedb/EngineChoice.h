#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "estimatedb/engine/Engine.h"
#include "frame/Clock.h"

// The one place that knows which engines there are: everything else works with an Engine.
namespace lantos {

// Opens the engine that a database file is for, told from the file's first bytes: the file itself, or the server that
// it names. A file that no engine of this program is for is refused untouched, with a text that says what it is; so is
// one that isn't there. "now" inside the database is the clock's. The clock outlives the engine. Throws DatabaseError.
std::unique_ptr<Engine> OpenDatabase(const std::filesystem::path& path, const Clock& clock,
                                     std::chrono::milliseconds busyTimeout = kBusyTimeout);

// Makes a database without tables in a file that isn't there yet. Throws DatabaseError; one that is there already stays
// as it is.
std::unique_ptr<Engine> CreateDatabaseFile(const std::filesystem::path& path, const Clock& clock);

}  // namespace lantos
