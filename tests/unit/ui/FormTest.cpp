#include "ui/Form.h"

#include <gtest/gtest.h>

#include "TestDesktop.h"
#include "ui/GlobalKeys.h"

namespace lantos::ui {

namespace {

using lantos::test::TestDesktop;

class Screen : public Form {
 public:
  explicit Screen(Desktop& desktop) : Form(desktop, "frmScreen", "Screen") {
    frame.Holds(one, two);
    for (TextBox* box : {&first, &second}) {
      box->OnGotFocus = [this, box] { log += "+" + box->Name() + " "; };
      box->OnLostFocus = [this, box] { log += "-" + box->Name() + " "; };
      box->OnChange = [this, box] { log += box->Name() + "=" + box->Text() + " "; };
    }
    ok.OnClick = [this] { log += "ok "; };
    cancel.OnClick = [this] { Hide(); };
    list.OnClick = [this] { log += "list" + std::to_string(list.ListIndex()) + " "; };
    one.OnClick = [this] { log += "one "; };
    two.OnClick = [this] { log += "two "; };
    SetDefaultButton(ok);
    SetCancelButton(cancel);
    cancel.SetCausesValidation(false);
  }
  void OnKeyDown(KeyPress& key) override {
    if (!key.Is("F10")) return;
    log += "F10 ";
    key.Clear();
  }

  std::string log;
  Label label{*this, "label", "&Name"};
  TextBox first{*this, "first"};
  TextBox second{*this, "second"};
  ListBox list{*this, "list"};
  Frame frame{*this, "frame"};
  OptionButton one{*this, "one", "One"};
  OptionButton two{*this, "two", "Two"};
  Button ok{*this, "ok", "&OK"};
  Button cancel{*this, "cancel", "Cancel"};
};

class Forms : public ::testing::Test {
 protected:
  Forms() {
    screen.Show();
    screen.log.clear();
  }
  TestDesktop desktop;
  Screen screen{desktop};
};

}  // namespace

TEST_F(Forms, TheFirstControlThatTakesTheFocusHasIt) { EXPECT_EQ(screen.Focus(), &screen.first); }

TEST_F(Forms, LeavingAControlFiresLostFocusBeforeGotFocus) {
  EXPECT_TRUE(screen.MoveFocus(&screen.second));
  EXPECT_EQ(screen.log, "-first +second ");
}

TEST_F(Forms, AValidationMayKeepTheFocusAndACancelButtonGetsPastIt) {
  screen.first.OnValidate = [](bool& keepFocus) { keepFocus = true; };
  EXPECT_FALSE(screen.MoveFocus(&screen.second));
  EXPECT_EQ(screen.Focus(), &screen.first);
  EXPECT_TRUE(screen.MoveFocus(&screen.cancel));
}

TEST_F(Forms, TypingFiresAChangeForEachCharacter) {
  screen.first.DoType("ab");
  EXPECT_EQ(screen.log, "first=a first=ab ");
}

TEST_F(Forms, TypingStopsAtTheWidthAndMakesCapitalsWhereAskedFor) {
  screen.first.SetMaxLength(3);
  screen.first.SetUpperCase(true);
  screen.first.DoType("abcdef");
  EXPECT_EQ(screen.first.Text(), "ABC");
}

TEST_F(Forms, SettingAListsRowFromCodeFiresItsClick) {
  screen.list.AddItem("a");
  screen.list.AddItem("b", 7);
  screen.list.SetListIndex(1);
  EXPECT_EQ(screen.log, "list1 ");
  EXPECT_THROW(screen.list.SetListIndex(2), std::out_of_range);
}

TEST_F(Forms, RemovingTheCurrentRowLeavesNoneAndOneAboveShiftsIt) {
  for (const char* text : {"a", "b", "c"}) screen.list.AddItem(text);
  screen.list.SetListIndex(2);
  screen.list.RemoveItem(0);
  EXPECT_EQ(screen.list.ListIndex(), 1);
  screen.list.InsertItem(0, "z");
  EXPECT_EQ(screen.list.ListIndex(), 2);
  screen.list.RemoveItem(2);
  EXPECT_EQ(screen.list.ListIndex(), -1);
}

TEST_F(Forms, OptionsOfOneFrameExcludeOneAnother) {
  screen.one.SetValue(true);
  screen.two.DoClick();
  screen.two.DoClick();
  EXPECT_FALSE(screen.one.Value());
  EXPECT_EQ(screen.log, "one two ");
}

TEST_F(Forms, AFrameHidesAndDisablesWhatItHolds) {
  screen.frame.SetVisible(false);
  EXPECT_FALSE(screen.one.IsShown());
  EXPECT_TRUE(screen.one.Visible());
  screen.frame.SetVisible(true);
  screen.frame.SetEnabled(false);
  EXPECT_FALSE(screen.one.IsUsable());
}

TEST_F(Forms, HidingOrDisablingTheFocusedControlMovesTheFocusOn) {
  screen.first.SetVisible(false);
  EXPECT_EQ(screen.Focus(), &screen.second);
  EXPECT_EQ(screen.log, "-first +second ");
  screen.second.SetEnabled(false);
  EXPECT_EQ(screen.Focus(), &screen.list);
}

TEST_F(Forms, KeysStepThroughARowOfLines) {
  for (int i = 0; i < 30; ++i) screen.list.AddItem(std::to_string(i));
  screen.MoveFocus(&screen.list);
  for (const auto& [key, row] : {std::pair("Down", 0), std::pair("Down", 1), std::pair("PgDn", 11),
                                 std::pair("End", 29), std::pair("Up", 28), std::pair("Home", 0)}) {
    screen.PressKey(ParseKey(key));
    EXPECT_EQ(screen.list.ListIndex(), row) << key;
  }
}

TEST_F(Forms, AClearedKeyGoesNoFurther) {
  screen.PressKey(ParseKey("F10"));
  EXPECT_EQ(screen.log, "F10 ");
}

TEST_F(Forms, EnterPressesTheDefaultButtonAndEscTheCancelButton) {
  screen.PressKey(ParseKey("Enter"));
  EXPECT_EQ(screen.log, "ok ");
  screen.PressKey(ParseKey("Escape"));
  EXPECT_FALSE(screen.Visible());
}

TEST_F(Forms, EnterInATextOfSeveralLinesBeginsANewOne) {
  screen.first.SetMultiLine(true);
  screen.first.SetMaxLength(6);
  screen.first.SetText("one");
  screen.log.clear();
  screen.PressKey(ParseKey("Ctrl+End"));
  screen.PressKey(ParseKey("Enter"));
  EXPECT_EQ(screen.log, "first=one\r\n ");
  // No half a line end at the limit, nothing in a locked text, and the default button stays out of it.
  screen.PressKey(ParseKey("Enter"));
  screen.first.SetMaxLength(0);
  screen.first.SetLocked(true);
  screen.PressKey(ParseKey("Enter"));
  EXPECT_EQ(screen.first.Text(), "one\r\n");
  EXPECT_EQ(screen.log, "first=one\r\n ");
}

TEST_F(Forms, AltAndALetterFindButtonsAndTheControlBehindALabel) {
  screen.PressKey(ParseKey("Alt+O"));
  EXPECT_NE(screen.log.find("ok "), std::string::npos);
  screen.PressKey(ParseKey("alt+n"));
  EXPECT_EQ(screen.Focus(), &screen.first);
}

TEST_F(Forms, AnAmpersandInATextBeforeAButtonLeadsNowhere) {
  struct Question : Form {
    explicit Question(Desktop& desktop) : Form(desktop, "frmQuestion", "Question") {}
    TextBox field{*this, "field"};
    Label part{*this, "part", "NUT&BOLT"};
    Button yes{*this, "yes", "&Yes"};
  } question(desktop);
  question.LoadForm();
  question.Show();
  question.PressKey(ParseKey("Alt+B"));
  EXPECT_EQ(question.Focus(), &question.field);
  question.Hide();
}

TEST_F(Forms, TabGoesRoundInTheOrderOfTheControls) {
  std::string order;
  for (int i = 0; i < 8; ++i) {
    order += screen.Focus()->Name() + " ";
    screen.PressKey(ParseKey("Tab"));
  }
  EXPECT_EQ(order, "first second list one two ok cancel first ");
  screen.PressKey(ParseKey("Shift+Tab"));
  EXPECT_EQ(screen.Focus(), &screen.first);
}

TEST_F(Forms, AnErrorEndsItsEventAloneAndIsReported) {
  desktop.failuresExpected = true;
  std::string logged;
  desktop.logFailure = [&](const std::string& text) { logged = text; };
  screen.ok.OnClick = [] { throw std::runtime_error("no such table"); };
  screen.ok.DoClick();
  EXPECT_EQ(desktop.failures, std::vector<std::string>{"no such table"});
  EXPECT_EQ(logged, "no such table");
  screen.one.DoClick();
  EXPECT_TRUE(screen.one.Value());
}

TEST_F(Forms, ATimerDoesNotFallDueWithinItsOwnEvent) {
  Timer timer(screen, "timer");
  int runs = 0;
  timer.OnTimer = [&] {
    ++runs;
    timer.DoTick();
  };
  timer.DoTick();
  timer.DoTick();
  EXPECT_EQ(runs, 2);
}

TEST(Keys, AKeyIsReadInEitherCaseWithItsShiftKeys) {
  const KeyPress key = ParseKey("ctrl+ALT+v");
  EXPECT_TRUE(key.IsControlAlt("V"));
  EXPECT_TRUE(ParseKey("Ctrl+Delete").IsControl("Delete"));
  EXPECT_TRUE(ParseKey("pgup").Is("PgUp"));
  EXPECT_EQ(ParseKey("Hyper+X").key, "");
  EXPECT_EQ(ParseKey("nonsense").key, "");
  EXPECT_EQ(ParseKey("Ctrl++").key, "+");
}

TEST_F(Forms, ControlAltTSwitchesToTheMainApplicationOrSaysThatItIsNotRunning) {
  GlobalKeys keys(desktop);
  KeyPress key = ParseKey("Ctrl+Alt+T");
  desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(keys.HandleGlobalKeys(key, screen));
  EXPECT_TRUE(key.cleared);
  ASSERT_EQ(desktop.boxes.size(), 1u);
  EXPECT_EQ(desktop.boxes[0].title, "Toggle to Korvel");
  EXPECT_EQ(desktop.boxes[0].text, "Korvel is not currently running.");
  desktop.windows = {"Main - KORVEL: Main Street"};
  key = ParseKey("Ctrl+Alt+T");
  EXPECT_TRUE(keys.HandleGlobalKeys(key, screen));
  EXPECT_EQ(desktop.activated.size(), 1u);
}

TEST_F(Forms, ControlAltPPrintsTheFormAndOtherKeysAreLeftAlone) {
  GlobalKeys keys(desktop);
  KeyPress key = ParseKey("Ctrl+Alt+P");
  EXPECT_TRUE(keys.HandleGlobalKeys(key, screen));
  EXPECT_EQ(desktop.screenPrints, std::vector<std::string>{"frmScreen"});
  for (const char* other : {"Ctrl+P", "Alt+P", "P", "Ctrl+Alt+X", "Ctrl+Alt+V"}) {
    key = ParseKey(other);
    EXPECT_FALSE(keys.HandleGlobalKeys(key, screen)) << other;
    EXPECT_FALSE(key.cleared) << other;
  }
}

TEST_F(Forms, AListIsMeasuredWithTwoBlanksAddedAndOnlyItsNewRows) {
  screen.list.AddItem("abc");
  SetListExtent(screen.list);
  EXPECT_EQ(screen.list.HorizontalExtent(), 5 * 8);
  screen.list.AddItem("abcdef");
  SetListExtent(screen.list);
  EXPECT_EQ(screen.list.HorizontalExtent(), 8 * 8);
  screen.list.RemoveItem(1);
  SetListExtent(screen.list);
  EXPECT_EQ(screen.list.HorizontalExtent(), 5 * 8);
}

TEST(LineEnds, CarriageReturnsBecomeLineFeeds) { EXPECT_EQ(WithLineFeeds("a\rb\r\nc\nd\r\re"), "a\nb\nc\nd\n\ne"); }

}  // namespace lantos::ui
