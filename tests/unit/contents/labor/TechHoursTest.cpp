#include <gmock/gmock.h>

#include "contents/labor/LaborBench.h"
#include "contents/labor/frmTechHours.h"
#include "frame/Dates.h"

// frmTechHours: the hours of each technician on a day, and picking one of them.
namespace lantos {
namespace {

using test::LaborBench;
using testing::ElementsAre;
using ui::Answer;
using Purpose = frmTechHours::Purpose;

struct HoursBench : LaborBench {
  // An estimate with one line of labor.
  void Add(std::int32_t number, const std::string& day, int status, std::int32_t mechanic, Hundredths hours) {
    Do("insert into Estimates (EstimateNumber, SchedDate, Status) values (" + std::to_string(number) + ", '" + day +
       "', " + std::to_string(status) + ")");
    database.lantosData.AddLabor(number, 1, "WORK", hours, 6500, 0, mechanic);
  }
};

struct HoursScreen : HoursBench {
  // Dan (4) has work on the three days around the 30th, Eve (5), who has left, on the 30th.
  HoursScreen() {
    Add(1, "2003-09-29", 0, 4, 100);
    Add(2, "2003-09-30", 1, 4, 250);
    Add(3, "2003-10-01", 0, 4, 400);
    Add(4, "2003-09-30", 0, 5, 50);
    Add(5, "2003-09-30", 3, 0, 75);
  }
  frmTechHours& Open(Purpose purpose = Purpose::Look) {
    form.emplace(shop, database.lantosData, purpose, Today());
    form->LoadForm();
    form->Show();
    return *form;
  }
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const ui::ListRow& row : form->List1.Rows()) lines.push_back(row.text);
    return lines;
  }
  std::optional<frmTechHours> form;
};

TEST(frmTechHours, ShowsWhoIsEmployedInTheOrderOfTheTableUnassignedFirst) {
  HoursScreen screen;
  const frmTechHours& form = screen.Open();
  EXPECT_EQ(form.lblDate.Caption(), "Tue 09/30/2003");
  EXPECT_THAT(screen.Lines(), ElementsAre("000000    0.75 Unassigned", "000004    2.50 Dan Ortiz"));
  EXPECT_EQ(form.List1.ItemData(0), 0);
  EXPECT_EQ(form.List1.ItemData(1), 4);
  EXPECT_EQ(form.List1.ListIndex(), -1);
}

TEST(frmTechHours, TheFilterLeavesOutTheDaysOnBothSides) {
  HoursScreen screen;
  frmTechHours& form = screen.Open();
  test::Click(form.cmdPrev);
  EXPECT_EQ(form.lblDate.Caption(), "Mon 09/29/2003");
  EXPECT_THAT(screen.Lines(), ElementsAre("000000    0.00 Unassigned", "000004    1.00 Dan Ortiz"));
  test::Click(form.cmdNext);
  test::Click(form.cmdNext);
  EXPECT_EQ(form.lblDate.Caption(), "Wed 10/01/2003");
  EXPECT_THAT(screen.Lines(), ElementsAre("000000    0.00 Unassigned", "000004    4.00 Dan Ortiz"));
  form.DTPicker1.DoPick(ToSerial({2003, 10, 2}));
  EXPECT_THAT(screen.Lines(), ElementsAre("000000    0.00 Unassigned", "000004    0.00 Dan Ortiz"));
}

TEST(frmTechHours, OnlyTheScheduledOnesAreThoseWithRecordsWhoeverTheyAre) {
  HoursScreen screen;
  screen.Add(6, "2003-09-30", 0, 77, 125);
  frmTechHours& form = screen.Open();
  test::Click(form.Check1);
  EXPECT_THAT(screen.Lines(), ElementsAre("000000    0.75 Unassigned", "000004    2.50 Dan Ortiz",
                                          "000005    0.50 Eve Gone", "000077    1.25 (not listed)"));
  test::Click(form.cmdNext);
  EXPECT_THAT(screen.Lines(), ElementsAre("000000    0.00 Unassigned", "000004    4.00 Dan Ortiz"));
  test::Press(form, "Alt+O");
  EXPECT_FALSE(form.Check1.Value());
}

TEST(frmTechHours, CancelledRescheduledAndEstimatesOnlyCountForNobody) {
  HoursScreen screen;
  int number = 10;
  for (const int status : {2, 4, 5, 6, 7, 8, 9}) screen.Add(number++, "2003-09-30", status, 4, 1000);
  screen.Open();
  EXPECT_EQ(screen.Lines()[1], "000004   42.50 Dan Ortiz");
}

TEST(frmTechHours, LaborWithoutANumberIsUnassignedToo) {
  HoursScreen screen;
  screen.Add(6, "2003-09-30", 0, 0, 100);
  screen.Add(7, "2003-09-30", 0, 4, 200);
  screen.Do("update Labors set Mechanic = null where EstimateNumber = 7");
  screen.Open();
  EXPECT_EQ(screen.Lines()[0], "000000    3.75 Unassigned");
}

TEST(frmTechHours, HoursAreReadOnceAtTheOpening) {
  HoursScreen screen;
  frmTechHours& form = screen.Open();
  screen.Add(6, "2003-09-30", 0, 4, 100);
  screen.Add(7, "2003-10-01", 0, 4, 100);
  test::Click(form.cmdNext);
  EXPECT_EQ(screen.Lines()[1], "000004    4.00 Dan Ortiz");
  test::Click(form.cmdPrev);
  EXPECT_EQ(screen.Lines()[1], "000004    2.50 Dan Ortiz");
  screen.Open();
  EXPECT_EQ(screen.Lines()[1], "000004    3.50 Dan Ortiz");
}

TEST(frmTechHours, NegativeHoursOfAContinuedJobAreTakenOff) {
  HoursScreen screen;
  screen.Add(6, "2003-10-01", 0, 4, -150);
  test::Click(screen.Open().cmdNext);
  EXPECT_EQ(screen.Lines()[1], "000004    2.50 Dan Ortiz");
}

TEST(frmTechHours, TheDayMovesByKeysToo) {
  HoursScreen screen;
  frmTechHours& form = screen.Open();
  test::Press(form, "Alt+Left");
  EXPECT_EQ(form.DTPicker1.Value(), screen.Today() - 1);
  test::Press(form, "Alt+Right");
  test::Press(form, "Alt+Right");
  EXPECT_EQ(form.lblDate.Caption(), "Wed 10/01/2003");
}

TEST(frmTechHours, SelectWithoutALineIsTold) {
  HoursScreen screen;
  frmTechHours& form = screen.Open(Purpose::Pick);
  EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
  screen.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  test::Click(form.cmdSelect);
  test::Press(form, "F10");
  for (const ui::Box& box : screen.desktop.boxes) {
    EXPECT_EQ(box.text, "Must select an employee in the list.");
    EXPECT_EQ(box.title, "Select Technician");
  }
  form.List1.DoDoubleClick();  // beside the lines
  EXPECT_TRUE(form.Visible());
  EXPECT_FALSE(form.Picked());
}

TEST(frmTechHours, TheSelectedLinesNumberIsTheResult) {
  for (const bool byDoubleClick : {false, true}) {
    HoursScreen screen;
    frmTechHours& form = screen.Open(Purpose::Pick);
    form.List1.DoSelect(1);
    test::Click(form.cmdNext);
    EXPECT_EQ(form.List1.ListIndex(), 1) << "who is selected stays so";
    if (byDoubleClick) {
      form.List1.DoDoubleClick();
    } else {
      test::Press(form, "F10");
    }
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(form.Picked(), 4);
  }
}

TEST(frmTechHours, ToLookItClosesByEscWithoutAResult) {
  HoursScreen screen;
  frmTechHours& form = screen.Open();
  EXPECT_EQ(form.cmdCancel.Caption(), "Close");
  form.List1.DoSelect(1);
  test::Press(form, "Esc");
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(form.Picked());
}

TEST(frmTechHours, KeepsItsSizeAndWhetherOnlyTheScheduledShow) {
  HoursScreen screen;
  {
    frmTechHours& form = screen.Open();
    test::Click(form.Check1);
    form.DoResize(9000, 9000, ui::WindowState::Normal);
    form.Unload();
  }
  EXPECT_EQ(screen.Setting("frmTechHoursShowSched"), "True");
  EXPECT_EQ(screen.Setting("frmTechHoursWidth"), "9000");
  EXPECT_TRUE(screen.Open().Check1.Value());
  EXPECT_EQ(screen.Lines().size(), 3U);
}

TEST(frmTechHours, WithoutTheEmployeesTheUnassignedHoursStillShow) {
  HoursScreen screen;
  const SharedFile other(screen.directory / "TQEMPLOY.DAT", Access::ReadWrite, Deny::All);
  screen.desktop.WillAnswer(Answer::Ok);
  screen.Open();
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "Could not access employee master file!");
  EXPECT_THAT(screen.Lines(), ElementsAre("000000    0.75 Unassigned"));
}

// The labor screen picks with it.
struct PickBench : HoursScreen {
  explicit PickBench(std::int32_t mechanic) {
    WoLaborLine line;
    line.Date = "10/01/2003";
    line.Mechanic = mechanic;
    line.Desc = {"CHECK BRAKES"};
    labor.emplace(bench, line);
    labor->LoadForm();
    labor->Show();
  }
  void WillPick(int row) {
    desktop.WillUse([row](ui::Form& shown) {
      auto& hours = dynamic_cast<frmTechHours&>(shown);
      EXPECT_EQ(hours.lblDate.Caption(), "Wed 10/01/2003");
      EXPECT_EQ(hours.cmdCancel.Caption(), "Cancel");
      if (row >= 0) {
        hours.List1.DoSelect(row);
        test::Press(hours, "F10");
      } else {
        test::Press(hours, "Esc");
      }
    });
  }
  std::optional<frmLabor> labor;
};

TEST(LaborHours, ATechnicianIsPickedByTheHoursOfTheEstimatesDay) {
  PickBench bench(0);
  bench.WillPick(1);
  test::Press(*bench.labor, "F7");
  EXPECT_EQ(Left(bench.labor->EmpList.Text(), 9), "Dan Ortiz");
  test::Press(*bench.labor, "F10");
  EXPECT_EQ(bench.labor->CurrentLabor.Mechanic, 4);
}

TEST(LaborHours, WhoLeavesWithoutAPickKeepsWhoWasChosen) {
  PickBench bench(4);
  bench.WillPick(-1);
  test::Press(*bench.labor, "F7");
  EXPECT_EQ(Left(bench.labor->EmpList.Text(), 9), "Dan Ortiz");
  test::Press(*bench.labor, "Esc");
  EXPECT_FALSE(bench.labor->Visible()) << "nothing was changed";
}

TEST(LaborHours, UnassignedIsNoneWhichTheListThenHas) {
  PickBench bench(4);
  EXPECT_FALSE(bench.labor->Check2.Value());
  bench.WillPick(0);
  test::Press(*bench.labor, "F7");
  EXPECT_EQ(bench.labor->EmpList.Text(), " None");
  EXPECT_TRUE(bench.labor->Check2.Value());
  test::Press(*bench.labor, "F10");
  EXPECT_EQ(bench.labor->CurrentLabor.Mechanic, 0);
}

}  // namespace
}  // namespace lantos
