#include <gmock/gmock.h>

#include "board/DayCapacityDatabase.h"
#include "board/frmSpecialDays.h"
#include "records/inventory/Inventory.h"

namespace lantos {
namespace {

constexpr char kThanksgiving[] = "11/27/2003     0 Thanksgiving";

struct World : test::BoardShop {
  World() {
    de& data = database.lantosData;
    data.SaveSpecialDay(Day(12, 24), 20, "Christmas Eve");
    data.SaveSpecialDay(Day(11, 27), 0, "Thanksgiving");
    data.SaveSpecialDay(Day(7, 4), 0, "Independence Day");
  }
  static DaySerial Day(int month, int day) { return ToSerial({2003, month, day}); }
};

struct Screen : World {
  Screen() { form.Show(); }
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const ui::ListRow& row : form.List1.Rows()) lines.push_back(row.text);
    return lines;
  }
  // Goes to the date, picks, and leaves it.
  void PickAndLeave(DaySerial day) {
    Pick(day);
    form.MoveFocus(&form.txtHours);
  }
  void Pick(DaySerial day) {
    form.MoveFocus(&form.DTPicker1);
    form.DTPicker1.DoPick(day);
  }
  void Enter(DaySerial day, std::string_view hours, std::string_view description) {
    PickAndLeave(day);
    test::Type(form.txtHours, hours);
    test::Type(form.txtComments, description);
  }
  std::string Editors() const {
    return FormatDate(form.DTPicker1.Value()) + "|" + form.txtHours.Text() + "|" + form.txtComments.Text();
  }
  std::string Count() { return Ask("select count(*) from SpecialDays"); }
  frmSpecialDays form{shop, database.lantosData};
};

TEST(SpecialDaysForm, ListsFromTodayOnInTheOrderOfDates) {
  Screen screen;
  EXPECT_EQ(screen.Lines(), (std::vector<std::string>{kThanksgiving, "12/24/2003    20 Christmas Eve"}));
  EXPECT_EQ(screen.form.List1.ItemData(0), World::Day(11, 27));
}

TEST(SpecialDaysForm, ALineHasItsDateAndHoursAtFixedPlaces) {
  Screen screen;
  const std::string line = screen.form.List1.List(1);
  EXPECT_EQ(Left(line, 10), "12/24/2003");
  EXPECT_EQ(Mid(line, 12, 5), "   20");
  EXPECT_EQ(Trim(Mid(line, 17)), "Christmas Eve");
}

TEST(SpecialDaysForm, ADayOfTodayIsListed) {
  World world;
  world.database.lantosData.SaveSpecialDay(world.Today(), 4, "Inventory");
  world.database.lantosData.SaveSpecialDay(world.Today() - 1, 4, "Yesterday");
  frmSpecialDays form(world.shop, world.database.lantosData);
  form.Show();
  ASSERT_EQ(form.List1.ListCount(), 3);
  EXPECT_EQ(form.List1.List(0), "09/30/2003     4 Inventory");
}

TEST(SpecialDaysForm, ShowHistoryListsEverythingAndOffAgainTheRest) {
  Screen screen;
  test::Click(screen.form.Check1);
  EXPECT_EQ(screen.Lines().size(), 3U);
  EXPECT_EQ(screen.Lines()[0], "07/04/2003     0 Independence Day");
  test::Click(screen.form.Check1);
  EXPECT_EQ(screen.Lines().size(), 2U);
}

TEST(SpecialDaysForm, AClickPutsTheThreeFieldsBackIntoTheEditors) {
  Screen screen;
  screen.form.List1.DoSelect(1);
  EXPECT_EQ(screen.Editors(), "12/24/2003|20|Christmas Eve");
  screen.form.List1.DoSelect(0);
  EXPECT_EQ(screen.Editors(), "11/27/2003|0|Thanksgiving");
}

TEST(SpecialDaysForm, HoursTooLongForTheirColumnsComeBackWhole) {
  World world;
  world.database.lantosData.SaveSpecialDay(World::Day(10, 1), 1234567, "Far too many");
  frmSpecialDays form(world.shop, world.database.lantosData);
  form.Show();
  form.List1.DoSelect(0);
  EXPECT_EQ(form.txtHours.Text(), "1234567");
  EXPECT_EQ(form.txtComments.Text(), "Far too many");
}

TEST(SpecialDaysForm, HoursThatArentNumericKeepTheFocus) {
  Screen screen;
  test::Type(screen.form.txtHours, "eight");
  screen.desktop.WillAnswer(ui::Answer::Ok);
  EXPECT_FALSE(screen.form.MoveFocus(&screen.form.txtComments));
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "Hours must be numeric.");
  EXPECT_EQ(screen.desktop.boxes.at(0).title, "Special Days");
  EXPECT_EQ(screen.form.Focus(), &screen.form.txtHours);
}

TEST(SpecialDaysForm, EmptyHoursCanBeLeftButNotSaved) {
  Screen screen;
  screen.Enter(World::Day(12, 1), "", "Short crew");
  EXPECT_TRUE(screen.desktop.boxes.empty());
  screen.desktop.WillAnswer(ui::Answer::Ok);
  test::Click(screen.form.cmdSave);
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "All three fields are required.");
}

TEST(SpecialDaysForm, CloseIsReachedPastHoursThatArentNumeric) {
  Screen screen;
  test::Type(screen.form.txtHours, "eight");
  screen.desktop.WillAnswer(ui::Answer::Yes);
  test::Click(screen.form.cmdCancel);
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "Discard changes?");
  EXPECT_FALSE(screen.form.Visible());
}

TEST(SpecialDaysForm, ALineThatWasClickedAndADayThatWasSavedAreNothingToLose) {
  Screen screen;
  test::Type(screen.form.txtComments, "half typed");
  screen.form.List1.DoSelect(0);
  EXPECT_EQ(screen.form.cmdCancel.Caption(), "&Close");
  screen.Enter(World::Day(12, 31), "8", "New Year's Eve");
  EXPECT_EQ(screen.form.cmdCancel.Caption(), "&Cancel");
  screen.form.cmdSave.DoClick();
  EXPECT_EQ(screen.form.cmdCancel.Caption(), "&Close");
  test::Press(screen.form, "Esc");
  EXPECT_FALSE(screen.form.Visible());
}

TEST(SpecialDaysForm, ADayThatWasOnlyLookedUpIsNothingToLoseWhetherListedOrNot) {
  for (const DaySerial day : {World::Day(12, 24), World::Day(12, 25)}) {
    Screen screen;
    screen.PickAndLeave(day);
    EXPECT_EQ(screen.form.cmdCancel.Caption(), "&Close");
    screen.Pick(day + 1);
    test::Press(screen.form, "Esc");
    EXPECT_FALSE(screen.form.Visible()) << FormatDate(day);
  }
  Screen screen;
  screen.PickAndLeave(World::Day(12, 25));
  test::Type(screen.form.txtComments, "Closed");
  screen.desktop.WillAnswer(ui::Answer::No);
  test::Press(screen.form, "Esc");
  EXPECT_TRUE(screen.form.Visible()) << "what is typed for the day is a change";
}

TEST(SpecialDaysForm, DeleteRemovesTheLineOfTheListAndIsATextsOwnKeyInTheFields) {
  Screen screen;
  screen.form.MoveFocus(&screen.form.txtComments);
  test::Press(screen.form, "Delete");
  EXPECT_EQ(screen.Lines().size(), 2U);
  screen.form.MoveFocus(&screen.form.List1);
  screen.form.List1.DoSelect(0);
  test::Press(screen.form, "Delete");
  EXPECT_EQ(screen.Lines().size(), 1U);
}

TEST(SpecialDaysForm, HoursThatDontFitAreAnOverflowAndNothingIsWritten) {
  Screen screen;
  const std::vector<std::string> before = screen.Lines();
  screen.Enter(World::Day(12, 24), "99999999999", "Too long a day");
  screen.desktop.failuresExpected = true;
  screen.form.cmdSave.DoClick();
  ASSERT_EQ(screen.desktop.failures.size(), 1U);
  EXPECT_THAT(screen.desktop.failures[0], testing::HasSubstr("Overflow"));
  EXPECT_EQ(screen.Lines(), before);
  EXPECT_EQ(screen.database.lantosData.SpecialDaysByDate(World::Day(12, 24)).Long("SpecialHours"), 20);
}

TEST(SpecialDaysForm, APickedDateIsLookedUpOnLeavingIt) {
  Screen screen;
  screen.Pick(World::Day(12, 24));
  EXPECT_EQ(screen.form.List1.ListIndex(), -1);
  screen.form.MoveFocus(&screen.form.txtHours);
  EXPECT_EQ(screen.form.List1.ListIndex(), 1);
  EXPECT_EQ(screen.Editors(), "12/24/2003|20|Christmas Eve");
}

TEST(SpecialDaysForm, ADateWithoutALineClearsTheEditors) {
  Screen screen;
  screen.form.List1.DoSelect(1);
  screen.PickAndLeave(World::Day(12, 25));
  EXPECT_EQ(screen.Editors(), "12/25/2003||");
  EXPECT_EQ(screen.form.List1.ListIndex(), -1);
}

TEST(SpecialDaysForm, LeavingAnUnchangedDateClearsNothing) {
  Screen screen;
  screen.form.List1.DoSelect(1);
  screen.form.MoveFocus(&screen.form.DTPicker1);
  screen.form.MoveFocus(&screen.form.txtHours);
  EXPECT_EQ(screen.Editors(), "12/24/2003|20|Christmas Eve");
}

TEST(SpecialDaysForm, ADateBeforeTodayTurnsTheHistoryOn) {
  Screen screen;
  screen.PickAndLeave(World::Day(7, 4));
  EXPECT_TRUE(screen.form.Check1.Value());
  EXPECT_EQ(screen.Lines().size(), 3U);
  EXPECT_EQ(screen.form.List1.ListIndex(), 0);
  EXPECT_EQ(screen.Editors(), "07/04/2003|0|Independence Day");
}

TEST(SpecialDaysForm, TodayDoesntTurnTheHistoryOn) {
  Screen screen;
  screen.PickAndLeave(World::Day(10, 1));
  screen.PickAndLeave(screen.Today());
  EXPECT_FALSE(screen.form.Check1.Value());
}

TEST(SpecialDaysForm, SaveAddsANewDayInItsPlace) {
  Screen screen;
  screen.Enter(World::Day(12, 1), "8", "  Short crew ");
  test::Click(screen.form.cmdSave);
  ASSERT_EQ(screen.Lines().size(), 3U);
  EXPECT_EQ(screen.Lines()[1], "12/01/2003     8 Short crew");
  EXPECT_EQ(screen.form.List1.ItemData(1), World::Day(12, 1));
  const Recordset& row = screen.database.lantosData.SpecialDaysByDate(World::Day(12, 1));
  ASSERT_EQ(row.Count(), 1U);
  EXPECT_EQ(row.Long("SpecialHours"), 8);
  EXPECT_EQ(row.Text("SpecialDesc"), "Short crew");
  EXPECT_TRUE(screen.form.Visible());
}

TEST(SpecialDaysForm, SaveUpdatesTheRowOfAKnownDate) {
  Screen screen;
  screen.form.List1.DoSelect(0);
  test::Type(screen.form.txtHours, "16");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Lines(),
            (std::vector<std::string>{"11/27/2003    16 Thanksgiving", "12/24/2003    20 Christmas Eve"}));
  EXPECT_EQ(screen.Count(), "3");
}

TEST(SpecialDaysForm, AllThreeFieldsAreRequired) {
  Screen screen;
  screen.PickAndLeave(World::Day(12, 1));
  test::Type(screen.form.txtHours, "8");
  test::Type(screen.form.txtComments, "   ");
  screen.desktop.WillAnswer({ui::Answer::Ok, ui::Answer::Ok, ui::Answer::Ok});
  test::Click(screen.form.cmdSave);
  test::Type(screen.form.txtComments, "Short crew");
  screen.form.txtHours.SetText(" ");
  test::Press(screen.form, "F10");
  screen.form.txtHours.SetText("8");
  screen.form.DTPicker1.SetValue(0);
  test::Press(screen.form, "F10");
  ASSERT_EQ(screen.desktop.boxes.size(), 3U);
  for (const ui::Box& box : screen.desktop.boxes) {
    EXPECT_EQ(box.text, "All three fields are required.");
    EXPECT_EQ(box.title, "Special Days");
  }
  EXPECT_EQ(screen.Count(), "3");
}

TEST(SpecialDaysForm, F10WithoutLeavingTheHoursStillWantsANumber) {
  Screen screen;
  screen.Enter(World::Day(12, 1), "8", "Short crew");
  test::Type(screen.form.txtHours, "few");
  screen.desktop.WillAnswer(ui::Answer::Ok);
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "Hours must be numeric.");
  EXPECT_EQ(screen.Count(), "3");
}

TEST(SpecialDaysForm, HoursAreWholeRoundedHalfToEven) {
  Screen screen;
  screen.Enter(World::Day(12, 1), "8.5", "Even");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Lines()[1], "12/01/2003     8 Even");
  screen.Enter(World::Day(12, 2), "7.5", "Odd");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Lines()[2], "12/02/2003     8 Odd");
}

TEST(SpecialDaysForm, DeleteRemovesLineAndRow) {
  Screen screen;
  screen.form.List1.DoSelect(0);
  test::Click(screen.form.cmdDelete);
  EXPECT_EQ(screen.Lines(), std::vector<std::string>{"12/24/2003    20 Christmas Eve"});
  EXPECT_EQ(screen.Count(), "2");
}

TEST(SpecialDaysForm, DeleteOfADateThatIsntSpecialChangesNothing) {
  Screen screen;
  screen.Pick(World::Day(12, 1));
  test::Click(screen.form.cmdDelete);
  EXPECT_EQ(screen.Lines().size(), 2U);
  EXPECT_EQ(screen.Count(), "3");
}

TEST(SpecialDaysForm, EscClosesAndTheSizeIsKept) {
  Screen screen;
  screen.form.DoResize(10000, 7000, ui::WindowState::Normal);
  test::Press(screen.form, "Esc");
  EXPECT_FALSE(screen.form.Visible());
  screen.form.Unload();
  EXPECT_EQ(screen.Setting("frmSpecialDaysWidth"), "10000");
}

}  // namespace
}  // namespace lantos
