#include "admin/SystemScreensBench.h"
#include "admin/frmSystemParameters.h"

namespace lantos {
namespace {

using test::Image;
using test::SystemShop;
using ui::Answer;

struct Screen : SystemShop {
  explicit Screen(const Image& record = SystemShop::Record()) {
    Put(record);
    form.LoadForm();
    form.Show();
  }
  std::string Profile() const { return directory.Content("Lantos.ini"); }
  std::int32_t Long(std::size_t offset) const { return test::LongAt(Stored(), offset); }
  frmSystemParameters form{shop};
};

TEST(frmSystemParameters, ShowsMoneyWithTwoDecimalsAndPercentsWithFour) {
  Screen screen;
  const frmSystemParameters& form = screen.form;
  EXPECT_EQ(form.Caption(), "System Parameters");
  EXPECT_EQ(form.shop_rate.Text(), "65.00");
  EXPECT_EQ(form.tax_rate[0].Text(), "8.2500");
  EXPECT_EQ(form.tax_rate[1].Text(), "6.0000");
  EXPECT_EQ(form.tax_rate[2].Text(), "5.0000");
  EXPECT_EQ(form.tax_rate[3].Text(), "4.0000");
  EXPECT_EQ(form.markups[0].Text(), "25.0000");
  EXPECT_EQ(form.markups[1].Text(), "40.0000");
  EXPECT_EQ(form.markups[2].Text(), "60.0000");
  EXPECT_EQ(form.fleet_late_charge_percent.Text(), "1.5000");
  EXPECT_EQ(form.surcharge_description.Text(), "SHOP SUPPLIES");
  EXPECT_TRUE(form.surcharge_is_sublet.Value());
  EXPECT_EQ(form.hand_msg1.Text() + "|" + form.hand_msg2.Text(), "HAVE A NICE DAY|AND COME AGAIN");
  EXPECT_EQ(form.fleet_terms.Text() + "|" + form.shell_command_line.Text(), "NET 30|EDIT.EXE");
  EXPECT_EQ(form.txtBackupCmd.Text(), "");
  EXPECT_TRUE(form.cbBackupCmdWait.Value());
}

TEST(frmSystemParameters, ASurchargeBelowNoughtIsDollarsAndOneAboveAPercent) {
  Screen screen;
  const frmSystemParameters& form = screen.form;
  EXPECT_TRUE(form.optLaborSurcharge[0].Value());
  EXPECT_EQ(form.labor_surcharge_percent.Text(), "2.5000");
  EXPECT_TRUE(form.optPartsSurcharge[1].Value());
  EXPECT_EQ(form.parts_surcharge_percent.Text(), "10.00");
}

TEST(frmSystemParameters, TenDollarsAreStoredBelowNoughtAndComeBackAsTenDollars) {
  Screen screen(SystemShop::Record().Long(699, 0));
  EXPECT_TRUE(screen.form.optLaborSurcharge[0].Value());
  EXPECT_EQ(screen.form.labor_surcharge_percent.Text(), "0.0000");
  test::Type(screen.form.labor_surcharge_percent, "10.00");
  test::Click(screen.form.optLaborSurcharge[1]);
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), SystemShop::Record().Long(699, -100000).Bytes());
  frmSystemParameters again(screen.shop);
  again.LoadForm();
  EXPECT_TRUE(again.optLaborSurcharge[1].Value());
  EXPECT_EQ(again.labor_surcharge_percent.Text(), "10.00");
}

TEST(frmSystemParameters, ThePercentOptionAloneTurnsTheSign) {
  Screen screen;
  test::Click(screen.form.optPartsSurcharge[0]);
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), SystemShop::Record().Long(703, 100000).Bytes());
}

TEST(frmSystemParameters, APercentOfTwoAndAHalfIs25000) {
  Screen screen;
  test::Click(screen.form.optPartsSurcharge[0]);
  test::Type(screen.form.parts_surcharge_percent, "2.5");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Long(703), 25000);
  frmSystemParameters again(screen.shop);
  again.LoadForm();
  EXPECT_TRUE(again.optPartsSurcharge[0].Value());
  EXPECT_EQ(again.parts_surcharge_percent.Text(), "2.5000");
}

TEST(frmSystemParameters, DollarsOfMoreThanTwoDecimalsStayUnlessTheyAreTyped) {
  Screen screen(SystemShop::Record().Long(703, -100050));
  EXPECT_EQ(screen.form.parts_surcharge_percent.Text(), "10.01");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Long(703), -100050);
}

TEST(frmSystemParameters, EachNumberGoesToItsOwnField) {
  Screen screen;
  frmSystemParameters& form = screen.form;
  Image expected = SystemShop::Record();
  test::Type(form.shop_rate, "70.25");
  expected.Long(40, 7025);
  std::int32_t value = 1;
  for (std::size_t i = 0; i < 4; ++i, ++value) {
    test::Type(form.tax_rate[i], std::to_string(value) + ".125");
    expected.Long(24 + 4 * i, value * 10000 + 1250);
  }
  for (std::size_t i = 0; i < 3; ++i, ++value) {
    test::Type(form.markups[i], std::to_string(value));
    expected.Long(241 + 4 * i, value * 10000);
  }
  test::Type(form.fleet_late_charge_percent, "0.0001");
  expected.Long(985, 1);
  test::Press(form, "F10");
  EXPECT_EQ(screen.Stored(), expected.Bytes());
  EXPECT_EQ(screen.desktop.statuses, (std::vector<std::string>{"Updating System Parameters", ""}));
  EXPECT_EQ(screen.records.system.SysRec.Get(sysrec::shop_rate), 7025);
}

TEST(frmSystemParameters, EachTextTakesItsWidthAndGoesToItsOwnField) {
  Screen screen;
  struct Place {
    ui::TextBox frmSystemParameters::*box;
    std::size_t offset, width;
  };
  std::string expected = screen.Stored();
  char letter = 'a';
  for (const Place& place : {Place{&frmSystemParameters::surcharge_description, 707, 64},
                             {&frmSystemParameters::hand_msg1, 253, 78},
                             {&frmSystemParameters::hand_msg2, 332, 78},
                             {&frmSystemParameters::fleet_terms, 786, 78},
                             {&frmSystemParameters::shell_command_line, 905, 78}}) {
    const std::string typed(100, letter++);
    test::Type(screen.form.*place.box, typed);
    expected.replace(place.offset, place.width, typed.substr(0, place.width));
  }
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), expected);
}

TEST(frmSystemParameters, TheSubletIsALetter) {
  Screen screen;
  test::Click(screen.form.surcharge_is_sublet);
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored().at(1033), 'N');
  Screen other(SystemShop::Record().Text(1033, std::string(1, '\0')));
  EXPECT_FALSE(other.form.surcharge_is_sublet.Value());
  test::Press(other.form, "F10");
  EXPECT_EQ(other.Stored().at(1033), 'N') << "anything but Y is no";
}

TEST(frmSystemParameters, ASaveWithoutAChangeLeavesEveryByte) {
  Screen screen;
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), SystemShop::Record().Bytes());
  EXPECT_TRUE(screen.form.Saved());
}

TEST(frmSystemParameters, TheCounterAndWhatAnotherWorkstationChangedStay) {
  Screen screen;
  test::Type(screen.form.tax_rate[0], "8.5");
  const Image meanwhile = SystemShop::Record().Long(0, 502).Long(28, 65000).Text(1033, "N").Text(44, "Smith");
  screen.Put(meanwhile);
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), Image(meanwhile).Long(24, 85000).Bytes());
}

TEST(frmSystemParameters, NothingButDigitsAndAPointIsTaken) {
  Screen screen;
  test::Type(screen.form.shop_rate, "-7a0.2$5");
  EXPECT_EQ(screen.form.shop_rate.Text(), "70.25");
  test::Type(screen.form.tax_rate[0], "1234567890123");
  EXPECT_EQ(screen.form.tax_rate[0].Text().size(), 12U);
}

TEST(frmSystemParameters, WhatIsNoNumberOrDoesntFitIsToldAndNothingIsStored) {
  for (const auto& [typed, told] : {std::pair{"1.2.3", "Parts Tax Rate (%): \"1.2.3\" is not a number."},
                                    {"214748.3648",
                                     "Parts Tax Rate (%): \"214748.3648\" can't be stored. It must be from 0.0000 to "
                                     "214748.3647."}}) {
    Screen screen;
    test::Type(screen.form.shop_rate, "70");
    test::Type(screen.form.tax_rate[0], typed);
    screen.desktop.WillAnswer(Answer::Ok);
    test::Press(screen.form, "F10");
    EXPECT_EQ(screen.desktop.boxes.at(0).text, told);
    EXPECT_EQ(screen.form.Focus(), &screen.form.tax_rate[0]);
    EXPECT_TRUE(screen.form.Visible());
    EXPECT_EQ(screen.Stored(), SystemShop::Record().Bytes());
  }
}

TEST(frmSystemParameters, MoreDecimalsThanAreStoredAreRefused) {
  Screen screen;
  test::Type(screen.form.shop_rate, "70.255");
  screen.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.desktop.boxes.at(0).text,
            "Default Shop Rate ($/hr): \"70.255\" can't be stored. It must have at most 2 decimals.");
  EXPECT_EQ(screen.form.Focus(), &screen.form.shop_rate);
  for (const char character : std::string("70.25")) screen.form.shop_rate.TypeCharacter(character);  // in its place
  test::Type(screen.form.tax_rate[0], "8.12345");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.desktop.boxes.at(1).text,
            "Parts Tax Rate (%): \"8.12345\" can't be stored. It must have at most 4 decimals.");
  EXPECT_EQ(screen.Stored(), SystemShop::Record().Bytes());
  test::Type(screen.form.tax_rate[0], "8.1234");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Long(24), 81234);
}

TEST(frmSystemParameters, ANegativeNumberThatWasPastedIsRefused) {
  Screen screen;
  screen.form.labor_surcharge_percent.DoEdit("-5");
  screen.desktop.WillAnswer(Answer::Ok);
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), SystemShop::Record().Bytes());
}

TEST(frmSystemParameters, AnEmptyBoxIsNought) {
  Screen screen;
  test::Type(screen.form.shop_rate, "");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Long(40), 0);
}

TEST(frmSystemParameters, TheBackupCommandIsThisWorkstationsAndWrittenOnlyWhenChanged) {
  Screen screen;
  screen.environment.profileSection = "BENCH1";
  screen.directory.Put("Lantos.ini", "[Lantos Defaults]\r\nBackupCmd=SHARED.BAT\r\nBackupCmdWait=False\r\n");
  frmSystemParameters form(screen.shop);
  form.LoadForm();
  form.Show();
  EXPECT_EQ(form.txtBackupCmd.Text(), "SHARED.BAT");
  EXPECT_FALSE(form.cbBackupCmdWait.Value());
  const std::string before = screen.Profile();
  test::Press(form, "F10");
  EXPECT_EQ(screen.Profile(), before);
  form.Show();
  test::Type(form.txtBackupCmd, "\"C:\\My Files\\B.EXE\" \"D:\\\"");
  test::Click(form.cbBackupCmdWait);
  test::Press(form, "F10");
  frmSystemParameters again(screen.shop);
  again.LoadForm();
  EXPECT_EQ(again.txtBackupCmd.Text(), "\"C:\\My Files\\B.EXE\" \"D:\\\"") << "quotes and all";
  EXPECT_TRUE(again.cbBackupCmdWait.Value());
  EXPECT_TRUE(screen.Profile().starts_with(before));
  EXPECT_TRUE(screen.desktop.documents.empty()) << "nothing is ever run";
}

TEST(frmSystemParameters, ChangesAreAskedAboutBeforeTheyAreLost) {
  for (const auto& change : {+[](frmSystemParameters& form) { test::Click(form.optLaborSurcharge[1]); },
                             +[](frmSystemParameters& form) { test::Click(form.cbBackupCmdWait); },
                             +[](frmSystemParameters& form) { test::Type(form.hand_msg2, "BYE"); }}) {
    Screen screen;
    EXPECT_EQ(screen.form.CancelButton.Caption(), "Close");
    change(screen.form);
    EXPECT_EQ(screen.form.CancelButton.Caption(), "Cancel");
    screen.desktop.WillAnswer(Answer::Yes);
    test::Press(screen.form, "Esc");
    EXPECT_EQ(screen.desktop.boxes.at(0).text, "Discard changes?");
    EXPECT_FALSE(screen.form.Saved());
    EXPECT_EQ(screen.Stored(), SystemShop::Record().Bytes());
  }
}

}  // namespace
}  // namespace lantos
