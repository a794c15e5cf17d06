#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

struct sqlite3;

namespace lantos {

// The numbers of the rows that a connection has itself added to the trail. They count once they are committed: a number
// that was undone is another's again.
class OwnTrailRows {
 public:
  // From here on. The connection goes before this does.
  void Follow(sqlite3* connection);

  // Of the running transaction: how many, and back to so many. When all of it is undone, that is known here.
  std::size_t Pending() const { return pending_.size(); }
  void Undo(std::size_t to);
  void Commit();

  bool Has(std::int64_t number) const { return committed_.contains(number); }
  std::int64_t Highest() const { return committed_.empty() ? 0 : *committed_.rbegin(); }
  void ForgetUpTo(std::int64_t number);

 private:
  std::vector<std::int64_t> pending_;
  std::set<std::int64_t> committed_;
};

}  // namespace lantos
