#include "estimatedb/sqlite/FileTables.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "estimatedb/engine/SqlWords.h"
#include "frame/Text.h"

// What goes wrong comes as the engine's exception, which the engine's Together turns.
namespace lantos {

namespace {

Cell CellOf(const SQLite::Column& column) {
  if (column.isNull()) return {};
  if (column.isInteger()) return column.getInt64();
  if (column.isFloat()) return column.getDouble();
  return column.getString();
}

class FileRows : public RowReader {
 public:
  FileRows(SQLite::Database& database, const std::string& query) : statement_(database, query) {}

  bool Next(CellRow& row) override {
    if (!statement_.executeStep()) return false;
    row.clear();
    for (int i = 0; i < statement_.getColumnCount(); ++i) row.push_back(CellOf(statement_.getColumn(i)));
    return true;
  }

 private:
  SQLite::Statement statement_;
};

void Bind(SQLite::Statement& statement, int place, const Cell& cell) {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) {
    statement.bind(place, *whole);
  } else if (const auto* number = std::get_if<double>(&cell)) {
    statement.bind(place, *number);
  } else if (const auto* text = std::get_if<std::string>(&cell)) {
    statement.bind(place, *text);
  } else {
    statement.bind(place);
  }
}

std::string Listed(const std::vector<std::string>& columns) {
  std::string text;
  for (const std::string& column : columns) text += (text.empty() ? "" : ", ") + QuotedName(column);
  return text;
}

CellKind KindOf(const std::string& declared) {
  const std::string type = ToLower(declared);
  if (type.find("text") != std::string::npos || type.find("char") != std::string::npos) return CellKind::Text;
  if (type.find("date") != std::string::npos) return CellKind::Date;
  if (type == "smallint" || type == "boolean") return CellKind::Short;
  return type.find("int") != std::string::npos ? CellKind::Long : CellKind::Number;
}

// Of "Text(20)".
std::size_t WidthOf(const std::string& declared) {
  const std::size_t bracket = declared.find('(');
  if (KindOf(declared) != CellKind::Text || bracket == std::string::npos) return 0;
  return static_cast<std::size_t>(Val(declared.substr(bracket + 1)));
}

}  // namespace

std::vector<std::string> FileTables::Tables() {
  SQLite::Statement names(Database(), "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
  std::vector<std::string> tables;
  while (names.executeStep()) {
    const std::string name = names.getColumn(0).getString();
    if (!name.starts_with("sqlite_")) tables.push_back(name);
  }
  return tables;
}

std::vector<std::string> FileTables::Damage() {
  SQLite::Statement check(Database(), "PRAGMA integrity_check(20)");
  std::vector<std::string> found;
  while (check.executeStep()) {
    if (std::string words = check.getColumn(0).getString(); words != "ok") found.push_back(std::move(words));
  }
  return found;
}

std::vector<StoredColumn> FileTables::ColumnsOf(const std::string& table) {
  SQLite::Statement shape(Database(), "SELECT name, type FROM pragma_table_info(?)");
  shape.bind(1, table);
  std::vector<StoredColumn> columns;
  while (shape.executeStep()) {
    const std::string declared = shape.getColumn(1).getString();
    columns.push_back({shape.getColumn(0).getString(), KindOf(declared), WidthOf(declared)});
  }
  return columns;
}

std::vector<std::string> FileTables::KeyOf(const std::string& table) {
  SQLite::Statement shape(Database(), "SELECT name FROM pragma_table_info(?) WHERE pk > 0 ORDER BY pk");
  shape.bind(1, table);
  std::vector<std::string> columns;
  while (shape.executeStep()) columns.push_back(shape.getColumn(0).getString());
  return columns;
}

std::int64_t FileTables::CountOf(const std::string& table) {
  return Database().execAndGet("SELECT count(*) FROM " + QuotedName(table)).getInt64();
}

std::unique_ptr<RowReader> FileTables::Read(const std::string& table, const std::vector<std::string>& columns,
                                            const std::vector<std::string>& order) {
  return std::make_unique<FileRows>(Database(),
                                    fmt::format("SELECT {} FROM {} ORDER BY {}", Listed(columns), QuotedName(table),
                                                order.empty() ? "rowid" : Listed(order)));
}

void FileTables::Clear(const std::string& table) { Database().exec("DELETE FROM " + QuotedName(table)); }

void FileTables::Drop(const std::string& table) { Database().exec("DROP TABLE " + QuotedName(table)); }

void FileTables::Add(const std::string& table, const std::vector<std::string>& columns,
                     const std::vector<CellRow>& rows) {
  std::string places;
  for (std::size_t i = 0; i < columns.size(); ++i) places += i == 0 ? "?" : ", ?";
  SQLite::Statement insert(Database(),
                           fmt::format("INSERT INTO {} ({}) VALUES ({})", QuotedName(table), Listed(columns), places));
  for (const CellRow& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) Bind(insert, static_cast<int>(i + 1), row[i]);
    insert.exec();
    insert.reset();
  }
}

// The engine makes this table with the first column that counts.
bool FileTables::HasCounters() const {
  return Database().execAndGet("SELECT count(*) FROM sqlite_master WHERE name = 'sqlite_sequence'").getInt() != 0;
}

std::int64_t FileTables::CounterOf(const std::string& table) {
  if (!HasCounters()) return 0;
  SQLite::Statement counter(Database(), "SELECT seq FROM sqlite_sequence WHERE lower(name) = lower(?)");
  counter.bind(1, table);
  return counter.executeStep() ? counter.getColumn(0).getInt64() : 0;
}

void FileTables::SetCounter(const std::string& table, std::int64_t highest) {
  if (!HasCounters()) return;
  SQLite::Statement change(Database(), "UPDATE sqlite_sequence SET seq = ? WHERE lower(name) = lower(?)");
  change.bind(1, highest);
  change.bind(2, table);
  if (change.exec() != 0) return;
  SQLite::Statement made(Database(), "INSERT INTO sqlite_sequence (name, seq) VALUES (?, ?)");
  made.bind(1, table);
  made.bind(2, highest);
  made.exec();
}

}  // namespace lantos
