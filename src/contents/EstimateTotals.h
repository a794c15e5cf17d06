#pragma once

#include <map>
#include <vector>

#include "contents/PartLine.h"
#include "estimatedb/engine/Recordset.h"
#include "records/modSystem.h"
#include "workorders/Workorder.h"

// What an estimate comes to. Its totals are stored nowhere; they are worked out from its lines each time.
namespace lantos {

using LaborByNumber = std::map<std::int32_t, WoLaborLine>;

// What the totals see of a line of sublets or waste.
struct Charge {
  Cents price = 0;
  bool taxable = false;
};
// All rows of the recordset, which is closed then.
std::vector<Charge> ReadCharges(Recordset& rows);

// A rate below 1 means that nothing is taxed.
struct TaxRates {
  Millionths labor = 0, parts = 0, sublets = 0, waste = 0;
};
TaxRates TaxRatesOf(const SystemRecord& system);

// Of the customer, by the tax identification number. Sublets and waste don't ask for it.
enum class TaxStanding { Taxed, Exempt };

struct TotalledLines {
  const LaborByNumber& labor;
  const std::vector<PartLine>& parts;
  const std::vector<Charge>& sublets;
  const std::vector<Charge>& waste;
};

// Hours in hundredths, money in cents.
struct EstimateTotals {
  std::int64_t hours = 0;
  std::int64_t labor = 0;
  std::int64_t parts = 0;
  std::int64_t sublets = 0;
  std::int64_t waste = 0;
  std::int64_t tax = 0;   // of all lines together, rounded once, halves away from zero
  std::int64_t cost = 0;  // everything, rounded once likewise: with a tax below zero it may be a cent beside the sum
};
EstimateTotals TotalsOf(const TotalledLines& lines, const TaxRates& rates, TaxStanding standing);

// In cents. Hours that are taken off, with a total below zero, take off no money.
constexpr Cents CountedLabor(Cents total) { return total > 0 ? total : 0; }
std::int64_t LaborSum(const LaborByNumber& labor);
std::int64_t PartsSum(const std::vector<PartLine>& parts);

}  // namespace lantos
