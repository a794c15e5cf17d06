// What lies beside the week and the plain fields: the board's other views, fields that refuse, boxes, the preview.
#include <QAbstractButton>
#include <QGraphicsView>
#include <QGroupBox>
#include <QLabel>
#include <QListView>

#include "frame/Text.h"
#include "qt/Contrast.h"
#include "qt/ReportBench.h"
#include "qt/WindowShop.h"
#include "ui/qt/FormWindow.h"

namespace lantos {
namespace {

using test::ContrastIn;
using test::DayColour;
using test::ExpectReadable;
using test::GroundOf;
using test::kDays;
using test::KeepPicture;
using test::kReadable;
using test::kThemes;
using test::PictureOf;
using test::Theme;
using test::Themed;
using test::WindowShop;

class ContrastsOfTheBoard : public testing::TestWithParam<Theme> {
 protected:
  ContrastsOfTheBoard() { board.Show(); }

  // One of the three, for all of the window.
  void ShowView(const ui::Frame& view) {
    for (ui::Frame* each : {&board.week.frameWeekView, &board.day.frameDayView, &board.detail.frameDetailView}) {
      each->SetVisible(each == &view);
    }
    shop.windows.Settle();
  }
  QWidget& WidgetOf(const ui::Control& control) { return Window().PeerOf(control)->Widget(); }
  ui::FormWindow& Window() { return *shop.windows.WindowOf(board); }
  void ExpectTextReadable(const ui::Control& control, const std::string& when = "") {
    QWidget& widget = WidgetOf(control);
    ASSERT_TRUE(widget.isVisible()) << control.FullName();
    ExpectReadable(widget, widget.rect(), control.FullName() + when);
  }
  void ExpectCaptionReadable(const ui::Frame& frame, const std::string& when = "") {
    QWidget& group = WidgetOf(frame);
    ASSERT_TRUE(group.isVisible()) << frame.FullName();
    ExpectReadable(group, QRect(0, 0, group.width(), group.fontMetrics().height()), frame.FullName() + when);
  }
  // A row of a list, the selected one among them.
  void ExpectRowReadable(const ui::ListBox& list, int row) {
    auto& view = dynamic_cast<QListView&>(WidgetOf(list));
    const QRect place = view.visualRect(view.model()->index(row, 0)).intersected(view.viewport()->rect());
    ASSERT_FALSE(place.isEmpty()) << list.FullName();
    ExpectReadable(*view.viewport(), place, list.FullName() + ", row " + std::to_string(row));
  }
  std::string PictureName(const std::string& what) const { return "board-" + what + "-" + GetParam().name; }

  Themed themed{GetParam()};
  WindowShop shop;
  frmMain& board = dynamic_cast<frmMain&>(*shop.forms.front());
};

TEST_P(ContrastsOfTheBoard, AWeekPanelHasItsMarkAndItsHoursToRead) {
  for (const DayColour& day : kDays) {
    board.week.frameWeek[2].SetBackColor(ClassifyDay(day.available, day.scheduled, 10));
    board.week.lblWeekMark[2].SetCaption("\xBB New estimates");
    board.week.lblWeekHours[2].SetCaption("Scheduled 8.00\nof 8.00: " + std::string(day.word));
    shop.windows.Settle();
    ExpectTextReadable(board.week.lblWeekMark[2], day.word);
    ExpectTextReadable(board.week.lblWeekHours[2], day.word);
  }
}

TEST_P(ContrastsOfTheBoard, TheDayViewCanBeReadInTheColourOfEveryDay) {
  ShowView(board.day.frameDayView);
  board.day.frameDay.SetCaption("Tuesday, September 30, 2003");
  board.day.lblDayComments.SetCaption("Half of the crew is at school");
  board.day.List2.AddItem("000001  Arrived", 1);
  board.day.List2.AddItem("000002  Scheduled", 2);
  board.day.List2.SetListIndex(1);
  for (const DayColour& day : kDays) {
    SCOPED_TRACE(day.word);
    board.day.frameDay.SetBackColor(ClassifyDay(day.available, day.scheduled, 10));
    shop.windows.Settle();
    ExpectCaptionReadable(board.day.frameDay);
    ExpectTextReadable(board.day.lblDayComments);
    ExpectTextReadable(board.day.cbShowLabor);
    for (const ui::OptionButton& option : board.day.optDaySortBy) ExpectTextReadable(option);
    for (const int row : {0, 1}) ExpectRowReadable(board.day.List2, row);
    KeepPicture(Window(), PictureName("day-" + std::string(day.word)));
  }
}

TEST_P(ContrastsOfTheBoard, TheDetailViewCanBeRead) {
  ShowView(board.detail.frameDetailView);
  DetailPane& detail = board.detail;
  std::vector<ui::Label*> labels = {
      &detail.lblCustName,   &detail.lblCustSpouse, &detail.lblCustAddr, &detail.lblCustCSZ, &detail.lblCustPhoneH,
      &detail.lblCustPhoneW, &detail.lblCustPhoneO, &detail.lblVehYMM,   &detail.lblVehVIN,  &detail.lblVehLic,
      &detail.lblVehDate,    &detail.lblVehMileage, &detail.lblEngTrans};
  for (ui::Label* label : labels) label->SetCaption("Wm 0");
  detail.txtComments.SetText("Brakes squeal");
  for (ui::TextBox* total : detail.Totals()) total->SetText("120.00");
  for (ui::ListBox* list : {&detail.listLabor, &detail.listParts}) {
    list->AddItem("1.50 REPLACE FRONT PADS", 1);
    list->AddItem("0.50 ROAD TEST", 2);
    list->SetListIndex(1);
  }
  shop.windows.Settle();
  for (const ui::Label* label : labels) ExpectTextReadable(*label);
  for (const ui::Frame* frame : {&detail.frameCustomer, &detail.frameVehicle, &detail.frameComments, &detail.frameLabor,
                                 &detail.frameParts, &detail.frameTotals}) {
    ExpectCaptionReadable(*frame);
  }
  ExpectTextReadable(detail.txtComments);
  for (const ui::TextBox* total : detail.Totals()) ExpectTextReadable(*total);
  for (const ui::ListBox* list : {&detail.listLabor, &detail.listParts}) {
    for (const int row : {0, 1}) ExpectRowReadable(*list, row);
  }
  KeepPicture(Window(), PictureName("detail"));
}

INSTANTIATE_TEST_SUITE_P(Themes, ContrastsOfTheBoard, testing::ValuesIn(kThemes),
                         [](const auto& theme) { return std::string(theme.param.name); });

class ContrastsElsewhere : public testing::TestWithParam<Theme> {
 protected:
  Themed themed{GetParam()};
};

TEST_P(ContrastsElsewhere, WhatIsNoNumberIsRedAndCanBeReadOnIt) {
  WindowShop shop;
  int red = 0;
  for (const auto& form : shop.forms) {
    form->Show();
    std::vector<ui::TextBox*> refused;
    for (ui::Control* control : form->Controls()) {
      auto* box = dynamic_cast<ui::TextBox*>(control);
      if (box == nullptr || !box->IsUsable() || box->Locked() || box->MultiLine() || box->Password()) continue;
      box->SetText("x1");
      if (box->BackColor()) refused.push_back(box);
    }
    shop.windows.Settle();
    ui::FormWindow& window = *shop.windows.WindowOf(*form);
    for (const ui::TextBox* box : refused) {
      QWidget& field = window.PeerOf(*box)->Widget();
      if (!field.isVisible() || box->HasFocus()) continue;
      const QRect inside = field.rect().adjusted(3, 3, -3, -3);
      const QColor ground(GroundOf(PictureOf(field, inside)));
      EXPECT_GT(ground.red(), ground.green() + 50) << form->Name() + "." + box->FullName();
      ExpectReadable(field, inside, form->Name() + "." + box->FullName());
      ++red;
    }
    if (!refused.empty()) KeepPicture(window, "red-" + form->Name() + "-" + GetParam().name);
    form->Hide();
  }
  EXPECT_GE(red, 30) << "the screens of parts, labor and kits have that many";
}

TEST_P(ContrastsElsewhere, ABoxCanBeReadWhateverItsIcon) {
  test::ScriptedPerson person;
  ui::QtDesktop windows{&person};
  for (const ui::Icon icon :
       {ui::Icon::None, ui::Icon::Critical, ui::Icon::Question, ui::Icon::Exclamation, ui::Icon::Information}) {
    const std::string number = std::to_string(static_cast<int>(icon));
    SCOPED_TRACE(number);
    person.Will([&] {
      QWidget& box = *windows.TopWindow();
      const auto* text = box.findChild<QLabel*>("qt_msgbox_label");
      ASSERT_NE(text, nullptr);
      ExpectReadable(const_cast<QLabel&>(*text), text->rect(), "the text");
      for (QAbstractButton* button : box.findChildren<QAbstractButton*>()) {
        ExpectReadable(*button, button->rect().adjusted(3, 3, -3, -3), button->text().toStdString());
      }
      KeepPicture(box, "box-" + number + "-" + GetParam().name);
      person.pressButton(ui::Answer::Cancel);
    });
    windows.Show({"One or more of the pricing values is missing.\rClick OK to continue, or CANCEL to correct.",
                  "Edit Part", ui::Buttons::OkCancel, icon, 1});
  }
}

// The paper is white in every palette, and what is printed on it black.
TEST_P(ContrastsElsewhere, APreviewCanBeRead) {
  test::ScriptedPerson person;
  ui::QtDesktop windows{&person};
  ui::ControlPlace place;
  person.Will([&] {
    windows.Settle();
    QWidget& window = *windows.TopWindow();
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
      if (!button->isVisible() || !button->isEnabled() || button->text().isEmpty()) continue;
      ExpectReadable(*button, button->rect(), button->text().toStdString());
    }
    auto* page = window.findChild<QLabel*>("page");
    ExpectReadable(*page, page->rect(), "the number of the page");
    QWidget& paper = *window.findChild<QGraphicsView*>()->viewport();
    const QImage middle = PictureOf(paper, QRect(paper.width() / 4, 40, paper.width() / 2, paper.height() / 2));
    EXPECT_EQ(QColor(GroundOf(middle)), QColor(Qt::white));
    EXPECT_GE(ContrastIn(middle), kReadable);
    KeepPicture(window, std::string("preview-") + GetParam().name);
    person.preview.close();
  });
  windows.PreviewReport(test::MakeBill(30), place);
}

INSTANTIATE_TEST_SUITE_P(Themes, ContrastsElsewhere, testing::Values(kThemes[0], kThemes[3]),
                         [](const auto& theme) { return std::string(theme.param.name); });

}  // namespace
}  // namespace lantos
