// The inventory list hears of parts that others write.
#include <gmock/gmock.h>

#include "MasterShop.h"
#include "masters/inventory/frmInvList.h"

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

TEST_F(InvList, HearsNothingOnceItIsGone) {
  { const frmInvList list(shop); }
  Write("PAD-9", "PADS", 17);
  AddPart("OIL-1");
  inventory.FinishLoading();
  EXPECT_EQ(inventory.PartInStock("PAD-9"), 17);
}

}  // namespace
}  // namespace lantos::test
