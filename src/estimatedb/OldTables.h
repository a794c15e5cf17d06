#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lantos {

// A row as a dump tells it: each value as text, in UTF-8, or nothing.
using OldRow = std::vector<std::optional<std::string>>;

// The tables of a database of another kind, as some tool dumps them. Everything here throws where the tool can't be had
// or what it says can't be understood; what() is for the person.
class OldTables {
 public:
  virtual ~OldTables() = default;
  // Those that hold something of a person's, not the database's own.
  virtual std::vector<std::string> Names() = 0;
  // How many rows the database itself believes in.
  virtual std::int64_t CountOf(const std::string& table) = 0;
  // The names of the columns come first, then the rows in any order, each with as many values.
  virtual void Read(const std::string& table, const std::function<void(OldRow&&)>& take) = 0;
};

}  // namespace lantos
