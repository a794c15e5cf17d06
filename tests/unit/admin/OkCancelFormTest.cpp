#include "screens/OkCancelForm.h"

#include "admin/TestShop.h"

namespace lantos {
namespace {

using test::TestShop;

class Sample : public SizedForm {
 public:
  explicit Sample(TestShop& world, std::string name = "frmSample")
      : SizedForm(world.desktop, world.keys, world.settings, std::move(name), "Sample") {
    SetDesignedSize(5000, 4000);
    UseButtons(cmdOK, cmdCancel);
    txtHeld.OnValidate = [](bool& keepFocus) { keepFocus = true; };
  }
  void Accept() override { ++accepted; }
  void Cancel() override {
    ++cancelled;
    Hide();
  }
  int accepted = 0;
  int cancelled = 0;

  ui::TextBox txtHeld{*this, "txtHeld"};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};
};

TEST(OkCancelForm, F10AcceptsAndEscCancels) {
  TestShop world;
  Sample form(world);
  form.Show();
  test::Press(form, "F10");
  EXPECT_EQ(form.accepted, 1);
  test::Press(form, "Esc");
  EXPECT_EQ(form.cancelled, 1);
  EXPECT_FALSE(form.Visible());
}

TEST(OkCancelForm, TheServedKeyIsCleared) {
  TestShop world;
  Sample form(world);
  form.Show();
  for (const char* name : {"F10", "Esc"}) {
    ui::KeyPress key = ui::ParseKey(name);
    form.PreviewKey(key);
    EXPECT_TRUE(key.cleared) << name;
  }
  ui::KeyPress other = ui::ParseKey("F2");
  form.PreviewKey(other);
  EXPECT_FALSE(other.cleared);
}

TEST(OkCancelForm, F10WithAShiftKeyIsNobodys) {
  TestShop world;
  Sample form(world);
  form.Show();
  test::Press(form, "Ctrl+F10");
  EXPECT_EQ(form.accepted, 0);
}

TEST(OkCancelForm, TheGlobalKeysComeFirst) {
  TestShop world;
  int opened = 0;
  world.keys.openVendorList = [&] { ++opened; };
  Sample form(world);
  form.Show();
  test::Press(form, "Ctrl+Alt+V");
  EXPECT_EQ(opened, 1);
  test::Press(form, "Ctrl+Alt+P");
  EXPECT_EQ(world.desktop.screenPrints, std::vector<std::string>{"frmSample"});
  world.desktop.WillAnswer(ui::Answer::Ok);
  test::Press(form, "Ctrl+Alt+T");
  EXPECT_EQ(world.desktop.boxes.at(0).text, "Korvel is not currently running.");
  EXPECT_EQ(world.desktop.boxes.at(0).title, "Toggle to Korvel");
}

TEST(OkCancelForm, AVendorFormBeepsForTheVendorList) {
  TestShop world;
  world.keys.openVendorList = [] { FAIL() << "the list is up already"; };
  Sample form(world, "frmVendorEdit");
  form.Show();
  test::Press(form, "Ctrl+Alt+V");
  EXPECT_EQ(world.desktop.beeps, 1);
}

TEST(OkCancelForm, TheCloseBoxIsCancelAndLeavesTheFormLoaded) {
  TestShop world;
  Sample form(world);
  form.Show();
  form.DoClose();
  EXPECT_EQ(form.cancelled, 1);
  EXPECT_TRUE(form.IsLoaded());
}

TEST(OkCancelForm, ACancelIsReachedPastAFieldThatDoesntValidate) {
  TestShop world;
  Sample form(world);
  form.Show();
  ASSERT_EQ(form.Focus(), &form.txtHeld);
  test::Click(form.cmdOK);
  EXPECT_EQ(form.accepted, 0);
  test::Click(form.cmdCancel);
  EXPECT_EQ(form.cancelled, 1);
}

TEST(SizedForm, StartsWithItsDesignedSize) {
  TestShop world;
  Sample form(world);
  form.LoadForm();
  EXPECT_EQ(form.Width(), 5000);
  EXPECT_EQ(form.Height(), 4000);
  EXPECT_EQ(form.State(), ui::WindowState::Normal);
}

TEST(SizedForm, ComesBackInTheSizeItWasLeftIn) {
  TestShop world;
  {
    Sample form(world);
    form.LoadForm();
    form.DoResize(6000, 4500, ui::WindowState::Normal);
    form.Unload();
  }
  EXPECT_EQ(world.Setting("frmSampleWidth"), "6000");
  EXPECT_EQ(world.Setting("frmSampleHeight"), "4500");
  EXPECT_EQ(world.Setting("frmSampleState"), "0");
  Sample form(world);
  form.LoadForm();
  EXPECT_EQ(form.Width(), 6000);
  EXPECT_EQ(form.Height(), 4500);
}

TEST(SizedForm, ClosedWhileMaximisedItKeepsTheStoredSizeAndUpdatesTheState) {
  TestShop world;
  world.settings.Save("frmSampleWidth", "6000");
  world.settings.Save("frmSampleHeight", "4500");
  Sample form(world);
  form.LoadForm();
  form.DoResize(15000, 11000, ui::WindowState::Maximized);
  form.Unload();
  EXPECT_EQ(world.Setting("frmSampleWidth"), "6000");
  EXPECT_EQ(world.Setting("frmSampleHeight"), "4500");
  EXPECT_EQ(world.Setting("frmSampleState"), "2");
}

TEST(SizedForm, ClosedWhileMinimisedItWritesNothing) {
  TestShop world;
  Sample form(world);
  form.LoadForm();
  form.DoResize(5000, 4000, ui::WindowState::Minimized);
  form.Unload();
  EXPECT_EQ(world.Setting("frmSampleWidth"), "");
  EXPECT_EQ(world.Setting("frmSampleState"), "");
}

TEST(SizedForm, CantBeDrawnSmallerThanDesigned) {
  TestShop world;
  Sample form(world);
  form.LoadForm();
  form.DoResize(1000, 9000, ui::WindowState::Normal);
  EXPECT_EQ(form.Width(), 5000);
  EXPECT_EQ(form.Height(), 9000);
}

}  // namespace
}  // namespace lantos
