#pragma once

#include <memory>
#include <vector>

#include "estimatedb/engine/Recordset.h"
#include "estimatedb/postgres/PostgresConnection.h"

namespace lantos {

// What the server answers, as rows of the program; without columns, a closed recordset.
Recordset RowsOf(const pg_result& result);

// The same of many answers to one statement, which share what is known of their columns.
class AnswersOfOne {
 public:
  Recordset RowsOf(const pg_result& result);

 private:
  void LookAtColumns(const pg_result& result, int fields);

  std::vector<int> shown_;  // fields
  std::vector<unsigned> types_;
  std::shared_ptr<const ColumnList> columns_;
};

}  // namespace lantos
