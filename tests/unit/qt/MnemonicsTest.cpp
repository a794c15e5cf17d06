#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <map>

#include "qt/WindowShop.h"
#include "ui/qt/FormWindow.h"

// A letter with Alt leads to one place alone.
namespace lantos {
namespace {

using test::WindowShop;

class Letters {
 public:
  void Take(const QString& text, const std::string& owner) {
    const QString letter = QKeySequence::mnemonic(text).toString();
    if (!letter.isEmpty()) owners_[letter.toStdString()].push_back(owner);
  }
  // What stands on the window as it is: captions of its widgets, labels that only the design knows, the menu bar.
  void TakeAll(const ui::Form& form, const ui::FormWindow& window) {
    for (const auto& menu : form.Menus()) {
      if (menu->Visible()) Take(QString::fromStdString(menu->Caption()), menu->FullName());
    }
    const QWidget& inside = *window.centralWidget();
    TakeFrom<QAbstractButton>(inside, &QAbstractButton::text);
    TakeFrom<QGroupBox>(inside, &QGroupBox::title);
    TakeFrom<QLabel>(inside, &QLabel::text);
  }
  std::string Twice() const {
    std::string twice;
    for (const auto& [letter, owners] : owners_) {
      if (owners.size() < 2) continue;
      twice += letter + ":";
      for (const std::string& owner : owners) twice += " " + owner;
      twice += "\n";
    }
    return twice;
  }
  bool Has(const std::string& owner) const {
    return std::any_of(owners_.begin(), owners_.end(), [&](const auto& each) {
      return std::find(each.second.begin(), each.second.end(), owner) != each.second.end();
    });
  }

 private:
  template <class Widget>
  void TakeFrom(const QWidget& inside, QString (Widget::*text)() const) {
    for (const Widget* widget : inside.findChildren<Widget*>()) {
      if (widget->isVisible()) Take((widget->*text)(), widget->objectName().toStdString());
    }
  }

  std::map<std::string, std::vector<std::string>> owners_;
};

TEST(Mnemonics, NoViewOfTheBoardHasALetterTwice) {
  WindowShop shop;
  auto& board = dynamic_cast<frmMain&>(*shop.forms.front());
  board.Show();
  for (ui::Frame* shown : {&board.day.frameDayView, &board.detail.frameDetailView, &board.week.frameWeekView}) {
    for (ui::Frame* view : {&board.day.frameDayView, &board.detail.frameDetailView, &board.week.frameWeekView}) {
      view->SetVisible(view == shown);
    }
    shop.windows.Settle();
    Letters letters;
    letters.TakeAll(board, *shop.windows.WindowOf(board));
    EXPECT_EQ(letters.Twice(), "") << shown->Name();
    EXPECT_TRUE(letters.Has("mnuHelp") && letters.Has("cmdNewEstimate"));
    if (shown != &board.detail.frameDetailView) continue;
    for (const QAbstractButton* button :
         shop.windows.WindowOf(board)->findChild<QWidget*>("frameDetailView")->findChildren<QAbstractButton*>()) {
      EXPECT_TRUE(letters.Has(button->objectName().toStdString())) << button->objectName().toStdString();
    }
  }
}

// Captions that people know. Next and Last have their letter; Name and License have keys of their own with Ctrl.
constexpr const char* kLettersOfHistory = "Alt+L: cmdLast cmdLicense\nAlt+N: cmdNext cmdName\n";

TEST(Mnemonics, NoFormHasALetterTwice) {
  WindowShop shop;
  for (const auto& form : shop.forms) {
    form->Show();
    shop.windows.Settle();
    Letters letters;
    letters.TakeAll(*form, *shop.windows.WindowOf(*form));
    EXPECT_EQ(letters.Twice(), form->Name() == "frmWOHist" ? kLettersOfHistory : "") << form->Name();
    form->Hide();
  }
}

}  // namespace
}  // namespace lantos
