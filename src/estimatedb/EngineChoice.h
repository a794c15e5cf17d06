#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/engine/Engine.h"
#include "estimatedb/engine/FileCopier.h"
#include "estimatedb/engine/TableStore.h"
#include "frame/Clock.h"

// The one place that knows which engines there are: everything else works with an Engine.
namespace lantos {

// Opens the engine that a database file is for, told from the file's first bytes: the file itself, or the server that
// it names. A file that no engine of this program is for is refused untouched, with a text that says what it is; so is
// one that isn't there. "now" inside the database is the clock's. The clock outlives the engine. Throws DatabaseError.
std::unique_ptr<Engine> OpenDatabase(const std::filesystem::path& path, const Clock& clock,
                                     std::chrono::milliseconds busyTimeout = kBusyTimeout);

// What an engine is and where its tables lie, for a person: "SQLite 3.40.1 in \"/srv/shop/Lantos.mdb\"". It asks
// nobody; empty of an engine that isn't one of the program's.
std::string NameOf(const Engine& engine);

// The libraries behind the engines, each with its version: "SQLite 3.40.1, SQLiteCpp 3.2.1, libpq 15.8". Without libpq
// where it isn't installed.
std::vector<std::string> LibrariesOfEngines();

// Makes a database without tables in a file that isn't there yet. Throws DatabaseError; one that is there already stays
// as it is.
std::unique_ptr<Engine> CreateDatabaseFile(const std::filesystem::path& path, const Clock& clock);

// What follows is for whoever moves the tables from one engine to the other. All of it throws DatabaseError.

// An engine, and its tables as they lie.
struct OpenedTables {
  std::unique_ptr<Engine> engine;
  std::unique_ptr<TableStore> tables;
};

// Whether a file names a server; told from its first bytes, and false of one that can't be read.
bool NamesServer(const std::filesystem::path& path);
// Whether an engine of this program is for it; told likewise.
bool IsDatabase(const std::filesystem::path& path);
// Whether it is a database of the earlier program; told likewise.
bool IsJet(const std::filesystem::path& path);
// Of a file that names no server.
std::unique_ptr<FileCopier> CopierOf(const std::filesystem::path& path, const Clock& clock);
// As OpenDatabase and CreateDatabaseFile open them.
OpenedTables OpenTables(const std::filesystem::path& path, const Clock& clock);
OpenedTables CreateTablesFile(const std::filesystem::path& path, const Clock& clock);

// The text of a file that names a server. Refused is what ReadServerFile would refuse, with the file's name.
std::string ServerFileText(std::string_view server, std::string_view schema, const std::filesystem::path& path);
OpenedTables OpenServerTables(std::string_view fileText, const std::filesystem::path& path, const Clock& clock);
// False when the schema is there already.
bool MakeServerSchema(std::string_view fileText, const std::filesystem::path& path);
// Where nothing is in it; what is against that is nobody's concern.
void DropEmptyServerSchema(std::string_view fileText, const std::filesystem::path& path) noexcept;
// Gives the schema that opened tables lie in another name, in the running Together: "until_2003_09_30" behind its own.
// Returns it.
std::string SetServerAside(OpenedTables& opened, DaySerial day);

}  // namespace lantos
