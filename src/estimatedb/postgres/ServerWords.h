#pragma once

#include <string>
#include <string_view>

#include "estimatedb/engine/DatabaseError.h"
#include "estimatedb/postgres/ServerFile.h"

namespace lantos {

// What the five characters of the server's table of errors mean to the program. None is a way that isn't there.
DatabaseErrorKind KindOfState(std::string_view state);

// What a person is told, which server it is about and what can be done.

// A connection that wasn't made, by the state that the server gave for it. The user is the one of the login.
std::string WordsOfRefusedConnection(const ServerPlace& place, std::string_view state);

// Whether what was on its way when the connection went may be stored all the same.
enum class Fate { NotStored, Unknown };
std::string WordsOfLostConnection(const ServerPlace& place, Fate fate);

std::string WordsOfMissingSchema(const ServerPlace& place);
std::string WordsOfClosedSchema(const ServerPlace& place);
std::string WordsOfSchemaNotMade(const ServerPlace& place);
std::string WordsOfEncoding(const ServerPlace& place, std::string_view encoding);

// Why changes aren't followed, by the state that the server gave: in a few words for the board, where it is something
// that whoever looks after the server can mend, otherwise empty; and what that is, for the run log.
std::string TroubleOfFollowing(std::string_view state);
std::string WordsOfTroubledFollowing(const ServerPlace& place, std::string_view state);

}  // namespace lantos
