#include "board/BookingBench.h"
#include "masters/vehicles/frmVehList.h"

// What the database refused is as it was: in memory, in the lists, in caption and popup. It can be tried again.
namespace lantos {
namespace {

using test::BookingBench;
using test::Texts;
using test::TextsOf;
using ui::Answer;

struct Refusing : BookingBench {
  void Refuse(std::string_view column, std::int32_t estimate = 900) {
    desktop.failuresExpected = true;
    Do(
        fmt::format("create trigger Refuse before update of {} on Estimates when old.EstimateNumber = {} "
                    "begin select raise(abort, 'no'); end",
                    column, estimate));
  }
  void Allow() { Do("drop trigger Refuse"); }
  // An estimate of today, chosen in both lists.
  frmMain& Begin(std::int16_t status) {
    AddEstimate(900, Today(), status);
    Start();
    Choose(board.day.List2, 0);
    Choose(board.week.List1[kTuesday], 0);
    return board;
  }
  // The form that comes is accepted, which the database refuses, and left.
  void WillTryInVain() {
    desktop.WillUse([](ui::Form& form) {
      test::Press(form, "F10");
      EXPECT_TRUE(form.Visible());
      test::Press(form, "Esc");
    });
  }
  void ExpectAsBefore(std::int16_t status, const std::string& word) {
    EXPECT_EQ(desktop.failures.size(), 1U);
    EXPECT_EQ(Current().Status, status);
    EXPECT_EQ(Stored("Status", 900), std::to_string(status));
    EXPECT_EQ(board.detail.frameDetailView.Caption(), "Est. # 000900  09/30/2003  " + word);
    EXPECT_NE(TextsOf(board.day.List2)[1].find("Status = " + word), std::string::npos);
  }
};

TEST(RefusedStatus, OfThePopupCanBeTriedAgain) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  bench.Refuse("Status");
  bench.desktop.WillChoose("mnuPopupStatus(2)");
  bench.RightClick(board.week.List1[Refusing::kTuesday], 0);
  bench.ExpectAsBefore(kArrived, "Arrived");
  EXPECT_EQ(TextsOf(board.week.List1[Refusing::kTuesday])[0], "000900 Arrived");
  bench.Allow();
  bench.desktop.WillChoose("mnuPopupStatus(2)");
  bench.RightClick(board.week.List1[Refusing::kTuesday], 0);
  EXPECT_EQ(bench.Stored("Status", 900), "2");
  EXPECT_EQ(TextsOf(board.week.List1[Refusing::kTuesday])[0], "000900 In Progress");
}

TEST(RefusedStatus, LeavesTheFormOpenForAnotherTry) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  bench.Refuse("Status");
  bench.desktop.WillUse([&](ui::Form& form) {
    dynamic_cast<ui::OptionButton&>(*form.Find("Option1(4)")).DoClick();
    form.PressKey(ui::ParseKey("F10"));
    EXPECT_TRUE(form.Visible());
    bench.ExpectAsBefore(kArrived, "Arrived");
    bench.Allow();
    form.PressKey(ui::ParseKey("F10"));
    EXPECT_FALSE(form.Visible());
  });
  board.commands.cmdChangeStatus.DoClick();
  EXPECT_EQ(bench.Stored("Status", 900), "4");
}

TEST(RefusedStatus, OfAPaperIsAskedForAgainAtTheNextPrint) {
  Refusing bench;
  bench.directory.Put("disclaim.txt", "Paid in full.\r\n");
  frmMain& board = bench.Begin(kScheduled);
  bench.Refuse("Status");
  for (int i = 0; i < 2; ++i) {
    bench.desktop.WillAnswer([](const ui::Box& box) {
      EXPECT_EQ(box.text, "Shall I change the status from\rScheduled to Arrived?");
      return Answer::Yes;
    });
    test::Click(board.commands.cmdPrintEstimate);
    if (i == 0) bench.ExpectAsBefore(kScheduled, "Scheduled");
    if (i == 0) bench.Allow();
  }
  EXPECT_EQ(bench.Stored("Status", 900), "1");
}

TEST(RefusedStatus, OfAContinuedEstimateWhoseRestIsBookedStaysContinued) {
  Refusing bench;
  bench.MakeCurrent(900, bench.Today(), kArrived);
  bench.environment.statusOptions.letters[static_cast<std::size_t>(StatusOption::ContinuedAutoSchedule)] = 'Y';
  bench.desktop.WillAnswer(Answer::Ok);
  const ContinueEstimate booked = [&] {
    bench.database.lantosData.SetStatus(kContinued, 900);
    bench.Refuse("Status");
    return bench.Today() + 1;
  };
  EXPECT_ANY_THROW(ChangeStatusByHand(bench.shop, bench.database, booked, kContinued));
  EXPECT_EQ(bench.Current().Status, kContinued) << "the database has it";
}

TEST(RefusedReschedule, ShowsWhatWasDoneOfIt) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  bench.Refuse("Comments");
  bench.WillTryInVain();
  test::Click(board.commands.cmdReschedule);
  EXPECT_EQ(bench.Stored("Status", 900), "7");
  EXPECT_EQ(TextsOf(board.week.List1[Refusing::kTuesday])[0], "000900 Rescheduled");
}

TEST(RefusedReschedule, ThatIsGivenUpLeavesItsCopyOnTheBoard) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  bench.Refuse("Status");
  bench.WillTryInVain();
  test::Click(board.commands.cmdReschedule);
  EXPECT_EQ(TextsOf(board.week.List1[Refusing::kTuesday]),
            (Texts{"000900 Arrived", "  Adams,Beth", "001001 ", "  Adams,Beth"}));
  EXPECT_EQ(board.detail.DisplayedEstimate(), 900);
}

TEST(RefusedReschedule, WhoseCopyIsEmptyShowsItToo) {
  Refusing bench;
  bench.AddLabor(900, 1, 400, 26000);
  frmMain& board = bench.Begin(kArrived);
  bench.desktop.failuresExpected = true;
  bench.Do("create trigger RefuseLabor before insert on Labors begin select raise(abort, 'no'); end");
  bench.WillTryInVain();
  test::Click(board.commands.cmdReschedule);
  EXPECT_EQ(TextsOf(board.week.List1[Refusing::kTuesday]).at(2), "001001 ");
}

TEST(RefusedReschedule, TriedAgainGoesOnWithTheCopyThatWasMade) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  bench.Refuse("Comments");
  bench.desktop.WillUse([&](ui::Form& form) {
    form.PressKey(ui::ParseKey("F10"));
    bench.Allow();
    form.PressKey(ui::ParseKey("F10"));
  });
  test::Click(board.commands.cmdReschedule);
  EXPECT_EQ(bench.Ask("select count(*) as Copies from Estimates"), "2");
  EXPECT_EQ(bench.NextNumber(), 1002);
  EXPECT_EQ(bench.StoredComments().substr(0, 15), "Rescheduled for");
}

TEST(RefusedReschedule, ShowsAndNamesTheCopyThatStays) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  bench.Refuse("Status");
  for (const std::int32_t copy : {1001, 1002}) {
    bench.WillTryInVain();
    test::Click(board.commands.cmdReschedule);
    EXPECT_TRUE(bench.desktop.failures.back().starts_with(
        fmt::format("Estimate # {:06} was made on Tue 09/30/2003 as a copy of this one, and stays there. "
                    "The next step was not finished:\r\rThe database refused",
                    copy)))
        << bench.desktop.failures.back();
    EXPECT_GE(board.week.List1[Refusing::kTuesday].FindData(copy), 0);
    EXPECT_GE(board.day.List2.FindData(copy), 0);
  }
  EXPECT_EQ(bench.Current().EstimateNumber, 900);
  EXPECT_EQ(board.detail.frameDetailView.Caption(), "Est. # 000900  09/30/2003  Arrived");
}

TEST(RefusedReschedule, TellsOfACopyWithoutAllOfItsLines) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  bench.desktop.failuresExpected = true;
  bench.Hide("Notes");
  bench.desktop.WillUse([&](ui::Form& form) {
    form.PressKey(ui::ParseKey("F10"));
    bench.Reveal("Notes");
    form.PressKey(ui::ParseKey("Esc"));
  });
  test::Click(board.commands.cmdReschedule);
  EXPECT_TRUE(bench.desktop.failures.at(0).starts_with(
      "Estimate # 001001 was made on Tue 09/30/2003 as a copy of this one, without its lines, and stays there."))
      << bench.desktop.failures[0];
}

TEST(RefusedReschedule, WithoutACopyIsToldAsItIs) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  bench.desktop.failuresExpected = true;
  bench.Do("create trigger Refuse before insert on Estimates begin select raise(abort, 'no'); end");
  bench.WillTryInVain();
  test::Click(board.commands.cmdReschedule);
  EXPECT_TRUE(bench.desktop.failures.at(0).starts_with("The database refused the change."))
      << bench.desktop.failures[0];
  EXPECT_EQ(bench.Ask("select count(*) from Estimates"), "1");
}

TEST(RefusedContinuation, ShowsAndNamesTheCopyThatStays) {
  Refusing bench;
  bench.environment.statusOptions.letters[static_cast<std::size_t>(StatusOption::ContinuedAutoSchedule)] = 'Y';
  frmMain& board = bench.Begin(kArrived);
  bench.Refuse("Status");
  bench.desktop.WillUse([](ui::Form& form) { form.PressKey(ui::ParseKey("F10")); });
  bench.WillLeave();
  bench.desktop.WillChoose("mnuPopupStatus(5)");
  bench.RightClick(board.week.List1[Refusing::kTuesday], 0);
  EXPECT_TRUE(bench.desktop.failures.at(0).starts_with("Estimate # 001001 was made on Wed 10/01/2003 as a copy"))
      << bench.desktop.failures[0];
  EXPECT_EQ(TextsOf(board.week.List1[Refusing::kTuesday + 1]), (Texts{"001001 Arrived", "  Adams,Beth"}));
  bench.ExpectAsBefore(kArrived, "Arrived");
}

TEST(RefusedContinuation, WithoutANumberForItsLineMakesNoCopy) {
  Refusing bench;
  bench.environment.statusOptions.letters[static_cast<std::size_t>(StatusOption::ContinuedAutoSchedule)] = 'Y';
  bench.AddLabor(900, 2147483647, 100, 6500);
  frmMain& board = bench.Begin(kArrived);
  bench.desktop.failuresExpected = true;
  bench.desktop.WillUse([](ui::Form& form) {
    dynamic_cast<ui::TextBox&>(*form.Find("txtHours")).DoType("1");
    form.PressKey(ui::ParseKey("F10"));
  });
  bench.WillLeave();
  bench.desktop.WillChoose("mnuPopupStatus(5)");
  bench.RightClick(board.week.List1[Refusing::kTuesday], 0);
  EXPECT_EQ(bench.desktop.failures.at(0), "Overflow: 2147483648 is too large.");
  EXPECT_EQ(bench.Ask("select count(*) from Estimates"), "1");
  EXPECT_EQ(bench.NextNumber(), 1001);
}

TEST(RefusedCustomer, LeavesTheOneOfBeforeOnTheScreen) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  test::Click(board.commands.cmdDetailView);
  bench.Refuse("CustomerNumber");
  bench.WillPickCustomer(8);
  bench.desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  test::Click(board.detail.cmdCustomerEdit);
  EXPECT_EQ(bench.desktop.failures, (Texts{"The customer of the estimate was not stored."}));
  EXPECT_EQ(board.detail.lblCustName.Caption(), "Beth Adams");
  EXPECT_EQ(bench.Current().CustomerNumber, 7);
  EXPECT_EQ(board.detail.Customer().Get(customer::Number), 7);
}

TEST(RefusedVehicle, LeavesTheOneOfBeforeOnTheScreen) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  VehicleRecord truck;
  truck.Put(vehicle::Number, 7);
  truck.Put(vehicle::Make, "Dodge");
  truck.Put(vehicle::VLink, kNoLink);
  ASSERT_TRUE(bench.records.customers.MakeCurrent(7));
  ASSERT_NE(bench.records.customers.AppendVehicle(truck), kNoLink);
  test::Click(board.commands.cmdDetailView);
  bench.Refuse("VehMake");
  bench.desktop.WillUse([](ui::Form& form) {
    auto& list = dynamic_cast<frmVehList&>(form);
    list.DataGrid1.DoSelect(0);
    list.cmdSelect.DoClick();
  });
  bench.desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  test::Click(board.detail.cmdVehicleEdit);
  EXPECT_EQ(bench.desktop.failures, (Texts{"The vehicle of the estimate was not stored."}));
  EXPECT_EQ(board.detail.lblVehYMM.Caption(), "  ");
  EXPECT_EQ(bench.Current().VehMake, "");
}

TEST(RefusedCustomer, IsKeptForAnotherTry) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  test::Click(board.commands.cmdDetailView);
  bench.Refuse("CustomerNumber");
  bench.WillPickCustomer(8);
  bench.desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.text,
              "The database refused the change. Nothing was stored; the run log has the reason.\r\r"
              "Click Retry to store the customer that you chose, or Cancel to leave the estimate as it was.");
    bench.Allow();
    return Answer::Retry;
  });
  bench.WillLeave();  // the vehicles
  test::Click(board.detail.cmdCustomerEdit);
  EXPECT_TRUE(bench.desktop.failures.empty());
  EXPECT_EQ(bench.Stored("CustomerNumber", 900), "8");
  EXPECT_EQ(bench.Current().CustomerNumber, 8);
}

TEST(RefusedBooking, IsOnTheBoardAsFarAsItStandsInTheDatabase) {
  Refusing bench;
  frmMain& board = bench.Start();
  bench.Refuse("CustomerNumber", 1001);
  bench.desktop.WillAnswer(Answer::No);
  bench.WillPickCustomer(8);
  bench.desktop.WillAnswer(Answer::Cancel);
  test::Click(board.commands.cmdNewEstimate);
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_EQ(TextsOf(board.week.List1[Refusing::kTuesday]), (Texts{"001001 ", "  CUSTOMER,UNKNOWN"}));
  EXPECT_EQ(board.detail.lblCustName.Caption(), "UNKNOWN CUSTOMER");
}

TEST(RefusedBooking, WithoutARowShowsThePreviousEstimateAgain) {
  Refusing bench;
  bench.AddLabor(900, 1, 100, 6500);
  frmMain& board = bench.Begin(kArrived);
  bench.desktop.failuresExpected = true;
  bench.Do("create trigger Refuse before insert on Estimates begin select raise(abort, 'no'); end");
  bench.desktop.WillAnswer(Answer::No);
  bench.WillPickCustomer(8);
  test::Click(board.commands.cmdNewEstimate);
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  bench.ExpectAsBefore(kArrived, "Arrived");
  EXPECT_TRUE(board.detail.frameDetailView.Visible());
  EXPECT_EQ(board.detail.lblCustName.Caption(), "Beth Adams");
  EXPECT_EQ(board.detail.listLabor.ListCount(), 2);
}

TEST(RefusedComments, LeaveTheRowOfTheirEstimateSelected) {
  Refusing bench;
  bench.AddEstimate(901, bench.Today(), kArrived, 8);
  bench.AddEstimate(902, bench.Today() + 1, kArrived, 8);
  frmMain& board = bench.Begin(kArrived);
  ui::ListBox& tuesday = board.week.List1[Refusing::kTuesday];
  ui::ListBox& wednesday = board.week.List1[Refusing::kTuesday + 1];
  board.detail.txtComments.SetText("Waits");
  bench.Refuse("Comments");
  bench.Choose(tuesday, 2);
  EXPECT_EQ(tuesday.ListIndex(), 0);
  bench.Choose(wednesday, 0);
  EXPECT_EQ(wednesday.ListIndex(), -1);
  EXPECT_EQ(tuesday.ListIndex(), 0);
  bench.Choose(board.day.List2, board.day.List2.FindData(901));
  EXPECT_EQ(board.day.List2.ListIndex(), board.day.List2.FindData(900));
  EXPECT_EQ(bench.desktop.failures.size(), 3U);
  EXPECT_EQ(bench.Current().EstimateNumber, 900);
  bench.Allow();
  bench.Choose(tuesday, 2);
  EXPECT_EQ(bench.Current().EstimateNumber, 901);
  EXPECT_EQ(tuesday.ListIndex(), 2);
}

TEST(RefusedComments, OfAConversionAreNotShownAsKept) {
  Refusing bench;
  frmMain& board = bench.Begin(kArrived);
  test::Click(board.commands.cmdDetailView);
  board.detail.txtComments.SetText("Waits");
  bench.Refuse("Comments");
  board.Run([&] { board.detail.contents.bench.estimate.StoreComments("Workorder # 000001 Waits"); });
  EXPECT_EQ(board.detail.txtComments.Text(), "Waits");
  bench.Allow();
}

}  // namespace
}  // namespace lantos
