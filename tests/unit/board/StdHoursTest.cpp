#include <gmock/gmock.h>

#include "board/DayCapacity.h"
#include "board/DayCapacityDatabase.h"
#include "board/frmStdHours.h"

namespace lantos {
namespace {

struct Screen : test::BoardShop {
  Screen() { form.Show(); }
  std::string Texts() const {
    std::string all;
    for (std::size_t i = 0; i < 8; ++i) all += (i == 0 ? "" : " ") + form.txtHours[i].Text();
    return all;
  }
  std::string Stored() {
    std::string all;
    const Recordset& row = database.lantosData.GetStdHours();
    for (const char* column :
         {"SunHours", "MonHours", "TueHours", "WedHours", "ThuHours", "FriHours", "SatHours", "FudgeFactor"}) {
      all += (all.empty() ? "" : " ") + std::to_string(row.Long(column));
    }
    return all;
  }
  frmStdHours form{shop, database.lantosData};
};

TEST(StdHoursForm, ShowsSundayToSaturdayAndTheFudgeFactor) {
  Screen screen;
  EXPECT_EQ(screen.Texts(), "0 40 40 40 40 40 0 10");
  EXPECT_EQ(screen.form.Focus(), &screen.form.txtHours[0]);
  EXPECT_EQ(screen.form.cmdOK.ToolTip(), "Select highlighted part <F10>");
  EXPECT_EQ(screen.form.cmdCancel.ToolTip(), "Close <Esc>");
}

TEST(StdHoursForm, OkStoresEachBoxInItsOwnColumn) {
  Screen screen;
  for (std::size_t i = 0; i < 8; ++i) test::Type(screen.form.txtHours[i], std::to_string(11 + i));
  test::Click(screen.form.cmdOK);
  EXPECT_FALSE(screen.form.Visible());
  EXPECT_EQ(screen.Stored(), "11 12 13 14 15 16 17 18");
}

TEST(StdHoursForm, HoursAreRoundedHalfToEven) {
  Screen screen;
  test::Type(screen.form.txtHours[1], "7.5");
  test::Type(screen.form.txtHours[2], "8.5");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), "0 8 8 40 40 40 0 10");
}

TEST(StdHoursForm, ABoxThatIsntNumericGivesZeroWithoutAMessage) {
  Screen screen;
  test::Type(screen.form.txtHours[1], "eight");
  test::Type(screen.form.txtHours[2], "");
  test::Type(screen.form.txtHours[7], "10%");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), "0 0 0 40 40 40 0 0");
  EXPECT_TRUE(screen.desktop.boxes.empty());
}

TEST(StdHoursForm, AStoredFractionShowsAsAWholeNumber) {
  test::BoardShop world;
  world.Do("update StandardHours set MonHours = 7.6");
  frmStdHours form(world.shop, world.database.lantosData);
  form.Show();
  EXPECT_EQ(form.txtHours[1].Text(), "8");
}

TEST(StdHoursForm, EscStoresNothing) {
  Screen screen;
  test::Type(screen.form.txtHours[1], "99");
  screen.desktop.WillAnswer(ui::Answer::Yes);
  test::Press(screen.form, "Esc");
  EXPECT_FALSE(screen.form.Visible());
  EXPECT_EQ(screen.Stored(), "0 40 40 40 40 40 0 10");
}

TEST(StdHoursForm, WhatIsNoNumberIsRedForAsLongAsItStandsThere) {
  Screen screen;
  test::Type(screen.form.txtHours[1], "eight");
  EXPECT_TRUE(screen.form.txtHours[1].BackColor());
  test::Type(screen.form.txtHours[1], "8");
  EXPECT_FALSE(screen.form.txtHours[1].BackColor());
}

TEST(StdHoursForm, HoursThatDontFitAreAnOverflowAndNothingIsWritten) {
  for (const std::size_t place : {std::size_t{6}, frmStdHours::kFudgeFactor}) {
    Screen screen;
    test::Type(screen.form.txtHours[0], "5");
    test::Type(screen.form.txtHours[place], "99999999999");
    screen.desktop.failuresExpected = true;
    screen.form.cmdOK.DoClick();
    ASSERT_EQ(screen.desktop.failures.size(), 1U);
    EXPECT_THAT(screen.desktop.failures[0], testing::HasSubstr("Overflow"));
    EXPECT_TRUE(screen.form.Visible());
    EXPECT_EQ(screen.Stored(), "0 40 40 40 40 40 0 10");
  }
}

TEST(StdHoursForm, OfTwoOperatorsTheLastOneWins) {
  Screen first;
  frmStdHours second(first.shop, first.database.lantosData);
  second.Show();
  test::Type(second.txtHours[1], "20");
  test::Press(second, "F10");
  test::Press(first.form, "F10");
  EXPECT_EQ(first.Stored(), "0 40 40 40 40 40 0 10");
}

TEST(StdHoursForm, LeavesNoRecordsetOpen) {
  Screen screen;
  EXPECT_FALSE(screen.database.lantosData.Rs("GetStdHours").IsOpen());
}

}  // namespace
}  // namespace lantos
