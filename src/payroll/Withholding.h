#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "frame/Installation.h"
#include "payroll/WithholdingRules.h"

namespace lantos {

inline constexpr std::string_view kWithholdingFolder = "withholding";

// What a pay record comes to, in cents. What no rule tells isn't there, and the net isn't without all three.
struct Withholding {
  std::optional<std::int64_t> federal;
  std::optional<std::int64_t> state;
  std::optional<std::int64_t> local;
  // The gross less these, FICA, Medicare, insurance, savings and uniform. Additional withholding comes off it yet; what
  // the employer pays for unemployment doesn't.
  std::optional<std::int64_t> net;
};

// The rules by year, read when a year is first asked for: of the shop's own file in the data directory, and behind them
// those installed with the program. Writes nothing, ever.
class WithholdingTables {
 public:
  explicit WithholdingTables(Environment& environment,
                             std::filesystem::path installed = InstalledFolder(kWithholdingFolder))
      : environment_(environment), installed_(std::move(installed)) {}

  // state is the company's code of two letters; what stands around it doesn't count.
  Withholding Work(std::string_view state, const PayRecord& record);

  // What of the work so far had no rule, and where one would be put, in a sentence or two for a person. Empty when all
  // had.
  std::string Missing() const;

 private:
  struct Year {
    std::vector<WithholdingRule> rules;  // the first that fits counts
    std::string broken;                  // why a file of the year isn't used; then there are no rules
  };
  const Year& RulesOf(int year);
  void ReadOwn(int year, Year& into) const;
  void ReadInstalled(int year, Year& into) const;
  std::optional<std::int64_t> Apply(Authority authority, const std::string& state, DaySerial day,
                                    const TaxedWage& wage);
  // What had no rule, and in which years.
  struct Gap {
    std::string whose;
    std::string particulars;  // of a rule that is there, but not for these
    std::set<int> years;
  };
  void Miss(const std::string& whose, int year, const std::string& particulars = "");

  Environment& environment_;
  std::filesystem::path installed_;
  std::map<int, Year> years_;
  std::vector<Gap> gaps_;
  bool hasUndated_ = false;  // a record without a day was among them
};

}  // namespace lantos
