#pragma once

#include <string>

#include "frame/Types.h"
#include "workorders/WorkorderTags.h"

namespace lantos {

// What a work order comes to, worked out from its totals. Cents; 64 bits, since sums of what 32 bits hold are longer.

// Whether any discount was given, a rate or an amount.
bool HasDiscount(const WoTotals& totals);
// All of it: of each subtotal its rate, rounded to a cent with halves to even, and the amount.
std::int64_t DiscountOf(const WoTotals& totals);
// The line that tells of it, on screen and on paper.
std::string DiscountText(const WoTotals& totals);
// What parts, labor, sublets and waste cost the shop, and what they are sold for, discount taken off. Credits and fuel
// have no cost, and belong to neither.
std::int64_t CostOf(const WoTotals& totals);
std::int64_t PriceOf(const WoTotals& totals);

}  // namespace lantos
