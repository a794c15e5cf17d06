#include "estimatedb/sqlite/SqliteEngine.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/Transaction.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <unistd.h>

#include <array>
#include <utility>

#include "estimatedb/engine/SqlWords.h"
#include "estimatedb/engine/StatementText.h"
#include "estimatedb/sqlite/DatabaseFileKind.h"
#include "estimatedb/sqlite/FileWatch.h"
#include "estimatedb/sqlite/SqliteDialect.h"
#include "frame/GuardedOpen.h"
#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// More different statements than the program has; texts made up on the way push nothing out that matters.
constexpr std::size_t kStatementsKept = 128;

// SQLite has one number for all that is wrong with a statement; its words tell more.
DatabaseErrorKind KindOf(int code, int extendedCode, std::string_view description) {
  switch (code) {
    case SQLITE_ERROR: {
      const bool isNotThere = description.starts_with("no such table") || description.starts_with("no such column");
      return isNotThere ? DatabaseErrorKind::NotThere : DatabaseErrorKind::Other;
    }
    case SQLITE_CONSTRAINT: {
      const bool isKey = extendedCode == SQLITE_CONSTRAINT_UNIQUE || extendedCode == SQLITE_CONSTRAINT_PRIMARYKEY;
      return isKey ? DatabaseErrorKind::Duplicate : DatabaseErrorKind::Refused;
    }
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return DatabaseErrorKind::Locked;
    case SQLITE_READONLY:
      return extendedCode == SQLITE_READONLY_DBMOVED ? DatabaseErrorKind::Unreachable : DatabaseErrorKind::ReadOnly;
    case SQLITE_FULL:
      return DatabaseErrorKind::Full;
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
    case SQLITE_PERM:
      return DatabaseErrorKind::Unreachable;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return DatabaseErrorKind::Damaged;
    default:
      return DatabaseErrorKind::Other;
  }
}

// SQLite's own number of a row tells equal ones apart.
std::string FirstRowWhere(std::string_view table, std::string_view column) {
  return fmt::format("rowid = (SELECT rowid FROM {} WHERE {} = ? ORDER BY rowid LIMIT 1)", table, column);
}

// As other shared files are made: the directory tells who else may use it, and the engine gives its journal the same
// mode. What keeps it from being made is left for the engine to tell.
void MakeEmptyFile(const std::filesystem::path& path) {
  if (const int descriptor = MakeFile(path, O_RDWR); descriptor >= 0) ::close(descriptor);
}

}  // namespace

SqliteEngine::SqliteEngine(const std::filesystem::path& path, const Clock& clock, Mode mode,
                           std::chrono::milliseconds busyTimeout)
    : path_(std::filesystem::absolute(path)), clockVfs_(clock), busyTimeout_(busyTimeout) {
  const std::string opening = fmt::format("opening \"{}\"", TextOfPath(path_));
  if (mode == Mode::New && std::filesystem::exists(path_)) {
    throw DatabaseError(fmt::format("\"{}\" is there already and has been left as it is.", TextOfPath(path_)));
  }
  if (mode == Mode::New) MakeEmptyFile(path_);
  if (LeadsOut(path_)) {
    throw DatabaseError(
        fmt::format("\"{}\" is a link that leads out of its directory or nowhere, so it isn't opened. Put the file "
                    "itself in its place.",
                    TextOfPath(path_)));
  }
  try {
    // One thread alone uses a connection, so it needs no mutex of its own.
    const int flags = SQLite::OPEN_READWRITE | SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_NOMUTEX |
                      (mode == Mode::New ? SQLite::OPEN_CREATE : 0);
    database_ = std::make_unique<SQLite::Database>(path_.string(), flags, static_cast<int>(busyTimeout_.count()),
                                                   clockVfs_.Name());
    if (mode == Mode::Existing) RefuseForeignFile();
    Configure();
  } catch (const SQLite::Exception&) {
    Rethrow(opening, {});
  }
}

SqliteEngine::~SqliteEngine() = default;

// The look goes through the engine's own descriptor: closing another one would drop the locks that this process holds
// on the file. The engine itself hasn't read more than that yet, and has written nothing.
void SqliteEngine::RefuseForeignFile() {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database_->getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  if (file == nullptr || file->pMethods == nullptr) throw SQLite::Exception("The file isn't open.");
  std::error_code noSize;  // then the length is the greatest there is, and the read tells what is wrong
  std::array<char, kDatabaseMarkLength> bytes{};
  const auto length =
      static_cast<std::size_t>(std::min<std::uintmax_t>(std::filesystem::file_size(path_, noSize), bytes.size()));
  const int result = file->pMethods->xRead(file, bytes.data(), static_cast<int>(length), 0);
  if (result != SQLITE_OK) throw SQLite::Exception("The file can't be read.", result);
  const DatabaseFileKind kind = KindOfDatabaseFile({bytes.data(), length});
  if (kind != DatabaseFileKind::Sqlite) throw ForeignFile(kind, path_);
}

void SqliteEngine::Configure() {
  Execute("PRAGMA mmap_size = 0");
  Execute("PRAGMA synchronous = FULL");
  SqliteStatement journal(database_->getHandle(), "PRAGMA journal_mode = DELETE");
  if (const Recordset mode = journal.Run({}); mode.Eof() || mode.Text("journal_mode") != "delete") {
    throw SQLite::Exception("The database doesn't give up its write-ahead log.");
  }
}

Recordset SqliteEngine::Run(std::string_view statement, const std::vector<Value>& parameters) {
  const std::size_t trailRowsBefore = ownTrailRows_.Pending();
  const bool isAlone = !IsInTransaction();
  if (isAlone) RefuseMovedFile();
  const int changesBefore = sqlite3_total_changes(database_->getHandle());
  try {
    const auto known = statements_.find(statement);
    if (known == statements_.end()) {
      if (const auto change = AsColumnChange(statement)) {
        ChangeColumnType(*change);
        return {};
      }
    }
    Recordset rows = (known != statements_.end() ? known->second : Prepared(statement)).Run(parameters);
    if (isAlone && sqlite3_total_changes(database_->getHandle()) != changesBefore) RefuseMovedFile();
    if (!IsInTransaction()) ownTrailRows_.Commit();
    return rows;
  } catch (const SQLite::Exception&) {
    ownTrailRows_.Undo(trailRowsBefore);
    Rethrow(statement, parameters);
  }
}

SqliteStatement& SqliteEngine::Prepared(std::string_view statement) {
  if (statements_.size() >= kStatementsKept) statements_.clear();
  ++statementsPrepared_;
  SqliteStatement prepared(database_->getHandle(), ToUtf8(ToSqlite(statement)));
  return statements_.emplace(statement, std::move(prepared)).first->second;
}

void SqliteEngine::Insert(std::string_view table, const std::vector<std::string>& columns,
                          const std::vector<Value>& values) {
  std::string places;
  for (std::size_t i = 0; i < columns.size(); ++i) places += i == 0 ? "?" : ", ?";
  Run(fmt::format("INSERT INTO {} ({}) VALUES ({})", table, fmt::join(columns, ", "), places), values);
}

void SqliteEngine::UpdateFirst(std::string_view table, const std::vector<std::string>& columns,
                               const std::vector<Value>& values, const RowKey& key) {
  std::vector<Value> all = values;
  all.push_back(key.value);
  Run(fmt::format("UPDATE {} SET {} = ? WHERE {}", table, fmt::join(columns, " = ?, "),
                  FirstRowWhere(table, key.column)),
      all);
}

void SqliteEngine::DeleteFirst(std::string_view table, const RowKey& key) {
  Run(fmt::format("DELETE FROM {} WHERE {}", table, FirstRowWhere(table, key.column)), {key.value});
}

void SqliteEngine::Together(const std::function<void()>& work) {
  try {
    InTransaction(Purpose::Write, work);
  } catch (const SQLite::Exception&) {
    Rethrow("several changes together", {});
  }
}

void SqliteEngine::ReadTogether(const std::function<void()>& work) {
  try {
    InTransaction(Purpose::Read, work);
  } catch (const SQLite::Exception&) {
    Rethrow("several statements together", {});
  }
}

void SqliteEngine::Apart(const std::function<void()>& work) {
  if (!IsInTransaction()) return Together(work);
  try {
    Execute("SAVEPOINT apart");
    const std::size_t trailRowsBefore = ownTrailRows_.Pending();
    try {
      work();
    } catch (...) {
      UndoApart(trailRowsBefore);
      throw;
    }
    Execute("RELEASE apart");
  } catch (const SQLite::Exception&) {
    Rethrow("a part of several changes", {});
  }
}

// Called while what failed is on its way.
void SqliteEngine::UndoApart(std::size_t trailRowsBefore) {
  ownTrailRows_.Undo(trailRowsBefore);
  if (!IsInTransaction()) {
    allUndone_ = std::current_exception();
    return;
  }
  Execute("ROLLBACK TO apart");
  Execute("RELEASE apart");
}

// Within a transaction the work is part of that one.
void SqliteEngine::InTransaction(Purpose purpose, const std::function<void()>& work) {
  if (IsInTransaction()) return work();
  RefuseMovedFile();
  const int changesBefore = sqlite3_total_changes(database_->getHandle());
  using Behavior = SQLite::TransactionBehavior;
  SQLite::Transaction transaction(*database_, purpose == Purpose::Write ? Behavior::IMMEDIATE : Behavior::DEFERRED);
  allUndone_ = nullptr;
  work();
  if (allUndone_) std::rethrow_exception(std::exchange(allUndone_, nullptr));
  transaction.commit();
  if (sqlite3_total_changes(database_->getHandle()) != changesBefore) RefuseMovedFile();
  ownTrailRows_.Commit();
}

// SQLite takes a name that can't be looked at for one that is gone; a share that is away for a while keeps its files.
bool SqliteEngine::HasMoved() const {
  int hasMoved = 0;
  sqlite3_file_control(database_->getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
  if (hasMoved == 0) return false;
  std::error_code unknown;
  static_cast<void>(std::filesystem::exists(path_, unknown));
  return !unknown;
}

DatabaseError SqliteEngine::FileHasMoved() const {
  const std::string words = WordsOfMove(TextOfPath(path_));
  return DatabaseError(words, DatabaseErrorKind::Unreachable, 0, words);
}

// Ahead of whatever is read, since it is of no use to anybody, and behind each commit: SQLite itself looks as it begins
// to write, and no later.
void SqliteEngine::RefuseMovedFile() const {
  if (HasMoved()) throw FileHasMoved();
}

std::string SqliteEngine::Name() const {
  return fmt::format("SQLite {} in \"{}\"", SQLite::getLibVersion(), TextOfPath(path_));
}

std::unique_ptr<ChangeWatch> SqliteEngine::Watch(const WatchTimes&) {
  ownTrailRows_.Follow(database_->getHandle());
  return std::make_unique<FileWatch>(*this, ownTrailRows_, busyTimeout_);
}

bool SqliteEngine::IsInTransaction() const { return sqlite3_get_autocommit(database_->getHandle()) == 0; }

void SqliteEngine::Execute(const std::string& sqlite) { SqliteStatement(database_->getHandle(), sqlite).Run({}); }

// SQLite can't change a column: the table is made anew beside the old one, takes its rows over, and then its name.
void SqliteEngine::ChangeColumnType(const ColumnChange& change) {
  const std::string table = QuotedName(change.table);
  const std::string temporary = QuotedName(change.table + "_changed");
  InTransaction(Purpose::Write, [&] {
    SqliteStatement parts(database_->getHandle(),
                          "SELECT type, sql FROM sqlite_master WHERE lower(tbl_name) = lower(?) AND sql IS NOT NULL");
    std::optional<std::string> made;
    std::vector<std::string> others;  // indexes and triggers
    for (Recordset part = parts.Run({change.table}); !part.Eof(); part.MoveNext()) {
      const std::string text = part.Text("sql");
      if (part.Text("type") == "table") {
        made = WithColumnType(text, change.table + "_changed", change.column, change.type);
      } else {
        others.push_back(ToUtf8(text));
      }
    }
    if (!made) throw SQLite::Exception(fmt::format("no such column: {}.{}", change.table, change.column));
    Execute(ToUtf8(*made));
    Execute(fmt::format("INSERT INTO {} SELECT * FROM {}", temporary, table));
    Execute("DROP TABLE " + table);
    Execute("PRAGMA legacy_alter_table = ON");  // views may speak of the table while it bears the other name
    Execute(fmt::format("ALTER TABLE {} RENAME TO {}", temporary, table));
    Execute("PRAGMA legacy_alter_table = OFF");
    for (const std::string& other : others) Execute(other);
  });
}

// Called while an SQLite::Exception is on its way.
void SqliteEngine::Rethrow(std::string_view statement, const std::vector<Value>& parameters) {
  const std::string details = StatementForLog(statement, parameters);
  try {
    throw;
  } catch (const SQLite::Exception& error) {
    const int code = error.getErrorCode() & 0xFF;
    const std::string description = FromUtf8(error.what());
    const DatabaseErrorKind kind = KindOf(code, error.getExtendedErrorCode(), description);
    const std::string file = TextOfPath(path_);
    if (kind != DatabaseErrorKind::Locked) {
      const bool isMoved = error.getExtendedErrorCode() == SQLITE_READONLY_DBMOVED;
      throw DatabaseError(fmt::format("{}\n\n{}", description, details), kind, code,
                          isMoved ? WordsOfMove(file) : WordsOf(kind, file));
    }
    const std::string words = WordsOfLock(file, busyTimeout_);
    throw DatabaseError(fmt::format("{}\n\n{}", words, details), kind, code, words);
  }
}

std::vector<std::string> LibrariesOfFiles() {
  return {std::string("SQLite ") + sqlite3_libversion(), "SQLiteCpp " SQLITECPP_VERSION};
}

}  // namespace lantos
