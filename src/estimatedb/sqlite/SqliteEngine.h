#pragma once

#include <chrono>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>

#include "estimatedb/engine/Engine.h"
#include "estimatedb/sqlite/ClockVfs.h"
#include "estimatedb/sqlite/OwnTrailRows.h"
#include "estimatedb/sqlite/SqliteDialect.h"
#include "estimatedb/sqlite/SqliteStatement.h"

namespace SQLite {
class Database;
}  // namespace SQLite

namespace lantos {

// SQLite in the file itself, for several workstations at once: a rollback journal and never a write-ahead log, no
// shared cache, nothing mapped into memory, every commit pushed to the disk. A lock that another copy holds is waited
// for as long as the timeout; then DatabaseError says so. "now" inside the database is the clock's.
class SqliteEngine : public Engine {
 public:
  enum class Mode { Existing, New };

  // Existing: refuses what isn't an SQLite database, told from its first bytes, without touching it, by ForeignFile.
  // New: refuses a file that is there already. Throws DatabaseError.
  SqliteEngine(const std::filesystem::path& path, const Clock& clock, Mode mode = Mode::Existing,
               std::chrono::milliseconds busyTimeout = kBusyTimeout);
  ~SqliteEngine() override;

  Recordset Run(std::string_view statement, const std::vector<Value>& parameters) override;
  void Insert(std::string_view table, const std::vector<std::string>& columns,
              const std::vector<Value>& values) override;
  void UpdateFirst(std::string_view table, const std::vector<std::string>& columns, const std::vector<Value>& values,
                   const RowKey& key) override;
  void DeleteFirst(std::string_view table, const RowKey& key) override;
  void Together(const std::function<void()>& work) override;
  void Apart(const std::function<void()>& work) override;
  void ReadTogether(const std::function<void()>& work) override;
  std::unique_ptr<ChangeWatch> Watch(const WatchTimes& times) override;

  // What it is and where, for a person; asks nobody.
  std::string Name() const;
  std::size_t StatementsPrepared() const { return statementsPrepared_; }
  // The file as the engine's own library has it, for work within Together that knows what it does.
  SQLite::Database& Plainly() { return *database_; }
  // Whether the file that is open has lost its name, to another file or to none.
  bool HasMoved() const;
  DatabaseError FileHasMoved() const;

 private:
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };

  enum class Purpose { Read, Write };

  void RefuseForeignFile();
  void InTransaction(Purpose purpose, const std::function<void()>& work);
  void RefuseMovedFile() const;
  bool IsInTransaction() const;
  void UndoApart(std::size_t trailRowsBefore);
  void Configure();
  SqliteStatement& Prepared(std::string_view statement);
  void ChangeColumnType(const ColumnChange& change);
  void Execute(const std::string& sqlite);
  [[noreturn]] void Rethrow(std::string_view statement, const std::vector<Value>& parameters);

  std::filesystem::path path_;
  ClockVfs clockVfs_;
  std::chrono::milliseconds busyTimeout_;
  std::unique_ptr<SQLite::Database> database_;
  std::unordered_map<std::string, SqliteStatement, TextHash, std::equal_to<>> statements_;
  std::size_t statementsPrepared_ = 0;
  OwnTrailRows ownTrailRows_;
  std::exception_ptr allUndone_;  // why nothing of the running transaction is left
};

// "SQLite 3.40.1", "SQLiteCpp 3.2.1".
std::vector<std::string> LibrariesOfFiles();

}  // namespace lantos
