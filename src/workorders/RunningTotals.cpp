#include "workorders/RunningTotals.h"

#include "frame/Numbers.h"
#include "records/Record.h"

namespace lantos {

namespace {

constexpr std::int64_t kWhole = 1000000;  // millionths

std::size_t Place(WoCategory category) { return static_cast<std::size_t>(category); }

void Add(WoTotals& totals, LongField field, std::int64_t amount) {
  totals.Put(field, LongOrOverflow(totals.Get(field) + amount));
}

std::int64_t PartOf(Millionths rate, Cents amount) {
  return DivideHalfEven(static_cast<std::int64_t>(rate) * amount, kWhole);
}

// Lines that aren't taxed have the discount of their taxed kind.
WoCategory DiscountCategory(WoCategory category) {
  if (category == WoCategory::NonTaxSublet) return WoCategory::Sublet;
  if (category == WoCategory::NonTaxWaste) return WoCategory::Waste;
  return category;
}

void SumExtras(WoTotals& totals, const WoLines<WoExtraLine>& lines, WoCategory taxable, WoCategory nonTaxable) {
  for (const WoCategory category : {taxable, nonTaxable}) {
    totals.Put(wototals::Cost[Place(category)], 0);
    totals.Put(wototals::Subtotal[Place(category)], 0);
  }
  lines.ForEach([&](const WoExtraLine& line) {
    if (TrimView(line.Vendor).empty()) return;
    const WoCategory category = line.IsTaxable() ? taxable : nonTaxable;
    Add(totals, wototals::Cost[Place(category)], line.Cost);
    Add(totals, wototals::Subtotal[Place(category)], line.Price);
  });
}

}  // namespace

void AddWoAmount(Workorder& workorder, WoCategory category, Cents oldAmount, Cents newAmount) {
  WoTotals& totals = workorder.Totals;
  std::int64_t oldDiscount = 0, newDiscount = 0, oldTax = 0, newTax = 0;
  if (const WoCategory kind = DiscountCategory(category); kind <= WoCategory::Waste) {
    if (const Millionths rate = totals.Get(wototals::Discount[Place(kind)]); rate > 0) {
      oldDiscount = PartOf(rate, oldAmount);
      newDiscount = PartOf(rate, newAmount);
    }
  }
  if (category <= WoCategory::Waste) {
    const Millionths rate = totals.Get(wototals::TaxRate[Place(category)]);
    oldTax = PartOf(rate, oldAmount);
    newTax = PartOf(rate, newAmount);
  }
  Add(totals, wototals::Subtotal[Place(category)], static_cast<std::int64_t>(newAmount) - oldAmount);
  const int sign = category == WoCategory::Credit ? -1 : 1;
  const std::int64_t change = sign * (newAmount + newTax) - sign * (oldAmount + oldTax) + oldDiscount - newDiscount;
  workorder.AmountDue = LongOrOverflow(workorder.AmountDue + change);
  Add(totals, wototals::WorkorderTotal, change);
  Add(totals, wototals::WorkorderTax, newTax - oldTax);
}

void AddWoCost(Workorder& workorder, WoCategory category, std::int64_t cost) {
  Add(workorder.Totals, wototals::Cost[Place(category)], cost);
}

void SumSublets(Workorder& workorder) {
  SumExtras(workorder.Totals, workorder.Sublets, WoCategory::Sublet, WoCategory::NonTaxSublet);
}

void SumWaste(Workorder& workorder) {
  SumExtras(workorder.Totals, workorder.Waste, WoCategory::Waste, WoCategory::NonTaxWaste);
}

void SumCredits(Workorder& workorder) {
  std::int64_t sum = 0;
  workorder.Credits.ForEach([&](const WoCreditLine& line) {
    if (!TrimView(line.Text[0]).empty()) sum += line.Amount;
  });
  workorder.Totals.Put(wototals::Subtotal[Place(WoCategory::Credit)], LongOrOverflow(sum));
}

}  // namespace lantos
