#include "ui/GlobalKeys.h"

#include "TestDesktop.h"

namespace lantos::ui {
namespace {

struct Keys {
  // Whether the key was handled; one that was is cleared, one that wasn't isn't.
  bool Press(std::string_view text, Form& on) {
    KeyPress key = ParseKey(text);
    const bool handled = keys.HandleGlobalKeys(key, on);
    EXPECT_EQ(key.cleared, handled) << text;
    return handled;
  }

  test::TestDesktop desktop;
  GlobalKeys keys{desktop};
  Form form{desktop, "frmNotes", "Notes"};
  Form vendors{desktop, "frmVendorEdit", "Vendor"};
};

TEST(GlobalKeys, PrintTheFormAsAScreenImage) {
  Keys keys;
  EXPECT_TRUE(keys.Press("Ctrl+Alt+P", keys.form));
  EXPECT_TRUE(keys.Press("Ctrl+Alt+Shift+P", keys.form)) << "the shift key makes no difference";
  EXPECT_EQ(keys.desktop.screenPrints, (std::vector<std::string>{"frmNotes", "frmNotes"}));
}

TEST(GlobalKeys, SwitchToTheMainApplicationWhereItRuns) {
  Keys keys;
  keys.desktop.windows = {"Lantos: Shop", "Korvel: Shop"};
  EXPECT_TRUE(keys.Press("Ctrl+Alt+T", keys.form));
  EXPECT_EQ(keys.desktop.activated, std::vector<std::string>{"Korvel: Shop"});
  EXPECT_TRUE(keys.desktop.boxes.empty());
}

TEST(GlobalKeys, SayThatTheMainApplicationIsNotRunning) {
  Keys keys;
  keys.desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(keys.Press("Ctrl+Alt+T", keys.form));
  ASSERT_EQ(keys.desktop.boxes.size(), 1U);
  EXPECT_EQ(keys.desktop.boxes[0].text, "Korvel is not currently running.");
  EXPECT_EQ(keys.desktop.boxes[0].title, "Toggle to Korvel");
}

TEST(GlobalKeys, OpenTheVendorListAndBeepOnAVendorScreen) {
  Keys keys;
  int opened = 0;
  keys.keys.openVendorList = [&] { ++opened; };
  EXPECT_TRUE(keys.Press("Ctrl+Alt+V", keys.form));
  EXPECT_EQ(opened, 1);
  EXPECT_TRUE(keys.Press("Ctrl+Alt+V", keys.vendors));
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(keys.desktop.beeps, 1);
}

TEST(GlobalKeys, LeaveEveryOtherKeyAlone) {
  Keys keys;
  for (const char* key : {"P", "Ctrl+P", "Alt+T", "Ctrl+Alt+X", "F10", "Esc", "Ctrl+Alt+V"}) {
    EXPECT_FALSE(keys.Press(key, keys.form)) << key;
  }
}

struct ListForm : Form {
  explicit ListForm(Desktop& shownOn) : Form(shownOn, "frmList", "List") {}
  ListBox list{*this, "List1"};
  Label label{*this, "lblText", "text"};
  Timer timer{*this, "Timer1"};
};

TEST(SetListExtent, IsTheWidestLineWithTwoBlanks) {
  test::TestDesktop desktop;
  ListForm form(desktop);
  form.list.AddItem("short");
  form.list.AddItem("the longest of all");
  SetListExtent(form.list);
  EXPECT_EQ(form.list.HorizontalExtent(), (18 + 2) * 8);
}

TEST(ApplyFontFactor, IsTwiceTheFactorAndSixForWhatHasAFont) {
  test::TestDesktop desktop;
  ListForm form(desktop);
  ApplyFontFactor(form, 3);
  EXPECT_EQ(form.list.FontSize(), 12);
  EXPECT_EQ(form.label.FontSize(), 12);
}

TEST(ApplyFontFactor, ReachesEveryScreenThatIsLoadedOverTheMainWindow) {
  test::TestDesktop desktop;
  ListForm mainWindow(desktop);
  mainWindow.LoadForm();
  ListForm plain(desktop);
  plain.LoadForm();
  EXPECT_EQ(plain.list.FontSize(), 0) << "the platform's own";
  ApplyFontFactor(mainWindow, 4);
  ListForm form(desktop);
  form.LoadForm();
  EXPECT_EQ(form.list.FontSize(), 14);
  EXPECT_EQ(form.label.FontSize(), 14);
}

}  // namespace
}  // namespace lantos::ui
