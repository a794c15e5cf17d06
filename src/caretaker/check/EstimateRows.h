#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/FileIO.h"
#include "frame/Types.h"

namespace lantos {

// What the kinds want of the databases, read in one pass over their tables, one table a transaction: a file's database
// or a server's.
struct EstimateRows {
  struct Estimate {
    std::int64_t number = 0;
    std::int64_t customer = 0;  // 0: none
    std::int64_t vehicle = kNoLink;
  };
  std::vector<Estimate> estimates;

  // A row of a line of an estimate that isn't there.
  struct Orphans {
    std::string table;
    std::int64_t estimate = 0;
    std::int64_t rows = 0;
  };
  std::vector<Orphans> orphans;

  // A cell whose text is no date, or can't be had in the program's page.
  struct BadCell {
    std::string database, table, column;
    std::int64_t row = 0;  // the first number of its row, which is an estimate's or an employee's as a rule
    std::string text;
  };
  std::vector<BadCell> badDates, badTexts;

  // What the engine itself says of a database, and why one can't be worked with.
  struct Damage {
    std::string database;
    std::string words;
  };
  std::vector<Damage> damages;
};

// DatabaseError when a database is locked by others or its server can't be had.
EstimateRows ReadEstimateRows(const FileIO& files);

}  // namespace lantos
