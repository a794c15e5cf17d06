#include "estimatedb/EngineChoice.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "estimatedb/engine/ServerMark.h"
#include "estimatedb/postgres/PostgresEngine.h"
#include "estimatedb/postgres/ServerTables.h"
#include "estimatedb/sqlite/DatabaseFileKind.h"
#include "estimatedb/sqlite/FileCopy.h"
#include "estimatedb/sqlite/FileTables.h"
#include "estimatedb/sqlite/SqliteEngine.h"
#include "frame/Dates.h"
#include "frame/GuardedOpen.h"
#include "frame/Text.h"

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

std::string NameOf(const Engine& engine) {
  if (const auto* file = dynamic_cast<const SqliteEngine*>(&engine)) return file->Name();
  const auto* server = dynamic_cast<const PostgresEngine*>(&engine);
  return server == nullptr ? std::string() : server->Name();
}

std::vector<std::string> LibrariesOfEngines() {
  std::vector<std::string> libraries = LibrariesOfFiles();
  try {
    libraries.push_back(LibraryOfServers());
  } catch (const DatabaseError&) {
    // It isn't installed.
  }
  return libraries;
}

std::unique_ptr<Engine> CreateDatabaseFile(const std::filesystem::path& path, const Clock& clock) {
  return std::make_unique<SqliteEngine>(path, clock, SqliteEngine::Mode::New);
}

namespace {

OpenedTables TablesOf(std::unique_ptr<SqliteEngine> engine) {
  auto tables = std::make_unique<FileTables>(*engine);
  return {std::move(engine), std::move(tables)};
}

OpenedTables TablesOf(std::unique_ptr<PostgresEngine> engine) {
  auto tables = std::make_unique<ServerTables>(*engine);
  return {std::move(engine), std::move(tables)};
}

}  // namespace

namespace {

// Unknown for a file that can't be read.
DatabaseFileKind KindOf(const std::filesystem::path& path) {
  const int descriptor = OpenExistingFile(path, O_RDONLY);
  if (descriptor < 0) return DatabaseFileKind::Unknown;
  std::array<char, kDatabaseMarkLength> bytes{};
  const ssize_t length = ::read(descriptor, bytes.data(), bytes.size());
  ::close(descriptor);
  if (length <= 0) return DatabaseFileKind::Unknown;
  return KindOfDatabaseFile({bytes.data(), static_cast<std::size_t>(length)});
}

}  // namespace

bool NamesServer(const std::filesystem::path& path) { return KindOf(path) == DatabaseFileKind::Server; }

bool IsDatabase(const std::filesystem::path& path) {
  const DatabaseFileKind kind = KindOf(path);
  return kind == DatabaseFileKind::Server || kind == DatabaseFileKind::Sqlite;
}

bool IsJet(const std::filesystem::path& path) { return KindOf(path) == DatabaseFileKind::Jet; }

std::unique_ptr<FileCopier> CopierOf(const std::filesystem::path& path, const Clock& clock) {
  return std::make_unique<FileCopy>(path, clock);
}

OpenedTables OpenTables(const std::filesystem::path& path, const Clock& clock) {
  if (!NamesServer(path)) return TablesOf(std::make_unique<SqliteEngine>(path, clock));
  return TablesOf(std::make_unique<PostgresEngine>(ReadServerFile(std::filesystem::absolute(path)), clock));
}

OpenedTables CreateTablesFile(const std::filesystem::path& path, const Clock& clock) {
  return TablesOf(std::make_unique<SqliteEngine>(path, clock, SqliteEngine::Mode::New));
}

std::string ServerFileText(std::string_view server, std::string_view schema, const std::filesystem::path& path) {
  std::string text = fmt::format("{}\nserver = {}\nschema = {}\n", kServerMark, server, schema);
  ParseServerFile(text, path);
  return text;
}

OpenedTables OpenServerTables(std::string_view fileText, const std::filesystem::path& path, const Clock& clock) {
  return TablesOf(std::make_unique<PostgresEngine>(ParseServerFile(fileText, path), clock));
}

bool MakeServerSchema(std::string_view fileText, const std::filesystem::path& path) {
  return MakeSchema(ParseServerFile(fileText, path));
}

void DropEmptyServerSchema(std::string_view fileText, const std::filesystem::path& path) noexcept {
  DropEmptySchema(ParseServerFile(fileText, path));
}

std::string SetServerAside(OpenedTables& opened, DaySerial day) {
  std::string behind = "_until_" + FormatIsoDate(day);
  std::replace(behind.begin(), behind.end(), '-', '_');
  return FromUtf8(dynamic_cast<ServerTables&>(*opened.tables).RenameSchema(behind));
}

}  // namespace lantos
