#pragma once

#include <stdexcept>
#include <string>

#include "estimatedb/engine/TableStore.h"

namespace lantos {

// What a column of the kind would hold of a value, in one form for all engines: a whole number as such, a date as
// yyyy-mm-dd. A text in a date column that is no date becomes null, as which the program reads it.
// Throws UnfitCell where the value can't be held as it is.
Cell Fitted(const Cell& cell, CellKind kind);

// What() says what the value is and isn't, in the program's page.
class UnfitCell : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The value as a person would write it, in the program's page, cut short where it is long.
std::string Shown(const Cell& cell);

}  // namespace lantos
