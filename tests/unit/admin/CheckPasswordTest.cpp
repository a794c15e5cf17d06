#include "screens/CheckPassword.h"

#include "admin/TestShop.h"
#include "records/Passwords.h"
#include "screens/frmEnterPwd.h"

namespace lantos {
namespace {

using test::TestShop;

// Answers the next password form; an entry that was cancelled takes another way.
void WillEnter(TestShop& world, const std::string& text) {
  world.desktop.WillUse([text](ui::Form& form) {
    auto& screen = dynamic_cast<frmEnterPwd&>(form);
    test::Type(screen.Pwd, text);
    test::Click(screen.cmdOK);
  });
}

int Check(TestShop& world, const std::string& password) {
  return static_cast<int>(CheckPassword(world.shop, password, "System"));
}

// TQPASSWD.DAT with one password, padded with blanks to its field.
void PutPassword(TestShop& world, Section section, std::string password) {
  password.resize(kPasswordWidth, ' ');
  std::string file(kPasswordCount * kPasswordWidth, '\0');
  file.replace(static_cast<std::size_t>(section) * kPasswordWidth, kPasswordWidth, password);
  world.directory.Put(std::string(kPasswordFile), file);
  world.records.passwords.LoadPasswords();
}

TEST(CheckPassword, ASectionWithoutAPasswordAsksNothing) {
  TestShop world;
  EXPECT_EQ(Check(world, ""), 1);
  EXPECT_EQ(Check(world, "    "), 1);
  EXPECT_EQ(Check(world, std::string(kPasswordWidth, '\0')), 1);
  EXPECT_TRUE(world.desktop.forms.empty());
}

TEST(CheckPassword, TheRightPasswordIsSix) {
  TestShop world;
  WillEnter(world, "Sesame");
  EXPECT_EQ(Check(world, "Sesame"), 6);
  EXPECT_EQ(world.desktop.forms, std::vector<std::string>{"frmEnterPwd"});
}

TEST(CheckPassword, AWrongPasswordIsSevenAndGivesNoMessage) {
  TestShop world;
  WillEnter(world, "Barley");
  EXPECT_EQ(Check(world, "Sesame"), 7);
  EXPECT_TRUE(world.desktop.boxes.empty());
}

TEST(CheckPassword, CaseMatters) {
  TestShop world;
  WillEnter(world, "sesame");
  EXPECT_EQ(Check(world, "Sesame"), 7);
}

TEST(CheckPassword, APasswordWithTrailingBlanksMatchesItsTrimmedForm) {
  TestShop world;
  WillEnter(world, "Sesame");
  EXPECT_EQ(Check(world, "Sesame         "), 6);
}

TEST(CheckPassword, BlanksAroundTheEntryDontCount) {
  TestShop world;
  WillEnter(world, "  Sesame ");
  EXPECT_EQ(Check(world, std::string("Sesame\0rest", 11)), 6);
}

TEST(CheckPassword, EscCancelIsTwo) {
  TestShop world;
  world.desktop.WillUse([](ui::Form& form) { test::Press(form, "Esc"); });
  EXPECT_EQ(Check(world, "Sesame"), 2);
}

TEST(CheckPassword, TheCloseBoxIsCancelAlsoWithTheRightTextEntered) {
  TestShop world;
  world.desktop.WillUse([](ui::Form& form) {
    test::Type(dynamic_cast<frmEnterPwd&>(form).Pwd, "Sesame");
    form.DoClose();
  });
  EXPECT_EQ(Check(world, "Sesame"), 2);
}

TEST(CheckPassword, TheCaptionNamesTheSectionAndF10Confirms) {
  TestShop world;
  world.desktop.WillUse([](ui::Form& form) {
    auto& screen = dynamic_cast<frmEnterPwd&>(form);
    EXPECT_EQ(form.Caption(), "Enter System Password");
    EXPECT_EQ(form.Focus(), &screen.Pwd);
    EXPECT_EQ(screen.Pwd.Face(), ui::FontFace::FixedPitch);
    test::Type(screen.Pwd, "Sesame");
    test::Press(form, "F10");
  });
  EXPECT_EQ(Check(world, "Sesame"), 6);
}

TEST(CheckPassword, EnterPressesOk) {
  TestShop world;
  world.desktop.WillUse([](ui::Form& form) {
    test::Type(dynamic_cast<frmEnterPwd&>(form).Pwd, "Sesame");
    test::Press(form, "Enter");
  });
  EXPECT_EQ(Check(world, "Sesame"), 6);
}

TEST(CheckPassword, TheFormKeepsItsSize) {
  TestShop world;
  world.desktop.WillUse([](ui::Form& form) {
    form.DoResize(7000, 2500, ui::WindowState::Normal);
    test::Press(form, "Esc");
  });
  Check(world, "Sesame");
  EXPECT_TRUE(world.desktop.LoadedForms().empty());
  world.desktop.WillUse([](ui::Form& form) {
    EXPECT_EQ(form.Width(), 7000);
    EXPECT_EQ(form.Height(), 2500);
    test::Press(form, "Esc");
  });
  Check(world, "Sesame");
}

TEST(MayEnter, OpensASectionForItsOwnPasswordOnly) {
  TestShop world;
  PutPassword(world, Section::System, "Sesame");
  WillEnter(world, "Sesame");
  EXPECT_TRUE(MayEnter(world.shop, Section::System));
  WillEnter(world, "wrong");
  EXPECT_FALSE(MayEnter(world.shop, Section::System));
  world.desktop.WillUse([](ui::Form& form) { test::Press(form, "Esc"); });
  EXPECT_FALSE(MayEnter(world.shop, Section::System));
  EXPECT_TRUE(MayEnter(world.shop, Section::Customer));
}

TEST(MayEnter, WithAnAbsentPasswordFileAllSectionsAreOpen) {
  TestShop world;
  world.records.passwords.LoadPasswords();
  for (const Section section : {Section::Workorders, Section::Inventory, Section::Customer, Section::Employee,
                                Section::Vendor, Section::System, Section::EditMenu}) {
    EXPECT_TRUE(MayEnter(world.shop, section));
  }
  EXPECT_TRUE(std::filesystem::exists(world.directory / std::string(kPasswordFile)));
  EXPECT_EQ(world.directory.Content(std::string(kPasswordFile)), "");
}

}  // namespace
}  // namespace lantos
