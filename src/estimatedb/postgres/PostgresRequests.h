#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/engine/Recordset.h"
#include "estimatedb/postgres/PostgresConnection.h"

namespace lantos {

// What is read from here on is of one state.
inline constexpr std::string_view kBeginReading = "BEGIN ISOLATION LEVEL REPEATABLE READ";

// A statement in the server's words, which may be several; the values are those of the last. One without values is
// never planned: it comes once.
std::vector<PostgresRequest> RequestsOf(const std::vector<std::string>& texts, const std::vector<Value>& parameters,
                                        PostgresRequest::Use often = PostgresRequest::Use::Planned);

void Append(std::vector<PostgresRequest>& all, std::vector<PostgresRequest> more);

}  // namespace lantos
