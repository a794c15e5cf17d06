#include "board/DayCapacityDatabase.h"
#include "board/frmEstStatus.h"

namespace lantos {
namespace {

using ui::Answer;

constexpr std::int32_t kNumber = 4711;

constexpr char kWarning[] =
    "Warning!\r\rStatus is normally changed to \"Rescheduled\" via the \"Reschedule\" command button.\rIf you change "
    "it here, the estimate will not be automatically scheduled for the new date.\r\rAre you sure you wish to change "
    "the status to \"Rescheduled\"?";

// A shop with an estimate of today on show.
struct World : test::BoardShop {
  explicit World(std::int16_t status = kScheduled) { MakeCurrent(kNumber, Today(), status); }
  void Set(StatusOption option, char letter) {
    environment.statusOptions.letters[static_cast<std::size_t>(option)] = letter;
  }
  std::int16_t InMemory() const { return database.estimates.CurrentEstimate.Status; }
  std::string Stored() { return StoredStatus(kNumber); }
  ChangeResult Change(std::int16_t status) { return ChangeStatusByHand(shop, database, continueEstimate, status); }
  // Continues to the next day, which stores the status first, or stops.
  void WillContinue(DaySerial result) {
    continueEstimate = [this, result] {
      ++continued;
      if (result != kNotContinued) database.lantosData.SetStatus(kContinued, kNumber);
      return result;
    };
  }

  ContinueEstimate continueEstimate;
  int continued = 0;
};

std::string Offered(const StatusOptions& options, std::int16_t current) {
  std::string digits;
  for (std::int16_t entry = 0; entry < 10; ++entry) {
    if (PopupOffers(options, current, entry)) digits += static_cast<char>('0' + entry);
  }
  return digits;
}

TEST(StatusPopup, WalksTheProcessOneStepForwardOrBack) {
  const StatusOptions options;
  const char* expected[] = {"016789", "0125", "1235", "234", "34", "1235", "06", "07", "01678", "069"};
  for (std::int16_t status = 0; status < 10; ++status) EXPECT_EQ(Offered(options, status), expected[status]) << status;
}

TEST(StatusPopup, AlwaysHasTheCurrentStatusAmongItsItems) {
  StatusOptions options;
  options.letters.fill('N');
  for (std::int16_t status = 0; status < 10; ++status) EXPECT_TRUE(PopupOffers(options, status, status)) << status;
}

TEST(StatusPopup, WithRescheduledAllowNoTheItemIsAbsent) {
  StatusOptions options;
  options.letters[static_cast<std::size_t>(StatusOption::RescheduledAllow)] = 'N';
  EXPECT_EQ(Offered(options, kScheduled), "01689");
  EXPECT_EQ(Offered(options, kNoShow), "0168");
  EXPECT_EQ(Offered(options, kRescheduled), "07");
}

TEST(StatusPopup, AStatusOutsideTheTableOffersNothing) {
  EXPECT_EQ(Offered(StatusOptions(), 10), "");
  EXPECT_EQ(Offered(StatusOptions(), -1), "");
  EXPECT_FALSE(PopupOffers(StatusOptions(), kScheduled, 10));
}

TEST(StatusPopup, CaptionsDifferALittleFromTheWords) {
  const World world;
  for (std::int16_t status = 0; status < 10; ++status) {
    std::int16_t code = status;
    const std::string word = world.database.estimates.StatusText(code, world.Today());
    const std::string_view caption = kStatusDescriptions[static_cast<std::size_t>(status)].popupCaption;
    EXPECT_EQ(caption, status == kNoShow ? "No Show" : word);
  }
}

TEST(ChangeStatusByHand, TheSameStatusDoesNothingAtAll) {
  World world(kArrived);
  world.Do("update Estimates set Status = 3");
  EXPECT_EQ(world.Change(kArrived), ChangeResult::Unchanged);
  EXPECT_EQ(world.Stored(), "3");
}

TEST(ChangeStatusByHand, AnyOtherStatusIsSetAndStoredWithoutAQuestion) {
  for (const std::int16_t status : {kArrived, kInProgress, kCompleted, kDeparted, kCancelled, kNoShow, kEstimateOnly}) {
    World world;
    EXPECT_EQ(world.Change(status), ChangeResult::Changed);
    EXPECT_EQ(world.InMemory(), status);
    EXPECT_EQ(world.Stored(), std::to_string(status));
    EXPECT_TRUE(world.desktop.boxes.empty());
  }
}

TEST(ChangeStatusByHand, RescheduledWarnsWhenTheOptionAsks) {
  World world;
  world.desktop.WillAnswer(Answer::Yes);
  EXPECT_EQ(world.Change(kRescheduled), ChangeResult::Changed);
  ASSERT_EQ(world.desktop.boxes.size(), 1U);
  EXPECT_EQ(world.desktop.boxes[0].text, kWarning);
  EXPECT_EQ(world.desktop.boxes[0].title, "Change Status to Rescheduled");
  EXPECT_EQ(world.desktop.boxes[0].icon, ui::Icon::Exclamation);
  EXPECT_EQ(world.desktop.boxes[0].buttons, ui::Buttons::YesNo);
  EXPECT_EQ(world.Stored(), "7");
}

TEST(ChangeStatusByHand, NoToTheWarningEndsTheOperation) {
  World world;
  world.desktop.WillAnswer(Answer::No);
  EXPECT_EQ(world.Change(kRescheduled), ChangeResult::Refused);
  EXPECT_EQ(world.InMemory(), kScheduled);
  EXPECT_EQ(world.Stored(), "0");
}

TEST(ChangeStatusByHand, RescheduledWithTheOptionYesAsksNothing) {
  World world;
  world.Set(StatusOption::RescheduledAllow, 'Y');
  EXPECT_EQ(world.Change(kRescheduled), ChangeResult::Changed);
  EXPECT_TRUE(world.desktop.boxes.empty());
}

TEST(ChangeStatusByHand, ContinuedWithTheOptionNoOnlyChangesTheStatus) {
  World world;
  world.Set(StatusOption::ContinuedAutoSchedule, 'N');
  world.WillContinue(world.Today() + 1);
  EXPECT_EQ(world.Change(kContinued), ChangeResult::Changed);
  EXPECT_EQ(world.continued, 0);
  EXPECT_TRUE(world.desktop.boxes.empty());
  EXPECT_EQ(world.Stored(), "5");
}

TEST(ChangeStatusByHand, ContinuedWithTheOptionYesContinuesAtOnceAndTellsBothDates) {
  World world;
  world.Set(StatusOption::ContinuedAutoSchedule, 'Y');
  world.WillContinue(world.Today() + 1);
  world.desktop.WillAnswer(Answer::Ok);
  EXPECT_EQ(world.Change(kContinued), ChangeResult::Changed);
  EXPECT_EQ(world.continued, 1);
  EXPECT_EQ(world.desktop.boxes.at(0).text, "Automatically continued from Tue 09/30/2003 to Wed 10/01/2003");
  EXPECT_EQ(world.desktop.boxes[0].title, "Continued...");
  EXPECT_EQ(world.desktop.boxes[0].icon, ui::Icon::Information);
  EXPECT_EQ(world.Stored(), "5");
}

TEST(ChangeStatusByHand, ContinuedWithTheOptionAskContinuesOnYes) {
  World world;
  world.WillContinue(world.Today() + 3);
  world.desktop.WillAnswer({Answer::Yes, Answer::Ok});
  EXPECT_EQ(world.Change(kContinued), ChangeResult::Changed);
  ASSERT_EQ(world.desktop.boxes.size(), 2U);
  EXPECT_EQ(world.desktop.boxes[0].text, "\"Continue\" this estimate to the next business day?");
  EXPECT_EQ(world.desktop.boxes[0].title, "Change Status to Continued");
  EXPECT_EQ(world.desktop.boxes[0].icon, ui::Icon::Question);
  EXPECT_EQ(world.desktop.boxes[1].text, "Continued by request from Tue 09/30/2003 to Fri 10/03/2003");
}

TEST(ChangeStatusByHand, NoToContinuingEndsTheOperation) {
  World world;
  world.WillContinue(world.Today() + 1);
  world.desktop.WillAnswer(Answer::No);
  EXPECT_EQ(world.Change(kContinued), ChangeResult::Refused);
  EXPECT_EQ(world.continued, 0);
  EXPECT_EQ(world.Stored(), "0");
}

TEST(ChangeStatusByHand, CancellingTheContinuationLeavesTheOldStatus) {
  for (const char letter : {'Y', 'A'}) {
    World world;
    world.Set(StatusOption::ContinuedAutoSchedule, letter);
    world.WillContinue(kNotContinued);
    if (letter == 'A') world.desktop.WillAnswer(Answer::Yes);
    EXPECT_EQ(world.Change(kContinued), ChangeResult::Refused);
    EXPECT_EQ(world.continued, 1);
    EXPECT_EQ(world.InMemory(), kScheduled);
    EXPECT_EQ(world.Stored(), "0");
  }
}

TEST(ChangeStatusByHand, OneToSixMovesBetweenCountingAndNotAndOneToThreeDoesnt) {
  EXPECT_NE(modEstimates::CountsTowardDay(kArrived), modEstimates::CountsTowardDay(kCancelled));
  EXPECT_EQ(modEstimates::CountsTowardDay(kArrived), modEstimates::CountsTowardDay(kCompleted));
}

struct Screen : World {
  explicit Screen(std::int16_t status = kScheduled) : World(status) {}
  // Shows the form; what was set before counts.
  frmEstStatus& Form() {
    if (!form) {
      form.emplace(shop, database, continueEstimate);
      form->Show();
    }
    return *form;
  }
  ui::OptionButton& Option(std::size_t status) { return Form().Option1[status]; }
  std::optional<frmEstStatus> form;
};

TEST(EstStatusForm, OffersAllTenStatusesWithTheirMeanings) {
  Screen screen;
  screen.WillContinue(screen.Today() + 1);
  const char* expected[] = {
      "(Scheduled) - Displayed as blank.  Customer has been scheduled but vehicle has not yet arrived.",
      "Arrived - Customer has delivered vehicle, Estimate has been printed (and signed).",
      "In Progress - Mechanic has started work on the vehicle (work sheet has been printed).",
      "Complete - Mechanic has completed work.",
      "Departed - Customer has picked up the vehicle.",
      "Continued - Work could not be completed.  Vehicle is scheduled again for following day.",
      "Cancelled - Customer called and cancelled the work. *",
      "Rescheduled - Customer called and rescheduled the work for another day. *",
      "No-Show - Customer did not deliver vehicle, nor did they call to cancel and/or reschedule.",
      "Estimate Only.  Customer not scheduled and totals not included in summary. *",
  };
  for (std::size_t i = 0; i < kStatusCount; ++i) {
    EXPECT_EQ(screen.Option(i).Caption(), expected[i]);
    EXPECT_TRUE(screen.Option(i).Enabled());
    EXPECT_EQ(screen.Option(i).Value(), i == 0);
  }
  EXPECT_EQ(screen.Form().lblFootnote.Caption(), "* Totals not included in daily summary.");
  EXPECT_EQ(screen.Form().Height(), 3930);
  EXPECT_EQ(screen.Form().Focus(), &screen.Option(0));
}

TEST(EstStatusForm, AnEstimateOfTodayStaysScheduled) {
  Screen screen;
  EXPECT_TRUE(screen.Option(kScheduled).Value());
  EXPECT_EQ(screen.InMemory(), kScheduled);
}

TEST(EstStatusForm, AScheduledOneOfYesterdayReadsNoShowInMemoryOnly) {
  Screen screen;
  screen.MakeCurrent(kNumber + 1, screen.Today() - 1, kScheduled);
  EXPECT_TRUE(screen.Option(kNoShow).Value());
  EXPECT_EQ(screen.InMemory(), kNoShow);
  EXPECT_EQ(screen.StoredStatus(kNumber + 1), "0");
  test::Press(screen.Form(), "Esc");
  EXPECT_EQ(screen.StoredStatus(kNumber + 1), "0");
}

TEST(EstStatusForm, AChangeFixesTheAutomaticNoShow) {
  Screen screen;
  screen.MakeCurrent(kNumber + 1, screen.Today() - 1, kScheduled);
  test::Click(screen.Option(kScheduled));
  test::Press(screen.Form(), "F10");
  EXPECT_EQ(screen.StoredStatus(kNumber + 1), "0") << "Scheduled was chosen, and is other than No-show";
  EXPECT_FALSE(screen.Form().Visible());
}

TEST(EstStatusForm, OkStoresTheChosenStatusAndHides) {
  Screen screen(kArrived);
  test::Click(screen.Option(kCancelled));
  test::Click(screen.Form().cmdOK);
  EXPECT_FALSE(screen.Form().Visible());
  EXPECT_EQ(screen.Stored(), "6");
}

TEST(EstStatusForm, OkOnTheSameStatusStaysOpen) {
  Screen screen(kArrived);
  test::Press(screen.Form(), "F10");
  EXPECT_TRUE(screen.Form().Visible());
  EXPECT_EQ(screen.Stored(), "1");
}

TEST(EstStatusForm, ARefusedChangeStaysOpen) {
  Screen screen;
  test::Click(screen.Option(kRescheduled));
  screen.desktop.WillAnswer(Answer::No);
  test::Press(screen.Form(), "F10");
  EXPECT_TRUE(screen.Form().Visible());
  EXPECT_EQ(screen.InMemory(), kScheduled);
}

TEST(EstStatusForm, CancelJustHides) {
  Screen screen;
  test::Click(screen.Option(kCancelled));
  screen.Form().DoClose();
  EXPECT_FALSE(screen.Form().Visible());
  EXPECT_EQ(screen.InMemory(), kScheduled);
  EXPECT_EQ(screen.Stored(), "0");
}

TEST(EstStatusForm, WithRescheduledAllowNoTheOptionIsDisabled) {
  Screen screen;
  screen.Set(StatusOption::RescheduledAllow, 'N');
  EXPECT_FALSE(screen.Option(kRescheduled).Enabled());
}

TEST(EstStatusForm, CancellingTheContinuationLeavesTheFormAndTheOldStatus) {
  Screen screen;
  screen.WillContinue(kNotContinued);
  test::Click(screen.Option(kContinued));
  screen.desktop.WillAnswer(Answer::Yes);
  test::Press(screen.Form(), "F10");
  EXPECT_TRUE(screen.Form().Visible());
  EXPECT_EQ(screen.Stored(), "0");
}

TEST(EstStatusForm, AStatusOutsideTheTableSelectsNothingAndOkDoesNothing) {
  Screen screen;
  screen.MakeCurrent(kNumber + 1, screen.Today(), 12);
  for (std::size_t i = 0; i < kStatusCount; ++i) EXPECT_FALSE(screen.Option(i).Value());
  test::Press(screen.Form(), "F10");
  EXPECT_TRUE(screen.Form().Visible());
}

TEST(EstStatusForm, KeepsItsSize) {
  Screen screen;
  screen.Form().DoResize(13000, 5000, ui::WindowState::Normal);
  screen.Form().Unload();
  EXPECT_EQ(screen.Setting("frmEstStatusHeight"), "5000");
}

}  // namespace
}  // namespace lantos
