#include "workorders/WorkorderSums.h"

#include <algorithm>
#include <iterator>

#include "frame/Numbers.h"

namespace lantos {

namespace {

constexpr std::int64_t kWhole = 1'000'000;  // a rate of 100 %
constexpr std::size_t kSold = std::size(wototals::Cost);

// Sublets and waste have one rate each, taxable or not.
constexpr std::size_t RateOf(std::size_t category) {
  constexpr std::size_t kRates = std::size(wototals::Discount);
  return category < kRates ? category : category - 2;
}

}  // namespace

bool HasDiscount(const WoTotals& totals) {
  return totals.Get(wototals::DollarDiscount) != 0 ||
         std::any_of(std::begin(wototals::Discount), std::end(wototals::Discount),
                     [&](LongField rate) { return totals.Get(rate) != 0; });
}

std::int64_t DiscountOf(const WoTotals& totals) {
  std::int64_t discount = totals.Get(wototals::DollarDiscount);
  for (std::size_t i = 0; i < kSold; ++i) {
    const std::int64_t rate = totals.Get(wototals::Discount[RateOf(i)]);
    discount += DivideHalfEven(rate * totals.Get(wototals::Subtotal[i]), kWhole);
  }
  return discount;
}

std::string DiscountText(const WoTotals& totals) {
  const std::int64_t discount = DiscountOf(totals);
  return std::string("Totals include a discount of ") + (discount < 0 ? "-$" : "$") +
         FormatHundredths(discount < 0 ? -discount : discount);
}

std::int64_t CostOf(const WoTotals& totals) {
  std::int64_t cost = 0;
  for (const LongField field : wototals::Cost) cost += totals.Get(field);
  return cost;
}

std::int64_t PriceOf(const WoTotals& totals) {
  std::int64_t price = 0;
  for (std::size_t i = 0; i < kSold; ++i) price += totals.Get(wototals::Subtotal[i]);
  return price - DiscountOf(totals);
}

}  // namespace lantos
