#pragma once

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace lantos::bench {

// Statements on SQLite alone, prepared once.
class PlainEngine {
 public:
  explicit PlainEngine(const std::filesystem::path& path) {
    Check(sqlite3_open_v2(path.c_str(), &connection_, SQLITE_OPEN_READWRITE, nullptr));
  }
  ~PlainEngine() {
    for (sqlite3_stmt* statement : statements_) sqlite3_finalize(statement);
    sqlite3_close(connection_);
  }
  PlainEngine(const PlainEngine&) = delete;
  PlainEngine& operator=(const PlainEngine&) = delete;

  sqlite3_stmt* Prepare(const char* text) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(connection_, text, -1, &statement, nullptr));
    statements_.push_back(statement);
    return statement;
  }
  // The first column of every row; all columns are looked at.
  std::vector<std::int64_t> Run(sqlite3_stmt* statement) {
    std::vector<std::int64_t> keys;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      for (int column = 0; column < sqlite3_column_count(statement); ++column) LookAt(statement, column);
      keys.push_back(sqlite3_column_int64(statement, 0));
    }
    Check(sqlite3_reset(statement));
    return keys;
  }
  std::vector<std::int64_t> Run(sqlite3_stmt* statement, const std::string& text) {
    sqlite3_bind_text(statement, 1, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    return Run(statement);
  }
  std::vector<std::int64_t> Run(sqlite3_stmt* statement, std::int64_t number) {
    sqlite3_bind_int64(statement, 1, number);
    return Run(statement);
  }

 private:
  static void LookAt(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
      case SQLITE_INTEGER:
        benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
        break;
      case SQLITE_FLOAT:
        benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
        break;
      case SQLITE_TEXT:
        benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
        break;
      default:
        break;
    }
  }
  static void Check(int result) {
    if (result != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(result));
  }

  sqlite3* connection_ = nullptr;
  std::vector<sqlite3_stmt*> statements_;
};

}  // namespace lantos::bench
