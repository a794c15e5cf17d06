// Conversions of one estimate that ended in the middle, or still run, ahead of another one.
#include "HalfDoneBench.h"

namespace lantos {
namespace {

using test::HalfDoneBench;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using ui::Answer;

constexpr const char* kName = "The conversion of estimate # 001001 to work order # 005001";

// Behind the number and the stock, in front of the first tag.
struct Stopped : HalfDoneBench {
  Stopped() {
    test::FaultyCalls calls(directory.Path());
    calls.When([](const test::FileCall& call, std::size_t) {
      return call.name == "TQOPENWO.DAT" && call.forWriting ? test::ErrnoOf(call, test::Fault::ReadOnly) : 0;
    });
    WillConfirm();
    desktop.WillAnswer(Answer::Cancel);
    EXPECT_THAT(Failure(), HasSubstr("stopped here"));
    ExpectStock(4, 35);
    desktop.boxes.clear();
  }
};

TEST(SettledAhead, OneThatStoppedInThisVeryCopyIsAskedAbout) {
  Stopped bench;
  bench.desktop.WillAnswer(Answer::Cancel);
  EXPECT_EQ(bench.SettleOf(1001), HalfDone::Settled::StaysHalfDone);
  EXPECT_THAT(bench.desktop.boxes.at(0).text, testing::StartsWith(std::string(kName) + " was not finished."));
  EXPECT_THAT(bench.Journals(), SizeIs(1));
  EXPECT_EQ(bench.SettleOf(1002), HalfDone::Settled::NothingLeft) << "of no other estimate";
  bench.desktop.otherwise = HalfDoneBench::Agrees;
  EXPECT_EQ(bench.SettleOf(1001), HalfDone::Settled::Finished);
  bench.ExpectWhole();
}

TEST(SettledAhead, OneThatWasUndoneLeavesTheEstimateForANewOne) {
  Stopped bench;
  bench.desktop.WillAnswer({Answer::No, Answer::Ok});
  EXPECT_EQ(bench.SettleOf(1001), HalfDone::Settled::NothingLeft);
  bench.desktop.otherwise = HalfDoneBench::Agrees;
  bench.Convert();
  bench.ExpectWhole();
}

TEST(SettledAhead, OneThatAnotherCopyIsAtIsNamed) {
  HalfDoneBench bench;
  bench.environment.computerName = "FRONT DESK";
  ConversionJournal running(bench.environment, bench.desktop, 1001, 5001);
  running.TakesNumber();
  EXPECT_EQ(bench.SettleOf(1002), HalfDone::Settled::NothingLeft);
  bench.desktop.WillAnswer(Answer::Ok);
  EXPECT_EQ(bench.SettleOf(1001), HalfDone::Settled::StaysHalfDone);
  EXPECT_EQ(
      bench.desktop.boxes.at(0).text,
      "Estimate # 001001 is being converted to work order # 005001 by another copy of the program. It was begun on "
      "FRONT DESK at 2003-09-30T08:15:00.\rNothing was done here.");
  EXPECT_THAT(bench.Journals(), SizeIs(1));
}

// Both ask their questions at once; the second one comes to the number.
TEST(SettledAhead, OneThatAnotherCopyHasBegunBehindTheQuestionsStopsThisOne) {
  HalfDoneBench bench;
  std::optional<ConversionJournal> other;
  bench.desktop.WillAnswer([&](const ui::Box&) {
    other.emplace(bench.environment, bench.desktop, 1001, 5001);
    return Answer::Yes;
  });
  EXPECT_THAT(bench.Failure(),
              HasSubstr("Estimate # 001001 is being converted to work order # 005001 by another copy"));
  EXPECT_EQ(bench.NextNumber(), 5001);
  bench.ExpectUntouched();
}

// --- lines that were changed since

TEST(SettledAhead, LinesThatWereChangedSinceAreNotSoldUnlessTheConversionIsUndone) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQOPENWO.DAT");
  bench.Do("update Labors set LaborTotal = 9900 where EstimateNumber = 1001");
  bench.Finish();
  EXPECT_TRUE(
      bench.WasTold("The estimate was changed since its conversion was begun, and would be sold as it is now."
                    "\rUndo the conversion, and convert it anew."));
  EXPECT_FALSE(bench.IsThere("W0005001.tqa"));
  EXPECT_THAT(bench.Journals(), SizeIs(1));
  bench.Undo();
  bench.ExpectUntouched();
}

TEST(SettledAhead, LinesThatWereChangedBehindTheTagAreAskedAbout) {
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    HalfDoneBench bench;
    bench.KillConversionAtWriteOf("TQINCTAG.DAT");
    bench.Do("update Labors set LaborTotal = 9900 where EstimateNumber = 1001");
    bench.desktop.otherwise = [&](const ui::Box& box) {
      return box.text.starts_with("The estimate was changed since") ? answer : HalfDoneBench::Agrees(box);
    };
    bench.Settle();
    EXPECT_TRUE(bench.WasTold("The estimate was changed since its conversion was begun"));
    EXPECT_EQ(bench.IsThere("W0005001.tqa"), answer == Answer::Yes);
    EXPECT_THAT(bench.Journals(), SizeIs(answer == Answer::Yes ? 0 : 1));
  }
}

// Its text lists what was sold.
TEST(SettledAhead, APartThatCameBehindTheTextStaysInStock) {
  HalfDoneBench bench;
  bench.EndConversionBehindItsText();
  bench.AddPart("NEW-1", 9, 3);
  bench.Finish();
  EXPECT_EQ(bench.InStock("NEW-1"), 9);
  EXPECT_EQ(bench.Usages(), 2u);
  EXPECT_THAT(bench.Journals(), IsEmpty());
}

// The main application has closed it, and archived it perhaps, since somebody put it off.
TEST(SettledAhead, OneWhoseWorkOrderIsClosedByNowWritesNoneOfItsFilesAnew) {
  for (const bool isArchived : {true, false}) {
    SCOPED_TRACE(isArchived);
    HalfDoneBench bench;
    bench.EndConversionBehindItsText();
    bench.directory.Put("TQOPENWO.DAT", "");
    if (!isArchived) bench.directory.Put("TQINCTAG.DAT", "");
    std::filesystem::remove(bench.directory.Path() / "W0005001.tqa");
    const std::string archived = bench.directory.Content("TQINCTAG.DAT");
    bench.desktop.WillAnswer(Answer::No);
    bench.Settle();
    EXPECT_EQ(bench.desktop.boxes.back().buttons, ui::Buttons::YesNo) << "no way back";
    EXPECT_TRUE(bench.WasTold("\r- the work order was written; it may have been closed since"));
    EXPECT_THAT(bench.Journals(), SizeIs(1));
    bench.Finish();
    EXPECT_EQ(bench.directory.Content("TQOPENWO.DAT"), "");
    EXPECT_EQ(bench.directory.Content("TQINCTAG.DAT"), archived);
    EXPECT_FALSE(bench.IsThere("W0005001.tqa"));
    bench.ExpectStock(4, 35);
    EXPECT_EQ(bench.Usages(), 2u);
    EXPECT_EQ(bench.StoredComments(), "Workorder # 005001 Call first");
    EXPECT_THAT(bench.Journals(), IsEmpty());
  }
}

// --- what can't be finished

TEST(SettledAhead, OneOfADeletedEstimateIsLeftAsItIsOnceThePersonWantsIt) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQINCTAG.DAT");
  const std::string lines = bench.directory.Content(bench.Journals().front());
  bench.Do("delete from Estimates where EstimateNumber = 1001");
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    EXPECT_THAT(bench.Journals(), SizeIs(1));
    bench.desktop.WillAnswer({Answer::Yes, answer});
    bench.Settle();
    EXPECT_EQ(bench.desktop.boxes.back().text,
              std::string(kName) +
                  " can not be finished: its estimate or its customer is not on file.\r\rLeave it as it is, and don't "
                  "ask again?\rWhat was done of it goes to the log of this run, " +
                  bench.environment.log.Name() + ".");
  }
  EXPECT_THAT(bench.Journals(), IsEmpty());
  const std::string log = bench.directory.Content(bench.environment.log.Name());
  for (std::size_t at = 0; at < lines.size(); at = lines.find("\r\n", at) + 2) {
    EXPECT_THAT(log, HasSubstr(lines.substr(at, lines.find("\r\n", at) - at)));
  }
}

TEST(SettledAhead, OneOfACustomerWhoIsGoneIsLeftAsWell) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQINCTAG.DAT");
  bench.Do("update Estimates set CustomerNumber = 99 where EstimateNumber = 1001");
  bench.desktop.WillAnswer({Answer::Yes, Answer::Ok, Answer::Yes});
  bench.Settle();
  EXPECT_THAT(bench.desktop.boxes.back().text, HasSubstr("Leave it as it is, and don't ask again?"));
  EXPECT_THAT(bench.Journals(), IsEmpty());
}

// Its customer may be read the next time.
TEST(SettledAhead, OneOfACustomerWhoCanNotBeReadStaysHalfDone) {
  for (const char* held : {"TQCSTTAG.DAT", "TQCSTDAT.DAT"}) {
    SCOPED_TRACE(held);
    HalfDoneBench bench;
    bench.KillConversionAtWriteOf("TQINCTAG.DAT");
    const SharedFile other(bench.directory.Path() / held, Access::ReadWrite, Deny::All);
    bench.desktop.failuresExpected = true;
    bench.desktop.WillAnswer({Answer::Yes, Answer::Cancel});
    bench.Settle();
    EXPECT_FALSE(bench.WasTold("Leave it as it is"));
    EXPECT_FALSE(bench.WasTold("not on file"));
    EXPECT_THAT(bench.Journals(), SizeIs(1));
  }
}

TEST(SettledAhead, OneWhoseCustomersTagLeadsToAnotherStaysHalfDone) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQINCTAG.DAT");
  CustomerRecord another;
  another.Put(customer::Number, 8);
  bench.PutRecord("TQCSTDAT.DAT", another);
  bench.desktop.failuresExpected = true;
  bench.desktop.WillAnswer({Answer::Yes, Answer::Ok});
  bench.Settle();
  EXPECT_TRUE(bench.WasTold("leads to the record of customer 000008"));
  EXPECT_FALSE(bench.WasTold("not on file"));
  EXPECT_THAT(bench.Journals(), SizeIs(1));
}

}  // namespace
}  // namespace lantos
