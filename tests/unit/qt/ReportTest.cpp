#include <fmt/format.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QScreen>
#include <QShortcut>
#include <QStandardPaths>
#include <QTimer>
#include <QToolButton>
#include <algorithm>

#include "frame/ScratchDirectory.h"
#include "frame/Text.h"
#include "qt/TestForms.h"
#include "ui/WindowPlace.h"
#include "ui/qt/BoxWindow.h"
#include "ui/qt/ReportPainter.h"
#include "ui/qt/ReportWindow.h"

namespace lantos {
namespace {

using ui::Align;
using ui::Band;
using ui::ControlPlace;
using ui::kTwipsPerPixel;
using ui::Report;
using ui::ReportWindow;

// What printers this computer has is none of the tests' business.
const bool withoutPrinters = qputenv("CUPS_SERVER", "/none");

constexpr std::size_t kWide = 62;  // characters of the first column

// A bill as a repair shop writes it.
Report MakeBill(std::size_t lines) {
  Report report;
  report.title = "Bill of Mar\355a L\363pez";
  ui::ReportDesign& design = report.design;
  design.name = "rptBill";
  design.caption = "Bill";
  design.headerHeight = 100;
  design.footerHeight = 62;
  design.characters = kWide;
  design.columns = {{"Text", 0, 0.74, Align::Left, "Description"},
                    {"Hours", 0.75, 0.1, Align::Right, "Hours"},
                    {"Amount", 0.86, 0.14, Align::Right, "Amount"}};
  design.labels = {
      {"lblShop", Band::PageHeader, 0, 0, 0.6, 14, Align::Left, true, false, "Main Street Motors"},
      {"lblAddress", Band::PageHeader, 0, 20, 0.6, 9, Align::Left, false, false, "12 Main Street\rSpringfield"},
      {"", Band::PageHeader, 0.6, 0, 0.4, 14, Align::Right, true, false, "BILL"},
      {"lblCustomer", Band::PageHeader, 0.01, 56, 0.5, 9, Align::Left, false, false,
       "Mar\355a L\363pez\r\n4 Elm Road\r\nSpringfield"},
      {"lblRemark", Band::PageHeader, 0, 100, 1, 8, Align::Left, false, true, "Parts are sold as they are."},
      {"", Band::ReportFooter, 0.66, 10, 0.18, 9, Align::Left, false, false, "Labor\nParts\nTotal"},
      {"lblTotals", Band::ReportFooter, 0.84, 10, 0.15, 9, Align::Right, true, false, "120.00\n80.50\n200.50"},
      {"lblTerms", Band::ReportFooter, 0, 62, 1, 8, Align::Left, false, true, "Payment is due at once.\nThank you."}};
  design.boxes = {
      {Band::PageHeader, 0, 52, 0.52, 42}, {Band::PageHeader, 0, 48, 1, 0}, {Band::ReportFooter, 0.65, 6, 0.35, 46}};
  for (std::size_t i = 0; i < lines; ++i) {
    report.lines.push_back(
        {fmt::format("{:<20}item {:03}", "REPLACE", i + 1), fmt::format("{}.5", i % 12), fmt::format("{}.00", i * 37)});
  }
  return report;
}

std::size_t PagesOf(const Report& report) { return LayOut(report).pages.size(); }

// As many lines as make that many pages.
Report MakeBillOfPages(std::size_t pages) {
  std::size_t lines = 0;
  while (PagesOf(MakeBill(lines)) < pages) lines += 10;
  return MakeBill(lines);
}

// The text on each page as it is laid out, read by a program of its own.
std::vector<std::string> TextsOf(const std::filesystem::path& pdf) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", "-enc", "UTF-8", QString::fromStdString(pdf.string()), "-"});
  EXPECT_TRUE(reader.waitForFinished());
  EXPECT_EQ(reader.exitCode(), 0);
  std::vector<std::string> pages;
  std::string text = reader.readAllStandardOutput().toStdString();
  for (std::size_t end = text.find('\f'); end != std::string::npos; end = text.find('\f')) {
    pages.push_back(text.substr(0, end));
    text.erase(0, end + 1);
  }
  return pages;
}

bool CanReadPdf() { return !QStandardPaths::findExecutable("pdftotext").isEmpty(); }

std::size_t CountOf(const std::string& what, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
  return count;
}

// A page's object says so; the node above the pages is of the type Pages.
std::size_t PagesOfPdf(const test::ScratchDirectory& directory, const std::filesystem::path& pdf) {
  const std::string content = directory.Content(pdf.filename().string());
  return CountOf("/Type /Page", content) - CountOf("/Type /Pages", content);
}

// The column of the page's text where that word begins in each line that has it.
std::vector<std::size_t> PlacesOf(const std::string& word, const std::string& page) {
  std::vector<std::size_t> places;
  for (const std::string& line : ui::LinesOf(page)) {
    if (line.find(word) != std::string::npos) places.push_back(line.find(word));
  }
  return places;
}

// Sheet by sheet as a picture, at two dots a point.
QImage PictureOf(const Report& report, ui::Paper paper, std::size_t page = 0) {
  QImage picture(static_cast<int>(2 * paper.width), static_cast<int>(2 * paper.height), QImage::Format_RGB32);
  picture.setDotsPerMeterX(5669);  // 144 an inch
  picture.setDotsPerMeterY(5669);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  ui::ReportPainter(report, paper).PaintPage(painter, page);
  return picture;
}

QRect InkOf(const QImage& picture, QRect within = {}) {
  if (within.isNull()) within = picture.rect();
  QRect ink;
  for (int y = within.top(); y <= within.bottom(); ++y) {
    for (int x = within.left(); x <= within.right(); ++x) {
      if (qGray(picture.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

class ReportsOnPaper : public ::testing::Test {
 protected:
  ReportsOnPaper() { windows.PrintTo(directory.Path()); }

  ReportWindow& Window() { return dynamic_cast<ReportWindow&>(*windows.TopWindow()); }
  const test::ScriptedPerson::Job& Print(const Report& report) {
    windows.PrintReport(report, false);
    return person.jobs.back();
  }

  test::ScratchDirectory directory;
  test::ScriptedPerson person;
  ui::QtDesktop windows{&person};
};

TEST_F(ReportsOnPaper, HaveThePagesThatWereLaidOut) {
  const Report report = MakeBillOfPages(3);
  const test::ScriptedPerson::Job job = Print(report);
  EXPECT_EQ(job.report, "rptBill");
  EXPECT_EQ(job.text, directory / "job-001-rptBill.txt");
  EXPECT_EQ(job.pdf, directory / "job-001-rptBill.pdf");
  EXPECT_EQ(CountOf("\n", directory.Content("job-001-rptBill.txt")), report.lines.size());
  EXPECT_EQ(PagesOfPdf(directory, job.pdf), 3U);
  Print(report);
  EXPECT_EQ(person.jobs.back().pdf, directory / "job-002-rptBill.pdf");
}

TEST_F(ReportsOnPaper, BearEveryLineOnceAndTheBandsWhereTheyBelong) {
  const Report report = MakeBillOfPages(3);
  const std::filesystem::path pdf = Print(report).pdf;
  ASSERT_EQ(PagesOfPdf(directory, pdf), 3U);
  if (!CanReadPdf()) return;
  const std::vector<std::string> pages = TextsOf(pdf);
  const ui::ReportLayout layout = LayOut(report);
  ASSERT_EQ(pages.size(), layout.pages.size());
  for (std::size_t page = 0; page < pages.size(); ++page) {
    EXPECT_EQ(CountOf(fmt::format("Page {} of 3", page + 1), pages[page]), 1U);
    for (const char* text : {"Main Street Motors", "Springfield", "María López", "Parts are sold", "Description"}) {
      EXPECT_GE(CountOf(text, pages[page]), 1U) << text << " on page " << page + 1;
    }
    EXPECT_EQ(CountOf("item ", pages[page]), layout.pages[page].lineCount);
    const std::size_t isLast = page + 1 == pages.size() ? 1 : 0;
    EXPECT_EQ(CountOf("200.50", pages[page]), isLast);
    EXPECT_EQ(CountOf("Payment is due at once.", pages[page]), isLast);
  }
  for (std::size_t i = 0; i < report.lines.size(); ++i) {
    const std::string item = fmt::format("item {:03} ", i + 1);
    const auto onPage =
        std::count_if(pages.begin(), pages.end(), [&](const std::string& page) { return CountOf(item, page) == 1; });
    EXPECT_EQ(onPage, 1) << item;
  }
  const std::vector<std::size_t> places = PlacesOf("item ", pages[1]);
  EXPECT_TRUE(std::equal(places.begin() + 1, places.end(), places.begin()));
}

TEST_F(ReportsOnPaper, HaveTheirHeadersWithoutAnyLine) {
  const test::ScriptedPerson::Job job = Print(MakeBill(0));
  EXPECT_EQ(directory.Content("job-001-rptBill.txt"), "");
  EXPECT_EQ(PagesOfPdf(directory, job.pdf), 1U);
  if (!CanReadPdf()) return;
  const std::vector<std::string> pages = TextsOf(job.pdf);
  ASSERT_EQ(pages.size(), 1U);
  for (const char* text : {"Main Street Motors", "Description", "Thank you.", "Page 1 of 1"}) {
    EXPECT_EQ(CountOf(text, pages[0]), 1U) << text;
  }
}

TEST_F(ReportsOnPaper, AreNotWrittenWithoutAPlaceForThem) {
  windows.PrintTo({});
  windows.PrintReport(MakeBill(3), false);
  EXPECT_TRUE(person.jobs.empty());
  EXPECT_EQ(directory.Count(), 0U);
}

TEST_F(ReportsOnPaper, SayWhenThePlaceIsGone) {
  windows.PrintTo(directory / "gone");
  EXPECT_THROW(windows.PrintReport(MakeBill(3), false), std::runtime_error);
  EXPECT_TRUE(person.jobs.empty());
}

TEST_F(ReportsOnPaper, AreAskedAboutInThePrinterDialog) {
  person.Will([&] {
    EXPECT_TRUE(windows.TopWindow()->isVisible());
    EXPECT_EQ(windows.TopWindow()->windowTitle(), QString::fromUtf8("Print Bill of María López"));
    person.answerPrinter(false);
  });
  windows.PrintReport(MakeBill(3), true);
  EXPECT_TRUE(person.jobs.empty());
  EXPECT_EQ(windows.TopWindow(), nullptr);
  person.Will([&] { person.answerPrinter(true); });
  windows.PrintReport(MakeBill(3), true);
  EXPECT_EQ(person.jobs.size(), 1U);
}

TEST_F(ReportsOnPaper, AreShownFirstAndPrintedFromThere) {
  const Report report = MakeBillOfPages(3);
  ControlPlace place;
  person.Will([&] {
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(Window().windowTitle(), QString::fromUtf8("Bill of María López"));
    EXPECT_EQ(Window().PageCount(), 3);
    EXPECT_EQ(Window().findChild<QLabel*>("page")->text(), "Page 1 of 3");
    person.preview.print();
    EXPECT_EQ(person.jobs.size(), 1U);
    EXPECT_TRUE(Window().isVisible());
    person.preview.print();
    EXPECT_EQ(person.jobs.size(), 2U);
    person.preview.close();
  });
  windows.PreviewReport(report, place);
  EXPECT_EQ(windows.TopWindow(), nullptr);
}

TEST_F(ReportsOnPaper, AFailureInThePreviewIsShownAndThePreviewStays) {
  windows.PrintTo(directory / "gone");
  ControlPlace place;
  person.Will([&] {
    person.preview.print();
    EXPECT_TRUE(Window().isVisible());
    person.preview.close();
  });
  person.boxesDontMatter = false;
  person.Will([&] { person.pressButton(ui::Answer::Ok); });
  windows.PreviewReport(MakeBill(3), place);
  EXPECT_EQ(person.failures.size(), 1U);
  EXPECT_TRUE(person.jobs.empty());
}

TEST_F(ReportsOnPaper, ThePreviewComesBackToItsPlace) {
  ControlPlace place{90 * kTwipsPerPixel, 120 * kTwipsPerPixel, 900 * kTwipsPerPixel, 600 * kTwipsPerPixel, 0};
  person.Will([&] {
    EXPECT_EQ(Window().pos(), QPoint(120, 90));
    EXPECT_EQ(Window().size(), QSize(900, 600));
    Window().resize(850, 640);
    Window().move(60, 40);
    person.preview.close();
  });
  windows.PreviewReport(MakeBill(3), place);
  EXPECT_EQ(place.left, 60 * kTwipsPerPixel);
  EXPECT_EQ(place.top, 40 * kTwipsPerPixel);
  EXPECT_EQ(place.width, 850 * kTwipsPerPixel);
  EXPECT_EQ(place.height, 640 * kTwipsPerPixel);
  EXPECT_EQ(place.state, 0);
}

TEST_F(ReportsOnPaper, AMaximizedPreviewIsMaximizedAgain) {
  ControlPlace place;
  person.Will([&] {
    EXPECT_FALSE(Window().isMaximized());
    Window().setWindowState(Qt::WindowMaximized);
    person.preview.close();
  });
  windows.PreviewReport(MakeBill(3), place);
  EXPECT_EQ(place.state, 2);
  EXPECT_GT(place.width, 0);
  person.Will([&] {
    EXPECT_TRUE(Window().isMaximized());
    person.preview.close();
  });
  windows.PreviewReport(MakeBill(3), place);
  EXPECT_EQ(place.state, 2);
}

TEST_F(ReportsOnPaper, APreviewIsNeverOutOfSight) {
  const QRect room = QApplication::primaryScreen()->availableGeometry();
  ControlPlace place{0, 90000 * kTwipsPerPixel, 90000 * kTwipsPerPixel, 400 * kTwipsPerPixel, 0};
  person.Will([&] {
    EXPECT_TRUE(room.contains(Window().geometry()));
    EXPECT_EQ(Window().height(), 400);
    person.preview.close();
  });
  windows.PreviewReport(MakeBill(3), place);
}

TEST_F(ReportsOnPaper, ASecondPreviewOfTheSameReportClosesTheFirst) {
  const Report first = MakeBill(3);
  Report second = MakeBill(4);
  second.title = "Second";
  Report other = MakeBill(5);
  other.design.name = "rptOther";
  ControlPlace place;
  person.Will([&] {
    ReportWindow& firstWindow = Window();
    const auto closeFirst = person.preview.close;
    person.Will([&] {
      EXPECT_TRUE(firstWindow.isVisible());
      EXPECT_NE(&Window(), &firstWindow);
      person.preview.close();
    });
    windows.PreviewReport(other, place);
    EXPECT_EQ(&Window(), &firstWindow);
    person.Will([&] {
      EXPECT_FALSE(firstWindow.isVisible());
      EXPECT_TRUE(Window().isVisible());
      EXPECT_EQ(Window().windowTitle(), "Second");
      person.preview.close();
    });
    windows.PreviewReport(second, place);
    EXPECT_EQ(windows.TopWindow(), nullptr);
    closeFirst();
  });
  windows.PreviewReport(first, place);
}

TEST_F(ReportsOnPaper, AScreenshotShowsThePreview) {
  ui::QtHand hand(windows);
  ControlPlace place{0, 0, 900 * kTwipsPerPixel, 700 * kTwipsPerPixel, 0};
  person.Will([&] {
    EXPECT_EQ(hand.Screenshot(nullptr, directory / "preview.png"), "");
    EXPECT_EQ(QImage(QString::fromStdString((directory / "preview.png").string())).size(),
              Window().size() * Window().devicePixelRatio());
    person.preview.close();
  });
  windows.PreviewReport(MakeBill(3), place);
}

void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers with = {}) {
  // Shortcuts are looked for before the key comes to a widget.
  QWidget* at = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &window;
  QKeyEvent shortcut(QEvent::ShortcutOverride, key, with);
  QApplication::sendEvent(at, &shortcut);
  const auto shortcuts = window.findChildren<QShortcut*>();
  for (QShortcut* known : shortcuts) {
    if (known->key() == QKeySequence(QKeyCombination(with, key))) return Q_EMIT known->activated();
  }
  QKeyEvent press(QEvent::KeyPress, key, with);
  QApplication::sendEvent(at, &press);
}

QToolButton& ButtonOf(QWidget& window, const QString& text) {
  for (QToolButton* button : window.findChildren<QToolButton*>()) {
    if (button->text() == text) return *button;
  }
  throw std::logic_error("no button " + text.toStdString());
}

TEST_F(ReportsOnPaper, ThePreviewIsLeafedThroughByKeys) {
  const Report report = MakeBillOfPages(3);
  ControlPlace place;
  person.Will([&] {
    const auto press = [&](Qt::Key key) { Press(Window(), key); };
    // A screenful each, as the page is as wide as the window.
    int presses = 0;
    for (; Window().Page() < 3 && presses < 20; ++presses) press(Qt::Key_PageDown);
    EXPECT_GT(presses, 2);
    press(Qt::Key_Home);
    EXPECT_EQ(Window().Page(), 1);
    ButtonOf(Window(), "Fit Pa&ge").click();
    press(Qt::Key_PageDown);
    EXPECT_EQ(Window().Page(), 2);
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    EXPECT_EQ(Window().Page(), 1);
    ButtonOf(Window(), "&Next").click();
    EXPECT_EQ(Window().Page(), 2);
    ButtonOf(Window(), "Pre&vious").click();
    EXPECT_EQ(Window().Page(), 1);
    EXPECT_FALSE(ButtonOf(Window(), "Pre&vious").isEnabled());
    press(Qt::Key_End);
    EXPECT_EQ(Window().Page(), 3);
    EXPECT_EQ(Window().findChild<QLabel*>("page")->text(), "Page 3 of 3");
    press(Qt::Key_Home);
    EXPECT_EQ(Window().Page(), 1);
    Press(Window(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(person.jobs.size(), 1U);
    press(Qt::Key_Escape);
  });
  windows.PreviewReport(report, place);
}

TEST_F(ReportsOnPaper, TheButtonsOfThePreviewHaveRoomInASmallWindow) {
  ControlPlace place{0, 0, 500 * kTwipsPerPixel, 380 * kTwipsPerPixel, 0};
  person.Will([&] {
    EXPECT_EQ(Window().width(), 500);
    QStringList mnemonics;
    for (const QToolButton* button : Window().findChildren<QToolButton*>()) {
      EXPECT_TRUE(Window().rect().contains(QRect(button->mapTo(&Window(), QPoint()), button->size())));
      EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
      EXPECT_FALSE(button->toolTip().isEmpty());
      EXPECT_FALSE(button->shortcut().isEmpty());
      mnemonics.append(button->shortcut().toString());
    }
    EXPECT_EQ(mnemonics.size(), 8);
    EXPECT_EQ(mnemonics.removeDuplicates(), 0);
    person.preview.close();
  });
  windows.PreviewReport(MakeBill(3), place);
}

TEST(ReportPainter, KnowsThePaperOfADevice) {
  const test::ScratchDirectory directory;
  QPdfWriter printer(QString::fromStdString((directory / "none.pdf").string()));
  printer.setPageSize(QPageSize(QPageSize::Letter));
  EXPECT_NEAR(ui::PaperOf(printer).width, ui::kLetterPaper.width, 0.1);
  EXPECT_NEAR(ui::PaperOf(printer).height, ui::kLetterPaper.height, 0.1);
  printer.setPageSize(QPageSize(QPageSize::A4));
  Report report = MakeBill(1);
  report.design.orientation = ui::Orientation::Landscape;
  ui::SetSheet(printer, report);
  EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
  EXPECT_NEAR(ui::PaperOf(printer).width, ui::kA4Paper.width, 0.1);
  EXPECT_NEAR(ui::PaperOf(printer).height, ui::kA4Paper.height, 0.1);
}

TEST(ReportPainter, PaintsInsideTheMarginsOfEveryPaper) {
  for (const ui::Paper paper : {ui::kLetterPaper, ui::kA4Paper}) {
    const QImage picture = PictureOf(MakeBill(200), paper);
    const QRect ink = InkOf(picture);
    const auto margin = static_cast<int>(2 * ui::kReportMargin);
    EXPECT_NEAR(ink.left(), margin, 2);
    EXPECT_NEAR(picture.width() - ink.right(), margin, 4);
    EXPECT_NEAR(ink.top(), margin, 10);
    EXPECT_GE(picture.height() - ink.bottom(), margin);
  }
}

TEST(ReportPainter, CutsATextOffAtItsField) {
  Report report = MakeBill(0);
  report.design.columns = {{"First", 0, 0.5, Align::Left, ""}, {"Second", 0.5, 0.5, Align::Right, ""}};
  report.lines.assign(5, {std::string(300, 'W'), ""});
  const ui::ReportLayout layout = LayOut(report);
  const auto middle = static_cast<int>(2 * (ui::kReportMargin + layout.width / 2));
  const auto top = static_cast<int>(2 * (ui::kReportMargin + layout.pages[0].headerHeight));
  const auto height = static_cast<int>(2 * 5 * layout.detailPitch);
  const QImage left = PictureOf(report, ui::kLetterPaper);
  const QRect band(0, top + 1, left.width(), height - 1);
  EXPECT_NEAR(InkOf(left, band).right(), middle, 2);
  for (auto& line : report.lines) line = {"", std::string(300, 'W')};
  EXPECT_NEAR(InkOf(PictureOf(report, ui::kLetterPaper), band).left(), middle, 2);
}

// Behind the first part, which is full of ink, the field is empty: what was cut off is the end.
TEST(ReportPainter, ATextOnTheRightLosesItsEndAndNotItsBeginning) {
  Report report = MakeBill(0);
  report.design.columns = {{"First", 0, 0.5, Align::Left, ""}, {"Second", 0.5, 0.5, Align::Right, ""}};
  report.lines.assign(1, {"", std::string(20, 'W') + std::string(300, ' ')});
  const ui::ReportLayout layout = LayOut(report);
  const auto middle = static_cast<int>(2 * (ui::kReportMargin + layout.width / 2));
  const auto top = static_cast<int>(2 * (ui::kReportMargin + layout.pages[0].headerHeight));
  const QRect band(0, top + 1, static_cast<int>(2 * 612), static_cast<int>(2 * layout.detailPitch) - 1);
  EXPECT_NEAR(InkOf(PictureOf(report, ui::kLetterPaper), band).left(), middle, 3);
}

// The page is laid out by the number of characters that a line must hold.
TEST(ReportPainter, AFieldHoldsItsCharacters) {
  for (const std::size_t characters : {40U, 80U, 96U, 132U}) {
    Report report = MakeBill(0);
    report.design.characters = characters;
    report.design.columns = {{"Text", 0, 0.6, Align::Left, ""}};
    report.lines = {{std::string(characters, 'H')}};
    const ui::ReportLayout layout = LayOut(report);
    const auto top = static_cast<int>(2 * (ui::kReportMargin + layout.pages[0].headerHeight));
    const auto height = static_cast<int>(2 * layout.detailPitch);
    const QImage whole = PictureOf(report, ui::kLetterPaper);
    const QRect band(0, top, whole.width(), height);
    const int right = InkOf(whole, band).right();
    // Within the field, and no less than the last character's own edge.
    const double character = layout.detailSize * 0.6 * 2;
    EXPECT_LE(right, 2 * (ui::kReportMargin + 0.6 * layout.width)) << characters;
    EXPECT_NEAR(right, 2 * ui::kReportMargin + character * static_cast<double>(characters), character) << characters;
  }
}

TEST(ReportPainter, AStatementGoesOnWhereThePageEnded) {
  Report report = MakeBill(10);
  std::string terms;
  for (int i = 0; i < 150; ++i) terms += fmt::format("{}Term {:03}", i == 0 ? "" : "\r\n", i);
  report.SetLabel("lblTerms", terms);
  const ui::ReportLayout layout = LayOut(report);
  ASSERT_GT(layout.pages.size(), 2U);
  const test::ScratchDirectory directory;
  {
    QPdfWriter pdf(QString::fromStdString((directory / "terms.pdf").string()));
    pdf.setPageSize(QPageSize(QPageSize::Letter));
    ui::SetSheet(pdf, report);
    ASSERT_TRUE(ui::PaintReport(report, pdf));
  }
  ASSERT_EQ(PagesOfPdf(directory, directory / "terms.pdf"), layout.pages.size());
  if (!CanReadPdf()) return;
  const std::vector<std::string> pages = TextsOf(directory / "terms.pdf");
  ASSERT_EQ(pages.size(), layout.pages.size());
  for (std::size_t page = 0; page < pages.size(); ++page) {
    EXPECT_EQ(CountOf("Term ", pages[page]), layout.pages[page].footer.count);
    EXPECT_EQ(CountOf(fmt::format("Term {:03}", layout.pages[page].footer.first), pages[page]), 1U);
    EXPECT_EQ(CountOf("200.50", pages[page]), layout.pages[page].hasFooter ? 1U : 0U);
  }
}

TEST(ReportPainter, PrintsThePagesAskedFor) {
  const test::ScratchDirectory directory;
  const Report report = MakeBillOfPages(3);
  {
    QPdfWriter printer(QString::fromStdString((directory / "range.pdf").string()));
    printer.setPageSize(QPageSize(QPageSize::Letter));
    ui::SetSheet(printer, report);
    printer.setPageRanges(QPageRanges::fromString("2-3"));
    ASSERT_TRUE(ui::PaintReport(report, printer, 2));
  }
  EXPECT_EQ(PagesOfPdf(directory, directory / "range.pdf"), 4U);
}

// With somebody in front of the screen.
void Later(std::function<void()> deed) { QTimer::singleShot(0, QApplication::instance(), std::move(deed)); }

TEST(ReportsOnScreen, APreviewWaitsUntilItIsClosed) {
  ui::QtDesktop windows;
  ControlPlace place;
  const Report report = MakeBill(20);
  Later([&] {
    auto& window = dynamic_cast<ReportWindow&>(*windows.TopWindow());
    // The printer dialog over it.
    Later([&] {
      EXPECT_NE(windows.TopWindow(), &window);
      windows.TopWindow()->close();
    });
    window.PrintButton().click();
    EXPECT_EQ(windows.TopWindow(), &window);
    window.close();
  });
  windows.PreviewReport(report, place);
  EXPECT_EQ(windows.TopWindow(), nullptr);
  EXPECT_GT(place.width, 0);
}

TEST(ReportsOnScreen, SayThatThereIsNoPrinter) {
  ASSERT_TRUE(withoutPrinters);
  ui::QtDesktop windows;
  try {
    windows.PrintReport(MakeBill(3), false);
    FAIL();
  } catch (const std::exception& error) {
    EXPECT_STREQ(error.what(), "No printer is installed.");
  }
}

TEST(ReportsOnScreen, ThePrinterDialogOffersAFileWithoutPrinters) {
  ASSERT_TRUE(withoutPrinters);
  const test::ScratchDirectory directory;
  ui::QtDesktop windows;
  Report report = MakeBill(130);
  report.title = "Bill 4/5";
  ASSERT_EQ(LayOut(report, ui::kLetterPaper).pages.size(), 3U);
  ASSERT_EQ(LayOut(report, ui::kA4Paper).pages.size(), 3U);
  Later([&] {
    auto& dialog = dynamic_cast<QDialog&>(*windows.TopWindow());
    for (QLineEdit* edit : dialog.findChildren<QLineEdit*>()) {
      if (edit->text().endsWith("/Bill 4-5.pdf"))
        edit->setText(QString::fromStdString((directory / "bill.pdf").string()));
    }
    dialog.accept();
  });
  windows.PrintReport(report, true);
  EXPECT_EQ(PagesOfPdf(directory, directory / "bill.pdf"), 3U);
}

}  // namespace
}  // namespace lantos
