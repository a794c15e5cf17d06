// What is said and done about conversions that ended in the middle.
#include "HalfDoneBench.h"
#include "workorders/StockMovement.h"

namespace lantos {
namespace {

using test::HalfDoneBench;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using ui::Answer;

constexpr const char* kName = "The conversion of estimate # 001001 to work order # 005001";

TEST(HalfDone, IsToldWithWhatIsDoneAndWaitsForWhoDecidesLater) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQOPENWO.DAT");
  bench.desktop.WillAnswer(Answer::Cancel);
  bench.Settle();
  EXPECT_EQ(bench.desktop.boxes.back().text,
            std::string(kName) +
                " was not finished.\rIt was begun at 2003-09-30T08:15:00. What was done:\r- the number was taken"
                "\r- the use of OIL-1 was noted\r- the use of PAD-9 was noted"
                "\r\rClick Yes to finish it, No to undo it, or Cancel to decide later.");
  EXPECT_THAT(bench.Journals(), SizeIs(1));
  bench.ExpectStock(4, 35);
}

TEST(HalfDone, WithATagIsOnlyFinished) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQINCTAG.DAT");
  bench.desktop.WillAnswer(Answer::No);
  bench.Settle();
  EXPECT_EQ(bench.desktop.boxes.back().buttons, ui::Buttons::YesNo);
  EXPECT_THAT(bench.desktop.boxes.back().text, HasSubstr("\r- the tag in TQOPENWO.DAT was written\r\rClick Yes"));
  EXPECT_THAT(bench.Journals(), SizeIs(1));
  bench.Finish();
  bench.ExpectWhole();
}

TEST(HalfDone, OfACopyThatRunsIsLeftAlone) {
  HalfDoneBench bench;
  const ConversionJournal running(bench.environment, bench.desktop, 1001, 5001);
  bench.Settle();
  EXPECT_THAT(bench.desktop.boxes, IsEmpty());
  EXPECT_THAT(bench.Journals(), SizeIs(1));
}

TEST(HalfDone, KeepsItsNumberFromThoseWhoCameLater) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQOPENWO.DAT");
  EXPECT_EQ(bench.records.system.TakeNumber(sysrec::last_workorder_number), 5002);
  bench.Undo();
  EXPECT_EQ(bench.desktop.boxes.back().text, std::string(kName) + " was undone.\rNumber 005001 stays unused.");
  EXPECT_EQ(bench.NextNumber(), 5003);
  bench.ExpectUntouched();
}

// Of OIL-1, the first part, number 5002 sells one, whose usage is behind ours.
void SellOne(HalfDoneBench& bench) {
  Workorder order;
  order.WorkorderNumber = 5002;
  StockMovement stock(bench.environment, bench.desktop, bench.records, [](const std::string&) {});
  EXPECT_TRUE(stock.TakeOut({"OIL-1", 1, 100, 200}, order));
}

TEST(HalfDone, KeepsWhatOthersHaveSoldMeanwhile) {
  for (const char* at : {"TQUSEHST.DAT", "TQINVTAG.DAT", "TQINVENT.DAT", "TQOPENWO.DAT"}) {
    for (const bool finishes : {true, false}) {
      SCOPED_TRACE(std::string(at) + (finishes ? " finished" : " undone"));
      HalfDoneBench bench;
      bench.KillConversionAtWriteOf(at);
      SellOne(bench);
      finishes ? bench.Finish() : bench.Undo();
      bench.ExpectStock(finishes ? 4 : 6, finishes ? 34 : 39);
      EXPECT_TRUE(bench.Journals().empty());
      EXPECT_FALSE(bench.WasTold("Count"));
    }
  }
}

TEST(HalfDone, WhoseStockNobodyCanTellIsToBeCounted) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQINVENT.DAT");
  FileLink offset = kNoLink;
  ASSERT_TRUE(bench.records.inventory.ReadInventory(offset, bench.records.inventory.FindPart("OIL-1")));
  bench.records.inventory.CurrentInvTag.Put(inventorytag::InStock, 17);
  bench.records.inventory.CurrentInv.Put(inventory::QtyInStock, 17);
  bench.records.inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::No);
  bench.Undo();
  EXPECT_TRUE(bench.WasTold("Count the stock of these parts, which was changed meanwhile:\r\rOIL-1"));
  EXPECT_EQ(bench.StockInTag(1), 17);
  EXPECT_EQ(bench.Usages(), 0u);
}

TEST(HalfDone, OfAnEstimateThatHasOtherPartsByNowIsOnlyUndone) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQOPENWO.DAT");
  bench.Do("delete from Parts where PartNumber = 'OIL-1'");
  bench.Finish();
  EXPECT_TRUE(
      bench.WasTold("The parts of this estimate were changed since: OIL-1 was taken out of stock as it was then."));
  EXPECT_THAT(bench.Journals(), SizeIs(1));
  bench.Undo();
  bench.ExpectUntouched();
}

// The journal is ahead of the stock: this part stands in it, and never left.
TEST(HalfDone, DoesNotSayThatAPartWasTakenWhichNeverLeftTheStock) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQUSEHST.DAT");
  bench.ExpectStock(6, 40);
  bench.Do("delete from Parts");
  bench.Finish();
  EXPECT_FALSE(bench.WasTold("was taken out of stock as it was then"));
  EXPECT_TRUE(
      bench.WasTold("The estimate was changed since its conversion was begun, and would be sold as it is now."));
  bench.Undo();
  bench.ExpectUntouched();
}

TEST(HalfDone, WhoseTextWasWorkedOnKeepsIt) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQINCTAG.DAT");
  const std::string other("[Workorder]\r\nWorkorderNumber=005001\r\nStatus=CLOSED\r\n\0", 54);
  bench.directory.Put("W0005001.tqa", other);
  bench.Finish();
  EXPECT_EQ(bench.directory.Content("W0005001.tqa"), other);
  EXPECT_EQ(bench.Tags("TQINCTAG.DAT", ArchivedWoTag::kLength), 1u);
}

TEST(HalfDone, OfADamagedJournalIsToldAndStaysUntilSomebodyDeletesIt) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQOPENWO.DAT");
  const std::string name = bench.Journals().front();
  std::string content = bench.directory.Content(name);
  content[content.find("part 2") + 5] = '9';
  bench.directory.Put(name, content);
  bench.desktop.WillAnswer({Answer::No, Answer::Yes});
  bench.Settle();
  EXPECT_THAT(bench.desktop.boxes.back().text, testing::StartsWith(name + ", the journal of a conversion that was not "
                                                                          "finished, is damaged."));
  EXPECT_THAT(bench.Journals(), SizeIs(1));
  bench.Settle();
  EXPECT_THAT(bench.Journals(), IsEmpty());
}

TEST(HalfDone, IsNothingWhereTheConversionCameToItsEnd) {
  HalfDoneBench bench;
  bench.desktop.otherwise = HalfDoneBench::Agrees;
  bench.Convert();
  EXPECT_THAT(bench.Journals(), IsEmpty());
  bench.ExpectWhole();
}

TEST(HalfDone, StaysWhereAnErrorStoppedIt) {
  HalfDoneBench bench;
  bench.AddNotes(31);
  bench.WillConfirm();
  EXPECT_THAT(bench.Failure(), HasSubstr("Subscript out of range"));
  EXPECT_THAT(bench.Journals(), SizeIs(1));
  bench.Undo();
  bench.ExpectUntouched();
  EXPECT_EQ(bench.NextNumber(), 5001);
}

// The person gives up the notes of the usage; then another program has the first tag's file.
void GiveUpUsageAndTag(HalfDoneBench& bench) {
  bench.WillConfirm();
  test::FaultyCalls calls(bench.directory.Path());
  calls.When([](const test::FileCall& call, std::size_t) {
    if (call.name == "TQOPENWO.DAT" && call.forWriting) return test::ErrnoOf(call, test::Fault::ReadOnly);
    const bool opensUsage = call.name == "TQUSEHST.DAT" && call.kind == test::CallKind::Open;
    return opensUsage ? test::ErrnoOf(call, test::Fault::ReadOnly) : 0;
  });
  bench.desktop.WillAnswer({Answer::Cancel, Answer::Cancel, Answer::Cancel});
  EXPECT_THAT(bench.Failure(), HasSubstr("the stock of PAD-9 is now 4"));
  bench.ExpectStock(4, 35);
}

TEST(HalfDone, WhoseUsageWasGivenUpLowersTheStockOnce) {
  HalfDoneBench bench;
  GiveUpUsageAndTag(bench);
  bench.Finish();
  EXPECT_TRUE(bench.WasTold("\r- the use of PAD-9 was not noted"));
  bench.ExpectStock(4, 35);
  EXPECT_EQ(bench.Usages(), 0u);
  EXPECT_TRUE(bench.IsThere("W0005001.tqa"));
  EXPECT_THAT(bench.Journals(), IsEmpty());
}

TEST(HalfDone, WhoseUsageWasGivenUpPutsTheStockBack) {
  HalfDoneBench bench;
  GiveUpUsageAndTag(bench);
  bench.Undo();
  bench.ExpectUntouched();
  EXPECT_EQ(bench.NextNumber(), 5001);
  EXPECT_FALSE(bench.WasTold("Count"));
}

TEST(HalfDone, WhoseUsageWasGivenUpAndWhoseStockNobodyCanTellIsToBeCounted) {
  HalfDoneBench bench;
  GiveUpUsageAndTag(bench);
  FileLink offset = kNoLink;
  ASSERT_TRUE(bench.records.inventory.ReadInventory(offset, bench.records.inventory.FindPart("OIL-1")));
  bench.records.inventory.CurrentInvTag.Put(inventorytag::InStock, 17);
  bench.records.inventory.CurrentInv.Put(inventory::QtyInStock, 17);
  bench.records.inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::No);
  bench.Undo();
  EXPECT_TRUE(bench.WasTold("Count the stock of these parts, which was changed meanwhile:\r\rOIL-1"));
  bench.ExpectStock(6, 17);
}

// Half a record that another program has left at the end.
TEST(HalfDone, IsFoundBehindHalfAUsage) {
  for (const bool finishes : {true, false}) {
    for (const char* at : {"TQINVTAG.DAT", "TQOPENWO.DAT"}) {
      SCOPED_TRACE(std::string(at) + (finishes ? " finished" : " undone"));
      HalfDoneBench bench;
      bench.directory.Put("TQUSEHST.DAT", std::string(30, '\0'));
      bench.KillConversionAtWriteOf(at);
      finishes ? bench.Finish() : bench.Undo();
      bench.ExpectStock(finishes ? 4 : 6, finishes ? 35 : 40);
      EXPECT_EQ(bench.directory.Content("TQUSEHST.DAT").size(), 30 + (finishes ? 2 : 0) * UsageRecord::kLength);
    }
  }
}

TEST(HalfDone, WithoutAPlaceForItsJournalBeginsNothing) {
  HalfDoneBench bench;
  bench.WillConfirm();
  test::FaultyCalls calls(bench.directory.Path());
  calls.When([](const test::FileCall& call, std::size_t) {
    return call.name.starts_with("AJ") ? test::ErrnoOf(call, test::Fault::DiskFull) : 0;
  });
  EXPECT_THROW(bench.Convert(), WordedError);
  calls.Mend();
  EXPECT_EQ(bench.NextNumber(), 5001);
  bench.ExpectUntouched();
}

TEST(HalfDone, WhoseJournalCanNotBeLockedSaysSo) {
  HalfDoneBench bench;
  bench.desktop.otherwise = HalfDoneBench::Agrees;
  test::FaultyCalls calls(bench.directory.Path());
  calls.When([](const test::FileCall& call, std::size_t) {
    return call.kind == test::CallKind::Lock && call.name.starts_with(kJournalPrefix) ? ENOLCK : 0;
  });
  try {
    bench.Convert();
    ADD_FAILURE() << "converted without a journal";
  } catch (const std::exception& error) {
    EXPECT_THAT(WordsFor(error), HasSubstr("lies where files can't be locked"));
    EXPECT_THAT(WordsFor(error), testing::EndsWith("\rNothing was converted."));
  }
  bench.ExpectUntouched();
}

}  // namespace
}  // namespace lantos
