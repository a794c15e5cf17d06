#include "start/KeyPage.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "qt/EveryForm.h"
#include "ui/SpokenName.h"

namespace lantos {
namespace {

using test::PaperShop;

// What a tool tip may name.
bool IsKey(const std::string& key) { return !ui::ParseKey(key).key.empty(); }

// "Ctrl+Del" is Ctrl+Delete.
bool IsSame(const std::string& told, const std::string& tried) {
  const ui::KeyPress one = ui::ParseKey(told);
  const ui::KeyPress other = ui::ParseKey(tried);
  return one.key == other.key && one.shift == other.shift && one.control == other.control && one.alt == other.alt;
}

TEST(KeyPage, NamesKeysThatThereAre) {
  const PaperShop shop;
  for (const auto& form : shop.forms) {
    for (const ToldKey& told : KeysOf(*form)) {
      if (told.key.find(", ") != std::string::npos) continue;  // a way through the menus
      EXPECT_TRUE(IsKey(told.key)) << form->Name() << " tells of " << told.key;
      EXPECT_FALSE(told.what.empty()) << form->Name() << ": " << told.key;
    }
  }
}

// Whoever leaves every box and form at once.
class HastyDesktop : public test::StandInDesktop {
  ui::Answer AnswerTo(const ui::Box& box) override { return ui::ButtonsOf(box).back(); }
  void Use(ui::Form& form) override { form.Hide(); }
  void ChooseFrom(ui::MenuItem&) override {}
  void Failed(const std::string&) override {}
};

struct HastyShop {
  HastyShop() { environment.files.SetDataDir(directory.DataDir()); }

  test::ScratchDirectory directory;
  StandingClock clock{LocalTime{ToSerial(test::kToday), 0}};
  UserSettings settings{directory / "settings"};
  Environment environment{clock, settings};
  HastyDesktop desktop;
  Records records{environment, desktop};
  ui::GlobalKeys keys{desktop};
  Shop shop{desktop, environment, records, keys};
  EstimateDatabase database{environment, records};
  MasterScreens masters{shop};
  frmInvList inventoryList{shop};
  Workorders workorders{environment, desktop, records};
  test::PaperBoard board{desktop};
  Contents contents{Workbench{shop, database, inventoryList, workorders.Current, board}, workorders};
};

TEST(KeyPage, AKeyThatAToolTipTellsIsNotToldOnceMoreByItsCaption) {
  HastyShop shop;
  struct Suggesting : ui::Form {
    explicit Suggesting(ui::Desktop& desktop) : Form(desktop, "frmSuggesting", "Suggesting") {
      cmdTake.SetToolTip("Change to this suggestion <Alt+1>");
      cmdLeave.SetToolTip("Leave this word as it is <F9>");
    }
    ui::Button cmdTake{*this, "cmdTake", "&1"};
    ui::Button cmdLeave{*this, "cmdLeave", "&Leave"};
  } form{shop.desktop};
  std::vector<std::string> told;
  for (const ToldKey& each : KeysOf(form)) told.push_back(each.key + ": " + each.what);
  EXPECT_EQ(told, (std::vector<std::string>{"Alt+1: Change to this suggestion", "F9: Leave this word as it is",
                                            "Alt+L: Leave"}));
}

// The keys of the forms' own, tried one by one: a form that takes a key tells of it.
TEST(KeyPage, EveryKeyThatAFormTakesIsToldByItsToolTips) {
  const char* const tried[] = {"F1", "F2",  "F3",  "F4",  "F5",     "F6",          "F7",          "F8",
                               "F9", "F10", "F11", "F12", "Insert", "Ctrl+Delete", "Ctrl+Insert", "Esc"};
  int taken = 0;
  for (const MakeForm& make : EveryForm()) {
    for (const char* key : tried) {
      HastyShop shop;
      FormGround ground{shop.shop, shop.database, shop.masters, shop.inventoryList, shop.workorders, shop.contents};
      const std::unique_ptr<ui::Form> form = make(ground);
      ui::KeyPress press = ui::ParseKey(key);
      form->PreviewKey(press);
      if (!press.cleared) continue;
      ++taken;
      const std::vector<ToldKey> told = KeysOf(*form);
      EXPECT_TRUE(std::any_of(told.begin(), told.end(), [&](const ToldKey& each) { return IsSame(each.key, key); }))
          << form->Name() << " takes " << key << " and tells nobody";
    }
  }
  EXPECT_GT(taken, 60);
}

TEST(KeyPage, AButtonThatAFormLeavesOutIsNotToldAndItsKeyNotTaken) {
  PaperShop shop;
  frmVendorList view(shop.shop, frmVendorList::Purpose::View);
  frmVendorEdit look(shop.shop, frmVendorEdit::Purpose::View, {0}, 0);
  const auto tells = [](const ui::Form& form, std::string_view key) {
    const std::vector<ToldKey> told = KeysOf(form);
    return std::any_of(told.begin(), told.end(), [&](const ToldKey& each) { return each.key == key; });
  };
  EXPECT_TRUE(tells(view, "F10"));
  EXPECT_FALSE(tells(view, "Insert"));
  EXPECT_FALSE(tells(view, "Alt+E"));
  EXPECT_TRUE(tells(look, "PgDn"));
  EXPECT_FALSE(tells(look, "F10"));
  for (const char* key : {"F10", "F2"}) {
    ui::KeyPress press = ui::ParseKey(key);
    look.PreviewKey(press);
    EXPECT_FALSE(press.cleared) << key;
  }
}

TEST(GlobalKeys, TheVendorsAreShownFromEveryScreenButTheirOwn) {
  PaperShop shop;
  int opened = 0;
  shop.keys.openVendorList = [&] { ++opened; };
  for (const auto& form : shop.forms) {
    // The one is never touched, and the other asks where the vendors are.
    if (form->Name() == "frmSplash" || form->Name() == "frmEnterDir") continue;
    const int before = opened;
    const int beepsBefore = shop.desktop.beeps;
    ui::KeyPress press = ui::ParseKey("Ctrl+Alt+V");
    form->PreviewKey(press);
    EXPECT_TRUE(press.cleared) << form->Name();
    const bool isVendors = form->Name().starts_with("frmVendor");
    EXPECT_EQ(opened - before, isVendors ? 0 : 1) << form->Name();
    EXPECT_EQ(shop.desktop.beeps - beepsBefore, isVendors ? 1 : 0) << form->Name();
  }
  EXPECT_GT(opened, 20);
}

TEST(SpokenNames, EveryFieldOfEveryFormHasOne) {
  const PaperShop shop;
  for (const auto& form : shop.forms) {
    for (const ui::Control* control : form->Controls()) {
      if (!control->TakesFocus()) continue;
      // A caption that comes with the data.
      if (form->Name() == "frmMain" && control->Name() == "List1") continue;
      EXPECT_FALSE(ui::SpokenNameOf(*control).empty()) << form->Name() << "." << control->FullName();
    }
  }
}

}  // namespace
}  // namespace lantos
