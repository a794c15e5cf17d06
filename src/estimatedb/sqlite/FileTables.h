#pragma once

#include "estimatedb/engine/TableStore.h"
#include "estimatedb/sqlite/SqliteEngine.h"

namespace lantos {

// The tables of a database file, but for those that the engine keeps for itself. The engine outlives it.
class FileTables : public TableStore {
 public:
  explicit FileTables(SqliteEngine& engine) : engine_(engine) {}

  bool IsEmpty() override { return Tables().empty(); }
  std::vector<std::string> Tables() override;
  std::vector<std::string> Damage() override;
  std::vector<StoredColumn> ColumnsOf(const std::string& table) override;
  std::vector<std::string> KeyOf(const std::string& table) override;
  std::int64_t CountOf(const std::string& table) override;
  std::unique_ptr<RowReader> Read(const std::string& table, const std::vector<std::string>& columns,
                                  const std::vector<std::string>& order) override;
  void Clear(const std::string& table) override;
  void Drop(const std::string& table) override;
  void Add(const std::string& table, const std::vector<std::string>& columns,
           const std::vector<CellRow>& rows) override;
  std::int64_t CounterOf(const std::string& table) override;
  void SetCounter(const std::string& table, std::int64_t highest) override;

 private:
  SQLite::Database& Database() const { return engine_.Plainly(); }
  bool HasCounters() const;

  SqliteEngine& engine_;
};

}  // namespace lantos
