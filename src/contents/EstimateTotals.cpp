#include "contents/EstimateTotals.h"

namespace lantos {

namespace {

constexpr std::int64_t kWholeRate = 1000000;  // 100 %

// Cents, and millionths of a cent behind them: wide enough for any number of lines of any amount.
class ExactCents {
 public:
  void Add(std::int64_t cents) { cents_ += cents; }
  void AddTax(std::int64_t cents, Millionths rate) {
    if (rate < 1) return;
    millionths_ += cents % kWholeRate * rate;
    cents_ += cents / kWholeRate * rate + millionths_ / kWholeRate;
    millionths_ %= kWholeRate;
  }
  // To a whole cent, halves away from zero.
  std::int64_t Rounded() const {
    const std::int64_t sign = cents_ < 0 || (cents_ == 0 && millionths_ < 0) ? -1 : 1;
    const std::int64_t behind = sign * millionths_;  // may point the other way
    const std::int64_t size = sign * cents_;
    if (2 * behind >= kWholeRate) return sign * (size + 1);
    if (-2 * behind > kWholeRate) return sign * (size - 1);
    return sign * size;
  }

 private:
  std::int64_t cents_ = 0;
  std::int64_t millionths_ = 0;
};

std::int64_t SumOf(const std::vector<Charge>& charges) {
  std::int64_t sum = 0;
  for (const Charge& charge : charges) sum += charge.price;
  return sum;
}

void AddTaxes(ExactCents& tax, const std::vector<Charge>& charges, Millionths rate) {
  for (const Charge& charge : charges) {
    if (charge.taxable) tax.AddTax(charge.price, rate);
  }
}

}  // namespace

EstimateTotals TotalsOf(const TotalledLines& lines, const TaxRates& rates, TaxStanding standing) {
  EstimateTotals totals;
  for (const auto& [number, line] : lines.labor) totals.hours += line.Hours;
  totals.labor = LaborSum(lines.labor);
  totals.parts = PartsSum(lines.parts);
  totals.sublets = SumOf(lines.sublets);
  totals.waste = SumOf(lines.waste);
  ExactCents tax;
  if (standing == TaxStanding::Taxed) {
    tax.AddTax(totals.labor, rates.labor);
    tax.AddTax(totals.parts, rates.parts);
  }
  AddTaxes(tax, lines.sublets, rates.sublets);
  AddTaxes(tax, lines.waste, rates.waste);
  totals.tax = tax.Rounded();
  ExactCents cost = tax;
  cost.Add(totals.labor + totals.parts + totals.sublets + totals.waste);
  totals.cost = cost.Rounded();
  return totals;
}

std::int64_t LaborSum(const LaborByNumber& labor) {
  std::int64_t sum = 0;
  for (const auto& [number, line] : labor) sum += CountedLabor(line.Total);
  return sum;
}

std::int64_t PartsSum(const std::vector<PartLine>& parts) {
  std::int64_t sum = 0;
  for (const PartLine& part : parts) sum += part.total;
  return sum;
}

std::vector<Charge> ReadCharges(Recordset& rows) {
  std::vector<Charge> charges;
  for (; !rows.Eof(); rows.MoveNext()) charges.push_back({rows.Long("Price"), rows.Text("Taxable") == "Yes"});
  rows.Close();
  return charges;
}

TaxRates TaxRatesOf(const SystemRecord& system) {
  return {system.Get(sysrec::tax_rate_labor), system.Get(sysrec::tax_rate_parts), system.Get(sysrec::tax_rate_sublet),
          system.Get(sysrec::tax_rate_waste)};
}

}  // namespace lantos
