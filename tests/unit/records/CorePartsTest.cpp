// The core of a part, a part of its own.
#include "InventoryFixture.h"
#include "records/inventory/Inventory.h"
#include "records/modSystem.h"

namespace lantos::test {
namespace {

class CoreParts : public InventoryTest {
 protected:
  CoreParts() {
    const std::array<std::int32_t, 4> markups = {0, 100000, 255000, 333333};
    for (std::size_t i = 0; i < 4; ++i) system.SysRec.Put(sysrec::markups[i], markups[i]);
  }
  // A starter with a core of 15.25, and its core once it has been saved.
  static PartImage Starter() {
    PartImage part = {"STARTER", "STARTER MOTOR", {8000, 9000, 10000, 12000}, 2};
    part.hasCore = true;
    part.coreCost = 1525;
    part.manufacturer = "BOSCH";
    return part;
  }
  static Image StarterMaster() { return MasterImage(Starter()); }
  void WriteStarter(Inventory::Core core = Inventory::Core::Follows) {
    const FileLink offset = Read("STARTER");
    inventory.WriteInventory(offset, inventory.FindPart("STARTER"), core, Inventory::Broadcast::Yes);
  }
};

TEST_F(CoreParts, APartWithACoreGetsItsCompanionOnFirstSave) {
  PutParts({Starter()});
  WriteStarter();
  ASSERT_EQ(inventory.Count(), 2);
  EXPECT_EQ(inventory.FindPart("STARTER/C"), 1);
  // 15.25 with 10 % is 16.775, with 25.5 % 19.13875, with 33.3333 % 20.33333.
  PartImage core = {"STARTER/C", "CORE: STARTER MOTOR", {1525, 1678, 1914, 2033}};
  core.markups = {0, 100000, 255000, 333333};
  core.manufacturer = "BOSCH";
  EXPECT_EQ(TagBytes(1), std::string(TagImage(core, 344)));
  EXPECT_EQ(MasterBytes(1), std::string(MasterImage(core).Text(144, "CORES")));
  EXPECT_EQ(TagBytes(0), std::string(TagImage(Starter(), 0))) << "the part itself";
  EXPECT_EQ(MasterBytes(0), std::string(StarterMaster()));
}

TEST_F(CoreParts, TheWorkingRecordsAreThePartsAgainAfterwards) {
  PutParts({Starter()});
  WriteStarter();
  EXPECT_EQ(inventory.CurrentInvTag.Get(inventorytag::StockNumber), "STARTER");
  EXPECT_EQ(inventory.CurrentInv.Get(inventory::StockNumber), "STARTER");
  EXPECT_EQ(inventory.OriginalInv.Get(inventory::StockNumber), "STARTER");
}

TEST_F(CoreParts, ACoreThatIsThereFollowsThePartWithItsOwnMarkupsAndKeepsTheRest) {
  PartImage core = {"STARTER/C", "CORE: OLD NAME", {1, 2, 3, 4}, 7};
  core.markups = {990000, 500000, 1000000, -100000};  // the cost has no markup
  core.location = "SHELF 9";
  PutParts({{"A"}, core, Starter()});
  WriteStarter();
  EXPECT_EQ(inventory.Count(), 3);
  core.description = "CORE: STARTER MOTOR";
  core.prices = {1525, 2288, 3050, 1372};  // 22.875 and 13.725 go to the even cent
  core.manufacturer = "BOSCH";
  EXPECT_EQ(TagBytes(1), std::string(TagImage(core, 344)));
  EXPECT_EQ(MasterBytes(1), std::string(MasterImage(core).Text(144, "CORES")));
  EXPECT_EQ(inventory.PartInStock("STARTER/C"), 7);
  EXPECT_EQ(inventory.PartDescription("STARTER/C"), "CORE: STARTER MOTOR");
}

TEST_F(CoreParts, ACoreThatAnotherCopyHasMadeAMomentAgoIsTakenUpAndNotMadeTwice) {
  PutParts({Starter()});
  PartImage core = {"STARTER/C", "CORE: STARTER MOTOR", {1, 2, 3, 4}, 7};
  Put(kInventoryTagFile, BytesOf(kInventoryTagFile) + std::string(TagImage(core, kMasterBytes)));
  Put(kInventoryFile, BytesOf(kInventoryFile) + std::string(MasterImage(core)));
  WriteStarter();
  core.prices = {1525, 1525, 1525, 1525};
  core.manufacturer = "BOSCH";
  EXPECT_EQ(BytesOf(kInventoryTagFile).size(), 2U * kTagBytes);
  EXPECT_EQ(TagBytes(1), std::string(TagImage(core, kMasterBytes)));
  EXPECT_EQ(MasterBytes(1), std::string(MasterImage(core).Text(144, "CORES")));
  EXPECT_EQ(inventory.FindPart("STARTER/C"), 1);
  EXPECT_EQ(inventory.Location(1), kTagBytes);
}

TEST_F(CoreParts, TheOthersAreToldOfTheCoreAndTheListOnlyOfTheCount) {
  PutParts({Starter()});
  std::vector<std::string> told;
  int counts = 0;
  inventory.onBroadcast = [&](const InventoryTag& tag) { told.push_back(tag.Get(inventorytag::StockNumber)); };
  inventory.onCountChanged = [&] { ++counts; };
  inventory.onNewPart = [](FileLink, Inventory::PartIndex) { ADD_FAILURE() << "the list was told"; };
  WriteStarter();
  EXPECT_EQ(told, (std::vector<std::string>{"STARTER", "STARTER/C", "STARTER/C"}));
  EXPECT_EQ(counts, 1);
}

TEST_F(CoreParts, NoCoreIsKeptUnlessItIsAskedForAndThePartHasOne) {
  PartImage without = Starter();
  without.number = "PUMP";
  without.hasCore = false;
  PutParts({Starter(), without});
  WriteStarter(Inventory::Core::Stays);
  EXPECT_EQ(inventory.Count(), 2);
  const FileLink offset = Read("PUMP");
  inventory.WriteInventory(offset, 1, Inventory::Core::Follows, Inventory::Broadcast::Yes);
  EXPECT_EQ(inventory.Count(), 2);
}

TEST_F(CoreParts, ACoreNeverHasACoreOfItsOwn) {
  PartImage core = Starter();
  core.number = "STARTER/C";
  PutParts({core});
  const FileLink offset = Read("STARTER/C");
  inventory.WriteInventory(offset, 0, Inventory::Core::Follows, Inventory::Broadcast::Yes);
  EXPECT_EQ(inventory.Count(), 1);
}

TEST_F(CoreParts, TheDescriptionOfACoreIsCutToTheField) {
  PartImage part = Starter();
  part.description = std::string(38, 'x');
  PutParts({part});
  WriteStarter();
  EXPECT_EQ(inventory.PartDescription("STARTER/C"), "CORE: " + std::string(33, 'x'));
  EXPECT_EQ(MasterBytes(1).substr(105, 39), "CORE: " + std::string(33, 'x'));
}

TEST_F(CoreParts, ANumberThatLeavesNoRoomForTheMarkHasNoCore) {
  for (const std::size_t length : {20U, 21U}) {
    PartImage part = Starter();
    part.number = std::string(length, 'L');
    PutParts({part});
    const FileLink offset = Read(part.number);
    inventory.WriteInventory(offset, 0, Inventory::Core::Follows, Inventory::Broadcast::Yes);
    EXPECT_EQ(inventory.Count(), 1);
    EXPECT_EQ(MasterBytes(0), std::string(MasterImage(part)));
  }
  PartImage part = Starter();
  part.number = std::string(19, 'L');
  PutParts({part});
  const FileLink offset = Read(part.number);
  for (int saves = 0; saves < 2; ++saves)
    inventory.WriteInventory(offset, 0, Inventory::Core::Follows, Inventory::Broadcast::Yes);
  EXPECT_EQ(inventory.Count(), 2) << "the mark fills the field";
}

TEST_F(CoreParts, APriceBeyondTheLongStopsAtItsEnd) {
  PartImage part = Starter();
  part.coreCost = 2000000000;
  PutParts({part});
  WriteStarter();
  EXPECT_EQ(inventory.PartPrices("STARTER/C").byLevel[3], 2147483647);
}

}  // namespace
}  // namespace lantos::test
