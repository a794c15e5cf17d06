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

// By another workstation.
void StoreElsewhere(LaborBench& bench, const std::vector<CannedLabor>& jobs) {
  EditedLines file(bench.environment, kCannedLaborFile);
  file.Read();
  EXPECT_TRUE(file.Store(bench.desktop, "", LinesOf(jobs)));
}

using Amounts = std::vector<std::vector<std::int32_t>>;

struct CannedList : LaborBench {
  explicit CannedList(Hundredths hoursOfTheSecond) {
    StoreElsewhere(*this, {Job("LOF  OIL AND FILTER", 50), Job("TIRE ROTATE", hoursOfTheSecond)});
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
    for (const CannedLabor& entry : CannedLaborIn(EditedLines(environment, kCannedLaborFile).Read())) {
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

TEST(frmCanLaborList, WhatAnotherWorkstationHasStoredIsOverwrittenOnlyIfThePersonWants) {
  for (const ui::Answer answer : {ui::Answer::No, ui::Answer::Yes}) {
    CannedList bench(125);
    frmCanLaborList form(bench.bench);
    form.Show();
    form.DataGrid1.DoSelect(0);
    bench.desktop.WillAnswer({ui::Answer::Yes, answer});
    test::Click(form.cmdDelete);
    StoreElsewhere(bench, {Job("AXLE REAR", 75)});
    test::Press(form, "Esc");
    EXPECT_EQ(bench.desktop.boxes.back().text,
              "Somebody else has changed this list (TQCANLAB.DAT) meanwhile.\r\rDo you want to store yours in its "
              "place?\rNo keeps what is stored, and shows it here.");
    EXPECT_EQ(form.Visible(), answer == ui::Answer::No);
    EXPECT_EQ(bench.Saved(), answer == ui::Answer::No ? (Amounts{{75, 100, 200}}) : (Amounts{{125, 100, 200}}));
    if (answer == ui::Answer::Yes) continue;
    EXPECT_EQ(form.DataGrid1.RowCount(), 1);
    test::Press(form, "Esc");
    EXPECT_FALSE(form.Visible()) << "nothing is left to be stored";
  }
}

// Another one may store while the person thinks.
TEST(frmCanLaborList, WhatIsStoredBehindTheQuestionIsAskedAboutToo) {
  CannedList bench(125);
  frmCanLaborList form(bench.bench);
  form.Show();
  form.DataGrid1.DoSelect(0);
  bench.desktop.WillAnswer(ui::Answer::Yes);
  test::Click(form.cmdDelete);
  StoreElsewhere(bench, {Job("AXLE REAR", 75)});
  int asked = 0;
  bench.desktop.otherwise = [&](const ui::Box&) {
    if (++asked == 1) StoreElsewhere(bench, {Job("TUNE UP", 80)});
    return ui::Answer::Yes;
  };
  test::Press(form, "Esc");
  bench.desktop.otherwise = nullptr;
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(bench.Saved(), (Amounts{{125, 100, 200}}));
}

}  // namespace
}  // namespace lantos
