#pragma once

#include "workorders/Workorder.h"

namespace lantos {

// Applies a line whose amount changed from old to new (0 for none) to subtotal, tax, total and amount due. A credit
// lowers the total. All rounding is to whole cents, halves to even. Here and below a sum that 32 bits can't hold is
// std::overflow_error.
void AddWoAmount(Workorder& workorder, WoCategory category, Cents oldAmount, Cents newAmount);

// Adds to what the lines of a category have cost.
void AddWoCost(Workorder& workorder, WoCategory category, std::int64_t cost);

// Rebuild costs and subtotals from the lines, so that a written work order agrees with them.
void SumSublets(Workorder& workorder);
void SumWaste(Workorder& workorder);
void SumCredits(Workorder& workorder);

}  // namespace lantos
