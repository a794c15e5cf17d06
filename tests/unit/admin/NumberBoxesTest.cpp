#include "screens/NumberBoxes.h"

#include "admin/TestShop.h"

namespace lantos {
namespace {

using test::TestShop;
using ui::Answer;

constexpr LongField kMoney{0};
constexpr LongField kRate{4};
constexpr IntegerField kLevel{8};
constexpr ByteField kCount{10};
using Numbers = Record<11>;

class Sample : public ui::Form {
 public:
  explicit Sample(TestShop& world) : Form(world.desktop, "frmSample", "Sample") {
    boxes.AddMoney(txtMoney, kMoney, "Money");
    boxes.AddRate(txtRate, kRate, "Rate");
    boxes.AddLevel(txtLevel, kLevel, "Level");
    boxes.AddCount(txtCount, kCount, "Count");
    boxes.AddMoney(txtElsewhere, "Elsewhere");
  }
  ui::TextBox txtMoney{*this, "txtMoney"};
  ui::TextBox txtRate{*this, "txtRate"};
  ui::TextBox txtLevel{*this, "txtLevel"};
  ui::TextBox txtCount{*this, "txtCount"};
  ui::TextBox txtElsewhere{*this, "txtElsewhere"};
  NumberFields numbers{*this};
  NumberBoxes boxes{*this, numbers};
};

Numbers Some() {
  Numbers record;
  record.Put(kMoney, 1875);
  record.Put(kRate, 125000);
  record.Put(kLevel, -3);
  record.Put(kCount, 2);
  return record;
}

TEST(NumberBoxes, ShowsEachNumberInItsForm) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.boxes.Show(Some());
  form.boxes.ShowValue(form.txtElsewhere, 5);
  EXPECT_EQ(form.txtMoney.Text(), "18.75");
  EXPECT_EQ(form.txtRate.Text(), "12.5000");
  EXPECT_EQ(form.txtLevel.Text(), "-3");
  EXPECT_EQ(form.txtCount.Text(), "2");
  EXPECT_EQ(form.txtElsewhere.Text(), "0.05");
  EXPECT_FALSE(form.boxes.IsChanged(form.txtElsewhere));
}

TEST(NumberBoxes, StoresWhatWasChangedAndNothingElse) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.boxes.Show(Some());
  test::Type(form.txtMoney, "");
  test::Type(form.txtCount, "255");
  test::Type(form.txtElsewhere, "1.5");
  EXPECT_TRUE(form.boxes.CanBeStored());
  Numbers record;
  record.Put(kMoney, 1);
  record.Put(kRate, 7);
  form.boxes.Store(record);
  EXPECT_EQ(record.Get(kMoney), 0) << "a blank is 0";
  EXPECT_EQ(record.Get(kRate), 7) << "another workstation's";
  EXPECT_EQ(record.Get(kCount), 255);
  EXPECT_EQ(form.boxes.ValueIn(form.txtElsewhere), 150);
  EXPECT_TRUE(form.boxes.IsChanged(form.txtElsewhere));
}

TEST(NumberBoxes, AHalfIsOneAsItReadsAndGoesToTheEvenNeighbour) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.boxes.Show(Some());
  const std::vector<std::pair<const char*, std::int32_t>> amounts = {
      {"0.575", 58}, {"0.145", 14}, {"1.005", 100}, {"-0.025", -2}, {"0.0051", 1}, {"21474836.465", 2147483646}};
  for (const auto& [typed, value] : amounts) {
    test::Type(form.txtMoney, typed);
    EXPECT_EQ(form.boxes.ValueIn(form.txtMoney), value) << typed;
  }
}

TEST(NumberBoxes, WhatAFieldCanNotHoldIsRefusedByItsName) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.boxes.Show(Some());
  const std::vector<std::tuple<ui::TextBox*, const char*, const char*>> refusals = {
      {&form.txtMoney, "21474836.48",
       "Money: \"21474836.48\" can't be stored. It must be from -21474836.48 to 21474836.47."},
      {&form.txtLevel, "32768", "Level: \"32768\" can't be stored. It must be from -32768 to 32767."},
      {&form.txtCount, "-1", "Count: \"-1\" can't be stored. It must be from 0 to 255."},
      {&form.txtCount, "two", "Count: \"two\" is not a number."}};
  for (const auto& [box, typed, words] : refusals) {
    form.boxes.Show(Some());
    test::Type(*box, typed);
    world.desktop.WillAnswer(Answer::Ok);
    EXPECT_FALSE(form.boxes.CanBeStored());
    EXPECT_EQ(world.desktop.boxes.back().text, words);
    EXPECT_EQ(form.Focus(), box);
  }
  EXPECT_THROW(form.boxes.ValueIn(ui::TextBox(form, "other")), std::logic_error);
}

}  // namespace
}  // namespace lantos
