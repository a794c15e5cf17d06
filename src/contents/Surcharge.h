#pragma once

#include "contents/Workbench.h"

namespace lantos {

// The one line that the program writes by itself: it follows the totals of labor and parts.
class Surcharge {
 public:
  explicit Surcharge(Workbench& bench) : bench_(bench) {}

  // After every change of labor or parts, from the rows of the two lists. Writes the line, 0 included, to Sublets or
  // Waste; nothing at all when the shop has no rate or no description for it.
  void ApplySurcharge();

 private:
  Cents Amount() const;
  std::int64_t LaborSum() const;
  std::int64_t PartsSum() const;
  void SetSurchargeLine(const struct SurchargeTable& table, Cents amount);

  Workbench& bench_;
};

// A rate on a sum of cents, to a whole cent: millionths of it, or, negative, a flat amount. Nothing without a sum.
Cents SurchargeOn(std::int64_t sum, Millionths rate);

}  // namespace lantos
