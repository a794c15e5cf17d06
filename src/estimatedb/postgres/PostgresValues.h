#pragma once

#include <string_view>

#include "estimatedb/engine/Recordset.h"
#include "estimatedb/postgres/PostgresConnection.h"

namespace lantos {

// Puts a value behind those of a request. Throws DatabaseError for a text with a NUL in it, which no text of the server
// can hold.
void AddValue(PostgresRequest& request, const Value& value);

// What the server says of a column, by the number of its type there: as a file of the program would give it. A number
// that is whole comes as such; what is no date of the program's is null.
Value ValueOf(unsigned type, std::string_view text);
ColumnType ColumnTypeOf(unsigned type);

}  // namespace lantos
