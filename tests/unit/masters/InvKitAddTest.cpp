// The screen of one component of a kit.
#include <gmock/gmock.h>

#include "KitShop.h"
#include "masters/inventory/frmInvList.h"

namespace lantos::test {
namespace {

using ::testing::HasSubstr;

class InvKitAdd : public KitShop {
 protected:
  // What is told when this is typed and saved; empty when it is taken.
  std::string Refusal(const std::string& part, const std::string& quantity) {
    frmInvKitAdd form(shop, kChoosePartForKit, {"", "1"});
    desktop.boxes.clear();
    desktop.otherwise = [](const ui::Box& box) { return box.buttons == ui::Buttons::Ok ? Answer::Ok : Answer::Yes; };
    desktop.WillUse([&](ui::Form&) {
      Type(form.txtPart, part);
      Type(form.txtQuantity, quantity);
      Press(form, "F10");
      if (form.Visible()) form.Hide();
    });
    form.ShowModal();
    EXPECT_EQ(form.Saved(), desktop.boxes.empty());
    return desktop.boxes.empty() ? "" : desktop.boxes.back().text;
  }
};

TEST_F(InvKitAdd, ShowsTheDescriptionOfTheTypedPart) {
  frmInvKitAdd form(shop, kChoosePartForKit, {"", "1"});
  desktop.WillUse([&](ui::Form&) {
    EXPECT_EQ(form.Caption(), "Choose Part for Kit");
    EXPECT_TRUE(form.txtPart.HasFocus());
    EXPECT_EQ(form.txtQuantity.Text(), "1");
    EXPECT_FALSE(form.cmdFind.Enabled()) << "there is no list to choose from";
    Press(form, "F5");
    Type(form.txtPart, "PLU");
    EXPECT_EQ(form.txtDesc.Text(), "");
    Type(form.txtPart, " PLUG ");
    EXPECT_EQ(form.txtDesc.Text(), "SPARK PLUG");
    Press(form, "Enter");
  });
  form.ShowModal();
  ASSERT_TRUE(form.Saved());
  EXPECT_EQ(form.Component().partNumber, "PLUG");
  EXPECT_EQ(form.Component().quantity, "1");
}

TEST_F(InvKitAdd, APartIsRequiredAndMustBeOnFile) {
  EXPECT_EQ(Refusal("", "1"), "Part number is required.");
  EXPECT_EQ(Refusal("  ", "1"), "Part number is required.");
  EXPECT_EQ(Refusal("GONE", "1"), "Part GONE not found.");
  EXPECT_EQ(Refusal("plug", "1"), "Part plug not found.") << "numbers are compared exactly";
}

TEST_F(InvKitAdd, AQuantityIsAWholeNumberOfOneAtLeast) {
  const char* refusal = "Quantity must be a whole number from 1 to 99999.";
  for (const char* quantity : {"0", "-4", "1.5"}) EXPECT_EQ(Refusal("PLUG", quantity), refusal) << quantity;
  EXPECT_EQ(Refusal("PLUG", "abc"), "Quantity: \"abc\" is not a number.");
  for (const char* quantity : {"", " ", "1", "12345", "99999", "1,000"}) EXPECT_EQ(Refusal("PLUG", quantity), "");
}

TEST_F(InvKitAdd, TheBoxOfTheQuantityHoldsFiveCharacters) {
  frmInvKitAdd form(shop, kChoosePartForKit, {"", "1"});
  desktop.WillUse([&](ui::Form&) {
    Type(form.txtQuantity, "123456");
    EXPECT_EQ(form.txtQuantity.Text(), "12345");
    Type(form.txtQuantity, "");
    form.MoveFocus(&form.cmdSave);
    EXPECT_EQ(form.txtQuantity.Text(), "1") << "none is one";
    form.Hide();
  });
  form.ShowModal();
}

TEST_F(InvKitAdd, WhatALineOfAKitCanNotHoldIsToldAndNotCut) {
  AddPart("PAD(L)", "PAD, LEFT");
  AddPart("123456789012345678901", "OF THE WHOLE WIDTH");
  AddPart("1234567890123456789", "OF NINETEEN");
  EXPECT_EQ(Refusal("PAD(L)", "1"), "Part PAD(L) can not be in a kit: what follows \"(\" would be read as a quantity.");
  EXPECT_EQ(Refusal("123456789012345678901", "1"), "");
  EXPECT_THAT(Refusal("123456789012345678901", "2"), HasSubstr("is too long for a kit"));
  EXPECT_THAT(Refusal("1234567890123456789", "2"), HasSubstr("1234567890123456789(2) is too long"));
}

TEST_F(InvKitAdd, APartIsChosenFromTheInventoryList) {
  frmInvList list(shop);
  list.LoadForm();
  while (list.IsLoading()) list.FinishLoading();
  frmInvKitAdd form(shop, kChoosePartForKit, {"", "1"});
  desktop.WillUse([&](ui::Form&) {
    EXPECT_TRUE(form.cmdFind.Enabled());
    desktop.WillUse([](ui::Form& each) { Press(each, "Esc"); });
    Press(form, "F5");
    EXPECT_EQ(form.txtPart.Text(), "") << "nothing was chosen";
    EXPECT_TRUE(form.txtPart.HasFocus());
    desktop.WillUse([](ui::Form& each) {
      EXPECT_EQ(each.Name(), "frmInvList");
      EXPECT_EQ(each.Caption(), "Choose Part for Kit");
      auto& grid = As<frmInvList>(each).DataGrid1;
      int row = 0;
      while (grid.RowAt(row).cells.at(1) != "WIRES") ++row;
      grid.DoSelect(row);
      Press(each, "F10");
    });
    Click(form.cmdFind);
    EXPECT_EQ(form.txtPart.Text(), "WIRES");
    EXPECT_EQ(form.txtDesc.Text(), "IGNITION WIRES");
    EXPECT_TRUE(form.txtQuantity.HasFocus());
    Press(form, "F10");
  });
  form.ShowModal();
  EXPECT_EQ(form.Component().partNumber, "WIRES");
}

TEST_F(InvKitAdd, TheListIsLookedThroughAndLeftAsItWasBefore) {
  frmInvList list(shop);
  list.LoadForm();
  while (list.IsLoading()) list.FinishLoading();
  list.SearchPart.SetText("TUNE");
  list.cmdSearch.OnClick();
  ASSERT_EQ(list.DataGrid1.RowCount(), 1);
  frmInvKitAdd form(shop, kChoosePartForKit, {"", "1"});
  desktop.WillUse([&](ui::Form&) {
    desktop.WillUse([&](ui::Form& each) {
      Type(list.SearchPart, "");
      Type(list.SearchDesc, "CAP");
      Click(list.cmdSearch);
      Press(each, "F10");
    });
    Click(form.cmdFind);
    EXPECT_EQ(form.txtPart.Text(), "CAP");
    EXPECT_EQ(list.SearchPart.Text(), "TUNE");
    EXPECT_EQ(list.SearchDesc.Text(), "");
    ASSERT_EQ(list.DataGrid1.RowCount(), 1);
    EXPECT_EQ(list.DataGrid1.RowAt(0).cells.at(1), "TUNEUP");
    Press(form, "F10");
  });
  form.ShowModal();
}

TEST_F(InvKitAdd, WhatWasTypedIsAskedAbout) {
  frmInvKitAdd form(shop, kChoosePartForKit, {"", "1"});
  desktop.WillAnswer({Answer::No, Answer::Yes});
  desktop.WillUse([&](ui::Form&) {
    Type(form.txtPart, "PLUG");
    Press(form, "Esc");
    EXPECT_EQ(LastBox(), "Discard changes?");
    EXPECT_TRUE(form.Visible());
    form.DoClose();
  });
  form.ShowModal();
  EXPECT_FALSE(form.Saved());
}

}  // namespace
}  // namespace lantos::test
