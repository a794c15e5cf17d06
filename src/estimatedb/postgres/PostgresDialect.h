#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace lantos {

// A column that PostgreSQL's tables have where the program's have no key: the order in which their rows came. Rows that
// the program is given don't have it.
inline constexpr std::string_view kRowNumberColumn = "lantos_row";

// The setting of a connection that says which day it is, as yyyy-mm-dd, in place of the server's own clock.
inline constexpr std::string_view kTodaySetting = "lantos.today";

// The columns that the rows of a table are told apart and ordered by, as they stand in a statement; none of a view, or
// of a table that isn't there.
using KeyColumns = std::function<std::vector<std::string>(std::string_view table)>;

// A statement of the program in PostgreSQL's words: one, or several that belong together where it makes a trigger.
// Rows come in the order that a file of the program has them in where the statement leaves it open: by the key, by what
// they are grouped by, nulls first.
std::vector<std::string> ToPostgres(std::string_view statement, const KeyColumns& keyOf);

// Whether a statement can change anything.
bool IsWriting(std::string_view statement);

// A statement that waits until nobody else writes in the shop's schema, and keeps others waiting until the
// transaction's end.
inline constexpr std::string_view kTakeTurn =
    "SELECT pg_catalog.pg_advisory_xact_lock(1281453652, pg_catalog.hashtext(pg_catalog.current_schema()))";

}  // namespace lantos
