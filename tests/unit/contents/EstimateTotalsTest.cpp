#include "contents/EstimateTotals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

#include "contents/labor/LaborRows.h"
#include "contents/parts/PartRows.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

struct AnyEstimate {
  LaborByNumber labor;
  std::vector<PartLine> parts;
  std::vector<Charge> sublets, waste;
  TaxRates rates;
  TaxStanding standing = TaxStanding::Taxed;

  EstimateTotals Totals() const { return TotalsOf({labor, parts, sublets, waste}, rates, standing); }
  void AddLabor(Hundredths hours, Cents total, std::int32_t mechanic = 4) {
    WoLaborLine line;
    line.Mechanic = mechanic;
    line.Hours = hours;
    line.Rate = 6500;
    line.Total = total;
    line.Desc[0] = "LINE 12.50";
    labor[static_cast<std::int32_t>(labor.size())] = line;
  }
  void AddPart(Cents total) {
    PartLine part;
    part.partNumber = "A NUMBER OF 21 LETTER";
    part.description = "A TEXT OF MORE THAN TWENTY LETTERS";
    part.total = total;
    parts.push_back(part);
  }
};

std::int64_t TaxOn(Cents amount, Millionths rate) {
  AnyEstimate estimate;
  estimate.AddPart(amount);
  estimate.rates.parts = rate;
  return estimate.Totals().tax;
}

TEST(EstimateTotals, AnEstimateWithoutLinesComesToNothing) {
  const EstimateTotals totals = AnyEstimate().Totals();
  EXPECT_EQ(totals.hours, 0);
  EXPECT_EQ(totals.tax, 0);
  EXPECT_EQ(totals.cost, 0);
}

TEST(EstimateTotals, HoursTakenOffTakeOffNoMoney) {
  AnyEstimate estimate;
  estimate.AddLabor(200, 13000);
  estimate.AddLabor(-50, -3250);
  EXPECT_EQ(estimate.Totals().hours, 150);
  EXPECT_EQ(estimate.Totals().labor, 13000);
}

TEST(EstimateTotals, PartsBelowZeroCount) {
  AnyEstimate estimate;
  estimate.AddPart(1000);
  estimate.AddPart(-2500);
  EXPECT_EQ(estimate.Totals().parts, -1500);
  EXPECT_EQ(estimate.Totals().cost, -1500);
}

TEST(EstimateTotals, TheTaxIsRoundedOnceForAllLines) {
  AnyEstimate estimate;
  estimate.rates = {60000, 82500, 0, 0};
  estimate.AddLabor(100, 5);  // 0.3 cents
  estimate.AddPart(3);        // 0.2475 cents
  EXPECT_EQ(estimate.Totals().tax, 1);
  EXPECT_EQ(estimate.Totals().cost, 9);
}

TEST(EstimateTotals, HalfACentOfTaxGoesAwayFromZero) {
  EXPECT_EQ(TaxOn(10, 50000), 1);
  EXPECT_EQ(TaxOn(-10, 50000), -1);
  EXPECT_EQ(TaxOn(10, 49999), 0);
  EXPECT_EQ(TaxOn(10, 0), 0);
  EXPECT_EQ(TaxOn(10, -50000), 0);
}

TEST(EstimateTotals, TheCostIsRoundedAsItStandsAndNotFromTheRoundedTax) {
  AnyEstimate estimate;
  estimate.rates.sublets = 50000;
  estimate.sublets = {{-10, true}, {100, false}};
  EXPECT_EQ(estimate.Totals().tax, -1);   // -0.5 cents
  EXPECT_EQ(estimate.Totals().cost, 90);  // 89.5 cents
}

TEST(EstimateTotals, AnExemptCustomerPaysTaxOnTaxableSubletsAndWasteAlone) {
  AnyEstimate estimate;
  estimate.rates = {1000000, 1000000, 100000, 200000};
  estimate.standing = TaxStanding::Exempt;
  estimate.AddLabor(100, 500);
  estimate.AddPart(500);
  estimate.sublets = {{1000, true}, {1000, false}};
  estimate.waste = {{100, true}};
  EXPECT_EQ(estimate.Totals().tax, 120);
}

TEST(EstimateTotals, HoursCountWhateverTheLengthOfTheMechanicsNumber) {
  for (const std::int32_t mechanic : {0, 999999, 1234567, 12345678, -4, kMost, kLeast}) {
    AnyEstimate estimate;
    estimate.AddLabor(150, 0, mechanic);
    EXPECT_EQ(estimate.Totals().hours, 150) << mechanic;
  }
}

TEST(EstimateTotals, ManyLinesOfTheLargestAmountsAndRatesFit) {
  AnyEstimate estimate;
  estimate.rates = {kMost, kMost, kMost, kMost};
  for (int i = 0; i < 1000; ++i) {
    estimate.AddLabor(kMost, kMost);
    estimate.sublets.push_back({kMost, true});
  }
  EXPECT_EQ(estimate.Totals().labor, 1000LL * kMost);
  EXPECT_EQ(estimate.Totals().tax, 9223372028264841LL);  // kMost x kMost / 1000000 x 2000
}

// What the rows of the two lists say when they are read, and doubles are summed.
struct AsReadFromTheRows {
  double hours = 0, labor = 0, parts = 0, sublets = 0, waste = 0, tax = 0;
  std::int64_t laborSum = 0, partsSum = 0;
  double size = 0;  // of all that was summed, whatever its sign

  explicit AsReadFromTheRows(const AnyEstimate& estimate) {
    for (const auto& [number, line] : estimate.labor) {
      for (const std::string& row : LaborRows(line)) ReadLabor(row);
    }
    for (const PartLine& part : estimate.parts) {
      const double total = TotalIn(PartRow(part));
      parts += total;
      size += std::fabs(total);
      partsSum += RoundHalfEven(total * 100);
    }
    if (estimate.standing == TaxStanding::Taxed) {
      tax += Tax(labor, estimate.rates.labor);
      tax += Tax(parts, estimate.rates.parts);
      size += std::fabs(Tax(labor, estimate.rates.labor)) + std::fabs(Tax(parts, estimate.rates.parts));
    }
    double ofSublets = 0;
    double ofWaste = 0;
    ReadExtras(estimate.sublets, estimate.rates.sublets, sublets, ofSublets);
    ReadExtras(estimate.waste, estimate.rates.waste, waste, ofWaste);
    tax += ofSublets;
    tax += ofWaste;
    size += std::fabs(tax);
  }
  double Cost() const { return labor + parts + sublets + waste + tax; }

 private:
  static double TotalIn(std::string_view row) { return Val(row.substr(row.rfind(' ') + 1)); }
  static double HoursIn(std::string_view row) {
    const std::string_view rest = row.substr(row.find(' ') + 1);
    return Val(rest.substr(0, rest.find(' ')));
  }
  static double Tax(double sum, Millionths rate) { return rate < 1 ? 0 : rate * sum / 1000000; }
  void ReadLabor(const std::string& row) {
    if (row[0] == ' ') return;
    const double total = TotalIn(row);
    if (total > 0) labor += total;
    size += std::fabs(total);
    laborSum += std::max(0, RoundHalfEven(total * 100));
    hours += HoursIn(row);
  }
  void ReadExtras(const std::vector<Charge>& charges, Millionths rate, double& sum, double& ofAll) {
    for (const Charge& charge : charges) {
      const double price = charge.price / 100.0;
      sum += price;
      size += std::fabs(price);
      if (!charge.taxable) continue;
      ofAll += Tax(price, rate);
      size += std::fabs(Tax(price, rate));
    }
  }
};

class Estimates {
 public:
  AnyEstimate Next() {
    // Amounts and rates of a shop, of a large one, or whatever 32 bits hold.
    scale_ = Any(0, 2);
    AnyEstimate estimate;
    estimate.rates = {Rate(), Rate(), Rate(), Rate()};
    estimate.standing = Any(0, 3) == 0 ? TaxStanding::Exempt : TaxStanding::Taxed;
    for (int lines = Any(0, 12); lines > 0; --lines) estimate.AddLabor(Amount(), Amount(), Mechanic());
    for (int lines = Any(0, 12); lines > 0; --lines) estimate.AddPart(Amount());
    for (int lines = Any(0, 4); lines > 0; --lines) estimate.sublets.push_back({Amount(), Any(0, 1) == 0});
    for (int lines = Any(0, 4); lines > 0; --lines) estimate.waste.push_back({Amount(), Any(0, 1) == 0});
    return estimate;
  }

 private:
  std::int32_t Any(std::int32_t from, std::int32_t to) {
    return static_cast<std::int32_t>(
        from + static_cast<std::int64_t>(
                   random_() % (std::uint64_t{1} + static_cast<std::uint64_t>(static_cast<std::int64_t>(to) - from))));
  }
  std::int32_t Amount() {
    if (scale_ == 0) return Any(-2000, 300000);
    if (scale_ == 1) return Any(-5000, 200000000);
    const std::int32_t kind = Any(0, 5);
    return kind == 0 ? kMost : kind == 1 ? kLeast : Any(kLeast, kMost);
  }
  Millionths Rate() {
    constexpr Millionths kUsual[] = {0, 1, 40000, 50000, 60000, 72500, 82500, -60000};
    if (scale_ == 0) return kUsual[Any(0, 7)];
    if (scale_ == 1) return Any(0, 1000000);
    return Any(0, 3) == 0 ? kMost : Any(kLeast, kMost);
  }
  std::int32_t Mechanic() { return Any(0, 9) == 0 ? Any(kLeast, kMost) : Any(0, 999999); }

  std::mt19937_64 random_{20030930};
  std::int32_t scale_ = 0;
};

// The same text, unless doubles of this size can't tell which side of half a cent the amount is on. Those of a shop
// always can.
void ExpectSameMoney(double read, std::int64_t cents, double size) {
  const std::string text = FormatFixed(read, 2);
  if (text == FormatHundredths(cents)) return;
  const double noise = 32 * std::numeric_limits<double>::epsilon() * size * 100;  // cents
  const double behind = std::fabs(read) * 100 - std::floor(std::fabs(read) * 100);
  const bool nearHalf = noise > 1e-6 && std::fabs(behind - 0.5) <= noise;
  EXPECT_TRUE(nearHalf && std::fabs(read * 100 - static_cast<double>(cents)) <= 0.5 + noise)
      << text << " was read, and worked out is " << FormatHundredths(cents);
}

// LANTOS_TOTALS_ROUNDS=1000000 in the environment makes it a long run.
TEST(EstimateTotals, AreWhatTheRowsOfAnyEstimateSay) {
  const char* rounds = std::getenv("LANTOS_TOTALS_ROUNDS");
  Estimates estimates;
  for (int round = rounds == nullptr ? 3000 : std::atoi(rounds); round > 0 && !testing::Test::HasFailure(); --round) {
    const AnyEstimate estimate = estimates.Next();
    const AsReadFromTheRows rows(estimate);
    const EstimateTotals totals = estimate.Totals();
    ASSERT_EQ(FormatFixed(rows.hours, 2), FormatHundredths(totals.hours));
    ASSERT_EQ(FormatFixed(rows.labor, 2), FormatHundredths(totals.labor));
    ASSERT_EQ(FormatFixed(rows.parts, 2), FormatHundredths(totals.parts));
    ASSERT_EQ(FormatFixed(rows.sublets, 2), FormatHundredths(totals.sublets));
    ASSERT_EQ(FormatFixed(rows.waste, 2), FormatHundredths(totals.waste));
    ASSERT_EQ(rows.laborSum, LaborSum(estimate.labor));
    ASSERT_EQ(rows.partsSum, PartsSum(estimate.parts));
    ExpectSameMoney(rows.tax, totals.tax, rows.size);
    ExpectSameMoney(rows.Cost(), totals.cost, rows.size);
  }
}

}  // namespace
}  // namespace lantos
