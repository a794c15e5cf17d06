// A part number that goes, and one that becomes another.
#include "records/inventory/PartNumbers.h"

#include "InventoryFixture.h"

namespace lantos::test {
namespace {

class PartNumbers : public InventoryTest {
 protected:
  PartNumbers() {
    PartImage axle = {"AXLE", "FRONT AXLE", {1, 2, 3, 4}, 5};
    axle.hasCore = true;
    axle.location = "KIT:";
    axle.alternates = {"BELT"};
    PartImage belt = {"BELT", "BELT"};
    belt.alternates = {"AXLE"};
    PutParts({axle, belt, {"AXLE/C", "CORE: FRONT AXLE"}});
    std::string masters = BytesOf(kInventoryFile);
    masters.replace(336, 8, std::string("\x4C\0\0\0\x10\0\0\0", 8));  // usage and receiving
    Put(kInventoryFile, masters);
    inventory.onBroadcast = [this](const InventoryTag& tag) { told.push_back(tag.Get(inventorytag::StockNumber)); };
    inventory.onPartChanged = [this](FileLink, Inventory::PartIndex index) { changed.push_back(index); };
  }
  std::vector<std::string> told;
  std::vector<Inventory::PartIndex> changed;
};

TEST_F(PartNumbers, ADeletedPartIsMarkedInTheMasterAndBlankedInTheTagAndNothingElse) {
  std::string tags = BytesOf(kInventoryTagFile);
  std::string masters = BytesOf(kInventoryFile);
  EXPECT_EQ(DeletePart(inventory, 0), PartUpdated::Yes);
  EXPECT_EQ(BytesOf(kInventoryTagFile), tags.replace(0, 21, std::string(21, '\0')));
  EXPECT_EQ(BytesOf(kInventoryFile), masters.replace(335, 1, "\1"));
  EXPECT_EQ(inventory.FindPart("AXLE"), Inventory::kNoPart);
  EXPECT_EQ(inventory.Count(), 3) << "no core is made, and no place is freed";
  EXPECT_EQ(told, std::vector<std::string>());
  EXPECT_EQ(changed, std::vector<Inventory::PartIndex>{0});
}

TEST_F(PartNumbers, AnotherNumberIsWrittenInPlaceAndItsHistoryStaysWithNobody) {
  std::string tags = BytesOf(kInventoryTagFile);
  std::string masters = BytesOf(kInventoryFile);
  EXPECT_EQ(ChangePartNumber(inventory, 0, " SHAFT "), PartUpdated::Yes);
  EXPECT_EQ(BytesOf(kInventoryTagFile), tags.replace(0, 5, "SHAFT"));
  EXPECT_EQ(BytesOf(kInventoryFile), masters.replace(0, 5, "SHAFT").replace(336, 8, std::string(8, '\xFF')))
      << "core, kit and alternates stay as they are";
  EXPECT_EQ(inventory.FindPart("SHAFT"), 0);
  EXPECT_EQ(inventory.FindPart("AXLE"), Inventory::kNoPart);
  EXPECT_EQ(inventory.Count(), 3);
  EXPECT_EQ(told, std::vector<std::string>{"SHAFT"});
  EXPECT_EQ(changed, std::vector<Inventory::PartIndex>{0});
}

TEST_F(PartNumbers, APartWhosePlaceIsNotKnownIsSoughtUnderItsOldNumber) {
  inventory.SetLocation(1, kNoLink);
  EXPECT_EQ(ChangePartNumber(inventory, 1, "STRAP"), PartUpdated::Yes);
  EXPECT_EQ(TagBytes(1).substr(0, 6), std::string("STRAP\0", 6));
  EXPECT_EQ(BytesOf(kInventoryTagFile).size(), 3U * kTagBytes);
}

TEST_F(PartNumbers, ANumberThatAnotherCopyHasGivenAMomentAgoIsNotGivenTwice) {
  Put(kInventoryTagFile, BytesOf(kInventoryTagFile) + std::string(TagImage({"SHAFT"}, 3 * kMasterBytes)));
  Put(kInventoryFile, BytesOf(kInventoryFile) + std::string(MasterImage({"SHAFT"})));
  const std::string masters = BytesOf(kInventoryFile);
  const std::string tags = BytesOf(kInventoryTagFile);
  EXPECT_EQ(ChangePartNumber(inventory, 0, " SHAFT "), PartUpdated::NumberIsTaken);
  EXPECT_EQ(BytesOf(kInventoryFile), masters);
  EXPECT_EQ(BytesOf(kInventoryTagFile), tags);
  EXPECT_TRUE(told.empty());
}

TEST_F(PartNumbers, APartThatCanNotBeReadStays) {
  const std::string masters = BytesOf(kInventoryFile);
  const std::string tags = BytesOf(kInventoryTagFile);
  {
    const SharedFile held = HeldByAnother(kInventoryFile);
    desktop.WillAnswer({ui::Answer::Cancel, ui::Answer::Cancel});
    EXPECT_EQ(DeletePart(inventory, 0), PartUpdated::GivenUp);
    EXPECT_EQ(ChangePartNumber(inventory, 0, "SHAFT"), PartUpdated::GivenUp);
  }
  EXPECT_EQ(BytesOf(kInventoryFile), masters);
  EXPECT_EQ(BytesOf(kInventoryTagFile), tags);
  EXPECT_TRUE(told.empty());
}

}  // namespace
}  // namespace lantos::test
