#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace lantos {

// A few places among a command's values.
struct ValuePlaces {
  static constexpr std::size_t kMost = 2;

  template <class... Places>
  constexpr ValuePlaces(Places... all) : places{all...}, count(sizeof...(all)) {}
  constexpr const int* begin() const { return places.data(); }
  constexpr const int* end() const { return places.data() + count; }

  std::array<int, kMost> places{};
  std::size_t count;
};

// What the trail has to know of a command that changes something.
struct TrailRule {
  // What it does decides what has to be read: a row that came is what the command was given, a row that went is looked
  // at ahead, what was changed is looked at on both sides.
  enum class Effect { Adds, Removes, Changes };
  static constexpr int kOfNoEstimate = -1;
  static constexpr int kNoSource = -1;

  std::string_view command;
  Effect effect;
  // Which of the command's values is the estimate's number.
  int estimate;
  // For Adds the names of the values behind the first, with commas between; else the command that reads the rows
  // concerned, and which of the values it takes.
  std::string_view columnsOrLook;
  ValuePlaces keys{};
  // The trail has this column of a row that was changed too: a line's number, the day of an estimate. May be empty.
  std::string_view name{};
  // Which of the values is the number of the estimate that was copied.
  int source = kNoSource;
};

// Null when the command changes nothing.
const TrailRule* FindTrailRule(std::string_view command);

}  // namespace lantos
