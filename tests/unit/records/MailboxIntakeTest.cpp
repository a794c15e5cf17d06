// What the other copies have told of is taken into the list of parts.
#include "BroadcastFixture.h"
#include "records/inventory/MailboxIntake.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using ui::Answer;

class MailboxIntakeTest : public BroadcastTest {
 protected:
  MailboxIntakeTest() {
    PutParts({{"A", "AXLE", {1, 2, 3, 4}, 10}, {"B", "BELT", {5, 6, 7, 8}, 20}, {"C", "CLAMP", {}, 30}});
    intake.onChanged = [this](Inventory::PartIndex index, const InventoryTag& before) {
      changed.push_back(index);
      stockBefore.push_back(before.Get(inventorytag::InStock));
    };
    intake.onNew = [this](Inventory::PartIndex index) { added.push_back(index); };
  }

  Mailbox::Left Take() { return intake.ProcessInventoryUpdates(); }
  void Receive(const std::string& bytes) {
    Put(kMine, bytes);
    EXPECT_EQ(Take(), Mailbox::Left::Nothing);
  }
  // The tag file as another copy has left it.
  void WriteTag(std::size_t record, const PartImage& part) {
    std::string tags = BytesOf(kInventoryTagFile);
    tags.replace(128 * record, 128, TagImage(part, static_cast<std::int32_t>(344 * record)).Bytes());
    Put(kInventoryTagFile, tags);
  }
  std::int16_t StockOf(std::string_view number) const { return inventory.PartInStock(number); }
  static std::string AxleWith(std::int16_t stock) { return TagImage({"A", "AXLE", {1, 2, 3, 4}, stock}, 0); }
  static std::string New(const std::string& number, std::int32_t master = 5000) {
    return TagImage({number, "NEW " + number, {}, 1}, master);
  }

  FailingMailbox mailbox{world};
  MailboxIntake intake{world, desktop, inventory, mailbox};
  std::vector<Inventory::PartIndex> changed, added;
  std::vector<std::int16_t> stockBefore;
};

TEST_F(MailboxIntakeTest, AsManyRecordsAsThereAreAreTakenInAndTheFileIsEmptyThen) {
  Receive(AxleWith(7) + std::string(TagImage({"B", "BELTS", {5, 6, 7, 9}, 19}, 344)) + AxleWith(6));
  EXPECT_EQ(StockOf("A"), 6);
  EXPECT_EQ(inventory.PartDescription("B"), "BELTS");
  EXPECT_EQ(inventory.PartPrices("B").byLevel[3], 9);
  EXPECT_THAT(changed, ElementsAre(0, 1, 0));
  EXPECT_THAT(stockBefore, ElementsAre(10, 20, 7));
  EXPECT_TRUE(IsThere(kMine));
  EXPECT_EQ(BytesOf(kMine), "");
}

TEST_F(MailboxIntakeTest, ANumberThatTheListHasNotIsANewPartWhosePlaceIsNotKnown) {
  Receive(New("NEW-1"));
  const Inventory::PartIndex index = inventory.FindPart("NEW-1");
  EXPECT_EQ(index, 3);
  EXPECT_EQ(inventory.Location(index), kNoLink);
  EXPECT_EQ(inventory.Count(), 4);
  EXPECT_THAT(added, ElementsAre(3));
  EXPECT_THAT(changed, IsEmpty());
}

TEST_F(MailboxIntakeTest, APartThatComesTwiceAndIsNotInTheTagFileIsWhatWasToldLast) {
  Receive(New("NEW-1") + std::string(TagImage({"NEW-1", "LATER", {}, 2}, 5000)));
  EXPECT_EQ(inventory.Count(), 4);
  EXPECT_EQ(inventory.PartDescription("NEW-1"), "LATER");
}

TEST_F(MailboxIntakeTest, NoWholeRecordIsNothingAndTheFileStays) {
  Receive(AxleWith(7).substr(0, 127));
  EXPECT_EQ(StockOf("A"), 10);
  EXPECT_EQ(BytesOf(kMine).size(), 127U);
  Receive("");
  EXPECT_THAT(changed, IsEmpty());
}

TEST_F(MailboxIntakeTest, OfABrokenLengthTheWholeRecordsCountAndTheRestGoes) {
  Receive(AxleWith(7) + New("TORN").substr(0, 60));
  EXPECT_EQ(StockOf("A"), 7);
  EXPECT_EQ(inventory.Count(), 3);
  EXPECT_EQ(BytesOf(kMine), "");
}

TEST_F(MailboxIntakeTest, ABlankRecordIsNoPart) {
  Receive(std::string(128, '\0') + std::string(TagImage({"  "}, 999)) + AxleWith(7));
  EXPECT_EQ(inventory.Count(), 3);
  EXPECT_THAT(added, IsEmpty());
  EXPECT_EQ(StockOf("A"), 7);
}

TEST_F(MailboxIntakeTest, AFileThatSomebodyWritesIsLeftForTheNextTick) {
  Put(kMine, AxleWith(7));
  {
    const SharedFile writer = HeldByAnother(kMine, Access::Write, Deny::All);
    EXPECT_EQ(Take(), Mailbox::Left::Nothing);
    EXPECT_EQ(StockOf("A"), 10);
  }
  Take();
  EXPECT_EQ(StockOf("A"), 7);
  EXPECT_THAT(patience.waits, IsEmpty());
}

TEST_F(MailboxIntakeTest, WhileItIsReadNobodyCanAppend) {
  Put(kMine, AxleWith(7));
  bool looked = false;
  intake.onChanged = [&](Inventory::PartIndex, const InventoryTag&) {
    EXPECT_THROW(HeldByAnother(kMine, Access::Write, Deny::None), FileError);
    EXPECT_NO_THROW(HeldByAnother(kMine, Access::Read, Deny::None));
    EXPECT_EQ(BytesOf(kMine).size(), 128U) << "it is emptied behind the last record";
    looked = true;
  };
  Take();
  EXPECT_TRUE(looked);
  EXPECT_NO_THROW(HeldByAnother(kMine));
  EXPECT_NO_THROW(HeldByAnother(kInventoryTagFile));
}

TEST_F(MailboxIntakeTest, AReadingThatFailsIsTriedThreeTimesASecondApart) {
  mailbox.failures = 2;
  Receive(AxleWith(7));
  EXPECT_EQ(StockOf("A"), 7);
  EXPECT_EQ(patience.Now().millisecondOfDay % 60'000, 2000);
  mailbox.failures = 3;
  Receive(AxleWith(6));
  EXPECT_EQ(StockOf("A"), 7);
  EXPECT_EQ(BytesOf(kMine), AxleWith(6)) << "the file stays";
  EXPECT_NO_THROW(HeldByAnother(kMine));
  Take();
  EXPECT_EQ(StockOf("A"), 6);
}

TEST_F(MailboxIntakeTest, ATagThatCanNotBeReadLeavesTheFileAndIsAskedAboutAgain) {
  Receive(AxleWith(9));
  Put(kMine, AxleWith(8) + New("NEW-1"));
  const SharedFile held = HeldByAnother(kInventoryTagFile);
  desktop.WillAnswer([&](const ui::Box& box) {
    ExpectBox(box, "ReadInventoryTag", "Can not read tags record for A\rError 70: Permission denied",
              ui::Buttons::RetryCancel, ui::Icon::Exclamation);
    EXPECT_EQ(patience.waits, std::vector<std::int64_t>(10, 10)) << "a moment goes by without a box";
    return Answer::Cancel;
  });
  EXPECT_EQ(Take(), Mailbox::Left::Nothing);
  EXPECT_EQ(StockOf("A"), 9);
  EXPECT_EQ(inventory.Count(), 3) << "nothing behind it is taken in";
  EXPECT_EQ(BytesOf(kMine), AxleWith(8) + New("NEW-1"));
  EXPECT_NO_THROW(HeldByAnother(kMine));
}

TEST_F(MailboxIntakeTest, RetryGoesOnWithThatTag) {
  Receive(AxleWith(9));
  Put(kMine, AxleWith(8));
  std::optional<SharedFile> held = HeldByAnother(kInventoryTagFile);
  desktop.WillAnswer([&](const ui::Box&) {
    held.reset();
    return Answer::Retry;
  });
  Take();
  EXPECT_EQ(StockOf("A"), 8);
  EXPECT_EQ(BytesOf(kMine), "");
}

TEST_F(MailboxIntakeTest, AWriteThatTakesAMomentIsNotAskedAbout) {
  Receive(AxleWith(9));
  Put(kMine, AxleWith(8));
  std::optional<SharedFile> held = HeldByAnother(kInventoryTagFile);
  patience.onWait = [&] { held.reset(); };
  Take();
  EXPECT_EQ(StockOf("A"), 8);
}

TEST_F(MailboxIntakeTest, ThePartThatTheScreensWorkOnStaysAsItIs) {
  const FileLink offset = Read("A");
  inventory.CurrentInv.Put(inventory::Comment, "being typed");
  const InventoryRecord current = inventory.CurrentInv;
  const InventoryRecord original = inventory.OriginalInv;
  const InventoryTag tag = inventory.CurrentInvTag;
  WriteTag(0, {"A", "AXLE", {1, 2, 3, 4}, 7});
  Receive(AxleWith(7) + New("NEW-1"));
  EXPECT_EQ(StockOf("A"), 7);
  EXPECT_EQ(inventory.CurrentInv, current);
  EXPECT_EQ(inventory.OriginalInv, original);
  EXPECT_EQ(inventory.CurrentInvTag, tag);
  EXPECT_EQ(offset, 0);
}

TEST_F(MailboxIntakeTest, WordOfAnEarlierChangeBehindALaterOneChangesNothing) {
  WriteTag(0, {"A", "AXLE", {1, 2, 3, 4}, 8});
  Receive(AxleWith(8));
  Receive(AxleWith(9));  // of another copy, which had written 9 ahead of the 8
  EXPECT_EQ(StockOf("A"), 8);
}

TEST_F(MailboxIntakeTest, WordOfAnEarlierChangeDoesNotUndoThisCopysOwn) {
  Read("A");
  inventory.CurrentInvTag.Put(inventorytag::InStock, 5);
  inventory.WriteInventory(0, 0, Inventory::Core::Stays, Inventory::Broadcast::Yes);
  intake.Follow(inventory.CurrentInvTag);
  Receive(AxleWith(9));
  EXPECT_EQ(StockOf("A"), 5);
}

TEST_F(MailboxIntakeTest, AFileThatHasMovedOnMeanwhileIsBelieved) {
  WriteTag(0, {"A", "AXLE", {1, 2, 3, 4}, 7});
  Receive(AxleWith(9));
  EXPECT_EQ(StockOf("A"), 7);
}

TEST_F(MailboxIntakeTest, AWordThatTheFileBelongsToLaterIsLookedAtOnceMore) {
  WriteTag(0, {"A", "AXLE", {1, 2, 3, 4}, 8});
  Receive(AxleWith(8));
  Receive(AxleWith(9));  // of a program that writes the file after it has told of it
  EXPECT_EQ(StockOf("A"), 8);
  WriteTag(0, {"A", "AXLE", {1, 2, 3, 4}, 9});
  PassSeconds(60);
  intake.ReadOverdue();
  EXPECT_EQ(StockOf("A"), 9);
}

TEST_F(MailboxIntakeTest, WordOfAPartThatAnotherCopyHasDeletedSinceDoesNotBringItBack) {
  for (const bool placeIsKnown : {false, true}) {
    LoadList();
    if (placeIsKnown) inventory.SetLocation(1, 128);
    WriteTag(1, {"", "BELT", {5, 6, 7, 8}, 20});
    Receive(TagImage({"B", "BELT", {5, 6, 7, 8}, 21}, 344));
    EXPECT_EQ(inventory.FindPart("B"), Inventory::kNoPart);
    EXPECT_EQ(inventory.Count(), 3);
    WriteTag(1, {"B", "BELT", {5, 6, 7, 8}, 20});
  }
}

TEST_F(MailboxIntakeTest, WhatTheFileDoesNotBearOutForAMinuteIsReadFromThere) {
  Receive(AxleWith(9));
  EXPECT_EQ(StockOf("A"), 9);
  PassSeconds(59);
  intake.ReadOverdue();
  EXPECT_EQ(StockOf("A"), 9);
  PassSeconds(1);
  changed.clear();
  {
    const SharedFile held = HeldByAnother(kInventoryTagFile);
    intake.ReadOverdue();
    EXPECT_THAT(changed, IsEmpty()) << "without a word, at the next tick";
  }
  intake.ReadOverdue();
  EXPECT_EQ(StockOf("A"), 10);
  EXPECT_THAT(changed, ElementsAre(0));
  intake.ReadOverdue();
  EXPECT_EQ(changed.size(), 1U);
}

TEST_F(MailboxIntakeTest, APartThatGotAnotherNumberKeepsItsRow) {
  WriteTag(1, {"B-2", "BELT", {5, 6, 7, 8}, 20});
  Receive(TagImage({"B-2", "BELT", {5, 6, 7, 8}, 20}, 344));
  EXPECT_EQ(inventory.FindPart("B-2"), 1);
  EXPECT_EQ(inventory.FindPart("B"), Inventory::kNoPart);
  EXPECT_EQ(inventory.Count(), 3);
  EXPECT_THAT(changed, ElementsAre(1));
  EXPECT_EQ(inventory.Location(1), 128);
}

TEST_F(MailboxIntakeTest, WordOfTheNumberThatAPartHadBeforeIsNoNewPart) {
  WriteTag(1, {"B-2", "BELT", {5, 6, 7, 8}, 20});
  Receive(TagImage({"B-2", "BELT", {5, 6, 7, 8}, 20}, 344));
  Receive(TagImage({"B", "BELT", {5, 6, 7, 8}, 21}, 344));
  EXPECT_EQ(inventory.Count(), 3);
  EXPECT_EQ(StockOf("B-2"), 20);
}

TEST_F(MailboxIntakeTest, WordOfAPartThatThisCopyHasDeletedIsNoNewPart) {
  const FileLink offset = Read("B");
  inventory.CurrentInv.Put(inventory::Deleted, 1);
  inventory.CurrentInvTag.Put(inventorytag::StockNumber, "");
  inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::Yes);
  intake.Follow(inventory.CurrentInvTag);
  Receive(TagImage({"B", "BELT", {5, 6, 7, 8}, 21}, 344));
  EXPECT_EQ(inventory.Count(), 3);
  EXPECT_EQ(inventory.FindPart("B"), Inventory::kNoPart);
}

TEST_F(MailboxIntakeTest, APartThatWasDeletedIsBlankInTheListToo) {
  for (const bool placeIsKnown : {false, true}) {
    LoadList();
    if (placeIsKnown) inventory.SetLocation(1, 128);
    WriteTag(1, {"", "BELT", {5, 6, 7, 8}, 20});
    Receive(TagImage({"", "BELT", {5, 6, 7, 8}, 20}, 344));
    EXPECT_EQ(inventory.FindPart("B"), Inventory::kNoPart);
    EXPECT_EQ(inventory.Tag(1).Get(inventorytag::StockNumber), "");
    EXPECT_EQ(inventory.Count(), 3);
    EXPECT_THAT(added, IsEmpty());
    WriteTag(1, {"B", "BELT", {5, 6, 7, 8}, 20});
  }
}

TEST_F(MailboxIntakeTest, ARenumberedPartThatCanNotBeReadIsNotTakenForANewOne) {
  WriteTag(1, {"B-2", "BELT", {5, 6, 7, 8}, 20});
  inventory.SetLocation(1, 128);
  Put(kMine, TagImage({"B-2", "BELT", {5, 6, 7, 8}, 20}, 344));
  std::optional<SharedFile> held = HeldByAnother(kInventoryTagFile);
  desktop.WillAnswer(Answer::Cancel);
  Take();
  EXPECT_EQ(inventory.Count(), 3);
  held.reset();
  Take();
  EXPECT_EQ(inventory.FindPart("B-2"), 1);
}

TEST_F(MailboxIntakeTest, ANewPartWithTheMasterOfAnotherIsStillANewPart) {
  Receive(New("NEW-1", 344));
  EXPECT_EQ(inventory.FindPart("NEW-1"), 3);
  EXPECT_EQ(inventory.FindPart("B"), 1);
}

TEST_F(MailboxIntakeTest, APlaceThatHasAnotherNumberNowIsSoughtAnew) {
  inventory.SetLocation(0, 256);  // where C is
  WriteTag(0, {"A", "AXLE", {1, 2, 3, 4}, 7});
  Receive(AxleWith(7));
  EXPECT_EQ(StockOf("A"), 7);
  EXPECT_EQ(inventory.Location(0), 0);
}

TEST_F(MailboxIntakeTest, WhatComesBetweenTheReadingAndTheEmptyingIsNotLost) {
  Put(kMine, AxleWith(7));
  bool appended = false;
  // The run log is told of the closing; the other copy is quicker than the emptying.
  class Appending : public FailingMailbox {
   public:
    using FailingMailbox::FailingMailbox;
    std::function<void()> beforeFinish;

   protected:
    void Read(const SharedFile& file, std::uint64_t offset, std::span<InventoryTag> records) const override {
      FailingMailbox::Read(file, offset, records);
      if (beforeFinish) beforeFinish();
    }
  } quick(world);
  MailboxIntake taking(world, desktop, inventory, quick);
  // Past every claim, as a program on another machine's cache might.
  quick.beforeFinish = [&] {
    if (appended) return;
    appended = true;
    Put(kMine, AxleWith(7) + AxleWith(6));
  };
  EXPECT_EQ(taking.ProcessInventoryUpdates(), Mailbox::Left::More);
  EXPECT_EQ(StockOf("A"), 7);
  EXPECT_EQ(BytesOf(kMine).size(), 256U);
  changed.clear();
  EXPECT_EQ(taking.ProcessInventoryUpdates(), Mailbox::Left::Nothing);
  EXPECT_EQ(StockOf("A"), 6);
  EXPECT_EQ(BytesOf(kMine), "");
}

TEST_F(MailboxIntakeTest, AFileThatCanNotBeEmptiedIsTakenInOnceMore) {
  Put(kMine, AxleWith(7));
  std::optional<SharedFile> reader = HeldByAnother(kMine, Access::Read, Deny::None);
  Take();
  EXPECT_EQ(StockOf("A"), 7);
  EXPECT_EQ(BytesOf(kMine), AxleWith(7));
  reader.reset();
  Take();
  EXPECT_EQ(StockOf("A"), 7);
  EXPECT_EQ(BytesOf(kMine), "");
}

TEST_F(MailboxIntakeTest, AMailboxThatIsGoneIsNothing) {
  std::filesystem::remove(PathOf(kMine));
  EXPECT_EQ(Take(), Mailbox::Left::Nothing);
  EXPECT_FALSE(IsThere(kMine));
}

TEST_F(MailboxIntakeTest, WhereTheListHasEachTagOfTheFileNothingIsSought) {
  WriteTag(1, {"B", "BELT", {5, 6, 7, 8}, 19});
  Receive(std::string(TagImage({"B", "BELT", {5, 6, 7, 8}, 19}, 344)) + std::string(TagImage({"C", "CLAMP"}, 688)));
  EXPECT_EQ(StockOf("B"), 19);
  EXPECT_EQ(inventory.Location(1), kNoLink);
}

TEST_F(MailboxIntakeTest, ThePlacesOfManyPartsAreFoundInOneWalk) {
  WriteTag(1, {"B", "BELT", {5, 6, 7, 8}, 19});
  Put(kInventoryTagFile, std::string(128, '\0') + BytesOf(kInventoryTagFile));  // a blank tag isn't listed
  Receive(std::string(TagImage({"B", "BELT", {5, 6, 7, 8}, 19}, 344)) + std::string(TagImage({"C", "CLAMP"}, 688)));
  EXPECT_EQ(StockOf("B"), 19);
  EXPECT_EQ(inventory.Location(1), 256);
  EXPECT_EQ(inventory.Location(2), 384);
  EXPECT_EQ(inventory.Location(0), kNoLink) << "the walk ends where all are found";
}

}  // namespace
}  // namespace lantos::test
