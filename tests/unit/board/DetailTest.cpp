#include <gmock/gmock.h>

#include "board/BookingBench.h"
#include "masters/vehicles/frmVehList.h"
#include "records/modSystem.h"

// One estimate in full: totals, comments, another vehicle, and a new one.
namespace lantos {
namespace {

using test::BoardBench;
using Booking = test::BookingBench;
using Detail = test::DetailBench;
using test::Texts;
using test::TextsOf;
using ui::Answer;

TEST(Totals, AreWorkedOutFromTheListsAndTheTwoTables) {
  Detail bench;
  bench.Fill(900, 7);
  bench.Show(900);
  // 6 % of 113.75 = 6.825, 8.25 % of 99.96 = 8.2467, 5 % of 120.00 = 6.00, 4 % of 3.50 = 0.14.
  EXPECT_EQ(bench.Totals(), (Texts{"1.25", "113.75", "99.96", "150.00", "3.50", "21.21", "388.42"}));
  EXPECT_TRUE(bench.board.commands.cmdEstimateSublets.Bold() && bench.board.commands.cmdEstimateWaste.Bold());
  EXPECT_EQ(bench.board.commands.cmdEstimateSublets.FontSize(), 10);
  EXPECT_FALSE(bench.board.commands.cmdEstimateNotes.Bold());
  EXPECT_EQ(bench.board.commands.cmdEstimateNotes.FontSize(), 8);
}

TEST(Totals, ATaxExemptCustomerStillPaysTaxOnSubletsAndWaste) {
  Detail bench;
  bench.Fill(900, 8);
  bench.Show(900);
  EXPECT_EQ(bench.Totals(), (Texts{"1.25", "113.75", "99.96", "150.00", "3.50", "6.14", "373.35"}));
}

TEST(Totals, ARateBelowOneMeansThatNothingIsTaxed) {
  Detail bench;
  bench.Fill(900, 7);
  bench.Start();
  SystemRecord& system = bench.records.system.SysRec;
  for (const LongField rate :
       {sysrec::tax_rate_parts, sysrec::tax_rate_labor, sysrec::tax_rate_sublet, sysrec::tax_rate_waste}) {
    system.Put(rate, -60000);
  }
  bench.Show(900);
  EXPECT_EQ(bench.Totals()[5], "0.00");
}

TEST(Totals, AnEstimateWithOnlyANegativeLaborLineShowsNegativeHoursAndNoMoney) {
  Detail bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddLabor(900, 1, -250, -16250);
  bench.Show(900);
  EXPECT_EQ(bench.Totals(), (Texts{"-2.50", "0.00", "0.00", "0.00", "0.00", "0.00", "0.00"}));
}

TEST(DetailView, WithoutACurrentEstimateItsFieldsAreEmpty) {
  Detail bench;
  test::Click(bench.Start().commands.cmdDetailView);
  EXPECT_EQ(bench.board.detail.frameDetailView.Caption(), "");
  EXPECT_EQ(bench.Totals(), Texts(7, ""));
  EXPECT_EQ(bench.board.detail.lblVehYMM.Caption() + bench.board.detail.lblCustCSZ.Caption(), "");
}

// Comments.

struct Comments : Detail {
  Comments() {
    AddEstimate(900, Today(), kArrived);
    database.lantosData.SetComments("Old", 900);
    Show(900);
    test::Type(board.detail.txtComments, "  New  ");
  }
};

TEST(Comments, AreWrittenTrimmedWhenTheFieldIsLeft) {
  Comments bench;
  EXPECT_EQ(bench.StoredComments(), "Old");
  bench.board.MoveFocus(&bench.board.detail.listLabor);
  EXPECT_EQ(bench.StoredComments(), "New");
  EXPECT_EQ(bench.Current().Comments, "New");
}

TEST(Comments, AreWrittenEachTimeChangedOrNot) {
  Comments bench;
  bench.board.MoveFocus(&bench.board.detail.listLabor);
  bench.database.lantosData.SetComments("Theirs", 900);
  bench.board.MoveFocus(&bench.board.detail.txtComments);
  bench.board.MoveFocus(&bench.board.detail.listLabor);
  EXPECT_EQ(bench.StoredComments(), "New");
}

// Another copy has made a work order of the estimate, or moved it, while it was on show.

struct CommentsMarked : Detail {
  CommentsMarked() {
    AddEstimate(900, Today(), kArrived);
    database.lantosData.SetComments("Old", 900);
    Show(900);
    board.MoveFocus(&board.detail.txtComments);
  }
};

TEST(CommentsMarked, ByAnotherCopyAreShownAndKeptWhenTheFieldIsLeftUntouched) {
  for (const char* theirs :
       {"Workorder # 000123 Old", "Rescheduled for 10/07/2003. Old", "Scheduled for 10/07/2003."}) {
    CommentsMarked bench;
    bench.database.lantosData.SetComments(theirs, 900);
    for (int round = 0; round < 2; ++round) {
      bench.board.MoveFocus(&bench.board.detail.listLabor);
      EXPECT_EQ(bench.StoredComments(), theirs);
      EXPECT_EQ(bench.board.detail.txtComments.Text(), theirs);
      // By which a conversion sees that another copy has been at it.
      EXPECT_EQ(bench.Current().Comments, "Old");
      bench.board.MoveFocus(&bench.board.detail.txtComments);
    }
  }
}

TEST(CommentsMarked, ByAnotherCopyAskWhoHasTypedOthers) {
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    CommentsMarked bench;
    test::Type(bench.board.detail.txtComments, "New");
    bench.database.lantosData.SetComments("Workorder # 000123 Old", 900);
    bench.desktop.WillAnswer([&](const ui::Box& box) {
      EXPECT_EQ(box.title, "Comments");
      EXPECT_EQ(box.text,
                "Estimate # 000900 was changed by another user since it was shown here.\rIts comments:\r\r"
                "\"Workorder # 000123 Old\" is stored, \"New\" is yours\r\r"
                "Do you want to store yours?\rNo keeps what is stored.");
      return answer;
    });
    bench.board.MoveFocus(&bench.board.detail.listLabor);
    const std::string kept = answer == Answer::Yes ? "New" : "Workorder # 000123 Old";
    EXPECT_EQ(bench.StoredComments(), kept);
    EXPECT_EQ(bench.board.detail.txtComments.Text(), kept);
  }
}

TEST(CommentsMarked, ByAnotherCopyAreAddedToOnceTheyWereSeen) {
  CommentsMarked bench;
  bench.database.lantosData.SetComments("Workorder # 000123 Old", 900);
  bench.board.MoveFocus(&bench.board.detail.listLabor);
  test::Type(bench.board.detail.txtComments, "Workorder # 000123 Old, keys at the desk");
  bench.board.MoveFocus(&bench.board.detail.listLabor);
  EXPECT_EQ(bench.StoredComments(), "Workorder # 000123 Old, keys at the desk");
}

TEST(Comments, TypedAndNotYetLeftOutliveAnythingThatFillsTheViewAnew) {
  const std::function<void(frmMain&)> ways[] = {
      [](frmMain& board) { board.LoadWeek(board.MonthView1.Value()); },
      [](frmMain& board) { board.detail.ShowEstimateDetail(); },
      [](frmMain& board) { board.day.List2.DoSelect(0); },
      [](frmMain& board) { board.DoClose(); },
  };
  for (const auto& way : ways) {
    Comments bench;
    way(bench.board);
    EXPECT_EQ(bench.StoredComments(), "New");
  }
}

TEST(Comments, RefusedByTheDatabaseStayInTheFieldAndAreWrittenLater) {
  Comments bench;
  bench.desktop.failuresExpected = true;
  bench.Hide("Estimates");
  bench.board.MoveFocus(&bench.board.detail.listLabor);
  bench.board.week.frameWeek[3].DoClick();
  bench.Reveal("Estimates");
  EXPECT_EQ(bench.desktop.failures.size(), 2U);
  EXPECT_EQ(bench.board.detail.txtComments.Text(), "  New  ");
  EXPECT_EQ(bench.Current().Comments, "Old");
  bench.board.week.frameWeek[3].DoClick();
  EXPECT_EQ(bench.StoredComments(), "New");
}

TEST(Comments, ThatCannotBeWrittenDoNotKeepTheWindowOpen) {
  Comments bench;
  bench.desktop.failuresExpected = true;
  bench.Hide("Estimates");
  bench.board.DoClose();
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_FALSE(bench.board.IsLoaded());
  EXPECT_EQ(bench.Setting("ShowStatus"), "1111111111");
}

TEST(Comments, OfAnEstimateThatCouldBeShownOnlyInPartAreNotLost) {
  Comments bench;
  bench.board.MoveFocus(&bench.board.detail.listLabor);
  bench.board.MoveFocus(&bench.board.detail.txtComments);
  bench.desktop.failuresExpected = true;
  bench.Hide("Parts");
  bench.board.Run([&] { bench.board.detail.ShowEstimateDetail(); });
  bench.Reveal("Parts");
  bench.board.MoveFocus(&bench.board.detail.listLabor);
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_EQ(bench.StoredComments(), "New");
}

// Booking.

TEST(NewEstimate, TakesANumberAndIsListedAndShown) {
  Booking bench;
  frmMain& board = bench.Start();
  bench.desktop.WillAnswer([](const ui::Box& box) {
    EXPECT_EQ(box.text, "Is this an Estimate Only?\r\r(Will not be \"Scheduled\")");
    EXPECT_EQ(box.title, "New Estimate");
    EXPECT_EQ(box.buttons, ui::Buttons::YesNo);
    EXPECT_EQ(box.icon, ui::Icon::Question);
    return Answer::No;
  });
  bench.WillPickCustomer(7);
  bench.desktop.WillUse([&](ui::Form& form) {
    EXPECT_EQ(board.detail.frameDetailView.Caption(), "Est. # 001001  09/30/2003  Scheduled");
    EXPECT_EQ(board.detail.lblCustName.Caption(), "Beth Adams");
    form.PressKey(ui::ParseKey("Esc"));
  });
  test::Click(board.commands.cmdNewEstimate);
  EXPECT_EQ(bench.desktop.forms, (Texts{"frmCustSearch", "frmVehList"}));
  EXPECT_EQ(bench.NextNumber(), 1002);
  EXPECT_EQ(bench.Stored("CustomerNumber", 1001), "7");
  EXPECT_EQ(bench.Stored("VehicleLink", 1001), "0");
  EXPECT_EQ(TextsOf(board.week.List1[BoardBench::kTuesday]), (Texts{"001001 ", "  Adams,Beth"}));
  EXPECT_EQ(TextsOf(board.day.List2)[1], "       Created on 09/30/2003, Scheduled for 09/30/2003, Status = Scheduled");
  EXPECT_TRUE(board.detail.frameDetailView.Visible());
  EXPECT_EQ(board.detail.frameDetailView.Caption(), "Est. # 001001  09/30/2003  Scheduled");
}

TEST(NewEstimate, ACancelledCustomerSearchSpendsNoNumberAndShowsTheOldOneAgain) {
  Booking bench;
  bench.Fill(900, 7);
  bench.Show(900);
  const Texts totals = bench.Totals();
  bench.desktop.WillAnswer({Answer::Yes, Answer::Ok});
  bench.WillLeave();
  test::Click(bench.board.commands.cmdNewEstimate);
  EXPECT_EQ(bench.desktop.boxes.at(1).text, "New Estimate cancelled.\r\rPrevious estimate redisplayed.");
  EXPECT_EQ(bench.desktop.boxes[1].title, "New Estimate - Cancelled");
  EXPECT_EQ(bench.desktop.boxes[1].icon, ui::Icon::Information);
  EXPECT_EQ(bench.NextNumber(), 1001);
  EXPECT_EQ(bench.board.detail.frameDetailView.Caption(), "Est. # 000900  09/30/2003  Arrived");
  EXPECT_EQ(bench.Totals(), totals);
}

TEST(NewEstimate, OnAPastDayNoCreatesNothingAndSpendsNoNumber) {
  Booking bench;
  frmMain& board = bench.Start();
  board.week.frameWeek[1].DoClick();
  bench.desktop.WillAnswer(Answer::No);
  test::Click(board.commands.cmdNewEstimate);
  EXPECT_EQ(bench.desktop.boxes.at(0).text,
            "Warning.\r\rThe scheduled date is in the past.\r\rAre you sure you wish to schedule\r\r"
            "a new estimate for 09/29/2003 ?");
  EXPECT_EQ(bench.desktop.boxes[0].icon, ui::Icon::Question);
  EXPECT_EQ(bench.NextNumber(), 1001);
  EXPECT_FALSE(board.detail.frameDetailView.Visible());
}

TEST(NewEstimate, WhoseCustomerCannotBeWrittenHoldsNothingOfTheOneBefore) {
  Booking bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.Do("update Estimates set VehMake = 'Ford', Comments = 'Of the first'");
  bench.Show(900);
  bench.Do("create trigger Refuse before update of CustomerNumber on Estimates begin select raise(abort, 'no'); end");
  bench.desktop.failuresExpected = true;
  bench.desktop.WillAnswer(Answer::No);
  bench.WillPickCustomer(8);
  bench.desktop.WillAnswer(Answer::Cancel);
  test::Click(bench.board.commands.cmdNewEstimate);
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  test::Click(bench.board.commands.cmdDetailView);
  EXPECT_EQ(bench.board.detail.frameDetailView.Caption(), "Est. # 001001  09/30/2003  Scheduled");
  EXPECT_EQ(bench.board.detail.lblVehYMM.Caption(), "  ");
  EXPECT_EQ(bench.board.detail.txtComments.Text(), "");
}

TEST(AnotherVehicle, OfAnUnknownCustomerIsNotAskedFor) {
  Booking bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.AddEstimate(901, bench.Today(), kArrived, 99);
  bench.Show(901);
  bench.desktop.WillAnswer(Answer::Ok);
  test::Click(bench.board.detail.cmdVehicleEdit);
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "The customer of this estimate isn't on file. Choose a customer first.");
  EXPECT_TRUE(bench.desktop.forms.empty()) << "nobody else's vehicles are shown";
}

// Who can't be read may be on file all the same.
TEST(AnotherVehicle, OfACustomerWhoCanNotBeReadIsNotAskedFor) {
  Booking bench;
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.Show(900);
  const SharedFile other(bench.directory.Path() / "TQCSTDAT.DAT", Access::ReadWrite, Deny::All);
  bench.desktop.WillAnswer({Answer::Cancel, Answer::Ok});
  test::Click(bench.board.detail.cmdVehicleEdit);
  ASSERT_EQ(bench.desktop.boxes.size(), 2U);
  const ui::Box& box = bench.desktop.boxes[1];
  EXPECT_EQ(box.text, "The customer of this estimate could not be read. Nothing was changed.");
  EXPECT_EQ(box.title, "Vehicle Edit");
  EXPECT_EQ(box.icon, ui::Icon::Exclamation);
  EXPECT_TRUE(bench.desktop.forms.empty()) << "nobody else's vehicles are shown";
}

// The list comes back, and another one can be chosen.
TEST(AnotherVehicle, ThatCanNotBeReadIsNotTaken) {
  Booking bench;
  bench.directory.Put("TQCSTDAT.DAT", test::Image().Append(test::CustomerImage(7, "Adams", 0).Text(25, "Beth")));
  bench.directory.Put("TQVEHICL.DAT", test::Image().Append(test::VehicleImage(7, "FORD", -1)));
  bench.AddEstimate(900, bench.Today(), kArrived);
  bench.Show(900);
  std::optional<SharedFile> other;
  bench.desktop.WillUse([&](ui::Form& form) {
    other.emplace(bench.directory.Path() / "TQVEHICL.DAT", Access::ReadWrite, Deny::All);
    form.PressKey(ui::ParseKey("F10"));
  });
  bench.desktop.WillAnswer(Answer::Ok);
  bench.WillLeave();
  test::Click(bench.board.detail.cmdVehicleEdit);
  ASSERT_EQ(bench.desktop.boxes.size(), 1U);
  EXPECT_EQ(bench.desktop.boxes[0].text, "Could not open Vehicle file.");
  EXPECT_EQ(bench.desktop.boxes[0].title, "ReadVehicle");
  EXPECT_THAT(bench.desktop.forms, testing::ElementsAre("frmVehList", "frmVehList"));
  EXPECT_EQ(bench.Stored("VehMake", 900), "");
  EXPECT_EQ(bench.board.detail.lblVehYMM.Caption(), "  ");
}

}  // namespace
}  // namespace lantos
