#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include "masters/employees/frmEmpPRInfo.h"
#include "qt/WindowShop.h"
#include "ui/qt/CalendarView.h"
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

TEST(Layout, AnAddressIsSeenWholeBesideItsPay) {
  WindowShop shop;
  for (const auto& form : shop.forms) {
    auto* pay = dynamic_cast<frmEmpPRInfo*>(form.get());
    if (pay == nullptr) continue;
    pay->Show();
    pay->EmpAddr.SetText("12345 North Martin Luther King Rd");
    shop.windows.Settle();
    const auto& box = dynamic_cast<QLineEdit&>(shop.windows.WindowOf(*pay)->PeerOf(pay->EmpAddr)->Widget());
    EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(box.text()));
    pay->Hide();
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

// Of the texts in these labels of a screen that was just opened, set in the usual and in a large font.
void ExpectRoomFor(const std::string& screen, const std::vector<std::pair<const char*, const char*>>& texts) {
  for (const int factor : {1, 3}) {
    WindowShop shop;
    if (factor > 1) {
      shop.forms.front()->LoadForm();
      ui::ApplyFontFactor(*shop.forms.front(), factor);
    }
    const auto form =
        std::find_if(shop.forms.begin(), shop.forms.end(), [&](const auto& each) { return each->Name() == screen; });
    (*form)->Show();
    for (ui::Control* control : (*form)->Controls()) {
      for (const auto& [name, text] : texts) {
        if (control->Name() == name) dynamic_cast<ui::Label&>(*control).SetCaption(text);
      }
    }
    shop.windows.Settle();
    for (const auto& [name, text] : texts) {
      const QLabel* label = shop.windows.WindowOf(**form)->findChild<QLabel*>(name);
      EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(text)) << name << ", factor " << factor;
    }
    (*form)->Hide();
  }
}

TEST(Layout, ThePhoneOfWhoIsLookedForIsWhole) { ExpectRoomFor("frmFind", {{"lblCustomer", "000379  541-555-3843"}}); }

TEST(Layout, TheHeadOfAPastWorkOrderIsWhole) {
  ExpectRoomFor("frmWOHist", {{"custname", "Goodwin,Christopher"},
                              {"citystatezip", "Stonebridge, OR 97352"},
                              {"licvin", "Lic: OR CUN-918 VIN: 4S3BK1VF6S0100225"},
                              {"workorder_number", "1011446"},
                              {"workorder_type", "Warranty"},
                              {"status", "ON ACCT"},
                              {"status_date", "12/28/2024"},
                              {"method", "Account"},
                              {"total1", "12500.42"},
                              {"wo_po_tax", "1012.50"}});
}

// Points of the window system's font, for as long as it lives.
struct FontOf {
  explicit FontOf(int points) {
    QFont font = before;
    font.setPointSize(points);
    QApplication::setFont(font);
  }
  ~FontOf() { QApplication::setFont(before); }
  FontOf(const FontOf&) = delete;
  const QFont before = QApplication::font();
};

// Texts as long as they come.
void FillLabels(frmMain& board) {
  DetailPane& detail = board.detail;
  for (ui::Label* label : {&detail.lblCustName, &detail.lblCustSpouse, &detail.lblCustAddr, &detail.lblCustCSZ,
                           &detail.lblVehYMM, &detail.lblVehVIN, &detail.lblEngTrans}) {
    label->SetCaption("WWWWWWWWWWWWWWWWWWWW");
  }
  for (ui::Label* label : {&detail.lblCustPhoneH, &detail.lblCustPhoneW, &detail.lblCustPhoneO}) {
    label->SetCaption("937-555-2222 x 12345");
  }
  detail.lblVehLic.SetCaption("WWW 000000");
  detail.lblVehMileage.SetCaption("1234567");
  detail.lblVehDate.SetCaption("12/28/2003");
  for (ui::Label& label : board.week.lblWeekHours) label.SetCaption("Scheduled 128.00\nof 128.00: CLOSED!");
}

void ExpectBoardFits() {
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
    FillLabels(board);
    shop.windows.Settle();
    const QSize least = window.minimumSizeHint();
    EXPECT_LE(least.width(), kRoom.width());
    EXPECT_LE(least.height(), kRoom.height());
    window.resize(kRoom);
    shop.windows.Settle();
    ExpectWholeTexts(window);
    const QTableView& days = ui::DaysOf(*window.findChild<QCalendarWidget*>());
    const int last = days.model()->rowCount() - 1;
    EXPECT_LE(days.rowViewportPosition(last) + days.rowHeight(last), days.viewport()->height()) << "the last week";
  }
}

TEST(Layout, NoViewOfTheBoardNeedsMoreThanASmallScreen) { ExpectBoardFits(); }

TEST(Layout, NorDoesItWithALargeFont) {
  const FontOf large(12);
  ExpectBoardFits();
}

TEST(Layout, NamesAndPhonesWidenWithTheWindowAndMileageIsWhole) {
  WindowShop shop;
  auto& board = dynamic_cast<frmMain&>(*shop.forms.front());
  board.Show();
  board.week.frameWeekView.SetVisible(false);
  board.detail.frameDetailView.SetVisible(true);
  FillLabels(board);
  ui::FormWindow& window = *shop.windows.WindowOf(board);
  const auto width = [&](const char* name) { return window.findChild<QLabel*>(name)->width(); };
  const char* const widening[] = {"lblCustName", "lblCustAddr", "lblCustPhoneW", "lblVehYMM", "lblVehVIN"};
  window.resize(kRoom);
  shop.windows.Settle();
  std::vector<int> narrow;
  for (const char* name : widening) narrow.push_back(width(name));
  window.resize(1900, 1000);
  shop.windows.Settle();
  for (std::size_t i = 0; i < narrow.size(); ++i) EXPECT_GE(width(widening[i]), narrow[i] + 100) << widening[i];
  const QLabel* phone = window.findChild<QLabel*>("lblCustPhoneW");
  EXPECT_GE(phone->width(), phone->fontMetrics().horizontalAdvance(phone->text()));
  const QLabel* mileage = window.findChild<QLabel*>("lblVehMileage");
  EXPECT_GE(mileage->width(), mileage->fontMetrics().horizontalAdvance("1234567"));
}

// A mark makes a caption larger, not its button.
TEST(Layout, TheCommandsKeepTheirPlacesWhateverIsMarked) {
  for (const int points : {9, 12}) {
    const FontOf font(points);
    WindowShop shop;
    auto& board = dynamic_cast<frmMain&>(*shop.forms.front());
    board.Show();
    const std::vector<ui::Button*> marked = {&board.commands.cmdEstimateNotes, &board.commands.cmdEstimateSublets,
                                             &board.commands.cmdEstimateWaste};
    const auto buttons = shop.windows.WindowOf(board)->findChild<QWidget*>("frameCommands");
    const auto places = [&](bool mark) {
      for (ui::Button* button : marked) CommandPane::Mark(*button, mark);
      shop.windows.Settle();
      std::vector<QRect> found;
      for (const QAbstractButton* button : buttons->findChildren<QAbstractButton*>())
        found.push_back(button->geometry());
      return found;
    };
    const std::vector<QRect> plain = places(false);
    EXPECT_EQ(places(true), plain) << points;
    CommandPane::Mark(board.commands.cmdEstimateWaste, false);
    shop.windows.Settle();
    EXPECT_EQ(buttons->findChild<QWidget*>("cmdEstimateWaste")->height(),
              buttons->findChild<QWidget*>("cmdEstimateSublets")->height());
  }
}

}  // namespace
}  // namespace lantos
