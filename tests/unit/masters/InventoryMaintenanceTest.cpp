// The loop that keeps the stock: what is asked of the list leads to its screens and back.
#include "masters/inventory/InventoryMaintenance.h"

#include <gmock/gmock.h>

#include "InventoryShop.h"
#include "masters/inventory/frmInvAdd.h"
#include "masters/inventory/frmInvEdit.h"
#include "masters/inventory/frmInvView.h"

namespace lantos::test {
namespace {

using ::testing::ElementsAre;

class KeepingStock : public InventoryShop {
 protected:
  KeepingStock() {
    AddPart("AXLE");
    AddPart("PAD-9", [](Inventory::Part& part) { part.master.Put(inventory::AltNumber[0], "AXLE"); });
    LoadList();
  }
  // What the person does on the list, from its row of the part.
  void WillUseList(const std::string& number, const std::string& key) {
    desktop.WillUse([this, number, key](ui::Form& form) {
      ASSERT_EQ(&form, &list);
      if (!number.empty()) GoTo(number);
      test::Press(list, key);
    });
  }
  template <class Screen, class Use>
  void WillUse(Use use) {
    desktop.WillUse([use](ui::Form& form) { use(As<Screen>(form)); });
  }
  std::vector<std::string> edited_;
  void WillEdit() {
    WillUse<frmInvEdit>([this](frmInvEdit& edit) {
      edited_.push_back(edit.StockNumber.Text());
      test::Press(edit, "Esc");
    });
  }
};

TEST_F(KeepingStock, SaysSoWhileItLasts) {
  desktop.WillUse([&](ui::Form&) {
    EXPECT_THAT(desktop.statuses, ElementsAre("Performing Inventory Maintenance..."));
    EXPECT_EQ(list.Caption(), "Inventory List");
    for (ui::Button* button : {&list.cmdSelect, &list.cmdView, &list.cmdAdd, &list.cmdChange, &list.cmdDelete}) {
      EXPECT_TRUE(button->IsUsable()) << button->Name();
    }
    test::Press(list, "Esc");
  });
  InventoryMaintenance(shop, list);
  EXPECT_THAT(desktop.statuses, ElementsAre("Performing Inventory Maintenance...", ""));
}

TEST_F(KeepingStock, ASelectedPartIsEditedAndTheListComesBackToIt) {
  WillUseList("PAD-9", "Enter");
  WillEdit();
  desktop.WillUse([&](ui::Form&) {
    EXPECT_EQ(Current(), "PAD-9");
    EXPECT_EQ(list.Focus(), &list.DataGrid1);
    test::Press(list, "Esc");
  });
  InventoryMaintenance(shop, list);
  EXPECT_THAT(edited_, ElementsAre("PAD-9"));
}

TEST_F(KeepingStock, WhoeverOpensTheListAnewBeginsWithTheSearch) {
  WillUseList("PAD-9", "Esc");
  InventoryMaintenance(shop, list);
  desktop.WillUse([&](ui::Form&) {
    EXPECT_EQ(Current(), "PAD-9");
    EXPECT_EQ(list.Focus(), &list.SearchPart);
    test::Press(list, "Esc");
  });
  InventoryMaintenance(shop, list);
}

TEST_F(KeepingStock, WhatWasLookedForIsMarkedWhenTheListIsOpenedAnew) {
  desktop.WillUse([&](ui::Form&) {
    test::Type(list.SearchPart, "PAD");
    test::Press(list, "Esc");
  });
  InventoryMaintenance(shop, list);
  desktop.WillUse([&](ui::Form&) {
    EXPECT_EQ(list.Focus(), &list.SearchPart);
    test::Press(list, "X");
    EXPECT_EQ(list.SearchPart.Text(), "x");
    test::Press(list, "Esc");
  });
  InventoryMaintenance(shop, list);
}

TEST_F(KeepingStock, AViewLeadsBackToTheListOrOnToTheEditing) {
  WillUseList("PAD-9", "F4");
  WillUse<frmInvView>([](frmInvView& view) { test::Press(view, "Esc"); });
  WillUseList("", "F4");
  WillUse<frmInvView>([](frmInvView& view) { test::Press(view, "F10"); });
  WillEdit();
  WillUseList("", "F4");
  WillUse<frmInvView>([](frmInvView& view) {
    test::Click(view.cmdGoToAlt[0]);
    test::Click(view.cmdSelect);
  });
  WillEdit();
  WillUseList("", "Esc");
  InventoryMaintenance(shop, list);
  EXPECT_THAT(edited_, ElementsAre("PAD-9", "AXLE"));
}

TEST_F(KeepingStock, PartsAreAddedUntilTheirScreenIsClosed) {
  WillUseList("", "Insert");
  WillUse<frmInvAdd>([](frmInvAdd& add) {
    for (const char* number : {"OIL-1", "OIL-2"}) {
      test::Type(add.StockNumber, number);
      test::Press(add, "Enter");
      EXPECT_EQ(add.Msg.Caption(), number + std::string(" added."));
    }
    test::Press(add, "Esc");
  });
  desktop.WillUse([&](ui::Form&) {
    EXPECT_THAT(Numbers(), ElementsAre("AXLE", "OIL-1", "OIL-2", "PAD-9"));
    EXPECT_EQ(Current(), "OIL-2");
    EXPECT_EQ(list.TotalParts.Caption(), "4 Total Parts");
    test::Press(list, "Esc");
  });
  InventoryMaintenance(shop, list);
}

TEST_F(KeepingStock, APartThatCannotBeReadLeavesThePersonOnTheList) {
  const SharedFile held(directory / "TQINVENT.DAT", Access::ReadWrite, Deny::All);
  desktop.WillAnswer({Answer::Cancel, Answer::Cancel});
  WillUseList("PAD-9", "F4");
  WillUseList("", "F10");
  WillUseList("", "Esc");
  InventoryMaintenance(shop, list);
  EXPECT_EQ(desktop.boxes.size(), 2U);
}

}  // namespace
}  // namespace lantos::test
