#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/postgres/PostgresConnection.h"
#include "estimatedb/postgres/ServerFile.h"
#include "frame/Types.h"

namespace lantos {

// A connection that is set up for the program: the schema is the shop's, texts and dates come as the program takes
// them, a lock is waited for as long as the timeout, "today" is a day that the server is told.
struct ServerSession {
  std::unique_ptr<PostgresConnection> connection;
  std::map<std::string, std::vector<std::string>> keys;  // the columns that rows are told apart by, for each table
};

// A connection that nothing is set up in. Both throw DatabaseError, whose words say which server and what can be done.
std::unique_ptr<PostgresConnection> ConnectTo(const ServerPlace& place);
// Copy is the name by which the changes of this connection are told from those of others.
ServerSession OpenSession(const ServerPlace& place, DaySerial today, std::chrono::milliseconds lockTimeout,
                          const std::string& copy);

PostgresRequest TellToday(DaySerial today);

// What asks for the keys of the schema's tables, and what comes back.
extern const std::string_view kAskForKeys;
std::map<std::string, std::vector<std::string>> KeysIn(const pg_result& result);

}  // namespace lantos
