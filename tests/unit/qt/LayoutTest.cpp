#include <QAbstractButton>
#include <QApplication>
#include <QLabel>

#include "qt/WindowShop.h"
#include "ui/qt/FormWindow.h"

namespace lantos {
namespace {

using test::WindowShop;

// A screen of 1024 x 768, less what a window's frame and the task bar take.
constexpr QSize kRoom(1012, 720);

bool MayBeCut(const QLabel& label) {
  return label.wordWrap() || label.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
}

void ExpectWholeTexts(const ui::FormWindow& window) {
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (!label->isVisible() || MayBeCut(*label)) continue;
    EXPECT_GE(label->width(), label->sizeHint().width()) << label->objectName().toStdString();
  }
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (!label->isVisible() || !label->wordWrap()) continue;
    EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->objectName().toStdString();
  }
  for (const QAbstractButton* button : window.centralWidget()->findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || button->objectName().startsWith("qt_")) continue;
    EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->objectName().toStdString();
    EXPECT_GE(button->height(), button->minimumSizeHint().height()) << button->objectName().toStdString();
  }
}

TEST(Layout, NothingOnAnyFormIsCutOffOnASmallScreen) {
  WindowShop shop;
  for (const auto& form : shop.forms) {
    SCOPED_TRACE(form->Name());
    form->Show();
    shop.windows.Settle();
    ui::FormWindow& window = *shop.windows.WindowOf(*form);
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    EXPECT_LE(least.width(), kRoom.width());
    EXPECT_LE(least.height(), kRoom.height());
    ExpectWholeTexts(window);
    form->Hide();
  }
}

// Of the screens that are opened from the board; the board itself has views, below.
TEST(Layout, InALargeFontEveryScreenFitsASmallScreenAndIsSetInItWholly) {
  for (const int factor : {3, 4}) {
    WindowShop shop;
    ui::Form& board = *shop.forms.front();
    board.LoadForm();
    ui::ApplyFontFactor(board, factor);
    for (const auto& form : shop.forms) {
      if (form.get() == &board || form->Name() == "frmSplash") continue;  // the splash comes before the size is known
      SCOPED_TRACE(form->Name() + ", factor " + std::to_string(factor));
      form->Show();
      shop.windows.Settle();
      ui::FormWindow& window = *shop.windows.WindowOf(*form);
      const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
      EXPECT_LE(least.width(), kRoom.width());
      EXPECT_LE(least.height(), kRoom.height());
      for (const QLabel* label : window.findChildren<QLabel*>()) {
        EXPECT_EQ(label->font().pointSize(), factor * 2 + 6) << label->objectName().toStdString();
      }
      ExpectWholeTexts(window);
      form->Hide();
    }
  }
}

TEST(Layout, NoViewOfTheBoardNeedsMoreThanASmallScreen) {
  WindowShop shop;
  auto& board = dynamic_cast<frmMain&>(*shop.forms.front());
  board.Show();
  shop.windows.Settle();
  ui::FormWindow& window = *shop.windows.WindowOf(board);
  for (ui::Frame* shown : {&board.day.frameDayView, &board.detail.frameDetailView, &board.week.frameWeekView}) {
    for (ui::Frame* view : {&board.day.frameDayView, &board.detail.frameDetailView, &board.week.frameWeekView}) {
      view->SetVisible(view == shown);
    }
    shop.windows.Settle();
    SCOPED_TRACE(shown->Name());
    EXPECT_LE(window.width(), kRoom.width());
    EXPECT_LE(window.height(), kRoom.height());
    ExpectWholeTexts(window);
  }
}

}  // namespace
}  // namespace lantos
