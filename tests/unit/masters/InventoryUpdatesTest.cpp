// The inventory list on its two timers: what this copy changes goes out, what the others change comes in.
#include <gmock/gmock.h>

#include "MasterShop.h"
#include "masters/inventory/frmInvList.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;

constexpr const char* kMine = "AU9300.$$$";
constexpr const char* kPeer = "AU9301.$$$";

class InventoryUpdatesTest : public MasterShop {
 protected:
  InventoryUpdatesTest() {
    directory.Put("TQINVTAG.DAT", Tag("HOSE-1", 0, 0) + Tag("HOSE-2", 0, 344) + Tag("PAD-9", 0, 688));
    std::string masters;
    for (const char* number : {"HOSE-1", "HOSE-2", "PAD-9"}) {
      masters += RawRecord(344).Text(0, number).Text(105, number).Long(336, -1).Long(340, -1).Bytes();
    }
    directory.Put("TQINVENT.DAT", masters);
    inventory.SizeArrays();
    environment.updateFileName = kMine;
    directory.Put(kMine, "");
    directory.Put(kPeer, "");
    list.LoadForm();
  }

  // The n-th part's tag, with another stock.
  static std::string Tag(const std::string& number, std::int16_t stock, std::int32_t master,
                         const std::string& description = "") {
    return RawRecord(128)
        .Text(0, number)
        .Text(21, description.empty() ? number : description)
        .Integer(76, stock)
        .Long(78, master)
        .Bytes();
  }
  void Receive(const std::string& bytes) {
    directory.Put(kMine, bytes);
    list.UpdTimer.DoTick();
  }
  void PassSecond() { clock.MoveOn(1000); }
  std::vector<std::string> Shown(std::size_t column = 1) const {
    std::vector<std::string> cells;
    for (int row = 0; row < list.DataGrid1.RowCount(); ++row) cells.push_back(list.DataGrid1.RowAt(row).cells[column]);
    return cells;
  }

  Inventory& inventory = records.inventory;
  frmInvList list{shop};
};

TEST_F(InventoryUpdatesTest, BothTimersRunEveryFiveSecondsFromTheLoadOn) {
  for (const ui::Timer* timer : {&list.AuditTimer, &list.UpdTimer}) {
    EXPECT_TRUE(timer->Enabled());
    EXPECT_EQ(timer->Interval(), 5000);
  }
}

TEST_F(InventoryUpdatesTest, WhatIsWrittenWithTheFlagGoesOutAtTheNextTick) {
  inventory.FinishLoading();
  FileLink offset = kNoLink;
  ASSERT_TRUE(inventory.ReadInventory(offset, 1));
  inventory.CurrentInvTag.Put(inventorytag::InStock, 7);
  inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::No);
  PassSecond();
  list.AuditTimer.DoTick();
  EXPECT_EQ(directory.Content(kPeer), "");
  inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::Yes);
  list.AuditTimer.DoTick();
  EXPECT_EQ(directory.Content(kPeer), "") << "of this second";
  PassSecond();
  list.AuditTimer.DoTick();
  EXPECT_EQ(directory.Content(kPeer), Tag("HOSE-2", 7, 344));
  EXPECT_TRUE(list.AuditTimer.Enabled());
}

TEST_F(InventoryUpdatesTest, AtTheEndOfTheRunWhatWaitsGoesOut) {
  Inventory::PartIndex index = Inventory::kNoPart;
  inventory.NewInventoryPart("OIL-1", index);
  list.FinishUpdates();
  EXPECT_EQ(directory.Content(kPeer), Tag("OIL-1", 0, 3 * 344));
  EXPECT_FALSE(list.AuditTimer.Enabled());
  EXPECT_FALSE(list.UpdTimer.Enabled());
}

TEST_F(InventoryUpdatesTest, AnEndInTheMiddleOfAnIntakeLetsGoOfTheFile) {
  inventory.FinishLoading();
  const SharedFile held(directory.Path() / "TQINVTAG.DAT", Access::ReadWrite, Deny::All);
  directory.Put(kMine, Tag("HOSE-1", 5, 0));
  inventory.SetLocation(0, 0);
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.title, "ReadInventoryTag");
    list.FinishUpdates();
    EXPECT_NO_THROW(SharedFile(directory.Path() / kMine, Access::ReadWrite, Deny::All));
    return Answer::Cancel;
  });
  list.UpdTimer.DoTick();
}

TEST_F(InventoryUpdatesTest, ATimerStandsStillDuringItsTick) {
  inventory.FinishLoading();
  directory.Put(kMine, Tag("HOSE-1", 5, 0));
  Inventory::PartIndex index = Inventory::kNoPart;
  inventory.NewInventoryPart("OIL-1", index);
  PassSecond();
  SharedFile held(directory.Path() / kPeer, Access::ReadWrite, Deny::All);
  desktop.WillAnswer([&](const ui::Box&) {
    EXPECT_FALSE(list.AuditTimer.Enabled());
    EXPECT_TRUE(list.UpdTimer.Enabled());
    return Answer::Cancel;
  });
  list.AuditTimer.DoTick();
  EXPECT_TRUE(list.AuditTimer.Enabled());
}

TEST_F(InventoryUpdatesTest, ARowIsRefreshedInPlaceAndKeepsItsSelection) {
  inventory.FinishLoading();
  list.Show();
  list.DataGrid1.DoSelect(1);
  Receive(Tag("HOSE-2", 5, 344) + Tag("PAD-9", 6, 688));
  EXPECT_THAT(Shown(3), ElementsAre("0", "5", "6"));
  EXPECT_EQ(list.DataGrid1.Row(), 1);
  EXPECT_EQ(list.TotalParts.Caption(), "      3 Total Parts");
  EXPECT_EQ(directory.Content(kMine), "");
  EXPECT_EQ(list.UpdTimer.Interval(), 5000);
}

TEST_F(InventoryUpdatesTest, ANewPartStandsWhereItsKeyPutsItAndIsCounted) {
  inventory.FinishLoading();
  list.Show();
  list.DataGrid1.DoSelect(2);
  Receive(Tag("HOSE-10", 5, 9000));
  EXPECT_THAT(Shown(), ElementsAre("HOSE-1", "HOSE-10", "HOSE-2", "PAD-9"));
  EXPECT_EQ(list.DataGrid1.Row(), 3) << "the part that was selected";
  EXPECT_EQ(list.TotalParts.Caption(), "      4 Total Parts");
  EXPECT_THAT(Shown(11), ElementsAre("-1", "-1", "-1", "-1"));
  EXPECT_EQ(inventory.FindPart("HOSE-10"), 3);
}

TEST_F(InventoryUpdatesTest, APartThatAnotherCopyDeletedLosesItsRow) {
  inventory.FinishLoading();
  list.Show();
  std::string masters = directory.Content("TQINVENT.DAT");
  masters[344 + 335] = '\1';
  directory.Put("TQINVENT.DAT", masters);
  const std::string deleted = RawRecord(128).Text(21, "HOSE-2").Long(78, 344).Bytes();
  directory.Put("TQINVTAG.DAT", Tag("HOSE-1", 0, 0) + deleted + Tag("PAD-9", 0, 688));
  Receive(deleted);
  EXPECT_EQ(Shown(), (std::vector<std::string>{"HOSE-1", "PAD-9"}));
  EXPECT_EQ(list.TotalParts.Caption(), "      2 Total Parts");
}

TEST_F(InventoryUpdatesTest, APartThatAnotherCopyRenumberedStandsUnderItsNewNumber) {
  inventory.FinishLoading();
  list.Show();
  directory.Put("TQINVTAG.DAT", Tag("Z-1", 0, 0) + Tag("HOSE-2", 0, 344) + Tag("PAD-9", 0, 688));
  Receive(Tag("Z-1", 0, 0));
  EXPECT_THAT(Shown(), ElementsAre("HOSE-2", "PAD-9", "Z-1"));
}

TEST_F(InventoryUpdatesTest, TheListIsKeptUpWhileItIsHidden) {
  inventory.FinishLoading();
  Receive(Tag("HOSE-1", 5, 0) + Tag("HOSE-10", 6, 9000));
  EXPECT_THAT(Shown(3), ElementsAre("5", "6", "0", "0"));
  EXPECT_EQ(list.TotalParts.Caption(), "      4 Total Parts");
}

TEST_F(InventoryUpdatesTest, TheFilterOfTheSearchStillHolds) {
  inventory.FinishLoading();
  list.Show();
  list.SearchDesc.DoType("hose");
  list.cmdSearch.DoClick();
  ASSERT_THAT(Shown(), ElementsAre("HOSE-1", "HOSE-2"));
  directory.Put("TQINVTAG.DAT", Tag("HOSE-1", 0, 0, "CLAMP") + Tag("HOSE-2", 0, 344) + Tag("PAD-9", 0, 688, "HOSE"));
  Receive(Tag("HOSE-1", 0, 0, "CLAMP") + Tag("PAD-9", 0, 688, "HOSE") + Tag("X-1", 0, 9000, "AIR HOSE") +
          Tag("X-2", 0, 9344, "OTHER"));
  EXPECT_THAT(Shown(), ElementsAre("HOSE-2", "PAD-9", "X-1"));
  EXPECT_EQ(list.TotalParts.Caption(), "      5 Total Parts");
  EXPECT_EQ(list.lblMatchParts.Caption(), "3 Matches    ");
}

TEST_F(InventoryUpdatesTest, NothingIsTakenInBeforeTheListIsLoaded) {
  ASSERT_TRUE(list.IsLoading());
  Receive(Tag("PAD-9", 5, 688));
  EXPECT_EQ(inventory.Count(), 0);
  EXPECT_TRUE(list.UpdTimer.Enabled());
  inventory.FinishLoading();
  list.UpdTimer.DoTick();
  EXPECT_EQ(inventory.Count(), 3);
  EXPECT_EQ(inventory.PartInStock("PAD-9"), 5);
}

TEST_F(InventoryUpdatesTest, AMissingFileIsWarnedOfOnceAndTheTimerStaysStopped) {
  inventory.FinishLoading();
  std::filesystem::remove(directory.Path() / kMine);
  desktop.WillAnswer(Answer::Ok);
  list.UpdTimer.DoTick();
  const ui::Box& box = desktop.boxes.at(0);
  EXPECT_EQ(box.title, "Automatic Inventory Update");
  EXPECT_EQ(box.text, "Warning!\rInventory update file AU9300.$$$ does not exist.\rPlease exit and restart Korvel.");
  EXPECT_EQ(box.icon, ui::Icon::Exclamation);
  EXPECT_EQ(box.buttons, ui::Buttons::Ok);
  EXPECT_FALSE(list.UpdTimer.Enabled());
  EXPECT_TRUE(list.AuditTimer.Enabled()) << "its own changes still go out";
  list.UpdTimer.DoTick();
  EXPECT_EQ(desktop.boxes.size(), 1U);
}

TEST_F(InventoryUpdatesTest, AStockedFlagThatComesCountsForTheFilter) {
  environment.shopOptions.InventoryTagVersion = 1;
  inventory.FinishLoading();
  list.Show();
  list.optStk.DoClick();
  ASSERT_TRUE(Shown().empty());
  std::string tag = Tag("HOSE-2", 5, 344);
  tag[82] = '\1';
  Receive(tag);
  EXPECT_THAT(Shown(), ElementsAre("HOSE-2"));
}

}  // namespace
}  // namespace lantos::test
