#include "contents/labor/LaborBench.h"
#include "contents/labor/frmCanLaborList.h"

// The shop's standard jobs as a list.
namespace lantos {
namespace {

using test::LaborBench;

CannedLabor Job(const std::string& text, Hundredths hours) {
  CannedLabor entry;
  entry.Hours = hours;
  entry.Rate = 100;
  entry.Total = 200;
  entry.Desc[0] = text;
  return entry;
}

using Amounts = std::vector<std::vector<std::int32_t>>;

struct CannedList : LaborBench {
  explicit CannedList(Hundredths hoursOfTheSecond) {
    SaveCannedLabor(environment, {Job("LOF  OIL AND FILTER", 50), Job("TIRE ROTATE", hoursOfTheSecond)});
  }
  // Both are ticked and brought to the shop's rate.
  void Update() {
    frmCanLaborList form(bench);
    form.Show();
    test::Click(form.cmdUpdateRate);
    for (int row = 0; row < 2; ++row) form.UpdList.DoCheck(row, true);
    test::Click(form.cmdUpdateRate);
    test::Press(form, "Esc");
  }
  // Hours, rate and total of each.
  Amounts Saved() {
    Amounts amounts;
    for (const CannedLabor& entry : LoadCannedLabor(environment)) {
      amounts.push_back({entry.Hours, entry.Rate, entry.Total});
    }
    return amounts;
  }
};

TEST(frmCanLaborList, GivesWhatIsTickedTheRateOfTheShop) {
  CannedList bench(125);
  bench.Update();
  EXPECT_EQ(bench.Saved(), (Amounts{{50, 6500, 3250}, {125, 6500, 8125}}));
}

TEST(frmCanLaborList, ATotalThatNoFieldHoldsChangesNoneOfThem) {
  CannedList bench(2000000000);
  bench.desktop.failuresExpected = true;
  bench.Update();
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_EQ(bench.Saved(), (Amounts{{50, 100, 200}, {2000000000, 100, 200}}));
}

}  // namespace
}  // namespace lantos
