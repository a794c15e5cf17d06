#pragma once

#include <string>

#include "contents/EstimateLines.h"
#include "contents/Workbench.h"

namespace lantos {

// The one line that the program writes by itself: it follows the totals of labor and parts.
class Surcharge {
 public:
  Surcharge(Workbench& bench, const EstimateLines& lines) : bench_(bench), lines_(lines) {}

  // After every change of labor or parts, from the lines behind the two lists. Writes the line, 0 included, to Sublets
  // or Waste; nothing at all when the shop has no rate or no description for it. The change itself stands already, so a
  // failure ends nothing: it is told here, with totals and the day as they are then.
  void ApplySurcharge();

 private:
  void Write();
  Cents Amount() const;
  void SetSurchargeLine(const struct SurchargeTable& table, Cents amount);
  void Add(const struct SurchargeTable& table, Cents amount);
  std::string WordsOfRefusal(const struct SurchargeTable& table);

  Workbench& bench_;
  const EstimateLines& lines_;
};

// A rate on a sum of cents, to a whole cent, halves to even: millionths of it, or, negative, a flat amount. Nothing
// without a sum. What doesn't fit ends the event: std::overflow_error.
Cents SurchargeOn(std::int64_t sum, Millionths rate);

}  // namespace lantos
