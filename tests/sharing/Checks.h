#pragma once

#include <array>
#include <filesystem>
#include <string_view>

#include "frame/SharedFile.h"

// What is shown of the sharing modes, by many processes on real files. Each check prints its figures and tells whether
// all was as it must be.
namespace lantos::sharing {

struct Mode {
  std::string_view name;
  Access access;
  Deny deny;
};

inline constexpr std::array<Mode, 9> kModes = {{
    {"R/none", Access::Read, Deny::None},
    {"W/none", Access::Write, Deny::None},
    {"RW/none", Access::ReadWrite, Deny::None},
    {"R/denyW", Access::Read, Deny::Write},
    {"W/denyW", Access::Write, Deny::Write},
    {"RW/denyW", Access::ReadWrite, Deny::Write},
    {"R/denyAll", Access::Read, Deny::All},
    {"W/denyAll", Access::Write, Deny::All},
    {"RW/denyAll", Access::ReadWrite, Deny::All},
}};

// The rule itself: one's access meets what the other denies.
constexpr bool Denies(const Mode& one, const Mode& other) {
  if (one.deny == Deny::All) return true;
  return one.deny == Deny::Write && other.access != Access::Read;
}
constexpr bool Conflict(const Mode& one, const Mode& other) { return Denies(one, other) || Denies(other, one); }

enum class Opened { Yes, Refused, Failed };  // Failed: for another reason than a conflict
Opened TryToOpen(const std::filesystem::path& path, const Mode& mode, SharedFile& file);

// Pairs of opens that went otherwise than the rule says, of all 162.
struct MatrixResult {
  int pairs = 0;
  int wrong = 0;
};
MatrixResult RunMatrix(const std::filesystem::path& directory);

// good: no violation, no failure, and no refusal among modes that get on with each other.
struct RaceResult {
  long opens = 0;
  long violations = 0;
  bool good = true;
};
RaceResult RunRace(const std::filesystem::path& directory, int processes, double seconds);

bool CheckMatrix(const std::filesystem::path& directory);
bool CheckRace(const std::filesystem::path& directory, int processes, double seconds);
bool CheckCounter(const std::filesystem::path& directory, int processes, int numbersEach);
bool CheckKills(const std::filesystem::path& directory, int kills);
// Beside a plain open and close; a figure only.
void PrintCost(const std::filesystem::path& directory);

}  // namespace lantos::sharing
