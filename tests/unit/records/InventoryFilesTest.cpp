// Tag and master of a part, read and written.
#include "InventoryFixture.h"
#include "records/GivenUp.h"
#include "records/inventory/Inventory.h"
#include "records/modSystem.h"
#include "support/NoRoomBeyond.h"

namespace lantos::test {
namespace {

class InventoryFiles : public InventoryTest {};

TEST_F(InventoryFiles, ReadingTakesTheOffsetFromTheTagAndSetsIt) {
  PutParts({{"A"}, {"PF47", "OIL FILTER", {310, 420, 500, 699}, 12}});
  FileLink offset = kNoLink;
  ASSERT_TRUE(inventory.ReadInventory(offset, 1));
  EXPECT_EQ(offset, 344);
  EXPECT_EQ(inventory.CurrentInvTag.Get(inventorytag::StockNumber), "PF47");
  EXPECT_EQ(inventory.CurrentInv.Get(inventory::Description), "OIL FILTER");
  EXPECT_EQ(inventory.CurrentInv.Get(inventory::Pricing[3]), 699);
  EXPECT_EQ(inventory.OriginalInv, inventory.CurrentInv);
  EXPECT_EQ(inventory.Location(1), 128);
  EXPECT_EQ(inventory.Location(0), kNoLink) << "nobody asked for it";
}

TEST_F(InventoryFiles, ReadingTakesAGivenOffsetAsItIs) {
  PutParts({{"A"}, {"B"}});
  FileLink offset = 344;
  ASSERT_TRUE(inventory.ReadInventory(offset, 0));
  EXPECT_EQ(offset, 344);
  EXPECT_EQ(inventory.CurrentInvTag.Get(inventorytag::StockNumber), "A");
  EXPECT_EQ(inventory.CurrentInv.Get(inventory::StockNumber), "B");
  EXPECT_EQ(inventory.OriginalInv.Get(inventory::StockNumber), "B");
}

TEST_F(InventoryFiles, TheTagAloneIsReadStraightFromTheFile) {
  PutParts({{"A", "AXLE"}});
  Put(kInventoryTagFile, TagImage({"A", "AXLE", {}, 40}, 0));
  InventoryTag tag;
  ASSERT_TRUE(inventory.ReadInventoryTag(0, tag));
  EXPECT_EQ(tag.Get(inventorytag::InStock), 40);
  EXPECT_EQ(inventory.Tag(0).Get(inventorytag::InStock), 0) << "the list is left alone";
  EXPECT_EQ(inventory.CurrentInvTag, InventoryTag{}) << "and so is the working record";
}

TEST_F(InventoryFiles, APartWhoseLocationIsUnknownIsFoundByTheBackwardScan) {
  PutParts({{"TWIN"}, {"B"}, {"TWIN"}, {"D"}});
  EXPECT_EQ(inventory.FindTagLocation(0), 256) << "the last of them in the file";
  EXPECT_EQ(inventory.FindTagLocation(1), 128);
  EXPECT_EQ(inventory.FindTagLocation(3), 384);
}

TEST_F(InventoryFiles, ATagWithoutANumberIsFoundByItsMaster) {
  PutParts({{""}, {"B"}, {""}});
  EXPECT_EQ(inventory.FindTagLocation(0), 0);
  EXPECT_EQ(inventory.FindTagLocation(2), 256);
}

TEST_F(InventoryFiles, APartThatIsNotInTheFileGivesMinusOne) {
  PutParts({{"A"}});
  const Inventory::PartIndex index = inventory.AppendTag(NamedTag("ELSEWHERE"));
  EXPECT_EQ(inventory.FindTagLocation(index), -1);
  Put(kInventoryTagFile, "");
  EXPECT_EQ(inventory.FindTagLocation(index), -1);
  Put(kInventoryTagFile, std::string(127, 'x'));
  EXPECT_EQ(inventory.FindTagLocation(index), -1);
}

TEST_F(InventoryFiles, TheScanReachesTheFirstOfManyTags) {
  std::vector<PartImage> parts = {{"FIRST"}};
  for (int i = 0; i < 400; ++i) parts.push_back({"P" + std::to_string(i)});
  PutParts(parts);
  EXPECT_EQ(inventory.FindTagLocation(0), 0);
  EXPECT_EQ(inventory.FindTagLocation(inventory.FindPart("P143")), 144 * 128);
}

TEST_F(InventoryFiles, TheScanCountsItsStepsFromTheVeryEndOfTheFile) {
  PutParts({{"A"}});
  Put(kInventoryTagFile, std::string(10, 'x') + std::string(TagImage({"A"}, 0)));
  EXPECT_EQ(inventory.FindTagLocation(0), 10);
}

TEST_F(InventoryFiles, AKnownLocationIsNotSoughtAgain) {
  PutParts({{"A"}, {"B"}});
  Read("A");
  // Another tag of that number behind it would be found by a search.
  Put(kInventoryTagFile, BytesOf(kInventoryTagFile) + std::string(TagImage({"A", "IMPOSTOR"}, 344)));
  Read("A");
  EXPECT_EQ(inventory.CurrentInvTag.Get(inventorytag::Description), "");
}

TEST_F(InventoryFiles, WritingStoresBothRecordsInPlaceAndTheTagInTheList) {
  PutParts({{"A"}, {"PF47", "OIL FILTER", {310, 420, 500, 699}, 12}, {"C"}});
  const std::string before = BytesOf(kInventoryTagFile);
  const FileLink offset = Read("PF47");
  inventory.CurrentInv.Put(inventory::QtyInStock, 9);
  inventory.CurrentInvTag.Put(inventorytag::InStock, 9);
  inventory.CurrentInv.Put(inventory::Comment, "top shelf");
  inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::No);
  PartImage changed = {"PF47", "OIL FILTER", {310, 420, 500, 699}, 9};
  EXPECT_EQ(TagBytes(1), std::string(TagImage(changed, 344)));
  EXPECT_EQ(MasterBytes(1), std::string(MasterImage(changed).Text(186, "top shelf")));
  EXPECT_EQ(TagBytes(0) + TagBytes(2), before.substr(0, 128) + before.substr(256)) << "the neighbours";
  EXPECT_EQ(BytesOf(kInventoryTagFile).size(), 3U * 128);
  EXPECT_EQ(BytesOf(kInventoryFile).size(), 3U * 344);
  EXPECT_EQ(inventory.PartInStock("PF47"), 9);
  EXPECT_EQ(inventory.Count(), 3);
}

TEST_F(InventoryFiles, WritingNotesTheNumberAndTheStockInTheRunLog) {
  PutParts({{"PF47", "OIL FILTER", {}, -3}});
  world.log.Open();
  const FileLink offset = Read("PF47");
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(InventoryLog(),
            "CloseFile: Closed file with pointer = 2\n"  // the search for the tag
            "CloseFile: Closed file with pointer = 2\n"  // the tag
            "CloseFile: Closed file with pointer = 2\n"  // the master
            "WriteInventory PF47 In stock=-3\n"
            "CloseFile: Closed file with pointer = 2\n"
            "CloseFile: Closed file with pointer = 2\n");
}

TEST_F(InventoryFiles, APartWithAnEmptyDescriptionIsStoredWithItsNumberInTagAndMaster) {
  PutParts({{"PF47", "OIL FILTER"}});
  const FileLink offset = Read("PF47");
  inventory.CurrentInv.Put(inventory::Description, "   ");
  inventory.CurrentInvTag.Put(inventorytag::Description, "");
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(TagBytes(0), std::string(TagImage({"PF47", "PF47"}, 0)));
  EXPECT_EQ(MasterBytes(0), std::string(MasterImage({"PF47", "PF47"})));
}

TEST_F(InventoryFiles, TheDescriptionsOfTagAndMasterAreTrimmedEachForItself) {
  PutParts({{"PF47", "OIL FILTER"}});
  const FileLink offset = Read("PF47");
  inventory.CurrentInv.Put(inventory::Description, "  FILTER, OIL ");
  inventory.CurrentInvTag.Put(inventorytag::Description, "   ");
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(MasterBytes(0).substr(105, 12), std::string("FILTER, OIL\0", 12));
  EXPECT_EQ(TagBytes(0).substr(21, 5), std::string("PF47\0", 5));
}

TEST_F(InventoryFiles, TheTagTakesTheStockedFlagOfTheMaster) {
  PutParts({{"A"}});
  const FileLink offset = Read("A");
  inventory.CurrentInv.Put(inventory::IsStocked, 1);
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(TagBytes(0)[82], '\1');
  EXPECT_EQ(inventory.Tag(0).Get(inventorytag::IsStocked), 1);
}

TEST_F(InventoryFiles, TheStockNumberIsTrimmedInBothRecords) {
  PutParts({{"A"}});
  const FileLink offset = Read("A");
  inventory.CurrentInv.Put(inventory::StockNumber, "  A 2 ");
  inventory.CurrentInvTag.Put(inventorytag::StockNumber, "  A 2 ");
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(TagBytes(0).substr(0, 5), std::string("A 2\0\0", 5));
  EXPECT_EQ(MasterBytes(0).substr(0, 5), std::string("A 2\0\0", 5));
  EXPECT_EQ(inventory.FindPart("A 2"), 0);
}

TEST_F(InventoryFiles, AChangedNumberIsWrittenInPlaceAndFoundInTheList) {
  PutParts({{"A"}, {"OLD", "BELT"}, {"C"}});
  const FileLink offset = Read("OLD");
  inventory.CurrentInv.Put(inventory::StockNumber, "NEW");
  inventory.CurrentInvTag.Put(inventorytag::StockNumber, "NEW");
  inventory.CurrentInv.Put(inventory::UsageLink, kNoLink);
  inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::Yes);
  EXPECT_EQ(TagBytes(1), std::string(TagImage({"NEW", "BELT"}, 344)));
  EXPECT_EQ(MasterBytes(1), std::string(MasterImage({"NEW", "BELT"})));
  EXPECT_EQ(inventory.FindPart("NEW"), 1);
  EXPECT_EQ(inventory.FindPart("OLD"), Inventory::kNoPart);
}

TEST_F(InventoryFiles, ADeletedPartKeepsItsPlacesAndItsDescriptionMayBeBlank) {
  PutParts({{"A"}, {"B", "BELT"}, {"C"}});
  const FileLink offset = Read("B");
  inventory.CurrentInv.Put(inventory::Deleted, 1);
  inventory.CurrentInv.Put(inventory::Description, "  ");
  inventory.CurrentInvTag.Put(inventorytag::StockNumber, "");
  inventory.CurrentInvTag.Put(inventorytag::Description, "");
  world.log.Open();
  inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::Yes);
  EXPECT_EQ(TagBytes(1), std::string(TagImage({""}, 344)));
  EXPECT_EQ(MasterBytes(1), std::string(MasterImage({"B", "  "}).Text(335, "\1")));
  EXPECT_EQ(BytesOf(kInventoryTagFile).size(), 3U * 128);
  EXPECT_EQ(inventory.Count(), 3);
  EXPECT_EQ(inventory.FindPart("B"), Inventory::kNoPart);
  EXPECT_THAT(InventoryLog(), testing::HasSubstr("WriteInventory B In stock=0\n"));
}

TEST_F(InventoryFiles, AnIndexPastTheListIsANewPartAtTheEndOfTheFile) {
  PutParts({{"A"}});
  int counted = 0;
  inventory.onCountChanged = [&] { counted += inventory.Count(); };
  inventory.CurrentInv = {};
  inventory.CurrentInv.Put(inventory::StockNumber, "Z");
  inventory.CurrentInvTag = NamedTag("Z");
  inventory.WriteInventory(344, 1, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(inventory.Count(), 2);
  EXPECT_EQ(counted, 2);
  EXPECT_EQ(inventory.Location(1), 128);
  EXPECT_EQ(inventory.FindPart("Z"), 1);
  EXPECT_EQ(TagBytes(1).substr(0, 2), std::string("Z\0", 2));
  EXPECT_EQ(BytesOf(kInventoryFile).size(), 2U * 344);
}

TEST_F(InventoryFiles, AnIndexFarPastTheListGrowsBothArraysUpToIt) {
  PutParts({{"A"}});
  inventory.CurrentInv = {};
  inventory.CurrentInv.Put(inventory::StockNumber, "Z");
  inventory.CurrentInvTag = NamedTag("Z");
  inventory.WriteInventory(344, 4, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(inventory.Count(), 5);
  EXPECT_EQ(inventory.Location(4), 128);
  EXPECT_EQ(inventory.FindPart("Z"), 4);
  EXPECT_EQ(inventory.Tag(2), InventoryTag{});
  EXPECT_EQ(inventory.Location(2), kNoLink);
}

TEST_F(InventoryFiles, APartThatOnlyTheListKnowsIsWrittenAtTheEndOfTheFile) {
  PutParts({{"A"}});
  const Inventory::PartIndex index = inventory.AppendTag(NamedTag("ELSEWHERE"));
  inventory.CurrentInvTag = NamedTag("ELSEWHERE");
  inventory.CurrentInv = {};
  inventory.CurrentInv.Put(inventory::StockNumber, "ELSEWHERE");
  inventory.WriteInventory(344, index, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(inventory.Count(), 2);
  EXPECT_EQ(inventory.Location(index), 128);
  EXPECT_EQ(TagBytes(1).substr(0, 9), "ELSEWHERE");
}

TEST_F(InventoryFiles, TheTagStandsInTheFileAndTheMasterTooWhenTheOthersAreTold) {
  PutParts({{"A", "AXLE"}});
  const FileLink offset = Read("A");
  inventory.CurrentInv.Put(inventory::Comment, "new");
  std::vector<std::string> told;
  inventory.onBroadcast = [&](const InventoryTag& tag) {
    told.push_back(tag.Get(inventorytag::StockNumber));
    EXPECT_EQ(MasterBytes(0).substr(186, 3), "new");
  };
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_TRUE(told.empty());
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::Yes);
  EXPECT_EQ(told, std::vector<std::string>{"A"});
}

TEST_F(InventoryFiles, AnOffsetBelowZeroIsRefusedBeforeAnythingIsWritten) {
  PutParts({{"A"}});
  Read("A");
  const auto before = Everything();
  inventory.CurrentInv.Put(inventory::Comment, "new");
  EXPECT_THROW(inventory.WriteInventory(-1, 0, Inventory::Core::Stays, Inventory::Broadcast::No), FileError);
  EXPECT_EQ(Everything(), before);
}

TEST_F(InventoryFiles, ANewPartIsBlankButForItsNumberTheMarkupsAndTheLinks) {
  PutParts({{"A"}});
  for (int i = 0; i < 4; ++i) system.SysRec.Put(sysrec::markups[i], 100000 * i);
  std::vector<std::pair<FileLink, Inventory::PartIndex>> told;
  int broadcasts = 0;
  inventory.onNewPart = [&](FileLink offset, Inventory::PartIndex index) { told.emplace_back(offset, index); };
  inventory.onBroadcast = [&](const InventoryTag&) { ++broadcasts; };
  Read("A");
  Inventory::PartIndex index = 77;
  inventory.NewInventoryPart("  PF47 ", index);
  EXPECT_EQ(index, 1);
  // A blank description has become the number on the way.
  EXPECT_EQ(TagBytes(1), std::string(TagImage({"PF47", "PF47"}, 344)));
  PartImage part = {"PF47", "PF47"};
  part.markups = {0, 100000, 200000, 300000};
  EXPECT_EQ(MasterBytes(1), std::string(MasterImage(part)));
  EXPECT_EQ(told, (std::vector<std::pair<FileLink, Inventory::PartIndex>>{{344, 1}}));
  EXPECT_EQ(broadcasts, 1);
  EXPECT_EQ(inventory.FindPart("PF47"), 1);
  EXPECT_EQ(inventory.CurrentInv.Get(inventory::StockNumber), "PF47");
}

TEST_F(InventoryFiles, TheFirstPartOfAShopLiesAtOffsetZeroOfBothFiles) {
  inventory.SizeArrays();
  Inventory::PartIndex index = Inventory::kNoPart;
  inventory.NewInventoryPart("FIRST", index);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(inventory.Location(0), 0);
  EXPECT_EQ(inventory.Tag(0).Get(inventorytag::Tag), 0);
  EXPECT_EQ(BytesOf(kInventoryTagFile).size(), 128U);
  EXPECT_EQ(BytesOf(kInventoryFile).size(), 344U);
  FileLink offset = kNoLink;
  EXPECT_TRUE(inventory.ReadInventory(offset, 0));
  EXPECT_EQ(offset, 0);
}

TEST_F(InventoryFiles, ANewCoreIsNotToldToTheList) {
  inventory.SizeArrays();
  inventory.onNewPart = [](FileLink, Inventory::PartIndex) { ADD_FAILURE() << "the list was told"; };
  Inventory::PartIndex index = Inventory::kNoPart;
  inventory.NewInventoryPart("STARTER/C", index);
  EXPECT_EQ(inventory.FindPart("STARTER/C"), 0);
}

// A new tag has nothing behind it when its master can't be written.

TEST_F(InventoryFiles, ANewPartWhoseMasterHasNoRoomLeavesNoTag) {
  PutParts({{"A"}});
  std::vector<Inventory::PartIndex> counts;
  inventory.onCountChanged = [&] { counts.push_back(inventory.Count()); };
  const auto before = Everything();
  Inventory::PartIndex index = Inventory::kNoPart;
  {
    const NoRoomBeyond disk(400);
    EXPECT_THROW(inventory.NewInventoryPart("B", index), FileError);
  }
  EXPECT_EQ(BytesOf(kInventoryTagFile), before.at(std::string(kInventoryTagFile)));
  EXPECT_EQ(BytesOf(kInventoryFile), before.at(std::string(kInventoryFile)));
  EXPECT_EQ(inventory.Count(), 1);
  EXPECT_EQ(inventory.FindPart("B"), Inventory::kNoPart);
  EXPECT_EQ(counts, (std::vector<Inventory::PartIndex>{2, 1}));
  inventory.NewInventoryPart("C", index);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(TagBytes(1), std::string(TagImage({"C", "C"}, 344)));
  EXPECT_EQ(MasterBytes(1).substr(0, 2), std::string("C\0", 2));
}

TEST_F(InventoryFiles, APartWhoseMasterCanNotBeWrittenKeepsItsTag) {
  PutParts({{"A", "AXLE"}, {"B", "BELT"}});
  const FileLink offset = Read("B");
  const auto before = Everything();
  inventory.CurrentInvTag.Put(inventorytag::InStock, 3);
  {
    const NoRoomBeyond disk(400);
    EXPECT_THROW(inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::No), FileError);
  }
  EXPECT_EQ(BytesOf(kInventoryTagFile), before.at(std::string(kInventoryTagFile)));
  EXPECT_EQ(inventory.Tag(1).Get(inventorytag::InStock), 0);
}

TEST_F(InventoryFiles, ATagThatCanNotBePutBackIsNamed) {
  PutParts({{"A", "AXLE"}, {"B", "BELT"}});
  const FileLink offset = Read("B");
  inventory.CurrentInvTag.Put(inventorytag::InStock, 3);
  const auto block = [&](std::string_view file) {
    std::filesystem::rename(PathOf(file), PathOf(std::string(file) + ".AWAY"));
    std::filesystem::create_directory(PathOf(file));
  };
  block(kInventoryFile);
  patience.onWait = [&] {
    if (patience.waits.size() == 1) block(kInventoryTagFile);
  };
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.title, kInventoryTagFile);
    return ui::Answer::Cancel;
  });
  try {
    inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::No);
    ADD_FAILURE() << "nothing was said";
  } catch (const GivenUp& error) {
    EXPECT_EQ(error.Words(),
              "Part B was stored in TQINVTAG.DAT, but not in TQINVENT.DAT, and TQINVTAG.DAT could not be put back.\r"
              "Look at the part once both files can be written again.");
  }
}

TEST_F(InventoryFiles, ANewPartLeavesThePlaceThatATagWithoutAMasterLeadsTo) {
  PutParts({{"A"}});
  Put(kInventoryTagFile,
      BytesOf(kInventoryTagFile) + std::string(TagImage({"HALF"}, 344)) + std::string(TagImage({"FAR"}, 5000)));
  LoadList();
  Inventory::PartIndex index = Inventory::kNoPart;
  inventory.NewInventoryPart("NEW", index);
  EXPECT_EQ(inventory.Tag(index).Get(inventorytag::Tag), 688);
  EXPECT_EQ(MasterBytes(1), std::string(344, '\0'));
  EXPECT_EQ(MasterBytes(2).substr(0, 4), std::string("NEW\0", 4));
}

TEST_F(InventoryFiles, AMasterOfAnotherNumberIsRefused) {
  PutParts({{"A"}, {"B"}});
  Put(kInventoryTagFile, BytesOf(kInventoryTagFile) + std::string(TagImage({"C"}, 344)));
  LoadList();
  Read("A");
  desktop.WillAnswer([](const ui::Box& box) {
    ExpectBox(box, "ReadInventory",
              "Part C can't be shown: its tag in TQINVTAG.DAT leads to the record of part B in TQINVENT.DAT.\r"
              "Neither is changed. Have the files repaired.",
              ui::Buttons::Ok, ui::Icon::Exclamation);
    return ui::Answer::Ok;
  });
  FileLink offset = kNoLink;
  EXPECT_FALSE(inventory.ReadInventory(offset, 2));
  EXPECT_EQ(offset, kNoLink);
  EXPECT_EQ(inventory.CurrentInv.Get(inventory::StockNumber), "A");
}

}  // namespace
}  // namespace lantos::test
