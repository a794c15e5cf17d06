#include "contents/parts/PartLines.h"

#include <gmock/gmock.h>

#include <map>
#include <random>

#include "contents/ContentsBench.h"
#include "contents/parts/frmWOKit.h"
#include "contents/parts/frmWOPart.h"
#include "frame/Numbers.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/InventoryKits.h"
#include "records/modSystem.h"

namespace lantos {
namespace {

using test::ContentsBench;
using ui::Answer;

struct PartsBench : ContentsBench {
  Inventory& inventory = records.inventory;

  // A part that the inventory holds, in the working records too.
  void Stock(std::string_view number, std::int16_t onHand, std::string_view location = "") {
    inventory.SizeArrays();
    Inventory::PartIndex index = Inventory::kNoPart;
    inventory.NewInventoryPart(number, index);
    inventory.CurrentInv.Put(inventory::QtyInStock, onHand);
    inventory.CurrentInv.Put(inventory::Location, location);
  }
  std::int64_t SumOfRows() const {
    std::int64_t sum = 0;
    for (const ui::ListRow& row : board.listParts.Rows()) {
      sum += RoundHalfEven(Val(row.text.substr(row.text.rfind(' ') + 1)) * 100);
    }
    return sum;
  }
  std::string Stored() { return Ask("select sum(PartTotal) from Parts where EstimateNumber = 1001"); }
};

PartLine Line(std::string number, std::int32_t quantity, Cents price) {
  PartLine line;
  line.partNumber = std::move(number);
  line.description = "PART";
  line.quantity = quantity;
  line.price = price;
  return line;
}

TEST(PartLines, ASecondEntryOfANumberIsMergedInEitherCase) {
  PartsBench bench;
  bench.contents.parts.AddPartLine(Line("abc", 2, 100), PartLines::Choosing::ItsRow);
  bench.contents.parts.AddPartLine(Line(" ABC ", 3, 150), PartLines::Choosing::ItsRow);
  EXPECT_EQ(bench.board.listParts.ListCount(), 1);
  EXPECT_EQ(bench.Stored(), "750");
  EXPECT_EQ(bench.Ask("select Quantity from Parts"), "5");
}

TEST(PartLines, AnApostropheBreaksTheSearchAndLeavesEverythingAsItWas) {
  PartsBench bench;
  bench.contents.parts.AddPartLine(Line("A-1", 1, 100), PartLines::Choosing::ItsRow);
  EXPECT_THROW(bench.contents.parts.AddPartLine(Line("O'RING", 1, 100), PartLines::Choosing::ItsRow),
               std::invalid_argument);
  EXPECT_EQ(bench.Stored(), "100");
  EXPECT_EQ(bench.board.listParts.ListCount(), 1);
}

TEST(PartLines, AChangeThatCantBeStoredLosesNothing) {
  PartsBench bench;
  bench.database.lantosData.AddPartRow(1001, {"O'RING", "RING", 4, 25, 100, 10, 30});
  bench.contents.parts.LoadPartList();
  bench.board.listParts.SelectRow(0);
  bench.desktop.WillUse([](ui::Form& form) { test::Press(form, "F10"); });
  EXPECT_THROW(bench.contents.parts.Change(), std::invalid_argument);
  EXPECT_EQ(bench.Stored(), "100");
}

TEST(PartLines, AnySequenceOfAddingChangingAndRemovingLeavesTheRowsEqualToTheDatabase) {
  PartsBench bench;
  std::mt19937 random(77);
  std::map<std::string, std::pair<std::int32_t, Cents>> expected;
  for (int round = 0; round < 300; ++round) {
    const std::string number = "P-" + std::to_string(random() % 8);
    const auto quantity = static_cast<std::int32_t>(random() % 9) - 2;
    const auto price = static_cast<Cents>(random() % 5000);
    if (random() % 3 != 0 || expected.empty()) {
      bench.contents.parts.AddPartLine(Line(number, quantity, price),
                                       random() % 2 == 0 ? PartLines::Choosing::ItsRow : PartLines::Choosing::NoRow);
      expected[number] = {expected[number].first + quantity, price};
    } else {
      const int row = static_cast<int>(random() % expected.size());
      const std::string gone = Trim(Left(bench.board.listParts.List(row), 21));
      bench.contents.parts.RemovePartLine(row);
      expected.erase(gone);
    }
    std::int64_t sum = 0;
    for (const auto& [part, line] : expected) sum += static_cast<std::int64_t>(line.first) * line.second;
    ASSERT_EQ(bench.SumOfRows(), sum);
    ASSERT_EQ(bench.Ask("select total(PartTotal) from Parts"), std::to_string(sum));
  }
}

// Callers other than the estimate's are asked about the stock.

TEST(frmWOPart, AsksBeforeItSellsMoreThanThereIs) {
  PartsBench bench;
  bench.Stock("A-1", 3);
  frmWOPart form(bench.bench, "Add Part to Workorder", frmWOPart::Task::Add, frmWOPart::Kind::Stocked);
  form.LoadForm();
  form.Show();
  test::Type(form.QuantityUsed, "4");
  bench.desktop.WillAnswer({Answer::No, Answer::Yes});
  form.cmdSave.DoClick();
  EXPECT_EQ(bench.desktop.boxes[0].text,
            "Quantity used (4) is more than quantity in stock (3).\r\n\r\nAre you sure you wish to continue?");
  EXPECT_EQ(bench.desktop.boxes[0].buttons, ui::Buttons::YesNo);
  EXPECT_FALSE(form.Saved());
  form.cmdSave.DoClick();
  EXPECT_TRUE(form.Saved());
}

TEST(frmWOPart, AChangedLineIsAskedAboutItsIncrease) {
  PartsBench bench;
  bench.Stock("A-1", 3);
  frmWOPart form(bench.bench, "Change Part", frmWOPart::Task::Change, frmWOPart::Kind::Stocked);
  PartLine line = Line("A-1", 5, 100);
  form.SetLine(line);
  form.LoadForm();
  form.Show();
  test::Type(form.QuantityUsed, "9");
  bench.desktop.WillAnswer(Answer::No);
  form.cmdSave.DoClick();
  EXPECT_EQ(bench.desktop.boxes[0].text,
            "Additional quantity (4) exceeds quantity in stock (3).\r\n\r\nAre you sure you wish to continue?");
  test::Type(form.QuantityUsed, "8");
  form.cmdSave.DoClick();
  EXPECT_TRUE(form.Saved());
}

TEST(frmWOPart, EnterInTheListPriceGoesToTheFeeWhereItIsNotForAnEstimate) {
  PartsBench bench;
  bench.Stock("A-1", 3);
  frmWOPart form(bench.bench, "Add Part to Workorder", frmWOPart::Task::Add, frmWOPart::Kind::Stocked);
  form.LoadForm();
  form.Show();
  form.MoveFocus(&form.ListPrice);
  test::Press(form, "Enter");
  EXPECT_EQ(form.Focus(), &form.DisposalFee);
}

TEST(frmWOPart, ThePriceLevelOfTheWorkOrderIsTakenByItsNameInEitherForm) {
  PartsBench bench;
  bench.records.system.SysRec.Put(sysrec::markups[1], 200000);
  bench.records.system.SysRec.Put(sysrec::markups[3], 500000);
  const auto proposal = [&](const std::string& pricing) {
    bench.workorder.Pricing = pricing;
    frmWOPart form(bench.bench, "Add Non-Stocked Part", frmWOPart::Task::Add, frmWOPart::Kind::NonStock);
    form.LoadForm();
    form.Show();
    test::Type(form.CostPrice, "10");
    form.MoveFocus(&form.SalePrice);
    return form.SalePrice.Text() + " " + form.ListPrice.Text();
  };
  EXPECT_EQ(proposal("Wholesale"), "12.00 12.00");
  EXPECT_EQ(proposal("WHOLESALE"), "12.00 12.00");
  EXPECT_EQ(bench.workorder.Pricing, "Wholesale");
  EXPECT_EQ(proposal("anything"), "15.00 15.00");
  EXPECT_EQ(bench.workorder.Pricing, "Retail");
  EXPECT_EQ(proposal("Cost"), "10.00 10.00");
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
