#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <cmath>
#include <cstdlib>
#include <iostream>

#include "qt/WindowShop.h"
#include "ui/qt/Appearance.h"
#include "ui/qt/FormWindow.h"

// What can be read is computed from the pixels that are painted. With LANTOS_PICTURES set to a directory the windows
// are left there as pictures, for somebody to look at.
namespace lantos {
namespace {

using test::WindowShop;

constexpr double kReadable = 4.5;

QPalette Dark() {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(0x2b, 0x2b, 0x2b));
  dark.setColor(QPalette::WindowText, QColor(0xee, 0xee, 0xee));
  dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
  dark.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x26));
  dark.setColor(QPalette::Text, QColor(0xee, 0xee, 0xee));
  dark.setColor(QPalette::Button, QColor(0x38, 0x38, 0x38));
  dark.setColor(QPalette::ButtonText, QColor(0xee, 0xee, 0xee));
  dark.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xb0));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::ToolTipBase, QColor(0x38, 0x38, 0x38));
  dark.setColor(QPalette::ToolTipText, QColor(0xee, 0xee, 0xee));
  return dark;
}

struct Theme {
  const char* name;
  bool dark;
  int points;
};
constexpr Theme kThemes[] = {{"light", false, 9}, {"light12", false, 12}, {"dark", true, 9}, {"dark12", true, 12}};

// The palette and the font of all windows, for as long as it lives.
class Themed {
 public:
  explicit Themed(const Theme& theme) {
    if (theme.dark) QApplication::setPalette(Dark());
    QFont font = font_;
    font.setPointSize(theme.points);
    QApplication::setFont(font);
  }
  ~Themed() {
    QApplication::setPalette(palette_);
    QApplication::setFont(font_);
  }
  Themed(const Themed&) = delete;

 private:
  QPalette palette_ = QApplication::palette();
  QFont font_ = QApplication::font();
};

double Luminance(QRgb colour) {
  const auto linear = [](int channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

double Contrast(QRgb one, QRgb other) {
  const double a = Luminance(one);
  const double b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// Between what most of the pixels are and the one that stands out most.
double ContrastIn(const QImage& picture) {
  QMap<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
  }
  QRgb ground = 0;
  int most = 0;
  for (auto colour = counts.begin(); colour != counts.end(); ++colour) {
    if (colour.value() <= most) continue;
    most = colour.value();
    ground = colour.key();
  }
  double best = 1;
  for (auto colour = counts.begin(); colour != counts.end(); ++colour) {
    best = std::max(best, Contrast(ground, colour.key()));
  }
  return best;
}

QImage PictureOf(QWidget& widget, const QRect& part) {
  return widget.window()->grab(QRect(widget.mapTo(widget.window(), part.topLeft()), part.size())).toImage();
}

void Keep(const ui::FormWindow& window, const std::string& name) {
  const char* folder = std::getenv("LANTOS_PICTURES");
  if (folder == nullptr) return;
  const QString file = QString::fromStdString(std::string(folder) + "/" + name + ".png");
  EXPECT_TRUE(const_cast<ui::FormWindow&>(window).grab().save(file)) << file.toStdString();
}

void ExpectReadable(QWidget& widget, const QRect& part, const std::string& what) {
  EXPECT_GE(ContrastIn(PictureOf(widget, part)), kReadable) << what;
}

struct DayColour {
  const char* word;
  Hundredths available;
  std::int64_t scheduled;
};
constexpr DayColour kDays[] = {
    {"Closed", 0, 0}, {"CLOSED!", 0, 800}, {"Good", 800, 800}, {"Under", 800, 100}, {"Over", 800, 1600}};

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
    Keep(window, std::string("board-") + GetParam().name + "-" + day.word);
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
    Keep(window, form->Name() + "-" + GetParam().name);
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
