#pragma once

#include <array>
#include <string>

#include "frame/Environment.h"
#include "records/Record.h"

namespace lantos {

// TQPASSWD.DAT: twelve passwords of 21 bytes. An empty one leaves its section open to all.
enum class Section { Workorders = 0, Inventory = 1, Customer = 3, Employee = 4, Vendor = 5, System = 8, EditMenu = 11 };
std::string_view LabelOf(Section section);  // "Inventory Maintenance"

inline constexpr std::size_t kPasswordCount = 12;
inline constexpr std::size_t kPasswordWidth = 21;
using PasswordRecord = Record<kPasswordCount * kPasswordWidth>;
static_assert(PasswordRecord::kLength == 252);

inline constexpr std::string_view kPasswordFile = "TQPASSWD.DAT";

class Passwords {
 public:
  explicit Passwords(Environment& environment) : environment_(environment) {}
  // Read once at start; later changes by the main application aren't seen. Throws FileError.
  void LoadPasswords();
  std::string Password(Section section) const;

 private:
  Environment& environment_;
  PasswordRecord record_;
};

}  // namespace lantos
