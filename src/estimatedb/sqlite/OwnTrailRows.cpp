#include "estimatedb/sqlite/OwnTrailRows.h"

#include <sqlite3.h>

#include <algorithm>

#include "frame/Text.h"

namespace lantos {

void OwnTrailRows::Follow(sqlite3* connection) {
  const auto note = [](void* rows, int operation, const char*, const char* table, sqlite3_int64 number) {
    if (operation != SQLITE_INSERT || !EqualsIgnoringCase(table, "Trail")) return;
    static_cast<OwnTrailRows*>(rows)->pending_.push_back(number);
  };
  sqlite3_update_hook(connection, note, this);
  const auto undo = [](void* rows) { static_cast<OwnTrailRows*>(rows)->pending_.clear(); };
  sqlite3_rollback_hook(connection, undo, this);
}

void OwnTrailRows::Undo(std::size_t to) { pending_.resize(std::min(to, pending_.size())); }

void OwnTrailRows::Commit() {
  committed_.insert(pending_.begin(), pending_.end());
  pending_.clear();
}

void OwnTrailRows::ForgetUpTo(std::int64_t number) {
  committed_.erase(committed_.begin(), committed_.upper_bound(number));
}

}  // namespace lantos
