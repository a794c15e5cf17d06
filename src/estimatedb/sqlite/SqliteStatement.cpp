#include "estimatedb/sqlite/SqliteStatement.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <algorithm>
#include <optional>

#include "estimatedb/engine/SqlWords.h"
#include "estimatedb/sqlite/SqliteDialect.h"
#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

bool IsAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

// A statement that is left in the middle would keep the file locked.
class ResetAtEnd {
 public:
  explicit ResetAtEnd(sqlite3_stmt* statement) : statement_(statement) {}
  ~ResetAtEnd() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
  }
  ResetAtEnd(const ResetAtEnd&) = delete;

 private:
  sqlite3_stmt* statement_;
};

}  // namespace

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

SqliteStatement::SqliteStatement(sqlite3* connection, const std::string& text) : connection_(connection) {
  sqlite3_stmt* statement = nullptr;
  const char* rest = nullptr;
  const int result = sqlite3_prepare_v3(connection, text.c_str(), static_cast<int>(text.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, &rest);
  statement_.reset(statement);
  if (result != SQLITE_OK) throw SQLite::Exception(connection, result);
  if (statement == nullptr) throw SQLite::Exception("The statement is empty.");
  if (!MeaningfulWords(rest).empty()) throw SQLite::Exception("There is more behind the end of the statement.");
  LearnColumns();
}

void SqliteStatement::LearnColumns() {
  const int count = sqlite3_column_count(statement_.get());
  if (count == 0) return;
  std::vector<std::string> names;
  std::vector<ColumnType> types;
  for (int i = 0; i < count; ++i) {
    const char* name = sqlite3_column_name(statement_.get(), i);
    const char* type = sqlite3_column_decltype(statement_.get(), i);
    names.push_back(FromUtf8(name == nullptr ? "" : name));
    types.push_back(TypeFromDeclaration(type == nullptr ? "" : type));
  }
  columns_ = std::make_shared<const ColumnList>(std::move(names), std::move(types));
}

Recordset SqliteStatement::Run(const std::vector<Value>& parameters) {
  if (static_cast<int>(parameters.size()) != sqlite3_bind_parameter_count(statement_.get())) {
    throw SQLite::Exception("The number of values isn't that of the statement's parameters.");
  }
  const ResetAtEnd resetAtEnd(statement_.get());
  converted_.clear();
  converted_.reserve(parameters.size());
  for (std::size_t i = 0; i < parameters.size(); ++i) Bind(static_cast<int>(i + 1), parameters[i]);
  int result = sqlite3_step(statement_.get());
  const int preparations = sqlite3_stmt_status(statement_.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
  if (preparations != preparations_) LearnColumns();
  preparations_ = preparations;
  std::vector<Value> cells;
  cells.reserve(cellsExpected_);
  for (; result == SQLITE_ROW; result = sqlite3_step(statement_.get())) TakeRow(cells);
  if (result != SQLITE_DONE) throw SQLite::Exception(connection_, result);
  cellsExpected_ = cells.size();
  Recordset rows;
  if (columns_) rows.Open(columns_, std::move(cells));
  return rows;
}

void SqliteStatement::Bind(int index, const Value& value) {
  sqlite3_stmt* statement = statement_.get();
  if (const auto* text = std::get_if<std::string>(&value)) {
    BindText(index, *text);
  } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    sqlite3_bind_int64(statement, index, *whole);
  } else if (const auto* number = std::get_if<double>(&value)) {
    sqlite3_bind_double(statement, index, *number);
  } else if (const auto* date = std::get_if<DateValue>(&value)) {
    BindText(index, converted_.emplace_back(FormatIsoDate(date->day)));
  } else {
    sqlite3_bind_null(statement, index);
  }
}

// The text outlives the run, so the engine needs no copy of its own.
void SqliteStatement::BindText(int index, const std::string& text) {
  const std::string& unicode = IsAscii(text) ? text : converted_.emplace_back(ToUtf8(text));
  const int result =
      sqlite3_bind_text(statement_.get(), index, unicode.data(), static_cast<int>(unicode.size()), SQLITE_STATIC);
  if (result != SQLITE_OK) throw SQLite::Exception(connection_, result);
}

void SqliteStatement::TakeRow(std::vector<Value>& cells) {
  const int count = static_cast<int>(columns_->Count());
  for (int i = 0; i < count; ++i) {
    sqlite3_stmt* statement = statement_.get();
    switch (sqlite3_column_type(statement, i)) {
      case SQLITE_INTEGER:
        cells.emplace_back(std::int64_t{sqlite3_column_int64(statement, i)});
        break;
      case SQLITE_FLOAT:
        cells.emplace_back(sqlite3_column_double(statement, i));
        break;
      case SQLITE_NULL:
        cells.emplace_back();
        break;
      default:
        cells.push_back(TakeCell(i));
    }
  }
}

// Texts and what lies in the file as such. A date that can't be read is no date: an estimate that another program has
// written a senseless date into can still be opened.
Value SqliteStatement::TakeCell(int column) {
  const unsigned char* data = sqlite3_column_text(statement_.get(), column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
  const std::string_view text(reinterpret_cast<const char*>(data), data == nullptr ? 0 : size);
  if (columns_->TypeOf(static_cast<std::size_t>(column)) == ColumnType::Date) {
    const std::optional<DaySerial> day = ParseIsoDate(text);
    return day ? Value(DateValue{*day}) : Value();
  }
  return IsAscii(text) ? Value(std::in_place_type<std::string>, text) : Value(FromUtf8(text));
}

}  // namespace lantos
