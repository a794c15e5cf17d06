// Another copy has converted or moved the estimate since it was shown here.
#include "contents/conversion/ReadAfresh.h"

#include "ConversionBench.h"

namespace lantos {
namespace {

using test::ConversionBench;
using ui::Answer;

// Ann Burke, the second customer on file.
void AddCustomer(ConversionBench& bench) {
  CustomerRecord owner;
  owner.Put(customer::Number, 8);
  owner.Put(customer::Lastname, "Burke");
  owner.Put(customer::Firstname, "Ann");
  owner.Put(customer::pricing_level, 3);
  owner.Put(customer::VLink, kNoLink);
  const std::string master = bench.directory.Content("TQCSTDAT.DAT");
  bench.PutRecord("TQCSTDAT.DAT", owner);
  bench.directory.Put("TQCSTDAT.DAT", master + bench.directory.Content("TQCSTDAT.DAT"));
  CustomerTag tag;
  tag.Put(customertag::Number, 8);
  tag.Put(customertag::NameKey, "Burke,Ann");
  tag.Put(customertag::Offset, static_cast<std::int32_t>(master.size()));
  const std::string tags = bench.directory.Content("TQCSTTAG.DAT");
  bench.PutRecord("TQCSTTAG.DAT", tag);
  bench.directory.Put("TQCSTTAG.DAT", tags + bench.directory.Content("TQCSTTAG.DAT"));
}

constexpr const char* kTheirComments = "update Estimates set Comments = 'He called.' where EstimateNumber = 1001";
constexpr const char* kTheirCustomer = "update Estimates set CustomerNumber = 8 where EstimateNumber = 1001";

TEST(ReadAfresh, TakesWhatNeedsNoWordInSilence) {
  ConversionBench bench;
  EXPECT_EQ(ReadAfresh(bench.shop, bench.database, "T"), Meanwhile::Nothing);
  bench.Do(kTheirComments);
  bench.Do(kTheirCustomer);
  EXPECT_EQ(ReadAfresh(bench.shop, bench.database, "T"), Meanwhile::Nothing);
  EXPECT_EQ(bench.database.estimates.CurrentEstimate.Comments, "He called.");
  EXPECT_EQ(bench.database.estimates.CurrentEstimate.CustomerNumber, 8);
}

// A day that has passed makes a No-show of it in memory alone, and so it stays.
TEST(ReadAfresh, LeavesANoShowThatNobodyChanged) {
  ConversionBench bench;
  bench.Do("update Estimates set SchedDate = '2003-09-29' where EstimateNumber = 1001");
  bench.database.estimates.LoadEstimate(1001);
  bench.database.estimates.CurrentEstimate.Status = kNoShow;
  EXPECT_EQ(ReadAfresh(bench.shop, bench.database, "T"), Meanwhile::Nothing);
  EXPECT_EQ(bench.database.estimates.CurrentEstimate.Status, kNoShow);
}

TEST(ReadAfresh, TheCommentsThatAnotherCopyWroteBecomeThoseOfTheWorkOrder) {
  ConversionBench bench;
  bench.Do(kTheirComments);
  bench.WillConfirm();
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_EQ(bench.StoredComments(), "Workorder # 005001 He called.");
}

TEST(ReadAfresh, TheCustomerThatAnotherCopySetGetsTheWorkOrder) {
  ConversionBench bench;
  AddCustomer(bench);
  bench.Do(kTheirCustomer);
  bench.WillConfirm();
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_THAT(bench.desktop.boxes.front().text, testing::HasSubstr("\rfor Ann Burke."));
  EXPECT_THAT(bench.directory.Content("W0005001.tqa"), testing::HasSubstr("CustomerNumber=8\r\n"));
}

TEST(ReadAfresh, CommentsThatBothHaveWrittenAreAskedAbout) {
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    ConversionBench bench;
    bench.board.comments = "Waits here ";
    bench.Do(kTheirComments);
    bench.desktop.WillAnswer(answer);
    bench.WillConfirm();
    bench.WillEndQuietly();
    bench.Convert();
    EXPECT_EQ(bench.desktop.boxes.front().text,
              "Somebody else has changed this meanwhile:\r\rComments: \"He called.\" is stored, \"Waits here\" is "
              "yours\r\rDo you want to store yours?\rNo keeps what is stored.");
    EXPECT_EQ(bench.StoredComments(),
              std::string("Workorder # 005001 ") + (answer == Answer::Yes ? "Waits here" : "He called."));
  }
}

TEST(ReadAfresh, CommentsThatWereTypedAndNotSavedStayWhereThePersonGoesOn) {
  ConversionBench bench;
  bench.board.comments = "Waits here";
  bench.Do("update Estimates set Status = 1 where EstimateNumber = 1001");
  bench.desktop.WillAnswer({Answer::Yes, Answer::Yes});
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_EQ(bench.StoredComments(), "Workorder # 005001 Waits here");
}

// While this copy's person thinks.
TEST(ReadAfresh, AsksAgainWhereAnotherCopyHasConvertedItMeanwhile) {
  ConversionBench bench;
  bench.desktop.WillAnswer([&](const ui::Box&) {
    bench.Do("update Estimates set Comments = 'Workorder # 005000 Call first' where EstimateNumber = 1001");
    return Answer::Yes;
  });
  bench.desktop.WillAnswer(Answer::No);
  bench.Convert();
  EXPECT_THAT(bench.desktop.boxes.back().text, testing::HasSubstr("\rIt is Workorder # 005000."));
  EXPECT_EQ(bench.NextNumber(), 5001);
  EXPECT_FALSE(bench.IsThere("TQOPENWO.DAT"));
}

TEST(ReadAfresh, AsksForTheOtherCustomerWhomAnotherCopyHasSetMeanwhile) {
  ConversionBench bench;
  AddCustomer(bench);
  bench.GiveVehicle();
  bench.WillConfirm();
  bench.desktop.WillUse([&](ui::Form& form) {
    bench.Do(kTheirCustomer);
    test::Press(form, "F10");
  });
  bench.WillConfirm();
  bench.desktop.WillUse([](ui::Form& form) { test::Press(form, "F10"); });
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_THAT(bench.desktop.boxes[1].text, testing::HasSubstr("\rfor Ann Burke."));
  EXPECT_THAT(bench.directory.Content("W0005001.tqa"), testing::HasSubstr("CustomerNumber=8\r\n"));
}

// What was typed isn't stored over theirs, not even where it is a vehicle that no file knows.
TEST(ReadAfresh, TheVehicleThatAnotherCopySetWhileOneIsTypedStays) {
  ConversionBench bench;
  bench.GiveVehicle();
  bench.WillConfirm();
  bench.desktop.WillUse([&](ui::Form& form) {
    bench.Do("update Estimates set VehMake = 'Saab', VehModel = '900' where EstimateNumber = 1001");
    dynamic_cast<frmVehEdit&>(form).Mileage.DoType("12345");
    test::Press(form, "F10");
  });
  bench.desktop.WillAnswer([&](const ui::Box&) {
    EXPECT_EQ(bench.directory.Content("TQVEHICL.DAT"), "");
    EXPECT_EQ(bench.Ask("select VehMileage from Estimates where EstimateNumber = 1001"), "100");
    return Answer::Yes;
  });
  bench.desktop.WillUse([](ui::Form& form) {
    EXPECT_EQ(dynamic_cast<frmVehEdit&>(form).Make.Text(), "Saab");
    test::Press(form, "F10");
  });
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_EQ(bench.Ask("select VehMake from Estimates where EstimateNumber = 1001"), "Saab");
  EXPECT_THAT(bench.directory.Content("W0005001.tqa"), testing::HasSubstr("Saab"));
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
  bench.ExpectNothingDone("Workorder # 005000 Call first");
}

TEST(ReadAfresh, TheCommentsOfTheOtherCopyStayWhereThePersonGoesOn) {
  ConversionBench bench;
  bench.Do("update Estimates set Comments = 'Workorder # 005000 Call first' where EstimateNumber = 1001");
  bench.desktop.WillAnswer({Answer::Yes, Answer::Yes});
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_EQ(bench.StoredComments(), "Workorder # 005001 Workorder # 005000 Call first");
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
