#include "payroll/WithholdingRules.h"

#include <algorithm>

#include "frame/Numbers.h"

namespace lantos {

namespace {

constexpr std::int64_t kMillion = 1'000'000;
constexpr int kYearly = 7;

std::int64_t TaxOf(const std::vector<TaxBracket>& brackets, std::int64_t wage) {
  const auto above =
      std::find_if(brackets.rbegin(), brackets.rend(), [wage](const TaxBracket& each) { return wage > each.over; });
  if (above == brackets.rend()) return 0;
  return above->tax + DivideHalfEven((wage - above->over) * above->rate, kMillion);
}

// The part of the gross that is taxed; nothing when the rule has allowances, but none for the period.
std::optional<std::int64_t> Taxable(const WithholdingRule& rule, std::int64_t gross, int exemptions, int period) {
  const auto allowance = rule.allowances.find(period);
  if (allowance == rule.allowances.end() && !rule.allowances.empty()) return std::nullopt;
  const std::int64_t free = allowance == rule.allowances.end() ? 0 : exemptions * allowance->second;
  return std::max<std::int64_t>(gross - free, 0);
}

using ByPeriod = std::optional<std::int64_t> (*)(const WithholdingRule& rule, const TaxedWage& wage, int period);

std::optional<std::int64_t> ByRate(const WithholdingRule& rule, const TaxedWage& wage, int period) {
  const auto taxable = Taxable(rule, wage.gross, wage.exemptions, period);
  if (!taxable) return std::nullopt;
  return DivideHalfEven(*taxable * rule.rate, kMillion);
}

std::optional<std::int64_t> ByTable(const WithholdingRule& rule, const TaxedWage& wage, int period) {
  if (!wage.status) return std::nullopt;
  const auto table = rule.tables.find({period, *wage.status});
  const auto taxable = Taxable(rule, wage.gross, wage.exemptions, period);
  if (table == rule.tables.end() || !taxable) return std::nullopt;
  return TaxOf(table->second, *taxable);
}

std::optional<std::int64_t> ByPeriodOrYear(const WithholdingRule& rule, const TaxedWage& wage, ByPeriod work) {
  if (wage.period == nullptr) return std::nullopt;
  if (const auto own = work(rule, wage, wage.period->code)) return own;
  TaxedWage year = wage;
  year.gross *= wage.period->aYear;
  const auto tax = work(rule, year, kYearly);
  if (!tax) return std::nullopt;
  return DivideHalfEven(*tax, wage.period->aYear);
}

}  // namespace

bool WithholdingRule::IsFor(Authority whose, std::string_view state, DaySerial day) const {
  const bool isMeant =
      authority == Authority::Federal || std::find(states.begin(), states.end(), state) != states.end();
  return authority == whose && isMeant && day >= from && day <= to;
}

std::optional<std::int64_t> Withheld(const WithholdingRule& rule, const TaxedWage& wage) {
  switch (rule.kind) {
    case WithholdingRule::Kind::None:
      return 0;
    case WithholdingRule::Kind::Rate:
      // Without allowances the rate is the same for everybody, whatever the period is.
      if (rule.allowances.empty()) return ByRate(rule, wage, kYearly);
      return ByPeriodOrYear(rule, wage, ByRate);
    case WithholdingRule::Kind::Table:
      break;
  }
  return ByPeriodOrYear(rule, wage, ByTable);
}

}  // namespace lantos
