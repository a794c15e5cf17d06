// One part to be looked at, its alternates, and the view before a part is picked.
#include "masters/inventory/frmInvView.h"

#include <gmock/gmock.h>

#include "InventoryShop.h"

namespace lantos::test {
namespace {

class InvView : public InventoryShop {
 protected:
  InvView() {
    AddPart("PAD-9", [](Inventory::Part& part) {
      InventoryRecord& master = part.master;
      master.Put(inventory::Description, "BRAKE PADS");
      master.Put(inventory::Department, "BRAKES");
      master.Put(inventory::Manufacturer, "ACME");
      master.Put(inventory::Location, "KIT:(1.00,2.00)");
      master.Put(inventory::Comment, "left & right");
      master.Put(inventory::AltNumber[0], "PAD-8");
      master.Put(inventory::AltNumber[2], "UNKNOWN");
      for (std::size_t level = 0; level < 4; ++level) {
        master.Put(inventory::Pricing[level], static_cast<std::int32_t>(level == 0 ? 5 : 1000 * level + 50));
        master.Put(inventory::MarkupPercent[level], static_cast<std::int32_t>(level * 125000));
      }
      master.Put(inventory::QtyInStock, 12);
      master.Put(inventory::ReorderLevel, 3);
      master.Put(inventory::IdealLevel, 20);
      master.Put(inventory::IsStocked, 1);
      master.Put(inventory::HasACore, 1);
      master.Put(inventory::CoreCost, 1500);
      master.Put(inventory::DisposalFee, 75);
    });
    AddPart("PAD-8", [](Inventory::Part& part) { part.tag.Put(inventorytag::InStock, -2); });
    LoadList();
  }
  frmInvView& View(std::string_view number) {
    EXPECT_TRUE(view.ShowPart(inventory.FindPart(number)));
    view.Show();
    return view;
  }
  ~InvView() override { view.Hide(); }

  frmInvView view{shop};
};

TEST_F(InvView, ShowsWhatThePartsRecordHas) {
  View("PAD-9");
  EXPECT_EQ(view.StockNumber.Caption(), "PAD-9");
  EXPECT_EQ(view.Description.Caption(), "BRAKE PADS");
  EXPECT_EQ(view.Department.Caption(), "BRAKES");
  EXPECT_EQ(view.Manufacturer.Caption(), "ACME");
  EXPECT_EQ(view.Location.Caption(), "KIT:(1.00,2.00)");
  EXPECT_EQ(view.Comment.Caption(), "left & right");
  EXPECT_EQ(view.QtyInStock.Caption(), "12");
  EXPECT_EQ(view.ReorderLevel.Caption(), "3");
  EXPECT_EQ(view.IdealLevel.Caption(), "20");
  EXPECT_EQ(view.IsStocked.Caption(), "Yes");
  EXPECT_EQ(view.HasACore.Caption(), "Yes");
  EXPECT_EQ(view.CoreCost.Caption(), "15.00");
  EXPECT_EQ(view.HasWaste.Caption(), "No");
  EXPECT_EQ(view.DisposalFee.Caption(), "0.75");
}

TEST_F(InvView, PricesHaveTwoPlacesAndMarkupsFour) {
  View("PAD-9");
  const std::vector<std::string> prices = {"0.05", "10.50", "20.50", "30.50"};
  const std::vector<std::string> markups = {"0.0000", "12.5000", "25.0000", "37.5000"};
  const std::vector<std::string> levels = {"Cost", "Wholesale", "Resale", "Retail"};
  for (std::size_t level = 0; level < 4; ++level) {
    EXPECT_EQ(view.Pricing[level].Caption(), prices[level]);
    EXPECT_EQ(view.MarkupPercent[level].Caption(), markups[level]);
    EXPECT_EQ(view.lblLevel[level].Caption(), levels[level]);
  }
}

TEST_F(InvView, EachLevelHasItsColourBesideAText) {
  const std::vector<std::string> colours = {"#000000", "#ff0000", "#00ff00", "#0000ff"};
  for (std::size_t level = 0; level < 4; ++level) {
    EXPECT_EQ(ui::ToHex(*view.LevelColor[level].BackColor()), colours[level]);
    EXPECT_FALSE(view.lblLevel[level].BackColor()) << "its text stands on the window's own ground";
  }
}

TEST_F(InvView, AlternatesHaveTheirStockAndAWayToThem) {
  View("PAD-9");
  const std::vector<std::string> numbers = {"PAD-8", "", "UNKNOWN", ""};
  const std::vector<std::string> inStock = {"-2", "", "0", ""};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(view.AltNumber[i].Caption(), numbers[i]);
    EXPECT_EQ(view.AltInStock[i].Caption(), inStock[i]);
    EXPECT_EQ(view.cmdGoToAlt[i].Enabled(), !numbers[i].empty());
  }
  test::Click(view.cmdGoToAlt[0]);
  EXPECT_EQ(view.StockNumber.Caption(), "PAD-8");
  EXPECT_FALSE(view.cmdGoToAlt[0].Enabled());
  EXPECT_EQ(view.Focus(), &view.cmdSelect) << "the button that had the focus is greyed";
  test::Press(view, "F10");
  ASSERT_TRUE(view.Selected());
  EXPECT_EQ(view.Selected()->index, inventory.FindPart("PAD-8"));
  EXPECT_EQ(view.Selected()->master, 344);
}

TEST_F(InvView, AnAlternateThatNoPartIsSaysSo) {
  View("PAD-9");
  desktop.WillAnswer(Answer::Ok);
  test::Click(view.cmdGoToAlt[2]);
  EXPECT_EQ(desktop.boxes.at(0).text, "Inventory record does not exist for UNKNOWN");
  EXPECT_EQ(view.StockNumber.Caption(), "PAD-9");
}

TEST_F(InvView, EscAndCloseSelectNothing) {
  for (const char* key : {"Esc", "Close"}) {
    View("PAD-9");
    if (key == std::string("Esc")) {
      test::Press(view, "Esc");
    } else {
      test::Click(view.cmdCancel);
    }
    EXPECT_FALSE(view.Visible());
    EXPECT_FALSE(view.Selected());
  }
}

TEST_F(InvView, LeavesTheWorkingRecordsAlone) {
  FileLink offset = kNoLink;
  ASSERT_TRUE(inventory.ReadInventory(offset, inventory.FindPart("PAD-8")));
  View("PAD-9");
  EXPECT_EQ(inventory.CurrentInv.Get(inventory::StockNumber), "PAD-8");
  EXPECT_EQ(inventory.CurrentInvTag.Get(inventorytag::StockNumber), "PAD-8");
  EXPECT_EQ(inventory.OriginalInv.Get(inventory::StockNumber), "PAD-8");
}

TEST_F(InvView, APartThatCannotBeReadIsNotShown) {
  const Inventory::PartIndex index = inventory.FindPart("PAD-9");
  const SharedFile held(directory / "TQINVENT.DAT", Access::ReadWrite, Deny::All);
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(ViewPart(shop, index));
  EXPECT_TRUE(desktop.boxes.at(0).text.starts_with("Can not read tags record for PAD-9\r"));
}

TEST_F(InvView, APickedPartMayBeLookedAtFirst) {
  desktop.WillUse([&](ui::Form&) {
    EXPECT_FALSE(list.cmdAdd.Enabled() || list.cmdChange.Enabled() || list.cmdDelete.Enabled());
    GoTo("PAD-9");
    test::Press(list, "F4");
  });
  desktop.WillUse([&](ui::Form& form) { test::Press(form, "Esc"); });
  desktop.WillUse([&](ui::Form& form) {
    EXPECT_EQ(&form, &list) << "the list is back";
    EXPECT_EQ(Current(), "PAD-9");
    EXPECT_TRUE(list.DataGrid1.HasFocus());
    test::Click(list.cmdView);
  });
  desktop.WillUse([&](ui::Form& form) {
    test::Click(As<frmInvView>(form).cmdGoToAlt[0]);
    test::Press(form, "Enter");
  });
  const auto picked = list.Pick("Add part to estimate");
  ASSERT_TRUE(picked);
  EXPECT_EQ(picked->index, inventory.FindPart("PAD-8"));
  EXPECT_EQ(picked->master, 344);
}

}  // namespace
}  // namespace lantos::test
