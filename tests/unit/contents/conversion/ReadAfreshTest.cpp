// Another copy has converted or moved the estimate since it was shown here.
#include "contents/conversion/ReadAfresh.h"

#include "ConversionBench.h"

namespace lantos {
namespace {

using test::ConversionBench;
using ui::Answer;

TEST(ReadAfresh, SaysNothingOfWhatDidNotChange) {
  ConversionBench bench;
  EXPECT_EQ(ReadAfresh(bench.shop, bench.database, "T"), Meanwhile::Nothing);
  bench.Do("update Estimates set Comments = 'He called.' where EstimateNumber = 1001");
  EXPECT_EQ(ReadAfresh(bench.shop, bench.database, "T"), Meanwhile::Nothing);
}

TEST(ReadAfresh, NamesWorkOrderDayAndStatus) {
  ConversionBench bench;
  bench.Do(
      "update Estimates set Comments = 'Workorder # 005000 Call first', Status = 3, SchedDate = '2003-10-02' "
      "where EstimateNumber = 1001");
  bench.desktop.WillAnswer(Answer::No);
  EXPECT_EQ(ReadAfresh(bench.shop, bench.database, "T"), Meanwhile::Stops);
  EXPECT_EQ(bench.desktop.boxes.back().text,
            "Estimate # 001001 was changed by another user since it was shown here.\r"
            "\rIt is Workorder # 005000.\rIts day is 10/02/2003.\rIts status is 'Completed', not 'Scheduled'."
            "\r\rDo you wish to continue?");
  EXPECT_EQ(bench.database.estimates.CurrentEstimate.Status, kCompleted);
}

TEST(ReadAfresh, StopsAtADeletedEstimate) {
  ConversionBench bench;
  bench.Do("delete from Estimates where EstimateNumber = 1001");
  bench.desktop.WillAnswer(Answer::Ok);
  EXPECT_EQ(ReadAfresh(bench.shop, bench.database, "T"), Meanwhile::Stops);
  EXPECT_EQ(bench.desktop.boxes.back().text, "Estimate # 001001 was deleted by another user.");
}

TEST(ReadAfresh, KeepsAnEstimateFromBecomingASecondWorkOrderUnasked) {
  ConversionBench bench;
  bench.Do("update Estimates set Comments = 'Workorder # 005000 Call first' where EstimateNumber = 1001");
  bench.desktop.WillAnswer(Answer::No);
  bench.Convert();
  bench.ExpectNothingDone();
}

TEST(ReadAfresh, TheCommentsOfTheOtherCopyStayWhereThePersonGoesOn) {
  ConversionBench bench;
  bench.Do("update Estimates set Comments = 'Workorder # 005000 Call first' where EstimateNumber = 1001");
  bench.desktop.WillAnswer({Answer::Yes, Answer::Yes});
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_EQ(bench.board.comments, "Workorder # 005001 Workorder # 005000 Call first");
}

// The status that another copy has set is the one that the guards look at.
TEST(ReadAfresh, AnEstimateThatWasMovedElsewhereIsNotConverted) {
  ConversionBench bench;
  bench.Do("update Estimates set Status = 7 where EstimateNumber = 1001");
  bench.desktop.WillAnswer({Answer::Yes, Answer::Ok});
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes.back().text, "Estimate status of 'Rescheduled' can not be converted to a workorder");
  bench.ExpectNothingDone();
}

}  // namespace
}  // namespace lantos
