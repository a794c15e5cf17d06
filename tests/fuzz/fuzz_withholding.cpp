#include "Target.h"
#include "payroll/Withholding.h"

namespace lantos::fuzz {

namespace {

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    if (c == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += c;
    }
  }
  return lines;
}

// Whatever the rules are: nobody is given money by a tax, and none is taken of nothing.
void Use(const WithholdingRule& rule) {
  for (const PayPeriod& period : kPayPeriods) {
    for (const TaxStatus status : {TaxStatus::Single, TaxStatus::Married}) {
      const auto tax = Withheld(rule, {2'147'483'647, 255, &period, status});
      Require(!tax || *tax >= 0);
      const auto none = Withheld(rule, {-2'147'483'648LL, 0, &period, status});
      Require(!none || *none == 0);
    }
  }
  Withheld(rule, {100, 0, nullptr, std::nullopt});
}

}  // namespace

void Try(std::string_view bytes) {
  try {
    for (const WithholdingRule& rule : ReadWithholdingRules(LinesOf(bytes), 2003)) Use(rule);
  } catch (const WithholdingError&) {
  }
}

}  // namespace lantos::fuzz
