#include <gmock/gmock.h>

#include "contents/parts/PartsBench.h"
#include "records/OpenedFile.h"

// frmWOKit: a kit on its screen.
namespace lantos {
namespace {

using test::Line;
using test::PartsBench;
using ui::Answer;

struct KitScreen : PartsBench {
  // KIT-A holds three of OIL, of which five are in stock, and a filter that the shop doesn't know.
  KitScreen() {
    Stock("OIL", 5);
    InventoryTag stocked = inventory.Tag(0);
    stocked.Put(inventorytag::InStock, 5);
    inventory.ReplaceTag(0, stocked);
    InventoryKitRecord kit;
    kit.Put(inventorykit::KitNumber, "KIT-A");
    kit.Put(inventorykit::Line(0), "OIL(3)");
    kit.Put(inventorykit::Line(1), "FILTER");
    records.kits.SaveKit(kit);
    inventory.CurrentInv.Put(inventory::StockNumber, "KIT-A");
    inventory.CurrentInv.Put(inventory::Description, "KIT");
    inventory.CurrentInv.Put(inventory::Location, "KIT:(12.50,14.00)");
  }
};

TEST(frmWOKit, ShowsTheKitAndWhatIsInIt) {
  KitScreen bench;
  frmWOKit form(bench.bench, "Add Kit to Estimate");
  form.LoadForm();
  form.Show();
  EXPECT_EQ(form.PartNumber.Text() + " " + form.Description.Text() + " " + form.QuantityUsed.Text(), "KIT-A KIT 1");
  EXPECT_EQ(form.SalePrice.Text() + " " + form.ListPrice.Text(), "12.50 14.00");
  ASSERT_EQ(form.Rows().size(), 2U);
  EXPECT_EQ(form.Rows()[0].partNumber, "OIL");
  EXPECT_EQ(form.Rows()[0].quantity, 3);
  EXPECT_EQ(form.List1.List(1), "    1   FILTER               ");
  EXPECT_TRUE(form.PartNumber.Locked());
  EXPECT_EQ(form.Focus(), &form.QuantityUsed);
}

TEST(frmWOKit, AKitWhoseContentsAreHeldByAnotherComesNeitherUpNorOntoTheEstimate) {
  KitScreen bench;
  const OpenedFile held(bench.environment.openFiles, kKitFile, Access::ReadWrite, Deny::All);
  bench.desktop.WillAnswer(Answer::Ok);
  bench.contents.parts.AddKitLines();
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "Could not open TQINVKIT.DAT for shared access.");
  EXPECT_TRUE(bench.desktop.forms.empty());
  EXPECT_EQ(bench.board.listParts.ListCount(), 0);
}

TEST(frmWOKit, ForAnEstimateTheStockIsntAskedAbout) {
  KitScreen bench;
  frmWOKit form(bench.bench, "Add Kit to Estimate");
  form.LoadForm();
  form.Show();
  test::Type(form.QuantityUsed, "100");
  test::Press(form, "F10");
  EXPECT_TRUE(form.Saved());
  EXPECT_EQ(form.Line().quantity, 100);
  EXPECT_EQ(form.Line().price, 1250);
  EXPECT_EQ(form.Line().list, 1400);
}

TEST(frmWOKit, ResetBringsBackTheKitAndAnEmptyQuantityIsOne) {
  KitScreen bench;
  frmWOKit form(bench.bench, "Add Kit to Estimate");
  form.LoadForm();
  form.Show();
  test::Type(form.SalePrice, "3");
  test::Press(form, "F2");
  EXPECT_EQ(form.SalePrice.Text(), "12.50");
  EXPECT_EQ(form.Focus(), &form.QuantityUsed);
  test::Type(form.QuantityUsed, "");
  form.MoveFocus(&form.SalePrice);
  EXPECT_EQ(form.QuantityUsed.Text(), "1");
}

TEST(frmWOKit, AnAmountThatIsNoNumberIsToldOnceAndCountsByWhatItBeginsWith) {
  PartsBench bench;
  bench.inventory.CurrentInv.Put(inventory::StockNumber, "KIT-A");
  bench.inventory.CurrentInv.Put(inventory::Description, "KIT");
  frmWOKit form(bench.bench, "Add Kit to Estimate");
  form.LoadForm();
  form.Show();
  test::Type(form.SalePrice, "1,250.00");
  bench.desktop.WillAnswer(Answer::Ok);
  test::Press(form, "F10");
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "Sale Price: \"1,250.00\" is not a number. 1.00 stands in its place.");
  test::Press(form, "F10");
  EXPECT_TRUE(form.Saved());
  EXPECT_EQ(form.Line().price, 100);
}

TEST(frmWOKit, AsksBeforeItSellsMoreThanThereIs) {
  PartsBench bench;
  bench.Stock("OIL", 5);
  const InventoryTag oil = bench.inventory.Tag(0);
  InventoryTag stocked = oil;
  stocked.Put(inventorytag::InStock, 5);
  bench.inventory.ReplaceTag(0, stocked);
  InventoryKitRecord kit;
  kit.Put(inventorykit::KitNumber, "KIT-A");
  kit.Put(inventorykit::Line(0), "OIL(3)");
  bench.records.kits.SaveKit(kit);
  bench.inventory.CurrentInv.Put(inventory::StockNumber, "KIT-A");
  bench.inventory.CurrentInv.Put(inventory::Description, "KIT");
  frmWOKit form(bench.bench, "Add Kit");
  form.LoadForm();
  form.Show();
  test::Type(form.QuantityUsed, "2");
  bench.desktop.WillAnswer(Answer::No);
  form.cmdSave.DoClick();
  EXPECT_EQ(bench.desktop.boxes[0].text, "Quantity 6 for OIL exceeds stock of 5\rDo you wish to continue?");
  EXPECT_FALSE(form.Saved());
  test::Type(form.QuantityUsed, "1");
  form.cmdSave.DoClick();
  EXPECT_TRUE(form.Saved());
}

}  // namespace
}  // namespace lantos
