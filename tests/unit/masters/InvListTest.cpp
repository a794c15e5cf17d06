// The inventory list hears of parts that others write.
#include <gmock/gmock.h>

#include "MasterShop.h"
#include "masters/inventory/frmInvList.h"
#include "records/inventory/PartNumbers.h"

namespace lantos::test {
namespace {

class InvList : public MasterShop {
 protected:
  InvList() {
    inventory.SizeArrays();
    AddPart("PAD-9");
  }
  Inventory::PartIndex AddPart(std::string_view number) {
    Inventory::PartIndex index = Inventory::kNoPart;
    inventory.NewInventoryPart(number, index);
    return index;
  }
  // Into the file alone, as it is before the list is loaded.
  void ForgetList() { inventory.SizeArrays(); }
  void Write(std::string_view number, std::string_view description, std::int16_t stock) {
    FileLink offset = kNoLink;
    const Inventory::PartIndex index = inventory.FindPart(number);
    ASSERT_TRUE(inventory.ReadInventory(offset, index));
    inventory.CurrentInvTag.Put(inventorytag::Description, description);
    inventory.CurrentInvTag.Put(inventorytag::InStock, stock);
    inventory.WriteInventory(offset, index, Inventory::Core::Stays, Inventory::Broadcast::No);
  }

  Inventory& inventory = records.inventory;
};

TEST_F(InvList, IsReadToItsEndWhenTheInventoryAsksForIt) {
  ForgetList();
  frmInvList list(shop);
  list.LoadForm();
  EXPECT_TRUE(list.IsLoading());
  EXPECT_EQ(inventory.FindPart("PAD-9"), Inventory::kNoPart);
  inventory.FinishLoading();
  EXPECT_FALSE(list.IsLoading());
  EXPECT_EQ(inventory.FindPart("PAD-9"), 0);
}

TEST_F(InvList, ShownWhileItIsReadItHasTheHandInTheSearchAtTheEnd) {
  ForgetList();
  frmInvList list(shop);
  list.LoadForm();
  list.Show();
  inventory.FinishLoading();
  EXPECT_EQ(list.Focus(), &list.SearchPart);
}

TEST_F(InvList, APartThatWasWrittenIsListedAsItIsNow) {
  ForgetList();
  frmInvList list(shop);
  list.LoadForm();
  inventory.FinishLoading();
  list.Show();
  Write("PAD-9", "BRAKE PADS", 17);
  EXPECT_EQ(list.DataGrid1.RowAt(0).cells.at(3), "17");
  list.SearchDesc.DoType("BRAKE");
  list.cmdSearch.DoClick();
  ASSERT_EQ(list.DataGrid1.RowCount(), 1);
  Write("PAD-9", "PADS", 16);
  EXPECT_EQ(list.DataGrid1.RowCount(), 0) << "it is no longer what was looked for";
}

TEST_F(InvList, AHiddenListCountsItsHitsAnewWhenAWriteChangesThem) {
  ForgetList();
  frmInvList list(shop);
  list.LoadForm();
  inventory.FinishLoading();
  list.Show();
  Write("PAD-9", "BRAKE PADS", 17);
  Type(list.SearchDesc, "BRAKE");
  Press(list, "Enter");
  list.Hide();
  Write("PAD-9", "PADS", 16);
  EXPECT_EQ(list.DataGrid1.RowCount(), 0);
  EXPECT_EQ(list.lblMatchParts.Caption(), "0 Matches    ");
}

TEST_F(InvList, AHeadingTurnsTheOrderAndTheGridIsToldOfIt) {
  AddPart("OIL-1");
  ForgetList();
  frmInvList list(shop);
  list.LoadForm();
  inventory.FinishLoading();
  list.DataGrid1.OnHeadClick(1);
  EXPECT_EQ(list.DataGrid1.SortedBy(), "Part");
  list.DataGrid1.OnHeadClick(1);
  EXPECT_EQ(list.DataGrid1.SortedBy(), "Part Desc");
  EXPECT_EQ(list.DataGrid1.RowAt(0).cells.at(1), "PAD-9");
}

TEST_F(InvList, ListsAPartThatJoined) {
  ForgetList();
  frmInvList list(shop);
  list.LoadForm();
  inventory.FinishLoading();
  AddPart("OIL-1");
  EXPECT_EQ(list.DataGrid1.RowCount(), 2);
  EXPECT_EQ(list.DataGrid1.RowAt(0).cells.at(1), "OIL-1");
  EXPECT_EQ(list.TotalParts.Caption(), "      2 Total Parts");
}

TEST_F(InvList, ASearchGoesToTheHitsWhoseFirstIsCurrentAndEnterTakesIt) {
  AddPart("OIL-1");
  AddPart("OIL-2");
  ForgetList();
  frmInvList list(shop);
  list.LoadForm();
  inventory.FinishLoading();
  desktop.WillUse([&](ui::Form&) {
    EXPECT_EQ(list.DataGrid1.Row(), -1) << "nobody has looked for anything yet";
    test::Type(list.SearchPart, "OIL");
    test::Press(list, "Enter");
    EXPECT_EQ(list.Focus(), &list.DataGrid1);
    EXPECT_EQ(list.DataGrid1.Row(), 0);
    test::Press(list, "Down");
    test::Press(list, "Enter");
  });
  const auto picked = list.Pick("Add part to estimate");
  ASSERT_TRUE(picked);
  EXPECT_EQ(inventory.Tag(picked->index).Get(inventorytag::StockNumber), "OIL-2");
}

TEST_F(InvList, ASearchWithoutHitsStaysWhereItIs) {
  ForgetList();
  frmInvList list(shop);
  list.LoadForm();
  inventory.FinishLoading();
  list.Show();
  test::Type(list.SearchPart, "NOTHING");
  test::Press(list, "Enter");
  EXPECT_EQ(list.Focus(), &list.SearchPart);
  desktop.WillAnswer(ui::Answer::Ok);
  test::Press(list, "F10");
  EXPECT_EQ(desktop.boxes.at(0).text, "No part is selected.");
}

// On show, with all parts read, hoses looked for and the second of them current.
class ShownInvList : public InvList {
 protected:
  ShownInvList() {
    for (const char* number : {"HOSE-2", "HOSE-4", "HOSE-6"}) AddPart(number);
    ForgetList();
    list.LoadForm();
    inventory.FinishLoading();
    list.Show();
    test::Type(list.SearchPart, "HOSE");
    test::Press(list, "Enter");
    test::Press(list, "Down");
  }
  ~ShownInvList() override { list.Hide(); }
  std::string Current() const {
    const int row = list.DataGrid1.Row();
    return row < 0 ? "" : list.DataGrid1.RowAt(row).cells.at(1);
  }
  std::vector<std::string> Numbers() const {
    std::vector<std::string> numbers;
    for (int row = 0; row < list.DataGrid1.RowCount(); ++row) numbers.push_back(list.DataGrid1.RowAt(row).cells.at(1));
    return numbers;
  }

  frmInvList list{shop};
};

using ::testing::ElementsAre;

TEST_F(ShownInvList, ANewPartStandsWhereItsKeyPutsItAndThePersonStaysWhereTheyAre) {
  ASSERT_EQ(Current(), "HOSE-4");
  AddPart("HOSE-3");
  EXPECT_THAT(Numbers(), ElementsAre("HOSE-2", "HOSE-3", "HOSE-4", "HOSE-6"));
  EXPECT_EQ(Current(), "HOSE-4");
  EXPECT_EQ(list.lblMatchParts.Caption(), "4 Matches    ");
  EXPECT_EQ(list.TotalParts.Caption(), "      5 Total Parts");
  AddPart("OIL-1");
  EXPECT_EQ(list.DataGrid1.RowCount(), 4) << "it isn't looked for";
  EXPECT_EQ(list.lblMatchParts.Caption(), "4 Matches    ");
  EXPECT_EQ(list.TotalParts.Caption(), "      6 Total Parts");
}

TEST_F(ShownInvList, APartThatBringsItsCoreBringsARowForItToo) {
  Inventory::PartIndex index = inventory.FindPart("HOSE-4");
  std::optional<Inventory::Part> part = inventory.Read(index);
  part->master.Put(inventory::HasACore, 1);
  inventory.Write(*part, index, Inventory::Core::Follows, Inventory::Broadcast::No);
  EXPECT_THAT(Numbers(), ElementsAre("HOSE-2", "HOSE-4", "HOSE-4/C", "HOSE-6"));
  EXPECT_EQ(list.TotalParts.Caption(), "      5 Total Parts");
  EXPECT_EQ(list.DataGrid1.RowAt(2).cells.at(2), "CORE: HOSE-4");
}

TEST_F(ShownInvList, ARowThatIsTakenAwayLeavesThePersonOnTheOneBehindIt) {
  const Inventory::PartIndex hose4 = inventory.FindPart("HOSE-4");
  list.RemoveListRow(hose4);
  EXPECT_THAT(Numbers(), ElementsAre("HOSE-2", "HOSE-6"));
  EXPECT_EQ(Current(), "HOSE-6");
  EXPECT_EQ(list.lblMatchParts.Caption(), "2 Matches    ");
  list.RemoveListRow(inventory.FindPart("HOSE-6"));
  EXPECT_EQ(Current(), "HOSE-2");
  list.RemoveListRow(inventory.FindPart("HOSE-2"));
  EXPECT_EQ(Current(), "");
  EXPECT_EQ(list.TotalParts.Caption(), "      1 Total Parts");
  list.UpdateListRow(hose4, frmInvList::ListedPart::Known);
  EXPECT_EQ(list.DataGrid1.RowCount(), 0) << "what has gone stays away";
}

TEST_F(ShownInvList, NeighboursAreThoseOfTheHitsInTheirOrder) {
  const auto numberOf = [&](const std::optional<PartAt>& part) {
    if (!part) return std::string("none");
    EXPECT_EQ(part->master, inventory.Tag(part->index).Get(inventorytag::Tag));
    return inventory.Tag(part->index).Get(inventorytag::StockNumber);
  };
  const Inventory::PartIndex hose4 = inventory.FindPart("HOSE-4");
  EXPECT_EQ(numberOf(list.Before(hose4)), "HOSE-2");
  EXPECT_EQ(numberOf(list.After(hose4)), "HOSE-6");
  EXPECT_EQ(numberOf(list.Before(inventory.FindPart("HOSE-2"))), "none");
  EXPECT_EQ(numberOf(list.After(inventory.FindPart("HOSE-6"))), "none");
  EXPECT_EQ(numberOf(list.Before(inventory.FindPart("PAD-9"))), "none") << "it isn't among the hits";
  EXPECT_EQ(numberOf(list.After(inventory.FindPart("PAD-9"))), "none");
}

TEST_F(InvList, ADeletedPartHasNoRowAfterTheNextStartAndOneWithoutANumberHas) {
  AddPart("GONE");
  ASSERT_EQ(DeletePart(inventory, inventory.FindPart("GONE")), PartUpdated::Yes);
  const Inventory::PartIndex nameless = AddPart("X");
  std::optional<Inventory::Part> part = inventory.Read(nameless);
  part->tag.Put(inventorytag::StockNumber, "");
  inventory.Write(*part, nameless, Inventory::Core::Stays, Inventory::Broadcast::No);
  ForgetList();
  frmInvList list(shop);
  list.LoadForm();
  inventory.FinishLoading();
  ASSERT_EQ(inventory.Count(), 3);
  EXPECT_EQ(list.TotalParts.Caption(), "      2 Total Parts");
  ASSERT_EQ(list.DataGrid1.RowCount(), 2);
  EXPECT_EQ(list.DataGrid1.RowAt(0).cells.at(1), "PAD-9");
  EXPECT_EQ(list.DataGrid1.RowAt(1).cells.at(2), "X") << "its description";
}

TEST_F(InvList, WhereTheMastersAreHeldOrGoneAPartWithoutANumberIsTakenForALiveOne) {
  AddPart("GONE");
  ASSERT_EQ(DeletePart(inventory, inventory.FindPart("GONE")), PartUpdated::Yes);
  for (const bool held : {true, false}) {
    ForgetList();
    std::optional<SharedFile> holder;
    if (held) holder.emplace(directory / "TQINVENT.DAT", Access::ReadWrite, Deny::All);
    if (!held) std::filesystem::remove(directory / "TQINVENT.DAT");
    frmInvList list(shop);
    list.LoadForm();
    inventory.FinishLoading();
    EXPECT_EQ(list.DataGrid1.RowCount(), 2) << "held: " << held;
  }
  EXPECT_FALSE(std::filesystem::exists(directory / "TQINVENT.DAT")) << "it isn't made by a look";
}

TEST_F(InvList, HearsNothingOnceItIsGone) {
  { const frmInvList list(shop); }
  Write("PAD-9", "PADS", 17);
  AddPart("OIL-1");
  inventory.FinishLoading();
  EXPECT_EQ(inventory.PartInStock("PAD-9"), 17);
}

}  // namespace
}  // namespace lantos::test
