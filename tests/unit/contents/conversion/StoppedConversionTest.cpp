// What is left, and what is said, when a step of a conversion fails.
#include "ConversionBench.h"
#include "support/FaultyCalls.h"

namespace lantos {
namespace {

using test::ConversionBench;
using test::Fault;
using test::FaultyCalls;
using test::kWhole;
using testing::EndsWith;
using testing::HasSubstr;
using ui::Answer;

const std::string kStopped = "\r\rThe conversion to " + kWhole + " stopped here. What was done before stays:";
const std::string kUnfinished = "\rThe next step was not finished.";

TEST(StoppedConversion, ByAHeldActiveTagFileHasMovedTheStock) {
  ConversionBench bench;
  bench.AddPart("PAD-9", 6, 2);
  bench.WillConfirm();
  FaultyCalls calls(bench.directory.Path());
  calls.When([](const test::FileCall& call, std::size_t) {
    return call.name == "TQOPENWO.DAT" && call.forWriting ? test::ErrnoOf(call, Fault::Held) : 0;
  });
  bench.desktop.WillAnswer(Answer::Cancel);
  EXPECT_THAT(bench.Failure(), EndsWith(kStopped +
                                        "\r- the number was taken\r- the usage of PAD-9 was noted"
                                        "\r- the stock of PAD-9 is now 4" +
                                        kUnfinished));
  EXPECT_EQ(bench.NextNumber(), 5002);
  EXPECT_EQ(bench.InStock("PAD-9"), 4);
  EXPECT_FALSE(bench.IsThere("TQINCTAG.DAT"));
  EXPECT_FALSE(bench.IsThere("W0005001.tqa"));
  EXPECT_EQ(bench.StoredComments(), "Call first");
}

TEST(StoppedConversion, ByAHeldTextHasBothTags) {
  ConversionBench bench;
  bench.WillConfirm();
  FaultyCalls calls(bench.directory.Path());
  calls.FailOn("W0005001.tqa", Fault::Held);
  bench.desktop.WillAnswer([](const ui::Box& box) {
    EXPECT_EQ(box.text, "W0005001.tqa is locked by another user.\rClick Retry to try again, or Cancel to stop here.");
    return Answer::Cancel;
  });
  EXPECT_THAT(bench.Failure(), EndsWith("\r- the tag in TQOPENWO.DAT was written"
                                        "\r- the tag in TQINCTAG.DAT was written" +
                                        kUnfinished));
  EXPECT_EQ(bench.directory.Content("TQOPENWO.DAT").size(), ActiveWoTag::kLength);
  EXPECT_EQ(bench.directory.Content("TQINCTAG.DAT").size(), ArchivedWoTag::kLength);
}

// Of the journal's lines the first four are the heading, the estimate, the number and what the estimate holds.
void FailJournalFrom(FaultyCalls& calls, std::size_t line) {
  calls.When([line, lines = std::size_t{0}](const test::FileCall& call, std::size_t) mutable {
    if (call.kind != test::CallKind::Write || !call.name.starts_with("AJ") || ++lines < line) return 0;
    return test::ErrnoOf(call, Fault::DiskFull);
  });
}

TEST(StoppedConversion, NotByTheLinesThatTheJournalHasForItsReaders) {
  ConversionBench bench;
  bench.WillConfirm();
  bench.WillEndQuietly();
  FaultyCalls calls(bench.directory.Path());
  FailJournalFrom(calls, 5);
  bench.Convert();
  EXPECT_EQ(bench.StoredComments(), "Workorder # 005001 Call first");
  EXPECT_TRUE(bench.IsThere("W0005001.tqa"));
}

TEST(StoppedConversion, ALineOfTheJournalIsAskedAboutWithItsCauseAndTriedAgain) {
  for (const std::size_t line : {3, 4, 5, 6}) {
    ConversionBench bench;
    bench.AddPart("PAD-9", 6, 2);
    bench.WillConfirm();
    FaultyCalls calls(bench.directory.Path());
    FailJournalFrom(calls, line);
    bench.desktop.WillAnswer([&calls](const ui::Box& box) {
      EXPECT_THAT(box.title, testing::StartsWith("AJ"));
      EXPECT_EQ(box.text,
                box.title + " can not be used: the disk is full.\rClick Retry to try again, or Cancel to stop here.");
      calls.Mend();
      return Answer::Retry;
    });
    bench.WillEndQuietly();
    bench.Convert();
    EXPECT_EQ(bench.InStock("PAD-9"), 4);
    EXPECT_TRUE(bench.IsThere("W0005001.tqa"));
  }
}

// Not as a part that is given up, which the conversion would do without.
TEST(StoppedConversion, ByTheJournalInFrontOfAPartLeavesItsStock) {
  ConversionBench bench;
  bench.AddPart("PAD-9", 6, 2);
  bench.WillConfirm();
  FaultyCalls calls(bench.directory.Path());
  FailJournalFrom(calls, 5);
  bench.desktop.WillAnswer(Answer::Cancel);
  EXPECT_EQ(bench.Failure(),
            "The journal of the conversion was not written." + kStopped + "\r- the number was taken" + kUnfinished);
  EXPECT_EQ(bench.InStock("PAD-9"), 6);
  EXPECT_FALSE(bench.IsThere("TQUSEHST.DAT"));
}

TEST(StoppedConversion, ByHundredJournalsThatWereLeftSaysSo) {
  ConversionBench bench;
  const std::string name = "AJ" + bench.environment.log.Name().substr(2, 6);
  bench.directory.Put(name + ".JNL", "");
  for (int n = 1; n < 100; ++n) bench.directory.Put(name + ".J" + std::to_string(100 + n).substr(1), "");
  bench.WillConfirm();
  EXPECT_EQ(bench.Failure(), "This copy has left 100 conversions half done, " + name +
                                 ".JNL and those behind it.\rFinish or undo some of them. Nothing was converted.");
  EXPECT_EQ(bench.NextNumber(), 5001);
}

TEST(StoppedConversion, ByHeldTagsAheadOfTheNumberHasDoneNothing) {
  ConversionBench bench;
  bench.AddPart("PAD-9", 6, 2);
  bench.WillConfirm();
  bench.desktop.WillAnswer(Answer::Cancel);
  const SharedFile held(bench.directory / "TQOPENWO.DAT", Access::ReadWrite, Deny::All);
  EXPECT_EQ(bench.Failure(), "The work orders in TQOPENWO.DAT could not be looked at.");
  EXPECT_EQ(bench.NextNumber(), 5001);
  EXPECT_EQ(bench.InStock("PAD-9"), 6);
}

TEST(StoppedConversion, RightBehindTheNumberTellsThatItIsTaken) {
  ConversionBench bench;
  bench.WillConfirm();
  FaultyCalls calls(bench.directory.Path());
  FailJournalFrom(calls, 3);
  bench.desktop.WillAnswer(Answer::Cancel);
  EXPECT_THAT(bench.Failure(), EndsWith(kStopped + "\r- the number was taken" + kUnfinished));
  EXPECT_EQ(bench.NextNumber(), 5002);
}

TEST(StoppedConversion, AnArchivedTagThatIsGivenUpIsLoggedAndTheRestIsDone) {
  ConversionBench bench;
  bench.WillConfirm();
  bench.desktop.WillAnswer(Answer::Cancel);
  bench.WillEndQuietly();
  const SharedFile held(bench.directory / "TQINCTAG.DAT", Access::ReadWrite, Deny::All);
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes[1].title, "WriteArchivedWoTag(TQINCTAG.DAT)");
  EXPECT_THAT(bench.directory.Content(bench.environment.log.Path().filename().string()),
              HasSubstr("Convert: work order 005001 has no tag in TQINCTAG.DAT\r\n"));
  EXPECT_TRUE(bench.IsThere("W0005001.tqa"));
  EXPECT_EQ(bench.board.comments, "Workorder # 005001 Call first");
}

TEST(StoppedConversion, APartThatIsGivenUpIsNamedAtTheEnd) {
  ConversionBench bench;
  bench.AddPart("PAD-9", 6, 2);
  bench.AddPart("BULB", 6, 1);
  bench.WillConfirm();
  SharedFile held(bench.directory / "TQINVTAG.DAT", Access::ReadWrite, Deny::All);
  bench.desktop.WillAnswer([&held](const ui::Box& box) {
    EXPECT_EQ(box.title, "ReadInventory");
    held.Close();
    return Answer::Cancel;
  });
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_EQ(bench.desktop.boxes[2].text,
            "Estimate # 001001 is now Workorder # 005001\r\r"
            "The stock of these parts could not be read and was not changed:\r\rBULB");
  EXPECT_EQ(bench.InStock("BULB"), 6);
  EXPECT_EQ(bench.InStock("PAD-9"), 4);
}

TEST(StoppedConversion, ByANoteTooManyHasMovedTheStockAndWrittenNoFile) {
  ConversionBench bench;
  bench.AddPart("PAD-9", 6, 2);
  bench.AddNotes(31);
  bench.WillConfirm();
  EXPECT_EQ(bench.Failure(), "Subscript out of range: a work order has room for 30 notes." + kStopped +
                                 "\r- the number was taken\r- the usage of PAD-9 was noted"
                                 "\r- the stock of PAD-9 is now 4" +
                                 kUnfinished);
  EXPECT_EQ(bench.InStock("PAD-9"), 4);
  EXPECT_FALSE(bench.IsThere("TQOPENWO.DAT"));
  EXPECT_FALSE(bench.IsThere("W0005001.tqa"));
}

TEST(StoppedConversion, ByAQuantityTooLargeLeavesTheStockOfThatPart) {
  ConversionBench bench;
  bench.AddPart("A-1", 6, 1);
  bench.AddPart("B-2", 6, 40000);
  bench.WillConfirm();
  EXPECT_EQ(bench.Failure(), "Overflow: the quantity 40000 is too large for a work order." + kStopped +
                                 "\r- the number was taken\r- the usage of A-1 was noted\r- the stock of A-1 is now 5" +
                                 kUnfinished);
  EXPECT_EQ(bench.InStock("B-2"), 6);
}

TEST(StoppedConversion, BehindTheTextWarnsOfConvertingOnceMore) {
  ConversionBench bench;
  bench.WillConfirm();
  bench.desktop.WillAnswer(Answer::Ok);
  bench.desktop.WillAnswer([&](const ui::Box&) -> Answer { throw std::runtime_error("The desktop is gone."); });
  const std::string text = bench.Failure();
  EXPECT_EQ(text.find("The desktop is gone." + kStopped), 0u);
  EXPECT_THAT(text, EndsWith("\r- the comments of the estimate name the work order" + kUnfinished +
                             "\r\rThe work order is there. Don't convert the estimate once more."));
}

TEST(StoppedConversion, AheadOfEveryStepIsTheErrorItself) {
  ConversionBench bench;
  bench.GiveVehicle();
  bench.WillConfirm();
  bench.desktop.WillUse([](ui::Form&) { throw std::out_of_range("No such row."); });
  EXPECT_THROW(bench.Convert(), std::out_of_range);
  bench.ExpectNothingDone();
}

}  // namespace
}  // namespace lantos
