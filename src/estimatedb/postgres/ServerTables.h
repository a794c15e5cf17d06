#pragma once

#include "estimatedb/engine/TableStore.h"
#include "estimatedb/postgres/PostgresEngine.h"

namespace lantos {

// The tables of a schema. The engine outlives it.
class ServerTables : public TableStore {
 public:
  explicit ServerTables(PostgresEngine& engine) : engine_(engine) {}

  bool IsEmpty() override;
  std::vector<std::string> Tables() override;
  std::vector<StoredColumn> ColumnsOf(const std::string& table) override;
  std::vector<std::string> KeyOf(const std::string& table) override;
  std::int64_t CountOf(const std::string& table) override;
  std::unique_ptr<RowReader> Read(const std::string& table, const std::vector<std::string>& columns,
                                  const std::vector<std::string>& order) override;
  void Clear(const std::string& table) override;
  void Drop(const std::string& table) override;
  void Add(const std::string& table, const std::vector<std::string>& columns,
           const std::vector<CellRow>& rows) override;
  void LookOver(const std::string& table) override;
  std::int64_t CounterOf(const std::string& table) override;
  void SetCounter(const std::string& table, std::int64_t highest) override;

  // The schema gets a name with this behind its own, and a number behind that where it is taken; who still works in it
  // finds no table there. Returns the name, in UTF-8.
  std::string RenameSchema(const std::string& behind);

 private:
  PostgresResult Ask(const std::string& text, const std::vector<std::string>& values = {});
  std::string SequenceOf(const std::string& table);

  PostgresEngine& engine_;
  int readers_ = 0;
};

// Makes the schema that a file names. False when it is there already. Throws DatabaseError.
bool MakeSchema(const ServerPlace& place);
// Takes it away again where nothing is in it; what is against that is nobody's concern.
void DropEmptySchema(const ServerPlace& place) noexcept;

}  // namespace lantos
