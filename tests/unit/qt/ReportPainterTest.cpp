#include <fmt/format.h>

#include <QImage>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>

#include "frame/ScratchDirectory.h"
#include "qt/ReportBench.h"
#include "ui/qt/ReportPainter.h"
#include "ui/qt/ReportWindow.h"

namespace lantos {
namespace {

using test::CanReadPdf;
using test::CountOf;
using test::MakeBill;
using test::MakeBillOfPages;
using test::PagesOfPdf;
using test::TextsOf;
using ui::Align;
using ui::Report;

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

TEST(ReportPainter, EveryWordOfAWideStatementIsOnThePaper) {
  Report report = MakeBill(1);
  std::string terms;
  for (int i = 0; i < 200; ++i) terms += fmt::format("{}Word{:03}, Willing", i == 0 ? "" : " ", i);
  report.SetLabel("lblTerms", terms);
  report.SetLabel("lblRemark", terms);
  const test::ScratchDirectory directory;
  for (const ui::Paper paper : {ui::kLetterPaper, ui::kA4Paper}) {
    const QRect ink = InkOf(PictureOf(report, paper));
    EXPECT_LE(ink.right(), 2 * (paper.width - ui::kReportMargin) + 1);
  }
  {
    QPdfWriter pdf(QString::fromStdString((directory / "wide.pdf").string()));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    ui::SetSheet(pdf, report);
    ASSERT_TRUE(ui::PaintReport(report, pdf));
  }
  if (!CanReadPdf()) return;
  const std::vector<std::string> pages = TextsOf(directory / "wide.pdf");
  ASSERT_EQ(pages.size(), 1U);
  for (int i = 0; i < 200; ++i) EXPECT_EQ(CountOf(fmt::format("Word{:03},", i), pages[0]), 2U) << i;
  EXPECT_EQ(CountOf("Willing", pages[0]), 400U);
}

TEST(ReportPainter, ARuleLeavesRoomForAPen) {
  Report report = MakeBill(0);
  report.lines.assign(3, {std::string(20, '_')});
  report.kinds.assign(3, ui::LineKind::Rule);
  report.design.ruleHeight = 20;
  const ui::ReportLayout layout = LayOut(report);
  const double top = ui::kReportMargin + layout.pages[0].headerHeight;
  const QImage picture = PictureOf(report, ui::kLetterPaper);
  for (int i = 0; i < 3; ++i) {
    const QRect row(0, static_cast<int>(2 * (top + 20 * i)) + 3, picture.width(), 37);
    const QRect ink = InkOf(picture, row);
    EXPECT_GT(ink.top(), row.top() + 28) << i;
    EXPECT_LE(ink.height(), 4) << i;
  }
}

// Whether there is ink in nearly all of the row or column of dots, or of one beside it.
bool IsRuled(const QImage& picture, QRect along) {
  const bool lies = along.width() > along.height();
  const int length = lies ? along.width() : along.height();
  for (int offset = -2; offset <= 2; ++offset) {
    int dark = 0;
    for (int i = 0; i < length; ++i) {
      const QPoint at =
          lies ? QPoint(along.left() + i, along.top() + offset) : QPoint(along.left() + offset, along.top() + i);
      dark += qGray(picture.pixel(at)) < 200 ? 1 : 0;
    }
    if (dark > length * 9 / 10) return true;
  }
  return false;
}

TEST(ReportPainter, AFrameIsAroundItsLinesOnEachPage) {
  const std::size_t onFirst = LayOut(MakeBillOfPages(2)).pages[0].lineCount;
  ASSERT_GT(onFirst, 10U);
  Report report = MakeBill(onFirst + 10);
  report.kinds.assign(report.lines.size(), ui::LineKind::Across);
  report.frames = {{onFirst - 3, 5}};
  const ui::ReportLayout layout = LayOut(report);
  const auto dots = [](double points) { return static_cast<int>(2 * points); };
  for (std::size_t page = 0; page < 2; ++page) {
    const QImage picture = PictureOf(report, ui::kLetterPaper, page);
    const double head = layout.top + layout.pages[page].headerHeight;
    const double top = page == 0 ? head + static_cast<double>(onFirst - 3) * layout.detailPitch : head;
    const double height = (page == 0 ? 3 : 2) * layout.detailPitch;
    const QRect inside(dots(layout.left), dots(top - 3), dots(layout.width), dots(height + 6));
    EXPECT_TRUE(IsRuled(picture, QRect(inside.topLeft(), QSize(inside.width(), 1)))) << page;
    EXPECT_TRUE(IsRuled(picture, QRect(inside.bottomLeft(), QSize(inside.width(), 1)))) << page;
    EXPECT_TRUE(IsRuled(picture, QRect(inside.topLeft(), QSize(1, inside.height())))) << page;
    EXPECT_TRUE(IsRuled(picture, QRect(inside.topRight(), QSize(1, inside.height())))) << page;
  }
}

TEST(ReportPainter, ABoxStandsAtItsCharactersAndLines) {
  Report report;
  report.design.name = "rptDrawn";
  report.design.numbersPages = false;
  report.design.columns = {{"Text", 0, 1, Align::Left, ""}};
  report.lines.assign(12, {""});
  report.boxes = {{10, 2, 30.5, 6}, {40, 3, 50, 3}};
  const ui::ReportLayout layout = LayOut(report);
  const QImage picture = PictureOf(report, ui::kLetterPaper);
  const auto across = [&](double characters) {
    return static_cast<int>(2 * (layout.left + characters * layout.characterWidth));
  };
  const auto down = [&](double lines) { return static_cast<int>(2 * (layout.top + lines * layout.detailPitch)); };
  const QRect box = InkOf(picture, QRect(0, 0, across(35), picture.height()));
  EXPECT_NEAR(box.left(), across(10), 2);
  EXPECT_NEAR(box.right(), across(30.5), 2);
  EXPECT_NEAR(box.top(), down(2), 2);
  EXPECT_NEAR(box.bottom(), down(6), 2);
  EXPECT_TRUE(InkOf(picture, box.adjusted(6, 6, -6, -6)).isNull());
  const QRect line = InkOf(picture, QRect(across(35), 0, picture.width() - across(35), picture.height()));
  EXPECT_NEAR(line.top(), down(3), 2);
  EXPECT_LE(line.height(), 3);
  EXPECT_NEAR(line.width(), across(50) - across(40), 4);
}

TEST(ReportPainter, MarginsMoveAllThatIsPrinted) {
  Report report = MakeBill(5);
  const QRect usual = InkOf(PictureOf(report, ui::kLetterPaper));
  report.margins = {136, 86};
  const QRect moved = InkOf(PictureOf(report, ui::kLetterPaper));
  EXPECT_NEAR(moved.left(), usual.left() + 100, 2);
  EXPECT_NEAR(moved.top(), usual.top() + 200, 2);
  EXPECT_NEAR(moved.right(), usual.right(), 2);
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

}  // namespace
}  // namespace lantos
