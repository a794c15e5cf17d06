#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "records/PayPeriods.h"
#include "records/Payroll.h"

namespace lantos {

// How often somebody is paid, by the code in the pay block.
struct PayPeriod {
  std::uint8_t code;
  int aYear;                // how many there are in a year, a day being a working day
  std::string_view inFile;  // as the files of withholding have it

  std::string_view Name() const { return PayPeriodName(code); }
};

inline constexpr PayPeriod kPayPeriods[] = {
    {1, 52, "weekly"},   {2, 26, "two-weekly"}, {3, 24, "twice-a-month"}, {4, 12, "monthly"},
    {5, 4, "quarterly"}, {6, 2, "half-yearly"}, {7, 1, "yearly"},         {8, 260, "daily"},
};
// Null for a code that is none.
const PayPeriod* FindPayPeriod(std::uint8_t code);
const PayPeriod* FindPayPeriod(std::string_view inFile);

enum class PayKind { None, Hourly, Salaried, Commission };
// The first that applies, in this order.
PayKind PayKindOf(const PayRecord& record);
// The code of the period that goes with the kind, 0 for None.
std::uint8_t PayPeriodOf(const PayRecord& record);

// Null for a record without any, and for one whose kinds of pay have different periods: what it was paid for can't be
// told then.
const PayPeriod* OnlyPayPeriodOf(const PayRecord& record);

}  // namespace lantos
