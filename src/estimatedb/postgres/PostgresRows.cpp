#include "estimatedb/postgres/PostgresRows.h"

#include "estimatedb/postgres/PostgresDialect.h"
#include "estimatedb/postgres/PostgresValues.h"
#include "estimatedb/postgres/ServerLibrary.h"
#include "frame/Text.h"

namespace lantos {

Recordset RowsOf(const pg_result& result) { return AnswersOfOne().RowsOf(result); }

Recordset AnswersOfOne::RowsOf(const pg_result& result) {
  const int fields = Pq().nfields(&result);
  if (fields == 0) return {};
  if (!columns_) LookAtColumns(result, fields);
  const int count = Pq().ntuples(&result);
  std::vector<Value> cells;
  cells.reserve(static_cast<std::size_t>(count) * shown_.size());
  for (int row = 0; row < count; ++row) {
    for (std::size_t i = 0; i < shown_.size(); ++i) {
      const int field = shown_[i];
      if (Pq().getisnull(&result, row, field) != 0) {
        cells.emplace_back();
        continue;
      }
      const auto length = static_cast<std::size_t>(Pq().getlength(&result, row, field));
      cells.push_back(ValueOf(types_[i], {Pq().getvalue(&result, row, field), length}));
    }
  }
  Recordset rows;
  rows.Open(columns_, std::move(cells));
  return rows;
}

void AnswersOfOne::LookAtColumns(const pg_result& result, int fields) {
  std::vector<std::string> names;
  std::vector<ColumnType> types;
  for (int i = 0; i < fields; ++i) {
    if (Pq().fname(&result, i) == kRowNumberColumn) continue;
    shown_.push_back(i);
    types_.push_back(Pq().ftype(&result, i));
    names.push_back(FromUtf8(Pq().fname(&result, i)));
    types.push_back(ColumnTypeOf(types_.back()));
  }
  columns_ = std::make_shared<const ColumnList>(std::move(names), std::move(types));
}

}  // namespace lantos
