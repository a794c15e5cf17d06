#include <random>

#include "board/BoardBench.h"
#include "contents/labor/frmLabor.h"
#include "frame/Numbers.h"

// Whatever is added, changed and removed, in whatever order: the totals are the sums of what the database holds.
namespace lantos {
namespace {

using test::BoardBench;
using test::Texts;

struct AnyHand : BoardBench {
  AnyHand() {
    directory.Put("TQEMPLOY.DAT", "");
    AddEstimate(900, Today(), kScheduled);
    frmMain& window = Start();
    Choose(window.week.List1[kTuesday], 0);
  }

  std::int32_t Any(std::int32_t below) { return static_cast<std::int32_t>(random() % static_cast<unsigned>(below)); }

  // Types a line of labor, with hours and a total that needn't agree; some take hours off.
  void UseLaborScreen() {
    desktop.WillUse([this](ui::Form& form) {
      auto& labor = dynamic_cast<frmLabor&>(form);
      labor.Hours.SetText(FormatHundredths(Any(800) - 200));
      labor.TotalLabor.SetText(FormatHundredths(Any(20000) - 5000));
      labor.txtDesc.SetText("WORK " + std::to_string(Any(1000)));
      labor.OKButton.DoClick();
    });
  }
  void AddLabor() {
    UseLaborScreen();
    board.detail.cmdLaborAdd.DoClick();
  }
  void ChangeLabor() {
    board.detail.listLabor.DoSelect(Any(board.detail.listLabor.ListCount()));
    UseLaborScreen();
    board.detail.cmdLaborChange.DoClick();
  }
  void RemoveLabor() {
    board.detail.listLabor.DoSelect(Any(board.detail.listLabor.ListCount()));
    desktop.WillAnswer(ui::Answer::Yes);
    board.detail.cmdLaborRemove.DoClick();
  }
  void AddExtra(bool waste) {
    const de::Extra line{"VENDOR", "", 0, Any(9000) - 500, "", "", "", "", Any(2) == 0 ? "Yes" : "No"};
    if (waste) {
      database.lantosData.AddWaste(900, ++extras, line);
    } else {
      database.lantosData.AddSublet(900, ++extras, line);
    }
  }
  void RemoveExtra(bool waste) {
    if (waste) {
      database.lantosData.DeleteWaste(900, 1 + Any(extras));
    } else {
      database.lantosData.DeleteSublet(900, 1 + Any(extras));
    }
  }

  std::string Sum(const std::string& what) {
    return FormatHundredths(
        std::stoll(Ask("select coalesce(sum(" + what + "), 0) from Labors where EstimateNumber = 900")));
  }
  std::string SumOf(const char* table) {
    return FormatHundredths(
        std::stoll(Ask("select coalesce(sum(Price), 0) from " + std::string(table) + " where EstimateNumber = 900")));
  }

  std::mt19937 random{1903};
  std::int32_t extras = 0;
};

TEST(Totals, AnySequenceOfAddingChangingAndRemovingLeavesThemEqualToTheRows) {
  AnyHand hand;
  for (int round = 0; round < 250; ++round) {
    const bool hasLabor = hand.board.detail.listLabor.ListCount() > 0;
    switch (hand.Any(7)) {
      case 0:
        if (hasLabor) hand.ChangeLabor();
        break;
      case 1:
      case 2:
        if (hasLabor) hand.RemoveLabor();
        break;
      case 3:
        hand.AddExtra(hand.Any(2) == 0);
        break;
      case 4:
        if (hand.extras > 0) hand.RemoveExtra(hand.Any(2) == 0);
        break;
      default:
        hand.AddLabor();
    }
    hand.board.FindMenu("mnuRefreshTotals")->DoClick();
    const Texts totals = hand.Totals();
    ASSERT_EQ(totals[0], hand.Sum("LaborHours")) << round;
    ASSERT_EQ(totals[1], hand.Sum("max(LaborTotal, 0)")) << round;
    ASSERT_EQ(totals[3], hand.SumOf("Sublets")) << round;
    ASSERT_EQ(totals[4], hand.SumOf("Waste")) << round;
    ASSERT_EQ(hand.board.hours.lblSched.Caption(), totals[0]) << "the day has this estimate alone";
  }
}

}  // namespace
}  // namespace lantos
