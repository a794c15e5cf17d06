#include "screens/NumberFields.h"

#include "admin/TestShop.h"

namespace lantos {
namespace {

using test::TestShop;
using ui::Answer;

class Sample : public ui::Form {
 public:
  explicit Sample(TestShop& world) : Form(world.desktop, "frmSample", "Sample") {
    txtAmount.SetToolTip("What it costs");
    numbers.Add(txtAmount, "Amount");
    numbers.Add(txtHours, "Hours");
    numbers.Add(txtDays, "Days", NumberFields::Read::Whole);
    numbers.FormatOnLeaving(txtAmount);
    numbers.TakeOnLeaving(txtHours);
    numbers.Add(txtPrice, "Price");
    numbers.FormatOnLeaving(txtPrice);
    numbers.TakeOnSaving(txtPrice);
  }
  ui::TextBox txtAmount{*this, "txtAmount"};
  ui::TextBox txtHours{*this, "txtHours"};
  ui::TextBox txtDays{*this, "txtDays"};
  ui::TextBox txtPrice{*this, "txtPrice"};
  NumberFields numbers{*this};
};

class NumberFieldsTest : public testing::Test {
 protected:
  NumberFieldsTest() { form.Show(); }
  TestShop world;
  Sample form{world};
};

TEST_F(NumberFieldsTest, ABoxIsRedForAsLongAsItsTextIsNoNumber) {
  EXPECT_FALSE(form.txtAmount.BackColor());
  test::Type(form.txtAmount, "abc");
  EXPECT_TRUE(form.txtAmount.BackColor());
  EXPECT_EQ(form.txtAmount.ToolTip(), "\"abc\" is not a number.");
  for (const char* number : {"12.5", "-3", "", " "}) {
    test::Type(form.txtAmount, "x");
    test::Type(form.txtAmount, number);
    EXPECT_FALSE(form.txtAmount.BackColor()) << number;
    EXPECT_EQ(form.txtAmount.ToolTip(), "What it costs");
  }
}

TEST_F(NumberFieldsTest, ACommaThatWouldCutTheNumberShortIsRedToo) {
  test::Type(form.txtAmount, "1,200");
  EXPECT_TRUE(form.txtAmount.BackColor()) << "read by its beginning it is 1";
  test::Type(form.txtDays, "1,200");
  EXPECT_FALSE(form.txtDays.BackColor()) << "read as a whole it is 1200";
}

TEST_F(NumberFieldsTest, LeavingFormatsANumberAndLetsAnythingElseStand) {
  test::Type(form.txtAmount, "12.5");
  form.MoveFocus(&form.txtDays);
  EXPECT_EQ(form.txtAmount.Text(), "12.50");
  test::Type(form.txtAmount, "12.5x");
  form.MoveFocus(&form.txtDays);
  EXPECT_EQ(form.txtAmount.Text(), "12.5x");
  EXPECT_TRUE(form.txtAmount.BackColor());
}

TEST_F(NumberFieldsTest, WhatIsNoNumberIsRefusedByItsName) {
  test::Type(form.txtAmount, "abc");
  form.MoveFocus(&form.txtDays);
  world.desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(form.numbers.AreNumbers());
  EXPECT_EQ(world.desktop.boxes.at(0).text, "Amount: \"abc\" is not a number.");
  EXPECT_EQ(world.desktop.boxes[0].title, "Sample");
  EXPECT_EQ(form.Focus(), &form.txtAmount);
  test::Type(form.txtAmount, "0");
  EXPECT_TRUE(form.numbers.AreNumbers());
}

TEST_F(NumberFieldsTest, WhatWasTakenForANumberOnLeavingIsToldBeforeItCounts) {
  test::Type(form.txtHours, "abc");
  form.MoveFocus(&form.txtDays);
  EXPECT_EQ(form.txtHours.Text(), "0.00");
  EXPECT_TRUE(form.txtHours.BackColor());
  world.desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(form.numbers.AreNumbers());
  EXPECT_EQ(world.desktop.boxes.at(0).text, "Hours: \"abc\" is not a number. 0.00 stands in its place.");
  EXPECT_TRUE(form.numbers.AreNumbers()) << "the person has been told, and left it";
  EXPECT_FALSE(form.txtHours.BackColor());
}

TEST_F(NumberFieldsTest, WhatIsTakenOnSavingStaysAsTypedUntilThenAndIsToldOnce) {
  test::Type(form.txtPrice, "12abc");
  form.MoveFocus(&form.txtDays);
  EXPECT_EQ(form.txtPrice.Text(), "12abc");
  world.desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(form.numbers.AreNumbers());
  EXPECT_EQ(world.desktop.boxes.at(0).text, "Price: \"12abc\" is not a number. 12.00 stands in its place.");
  EXPECT_EQ(form.Focus(), &form.txtPrice);
  EXPECT_EQ(form.txtPrice.Text(), "12.00");
  EXPECT_TRUE(form.numbers.AreNumbers());
  EXPECT_FALSE(form.txtPrice.BackColor());
}

TEST_F(NumberFieldsTest, WhatIsTakenOnLeavingIsTakenWhenTheBoxIsSavedUnleft) {
  test::Type(form.txtHours, "1,200");
  world.desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(form.numbers.AreNumbers());
  EXPECT_EQ(world.desktop.boxes.at(0).text, "Hours: \"1,200\" is not a number. 1.00 stands in its place.");
  EXPECT_TRUE(form.numbers.AreNumbers());
}

}  // namespace
}  // namespace lantos
