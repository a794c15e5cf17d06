#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "estimatedb/engine/ColumnList.h"

namespace lantos {

// The statements of the program are written in the dialect of the database it was first made for. These are the forms
// that SQLite doesn't take, turned into its own; docs/database.md has the table. Everything else passes unchanged.

// A change of a column's type, which SQLite has no statement for.
struct ColumnChange {
  std::string table;
  std::string column;
  std::string type;  // as SQLite is to see it
};
std::optional<ColumnChange> AsColumnChange(std::string_view statement);

std::string ToSqlite(std::string_view statement);

// The text of a CREATE TABLE with the type of one column, and if wanted the name of the table, replaced. Empty when
// it has no such column.
std::optional<std::string> WithColumnType(std::string_view createTable, std::string_view newTable,
                                          std::string_view column, std::string_view type);

// What a declared type means to the program: "Text(20)" is short, "Text" and "LongText" are long, "DATE" is a date.
ColumnType TypeFromDeclaration(std::string_view declared);

}  // namespace lantos
