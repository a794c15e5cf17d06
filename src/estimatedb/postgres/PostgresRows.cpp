#include "estimatedb/postgres/PostgresRows.h"

#include "estimatedb/postgres/PostgresDialect.h"
#include "estimatedb/postgres/PostgresValues.h"
#include "estimatedb/postgres/ServerLibrary.h"
#include "frame/Text.h"

namespace lantos {

Recordset RowsOf(const pg_result& result) {
  const int fields = Pq().nfields(&result);
  if (fields == 0) return {};
  std::vector<int> shown;
  std::vector<std::string> names;
  std::vector<ColumnType> types;
  for (int i = 0; i < fields; ++i) {
    if (Pq().fname(&result, i) == kRowNumberColumn) continue;
    shown.push_back(i);
    names.push_back(FromUtf8(Pq().fname(&result, i)));
    types.push_back(ColumnTypeOf(Pq().ftype(&result, i)));
  }
  const int count = Pq().ntuples(&result);
  std::vector<Value> cells;
  cells.reserve(static_cast<std::size_t>(count) * shown.size());
  for (int row = 0; row < count; ++row) {
    for (const int field : shown) {
      if (Pq().getisnull(&result, row, field) != 0) {
        cells.emplace_back();
        continue;
      }
      const auto length = static_cast<std::size_t>(Pq().getlength(&result, row, field));
      cells.push_back(ValueOf(Pq().ftype(&result, field), {Pq().getvalue(&result, row, field), length}));
    }
  }
  Recordset rows;
  rows.Open(std::make_shared<const ColumnList>(std::move(names), std::move(types)), std::move(cells));
  return rows;
}

}  // namespace lantos
