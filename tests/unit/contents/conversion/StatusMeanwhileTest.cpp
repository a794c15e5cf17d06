// A status that another copy sets while this one asks about it.
#include "ConversionBench.h"

namespace lantos {
namespace {

using test::ConversionBench;
using ui::Answer;

constexpr const char* kAsked =
    "Estimate # 001001 was changed by another user since it was shown here.\r"
    "\rIts status is 'Cancelled', not 'Scheduled'.\r\rDo you wish to continue?";

struct StatusAsked : ConversionBench {
  StatusAsked() {
    SetOption(StatusOption::ScheduledToComplete, 'A');
    WillConfirm();
    desktop.WillAnswer(Answer::Ok);  // the number of the work order
    desktop.WillAnswer([this](const ui::Box& box) {
      EXPECT_EQ(box.text, "Change status to 'Completed'?");
      Do("update Estimates set Status = 6 where EstimateNumber = 1001");
      return Answer::Yes;
    });
  }
  std::string StoredStatus() { return Ask("select Status from Estimates where EstimateNumber = 1001"); }
};

TEST(StatusMeanwhile, ThatAnotherCopySetsWhileTheQuestionIsUpIsKept) {
  StatusAsked bench;
  bench.desktop.WillAnswer({Answer::No, Answer::Ok});
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes.at(3).text, kAsked);
  EXPECT_EQ(bench.desktop.boxes.at(4).text, "Estimate status is still 'Cancelled'");
  EXPECT_EQ(bench.StoredStatus(), "6");
  EXPECT_EQ(bench.database.estimates.CurrentEstimate.Status, kCancelled);
}

TEST(StatusMeanwhile, ThatAnotherCopySetsIsWrittenOverWhereThePersonGoesOn) {
  StatusAsked bench;
  bench.desktop.WillAnswer(Answer::Yes);
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes.at(3).text, kAsked);
  EXPECT_EQ(bench.StoredStatus(), "3");
}

TEST(StatusMeanwhile, WithoutAQuestionIsLookedAtAsWell) {
  ConversionBench bench;
  bench.SetOption(StatusOption::ScheduledToComplete, 'Y');
  bench.WillConfirm();
  bench.desktop.WillAnswer([&](const ui::Box&) {
    bench.Do("update Estimates set Status = 6 where EstimateNumber = 1001");
    return Answer::Ok;
  });
  bench.desktop.WillAnswer({Answer::No, Answer::Ok});
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes.at(2).text, kAsked);
}

}  // namespace
}  // namespace lantos
