#pragma once

#include <functional>

#include "estimatedb/engine/Recordset.h"

namespace lantos {

// The number of a new line: behind all that its list has had, and behind all that the table has by now, other
// workstations' lines too. Closes the recordset. To be asked in the transaction that stores the line.
// std::overflow_error behind the last that there can be.
std::int32_t NumberForNewLine(Recordset& stored, std::string_view column, std::int32_t nextOfList = 1);

// Runs the transaction that takes a number and stores its line; once more, a few times, where the number was taken
// between the two.
void TakeNumberAndStore(const std::function<void()>& transaction);

}  // namespace lantos
