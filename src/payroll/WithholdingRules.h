#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Types.h"
#include "payroll/PayPeriod.h"

namespace lantos {

// What a file of withholding says (docs/withholding.md has its format).

enum class Authority { Federal, State, Local };
enum class TaxStatus { Single, Married };

// Of what lies above a wage: a sum, and a share of what is above.
struct TaxBracket {
  std::int64_t over = 0;  // Cents
  std::int64_t tax = 0;   // Cents
  Millionths rate = 0;
};

// One rule of an authority for a span of pay dates.
struct WithholdingRule {
  enum class Kind { None, Rate, Table };

  Authority authority = Authority::Federal;
  std::vector<std::string> states;  // two letters each; empty for federal
  std::string source;
  DaySerial from = 0;
  DaySerial to = 0;
  Kind kind = Kind::None;
  Millionths rate = 0;
  std::map<int, std::int64_t> allowances;                               // Cents an exemption, by code of the period
  std::map<std::pair<int, TaxStatus>, std::vector<TaxBracket>> tables;  // rising; by code of the period

  bool IsFor(Authority whose, std::string_view state, DaySerial day) const;
};

// A file that can't be understood. The text says where and why.
struct WithholdingError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The rules of a year's file, in its order. Throws WithholdingError at the first line that isn't understood: half a
// file would give figures that nobody meant.
std::vector<WithholdingRule> ReadWithholdingRules(const std::vector<std::string>& lines, int year);

// What is withheld of a wage, in cents. Nothing where the rule has no table for the period and the status, or no
// allowance for the period. A period without a table of its own is worked out by the year's: the wage of a year, its
// tax, and the period's share of that.
struct TaxedWage {
  std::int64_t gross = 0;  // Cents
  int exemptions = 0;
  const PayPeriod* period = nullptr;  // null: not known
  std::optional<TaxStatus> status;    // nothing: not known
};
std::optional<std::int64_t> Withheld(const WithholdingRule& rule, const TaxedWage& wage);

}  // namespace lantos
