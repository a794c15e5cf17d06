#pragma once

#include "estimatedb/engine/Recordset.h"
#include "estimatedb/postgres/PostgresConnection.h"

namespace lantos {

// What the server answers, as rows of the program; without columns, a closed recordset.
Recordset RowsOf(const pg_result& result);

}  // namespace lantos
