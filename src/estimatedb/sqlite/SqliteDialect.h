#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "estimatedb/engine/ColumnList.h"
#include "estimatedb/engine/Dialect.h"

namespace lantos {

// A statement of the program in SQLite's words.
std::string ToSqlite(std::string_view statement);

// A change of a column's type, which SQLite has no statement for.
std::optional<ColumnChange> AsColumnChange(std::string_view statement);

// The text of a CREATE TABLE with the type of one column, and if wanted the name of the table, replaced. Empty when
// it has no such column.
std::optional<std::string> WithColumnType(std::string_view createTable, std::string_view newTable,
                                          std::string_view column, std::string_view type);

// What a declared type means to the program: "Text(20)" is short, "Text" and "LongText" are long, "DATE" is a date.
ColumnType TypeFromDeclaration(std::string_view declared);

}  // namespace lantos
