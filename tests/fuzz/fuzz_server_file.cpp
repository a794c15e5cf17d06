#include "Target.h"
#include "estimatedb/engine/DatabaseError.h"
#include "estimatedb/postgres/ServerFile.h"

namespace lantos::fuzz {

// Only reads: no server is asked, whatever the bytes name. What is taken says where to go, and bears no password.
void Try(std::string_view bytes) {
  try {
    const ServerPlace place = ParseServerFile(bytes, "/shop/Lantos.mdb");
    Require(place.server.starts_with("postgres"));
    Require(!place.schema.empty() && !place.address.empty());
    Require(ParseServerFile(bytes, "/shop/Lantos.mdb").server == place.server);
    See(place.database);
  } catch (const DatabaseError& refusal) {
    See(refusal.what());
  }
}

}  // namespace lantos::fuzz
