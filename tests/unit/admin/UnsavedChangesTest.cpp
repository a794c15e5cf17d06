#include "screens/UnsavedChanges.h"

#include "admin/TestShop.h"
#include "screens/OkCancelForm.h"

namespace lantos {
namespace {

using test::TestShop;
using ui::Answer;

class Sample : public OkCancelForm {
 public:
  explicit Sample(TestShop& world) : OkCancelForm(world.desktop, world.keys, "frmSample", "Sample") {
    for (const char* row : {"one", "two"}) cboKind.AddItem(row);
    txtName.OnChange = [this] { ++nameChanges; };
    txtName.OnLostFocus = [this] { txtName.SetText("as left"); };
    UseButtons(cmdOK, cmdCancel);
    cmdCancel.SetToolTip("Close <Esc>");
    AskBeforeLosing(cmdCancel, txtName, cboKind, chkFlag, dtpDay, lstTicks);
  }
  void OnLoad() override {
    txtName.SetText("as loaded");
    cboKind.SetListIndex(0);
    lstTicks.AddItem("a row");
    MarkUnchanged();
  }
  void Accept() override { MarkUnchanged(); }
  using OkCancelForm::Changed;
  int nameChanges = 0;

  ui::TextBox txtName{*this, "txtName"};
  ui::ComboBox cboKind{*this, "cboKind"};
  ui::CheckBox chkFlag{*this, "chkFlag"};
  ui::DTPicker dtpDay{*this, "dtpDay"};
  ui::ListBox lstTicks{*this, "lstTicks"};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};
};

TEST(UnsavedChanges, FillingTheFieldsIsNoChangeAndEachKindOfFieldCanBeChanged) {
  TestShop world;
  const std::array<std::function<void(Sample&)>, 5> changes = {
      [](Sample& form) { form.txtName.DoType("typed"); }, [](Sample& form) { form.cboKind.DoSelect(1); },
      [](Sample& form) { form.chkFlag.DoClick(); }, [](Sample& form) { form.dtpDay.DoPick(37894); },
      [](Sample& form) { form.lstTicks.DoCheck(0, true); }};
  for (const auto& change : changes) {
    Sample form(world);
    form.Show();
    EXPECT_FALSE(form.Changed());
    change(form);
    EXPECT_TRUE(form.Changed());
  }
}

TEST(UnsavedChanges, WhatAScreenMakesOfABoxThatIsLeftIsNotThePersonsDoing) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.txtName.SetFocus();
  form.PressKey(ui::ParseKey("Tab"));
  EXPECT_EQ(form.txtName.Text(), "as left");
  EXPECT_FALSE(form.Changed());
  form.txtName.DoType("typed");
  form.cboKind.SetFocus();
  EXPECT_TRUE(form.Changed());
}

TEST(UnsavedChanges, TheRowThatIsShownPickedOnceMoreChangesNothing) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.cboKind.DoSelect(0);
  EXPECT_FALSE(form.Changed());
}

TEST(UnsavedChanges, TheScreensOwnProceduresRunAsWell) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.nameChanges = 0;
  form.txtName.DoEdit("another");
  EXPECT_EQ(form.nameChanges, 1);
}

TEST(UnsavedChanges, WhatIsSavedIsNotAskedAbout) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.txtName.DoType("typed");
  test::Press(form, "F10");
  EXPECT_EQ(form.cmdCancel.Caption(), "&Close");
  test::Press(form, "Esc");
  EXPECT_FALSE(form.Visible());
}

TEST(UnsavedChanges, AToolTipThatSaysCloseFollowsTheCaption) {
  TestShop world;
  Sample form(world);
  form.Show();
  EXPECT_EQ(form.cmdCancel.ToolTip(), "Close <Esc>");
  form.txtName.DoType("typed");
  EXPECT_EQ(form.cmdCancel.ToolTip(), "Cancel <Esc>");
}

TEST(UnsavedChanges, ANoKeepsTheWindowOpenAtItsCloseBoxToo) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.txtName.DoType("typed");
  world.desktop.WillAnswer({Answer::No, Answer::Yes});
  form.DoClose();
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(form.txtName.Text(), "typed");
  form.DoClose();
  EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace lantos
