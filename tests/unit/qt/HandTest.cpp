#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include "qt/TestForms.h"
#include "ui/qt/Text.h"

namespace lantos {
namespace {

using test::Bench;
using test::Field;
using Happened = std::vector<std::string>;
using ui::MouseButton;

TEST(QtHand, TypingReplacesTheTextCharacterByCharacter) {
  Bench bench;
  bench.form.TextString.SetText("old");
  std::vector<std::string> texts;
  bench.form.TextString.OnChange = [&] { texts.push_back(bench.form.TextString.Text()); };
  bench.form.Show();
  bench.hand.Type(bench.form.TextString, "a\xe9z");
  EXPECT_EQ(texts, (std::vector<std::string>{"", "a", "a\xe9", "a\xe9z"}));
  EXPECT_EQ(bench.hand.Read(bench.form.TextString).text, "a\xe9z");
}

TEST(QtHand, ACharacterMayBeChangedOrSwallowedBeforeItGoesIn) {
  Bench bench;
  bench.form.TextString.SetUpperCase(true);
  bench.form.TextString.SetMaxLength(4);
  bench.form.TextString.OnKeyPress = [](char& c) {
    if (c == '-') c = '\0';
    if (c == '.') c = ',';
  };
  bench.form.Show();
  bench.hand.Type(bench.form.TextString, "a-.bcd");
  EXPECT_EQ(bench.form.TextString.Text(), "A,BC");
  EXPECT_EQ(ui::FromQt(bench.WidgetOf<QLineEdit>(bench.form.TextString).text()), "A,BC");
}

TEST(QtHand, AButtonWhoseFocusMoveWasRefusedIsNotClicked) {
  Bench bench;
  bench.form.TextString.OnValidate = [](bool& keep) { keep = true; };
  bench.form.Show();
  bench.hand.Click(bench.form.cmdOK, MouseButton::Left);
  EXPECT_EQ(bench.form.happened, Happened{});
  EXPECT_EQ(bench.form.Focus(), &bench.form.TextString);
  EXPECT_EQ(bench.Window().focusWidget(), &bench.WidgetOf<QWidget>(bench.form.TextString));
  bench.hand.Click(bench.form.cmdCancel, MouseButton::Left);
  EXPECT_FALSE(bench.form.Visible());
}

TEST(QtHand, ClickingTheCurrentRowFiresItsClickAgain) {
  Bench bench;
  int clicks = 0;
  bench.form.Dir1.OnClick = [&] { ++clicks; };
  bench.form.Show();
  bench.hand.ClickRow(bench.form.Dir1, 1, MouseButton::Left);
  bench.hand.ClickRow(bench.form.Dir1, 1, MouseButton::Left);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(bench.form.Dir1.ListIndex(), 1);
  EXPECT_EQ(bench.hand.Read(bench.form.Dir1).selected, 1);
}

TEST(QtHand, TheRightButtonGoesToTheRowAndThenComesUp) {
  Bench bench;
  bench.form.Dir1.OnClick = [&] {
    bench.form.happened.push_back("click " + std::to_string(bench.form.Dir1.ListIndex()));
  };
  bench.form.Dir1.OnMouseUp = [&](MouseButton button) {
    bench.form.happened.push_back(button == MouseButton::Right ? "right" : "left");
  };
  bench.form.Show();
  bench.hand.ClickRow(bench.form.Dir1, 2, MouseButton::Right);
  bench.hand.ClickRow(bench.form.Dir1, 2, MouseButton::Right);
  EXPECT_EQ(bench.form.happened, (Happened{"click 2", "right", "right"}));
}

TEST(QtHand, ADoubleClickIsAClickAndThenADoubleOne) {
  Bench bench;
  bench.form.Dir1.OnClick = [&] { bench.form.happened.push_back("click"); };
  bench.form.Dir1.OnDoubleClick = [&] { bench.form.happened.push_back("double"); };
  bench.form.Show();
  bench.hand.DoubleClickRow(bench.form.Dir1, 1);
  EXPECT_EQ(bench.form.happened, (Happened{"click", "double"}));
}

TEST(QtHand, ADoubleClickOnAnEmptyListIsOneToo) {
  Bench bench;
  bench.form.Dir1.Clear();
  int doubled = 0;
  bench.form.Dir1.OnDoubleClick = [&] { ++doubled; };
  bench.form.Show();
  bench.hand.DoubleClick(bench.form.Dir1);
  EXPECT_EQ(doubled, 1);
}

TEST(QtHand, WhoHasClickedADropDownTypesElsewhereAfterIt) {
  Bench bench;
  bench.form.Drive1.AddItem("C");
  bench.form.Show();
  bench.hand.Click(bench.form.Drive1, MouseButton::Left);
  bench.hand.Type(bench.form.TextString, "one");
  EXPECT_EQ(bench.form.TextString.Text(), "one");
  bench.hand.DoubleClick(bench.form.Drive1);
  bench.hand.Type(bench.form.TextString, "two");
  EXPECT_EQ(bench.form.TextString.Text(), "two");
}

TEST(QtHand, RowsOutOfSightCanBeClicked) {
  Bench bench;
  for (int i = 0; i < 600; ++i) bench.form.Dir1.AddItem("row " + std::to_string(i));
  bench.form.Show();
  bench.hand.ClickRow(bench.form.Dir1, 590, MouseButton::Left);
  EXPECT_EQ(bench.form.Dir1.ListIndex(), 590);
}

TEST(QtHand, MoreRowsAreSelectedWithTheControlKeyHeld) {
  Bench bench;
  bench.form.Dir1.SetMultiSelect(true);
  bench.form.Show();
  bench.hand.SelectRows(bench.form.Dir1, {0, 2});
  EXPECT_TRUE(bench.form.Dir1.Selected(0));
  EXPECT_FALSE(bench.form.Dir1.Selected(1));
  EXPECT_TRUE(bench.form.Dir1.Selected(2));
}

TEST(QtHand, TickingTheBoxOfARowTellsTheForm) {
  Bench bench;
  bench.form.Dir1.SetCheckBoxes(true);
  int ticked = -1;
  bench.form.Dir1.OnItemCheck = [&](int row) { ticked = row; };
  bench.form.Show();
  bench.hand.CheckRow(bench.form.Dir1, 2, true);
  EXPECT_EQ(ticked, 2);
  EXPECT_TRUE(bench.form.Dir1.Checked(2));
  EXPECT_TRUE(bench.hand.Read(bench.form.Dir1).rows->at(2).checked);
}

TEST(QtHand, ARowOfADropDownIsPicked) {
  Bench bench;
  bench.form.Drive1.AddItem("C");
  bench.form.Drive1.AddItem("D");
  int clicks = 0;
  bench.form.Drive1.OnClick = [&] { ++clicks; };
  bench.form.Show();
  bench.hand.ClickRow(bench.form.Drive1, 1, MouseButton::Left);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(bench.form.Drive1.Text(), "D");
  EXPECT_EQ(bench.hand.Read(bench.form.Drive1).text, "D");
}

TEST(QtHand, AnEditableDropDownTakesTypedText) {
  Bench bench;
  bench.form.Drive1.SetEditable(true);
  bench.form.Drive1.AddItem("abc");
  bench.form.Show();
  bench.hand.Type(bench.form.Drive1, "abc");
  EXPECT_EQ(bench.form.Drive1.Text(), "abc");
  EXPECT_EQ(bench.form.Drive1.ListIndex(), 0);
  bench.hand.Type(bench.form.Drive1, "xy");
  EXPECT_EQ(bench.form.Drive1.Text(), "xy");
  EXPECT_EQ(bench.hand.Read(bench.form.Drive1).text, "xy");
}

TEST(QtHand, KeysGoThroughTheFormFirst) {
  Bench bench;
  bench.form.Show();
  bench.Press("F10");
  bench.Press("Enter");
  EXPECT_EQ(bench.form.happened, (Happened{"F10", "ok"}));
  bench.Press("Tab");
  EXPECT_EQ(bench.form.Focus(), &bench.form.Drive1);
  bench.Press("Alt+T");
  EXPECT_EQ(bench.form.Focus(), &bench.form.TextString);
  bench.Press("Esc");
  EXPECT_FALSE(bench.form.Visible());
}

TEST(QtHand, WhoGoesByKeyboardIsShownWhereHeIs) {
  Bench bench;
  bench.form.Show();
  EXPECT_FALSE(bench.Window().testAttribute(Qt::WA_KeyboardFocusChange));
  bench.Press("Tab");
  EXPECT_TRUE(bench.Window().testAttribute(Qt::WA_KeyboardFocusChange));
}

TEST(QtHand, AWindowOpenedByKeyboardShowsWhereTheFocusIs) {
  Bench bench;
  bench.form.Show();
  bench.Press("F10");
  Field above(bench.windows);
  above.Show();
  EXPECT_TRUE(bench.windows.WindowOf(above)->testAttribute(Qt::WA_KeyboardFocusChange));
  above.Hide();
}

TEST(QtHand, AWindowOpenedByMouseDoesNot) {
  Bench bench;
  bench.form.Show();
  bench.hand.Click(bench.form.cmdOK, MouseButton::Left);
  Field above(bench.windows);
  above.Show();
  EXPECT_FALSE(bench.windows.WindowOf(above)->testAttribute(Qt::WA_KeyboardFocusChange));
  above.Hide();
}

// As a window manager does, which keeps Alt+F4 to itself and asks the window to close.
void CloseWithAltDown(Bench& bench) { bench.Window().CloseWith(Qt::AltModifier); }

TEST(QtHand, AScreenWithAUseForAltF4HasItBeforeTheWindowManager) {
  Bench bench;
  bench.form.takesAltF4 = true;
  bench.form.Show();
  CloseWithAltDown(bench);
  EXPECT_EQ(bench.form.happened, (Happened{"Alt+F4"}));
  EXPECT_TRUE(bench.form.Visible());
  bench.hand.Close(bench.form);
  EXPECT_FALSE(bench.form.Visible());
}

TEST(QtHand, AnyOtherScreenIsClosedByAltF4) {
  Bench bench;
  bench.form.Show();
  CloseWithAltDown(bench);
  EXPECT_FALSE(bench.form.Visible());
}

TEST(QtHand, ArrowsMoveThroughAList) {
  Bench bench;
  std::vector<int> rows;
  bench.form.Dir1.OnClick = [&] { rows.push_back(bench.form.Dir1.ListIndex()); };
  bench.form.Show();
  bench.hand.ClickRow(bench.form.Dir1, 0, MouseButton::Left);
  bench.Press("Down");
  bench.Press("Down");
  bench.Press("Up");
  EXPECT_EQ(rows, (std::vector<int>{0, 1, 2, 1}));
}

TEST(QtHand, WhatTheWidgetShowsIsReadAndNotWhatItShouldShow) {
  Bench bench;
  bench.form.Show();
  bench.windows.Settle();
  bench.WidgetOf<QLineEdit>(bench.form.TextString).setText("tampered");
  bench.WidgetOf<QListWidget>(bench.form.Dir1).item(0)->setText("tampered");
  EXPECT_EQ(bench.hand.Read(bench.form.TextString).text, "tampered");
  EXPECT_EQ(bench.hand.Read(bench.form.Dir1).rows->at(0).text, "tampered");
}

TEST(QtHand, TheBareFormTakesTheMouse) {
  Bench bench;
  bench.form.Show();
  bench.hand.ClickForm(bench.form, MouseButton::Right);
  EXPECT_EQ(bench.form.happened, (Happened{"right on the form"}));
}

}  // namespace
}  // namespace lantos
