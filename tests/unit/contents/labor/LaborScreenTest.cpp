#include <gmock/gmock.h>

#include <cerrno>
#include <tuple>
#include <utility>

#include "contents/labor/LaborBench.h"
#include "frame/Dates.h"
#include "records/OpenedFile.h"
#include "records/modEmployees.h"

// frmLabor: one line of labor on its screen.
namespace lantos {
namespace {

using test::LaborBench;
using testing::ElementsAre;
using ui::Answer;

struct LaborScreen : LaborBench {
  static WoLaborLine Line() {
    WoLaborLine line;
    line.Mechanic = 4;
    line.Hours = 150;
    line.Rate = 6500;
    line.Total = 9000;  // typed, and not the product
    line.Desc = {"CHECK BRAKES", "", "ROAD TEST"};
    return line;
  }
  explicit LaborScreen(const WoLaborLine& line = Line()) : form(bench, line) {
    form.LoadForm();
    form.Show();
  }
  std::vector<std::string> Technicians() const {
    std::vector<std::string> names;
    for (const ui::ListRow& row : form.EmpList.Rows()) names.push_back(Trim(Left(row.text, 31)));
    return names;
  }
  frmLabor form;
};

TEST(frmLabor, ShowsTheLineAsItCame) {
  LaborScreen screen;
  EXPECT_TRUE(screen.form.HasEmployees());
  EXPECT_EQ(Left(screen.form.EmpList.Text(), 9), "Dan Ortiz");
  EXPECT_EQ(screen.form.Hours.Text() + " " + screen.form.ShopRate.Text(), "1.50 65.00");
  EXPECT_EQ(screen.form.TotalLabor.Text(), "90.00");
  EXPECT_EQ(screen.form.txtDesc.Text(), "CHECK BRAKES\r\nROAD TEST");
  EXPECT_FALSE(screen.form.Check2.Value());
  EXPECT_FALSE(screen.form.cmdTechHours.Visible());
}

TEST(frmLabor, TheButtonOfTheTechniciansHoursIsThereUnderOneNameOfTheProgramOnly) {
  const auto startedAs = [](const char* name) {
    char* const own = std::exchange(program_invocation_short_name, const_cast<char*>(name));
    const LaborScreen screen;
    program_invocation_short_name = own;
    return screen.form.cmdTechHours.Visible();
  };
  EXPECT_TRUE(startedAs("Sched"));
  EXPECT_TRUE(startedAs("SCHED.EXE"));
  EXPECT_FALSE(startedAs("lantos"));
  EXPECT_FALSE(startedAs("Sched2"));
}

TEST(frmLabor, SavesCapitalsHundredthsAndTheTechniciansCommission) {
  LaborScreen screen;
  test::Type(screen.form.Hours, "2.25");
  EXPECT_EQ(screen.form.TotalLabor.Text(), "146.25") << "hours and rate work it out anew";
  test::Type(screen.form.TotalLabor, "140");
  test::Type(screen.form.txtDesc, "new pads");
  test::Press(screen.form, "F10");
  ASSERT_TRUE(screen.form.Saved());
  const WoLaborLine& line = screen.form.CurrentLabor;
  EXPECT_EQ(line.Mechanic, 4);
  EXPECT_EQ(line.Hours, 225);
  EXPECT_EQ(line.Rate, 6500);
  EXPECT_EQ(line.Total, 14000);
  EXPECT_EQ(line.Commission, 30000);
  EXPECT_EQ(line.Desc[0], "NEW PADS");
  EXPECT_EQ(line.Desc[1], "");
  EXPECT_EQ(line.Date, "");
}

TEST(frmLabor, TheDateIsTodayWhereTheShopWantsIt) {
  LaborScreen screen;
  screen.environment.shopOptions.LaborDateOption = true;
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.form.CurrentLabor.Date, "09/30/2003");
}

TEST(frmLabor, ADescriptionIsRequired) {
  LaborScreen screen;
  test::Type(screen.form.txtDesc, "  ");
  screen.desktop.WillAnswer(Answer::Ok);
  screen.form.OKButton.DoClick();
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "The labor description is required.");
  EXPECT_EQ(screen.form.Focus(), &screen.form.txtDesc);
  EXPECT_TRUE(screen.form.Visible());
  EXPECT_FALSE(screen.form.Saved());
}

TEST(frmLabor, WhatTheEighthLineHasNoRoomForIsTold) {
  LaborScreen screen;
  test::Type(screen.form.txtDesc, "1\n2\n3\n4\n5\n6\n7\n" + std::string(62, 'x') + " over");
  screen.desktop.WillAnswer(Answer::Ok);
  screen.form.OKButton.DoClick();
  EXPECT_EQ(screen.desktop.boxes.at(0).text,
            "Labor description exceeded maximum allowed.\rThe following text was truncated:\rover");
  EXPECT_EQ(screen.desktop.boxes[0].title, "Labor description trunctated.");
  EXPECT_EQ(screen.form.CurrentLabor.Desc[7], std::string(62, 'X'));
}

TEST(frmLabor, ALineWithoutATechnicianAllowsNoneWhateverWasKept) {
  WoLaborLine line = LaborScreen::Line();
  line.Mechanic = 0;
  LaborScreen screen(line);
  EXPECT_TRUE(screen.form.Check2.Value());
  EXPECT_THAT(screen.Technicians(), ElementsAre("None", "Dan Ortiz", "Eve Gone"));
  EXPECT_EQ(screen.form.EmpList.ListIndex(), 0);
  screen.form.Hide();
  screen.form.Unload();
  EXPECT_EQ(screen.Setting("frmLaborEmpNone"), "True");
}

TEST(frmLabor, TheBoxOfActiveTechniciansAsksBeforeItDropsWhatWasTyped) {
  LaborScreen screen;
  test::Type(screen.form.Hours, "9");
  screen.desktop.WillAnswer({Answer::No, Answer::Yes});
  test::Click(screen.form.Check1);
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "Discard changes?");
  EXPECT_EQ(screen.desktop.boxes[0].buttons, ui::Buttons::YesNo);
  EXPECT_FALSE(screen.form.Check1.Value());
  EXPECT_EQ(screen.form.Hours.Text(), "9.00");
  test::Click(screen.form.Check1);
  EXPECT_THAT(screen.Technicians(), ElementsAre("Dan Ortiz"));
  EXPECT_EQ(screen.form.Hours.Text(), "1.50");
}

TEST(frmLabor, NoneComesAndGoesAboveTheTechnicianWhoStaysSelected) {
  LaborScreen screen;
  test::Click(screen.form.Check2);
  EXPECT_THAT(screen.Technicians(), ElementsAre("None", "Dan Ortiz", "Eve Gone"));
  EXPECT_EQ(screen.form.EmpList.ListIndex(), 1);
  test::Click(screen.form.Check2);
  EXPECT_EQ(screen.form.EmpList.ListIndex(), 0);
}

TEST(frmLabor, FollowupFieldsFillOneAnotherAndAreKeptInTheLine) {
  LaborScreen screen;
  screen.environment.shopOptions.LaborDateOption = true;
  screen.form.CurrentLabor.Date = "09/30/2003";
  test::Type(screen.form.Days, "30");
  screen.form.MoveFocus(&screen.form.txtDesc);
  EXPECT_EQ(screen.form.FollowupDate.Text(), "10/30/2003");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.form.CurrentLabor.FollowupDays, 30);
  EXPECT_EQ(screen.form.CurrentLabor.FollowupMiles, 0);
  EXPECT_EQ(screen.form.CurrentLabor.FollowupDate, ToFileDate(ToSerial({2003, 10, 30})));
}

TEST(frmLabor, DaysCountFromTheWorkOrderOrWhereThereIsNoneFromTheLinesOwnDay) {
  LaborScreen screen;
  screen.form.CurrentLabor.Date = "09/30/2003";
  test::Type(screen.form.Days, "-7");
  screen.form.MoveFocus(&screen.form.txtDesc);
  EXPECT_EQ(screen.form.FollowupDate.Text(), "09/23/2003");
  screen.workorder.Totals.Put(wototals::DateOpen, ToFileDate(ToSerial({2003, 10, 2})));
  test::Type(screen.form.Days, "0");
  screen.form.MoveFocus(&screen.form.txtDesc);
  EXPECT_EQ(screen.form.FollowupDate.Text(), "10/02/2003");
  test::Press(screen.form, "F10");
  EXPECT_TRUE(screen.form.Saved());
}

TEST(frmLabor, AFollowupThatCantBeMeantIsRefusedOnceItWasTouched) {
  LaborScreen screen;
  test::Type(screen.form.FollowupDate, "never");
  screen.desktop.WillAnswer(Answer::Ok);
  screen.form.OKButton.DoClick();
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "Followup information is invalid.");
  EXPECT_FALSE(screen.form.Saved());
}

TEST(frmLabor, HoursThatNoFieldHoldsEndTheSaveAndLeaveTheLineAsItCame) {
  LaborScreen screen;
  screen.desktop.failuresExpected = true;
  test::Type(screen.form.Hours, "99999999");
  screen.form.OKButton.DoClick();
  EXPECT_EQ(screen.desktop.failures.size(), 1U);
  EXPECT_FALSE(screen.form.Saved());
}

TEST(frmLabor, NoAloneStaysInTheQuestionAboutItsChanges) {
  for (const Answer answer : {Answer::Yes, Answer::Cancel}) {
    LaborScreen screen;
    EXPECT_EQ(screen.form.CancelButton.Caption(), "Close");
    test::Type(screen.form.Hours, "9");
    EXPECT_EQ(screen.form.CancelButton.Caption(), "Cancel");
    screen.desktop.WillAnswer({Answer::No, answer});
    screen.form.DoClose();
    EXPECT_TRUE(screen.form.Visible());
    screen.form.DoClose();
    EXPECT_FALSE(screen.form.Visible());
    EXPECT_FALSE(screen.form.Saved());
  }
}

TEST(frmLabor, ATotalThatIsNoNumberIsToldOnceAndCountsByWhatItBeginsWith) {
  const std::tuple<std::string, std::string, Cents> totals[] = {
      {"12ABC", "12.00", 1200}, {"1,250.00", "1.00", 100}, {"ABC", "0.00", 0}};
  for (const auto& [typed, taken, cents] : totals) {
    LaborScreen screen;
    test::Type(screen.form.TotalLabor, typed);
    EXPECT_TRUE(screen.form.TotalLabor.BackColor());
    screen.desktop.WillAnswer(Answer::Ok);
    test::Press(screen.form, "F10");
    EXPECT_EQ(screen.desktop.boxes.at(0).text,
              "Total: \"" + typed + "\" is not a number. " + taken + " stands in its place.");
    EXPECT_FALSE(screen.form.Saved());
    EXPECT_EQ(screen.form.Focus(), &screen.form.TotalLabor);
    test::Press(screen.form, "F10");
    EXPECT_TRUE(screen.form.Saved());
    EXPECT_EQ(screen.form.CurrentLabor.Total, cents);
  }
}

TEST(frmLabor, HoursThatAreNoNumberAreShownAsNoughtAndToldBeforeTheyCount) {
  LaborScreen screen;
  test::Type(screen.form.Hours, "abc");
  EXPECT_TRUE(screen.form.Hours.BackColor());
  screen.desktop.WillAnswer(Answer::Ok);
  test::Click(screen.form.OKButton);
  EXPECT_EQ(screen.form.Hours.Text(), "0.00");
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "Hours: \"ABC\" is not a number. 0.00 stands in its place.");
  EXPECT_FALSE(screen.form.Saved());
  test::Click(screen.form.OKButton);
  EXPECT_TRUE(screen.form.Saved());
  EXPECT_EQ(screen.form.CurrentLabor.Hours, 0);
}

TEST(frmLabor, ATechnicianWhoLeftStaysWithTheLineUntilAnotherIsChosen) {
  WoLaborLine line = LaborScreen::Line();
  line.Mechanic = 5;  // who has left
  LaborScreen screen(line);
  test::Click(screen.form.Check1);
  EXPECT_THAT(screen.Technicians(), ElementsAre("Dan Ortiz", "Eve Gone"));
  EXPECT_EQ(Left(screen.form.EmpList.Text(), 8), "Eve Gone");
  EXPECT_EQ(screen.form.CancelButton.Caption(), "Close") << "nothing was chosen";
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.form.CurrentLabor.Mechanic, 5);
}

TEST(frmLabor, ATechnicianWhomNoFileKnowsStaysWithTheLine) {
  WoLaborLine line = LaborScreen::Line();
  line.Mechanic = 77;
  LaborScreen screen(line);
  EXPECT_EQ(screen.form.EmpList.Text(), LeftJustify("(not listed)", 31) + "000077");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.form.CurrentLabor.Mechanic, 77);
}

TEST(frmLabor, ATechnicianStaysWithTheLineWhenTheListCantBeReadAgain) {
  LaborScreen screen;
  screen.records.employees.LoadEmployees();
  std::optional<OpenedFile> held(std::in_place, screen.environment.openFiles, kEmployeeFile, Access::ReadWrite,
                                 Deny::All);
  screen.desktop.WillAnswer(Answer::Ok);
  test::Click(screen.form.Check1);
  held.reset();
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "Could not access employee master file!");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.form.CurrentLabor.Mechanic, 4);
}

}  // namespace
}  // namespace lantos
