#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "estimatedb/EngineChoice.h"

namespace lantos {

enum class MoveStep { Copying, Comparing, Placing };

// How far a move is; of Placing the table is empty, and what is counted are its steps.
struct MoveProgress {
  std::string table;
  MoveStep step = MoveStep::Copying;
  std::int64_t done = 0;
  std::int64_t of = 0;
};
using TellProgress = std::function<void(const MoveProgress&)>;

struct MovedTable {
  std::string name;
  std::int64_t rows = 0;
};

// What was moved.
struct MovedTables {
  std::vector<MovedTable> tables;
  std::vector<std::string> leftBehind;  // tables that aren't the program's
  std::int64_t datesDropped = 0;        // texts that no date could be read from, null from here on
};

// Makes the program's tables in a database that holds nothing, copies every row of every one, counts them and compares
// each with what has come to lie there. Both engines are within Together. Throws DatabaseError, whose words say which
// row is against it.
MovedTables MoveTables(OpenedTables& from, OpenedTables& to, const TellProgress& tell);

}  // namespace lantos
