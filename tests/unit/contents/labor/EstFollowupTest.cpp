#include "contents/labor/frmEstFollowup.h"

#include <gmock/gmock.h>

#include "contents/labor/LaborBench.h"

// Recommendations of earlier work orders as lines of labor.
namespace lantos {
namespace {

using test::LaborBench;
using testing::ElementsAre;

struct FollowupScreen : LaborBench {
  FollowupScreen() {
    database.estimates.CurrentEstimate.VehVIN = "1FTEX15N9";
    std::string file;
    for (const char* text : {"FIRST", "SECOND"}) {
      FollowupRecord record;
      record.Put(followup::Active, 1);
      record.Put(followup::CustomerNumber, 7);
      record.Put(followup::VIN, "1FTEX15N9");
      record.Put(followup::Description, text);
      record.Put(followup::Hours, 100);
      file.append(reinterpret_cast<const char*>(record.Bytes().data()), FollowupRecord::kLength);
    }
    directory.Put(std::string(kFollowupFile), file);
  }
  std::size_t Open() { return records.followups.OpenFollowups(7, "1FTEX15N9", "").size(); }
};

TEST(frmEstFollowup, WhatWasTakenUpIsntTakenUpAgainWhenTheNextWasRefused) {
  FollowupScreen bench;
  bench.desktop.failuresExpected = true;
  frmEstFollowup form(bench.bench, bench.contents.labor);
  form.Show();
  for (int row = 0; row < 2; ++row) form.List1.DoCheck(row, true);
  bench.Do(
      "create trigger Refuse before insert on Labors when new.Description like 'SECOND%' "
      "begin select raise(abort, 'no'); end");
  test::Press(form, "F10");
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_TRUE(form.Visible());
  EXPECT_FALSE(form.List1.Checked(0));
  EXPECT_TRUE(form.List1.Checked(1));
  EXPECT_EQ(bench.Open(), 1U);
  bench.Do("drop trigger Refuse");
  test::Press(form, "F10");
  EXPECT_FALSE(form.Visible());
  EXPECT_THAT(bench.Stored(), ElementsAre(testing::StartsWith("1|FIRST"), testing::StartsWith("2|SECOND")));
  EXPECT_EQ(bench.Open(), 0U);
}

}  // namespace
}  // namespace lantos
