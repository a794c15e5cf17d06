#include "payroll/Withholding.h"

#include <fmt/core.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "frame/Text.h"
#include "payroll/PayDate.h"
#include "records/TextLines.h"

namespace lantos {

namespace {

constexpr std::uint8_t kSingle = 0;
constexpr std::uint8_t kMarried = 1;

std::string FileNameOf(int year) { return fmt::format("{}\\{}.txt", kWithholdingFolder, year); }

TaxedWage WageOf(const PayRecord& record) {
  TaxedWage wage;
  wage.gross = record.Get(payrecord::Gross);
  wage.exemptions = record.Get(payrecord::NumExemptions);
  wage.period = OnlyPayPeriodOf(record);
  const std::uint8_t status = record.Get(payrecord::MaritalStatus);
  if (status == kSingle) wage.status = TaxStatus::Single;
  if (status == kMarried) wage.status = TaxStatus::Married;
  return wage;
}

std::string NameOf(Authority authority, const std::string& state) {
  if (authority == Authority::Federal) return "federal";
  const std::string code = state.empty() ? "(the shop has no state)" : state;
  return (authority == Authority::State ? "state " : "local ") + code;
}

// What a rule that is there had no line for.
std::string Particulars(const TaxedWage& wage) {
  const std::string period = wage.period == nullptr ? "no one period" : ToLower(wage.period->Name());
  if (!wage.status) return " (" + period + ", no known status)";
  return " (" + period + (*wage.status == TaxStatus::Married ? ", married)" : ", single)");
}

// "1999, 2001 to 2003": somebody's pay of many years has to fit below a list.
std::string SpansOf(const std::set<int>& years) {
  std::string all;
  for (auto first = years.begin(); first != years.end();) {
    auto last = first;
    while (std::next(last) != years.end() && *std::next(last) == *last + 1) ++last;
    all += (all.empty() ? "" : ", ") + std::to_string(*first);
    if (last != first) all += " to " + std::to_string(*last);
    first = std::next(last);
  }
  return all;
}

std::int64_t Deducted(const PayRecord& record) {
  std::int64_t sum = 0;
  for (const LongField field :
       {payrecord::FICA, payrecord::Medicare, payrecord::Insurance, payrecord::Savings, payrecord::Uniform}) {
    sum += record.Get(field);
  }
  return sum;
}

}  // namespace

Withholding WithholdingTables::Work(std::string_view state, const PayRecord& record) {
  const std::string code = ToUpper(TrimNull(state));
  const std::optional<DaySerial> payDay = PayDay(record.Get(payrecord::PayrollDate));
  Withholding result;
  if (!payDay) {
    hasUndated_ = true;
    return result;
  }
  const DaySerial day = *payDay;
  const TaxedWage wage = WageOf(record);
  result.federal = Apply(Authority::Federal, code, day, wage);
  result.state = Apply(Authority::State, code, day, wage);
  result.local = Apply(Authority::Local, code, day, wage);
  if (result.federal && result.state && result.local) {
    result.net = record.Get(payrecord::Gross) - Deducted(record) - *result.federal - *result.state - *result.local;
  }
  return result;
}

std::optional<std::int64_t> WithholdingTables::Apply(Authority authority, const std::string& state, DaySerial day,
                                                     const TaxedWage& wage) {
  const int year = FromSerial(day).year;
  const Year& known = RulesOf(year);
  const auto rule = std::find_if(known.rules.begin(), known.rules.end(),
                                 [&](const WithholdingRule& each) { return each.IsFor(authority, state, day); });
  if (rule == known.rules.end()) {
    Miss(NameOf(authority, state), year);
    return std::nullopt;
  }
  const std::optional<std::int64_t> withheld = Withheld(*rule, wage);
  if (!withheld) Miss(NameOf(authority, state), year, Particulars(wage));
  return withheld;
}

const WithholdingTables::Year& WithholdingTables::RulesOf(int year) {
  const auto [place, isNew] = years_.try_emplace(year);
  Year& rules = place->second;
  if (!isNew) return rules;
  try {
    ReadOwn(year, rules);
    ReadInstalled(year, rules);
  } catch (const WithholdingError& error) {
    rules = {{}, FileNameOf(year) + ", " + error.what()};
  } catch (const FileError& error) {
    rules = {{}, FileNameOf(year) + ": " + error.Text()};
  }
  if (!rules.broken.empty()) environment_.log.Write("Withholding: " + rules.broken);
  return rules;
}

void WithholdingTables::ReadOwn(int year, Year& into) const {
  const auto lines = ReadTextLines(environment_, FileNameOf(year), Deny::None);
  if (lines) into.rules = ReadWithholdingRules(*lines, year);
}

void WithholdingTables::ReadInstalled(int year, Year& into) const {
  std::ifstream in(installed_ / fmt::format("{}.txt", year));
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  if (lines.empty()) return;
  for (WithholdingRule& rule : ReadWithholdingRules(lines, year)) into.rules.push_back(std::move(rule));
}

void WithholdingTables::Miss(const std::string& whose, int year, const std::string& particulars) {
  auto gap = std::find_if(gaps_.begin(), gaps_.end(),
                          [&](const Gap& each) { return each.whose == whose && each.particulars == particulars; });
  if (gap == gaps_.end()) gap = gaps_.insert(gap, {whose, particulars, {}});
  gap->years.insert(year);
}

std::string WithholdingTables::Missing() const {
  for (const auto& [year, rules] : years_) {
    if (!rules.broken.empty()) return "Withholding can't be worked out: " + rules.broken;
  }
  std::string all = hasUndated_ ? "a record without a date" : "";
  for (const Gap& gap : gaps_) {
    all += (all.empty() ? "" : "; ") + gap.whose + " " + SpansOf(gap.years) + gap.particulars;
  }
  if (all.empty()) return "";
  return fmt::format("No withholding table: {}. One goes into {}{}\\<year>.txt.", all, environment_.files.DataDir(),
                     kWithholdingFolder);
}

}  // namespace lantos
