#include <fmt/format.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTimer>
#include <QToolButton>
#include <algorithm>

#include "frame/ScratchDirectory.h"
#include "qt/ReportBench.h"
#include "qt/TestForms.h"
#include "ui/WindowPlace.h"
#include "ui/qt/ReportPainter.h"
#include "ui/qt/ReportWindow.h"

namespace lantos {
namespace {

using test::CanReadPdf;
using test::CountOf;
using test::MakeBill;
using test::MakeBillOfPages;
using test::PagesOfPdf;
using test::PlacesOf;
using test::TextsOf;
using test::withoutPrinters;
using ui::ControlPlace;
using ui::kTwipsPerPixel;
using ui::Report;
using ui::ReportWindow;

class ReportsOnPaper : public ::testing::Test {
 protected:
  ReportsOnPaper() { windows.PrintTo(directory.Path()); }

  ReportWindow& Window() { return dynamic_cast<ReportWindow&>(*windows.TopWindow()); }
  const test::ScriptedPerson::Job& Print(const Report& report) {
    windows.PrintReport(report, ui::PrinterDialog::Skipped);
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
  windows.PrintReport(MakeBill(3), ui::PrinterDialog::Skipped);
  EXPECT_TRUE(person.jobs.empty());
  EXPECT_EQ(directory.Count(), 0U);
}

TEST_F(ReportsOnPaper, SayWhenThePlaceIsGone) {
  windows.PrintTo(directory / "gone");
  EXPECT_THROW(windows.PrintReport(MakeBill(3), ui::PrinterDialog::Skipped), std::runtime_error);
  EXPECT_TRUE(person.jobs.empty());
}

TEST_F(ReportsOnPaper, AreAskedAboutInThePrinterDialog) {
  person.Will([&] {
    EXPECT_TRUE(windows.TopWindow()->isVisible());
    EXPECT_EQ(windows.TopWindow()->windowTitle(), QString::fromUtf8("Print Bill of María López"));
    person.answerPrinter(false);
  });
  windows.PrintReport(MakeBill(3), ui::PrinterDialog::Shown);
  EXPECT_TRUE(person.jobs.empty());
  EXPECT_EQ(windows.TopWindow(), nullptr);
  person.Will([&] { person.answerPrinter(true); });
  windows.PrintReport(MakeBill(3), ui::PrinterDialog::Shown);
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

TEST(ReportsOnScreen, ForLackOfAPrinterAJobBecomesAFile) {
  ASSERT_TRUE(withoutPrinters);
  const test::ScratchDirectory directory;
  ui::QtDesktop windows;
  Later([&] {
    auto& dialog = dynamic_cast<QDialog&>(*windows.TopWindow());
    for (QLineEdit* edit : dialog.findChildren<QLineEdit*>()) {
      if (edit->text().endsWith(".pdf")) edit->setText(QString::fromStdString((directory / "job.pdf").string()));
    }
    dialog.accept();
  });
  windows.PrintReport(MakeBill(3), ui::PrinterDialog::Skipped);
  EXPECT_EQ(PagesOfPdf(directory, directory / "job.pdf"), 1U);
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
  windows.PrintReport(report, ui::PrinterDialog::Shown);
  EXPECT_EQ(PagesOfPdf(directory, directory / "bill.pdf"), 3U);
}

}  // namespace
}  // namespace lantos
