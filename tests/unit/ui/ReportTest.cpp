#include "ui/Report.h"

#include <gtest/gtest.h>

#include <numeric>
#include <stdexcept>

#include "frame/FileError.h"
#include "frame/ScratchDirectory.h"

namespace lantos {
namespace {

using ui::Align;
using ui::Band;
using ui::Report;
using ui::ReportLayout;
using ui::ReportPage;

constexpr double kLetterRoom = 792 - 2 * 36 - 18;  // between the margins and above the number of the page
constexpr double kPitch = 9.5 * 1.2;

// A header of that height and lines of the largest size.
Report Make(std::size_t lines, double headerHeight = 100, double footerHeight = 0) {
  Report report;
  report.design.name = "rptTest";
  report.design.headerHeight = headerHeight;
  report.design.footerHeight = footerHeight;
  report.design.characters = 40;
  report.design.columns = {{"Text", 0, 0.7, Align::Left, ""}, {"Amount", 0.7, 0.3, Align::Right, ""}};
  report.design.labels = {{"lblRemark", Band::PageHeader, 0, 100, 1, 8, Align::Left, false, true, ""},
                          {"lblTerms", Band::ReportFooter, 0, 0, 1, 8, Align::Left, false, true, ""}};
  report.lines.assign(lines, {"text", "1.00"});
  return report;
}

std::string LinesOfText(std::size_t count, const std::string& line = "line") {
  std::string text = line;
  for (std::size_t i = 1; i < count; ++i) text += "\r\n" + line;
  return text;
}

std::size_t LinesOn(const ReportLayout& layout) {
  return std::accumulate(layout.pages.begin(), layout.pages.end(), std::size_t{0},
                         [](std::size_t sum, const ReportPage& page) { return sum + page.lineCount; });
}

std::size_t GrownOn(const ReportLayout& layout) {
  std::size_t grown = 0;
  for (const ReportPage& page : layout.pages) {
    if (page.footer.count == 0) continue;
    EXPECT_EQ(page.footer.first, grown);
    grown += page.footer.count;
  }
  return grown;
}

std::size_t FootersOn(const ReportLayout& layout) {
  std::size_t footers = 0;
  for (const ReportPage& page : layout.pages) footers += page.hasFooter ? 1 : 0;
  return footers;
}

TEST(Report, ALabelIsSetByItsName) {
  Report report = Make(0);
  report.SetLabel("lblTerms", "cash");
  EXPECT_EQ(report.design.labels[1].text, "cash");
  EXPECT_THROW(report.SetLabel("lblNone", "x"), std::logic_error);
}

TEST(Report, PagesAreCounted) {
  EXPECT_EQ(ui::PageText(1, 1), "Page 1 of 1");
  EXPECT_EQ(ui::PageText(12, 345), "Page 12 of 345");
}

TEST(Report, TextsBreakAtLineEndsOfAnyKind) {
  EXPECT_EQ(ui::LinesOf(""), std::vector<std::string>{""});
  EXPECT_EQ(ui::LinesOf("a\rb\r\nc\n\rd"), (std::vector<std::string>{"a", "b", "c", "", "d"}));
}

TEST(Report, ALabelGoesOnBelowAtTheEndsOfItsWords) {
  // At 10 points a letter m takes 8.33 points, a blank 2.78.
  EXPECT_EQ(ui::WrappedLabel("mm mm  mm", 10, 40), (std::vector<std::string>{"mm mm", "mm"}));
  EXPECT_EQ(ui::WrappedLabel("mm mm  mm", 10, 60), std::vector<std::string>{"mm mm  mm"});
  EXPECT_EQ(ui::WrappedLabel("  mm mm\r\n\r\n mm", 10, 30), (std::vector<std::string>{"  mm", "mm", "", " mm"}));
  EXPECT_EQ(ui::WrappedLabel("m mmmmmmm m", 10, 30), (std::vector<std::string>{"m", "mmm", "mmm", "m m"}));
  EXPECT_EQ(ui::WrappedLabel("mmm   ", 10, 26), std::vector<std::string>{"mmm   "});
  EXPECT_EQ(ui::WrappedLabel("m\tm", 10, 100), std::vector<std::string>{"m       m"});
  EXPECT_EQ(ui::WrappedLabel("mm", 10, 1), (std::vector<std::string>{"m", "m"}));
}

TEST(Report, ALineGoesOnBelowItsOwnBeginning) {
  EXPECT_EQ(ui::WrappedLine("twelve chars", 12), std::vector<std::string>{"twelve chars"});
  EXPECT_EQ(ui::WrappedLine("one two three", 8), (std::vector<std::string>{"one two", "three"}));
  EXPECT_EQ(ui::WrappedLine("  one two three", 8), (std::vector<std::string>{"  one", "  two", "  three"}));
  EXPECT_EQ(ui::WrappedLine("     one two", 8), (std::vector<std::string>{"     one", "two"}));
  EXPECT_EQ(ui::WrappedLine(std::string(20, 'x'), 8),
            (std::vector<std::string>{std::string(8, 'x'), std::string(8, 'x'), std::string(4, 'x')}));
  EXPECT_EQ(ui::WrappedLine("          ", 8), (std::vector<std::string>{"          "}));
}

TEST(ReportLayout, MarginsTakeFromThePrintablePart) {
  Report report = Make(1);
  const ReportLayout usual = LayOut(report);
  EXPECT_EQ(usual.left, 36);
  EXPECT_EQ(usual.top, 36);
  report.margins = {100, 72};
  const ReportLayout moved = LayOut(report);
  EXPECT_EQ(moved.top, 100);
  EXPECT_EQ(moved.left, 72);
  EXPECT_EQ(moved.height, usual.height - 64);
  EXPECT_EQ(moved.width, usual.width - 36);
  report.margins = {-1, 5000};
  EXPECT_EQ(LayOut(report).top, 36);
  EXPECT_EQ(LayOut(report).left, 306);
}

TEST(ReportLayout, LinesThatAreNoTextHaveTheWidthOfThePage) {
  Report report = Make(3);
  report.design.wraps = true;
  const std::string words = "a line of forty-seven characters that go across";
  for (auto& line : report.lines) line[0] = words;
  report.kinds = {ui::LineKind::Text, ui::LineKind::Across, ui::LineKind::Across};
  report.design.columns[0].width = 0.4;
  EXPECT_EQ(LayOut(report).lines.size(), 4U);
  // A frame takes a character at either side.
  const auto across = static_cast<std::size_t>(LayOut(report).width / LayOut(report).characterWidth);
  report.lines[1][0] = report.lines[2][0] = std::string(across, 'x');
  EXPECT_EQ(LayOut(report).lines.size(), 4U);
  report.frames = {{2, 1}};
  const ReportLayout framed = LayOut(report);
  ASSERT_EQ(framed.lines.size(), 5U);
  EXPECT_FALSE(framed.lines[2].isFramed);
  EXPECT_TRUE(framed.lines[3].isFramed);
  EXPECT_TRUE(framed.lines[4].isFramed);
  EXPECT_EQ(framed.lines[3].text.size(), across - 2);
}

TEST(ReportLayout, AStatementWiderThanThePaperIsAsHighAsItsLines) {
  Report report = Make(1, 100, 20);
  const std::string sentence =
      "Parts that were ordered for this vehicle can be returned only unopened and in their box. ";
  std::string text;
  for (int i = 0; i < 8; ++i) text += sentence;
  report.SetLabel("lblTerms", text);
  const ReportLayout layout = LayOut(report);
  EXPECT_GT(layout.footer.size(), 4U);
  EXPECT_EQ(layout.pages[0].footer.count, layout.footer.size());
  std::string joined;
  for (const std::string& line : layout.footer) joined += line + " ";
  EXPECT_EQ(joined, text + " ");
  EXPECT_GT(LayOut(report, ui::kA4Paper).footer.size(), layout.footer.size() - 1);
  report.SetLabel("lblRemark", text);
  EXPECT_EQ(LayOut(report).pages[0].header.count, layout.footer.size());
}

TEST(ReportLayout, AShortStatementStaysWithTheTotals) {
  const auto perPage = static_cast<std::size_t>((kLetterRoom - 100) / kPitch);
  Report report = Make(perPage - 5, 100, 50);  // leaves the totals room, and no more
  report.SetLabel("lblTerms", LinesOfText(2));
  const ReportLayout layout = LayOut(report);
  ASSERT_EQ(layout.pages.size(), 2U);
  EXPECT_FALSE(layout.pages[0].hasFooter);
  EXPECT_TRUE(layout.pages[1].hasFooter);
  EXPECT_EQ(layout.pages[1].footer.count, 2U);
  report.design.footerHeight = kLetterRoom - 100;  // a page for itself
  EXPECT_TRUE(LayOut(report).pages[1].hasFooter);
  EXPECT_EQ(LayOut(report).pages[2].footer.count, 2U);
}

TEST(ReportLayout, WhatTheFirstColumnCannotHoldGoesOnBelowWhereTheDesignWraps) {
  Report report = Make(2);
  report.lines[0][0] = std::string(60, 'a') + " " + std::string(70, 'b');
  EXPECT_EQ(LayOut(report).lines.size(), 2U);
  report.design.wraps = true;
  const ReportLayout layout = LayOut(report);
  ASSERT_EQ(layout.lines.size(), 4U);
  EXPECT_EQ(layout.lines[0].text, std::string(60, 'a'));
  EXPECT_TRUE(layout.lines[0].begins);
  EXPECT_FALSE(layout.lines[1].begins);
  EXPECT_EQ(layout.lines[2].line, 0U);
  EXPECT_EQ(layout.lines[1].text + layout.lines[2].text, std::string(70, 'b'));
  EXPECT_EQ(layout.lines[3].line, 1U);
  EXPECT_EQ(layout.pages[0].lineCount, 4U);
}

TEST(ReportLayout, RulesHaveRoomToWriteAndHeadingsAirAboveThem) {
  Report report = Make(3);
  report.kinds = {ui::LineKind::Heading, ui::LineKind::Rule};
  EXPECT_DOUBLE_EQ(LayOut(report).lines[1].height, kPitch);
  report.design.ruleHeight = 20;
  report.design.aboveHeading = 9;
  const ReportLayout layout = LayOut(report);
  EXPECT_DOUBLE_EQ(layout.lines[0].height, kPitch + 9);
  EXPECT_DOUBLE_EQ(layout.lines[1].height, 20);
  EXPECT_DOUBLE_EQ(layout.lines[2].height, kPitch);
  const auto perPage = static_cast<std::size_t>((kLetterRoom - 100) / 20);
  report.lines.resize(perPage + 1, {"____"});
  report.kinds.assign(report.lines.size(), ui::LineKind::Rule);
  EXPECT_EQ(LayOut(report).pages[0].lineCount, perPage);
}

TEST(ReportLayout, AHeadingIsNotLeftAloneAtTheFootOfAPage) {
  const auto perPage = static_cast<std::size_t>((kLetterRoom - 100) / kPitch);
  Report report = Make(perPage + 5);
  report.kinds.assign(report.lines.size(), ui::LineKind::Text);
  report.kinds[perPage - 1] = report.kinds[perPage - 2] = ui::LineKind::Heading;
  EXPECT_EQ(LayOut(report).pages[0].lineCount, perPage - 2);
  report.kinds[perPage - 1] = ui::LineKind::Leading;
  EXPECT_EQ(LayOut(report).pages[0].lineCount, perPage - 2);
  report.kinds.assign(report.lines.size(), ui::LineKind::Heading);
  EXPECT_EQ(LayOut(report).pages[0].lineCount, perPage);
}

TEST(ReportLayout, FillsAPageBeforeTheNextOneBegins) {
  const auto perPage = static_cast<std::size_t>((kLetterRoom - 100) / kPitch);
  EXPECT_EQ(LayOut(Make(perPage)).pages.size(), 1U);
  const ReportLayout layout = LayOut(Make(2 * perPage + 1));
  EXPECT_DOUBLE_EQ(layout.width, 540);
  EXPECT_DOUBLE_EQ(layout.height, kLetterRoom);
  EXPECT_DOUBLE_EQ(layout.detailSize, 9.5);
  EXPECT_DOUBLE_EQ(layout.detailPitch, kPitch);
  ASSERT_EQ(layout.pages.size(), 3U);
  EXPECT_EQ(layout.pages[1].firstLine, perPage);
  EXPECT_EQ(layout.pages[1].lineCount, perPage);
  EXPECT_EQ(layout.pages[2].firstLine, 2 * perPage);
  EXPECT_EQ(layout.pages[2].lineCount, 1U);
  EXPECT_FALSE(layout.pages[1].hasFooter);
  EXPECT_TRUE(layout.pages[2].hasFooter);
}

TEST(ReportLayout, HasAPageWithoutLines) {
  const ReportLayout layout = LayOut(Make(0));
  ASSERT_EQ(layout.pages.size(), 1U);
  EXPECT_EQ(layout.pages[0].lineCount, 0U);
  EXPECT_TRUE(layout.pages[0].hasFooter);
}

TEST(ReportLayout, TheHeaderGrowsWithItsTextAndHasRoomForHeadings) {
  Report report = Make(1);
  EXPECT_DOUBLE_EQ(LayOut(report).pages[0].headerHeight, 100);
  report.SetLabel("lblRemark", "one\r\ntwo");
  EXPECT_GT(LayOut(report).pages[0].headingTop, 120);  // with a gap below
  EXPECT_DOUBLE_EQ(LayOut(report).pages[0].headerHeight, LayOut(report).pages[0].headingTop);
  report.design.columns[1].heading = "Amount";
  EXPECT_GT(LayOut(report).pages[0].headerHeight, LayOut(report).pages[0].headingTop);
}

TEST(ReportLayout, AHeaderThatGrewStandsOnEveryPageWhileThereIsRoom) {
  Report report = Make(200, 100, 100);
  report.SetLabel("lblRemark", LinesOfText(20));
  const ReportLayout layout = LayOut(report);
  ASSERT_GT(layout.pages.size(), 2U);
  for (const ReportPage& page : layout.pages) {
    EXPECT_EQ(page.header.first, 0U);
    EXPECT_EQ(page.header.count, 20U);
    EXPECT_EQ(page.headerHeight, layout.pages[0].headerHeight);
  }
}

// Neither a line nor the totals are driven off the paper by it.
TEST(ReportLayout, AHeaderThatLeavesNoRoomStandsOnTheFirstPagesOnly) {
  for (std::size_t header = 30; header < 200; ++header) {
    for (const std::size_t lines : {0U, 1U, 9U, 60U, 150U}) {
      for (const std::size_t terms : {1U, 12U, 80U}) {
        Report report = Make(lines, 100, 120);
        report.SetLabel("lblRemark", LinesOfText(header));
        report.SetLabel("lblTerms", LinesOfText(terms));
        const ReportLayout layout = LayOut(report);
        std::size_t shown = 0;
        for (const ReportPage& page : layout.pages) {
          if (page.header.first == shown) shown += page.header.count;
          const double foot = page.headerHeight + static_cast<double>(page.lineCount) * layout.detailPitch +
                              (page.hasFooter ? 120 : 0) + static_cast<double>(page.footer.count) * ui::PitchOf(8);
          ASSERT_LE(foot, layout.height + 0.001) << header << " " << lines;
        }
        ASSERT_EQ(shown, header);
        ASSERT_EQ(LinesOn(layout), lines);
        ASSERT_EQ(GrownOn(layout), terms);
        ASSERT_EQ(FootersOn(layout), 1U);
      }
    }
  }
}

TEST(ReportLayout, TheTextBecomesAsSmallAsItsCharactersNeed) {
  Report report = Make(1);
  report.design.characters = 96;
  const double narrow = LayOut(report).detailSize;
  EXPECT_LT(narrow, 9.5);
  EXPECT_LE(96 * 0.6001 * narrow, 0.7 * 540);
  report.design.orientation = ui::Orientation::Landscape;
  const ReportLayout lying = LayOut(report);
  EXPECT_DOUBLE_EQ(lying.width, 720);
  EXPECT_GT(lying.detailSize, narrow);
  EXPECT_LT(LayOut(report, ui::kA4Paper).height, lying.height);
}

TEST(ReportLayout, AFooterThatHasNoRoomGetsAPage) {
  const auto perPage = static_cast<std::size_t>((kLetterRoom - 100) / kPitch);
  EXPECT_EQ(LayOut(Make(perPage - 5, 100, 50)).pages.size(), 1U);
  const ReportLayout layout = LayOut(Make(perPage, 100, 50));
  ASSERT_EQ(layout.pages.size(), 2U);
  EXPECT_FALSE(layout.pages[0].hasFooter);
  EXPECT_TRUE(layout.pages[1].hasFooter);
  EXPECT_EQ(layout.pages[1].lineCount, 0U);
}

TEST(ReportLayout, AFooterLargerThanAPageLeavesNoPageEmptyBeforeIt) {
  EXPECT_EQ(LayOut(Make(0, 100, 5000)).pages.size(), 1U);
  EXPECT_EQ(LayOut(Make(1, 100, 5000)).pages.size(), 2U);
}

TEST(ReportLayout, AStatementMovesToANewPageRatherThanBeTorn) {
  const auto perPage = static_cast<std::size_t>((kLetterRoom - 100) / kPitch);
  Report report = Make(perPage - 10, 100, 20);
  report.SetLabel("lblTerms", LinesOfText(5));
  EXPECT_EQ(LayOut(report).pages.size(), 1U);
  report.SetLabel("lblTerms", LinesOfText(30));
  const ReportLayout layout = LayOut(report);
  ASSERT_EQ(layout.pages.size(), 2U);
  EXPECT_TRUE(layout.pages[0].hasFooter);
  EXPECT_EQ(layout.pages[0].footer.count, 0U);
  EXPECT_EQ(layout.pages[1].footer.count, 30U);
}

TEST(ReportLayout, AStatementOfSeveralPagesBeginsWhereItCan) {
  Report report = Make(10, 100, 20);
  report.SetLabel("lblTerms", LinesOfText(200));
  const ReportLayout layout = LayOut(report);
  EXPECT_GT(layout.pages[0].footer.count, 0U);
  EXPECT_EQ(GrownOn(layout), 200U);
  EXPECT_EQ(FootersOn(layout), 1U);
}

// Whatever the numbers are, it comes to an end, and every line has its place.
TEST(ReportLayout, EveryLineHasItsPlace) {
  for (const double header : {0.0, 83.3, 400.0, 690.0, 702.0, 900.0}) {
    for (const double footer : {0.0, 41.7, 600.0}) {
      for (const std::size_t lines : {0U, 1U, 49U, 53U, 200U}) {
        for (const std::size_t grown : {1U, 7U, 40U, 61U, 62U, 150U}) {
          for (const double size : {7.3, 8.0, 9.1, 702 / 1.25 / 61}) {
            Report report = Make(lines, header, footer);
            report.SetLabel("lblTerms", LinesOfText(grown));
            report.design.labels[1].size = size;
            const ReportLayout layout = LayOut(report);
            ASSERT_EQ(LinesOn(layout), lines);
            ASSERT_EQ(GrownOn(layout), grown);
            ASSERT_EQ(FootersOn(layout), 1U);
          }
        }
      }
    }
  }
}

// A statement that exactly fills a page, as rounding may or may not have it.
TEST(ReportLayout, AStatementAsLongAsAPageComesToAnEnd) {
  for (std::size_t lines = 1; lines < 400; ++lines) {
    for (const double header : {0.0, 0.1, 33.3}) {
      Report report = Make(1, header);
      report.SetLabel("lblTerms", LinesOfText(lines, "l"));  // which fits at any size
      report.design.labels[1].size = (kLetterRoom - header) / static_cast<double>(lines) / 1.25;
      const ReportLayout layout = LayOut(report);
      ASSERT_EQ(GrownOn(layout), lines);
      ASSERT_LE(layout.pages.size(), 3U);
    }
  }
}

TEST(ReportLayout, NeedsNoColumns) {
  Report report = Make(0);
  report.design.columns.clear();
  EXPECT_EQ(LayOut(report).pages.size(), 1U);
}

TEST(ReportText, HasALineALineAndItsColumnsApart) {
  const test::ScratchDirectory directory;
  Report report = Make(0);
  report.lines = {{"  two words ", "1.00"}, {"", "2.00"}, {"Gr\374n", ""}, {"", ""}, {"one\r\ntwo\tthree", "3.00"}};
  WriteReportText(report, directory / "report.txt");
  EXPECT_EQ(directory.Content("report.txt"), "  two words \t1.00\n\t2.00\nGr\303\274n\n\none  two three\t3.00\n");
  EXPECT_THROW(WriteReportText(report, directory / "none" / "report.txt"), FileError);
}

}  // namespace
}  // namespace lantos
