#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace lantos {

// What a command's parameter carries. Day is a day serial that the statement compares with, or puts into, a date
// column; DateText is such a date as the text "mm/dd/yyyy".
enum class ParameterKind { Long, Text, Date, Day, DateText };

struct ParameterKinds {
  static constexpr std::size_t kMost = 11;

  template <class... Kinds>
  constexpr ParameterKinds(Kinds... all) : kinds{all...}, count(sizeof...(all)) {}
  constexpr ParameterKind operator[](std::size_t index) const { return kinds[index]; }

  std::array<ParameterKind, kMost> kinds;
  std::size_t count;
};

// A named command of a data environment. A statement that is a table's bare name opens the whole table. What the
// program asks of its databases stands in these tables; only new databases are made from Schema.h.
struct Command {
  std::string_view name;
  std::string_view statement;
  ParameterKinds parameters;
};

extern const std::span<const Command> kLantosCommands;  // de's, in their defining order
extern const std::span<const Command> kKorvelCommands;  // de2's
extern const std::span<const Command> kTrailCommands;   // of the trail, in TrailCommands.cpp

// Throws DatabaseError when there is no such command.
const Command& FindCommand(std::span<const Command> commands, std::string_view name);

}  // namespace lantos
