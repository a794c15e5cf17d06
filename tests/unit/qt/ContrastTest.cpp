#include "qt/Contrast.h"
#include "qt/WindowShop.h"
#include "ui/qt/FormWindow.h"

namespace lantos {
namespace {

using test::Contrast;
using test::DayColour;
using test::ExpectReadable;
using test::kDays;
using test::KeepPicture;
using test::kReadable;
using test::kThemes;
using test::PictureOf;
using test::Theme;
using test::Themed;
using test::WindowShop;

class Contrasts : public testing::TestWithParam<Theme> {};

TEST_P(Contrasts, TheBoardCanBeReadInTheColourOfEveryDay) {
  const Themed themed(GetParam());
  WindowShop shop;
  auto& board = dynamic_cast<frmMain&>(*shop.forms.front());
  board.Show();
  board.week.List1[0].AddItem("000001 Arrived", 1);
  for (const DayColour& day : kDays) {
    const ui::Color colour = ClassifyDay(day.available, day.scheduled, 10);
    SCOPED_TRACE(day.word);
    ASSERT_EQ(DayStatusText(colour), day.word);
    for (ui::Frame* frame : {&board.hours.Frame1, &board.week.frameWeek[0], &board.day.frameDay}) {
      frame->SetBackColor(colour);
    }
    board.week.frameWeek[0].SetCaption("Sun 9/28");
    board.hours.lblStatus.SetCaption(day.word);
    board.hours.lblAvail.SetCaption("8.00");
    shop.windows.Settle();
    ui::FormWindow& window = *shop.windows.WindowOf(board);
    for (ui::Label* label : {&board.hours.lblStatus, &board.hours.lblAvail}) {
      QWidget& widget = window.PeerOf(*label)->Widget();
      ExpectReadable(widget, widget.rect(), label->Name());
    }
    QWidget& panel = window.PeerOf(board.week.frameWeek[0])->Widget();
    ExpectReadable(panel, QRect(0, 0, panel.width(), panel.fontMetrics().height()), "the date of a panel");
    QWidget& list = window.PeerOf(board.week.List1[0])->MouseTarget();
    ExpectReadable(list, QRect(0, 0, list.width(), list.fontMetrics().height()), "a line of a panel");
    KeepPicture(window, std::string("board-") + GetParam().name + "-" + day.word);
  }
}

// A light frame around a dark list, or the other way round, would be all that one sees.
TEST_P(Contrasts, TheEdgeOfAListDoesNotGlare) {
  const Themed themed(GetParam());
  WindowShop shop;
  auto& board = dynamic_cast<frmMain&>(*shop.forms.front());
  board.Show();
  board.week.frameWeek[0].SetBackColor(ClassifyDay(800, 800, 10));
  shop.windows.Settle();
  ui::FormWindow& window = *shop.windows.WindowOf(board);
  QWidget& list = window.PeerOf(board.week.List1[0])->Widget();
  const QImage edge = PictureOf(list, QRect(0, list.height() / 2, 1, 1));
  const QRgb base = QApplication::palette().color(QPalette::Base).rgb();
  if (GetParam().dark) EXPECT_LT(Contrast(edge.pixel(0, 0), base), kReadable);
}

TEST_P(Contrasts, FieldsCanBeReadWhateverTheyTell) {
  const Themed themed(GetParam());
  WindowShop shop;
  for (const auto& form : shop.forms) {
    form->Show();
    for (ui::Control* control : form->Controls()) {
      auto* box = dynamic_cast<ui::TextBox*>(control);
      if (box == nullptr || !box->IsShown() || box->MultiLine() || box->Password()) continue;
      box->SetText("Wm0");
    }
    shop.windows.Settle();
    ui::FormWindow& window = *shop.windows.WindowOf(*form);
    KeepPicture(window, form->Name() + "-" + GetParam().name);
    for (ui::Control* control : form->Controls()) {
      const auto* box = dynamic_cast<ui::TextBox*>(control);
      if (box == nullptr || !box->IsUsable() || box->Text() != "Wm0" || box->HasFocus()) continue;
      QWidget& field = window.PeerOf(*control)->Widget();
      if (!field.isVisible()) continue;
      ExpectReadable(field, field.rect().adjusted(3, 3, -3, -3), form->Name() + "." + box->FullName());
    }
    form->Hide();
  }
}

INSTANTIATE_TEST_SUITE_P(Themes, Contrasts, testing::ValuesIn(kThemes),
                         [](const auto& theme) { return std::string(theme.param.name); });

}  // namespace
}  // namespace lantos
