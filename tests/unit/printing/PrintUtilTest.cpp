#include "printing/PrintUtil.h"

#include "admin/TestShop.h"

namespace lantos {
namespace {

using Pen = PrintUtil::Pen;

class DirectPrinting : public testing::Test, protected test::TestShop {
 protected:
  DirectPrinting() { printer.BeginPrintJob(); }

  std::vector<std::string> Printed() {
    printer.EndPrintJob();
    std::vector<std::string> lines;
    if (desktop.printed.empty()) return lines;
    for (const auto& line : desktop.printed.back().lines) {
      EXPECT_EQ(line.size(), 1U);
      lines.push_back(line.front());
    }
    return lines;
  }
  static std::string Blanks(std::size_t count) { return std::string(count, ' '); }

  PrintUtil printer{desktop, "rptSlip", "Slip of B. Adams"};
};

TEST_F(DirectPrinting, GoesStraightToThePrinterUnderItsName) {
  printer.PrintText("one");
  printer.PrintText("");
  printer.PrintText("three");
  EXPECT_EQ(Printed(), (std::vector<std::string>{"one", "", "three"}));
  ASSERT_EQ(desktop.printed.size(), 1U);
  EXPECT_EQ(desktop.printed[0].design.name, "rptSlip");
  EXPECT_EQ(desktop.printed[0].title, "Slip of B. Adams");
  EXPECT_EQ(desktop.printed[0].design.orientation, ui::Orientation::Portrait);
  EXPECT_EQ(desktop.printerDialogs, 0);
  EXPECT_TRUE(desktop.previews.empty());
}

TEST_F(DirectPrinting, ThePenStaysWhereItIsToldTo) {
  printer.PrintText("Hours ", Pen::Stays);
  printer.PrintText("8.00");
  printer.PrintText("next", Pen::Stays);
  EXPECT_EQ(Printed(), (std::vector<std::string>{"Hours 8.00", "next"}));
}

TEST_F(DirectPrinting, ATextStandsAgainstTheRightEdgeButForOneCharacter) {
  ASSERT_EQ(printer.PageWidth(), 94U);
  printer.PrintText("Shop", Pen::Stays);
  printer.PrintRight("Payroll Stub");
  EXPECT_EQ(Printed(), std::vector<std::string>{"Shop" + Blanks(94 - 4 - 12 - 1) + "Payroll Stub"});
}

TEST_F(DirectPrinting, ATextStandsInTheMiddle) {
  printer.PrintCentered("even");
  printer.PrintCentered("odd", Pen::Stays);
  printer.PrintText("!");
  EXPECT_EQ(Printed(), (std::vector<std::string>{Blanks(45) + "even", Blanks(45) + "odd!"}));
}

TEST_F(DirectPrinting, AnEmptyTextIsALineOrNothing) {
  printer.PrintCentered("", Pen::Stays);
  printer.PrintRight("", Pen::Stays);
  EXPECT_EQ(Printed(), std::vector<std::string>{});
  EXPECT_TRUE(desktop.printed.empty());
  printer.BeginPrintJob();
  printer.PrintCentered("");
  printer.PrintRight("");
  printer.PrintText("third");
  const std::vector<std::string> lines = Printed();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[2], "third");
}

TEST_F(DirectPrinting, WhatIsWiderThanThePageIsCutAtItsEdge) {
  const std::string wide(100, 'x');
  printer.PrintText(wide);
  printer.PrintCentered(wide);
  printer.PrintRight(wide);
  EXPECT_EQ(Printed(), std::vector<std::string>(3, wide.substr(0, 94)));
}

TEST_F(DirectPrinting, ALaterTextLiesOverAnEarlierOneAndBlanksCoverNothing) {
  printer.PrintText(std::string(50, '-'), Pen::Stays);
  printer.PrintCentered("a b");
  EXPECT_EQ(Printed(), std::vector<std::string>{std::string(45, '-') + "a-b--"});
}

TEST_F(DirectPrinting, ATurnedPageIsWider) {
  EXPECT_TRUE(printer.SetOrientation(ui::Orientation::Landscape));
  EXPECT_EQ(printer.PageWidth(), 126U);
  printer.PrintText("wide");
  Printed();
  EXPECT_EQ(desktop.printed[0].design.orientation, ui::Orientation::Landscape);
  EXPECT_EQ(LayOut(desktop.printed[0]).detailSize, LayOut(desktop.printed[0], ui::kLetterPaper).detailSize);
}

// An upright page of any paper holds the whole width.
TEST_F(DirectPrinting, TheWidthIsThatOfThePaper) {
  for (const ui::Orientation orientation : {ui::Orientation::Portrait, ui::Orientation::Landscape}) {
    printer.BeginPrintJob();
    printer.SetOrientation(orientation);
    printer.PrintText("x");
    printer.EndPrintJob();
    const ui::Report& job = desktop.printed.back();
    const auto width = static_cast<double>(printer.PageWidth());
    for (const ui::Paper paper : {ui::kLetterPaper, ui::kA4Paper}) {
      const ui::ReportLayout layout = LayOut(job, paper);
      EXPECT_LE(width * layout.characterWidth, layout.width + 0.01);
    }
    const ui::ReportLayout letter = LayOut(job);
    EXPECT_GT((width + 1) * letter.characterWidth, letter.width);
  }
}

TEST_F(DirectPrinting, ABoxHasItsPlaceAndLeavesThePenAlone) {
  printer.PrintText("in");
  printer.PrintBox(0, 0, 20.5F, 4);
  printer.PrintText("side");
  EXPECT_EQ(Printed(), (std::vector<std::string>{"in", "side", "", ""}));
  ASSERT_EQ(desktop.printed[0].boxes.size(), 1U);
  const ui::DetailBox& box = desktop.printed[0].boxes[0];
  EXPECT_EQ((std::vector<double>{box.left, box.top, box.right, box.bottom}), (std::vector<double>{0, 0, 20.5, 4}));
}

TEST_F(DirectPrinting, AJobThatIsBegunAnewIsBlank) {
  printer.PrintText("gone");
  printer.PrintBox(0, 0, 1, 1);
  printer.SetOrientation(ui::Orientation::Landscape);
  printer.BeginPrintJob();
  EXPECT_EQ(printer.PageWidth(), 94U);
  EXPECT_EQ(Printed(), std::vector<std::string>{});
}

TEST_F(DirectPrinting, NothingIsDrawnOrPrintedOutsideOfAJob) {
  printer.PrintText("once");
  EXPECT_EQ(Printed(), std::vector<std::string>{"once"});
  printer.PrintText("behind");
  printer.PrintBox(0, 0, 1, 1);
  printer.EndPrintJob();
  EXPECT_EQ(desktop.printed.size(), 1U);
}

}  // namespace
}  // namespace lantos
