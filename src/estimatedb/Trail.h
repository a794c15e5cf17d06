#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "estimatedb/engine/Engine.h"
#include "frame/Clock.h"

namespace lantos {

class de;

// Who changes something: the name of the workstation and of the person at its operating system, as both give them; each
// may be empty.
struct TrailAuthor {
  std::string workstation;
  std::string user;
  bool operator==(const TrailAuthor&) const = default;
};

// One row of a table as the trail keeps it: its columns in their order. A column that held nothing isn't there.
struct TrailRow {
  std::vector<std::pair<std::string, Value>> columns;

  // Empty when there is none of that name.
  std::string Text(std::string_view column) const;
  std::int32_t Long(std::string_view column) const;  // 0 when there is none
  bool Has(std::string_view column) const;
  bool operator==(const TrailRow&) const = default;
};

// One change. A change of rows has their changed columns in before and after, behind what names the row; rows that came
// have only the one, rows that went only the other.
struct TrailEntry {
  std::int32_t number = 0;  // counts up over the whole shop
  LocalTime at;
  TrailAuthor author;
  std::string command;        // the name that the command table has for it
  std::int32_t estimate = 0;  // 0: it is of no estimate
  std::vector<TrailRow> before, after;
  std::int32_t undoes = 0;  // the number of the change that it takes back; 0: none
};

// What a copy of an estimate has among its columns: the number of the estimate that it was copied from.
inline constexpr std::string_view kCopiedFrom = "CopiedFrom";

// The trail of who changed what: a table of the shop's database that is only ever added to. Each command that changes
// something is followed here, and its row is written in the transaction of the change: neither stands without the
// other. A database without the table gets it ahead of the first change. Where it can't be made, for want of rights
// say, the changes are made without a trail, which is noted once.
class Trail {
 public:
  using Note = std::function<void(const std::string&)>;

  // Without a note nobody is told that no trail can be kept. The database and the clock outlive this.
  Trail(de& database, const Clock& clock, TrailAuthor author, Note note = {})
      : database_(database), clock_(clock), author_(std::move(author)), note_(std::move(note)) {}

  const TrailAuthor& Author() const { return author_; }
  // At the start of the program: makes the table already now where the database is far away: the first change is as
  // fast as any, and the table can't go back with a transaction that it was made in.
  void Begin();
  // Makes the change of a command, whose values tell which rows it concerns. What changed nothing leaves no row. Throws
  // DatabaseError, and then nothing is changed.
  void Follow(std::string_view command, const std::vector<Value>& values, const std::function<void()>& change);
  // The estimates that were changed here since the last time, 0 where it was something else. What went back counts too,
  // and so does what left no row.
  std::set<std::int32_t> TakeChanged() { return std::exchange(changed_, {}); }
  // What is changed in the work takes back the change of that number.
  void TakeBack(std::int32_t number, const std::function<void()>& work);

 private:
  void ChangeAndWrite(std::string_view command, const struct TrailRule& rule, const std::vector<Value>& values,
                      const std::function<void()>& change);
  bool HasTable();
  void MakeTable();
  std::vector<TrailRow> Look(const struct TrailRule& rule, const std::vector<Value>& values);
  void Write(TrailEntry entry);

  de& database_;
  const Clock& clock_;
  TrailAuthor author_;
  Note note_;
  bool hasTable_ = false;  // as far as is known
  bool isOff_ = false;     // the database is against it
  std::int32_t undoes_ = 0;
  std::set<std::int32_t> changed_;
};

// A row of the table Trail, the recordset's current one.
TrailEntry TrailEntryOf(const Recordset& row);
// The newest first. A database without a trail has none. Throws DatabaseError.
std::vector<TrailEntry> TrailOfEstimate(de& database, std::int32_t estimate);
std::vector<TrailEntry> TrailOfDay(de& database, DaySerial day);
// Takes away what is older than a day, and says how many changes that were. Throws DatabaseError.
std::int64_t PruneTrail(de& database, DaySerial firstKept);

}  // namespace lantos
