#include <QApplication>
#include <QCalendarWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>

#include "board/KeptChoice.h"
#include "qt/WindowShop.h"
#include "records/MakesModels.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/QtHand.h"

namespace lantos {
namespace {

using ui::MouseButton;

// The board with the events of its controls taken over by the test.
struct Board : test::WindowShop {
  Board() {
    form.Show();
    windows.Settle();
  }
  template <class Widget>
  Widget& WidgetOf(const ui::Control& control) {
    return dynamic_cast<Widget&>(windows.WindowOf(form)->PeerOf(control)->Widget());
  }

  frmMain& form = dynamic_cast<frmMain&>(*forms.front());
  ui::QtHand hand{windows};
  std::vector<std::string> happened;
};

TEST(Board, ADayIsPickedInTheCalendarItself) {
  Board board;
  std::vector<DaySerial> clicked;
  std::vector<DaySerial> doubled;
  board.form.MonthView1.OnDateClick = [&](DaySerial day) { clicked.push_back(day); };
  board.form.MonthView1.OnDateDoubleClick = [&](DaySerial day) { doubled.push_back(day); };
  // A month that begins on a Sunday, one that doesn't, and the last day of a leap year's February.
  const std::vector<DaySerial> days = {ToSerial({2003, 6, 1}), ToSerial({2003, 10, 31}), ToSerial({2004, 2, 29})};
  for (const DaySerial day : days) {
    board.hand.Pick(board.form.MonthView1, day, false);
    EXPECT_EQ(board.hand.Read(board.form.MonthView1).date, day);
  }
  EXPECT_EQ(clicked, days);
  EXPECT_TRUE(doubled.empty());
  board.hand.Pick(board.form.MonthView1, days[0], true);
  EXPECT_EQ(clicked.size(), 4U);
  EXPECT_EQ(doubled, std::vector<DaySerial>{days[0]});
}

TEST(Board, EnterInTheCalendarIsNoDoubleClick) {
  Board board;
  int doubled = 0;
  board.form.MonthView1.OnDateDoubleClick = [&](DaySerial) { ++doubled; };
  board.form.MonthView1.SetFocus();
  board.hand.PressKey(board.form, ui::ParseKey("Enter"));
  EXPECT_EQ(doubled, 0);
}

TEST(Board, FramesTakeTheMouseUnlessSomethingOnThemDoes) {
  Board board;
  ui::Frame& panel = board.form.week.frameWeek[3];
  panel.OnClick = [&] { board.happened.push_back("click"); };
  panel.OnDoubleClick = [&] { board.happened.push_back("double"); };
  panel.OnMouseUp = [&](MouseButton button) {
    if (button == MouseButton::Right) board.happened.push_back("right");
  };
  board.hand.DoubleClick(panel);
  board.hand.Click(panel, MouseButton::Right);
  EXPECT_EQ(board.happened, (std::vector<std::string>{"click", "double", "right"}));
}

TEST(Board, TheMouseBelongsToTheControlThatItIsOnAndNotToWhatThatLiesOn) {
  Board board;
  board.form.commands.frameCommands.OnMouseUp = [&](MouseButton) { board.happened.push_back("commands"); };
  board.form.week.frameWeekView.OnMouseUp = [&](MouseButton) { board.happened.push_back("week"); };
  board.form.week.lblWeekComment.OnMouseUp = nullptr;
  board.hand.Click(board.form.commands.cmdWeekView, MouseButton::Right);
  board.hand.Click(board.form.commands.cmdConvert, MouseButton::Right);  // disabled
  board.hand.Click(board.form.week.lblWeekComment, MouseButton::Right);
  board.hand.Click(board.form.week.frameWeek[3], MouseButton::Right);
  board.hand.Click(board.form.MonthView1, MouseButton::Right);
  EXPECT_EQ(board.happened, std::vector<std::string>{});
  board.hand.Click(board.form.commands.frameCommands, MouseButton::Right);
  board.hand.Click(board.form.week.frameWeekView, MouseButton::Right);
  EXPECT_EQ(board.happened, (std::vector<std::string>{"commands", "week"}));
}

TEST(Board, WhatIsThereForTheEyeAloneCountsAsTheFrameItLiesOn) {
  Board board;
  board.form.hours.Frame1.OnMouseUp = [&](MouseButton) { board.happened.push_back("hours"); };
  auto* label = board.WidgetOf<QWidget>(board.form.hours.Frame1).findChild<QWidget*>("static_Avail");
  ASSERT_NE(label, nullptr);
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, QPointF(1, 1), label->mapToGlobal(QPointF(1, 1)), Qt::RightButton, Qt::NoButton, {});
    QApplication::sendEvent(label, &event);
  }
  EXPECT_EQ(board.happened, std::vector<std::string>{"hours"});
}

TEST(Board, TheWindowIsWhollyOnTheScreenWhereverItWasLeft) {
  test::WindowShop shop;
  auto& form = dynamic_cast<frmMain&>(*shop.forms.front());
  form.LoadForm();
  form.SetPosition(60000, 60000);
  form.Show();
  shop.windows.Settle();
  const ui::FormWindow& window = *shop.windows.WindowOf(form);
  EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
  // What is stored is the person's wish, and waits for a larger screen.
  EXPECT_EQ(form.LeftEdge(), 60000);
}

TEST(Board, OptionsOfOneFrameExcludeOneAnother) {
  Board board;
  board.form.commands.cmdDayView.OnClick();
  board.windows.Settle();
  int clicks = 0;
  board.form.day.optDaySortBy[2].OnClick = [&] { ++clicks; };
  board.hand.Check(board.form.day.optDaySortBy[2], true);
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(board.WidgetOf<QRadioButton>(board.form.day.optDaySortBy[2]).isChecked());
  EXPECT_FALSE(board.WidgetOf<QRadioButton>(board.form.day.optDaySortBy[0]).isChecked());
  // From code, no option at all may be left.
  board.form.day.optDaySortBy[2].SetValue(false);
  board.windows.Settle();
  EXPECT_FALSE(board.WidgetOf<QRadioButton>(board.form.day.optDaySortBy[2]).isChecked());
}

TEST(Board, APanelHasTheColourOfItsDayAndItsListTheThemes) {
  Board board;
  const QColor theme = QApplication::palette().color(QPalette::Base);
  const QWidget& panel = board.WidgetOf<QGroupBox>(board.form.week.frameWeek[0]);
  EXPECT_EQ(panel.palette().color(QPalette::Window), QColor(224, 224, 224));
  EXPECT_EQ(panel.palette().color(QPalette::WindowText), Qt::black);
  EXPECT_EQ(board.WidgetOf<QWidget>(board.form.week.List1[0]).palette().color(QPalette::Base), theme);
}

TEST(Board, WhatThePersonDoesToTheWindowReachesTheFormAndNothingElseDoes) {
  Board board;
  ui::FormWindow& window = *board.windows.WindowOf(board.form);
  // Opened larger than stored, since more is on it: the stored size stays.
  EXPECT_EQ(board.form.Width(), 10000);
  window.resize(1000, 700);
  board.windows.Settle();
  EXPECT_EQ(board.form.Width(), 15000);
  EXPECT_EQ(board.form.Height(), 10500);
  board.form.SetSize(15000, 10650);
  EXPECT_EQ(window.height(), 710);
  // No window becomes larger than the screen by what is stored.
  board.form.SetSize(150000, 150000);
  EXPECT_LE(window.height(), window.screen()->availableSize().height());
  window.showMaximized();
  board.windows.Settle();
  EXPECT_EQ(board.form.State(), ui::WindowState::Maximized);
}

TEST(VehicleGrid, WhatTheProgramKeepsForItselfIsNotSeen) {
  test::WindowShop shop;
  ui::QtHand hand(shop.windows);
  for (const auto& form : shop.forms) {
    auto* list = dynamic_cast<frmVehList*>(form.get());
    if (list == nullptr) continue;
    list->Show();
    list->DataGrid1.SetRows({{{"1996", "Nissan", "Pathfinder", "VWH-472", "1N4", "108212", "128", "-1", " "}, 128}});
    shop.windows.Settle();
    const auto& table = dynamic_cast<QTableView&>(shop.windows.WindowOf(*list)->PeerOf(list->DataGrid1)->Widget());
    std::vector<std::string> seen;
    for (int column = 0; column < table.model()->columnCount(); ++column) {
      if (!table.isColumnHidden(column))
        seen.push_back(table.model()->headerData(column, Qt::Horizontal).toString().toStdString());
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"Year", "Make", "Model", "License", "VIN", "Mileage", "X"}));
    EXPECT_EQ(hand.Read(list->DataGrid1).cells->at(0).cells.at(6), "128");
    EXPECT_EQ(table.horizontalHeader()->length(), table.viewport()->width());
    list->Hide();
  }
}

TEST(VehicleGrid, AHeadingIsClickedWhereItStands) {
  test::WindowShop shop;
  ui::QtHand hand(shop.windows);
  for (const auto& form : shop.forms) {
    auto* list = dynamic_cast<frmVehList*>(form.get());
    if (list == nullptr) continue;
    list->Show();
    shop.windows.Settle();
    int clicked = -1;
    list->DataGrid1.OnHeadClick = [&](int column) { clicked = column; };
    EXPECT_EQ(hand.ClickHeading(list->DataGrid1, 2), "");
    EXPECT_EQ(clicked, 2);
    EXPECT_NE(hand.ClickHeading(list->DataGrid1, static_cast<int>(VehicleColumn::VLink)), "");
    EXPECT_EQ(clicked, 2);
    list->Hide();
  }
}

// What others have changed is put in anew under the eyes of a person who has scrolled elsewhere.
TEST(Board, AListThatIsScrolledAwayFromItsRowStaysWhereOtherRowsChange) {
  Board board;
  ui::ListBox& list = board.form.week.List1[2];
  list.OnClick = nullptr;
  for (int row = 0; row < 200; ++row) list.AddItem("estimate", row);
  list.SetListIndex(3);
  board.windows.Settle();
  auto& widget = board.WidgetOf<QListWidget>(list);
  widget.verticalScrollBar()->setValue(150);
  const int place = widget.verticalScrollBar()->value();
  ASSERT_GT(place, 100);
  list.SetList(180, "another's");
  list.AddItem("one more");
  board.windows.Settle();
  EXPECT_EQ(widget.verticalScrollBar()->value(), place);
  EXPECT_EQ(widget.currentRow(), 3);
  list.SetListIndex(5);
  board.windows.Settle();
  EXPECT_LT(widget.verticalScrollBar()->value(), 100) << "a row that is chosen is shown";
}

// A list as it is filled anew for what others have changed: the rows of an estimate stay under the person's eyes.
struct ScrolledList : Board {
  ScrolledList() {
    list.OnClick = nullptr;
    Fill(100);
    list.SetListIndex(6);
    windows.Settle();
  }
  void Fill(int first) {
    list.Clear();
    for (int number = first; number < 200; ++number) {
      list.AddItem(std::to_string(number) + " an estimate of somebody who has a very long name indeed", number);
      list.AddItem("  its customer", number);
    }
    list.SetHorizontalExtent(2000);
  }
  // With estimates from this number on.
  void FillAnew(int first) {
    KeptChoice choice(list);
    Fill(first);
    choice.Restore();
    windows.Settle();
  }
  int TopData() { return list.ItemData(widget.indexAt(QPoint(0, 0)).row()); }

  ui::ListBox& list = form.week.List1[2];
  QListWidget& widget = WidgetOf<QListWidget>(list);
  QScrollBar& bar = *widget.verticalScrollBar();
};

TEST(Board, AListThatIsFilledAnewHasTheSameRowAtItsUpperEdgeAndTheSameOneSelected) {
  for (const int first : {97, 100, 102}) {
    ScrolledList scrolled;
    scrolled.bar.setValue(81);
    scrolled.widget.horizontalScrollBar()->setValue(30);
    ASSERT_EQ(scrolled.TopData(), 140);
    scrolled.FillAnew(first);
    EXPECT_EQ(scrolled.TopData(), 140) << first;
    EXPECT_EQ(scrolled.bar.value(), 81 + 2 * (100 - first));
    EXPECT_EQ(scrolled.widget.horizontalScrollBar()->value(), 30);
    EXPECT_EQ(scrolled.list.ItemData(scrolled.list.ListIndex()), 103);
    EXPECT_EQ(scrolled.widget.currentRow(), scrolled.list.ListIndex());
  }
}

TEST(Board, AListThatIsNotScrolledShowsWhatComesAtItsTop) {
  ScrolledList scrolled;
  ASSERT_EQ(scrolled.bar.value(), 0);
  scrolled.FillAnew(60);
  EXPECT_EQ(scrolled.bar.value(), 0);
  EXPECT_EQ(scrolled.list.ItemData(scrolled.list.ListIndex()), 103);
}

TEST(Board, AListWhoseUpperRowIsGoneStaysAsFarDown) {
  ScrolledList scrolled;
  scrolled.bar.setValue(20);
  ASSERT_EQ(scrolled.TopData(), 110);
  scrolled.FillAnew(120);
  EXPECT_EQ(scrolled.bar.value(), 20);
  EXPECT_EQ(scrolled.list.ListIndex(), -1);
}

TEST(Board, AListOfWhichSeveralRowsAreSelectedStaysWhereItIsScrolled) {
  ScrolledList scrolled;
  scrolled.list.SetMultiSelect(true);
  scrolled.list.DoSelectRows({2, 4});
  scrolled.windows.Settle();
  scrolled.bar.setValue(81);
  scrolled.FillAnew(100);
  EXPECT_EQ(scrolled.TopData(), 140);
  EXPECT_TRUE(scrolled.list.Selected(2));
  EXPECT_TRUE(scrolled.list.Selected(4));
}

// A caption of two lines is told whole, however narrow its panel.
TEST(Board, TheHoursOfAPanelAreNeverCut) {
  test::WindowShop shop;
  auto& board = dynamic_cast<frmMain&>(*shop.forms.front());
  board.Show();
  board.week.lblWeekHours[0].SetCaption("Scheduled 17.30\nof 24.00: Under");
  shop.windows.Settle();
  auto& label = dynamic_cast<QLabel&>(shop.windows.WindowOf(board)->PeerOf(board.week.lblWeekHours[0])->Widget());
  EXPECT_EQ(label.text(), QStringLiteral("Scheduled 17.30\nof 24.00: Under"));
  EXPECT_LE(label.fontMetrics().size(0, label.text()).width(), label.width());
}

}  // namespace
}  // namespace lantos
