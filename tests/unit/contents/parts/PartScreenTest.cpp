#include <gmock/gmock.h>

#include "contents/parts/PartsBench.h"

// frmWOPart: one part on its screen.
namespace lantos {
namespace {

using test::Line;
using test::PartsBench;
using ui::Answer;

// Five of A-1 at 12.34 on the estimate, on their screen.
struct ChangedPart : PartsBench {
  ChangedPart() {
    form.SetLine(Line("A-1", 5, 1234));
    form.LoadForm();
    form.Show();
  }
  frmWOPart form{bench, "Change Part for Estimate", frmWOPart::Task::Change, frmWOPart::Kind::NonStock};
};

TEST(frmWOPart, ShowsThePartOfTheInventoryAtTheLevelsPriceWithItsNumberLocked) {
  PartsBench bench;
  bench.Stock("A-1", 3);
  bench.inventory.CurrentInv.Put(inventory::Description, "PADS");
  bench.inventory.CurrentInv.Put(inventory::Pricing[0], 1000);
  bench.inventory.CurrentInv.Put(inventory::Pricing[kRetail], 2500);
  bench.inventory.pricingLevel = kRetail;
  frmWOPart form(bench.bench, "Add Part to Estimate", frmWOPart::Task::Add, frmWOPart::Kind::Stocked);
  form.LoadForm();
  form.Show();
  EXPECT_EQ(form.PartNumber.Text() + " " + form.Description.Text() + " " + form.QuantityUsed.Text(), "A-1 PADS 1");
  EXPECT_EQ(form.SalePrice.Text() + " " + form.ListPrice.Text(), "25.00 25.00");
  EXPECT_EQ(form.lblInStock.Caption(), "3 in stock");
  EXPECT_TRUE(form.PartNumber.Locked() && form.lblInStock.Visible());
  EXPECT_FALSE(form.CostPrice.Visible());
  EXPECT_EQ(form.Focus(), &form.QuantityUsed);
}

TEST(frmWOPart, ANonStockedPartHasItsNumberAndCostTyped) {
  PartsBench bench;
  frmWOPart form(bench.bench, "Add Non-Stocked Part", frmWOPart::Task::Add, frmWOPart::Kind::NonStock);
  form.LoadForm();
  form.Show();
  EXPECT_FALSE(form.PartNumber.Locked() || form.lblInStock.Visible());
  EXPECT_TRUE(form.CostPrice.Visible());
  EXPECT_EQ(form.Focus(), &form.PartNumber);
  test::Type(form.QuantityUsed, "0");
  form.MoveFocus(&form.Description);
  EXPECT_EQ(form.QuantityUsed.Text(), "1");
}

TEST(frmWOPart, WhatIsMissingIsToldInOrder) {
  PartsBench bench;
  frmWOPart form(bench.bench, "Add Non-Stocked Part", frmWOPart::Task::Add, frmWOPart::Kind::NonStock);
  form.LoadForm();
  form.Show();
  bench.desktop.otherwise = [](const ui::Box&) { return Answer::Ok; };
  for (ui::TextBox* box :
       {&form.PartNumber, &form.Description, &form.QuantityUsed, &form.CostPrice, &form.SalePrice, &form.ListPrice}) {
    box->SetText("");
  }
  for (ui::TextBox* box : {&form.PartNumber, &form.Description, &form.QuantityUsed, &form.CostPrice, &form.SalePrice}) {
    form.cmdSave.DoClick();
    box->SetText("1");
  }
  form.cmdSave.DoClick();
  std::vector<std::string> told;
  for (const ui::Box& box : bench.desktop.boxes) told.push_back(box.text);
  EXPECT_THAT(told, testing::ElementsAre("Part number is required.", "Description is required.",
                                         "Quantity Used is required.", "Cost is required.", "Sale Price is required."));
  EXPECT_EQ(form.Line().list, 100) << "proposed when the cost was left";
  EXPECT_TRUE(form.Saved());
}

TEST(frmWOPart, ResetBringsBackWhatWasThereAtLoad) {
  ChangedPart bench;
  frmWOPart& form = bench.form;
  test::Type(form.QuantityUsed, "9");
  test::Type(form.SalePrice, "1");
  test::Press(form, "F2");
  EXPECT_EQ(form.QuantityUsed.Text() + " " + form.SalePrice.Text(), "5 12.34");
  EXPECT_EQ(form.Line().quantity, 5);
  EXPECT_EQ(form.Line().price, 1234);
  test::Press(form, "Esc");
  EXPECT_FALSE(form.Saved());
}

TEST(frmWOPart, AQuantityThatIsNoNumberStaysRedAndIsRefusedByName) {
  ChangedPart bench;
  frmWOPart& form = bench.form;
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  test::Type(form.QuantityUsed, "abc");
  for (int i = 0; i < 2; ++i) test::Click(form.cmdSave);
  EXPECT_EQ(form.QuantityUsed.Text(), "abc");
  EXPECT_TRUE(form.QuantityUsed.BackColor());
  EXPECT_EQ(bench.desktop.boxes.back().text, "Quantity Used: \"abc\" is not a number.");
  EXPECT_FALSE(form.Saved());
}

TEST(frmWOPart, AnAmountThatIsNoNumberIsToldOnceAndCountsByWhatItBeginsWith) {
  ChangedPart bench;
  frmWOPart& form = bench.form;
  bench.desktop.otherwise = [](const ui::Box&) { return Answer::Ok; };
  const std::vector<std::pair<ui::TextBox*, std::string>> fields = {
      {&form.CostPrice, "Cost"}, {&form.SalePrice, "Sale Price"}, {&form.ListPrice, "List Price"}};
  for (const auto& [box, name] : fields) {
    test::Type(*box, "12abc");
    EXPECT_TRUE(box->BackColor());
    test::Click(form.cmdSave);
    EXPECT_EQ(bench.desktop.boxes.back().text, name + ": \"12abc\" is not a number. 12.00 stands in its place.");
    EXPECT_FALSE(form.Saved());
  }
  test::Click(form.cmdSave);
  EXPECT_TRUE(form.Saved());
  const PartLine line = form.Line();
  EXPECT_EQ(line.cost + line.price + line.list, 3600);
}

TEST(frmWOPart, ResetLeavesNothingToLose) {
  ChangedPart bench;
  frmWOPart& form = bench.form;
  test::Type(form.SalePrice, "abc");
  EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
  test::Press(form, "F2");
  EXPECT_EQ(form.cmdCancel.Caption(), "Close");
  EXPECT_FALSE(form.SalePrice.BackColor());
  test::Press(form, "Esc");
  EXPECT_FALSE(form.Visible());
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

}  // namespace
}  // namespace lantos
